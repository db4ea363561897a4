// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalHook.h"

#include "LmKeyValueBinding.h"
#include "LmKeyValueStore.h"
#include "LmValueTransform.h"
#include "StandardErrorCapture.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <utility>
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

    std::vector<LmJournalEntry> Of(LmJournalKind theKind) const
    {
        std::vector<LmJournalEntry> theOnes;
        std::copy_if(mEntries.begin(), mEntries.end(), std::back_inserter(theOnes),
                     [theKind](const LmJournalEntry& theEntry) { return theEntry.theKind == theKind; });
        return theOnes;
    }

    std::vector<LmJournalEntry> mEntries;
};

// Does something, and passes the value on.
class Doing : public LmValueTransform
{
public:
    explicit Doing(std::function<void()> theWork)
        : mWork(std::move(theWork))
    {
    }
    LmValue Apply(const LmValue& theValue) override
    {
        mWork();
        return theValue;
    }

private:
    std::function<void()> mWork;
};

const void* AddressOf(const LmKeyValueStore& theStore)
{
    return &theStore;
}

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

TEST(LmJournal, TellsOfANotificationWithinASetApartFromTheSet)
{
    LmKeyValueStore theStore;
    struct Repeating : LmKeyValueObserver
    {
        explicit Repeating(LmKeyValueStore& theStore)
            : mStore(theStore)
        {
        }
        void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
        {
            if (++mCalls == 1) {
                mStore.NotifyObservers(theKeyName, false);
                mStore.NotifyObservers(theKeyName, true);
            }
        }
        LmKeyValueStore& mStore;
        int mCalls = 0;
    };
    Repeating theObserver(theStore);
    theStore.ObserveKeyPathValue("volume", &theObserver);
    const Keeper theKeeper;
    theStore.SetKeyPathValue("volume", LmValue(1));
    EXPECT_EQ(theObserver.mCalls, 2);
    const std::vector<LmJournalEntry> theOnes = theKeeper.Of(kJournalNotify);
    ASSERT_EQ(theOnes.size(), 2U);
    for (const LmJournalEntry& theEntry : theOnes) {
        EXPECT_EQ(theEntry.theChange, nullptr);
        EXPECT_EQ(theEntry.theValue, nullptr);
    }
}

TEST(LmJournal, TellsNothingOfATransformThatSwitchedItOn)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    Keeper theKeeper;
    LmSetJournalHook(nullptr);
    const auto theWork = [&] {
        // While the two are bound, there is no value yet.
        if (theModel.GetKeyPathValue("volume").IsValid()) {
            LmSetJournalHook(&theKeeper);
        }
    };
    theView.Bind("value", &theModel, "volume", new Doing(theWork), nullptr);
    theModel.SetKeyPathValue("volume", LmValue(1));
    EXPECT_EQ(LmSetJournalHook(nullptr), &theKeeper);
    EXPECT_TRUE(theKeeper.Of(kJournalTransform).empty());
    const std::vector<LmJournalEntry> theUpdates = theKeeper.Of(kJournalUpdate);
    ASSERT_EQ(theUpdates.size(), 2U) << "there, and back to the model, which has the value already";
    EXPECT_EQ(theUpdates[0].theOther, AddressOf(theModel));
}

TEST(LmJournal, TellsNothingOfATransformThatDestroyedItsBinding)
{
    LmKeyValueBinding theModel;
    auto theView = std::make_unique<LmKeyValueBinding>();
    bool isOver = false;
    theView->Bind("value", &theModel, "volume", new Doing([&] {
                      if (isOver) {
                          theView.reset();
                      }
                  }),
                  nullptr);
    isOver = true;
    const Keeper theKeeper;
    theModel.SetKeyPathValue("volume", LmValue(1));
    EXPECT_EQ(theView, nullptr);
    EXPECT_TRUE(theKeeper.Of(kJournalTransform).empty());
    EXPECT_TRUE(theKeeper.Of(kJournalUpdate).empty());
}

TEST(LmJournal, NamesNoModelThatATransformHasDestroyed)
{
    LmKeyValueBinding theView;
    auto theModel = std::make_unique<LmKeyValueBinding>();
    theModel->SetKeyPathValue("volume", LmValue(1));
    const Keeper theKeeper;
    theView.Bind("value", theModel.get(), "volume", new Doing([&] { theModel.reset(); }), nullptr);
    const std::vector<LmJournalEntry> theTransforms = theKeeper.Of(kJournalTransform);
    const std::vector<LmJournalEntry> theUpdates = theKeeper.Of(kJournalUpdate);
    ASSERT_EQ(theTransforms.size(), 1U);
    ASSERT_EQ(theUpdates.size(), 1U);
    EXPECT_EQ(theTransforms[0].theOther, nullptr);
    EXPECT_EQ(theUpdates[0].theOther, nullptr);
    EXPECT_EQ(theUpdates[0].theObject, AddressOf(theView));
}

TEST(LmJournal, AsksNoObjectForItsTextWhileNothingIsTraced)
{
    struct Asked : LmKeyValueBinding
    {
        LmString GetDebugInfo() const override
        {
            mTimes += 1;
            return "asked";
        }
        mutable int mTimes = 0;
    };
    Asked theModel;
    Asked theView;
    LmKeyValueObserver theObserver;
    const Keeper theKeeper;
    theModel.ObserveKeyPathValue("volume", &theObserver);
    theView.Bind("value", &theModel, "volume", nullptr, nullptr);
    theModel.SetKeyPathValue("volume", LmValue(1));
    theView.Unbind("value", &theModel);
    EXPECT_FALSE(theKeeper.Of(kJournalUnbind).empty());
    EXPECT_EQ(theModel.mTimes, 0);
    EXPECT_EQ(theView.mTimes, 0);
}
