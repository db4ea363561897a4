// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HeadlessPresenter.h"
#include "PresenterChoice.h"
#include "TestProgram.h"

#include <algorithm>
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

class OutOfPaper : public Unwilling
{
public:
    static std::unique_ptr<Host::Presenter> Make() { return std::make_unique<OutOfPaper>(); }

    std::string Complaint() const override { return "the printer is empty"; }
};

class Willing : public Host::Presenter
{
public:
    static std::unique_ptr<Host::Presenter> Make() { return std::make_unique<Willing>(); }
};

std::unique_ptr<Host::Presenter> MakeNothing()
{
    return nullptr;
}

constexpr char kPreferred[] = "preferred";

// A program with these presenters. A null theName leaves LM_PRESENTER out of the environment, a null
// thePreferred leaves the preferred presenter out of the program. The status of one that starts is 10 with
// the headless presenter, 20 with another.
Ending StartWith(const char* theName, Host::PresenterFactory thePreferred)
{
    const auto thePreparation = [=] {
        theName == nullptr ? unsetenv("LM_PRESENTER") : setenv("LM_PRESENTER", theName, 1);
        PresenterRegistry::Register("unwilling", Unwilling::Make);
        PresenterRegistry::Register("printer", OutOfPaper::Make);
        PresenterRegistry::Register("nothing", MakeNothing);
        if (thePreferred != nullptr) {
            PresenterRegistry::RegisterPreferred(kPreferred, thePreferred);
        }
    };
    return StartProgram(thePreparation, [](Host::Presenter& thePresenter) {
        return dynamic_cast<Host::HeadlessPresenter*>(&thePresenter) != nullptr ? 10 : 20;
    });
}

struct ChoiceRow
{
    const char* theTest;
    const char* theName;
    Host::PresenterFactory thePreferred;
    int theStatus;
    const char* theText;
};

// The framework runs suites of names that end like this before all others, while no presenter is in use yet.
class PresenterChoiceDeathTest : public testing::TestWithParam<ChoiceRow>
{
};

TEST_P(PresenterChoiceDeathTest, StartsThePresenterOrEndsTheProgramWithOneLine)
{
    const Ending theEnding = StartWith(GetParam().theName, GetParam().thePreferred);
    EXPECT_EQ(theEnding.theText, GetParam().theText);
    EXPECT_EQ(theEnding.theStatus, GetParam().theStatus);
}

const ChoiceRow kChoices[] = {
    {"Unknown", "paper", nullptr, 1,
     "LM_PRESENTER: no presenter is called \"paper\"; there are: headless, nothing, printer, unwilling\n"},
    {"UnknownBesideThePreferred", "paper", Willing::Make, 1,
     "LM_PRESENTER: no presenter is called \"paper\"; there are: headless, nothing, preferred, printer, "
     "unwilling\n"},
    {"DoesNotStart", "unwilling", nullptr, 1,
     "LM_PRESENTER: the presenter \"unwilling\" cannot start; there are: headless, nothing, printer, "
     "unwilling\n"},
    {"SaysWhy", "printer", nullptr, 1,
     "LM_PRESENTER: the presenter \"printer\" cannot start: the printer is empty; there are: headless, "
     "nothing, printer, unwilling\n"},
    {"CannotBeMade", "nothing", nullptr, 1,
     "LM_PRESENTER: the presenter \"nothing\" cannot start; there are: headless, nothing, printer, "
     "unwilling\n"},
    {"Headless", "headless", nullptr, 10, ""},
    {"HeadlessBesideThePreferred", "headless", Willing::Make, 10, ""},
    {"Absent", nullptr, nullptr, 10, ""},
    {"Empty", "", nullptr, 10, ""},
    {"AbsentWithAPreferredOne", nullptr, Willing::Make, 20, ""},
    {"EmptyWithAPreferredOne", "", Willing::Make, 20, ""},
    {"PreferredByName", kPreferred, Willing::Make, 20, ""},
    {"PreferredDoesNotStart", nullptr, OutOfPaper::Make, 1,
     "No windows can be shown: the printer is empty; LM_PRESENTER=headless runs the program without\n"},
    {"PreferredDoesNotSayWhy", nullptr, Unwilling::Make, 1,
     "No windows can be shown; LM_PRESENTER=headless runs the program without\n"},
};

INSTANTIATE_TEST_SUITE_P(Names, PresenterChoiceDeathTest, testing::ValuesIn(kChoices),
                         [](const testing::TestParamInfo<ChoiceRow>& theInfo) {
                             return theInfo.param.theTest;
                         });

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
