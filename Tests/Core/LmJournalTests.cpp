// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalHook.h"

#include "LmKeyValueStore.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>
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
