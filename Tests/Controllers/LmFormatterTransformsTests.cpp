// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmFormatterTransforms.h"

#include "FormatterTestSupport.h"
#include "LmSharedTransform.h"
#include "LmWordFormatters.h"

#include <gtest/gtest.h>

TEST(LmFormatterTransforms, LeadThereAndBack)
{
    const auto theFormatter = std::make_shared<LmWordFormatter>(std::vector<std::string>{"off", "on"});
    const LmSharedTransform theFormat(new LmFormatTransform(theFormatter));
    const LmSharedTransform theParse(new LmParseTransform(theFormatter));
    EXPECT_EQ(UTF8Of(theFormat.Apply(LmValue(1))), "on");
    EXPECT_EQ(Describe(theParse.Apply(TextValue("ON"))), "SInt32 1");
    EXPECT_EQ(theFormatter.use_count(), 3);
}

TEST(LmFormatterTransforms, WhatIsRefusedIsInvalid)
{
    const auto theFormatter = std::make_shared<LmWordFormatter>(std::vector<std::string>{"off", "on"});
    const LmSharedTransform theParse(new LmParseTransform(theFormatter));
    EXPECT_EQ(Describe(theParse.Apply(TextValue("maybe"))), "-");
    EXPECT_EQ(Describe(theParse.Apply(LmValue(1))), "-");
    EXPECT_EQ(Describe(theParse.Apply(LmValue(static_cast<CFStringRef>(nullptr), false))), "-");
    EXPECT_EQ(Describe(LmSharedTransform(new LmFormatTransform(theFormatter)).Apply(LmValue(7))), "-");
    EXPECT_EQ(Describe(LmSharedTransform(new LmFormatTransform(nullptr)).Apply(LmValue(1))), "-");
    EXPECT_EQ(Describe(LmSharedTransform(new LmParseTransform(nullptr)).Apply(TextValue("on"))), "-");
}
