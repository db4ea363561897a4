// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Formats/LocaleData.h"

#include "Buffers.h"

#include <unicode/ucurr.h>
#include <unicode/uloc.h>
#include <unicode/ulocdata.h>

std::vector<std::string> Host::KnownLocales()
{
    std::vector<std::string> theLocales;
    const int32_t theCount = uloc_countAvailable();
    theLocales.reserve(static_cast<size_t>(theCount));
    for (int32_t theIndex = 0; theIndex < theCount; ++theIndex) {
        theLocales.emplace_back(uloc_getAvailable(theIndex));
    }
    std::sort(theLocales.begin(), theLocales.end());
    return theLocales;
}

std::string Host::CurrencyOfLocale(const std::string& theLocale)
{
    return ASCIIOf(TextFromICU([&](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return ucurr_forLocale(theLocale.c_str(), theBuffer, theSize, theStatus);
    }));
}

bool Host::UsesMetricSystem(const std::string& theLocale)
{
    UErrorCode theStatus = U_ZERO_ERROR;
    return ulocdata_getMeasurementSystem(theLocale.c_str(), &theStatus) != UMS_US;
}
