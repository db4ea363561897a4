// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFNumberObject_h
#define CFNumberObject_h

#include "CFRuntime.h"

#include <CoreFoundation/CFNumber.h>
#include <string>

struct __CFNumber : Host::Object
{
    constexpr __CFNumber(CFNumberType theNumberType, SInt64 theInteger, CFIndex theRetainCount = 1)
        : Object(Host::kNumberType, theRetainCount),
          mNumberType(theNumberType),
          mInteger(theInteger),
          mFloat(0)
    {
    }

    constexpr __CFNumber(CFNumberType theNumberType, Float64 theFloat, CFIndex theRetainCount = 1)
        : Object(Host::kNumberType, theRetainCount),
          mNumberType(theNumberType),
          mInteger(0),
          mFloat(theFloat)
    {
    }

    bool IsFloat() const { return mNumberType >= kCFNumberFloat32Type; }

    const CFNumberType mNumberType; // kCFNumberSInt8Type to kCFNumberFloat64Type
    const SInt64 mInteger;          // the value of the integer types
    const Float64 mFloat;           // the value of both float types
};

namespace Host {

// Digits as they stand in texts and in property lists: the shortest of 17 for floats.
std::string NumberText(const __CFNumber& theNumber);

} // namespace Host

#endif
