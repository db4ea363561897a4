// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmCharacters.h"

#include <algorithm>
#include <vector>

namespace {

bool IsBlank(char16_t theCharacter)
{
    return theCharacter == u' ' || (theCharacter >= u'\t' && theCharacter <= u'\r') ||
           theCharacter == u'\u00A0' || (theCharacter >= u'\u2000' && theCharacter <= u'\u200A') ||
           theCharacter == u'\u202F' || theCharacter == u'\u205F' || theCharacter == u'\u3000';
}

// Says in which direction text runs, and is not seen.
bool IsDirection(char16_t theCharacter)
{
    return theCharacter == u'\u061C' || theCharacter == u'\u200E' || theCharacter == u'\u200F' ||
           (theCharacter >= u'\u202A' && theCharacter <= u'\u202E') ||
           (theCharacter >= u'\u2066' && theCharacter <= u'\u2069');
}

char16_t PlainCharacter(char16_t theCharacter)
{
    switch (theCharacter) {
    case u'\u2212':
    case u'\u2010':
    case u'\u2011':
    case u'\uFE63':
    case u'\uFF0D':
        return u'-';
    case u'\u2019':
    case u'\u02BC':
        return u'\'';
    default:
        return IsBlank(theCharacter) ? u' ' : theCharacter;
    }
}

} // namespace

LmCharacters LmCharactersOf(CFStringRef theString)
{
    const CFIndex theLength = CFStringGetLength(theString);
    std::vector<UniChar> theUnits(static_cast<std::size_t>(theLength));
    CFStringGetCharacters(theString, CFRangeMake(0, theLength), theUnits.data());
    return LmCharacters(theUnits.begin(), theUnits.end());
}

LmValue LmTextValue(const LmCharacters& theCharacters)
{
    const std::vector<UniChar> theUnits(theCharacters.begin(), theCharacters.end());
    const CFStringRef theString =
        CFStringCreateWithCharacters(nullptr, theUnits.data(), static_cast<CFIndex>(theUnits.size()));
    return theString == nullptr ? LmValue() : LmValue(theString, true);
}

LmCharacters LmPlainCharacters(const LmCharacters& theText)
{
    LmCharacters thePlain = theText;
    thePlain.erase(std::remove_if(thePlain.begin(), thePlain.end(), IsDirection), thePlain.end());
    std::transform(thePlain.begin(), thePlain.end(), thePlain.begin(), PlainCharacter);
    thePlain.erase(thePlain.find_last_not_of(u' ') + 1);
    thePlain.erase(0, std::min(thePlain.find_first_not_of(u' '), thePlain.size()));
    return thePlain;
}

LmReading LmRefusal(CFStringRef theSentence, const LmCharacters& theFirst, const LmCharacters& theSecond)
{
    const LmScopedReference<CFStringRef> theFormat(CFBundleCopyLocalizedString(
        CFBundleGetMainBundle(), theSentence, theSentence, CFSTR("LmFormatters")));
    const LmValue theOne = LmTextValue(theFirst);
    const LmValue theOther = LmTextValue(theSecond);
    if (theFormat.Get() == nullptr || !theOne.IsString() || !theOther.IsString()) {
        return LmReading::Refuse(nullptr, false);
    }
    return LmReading::Refuse(
        CFStringCreateWithFormat(nullptr, nullptr, theFormat.Get(), theOne.GetString(), theOther.GetString()),
        true);
}
