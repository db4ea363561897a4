// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Formats/LocaleData.h"

#include "Formats/LocaleName.h"

std::vector<std::string> Host::KnownLocales()
{
    return {"en", "en_US"};
}

std::string Host::CurrencyOfLocale(const std::string& theLocale)
{
    return ParseLocale(theLocale).theCountry == "US" ? "USD" : "";
}

bool Host::UsesMetricSystem(const std::string& theLocale)
{
    return ParseLocale(theLocale).theCountry != "US";
}
