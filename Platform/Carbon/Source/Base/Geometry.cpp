// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Host {

short Narrow(int theCoordinate)
{
    return static_cast<short>(std::clamp(theCoordinate, int{INT16_MIN}, int{INT16_MAX}));
}

short Narrow(double theCoordinate)
{
    if (std::isnan(theCoordinate)) {
        return 0;
    }
    const double theInside = std::clamp(theCoordinate, double{INT16_MIN}, double{INT16_MAX});
    return static_cast<short>(std::floor(theInside));
}

short NearestCoordinate(double theCoordinate)
{
    return Narrow(theCoordinate + 0.5);
}

int WidthOf(const Rect& theRect)
{
    return theRect.right - theRect.left;
}

int HeightOf(const Rect& theRect)
{
    return theRect.bottom - theRect.top;
}

bool IsEmpty(const Rect& theRect)
{
    return WidthOf(theRect) <= 0 || HeightOf(theRect) <= 0;
}

bool Agree(const Rect& theOne, const Rect& theOther)
{
    return theOne.top == theOther.top && theOne.left == theOther.left && theOne.bottom == theOther.bottom &&
           theOne.right == theOther.right;
}

bool Contains(const Rect& theRect, Point thePoint)
{
    return thePoint.h >= theRect.left && thePoint.h < theRect.right && thePoint.v >= theRect.top &&
           thePoint.v < theRect.bottom;
}

bool Encloses(const Rect& theOuter, const Rect& theInner)
{
    return theOuter.left <= theInner.left && theOuter.top <= theInner.top &&
           theOuter.right >= theInner.right && theOuter.bottom >= theInner.bottom;
}

Rect MakeRect(int theLeft, int theTop, int theRight, int theBottom)
{
    Rect theRect;
    theRect.top = Narrow(theTop);
    theRect.left = Narrow(theLeft);
    theRect.bottom = Narrow(theBottom);
    theRect.right = Narrow(theRight);
    return theRect;
}

Rect Moved(const Rect& theRect, int theHorizontal, int theVertical)
{
    return MakeRect(theRect.left + theHorizontal, theRect.top + theVertical, theRect.right + theHorizontal,
                    theRect.bottom + theVertical);
}

Point MakePoint(int theHorizontal, int theVertical)
{
    Point thePoint;
    thePoint.v = Narrow(theVertical);
    thePoint.h = Narrow(theHorizontal);
    return thePoint;
}

Point MiddleOf(const Rect& theRect)
{
    return MakePoint((theRect.left + theRect.right) / 2, (theRect.top + theRect.bottom) / 2);
}

PixelRect PixelsOf(const Rect& theRect)
{
    return {theRect.left, theRect.top, theRect.right, theRect.bottom};
}

} // namespace Host

// The interface of Quickdraw.h ---------------------------------------------------------------------------

void SetRect(Rect* outRect, short inLeft, short inTop, short inRight, short inBottom)
{
    if (outRect != nullptr) {
        *outRect = Host::MakeRect(inLeft, inTop, inRight, inBottom);
    }
}

void OffsetRect(Rect* ioRect, short inHorizontal, short inVertical)
{
    if (ioRect != nullptr) {
        *ioRect = Host::Moved(*ioRect, inHorizontal, inVertical);
    }
}

void InsetRect(Rect* ioRect, short inHorizontal, short inVertical)
{
    if (ioRect != nullptr) {
        const Rect theInset = Host::MakeRect(ioRect->left + inHorizontal, ioRect->top + inVertical,
                                             ioRect->right - inHorizontal, ioRect->bottom - inVertical);
        *ioRect = Host::IsEmpty(theInset) ? Rect{} : theInset;
    }
}

Boolean SectRect(const Rect* inOne, const Rect* inOther, Rect* outRect)
{
    if (inOne == nullptr || inOther == nullptr || outRect == nullptr) {
        return 0;
    }
    const Rect theCommon =
        Host::MakeRect(std::max(inOne->left, inOther->left), std::max(inOne->top, inOther->top),
                       std::min(inOne->right, inOther->right), std::min(inOne->bottom, inOther->bottom));
    const bool theIsEmpty = Host::IsEmpty(theCommon);
    *outRect = theIsEmpty ? Rect{} : theCommon;
    return !theIsEmpty;
}

void UnionRect(const Rect* inOne, const Rect* inOther, Rect* outRect)
{
    if (inOne != nullptr && inOther != nullptr && outRect != nullptr) {
        *outRect =
            Host::MakeRect(std::min(inOne->left, inOther->left), std::min(inOne->top, inOther->top),
                           std::max(inOne->right, inOther->right), std::max(inOne->bottom, inOther->bottom));
    }
}

Boolean EmptyRect(const Rect* inRect)
{
    return inRect == nullptr || Host::IsEmpty(*inRect);
}

Boolean EqualRect(const Rect* inOne, const Rect* inOther)
{
    return inOne != nullptr && inOther != nullptr && Host::Agree(*inOne, *inOther);
}

Boolean PtInRect(Point inPoint, const Rect* inRect)
{
    return inRect != nullptr && Host::Contains(*inRect, inPoint);
}

void SetPt(Point* outPoint, short inHorizontal, short inVertical)
{
    if (outPoint != nullptr) {
        *outPoint = Host::MakePoint(inHorizontal, inVertical);
    }
}

void AddPt(Point inPoint, Point* ioPoint)
{
    if (ioPoint != nullptr) {
        *ioPoint = Host::MakePoint(ioPoint->h + inPoint.h, ioPoint->v + inPoint.v);
    }
}

void SubPt(Point inPoint, Point* ioPoint)
{
    if (ioPoint != nullptr) {
        *ioPoint = Host::MakePoint(ioPoint->h - inPoint.h, ioPoint->v - inPoint.v);
    }
}

Boolean EqualPt(Point inOne, Point inOther)
{
    return inOne.h == inOther.h && inOne.v == inOther.v;
}
