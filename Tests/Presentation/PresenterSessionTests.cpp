// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The same session in front of every presenter: the program hears the same events in the same order, and the
// screen ends up the same. The program that runs these tests says with which presenters.

#include "PresenterKinds.h"
#include "TestMenus.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>
#include <thread>

#include "HeadlessPresenter.h"

namespace {

using Host::PresenterRegistry;
using Host::UserResult;
using Host::UserSimulator;

class PresenterSession : public testing::TestWithParam<PresenterKind>
{
protected:
    PresenterSession() { EXPECT_TRUE(PresenterRegistry::Use(GetParam().theFactory())); }

    ~PresenterSession() override { PresenterRegistry::Use(Host::HeadlessPresenter::Make()); }

    // Turns the event loop until it brings nothing new; what it brings is noted.
    void Turn()
    {
        for (size_t theCount = mLog.size() + 1; theCount != mLog.size();) {
            theCount = mLog.size();
            RunCurrentEventLoop(0);
        }
    }

    Log Take()
    {
        Turn();
        Log theLog;
        theLog.swap(mLog);
        return theLog;
    }

    Log mLog;
    UserSimulator mUser;
};

class PresenterSessionWithWindow : public PresenterSession
{
protected:
    PresenterSessionWithWindow()
        : mWindowLog(GetWindowEventTarget(mProgram.mWindow.Get()), mLog)
    {
        Turn();
        mLog.clear();
    }

    Log After(const UserResult& theResult)
    {
        EXPECT_TRUE(theResult) << theResult.Explain();
        return Take();
    }

    WindowRef Window() const { return mProgram.mWindow.Get(); }

    TestProgram mProgram;
    EventLog mWindowLog;
};

TEST_P(PresenterSession, ShowingAWindowMakesItActiveOnce)
{
    TestWindow theWindow;
    const EventLog theWindowLog(GetWindowEventTarget(theWindow.Get()), mLog);
    EXPECT_EQ(Take(), Log());
    EXPECT_TRUE(IsWindowActive(theWindow.Get()));
}

TEST_P(PresenterSessionWithWindow, ControlsAreWorked)
{
    EXPECT_EQ(After(mUser.Click(mProgram.mCheckBox)),
              (Log{"mouse moved", "mouse down", "click", "mouse up", "value", "hit"}));
    EXPECT_EQ(After(mUser.DragSlider(mProgram.mSlider, 8)),
              (Log{"mouse down", "click", "mouse dragged", "mouse dragged", "mouse up", "value", "hit"}));
    EXPECT_EQ(After(mUser.Click(mProgram.mButton)),
              (Log{"mouse moved", "mouse down", "click", "mouse up", "hit"}));
    EXPECT_EQ(GetControl32BitValue(mProgram.mCheckBox), 1);
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), 8);
}

TEST_P(PresenterSessionWithWindow, TextIsTyped)
{
    After(mUser.Click(mProgram.mField));
    EXPECT_EQ(After(mUser.TypeText("Hi")),
              (Log{"modifiers", "key down", "key up", "modifiers", "key down", "key up"}));
    EXPECT_EQ(After(mUser.PressKey(kVK_Delete)), (Log{"key down", "key up"}));
    EXPECT_EQ(After(mUser.PressKey(kVK_Return)), (Log{"key down", "key up"}));
    EXPECT_EQ(TextOf(mProgram.mField), "H");
}

TEST_P(PresenterSessionWithWindow, AlertsAreAnswered)
{
    DialogRef theAlert = nullptr;
    CreateStandardAlert(kAlertNoteAlert, CFSTR("Switch off?"), nullptr, nullptr, &theAlert);
    const EventLoopTimerProcPtr thePress = [](EventLoopTimerRef, void* theUser) {
        static_cast<UserSimulator*>(theUser)->Click({FrontWindow(), {'alrt', 1}});
    };
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, thePress, &mUser, &theTimer);
    DialogItemIndex theItem = 0;
    EXPECT_EQ(RunStandardAlert(theAlert, nullptr, &theItem), noErr);
    EXPECT_EQ(theItem, kAlertStdAlertOKButton);
    RemoveEventLoopTimer(theTimer);
    Turn();
    EXPECT_TRUE(IsWindowActive(Window()));
}

TEST_P(PresenterSessionWithWindow, SheetsKeepTheirParentOut)
{
    DialogRef theSheet = nullptr;
    CreateStandardSheet(kAlertNoteAlert, CFSTR("Save?"), nullptr, nullptr, nullptr, &theSheet);
    ShowSheetWindow(GetDialogWindow(theSheet), Window());
    Turn();
    EXPECT_TRUE(IsWindowActive(GetDialogWindow(theSheet)));
    EXPECT_FALSE(mUser.Click(mProgram.mCheckBox));
    EXPECT_FALSE(mUser.MoveWindow(Window(), 10, 60));
    EXPECT_TRUE(mUser.PressKey(kVK_Return));
    Turn();
    EXPECT_EQ(GetDialogWindow(theSheet), nullptr);
    EXPECT_TRUE(IsWindowActive(Window()));
    EXPECT_TRUE(mUser.Click(mProgram.mCheckBox));
}

TEST_P(PresenterSessionWithWindow, WindowsAreWorked)
{
    EXPECT_EQ(After(mUser.MoveWindow(Window(), 150, 120)),
              (Log{"mouse moved", "mouse down", "mouse up", "drag started", "bounds changing",
                   "bounds changed", "drag completed"}));
    EXPECT_EQ(After(mUser.ResizeWindow(Window(), 400, 250)),
              (Log{"mouse moved", "mouse down", "mouse up", "resize started", "bounds changing",
                   "bounds changed", "resize completed"}));
    EXPECT_EQ(After(mUser.CollapseWindow(Window())), (Log{"mouse moved", "mouse down", "mouse up", "collapse",
                                                          "collapsing", "collapsed", "deactivated"}));
    EXPECT_EQ(After(mUser.ExpandWindow(Window())), (Log{"expand", "expanding", "expanded", "activated"}));
    Rect theContent = {};
    GetWindowBounds(Window(), kWindowContentRgn, &theContent);
    EXPECT_EQ(theContent.left, 150);
    EXPECT_EQ(theContent.top, 120);
    EXPECT_EQ(theContent.right, 550);
    EXPECT_EQ(theContent.bottom, 370);
}

TEST_P(PresenterSessionWithWindow, WhatTheProgramChangesComesBackAsNobodysAction)
{
    const Rect thePlace = MakeRect(200, 150, 600, 400);
    SetControl32BitValue(mProgram.mSlider, 3);
    SetControl32BitValue(mProgram.mCheckBox, 2);
    SetControlData(mProgram.mField, kControlEntireControl, kControlEditTextTextTag, 4, "Home");
    SetWindowBounds(Window(), kWindowContentRgn, &thePlace);
    SetWindowTitleWithCFString(Window(), CFSTR("Other"));
    EXPECT_EQ(Take(), (Log{"value", "value", "bounds changing", "bounds changed"}));
}

TEST_P(PresenterSessionWithWindow, ABurstOfChangesEndsOnTheLastValue)
{
    for (SInt32 theStep = 0; theStep <= 10000; ++theStep) {
        SetControl32BitValue(mProgram.mSlider, theStep % 11);
    }
    mLog.clear();
    EXPECT_EQ(Take(), Log());
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), 10000 % 11);
}

TEST_P(PresenterSessionWithWindow, AnotherPresenterShowsTheSamePicture)
{
    After(mUser.Click(mProgram.mCheckBox));
    const std::string theBefore = Screen().DescribeScreen();
    PresenterRegistry::Use(Host::HeadlessPresenter::Make());
    Turn();
    EXPECT_EQ(Screen().DescribeScreen(), theBefore);
    PresenterRegistry::Use(GetParam().theFactory());
    EXPECT_EQ(Take(), Log());
    EXPECT_EQ(Screen().DescribeScreen(), theBefore);
}

TEST_P(PresenterSessionWithWindow, TimersRunWhileThePresenterWaits)
{
    EventLoopTimerRef theTimer = nullptr;
    const auto theNote = [](EventLoopTimerRef, void* theLog) {
        static_cast<Log*>(theLog)->push_back("timer");
        QuitEventLoop(GetCurrentEventLoop());
    };
    InstallEventLoopTimer(GetCurrentEventLoop(), 0.001, 0, theNote, &mLog, &theTimer);
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    RemoveEventLoopTimer(theTimer);
    EXPECT_EQ(Take(), Log{"timer"});
}

// Events of the program's own.
constexpr EventTypeSpec kOwnEvent = {'Test', 1};

void PostOwnEvent()
{
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, kOwnEvent.eventClass, kOwnEvent.eventKind, 0, kEventAttributeUserEvent, &theEvent);
    PostEventToQueue(GetMainEventQueue(), theEvent, kEventPriorityStandard);
    ReleaseEvent(theEvent);
}

// Calls theAction for each of them.
class OwnEventHandler
{
public:
    explicit OwnEventHandler(std::function<void()> theAction)
        : mAction(std::move(theAction))
    {
        InstallEventHandler(GetApplicationEventTarget(), Handle, 1, &kOwnEvent, this, &mHandler);
    }
    ~OwnEventHandler() { RemoveEventHandler(mHandler); }
    OwnEventHandler(const OwnEventHandler&) = delete;
    OwnEventHandler& operator=(const OwnEventHandler&) = delete;

private:
    static OSStatus Handle(EventHandlerCallRef, EventRef, void* theUserData)
    {
        static_cast<OwnEventHandler*>(theUserData)->mAction();
        return noErr;
    }

    std::function<void()> mAction;
    EventHandlerRef mHandler = nullptr;
};

TEST_P(PresenterSessionWithWindow, PostedEventsAreHandledInTheirOrder)
{
    const OwnEventHandler theHandler([this] {
        mLog.push_back("posted");
        if (mLog.size() == 2) {
            QuitApplicationEventLoop();
        }
    });
    PostOwnEvent();
    PostOwnEvent();
    EXPECT_EQ(mLog, Log());
    RunApplicationEventLoop();
    EXPECT_EQ(Take(), (Log{"posted", "posted"}));
}

TEST_P(PresenterSessionWithWindow, AnotherThreadWakesTheLoop)
{
    int theCount = 0;
    const OwnEventHandler theHandler([&theCount] {
        ++theCount;
        QuitApplicationEventLoop();
    });
    std::thread thePoster(PostOwnEvent);
    RunApplicationEventLoop();
    thePoster.join();
    EXPECT_EQ(theCount, 1);
}

// Handles the program's events until theIsDone says so.
void RunNestedLoop(const bool& theIsDone)
{
    EventRef theEvent = nullptr;
    while (!theIsDone &&
           ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventRemoveFromQueue, &theEvent) == noErr) {
        SendEventToEventTarget(theEvent, GetEventDispatcherTarget());
        ReleaseEvent(theEvent);
    }
}

TEST_P(PresenterSessionWithWindow, ALoopInsideOfAHandlerDoesWhatTheOuterOneDoes)
{
    bool theIsNested = false;
    bool theIsDone = false;
    const OwnEventHandler theHandler([&] {
        if (theIsNested) {
            mLog.push_back("inner");
            theIsDone = true;
            return;
        }
        theIsNested = true;
        mLog.push_back("outer begins");
        EXPECT_TRUE(mUser.Click(mProgram.mCheckBox));
        PostOwnEvent();
        RunNestedLoop(theIsDone);
        mLog.push_back("outer ends");
        QuitApplicationEventLoop();
    });
    PostOwnEvent();
    RunApplicationEventLoop();
    EXPECT_EQ(Take(), (Log{"outer begins", "mouse moved", "mouse down", "click", "mouse up", "value", "hit",
                           "inner", "outer ends"}));
}

TEST_P(PresenterSessionWithWindow, MenusAreWorked)
{
    const TestMenus theMenus;
    const MenuLog theMenuLog(mLog);
    Take();
    EXPECT_EQ(After(mUser.OpenMenu("Heating")),
              (Log{"begin", "update heat", "update none", "update rset", "opening Heating"}));
    After(mUser.CloseMenus());
    const Log theChoice = After(mUser.ChooseCommand('rset'));
    EXPECT_EQ(std::count(theChoice.begin(), theChoice.end(), "command rset"), 1);
    const Log theKey = After(mUser.PressKey(kVK_ANSI_R, cmdKey));
    EXPECT_EQ(std::count(theKey.begin(), theKey.end(), "command rset"), 1);
}

// What the program hears, and what is on the screen, after each step of a session.
class PresenterComparison : public PresenterSession
{
protected:
    // One line for each, so that a failure shows which are different.
    std::string PlayWith(Host::PresenterFactory theFactory)
    {
        PresenterRegistry::Use(theFactory());
        TestProgram theProgram;
        const TestMenus theMenus;
        const EventLog theWindowLog(GetWindowEventTarget(theProgram.mWindow.Get()), mLog);
        const MenuLog theMenuLog(mLog);
        Play(theProgram);
        Note(mUser.CloseWindow(theProgram.mWindow.Get()));
        std::string theCourse;
        for (const std::string& theEntry : std::exchange(mLog, {})) {
            theCourse += theEntry + '\n';
        }
        return theCourse;
    }

private:
    void Play(const TestProgram& theProgram)
    {
        const WindowRef theWindow = theProgram.mWindow.Get();
        Note(mUser.Click(theProgram.mField));
        Note(mUser.TypeText("Attic & more"));
        Note(mUser.PressKey(kVK_LeftArrow, shiftKey));
        Note(mUser.PressKey(kVK_Delete));
        Note(mUser.PressKey(kVK_Tab));
        Note(mUser.Click(theProgram.mCheckBox));
        Note(mUser.DragSlider(theProgram.mSlider, 9));
        Note(mUser.OpenMenu("Heating"));
        Note(mUser.ChooseCommand('heat'));
        Note(mUser.PressKey(kVK_ANSI_R, cmdKey));
        PlayWithKeysAlone();
        Note(mUser.MoveWindow(theWindow, 150, 120));
        Note(mUser.ResizeWindow(theWindow, 400, 250));
        Note(mUser.CollapseWindow(theWindow));
        Note(mUser.ExpandWindow(theWindow));
        Note(mUser.Click(theProgram.mButton));
    }

    static constexpr UInt32 kF10 = 0x6D;

    // From the field on, once round and back.
    void PlayWithKeysAlone()
    {
        for (const UInt32 theKey : {kVK_Tab, kVK_Space, kVK_Tab, kVK_RightArrow, kVK_PageDown, kVK_End,
                                    kVK_Tab, kVK_Space, kVK_Tab}) {
            Note(mUser.PressKey(theKey));
        }
        Note(mUser.TypeText("Hall"));
        Note(mUser.PressKey(kVK_Tab, shiftKey));
        Note(mUser.PressKey(kVK_Return));
        Note(mUser.PressKey(kVK_Escape));
        Note(mUser.PressKey(kF10));
        Note(mUser.PressKey(kVK_ANSI_H, optionKey));
    }

    void Note(const UserResult& theResult)
    {
        mLog.push_back(theResult ? "done" : theResult.Explain());
        Turn();
        mLog.push_back(Screen().DescribeScreen());
    }
};

TEST_P(PresenterComparison, TheProgramHearsTheSameAndEndsTheSameAsWithoutAScreen)
{
    const std::string theExpected = PlayWith(Host::HeadlessPresenter::Make);
    EXPECT_NE(theExpected.find("Attic & mor"), std::string::npos);
    EXPECT_EQ(PlayWith(GetParam().theFactory), theExpected);
}

TEST_P(PresenterSessionWithWindow, ClosingTheWindowTakesItOffTheScreen)
{
    const Log theLog = After(mUser.CloseWindow(Window()));
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "closed"), 1);
    EXPECT_EQ(Screen().DescribeScreen(), "Nothing is on the screen.\n");
}

std::string NameOf(const testing::TestParamInfo<PresenterKind>& theInfo)
{
    return theInfo.param.theName;
}

INSTANTIATE_TEST_SUITE_P(Presenters, PresenterSession, testing::ValuesIn(PresenterKinds()), NameOf);
INSTANTIATE_TEST_SUITE_P(Presenters, PresenterSessionWithWindow, testing::ValuesIn(PresenterKinds()), NameOf);
INSTANTIATE_TEST_SUITE_P(Presenters, PresenterComparison, testing::ValuesIn(PresenterKinds()), NameOf);

} // namespace
