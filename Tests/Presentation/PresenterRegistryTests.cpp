// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TestProgram.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Host::PresenterRegistry;

class Unwilling : public Host::Presenter
{
public:
    static std::unique_ptr<Host::Presenter> Make() { return std::make_unique<Unwilling>(); }

    bool Start(Host::PresenterEvents&) override { return false; }
};

std::unique_ptr<Host::Presenter> MakeNothing()
{
    return nullptr;
}

// How a program ended, and what it said on its standard error stream.
struct Ending
{
    int theStatus = -1; // its exit status, or -1 when it was killed
    std::string theText;
};

[[noreturn]] void ChooseAndExit(const char* theName, int theStream)
{
    dup2(theStream, STDERR_FILENO);
    setenv("LM_PRESENTER", theName, 1);
    PresenterRegistry::Register("unwilling", Unwilling::Make);
    PresenterRegistry::Register("nothing", MakeNothing);
    PresenterRegistry::Current();
    std::_Exit(EXIT_SUCCESS);
}

std::string ReadAll(int theStream)
{
    std::string theText;
    char theBytes[256];
    ssize_t theCount = 0;
    while ((theCount = read(theStream, theBytes, sizeof theBytes)) > 0) {
        theText.append(theBytes, static_cast<size_t>(theCount));
    }
    return theText;
}

// A program that shows something for the first time under this LM_PRESENTER.
Ending StartWith(const char* theName)
{
    int theStreams[2] = {-1, -1};
    Ending theEnding;
    if (pipe(theStreams) != 0) {
        return theEnding;
    }
    const pid_t theProcess = fork();
    if (theProcess == 0) {
        ChooseAndExit(theName, theStreams[1]);
    }
    close(theStreams[1]);
    theEnding.theText = ReadAll(theStreams[0]);
    close(theStreams[0]);
    int theStatus = 0;
    const bool theHasExited = waitpid(theProcess, &theStatus, 0) == theProcess && WIFEXITED(theStatus);
    theEnding.theStatus = theHasExited ? WEXITSTATUS(theStatus) : -1;
    return theEnding;
}

struct ChoiceRow
{
    const char* theTest;
    const char* theName;
    int theStatus;
    const char* theText;
};

// The framework runs suites of names that end like this before all others, while no presenter is in use yet.
class PresenterChoiceDeathTest : public testing::TestWithParam<ChoiceRow>
{
};

TEST_P(PresenterChoiceDeathTest, StartsThePresenterOrEndsTheProgramWithOneLine)
{
    const Ending theEnding = StartWith(GetParam().theName);
    EXPECT_EQ(theEnding.theText, GetParam().theText);
    EXPECT_EQ(theEnding.theStatus, GetParam().theStatus);
}

INSTANTIATE_TEST_SUITE_P(
    Names, PresenterChoiceDeathTest,
    testing::Values(
        ChoiceRow{
            "Unknown", "paper", 1,
            "LM_PRESENTER: no presenter is called \"paper\"; there are: headless, nothing, unwilling\n"},
        ChoiceRow{"DoesNotStart", "unwilling", 1,
                  "LM_PRESENTER: the presenter \"unwilling\" cannot start; there are: headless, nothing, "
                  "unwilling\n"},
        ChoiceRow{"CannotBeMade", "nothing", 1,
                  "LM_PRESENTER: the presenter \"nothing\" cannot start; there are: headless, nothing, "
                  "unwilling\n"},
        ChoiceRow{"Headless", "headless", 0, ""}, ChoiceRow{"Empty", "", 0, ""}),
    [](const testing::TestParamInfo<ChoiceRow>& theInfo) { return theInfo.param.theTest; });

TEST(PresenterRegistry, KnowsTheHeadlessPresenter)
{
    const std::vector<std::string> theNames = PresenterRegistry::Names();
    EXPECT_EQ(std::count(theNames.begin(), theNames.end(), "headless"), 1);
}

TEST(PresenterRegistry, KeepsThePresenterWhenTheNextDoesNotStart)
{
    Host::Presenter* theCurrent = &PresenterRegistry::Current();
    EXPECT_FALSE(PresenterRegistry::Use(Unwilling::Make()));
    EXPECT_FALSE(PresenterRegistry::Use(nullptr));
    EXPECT_EQ(&PresenterRegistry::Current(), theCurrent);
}

TEST(PresenterRegistry, HasOneGate)
{
    EXPECT_EQ(&PresenterRegistry::Events(), &PresenterRegistry::Events());
}

} // namespace
