// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMetaTransforms.h"

#include "AllocationFailures.h"
#include "StandardErrorCapture.h"
#include "TestStrings.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>
#include <new>
#include <type_traits>
#include <vector>

static_assert(std::is_base_of_v<LmValueTransform, LmListTransform>, "a transform like any other");
static_assert(sizeof(void*) != 4 || sizeof(LmListTransform) == 8 + sizeof(std::list<LmValueTransform*>),
              "the base and the list");

namespace {

// Multiplies by a number and adds its place; notes its destruction.
class StepTransform : public LmValueTransform
{
public:
    StepTransform(long theStep, std::vector<long>& theDestroyed)
        : mStep(theStep),
          mDestroyed(theDestroyed)
    {
    }
    ~StepTransform() override { mDestroyed.push_back(mStep); }

    LmValue Apply(const LmValue& theValue) override { return LmValue(theValue.GetSInt32() * 10 + mStep); }

private:
    long mStep;
    std::vector<long>& mDestroyed;
};

// Runs out of memory.
class FailingTransform : public LmValueTransform
{
public:
    LmValue Apply(const LmValue&) override { throw std::bad_alloc(); }
};

// Answers every value with the invalid one, and counts what it is asked.
class NothingTransform : public LmValueTransform
{
public:
    LmValue Apply(const LmValue& theValue) override
    {
        mTypes.push_back(theValue.GetType());
        return LmValue();
    }

    std::vector<ValueType> mTypes;
};

class LmListTransformTest : public testing::Test
{
protected:
    void AddStep(long theStep)
    {
        LmValueTransform* theTransform = new StepTransform(theStep, mDestroyed);
        mList->Add(theTransform);
        theTransform->Release();
    }

    std::vector<long> mDestroyed;
    LmListTransform* mList = new LmListTransform;
};

} // namespace

TEST_F(LmListTransformTest, AnEmptyListChangesNothing)
{
    const LmValue theValue(CGPoint{1, 2});
    const LmValue theResult = mList->Apply(theValue);
    EXPECT_EQ(theResult.GetType(), kTypePoint);
    EXPECT_TRUE(theResult == theValue);
    EXPECT_EQ(mList->Apply(LmValue()).GetType(), kTypeInvalid);
    mList->Release();
}

TEST_F(LmListTransformTest, AppliesItsPartsInTheOrderOfAdding)
{
    AddStep(1);
    AddStep(2);
    AddStep(3);
    const LmValue theValue(7L);
    EXPECT_EQ(mList->Apply(theValue).GetSInt32(), 7123);
    EXPECT_EQ(theValue.GetSInt32(), 7);
    mList->Release();
}

TEST_F(LmListTransformTest, ReleasesItsPartsInTheOrderOfAdding)
{
    AddStep(1);
    AddStep(2);
    AddStep(3);
    EXPECT_TRUE(mDestroyed.empty());
    mList->Release();
    EXPECT_EQ(mDestroyed, (std::vector<long>{1, 2, 3}));
}

TEST_F(LmListTransformTest, TakesAReferenceOfItsOwn)
{
    auto* const theTransform = new StepTransform(5, mDestroyed);
    mList->Add(theTransform);
    mList->Release();
    EXPECT_TRUE(mDestroyed.empty());
    EXPECT_EQ(theTransform->Apply(LmValue(1L)).GetSInt32(), 15);
    theTransform->Release();
    EXPECT_EQ(mDestroyed, std::vector<long>{5});
}

TEST_F(LmListTransformTest, MayHoldATransformTwice)
{
    LmValueTransform* const theTransform = new StepTransform(4, mDestroyed);
    mList->Add(theTransform);
    mList->Add(theTransform);
    theTransform->Release();
    EXPECT_EQ(mList->Apply(LmValue(0L)).GetSInt32(), 44);
    mList->Release();
    EXPECT_EQ(mDestroyed, std::vector<long>{4});
}

TEST_F(LmListTransformTest, MayHoldAnotherList)
{
    auto* const theInner = new LmListTransform;
    theInner->Add(mList);
    AddStep(1);
    AddStep(2);
    mList->Release();
    EXPECT_EQ(theInner->Apply(LmValue(0L)).GetSInt32(), 12);
    theInner->Release();
    EXPECT_EQ(mDestroyed, (std::vector<long>{1, 2}));
}

TEST_F(LmListTransformTest, HandsAnInvalidValueOnLikeAnyOther)
{
    auto* const theFirst = new NothingTransform;
    auto* const theSecond = new NothingTransform;
    mList->Add(theFirst);
    mList->Add(theSecond);
    EXPECT_FALSE(mList->Apply(LmValue(1UL)).IsValid());
    EXPECT_EQ(theFirst->mTypes, std::vector<ValueType>{kTypeUInt32});
    EXPECT_EQ(theSecond->mTypes, std::vector<ValueType>{kTypeInvalid});
    mList->Release();
    theFirst->Release();
    theSecond->Release();
}

TEST_F(LmListTransformTest, LeavesNothingBehindWhenAPartRunsOutOfMemory)
{
    const TestString theString("text");
    auto* const theFailing = new FailingTransform;
    mList->Add(theFailing);
    EXPECT_THROW(mList->Apply(LmValue(theString.Get(), false)), std::bad_alloc);
    EXPECT_EQ(theString.GetRetainCount(), 1);
    mList->Release();
    theFailing->Release();
}

TEST_F(LmListTransformTest, ReportsNullAndAddsNothing)
{
    AddStep(1);
    mList->Add(NULL);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Transforms/LmMetaTransforms.cpp, line #: theTransform != NULL"});
    EXPECT_EQ(mList->Apply(LmValue(2L)).GetSInt32(), 21);
    mList->Release();
}

TEST_F(LmListTransformTest, DeletingItWithReferencesReleasesItsPartsAndIsReported)
{
    AddStep(1);
    delete mList;
    EXPECT_EQ(mDestroyed, std::vector<long>{1});
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmValueTransform.cpp, line #: mRefCount == 0"});
}

TEST_F(LmListTransformTest, TakesNoReferenceWhenThereIsNoMemory)
{
    auto* const theTransform = new StepTransform(5, mDestroyed);
    const size_t theFailed = FailEachAllocation([&](AllocationFailures& theFailures) {
        bool hasThrown = false;
        try {
            mList->Add(theTransform);
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        theFailures.Stop();
        EXPECT_EQ(hasThrown, theFailures.HasFailed());
    });
    EXPECT_EQ(theFailed, 1U);
    EXPECT_EQ(mList->Apply(LmValue(1L)).GetSInt32(), 15);
    theTransform->Release();
    mList->Release();
    EXPECT_EQ(mDestroyed, std::vector<long>{5});
}

TEST_F(LmListTransformTest, ApplyIsTheThirdVirtualFunction)
{
    EXPECT_EQ(GetVirtualSlot(&LmListTransform::Apply), 2U);
    mList->Release();
}
