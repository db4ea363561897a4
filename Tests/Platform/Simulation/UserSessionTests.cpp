// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TestProgram.h"

#include <gtest/gtest.h>
#include <Simulation/UserSession.h>
#include <Simulation/VirtualClock.h>

namespace {

using Host::UserSession;

const EventTypeSpec kTestEvent = {'Test', 1};

void PostTestEvent()
{
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, kTestEvent.eventClass, kTestEvent.eventKind, 0, kEventAttributeNone, &theEvent);
    PostEventToQueue(GetMainEventQueue(), theEvent, kEventPriorityStandard);
    ReleaseEvent(theEvent);
}

OSStatus NoteEvent(EventHandlerCallRef, EventRef, void* theUserData)
{
    static_cast<Log*>(theUserData)->push_back("event");
    return noErr;
}

class UserSessionTest : public testing::Test
{
protected:
    UserSession::Step Noting(const std::string& theName)
    {
        return [this, theName](Host::UserSimulator&) { mLog.push_back(theName); };
    }

    Host::VirtualClock mClock;
    Log mLog;
};

TEST_F(UserSessionTest, DoesItsStepsInOrderAndThenQuits)
{
    UserSession theSession;
    theSession.Then(Noting("one")).Then(Noting("two"));
    EXPECT_FALSE(theSession.IsOver());
    EXPECT_EQ(mLog, Log());
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"one", "two"}));
    EXPECT_TRUE(theSession.IsOver());
}

TEST_F(UserSessionTest, QuitsAtOnceWithoutSteps)
{
    const UserSession theSession;
    RunApplicationEventLoop();
    EXPECT_TRUE(theSession.IsOver());
}

TEST_F(UserSessionTest, WorksWithTheProgram)
{
    const TestProgram theProgram;
    UserSession theSession;
    theSession.Then(
        [&](Host::UserSimulator& theUser) { EXPECT_TRUE(theUser.DragSlider(theProgram.mSlider, 8)); });
    theSession.Then(
        [&](Host::UserSimulator& theUser) { EXPECT_TRUE(theUser.CloseWindow(theProgram.mWindow.Get())); });
    Log theLog;
    const EventLog theSlider(GetControlEventTarget(theProgram.mSlider), theLog);
    RunApplicationEventLoop();
    EXPECT_EQ(theLog, (Log{"click", "value", "hit", "control gone"}));
    EXPECT_FALSE(IsValidWindowPtr(theProgram.mWindow.Get()));
}

TEST_F(UserSessionTest, LetsTheLoopHandleWhatAStepHasPosted)
{
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetApplicationEventTarget(), NoteEvent, 1, &kTestEvent, &mLog, &theHandler);
    UserSession theSession;
    theSession.Then([this](Host::UserSimulator&) {
        mLog.push_back("post three");
        PostTestEvent();
        PostTestEvent();
        PostTestEvent();
    });
    theSession.Then(Noting("next"));
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"post three", "event", "event", "event", "next"}));
    RemoveEventHandler(theHandler);
}

TEST_F(UserSessionTest, IsNotHeldUpByEventsThatNobodyTakes)
{
    PostTestEvent();
    UserSession theSession;
    theSession.Then(Noting("one")).Then(Noting("two"));
    RunCurrentEventLoop(1);
    EXPECT_EQ(mLog, (Log{"one", "two"}));
    FlushEventQueue(GetMainEventQueue());
}

TEST_F(UserSessionTest, TakesStepsThatAStepAdds)
{
    UserSession theSession;
    theSession.Then([&](Host::UserSimulator&) { theSession.Then(Noting("added")); });
    theSession.Then(Noting("planned"));
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"planned", "added"}));
}

TEST_F(UserSessionTest, GoesOnWhenAStepIsAddedAfterItsEnd)
{
    UserSession theSession;
    RunApplicationEventLoop();
    theSession.Then(Noting("later"));
    EXPECT_FALSE(theSession.IsOver());
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, Log{"later"});
}

TEST_F(UserSessionTest, BeginsNoStepInsideOfAnother)
{
    UserSession theSession;
    theSession.Then([this](Host::UserSimulator&) {
        mLog.push_back("begin");
        RunCurrentEventLoop(5);
        mLog.push_back("end");
    });
    theSession.Then(Noting("next"));
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"begin", "end", "next"}));
}

TEST_F(UserSessionTest, LeavesItsStepsUndoneWhenItGoes)
{
    {
        UserSession theSession;
        theSession.Then(Noting("never"));
    }
    RunCurrentEventLoop(1);
    EXPECT_EQ(mLog, Log());
}

TEST_F(UserSessionTest, GoesOnInsideOfAModalLoop)
{
    const TestProgram theProgram;
    UserSession theSession;
    theSession.Then([&](Host::UserSimulator&) {
        mLog.push_back("runs " + std::to_string(RunAppModalLoopForWindow(theProgram.mWindow.Get())));
    });
    theSession.Then([&](Host::UserSimulator&) {
        mLog.push_back("quits");
        QuitAppModalLoopForWindow(theProgram.mWindow.Get());
    });
    theSession.Then(Noting("afterwards"));
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"quits", "runs 0", "afterwards"}));
}

TEST_F(UserSessionTest, QuitsInsideOfAModalLoopAfterTheLastStep)
{
    const TestProgram theProgram;
    UserSession theSession;
    theSession.Then([&](Host::UserSimulator&) {
        mLog.push_back("runs " + std::to_string(RunAppModalLoopForWindow(theProgram.mWindow.Get())));
    });
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, Log{"runs " + std::to_string(eventLoopQuitErr)});
    EXPECT_TRUE(theSession.IsOver());
}

} // namespace
