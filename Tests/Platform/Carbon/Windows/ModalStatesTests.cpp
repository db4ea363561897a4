// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Modal states and modal loops.

#include "LoopSteps.h"
#include "ManagerTestSupport.h"
#include "MenuTestSupport.h"
#include "Toolbox/HeadlessScreen.h"

#include <Windows/Windows.h>

namespace {

class ModalStates : public WindowTest
{
protected:
    ModalStates()
        : mOther(NewWindow())
    {
        ShowWindow(mOther);
    }

    void Note(const std::string& theText) { mLog.push_back(theText); }

    LoopSteps mSteps;
    WindowRef mOther; // in front
};

OSStatus NoteCommand(EventHandlerCallRef, EventRef, void* theCount)
{
    ++*static_cast<int*>(theCount);
    return noErr;
}

const EventTypeSpec kProcess = {kEventClassCommand, kEventCommandProcess};

} // namespace

// --- States ------------------------------------------------------------------------------------------

TEST_F(ModalStates, AStateKeepsAPersonFromEveryOtherWindow)
{
    WindowRef thePalette = NewWindow(kUtilityWindowClass, kWindowNoAttributes);
    ShowWindow(thePalette);
    EXPECT_EQ(BeginAppModalStateForWindow(mWindow), noErr);
    EXPECT_FALSE(IsClosedOff(mWindow));
    EXPECT_TRUE(IsClosedOff(mOther));
    EXPECT_TRUE(IsClosedOff(thePalette)) << "although it stands in front";
    EXPECT_TRUE(IsWindowActive(mWindow));
    EXPECT_EQ(EndAppModalStateForWindow(mWindow), noErr);
    EXPECT_FALSE(IsClosedOff(mOther));
    EXPECT_FALSE(IsClosedOff(thePalette));
}

TEST_F(ModalStates, WhatHangsFromTheWindowOrIsModalInFrontOfItIsOpen)
{
    BeginAppModalStateForWindow(mWindow);
    WindowRef theSheet = NewWindow(kSheetWindowClass, kWindowNoAttributes);
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_FALSE(IsClosedOff(theSheet));
    EXPECT_TRUE(IsClosedOff(mWindow));
    HideSheetWindow(theSheet);
    WindowRef theAlert = NewWindow(kMovableAlertWindowClass, kWindowNoAttributes);
    ShowWindow(theAlert);
    EXPECT_FALSE(IsClosedOff(theAlert));
    EXPECT_TRUE(IsClosedOff(mWindow));
    EndAppModalStateForWindow(mWindow);
}

TEST_F(ModalStates, TheNewestStateCounts)
{
    WindowRef theDialog = NewWindow(kMovableModalWindowClass, kWindowNoAttributes);
    ShowWindow(theDialog);
    BeginAppModalStateForWindow(theDialog);
    BeginAppModalStateForWindow(mWindow);
    EXPECT_FALSE(IsClosedOff(mWindow)) << "although the dialog stands in front";
    EXPECT_TRUE(IsClosedOff(theDialog));
    EndAppModalStateForWindow(mWindow);
    EXPECT_TRUE(IsClosedOff(mWindow));
    EXPECT_FALSE(IsClosedOff(theDialog));
    EndAppModalStateForWindow(theDialog);
}

TEST_F(ModalStates, AWindowThatIsNotShownKeepsNobodyOut)
{
    BeginAppModalStateForWindow(mWindow);
    HideWindow(mWindow);
    EXPECT_FALSE(IsClosedOff(mOther));
    ShowWindow(mWindow);
    EXPECT_TRUE(IsClosedOff(mOther));
    EndAppModalStateForWindow(mWindow);
}

TEST_F(ModalStates, AWindowHasOneState)
{
    EXPECT_EQ(EndAppModalStateForWindow(mWindow), windowNoAppModalStateErr);
    EXPECT_EQ(BeginAppModalStateForWindow(mWindow), noErr);
    EXPECT_EQ(BeginAppModalStateForWindow(mWindow), windowAppModalStateAlreadyExistsErr);
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), windowAppModalStateAlreadyExistsErr);
    EXPECT_EQ(QuitAppModalLoopForWindow(mWindow), windowNoAppModalStateErr);
    EXPECT_EQ(EndAppModalStateForWindow(mWindow), noErr);
    EXPECT_EQ(EndAppModalStateForWindow(mWindow), windowNoAppModalStateErr);
}

TEST_F(ModalStates, AStateRetainsItsWindow)
{
    BeginAppModalStateForWindow(mOther);
    DisposeWindow(mOther);
    EXPECT_TRUE(IsValidWindowPtr(mOther));
    EXPECT_EQ(EndAppModalStateForWindow(mOther), noErr);
    EXPECT_FALSE(IsValidWindowPtr(mOther));
    EXPECT_FALSE(IsClosedOff(mWindow));
}

TEST_F(ModalStates, RefusesWindowsThatAreGone)
{
    DisposeWindow(mOther);
    EXPECT_EQ(BeginAppModalStateForWindow(mOther), errInvalidWindowRef);
    EXPECT_EQ(EndAppModalStateForWindow(mOther), errInvalidWindowRef);
    EXPECT_EQ(RunAppModalLoopForWindow(mOther), errInvalidWindowRef);
    EXPECT_EQ(QuitAppModalLoopForWindow(mOther), errInvalidWindowRef);
    EXPECT_EQ(RunAppModalLoopForWindow(nullptr), errInvalidWindowRef);
}

TEST_F(ModalStates, APresenterIsToldThatTheWindowIsModal)
{
    const HeadlessScreen theScreen;
    const auto theLook = [&] { return theScreen->FindWindow(Host::IdentifierOf(mWindow)); };
    BeginAppModalStateForWindow(mWindow);
    EXPECT_TRUE(theLook()->theIsModal);
    EndAppModalStateForWindow(mWindow);
    EXPECT_FALSE(theLook()->theIsModal);
}

// --- Loops -------------------------------------------------------------------------------------------

TEST_F(ModalStates, ALoopRunsUntilItIsQuit)
{
    mSteps.Then([&] {
        Note(IsClosedOff(mOther) ? "closed off" : "open");
        EXPECT_EQ(QuitAppModalLoopForWindow(mWindow), noErr);
        EXPECT_EQ(QuitAppModalLoopForWindow(mWindow), noErr);
    });
    mSteps.Then([&] { Note("too late"); });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), noErr);
    EXPECT_EQ(TakeLog(), Log{"closed off"});
    EXPECT_FALSE(IsClosedOff(mOther));
    EXPECT_EQ(QuitAppModalLoopForWindow(mWindow), windowNoAppModalStateErr);
}

TEST_F(ModalStates, ALoopHandlesTheEventsOfTheQueue)
{
    Watch(mWindow, "window", {kTestEvent}, [&](EventRef) {
        QuitAppModalLoopForWindow(mWindow);
        return OSStatus{noErr};
    });
    TestEvent theEvent(1);
    theEvent.Set(kEventParamPostTarget, typeEventTargetRef, GetWindowEventTarget(mWindow));
    PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), noErr);
    EXPECT_FALSE(IsEventInQueue(GetMainEventQueue(), theEvent.Get()));
}

TEST_F(ModalStates, AHiddenWindowHasNoLoop)
{
    HideWindow(mWindow);
    mSteps.Then([&] { Note("loop"); });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), windowWrongStateErr);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_EQ(BeginAppModalStateForWindow(mWindow), noErr);
    EndAppModalStateForWindow(mWindow);
}

TEST_F(ModalStates, ALoopDoesNotEndTheStateOfAnotherCall)
{
    mSteps.Then([&] {
        EXPECT_EQ(EndAppModalStateForWindow(mWindow), windowNoAppModalStateErr);
        QuitAppModalLoopForWindow(mWindow);
    });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), noErr);
}

TEST_F(ModalStates, LoopsMayBeNested)
{
    mSteps.Then([&] {
        EXPECT_EQ(RunAppModalLoopForWindow(mOther), noErr);
        Note("inner over");
    });
    mSteps.Then([&] {
        QuitAppModalLoopForWindow(mWindow);
        Note("outer quit");
    });
    mSteps.Then([&] {
        Note(IsClosedOff(mWindow) ? "inner runs" : "inner is over");
        QuitAppModalLoopForWindow(mOther);
    });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), noErr);
    EXPECT_EQ(TakeLog(), (Log{"outer quit", "inner runs", "inner over"}));
}

TEST_F(ModalStates, DisposingTheWindowEndsItsLoop)
{
    mSteps.Then([&] {
        DisposeWindow(mWindow);
        EXPECT_TRUE(IsValidWindowPtr(mWindow));
    });
    mSteps.Then([&] { Note("too late"); });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), noErr);
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ModalStates, DisposingAWindowWithASheetEndsItsLoop)
{
    mSteps.Then([&] {
        WindowRef theSheet = NewWindow(kSheetWindowClass, kWindowNoAttributes);
        ShowSheetWindow(theSheet, mWindow);
        DisposeWindow(mWindow);
    });
    mSteps.Then([&] { Note("too late"); });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), noErr);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ModalStates, ALoopEndsWhenThereIsNothingToWaitFor)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), eventLoopTimedOutErr);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("waits for ever"), std::string::npos);
    EXPECT_FALSE(IsClosedOff(mOther));
}

TEST_F(ModalStates, QuittingTheEventLoopEndsTheLoop)
{
    mSteps.Then([&] { QuitEventLoop(GetMainEventLoop()); });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), eventLoopQuitErr);
}

TEST_F(ModalStates, QuittingTheApplicationEndsAllLoops)
{
    mSteps.Then([&] { Note("outer " + std::to_string(RunAppModalLoopForWindow(mWindow))); });
    mSteps.Then([&] { Note("inner " + std::to_string(RunAppModalLoopForWindow(mOther))); });
    mSteps.Then([&] { QuitApplicationEventLoop(); });
    mSteps.Then([&] { Note("too late"); });
    RunApplicationEventLoop();
    EXPECT_EQ(TakeLog(), (Log{"inner " + std::to_string(eventLoopQuitErr),
                              "outer " + std::to_string(eventLoopQuitErr)}));
}

TEST_F(ModalStates, QuittingEndsALoopWithoutAnApplicationLoop)
{
    mSteps.Then([&] { EXPECT_TRUE(Person().QuitAsked()); });
    mSteps.Then([&] { Note("too late"); });
    EXPECT_EQ(RunAppModalLoopForWindow(mWindow), eventLoopQuitErr);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ModalStates, ALoopInsideOfAnApplicationLoopLeavesThatRunning)
{
    mSteps.Then([&] { Note(std::to_string(RunAppModalLoopForWindow(mWindow))); });
    mSteps.Then([&] { QuitAppModalLoopForWindow(mWindow); });
    mSteps.Then([&] {
        Note("still running");
        QuitApplicationEventLoop();
    });
    RunApplicationEventLoop();
    EXPECT_EQ(TakeLog(), (Log{"0", "still running"}));
}

// --- Menus -------------------------------------------------------------------------------------------

TEST_F(ModalStates, TheMenusOfTheBarAreHeld)
{
    int theCommands = 0;
    MenuRef theMenu = nullptr;
    CreateNewMenu(200, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Save"), 0, 'save', nullptr);
    SetMenuItemCommandKey(theMenu, 1, false, 'S');
    InsertMenu(theMenu, 0);
    InstallMenuEventHandler(theMenu, NoteCommand, 1, &kProcess, &theCommands, nullptr);
    const Host::ObjectId theId = BarLook().theMenus.at(0).theId;
    const Host::KeyAction theKey = {kVK_ANSI_S, "s", Host::kCommandModifier};
    const auto theTry = [&] {
        const bool isOpened = Person().MenuOpened(theId);
        const bool isChosen = Person().MenuChosen({theId, 1}, 0);
        Person().KeyPressed(theKey);
        Person().KeyReleased(theKey);
        return isOpened || isChosen;
    };

    BeginAppModalStateForWindow(mWindow);
    EXPECT_FALSE(theTry());
    EXPECT_EQ(theCommands, 0);
    EXPECT_FALSE(BarLook().theMenus.at(0).theIsEnabled);
    EndAppModalStateForWindow(mWindow);
    EXPECT_TRUE(BarLook().theMenus.at(0).theIsEnabled);
    EXPECT_TRUE(theTry());
    EXPECT_EQ(theCommands, 2);
    ClearMenuBar();
    ReleaseMenu(theMenu);
}

TEST_F(ModalStates, TheBarIsShownAnewWhenALoopBeginsAndEnds)
{
    const HeadlessScreen theScreen;
    MenuRef theMenu = nullptr;
    CreateNewMenu(200, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, CFSTR("Things"));
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Save"), 0, 'save', nullptr);
    InsertMenu(theMenu, 0);
    RunCurrentEventLoop(0);
    const auto theIsEnabled = [&] { return theScreen->MenuBar().theMenus.at(0).theIsEnabled; };
    EXPECT_TRUE(theIsEnabled());
    mSteps.Then([&] {
        EXPECT_FALSE(theIsEnabled());
        QuitAppModalLoopForWindow(mWindow);
    });
    RunAppModalLoopForWindow(mWindow);
    RunCurrentEventLoop(0);
    EXPECT_TRUE(theIsEnabled());
    ClearMenuBar();
    ReleaseMenu(theMenu);
}
