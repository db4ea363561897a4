// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSharedTransform.h"

#include "ControllersTestSupport.h"
#include "CountedTransforms.h"

#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

static_assert(std::is_nothrow_move_constructible<LmSharedTransform>::value, "a vector moves it");
static_assert(sizeof(LmSharedTransform) == sizeof(void*), "nothing but the reference");

TEST(LmSharedTransform, TakesOverTheFirstReferenceAndGivesItBack)
{
    int theLiving = 0;
    {
        const LmSharedTransform theTransform(new AddingTransform(1, theLiving));
        EXPECT_EQ(theLiving, 1);
        EXPECT_EQ(Describe(theTransform.Apply(LmValue(4))), "SInt32 5");
    }
    EXPECT_EQ(theLiving, 0);
}

TEST(LmSharedTransform, GoesWithTheLastOfItsCopies)
{
    int theLiving = 0;
    LmSharedTransform theCopy;
    {
        const LmSharedTransform theTransform(new AddingTransform(1, theLiving));
        theCopy = theTransform;
        const LmSharedTransform theOther(theCopy);
        EXPECT_EQ(theOther.Get(), theTransform.Get());
    }
    EXPECT_EQ(theLiving, 1);
    const LmSharedTransform theMoved(std::move(theCopy));
    EXPECT_EQ(theCopy.Get(), nullptr); // NOLINT(bugprone-use-after-move): its state is promised
    EXPECT_EQ(theLiving, 1);
    theCopy = LmSharedTransform(new AddingTransform(2, theLiving));
    EXPECT_EQ(theLiving, 2);
    LmSharedTransform& theSame = theCopy;
    theCopy = theSame;
    EXPECT_EQ(theLiving, 2);
    theCopy = nullptr;
    EXPECT_EQ(theLiving, 1);
}

TEST(LmSharedTransform, IsRetainedByWhoHoldsItElsewhere)
{
    int theLiving = 0;
    LmValueTransform* theRaw = new AddingTransform(1, theLiving);
    {
        theRaw->Retain();
        const LmSharedTransform theTransform(theRaw);
    }
    EXPECT_EQ(theLiving, 1);
    theRaw->Release();
    EXPECT_EQ(theLiving, 0);
}

TEST(LmSharedTransform, WithoutATransformLetsValuesPass)
{
    EXPECT_EQ(Describe(LmSharedTransform().Apply(LmValue(4))), "SInt32 4");
    EXPECT_EQ(Describe(LmSharedTransform(nullptr).Apply(LmValue(4))), "SInt32 4");
}

TEST(LmSharedTransform, OutlivesItsOwnWork)
{
    int theLiving = 0;
    LmSharedTransform theTransform;
    AddingTransform* theRaw = new AddingTransform(1, theLiving);
    theRaw->mOnApply = [&] {
        theTransform = nullptr;
        EXPECT_EQ(theLiving, 1);
    };
    theTransform = LmSharedTransform(theRaw);
    EXPECT_EQ(Describe(theTransform.Apply(LmValue(4))), "SInt32 5");
    EXPECT_EQ(theLiving, 0);
}
