// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFLocaleObject.h"
#include "Formats/LocaleData.h"
#include "Formats/LocaleName.h"
#include "Formats/NumberFormat.h"
#include "UserLanguages.h"

const CFStringRef kCFLocaleIdentifier = CFSTR("kCFLocaleIdentifier");
const CFStringRef kCFLocaleLanguageCode = CFSTR("kCFLocaleLanguageCode");
const CFStringRef kCFLocaleCountryCode = CFSTR("kCFLocaleCountryCode");
const CFStringRef kCFLocaleScriptCode = CFSTR("kCFLocaleScriptCode");
const CFStringRef kCFLocaleVariantCode = CFSTR("kCFLocaleVariantCode");
const CFStringRef kCFLocaleDecimalSeparator = CFSTR("kCFLocaleDecimalSeparator");
const CFStringRef kCFLocaleGroupingSeparator = CFSTR("kCFLocaleGroupingSeparator");
const CFStringRef kCFLocaleCurrencySymbol = CFSTR("kCFLocaleCurrencySymbol");
const CFStringRef kCFLocaleCurrencyCode = CFSTR("kCFLocaleCurrencyCode");
const CFStringRef kCFLocaleUsesMetricSystem = CFSTR("kCFLocaleUsesMetricSystem");
const CFStringRef kCFLocaleMeasurementSystem = CFSTR("kCFLocaleMeasurementSystem");
const CFStringRef kCFLocaleCalendarIdentifier = CFSTR("kCFLocaleCalendarIdentifier");
const CFStringRef kCFGregorianCalendar = CFSTR("gregorian");

namespace {

using Host::Holder;

const __CFLocale& LocaleOf(const Host::Object* theObject)
{
    return *static_cast<const __CFLocale*>(theObject);
}

bool EqualLocales(const Host::Object* theFirst, const Host::Object* theSecond)
{
    return CFEqual(LocaleOf(theFirst).mIdentifier.Get(), LocaleOf(theSecond).mIdentifier.Get());
}

CFHashCode HashLocale(const Host::Object* theObject)
{
    return CFHash(LocaleOf(theObject).mIdentifier.Get());
}

CFStringRef DescribeLocale(const Host::Object* theObject)
{
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{identifier = ")
        .Append(LocaleOf(theObject).mIdentifier.Get())
        .Append("}")
        .CopyString();
}

CFStringRef MakeText(std::string_view theText)
{
    return theText.empty() ? nullptr : Host::StringOf(theText);
}

CFStringRef MakeText(const Host::Characters& theText)
{
    return theText.empty() ? nullptr : Host::StringOf(theText);
}

CFStringRef MakeNumberText(const __CFLocale& theLocale, CFNumberFormatterStyle theStyle,
                           Host::NumberSymbol theText)
{
    return MakeText(Host::MakeNumberFormat(theLocale.mName, theStyle)->Text(theText));
}

CFTypeRef MakeMetric(const __CFLocale& theLocale)
{
    return Host::UsesMetricSystem(theLocale.mName) ? kCFBooleanTrue : kCFBooleanFalse;
}

// What a key stands for; the caller releases it.
struct LocaleKey
{
    CFStringRef theKey;
    CFTypeRef (*theMake)(const __CFLocale& theLocale);
};

const LocaleKey kKeys[] = {
    {kCFLocaleIdentifier, [](const __CFLocale& the) { return CFRetain(the.mIdentifier.Get()); }},
    {kCFLocaleLanguageCode,
     [](const __CFLocale& the) -> CFTypeRef { return MakeText(Host::ParseLocale(the.mName).theLanguage); }},
    {kCFLocaleCountryCode,
     [](const __CFLocale& the) -> CFTypeRef { return MakeText(Host::ParseLocale(the.mName).theCountry); }},
    {kCFLocaleScriptCode,
     [](const __CFLocale& the) -> CFTypeRef { return MakeText(Host::ParseLocale(the.mName).theScript); }},
    {kCFLocaleVariantCode,
     [](const __CFLocale& the) -> CFTypeRef { return MakeText(Host::ParseLocale(the.mName).theVariant); }},
    {kCFLocaleDecimalSeparator,
     [](const __CFLocale& the) -> CFTypeRef {
         return MakeNumberText(the, kCFNumberFormatterDecimalStyle, Host::NumberSymbol::kDecimalSeparator);
     }},
    {kCFLocaleGroupingSeparator,
     [](const __CFLocale& the) -> CFTypeRef {
         return MakeNumberText(the, kCFNumberFormatterDecimalStyle, Host::NumberSymbol::kGroupingSeparator);
     }},
    {kCFLocaleCurrencySymbol,
     [](const __CFLocale& the) -> CFTypeRef {
         return Host::CurrencyOfLocale(the.mName).empty()
                    ? nullptr
                    : MakeNumberText(the, kCFNumberFormatterCurrencyStyle,
                                     Host::NumberSymbol::kCurrencySymbol);
     }},
    {kCFLocaleCurrencyCode,
     [](const __CFLocale& the) -> CFTypeRef { return MakeText(Host::CurrencyOfLocale(the.mName)); }},
    {kCFLocaleUsesMetricSystem, MakeMetric},
    {kCFLocaleMeasurementSystem,
     [](const __CFLocale& the) -> CFTypeRef {
         return MakeText(std::string_view(Host::UsesMetricSystem(the.mName) ? "Metric" : "U.S."));
     }},
    {kCFLocaleCalendarIdentifier, [](const __CFLocale&) { return CFRetain(kCFGregorianCalendar); }},
};

CFTypeRef MakeValue(const __CFLocale& theLocale, CFStringRef theKey)
{
    for (const LocaleKey& theKnown : kKeys) {
        if (CFEqual(theKnown.theKey, theKey)) {
            return theKnown.theMake(theLocale);
        }
    }
    return nullptr;
}

CFLocaleRef MakeLocale(const std::string& theName, CFStringRef theIdentifier)
{
    return new __CFLocale(std::string(theName),
                          Host::RequireMemory(CFStringCreateCopy(nullptr, theIdentifier)),
                          Host::RequireMemory(CFDictionaryCreateMutable(
                              nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks)));
}

CFLocaleRef MakeLocale(const std::string& theName)
{
    return MakeLocale(theName, Holder<CFStringRef>(Host::StringOf(theName)).Get());
}

// The canonical form; what has none stays as it is.
CFStringRef MakeCanonical(CFStringRef theIdentifier)
{
    const std::string theName =
        Host::TextOfLocale(Host::ParseLocale(Host::ASCIIOf(Host::CharactersOf(theIdentifier))));
    return theName.empty() ? static_cast<CFStringRef>(CFRetain(theIdentifier)) : Host::StringOf(theName);
}

const __CFLocale& RequireLocale(CFLocaleRef theLocale, const char* theCaller)
{
    return *Host::Require(theLocale, Host::kLocaleType, theCaller);
}

} // namespace

const Host::TypeOperations Host::kLocaleType = {
    Host::kLocaleTypeID, "CFLocale", Host::Delete<__CFLocale>, EqualLocales, HashLocale,
    DescribeLocale,      nullptr};

Holder<CFLocaleRef> Host::LocaleOrCurrent(CFLocaleRef inLocale, const char* theCaller)
{
    if (inLocale == nullptr) {
        return Holder<CFLocaleRef>(MakeLocale(LocaleOfEnvironment()));
    }
    return Holder<CFLocaleRef>(static_cast<CFLocaleRef>(CFRetain(Require(inLocale, kLocaleType, theCaller))));
}

CFTypeID CFLocaleGetTypeID()
{
    return Host::kLocaleTypeID;
}

CFLocaleRef CFLocaleCopyCurrent()
{
    return Host::NothingWithoutMemory([] { return MakeLocale(Host::LocaleOfEnvironment()); });
}

CFLocaleRef CFLocaleGetSystem()
{
    return Host::NothingWithoutMemory([] {
        static const CFLocaleRef kSystem = MakeLocale("");
        return kSystem;
    });
}

CFLocaleRef CFLocaleCreate(CFAllocatorRef, CFStringRef inIdentifier)
{
    Host::Require(inIdentifier, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([=] {
        const Holder<CFStringRef> theIdentifier(MakeCanonical(inIdentifier));
        return MakeLocale(
            Host::TextOfLocale(Host::ParseLocale(Host::ASCIIOf(Host::CharactersOf(theIdentifier.Get())))),
            theIdentifier.Get());
    });
}

CFLocaleRef CFLocaleCreateCopy(CFAllocatorRef, CFLocaleRef inLocale)
{
    return static_cast<CFLocaleRef>(CFRetain(&RequireLocale(inLocale, __func__)));
}

CFStringRef CFLocaleGetIdentifier(CFLocaleRef inLocale)
{
    return RequireLocale(inLocale, __func__).mIdentifier.Get();
}

CFTypeRef CFLocaleGetValue(CFLocaleRef inLocale, CFStringRef inKey)
{
    const __CFLocale& theLocale = RequireLocale(inLocale, __func__);
    Host::Require(inKey, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([&]() -> CFTypeRef {
        const std::lock_guard<std::mutex> theLock(theLocale.mMutex);
        if (CFDictionaryGetValue(theLocale.mValues.Get(), inKey) == nullptr) {
            const Holder<CFTypeRef> theValue(MakeValue(theLocale, inKey));
            if (theValue.Get() != nullptr) {
                CFDictionarySetValue(theLocale.mValues.Get(), inKey, theValue.Get());
            }
        }
        return CFDictionaryGetValue(theLocale.mValues.Get(), inKey);
    });
}

CFArrayRef CFLocaleCopyAvailableLocaleIdentifiers()
{
    return Host::NothingWithoutMemory([] { return Host::MakeArray(Host::KnownLocales()); });
}

CFArrayRef CFLocaleCopyPreferredLanguages()
{
    return Host::NothingWithoutMemory([] { return Host::MakeArray(Host::UserLanguages()); });
}

CFStringRef CFLocaleCreateCanonicalLocaleIdentifierFromString(CFAllocatorRef, CFStringRef inIdentifier)
{
    Host::Require(inIdentifier, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([=] { return MakeCanonical(inIdentifier); });
}
