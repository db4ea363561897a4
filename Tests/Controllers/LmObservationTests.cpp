// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmObservation.h"

#include "ControllersTestSupport.h"
#include "LmKeyValueStore.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(!std::is_copy_constructible<LmObservation>::value, "one observation has one owner");
static_assert(!std::is_copy_assignable<LmObservation>::value, "one observation has one owner");
static_assert(std::is_nothrow_move_constructible<LmObservation>::value, "a vector moves it");
static_assert(std::is_nothrow_move_assignable<LmObservation>::value, "a vector moves it");

namespace {

class LmObservationTest : public testing::Test
{
protected:
    void Set(const char* theKey, long theNumber) { theStore.SetKeyPathValue(theKey, LmValue(theNumber)); }

    // Notes a change as "volume: SInt32 40 > SInt32 55".
    void Note(const LmChange& theChange)
    {
        theLog.push_back(std::string(theChange.theKeyName.GetUTF8()) + ": " +
                         Describe(theChange.theOldValue) + " > " + Describe(theChange.theNewValue));
    }

    // A function that does so.
    LmObservation::Function Noting()
    {
        return [this](const LmChange& theChange) { Note(theChange); };
    }

    LmKeyValueStore theStore;
    Lines theLog;
};

} // namespace

TEST_F(LmObservationTest, TellsOldAndNewValueAfterTheChange)
{
    Set("volume", 40);
    const LmObservation theObservation(&theStore, "volume", [&](const LmChange& theChange) {
        Noting()(theChange);
        EXPECT_EQ(theChange.theStore, &theStore);
        EXPECT_EQ(Read(theStore, "volume"), "SInt32 55");
    });
    Set("volume", 55);
    EXPECT_EQ(theLog, Lines{"volume: SInt32 40 > SInt32 55"});
}

TEST_F(LmObservationTest, TellsOnlyOfItsKeyAndOnlyOfChanges)
{
    const LmObservation theObservation(&theStore, "volume", Noting());
    Set("station", 1);
    Set("volume", 40);
    Set("volume", 40);
    EXPECT_EQ(theLog, Lines{"volume: - > SInt32 40"});
}

TEST_F(LmObservationTest, TellsOldValueAloneBeforeTheChange)
{
    Set("volume", 40);
    const LmObservation theObservation(
        &theStore, "volume",
        [&](const LmChange& theChange) {
            Noting()(theChange);
            EXPECT_EQ(Read(theStore, "volume"), "SInt32 40");
        },
        kBeforeChange);
    Set("volume", 55);
    EXPECT_EQ(theLog, Lines{"volume: SInt32 40 > -"});
}

TEST_F(LmObservationTest, OfAllKeysTellsThoseThatHaveAKeyStateOnPurpose)
{
    NotificationRecorder theRecorder;
    theStore.ObserveKeyPathValue("volume", &theRecorder);
    theStore.ObserveKeyPathValue("station", &theRecorder);
    Set("volume", 40);
    const LmObservation theObservation(&theStore, kKeyAnyValue, Noting());
    Set("volume", 55);
    Set("station", 3);
    Set("silent", 1);
    Set("volume", 60);
    EXPECT_EQ(theLog, (Lines{"volume: SInt32 40 > SInt32 55", "station: - > SInt32 3",
                             "volume: SInt32 55 > SInt32 60"}));
}

TEST_F(LmObservationTest, IsToldOfADependentKeyWithItsOldValue)
{
    Set("price", 10);
    Set("total", 20);
    theStore.MakeDependency("price", "total");
    const LmObservation theObservation(&theStore, "total", Noting());
    theStore.SetKeyValue("total", LmValue(30)); // what a store that computes it would read
    Set("price", 15);
    EXPECT_EQ(theLog, Lines{"total: SInt32 20 > SInt32 30"});
}

TEST_F(LmObservationTest, OfAllKeysDoesNotKnowWhatADependentKeyWasAtFirst)
{
    Set("price", 10);
    Set("total", 20);
    theStore.MakeDependency("price", "total");
    const LmObservation theTotal(&theStore, "total", [](const LmChange&) {});
    const LmObservation theObservation(&theStore, kKeyAnyValue, Noting());
    Set("price", 15);
    Set("price", 16);
    EXPECT_EQ(theLog, (Lines{"price: SInt32 10 > SInt32 15", "total: - > SInt32 20",
                             "price: SInt32 15 > SInt32 16", "total: SInt32 20 > SInt32 20"}));
}

TEST_F(LmObservationTest, OldValuesFormAChainWhereAnotherObserverSetsTheKeyAgain)
{
    Set("volume", 10);
    const LmObservation theLimit(&theStore, "volume", [&](const LmChange& theChange) {
        if (theChange.theNewValue.GetSInt32() > 50) {
            Set("volume", 50);
        }
    });
    const LmObservation theObservation(&theStore, "volume", Noting());
    Set("volume", 80);
    Set("volume", 20);
    EXPECT_EQ(theLog, (Lines{"volume: SInt32 10 > SInt32 50", "volume: SInt32 50 > SInt32 50",
                             "volume: SInt32 50 > SInt32 20"}));
}

TEST_F(LmObservationTest, MaySetItsOwnKeyAgain)
{
    const LmObservation theObservation(&theStore, "volume", [&](const LmChange& theChange) {
        Noting()(theChange);
        if (theChange.theNewValue.GetSInt32() < 3) {
            Set("volume", theChange.theNewValue.GetSInt32() + 1);
        }
        theLog.push_back("then " + Describe(theChange.theOldValue) + " > " + Describe(theChange.theNewValue));
    });
    Set("volume", 2);
    EXPECT_EQ(theLog, (Lines{"volume: - > SInt32 2", "volume: SInt32 2 > SInt32 3",
                             "then SInt32 2 > SInt32 3", "then - > SInt32 2"}));
}

TEST_F(LmObservationTest, HasThePlaceOfItsRegistration)
{
    const LmObservation theFirst(&theStore, "volume", [&](const LmChange&) { theLog.push_back("first"); });
    const LmObservation theSecond(&theStore, "volume", [&](const LmChange&) { theLog.push_back("second"); });
    Set("volume", 1);
    EXPECT_EQ(theLog, (Lines{"first", "second"}));
}

TEST_F(LmObservationTest, EndsWithTheObject)
{
    {
        const LmObservation theObservation(&theStore, "volume", Noting());
        Set("volume", 1);
    }
    Set("volume", 2);
    EXPECT_EQ(theLog, Lines{"volume: - > SInt32 1"});
}

TEST_F(LmObservationTest, EndLetsGoOfTheFunction)
{
    const auto theCaptured = std::make_shared<int>(0);
    LmObservation theObservation(&theStore, "volume", [theCaptured](const LmChange&) { *theCaptured += 1; });
    EXPECT_EQ(theCaptured.use_count(), 2);
    EXPECT_TRUE(theObservation.IsObserving());
    theObservation.End();
    EXPECT_FALSE(theObservation.IsObserving());
    EXPECT_EQ(theCaptured.use_count(), 1);
    theObservation.End();
    Set("volume", 1);
    EXPECT_EQ(*theCaptured, 0);
}

TEST_F(LmObservationTest, Moves)
{
    std::vector<LmObservation> theObservations;
    for (const char* theKey : {"one", "two", "three"}) {
        theObservations.push_back(LmObservation(&theStore, theKey, Noting()));
    }
    Set("two", 2);
    theObservations[1] = LmObservation(&theStore, "four", Noting());
    Set("two", 3);
    Set("four", 4);
    LmObservation theMoved(std::move(theObservations[2]));
    EXPECT_TRUE(theMoved.IsObserving());
    EXPECT_FALSE(theObservations[2].IsObserving()); // NOLINT(bugprone-use-after-move): its state is promised
    LmObservation& theSame = theMoved;
    theMoved = std::move(theSame);
    Set("three", 3);
    EXPECT_EQ(theLog, (Lines{"two: - > SInt32 2", "four: - > SInt32 4", "three: - > SInt32 3"}));
}

// What the function of an observation has captured goes with it, and may be the observation that takes its
// place, or the place itself.
TEST_F(LmObservationTest, MovesToAndFromWhatItsFunctionOwns)
{
    struct Owner
    {
        LmObservation theObservation;
    };
    auto theOwner = std::make_shared<Owner>();
    const std::weak_ptr<Owner> theFirst = theOwner;
    theOwner->theObservation = LmObservation(&theStore, "one", Noting());
    LmObservation theObservation(&theStore, "two", [theOwner](const LmChange&) {});
    LmObservation& theOwned = theOwner->theObservation;
    theOwner.reset();
    theObservation = std::move(theOwned);
    EXPECT_TRUE(theFirst.expired());
    Set("one", 1);
    EXPECT_EQ(theLog, Lines{"one: - > SInt32 1"});

    theOwner = std::make_shared<Owner>();
    const std::weak_ptr<Owner> theSecond = theOwner;
    LmObservation& thePlace = theOwner->theObservation;
    thePlace = LmObservation(&theStore, "two", [theOwner](const LmChange&) {});
    theOwner.reset();
    thePlace = LmObservation();
    EXPECT_TRUE(theSecond.expired());
}

TEST_F(LmObservationTest, IsNotCalledWhenReadingTheValueHasEndedIt)
{
    class Ender : public LmKeyValueStore
    {
    public:
        LmValue GetKeyValue(const LmString& theKey) const override
        {
            if (mEnded != nullptr) {
                mEnded->End();
            }
            return LmKeyValueStore::GetKeyValue(theKey);
        }
        LmObservation* mEnded = nullptr;
    };
    for (const LmChangeTime theTime : {kBeforeChange, kAfterChange}) {
        Ender theEnder;
        theEnder.SetKeyPathValue("one", LmValue(1));
        int theCalls = 0;
        LmObservation theObservation(
            &theEnder, "one", [&](const LmChange&) { theCalls += 1; }, theTime);
        theEnder.mEnded = &theObservation;
        theEnder.NotifyObservers("one", theTime == kAfterChange);
        EXPECT_FALSE(theObservation.IsObserving());
        EXPECT_EQ(theCalls, 0);
    }
}

TEST_F(LmObservationTest, IsSafeWhenTheStoreGoesFirst)
{
    auto theOther = std::make_unique<LmKeyValueStore>();
    LmObservation theObservation(theOther.get(), "volume", Noting());
    theOther.reset();
    EXPECT_FALSE(theObservation.IsObserving());
    theObservation.End();
}

TEST_F(LmObservationTest, MayEndItselfWhileItIsCalled)
{
    LmObservation theObservation;
    const auto theCaptured = std::make_shared<int>(0);
    theObservation = LmObservation(&theStore, "volume", [&theObservation, theCaptured](const LmChange&) {
        theObservation.End();
        *theCaptured += 1; // is there as long as the function runs
    });
    Set("volume", 1);
    Set("volume", 2);
    EXPECT_EQ(*theCaptured, 1);
    EXPECT_EQ(theCaptured.use_count(), 1);
}

TEST_F(LmObservationTest, MayEndItselfInANestedCall)
{
    LmObservation theObservation;
    theObservation = LmObservation(&theStore, "volume", [&](const LmChange& theChange) {
        if (theChange.theNewValue.GetSInt32() == 1) {
            Set("volume", 2);
        } else {
            theObservation.End();
        }
        Noting()(theChange);
    });
    Set("volume", 1);
    Set("volume", 3);
    EXPECT_EQ(theLog, (Lines{"volume: SInt32 1 > SInt32 2", "volume: - > SInt32 1"}));
}

TEST_F(LmObservationTest, IsNotCalledAnyMoreInThePassThatEndedIt)
{
    LmObservation theSecond;
    const LmObservation theFirst(&theStore, "volume", [&](const LmChange&) { theSecond.End(); });
    theSecond = LmObservation(&theStore, "volume", Noting());
    Set("volume", 1);
    EXPECT_EQ(theLog, Lines{});
}

TEST_F(LmObservationTest, ThatWasEndedWhileItRunsIsNotCalledAgain)
{
    for (const LmChangeTime theTime : {kAfterChange, kBeforeChange}) {
        LmObservation theSecond;
        const LmObservation theFirst(
            &theStore, "volume",
            [&](const LmChange&) {
                theLog.push_back("first");
                if (theLog.size() == 3) { // in the inner pass, which knows the second one
                    theSecond.End();
                }
            },
            theTime);
        theSecond = LmObservation(
            &theStore, "volume",
            [&](const LmChange&) {
                theLog.push_back("second");
                Set("volume", 2);
            },
            theTime);
        Set("volume", 1);
        EXPECT_EQ(theLog, (Lines{"first", "second", "first"}));
        theLog.clear();
        Set("volume", 0);
        theLog.clear();
    }
}

TEST_F(LmObservationTest, BeforeAChangeMayEndItselfToo)
{
    LmObservation theObservation;
    theObservation = LmObservation(
        &theStore, "volume",
        [&](const LmChange& theChange) {
            Noting()(theChange);
            theObservation.End();
            Set("volume", 7);
        },
        kBeforeChange);
    Set("volume", 1);
    EXPECT_EQ(theLog, Lines{"volume: - > -"});
}

TEST_F(LmObservationTest, MadeInsideANotificationTakesPartFromTheNextPassOn)
{
    std::vector<LmObservation> theLater;
    const LmObservation theBefore(
        &theStore, "volume",
        [&](const LmChange&) { theLater.push_back(LmObservation(&theStore, "volume", Noting())); },
        kBeforeChange);
    Set("volume", 1); // the new one is told after this change
    EXPECT_EQ(theLog, Lines{"volume: - > SInt32 1"});

    LmObservation theLast;
    const LmObservation theAfter(&theStore, "station", [&](const LmChange&) {
        if (!theLast.IsObserving()) {
            theLast = LmObservation(&theStore, "station", Noting());
        }
    });
    Set("station", 1); // not told: the pass had begun
    Set("station", 2);
    EXPECT_EQ(theLog, (Lines{"volume: - > SInt32 1", "station: SInt32 1 > SInt32 2"}));
}

TEST_F(LmObservationTest, MayThrowAwayWhatItsFunctionHasCaptured)
{
    struct Captured
    {
        LmObservation theObservation;
        std::string theText = "a text that is long enough to lie on the heap";
    };
    auto theCaptured = std::make_shared<Captured>();
    const std::weak_ptr<Captured> theWatch = theCaptured;
    theCaptured->theObservation = LmObservation(&theStore, "volume", [theCaptured, this](const LmChange&) {
        theCaptured->theObservation.End(); // the function holds what holds the observation
        theLog.push_back(theCaptured->theText);
    });
    theCaptured.reset();
    EXPECT_FALSE(theWatch.expired());
    Set("volume", 1);
    EXPECT_EQ(theLog.size(), 1U);
    EXPECT_TRUE(theWatch.expired());
}

TEST_F(LmObservationTest, MayDestroyItsStore)
{
    auto theOther = std::make_unique<LmKeyValueStore>();
    const LmObservation theObservation(theOther.get(), "volume", [&](const LmChange& theChange) {
        theOther.reset();
        theLog.push_back(Describe(theChange.theNewValue));
    });
    theOther->SetKeyPathValue("volume", LmValue(1));
    EXPECT_FALSE(theObservation.IsObserving());
    EXPECT_EQ(theLog, Lines{"SInt32 1"});
}

TEST_F(LmObservationTest, LetsAnExceptionOfItsFunctionPass)
{
    const LmObservation theObservation(&theStore, "volume", [&](const LmChange& theChange) {
        Noting()(theChange);
        if (theChange.theNewValue.GetSInt32() == 1) {
            throw std::bad_alloc();
        }
    });
    EXPECT_THROW(Set("volume", 1), std::bad_alloc);
    Set("volume", 2);
    EXPECT_EQ(theLog, (Lines{"volume: - > SInt32 1", "volume: SInt32 1 > SInt32 2"}));
}

TEST_F(LmObservationTest, ThatThrowsWhileItEndsIsFreedAllTheSame)
{
    LmObservation theObservation;
    const auto theCaptured = std::make_shared<int>(0);
    theObservation = LmObservation(&theStore, "volume", [&theObservation, theCaptured](const LmChange&) {
        theObservation.End();
        throw std::bad_alloc();
    });
    EXPECT_THROW(Set("volume", 1), std::bad_alloc);
    EXPECT_EQ(theCaptured.use_count(), 1);
}

TEST_F(LmObservationTest, OfNothingObservesNothing)
{
    const LmObservation theDefault;
    EXPECT_FALSE(theDefault.IsObserving());
    const LmObservation theStoreless(nullptr, "volume", Noting());
    EXPECT_FALSE(theStoreless.IsObserving());
    const LmObservation theNameless(&theStore, "", Noting());
    EXPECT_FALSE(theNameless.IsObserving());
    const LmObservation theFunctionless(&theStore, "volume", nullptr);
    EXPECT_FALSE(theFunctionless.IsObserving());
    Set("volume", 1);
}

TEST_F(LmObservationTest, ForgetsItsFunctionWithTheObservationAlone)
{
    const auto theCaptured = std::make_shared<int>(0);
    auto theOther = std::make_unique<LmKeyValueStore>();
    LmObservation theObservation(theOther.get(), "volume", [theCaptured](const LmChange&) {});
    theOther.reset();
    EXPECT_EQ(theCaptured.use_count(), 2);
    theObservation.End();
    EXPECT_EQ(theCaptured.use_count(), 1);
}
