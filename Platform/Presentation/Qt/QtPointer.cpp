// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtPointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace Host {

namespace {

Qt::CursorShape ShapeOf(PointerShape theShape)
{
    switch (theShape) {
    case PointerShape::kArrow:
    case PointerShape::kContextualMenuArrow:
    case PointerShape::kPoof:
        break;
    case PointerShape::kCopyArrow:
        return Qt::DragCopyCursor;
    case PointerShape::kAliasArrow:
        return Qt::DragLinkCursor;
    case PointerShape::kIBeam:
        return Qt::IBeamCursor;
    case PointerShape::kCross:
    case PointerShape::kPlus:
        return Qt::CrossCursor;
    case PointerShape::kWatch:
    case PointerShape::kCountingUpHand:
    case PointerShape::kCountingDownHand:
    case PointerShape::kCountingUpAndDownHand:
        return Qt::WaitCursor;
    case PointerShape::kSpinning:
        return Qt::BusyCursor;
    case PointerShape::kClosedHand:
        return Qt::ClosedHandCursor;
    case PointerShape::kOpenHand:
        return Qt::OpenHandCursor;
    case PointerShape::kPointingHand:
        return Qt::PointingHandCursor;
    case PointerShape::kResizeLeft:
    case PointerShape::kResizeRight:
    case PointerShape::kResizeLeftRight:
        return Qt::SplitHCursor;
    case PointerShape::kResizeUp:
    case PointerShape::kResizeDown:
    case PointerShape::kResizeUpDown:
        return Qt::SplitVCursor;
    case PointerShape::kNotAllowed:
        return Qt::ForbiddenCursor;
    }
    return Qt::ArrowCursor;
}

} // namespace

void QtPointer::Show(const PointerLook& theLook)
{
    const bool theIsHidden = theLook.theIsHidden || theLook.theIsObscured;
    const bool theOverrides = theIsHidden || theLook.theShape != PointerShape::kArrow;
    const QCursor theCursor(theIsHidden ? Qt::BlankCursor : ShapeOf(theLook.theShape));
    if (theOverrides && mIsOverriding) {
        QGuiApplication::changeOverrideCursor(theCursor);
    } else if (theOverrides) {
        QGuiApplication::setOverrideCursor(theCursor);
    } else if (mIsOverriding) {
        QGuiApplication::restoreOverrideCursor();
    }
    mIsOverriding = theOverrides;
}

} // namespace Host
