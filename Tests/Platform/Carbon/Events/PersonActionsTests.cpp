// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What whoever listens is told of choices from menus and of what is done by the frames of windows.

#include "TestMenus.h"

#include <gtest/gtest.h>
#include <iterator>

extern "C" EventTargetRef HostGetPersonActionTarget();

namespace {

using Host::ObjectId;

const EventTypeSpec kActions[] = {
    {kEventClassCommand, kEventCommandProcess},
    {kEventClassMenu, kEventMenuOpening},
    {kEventClassMenu, kEventMenuClosed},
    {kEventClassWindow, kEventWindowDragStarted},
    {kEventClassWindow, kEventWindowResizeStarted},
    {kEventClassWindow, kEventWindowActivated},
    {kEventClassWindow, kEventWindowClose},
    {kEventClassWindow, kEventWindowZoom},
    {kEventClassWindow, kEventWindowCollapse},
    {kEventClassWindow, kEventWindowExpand},
    {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent},
    {kEventClassApplication, kEventAppQuit},
};

std::string NameOf(EventRef theAction)
{
    const OSType theClass = GetEventClass(theAction);
    std::string theName;
    for (unsigned theShift = 32; theShift > 0; theShift -= 8) {
        theName += static_cast<char>(theClass >> (theShift - 8));
    }
    return theName + " " + std::to_string(GetEventKind(theAction));
}

class PersonActions : public testing::Test
{
protected:
    PersonActions()
        : mWindow(Screen().WindowCalled("Thermostat")),
          mWindowLog(GetWindowEventTarget(mProgram.mWindow.Get()), mLog),
          mMenuLog(mLog)
    {
        InstallEventHandler(HostGetPersonActionTarget(), Note, std::size(kActions), kActions, this,
                            &mHandler);
    }
    ~PersonActions() override { RemoveEventHandler(mHandler); }

    static Host::PresenterEvents& Gate() { return Host::PresenterRegistry::Events(); }

    Log Take()
    {
        Log theLog;
        theLog.swap(mLog);
        return theLog;
    }

    static OSStatus Note(EventHandlerCallRef theNext, EventRef theAction, void* theUserData)
    {
        auto* const theTest = static_cast<PersonActions*>(theUserData);
        theTest->mLog.push_back("begin " + NameOf(theAction));
        theTest->mCommand = Parameter<HICommand>(theAction, kEventParamDirectObject, typeHICommand);
        theTest->mObject = Parameter<WindowRef>(theAction, kEventParamDirectObject, typeWindowRef);
        if (theTest->mIsPassingOn) {
            CallNextEventHandler(theNext, theAction);
        }
        theTest->mLog.emplace_back("end");
        return theTest->mAnswer;
    }

    // Those lines that only tell of actions, without what the program is told.
    Log TakeActions()
    {
        Log theActions;
        for (const std::string& theLine : Take()) {
            if (theLine.rfind("begin ", 0) == 0) {
                theActions.push_back(theLine.substr(6));
            }
        }
        return theActions;
    }

    TestProgram mProgram;
    TestMenus mMenus;
    ObjectId mWindow;
    Log mLog;
    EventLog mWindowLog;
    MenuLog mMenuLog;
    EventHandlerRef mHandler = nullptr;
    HICommand mCommand{};
    WindowRef mObject = nullptr;
    bool mIsPassingOn = true;
    OSStatus mAnswer = noErr;
};

ObjectId MenuCalled(const std::string& theTitle)
{
    const Screen theScreen;
    for (const Host::MenuLook& theMenu : theScreen.MenuBar().theMenus) {
        if (theMenu.theTitle == theTitle) {
            return theMenu.theId;
        }
    }
    return Host::kNoObject;
}

} // namespace

TEST_F(PersonActions, SurroundAllThatFollowsFromThem)
{
    EXPECT_TRUE(Gate().WindowMoved(mWindow, {120, 90}));
    EXPECT_EQ(Take(), (Log{"begin wind 30", "drag started", "bounds changing", "bounds changed",
                           "drag completed", "end"}));
    EXPECT_EQ(mObject, mProgram.mWindow.Get());
    EXPECT_TRUE(Gate().MenuChosen({MenuCalled("Heating"), 4}, 0));
    const Log theChoice = Take();
    EXPECT_EQ(theChoice.front(), "begin cmds 1");
    EXPECT_EQ(theChoice.back(), "end");
    EXPECT_EQ(theChoice.at(theChoice.size() - 2), "command rset");
    EXPECT_EQ(mCommand.commandID, UInt32{'rset'});
    EXPECT_EQ(mCommand.menu.menuRef, mMenus.mHeating);
    EXPECT_EQ(mCommand.menu.menuItemIndex, 4);
}

TEST_F(PersonActions, AreEachCalledByWhatSaysBestWhatThePersonWants)
{
    Gate().WindowResized(mWindow, {400, 300});
    Gate().ZoomAsked(mWindow);
    Gate().CollapseAsked(mWindow, true);
    Gate().CollapseAsked(mWindow, false);
    Gate().MenuOpened(MenuCalled("File"));
    Gate().MenuClosed(MenuCalled("File"));
    EXPECT_EQ(TakeActions(), (Log{"wind 28", "wind 75", "wind 66", "wind 69", "menu 4", "menu 5"}));
    Gate().TextEdited({Screen().ControlCalled('room'), "Kitchen", 7, 7});
    EXPECT_EQ(TextOf(mProgram.mField), "Kitchen");
    const TestWindow theOther(MakeRect(10, 10, 60, 60), CFSTR("Other"));
    TakeActions();
    Gate().WindowActivated(mWindow);
    Gate().QuitAsked();
    Gate().CloseAsked(mWindow);
    EXPECT_EQ(TakeActions(), (Log{"wind 5", "appl 3", "wind 72"}));
}

TEST_F(PersonActions, AreNotToldOfWhenNothingCanFollow)
{
    Gate().WindowMoved(mWindow, {100, 80});
    Gate().WindowActivated(mWindow);
    DisableMenuItem(mMenus.mHeating, 4);
    Gate().MenuChosen({MenuCalled("Heating"), 4}, 0);
    Gate().MenuClosed(MenuCalled("Heating"));
    Gate().CollapseAsked(mWindow, false);
    EXPECT_EQ(Take(), Log{});
}

TEST_F(PersonActions, AreDoneOnceWhateverIsAnswered)
{
    mIsPassingOn = false;
    mAnswer = userCanceledErr;
    EXPECT_TRUE(Gate().WindowMoved(mWindow, {120, 90}));
    EXPECT_EQ(Take(), (Log{"begin wind 30", "end", "drag started", "bounds changing", "bounds changed",
                           "drag completed"}));
}

TEST_F(PersonActions, AreNoEventsOfTheProgram)
{
    Log theDispatched;
    const EventLog theDispatcher(GetEventDispatcherTarget(), theDispatched);
    EXPECT_TRUE(Gate().WindowMoved(mWindow, {120, 90}));
    EXPECT_EQ(theDispatched, Log{});
    EXPECT_EQ(GetCurrentEvent(), nullptr);
    RemoveEventHandler(mHandler);
    Take();
    EXPECT_TRUE(Gate().WindowMoved(mWindow, {130, 90}));
    EXPECT_EQ(Take(), (Log{"drag started", "bounds changing", "bounds changed", "drag completed"}));
}
