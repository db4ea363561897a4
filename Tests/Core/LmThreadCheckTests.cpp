// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueStore.h"
#include "LmValue.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <thread>

// One test, because the library speaks of it once in a process.
TEST(LmThreadCheck, TheFirstCallFromAnotherThreadIsReportedAndMadeAllTheSame)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(40));
    EXPECT_EQ(StandardErrorCapture::TakeText(), "") << "this is the thread that has used it first";

    std::thread([&] { theStore.SetKeyPathValue("volume", LmValue(55)); }).join();
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetUInt32(), 55u);
    const Lines theLines = StandardErrorCapture::TakeDiagnostics();
    ASSERT_EQ(theLines.size(), 1u);
    std::smatch theParts;
    ASSERT_TRUE(
        std::regex_match(theLines[0], theParts,
                         std::regex("Source/Core/Internal/LmThreadCheck.cpp, line #: Called from thread "
                                    "(0x[0-9A-F]+); thread (0x[0-9A-F]+) has used the library first, "
                                    "and no other may")));
    EXPECT_NE(theParts[1], theParts[2]);

    std::thread([&] { theStore.SetKeyPathValue("volume", LmValue(60)); }).join();
    std::thread([] { LmKeyValueStore(); }).join();
    EXPECT_EQ(StandardErrorCapture::TakeText(), "") << "once is enough";
}
