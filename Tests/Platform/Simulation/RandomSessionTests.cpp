// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A program and a person that do anything, and the promises of the managers of windows, controls and menus.
//
// A failure prints the seed, what was broken, and the shortest script that breaks a promise. To play it
// again, put its lines into a file, name that in the environment variable LM_RANDOM_SCRIPT, and run one of
// the tests below, which then plays the file instead. Where a step ends the process, the name of the test has
// the seed.

#include "RandomSession.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

class RandomSessions : public testing::TestWithParam<unsigned>
{
};

} // namespace

TEST_P(RandomSessions, KeepThePromisesOfTheManagers)
{
    const Script theScript = ScriptToPlay(GetParam());
    const std::string theBroken = PlayScript(theScript);
    if (!theBroken.empty()) {
        const Script theShortest =
            Shortest(theScript, [](const Script& theRest) { return !PlayScript(theRest).empty(); });
        ADD_FAILURE() << "Seed " << GetParam() << ", " << theBroken
                      << "\nThe shortest script that breaks a promise, " << PlayScript(theShortest) << ":\n"
                      << Describe(theShortest);
    }
}

INSTANTIATE_TEST_SUITE_P(Seed, RandomSessions, testing::ValuesIn(SeedsToPlay(16)));

TEST(RandomSession, AScriptReadsAsItWasWritten)
{
    const std::string theText = Describe(RandomScript(3, 50));
    std::istringstream theStream(theText + "no step\n");
    EXPECT_EQ(Describe(ReadScript(theStream)), theText);
}

TEST(RandomSession, AScriptIsCarriedOutTheSameWayEachTime)
{
    const Script theScript = RandomScript(5, 100);
    PlayScript(theScript);
    const Lines theLines = RecordScript(theScript);
    EXPECT_GT(theLines.size(), theScript.size());
    EXPECT_EQ(RecordScript(theScript), theLines);
}
