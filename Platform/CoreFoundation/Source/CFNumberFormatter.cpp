// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CFNumberFormatter.h>

#include "CFLocaleObject.h"
#include "CFNumberObject.h"
#include "Formats/LocaleName.h"
#include "Formats/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

const CFStringRef kCFNumberFormatterCurrencyCode = CFSTR("kCFNumberFormatterCurrencyCode");
const CFStringRef kCFNumberFormatterDecimalSeparator = CFSTR("kCFNumberFormatterDecimalSeparator");
const CFStringRef kCFNumberFormatterCurrencyDecimalSeparator =
    CFSTR("kCFNumberFormatterCurrencyDecimalSeparator");
const CFStringRef kCFNumberFormatterAlwaysShowDecimalSeparator =
    CFSTR("kCFNumberFormatterAlwaysShowDecimalSeparator");
const CFStringRef kCFNumberFormatterGroupingSeparator = CFSTR("kCFNumberFormatterGroupingSeparator");
const CFStringRef kCFNumberFormatterUseGroupingSeparator = CFSTR("kCFNumberFormatterUseGroupingSeparator");
const CFStringRef kCFNumberFormatterPercentSymbol = CFSTR("kCFNumberFormatterPercentSymbol");
const CFStringRef kCFNumberFormatterZeroSymbol = CFSTR("kCFNumberFormatterZeroSymbol");
const CFStringRef kCFNumberFormatterNaNSymbol = CFSTR("kCFNumberFormatterNaNSymbol");
const CFStringRef kCFNumberFormatterInfinitySymbol = CFSTR("kCFNumberFormatterInfinitySymbol");
const CFStringRef kCFNumberFormatterMinusSign = CFSTR("kCFNumberFormatterMinusSign");
const CFStringRef kCFNumberFormatterPlusSign = CFSTR("kCFNumberFormatterPlusSign");
const CFStringRef kCFNumberFormatterCurrencySymbol = CFSTR("kCFNumberFormatterCurrencySymbol");
const CFStringRef kCFNumberFormatterExponentSymbol = CFSTR("kCFNumberFormatterExponentSymbol");
const CFStringRef kCFNumberFormatterMinIntegerDigits = CFSTR("kCFNumberFormatterMinIntegerDigits");
const CFStringRef kCFNumberFormatterMaxIntegerDigits = CFSTR("kCFNumberFormatterMaxIntegerDigits");
const CFStringRef kCFNumberFormatterMinFractionDigits = CFSTR("kCFNumberFormatterMinFractionDigits");
const CFStringRef kCFNumberFormatterMaxFractionDigits = CFSTR("kCFNumberFormatterMaxFractionDigits");
const CFStringRef kCFNumberFormatterGroupingSize = CFSTR("kCFNumberFormatterGroupingSize");
const CFStringRef kCFNumberFormatterSecondaryGroupingSize = CFSTR("kCFNumberFormatterSecondaryGroupingSize");
const CFStringRef kCFNumberFormatterRoundingMode = CFSTR("kCFNumberFormatterRoundingMode");
const CFStringRef kCFNumberFormatterRoundingIncrement = CFSTR("kCFNumberFormatterRoundingIncrement");
const CFStringRef kCFNumberFormatterFormatWidth = CFSTR("kCFNumberFormatterFormatWidth");
const CFStringRef kCFNumberFormatterPaddingPosition = CFSTR("kCFNumberFormatterPaddingPosition");
const CFStringRef kCFNumberFormatterPaddingCharacter = CFSTR("kCFNumberFormatterPaddingCharacter");
const CFStringRef kCFNumberFormatterDefaultFormat = CFSTR("kCFNumberFormatterDefaultFormat");
const CFStringRef kCFNumberFormatterMultiplier = CFSTR("kCFNumberFormatterMultiplier");
const CFStringRef kCFNumberFormatterPositivePrefix = CFSTR("kCFNumberFormatterPositivePrefix");
const CFStringRef kCFNumberFormatterPositiveSuffix = CFSTR("kCFNumberFormatterPositiveSuffix");
const CFStringRef kCFNumberFormatterNegativePrefix = CFSTR("kCFNumberFormatterNegativePrefix");
const CFStringRef kCFNumberFormatterNegativeSuffix = CFSTR("kCFNumberFormatterNegativeSuffix");
const CFStringRef kCFNumberFormatterPerMillSymbol = CFSTR("kCFNumberFormatterPerMillSymbol");
const CFStringRef kCFNumberFormatterInternationalCurrencySymbol =
    CFSTR("kCFNumberFormatterInternationalCurrencySymbol");
const CFStringRef kCFNumberFormatterCurrencyGroupingSeparator =
    CFSTR("kCFNumberFormatterCurrencyGroupingSeparator");
const CFStringRef kCFNumberFormatterIsLenient = CFSTR("kCFNumberFormatterIsLenient");

struct __CFNumberFormatter : Host::Object
{
    __CFNumberFormatter(Host::Holder<CFLocaleRef>&& theLocale, CFNumberFormatterStyle theStyle,
                        std::unique_ptr<Host::NumberFormat>&& theFormat)
        : Object(Host::kNumberFormatterType),
          mLocale(std::move(theLocale)),
          mStyle(theStyle),
          mFormat(std::move(theFormat)),
          mDefaultPattern(Host::StringOf(mFormat->Pattern())),
          mPattern(nullptr),
          mZeroSymbol(nullptr)
    {
    }

    const Host::Holder<CFLocaleRef> mLocale;
    const CFNumberFormatterStyle mStyle;
    const std::unique_ptr<Host::NumberFormat> mFormat;
    const Host::Holder<CFStringRef> mDefaultPattern;
    Host::Holder<CFStringRef> mPattern;    // the last that was asked for
    Host::Holder<CFStringRef> mZeroSymbol; // null when 0 is a number like others
};

namespace {

using Host::Characters;
using Host::Holder;
using Host::NumberAttribute;
using Host::NumberFormat;
using Host::NumberSymbol;

const __CFNumberFormatter& FormatterOf(const Host::Object* theObject)
{
    return *static_cast<const __CFNumberFormatter*>(theObject);
}

CFStringRef DescribeFormatter(const Host::Object* theObject)
{
    const __CFNumberFormatter& theFormatter = FormatterOf(theObject);
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{style = " + std::to_string(theFormatter.mStyle) + ", locale = ")
        .Append(CFLocaleGetIdentifier(theFormatter.mLocale.Get()))
        .Append(", format = ")
        .Append(Holder<CFStringRef>(Host::StringOf(theFormatter.mFormat->Pattern())).Get())
        .Append("}")
        .CopyString();
}

__CFNumberFormatter& RequireFormatter(CFNumberFormatterRef theFormatter, const char* theCaller)
{
    return *Host::Require(theFormatter, Host::kNumberFormatterType, theCaller);
}

// Programs know these by heart, whatever newer data say: that of no style for every locale, the others for
// English without a country, and that of the United States.
const char16_t* PatternOfStyle(const std::string& theLocale, CFNumberFormatterStyle theStyle)
{
    if (theStyle == kCFNumberFormatterNoStyle) {
        return u"0";
    }
    if (theStyle == kCFNumberFormatterCurrencyStyle && (theLocale == "en" || theLocale == "en_US")) {
        return u"¤#,##0.00;(¤#,##0.00)";
    }
    return nullptr;
}

CFNumberFormatterRef MakeFormatter(CFLocaleRef inLocale, CFNumberFormatterStyle theStyle,
                                   const char* theCaller)
{
    Holder<CFLocaleRef> theLocale = Host::LocaleOrCurrent(inLocale, theCaller);
    if (theStyle < kCFNumberFormatterNoStyle || theStyle > kCFNumberFormatterSpellOutStyle) {
        return nullptr;
    }
    const std::string& theName = theLocale.Get()->mName;
    std::unique_ptr<NumberFormat> theFormat = Host::MakeNumberFormat(theName, theStyle);
    if (theFormat == nullptr) {
        return nullptr;
    }
    if (const char16_t* const thePattern = PatternOfStyle(theName, theStyle)) {
        theFormat->SetPattern(thePattern);
    }
    return new __CFNumberFormatter(std::move(theLocale), theStyle, std::move(theFormat));
}

// Writing

bool IsZero(const __CFNumber& theNumber)
{
    return theNumber.IsFloat() ? theNumber.mFloat == 0 : theNumber.mInteger == 0;
}

CFStringRef WriteNumber(const __CFNumberFormatter& theFormatter, const __CFNumber& theNumber)
{
    if (theFormatter.mZeroSymbol.Get() != nullptr && IsZero(theNumber)) {
        return CFStringCreateCopy(nullptr, theFormatter.mZeroSymbol.Get());
    }
    return Host::StringOf(theNumber.IsFloat() ? theFormatter.mFormat->Format(theNumber.mFloat)
                                              : theFormatter.mFormat->Format(theNumber.mInteger));
}

// Reading

template <class Class>
void Store(void* theValue, Class theNewValue)
{
    if (theValue != nullptr) {
        std::memcpy(theValue, &theNewValue, sizeof theNewValue);
    }
}

template <class Class>
bool StoreInteger(const NumberFormat::Reading& theReading, void* outValue)
{
    const auto theInteger = theReading.theOther ? std::nullopt : Host::IntegerOf(theReading.theDecimal);
    if (!theInteger || *theInteger < std::numeric_limits<Class>::min() ||
        *theInteger > std::numeric_limits<Class>::max()) {
        return false;
    }
    Store(outValue, static_cast<Class>(*theInteger));
    return true;
}

bool StoreFloat(const NumberFormat::Reading& theReading, bool theIsShort, void* outValue)
{
    const double theNumber =
        theReading.theOther ? *theReading.theOther : Host::DoubleOf(theReading.theDecimal);
    const bool theIsTooLarge = theIsShort && std::isfinite(theNumber) &&
                               std::abs(theNumber) > static_cast<double>(std::numeric_limits<float>::max());
    if (theIsTooLarge || (!theReading.theOther && !std::isfinite(theNumber))) {
        return false;
    }
    if (theIsShort) {
        Store(outValue, static_cast<float>(theNumber));
    } else {
        Store(outValue, theNumber);
    }
    return true;
}

// One of the six types that differ; 0 for an unknown one.
CFNumberType PlainType(CFNumberType theType)
{
    static const CFNumberType kLong = sizeof(long) == 8 ? kCFNumberSInt64Type : kCFNumberSInt32Type;
    static const CFNumberType kPlain[] = {0,
                                          kCFNumberSInt8Type,
                                          kCFNumberSInt16Type,
                                          kCFNumberSInt32Type,
                                          kCFNumberSInt64Type,
                                          kCFNumberFloat32Type,
                                          kCFNumberFloat64Type,
                                          kCFNumberSInt8Type,
                                          kCFNumberSInt16Type,
                                          kCFNumberSInt32Type,
                                          kLong,
                                          kCFNumberSInt64Type,
                                          kCFNumberFloat32Type,
                                          kCFNumberFloat64Type,
                                          kLong,
                                          kLong,
                                          kCFNumberFloat32Type};
    return theType < 0 || theType > kCFNumberMaxType ? 0 : kPlain[theType];
}

bool StoreReading(const NumberFormat::Reading& theReading, CFNumberType theType, void* outValue)
{
    switch (theType) {
    case kCFNumberSInt8Type:
        return StoreInteger<SInt8>(theReading, outValue);
    case kCFNumberSInt16Type:
        return StoreInteger<SInt16>(theReading, outValue);
    case kCFNumberSInt32Type:
        return StoreInteger<SInt32>(theReading, outValue);
    case kCFNumberSInt64Type:
        return StoreInteger<SInt64>(theReading, outValue);
    default:
        return StoreFloat(theReading, theType == kCFNumberFloat32Type, outValue);
    }
}

bool ReadNumber(const __CFNumberFormatter& theFormatter, CFStringRef theString, CFRange* ioRange,
                CFNumberType theType, void* outValue)
{
    const CFRange theRange =
        Host::ClipRange(theString, ioRange == nullptr ? CFRangeMake(0, theString->GetLength()) : *ioRange);
    const Characters theText = Host::CharactersOf(theString).substr(static_cast<size_t>(theRange.location),
                                                                    static_cast<size_t>(theRange.length));
    NumberFormat::Reading theReading{{}, std::nullopt, theText.size()};
    const bool theIsZero = theFormatter.mZeroSymbol.Get() != nullptr &&
                           theText == Host::CharactersOf(theFormatter.mZeroSymbol.Get());
    if (!theIsZero) {
        const auto theFound = theFormatter.mFormat->Parse(theText, theType <= kCFNumberSInt64Type);
        if (!theFound) {
            return false;
        }
        theReading = *theFound;
    }
    if (!StoreReading(theReading, theType, outValue)) {
        return false;
    }
    if (ioRange != nullptr) {
        *ioRange = CFRangeMake(theRange.location, static_cast<CFIndex>(theReading.theLength));
    }
    return true;
}

// Properties

struct TextProperty
{
    CFStringRef theKey;
    NumberSymbol theText;
};

const TextProperty kTextProperties[] = {
    {kCFNumberFormatterCurrencyCode, NumberSymbol::kCurrencyCode},
    {kCFNumberFormatterDecimalSeparator, NumberSymbol::kDecimalSeparator},
    {kCFNumberFormatterCurrencyDecimalSeparator, NumberSymbol::kCurrencyDecimalSeparator},
    {kCFNumberFormatterGroupingSeparator, NumberSymbol::kGroupingSeparator},
    {kCFNumberFormatterCurrencyGroupingSeparator, NumberSymbol::kCurrencyGroupingSeparator},
    {kCFNumberFormatterPercentSymbol, NumberSymbol::kPercent},
    {kCFNumberFormatterPerMillSymbol, NumberSymbol::kPerMill},
    {kCFNumberFormatterNaNSymbol, NumberSymbol::kNaN},
    {kCFNumberFormatterInfinitySymbol, NumberSymbol::kInfinity},
    {kCFNumberFormatterMinusSign, NumberSymbol::kMinus},
    {kCFNumberFormatterPlusSign, NumberSymbol::kPlus},
    {kCFNumberFormatterCurrencySymbol, NumberSymbol::kCurrencySymbol},
    {kCFNumberFormatterInternationalCurrencySymbol, NumberSymbol::kInternationalCurrencySymbol},
    {kCFNumberFormatterExponentSymbol, NumberSymbol::kExponent},
    {kCFNumberFormatterPaddingCharacter, NumberSymbol::kPaddingCharacter},
    {kCFNumberFormatterPositivePrefix, NumberSymbol::kPositivePrefix},
    {kCFNumberFormatterPositiveSuffix, NumberSymbol::kPositiveSuffix},
    {kCFNumberFormatterNegativePrefix, NumberSymbol::kNegativePrefix},
    {kCFNumberFormatterNegativeSuffix, NumberSymbol::kNegativeSuffix},
};

struct NumberProperty
{
    CFStringRef theKey;
    NumberAttribute theAttribute;
    int theLargest; // larger ones, and those below 0, are cut off
};

// Nobody writes more digits; what would is out for memory.
constexpr int kMostDigits = 127;

const NumberProperty kNumberProperties[] = {
    {kCFNumberFormatterMinIntegerDigits, NumberAttribute::kMinIntegerDigits, kMostDigits},
    {kCFNumberFormatterMaxIntegerDigits, NumberAttribute::kMaxIntegerDigits, kMostDigits},
    {kCFNumberFormatterMinFractionDigits, NumberAttribute::kMinFractionDigits, kMostDigits},
    {kCFNumberFormatterMaxFractionDigits, NumberAttribute::kMaxFractionDigits, kMostDigits},
    {kCFNumberFormatterGroupingSize, NumberAttribute::kGroupingSize, kMostDigits},
    {kCFNumberFormatterSecondaryGroupingSize, NumberAttribute::kSecondaryGroupingSize, kMostDigits},
    {kCFNumberFormatterRoundingMode, NumberAttribute::kRoundingMode, kCFNumberFormatterRoundHalfUp},
    {kCFNumberFormatterFormatWidth, NumberAttribute::kFormatWidth, kMostDigits},
    {kCFNumberFormatterPaddingPosition, NumberAttribute::kPaddingPosition, kCFNumberFormatterPadAfterSuffix},
    {kCFNumberFormatterMultiplier, NumberAttribute::kMultiplier, 1000000000},
    {kCFNumberFormatterUseGroupingSeparator, NumberAttribute::kUseGrouping, 1},
    {kCFNumberFormatterAlwaysShowDecimalSeparator, NumberAttribute::kAlwaysShowDecimal, 1},
    {kCFNumberFormatterIsLenient, NumberAttribute::kIsLenient, 1},
};

template <class Property, size_t kCount>
const Property* FindProperty(const Property (&theProperties)[kCount], CFStringRef theKey)
{
    const Property* const theFound =
        std::find_if(std::begin(theProperties), std::end(theProperties),
                     [=](const Property& the) { return CFEqual(the.theKey, theKey); });
    return theFound == std::end(theProperties) ? nullptr : theFound;
}

bool IsBoolean(const NumberProperty& theProperty)
{
    return theProperty.theAttribute >= NumberAttribute::kUseGrouping;
}

bool HasType(CFTypeRef theValue, CFTypeID theType)
{
    return theValue != nullptr && CFGetTypeID(theValue) == theType;
}

// The number of a boolean or a number; none for others.
std::optional<double> NumberOf(CFTypeRef theValue)
{
    double theNumber = 0;
    if (HasType(theValue, Host::kBooleanTypeID)) {
        return CFBooleanGetValue(static_cast<CFBooleanRef>(theValue)) ? 1 : 0;
    }
    if (!HasType(theValue, Host::kNumberTypeID)) {
        return std::nullopt;
    }
    CFNumberGetValue(static_cast<CFNumberRef>(theValue), kCFNumberDoubleType, &theNumber);
    return std::isfinite(theNumber) ? std::optional<double>(theNumber) : std::nullopt;
}

void SetNumber(NumberFormat& theFormat, const NumberProperty& theProperty, double theNumber)
{
    const double theLeast = theProperty.theAttribute == NumberAttribute::kMultiplier ? 1 : 0;
    theFormat.SetAttribute(theProperty.theAttribute,
                           static_cast<int>(std::clamp<double>(theNumber, theLeast, theProperty.theLargest)));
}

void SetZeroSymbol(__CFNumberFormatter& theFormatter, CFTypeRef theValue)
{
    Holder<CFStringRef> theSymbol(nullptr);
    if (HasType(theValue, Host::kStringTypeID)) {
        Holder<CFStringRef> theCopy =
            Host::RequireMemory(CFStringCreateCopy(nullptr, static_cast<CFStringRef>(theValue)));
        theSymbol.Swap(theCopy);
    }
    theFormatter.mZeroSymbol.Swap(theSymbol);
}

void SetProperty(__CFNumberFormatter& theFormatter, CFStringRef theKey, CFTypeRef theValue)
{
    const std::optional<double> theNumber = NumberOf(theValue);
    if (CFEqual(theKey, kCFNumberFormatterZeroSymbol)) {
        SetZeroSymbol(theFormatter, theValue);
    } else if (CFEqual(theKey, kCFNumberFormatterRoundingIncrement)) {
        if (theNumber && *theNumber >= 0) {
            theFormatter.mFormat->SetRoundingIncrement(*theNumber);
        }
    } else if (const TextProperty* const theText = FindProperty(kTextProperties, theKey)) {
        if (HasType(theValue, Host::kStringTypeID)) {
            theFormatter.mFormat->SetText(theText->theText,
                                          Host::CharactersOf(static_cast<CFStringRef>(theValue)));
        }
    } else if (const NumberProperty* const theProperty = FindProperty(kNumberProperties, theKey)) {
        if (theNumber) {
            SetNumber(*theFormatter.mFormat, *theProperty, *theNumber);
        }
    }
}

CFTypeRef MakeNumber(int theNumber)
{
    return Host::RequireMemory(CFNumberCreate(nullptr, kCFNumberIntType, &theNumber)).Release();
}

CFTypeRef MakeNumber(double theNumber)
{
    return Host::RequireMemory(CFNumberCreate(nullptr, kCFNumberDoubleType, &theNumber)).Release();
}

CFTypeRef MakeProperty(const __CFNumberFormatter& theFormatter, CFStringRef theKey)
{
    if (CFEqual(theKey, kCFNumberFormatterZeroSymbol)) {
        const CFStringRef theSymbol = theFormatter.mZeroSymbol.Get();
        return theSymbol == nullptr ? nullptr : CFRetain(theSymbol);
    }
    if (CFEqual(theKey, kCFNumberFormatterDefaultFormat)) {
        return CFRetain(theFormatter.mDefaultPattern.Get());
    }
    if (CFEqual(theKey, kCFNumberFormatterRoundingIncrement)) {
        return MakeNumber(theFormatter.mFormat->RoundingIncrement());
    }
    if (const TextProperty* const theText = FindProperty(kTextProperties, theKey)) {
        return Host::StringOf(theFormatter.mFormat->Text(theText->theText));
    }
    const NumberProperty* const theProperty = FindProperty(kNumberProperties, theKey);
    if (theProperty == nullptr) {
        return nullptr;
    }
    const int theNumber = theFormatter.mFormat->Attribute(theProperty->theAttribute);
    return IsBoolean(*theProperty) ? CFRetain(theNumber != 0 ? kCFBooleanTrue : kCFBooleanFalse)
                                   : MakeNumber(theNumber);
}

} // namespace

const Host::TypeOperations Host::kNumberFormatterType = {Host::kNumberFormatterTypeID,
                                                         "CFNumberFormatter",
                                                         Host::Delete<__CFNumberFormatter>,
                                                         nullptr,
                                                         nullptr,
                                                         DescribeFormatter,
                                                         nullptr};

CFTypeID CFNumberFormatterGetTypeID()
{
    return Host::kNumberFormatterTypeID;
}

CFNumberFormatterRef CFNumberFormatterCreate(CFAllocatorRef, CFLocaleRef inLocale,
                                             CFNumberFormatterStyle inStyle)
{
    const char* const theCaller = __func__;
    return Host::NothingWithoutMemory([=] { return MakeFormatter(inLocale, inStyle, theCaller); });
}

CFLocaleRef CFNumberFormatterGetLocale(CFNumberFormatterRef inFormatter)
{
    return RequireFormatter(inFormatter, __func__).mLocale.Get();
}

CFNumberFormatterStyle CFNumberFormatterGetStyle(CFNumberFormatterRef inFormatter)
{
    return RequireFormatter(inFormatter, __func__).mStyle;
}

CFStringRef CFNumberFormatterGetFormat(CFNumberFormatterRef inFormatter)
{
    __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    return Host::NothingWithoutMemory([&] {
        Holder<CFStringRef> thePattern(Host::StringOf(theFormatter.mFormat->Pattern()));
        if (theFormatter.mPattern.Get() == nullptr ||
            !CFEqual(theFormatter.mPattern.Get(), thePattern.Get())) {
            theFormatter.mPattern.Swap(thePattern);
        }
        return theFormatter.mPattern.Get();
    });
}

void CFNumberFormatterSetFormat(CFNumberFormatterRef inFormatter, CFStringRef inFormat)
{
    const __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inFormat, Host::kStringType, __func__);
    Host::NothingWithoutMemory([&] {
        theFormatter.mFormat->SetPattern(Host::CharactersOf(inFormat));
        return true;
    });
}

CFStringRef CFNumberFormatterCreateStringWithNumber(CFAllocatorRef, CFNumberFormatterRef inFormatter,
                                                    CFNumberRef inNumber)
{
    const __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    const __CFNumber& theNumber = *Host::Require(inNumber, Host::kNumberType, __func__);
    return Host::NothingWithoutMemory([&] { return WriteNumber(theFormatter, theNumber); });
}

CFStringRef CFNumberFormatterCreateStringWithValue(CFAllocatorRef, CFNumberFormatterRef inFormatter,
                                                   CFNumberType inType, const void* inValue)
{
    const __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    const Holder<CFNumberRef> theNumber(CFNumberCreate(nullptr, inType, inValue));
    return theNumber.Get() == nullptr
               ? nullptr
               : Host::NothingWithoutMemory([&] { return WriteNumber(theFormatter, *theNumber.Get()); });
}

CFNumberRef CFNumberFormatterCreateNumberFromString(CFAllocatorRef, CFNumberFormatterRef inFormatter,
                                                    CFStringRef inString, CFRange* ioRange,
                                                    CFOptionFlags inOptions)
{
    const bool theIsInteger = (inOptions & kCFNumberFormatterParseIntegersOnly) != 0;
    const CFNumberType theType = theIsInteger ? kCFNumberSInt64Type : kCFNumberFloat64Type;
    CFRange theRange = ioRange == nullptr ? CFRangeMake(0, CFStringGetLength(inString)) : *ioRange;
    char theValue[sizeof(SInt64)];
    if (!CFNumberFormatterGetValueFromString(inFormatter, inString, &theRange, theType, theValue)) {
        return nullptr;
    }
    const CFNumberRef theNumber = CFNumberCreate(nullptr, theType, theValue);
    if (theNumber != nullptr && ioRange != nullptr) {
        *ioRange = theRange;
    }
    return theNumber;
}

Boolean CFNumberFormatterGetValueFromString(CFNumberFormatterRef inFormatter, CFStringRef inString,
                                            CFRange* ioRange, CFNumberType inType, void* outValue)
{
    const __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inString, Host::kStringType, __func__);
    const CFNumberType theType = PlainType(inType);
    return theType != 0 && Host::NothingWithoutMemory([&] {
               return ReadNumber(theFormatter, inString, ioRange, theType, outValue);
           });
}

void CFNumberFormatterSetProperty(CFNumberFormatterRef inFormatter, CFStringRef inKey, CFTypeRef inValue)
{
    __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inKey, Host::kStringType, __func__);
    Host::NothingWithoutMemory([&] {
        SetProperty(theFormatter, inKey, inValue);
        return true;
    });
}

CFTypeRef CFNumberFormatterCopyProperty(CFNumberFormatterRef inFormatter, CFStringRef inKey)
{
    const __CFNumberFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inKey, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([&] { return MakeProperty(theFormatter, inKey); });
}

Boolean CFNumberFormatterGetDecimalInfoForCurrencyCode(CFStringRef inCurrencyCode, SInt32* outFractionDigits,
                                                       double* outRoundingIncrement)
{
    Host::Require(inCurrencyCode, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([=] {
        int theDigits = 0;
        double theIncrement = 0;
        const bool theIsKnown =
            Host::CurrencyInfo(Host::CharactersOf(inCurrencyCode), theDigits, theIncrement);
        if (theIsKnown && outFractionDigits != nullptr) {
            *outFractionDigits = theDigits;
        }
        if (theIsKnown && outRoundingIncrement != nullptr) {
            *outRoundingIncrement = theIncrement;
        }
        return theIsKnown;
    });
}
