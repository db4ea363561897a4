// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmDateFormatter_h
#define LmDateFormatter_h

#include "LmFormatter.h"

#include <memory>

// Dates and times, in the language of the person or in another, as the platform's date formatter has them.
//
// The value is of the kind SInt64: whole seconds since the first instant of 2001, Greenwich mean time, as
// CFAbsoluteTime counts. A date without a time is the first instant of that day in the time zone. A time
// without a date is the seconds since midnight, from 0 to 86,399, in no time zone.
//
// - Years are written with four digits, whatever the style of the locale is, so that none is mistaken for
//   another. Two typed digits are a year as the platform has it, which is one from 80 years ago to 20 years
//   ahead, where the locale writes two.
// - Only the years 1000 to 9999 are read and written; other numbers give an invalid value.
// - A day that does not exist, text behind the date, and the empty text are refused: "This is not a date.",
//   or "This is not a time.", which the application's LmFormatters.strings translates.
// - What is read is what is written for it: a text that leads to another moment than it shows is refused. So
//   a short style, which writes no seconds, reads whole minutes; a moment between them is written without
//   its seconds.
// - Where clocks are put back, an hour comes twice, and the first is meant, but where the text names the zone
//   as the long styles of times do. A moment of the second is written as one of the first.
// - Where clocks are put forward over midnight, the day begins with what they show then; a time that they
//   never show is refused.
// - A language whose times are of more parts of the day than its two halves is written with the halves.
//
// Cost: calls of the platform's formatter whenever it reads or writes.
class LM_EXPORT LmDateFormatter : public LmFormatter
{
public:
    // The styles are those of CFDateFormatter, none of each included; with none of both, all is refused and
    // invalid. Null for the locale is the person's, null for the zone CFTimeZoneCopyDefault's.
    // Throws std::bad_alloc where memory runs out.
    explicit LmDateFormatter(CFDateFormatterStyle theDateStyle,
                             CFDateFormatterStyle theTimeStyle = kCFDateFormatterNoStyle,
                             CFLocaleRef theLocale = nullptr, CFTimeZoneRef theTimeZone = nullptr);
    ~LmDateFormatter() override;

    [[nodiscard]] LmReading Parse(CFStringRef theText) const override;
    [[nodiscard]] LmValue Format(const LmValue& theValue) const override;

private:
    struct LM_HIDDEN Formats;

    const bool mIsTime;                            // without a date
    const std::unique_ptr<const Formats> mFormats; // null where all is refused
};

#endif
