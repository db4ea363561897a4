// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"
#include "NamedObserver.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

const char* const kStore = "LmKeyValueStore";
const char* const kObserver = "LmKeyValueObserver";

} // namespace

static_assert(!std::is_copy_constructible_v<LmKeyValueObserver>);
static_assert(!std::is_copy_assignable_v<LmKeyValueObserver>);
static_assert(std::is_base_of_v<LmDebugObject, LmKeyValueObserver>);

// ---- Registering

TEST(LmKeyValueObserver, AnObservationIsOnRecordOnBothSides)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.ObserveKeyPathValue("volume", &theObserver);
    EXPECT_TRUE(theStore.IsObserving("volume", &theObserver));
    EXPECT_TRUE(theObserver.AmObserving(&theStore, "volume"));
    EXPECT_FALSE(theStore.IsObserving("other", &theObserver));
    EXPECT_FALSE(theObserver.AmObserving(&theStore, "other"));
    theStore.IgnoreKeyPathValue("volume", &theObserver);
    EXPECT_FALSE(theStore.IsObserving("volume", &theObserver));
    EXPECT_FALSE(theObserver.AmObserving(&theStore, "volume"));
}

TEST(LmKeyValueObserver, ObservationsOfTwoStoresAreKeptApart)
{
    LmKeyValueStore theStores[2];
    LmKeyValueObserver theObserver;
    theStores[0].ObserveKeyPathValue("volume", &theObserver);
    EXPECT_FALSE(theStores[1].IsObserving("volume", &theObserver));
    EXPECT_FALSE(theObserver.AmObserving(&theStores[1], "volume"));
}

TEST(LmKeyValueObserver, ObservingTheWildcardIsObservingOnlyThatPath)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.ObserveKeyPathValue("*", &theObserver);
    EXPECT_TRUE(theStore.IsObserving("*", &theObserver));
    EXPECT_FALSE(theStore.IsObserving("volume", &theObserver));
}

TEST(LmKeyValueObserver, TwoRecordsAreEqualWhenStoreAndPathAre)
{
    LmKeyValueStore theStores[2];
    const LmObservedKey theKey = {&theStores[0], "volume"};
    EXPECT_TRUE(theKey == (LmObservedKey{&theStores[0], "volume"}));
    EXPECT_FALSE(theKey == (LmObservedKey{&theStores[1], "volume"}));
    EXPECT_FALSE(theKey == (LmObservedKey{&theStores[0], "other"}));
}

TEST(LmKeyValueObserver, DoesNothingUnlessOverridden)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetUInt32(), 1u);
}

// ---- Registering wrongly

TEST(LmKeyValueObserver, RegisteringTwiceIsReportedAndTellsTwiceOnPurpose)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic(kStore, "!IsObserving(theKeyPath, theObserver)"),
                     Diagnostic(kObserver, "!AmObserving(theStore, theKeyPath)")}));
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, (Lines{"A changing volume: -", "A changing volume: -", "A changed volume: 1",
                             "A changed volume: 1"}));

    theStore.IgnoreKeyPathValue("volume", &theObserver);
    EXPECT_FALSE(theStore.IsObserving("volume", &theObserver));
    EXPECT_FALSE(theObserver.AmObserving(&theStore, "volume")) << "one call ends both";
}

TEST(LmKeyValueObserver, UnregisteringWhatIsNotRegisteredIsReportedOnBothSides)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.IgnoreKeyPathValue("volume", &theObserver);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic(kStore, "IsObserving(theKeyPath, theObserver)"),
                     Diagnostic(kObserver, "AmObserving(theStore, theKeyPath)")}));
}

TEST(LmKeyValueObserver, UnregisteringWhatIsNotRegisteredMakesAKeyStateOnPurpose)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theAny("W", theLog);
    theStore.ObserveKeyPathValue("*", &theAny);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{});

    theStore.IgnoreKeyPathValue("volume", &theAny);
    StandardErrorCapture::TakeText();
    theStore.SetKeyPathValue("volume", LmValue(2UL));
    EXPECT_EQ(theLog, (Lines{"W changing volume: 1", "W changed volume: 2"}));
}

TEST(LmKeyValueObserver, UnregisteringOneObserverLeavesTheOthers)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObservers[3];
    for (LmKeyValueObserver& theObserver : theObservers) {
        theStore.ObserveKeyPathValue("volume", &theObserver);
    }
    theStore.IgnoreKeyPathValue("volume", &theObservers[1]);
    EXPECT_TRUE(theStore.IsObserving("volume", &theObservers[0]));
    EXPECT_FALSE(theStore.IsObserving("volume", &theObservers[1]));
    EXPECT_TRUE(theStore.IsObserving("volume", &theObservers[2]));
}

namespace {

struct BadCall
{
    const char* mName;
    void (*mCall)(LmKeyValueStore& theStore, LmKeyValueObserver& theObserver);
    Lines mDiagnostics;
};

const std::string kPathIsEmpty = Diagnostic(kStore, "theKeyPath.IsNotEmpty()");
const std::string kObserverIsNull = Diagnostic(kStore, "theObserver != NULL");
const std::string kStoreIsNull = Diagnostic(kObserver, "theStore != NULL");
const std::string kObservedPathIsEmpty = Diagnostic(kObserver, "theKeyPath.IsNotEmpty()");

const BadCall kBadCalls[] = {
    {"IsObservingTheEmptyPath",
     [](LmKeyValueStore& theStore, LmKeyValueObserver& theObserver) {
         EXPECT_FALSE(theStore.IsObserving("", &theObserver));
     },
     {kPathIsEmpty}},
    {"IsObservingWithoutAnObserver",
     [](LmKeyValueStore& theStore, LmKeyValueObserver&) {
         EXPECT_FALSE(theStore.IsObserving("volume", nullptr));
     },
     {kObserverIsNull}},
    {"IsObservingNothingAtAll",
     [](LmKeyValueStore& theStore, LmKeyValueObserver&) { EXPECT_FALSE(theStore.IsObserving("", nullptr)); },
     {kPathIsEmpty, kObserverIsNull}},
    {"AmObservingNoStore",
     [](LmKeyValueStore&, LmKeyValueObserver& theObserver) {
         EXPECT_FALSE(theObserver.AmObserving(nullptr, "volume"));
     },
     {kStoreIsNull}},
    {"AmObservingNothingAtAll",
     [](LmKeyValueStore&, LmKeyValueObserver& theObserver) {
         EXPECT_FALSE(theObserver.AmObserving(nullptr, ""));
     },
     {kStoreIsNull, kObservedPathIsEmpty}},
    {"ObserveAndIgnoreTheEmptyPath",
     [](LmKeyValueStore& theStore, LmKeyValueObserver& theObserver) {
         theStore.ObserveKeyPathValue("", &theObserver);
         EXPECT_TRUE(theStore.IsObserving("", &theObserver));
         theStore.IgnoreKeyPathValue("", &theObserver);
     },
     {kPathIsEmpty, kObservedPathIsEmpty, kPathIsEmpty, kPathIsEmpty, kObservedPathIsEmpty}},
    {"StartedAndStoppedObservingNoStore",
     [](LmKeyValueStore&, LmKeyValueObserver& theObserver) {
         theObserver.StartedObserving(nullptr, "volume");
         theObserver.StoppedObserving(nullptr, "volume");
     },
     {kStoreIsNull, kStoreIsNull, kStoreIsNull, kStoreIsNull}},
    {"StoppedObservingWhatIsNotObserved",
     [](LmKeyValueStore& theStore, LmKeyValueObserver& theObserver) {
         theObserver.StoppedObserving(&theStore, "volume");
     },
     {Diagnostic(kObserver, "AmObserving(theStore, theKeyPath)")}},
    {"StopObservingTheEmptyPath",
     [](LmKeyValueStore& theStore, LmKeyValueObserver& theObserver) {
         theStore.ObserveKeyPathValue("", &theObserver);
         StandardErrorCapture::TakeText();
         theObserver.StopObserving();
     },
     {kObservedPathIsEmpty, kPathIsEmpty, kObservedPathIsEmpty}},
};

class LmKeyValueObserverBadCall : public testing::TestWithParam<BadCall>
{
};

} // namespace

TEST_P(LmKeyValueObserverBadCall, PrintsItsDiagnosticsInOrder)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    GetParam().mCall(theStore, theObserver);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), GetParam().mDiagnostics);
}

INSTANTIATE_TEST_SUITE_P(, LmKeyValueObserverBadCall, testing::ValuesIn(kBadCalls),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

// ---- Ending observations

TEST(LmKeyValueObserver, StopObservingEndsThemInTheOrderInWhichTheyBegan)
{
    LmKeyValueStore theStores[2];
    LmKeyValueObserver theObserver;
    theStores[1].ObserveKeyPathValue("b", &theObserver);
    theStores[0].ObserveKeyPathValue("c", &theObserver);
    theStores[1].ObserveKeyPathValue("a", &theObserver);
    LmDebugObject::SetLogging(true);
    theObserver.StopObserving();
    LmDebugObject::SetLogging(false);
    const std::string theName = theObserver.GetDebugInfo().GetUTF8();
    const std::string theFirst = theStores[0].GetDebugInfo().GetUTF8();
    const std::string theSecond = theStores[1].GetDebugInfo().GetUTF8();
    const Lines theExpected = {"Lm: Observer " + theName + " stopped watching Key 'b' in Store " + theSecond,
                               "Lm: Observer " + theName + " stopped watching Key 'c' in Store " + theFirst,
                               "Lm: Observer " + theName + " stopped watching Key 'a' in Store " + theSecond};
    EXPECT_EQ(StandardErrorCapture::TakeLines(), theExpected);
    EXPECT_FALSE(theStores[0].IsObserving("c", &theObserver));
    EXPECT_FALSE(theStores[1].IsObserving("a", &theObserver));
    EXPECT_FALSE(theStores[1].IsObserving("b", &theObserver));
}

TEST(LmKeyValueObserver, RemoveObserversGoesByKeyThenByRegistration)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObservers[2];
    theStore.ObserveKeyPathValue("b", &theObservers[1]);
    theStore.ObserveKeyPathValue("b", &theObservers[0]);
    theStore.ObserveKeyPathValue("a", &theObservers[0]);
    theStore.ObserveKeyPathValue("*", &theObservers[1]);
    LmDebugObject::SetLogging(true);
    theStore.RemoveObservers();
    LmDebugObject::SetLogging(false);
    const std::string theFirst = theObservers[0].GetDebugInfo().GetUTF8();
    const std::string theSecond = theObservers[1].GetDebugInfo().GetUTF8();
    const std::string theName = theStore.GetDebugInfo().GetUTF8();
    const Lines theExpected = {"Lm: Observer " + theSecond + " stopped watching Key '*' in Store " + theName,
                               "Lm: Observer " + theFirst + " stopped watching Key 'a' in Store " + theName,
                               "Lm: Observer " + theSecond + " stopped watching Key 'b' in Store " + theName,
                               "Lm: Observer " + theFirst + " stopped watching Key 'b' in Store " + theName};
    EXPECT_EQ(StandardErrorCapture::TakeLines(), theExpected);
    EXPECT_FALSE(theObservers[0].AmObserving(&theStore, "a"));
    EXPECT_FALSE(theObservers[1].AmObserving(&theStore, "*"));
}

TEST(LmKeyValueObserver, ADyingObserverLeavesItsStores)
{
    LmKeyValueStore theStores[2];
    auto theObserver = std::make_unique<LmKeyValueObserver>();
    LmKeyValueObserver* const theAddress = theObserver.get();
    theStores[0].ObserveKeyPathValue("volume", theAddress);
    theStores[1].ObserveKeyPathValue("*", theAddress);
    theObserver.reset();
    EXPECT_FALSE(theStores[0].IsObserving("volume", theAddress));
    EXPECT_FALSE(theStores[1].IsObserving("*", theAddress));
    theStores[0].SetKeyPathValue("volume", LmValue(1UL));
}

TEST(LmKeyValueObserver, ManyStoresAndObserversMayDieInAnyOrder)
{
    struct Counting : LmKeyValueObserver
    {
        void ValueChanged(const LmKeyValueStore*, const LmString&) override { ++mChanges; }
        int mChanges = 0;
    };
    std::vector<std::unique_ptr<LmKeyValueStore>> theStores(5);
    std::vector<std::unique_ptr<Counting>> theObservers(5);
    for (auto& theStore : theStores) {
        theStore = std::make_unique<LmKeyValueStore>();
    }
    for (auto& theObserver : theObservers) {
        theObserver = std::make_unique<Counting>();
        for (auto& theStore : theStores) {
            theStore->ObserveKeyPathValue("a", theObserver.get());
            theStore->ObserveKeyPathValue("*", theObserver.get());
        }
    }
    for (size_t theGone = 0; theGone < theStores.size(); ++theGone) {
        // Those that are left are told of the key by name and as observers of all keys.
        for (size_t theIndex = theGone; theIndex < theStores.size(); ++theIndex) {
            theStores[theIndex]->SetKeyPathValue("a", LmValue(static_cast<long>(theGone + 1)));
        }
        for (size_t theIndex = 0; theIndex < theObservers.size() - theGone; ++theIndex) {
            EXPECT_EQ(std::exchange(theObservers[theIndex]->mChanges, 0),
                      2 * static_cast<int>(theStores.size() - theGone));
        }
        theStores[theGone].reset();
        theObservers[theObservers.size() - 1 - theGone].reset();
    }
}

// ---- Notification: the wildcard

TEST(LmKeyValueObserver, TheWildcardIsSilentAboutAKeyWithoutAKeyStateOnPurpose)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theAny("W", theLog);
    theStore.ObserveKeyPathValue("*", &theAny);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{});
}

TEST(LmKeyValueObserver, TheWildcardHearsAKeyThatWasObservedOnceForGood)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theAny("W", theLog);
    LmKeyValueObserver theOnce;
    theStore.ObserveKeyPathValue("*", &theAny);
    theStore.ObserveKeyPathValue("volume", &theOnce);
    theStore.IgnoreKeyPathValue("volume", &theOnce);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, (Lines{"W changing volume: -", "W changed volume: 1"}));
}

TEST(LmKeyValueObserver, AnObserverOfTheKeyAndOfTheWildcardIsToldTwice)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.ObserveKeyPathValue("*", &theObserver);
    theStore.NotifyObservers("volume", true);
    EXPECT_EQ(theLog, (Lines{"A changed volume: -", "A changed volume: -"}));
}

TEST(LmKeyValueObserver, TheWildcardKeyIsToldThroughItsOwnName)
{
    // The list is merged with a copy of itself.
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObservers[] = {{"A", theLog}, {"B", theLog}};
    theStore.ObserveKeyPathValue("*", &theObservers[0]);
    theStore.ObserveKeyPathValue("*", &theObservers[1]);
    theStore.NotifyObservers("*", false);
    EXPECT_EQ(theLog, (Lines{"A changing *: ?", "A changing *: ?", "B changing *: ?", "B changing *: ?"}));
}

namespace {

// The observers stand in one array, lowest address first, and are named by their place in it.
struct MergeRow
{
    const char* mName;
    std::vector<size_t> mKeyObservers;
    std::vector<size_t> mAnyObservers;
    std::string mOrder;
};

const MergeRow kMergeRows[] = {
    {"KeyObserversAlone", {2, 0, 1}, {}, "201"},
    {"NoKeyObservers", {}, {2, 0, 1}, "201"},
    {"AWildcardBelowTheFirstGoesFirst", {2, 0}, {1}, "120"},
    {"AWildcardAboveTheFirstAndBelowTheSecond", {0, 2}, {1}, "012"},
    {"AWildcardAboveAll", {0, 1}, {2}, "012"},
    {"AWildcardAboveAllOfADescendingList", {1, 0}, {2}, "102"},
    {"EachListKeepsItsOrder", {3, 1}, {2, 0}, "2031"},
    {"AHighWildcardHoldsBackALowerOne", {1, 2}, {3, 0}, "1230"},
    {"NothingIsSorted", {4, 2, 0}, {5, 3, 1}, "420531"},
    {"Interleaved", {1, 3, 5}, {0, 2, 4}, "012345"},
    {"TheSameObserverInBothGoesFirstAsTheKeys", {1, 0}, {1}, "101"},
    {"SixteenFitWithoutTheHeap",
     {0, 2, 4, 6, 8, 10, 12, 14},
     {1, 3, 5, 7, 9, 11, 13, 15},
     "0123456789abcdef"},
    {"SeventeenNeedTheHeap",
     {0, 2, 4, 6, 8, 10, 12, 14, 16},
     {1, 3, 5, 7, 9, 11, 13, 15},
     "0123456789abcdefg"},
};

class LmKeyValueObserverMerge : public testing::TestWithParam<MergeRow>
{
};

} // namespace

TEST_P(LmKeyValueObserverMerge, FollowsAddressesWithoutSorting)
{
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theObservers[] = {{"0", theLog}, {"1", theLog}, {"2", theLog}, {"3", theLog}, {"4", theLog},
                                    {"5", theLog}, {"6", theLog}, {"7", theLog}, {"8", theLog}, {"9", theLog},
                                    {"a", theLog}, {"b", theLog}, {"c", theLog}, {"d", theLog}, {"e", theLog},
                                    {"f", theLog}, {"g", theLog}};
    LmKeyValueObserver theOnce;
    theStore.ObserveKeyPathValue("k", &theOnce);
    theStore.IgnoreKeyPathValue("k", &theOnce);
    for (const size_t theIndex : GetParam().mKeyObservers) {
        theStore.ObserveKeyPathValue("k", &theObservers[theIndex]);
    }
    for (const size_t theIndex : GetParam().mAnyObservers) {
        theStore.ObserveKeyPathValue("*", &theObservers[theIndex]);
    }
    for (const bool hasChanged : {false, true}) {
        theLog.clear();
        theStore.NotifyObservers("k", hasChanged);
        std::string theOrder;
        for (const std::string& theLine : theLog) {
            theOrder += theLine[0];
            EXPECT_EQ(theLine.substr(1), hasChanged ? " changed k: -" : " changing k: -");
        }
        EXPECT_EQ(theOrder, GetParam().mOrder);
    }
}

INSTANTIATE_TEST_SUITE_P(, LmKeyValueObserverMerge, testing::ValuesIn(kMergeRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

// ---- Notification: what observers do meanwhile

namespace {

// Two observers of "k", A at the lower address and registered first.
struct TwoObservers
{
    TwoObservers()
    {
        theStore.ObserveKeyPathValue("k", &theA);
        theStore.ObserveKeyPathValue("k", &theB);
    }

    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theA{"A", theLog};
    NamedObserver theB{"B", theLog};
};

} // namespace

TEST(LmKeyValueObserver, AnObserverIgnoredDuringAPassIsStillToldInThatPass)
{
    TwoObservers the;
    the.theA.mOnChanging = [&] { the.theStore.IgnoreKeyPathValue("k", &the.theB); };
    the.theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(the.theLog, (Lines{"A changing k: -", "B changing k: -", "A changed k: 1"}));
}

TEST(LmKeyValueObserver, TheObserversOfTheWildcardAreCopiedBeforeAPassToo)
{
    Lines theLog;
    LmKeyValueStore theStore;
    // In one array, so that A is told before W.
    NamedObserver theObservers[] = {{"A", theLog}, {"W", theLog}, {"L", theLog}};
    theStore.ObserveKeyPathValue("k", &theObservers[0]);
    theStore.ObserveKeyPathValue("*", &theObservers[1]);
    theObservers[0].mOnChanging = [&] {
        theStore.IgnoreKeyPathValue("*", &theObservers[1]);
        theStore.ObserveKeyPathValue("*", &theObservers[2]);
    };
    theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog, (Lines{"A changing k: -", "W changing k: -", "A changed k: 1", "L changed k: 1"}));
}

TEST(LmKeyValueObserver, AnObserverMayIgnoreTheKeyItIsToldOf)
{
    TwoObservers the;
    the.theA.mOnChanging = [&] { the.theStore.IgnoreKeyPathValue("k", &the.theA); };
    the.theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(the.theLog, (Lines{"A changing k: -", "B changing k: -", "B changed k: 1"}));
}

TEST(LmKeyValueObserver, AnObserverRegisteredDuringAPassIsToldFromTheNextPassOn)
{
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theA("A", theLog);
    NamedObserver theB("B", theLog);
    theStore.ObserveKeyPathValue("k", &theA);
    theA.mOnChanging = [&] { theStore.ObserveKeyPathValue("k", &theB); };
    theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog, (Lines{"A changing k: -", "A changed k: 1", "B changed k: 1"}));
}

TEST(LmKeyValueObserver, AKeyStateMadeByAnObserverOfAnotherKeyCountsAtOnce)
{
    // "k" has no key state when the setter begins; the setter itself brings it about.
    class RegisteringStore : public LmKeyValueStore
    {
    public:
        void SetKeyValue(const LmString& theKeyName, const LmValue& theValue) override
        {
            LmKeyValueStore::SetKeyValue(theKeyName, theValue);
            ObserveKeyPathValue("k", mObserver);
        }
        LmKeyValueObserver* mObserver = nullptr;
    };
    Lines theLog;
    RegisteringStore theStore;
    NamedObserver theA("A", theLog);
    theStore.mObserver = &theA;
    theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{"A changed k: 1"});
}

TEST(LmKeyValueObserver, AnObserverMaySetTheSameKey)
{
    TwoObservers the;
    the.theA.mOnChanged = [&] { the.theStore.SetKeyPathValue("k", LmValue(2UL)); };
    the.theStore.SetKeyPathValue("k", LmValue(1UL));
    // B hears of the inner change first, and reads the newest value in the outer one.
    EXPECT_EQ(the.theLog, (Lines{"A changing k: -", "B changing k: -", "A changed k: 1", "A changing k: 1",
                                 "B changing k: 1", "A changed k: 2", "B changed k: 2", "B changed k: 2"}));
}

TEST(LmKeyValueObserver, WhatAnObserverSetsBeforeTheChangeIsOverwritten)
{
    TwoObservers the;
    the.theB.mOnChanging = [&] { the.theStore.SetKeyValue("k", LmValue(7UL)); };
    the.theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(the.theLog, (Lines{"A changing k: -", "B changing k: -", "A changed k: 1", "B changed k: 1"}));
}

TEST(LmKeyValueObserver, AnObserverMaySetAnotherKey)
{
    TwoObservers the;
    NamedObserver theC("C", the.theLog);
    the.theStore.ObserveKeyPathValue("other", &theC);
    the.theA.mOnChanged = [&] { the.theStore.SetKeyPathValue("other", LmValue(2UL)); };
    the.theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(the.theLog, (Lines{"A changing k: -", "B changing k: -", "A changed k: 1",
                                 "C changing other: -", "C changed other: 2", "B changed k: 1"}));
}

TEST(LmKeyValueObserver, AnObserverMayDestroyItself)
{
    Lines theLog;
    LmKeyValueStore theStore;
    auto theA = std::make_unique<NamedObserver>("A", theLog);
    theStore.ObserveKeyPathValue("k", theA.get());
    theA->mOnChanging = [&] { theA.reset(); };
    theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{"A changing k: -"});
}

TEST(LmKeyValueObserver, AnObserverDestroyedDuringAPassIsNotToldAnyMore)
{
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theA("A", theLog);
    auto theB = std::make_unique<NamedObserver>("B", theLog);
    NamedObserver theC("C", theLog);
    for (NamedObserver* theObserver : {&theA, theB.get(), &theC}) {
        theStore.ObserveKeyPathValue("k", theObserver);
    }
    theA.mOnChanged = [&] { theB.reset(); };
    theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog, (Lines{"A changing k: -", "B changing k: -", "C changing k: -", "A changed k: 1",
                             "C changed k: 1"}));
}

TEST(LmKeyValueObserver, AnObserverDestroyedInANestedPassIsNotToldInTheOuterOnesEither)
{
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theA("A", theLog);
    auto theB = std::make_unique<NamedObserver>("B", theLog);
    NamedObserver theC("C", theLog);
    theStore.ObserveKeyPathValue("k", &theA);
    theStore.ObserveKeyPathValue("k", theB.get());
    theStore.ObserveKeyPathValue("other", &theC);
    theA.mOnChanging = [&] { theStore.SetKeyPathValue("other", LmValue(2UL)); };
    theC.mOnChanged = [&] { theB.reset(); };
    theStore.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog,
              (Lines{"A changing k: -", "C changing other: -", "C changed other: 2", "A changed k: 1"}));
}

TEST(LmKeyValueObserver, AThousandObserversAreToldInOrder)
{
    Lines theLog;
    LmKeyValueStore theStore;
    std::vector<std::unique_ptr<NamedObserver>> theObservers;
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        theObservers.push_back(std::make_unique<NamedObserver>(std::to_string(theIndex).c_str(), theLog));
        theStore.ObserveKeyPathValue("k", theObservers.back().get());
    }
    theStore.NotifyObservers("k", true);
    ASSERT_EQ(theLog.size(), 1000u);
    for (size_t theIndex = 0; theIndex < theLog.size(); ++theIndex) {
        EXPECT_EQ(theLog[theIndex], std::to_string(theIndex) + " changed k: -");
    }
}
