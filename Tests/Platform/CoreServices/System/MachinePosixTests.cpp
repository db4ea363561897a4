// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

// Linux's own account of the memory that it has.
long KilobytesOfMemory()
{
    std::ifstream theFile("/proc/meminfo");
    std::string theName;
    long theKilobytes = 0;
    theFile >> theName >> theKilobytes;
    return theName == "MemTotal:" ? theKilobytes : 0;
}

} // namespace

TEST(MachinePosix, HasTheMemoryThatTheSystemTells)
{
    const long theKilobytes = KilobytesOfMemory();
    if (theKilobytes == 0) {
        GTEST_SKIP() << "The system does not tell.";
    }
    SInt32 theMegabytes = 0;
    EXPECT_EQ(Gestalt(gestaltPhysicalRAMSizeInMegabytes, &theMegabytes), noErr);
    // An emulated processor of 32 bits is told the number of bytes in 32 bits.
    constexpr long kFourGigabytes = 4096;
    EXPECT_EQ(theMegabytes % kFourGigabytes, theKilobytes / 1024 % kFourGigabytes);
    EXPECT_LE(theMegabytes, theKilobytes / 1024);
    EXPECT_GT(theMegabytes, 0);
}
