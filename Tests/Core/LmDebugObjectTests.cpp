// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDebugObject.h"

#include "StandardErrorCapture.h"
#include "VirtualSlot.h"

#include <cinttypes>
#include <cstdio>
#include <gtest/gtest.h>
#include <new>
#include <sys/mman.h>
#include <type_traits>

static_assert(sizeof(LmDebugObject) == sizeof(void*), "no data of its own");
static_assert(std::has_virtual_destructor_v<LmDebugObject>, "the root of the object classes");

namespace {

// Switches the log on, and off at the end, with the depth as it was.
class LmDebugObjectLog : public testing::Test
{
protected:
    void SetUp() override { LmDebugObject::SetLogging(true); }

    void TearDown() override
    {
        LmDebugObject::SetLogging(false);
        for (; mDepth > 0; --mDepth) {
            mObject.RemoveIndent();
        }
    }

    void Indent(int theLevels)
    {
        for (; theLevels > 0; --theLevels, ++mDepth) {
            mObject.AddIndent();
        }
    }

    LmDebugObject mObject;
    int mDepth = 0;
};

// A page of memory at a low address, or null where the system does not give it.
void* MapPage(std::uintptr_t theAddress)
{
    void* const theWanted = reinterpret_cast<void*>(theAddress);
    void* const thePage = mmap(theWanted, 4096, PROT_READ | PROT_WRITE,
                               MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
    return thePage == theWanted ? thePage : nullptr;
}

} // namespace

TEST(LmDebugObject, DescribesItselfWithItsAddress)
{
    const LmDebugObject theObject;
    char theExpected[32];
    std::snprintf(theExpected, sizeof theExpected, "0x%08" PRIXPTR,
                  reinterpret_cast<std::uintptr_t>(&theObject));
    EXPECT_STREQ(theObject.GetDebugInfo().GetUTF8(), theExpected);
}

TEST(LmDebugObject, WritesAShortAddressWithEightDigits)
{
    void* const thePage = MapPage(0x1A000);
    if (thePage == nullptr) {
        GTEST_SKIP() << "The system gives no memory at that address.";
    }
    auto* const theObject = new (static_cast<char*>(thePage) + 0x2B0) LmDebugObject;
    EXPECT_STREQ(theObject->GetDebugInfo().GetUTF8(), "0x0001A2B0");
    theObject->~LmDebugObject();
    munmap(thePage, 4096);
}

TEST(LmDebugObject, ItsDescriptionIsTheThirdVirtualFunctionAndOverridable)
{
    class Thing : public LmDebugObject
    {
    public:
        LmString GetDebugInfo() const override { return "Thing"; }
    };
    const Thing theThing;
    const LmDebugObject& theObject = theThing;
    EXPECT_STREQ(theObject.GetDebugInfo().GetUTF8(), "Thing");
    EXPECT_EQ(GetVirtualSlot(&LmDebugObject::GetDebugInfo), 2U);
}

TEST(LmDebugObject, IsDestroyedThroughABasePointer)
{
    static int theDestroyed = 0;
    class Thing : public LmDebugObject
    {
    public:
        ~Thing() override { ++theDestroyed; }
    };
    LmDebugObject* theObject = new Thing;
    delete theObject;
    theObject = new LmDebugObject;
    delete theObject;
    EXPECT_EQ(theDestroyed, 1);
}

TEST(LmDebugObject, LoggingIsOffAtFirstAndSwitchable)
{
    EXPECT_FALSE(LmDebugObject::IsLogging());
    LmDebugObject::SetLogging(true);
    EXPECT_TRUE(LmDebugObject::IsLogging());
    LmDebugObject::SetLogging(false);
    EXPECT_FALSE(LmDebugObject::IsLogging());
}

TEST(LmDebugObject, WritesNothingWhileTheLogIsOff)
{
    LmDebugObject theObject;
    theObject.LogString("silent %d", 1);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");
}

TEST(LmDebugObject, CountsTheDepthWhileTheLogIsOff)
{
    LmDebugObject theObject;
    theObject.AddIndent();
    theObject.AddIndent();
    LmDebugObject::SetLogging(true);
    theObject.LogString("deeper");
    LmDebugObject::SetLogging(false);
    theObject.RemoveIndent();
    theObject.RemoveIndent();
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm:     deeper\n");
}

TEST_F(LmDebugObjectLog, TheFirstTwoDepthsStandAtTheMargin)
{
    mObject.LogString("depth 0");
    Indent(1);
    mObject.LogString("depth 1");
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm: depth 0\nLm: depth 1\n");
}

TEST_F(LmDebugObjectLog, EachFurtherDepthIndentsByFourSpaces)
{
    Indent(2);
    mObject.LogString("depth 2");
    Indent(1);
    mObject.LogString("depth 3");
    mObject.RemoveIndent();
    --mDepth;
    mObject.LogString("depth 2");
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm:     depth 2\nLm:         depth 3\nLm:     depth 2\n");
}

TEST_F(LmDebugObjectLog, FormatsTheMessageAsPrintfDoes)
{
    mObject.LogString("%s is %d (%5.2f) 100%%", "Volume", -7, 1.5);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm: Volume is -7 ( 1.50) 100%\n");
}

TEST_F(LmDebugObjectLog, TheDepthBelongsToAllObjects)
{
    LmDebugObject theOther;
    Indent(2);
    theOther.LogString("other");
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm:     other\n");
}

TEST(LmDebugObject, RemovingAnIndentThatIsNotThereIsReportedAndWrapsRoundOnPurpose)
{
    LmDebugObject theObject;
    theObject.RemoveIndent();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmDebugObject.cpp, line #: mIndent >= 1"});

    // The depth is 4294967295 now, so leaving a level is in order; four levels more than that are depth 2.
    theObject.RemoveIndent();
    theObject.AddIndent();
    theObject.AddIndent();
    theObject.AddIndent();
    LmDebugObject::SetLogging(true);
    theObject.AddIndent();
    theObject.LogString("depth 2");
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm:     depth 2\n");
    theObject.RemoveIndent();
    theObject.RemoveIndent();
}
