// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LocaleName.h"

#include "UserLanguages.h"

#include <algorithm>
#include <cstdlib>

namespace Host {

namespace {

bool IsLetter(char theCharacter)
{
    return (theCharacter >= 'a' && theCharacter <= 'z') || (theCharacter >= 'A' && theCharacter <= 'Z');
}

bool IsDigit(char theCharacter)
{
    return theCharacter >= '0' && theCharacter <= '9';
}

template <class Condition>
bool IsMadeOf(const std::string& theText, Condition theCondition)
{
    return std::all_of(theText.begin(), theText.end(), theCondition);
}

// The letters of ASCII alone, whatever the process's locale is.
std::string Lower(std::string theText)
{
    for (char& theCharacter : theText) {
        theCharacter =
            theCharacter >= 'A' && theCharacter <= 'Z' ? static_cast<char>(theCharacter + 32) : theCharacter;
    }
    return theText;
}

std::string Upper(std::string theText)
{
    for (char& theCharacter : theText) {
        theCharacter =
            theCharacter >= 'a' && theCharacter <= 'z' ? static_cast<char>(theCharacter - 32) : theCharacter;
    }
    return theText;
}

std::string Title(const std::string& theText)
{
    return Upper(theText.substr(0, 1)) + Lower(theText.substr(1));
}

// The part before the next separator, which is taken off as well.
std::string TakePart(std::string& ioRest)
{
    const size_t theEnd = std::min(ioRest.find_first_of("-_"), ioRest.size());
    std::string thePart = ioRest.substr(0, theEnd);
    ioRest.erase(0, theEnd + 1);
    return thePart;
}

bool IsLanguage(const std::string& theText)
{
    return (theText.size() == 2 || theText.size() == 3) && IsMadeOf(theText, IsLetter);
}

bool IsCountry(const std::string& theText)
{
    return (theText.size() == 2 && IsMadeOf(theText, IsLetter)) ||
           (theText.size() == 3 && IsMadeOf(theText, IsDigit));
}

// The code of "English"; others stay.
std::string CodeOfLanguage(const std::string& theName)
{
    const auto theNames = NamesOfLanguage(theName);
    return theNames.size() > 1 && theNames[0] == theName && !IsLanguage(theName) ? theNames[1] : theName;
}

void AddPart(const std::string& thePart, std::string& theText)
{
    if (!thePart.empty()) {
        theText.append("_").append(thePart);
    }
}

// The first of the variables that says anything.
std::string Variable()
{
    for (const char* const theName : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* const theValue = std::getenv(theName);
        if (theValue != nullptr && *theValue != '\0') {
            return theValue;
        }
    }
    return "";
}

} // namespace

LocaleName ParseLocale(const std::string& theIdentifier)
{
    LocaleName theName;
    std::string theRest = theIdentifier.substr(0, theIdentifier.find_first_of(".@"));
    const std::string theLanguage = CodeOfLanguage(TakePart(theRest));
    if (!IsLanguage(theLanguage)) {
        return theName;
    }
    theName.theLanguage = Lower(theLanguage);
    while (!theRest.empty()) {
        const std::string thePart = TakePart(theRest);
        if (thePart.size() == 4 && IsMadeOf(thePart, IsLetter) && theName.theScript.empty() &&
            theName.theCountry.empty()) {
            theName.theScript = Title(thePart);
        } else if (IsCountry(thePart) && theName.theCountry.empty() && theName.theVariant.empty()) {
            theName.theCountry = Upper(thePart);
        } else if (theName.theVariant.empty()) {
            theName.theVariant = Upper(thePart);
        } else {
            AddPart(Upper(thePart), theName.theVariant);
        }
    }
    return theName;
}

std::string TextOfLocale(const LocaleName& theName)
{
    std::string theText = theName.theLanguage;
    AddPart(theName.theScript, theText);
    AddPart(theName.theCountry, theText);
    AddPart(theName.theVariant, theText);
    return theText;
}

std::string LocaleOfEnvironment()
{
    const std::string theText = TextOfLocale(ParseLocale(Variable()));
    return theText.empty() ? "en_US" : theText;
}

} // namespace Host
