// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_ZoneData_h
#define Formats_ZoneData_h

// What is known of the time zones of places: with ICU (ICU/ICUZoneData.cpp) or without
// (Plain/PlainZoneData.cpp). Everything here throws std::bad_alloc when there is no memory.

#include "Characters.h"

#include <CoreFoundation/CFDate.h>
#include <memory>
#include <vector>

namespace Host {

class ZoneData
{
public:
    ZoneData() = default;
    virtual ~ZoneData() = default;
    ZoneData(const ZoneData&) = delete;
    ZoneData& operator=(const ZoneData&) = delete;

    struct Offset
    {
        int theSeconds; // to the east
        bool theIsDaylightSaving;
    };
    virtual Offset OffsetAt(CFAbsoluteTime theTime) = 0;
    virtual Characters Abbreviation(bool theIsDaylightSaving) = 0;
};

// Null for a name that is none.
std::unique_ptr<ZoneData> MakeZoneData(const std::string& theName);

std::vector<std::string> KnownZones();

// The one that the system is set to; may be one that is not known.
std::string NameOfSystemZone();

} // namespace Host

#endif
