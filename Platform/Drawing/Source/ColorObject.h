// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ColorObject_h
#define ColorObject_h

#include "ColorSpaceObject.h"

#include <CoreGraphics/CGColor.h>

struct CGColor : Host::Object
{
    CGColor(CGColorSpace& theSpace, const Host::Components& theComponents)
        : Host::Object(Host::kColorType),
          mSpace(theSpace),
          mComponents(theComponents)
    {
    }

    CGColorSpace& mSpace; // never freed
    const Host::Components mComponents;
};

#endif
