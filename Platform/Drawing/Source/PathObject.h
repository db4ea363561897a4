// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PathObject_h
#define PathObject_h

#include "DrawingTypes.h"
#include "Outline.h"

#include <CoreGraphics/CGPath.h>

struct CGPath : Host::Object
{
    explicit CGPath(const Host::Outline& theOutline)
        : Host::Object(Host::kPathType),
          mOutline(theOutline)
    {
    }

    Host::Outline mOutline;
};

#endif
