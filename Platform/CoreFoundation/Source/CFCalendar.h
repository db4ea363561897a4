// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFCalendar_h
#define CFCalendar_h

// Dates as property lists write them: "2001-01-01T00:00:00Z".

#include <CoreFoundation/CFDate.h>
#include <optional>
#include <string>
#include <string_view>

namespace Host {

// A year that others have written with fewer than four digits is read too. None for a text of another form,
// or with a day or an hour that does not exist.
std::optional<CFAbsoluteTime> ParseDate(std::string_view theDate);

// The whole second that theTime is in. None for a year that does not have four digits.
std::optional<std::string> DateText(CFAbsoluteTime theTime);

} // namespace Host

#endif
