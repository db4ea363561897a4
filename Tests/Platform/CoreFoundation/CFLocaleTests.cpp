// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FormatsTestSupport.h"

#include <cstdlib>

namespace {

std::string CanonicalOf(const std::string& theIdentifier)
{
    return TextOf(Owned(CFLocaleCreateCanonicalLocaleIdentifierFromString(nullptr, String(theIdentifier))));
}

// The environment of the process, which is as it was at the end of the scope.
class Environment
{
public:
    Environment(const char* theLCAll, const char* theLCNumeric, const char* theLang)
    {
        Set(0, theLCAll);
        Set(1, theLCNumeric);
        Set(2, theLang);
    }
    ~Environment()
    {
        for (size_t theIndex = 0; theIndex < 3; ++theIndex) {
            Set(theIndex, mOld[theIndex].first ? mOld[theIndex].second.c_str() : nullptr);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    static constexpr const char* kNames[] = {"LC_ALL", "LC_NUMERIC", "LANG"};

    static std::pair<bool, std::string> Get(size_t theIndex)
    {
        const char* const theValue = std::getenv(kNames[theIndex]);
        return {theValue != nullptr, theValue == nullptr ? "" : theValue};
    }
    static void Set(size_t theIndex, const char* theValue)
    {
        if (theValue == nullptr) {
            unsetenv(kNames[theIndex]);
        } else {
            setenv(kNames[theIndex], theValue, 1);
        }
    }

    const std::pair<bool, std::string> mOld[3] = {Get(0), Get(1), Get(2)};
};

std::string CurrentIdentifier()
{
    return TextOf(CFLocaleGetIdentifier(Owned(CFLocaleCopyCurrent())));
}

} // namespace

TEST(CFLocale, HasATypeOfItsOwn)
{
    EXPECT_EQ(CFGetTypeID(Locale("en_US")), CFLocaleGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFLocaleGetTypeID()))), "CFLocale");
    EXPECT_EQ(DescriptionOf(Locale("en_US")), "{identifier = en_US}");
}

TEST(CFLocale, IsEqualWhenItsIdentifierIs)
{
    EXPECT_TRUE(CFEqual(Locale("en_US"), Locale("en-us")));
    EXPECT_EQ(CFHash(Locale("en_US")), CFHash(Locale("en-us")));
    EXPECT_FALSE(CFEqual(Locale("en_US"), Locale("en_GB")));
    const auto theLocale = Locale("en_US");
    const Owned<CFLocaleRef> theCopy(CFLocaleCreateCopy(nullptr, theLocale));
    EXPECT_EQ(static_cast<CFLocaleRef>(theCopy), static_cast<CFLocaleRef>(theLocale));
    EXPECT_EQ(CFGetRetainCount(theLocale), 2);
}

TEST(CFLocale, IdentifiersHaveOneForm)
{
    EXPECT_EQ(CanonicalOf("en_US"), "en_US");
    EXPECT_EQ(CanonicalOf("de-at"), "de_AT");
    EXPECT_EQ(CanonicalOf("DE_at.UTF-8@euro"), "de_AT");
    EXPECT_EQ(CanonicalOf("zh-hant-TW"), "zh_Hant_TW");
    EXPECT_EQ(CanonicalOf("es-419"), "es_419");
    EXPECT_EQ(CanonicalOf("en_US_POSIX"), "en_US_POSIX");
    EXPECT_EQ(CanonicalOf("de__phonebook_x"), "de_PHONEBOOK_X");
    EXPECT_EQ(CanonicalOf("English"), "en");
    EXPECT_EQ(CanonicalOf("German"), "de");
}

TEST(CFLocale, WhatIsNoIdentifierStaysAsItIs)
{
    for (const char* const theText : {"", "C", "Klingon", "_US", "12", "d\xC3\xA9_AT"}) {
        EXPECT_EQ(CanonicalOf(theText), theText);
        EXPECT_EQ(TextOf(CFLocaleGetIdentifier(Locale(theText))), theText);
    }
    EXPECT_EQ(CFLocaleGetValue(Locale("Klingon"), kCFLocaleLanguageCode), nullptr);
}

TEST(CFLocale, TellsThePartsOfItsIdentifier)
{
    EXPECT_EQ(ValueOf("zh_Hant_TW", kCFLocaleIdentifier), "zh_Hant_TW");
    EXPECT_EQ(ValueOf("zh_Hant_TW", kCFLocaleLanguageCode), "zh");
    EXPECT_EQ(ValueOf("zh_Hant_TW", kCFLocaleScriptCode), "Hant");
    EXPECT_EQ(ValueOf("zh_Hant_TW", kCFLocaleCountryCode), "TW");
    EXPECT_EQ(ValueOf("en_US_POSIX", kCFLocaleVariantCode), "POSIX");
    EXPECT_EQ(ValueOf("de", kCFLocaleCountryCode), "(NULL)");
    EXPECT_EQ(ValueOf("de", kCFLocaleScriptCode), "(NULL)");
    EXPECT_EQ(ValueOf("de", kCFLocaleVariantCode), "(NULL)");
    EXPECT_EQ(ValueOf("de", CFSTR("no key")), "(NULL)");
    EXPECT_EQ(ValueOf("de", kCFLocaleCalendarIdentifier), TextOf(kCFGregorianCalendar));
}

TEST(CFLocale, TellsHowAmericansWrite)
{
    EXPECT_EQ(ValueOf("en_US", kCFLocaleDecimalSeparator), ".");
    EXPECT_EQ(ValueOf("en_US", kCFLocaleGroupingSeparator), ",");
    EXPECT_EQ(ValueOf("en_US", kCFLocaleCurrencySymbol), "$");
    EXPECT_EQ(ValueOf("en_US", kCFLocaleCurrencyCode), "USD");
    EXPECT_EQ(ValueOf("en_US", kCFLocaleMeasurementSystem), "U.S.");
    EXPECT_EQ(CFLocaleGetValue(Locale("en_US"), kCFLocaleUsesMetricSystem), kCFBooleanFalse);
    EXPECT_EQ(CFLocaleGetValue(Locale("en_CA"), kCFLocaleUsesMetricSystem), kCFBooleanTrue);
    EXPECT_EQ(ValueOf("en", kCFLocaleCurrencyCode), "(NULL)");
    EXPECT_EQ(ValueOf("en", kCFLocaleCurrencySymbol), "(NULL)");
}

TEST(CFLocale, ItsValuesLiveAsLongAsItDoes)
{
    const auto theLocale = Locale("en_US");
    const CFTypeRef theSeparator = CFLocaleGetValue(theLocale, kCFLocaleDecimalSeparator);
    EXPECT_EQ(CFLocaleGetValue(theLocale, kCFLocaleDecimalSeparator), theSeparator);
    EXPECT_EQ(TextOf(static_cast<CFStringRef>(theSeparator)), ".");
}

TEST(CFLocale, TheCurrentOneIsThatOfTheEnvironment)
{
    const Environment theFirst("de_AT.UTF-8", "fr_FR", "ja_JP");
    EXPECT_EQ(CurrentIdentifier(), "de_AT");
    const Environment theSecond("", "fr_FR", "ja_JP");
    EXPECT_EQ(CurrentIdentifier(), "fr_FR");
    const Environment theThird(nullptr, nullptr, "ja_JP.eucJP");
    EXPECT_EQ(CurrentIdentifier(), "ja_JP");
    const Environment theFourth(nullptr, nullptr, nullptr);
    EXPECT_EQ(CurrentIdentifier(), "en_US");
    const Environment theFifth("C.UTF-8", nullptr, "ja_JP");
    EXPECT_EQ(CurrentIdentifier(), "en_US");
}

TEST(CFLocale, TheSystemsIsTheSameForEverybody)
{
    const CFLocaleRef theSystem = CFLocaleGetSystem();
    EXPECT_EQ(CFLocaleGetSystem(), theSystem);
    EXPECT_EQ(TextOf(CFLocaleGetIdentifier(theSystem)), "");
    EXPECT_EQ(TextOf(static_cast<CFStringRef>(CFLocaleGetValue(theSystem, kCFLocaleDecimalSeparator))), ".");
}

TEST(CFLocale, ThereIsAListOfThoseThatAreKnown)
{
    EXPECT_TRUE(KnowsLocale("en"));
    EXPECT_TRUE(KnowsLocale("en_US"));
    EXPECT_FALSE(KnowsLocale("xx_YY"));
    const Owned<CFArrayRef> theKnown(CFLocaleCopyAvailableLocaleIdentifiers());
    for (CFIndex theIndex = 1; theIndex < CFArrayGetCount(theKnown); ++theIndex) {
        EXPECT_EQ(CompareStrings(CFArrayGetValueAtIndex(theKnown, theIndex - 1),
                                 CFArrayGetValueAtIndex(theKnown, theIndex), nullptr),
                  kCFCompareLessThan);
    }
}

TEST(CFLocale, ThePreferredLanguagesAreThoseOfTheEnvironment)
{
    const Environment theEnvironment("de_AT.UTF-8", nullptr, nullptr);
    const Owned<CFArrayRef> theLanguages(CFLocaleCopyPreferredLanguages());
    ASSERT_EQ(CFArrayGetCount(theLanguages), 2);
    EXPECT_EQ(TextOf(static_cast<CFStringRef>(CFArrayGetValueAtIndex(theLanguages, 0))), "de_AT");
    EXPECT_EQ(TextOf(static_cast<CFStringRef>(CFArrayGetValueAtIndex(theLanguages, 1))), "en");
}
