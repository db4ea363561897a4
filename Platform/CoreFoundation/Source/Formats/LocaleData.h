// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_LocaleData_h
#define Formats_LocaleData_h

// What is known of locales: with ICU (ICU/ICULocaleData.cpp) or without (Plain/PlainLocaleData.cpp). Locales
// go by their canonical identifiers. Throws std::bad_alloc.

#include "Characters.h"

#include <vector>

namespace Host {

std::vector<std::string> KnownLocales();

// "EUR"; empty where there is none.
std::string CurrencyOfLocale(const std::string& theLocale);

bool UsesMetricSystem(const std::string& theLocale);

} // namespace Host

#endif
