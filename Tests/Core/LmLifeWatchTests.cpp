// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLifeWatch.h"

#include "LmKeyValueBinding.h"
#include "NamedObserver.h"

#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

// These watches are made outside the library, as an application makes them, and it is the library that tells
// them.

static_assert(!std::is_copy_constructible_v<LmLifeWatch> && !std::is_copy_assignable_v<LmLifeWatch>);

TEST(LmLifeWatch, SeesTheEndOfItsStore)
{
    auto theStore = std::make_unique<LmKeyValueStore>();
    const LmLifeWatch theWatch(theStore.get());
    EXPECT_FALSE(theWatch.IsGone());
    theStore.reset();
    EXPECT_TRUE(theWatch.IsGone());
}

TEST(LmLifeWatch, SeesTheEndOfABindingObject)
{
    auto theBinding = std::make_unique<LmKeyValueBinding>();
    const LmLifeWatch theWatch(theBinding.get());
    theBinding.reset();
    EXPECT_TRUE(theWatch.IsGone());
}

TEST(LmLifeWatch, DoesNotMindTheEndOfAnotherStore)
{
    LmKeyValueStore theStore;
    const LmLifeWatch theWatch(&theStore);
    std::make_unique<LmKeyValueStore>().reset();
    EXPECT_FALSE(theWatch.IsGone());
}

TEST(LmLifeWatch, OfNoStoreIsGoneFromTheStart)
{
    EXPECT_TRUE(LmLifeWatch(nullptr).IsGone());
}

TEST(LmLifeWatch, EachOfSeveralIsToldTheInnerOnesAndTheOuterOnes)
{
    auto theStore = std::make_unique<LmKeyValueStore>();
    LmKeyValueStore theOther;
    const LmLifeWatch theOuter(theStore.get());
    const LmLifeWatch theMiddle(&theOther);
    {
        const LmLifeWatch theInner(theStore.get());
        EXPECT_FALSE(theInner.IsGone());
    }
    const LmLifeWatch theInner(theStore.get());
    theStore.reset();
    EXPECT_TRUE(theOuter.IsGone());
    EXPECT_FALSE(theMiddle.IsGone());
    EXPECT_TRUE(theInner.IsGone());
}

TEST(LmLifeWatch, OutsideTheLibraryAndInsideItSeeTheSameEnd)
{
    Lines theLog;
    auto theStore = std::make_unique<LmKeyValueStore>();
    NamedObserver theFirst("first", theLog);
    NamedObserver theSecond("second", theLog);
    theStore->ObserveKeyPathValue("volume", &theFirst);
    theStore->ObserveKeyPathValue("volume", &theSecond);
    bool wasGone = false;
    theFirst.mOnChanging = [&] {
        const LmLifeWatch theWatch(theStore.get());
        theStore.reset();
        wasGone = theWatch.IsGone();
    };
    theStore->SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_TRUE(wasGone);
    EXPECT_EQ(theLog, Lines{"first changing volume: -"}) << "the pass has ended with the store";
}
