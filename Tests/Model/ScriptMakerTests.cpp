// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ScriptMaker.h"

#include <gtest/gtest.h>

namespace Model {

TEST(ScriptMaker, TheSameSeedMakesTheSameScript)
{
    for (std::uint64_t theSeed = 1; theSeed <= 50; ++theSeed) {
        EXPECT_EQ(DescribeScript(MakeScript(theSeed)), DescribeScript(MakeScript(theSeed)));
    }
}

TEST(ScriptMaker, AnotherSeedMakesAnotherScript)
{
    std::set<std::string> theScripts;
    for (std::uint64_t theSeed = 1; theSeed <= 50; ++theSeed) {
        theScripts.insert(DescribeScript(MakeScript(theSeed)));
    }
    EXPECT_EQ(theScripts.size(), 50U);
}

// Who runs scripts on one machine replays them on another one.
TEST(ScriptMaker, ASeedMakesTheSameScriptOnEveryMachine)
{
    std::string theText;
    for (std::uint64_t theSeed = 1; theSeed <= 200; ++theSeed) {
        theText += DescribeScript(MakeScript(theSeed));
    }
    std::uint64_t theSum = 0xCBF29CE484222325U;
    for (const char theByte : theText) {
        theSum = (theSum ^ static_cast<unsigned char>(theByte)) * 0x100000001B3U;
    }
    EXPECT_EQ(theSum, 17564092618335738830U) << "the maker was changed: note the new sum";
}

} // namespace Model
