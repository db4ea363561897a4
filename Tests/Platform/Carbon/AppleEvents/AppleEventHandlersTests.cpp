// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventTestSupport.h"
#include "EventTestSupport.h"

#include <algorithm>

namespace {

class AppleEventHandlers : public EventLoopTest
{
protected:
    TestEventHandler::Action Noting(const std::string& theName, OSErr theAnswer = noErr)
    {
        return [this, theName, theAnswer](const AppleEvent*, AppleEvent*) {
            mLog.push_back(theName);
            return theAnswer;
        };
    }

    Log Sent(AEEventClass theClass, AEEventID theIdentifier)
    {
        mLog.clear();
        if (const OSErr theStatus = TestAppleEvent(theClass, theIdentifier).Send(); theStatus != noErr) {
            mLog.push_back(std::to_string(theStatus));
        }
        return mLog;
    }
};

const Log kNotHandled = {std::to_string(errAEEventNotHandled)};

} // namespace

TEST_F(AppleEventHandlers, TheOneThatFitsBestIsCalled)
{
    EXPECT_EQ(Sent('clas', 'idid'), kNotHandled);
    const TestEventHandler theSystemAny(typeWildCard, typeWildCard, Noting("any of the system"), true);
    EXPECT_EQ(Sent('clas', 'idid'), Log{"any of the system"});
    const TestEventHandler theSystem('clas', 'idid', Noting("system"), true);
    EXPECT_EQ(Sent('clas', 'idid'), Log{"system"});
    const TestEventHandler theAny(typeWildCard, typeWildCard, Noting("any"));
    EXPECT_EQ(Sent('clas', 'idid'), Log{"any"});
    const TestEventHandler theIdentifier(typeWildCard, 'idid', Noting("identifier"));
    EXPECT_EQ(Sent('clas', 'idid'), Log{"identifier"});
    const TestEventHandler theClass('clas', typeWildCard, Noting("class"));
    EXPECT_EQ(Sent('clas', 'idid'), Log{"class"});
    const TestEventHandler theBoth('clas', 'idid', Noting("both"));
    EXPECT_EQ(Sent('clas', 'idid'), Log{"both"});
    EXPECT_EQ(Sent('else', 'else'), Log{"any"});
}

TEST_F(AppleEventHandlers, ASecondOneTakesThePlaceOfTheFirst)
{
    const TestEventHandler theFirst('clas', 'idid', Noting("first"));
    const TestEventHandler theSecond('clas', 'idid', Noting("second"));
    EXPECT_EQ(Sent('clas', 'idid'), Log{"second"});
}

TEST_F(AppleEventHandlers, TheyCanBeLookedUpAndRemoved)
{
    const TestEventHandler theHandler('clas', 'idid', Noting("called"));
    AEEventHandlerUPP theFunction = nullptr;
    SRefCon theReference{};
    EXPECT_EQ(AEGetEventHandler('clas', 'idid', &theFunction, &theReference, false), noErr);
    EXPECT_EQ(theFunction, &TestEventHandler::Call);
    EXPECT_EQ(theFunction(nullptr, nullptr, theReference), noErr);
    EXPECT_EQ(mLog, Log{"called"});
    const AEEventHandlerUPP theOther = [](const AppleEvent*, AppleEvent*, SRefCon) -> OSErr { return noErr; };
    EXPECT_EQ(AERemoveEventHandler('clas', 'idid', theOther, false), errAEHandlerNotFound);
    EXPECT_EQ(AERemoveEventHandler('clas', 'idid', theFunction, true), errAEHandlerNotFound);
    EXPECT_EQ(AERemoveEventHandler('clas', 'idid', nullptr, false), noErr);
    EXPECT_EQ(AERemoveEventHandler('clas', 'idid', nullptr, false), errAEHandlerNotFound);
    EXPECT_EQ(AEGetEventHandler('clas', 'idid', &theFunction, &theReference, false), errAEHandlerNotFound);
    EXPECT_EQ(Sent('clas', 'idid'), kNotHandled);
}

TEST_F(AppleEventHandlers, OneMayRemoveItself)
{
    const TestEventHandler theHandler('clas', 'idid', [&](const AppleEvent*, AppleEvent*) {
        mLog.push_back("called");
        return AERemoveEventHandler('clas', 'idid', nullptr, false);
    });
    EXPECT_EQ(Sent('clas', 'idid'), Log{"called"});
    EXPECT_EQ(Sent('clas', 'idid'), kNotHandled);
}

TEST_F(AppleEventHandlers, BadArgumentsAreRefused)
{
    AEEventHandlerUPP theFunction = nullptr;
    SRefCon theReference{};
    EXPECT_EQ(AEInstallEventHandler('clas', 'idid', nullptr, SRefCon{}, false), paramErr);
    EXPECT_EQ(AEGetEventHandler('clas', 'idid', nullptr, &theReference, false), paramErr);
    EXPECT_EQ(AEGetEventHandler('clas', 'idid', &theFunction, nullptr, false), paramErr);
    EXPECT_EQ(InvokeAEEventHandlerUPP(nullptr, nullptr, SRefCon{}, nullptr), paramErr);
}

TEST_F(AppleEventHandlers, AFunctionIsItsOwnUPP)
{
    const TestEventHandler theHandler('clas', 'idid', Noting("called"));
    AEEventHandlerUPP theFunction = nullptr;
    SRefCon theReference{};
    AEGetEventHandler('clas', 'idid', &theFunction, &theReference, false);
    const AEEventHandlerUPP theUPP = NewAEEventHandlerUPP(theFunction);
    EXPECT_EQ(InvokeAEEventHandlerUPP(nullptr, nullptr, theReference, theUPP), noErr);
    EXPECT_EQ(mLog, Log{"called"});
    DisposeAEEventHandlerUPP(theUPP);
}

// --- What happens by default --------------------------------------------------------------------------

TEST_F(AppleEventHandlers, OpeningTheProgramIsGoodByDefault)
{
    EXPECT_EQ(Sent(kCoreEventClass, kAEOpenApplication), Log{});
    EXPECT_EQ(Sent(kCoreEventClass, kAEReopenApplication), Log{});
    EXPECT_EQ(Sent(kCoreEventClass, kAEOpenDocuments), kNotHandled);
    EXPECT_EQ(Sent('else', kAEOpenApplication), kNotHandled);
}

TEST_F(AppleEventHandlers, QuittingEndsTheLoopByDefault)
{
    const TestTimer theTimer(
        1, 0, [&] { EXPECT_EQ(TestAppleEvent(kCoreEventClass, kAEQuitApplication).Send(), noErr); });
    RunApplicationEventLoop();
    EXPECT_EQ(mClock.Now(), 1001);
}

TEST_F(AppleEventHandlers, TheQuitCommandBecomesAnAppleEvent)
{
    OSErr theAnswer = userCanceledErr;
    const TestEventHandler theHandler(kCoreEventClass, kAEQuitApplication,
                                      [&](const AppleEvent*, AppleEvent*) {
                                          mLog.push_back("quit");
                                          if (theAnswer == noErr) {
                                              QuitApplicationEventLoop();
                                          }
                                          return theAnswer;
                                      });
    HICommand theCommand{};
    theCommand.commandID = kHICommandQuit;
    const TestTimer theFirst(1, 0, [&] {
        EXPECT_EQ(ProcessHICommand(&theCommand), noErr);
        theAnswer = noErr;
    });
    const TestTimer theSecond(2, 0, [&] { EXPECT_EQ(ProcessHICommand(&theCommand), noErr); });
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"quit", "quit"}));
    EXPECT_EQ(mClock.Now(), 1002);
}

// The handler's command finds no other handler, and would come back as an Apple event for ever.
TEST_F(AppleEventHandlers, AQuitHandlerMayGiveTheQuitCommand)
{
    const TestEventHandler theHandler(kCoreEventClass, kAEQuitApplication,
                                      [&](const AppleEvent*, AppleEvent*) {
                                          mLog.push_back("quit");
                                          HICommand theCommand{};
                                          theCommand.commandID = kHICommandQuit;
                                          return static_cast<OSErr>(ProcessHICommand(&theCommand));
                                      });
    HICommand theCommand{};
    theCommand.commandID = kHICommandQuit;
    const TestTimer theTimer(1, 0, [&] { ProcessHICommand(&theCommand); });
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, Log{"quit"});
}
