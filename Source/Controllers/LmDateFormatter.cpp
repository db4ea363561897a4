// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDateFormatter.h"

#include "LmCharacters.h"

#include <cmath>

namespace {

constexpr double kSecondsPerDay = 86400;

// The first instants of the year 1000 and of the year 10000.
constexpr double kFirstTime = -31588531200.0;
constexpr double kEndOfTime = 252423993600.0;

// The format with a year of four digits, in place of one of any other number; what is between quotes stays.
LmCharacters WithWholeYear(const LmCharacters& theFormat)
{
    LmCharacters theResult;
    bool isQuoted = false;
    for (std::size_t theIndex = 0; theIndex < theFormat.size(); ++theIndex) {
        const char16_t theCharacter = theFormat[theIndex];
        isQuoted = isQuoted != (theCharacter == u'\'');
        if (isQuoted || theCharacter != u'y') {
            theResult.push_back(theCharacter);
        } else if (theIndex == 0 || theFormat[theIndex - 1] != u'y') {
            theResult += u"yyyy";
        }
    }
    return theResult;
}

LmScopedReference<CFDateFormatterRef> MakeFormatter(CFLocaleRef theLocale, CFDateFormatterStyle theDateStyle,
                                                    CFDateFormatterStyle theTimeStyle,
                                                    CFTimeZoneRef theTimeZone)
{
    LmScopedReference<CFDateFormatterRef> theFormatter(
        CFDateFormatterCreate(nullptr, theLocale, theDateStyle, theTimeStyle));
    if (theFormatter.Get() != nullptr) {
        CFDateFormatterSetProperty(theFormatter.Get(), kCFDateFormatterIsLenient, kCFBooleanFalse);
        if (theTimeZone != nullptr) {
            CFDateFormatterSetProperty(theFormatter.Get(), kCFDateFormatterTimeZone, theTimeZone);
        }
    }
    return theFormatter;
}

// The moment that the whole text stands for; false when it stands for none.
bool Read(CFDateFormatterRef theFormatter, CFStringRef theText, CFAbsoluteTime& outTime)
{
    CFRange theRange = CFRangeMake(0, CFStringGetLength(theText));
    const CFIndex theLength = theRange.length;
    return theLength > 0 &&
           CFDateFormatterGetAbsoluteTimeFromString(theFormatter, theText, &theRange, &outTime) &&
           theRange.length == theLength;
}

LmScopedReference<CFTimeZoneRef> Greenwich()
{
    return LmScopedReference<CFTimeZoneRef>(CFTimeZoneCreateWithTimeIntervalFromGMT(nullptr, 0));
}

} // namespace

struct LmDateFormatter::Formats
{
    LmScopedReference<CFDateFormatterRef> theReader; // with the year of the locale
    LmScopedReference<CFDateFormatterRef> theWriter; // with four digits; null where there is nothing to write
    bool isTime;                                     // without a date
};

LmDateFormatter::LmDateFormatter(CFDateFormatterStyle theDateStyle, CFDateFormatterStyle theTimeStyle,
                                 CFLocaleRef theLocale, CFTimeZoneRef theTimeZone)
    : mFormats([=] {
          const bool isTime = theDateStyle == kCFDateFormatterNoStyle;
          const bool isNothing = isTime && theTimeStyle == kCFDateFormatterNoStyle;
          const LmScopedReference<CFTimeZoneRef> theGreenwich = Greenwich();
          const CFTimeZoneRef theZone = isTime ? theGreenwich.Get() : theTimeZone;
          auto theFormats = std::make_unique<Formats>(
              Formats{MakeFormatter(theLocale, theDateStyle, theTimeStyle, theZone),
                      isNothing ? LmScopedReference<CFDateFormatterRef>(nullptr)
                                : MakeFormatter(theLocale, theDateStyle, theTimeStyle, theZone),
                      isTime});
          if (theFormats->theReader.Get() != nullptr && theFormats->theWriter.Get() != nullptr) {
              const LmValue theFormat = LmTextValue(
                  WithWholeYear(LmCharactersOf(CFDateFormatterGetFormat(theFormats->theWriter.Get()))));
              if (theFormat.IsString()) {
                  CFDateFormatterSetFormat(theFormats->theWriter.Get(), theFormat.GetString());
              }
          }
          return theFormats;
      }())
{
}

LmDateFormatter::~LmDateFormatter() = default;

LmReading LmDateFormatter::Parse(CFStringRef theText) const
{
    LmReading theRefusal =
        LmRefusal(mFormats->isTime ? CFSTR("This is not a time.") : CFSTR("This is not a date."));
    const LmValue theTrimmed = LmTextValue(LmPlainCharacters(LmCharactersOf(theText)));
    if (mFormats->theReader.Get() == nullptr || mFormats->theWriter.Get() == nullptr ||
        !theTrimmed.IsString()) {
        return theRefusal;
    }
    CFAbsoluteTime theTime = 0;
    // As it was typed, for the locale may have blanks of its own; then with plain ones.
    if (!Read(mFormats->theReader.Get(), theText, theTime) &&
        !Read(mFormats->theReader.Get(), theTrimmed.GetString(), theTime)) {
        return theRefusal;
    }
    if (mFormats->isTime) {
        theTime -= std::floor(theTime / kSecondsPerDay) * kSecondsPerDay;
    }
    const bool isInRange = theTime >= kFirstTime && theTime < kEndOfTime && std::floor(theTime) == theTime;
    const LmValue theValue = isInRange ? LmValue(static_cast<long long>(theTime)) : LmValue();
    const LmValue theShown = Format(theValue);
    CFAbsoluteTime theAgain = 0;
    if (!theShown.IsString() || !Read(mFormats->theReader.Get(), theShown.GetString(), theAgain)) {
        return theRefusal;
    }
    if (mFormats->isTime) {
        theAgain -= std::floor(theAgain / kSecondsPerDay) * kSecondsPerDay;
    }
    return theAgain == theTime ? LmReading::Accept(theValue) : theRefusal;
}

LmValue LmDateFormatter::Format(const LmValue& theValue) const
{
    if (!theValue.IsNumber() || mFormats->theWriter.Get() == nullptr) {
        return LmValue();
    }
    const double theTime = theValue.GetDouble();
    const bool isInRange = mFormats->isTime ? theTime >= 0 && theTime < kSecondsPerDay
                                            : theTime >= kFirstTime && theTime < kEndOfTime;
    const CFStringRef theText = isInRange ? CFDateFormatterCreateStringWithAbsoluteTime(
                                                nullptr, mFormats->theWriter.Get(), std::floor(theTime))
                                          : nullptr;
    return theText == nullptr ? LmValue() : LmValue(theText, true);
}
