// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <string>

namespace {

const char* const kShown[][1] = {
    // @rows 1
};

// A presenter for a desktop that is not there.
class BlindPresenter : public Host::Presenter
{
public:
    bool Start(Host::PresenterEvents&) override { return false; }
    std::string Complaint() const override { return "there is no display"; }
};

} // namespace

TEST(PresenterRegistryDeathTest, RefusesAnUnknownPresenterAsItsHeaderShows)
{
    const auto theUse = [] {
        setenv("LM_PRESENTER", "qt", 1);
        Host::PresenterRegistry::Current();
    };
    EXPECT_EXIT(theUse(), testing::ExitedWithCode(1), testing::Eq(std::string(kShown[0][0]) + "\n"));
}

TEST(PresenterRegistryDeathTest, SaysWhyNothingCanBeShownAsItsHeaderShows)
{
    const auto theUse = [] {
        unsetenv("LM_PRESENTER");
        Host::PresenterRegistry::RegisterPreferred(
            "blind", []() -> std::unique_ptr<Host::Presenter> { return std::make_unique<BlindPresenter>(); });
        Host::PresenterRegistry::Current();
    };
    EXPECT_EXIT(theUse(), testing::ExitedWithCode(1), testing::Eq(std::string(kShown[1][0]) + "\n"));
}
