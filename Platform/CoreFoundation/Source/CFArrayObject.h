// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFArrayObject_h
#define CFArrayObject_h

#include "CFRuntime.h"

#include <CoreFoundation/CFArray.h>
#include <vector>

struct __CFArray : Host::Object
{
    __CFArray(const CFArrayCallBacks& theCallBacks, bool theIsMutable)
        : Object(Host::kArrayType),
          mCallBacks(theCallBacks),
          mIsMutable(theIsMutable)
    {
    }
    ~__CFArray();

    CFIndex GetCount() const { return static_cast<CFIndex>(mValues.size()); }

    const CFArrayCallBacks mCallBacks;
    const bool mIsMutable;
    std::vector<const void*> mValues; // each retained by the callbacks
};

#endif
