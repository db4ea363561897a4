// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDateFormatter.h"

#include "LmCharacters.h"

#include <cmath>

namespace {

constexpr double kSecondsPerDay = 86400;

// The first instants of the year 1000 and of the year 10000.
constexpr double kFirstTime = -31588531200.0;
constexpr double kEndOfTime = 252423993600.0;

bool IsStyle(CFDateFormatterStyle theStyle)
{
    return theStyle >= kCFDateFormatterNoStyle && theStyle <= kCFDateFormatterFullStyle;
}

LmCharacters FormatOf(CFDateFormatterRef theFormatter)
{
    return LmCharactersOf(LmRequireMemory(CFDateFormatterGetFormat(theFormatter)));
}

void SetFormat(CFDateFormatterRef theFormatter, const LmCharacters& theFormat)
{
    const LmValue theText = LmTextValue(theFormat);
    CFDateFormatterSetFormat(theFormatter,
                             LmRequireMemory(theText.IsString() ? theText.GetString() : nullptr));
    LmRequireMemory(FormatOf(theFormatter) == theFormat);
}

void SetProperty(CFDateFormatterRef theFormatter, CFStringRef theKey, CFTypeRef theValue)
{
    CFDateFormatterSetProperty(theFormatter, theKey, theValue);
    const LmScopedReference<CFTypeRef> theOne(
        LmRequireMemory(CFDateFormatterCopyProperty(theFormatter, theKey)));
    LmRequireMemory(CFEqual(theOne.Get(), theValue));
}

// The format with the halves of the day in place of its parts, "in the morning", which platforms write but
// do not always read. What is between quotes stays.
LmCharacters WithHalvesOfDay(LmCharacters theFormat)
{
    bool isQuoted = false;
    for (char16_t& theCharacter : theFormat) {
        isQuoted = isQuoted != (theCharacter == u'\'');
        theCharacter = !isQuoted && (theCharacter == u'B' || theCharacter == u'b') ? u'a' : theCharacter;
    }
    return theFormat;
}

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
        LmRequireMemory(CFDateFormatterCreate(nullptr, theLocale, theDateStyle, theTimeStyle)));
    SetProperty(theFormatter.Get(), kCFDateFormatterIsLenient, kCFBooleanFalse);
    SetProperty(theFormatter.Get(), kCFDateFormatterTimeZone, theTimeZone);
    SetFormat(theFormatter.Get(), WithHalvesOfDay(FormatOf(theFormatter.Get())));
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
    return LmScopedReference<CFTimeZoneRef>(
        LmRequireMemory(CFTimeZoneCreateWithTimeIntervalFromGMT(nullptr, 0)));
}

LmScopedReference<CFTimeZoneRef> ZoneOrDefault(CFTimeZoneRef theZone)
{
    return LmScopedReference<CFTimeZoneRef>(LmRequireMemory(
        theZone != nullptr ? static_cast<CFTimeZoneRef>(CFRetain(theZone)) : CFTimeZoneCopyDefault()));
}

double DayOf(CFAbsoluteTime theTime)
{
    return std::floor(theTime / kSecondsPerDay);
}

// The distance of the clocks from Greenwich changes between the moments; the first one of the new distance.
CFAbsoluteTime FindChange(CFTimeZoneRef theZone, CFAbsoluteTime theBefore, CFAbsoluteTime theAfter)
{
    const CFTimeInterval theNew = CFTimeZoneGetSecondsFromGMT(theZone, theAfter);
    while (theAfter - theBefore > 1) {
        const CFAbsoluteTime theMiddle = std::floor((theBefore + theAfter) / 2);
        (CFTimeZoneGetSecondsFromGMT(theZone, theMiddle) == theNew ? theAfter : theBefore) = theMiddle;
    }
    return theAfter;
}

// The first moment at which the clocks of the zone show theClock, which counts as if they were those of
// Greenwich. Where they jump over it, a day, which its midnight stands for, begins with the jump, and a time
// is none: false.
bool FindFirstMoment(CFTimeZoneRef theZone, bool isDay, CFAbsoluteTime theClock, CFAbsoluteTime& outMoment)
{
    // Of before and of after any change that is near.
    const CFTimeInterval theOld = CFTimeZoneGetSecondsFromGMT(theZone, theClock - kSecondsPerDay);
    const CFTimeInterval theNew = CFTimeZoneGetSecondsFromGMT(theZone, theClock + kSecondsPerDay);
    for (const CFTimeInterval theDistance : {theOld, theNew}) {
        outMoment = theClock - theDistance;
        if (CFTimeZoneGetSecondsFromGMT(theZone, outMoment) == theDistance) {
            return true;
        }
    }
    outMoment = FindChange(theZone, theClock - theNew, theClock - theOld);
    return isDay && DayOf(outMoment + theNew) == DayOf(theClock);
}

} // namespace

struct LM_HIDDEN LmDateFormatter::Formats
{
    Formats(CFDateFormatterStyle theDateStyle, CFDateFormatterStyle theTimeStyle, CFLocaleRef theLocale,
            CFTimeZoneRef theTimeZone);

    // The moment that a text stands for; false when there is none.
    bool ReadMoment(CFStringRef theText, CFAbsoluteTime& outTime) const;

    const bool isTime;      // without a date
    const bool isDay;       // without a time
    const bool isZoneNamed; // in the text
    const LmScopedReference<CFTimeZoneRef> theZone;
    // Reads what clocks show as if they were those of Greenwich, but where the zone is named.
    const LmScopedReference<CFDateFormatterRef> theReader; // with the year of the locale
    const LmScopedReference<CFDateFormatterRef> theWriter; // with four digits
};

LmDateFormatter::Formats::Formats(CFDateFormatterStyle theDateStyle, CFDateFormatterStyle theTimeStyle,
                                  CFLocaleRef theLocale, CFTimeZoneRef theTimeZone)
    : isTime(theDateStyle == kCFDateFormatterNoStyle),
      isDay(theTimeStyle == kCFDateFormatterNoStyle),
      isZoneNamed(!isTime && theTimeStyle >= kCFDateFormatterLongStyle),
      theZone(isTime ? Greenwich() : ZoneOrDefault(theTimeZone)),
      theReader(MakeFormatter(theLocale, theDateStyle, theTimeStyle,
                              isZoneNamed ? theZone.Get() : Greenwich().Get())),
      theWriter(MakeFormatter(theLocale, theDateStyle, theTimeStyle, theZone.Get()))
{
    SetFormat(theWriter.Get(), WithWholeYear(FormatOf(theWriter.Get())));
}

bool LmDateFormatter::Formats::ReadMoment(CFStringRef theText, CFAbsoluteTime& outTime) const
{
    CFAbsoluteTime theClock = 0;
    if (!Read(theReader.Get(), theText, theClock)) {
        return false;
    }
    outTime = isTime ? theClock - DayOf(theClock) * kSecondsPerDay : theClock;
    return isTime || isZoneNamed || FindFirstMoment(theZone.Get(), isDay, theClock, outTime);
}

LmDateFormatter::LmDateFormatter(CFDateFormatterStyle theDateStyle, CFDateFormatterStyle theTimeStyle,
                                 CFLocaleRef theLocale, CFTimeZoneRef theTimeZone)
    : mIsTime(theDateStyle == kCFDateFormatterNoStyle),
      mFormats(IsStyle(theDateStyle) && IsStyle(theTimeStyle) && theDateStyle + theTimeStyle != 0
                   ? std::make_unique<Formats>(theDateStyle, theTimeStyle, theLocale, theTimeZone)
                   : nullptr)
{
}

LmDateFormatter::~LmDateFormatter() = default;

LmReading LmDateFormatter::Parse(CFStringRef theText) const
{
    LmReading theRefusal = LmRefusal(mIsTime ? CFSTR("This is not a time.") : CFSTR("This is not a date."));
    const LmValue theTrimmed = LmTextValue(LmPlainCharacters(LmCharactersOf(theText)));
    CFAbsoluteTime theTime = 0;
    // As it was typed, for the locale may have blanks of its own; then with plain ones.
    if (mFormats == nullptr || !theTrimmed.IsString() ||
        (!mFormats->ReadMoment(theText, theTime) && !mFormats->ReadMoment(theTrimmed.GetString(), theTime))) {
        return theRefusal;
    }
    const bool isInRange = theTime >= kFirstTime && theTime < kEndOfTime && std::floor(theTime) == theTime;
    const LmValue theValue = isInRange ? LmValue(static_cast<long long>(theTime)) : LmValue();
    const LmValue theShown = Format(theValue);
    CFAbsoluteTime theAgain = 0;
    const bool isWhatItShows =
        theShown.IsString() && mFormats->ReadMoment(theShown.GetString(), theAgain) && theAgain == theTime;
    return isWhatItShows ? LmReading::Accept(theValue) : theRefusal;
}

LmValue LmDateFormatter::Format(const LmValue& theValue) const
{
    if (mFormats == nullptr || !theValue.IsNumber()) {
        return LmValue();
    }
    const double theTime = theValue.GetDouble();
    const bool isInRange =
        mIsTime ? theTime >= 0 && theTime < kSecondsPerDay : theTime >= kFirstTime && theTime < kEndOfTime;
    const CFStringRef theText = isInRange ? CFDateFormatterCreateStringWithAbsoluteTime(
                                                nullptr, mFormats->theWriter.Get(), std::floor(theTime))
                                          : nullptr;
    return theText == nullptr ? LmValue() : LmValue(theText, true);
}
