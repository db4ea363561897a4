// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Formats/DateFormat.h"

#include "Buffers.h"
#include "Moments.h"

#include <unicode/ucal.h>
#include <unicode/udat.h>

namespace Host {

namespace {

using OwnedFormat = std::unique_ptr<UDateFormat, decltype(&udat_close)>;
using Calendar = std::unique_ptr<UCalendar, decltype(&ucal_close)>;

UDateFormatSymbolType ICUSymbols(DateNames theNames)
{
    switch (theNames) {
    case DateNames::kEras:
        return UDAT_ERAS;
    case DateNames::kMonths:
        return UDAT_MONTHS;
    case DateNames::kShortMonths:
        return UDAT_SHORT_MONTHS;
    case DateNames::kWeekdays:
        return UDAT_WEEKDAYS;
    case DateNames::kShortWeekdays:
        return UDAT_SHORT_WEEKDAYS;
    default:
        return UDAT_AM_PMS;
    }
}

// ICU counts the days of the week from 1 on.
int32_t FirstOf(DateNames theNames)
{
    return theNames == DateNames::kWeekdays || theNames == DateNames::kShortWeekdays ? 1 : 0;
}

class ICUDateFormat : public DateFormat
{
public:
    explicit ICUDateFormat(OwnedFormat&& theFormat)
        : mFormat(std::move(theFormat))
    {
    }

    Characters Pattern() const override;
    void SetPattern(const Characters& thePattern) override;
    Characters Format(CFAbsoluteTime theTime) const override;
    std::optional<Reading> Parse(const Characters& theText) const override;
    bool IsLenient() const override { return udat_isLenient(mFormat.get()) != 0; }
    void SetLenient(bool theIsLenient) override;
    void SetTimeZone(CFTimeZoneRef theTimeZone) override;
    CFAbsoluteTime TwoDigitStart() const override;
    void SetTwoDigitStart(CFAbsoluteTime theTime) override;
    std::vector<Characters> Names(DateNames theNames) const override;
    void SetNames(DateNames theNames, const std::vector<Characters>& theTexts) override;

private:
    const OwnedFormat mFormat;
};

Characters ICUDateFormat::Pattern() const
{
    return TextFromICU([this](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return udat_toPattern(mFormat.get(), 0, theBuffer, theSize, theStatus);
    });
}

void ICUDateFormat::SetPattern(const Characters& thePattern)
{
    udat_applyPattern(mFormat.get(), 0, thePattern.data(), LengthOf(thePattern));
}

Characters ICUDateFormat::Format(CFAbsoluteTime theTime) const
{
    return TextFromICU([=](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return udat_format(mFormat.get(), MillisecondsOf(theTime), theBuffer, theSize, nullptr, theStatus);
    });
}

std::optional<DateFormat::Reading> ICUDateFormat::Parse(const Characters& theText) const
{
    UErrorCode theStatus = U_ZERO_ERROR;
    int32_t thePosition = 0;
    const UDate theDate =
        udat_parse(mFormat.get(), theText.data(), LengthOf(theText), &thePosition, &theStatus);
    RequireICUMemory(theStatus);
    const CFAbsoluteTime theTime = TimeOfMilliseconds(theDate);
    if (U_FAILURE(theStatus) || thePosition <= 0 || !(std::abs(theTime) <= kFarthestTime)) {
        return std::nullopt;
    }
    return Reading{theTime, static_cast<size_t>(thePosition)};
}

// Strictly, a number has to be where the format has one, and a blank where it has one.
void ICUDateFormat::SetLenient(bool theIsLenient)
{
    UErrorCode theStatus = U_ZERO_ERROR;
    udat_setLenient(mFormat.get(), theIsLenient);
    for (const UDateFormatBooleanAttribute theAttribute :
         {UDAT_PARSE_ALLOW_WHITESPACE, UDAT_PARSE_ALLOW_NUMERIC, UDAT_PARSE_PARTIAL_LITERAL_MATCH,
          UDAT_PARSE_MULTIPLE_PATTERNS_FOR_MATCH}) {
        udat_setBooleanAttribute(mFormat.get(), theAttribute, theIsLenient, &theStatus);
    }
}

void ICUDateFormat::SetTimeZone(CFTimeZoneRef theTimeZone)
{
    // A fixed distance is known to ICU by the same name, "GMT+0130".
    const Characters theName = CharactersOf(CFTimeZoneGetName(theTimeZone));
    UErrorCode theStatus = U_ZERO_ERROR;
    const Calendar theCalendar(ucal_clone(udat_getCalendar(mFormat.get()), &theStatus), ucal_close);
    RequireICUMemory(theStatus);
    if (U_SUCCESS(theStatus)) {
        ucal_setTimeZone(theCalendar.get(), theName.data(), LengthOf(theName), &theStatus);
        // As CFGregorianDate has it, the calendar was always the Gregorian one.
        ucal_setGregorianChange(theCalendar.get(), MillisecondsOf(-kFarthestTime), &theStatus);
        udat_setCalendar(mFormat.get(), theCalendar.get());
    }
}

CFAbsoluteTime ICUDateFormat::TwoDigitStart() const
{
    UErrorCode theStatus = U_ZERO_ERROR;
    return TimeOfMilliseconds(udat_get2DigitYearStart(mFormat.get(), &theStatus));
}

void ICUDateFormat::SetTwoDigitStart(CFAbsoluteTime theTime)
{
    UErrorCode theStatus = U_ZERO_ERROR;
    udat_set2DigitYearStart(mFormat.get(), MillisecondsOf(theTime), &theStatus);
}

std::vector<Characters> ICUDateFormat::Names(DateNames theNames) const
{
    const UDateFormatSymbolType theSymbols = ICUSymbols(theNames);
    std::vector<Characters> theTexts;
    for (int32_t theIndex = FirstOf(theNames); theIndex < udat_countSymbols(mFormat.get(), theSymbols);
         ++theIndex) {
        theTexts.push_back(TextFromICU([=](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
            return udat_getSymbols(mFormat.get(), theSymbols, theIndex, theBuffer, theSize, theStatus);
        }));
    }
    return theTexts;
}

void ICUDateFormat::SetNames(DateNames theNames, const std::vector<Characters>& theTexts)
{
    int32_t theIndex = FirstOf(theNames);
    for (const Characters& theText : theTexts) {
        UErrorCode theStatus = U_ZERO_ERROR;
        // ICU reads to the end of a text, and wants its length without it.
        Characters theCopy = theText;
        udat_setSymbols(mFormat.get(), ICUSymbols(theNames), theIndex++, theCopy.data(), LengthOf(theCopy),
                        &theStatus);
        RequireICUMemory(theStatus);
    }
}

UDateFormatStyle ICUStyle(CFDateFormatterStyle theStyle)
{
    static const UDateFormatStyle kStyles[] = {UDAT_NONE, UDAT_SHORT, UDAT_MEDIUM, UDAT_LONG, UDAT_FULL};
    return kStyles[theStyle];
}

} // namespace

std::unique_ptr<DateFormat> MakeDateFormat(const std::string& theLocale, CFDateFormatterStyle theDateStyle,
                                           CFDateFormatterStyle theTimeStyle)
{
    const std::string theName = theLocale + "@calendar=gregorian";
    UErrorCode theStatus = U_ZERO_ERROR;
    OwnedFormat theFormat(udat_open(ICUStyle(theTimeStyle), ICUStyle(theDateStyle), theName.c_str(), nullptr,
                                    0, nullptr, 0, &theStatus),
                          udat_close);
    RequireICUMemory(theStatus);
    if (U_FAILURE(theStatus)) {
        return nullptr;
    }
    auto theResult = std::make_unique<ICUDateFormat>(std::move(theFormat));
    theResult->SetLenient(true);
    return theResult;
}

} // namespace Host
