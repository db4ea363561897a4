// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_DateFormat_h
#define Formats_DateFormat_h

// What a date formatter stands on: with ICU (ICU/ICUDateFormat.cpp) or without (Plain/PlainDateFormat.cpp).
// Everything here throws std::bad_alloc when there is no memory.

#include "CFTimeZoneObject.h"
#include "Characters.h"

#include <CoreFoundation/CFDateFormatter.h>
#include <optional>

namespace Host {

enum class DateNames
{
    kEras,
    kMonths, // from January on
    kShortMonths,
    kWeekdays, // from Sunday on
    kShortWeekdays,
    kHalvesOfDay
};

class DateFormat
{
public:
    DateFormat() = default;
    virtual ~DateFormat() = default;
    DateFormat(const DateFormat&) = delete;
    DateFormat& operator=(const DateFormat&) = delete;

    virtual Characters Pattern() const = 0;
    virtual void SetPattern(const Characters& thePattern) = 0;

    // Within kFarthestTime.
    virtual Characters Format(CFAbsoluteTime theTime) const = 0;

    struct Reading
    {
        CFAbsoluteTime theTime;
        size_t theLength; // of the text that was read
    };
    // The moment that theText starts with.
    virtual std::optional<Reading> Parse(const Characters& theText) const = 0;

    virtual bool IsLenient() const = 0;
    virtual void SetLenient(bool theIsLenient) = 0;
    // Retains nothing: the formatter does.
    virtual void SetTimeZone(CFTimeZoneRef theTimeZone) = 0;
    // The first of the hundred years that two digits stand for.
    virtual CFAbsoluteTime TwoDigitStart() const = 0;
    virtual void SetTwoDigitStart(CFAbsoluteTime theTime) = 0;
    virtual std::vector<Characters> Names(DateNames theNames) const = 0;
    // As many as there are.
    virtual void SetNames(DateNames theNames, const std::vector<Characters>& theTexts) = 0;
};

// More than 250,000 years in each direction.
constexpr double kFarthestTime = 7.9e12;

// For a locale by its canonical identifier. Null when there is none.
std::unique_ptr<DateFormat> MakeDateFormat(const std::string& theLocale, CFDateFormatterStyle theDateStyle,
                                           CFDateFormatterStyle theTimeStyle);

} // namespace Host

#endif
