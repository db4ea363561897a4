// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

#include "HeadlessScreen.h"

namespace {

using Host::PointerShape;

class Cursors : public testing::Test
{
protected:
    ~Cursors() override { InitCursor(); }

    HeadlessScreen mScreen;
};

} // namespace

TEST_F(Cursors, EachThemeCursorHasItsShape)
{
    const std::pair<ThemeCursor, PointerShape> theRows[] = {
        {kThemeWatchCursor, PointerShape::kWatch},
        {kThemeIBeamCursor, PointerShape::kIBeam},
        {kThemePointingHandCursor, PointerShape::kPointingHand},
        {kThemeNotAllowedCursor, PointerShape::kNotAllowed},
        {kThemeResizeUpDownCursor, PointerShape::kResizeUpDown},
        {kThemePoofCursor, PointerShape::kPoof},
        {kThemeArrowCursor, PointerShape::kArrow},
    };
    for (const auto& [theCursor, theShape] : theRows) {
        EXPECT_EQ(SetThemeCursor(theCursor), noErr);
        EXPECT_EQ(mScreen->Pointer().theShape, theShape);
    }
}

TEST_F(Cursors, ACursorThatIsNoneChangesNothing)
{
    SetThemeCursor(kThemeWatchCursor);
    EXPECT_EQ(SetThemeCursor(23), paramErr);
    EXPECT_EQ(SetAnimatedThemeCursor(0xFFFFFFFF, 1), paramErr);
    EXPECT_EQ(mScreen->Pointer().theShape, PointerShape::kWatch);
}

TEST_F(Cursors, AnAnimatedCursorTellsItsStep)
{
    EXPECT_EQ(SetAnimatedThemeCursor(kThemeSpinningCursor, 7), noErr);
    EXPECT_EQ(mScreen->Pointer().theShape, PointerShape::kSpinning);
    EXPECT_EQ(mScreen->Pointer().theStep, 7u);
    SetThemeCursor(kThemeSpinningCursor);
    EXPECT_EQ(mScreen->Pointer().theStep, 0u);
}

TEST_F(Cursors, EachHidingWantsAShowing)
{
    HideCursor();
    HideCursor();
    ShowCursor();
    EXPECT_TRUE(mScreen->Pointer().theIsHidden);
    ShowCursor();
    EXPECT_FALSE(mScreen->Pointer().theIsHidden);
    ShowCursor();
    HideCursor();
    EXPECT_TRUE(mScreen->Pointer().theIsHidden);
    InitCursor();
    EXPECT_FALSE(mScreen->Pointer().theIsHidden);
    EXPECT_EQ(mScreen->Pointer().theShape, PointerShape::kArrow);
}

TEST_F(Cursors, AnObscuredCursorIsSeenWhenItMoves)
{
    Host::PointerAction theMove;
    theMove.thePlace = {5, 6};
    Host::PresenterRegistry::Events().PointerMoved(theMove);
    ObscureCursor();
    EXPECT_TRUE(mScreen->Pointer().theIsObscured);
    Host::PresenterRegistry::Events().PointerMoved(theMove);
    EXPECT_TRUE(mScreen->Pointer().theIsObscured);
    theMove.thePlace = {5, 7};
    Host::PresenterRegistry::Events().PointerMoved(theMove);
    EXPECT_FALSE(mScreen->Pointer().theIsObscured);
}

TEST_F(Cursors, AnotherPresenterIsToldHowItLooks)
{
    SetThemeCursor(kThemeWatchCursor);
    HideCursor();
    const HeadlessScreen theNext;
    EXPECT_EQ(theNext->Pointer().theShape, PointerShape::kWatch);
    EXPECT_TRUE(theNext->Pointer().theIsHidden);
    EXPECT_EQ(mScreen->Pointer().theShape, PointerShape::kArrow) << "the first has stopped";
}
