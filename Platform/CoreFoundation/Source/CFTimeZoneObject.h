// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFTimeZoneObject_h
#define CFTimeZoneObject_h

#include "CFRuntime.h"
#include "Formats/ZoneData.h"

#include <CoreFoundation/CFTimeZone.h>
#include <mutex>

struct __CFTimeZone : Host::Object
{
    __CFTimeZone(Host::Holder<CFStringRef>&& theName, int theSeconds,
                 std::unique_ptr<Host::ZoneData>&& theData)
        : Object(Host::kTimeZoneType),
          mName(std::move(theName)),
          mSeconds(theSeconds),
          mData(std::move(theData))
    {
    }

    const Host::Holder<CFStringRef> mName;
    const int mSeconds; // to the east, of a fixed distance
    mutable std::mutex mMutex;
    const std::unique_ptr<Host::ZoneData> mData; // behind the mutex; null for a fixed distance
};

namespace Host {

// The moment at which the clocks of a zone, which may be NULL, show theLocalTime. Where clocks are put back,
// the first of the two; where they are put forward, what is left out is added.
CFAbsoluteTime MomentOfLocalTime(CFTimeZoneRef theTimeZone, CFAbsoluteTime theLocalTime);

// What such clocks show.
CFAbsoluteTime LocalTimeAt(CFTimeZoneRef theTimeZone, CFAbsoluteTime theTime);

// The zone of CFTimeZoneCopyDefault. Throws std::bad_alloc.
Holder<CFTimeZoneRef> DefaultTimeZone();

} // namespace Host

#endif
