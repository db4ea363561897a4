// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Quickdraw_h
#define Quickdraw_h

// Rectangles in whole pixels.
//
// A rectangle is empty when its bottom is not below its top or its right is not right of its left.
// Coordinates that leave the range of 16 bits stay at its end.

#include <Carbon/CarbonBase.h>

// Sets all four edges. On purpose: the order of the parameters is not the order of the fields; the platform
// has it so.
CARBON_EXPORT void SetRect(Rect* outRect, short inLeft, short inTop, short inRight, short inBottom);

// Moves the rectangle right by inHorizontal and down by inVertical.
CARBON_EXPORT void OffsetRect(Rect* ioRect, short inHorizontal, short inVertical);

// Whether all four edges agree.
CARBON_EXPORT Boolean EqualRect(const Rect* inOne, const Rect* inOther);

// Whether the point lies inside. The left and top edges belong to the rectangle, the right and bottom ones do
// not.
CARBON_EXPORT Boolean PtInRect(Point inPoint, const Rect* inRect);

#endif
