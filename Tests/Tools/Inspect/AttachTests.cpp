// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Attach.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

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

TEST(Attach, KnowsThoseThatCanBeAskedApart)
{
    const std::string theFolder = testing::TempDir() + "LmInspectAttach." + std::to_string(::getpid());
    const auto PathOf = [&](const std::string& theFile) {
        return std::string(theFolder).append("/").append(theFile);
    };
    ASSERT_EQ(::mkdir(theFolder.c_str(), 0700), 0);
    const std::vector<std::string> theFiles = {"Radio.12",   "Radio.12.inspector", "Lamp.7.inspector",
                                               ".inspector", "12.inspector",       "Radio.x.inspector"};
    for (const std::string& theFile : theFiles) {
        std::ofstream(PathOf(theFile)) << "";
    }
    const std::vector<Running> theJournals = FindRunning(theFolder);
    const std::vector<Running> theAsked = FindRunning(theFolder, Wish::Answer);
    for (const std::string& theFile : theFiles) {
        ::unlink(PathOf(theFile).c_str());
    }
    ::rmdir(theFolder.c_str());
    ASSERT_EQ(theJournals.size(), 1U);
    EXPECT_EQ(theJournals[0].theSocket, theFolder + "/Radio.12");
    ASSERT_EQ(theAsked.size(), 2U);
    EXPECT_EQ(theAsked[0].theProgram, "Lamp");
    EXPECT_EQ(theAsked[1].theProcess, "12");
    EXPECT_EQ(theAsked[1].theSocket, theFolder + "/Radio.12.inspector");
    std::string theProblem;
    ChooseRunning({}, "Radio", theProblem, Wish::Answer);
    EXPECT_EQ(theProblem, "no program can be asked; LM_INSPECTOR=1 in the environment of a program with the "
                          "inspector allows it");
}

TEST(Attach, FindsNothingInAFolderThatIsNotThere)
{
    EXPECT_TRUE(FindRunning("/nowhere/at/all").empty());
}
