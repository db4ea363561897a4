// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Formats/ZoneData.h"

std::unique_ptr<Host::ZoneData> Host::MakeZoneData(const std::string&)
{
    return nullptr;
}

std::vector<std::string> Host::KnownZones()
{
    return {};
}

std::string Host::NameOfSystemZone()
{
    return "GMT";
}
