// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLifeLine.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>

TEST(LmLifeLine, IsAttachedAsLongAsTheStoreLives)
{
    auto theStore = std::make_unique<LmKeyValueStore>();
    LmLifeLine theLine(*theStore);
    EXPECT_EQ(theLine.GetStore(), theStore.get());
    EXPECT_TRUE(theLine.IsAttached());
    theStore.reset();
    EXPECT_FALSE(theLine.IsAttached());
}

TEST(LmLifeLine, DoesNotTakeAnotherStoreInTheSamePlaceForItsOwn)
{
    alignas(LmKeyValueStore) unsigned char thePlace[sizeof(LmKeyValueStore)];
    LmKeyValueStore* theStore = new (thePlace) LmKeyValueStore;
    LmLifeLine theLine(*theStore);
    theStore->~LmKeyValueStore();
    theStore = new (thePlace) LmKeyValueStore;
    EXPECT_FALSE(theLine.IsAttached());
    theStore->~LmKeyValueStore();
}

TEST(LmLifeLine, LeavesTheStoreAsItWas)
{
    LmKeyValueStore theStore;
    {
        const LmLifeLine theLine(theStore);
        EXPECT_FALSE(theStore.HasKey(LmLifeLine::kKey));
    }
    theStore.SetKeyPathValue("key", LmValue(1));
}

TEST(LmLifeLine, IsCutByWhoTakesAllObserversOff)
{
    LmKeyValueStore theStore;
    LmLifeLine theLine(theStore);
    theStore.RemoveObservers();
    EXPECT_FALSE(theLine.IsAttached());
}
