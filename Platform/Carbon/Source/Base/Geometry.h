// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_Geometry_h
#define Base_Geometry_h

#include <Carbon/Carbon.h>
#include <Presentation/PresenterTypes.h>

namespace Host {

// A coordinate in the 16 bits that rectangles have; what lies outside of them stays at their end.
short Narrow(double theCoordinate);
short Narrow(int theCoordinate);

// The same of the nearest whole coordinate, halves to the right and down.
short NearestCoordinate(double theCoordinate);

int WidthOf(const Rect& theRect);
int HeightOf(const Rect& theRect);
bool IsEmpty(const Rect& theRect);
bool Agree(const Rect& theOne, const Rect& theOther);
bool Contains(const Rect& theRect, Point thePoint);

// Whether theInner lies in theOuter, edges included.
bool Encloses(const Rect& theOuter, const Rect& theInner);

Rect MakeRect(int theLeft, int theTop, int theRight, int theBottom);
Rect Moved(const Rect& theRect, int theHorizontal, int theVertical);
Point MakePoint(int theHorizontal, int theVertical);
Point MiddleOf(const Rect& theRect);

PixelRect PixelsOf(const Rect& theRect);

} // namespace Host

#endif
