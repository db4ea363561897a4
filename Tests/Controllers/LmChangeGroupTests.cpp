// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChangeGroup.h"

#include "ControllersTestSupport.h"
#include "LmKeyValueStore.h"
#include "LmObservation.h"
#include "StandardErrorCapture.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

class LmChangeGroupTest : public testing::Test
{
protected:
    // Notes each change as "b: SInt32 3", and does theAction.
    LmObservation Watch(LmKeyValueStore& theWatched, const char* theKey,
                        const std::function<void()>& theAction = {})
    {
        return LmObservation(&theWatched, theKey, [this, theAction](const LmChange& theChange) {
            theLog.push_back(std::string(theChange.theKeyName.GetUTF8()) + ": " +
                             Describe(theChange.theNewValue));
            if (theAction) {
                theAction();
            }
        });
    }

    LmKeyValueStore theStore;
    Lines theLog;
};

} // namespace

TEST_F(LmChangeGroupTest, SetsEachKeyOnceInTheOrderOfFirstMention)
{
    const LmObservation theA = Watch(theStore, "a");
    const LmObservation theB = Watch(theStore, "b");
    {
        LmChangeGroup theGroup;
        theGroup.Set(&theStore, "b", LmValue(1));
        theGroup.Set(&theStore, "a", LmValue(2));
        theGroup.Set(&theStore, "b", LmValue(3));
        EXPECT_FALSE(theStore.HasKey("b"));
        EXPECT_EQ(theLog, Lines{});
    }
    EXPECT_EQ(theLog, (Lines{"b: SInt32 3", "a: SInt32 2"}));
}

TEST_F(LmChangeGroupTest, TellsKeysOfDifferentStoresApart)
{
    LmKeyValueStore theOther;
    {
        LmChangeGroup theGroup;
        theGroup.Set(&theStore, "a", LmValue(1));
        theGroup.Set(&theOther, "a", LmValue(2));
    }
    EXPECT_EQ(Read(theStore, "a"), "SInt32 1");
    EXPECT_EQ(Read(theOther, "a"), "SInt32 2");
}

TEST_F(LmChangeGroupTest, LeavesTheSetsOfAnInnerGroupToTheOutermost)
{
    const LmObservation theA = Watch(theStore, "a");
    const LmObservation theB = Watch(theStore, "b");
    {
        LmChangeGroup theOutermost;
        theOutermost.Set(&theStore, "a", LmValue(1));
        {
            const LmChangeGroup theMiddle;
            LmChangeGroup theInner;
            theInner.Set(&theStore, "b", LmValue(2));
            theInner.Set(&theStore, "a", LmValue(3));
            theInner.End();
        }
        EXPECT_EQ(theLog, Lines{});
    }
    EXPECT_EQ(theLog, (Lines{"a: SInt32 3", "b: SInt32 2"}));
}

TEST_F(LmChangeGroupTest, EndMakesTheSetsAndLeavesTheGroupOpen)
{
    const LmObservation theA = Watch(theStore, "a");
    {
        LmChangeGroup theGroup;
        theGroup.End();
        theGroup.Set(&theStore, "a", LmValue(1));
        theGroup.End();
        EXPECT_EQ(theLog, Lines{"a: SInt32 1"});
        theGroup.Set(&theStore, "a", LmValue(2));
        EXPECT_EQ(Read(theStore, "a"), "SInt32 1");
    }
    EXPECT_EQ(theLog, (Lines{"a: SInt32 1", "a: SInt32 2"}));
}

TEST_F(LmChangeGroupTest, AGroupOfAnObserverIsAnOutermostOneAgain)
{
    const LmObservation theA = Watch(theStore, "a", [this] {
        {
            LmChangeGroup theGroup;
            const LmChangeGroup theInner;
            theGroup.Set(&theStore, "c", LmValue(7));
            EXPECT_FALSE(theStore.HasKey("c"));
        }
        EXPECT_EQ(Read(theStore, "c"), "SInt32 7");
        EXPECT_FALSE(theStore.HasKey("b"));
    });
    {
        LmChangeGroup theGroup;
        theGroup.Set(&theStore, "a", LmValue(1));
        theGroup.Set(&theStore, "b", LmValue(1));
    }
    EXPECT_EQ(Read(theStore, "b"), "SInt32 1");
}

TEST_F(LmChangeGroupTest, AnObserverReplacesAValueThatIsToCome)
{
    LmChangeGroup theGroup;
    const LmObservation theA = Watch(theStore, "a", [&] { theGroup.Set(&theStore, "b", LmValue(9)); });
    const LmObservation theB = Watch(theStore, "b");
    theGroup.Set(&theStore, "a", LmValue(1));
    theGroup.Set(&theStore, "b", LmValue(2));
    theGroup.End();
    EXPECT_EQ(theLog, (Lines{"a: SInt32 1", "b: SInt32 9"}));
}

TEST_F(LmChangeGroupTest, AnObserverSetsAtOnceWhatIsNotToCome)
{
    LmChangeGroup theGroup;
    const LmObservation theA = Watch(theStore, "a", [&] {
        theGroup.Set(&theStore, "c", LmValue(3));
        EXPECT_EQ(Read(theStore, "c"), "SInt32 3");
        theGroup.Set(&theStore, "a", LmValue(2)); // the key that is being set
        EXPECT_EQ(Read(theStore, "a"), "SInt32 2");
        theGroup.End(); // what is under way goes on
        EXPECT_FALSE(theStore.HasKey("b"));
    });
    theGroup.Set(&theStore, "a", LmValue(1));
    theGroup.Set(&theStore, "b", LmValue(1));
    theGroup.End();
    EXPECT_EQ(Read(theStore, "a"), "SInt32 2");
    EXPECT_EQ(Read(theStore, "b"), "SInt32 1");
}

TEST_F(LmChangeGroupTest, AStoreThatGoesTakesItsSetsAlong)
{
    auto theOther = std::make_unique<LmKeyValueStore>();
    const LmObservation theA = Watch(theStore, "a", [&] { theOther.reset(); });
    LmChangeGroup theGroup;
    theGroup.Set(&theStore, "a", LmValue(1));
    theGroup.Set(theOther.get(), "a", LmValue(2));
    theGroup.Set(&theStore, "b", LmValue(3));
    theGroup.End();
    EXPECT_EQ(Read(theStore, "b"), "SInt32 3");
}

TEST_F(LmChangeGroupTest, DoesNotTakeAnotherStoreInTheSamePlaceForTheOneThatWent)
{
    alignas(LmKeyValueStore) unsigned char thePlace[sizeof(LmKeyValueStore)];
    LmKeyValueStore* theOther = new (thePlace) LmKeyValueStore;
    LmChangeGroup theGroup;
    const LmObservation theC = Watch(theStore, "c", [&] { theGroup.Set(theOther, "a", LmValue(9)); });
    theGroup.Set(theOther, "a", LmValue(1));
    theGroup.Set(theOther, "b", LmValue(1));
    theOther->~LmKeyValueStore();
    theOther = new (thePlace) LmKeyValueStore;
    theGroup.Set(&theStore, "c", LmValue(3));
    theGroup.Set(theOther, "a", LmValue(2));
    theGroup.End();
    EXPECT_EQ(Read(*theOther, "a"), "SInt32 9");
    EXPECT_FALSE(theOther->HasKey("b"));
    theOther->~LmKeyValueStore();
}

TEST_F(LmChangeGroupTest, PassesOverANullStore)
{
    LmChangeGroup theGroup;
    theGroup.Set(nullptr, "a", LmValue(1));
}
