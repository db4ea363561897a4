// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

namespace {

// Captures the standard error stream around every test, and fails the test that leaves text there.
class SilenceChecker : public testing::EmptyTestEventListener
{
public:
    void OnTestStart(const testing::TestInfo&) override { StandardErrorCapture::Begin(); }

    void OnTestEnd(const testing::TestInfo&) override
    {
        // A skipped or failed test may have left before it took its lines.
        const std::string theRest = StandardErrorCapture::End();
        if (!theRest.empty()) {
            ADD_FAILURE() << "The test left text on the standard error stream:\n" << theRest;
        }
    }
};

} // namespace

int main(int theCount, char** theArguments)
{
    testing::InitGoogleTest(&theCount, theArguments);
    // The reporter of results comes last at a test's end, so a failure added here is still counted.
    testing::UnitTest::GetInstance()->listeners().Append(new SilenceChecker);
    return RUN_ALL_TESTS();
}
