// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

namespace {

SInt32 Ask(OSType theSelector)
{
    SInt32 theAnswer = -1;
    EXPECT_EQ(Gestalt(theSelector, &theAnswer), noErr);
    return theAnswer;
}

} // namespace

TEST(Gestalt, TheVersionIsToldWholeAndInParts)
{
    EXPECT_EQ(Ask(gestaltSystemVersion), 0x1058);
    EXPECT_EQ(Ask(gestaltSystemVersionMajor), 10);
    EXPECT_EQ(Ask(gestaltSystemVersionMinor), 5);
    EXPECT_EQ(Ask(gestaltSystemVersionBugFix), 8);
    EXPECT_EQ(Ask(gestaltCarbonVersion), 0x0160);
}

TEST(Gestalt, TheProcessorIsThatOfTheMachine)
{
    const bool theIsBigEndian = EndianU16_NtoB(1) == 1;
    EXPECT_EQ(Ask(gestaltSysArchitecture), theIsBigEndian ? gestaltPowerPC : gestaltIntel);
    EXPECT_EQ(Ask(gestaltNativeCPUtype), theIsBigEndian ? SInt32{gestaltCPU750} : SInt32{gestaltCPUPentium});
}

TEST(Gestalt, TheManagersAreThere)
{
    EXPECT_EQ(Ask(gestaltMenuMgrAttr), gestaltMenuMgrPresent | gestaltMenuMgrAquaLayoutMask);
    EXPECT_EQ(Ask(gestaltAppearanceAttr), 1);
}

TEST(Gestalt, MemoryIsToldInBytesAndMegabytes)
{
    const SInt32 theMegabytes = Ask(gestaltPhysicalRAMSizeInMegabytes);
    EXPECT_GT(theMegabytes, 0);
    EXPECT_EQ(Ask(gestaltPhysicalRAMSize) >> 20, std::min<SInt32>(theMegabytes, INT32_MAX >> 20));
}

TEST(Gestalt, WhatIsUnknownLeavesTheAnswer)
{
    SInt32 theAnswer = 77;
    EXPECT_EQ(Gestalt('none', &theAnswer), gestaltUndefSelectorErr);
    EXPECT_EQ(Gestalt(gestaltQuickTime, &theAnswer), gestaltUndefSelectorErr);
    EXPECT_EQ(Gestalt(gestaltDragMgrAttr, &theAnswer), gestaltUndefSelectorErr);
    EXPECT_EQ(theAnswer, 77);
    EXPECT_EQ(Gestalt(gestaltSystemVersion, nullptr), paramErr);
}
