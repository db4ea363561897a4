// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The desktop's cursor over the program's windows.

#include "QtPresenter.h"
#include "RecordingGate.h"

#include <gtest/gtest.h>
#include <optional>
#include <QCursor>
#include <QGuiApplication>

namespace {

using Host::PointerShape;

class QtPointer : public testing::Test
{
protected:
    QtPointer() { mPresenter.Start(mGate); }

    // None while each widget has the cursor of its own.
    static std::optional<Qt::CursorShape> Cursor()
    {
        const QCursor* const theCursor = QGuiApplication::overrideCursor();
        return theCursor == nullptr ? std::nullopt : std::optional(theCursor->shape());
    }

    void Show(PointerShape theShape, bool theIsHidden = false, bool theIsObscured = false)
    {
        Host::PointerLook theLook;
        theLook.theShape = theShape;
        theLook.theIsHidden = theIsHidden;
        theLook.theIsObscured = theIsObscured;
        mPresenter.PointerLooks(theLook);
    }

    RecordingGate mGate;
    Host::QtPresenter mPresenter;
};

} // namespace

TEST_F(QtPointer, ShapesAreTheDesktopsOwn)
{
    const std::pair<PointerShape, Qt::CursorShape> theRows[] = {
        {PointerShape::kWatch, Qt::WaitCursor},
        {PointerShape::kIBeam, Qt::IBeamCursor},
        {PointerShape::kPointingHand, Qt::PointingHandCursor},
        {PointerShape::kClosedHand, Qt::ClosedHandCursor},
        {PointerShape::kCross, Qt::CrossCursor},
        {PointerShape::kResizeLeftRight, Qt::SplitHCursor},
        {PointerShape::kResizeUpDown, Qt::SplitVCursor},
        {PointerShape::kNotAllowed, Qt::ForbiddenCursor},
        {PointerShape::kPoof, Qt::ArrowCursor},
    };
    for (const auto& [theShape, theCursor] : theRows) {
        Show(theShape);
        EXPECT_EQ(Cursor(), theCursor);
    }
}

TEST_F(QtPointer, TheArrowLeavesWidgetsTheirOwn)
{
    Show(PointerShape::kWatch);
    Show(PointerShape::kIBeam);
    Show(PointerShape::kArrow);
    EXPECT_EQ(Cursor(), std::nullopt);
    Show(PointerShape::kArrow);
    EXPECT_EQ(Cursor(), std::nullopt);
}

TEST_F(QtPointer, AHiddenOneIsBlank)
{
    Show(PointerShape::kArrow, true);
    EXPECT_EQ(Cursor(), Qt::BlankCursor);
    Show(PointerShape::kWatch, false, true);
    EXPECT_EQ(Cursor(), Qt::BlankCursor);
    Show(PointerShape::kWatch);
    EXPECT_EQ(Cursor(), Qt::WaitCursor);
}

TEST_F(QtPointer, APresenterThatStopsLeavesNone)
{
    Show(PointerShape::kWatch);
    mPresenter.Stop();
    EXPECT_EQ(Cursor(), std::nullopt);
    Show(PointerShape::kWatch);
    EXPECT_EQ(Cursor(), std::nullopt) << "it is not running";
}
