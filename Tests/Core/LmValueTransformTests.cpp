// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValueTransform.h"

#include "StandardErrorCapture.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>
#include <type_traits>

static_assert(std::is_abstract_v<LmValueTransform> && std::has_virtual_destructor_v<LmValueTransform>,
              "an abstract base");
static_assert(!std::is_copy_constructible_v<LmValueTransform>, "a count belongs to one object");
static_assert(sizeof(LmValueTransform) == 2 * sizeof(void*), "table and count");

namespace {

const char* const kCountIsZero = "Source/Core/LmValueTransform.cpp, line #: mRefCount == 0";
const char* const kCountIsNotZero = "Source/Core/LmValueTransform.cpp, line #: mRefCount != 0";
const char* const kCountIsPositive = "Source/Core/LmValueTransform.cpp, line #: mRefCount >= 1";

// Sets a flag when it is destroyed.
class FlagTransform : public LmValueTransform
{
public:
    explicit FlagTransform(bool& theFlag)
        : mFlag(theFlag)
    {
    }
    ~FlagTransform() override { mFlag = true; }
    LmValue Apply(const LmValue& theValue) override { return LmValue(theValue.GetSInt32() + 1); }

private:
    bool& mFlag;
};

// The count, where the class keeps it.
std::uint32_t GetCount(const LmValueTransform& theTransform)
{
    std::uint32_t theCount = 0;
    std::memcpy(&theCount, reinterpret_cast<const char*>(&theTransform) + sizeof(void*), sizeof theCount);
    return theCount;
}

} // namespace

TEST(LmValueTransform, ItsCreatorsReleaseDestroysIt)
{
    bool isDestroyed = false;
    LmValueTransform* theTransform = new FlagTransform(isDestroyed);
    EXPECT_EQ(GetCount(*theTransform), 1U);
    theTransform->Release();
    EXPECT_TRUE(isDestroyed);
}

TEST(LmValueTransform, LivesUntilTheLastReleaseWhoeverMakesIt)
{
    bool isDestroyed = false;
    LmValueTransform* theTransform = new FlagTransform(isDestroyed);
    theTransform->Retain();
    theTransform->Retain();
    EXPECT_EQ(GetCount(*theTransform), 3U);
    theTransform->Release();
    theTransform->Release();
    EXPECT_FALSE(isDestroyed);
    EXPECT_EQ(theTransform->Apply(LmValue(41L)).GetSInt32(), 42);
    theTransform->Release();
    EXPECT_TRUE(isDestroyed);
}

TEST(LmValueTransform, DeletingItWithReferencesIsReportedAndDone)
{
    bool isDestroyed = false;
    LmValueTransform* theTransform = new FlagTransform(isDestroyed);
    delete theTransform;
    EXPECT_TRUE(isDestroyed);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kCountIsZero});
}

TEST(LmValueTransform, ReleasingACountOfZeroIsReportedAndWrapsRoundOnPurpose)
{
    // Retaining is the one way to a count of 0 that does not delete: 4294967295 and one more.
    bool isDestroyed = false;
    {
        FlagTransform theTransform(isDestroyed);
        const std::uint32_t theZero = 0;
        std::memcpy(reinterpret_cast<char*>(static_cast<LmValueTransform*>(&theTransform)) + sizeof(void*),
                    &theZero, sizeof theZero);
        theTransform.Release();
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kCountIsPositive});
        EXPECT_EQ(GetCount(theTransform), 4294967295U);
        EXPECT_FALSE(isDestroyed);

        theTransform.Retain();
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kCountIsNotZero});
        EXPECT_EQ(GetCount(theTransform), 0U);
    }
    EXPECT_TRUE(isDestroyed);
}

TEST(LmValueTransform, ApplyIsTheThirdVirtualFunction)
{
    EXPECT_EQ(GetVirtualSlot(&LmValueTransform::Apply), 2U);
}
