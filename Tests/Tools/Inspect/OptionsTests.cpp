// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Options.h"

#include <gtest/gtest.h>

using namespace Inspect;

namespace {

std::string ErrorOf(const std::vector<std::string>& theArguments)
{
    return ReadOptions(theArguments).theError;
}

} // namespace

TEST(Options, MayStandAnywhere)
{
    const Options theOptions = ReadOptions(
        {"--object", "radio", "log", "a.journal", "--all", "--since=1.5", "--kind=changed,equal"});
    EXPECT_EQ(theOptions.theError, "");
    EXPECT_EQ(theOptions.theCommand, Command::Log);
    EXPECT_EQ(theOptions.theJournal, "a.journal");
    EXPECT_EQ(theOptions.theLog.theFilter.theObject, "radio");
    EXPECT_TRUE(theOptions.theLog.isAll);
    EXPECT_EQ(theOptions.theLog.theFilter.theEarliest, 1500000000U);
    EXPECT_EQ(theOptions.theLog.theFilter.theKinds, (std::set<What>{What::Changed, What::Equal}));
}

TEST(Options, SayWhereAPageGoes)
{
    const Options theOptions = ReadOptions({"page", "-o", "a.html", "a.journal"});
    EXPECT_EQ(theOptions.theError, "");
    EXPECT_EQ(theOptions.theCommand, Command::Page);
    EXPECT_EQ(theOptions.theOutput, "a.html");
    EXPECT_EQ(theOptions.theJournal, "a.journal");
    EXPECT_EQ(ReadOptions({"page", "--output=b.html"}).theOutput, "b.html");
    EXPECT_EQ(ReadOptions({"page"}).theOutput, "");
    EXPECT_EQ(ErrorOf({"page", "--output="}), "--output needs the name of a file");
    EXPECT_EQ(ErrorOf({"page", "-o"}), "-o needs a value");
    EXPECT_EQ(ErrorOf({"log", "-o", "a"}), "log has no option --output");
}

TEST(Options, EndAtTwoDashes)
{
    const Options theOptions = ReadOptions({"log", "--", "--all"});
    EXPECT_EQ(theOptions.theError, "");
    EXPECT_EQ(theOptions.theJournal, "--all");
}

TEST(Options, ReadTheStandardInputWithoutAFile)
{
    EXPECT_EQ(ReadOptions({"log"}).theJournal, "-");
}

TEST(Options, AskForHelpAndTheVersion)
{
    EXPECT_EQ(ReadOptions({"--help"}).theCommand, Command::Help);
    EXPECT_EQ(ReadOptions({"-h"}).theCommand, Command::Help);
    EXPECT_EQ(ReadOptions({"log", "--version"}).theCommand, Command::Version);
}

TEST(Options, SayWhatIsWrong)
{
    EXPECT_EQ(ErrorOf({}).substr(0, 14), "which command?");
    EXPECT_EQ(ErrorOf({"lok"}), "there is no command lok; did you mean log?");
    EXPECT_EQ(ErrorOf({"log", "--objekt=3"}), "there is no option --objekt; did you mean --object?");
    EXPECT_EQ(ErrorOf({"log", "-x"}), "there is no option -x");
    EXPECT_EQ(ErrorOf({"log", "--all=3"}), "--all takes no value");
    EXPECT_EQ(ErrorOf({"log", "--kind"}), "--kind needs a value");
    EXPECT_EQ(ErrorOf({"log", "--kind=changed,told,equall"}),
              "there is no kind of entry called \"equall\"; did you mean equal?");
    EXPECT_EQ(ErrorOf({"log", "--since=soon"}), "\"soon\" is no number of seconds, such as 1.5");
    EXPECT_EQ(ErrorOf({"log", "a", "b"}), "log takes one journal");
}

TEST(Options, ReadSeconds)
{
    std::uint64_t theTime = 0;
    EXPECT_TRUE(ReadSeconds("0.000001", theTime));
    EXPECT_EQ(theTime, 1000U);
    for (const char* const theBad : {"", "-1", "nan", "inf", "1s", "1e300"}) {
        EXPECT_FALSE(ReadSeconds(theBad, theTime)) << theBad;
    }
}

TEST(Options, AreAllInTheUsage)
{
    const std::string theUsage = GetUsage();
    for (const char* const theName : {"--object", "--key", "--kind", "--caller", "--since", "--until",
                                      "--all", "--causes", "--callers", "--help", "--version"}) {
        EXPECT_NE(theUsage.find(theName), std::string::npos) << theName;
    }
}

TEST(Options, LeaveTheProgramThatIsRunItsOwn)
{
    const Options theOptions =
        ReadOptions({"run", "--key", "volume", "--command=why not model 1.level", "./Radio", "--all", "-h"});
    EXPECT_EQ(theOptions.theError, "");
    EXPECT_EQ(theOptions.theCommand, Command::Run);
    EXPECT_EQ(theOptions.theLog.theFilter.theKey, "volume");
    EXPECT_FALSE(theOptions.theLog.isAll);
    EXPECT_EQ(theOptions.theProgram, (std::vector<std::string>{"./Radio", "--all", "-h"}));
    EXPECT_EQ(theOptions.theQuestion, (std::vector<std::string>{"why", "not", "model 1.level"}));
    EXPECT_EQ(ReadOptions({"run", "--", "--all"}).theProgram, std::vector<std::string>{"--all"});
    EXPECT_EQ(ErrorOf({"run"}), "run takes a program and its arguments");
}

TEST(Options, TakeAQuestionThatNamesNoJournal)
{
    EXPECT_EQ(ErrorOf({"run", "--command=lint", "./Radio"}), "");
    EXPECT_EQ(ErrorOf({"run", "--command=graph --dot", "./Radio"}), "");
    EXPECT_EQ(ErrorOf({"run", "--command=lit", "./Radio"}), "there is no command lit; did you mean lint?");
    EXPECT_EQ(ErrorOf({"run", "--command=why", "./Radio"}), "why takes OBJECT.KEY and a journal");
    for (const char* theQuestion : {"lint a.journal", "run ./Other", "attach", "--help", "diff a b"}) {
        EXPECT_EQ(ErrorOf({"run", std::string("--command=") + theQuestion, "./Radio"}),
                  "--command takes a command without a journal, such as lint")
            << theQuestion;
    }
}

TEST(Options, LeaveTheQuestionToAProgramAsItIs)
{
    const Options theOptions = ReadOptions({"ask", "Radio", "set", "radio.volume", "-5", "--all"});
    EXPECT_EQ(theOptions.theError, "");
    EXPECT_EQ(theOptions.theCommand, Command::Ask);
    EXPECT_EQ(theOptions.theProgram,
              (std::vector<std::string>{"Radio", "set", "radio.volume", "-5", "--all"}));
    EXPECT_EQ(ReadOptions({"ask"}).theError, "");
    EXPECT_EQ(ErrorOf({"ask", "--all", "Radio"}), "ask has no option --all");
}

TEST(Options, NameAProgramToAttachTo)
{
    const Options theOptions = ReadOptions({"attach", "Radio", "--output=a.journal"});
    EXPECT_EQ(theOptions.theError, "");
    EXPECT_EQ(theOptions.theCommand, Command::Attach);
    EXPECT_EQ(theOptions.theProgram, std::vector<std::string>{"Radio"});
    EXPECT_EQ(theOptions.theOutput, "a.journal");
    EXPECT_TRUE(ReadOptions({"attach"}).theProgram.empty());
    EXPECT_EQ(ErrorOf({"attach", "a", "b"}), "attach takes one program");
    EXPECT_EQ(ErrorOf({"detach"}), "detach takes a program");
    EXPECT_EQ(ErrorOf({"detach", "--all", "Radio"}), "detach has no option --all");
    EXPECT_EQ(ErrorOf({"attach", "--output=", "Radio"}), "--output needs the name of a file");
}
