// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMainQueue.h"

#include "ControllersTestSupport.h"
#include "LmKeyValueStore.h"
#include "LmObservation.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>

#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// The tests wait for no time: a loop runs until what is posted has been made, or makes one turn.

namespace {

void TurnOnce()
{
    RunCurrentEventLoop(kEventDurationNoWait);
}

class LmMainQueueTest : public testing::Test
{
protected:
    // Notes each change of a key as "a: SInt32 1".
    LmObservation Watch(const char* theKey)
    {
        return LmObservation(&theStore, theKey, [this](const LmChange& theChange) {
            theLog.push_back(std::string(theChange.theKeyName.GetUTF8()) + ": " +
                             Describe(theChange.theNewValue));
        });
    }

    LmKeyValueStore theStore;
    Lines theLog;
};

} // namespace

TEST_F(LmMainQueueTest, MakesWhatIsPostedInItsOrder)
{
    const LmObservation theA = Watch("a");
    const LmObservation theB = Watch("b");
    const LmMainQueue theQueue(&theStore);
    const LmPoster& thePoster = theQueue.GetPoster();
    EXPECT_TRUE(thePoster.Set("b", LmValue(1)));
    EXPECT_TRUE(thePoster.Call([this] { theLog.push_back("called"); }));
    EXPECT_TRUE(thePoster.Set("a", LmValue(2)));
    EXPECT_TRUE(thePoster.Set("b", LmValue(3)));
    EXPECT_EQ(theLog, Lines{});
    TurnOnce();
    EXPECT_EQ(theLog, (Lines{"b: SInt32 1", "called", "a: SInt32 2", "b: SInt32 3"}));
    TurnOnce();
    EXPECT_EQ(theLog.size(), 4U);
}

TEST_F(LmMainQueueTest, MakesTheLatestOfAKeyInThePlaceOfTheFirst)
{
    const LmObservation theA = Watch("a");
    const LmObservation theB = Watch("b");
    const LmMainQueue theQueue(&theStore);
    const LmPoster& thePoster = theQueue.GetPoster();
    EXPECT_TRUE(thePoster.SetLatest("a", LmValue(1)));
    EXPECT_TRUE(thePoster.SetLatest("b", LmValue(2)));
    EXPECT_TRUE(thePoster.SetLatest("a", LmValue(3)));
    TurnOnce();
    EXPECT_EQ(theLog, (Lines{"a: SInt32 3", "b: SInt32 2"}));
    EXPECT_TRUE(thePoster.SetLatest("a", LmValue(4)));
    TurnOnce();
    EXPECT_EQ(theLog.back(), "a: SInt32 4");
}

TEST_F(LmMainQueueTest, ALatestSetDoesNotOvertakeAnotherOfItsKey)
{
    const LmObservation theA = Watch("a");
    const LmMainQueue theQueue(&theStore);
    theQueue.GetPoster().SetLatest("a", LmValue(1));
    theQueue.GetPoster().Set("a", LmValue(2));
    theQueue.GetPoster().SetLatest("a", LmValue(3));
    TurnOnce();
    EXPECT_EQ(theLog, (Lines{"a: SInt32 1", "a: SInt32 2", "a: SInt32 3"}));
}

TEST_F(LmMainQueueTest, MakesInAnotherTurnWhatIsPostedMeanwhile)
{
    const LmMainQueue theQueue(&theStore);
    const LmPoster& thePoster = theQueue.GetPoster();
    thePoster.Call([&] {
        theLog.push_back("first");
        thePoster.Call([&] { theLog.push_back("third"); });
    });
    thePoster.Call([&] { theLog.push_back("second"); });
    TurnOnce();
    EXPECT_EQ(theLog, (Lines{"first", "second"}));
    TurnOnce();
    EXPECT_EQ(theLog, (Lines{"first", "second", "third"}));
}

TEST_F(LmMainQueueTest, WakesAnIdleLoop)
{
    const LmMainQueue theQueue(&theStore);
    std::thread theWorker([thePoster = theQueue.GetPoster()] {
        thePoster.Set("a", LmValue(1));
        thePoster.Call([] { QuitEventLoop(GetMainEventLoop()); });
    });
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    theWorker.join();
    EXPECT_EQ(Read(theStore, "a"), "SInt32 1");
}

TEST_F(LmMainQueueTest, BringsEverythingThatSeveralThreadsPostInTheOrderOfEach)
{
    constexpr int kThreads = 4;
    constexpr int kPosts = 500;
    LmMainQueue theQueue(&theStore);
    std::vector<int> theNext(kThreads);
    int theCalls = 0;
    bool isInOrder = true;
    std::vector<std::thread> theWorkers;
    theWorkers.reserve(kThreads);
    for (int theWorker = 0; theWorker < kThreads; ++theWorker) {
        theWorkers.emplace_back([&, theWorker, thePoster = theQueue.GetPoster()] {
            for (int theNumber = 0; theNumber < kPosts; ++theNumber) {
                thePoster.SetLatest("latest", LmValue(theNumber));
                thePoster.Set("text", LmMakeStringValue(std::to_string(theNumber)));
                thePoster.Call([&, theWorker, theNumber] {
                    isInOrder = isInOrder && theNext[std::size_t(theWorker)]++ == theNumber;
                    if (++theCalls == kThreads * kPosts) {
                        QuitEventLoop(GetMainEventLoop());
                    }
                });
            }
        });
    }
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    for (std::thread& theWorker : theWorkers) {
        theWorker.join();
    }
    EXPECT_TRUE(isInOrder);
    EXPECT_EQ(theCalls, kThreads * kPosts);
    EXPECT_EQ(Read(theStore, "latest"), "SInt32 499");
    EXPECT_EQ(Read(theStore, "text"), "String \"499\"");
}

TEST_F(LmMainQueueTest, EndsWhileOthersPost)
{
    auto theQueue = std::make_unique<LmMainQueue>(&theStore);
    std::thread theWorker([thePoster = theQueue->GetPoster()] {
        while (thePoster.Set("a", LmValue(1)) && thePoster.SetLatest("b", LmValue(1)) &&
               thePoster.Call([] {})) {
        }
    });
    while (!theStore.HasKey("a")) {
        TurnOnce();
    }
    theQueue.reset();
    theWorker.join();
    theStore.SetKeyPathValue("a", LmValue(2));
    TurnOnce();
    EXPECT_EQ(Read(theStore, "a"), "SInt32 2");
}

TEST_F(LmMainQueueTest, DropsWhatIsLeftAtItsEnd)
{
    const auto theCaptured = std::make_shared<int>(0);
    LmPoster thePoster;
    {
        const LmMainQueue theQueue(&theStore);
        thePoster = theQueue.GetPoster();
        thePoster.Set("a", LmValue(1));
        thePoster.Call([theCaptured] { *theCaptured += 1; });
        EXPECT_EQ(theCaptured.use_count(), 2);
    }
    EXPECT_EQ(theCaptured.use_count(), 1);
    EXPECT_FALSE(thePoster.Set("a", LmValue(1)));
    EXPECT_FALSE(thePoster.SetLatest("a", LmValue(1)));
    EXPECT_FALSE(thePoster.Call([theCaptured] {}));
    EXPECT_EQ(theCaptured.use_count(), 1);
    TurnOnce();
    EXPECT_EQ(*theCaptured, 0);
    EXPECT_FALSE(theStore.HasKey("a"));
}

TEST_F(LmMainQueueTest, MayBeDestroyedByWhatItMakes)
{
    auto theQueue = std::make_unique<LmMainQueue>(&theStore);
    const auto theCaptured = std::make_shared<int>(0);
    const LmPoster thePoster = theQueue->GetPoster();
    thePoster.Call([&theQueue, theCaptured] {
        theQueue.reset();
        *theCaptured += 1; // is there as long as the function runs
    });
    thePoster.Call([theCaptured] { *theCaptured += 10; });
    thePoster.Set("a", LmValue(1));
    TurnOnce();
    EXPECT_EQ(*theCaptured, 1);
    EXPECT_EQ(theCaptured.use_count(), 1);
    EXPECT_FALSE(theStore.HasKey("a"));
}

TEST_F(LmMainQueueTest, DropsSetsOfAStoreThatHasGone)
{
    auto theOther = std::make_unique<LmKeyValueStore>();
    const LmMainQueue theQueue(theOther.get());
    theQueue.GetPoster().Set("a", LmValue(1));
    theQueue.GetPoster().Call([this] { theLog.push_back("called"); });
    theOther.reset();
    TurnOnce();
    EXPECT_EQ(theLog, Lines{"called"});
    EXPECT_FALSE(theQueue.GetPoster().Set("a", LmValue(1))) << "a thread that posts while it can must end";
    EXPECT_FALSE(theQueue.GetPoster().SetLatest("a", LmValue(1)));
    EXPECT_TRUE(theQueue.GetPoster().Call([this] { theLog.push_back("called again"); }));
    TurnOnce();
    EXPECT_EQ(theLog, (Lines{"called", "called again"}));
}

TEST_F(LmMainQueueTest, WithoutAStoreTakesFunctionsAlone)
{
    const LmMainQueue theQueue;
    EXPECT_FALSE(theQueue.GetPoster().Set("a", LmValue(1)));
    EXPECT_FALSE(theQueue.GetPoster().SetLatest("a", LmValue(1)));
    EXPECT_FALSE(theQueue.GetPoster().Call(nullptr));
    EXPECT_TRUE(theQueue.GetPoster().Call([this] { theLog.push_back("called"); }));
    TurnOnce();
    EXPECT_EQ(theLog, Lines{"called"});
    EXPECT_FALSE(LmPoster().Call([] {}));
    EXPECT_FALSE(LmPoster().Set("a", LmValue(1)));
    EXPECT_FALSE(LmPoster().SetLatest("a", LmValue(1)));
}

TEST_F(LmMainQueueTest, TriesASetAgainForWhichThereWasNoMemory)
{
    int theAttempts = 0;
    const LmObservation theA(
        &theStore, "a",
        [&](const LmChange&) {
            if (++theAttempts == 1) {
                throw std::bad_alloc();
            }
        },
        kBeforeChange);
    const LmObservation theB = Watch("b");
    const LmMainQueue theQueue(&theStore);
    theQueue.GetPoster().Set("a", LmValue(1));
    theQueue.GetPoster().Set("b", LmValue(1));
    TurnOnce();
    EXPECT_FALSE(theStore.HasKey("a"));
    EXPECT_EQ(theLog, Lines{}) << "what comes after it waits";
    theQueue.GetPoster().Set("b", LmValue(2));
    TurnOnce();
    EXPECT_EQ(Read(theStore, "a"), "SInt32 1");
    EXPECT_EQ(theLog, (Lines{"b: SInt32 1", "b: SInt32 2"}));
}

TEST_F(LmMainQueueTest, CallsAFunctionOnceEvenWithoutMemory)
{
    int theCalls = 0;
    const LmMainQueue theQueue;
    theQueue.GetPoster().Call([&] {
        theCalls += 1;
        throw std::bad_alloc();
    });
    theQueue.GetPoster().Call([this] { theLog.push_back("next"); });
    TurnOnce();
    TurnOnce();
    EXPECT_EQ(theCalls, 1);
    EXPECT_EQ(theLog, Lines{"next"});
}
