// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_LocaleName_h
#define Formats_LocaleName_h

#include <string>

namespace Host {

// The parts of "zh_Hant_TW"; empty where there is none.
struct LocaleName
{
    std::string theLanguage; // in small letters
    std::string theScript;   // with a capital
    std::string theCountry;  // in capitals, or digits
    std::string theVariant;  // in capitals
};

// Of an identifier as others write it: with hyphens, in any letters, with the name of an encoding, or one of
// the old names of languages ("English"). Without a language when it is none.
LocaleName ParseLocale(const std::string& theIdentifier);

// The canonical identifier.
std::string TextOfLocale(const LocaleName& theName);

// What the environment says that numbers and dates are written in; en_US where it says nothing.
std::string LocaleOfEnvironment();

} // namespace Host

#endif
