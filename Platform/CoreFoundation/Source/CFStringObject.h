// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFStringObject_h
#define CFStringObject_h

#include "CFText.h"

#include <CoreFoundation/CFString.h>

struct __CFString : Host::Object
{
    __CFString(Host::Units&& theUnits, bool theIsMutable, CFIndex theRetainCount = 1)
        : Object(Host::kStringType, theRetainCount),
          mUnits(std::move(theUnits)),
          mIsMutable(theIsMutable)
    {
    }

    CFIndex GetLength() const { return static_cast<CFIndex>(mUnits.size()); }

    Host::Units mUnits;
    const bool mIsMutable;
    const char* mASCII = nullptr; // the same text, of constants in ASCII alone; not owned
};

namespace Host {

// An immutable string; the caller releases it. There is only one empty one. Throws std::bad_alloc.
CFStringRef MakeString(Units&& theUnits);

// The part of a range that lies inside a string.
CFRange ClipRange(CFStringRef theString, CFRange theRange);

// Appends what theBytes stand for; false for bytes that are no text and for encodings that are not supported,
// and then theUnits is of no use. Throws std::bad_alloc.
bool DecodeBytes(const UInt8* theBytes, CFIndex theLength, CFStringEncoding theEncoding,
                 bool theIsExternalRepresentation, Units& theUnits);

} // namespace Host

#endif
