// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RecordingGate.h"

#include <gtest/gtest.h>
#include <Presentation/Presenter.h>

namespace {

// A presenter that overrides nothing: what a new one starts with.
class PresenterDefaults : public testing::Test
{
protected:
    Host::Presenter mPresenter;
};

TEST_F(PresenterDefaults, StartAndReportNothing)
{
    RecordingGate theGate;
    EXPECT_TRUE(mPresenter.Start(theGate));
    mPresenter.WindowLooks({});
    mPresenter.ControlLooks({});
    mPresenter.MenuBarLooks({});
    mPresenter.FocusIsAt(1, 2);
    mPresenter.ControlGone(2);
    mPresenter.WindowGone(1);
    mPresenter.Wake();
    EXPECT_FALSE(mPresenter.WaitUntil(-1, 0));
    mPresenter.Stop();
    EXPECT_EQ(theGate.Take(), RecordingGate::Reports());
}

TEST_F(PresenterDefaults, OfferOneScreenWithAMenuBar)
{
    const std::vector<Host::ScreenLook> theScreens = mPresenter.Screens();
    ASSERT_EQ(theScreens.size(), 1u);
    EXPECT_EQ(theScreens[0].theBounds, (Host::PixelRect{0, 0, 1024, 768}));
    EXPECT_EQ(theScreens[0].theAvailable, (Host::PixelRect{0, 22, 1024, 768}));
}

struct TextRow
{
    const char* theText;
    Host::TextStyle theStyle;
    Host::PixelSize theSize;
};

class PresenterTextSizes : public testing::TestWithParam<TextRow>
{
};

TEST_P(PresenterTextSizes, CountCodePoints)
{
    const TextRow& theRow = GetParam();
    EXPECT_EQ(Host::Presenter().MeasureText(theRow.theText, theRow.theStyle), theRow.theSize);
}

INSTANTIATE_TEST_SUITE_P(Texts, PresenterTextSizes,
                         testing::Values(TextRow{"", Host::TextStyle::kBody, {0, 16}},
                                         TextRow{"Room", Host::TextStyle::kBody, {28, 16}},
                                         TextRow{"Küche", Host::TextStyle::kBody, {35, 16}},
                                         TextRow{"21 °C", Host::TextStyle::kSmall, {30, 13}},
                                         TextRow{"OK", Host::TextStyle::kEmphasis, {14, 16}}));

struct CentreRow
{
    Host::PixelRect theRect;
    Host::PixelPoint theCentre;
};

class CentreOfRect : public testing::TestWithParam<CentreRow>
{
};

TEST_P(CentreOfRect, LiesInIt)
{
    EXPECT_EQ(Host::CentreOf(GetParam().theRect), GetParam().theCentre);
}

constexpr int kLeast = -2147483647 - 1;
constexpr int kMost = 2147483647;

INSTANTIATE_TEST_SUITE_P(
    Rects, CentreOfRect,
    testing::Values(CentreRow{{10, 20, 30, 60}, {20, 40}}, CentreRow{{5, 5, 5, 5}, {5, 5}},
                    CentreRow{{kMost - 1, kMost - 1, kMost, kMost}, {kMost - 1, kMost - 1}},
                    CentreRow{{kLeast, kLeast, kMost, kMost}, {0, 0}}));

TEST(PixelRect, HoldsItsLeftAndTopEdgeAndExcludesTheOthers)
{
    const Host::PixelRect theRect = {10, 20, 30, 40};
    EXPECT_TRUE(Host::Contains(theRect, {10, 20}));
    EXPECT_TRUE(Host::Contains(theRect, {29, 39}));
    EXPECT_FALSE(Host::Contains(theRect, {30, 39}));
    EXPECT_FALSE(Host::Contains(theRect, {29, 40}));
    EXPECT_FALSE(Host::Contains(theRect, {9, 20}));
    EXPECT_FALSE(Host::Contains(theRect, {10, 19}));
}

} // namespace
