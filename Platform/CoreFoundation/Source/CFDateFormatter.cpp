// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CFDateFormatter.h>

#include "CFDateObject.h"
#include "CFLocaleObject.h"
#include "Formats/DateFormat.h"

#include <algorithm>
#include <cmath>
#include <CoreFoundation/CFNumber.h>

const CFStringRef kCFDateFormatterIsLenient = CFSTR("kCFDateFormatterIsLenient");
const CFStringRef kCFDateFormatterTimeZone = CFSTR("kCFDateFormatterTimeZone");
const CFStringRef kCFDateFormatterCalendarName = CFSTR("kCFDateFormatterCalendarName");
const CFStringRef kCFDateFormatterDefaultFormat = CFSTR("kCFDateFormatterDefaultFormat");
const CFStringRef kCFDateFormatterTwoDigitStartDate = CFSTR("kCFDateFormatterTwoDigitStartDate");
const CFStringRef kCFDateFormatterEraSymbols = CFSTR("kCFDateFormatterEraSymbols");
const CFStringRef kCFDateFormatterMonthSymbols = CFSTR("kCFDateFormatterMonthSymbols");
const CFStringRef kCFDateFormatterShortMonthSymbols = CFSTR("kCFDateFormatterShortMonthSymbols");
const CFStringRef kCFDateFormatterWeekdaySymbols = CFSTR("kCFDateFormatterWeekdaySymbols");
const CFStringRef kCFDateFormatterShortWeekdaySymbols = CFSTR("kCFDateFormatterShortWeekdaySymbols");
const CFStringRef kCFDateFormatterAMSymbol = CFSTR("kCFDateFormatterAMSymbol");
const CFStringRef kCFDateFormatterPMSymbol = CFSTR("kCFDateFormatterPMSymbol");

struct __CFDateFormatter : Host::Object
{
    __CFDateFormatter(Host::Holder<CFLocaleRef>&& theLocale, CFDateFormatterStyle theDateStyle,
                      CFDateFormatterStyle theTimeStyle, Host::Holder<CFTimeZoneRef>&& theZone,
                      std::unique_ptr<Host::DateFormat>&& theFormat)
        : Object(Host::kDateFormatterType),
          mLocale(std::move(theLocale)),
          mDateStyle(theDateStyle),
          mTimeStyle(theTimeStyle),
          mZone(std::move(theZone)),
          mFormat(std::move(theFormat)),
          mDefaultPattern(Host::StringOf(mFormat->Pattern())),
          mPattern(nullptr)
    {
        mFormat->SetTimeZone(mZone.Get());
    }

    const Host::Holder<CFLocaleRef> mLocale;
    const CFDateFormatterStyle mDateStyle;
    const CFDateFormatterStyle mTimeStyle;
    Host::Holder<CFTimeZoneRef> mZone;
    const std::unique_ptr<Host::DateFormat> mFormat;
    const Host::Holder<CFStringRef> mDefaultPattern;
    Host::Holder<CFStringRef> mPattern; // the last that was asked for
};

namespace {

using Host::Characters;
using Host::DateFormat;
using Host::DateNames;
using Host::Holder;

const __CFDateFormatter& FormatterOf(const Host::Object* theObject)
{
    return *static_cast<const __CFDateFormatter*>(theObject);
}

CFStringRef DescribeFormatter(const Host::Object* theObject)
{
    const __CFDateFormatter& theFormatter = FormatterOf(theObject);
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{styles = " + std::to_string(theFormatter.mDateStyle) + ", " +
                std::to_string(theFormatter.mTimeStyle) + ", locale = ")
        .Append(CFLocaleGetIdentifier(theFormatter.mLocale.Get()))
        .Append(", time zone = ")
        .Append(CFTimeZoneGetName(theFormatter.mZone.Get()))
        .Append(", format = ")
        .Append(Holder<CFStringRef>(Host::StringOf(theFormatter.mFormat->Pattern())).Get())
        .Append("}")
        .CopyString();
}

__CFDateFormatter& RequireFormatter(CFDateFormatterRef theFormatter, const char* theCaller)
{
    return *Host::Require(theFormatter, Host::kDateFormatterType, theCaller);
}

bool IsStyle(CFDateFormatterStyle theStyle)
{
    return theStyle >= kCFDateFormatterNoStyle && theStyle <= kCFDateFormatterFullStyle;
}

// Making

// Programs know these by heart, whatever newer data say.
Characters EnglishPattern(CFDateFormatterStyle theDateStyle, CFDateFormatterStyle theTimeStyle)
{
    static const char16_t* const kDates[] = {u"", u"M/d/yy", u"MMM d, yyyy", u"MMMM d, yyyy",
                                             u"EEEE, MMMM d, yyyy"};
    static const char16_t* const kTimes[] = {u"", u"h:mm a", u"h:mm:ss a", u"h:mm:ss a z", u"h:mm:ss a zzzz"};
    const Characters theDate = kDates[theDateStyle];
    const Characters theTime = kTimes[theTimeStyle];
    return theDate + (theDate.empty() || theTime.empty() ? u"" : u" ") + theTime;
}

// The pattern of a locale and its styles, given what the data of locales say, which may be nothing. Newer
// data have narrow blanks before the halves of the day, where programs know blanks.
Characters PatternOf(const std::string& theLocale, CFDateFormatterStyle theDateStyle,
                     CFDateFormatterStyle theTimeStyle, Characters thePattern)
{
    const bool theIsEmpty =
        theDateStyle == kCFDateFormatterNoStyle && theTimeStyle == kCFDateFormatterNoStyle;
    if (theIsEmpty || thePattern.empty() || theLocale == "en" || theLocale == "en_US") {
        return EnglishPattern(theDateStyle, theTimeStyle);
    }
    std::replace(thePattern.begin(), thePattern.end(), u'\u202F', u' ');
    return thePattern;
}

CFDateFormatterRef MakeFormatter(CFLocaleRef inLocale, CFDateFormatterStyle theDateStyle,
                                 CFDateFormatterStyle theTimeStyle, const char* theCaller)
{
    Holder<CFLocaleRef> theLocale = Host::LocaleOrCurrent(inLocale, theCaller);
    if (!IsStyle(theDateStyle) || !IsStyle(theTimeStyle)) {
        return nullptr;
    }
    const std::string& theName = theLocale.Get()->mName;
    std::unique_ptr<DateFormat> theFormat = Host::MakeDateFormat(theName, theDateStyle, theTimeStyle);
    if (theFormat == nullptr) {
        return nullptr;
    }
    theFormat->SetPattern(PatternOf(theName, theDateStyle, theTimeStyle, theFormat->Pattern()));
    return new __CFDateFormatter(std::move(theLocale), theDateStyle, theTimeStyle, Host::DefaultTimeZone(),
                                 std::move(theFormat));
}

// Writing and reading

CFStringRef WriteTime(const __CFDateFormatter& theFormatter, CFAbsoluteTime theTime)
{
    return std::abs(theTime) <= Host::kFarthestTime ? Host::StringOf(theFormatter.mFormat->Format(theTime))
                                                    : nullptr;
}

bool ReadTime(const __CFDateFormatter& theFormatter, CFStringRef theString, CFRange* ioRange,
              CFAbsoluteTime* outTime)
{
    const CFRange theRange =
        Host::ClipRange(theString, ioRange == nullptr ? CFRangeMake(0, theString->GetLength()) : *ioRange);
    const auto theReading = theFormatter.mFormat->Parse(Host::CharactersOf(theString).substr(
        static_cast<size_t>(theRange.location), static_cast<size_t>(theRange.length)));
    if (!theReading) {
        return false;
    }
    if (outTime != nullptr) {
        *outTime = theReading->theTime;
    }
    if (ioRange != nullptr) {
        *ioRange = CFRangeMake(theRange.location, static_cast<CFIndex>(theReading->theLength));
    }
    return true;
}

// Properties

struct NamesProperty
{
    CFStringRef theKey;
    DateNames theNames;
};

const NamesProperty kNamesProperties[] = {
    {kCFDateFormatterEraSymbols, DateNames::kEras},
    {kCFDateFormatterMonthSymbols, DateNames::kMonths},
    {kCFDateFormatterShortMonthSymbols, DateNames::kShortMonths},
    {kCFDateFormatterWeekdaySymbols, DateNames::kWeekdays},
    {kCFDateFormatterShortWeekdaySymbols, DateNames::kShortWeekdays},
};

const NamesProperty* FindNames(CFStringRef theKey)
{
    for (const NamesProperty& theProperty : kNamesProperties) {
        if (CFEqual(theProperty.theKey, theKey)) {
            return &theProperty;
        }
    }
    return nullptr;
}

bool HasType(CFTypeRef theValue, CFTypeID theType)
{
    return theValue != nullptr && CFGetTypeID(theValue) == theType;
}

// The strings of an array; no more than theCount.
std::vector<Characters> TextsOf(CFArrayRef theArray, size_t theCount)
{
    std::vector<Characters> theTexts;
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theArray) && theTexts.size() < theCount;
         ++theIndex) {
        const CFTypeRef theValue = CFArrayGetValueAtIndex(theArray, theIndex);
        theTexts.push_back(HasType(theValue, Host::kStringTypeID)
                               ? Host::CharactersOf(static_cast<CFStringRef>(theValue))
                               : Characters());
    }
    return theTexts;
}

CFArrayRef MakeNames(const std::vector<Characters>& theTexts)
{
    Holder<CFMutableArrayRef> theArray =
        Host::RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
    for (const Characters& theText : theTexts) {
        CFArrayAppendValue(theArray.Get(), Holder<CFStringRef>(Host::StringOf(theText)).Get());
    }
    if (CFArrayGetCount(theArray.Get()) != static_cast<CFIndex>(theTexts.size())) {
        throw std::bad_alloc();
    }
    return theArray.Release();
}

// The first or the second half of the day.
void SetHalf(DateFormat& theFormat, size_t theIndex, CFTypeRef theValue)
{
    std::vector<Characters> theHalves = theFormat.Names(DateNames::kHalvesOfDay);
    if (HasType(theValue, Host::kStringTypeID) && theIndex < theHalves.size()) {
        theHalves[theIndex] = Host::CharactersOf(static_cast<CFStringRef>(theValue));
        theFormat.SetNames(DateNames::kHalvesOfDay, theHalves);
    }
}

void SetZone(__CFDateFormatter& theFormatter, CFTypeRef theValue)
{
    if (HasType(theValue, Host::kTimeZoneTypeID)) {
        Holder<CFTimeZoneRef> theZone(static_cast<CFTimeZoneRef>(CFRetain(theValue)));
        theFormatter.mFormat->SetTimeZone(theZone.Get());
        theFormatter.mZone.Swap(theZone);
    }
}

void SetProperty(__CFDateFormatter& theFormatter, CFStringRef theKey, CFTypeRef theValue)
{
    DateFormat& theFormat = *theFormatter.mFormat;
    if (CFEqual(theKey, kCFDateFormatterTimeZone)) {
        SetZone(theFormatter, theValue);
    } else if (CFEqual(theKey, kCFDateFormatterIsLenient)) {
        if (HasType(theValue, Host::kBooleanTypeID)) {
            theFormat.SetLenient(CFBooleanGetValue(static_cast<CFBooleanRef>(theValue)) != 0);
        }
    } else if (CFEqual(theKey, kCFDateFormatterTwoDigitStartDate)) {
        if (HasType(theValue, Host::kDateTypeID)) {
            theFormat.SetTwoDigitStart(CFDateGetAbsoluteTime(static_cast<CFDateRef>(theValue)));
        }
    } else if (CFEqual(theKey, kCFDateFormatterAMSymbol)) {
        SetHalf(theFormat, 0, theValue);
    } else if (CFEqual(theKey, kCFDateFormatterPMSymbol)) {
        SetHalf(theFormat, 1, theValue);
    } else if (const NamesProperty* const theNames = FindNames(theKey)) {
        if (HasType(theValue, Host::kArrayTypeID)) {
            theFormat.SetNames(theNames->theNames, TextsOf(static_cast<CFArrayRef>(theValue),
                                                           theFormat.Names(theNames->theNames).size()));
        }
    }
}

CFTypeRef MakeHalf(const DateFormat& theFormat, size_t theIndex)
{
    const std::vector<Characters> theHalves = theFormat.Names(DateNames::kHalvesOfDay);
    return theIndex < theHalves.size() ? Host::StringOf(theHalves[theIndex]) : nullptr;
}

CFTypeRef MakeProperty(const __CFDateFormatter& theFormatter, CFStringRef theKey)
{
    const DateFormat& theFormat = *theFormatter.mFormat;
    if (CFEqual(theKey, kCFDateFormatterTimeZone)) {
        return CFRetain(theFormatter.mZone.Get());
    }
    if (CFEqual(theKey, kCFDateFormatterIsLenient)) {
        return CFRetain(theFormat.IsLenient() ? kCFBooleanTrue : kCFBooleanFalse);
    }
    if (CFEqual(theKey, kCFDateFormatterCalendarName)) {
        return CFRetain(kCFGregorianCalendar);
    }
    if (CFEqual(theKey, kCFDateFormatterDefaultFormat)) {
        return CFRetain(theFormatter.mDefaultPattern.Get());
    }
    if (CFEqual(theKey, kCFDateFormatterTwoDigitStartDate)) {
        return new __CFDate(theFormat.TwoDigitStart());
    }
    if (CFEqual(theKey, kCFDateFormatterAMSymbol)) {
        return MakeHalf(theFormat, 0);
    }
    if (CFEqual(theKey, kCFDateFormatterPMSymbol)) {
        return MakeHalf(theFormat, 1);
    }
    const NamesProperty* const theNames = FindNames(theKey);
    return theNames == nullptr ? nullptr : MakeNames(theFormat.Names(theNames->theNames));
}

} // namespace

const Host::TypeOperations Host::kDateFormatterType = {Host::kDateFormatterTypeID,
                                                       "CFDateFormatter",
                                                       Host::Delete<__CFDateFormatter>,
                                                       nullptr,
                                                       nullptr,
                                                       DescribeFormatter,
                                                       nullptr};

CFTypeID CFDateFormatterGetTypeID()
{
    return Host::kDateFormatterTypeID;
}

CFDateFormatterRef CFDateFormatterCreate(CFAllocatorRef, CFLocaleRef inLocale,
                                         CFDateFormatterStyle inDateStyle, CFDateFormatterStyle inTimeStyle)
{
    const char* const theCaller = __func__;
    return Host::NothingWithoutMemory(
        [=] { return MakeFormatter(inLocale, inDateStyle, inTimeStyle, theCaller); });
}

CFLocaleRef CFDateFormatterGetLocale(CFDateFormatterRef inFormatter)
{
    return RequireFormatter(inFormatter, __func__).mLocale.Get();
}

CFDateFormatterStyle CFDateFormatterGetDateStyle(CFDateFormatterRef inFormatter)
{
    return RequireFormatter(inFormatter, __func__).mDateStyle;
}

CFDateFormatterStyle CFDateFormatterGetTimeStyle(CFDateFormatterRef inFormatter)
{
    return RequireFormatter(inFormatter, __func__).mTimeStyle;
}

CFStringRef CFDateFormatterGetFormat(CFDateFormatterRef inFormatter)
{
    __CFDateFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    return Host::NothingWithoutMemory([&] {
        Holder<CFStringRef> thePattern(Host::StringOf(theFormatter.mFormat->Pattern()));
        if (theFormatter.mPattern.Get() == nullptr ||
            !CFEqual(theFormatter.mPattern.Get(), thePattern.Get())) {
            theFormatter.mPattern.Swap(thePattern);
        }
        return theFormatter.mPattern.Get();
    });
}

void CFDateFormatterSetFormat(CFDateFormatterRef inFormatter, CFStringRef inFormat)
{
    const __CFDateFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inFormat, Host::kStringType, __func__);
    Host::NothingWithoutMemory([&] {
        theFormatter.mFormat->SetPattern(Host::CharactersOf(inFormat));
        return true;
    });
}

CFStringRef CFDateFormatterCreateStringWithDate(CFAllocatorRef, CFDateFormatterRef inFormatter,
                                                CFDateRef inDate)
{
    return CFDateFormatterCreateStringWithAbsoluteTime(nullptr, inFormatter, CFDateGetAbsoluteTime(inDate));
}

CFStringRef CFDateFormatterCreateStringWithAbsoluteTime(CFAllocatorRef, CFDateFormatterRef inFormatter,
                                                        CFAbsoluteTime inTime)
{
    const __CFDateFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    return Host::NothingWithoutMemory([&] { return WriteTime(theFormatter, inTime); });
}

CFDateRef CFDateFormatterCreateDateFromString(CFAllocatorRef, CFDateFormatterRef inFormatter,
                                              CFStringRef inString, CFRange* ioRange)
{
    CFRange theRange = ioRange == nullptr ? CFRangeMake(0, CFStringGetLength(inString)) : *ioRange;
    CFAbsoluteTime theTime = 0;
    if (!CFDateFormatterGetAbsoluteTimeFromString(inFormatter, inString, &theRange, &theTime)) {
        return nullptr;
    }
    const CFDateRef theDate = CFDateCreate(nullptr, theTime);
    if (theDate != nullptr && ioRange != nullptr) {
        *ioRange = theRange;
    }
    return theDate;
}

Boolean CFDateFormatterGetAbsoluteTimeFromString(CFDateFormatterRef inFormatter, CFStringRef inString,
                                                 CFRange* ioRange, CFAbsoluteTime* outTime)
{
    const __CFDateFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inString, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([&] { return ReadTime(theFormatter, inString, ioRange, outTime); });
}

void CFDateFormatterSetProperty(CFDateFormatterRef inFormatter, CFStringRef inKey, CFTypeRef inValue)
{
    __CFDateFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inKey, Host::kStringType, __func__);
    Host::NothingWithoutMemory([&] {
        SetProperty(theFormatter, inKey, inValue);
        return true;
    });
}

CFTypeRef CFDateFormatterCopyProperty(CFDateFormatterRef inFormatter, CFStringRef inKey)
{
    const __CFDateFormatter& theFormatter = RequireFormatter(inFormatter, __func__);
    Host::Require(inKey, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([&] { return MakeProperty(theFormatter, inKey); });
}
