// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

TEST(MenuBar, ItsHeightIsWhatTheScreenGivesIt)
{
    EXPECT_EQ(GetMBarHeight(), 22);
}

namespace {

class TallPresenter : public Host::Presenter
{
public:
    std::vector<Host::ScreenLook> Screens() const override
    {
        return {{{0, 0, 1000, 700}, {0, mTop, 1000, 700}}};
    }

    int mTop = 0;
};

} // namespace

TEST(MenuBar, IsNotThereWhereWindowsReachTheTop)
{
    auto thePresenter = std::make_unique<TallPresenter>();
    TallPresenter& theScreen = *thePresenter;
    Host::PresenterRegistry::Use(std::move(thePresenter));
    EXPECT_EQ(GetMBarHeight(), 0);
    theScreen.mTop = 40;
    EXPECT_EQ(GetMBarHeight(), 40);
    theScreen.mTop = 100000;
    EXPECT_EQ(GetMBarHeight(), 32767);
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
}

TEST(MenuBar, TitlesAreLeftToThoseWhoShowThem)
{
    HiliteMenu(0);
    HiliteMenu(12345);
}
