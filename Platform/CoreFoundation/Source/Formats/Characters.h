// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_Characters_h
#define Formats_Characters_h

// Text as formats work on it. Throws std::bad_alloc.

#include "CFStringObject.h"

#include <string>
#include <string_view>
#include <vector>

namespace Host {

using Characters = std::u16string;
using CharactersView = std::u16string_view;

inline Characters CharactersOf(CFStringRef theString)
{
    return Characters(theString->mUnits.begin(), theString->mUnits.end());
}

// Characters of ASCII.
inline Characters CharactersOf(std::string_view theText)
{
    return Characters(theText.begin(), theText.end());
}

// The characters of ASCII in a text, for identifiers; '?' for others.
inline std::string ASCIIOf(CharactersView theCharacters)
{
    std::string theText;
    for (const char16_t theCharacter : theCharacters) {
        theText.push_back(theCharacter < 0x80 ? static_cast<char>(theCharacter) : '?');
    }
    return theText;
}

// The caller releases it.
inline CFStringRef StringOf(CharactersView theCharacters)
{
    return MakeString(Units(theCharacters.begin(), theCharacters.end()));
}

inline CFStringRef StringOf(std::string_view theText)
{
    return MakeString(Units(theText.begin(), theText.end()));
}

// An array of strings of ASCII; the caller releases it.
CFArrayRef MakeArray(const std::vector<std::string>& theTexts);

} // namespace Host

#endif
