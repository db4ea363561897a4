// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueBinding.h"
#include "LmUpdateScope.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <type_traits>

namespace {

static_assert(!std::is_copy_constructible_v<LmUpdateScope>);
static_assert(!std::is_copy_assignable_v<LmUpdateScope>);

// It cannot be made with new.
template <typename Class, typename = void>
constexpr bool kIsMadeByNew = false;
template <typename Class>
constexpr bool kIsMadeByNew<Class, std::void_t<decltype(new Class(nullptr, std::declval<bool&>()))>> = true;
static_assert(!kIsMadeByNew<LmUpdateScope>);

TEST(LmUpdateScope, ClearsTheFlagAndSetsItAgain)
{
    const LmKeyValueBinding theBinding;
    bool isUpdated = true;
    {
        const LmUpdateScope theScope(&theBinding, isUpdated);
        EXPECT_FALSE(isUpdated);
        EXPECT_FALSE(theScope.BindingIsGone());
    }
    EXPECT_TRUE(isUpdated);
}

TEST(LmUpdateScope, SetsTheFlagAtTheEndOfAnInnerScopeToo)
{
    const LmKeyValueBinding theBinding;
    bool isUpdated = true;
    const LmUpdateScope theScope(&theBinding, isUpdated);
    {
        const LmUpdateScope theInnerScope(&theBinding, isUpdated);
        EXPECT_FALSE(isUpdated);
    }
    EXPECT_TRUE(isUpdated);
}

TEST(LmUpdateScope, LeavesTheFlagAloneOnceTheBindingIsGone)
{
    auto theBinding = std::make_unique<LmKeyValueBinding>();
    bool isUpdated = true;
    {
        const LmUpdateScope theScope(theBinding.get(), isUpdated);
        theBinding.reset();
        EXPECT_TRUE(theScope.BindingIsGone());
    }
    EXPECT_FALSE(isUpdated);
}

// A binding whose object is a number, the same for all keys.
class NumberBinding : public LmKeyValueBinding
{
public:
    explicit NumberBinding(Lines& theLog)
        : mLog(theLog)
    {
    }

    void SyncAll() { LmSyncKeys(this, mUpdateNumber, {"low", "high", "last"}); }

    void SyncValue(const LmString& theKey)
    {
        mLog.push_back(std::string("sync ") + theKey.GetUTF8());
        SetKeyPathValue(theKey, LmValue(mNumber));
    }

    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        if (mUpdateNumber) {
            mLog.push_back(std::string("write ") + theKey.GetUTF8());
        }
        LmKeyValueStore::SetKeyValue(theKey, theValue);
    }

    // For an object that changes while it is copied.
    void Change() { LmSyncKeys(this, mUpdateNumber, {"changed"}); }

private:
    Lines& mLog;
    long mNumber = 7;
    bool mUpdateNumber = true;
};

// Does something when it hears of a change.
class Reaction : public LmKeyValueObserver
{
public:
    explicit Reaction(const std::function<void()>& theDeed)
        : mDeed(theDeed)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override { mDeed(); }

private:
    std::function<void()> mDeed;
};

TEST(LmSyncKeys, CopiesTheKeysInOrderAndWritesNoneBack)
{
    Lines theLog;
    NumberBinding theBinding(theLog);
    theBinding.SyncAll();
    EXPECT_EQ(theLog, (Lines{"sync low", "sync high", "sync last"}));
    EXPECT_EQ(theBinding.GetKeyPathValue("last").GetSInt32(), 7L);
    theBinding.SetKeyPathValue("low", LmValue(8L));
    EXPECT_EQ(theLog.back(), "write low");
}

TEST(LmSyncKeys, EndsWithTheBindingThatACopiedValueDestroys)
{
    Lines theLog;
    auto theBinding = std::make_unique<NumberBinding>(theLog);
    Reaction theReaction([&] { theBinding.reset(); });
    theBinding->ObserveKeyPathValue("high", &theReaction);
    theBinding->SyncAll();
    EXPECT_EQ(theLog, (Lines{"sync low", "sync high"}));
}

TEST(LmSyncKeys, WritesBackWhatIsCopiedAfterAnotherChangeWithinOnPurpose)
{
    Lines theLog;
    NumberBinding theBinding(theLog);
    Reaction theReaction([&] { theBinding.Change(); });
    theBinding.ObserveKeyPathValue("high", &theReaction);
    theBinding.SyncAll();
    EXPECT_EQ(theLog, (Lines{"sync low", "sync high", "sync changed", "sync last", "write last"}));
}

} // namespace
