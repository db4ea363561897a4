// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

#include <Windows/Windows.h>

#include <map>
#include <Windows/Controls.h>

namespace {

struct EventName
{
    OSType theClass;
    UInt32 theKind;
    const char* theName;
};

const EventName kControlNames[] = {
    {kEventClassControl, kEventControlDispose, "Dispose"},
    {kEventClassControl, kEventControlHit, "Hit"},
    {kEventClassControl, kEventControlClick, "Click"},
    {kEventClassControl, kEventControlTrack, "Track"},
    {kEventClassControl, kEventControlActivate, "Activate"},
    {kEventClassControl, kEventControlDeactivate, "Deactivate"},
    {kEventClassControl, kEventControlInvalidateForSizeChange, "InvalidateForSizeChange"},
    {kEventClassControl, kEventControlValueFieldChanged, "ValueFieldChanged"},
    {kEventClassControl, kEventControlAddedSubControl, "AddedSubControl"},
    {kEventClassControl, kEventControlRemovingSubControl, "RemovingSubControl"},
    {kEventClassControl, kEventControlBoundsChanged, "BoundsChanged"},
    {kEventClassControl, kEventControlVisibilityChanged, "VisibilityChanged"},
    {kEventClassControl, kEventControlTitleChanged, "TitleChanged"},
    {kEventClassControl, kEventControlOwningWindowChanged, "OwningWindowChanged"},
    {kEventClassControl, kEventControlHiliteChanged, "HiliteChanged"},
    {kEventClassControl, kEventControlEnabledStateChanged, "EnabledStateChanged"},
    {kEventClassCommand, kEventCommandProcess, "CommandProcess"},
    {kEventClassTextField, kEventTextAccepted, "TextAccepted"},
    {kEventClassTextField, kEventTextShouldChangeInRange, "TextShouldChangeInRange"},
    {kEventClassTextField, kEventTextDidChange, "TextDidChange"},
    {kEventClassControl, kEventControlFocusPartChanged, "FocusPartChanged"},
};

const EventName kRequestNames[] = {
    {kEventClassControl, kEventControlSetFocusPart, "SetFocusPart"},
    {kEventClassControl, kEventControlSimulateHit, "SimulateHit"},
    {kEventClassControl, kEventControlGetAutoToggleValue, "GetAutoToggleValue"},
    {kEventClassControl, kEventControlSetData, "SetData"},
    {kEventClassControl, kEventControlGetData, "GetData"},
};

// What only controls hear that a program looks after itself.
const EventName kCustomNames[] = {
    {kEventClassControl, kEventControlInitialize, "Initialize"},
    {kEventClassControl, kEventControlHitTest, "HitTest"},
    {kEventClassControl, kEventControlInterceptSubviewClick, "InterceptSubviewClick"},
};

const EventName kWindowNames[] = {
    {kEventClassWindow, kEventWindowActivated, "Activated"},
    {kEventClassWindow, kEventWindowDeactivated, "Deactivated"},
    {kEventClassWindow, kEventWindowHandleActivate, "HandleActivate"},
    {kEventClassWindow, kEventWindowHandleDeactivate, "HandleDeactivate"},
    {kEventClassWindow, kEventWindowShowing, "Showing"},
    {kEventClassWindow, kEventWindowHiding, "Hiding"},
    {kEventClassWindow, kEventWindowShown, "Shown"},
    {kEventClassWindow, kEventWindowHidden, "Hidden"},
    {kEventClassWindow, kEventWindowCollapsing, "Collapsing"},
    {kEventClassWindow, kEventWindowCollapsed, "Collapsed"},
    {kEventClassWindow, kEventWindowExpanding, "Expanding"},
    {kEventClassWindow, kEventWindowExpanded, "Expanded"},
    {kEventClassWindow, kEventWindowZoomed, "Zoomed"},
    {kEventClassWindow, kEventWindowBoundsChanging, "BoundsChanging"},
    {kEventClassWindow, kEventWindowBoundsChanged, "BoundsChanged"},
    {kEventClassWindow, kEventWindowResizeStarted, "ResizeStarted"},
    {kEventClassWindow, kEventWindowResizeCompleted, "ResizeCompleted"},
    {kEventClassWindow, kEventWindowDragStarted, "DragStarted"},
    {kEventClassWindow, kEventWindowDragCompleted, "DragCompleted"},
    {kEventClassWindow, kEventWindowClosed, "Closed"},
    {kEventClassWindow, kEventWindowCollapse, "Collapse"},
    {kEventClassWindow, kEventWindowExpand, "Expand"},
    {kEventClassWindow, kEventWindowClose, "Close"},
    {kEventClassWindow, kEventWindowZoom, "Zoom"},
    {kEventClassWindow, kEventWindowFocusAcquired, "FocusAcquired"},
    {kEventClassWindow, kEventWindowFocusRelinquish, "FocusRelinquish"},
    {kEventClassWindow, kEventWindowDispose, "Dispose"},
    {kEventClassWindow, kEventWindowModified, "Modified"},
    {kEventClassWindow, kEventWindowAttributesChanged, "AttributesChanged"},
    {kEventClassWindow, kEventWindowTitleChanged, "TitleChanged"},
    {kEventClassWindow, kEventWindowTransitionStarted, "TransitionStarted"},
    {kEventClassWindow, kEventWindowTransitionCompleted, "TransitionCompleted"},
};

template <size_t kCount>
void AddTypes(const EventName (&theNames)[kCount], std::vector<EventTypeSpec>* theTypes)
{
    for (const EventName& theName : theNames) {
        theTypes->push_back({theName.theClass, theName.theKind});
    }
}

template <size_t kCount>
bool FindName(const EventName (&theNames)[kCount], EventRef theEvent, std::string* theFound)
{
    for (const EventName& theName : theNames) {
        if (theName.theClass == GetEventClass(theEvent) && theName.theKind == GetEventKind(theEvent)) {
            *theFound = theName.theName;
            return true;
        }
    }
    return false;
}

} // namespace

// Watching -----------------------------------------------------------------------------------------------

EventWatch::EventWatch(EventTargetRef theTarget, std::string theName, Log& theLog,
                       std::vector<EventTypeSpec> theTypes, Action theAction)
    : mName(std::move(theName)),
      mLog(theLog),
      mAction(std::move(theAction))
{
    EXPECT_EQ(InstallEventHandler(theTarget, Call, theTypes.size(), theTypes.data(), this, &mReference),
              noErr);
}

EventWatch::~EventWatch()
{
    // Its target may be gone, and the handler with it.
    RemoveEventHandler(mReference);
}

std::vector<EventTypeSpec> EventWatch::ControlNotifications()
{
    std::vector<EventTypeSpec> theTypes;
    AddTypes(kControlNames, &theTypes);
    return theTypes;
}

std::vector<EventTypeSpec> EventWatch::ControlEvents()
{
    std::vector<EventTypeSpec> theTypes = ControlNotifications();
    AddTypes(kRequestNames, &theTypes);
    return theTypes;
}

std::vector<EventTypeSpec> EventWatch::WindowEvents()
{
    std::vector<EventTypeSpec> theTypes;
    AddTypes(kWindowNames, &theTypes);
    return theTypes;
}

OSStatus EventWatch::Call(EventHandlerCallRef, EventRef theEvent, void* theUserData)
{
    auto* theWatch = static_cast<EventWatch*>(theUserData);
    theWatch->mLog.push_back(theWatch->mName + ": " + NameOf(theEvent));
    return theWatch->mAction == nullptr ? OSStatus{eventNotHandledErr} : theWatch->mAction(theEvent);
}

std::string NameOf(EventRef theEvent)
{
    std::string theName;
    if (FindName(kControlNames, theEvent, &theName) || FindName(kRequestNames, theEvent, &theName) ||
        FindName(kCustomNames, theEvent, &theName) || FindName(kWindowNames, theEvent, &theName)) {
        return theName;
    }
    return std::to_string(GetEventClass(theEvent)) + "/" + std::to_string(GetEventKind(theEvent));
}

std::string TextOf(CFStringRef theString)
{
    if (theString == nullptr) {
        return "(null)";
    }
    std::vector<char> theBuffer(static_cast<size_t>(CFStringGetLength(theString)) * 4 + 1);
    CFStringGetCString(theString, theBuffer.data(), static_cast<CFIndex>(theBuffer.size()),
                       kCFStringEncodingUTF8);
    return theBuffer.data();
}

std::string Describe(const Rect& theRect)
{
    return std::to_string(theRect.left) + ", " + std::to_string(theRect.top) + ", " +
           std::to_string(theRect.right) + ", " + std::to_string(theRect.bottom);
}

Rect MakeRect(int theLeft, int theTop, int theRight, int theBottom)
{
    Rect theRect;
    SetRect(&theRect, static_cast<short>(theLeft), static_cast<short>(theTop), static_cast<short>(theRight),
            static_cast<short>(theBottom));
    return theRect;
}

// A window with controls ----------------------------------------------------------------------------------

ManagerTest::ManagerTest()
    : mWindow(NewWindow())
{
    ShowWindow(mWindow);
}

ManagerTest::~ManagerTest()
{
    // What the actions refer to is gone with the test's body.
    mWatches.clear();
    while (WindowRef theWindow = GetWindowList()) {
        DisposeWindow(theWindow);
    }
    SetUserFocusWindow(kUserFocusAuto);
    FlushEventQueue(GetMainEventQueue());
}

WindowRef ManagerTest::NewWindow(WindowClass theClass, WindowAttributes theAttributes)
{
    const Rect theBounds = MakeRect(100, 100, 500, 400);
    WindowRef theWindow = nullptr;
    EXPECT_EQ(CreateNewWindow(theClass, theAttributes, &theBounds, &theWindow), noErr);
    return theWindow;
}

// The controls stand in the window as their numbers have it: each kind has a row of its own.

ControlRef ManagerTest::NewSlider(SInt32 theValue, SInt32 theMinimum, SInt32 theMaximum, bool theIsLive)
{
    const Rect theBounds = MakeRect(10, 10, 126, 30);
    ControlRef theControl = nullptr;
    EXPECT_EQ(CreateSliderControl(mWindow, &theBounds, theValue, theMinimum, theMaximum,
                                  kControlSliderPointsDownOrRight, 0, theIsLive, nullptr, &theControl),
              noErr);
    return theControl;
}

ControlRef ManagerTest::NewPushButton(const char* theTitle)
{
    const Rect theBounds = MakeRect(10, 40, 110, 60);
    ControlRef theControl = nullptr;
    EXPECT_EQ(CreatePushButtonControl(mWindow, &theBounds, TestString(theTitle), &theControl), noErr);
    return theControl;
}

ControlRef ManagerTest::NewCheckBox(SInt32 theValue, bool theAutoToggle)
{
    const Rect theBounds = MakeRect(10, 70, 110, 90);
    ControlRef theControl = nullptr;
    EXPECT_EQ(
        CreateCheckBoxControl(mWindow, &theBounds, CFSTR("Check"), theValue, theAutoToggle, &theControl),
        noErr);
    return theControl;
}

ControlRef ManagerTest::NewRadioButton(SInt32 theValue, bool theAutoToggle)
{
    const Rect theBounds = MakeRect(10, 100, 110, 120);
    ControlRef theControl = nullptr;
    EXPECT_EQ(
        CreateRadioButtonControl(mWindow, &theBounds, CFSTR("Radio"), theValue, theAutoToggle, &theControl),
        noErr);
    return theControl;
}

ControlRef ManagerTest::NewEditText(const char* theText)
{
    const Rect theBounds = MakeRect(10, 130, 210, 150);
    ControlRef theControl = nullptr;
    EXPECT_EQ(
        CreateEditUnicodeTextControl(mWindow, &theBounds, TestString(theText), false, nullptr, &theControl),
        noErr);
    return theControl;
}

ControlRef ManagerTest::NewStaticText(const char* theText)
{
    const Rect theBounds = MakeRect(10, 160, 210, 180);
    ControlRef theControl = nullptr;
    EXPECT_EQ(CreateStaticTextControl(mWindow, &theBounds, TestString(theText), nullptr, &theControl), noErr);
    return theControl;
}

ControlRef ManagerTest::NewGroupBox()
{
    const Rect theBounds = MakeRect(5, 5, 395, 200);
    ControlRef theControl = nullptr;
    EXPECT_EQ(CreateGroupBoxControl(mWindow, &theBounds, CFSTR("Box"), true, &theControl), noErr);
    return theControl;
}

void ManagerTest::Watch(ControlRef theControl, const std::string& theName,
                        std::vector<EventTypeSpec> theTypes, EventWatch::Action theAction)
{
    mWatches.push_back(std::make_unique<EventWatch>(GetControlEventTarget(theControl), theName, mLog,
                                                    std::move(theTypes), std::move(theAction)));
}

void ManagerTest::Watch(WindowRef theWindow, const std::string& theName, std::vector<EventTypeSpec> theTypes,
                        EventWatch::Action theAction)
{
    mWatches.push_back(std::make_unique<EventWatch>(GetWindowEventTarget(theWindow), theName, mLog,
                                                    std::move(theTypes), std::move(theAction)));
}

Log ManagerTest::TakeLog()
{
    Log theLog;
    theLog.swap(mLog);
    return theLog;
}

// A person ------------------------------------------------------------------------------------------------

OSStatus ManagerTest::Mouse(UInt32 theKind, int theAcross, int theDown, UInt32 theModifiers)
{
    Rect theContent;
    GetWindowBounds(mWindow, kWindowGlobalPortRgn, &theContent);
    const HIPoint thePoint = CGPointMake(static_cast<CGFloat>(theContent.left + theAcross),
                                         static_cast<CGFloat>(theContent.top + theDown));
    TestEvent theEvent(kEventClassMouse, theKind, kEventAttributeUserEvent);
    theEvent.Set(kEventParamMouseLocation, typeHIPoint, thePoint);
    theEvent.Set(kEventParamWindowRef, typeWindowRef, mWindow);
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
    theEvent.Set(kEventParamMouseButton, typeMouseButton, EventMouseButton{kEventMouseButtonPrimary});
    theEvent.Set(kEventParamClickCount, typeUInt32, UInt32{1});
    return SendEventToEventTarget(theEvent.Get(), GetWindowEventTarget(mWindow));
}

void ManagerTest::Click(int theAcross, int theDown)
{
    Mouse(kEventMouseDown, theAcross, theDown);
    Mouse(kEventMouseUp, theAcross, theDown);
}

OSStatus ManagerTest::Key(UInt32 theCode, const char* theText, UInt32 theModifiers)
{
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown, kEventAttributeUserEvent);
    theEvent.Set(kEventParamKeyCode, typeUInt32, theCode);
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
    const std::string theBytes = theText;
    const std::vector<UniChar> theUnits(theBytes.begin(), theBytes.end());
    SetEventParameter(theEvent.Get(), kEventParamKeyUnicodes, typeUnicodeText,
                      theUnits.size() * sizeof(UniChar), theUnits.data());
    const char theCharacter = theBytes.empty() ? '\0' : theBytes[0];
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, theCharacter);
    return SendEventToEventTarget(theEvent.Get(), GetUserFocusEventTarget());
}

void ManagerTest::Type(const std::string& theText)
{
    for (const char theCharacter : theText) {
        const char theOne[] = {theCharacter, '\0'};
        Key(kVK_ANSI_A, theOne);
    }
}

std::string ManagerTest::TextIn(ControlRef theControl) const
{
    CFStringRef theString = nullptr;
    EXPECT_EQ(GetControlData(theControl, kControlEntireControl, kControlEditTextCFStringTag, sizeof theString,
                             &theString, nullptr),
              noErr);
    std::string theText = TextOf(theString);
    if (theString != nullptr) {
        CFRelease(theString);
    }
    return theText;
}

const Rect EveryControl::kBounds = {20, 10, 40, 110};

ControlRef EveryControl::Make()
{
    ControlRef theControl = nullptr;
    EXPECT_EQ(GetParam().theMaker(mWindow, &kBounds, &theControl), noErr);
    return theControl;
}

const std::vector<EventTypeSpec> kWithoutHilite = {{kEventClassControl, kEventControlValueFieldChanged},
                                                   {kEventClassControl, kEventControlHit},
                                                   {kEventClassCommand, kEventCommandProcess}};

Host::ControlLook ControlKindTest::LookOf(ControlRef theControl)
{
    class LookReader : public Host::Presenter
    {
    public:
        void ControlLooks(const Host::ControlLook& theLook) override { mLooks.push_back(theLook); }
        std::vector<Host::ControlLook> mLooks;
    };
    LookReader theReader;
    Host::PresenterRegistry::ReplayLooks(theReader);
    for (const Host::ControlLook& theLook : theReader.mLooks) {
        if (theLook.theId == Host::IdentifierOf(theControl)) {
            return theLook;
        }
    }
    return {};
}

bool ControlKindTest::Flag(ControlRef theControl, ResType theTag)
{
    Boolean theFlag = 2;
    Size theSize = 0;
    EXPECT_EQ(GetControlData(theControl, 0, theTag, sizeof theFlag, &theFlag, &theSize), noErr);
    EXPECT_EQ(theSize, 1);
    return theFlag != 0;
}

void ControlKindTest::CheckFlag(ControlRef theControl, ResType theTag, bool theStart)
{
    EXPECT_EQ(Flag(theControl, theTag), theStart);
    const Boolean theOther = !theStart;
    EXPECT_EQ(SetControlData(theControl, 0, theTag, sizeof theOther, &theOther), noErr);
    EXPECT_EQ(Flag(theControl, theTag), !theStart);
    EXPECT_EQ(SetControlData(theControl, 0, theTag, 2, "ab"), errDataSizeMismatch);
    Boolean theFlag = 0;
    EXPECT_EQ(GetControlData(theControl, 0, theTag, 0, &theFlag, nullptr), errDataSizeMismatch);
}

std::vector<int>& ControlKindTest::Actions()
{
    static std::vector<int> theActions;
    return theActions;
}

void ControlKindTest::NoteAction(ControlRef, ControlPartCode thePart)
{
    Actions().push_back(thePart);
}

ControlRef ControlKindTest::NewLittleArrows(ControlActionUPP theAction)
{
    const Rect theBounds = MakeRect(300, 210, 313, 234);
    ControlRef theControl = nullptr;
    EXPECT_EQ(CreateLittleArrowsControl(mWindow, &theBounds, 5, 0, 9, 3, &theControl), noErr);
    SetControlAction(theControl, theAction);
    return theControl;
}

ControlRef ControlKindTest::NewFieldAt(int theLeft, int theTop, const char* theText)
{
    const Rect theBounds = MakeRect(theLeft, theTop, theLeft + 50, theTop + 16);
    ControlRef theField = nullptr;
    CreateEditUnicodeTextControl(mWindow, &theBounds, TestString(theText), false, nullptr, &theField);
    return theField;
}

ControlRef ControlKindTest::Focus() const
{
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(GetKeyboardFocus(mWindow, &theControl), noErr);
    return theControl;
}

OSErr ControlKindTest::SetFocus(ControlRef theControl)
{
    return SetKeyboardFocus(mWindow, theControl, kControlEditTextPart);
}

void ControlKindTest::Select(ControlRef theField, SInt16 theStart, SInt16 theEnd)
{
    const ControlEditTextSelectionRec theSelection = {theStart, theEnd};
    SetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection);
}

std::string ControlKindTest::Selection(ControlRef theField)
{
    ControlEditTextSelectionRec theSelection = {};
    GetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection, nullptr);
    return std::to_string(theSelection.selStart) + "-" + std::to_string(theSelection.selEnd);
}

Rect WindowTest::Bounds(WindowRef theWindow, WindowRegionCode theRegion)
{
    Rect theBounds = MakeRect(0, 0, 0, 0);
    EXPECT_EQ(GetWindowBounds(theWindow, theRegion, &theBounds), noErr);
    return theBounds;
}

std::string WindowTest::Content(WindowRef theWindow)
{
    return Describe(Bounds(theWindow, kWindowContentRgn));
}

std::string WindowTest::Title(WindowRef theWindow)
{
    CFStringRef theTitle = nullptr;
    EXPECT_EQ(CopyWindowTitleAsCFString(theWindow, &theTitle), noErr);
    std::string theText = TextOf(theTitle);
    CFRelease(theTitle);
    return theText;
}

bool WindowTest::IsClosedOff(WindowRef theWindow)
{
    Host::WheelAction theAction;
    theAction.theWindow = Host::IdentifierOf(theWindow);
    theAction.theLines = 1;
    return !Person().WheelTurned(theAction);
}

WindowTest::Windows WindowTest::Order()
{
    Windows theWindows;
    for (WindowRef theWindow = GetWindowList(); theWindow != nullptr; theWindow = GetNextWindow(theWindow)) {
        theWindows.push_back(theWindow);
    }
    return theWindows;
}
