// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDateObject_h
#define CFDateObject_h

#include "CFRuntime.h"

#include <CoreFoundation/CFDate.h>

struct __CFDate : Host::Object
{
    explicit __CFDate(CFAbsoluteTime theTime)
        : Object(Host::kDateType),
          mTime(theTime)
    {
    }

    const CFAbsoluteTime mTime;
};

#endif
