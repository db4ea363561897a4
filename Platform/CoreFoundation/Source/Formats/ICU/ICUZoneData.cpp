// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Formats/ZoneData.h"

#include "Buffers.h"
#include "Moments.h"

#include <cstdlib>
#include <unicode/ucal.h>
#include <unicode/uenum.h>

namespace Host {

namespace {

using Calendar = std::unique_ptr<UCalendar, decltype(&ucal_close)>;

class ICUZoneData : public ZoneData
{
public:
    explicit ICUZoneData(Calendar&& theCalendar)
        : mCalendar(std::move(theCalendar))
    {
    }

    Offset OffsetAt(CFAbsoluteTime theTime) override
    {
        UErrorCode theStatus = U_ZERO_ERROR;
        ucal_setMillis(mCalendar.get(), MillisecondsOf(theTime), &theStatus);
        const int32_t theRegular = ucal_get(mCalendar.get(), UCAL_ZONE_OFFSET, &theStatus);
        const int32_t theSummer = ucal_get(mCalendar.get(), UCAL_DST_OFFSET, &theStatus);
        RequireICUMemory(theStatus);
        return U_SUCCESS(theStatus) ? Offset{(theRegular + theSummer) / 1000, theSummer != 0}
                                    : Offset{0, false};
    }

    Characters Abbreviation(bool theIsDaylightSaving) override
    {
        return TextFromICU([=](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
            return ucal_getTimeZoneDisplayName(mCalendar.get(),
                                               theIsDaylightSaving ? UCAL_SHORT_DST : UCAL_SHORT_STANDARD,
                                               "en_US", theBuffer, theSize, theStatus);
        });
    }

private:
    const Calendar mCalendar;
};

// ICU takes any name, and makes Greenwich of those that it does not know.
bool IsKnown(const Characters& theName)
{
    return !TextFromICU([&](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
                UBool theIsSystemID = 0;
                const int32_t theLength = ucal_getCanonicalTimeZoneID(
                    theName.c_str(), LengthOf(theName), theBuffer, theSize, &theIsSystemID, theStatus);
                return theIsSystemID ? theLength : 0;
            }).empty();
}

} // namespace

std::unique_ptr<ZoneData> MakeZoneData(const std::string& theName)
{
    const Characters theCharacters = CharactersOf(theName);
    UErrorCode theStatus = U_ZERO_ERROR;
    if (!IsKnown(theCharacters)) {
        return nullptr;
    }
    Calendar theCalendar(
        ucal_open(theCharacters.c_str(), LengthOf(theCharacters), "en_US", UCAL_GREGORIAN, &theStatus),
        ucal_close);
    RequireICUMemory(theStatus);
    return U_SUCCESS(theStatus) ? std::make_unique<ICUZoneData>(std::move(theCalendar)) : nullptr;
}

std::vector<std::string> KnownZones()
{
    std::vector<std::string> theNames;
    UErrorCode theStatus = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> theList(ucal_openTimeZones(&theStatus),
                                                                        uenum_close);
    RequireICUMemory(theStatus);
    while (const char* const theName = uenum_next(theList.get(), nullptr, &theStatus)) {
        theNames.emplace_back(theName);
    }
    std::sort(theNames.begin(), theNames.end());
    return theNames;
}

std::string NameOfSystemZone()
{
    return ASCIIOf(TextFromICU([](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return ucal_getHostTimeZone(theBuffer, theSize, theStatus);
    }));
}

} // namespace Host
