// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"
#include "LmValue.h"
#include "StandardErrorCapture.h"

#include <cstdlib>
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

// What is reported once in a process is tried in processes of their own, before anything was: the framework
// runs suites of this name first.
class LmThreadCheckDeathTest : public testing::Test
{
protected:
    // The test framework warns where it cannot count threads, as under emulation.
    void TearDown() override { StandardErrorCapture::TakeText(); }

    // In such a process: theCall is made from another thread than the first.
    template <typename Call>
    [[noreturn]] static void CallFromAnotherThread(const Call& theCall)
    {
        LmKeyValueStore theStore;
        LmKeyValueObserver theObserver;
        theStore.ObserveKeyPathValue("treble", &theObserver);
        std::thread([&] { theCall(theStore, theObserver); }).join();
        std::_Exit(0);
    }
};

TEST_F(LmThreadCheckDeathTest, ReportsAnObservationFromAnotherThread)
{
    EXPECT_EXIT(CallFromAnotherThread([](LmKeyValueStore& theStore, LmKeyValueObserver& theObserver) {
                    theStore.ObserveKeyPathValue("volume", &theObserver);
                }),
                testing::ExitedWithCode(0), "Called from thread");
}

TEST_F(LmThreadCheckDeathTest, ReportsTheEndOfAnObservationFromAnotherThread)
{
    EXPECT_EXIT(CallFromAnotherThread([](LmKeyValueStore& theStore, LmKeyValueObserver& theObserver) {
                    theStore.IgnoreKeyPathValue("treble", &theObserver);
                }),
                testing::ExitedWithCode(0), "Called from thread");
}
