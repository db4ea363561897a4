// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Attach.h"

#include <gtest/gtest.h>

using namespace Inspect;

namespace {

const std::vector<Running> kTwo = {{"Radio", "12", "/r/Radio.12"}, {"Thermostat", "34", "/r/Thermostat.34"}};

std::string Problem(const std::vector<Running>& thePrograms, const std::string& theName)
{
    std::string theProblem;
    ChooseRunning(thePrograms, theName, theProblem);
    return theProblem;
}

} // namespace

TEST(Attach, FindsAProgramByItsNameOrItsProcess)
{
    std::string theProblem;
    EXPECT_EQ(ChooseRunning(kTwo, "Radio", theProblem).theSocket, "/r/Radio.12");
    EXPECT_EQ(ChooseRunning(kTwo, "34", theProblem).theSocket, "/r/Thermostat.34");
    EXPECT_EQ(theProblem, "");
}

TEST(Attach, SaysWhatElseItCouldBe)
{
    EXPECT_EQ(Problem(kTwo, "Radios"),
              "no program that can be attached to is called Radios; did you mean Radio?");
    EXPECT_EQ(Problem({kTwo[0], {"Radio", "56", ""}}, "Radio"),
              "several programs are called Radio: which process? 12 or 56");
    EXPECT_EQ(Problem({}, "Radio"),
              "no program can be attached to; LM_JOURNAL_SOCKET=1 in its environment allows it");
}

TEST(Attach, FindsNothingInAFolderThatIsNotThere)
{
    EXPECT_TRUE(FindRunning("/nowhere/at/all").empty());
}
