// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "LmKeyValueStore.h"
#include "NamedObserver.h"
#include "TestValues.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <type_traits>

namespace {

const char* const kStore = "LmKeyValueStore";

// Keeps its values in a map of its own and notes each access.
class RemoteStore : public LmKeyValueStore
{
public:
    LmValue GetKeyValue(const LmString& theKeyName) const override
    {
        mLog.push_back(std::string("get ") + theKeyName.GetUTF8());
        const auto theEntry = mRemote.find(theKeyName);
        return theEntry != mRemote.end() ? theEntry->second : LmValue();
    }

    void SetKeyValue(const LmString& theKeyName, const LmValue& theValue) override
    {
        mLog.push_back(std::string("set ") + theKeyName.GetUTF8());
        mRemote[theKeyName] = theValue;
    }

    mutable Lines mLog;
    std::map<LmString, LmValue> mRemote;
};

LmValue NullString()
{
    return LmValue(nullptr, false);
}

} // namespace

static_assert(!std::is_copy_constructible_v<LmKeyValueStore>);
static_assert(!std::is_copy_assignable_v<LmKeyValueStore>);
static_assert(std::is_copy_constructible_v<LmKeyState>);
static_assert(std::is_base_of_v<LmDebugObject, LmKeyValueStore>);

TEST(LmKeyValueStore, AKeyThatWasNeverSetReadsAsInvalid)
{
    const LmKeyValueStore theStore;
    EXPECT_FALSE(theStore.GetKeyValue("volume").IsValid());
    EXPECT_FALSE(theStore.GetKeyPathValue("volume").IsValid());
}

TEST(LmKeyValueStore, ReadingMakesNoKey)
{
    LmKeyValueStore theStore;
    AllocationFailures theCount;
    theStore.GetKeyValue("volume");
    theStore.GetKeyPathValue("volume");
    theStore.HasKey("volume");
    theStore.NotifyObservers("volume", true);
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 0u);
}

TEST(LmKeyValueStore, AKeyReadsAsWhatWasSetLast)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetUInt32(), 40u);
    theStore.SetKeyPathValue("volume", LmValue(2.5));
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetType(), kTypeDouble);
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetDouble(), 2.5);
}

TEST(LmKeyValueStore, WhatIsReadIsACopy)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(2.5));
    LmValue theCopy = theStore.GetKeyPathValue("volume");
    theCopy.SetDouble(7.5);
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetDouble(), 2.5);
}

TEST(LmKeyValueStore, KeysAreComparedByteByByte)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("Name", LmValue(1UL));
    theStore.SetKeyPathValue("name", LmValue(2UL));
    theStore.SetKeyPathValue("names", LmValue(3UL));
    EXPECT_EQ(theStore.GetKeyPathValue("Name").GetUInt32(), 1u);
    EXPECT_EQ(theStore.GetKeyPathValue("name").GetUInt32(), 2u);
    EXPECT_EQ(theStore.GetKeyPathValue("names").GetUInt32(), 3u);
}

TEST(LmKeyValueStore, APathIsOneKeyNameDotsIncluded)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("a", LmValue(1UL));
    EXPECT_FALSE(theStore.GetKeyPathValue("a.b").IsValid());
    theStore.SetKeyPathValue("a.b", LmValue(2UL));
    EXPECT_EQ(theStore.GetKeyValue("a.b").GetUInt32(), 2u);
    EXPECT_EQ(theStore.GetKeyPathValue("a").GetUInt32(), 1u);
    EXPECT_FALSE(theStore.GetKeyPathValue("b").IsValid());
}

TEST(LmKeyValueStore, TheDebugInfoIsTheAddress)
{
    const LmKeyValueStore theStore;
    EXPECT_EQ(theStore.GetDebugInfo(), theStore.LmDebugObject::GetDebugInfo());
}

TEST(LmKeyValueStore, AKeyStateIsARecordThatCopiesBothItsListsInOrder)
{
    LmKeyValueObserver theObservers[2];
    LmKeyState theState;
    EXPECT_TRUE(theState.theDependents.empty());
    EXPECT_TRUE(theState.theObservers.empty());
    theState.theDependents = {"b", "a"};
    theState.theObservers = {&theObservers[1], &theObservers[0]};
    const LmKeyState theCopy = theState;
    theState.theDependents.clear();
    theState.theObservers.clear();
    EXPECT_EQ(theCopy.theDependents, (std::list<LmString>{"b", "a"}));
    EXPECT_EQ(theCopy.theObservers, (std::list<LmKeyValueObserver*>{&theObservers[1], &theObservers[0]}));
}

// ---- HasKey

TEST(LmKeyValueStore, TheWildcardIsAKeyOfEveryStore)
{
    RemoteStore theStore;
    EXPECT_TRUE(theStore.HasKey("*"));
    EXPECT_EQ(theStore.mLog, Lines{}) << "it is not even looked up";
}

TEST(LmKeyValueStore, AKeyExistsWhileItsValueIsValid)
{
    LmKeyValueStore theStore;
    EXPECT_FALSE(theStore.HasKey("volume"));
    theStore.SetKeyValue("volume", LmValue());
    EXPECT_FALSE(theStore.HasKey("volume"));
    theStore.SetKeyValue("volume", LmValue(false));
    EXPECT_TRUE(theStore.HasKey("volume"));
    theStore.SetKeyValue("volume", LmValue());
    EXPECT_FALSE(theStore.HasKey("volume"));
}

TEST(LmKeyValueStore, AnObserverDoesNotMakeAKeyExist)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.ObserveKeyPathValue("volume", &theObserver);
    EXPECT_FALSE(theStore.HasKey("volume"));
}

// ---- Setting

TEST(LmKeyValueStore, SettingTellsBeforeAndAfterTheValueIsStored)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    theStore.SetKeyPathValue("volume", LmValue(55UL));
    const Lines theExpected = {"A changing volume: -", "A changed volume: 40", "A changing volume: 40",
                               "A changed volume: 55"};
    EXPECT_EQ(theLog, theExpected);
}

TEST(LmKeyValueStore, SettingAnEqualValueNotifiesNobody)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    theLog.clear();
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_EQ(theLog, Lines{});
}

TEST(LmKeyValueStore, SettingANeverSetKeyToAnInvalidValueStoresNothing)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    AllocationFailures theCount;
    theStore.SetKeyPathValue("volume", LmValue());
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 0u);
    EXPECT_EQ(theLog, Lines{});
}

TEST(LmKeyValueStore, SettingAKeyToAnInvalidValueNotifiesAndSaysThatTheKeyIsGone)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.SetKeyPathValue("volume", LmValue());
    EXPECT_EQ(theLog, (Lines{"A changing volume: 40", "A changed volume: -"}));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{Diagnostic(kStore, "HasKey(theKeyName)")});
}

TEST(LmKeyValueStore, NumbersAreComparedAsIntegersSoTheOldOneStaysOnPurpose)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.SetKeyPathValue("volume", LmValue(1.5));
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.SetKeyPathValue("volume", LmValue(1.0));
    EXPECT_EQ(theLog, Lines{});
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetDouble(), 1.5);
}

TEST(LmKeyValueStore, ANullStringAlwaysCountsAsAChangeOnPurpose)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.SetKeyPathValue("name", NullString());
    theStore.ObserveKeyPathValue("name", &theObserver);
    theStore.SetKeyPathValue("name", NullString());
    EXPECT_EQ(theLog, (Lines{"A changing name: a string", "A changed name: a string"}));
}

TEST(LmKeyValueStore, TheBaseSetterNeitherComparesNorNotifies)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.SetKeyValue("volume", LmValue(1.5));
    theStore.SetKeyValue("volume", LmValue(1.0));
    EXPECT_EQ(theLog, Lines{});
    EXPECT_EQ(theStore.GetKeyValue("volume").GetDouble(), 1.0);
}

TEST(LmKeyValueStore, AValueOfAnotherKindIsAChange)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("thing", LmValue(static_cast<const void*>(&theStore)));
    theStore.SetKeyPathValue("thing", LmValue(1UL));
    EXPECT_EQ(theStore.GetKeyPathValue("thing").GetUInt32(), 1u);
}

TEST(LmKeyValueStore, AValueOfAnUnknownKindIsReportedAndStoredAsInvalid)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    theStore.ObserveKeyPathValue("volume", &theObserver);
    TestValue theValue(12);
    StandardErrorCapture::TakeText();
    theStore.SetKeyPathValue("volume", theValue);
    EXPECT_EQ(theLog, (Lines{"A changing volume: 40", "A changed volume: -"}));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic("LmValue", "Unknown type: 12"), Diagnostic(kStore, "HasKey(theKeyName)")}));
    theStore.SetKeyValue("*", theValue);
    theValue.InitialiseSelf();
    EXPECT_EQ(
        StandardErrorCapture::TakeDiagnostics(),
        (Lines{Diagnostic(kStore, "theKeyName != kKeyAnyValue"), Diagnostic("LmValue", "Unknown type: 12")}));
}

TEST(LmKeyValueStore, TheKeyIsCopiedBeforeAnybodyIsTold)
{
    LmKeyValueStore theStore;
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    auto theKey = std::make_unique<LmString>("a key that is too long to fit into the string itself");
    theStore.ObserveKeyPathValue(*theKey, &theObserver);
    theObserver.mOnChanging = [&] { theKey.reset(); };
    theStore.SetKeyPathValue(*theKey, LmValue(1UL));
    EXPECT_EQ(theLog, (Lines{"A changing a key that is too long to fit into the string itself: -",
                             "A changed a key that is too long to fit into the string itself: 1"}));
}

// ---- Derived classes

TEST(LmKeyValueStore, ReadingGoesThroughTheOverride)
{
    RemoteStore theStore;
    theStore.LmKeyValueStore::SetKeyValue("volume", LmValue(1UL));
    EXPECT_FALSE(theStore.HasKey("volume"));
    EXPECT_FALSE(theStore.GetKeyPathValue("volume").IsValid());
    EXPECT_EQ(theStore.mLog, (Lines{"get volume", "get volume"}));
}

TEST(LmKeyValueStore, SettingReadsWritesNotifiesAndReadsAgainInThisOrder)
{
    RemoteStore theStore;
    NamedObserver theObserver("A", theStore.mLog);
    NamedObserver theDependentObserver("B", theStore.mLog);
    theStore.mRemote["volume"] = LmValue(40UL);
    theStore.mRemote["loud"] = LmValue(false);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    theStore.ObserveKeyPathValue("loud", &theDependentObserver);
    theStore.MakeDependency("volume", "loud");
    theStore.mLog.clear();
    theStore.SetKeyPathValue("volume", LmValue(55UL));
    // Each observer reads the key for its note.
    const Lines theExpected = {"get volume", "get volume", "A changing volume: 40",
                               "set volume", "get volume", "A changed volume: 55",
                               "get volume", "get loud",   "B changed loud: 0"};
    EXPECT_EQ(theStore.mLog, theExpected);
}

TEST(LmKeyValueStore, SettingAnEqualValueOnlyReads)
{
    RemoteStore theStore;
    theStore.mRemote["volume"] = LmValue(40UL);
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_EQ(theStore.mLog, Lines{"get volume"});
}

// ---- Bad arguments

namespace {

struct BadCall
{
    const char* mName;
    void (*mCall)(LmKeyValueStore& theStore);
    Lines mTexts;
};

const char* const kPathIsEmpty = "theKeyPath.IsNotEmpty()";
const char* const kNameIsEmpty = "theKeyName.IsNotEmpty()";
const char* const kNameIsAny = "theKeyName != kKeyAnyValue";

const BadCall kBadCalls[] = {
    {"GetKeyValueOfTheEmptyName",
     [](LmKeyValueStore& theStore) { theStore.GetKeyValue(""); },
     {kNameIsEmpty}},
    {"GetKeyValueOfTheWildcard", [](LmKeyValueStore& theStore) { theStore.GetKeyValue("*"); }, {kNameIsAny}},
    {"SetKeyValueOfTheEmptyName",
     [](LmKeyValueStore& theStore) { theStore.SetKeyValue("", LmValue(1UL)); },
     {kNameIsEmpty}},
    {"SetKeyValueOfTheWildcard",
     [](LmKeyValueStore& theStore) { theStore.SetKeyValue("*", LmValue(1UL)); },
     {kNameIsAny}},
    {"GetKeyPathValueOfTheEmptyPath",
     [](LmKeyValueStore& theStore) { theStore.GetKeyPathValue(""); },
     {kPathIsEmpty, kNameIsEmpty}},
    {"GetKeyPathValueOfTheWildcard",
     [](LmKeyValueStore& theStore) { theStore.GetKeyPathValue("*"); },
     {kNameIsAny, kNameIsAny}},
    {"SetKeyPathValueOfTheEmptyPath",
     [](LmKeyValueStore& theStore) { theStore.SetKeyPathValue("", LmValue(1UL)); },
     {kPathIsEmpty, kNameIsEmpty, kNameIsEmpty, kNameIsEmpty, kNameIsEmpty}},
    {"SetKeyPathValueOfTheWildcard",
     [](LmKeyValueStore& theStore) { theStore.SetKeyPathValue("*", LmValue(1UL)); },
     {kNameIsAny, kNameIsAny, kNameIsAny}},
    {"HasKeyOfTheEmptyName",
     [](LmKeyValueStore& theStore) { theStore.HasKey(""); },
     {kNameIsEmpty, kNameIsEmpty}},
};

class LmKeyValueStoreBadCall : public testing::TestWithParam<BadCall>
{
};

} // namespace

TEST_P(LmKeyValueStoreBadCall, PrintsItsDiagnosticsInOrder)
{
    LmKeyValueStore theStore;
    GetParam().mCall(theStore);
    Lines theExpected;
    for (const std::string& theText : GetParam().mTexts) {
        theExpected.push_back(Diagnostic(kStore, theText.c_str()));
    }
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), theExpected);
}

INSTANTIATE_TEST_SUITE_P(, LmKeyValueStoreBadCall, testing::ValuesIn(kBadCalls),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

TEST(LmKeyValueStore, BadNamesAreUsedAsKeysAllTheSame)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("", LmValue(1UL));
    theStore.SetKeyPathValue("*", LmValue(2UL));
    EXPECT_EQ(theStore.GetKeyValue("").GetUInt32(), 1u);
    EXPECT_EQ(theStore.GetKeyValue("*").GetUInt32(), 2u);
    StandardErrorCapture::TakeText();
}

// ---- Death

TEST(LmKeyValueStore, ADyingStoreLetsGoOfItsObservers)
{
    LmKeyValueObserver theObserver;
    auto theStore = std::make_unique<LmKeyValueStore>();
    theStore->ObserveKeyPathValue("volume", &theObserver);
    theStore->ObserveKeyPathValue("*", &theObserver);
    LmKeyValueStore* const theAddress = theStore.get();
    theStore.reset();
    EXPECT_FALSE(theObserver.AmObserving(theAddress, "volume"));
    EXPECT_FALSE(theObserver.AmObserving(theAddress, "*"));
}

namespace {

// Says at which notification the store goes.
struct Death
{
    const char* mName;
    bool mIsBefore;
    const char* mKey;
    Lines mLog;
};

const Death kDeaths[] = {
    {"InValueChanging", true, "volume", {"A changing volume: -"}},
    {"InValueChanged",
     false,
     "volume",
     {"A changing volume: -", "B changing volume: -", "A changed volume: 1"}},
    {"InTheNotificationOfADependent",
     false,
     "loud",
     {"A changing volume: -", "B changing volume: -", "A changed volume: 1", "B changed volume: 1",
      "D changed loud: 0"}},
};

class LmKeyValueStoreDeath : public testing::TestWithParam<Death>
{
};

} // namespace

TEST_P(LmKeyValueStoreDeath, EndsThePassAndTheCall)
{
    Lines theLog;
    auto theStore = std::make_unique<LmKeyValueStore>();
    // In one array, so that their order of addresses is known.
    NamedObserver theObservers[] = {{"A", theLog}, {"B", theLog}};
    NamedObserver theDependentObservers[] = {{"D", theLog}, {"E", theLog}};
    for (NamedObserver& theObserver : theObservers) {
        theStore->ObserveKeyPathValue("volume", &theObserver);
    }
    for (NamedObserver& theObserver : theDependentObservers) {
        theStore->ObserveKeyPathValue("loud", &theObserver);
    }
    theStore->SetKeyValue("loud", LmValue(false));
    theStore->MakeDependency("volume", "loud");
    theStore->MakeDependency("volume", "loud");
    StandardErrorCapture::TakeText();

    NamedObserver& theKiller =
        LmString(GetParam().mKey) == "loud" ? theDependentObservers[0] : theObservers[0];
    (GetParam().mIsBefore ? theKiller.mOnChanging : theKiller.mOnChanged) = [&] { theStore.reset(); };
    theStore->SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, GetParam().mLog);
    EXPECT_EQ(theStore, nullptr);
}

INSTANTIATE_TEST_SUITE_P(, LmKeyValueStoreDeath, testing::ValuesIn(kDeaths),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

// ---- What changes while a key is set

TEST(LmKeyValueStore, AnObservationThatBeginsInTheSetterHearsOfTheChange)
{
    class WatchedStore : public LmKeyValueStore
    {
    public:
        void SetKeyValue(const LmString& theKeyName, const LmValue& theValue) override
        {
            LmKeyValueStore::SetKeyValue(theKeyName, theValue);
            ObserveKeyPathValue(theKeyName, mObserver);
        }

        LmKeyValueObserver* mObserver = nullptr;
    };
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    WatchedStore theStore;
    theStore.mObserver = &theObserver;
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{"A changed volume: 1"});
}

TEST(LmKeyValueStore, AKeyThatAnObserverMakesWhileItIsSetIsSetAllTheSame)
{
    // Makes the key by the very name that it is told.
    class Maker : public LmKeyValueObserver
    {
    public:
        explicit Maker(LmKeyValueStore& theStore)
            : mStore(theStore)
        {
        }
        void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
        {
            mStore.SetKeyValue(theKeyName, LmValue(7UL));
            mFound = theStore->GetKeyPathValue(theKeyName).GetUInt32();
        }

        LmKeyValueStore& mStore;
        unsigned long mFound = 0;
    };
    LmKeyValueStore theStore;
    Maker theMaker(theStore);
    theStore.ObserveKeyPathValue("volume", &theMaker);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theMaker.mFound, 7UL);
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetUInt32(), 1UL);
}

TEST(LmKeyValueStore, AStoreInThePlaceOfOneThatDiedInItsPassHasItsOwnValues)
{
    // Puts another store where the one was that told it, and sets the key there by the very name that it was
    // told.
    class Replacer : public LmKeyValueObserver
    {
    public:
        explicit Replacer(void* thePlace)
            : mPlace(thePlace)
        {
        }
        void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
        {
            theStore->~LmKeyValueStore();
            auto* theSuccessor = new (mPlace) LmKeyValueStore;
            theSuccessor->SetKeyValue(theKeyName, LmValue(9UL));
        }

        void* mPlace;
    };
    alignas(LmKeyValueStore) unsigned char thePlace[sizeof(LmKeyValueStore)];
    auto* theStore = new (thePlace) LmKeyValueStore;
    Replacer theReplacer(thePlace);
    theStore->SetKeyValue("volume", LmValue(0UL));
    theStore->ObserveKeyPathValue("volume", &theReplacer);
    theStore->SetKeyPathValue("volume", LmValue(1UL));
    theStore = std::launder(reinterpret_cast<LmKeyValueStore*>(thePlace));
    EXPECT_TRUE(theStore->HasKey("volume"));
    theStore->~LmKeyValueStore();
}

TEST(LmKeyValueStore, AStoreMayDieInItsOwnSetter)
{
    // As a control's binding does when writing the control disposes it.
    class MortalStore : public LmKeyValueStore
    {
    public:
        void SetKeyValue(const LmString& /*theKeyName*/, const LmValue& /*theValue*/) override
        {
            delete this;
        }
    };
    Lines theLog;
    NamedObserver theObserver("A", theLog);
    auto* theStore = new MortalStore;
    theStore->ObserveKeyPathValue("volume", &theObserver);
    theStore->SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(theLog, Lines{"A changing volume: -"});
}

TEST(LmKeyValueStore, TheDepthOfTheTraceIsRestoredWhenAStoreDiesInItsPass)
{
    Lines theLog;
    auto* theStore = new LmKeyValueStore;
    NamedObserver theObserver("A", theLog);
    theStore->ObserveKeyPathValue("volume", &theObserver);
    theObserver.mOnChanged = [&] { delete theStore; };
    LmDebugObject::SetLogging(true);
    theStore->SetKeyPathValue("volume", LmValue(1UL));
    StandardErrorCapture::TakeText();
    theObserver.AddIndent();
    theObserver.AddIndent();
    theObserver.LogString("here");
    theObserver.RemoveIndent();
    theObserver.RemoveIndent();
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm:     here\n");
}

TEST(LmKeyValueStore, TellsWhoObservesAllKeysWhateverNameSortsFirst)
{
    // Before "*", and with a second letter behind it.
    for (const char* const theName : {"!x", "*x", " ", "a"}) {
        Lines theLog;
        NamedObserver theObserver("one", theLog);
        NamedObserver theWatcher("all", theLog);
        LmKeyValueStore theStore;
        theStore.ObserveKeyPathValue(theName, &theObserver);
        theStore.ObserveKeyPathValue(kKeyAnyValue, &theWatcher);
        theStore.SetKeyPathValue(theName, LmValue(1));
        EXPECT_EQ(theLog.size(), 4U) << theName;
    }
}
