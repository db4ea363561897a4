// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueStore.h"
#include "NamedObserver.h"

#include <gtest/gtest.h>

namespace {

const char* const kStore = "LmKeyValueStore";

// A store with the keys A, B and C, each with an observer of the same name.
struct ThreeKeys
{
    ThreeKeys()
    {
        for (const char* theKey : {"A", "B", "C"}) {
            theStore.SetKeyValue(theKey, LmValue(1UL));
        }
        theStore.ObserveKeyPathValue("A", &theA);
        theStore.ObserveKeyPathValue("B", &theB);
        theStore.ObserveKeyPathValue("C", &theC);
    }

    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theA{"a", theLog};
    NamedObserver theB{"b", theLog};
    NamedObserver theC{"c", theLog};
};

} // namespace

TEST(LmKeyDependency, AChangeIsToldToTheDependentAfterwardsOnly)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "b changed B: 1"}));
}

TEST(LmKeyDependency, SettingAnEqualValueTellsNobody)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.SetKeyPathValue("A", LmValue(1UL));
    EXPECT_EQ(the.theLog, Lines{});
}

TEST(LmKeyDependency, SettingTheDependentDoesNotTellTheWatched)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.SetKeyPathValue("B", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"b changing B: 1", "b changed B: 2"}));
}

TEST(LmKeyDependency, IsNotFollowedFurther)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.MakeDependency("B", "C");
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "b changed B: 1"}));
}

TEST(LmKeyDependency, ACycleDoesNotLoop)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.MakeDependency("B", "A");
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "b changed B: 1"}));
}

TEST(LmKeyDependency, AKeyThatDependsOnItselfIsToldTwice)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "A");
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "a changed A: 2"}));
}

TEST(LmKeyDependency, DependentsAreToldInTheOrderInWhichTheyWereMade)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "C");
    the.theStore.MakeDependency("A", "B");
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "c changed C: 1", "b changed B: 1"}));
}

TEST(LmKeyDependency, ADependentWithoutAKeyStateReachesNobodyOnPurpose)
{
    ThreeKeys the;
    NamedObserver theAny("w", the.theLog);
    the.theStore.ObserveKeyPathValue("*", &theAny);
    the.theStore.SetKeyValue("D", LmValue(1UL));
    the.theStore.MakeDependency("A", "D");
    EXPECT_TRUE(the.theStore.IsDependent("A", "D"));
    the.theLog.clear();
    the.theStore.NotifyDependents("A");
    EXPECT_EQ(the.theLog, Lines{});
}

TEST(LmKeyDependency, TheWildcardHearsOfTheDependentByItsOwnName)
{
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theAny("w", theLog);
    theStore.SetKeyValue("A", LmValue(1UL));
    theStore.SetKeyValue("B", LmValue(1UL));
    theStore.ObserveKeyPathValue("*", &theAny);
    theStore.MakeDependency("A", "B");
    theStore.MakeDependency("B", "A");
    theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(theLog, (Lines{"w changing A: 1", "w changed A: 2", "w changed B: 1"}));
}

TEST(LmKeyDependency, BeingWatchedGivesAKeyItsKeyState)
{
    // From then on the observers of "*" hear of it.
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theAny("w", theLog);
    theStore.SetKeyValue("A", LmValue(1UL));
    theStore.SetKeyValue("B", LmValue(1UL));
    theStore.ObserveKeyPathValue("*", &theAny);
    theStore.MakeDependency("A", "B");
    theStore.BreakDependency("A", "B");
    theStore.SetKeyPathValue("A", LmValue(2UL));
    theStore.SetKeyPathValue("B", LmValue(2UL));
    EXPECT_EQ(theLog, (Lines{"w changing A: 1", "w changed A: 2"}));
}

TEST(LmKeyDependency, IsThereUntilItIsBroken)
{
    ThreeKeys the;
    EXPECT_FALSE(the.theStore.IsDependent("A", "B"));
    the.theStore.MakeDependency("A", "B");
    the.theStore.MakeDependency("A", "C");
    EXPECT_TRUE(the.theStore.IsDependent("A", "B"));
    EXPECT_FALSE(the.theStore.IsDependent("B", "A"));
    the.theStore.BreakDependency("A", "B");
    EXPECT_FALSE(the.theStore.IsDependent("A", "B"));
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "c changed C: 1"}));
}

TEST(LmKeyDependency, IsOnlyAskedWithoutMakingAKeyState)
{
    ThreeKeys the;
    NamedObserver theAny("w", the.theLog);
    the.theStore.ObserveKeyPathValue("*", &theAny);
    the.theStore.SetKeyValue("D", LmValue(1UL));
    EXPECT_FALSE(the.theStore.IsDependent("D", "A"));
    the.theStore.NotifyDependents("D");
    the.theStore.SetKeyPathValue("D", LmValue(2UL));
    EXPECT_EQ(the.theLog, Lines{});
}

TEST(LmKeyDependency, ADependencyMadeDuringAPassCountsFromTheNextChangeOn)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theB.mOnChanged = [&] {
        the.theB.mOnChanged = nullptr;
        the.theStore.MakeDependency("A", "C");
    };
    the.theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(the.theLog, (Lines{"a changing A: 1", "a changed A: 2", "b changed B: 1"}));
    the.theLog.clear();
    the.theStore.NotifyDependents("A");
    EXPECT_EQ(the.theLog, (Lines{"b changed B: 1", "c changed C: 1"}));
}

TEST(LmKeyDependency, ADependencyBrokenDuringAPassStillCountsInIt)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.MakeDependency("A", "C");
    the.theB.mOnChanged = [&] { the.theStore.BreakDependency("A", "C"); };
    the.theStore.NotifyDependents("A");
    EXPECT_EQ(the.theLog, (Lines{"b changed B: 1", "c changed C: 1"}));
    EXPECT_FALSE(the.theStore.IsDependent("A", "C"));
}

// ---- Oddities that are meant

TEST(LmKeyDependency, MadeTwiceTellsTwiceAndOneBreakEndsBothOnPurpose)
{
    ThreeKeys the;
    the.theStore.MakeDependency("A", "B");
    the.theStore.MakeDependency("A", "B");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{Diagnostic(kStore, "!IsDependent(watchedKey, dependentKey)")});
    the.theStore.NotifyDependents("A");
    EXPECT_EQ(the.theLog, (Lines{"b changed B: 1", "b changed B: 1"}));
    the.theStore.BreakDependency("A", "B");
    EXPECT_FALSE(the.theStore.IsDependent("A", "B"));
}

TEST(LmKeyDependency, BrokenWithoutBeingThereMakesAKeyStateOnPurpose)
{
    Lines theLog;
    LmKeyValueStore theStore;
    NamedObserver theAny("w", theLog);
    theStore.SetKeyValue("A", LmValue(1UL));
    theStore.SetKeyValue("B", LmValue(1UL));
    theStore.ObserveKeyPathValue("*", &theAny);
    theStore.BreakDependency("A", "B");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{Diagnostic(kStore, "IsDependent(watchedKey, dependentKey)")});
    theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(theLog, (Lines{"w changing A: 1", "w changed A: 2"}));
}

TEST(LmKeyDependency, TheWildcardAsDependentTellsItsObserversTwiceOnPurpose)
{
    ThreeKeys the;
    NamedObserver theAny("w", the.theLog);
    the.theStore.ObserveKeyPathValue("*", &theAny);
    the.theStore.MakeDependency("A", "*");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{Diagnostic(kStore, "dependentKey != kKeyAnyValue")});
    the.theStore.NotifyDependents("A");
    EXPECT_EQ(the.theLog, (Lines{"w changed *: ?", "w changed *: ?"}));
}

namespace {

struct BadCall
{
    const char* mName;
    void (*mCall)(LmKeyValueStore& theStore);
    Lines mTexts;
};

// The store has the key A only.
const BadCall kBadCalls[] = {
    {"IsDependentOfUnknownKeys",
     [](LmKeyValueStore& theStore) { EXPECT_FALSE(theStore.IsDependent("X", "Y")); },
     {"HasKey(theKeyName)", "HasKey(dependentKey)"}},
    {"IsDependentOfAnUnknownDependent",
     [](LmKeyValueStore& theStore) { EXPECT_FALSE(theStore.IsDependent("A", "Y")); },
     {"HasKey(dependentKey)"}},
    {"IsDependentOfEmptyNames",
     [](LmKeyValueStore& theStore) { EXPECT_FALSE(theStore.IsDependent("", "")); },
     {"theKeyName.IsNotEmpty()", "theKeyName.IsNotEmpty()", "HasKey(theKeyName)", "theKeyName.IsNotEmpty()",
      "theKeyName.IsNotEmpty()", "HasKey(dependentKey)"}},
    {"IsDependentOfTheWildcardIsFine",
     [](LmKeyValueStore& theStore) { EXPECT_FALSE(theStore.IsDependent("*", "*")); },
     {}},
    {"MakeDependencyOfUnknownKeys",
     [](LmKeyValueStore& theStore) { theStore.MakeDependency("X", "Y"); },
     {"HasKey(theKeyName)", "HasKey(dependentKey)"}},
    {"MakeDependencyOfTheWildcard",
     [](LmKeyValueStore& theStore) { theStore.MakeDependency("*", "*"); },
     {"watchedKey != kKeyAnyValue", "dependentKey != kKeyAnyValue"}},
    {"MakeDependencyOnTheWildcard",
     [](LmKeyValueStore& theStore) { theStore.MakeDependency("*", "A"); },
     {"watchedKey != kKeyAnyValue"}},
    {"MakeDependencyOfTheWildcardOnAnUnknownKey",
     [](LmKeyValueStore& theStore) { theStore.MakeDependency("X", "*"); },
     {"dependentKey != kKeyAnyValue", "HasKey(theKeyName)"}},
    {"BreakDependencyOfTheWildcardOnAnUnknownKey",
     [](LmKeyValueStore& theStore) { theStore.BreakDependency("X", "*"); },
     {"dependentKey != kKeyAnyValue", "HasKey(theKeyName)", "IsDependent(watchedKey, dependentKey)"}},
    {"BreakDependencyOfUnknownKeys",
     [](LmKeyValueStore& theStore) { theStore.BreakDependency("X", "Y"); },
     {"HasKey(theKeyName)", "HasKey(dependentKey)", "IsDependent(watchedKey, dependentKey)"}},
    {"BreakDependencyOfTheWildcard",
     [](LmKeyValueStore& theStore) { theStore.BreakDependency("*", "*"); },
     {"watchedKey != kKeyAnyValue", "dependentKey != kKeyAnyValue", "IsDependent(watchedKey, dependentKey)"}},
    {"NotifyDependentsOfAnUnknownKey",
     [](LmKeyValueStore& theStore) { theStore.NotifyDependents("X"); },
     {"HasKey(theKeyName)"}},
};

class LmKeyDependencyBadCall : public testing::TestWithParam<BadCall>
{
};

} // namespace

TEST_P(LmKeyDependencyBadCall, PrintsItsDiagnosticsInOrder)
{
    LmKeyValueStore theStore;
    theStore.SetKeyValue("A", LmValue(1UL));
    GetParam().mCall(theStore);
    Lines theExpected;
    for (const std::string& theText : GetParam().mTexts) {
        theExpected.push_back(Diagnostic(kStore, theText.c_str()));
    }
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), theExpected);
}

INSTANTIATE_TEST_SUITE_P(, LmKeyDependencyBadCall, testing::ValuesIn(kBadCalls),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

TEST(LmKeyDependency, MadeBeforeTheKeysExistIsReportedAndMadeAllTheSame)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theB("b", theLog);
    theStore.ObserveKeyPathValue("B", &theB);
    theStore.MakeDependency("A", "B");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic(kStore, "HasKey(theKeyName)"), Diagnostic(kStore, "HasKey(dependentKey)")}));
    theStore.SetKeyPathValue("A", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{"b changed B: -"});
}

TEST(LmKeyDependency, ThousandsOfDependentsAreToldWithoutDisturbance)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theLast("last", theLog);
    theStore.SetKeyValue("A", LmValue(1UL));
    for (int theIndex = 0; theIndex < 2000; ++theIndex) {
        const LmString theKey = std::to_string(theIndex).c_str();
        theStore.SetKeyValue(theKey, LmValue(1UL));
        theStore.MakeDependency("A", theKey);
    }
    theStore.ObserveKeyPathValue("1999", &theLast);
    theStore.SetKeyPathValue("A", LmValue(2UL));
    EXPECT_EQ(theLog, Lines{"last changed 1999: 1"});
}
