// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ColorSpaceObject_h
#define ColorSpaceObject_h

#include "DrawingTypes.h"

#include <array>
#include <CoreGraphics/CGColorSpace.h>

// One of the three, which are never freed.
struct CGColorSpace : Host::Object
{
    CGColorSpace(CGColorSpaceModel theModel, size_t theCount)
        : Host::Object(Host::kColorSpaceType, Host::kImmortal),
          mModel(theModel),
          mCount(theCount)
    {
    }

    const CGColorSpaceModel mModel;
    const size_t mCount; // of components, without alpha
};

namespace Host {

// The most that a colour has, alpha included.
constexpr size_t kMostComponents = 5;

// What a context paints with: from 0 to 1, not multiplied by the alpha.
struct Paint
{
    double theRed = 0;
    double theGreen = 0;
    double theBlue = 0;
    double theAlpha = 1;
};

using Components = std::array<CGFloat, kMostComponents>;

// The components of a space's black.
Components BlackOf(const CGColorSpace& theSpace);

// Components beyond 0 and 1 are the nearest of these, and what is no number is 0.
Paint PaintOf(const CGColorSpace& theSpace, const CGFloat* theComponents);

} // namespace Host

#endif
