// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDataObject_h
#define CFDataObject_h

#include "CFRuntime.h"

#include <CoreFoundation/CFData.h>
#include <vector>

struct __CFData : Host::Object
{
    // Holds the bytes itself.
    __CFData(std::vector<UInt8>&& theBytes, bool theIsMutable, CFIndex theCapacity = 0)
        : Object(Host::kDataType),
          mBytes(std::move(theBytes)),
          mForeignBytes(nullptr),
          mForeignLength(0),
          mFreesForeignBytes(false),
          mIsMutable(theIsMutable),
          mCapacity(theCapacity)
    {
    }

    // Uses bytes that are somewhere else.
    __CFData(const UInt8* theForeignBytes, CFIndex theLength, bool theFreesForeignBytes)
        : Object(Host::kDataType),
          mForeignBytes(theForeignBytes),
          mForeignLength(theLength),
          mFreesForeignBytes(theFreesForeignBytes),
          mIsMutable(false),
          mCapacity(0)
    {
    }

    ~__CFData();

    const UInt8* GetBytes() const { return mForeignBytes != nullptr ? mForeignBytes : mBytes.data(); }
    CFIndex GetLength() const
    {
        return mForeignBytes != nullptr ? mForeignLength : static_cast<CFIndex>(mBytes.size());
    }

    std::vector<UInt8> mBytes;
    const UInt8* const mForeignBytes; // may be null
    const CFIndex mForeignLength;
    const bool mFreesForeignBytes; // by free, when this object goes
    const bool mIsMutable;
    const CFIndex mCapacity; // the most bytes that mutable data may have; 0 for any number
};

#endif
