// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where the dispatcher sends events, the application's default behaviour, and commands.

#include "EventTestSupport.h"

namespace {

const OSStatus kMine = 4711;

class EventTargetDispatcher : public testing::Test
{
protected:
    EventTargetDispatcher()
    {
        const Rect theBounds = {100, 100, 300, 400};
        const Rect theFieldBounds = {10, 10, 30, 200};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &mWindow);
        CreateEditUnicodeTextControl(mWindow, &theFieldBounds, CFSTR(""), false, nullptr, &mField);
        CreatePushButtonControl(mWindow, &theFieldBounds, CFSTR("Button"), &mButton);
        ShowWindow(mWindow);
        SelectWindow(mWindow);
        SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
        // What the showing posted is not of interest here.
        FlushEventQueue(GetMainEventQueue());
    }
    ~EventTargetDispatcher() override { DisposeWindow(mWindow); }

    Log mLog;
    WindowRef mWindow = nullptr;
    ControlRef mField = nullptr;
    ControlRef mButton = nullptr;
};

} // namespace

TEST_F(EventTargetDispatcher, UnknownClassesGoToTheApplication)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "application", mLog, kMine);
    const TestEvent theEvent;
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), kMine);
    EXPECT_EQ(mLog, Log{"application"});
}

TEST_F(EventTargetDispatcher, HandlersOnTheDispatcherSeeAnEventFirst)
{
    const TestHandler theApplication(GetApplicationEventTarget(), "application", mLog, noErr);
    const TestHandler theDispatcher(GetEventDispatcherTarget(), "dispatcher", mLog, eventNotHandledErr);
    const TestEvent theEvent;
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), noErr);
    EXPECT_EQ(mLog, (Log{"dispatcher", "application"}));
}

TEST_F(EventTargetDispatcher, APostTargetInTheEventDecides)
{
    const TestHandler theApplication(GetApplicationEventTarget(), "application", mLog, noErr);
    const TestHandler theButton(GetControlEventTarget(mButton), "button", mLog, eventNotHandledErr);
    TestEvent theEvent;
    theEvent.Set(kEventParamPostTarget, typeEventTargetRef, GetControlEventTarget(mButton));
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), noErr);
    EXPECT_EQ(mLog, (Log{"button", "application"}));
    theEvent.Set(kEventParamPostOptions, typeUInt32, OptionBits(kEventTargetDontPropagate));
    mLog.clear();
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), eventNotHandledErr);
    EXPECT_EQ(mLog, Log{"button"});
}

struct Route
{
    OSType theClass;
    UInt32 theKind;
    const char* thePlace;
};

void PrintTo(const Route& theRoute, std::ostream* theStream)
{
    *theStream << theRoute.thePlace << " for kind " << theRoute.theKind;
}

class EventRoute : public EventTargetDispatcher, public testing::WithParamInterface<Route>
{
};

TEST_P(EventRoute, LeadsToWhereTheClassBelongs)
{
    const EventTypeSpec theType = {GetParam().theClass, GetParam().theKind};
    const TestHandler theField(GetControlEventTarget(mField), "focus", mLog, Answer(kMine), {theType});
    const TestHandler theButton(GetControlEventTarget(mButton), "control", mLog, Answer(kMine), {theType});
    const TestHandler theWindow(GetWindowEventTarget(mWindow), "window", mLog, Answer(kMine), {theType});
    const TestHandler theApplication(GetApplicationEventTarget(), "application", mLog, Answer(kMine),
                                     {theType});
    TestEvent theEvent(theType.eventClass, theType.eventKind);
    if (theType.eventClass == kEventClassControl) {
        theEvent.Set(kEventParamDirectObject, typeControlRef, mButton);
    } else if (theType.eventClass == kEventClassWindow) {
        theEvent.Set(kEventParamDirectObject, typeWindowRef, mWindow);
    } else if (theType.eventClass == kEventClassMouse) {
        theEvent.Set(kEventParamWindowRef, typeWindowRef, mWindow);
    }
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), kMine);
    EXPECT_EQ(mLog, Log{GetParam().thePlace});
}

INSTANTIATE_TEST_SUITE_P(EachClass, EventRoute,
                         testing::Values(Route{kEventClassKeyboard, kEventRawKeyDown, "focus"},
                                         Route{kEventClassKeyboard, kEventRawKeyUp, "focus"},
                                         Route{kEventClassTextInput, kEventTextInputUnicodeForKeyEvent,
                                               "focus"},
                                         Route{kEventClassCommand, kEventCommandProcess, "focus"},
                                         Route{kEventClassControl, kEventControlHit, "control"},
                                         Route{kEventClassWindow, kEventWindowZoomed, "window"},
                                         Route{kEventClassMouse, kEventMouseMoved, "window"},
                                         Route{kEventClassApplication, kEventAppShown, "application"}));

TEST_F(EventTargetDispatcher, AnObjectThatIsGoneLeavesTheEventToTheApplication)
{
    const EventTypeSpec theType = {kEventClassMouse, kEventMouseMoved};
    const TestHandler theApplication(GetApplicationEventTarget(), "application", mLog, Answer(kMine),
                                     {theType});
    TestEvent theEvent(kEventClassMouse, kEventMouseMoved);
    theEvent.Set(kEventParamWindowRef, typeWindowRef, InventedReference<WindowRef>());
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), kMine);
}

TEST_F(EventTargetDispatcher, TheUserFocusIsTheFocusedControlThenTheWindowThenTheApplication)
{
    EXPECT_EQ(GetUserFocusEventTarget(), GetControlEventTarget(mField));
    ClearKeyboardFocus(mWindow);
    EXPECT_EQ(GetUserFocusEventTarget(), GetWindowEventTarget(mWindow));
    HideWindow(mWindow);
    EXPECT_EQ(GetUserFocusEventTarget(), GetApplicationEventTarget());
}

// --- Keys become text -------------------------------------------------------------------------------

TEST_F(EventTargetDispatcher, AKeyThatNobodyHandlesBecomesTextForTheFocus)
{
    const EventTypeSpec theKeyType = {kEventClassKeyboard, kEventRawKeyDown};
    const EventTypeSpec theTextType = {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent};
    UniChar theText[2] = {0, 0};
    UInt32 theKey = 0;
    const TestHandler theApplication(GetApplicationEventTarget(), "key in application", mLog,
                                     Answer(eventNotHandledErr), {theKeyType});
    const TestHandler theField(GetControlEventTarget(mField), "text in field", mLog,
                               [&](EventHandlerCallRef, EventRef theEvent) {
                                   GetEventParameter(theEvent, kEventParamTextInputSendText, typeUnicodeText,
                                                     nullptr, sizeof theText, nullptr, theText);
                                   EventRef theKeyEvent = nullptr;
                                   GetEventParameter(theEvent, kEventParamTextInputSendKeyboardEvent,
                                                     typeEventRef, nullptr, sizeof theKeyEvent, nullptr,
                                                     &theKeyEvent);
                                   GetEventParameter(theKeyEvent, kEventParamKeyCode, typeUInt32, nullptr,
                                                     sizeof theKey, nullptr, &theKey);
                                   return OSStatus(noErr);
                               },
                               {theTextType});
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown, kEventAttributeUserEvent);
    theEvent.Set(kEventParamKeyCode, typeUInt32, UInt32(kVK_ANSI_X));
    const UniChar theTyped[] = {'x', 'y'};
    theEvent.Set(kEventParamKeyUnicodes, typeUnicodeText, theTyped);
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), noErr);
    EXPECT_EQ(mLog, (Log{"key in application", "text in field"}));
    EXPECT_EQ(theText[0], 'x');
    EXPECT_EQ(theText[1], 'y');
    EXPECT_EQ(theKey, UInt32(kVK_ANSI_X));
}

TEST_F(EventTargetDispatcher, AKeyWithNothingButItsCharacterBecomesThatText)
{
    const EventTypeSpec theTextType = {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent};
    std::vector<UniChar> theText;
    const TestHandler theField(GetControlEventTarget(mField), "text", mLog,
                               [&](EventHandlerCallRef, EventRef theEvent) {
                                   ByteCount theSize = 0;
                                   GetEventParameter(theEvent, kEventParamTextInputSendText, typeUnicodeText,
                                                     nullptr, 0, &theSize, nullptr);
                                   theText.assign(theSize / sizeof(UniChar), 0);
                                   GetEventParameter(theEvent, kEventParamTextInputSendText, typeUnicodeText,
                                                     nullptr, theSize, nullptr, theText.data());
                                   return OSStatus(noErr);
                               },
                               {theTextType});
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyRepeat);
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, char('q'));
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), noErr);
    EXPECT_EQ(theText, std::vector<UniChar>{'q'});
    // Beyond ASCII the character's meaning depends on the keyboard, which the event does not tell.
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, UInt8(0x8E));
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), noErr);
    EXPECT_TRUE(theText.empty());
    RemoveEventParameter(theEvent.Get(), kEventParamKeyMacCharCodes);
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget()), noErr);
    EXPECT_TRUE(theText.empty());
}

TEST_F(EventTargetDispatcher, AHandledKeyOneWithTheCommandKeyAndAReleaseTypeNothing)
{
    const EventTypeSpec theTextType = {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent};
    const TestHandler theText(GetControlEventTarget(mField), "text", mLog, Answer(noErr), {theTextType});
    const TestEvent theRelease(kEventClassKeyboard, kEventRawKeyUp);
    SendEventToEventTarget(theRelease.Get(), GetEventDispatcherTarget());
    TestEvent theCommand(kEventClassKeyboard, kEventRawKeyDown);
    theCommand.Set(kEventParamKeyModifiers, typeUInt32, UInt32(cmdKey));
    SendEventToEventTarget(theCommand.Get(), GetEventDispatcherTarget());
    const TestHandler theKey(GetWindowEventTarget(mWindow), "key", mLog, Answer(noErr),
                             {{kEventClassKeyboard, kEventRawKeyDown}});
    const TestEvent thePress(kEventClassKeyboard, kEventRawKeyDown);
    SendEventToEventTarget(thePress.Get(), GetEventDispatcherTarget());
    EXPECT_EQ(mLog, Log{"key"});
}

// --- Commands ---------------------------------------------------------------------------------------

TEST_F(EventTargetDispatcher, ACommandIsSentToTheUserFocusAsItIs)
{
    HICommand theSeen{};
    const TestHandler theHandler(GetControlEventTarget(mField), "focus", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     return GetEventParameter(theEvent, kEventParamDirectObject,
                                                              typeHICommand, nullptr, sizeof theSeen, nullptr,
                                                              &theSeen);
                                 },
                                 {{kEventClassCommand, kEventCommandProcess}});
    HICommand theCommand{};
    theCommand.commandID = 'mine';
    theCommand.attributes = kHICommandFromWindow;
    EXPECT_EQ(ProcessHICommand(&theCommand), noErr);
    const UInt32 theID = theSeen.commandID;
    const UInt32 theAttributes = theSeen.attributes;
    EXPECT_EQ(theID, UInt32('mine'));
    EXPECT_EQ(theAttributes, UInt32(kHICommandFromWindow));
}

TEST_F(EventTargetDispatcher, ACommandThatNobodyHandlesIsNotHandled)
{
    HICommand theCommand{};
    theCommand.commandID = 'mine';
    EXPECT_EQ(ProcessHICommand(&theCommand), eventNotHandledErr);
    theCommand.commandID = kHICommandQuit;
    EXPECT_EQ(ProcessHICommand(&theCommand), eventNotHandledErr) << "no application loop is running";
    EXPECT_EQ(ProcessHICommand(nullptr), paramErr);
}
