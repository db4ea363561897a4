// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "UserLanguages.h"

#include <algorithm>
#include <cstdlib>

namespace Host {

namespace {

struct LanguageName
{
    const char* theCode;
    const char* theName;
};

// Names that were used before there were codes.
constexpr LanguageName kNames[] = {{"en", "English"}, {"fr", "French"},  {"de", "German"},  {"it", "Italian"},
                                   {"nl", "Dutch"},   {"es", "Spanish"}, {"ja", "Japanese"}};

std::string Variable(const char* theName)
{
    const char* const theValue = std::getenv(theName);
    return theValue == nullptr ? "" : theValue;
}

// de_AT of de_AT.UTF-8@euro. Empty for the locales of the system itself, whose names are no codes of
// languages: those are in small letters.
std::string LanguageOfLocale(const std::string& theLocale)
{
    const std::string theLanguage = theLocale.substr(0, theLocale.find_first_of(".@"));
    const bool theIsCode = !theLanguage.empty() && theLanguage[0] >= 'a' && theLanguage[0] <= 'z';
    return theIsCode ? theLanguage : "";
}

std::string LocaleOfMessages()
{
    for (const char* const theName : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string theLocale = Variable(theName);
        if (!theLocale.empty()) {
            return LanguageOfLocale(theLocale);
        }
    }
    return "";
}

void AddOnce(const std::string& theText, std::vector<std::string>& theTexts)
{
    if (!theText.empty() && std::find(theTexts.begin(), theTexts.end(), theText) == theTexts.end()) {
        theTexts.push_back(theText);
    }
}

} // namespace

std::vector<std::string> UserLanguages()
{
    std::vector<std::string> theLanguages;
    const std::string theLocale = LocaleOfMessages();
    if (theLocale.empty()) {
        // As everywhere: without a language of its own, a process does not look at the list of others.
        return {"en"};
    }
    std::string theList = Variable("LANGUAGE");
    while (!theList.empty()) {
        const size_t theEnd = std::min(theList.find(':'), theList.size());
        AddOnce(LanguageOfLocale(theList.substr(0, theEnd)), theLanguages);
        theList.erase(0, theEnd + 1);
    }
    AddOnce(theLocale, theLanguages);
    AddOnce("en", theLanguages);
    return theLanguages;
}

std::vector<std::string> NamesOfLanguage(const std::string& theLanguage)
{
    std::vector<std::string> theResult;
    AddOnce(theLanguage, theResult);
    std::string theCode = theLanguage.substr(0, theLanguage.find_first_of("_-"));
    for (const LanguageName& theName : kNames) {
        if (theCode == theName.theName) {
            theCode = theName.theCode;
        }
    }
    AddOnce(theCode, theResult);
    for (const LanguageName& theName : kNames) {
        if (theCode == theName.theCode) {
            AddOnce(theName.theName, theResult);
        }
    }
    return theResult;
}

} // namespace Host
