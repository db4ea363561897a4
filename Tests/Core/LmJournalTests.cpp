// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalHook.h"

#include "LmKeyValueBinding.h"
#include "LmKeyValueStore.h"
#include "StandardErrorCapture.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

// Counts what it is told, and asks back.
class Counter : public LmJournalHook
{
public:
    Counter() { mOther = LmSetJournalHook(this); }
    ~Counter() { LmSetJournalHook(mOther); }
    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept override
    {
        mKinds.push_back(theEntry.theKind);
        mScopes.push_back(theScope);
        // Nothing of this is told, traced or reported.
        LmKeyValueStore theStore;
        theStore.SetKeyPathValue("", LmValue(1));
        return mKinds.size();
    }
    void Close(const void* theScope) noexcept override { mClosed.push_back(theScope); }

    std::vector<LmJournalKind> mKinds;
    std::vector<const void*> mScopes;
    std::vector<const void*> mClosed;

private:
    LmJournalHook* mOther;
};

using Kinds = std::vector<LmJournalKind>;

} // namespace

TEST(LmJournal, TellsTheHookAsLongAsItIsSet)
{
    LmKeyValueStore theStore;
    {
        const Counter theCounter;
        theStore.SetKeyPathValue("volume", LmValue(1));
        theStore.SetKeyPathValue("volume", LmValue(1));
        EXPECT_EQ(theCounter.mKinds, (Kinds{kJournalChanging, kJournalChanged, kJournalEqual}));
    }
    theStore.SetKeyPathValue("volume", LmValue(2));
    EXPECT_EQ(LmSetJournalHook(nullptr), nullptr);
}

TEST(LmJournal, ClosesTheScopesThatItOpened)
{
    LmKeyValueStore theStore;
    const Counter theCounter;
    theStore.SetKeyPathValue("volume", LmValue(1));
    EXPECT_EQ(theCounter.mScopes.size(), 2U);
    EXPECT_EQ(theCounter.mClosed, theCounter.mScopes);
    EXPECT_NE(theCounter.mScopes[0], nullptr);
}

TEST(LmJournal, HasNothingToDoWithTheTrace)
{
    LmKeyValueStore theStore;
    const Counter theCounter;
    EXPECT_FALSE(LmDebugObject::IsLogging());
    theStore.LogString("unheard");
    LmDebugObject::SetLogging(true);
    EXPECT_TRUE(LmDebugObject::IsLogging());
    LmDebugObject::SetLogging(false);
    theStore.NotifyObservers("volume", true);
    EXPECT_EQ(theCounter.mKinds, Kinds{kJournalNotify});
}

TEST(LmJournal, TakesNamesAndEntriesFromOutside)
{
    const LmKeyValueStore theStore;
    LmNameObject(theStore, "unheard");
    const Counter theCounter;
    LmNameObject(theStore, "radio");
    LmJournalEntry theEntry{kJournalFlush};
    LmWriteJournalEntry(theEntry, &theEntry);
    LmCloseJournalEntry(&theEntry);
    EXPECT_EQ(theCounter.mKinds, (Kinds{kJournalNamed, kJournalFlush}));
    EXPECT_EQ(theCounter.mClosed, std::vector<const void*>{&theEntry});
}

namespace {

// Keeps what it is told, as far as that outlives the call.
class Keeper : public LmJournalHook
{
public:
    Keeper() { LmSetJournalHook(this); }
    ~Keeper() { LmSetJournalHook(nullptr); }
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void*) noexcept override
    {
        mEntries.push_back(theEntry);
        return mEntries.size();
    }

    std::vector<LmJournalEntry> mEntries;
};

} // namespace

TEST(LmJournal, TellsOfASetTwiceUnderTheSameSign)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.ObserveKeyPathValue("volume", &theObserver);
    const Keeper theKeeper;
    theStore.SetKeyPathValue("volume", LmValue(1));
    ASSERT_EQ(theKeeper.mEntries.size(), 2U);
    const LmJournalEntry& theFirst = theKeeper.mEntries[0];
    const LmJournalEntry& theSecond = theKeeper.mEntries[1];
    EXPECT_NE(theFirst.theChange, nullptr);
    EXPECT_EQ(theFirst.theChange, theSecond.theChange);
    EXPECT_NE(theFirst.theValue, nullptr);
    EXPECT_EQ(theSecond.theValue, nullptr);
    EXPECT_EQ(theFirst.theDetail, 0U);
    EXPECT_EQ(theSecond.theDetail, 1U);
    EXPECT_EQ(theFirst.theCode, 0U);
}

TEST(LmJournal, TellsNobodyOfADependencyThatOnlyTheTraceHeardOf)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.SetKeyValue("loud", LmValue(true));
    theStore.MakeDependency("volume", "loud");
    theStore.ObserveKeyPathValue("loud", &theObserver);
    LmDebugObject::SetLogging(true);
    theStore.SetKeyPathValue("volume", LmValue(1));
    LmDebugObject::SetLogging(false);
    StandardErrorCapture::TakeLines();
    const Keeper theKeeper;
    theStore.NotifyObservers("loud", true);
    ASSERT_EQ(theKeeper.mEntries.size(), 1U);
    EXPECT_EQ(theKeeper.mEntries[0].theKind, kJournalNotify);
    EXPECT_EQ(theKeeper.mEntries[0].theOtherKey, nullptr);
}

TEST(LmJournal, IsNobodyWhereThereIsNoHook)
{
    LmWriteJournalEntry(LmJournalEntry{kJournalDiagnostic}, nullptr);
    LmCloseJournalEntry(nullptr);
    const Keeper theKeeper;
    EXPECT_TRUE(theKeeper.mEntries.empty());
}

TEST(LmJournal, SaysWhichValueOfABindingIsTheFirst)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("volume", LmValue(1));
    const Keeper theKeeper;
    theView.BindTo("value", &theModel, "volume", nullptr);
    theModel.SetKeyPathValue("volume", LmValue(2));
    std::vector<std::uint32_t> theDetails;
    for (const LmJournalEntry& theEntry : theKeeper.mEntries) {
        if (theEntry.theKind == kJournalUpdate) {
            theDetails.push_back(theEntry.theDetail);
            EXPECT_EQ(static_cast<const LmKeyValueStore*>(theEntry.theOther),
                      static_cast<const LmKeyValueStore*>(&theModel));
        }
    }
    EXPECT_EQ(theDetails, (std::vector<std::uint32_t>{1, 0}));
    theView.UnbindAll();
    // A binding that goes one way ends with the status -50.
    EXPECT_EQ(StandardErrorCapture::TakeLines().size(), 1U);
}

TEST(LmJournal, LeavesEmptyWhatAKindHasNoUseFor)
{
    const Keeper theKeeper;
    std::make_unique<LmKeyValueStore>().reset();
    std::make_unique<LmKeyValueObserver>().reset();
    ASSERT_EQ(theKeeper.mEntries.size(), 4U);
    const std::uint32_t kDetails[] = {kJournalStore, 0, kJournalObserver, 0};
    for (std::size_t theIndex = 0; theIndex < 4; ++theIndex) {
        EXPECT_EQ(theKeeper.mEntries[theIndex].theCode, 0U);
        EXPECT_EQ(theKeeper.mEntries[theIndex].theDetail, kDetails[theIndex]);
    }
}
