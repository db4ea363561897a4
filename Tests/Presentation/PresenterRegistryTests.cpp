// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TestProgram.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

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

// The child process of a death test has the captured stream for its own; what it says is checked there.
void StartWith(const char* theName)
{
    setenv("LM_PRESENTER", theName, 1);
    PresenterRegistry::Register("unwilling", Unwilling::Make);
    PresenterRegistry::Register("nothing", MakeNothing);
    PresenterRegistry::Current();
    std::_Exit(0);
}

class PresenterRegistryDeathTest : public testing::Test
{
};

TEST_F(PresenterRegistryDeathTest, AnUnknownNameEndsTheProgramAndNamesTheChoices)
{
    EXPECT_EXIT(
        StartWith("paper"), testing::ExitedWithCode(1),
        "^LM_PRESENTER: no presenter is called \"paper\"; there are: headless, nothing, unwilling\n$");
}

TEST_F(PresenterRegistryDeathTest, APresenterThatCannotStartEndsTheProgram)
{
    const char* theLine =
        "^LM_PRESENTER: the presenter \"unwilling\" cannot start; there are: headless, nothing, unwilling\n$";
    EXPECT_EXIT(StartWith("unwilling"), testing::ExitedWithCode(1), theLine);
}

TEST_F(PresenterRegistryDeathTest, APresenterThatCannotBeMadeEndsTheProgram)
{
    const char* theLine =
        "^LM_PRESENTER: the presenter \"nothing\" cannot start; there are: headless, nothing, unwilling\n$";
    EXPECT_EXIT(StartWith("nothing"), testing::ExitedWithCode(1), theLine);
}

TEST_F(PresenterRegistryDeathTest, TheHeadlessPresenterCanBeNamed)
{
    EXPECT_EXIT(StartWith("headless"), testing::ExitedWithCode(0), "^$");
}

TEST_F(PresenterRegistryDeathTest, AnEmptyNameMeansTheHeadlessPresenter)
{
    EXPECT_EXIT(StartWith(""), testing::ExitedWithCode(0), "^$");
}

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
