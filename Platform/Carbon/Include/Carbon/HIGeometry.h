// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Points, sizes and rectangles with fractional coordinates, under the names that events use.

#ifndef HIGeometry_h
#define HIGeometry_h

#include <Carbon/CarbonBase.h>
#include <CoreGraphics/CGGeometry.h>

typedef CGPoint HIPoint;
typedef CGSize HISize;
typedef CGRect HIRect;

#endif
