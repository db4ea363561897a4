// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Dates in English, without any data: what there is where ICU is not.

#include "Formats/DateFormat.h"

#include "CFCalendar.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Host {

namespace {

constexpr size_t kKindsOfNames = static_cast<size_t>(DateNames::kHalvesOfDay) + 1;
constexpr double kSecondsPerDay = 86400;

// A part of a pattern: a letter so many times, or a text.
struct Piece
{
    char16_t theLetter; // 0 for a text
    size_t theCount;
    Characters theText;
};

bool IsLetter(char16_t theCharacter)
{
    return (theCharacter >= u'a' && theCharacter <= u'z') || (theCharacter >= u'A' && theCharacter <= u'Z');
}

// Whether it stands for digits.
bool IsNumber(const Piece& thePiece)
{
    return thePiece.theLetter != 0 &&
           (CharactersView(u"ydDhKHkmsS").find(thePiece.theLetter) != Characters::npos ||
            (thePiece.theLetter == u'M' && thePiece.theCount < 3));
}

// The text between the quotes at ioPosition; two of them are one.
Characters TakeQuoted(const Characters& thePattern, size_t& ioPosition)
{
    Characters theText;
    if (thePattern.compare(ioPosition, 2, u"''") == 0) {
        ioPosition += 2;
        return u"'";
    }
    for (++ioPosition; ioPosition < thePattern.size(); ++ioPosition) {
        if (thePattern[ioPosition] == u'\'') {
            ++ioPosition;
            if (ioPosition == thePattern.size() || thePattern[ioPosition] != u'\'') {
                return theText;
            }
        }
        theText.push_back(thePattern[ioPosition]);
    }
    return theText;
}

std::vector<Piece> ParsePattern(const Characters& thePattern)
{
    std::vector<Piece> thePieces;
    for (size_t thePosition = 0; thePosition < thePattern.size();) {
        const char16_t theCharacter = thePattern[thePosition];
        if (theCharacter == u'\'') {
            thePieces.push_back({0, 0, TakeQuoted(thePattern, thePosition)});
        } else if (IsLetter(theCharacter)) {
            const size_t theEnd =
                std::min(thePattern.find_first_not_of(theCharacter, thePosition), thePattern.size());
            thePieces.push_back({theCharacter, theEnd - thePosition, {}});
            thePosition = theEnd;
        } else {
            thePieces.push_back({0, 0, Characters(1, theCharacter)});
            ++thePosition;
        }
    }
    return thePieces;
}

Characters Padded(SInt64 theNumber, size_t theWidth)
{
    std::string theText = std::to_string(std::abs(theNumber));
    theText.insert(0, theWidth - std::min(theWidth, theText.size()), '0');
    return CharactersOf((theNumber < 0 ? "-" : "") + theText);
}

char16_t Folded(char16_t theCharacter)
{
    return theCharacter >= u'A' && theCharacter <= u'Z' ? static_cast<char16_t>(theCharacter + 32)
                                                        : theCharacter;
}

bool Has(const Characters& theText, size_t thePosition, const Characters& theExpected)
{
    return thePosition + theExpected.size() <= theText.size() &&
           std::equal(theExpected.begin(), theExpected.end(),
                      theText.begin() + static_cast<std::ptrdiff_t>(thePosition),
                      [](char16_t theOne, char16_t theOther) { return Folded(theOne) == Folded(theOther); });
}

// What was read of a date; what was not is as it was at the beginning of 1970.
struct Fields
{
    int theEra = 1;
    SInt64 theYear = 1970;
    SInt64 theMonth = 1;
    SInt64 theDay = 1;
    SInt64 theDayOfYear = 0; // 0: month and day count
    SInt64 theHour = 0;
    SInt64 theHour12 = -1; // -1: the hour counts
    int theHalf = 0;
    SInt64 theMinute = 0;
    SInt64 theSecond = 0;
    double theFraction = 0;
    std::optional<int> theZone; // seconds to the east
};

bool IsBetween(SInt64 theNumber, SInt64 theFirst, SInt64 theLast)
{
    return theNumber >= theFirst && theNumber <= theLast;
}

// Whether such a day and such an hour exist.
bool IsValid(const Fields& the)
{
    return IsBetween(the.theMonth, 1, 12) &&
           IsBetween(the.theDay, 1, DaysInMonth(the.theYear, static_cast<int>(the.theMonth))) &&
           IsBetween(the.theHour, 0, 23) && IsBetween(the.theHour12, -1, 12) &&
           IsBetween(the.theMinute, 0, 59) && IsBetween(the.theSecond, 0, 59) &&
           IsBetween(the.theDayOfYear, 0, 366);
}

class PlainDateFormat : public DateFormat
{
public:
    explicit PlainDateFormat(const Characters& thePattern)
        : mPattern(thePattern),
          mTwoDigitStart(
              CFAbsoluteTimeAddGregorianUnits(CFAbsoluteTimeGetCurrent(), nullptr, {-80, 0, 0, 0, 0, 0}))
    {
    }

    Characters Pattern() const override { return mPattern; }
    void SetPattern(const Characters& thePattern) override { mPattern = thePattern; }
    Characters Format(CFAbsoluteTime theTime) const override;
    std::optional<Reading> Parse(const Characters& theText) const override;
    bool IsLenient() const override { return mIsLenient; }
    void SetLenient(bool theIsLenient) override { mIsLenient = theIsLenient; }
    void SetTimeZone(CFTimeZoneRef theTimeZone) override { mZone = theTimeZone; }
    CFAbsoluteTime TwoDigitStart() const override { return mTwoDigitStart; }
    void SetTwoDigitStart(CFAbsoluteTime theTime) override { mTwoDigitStart = theTime; }
    std::vector<Characters> Names(DateNames theNames) const override { return mNames[IndexOf(theNames)]; }
    void SetNames(DateNames theNames, const std::vector<Characters>& theTexts) override;

private:
    static size_t IndexOf(DateNames theNames) { return static_cast<size_t>(theNames); }
    Characters Name(DateNames theNames, int theIndex) const
    {
        return mNames[IndexOf(theNames)][static_cast<size_t>(theIndex)];
    }
    Characters FormatPiece(const Piece& thePiece, const CFGregorianDate& theDate,
                           CFAbsoluteTime theTime) const;
    Characters FormatZone(const Piece& thePiece, CFAbsoluteTime theTime) const;
    bool ParsePiece(const Piece& thePiece, bool theIsTight, const Characters& theText, size_t& ioPosition,
                    Fields& ioFields) const;
    bool ParseText(const Characters& theExpected, const Characters& theText, size_t& ioPosition) const;
    bool ParseYear(size_t theCount, bool theIsTight, const Characters& theText, size_t& ioPosition,
                   Fields& ioFields) const;
    bool ParseZone(const Characters& theText, size_t& ioPosition, Fields& ioFields) const;
    std::optional<int> ParseName(std::initializer_list<DateNames> theKinds, const Characters& theText,
                                 size_t& ioPosition) const;
    CFAbsoluteTime TimeOf(const Fields& theFields) const;

    Characters mPattern;
    CFTimeZoneRef mZone = nullptr; // not owned
    CFAbsoluteTime mTwoDigitStart;
    bool mIsLenient = true;
    std::array<std::vector<Characters>, kKindsOfNames> mNames = {{
        {u"BC", u"AD"},
        {u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August", u"September",
         u"October", u"November", u"December"},
        {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"},
        {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"},
        {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"},
        {u"AM", u"PM"},
    }};
};

void PlainDateFormat::SetNames(DateNames theNames, const std::vector<Characters>& theTexts)
{
    std::vector<Characters>& theOld = mNames[IndexOf(theNames)];
    std::copy_n(theTexts.begin(), std::min(theTexts.size(), theOld.size()), theOld.begin());
}

// Writing

Characters PlainDateFormat::FormatZone(const Piece& thePiece, CFAbsoluteTime theTime) const
{
    const int theMinutes = static_cast<int>(CFTimeZoneGetSecondsFromGMT(mZone, theTime)) / 60;
    const Characters theSign = theMinutes < 0 ? u"-" : u"+";
    const Characters theHours = Padded(std::abs(theMinutes) / 60, 2);
    const Characters theRest = Padded(std::abs(theMinutes) % 60, 2);
    if (thePiece.theLetter == u'Z') {
        return theSign + theHours + theRest;
    }
    return theMinutes == 0 ? Characters(u"GMT") : u"GMT" + theSign + theHours + u":" + theRest;
}

Characters PlainDateFormat::FormatPiece(const Piece& thePiece, const CFGregorianDate& theDate,
                                        CFAbsoluteTime theTime) const
{
    const size_t theCount = thePiece.theCount;
    const SInt64 theYear = theDate.year > 0 ? theDate.year : 1 - SInt64{theDate.year};
    switch (thePiece.theLetter) {
    case 0:
        return thePiece.theText;
    case u'G':
        return Name(DateNames::kEras, theDate.year > 0 ? 1 : 0);
    case u'y':
        return theCount == 2 ? Padded(theYear % 100, 2) : Padded(theYear, theCount);
    case u'M':
        return theCount > 3    ? Name(DateNames::kMonths, theDate.month - 1)
               : theCount == 3 ? Name(DateNames::kShortMonths, theDate.month - 1)
                               : Padded(theDate.month, theCount);
    case u'd':
        return Padded(theDate.day, theCount);
    case u'D':
        return Padded(CFAbsoluteTimeGetDayOfYear(theTime, mZone), theCount);
    case u'E':
        return Name(theCount > 3 ? DateNames::kWeekdays : DateNames::kShortWeekdays,
                    CFAbsoluteTimeGetDayOfWeek(theTime, mZone) % 7);
    case u'a':
        return Name(DateNames::kHalvesOfDay, theDate.hour / 12);
    case u'h':
        return Padded((theDate.hour + 11) % 12 + 1, theCount);
    case u'K':
        return Padded(theDate.hour % 12, theCount);
    case u'H':
        return Padded(theDate.hour, theCount);
    case u'k':
        return Padded(theDate.hour == 0 ? 24 : theDate.hour, theCount);
    case u'm':
        return Padded(theDate.minute, theCount);
    case u's':
        return Padded(static_cast<int>(theDate.second), theCount);
    case u'S': {
        const int theMilliseconds =
            static_cast<int>(std::lround((theDate.second - std::floor(theDate.second)) * 1000));
        Characters theText = Padded(std::min(theMilliseconds, 999), 3);
        theText.resize(theCount, u'0');
        return theText;
    }
    case u'z':
    case u'Z':
        return FormatZone(thePiece, theTime);
    default:
        return {};
    }
}

Characters PlainDateFormat::Format(CFAbsoluteTime theTime) const
{
    // As ICU has it: to the millisecond.
    const CFAbsoluteTime theRounded = std::round(theTime * 1000) / 1000;
    const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theRounded, mZone);
    Characters theText;
    for (const Piece& thePiece : ParsePattern(mPattern)) {
        theText += FormatPiece(thePiece, theDate, theRounded);
    }
    return theText;
}

// Reading

// The number in no more than theMost digits.
std::optional<SInt64> TakeNumber(const Characters& theText, size_t& ioPosition, size_t theMost)
{
    SInt64 theNumber = 0;
    const size_t theFirst = ioPosition;
    while (ioPosition < theText.size() && ioPosition - theFirst < theMost && theText[ioPosition] >= u'0' &&
           theText[ioPosition] <= u'9') {
        theNumber = theNumber * 10 + (theText[ioPosition++] - u'0');
    }
    return ioPosition == theFirst ? std::nullopt : std::optional<SInt64>(theNumber);
}

bool PlainDateFormat::ParseText(const Characters& theExpected, const Characters& theText,
                                size_t& ioPosition) const
{
    const bool theIsBlank = theExpected == u" ";
    if (theIsBlank && mIsLenient) {
        while (ioPosition < theText.size() && theText[ioPosition] == u' ') {
            ++ioPosition;
        }
        return true;
    }
    const bool theIsThere = Has(theText, ioPosition, theExpected);
    ioPosition += theIsThere ? theExpected.size() : 0;
    return theIsThere;
}

std::optional<int> PlainDateFormat::ParseName(std::initializer_list<DateNames> theKinds,
                                              const Characters& theText, size_t& ioPosition) const
{
    for (const DateNames theKind : theKinds) {
        const std::vector<Characters>& theNames = mNames[IndexOf(theKind)];
        for (size_t theIndex = 0; theIndex < theNames.size(); ++theIndex) {
            if (!theNames[theIndex].empty() && Has(theText, ioPosition, theNames[theIndex])) {
                ioPosition += theNames[theIndex].size();
                return static_cast<int>(theIndex);
            }
        }
    }
    return std::nullopt;
}

bool PlainDateFormat::ParseYear(size_t theCount, bool theIsTight, const Characters& theText,
                                size_t& ioPosition, Fields& ioFields) const
{
    constexpr size_t kMostDigits = 6;
    const size_t theFirst = ioPosition;
    const auto theYear = TakeNumber(theText, ioPosition, theIsTight ? theCount : kMostDigits);
    ioFields.theYear = theYear.value_or(0);
    if (theYear && theCount == 2 && ioPosition - theFirst == 2) {
        const SInt64 theStart = CFAbsoluteTimeGetGregorianDate(mTwoDigitStart, mZone).year;
        ioFields.theYear = theStart + FloorRemainder(*theYear - theStart, 100);
    }
    return theYear.has_value();
}

// "GMT", "GMT+01:30", "+0130" and "Z".
bool PlainDateFormat::ParseZone(const Characters& theText, size_t& ioPosition, Fields& ioFields) const
{
    const bool theHasName = Has(theText, ioPosition, u"GMT") || Has(theText, ioPosition, u"UTC");
    ioPosition += theHasName ? 3 : 0;
    const bool theHasSign =
        ioPosition < theText.size() && (theText[ioPosition] == u'+' || theText[ioPosition] == u'-');
    if (!theHasSign) {
        ioFields.theZone = 0;
        return theHasName;
    }
    const int theSign = theText[ioPosition++] == u'-' ? -1 : 1;
    const auto theHours = TakeNumber(theText, ioPosition, 2);
    ioPosition += Has(theText, ioPosition, u":") ? 1 : 0;
    const auto theMinutes = TakeNumber(theText, ioPosition, 2);
    ioFields.theZone = theSign * static_cast<int>(theHours.value_or(0) * 3600 + theMinutes.value_or(0) * 60);
    return theHours && theMinutes && *theHours <= 18 && *theMinutes < 60;
}

bool PlainDateFormat::ParsePiece(const Piece& thePiece, bool theIsTight, const Characters& theText,
                                 size_t& ioPosition, Fields& ioFields) const
{
    constexpr size_t kMostDigits = 6;
    const size_t theMost = theIsTight ? thePiece.theCount : kMostDigits;
    const auto theNumber = [&](SInt64& theField) {
        const auto theFound = TakeNumber(theText, ioPosition, theMost);
        theField = theFound.value_or(0);
        return theFound.has_value();
    };
    const auto theName = [&](std::initializer_list<DateNames> theKinds) {
        return ParseName(theKinds, theText, ioPosition);
    };
    switch (thePiece.theLetter) {
    case 0:
        return ParseText(thePiece.theText, theText, ioPosition);
    case u'G': {
        const auto theEra = theName({DateNames::kEras});
        ioFields.theEra = theEra.value_or(1);
        return theEra.has_value();
    }
    case u'y':
        return ParseYear(thePiece.theCount, theIsTight, theText, ioPosition, ioFields);
    case u'M': {
        if (thePiece.theCount < 3) {
            return theNumber(ioFields.theMonth);
        }
        const auto theMonth = theName({DateNames::kMonths, DateNames::kShortMonths});
        ioFields.theMonth = theMonth.value_or(0) + 1;
        return theMonth.has_value();
    }
    case u'd':
        return theNumber(ioFields.theDay);
    case u'D':
        return theNumber(ioFields.theDayOfYear);
    case u'E':
        return theName({DateNames::kWeekdays, DateNames::kShortWeekdays}).has_value();
    case u'a': {
        const auto theHalf = theName({DateNames::kHalvesOfDay});
        ioFields.theHalf = theHalf.value_or(0);
        return theHalf.has_value();
    }
    case u'h':
    case u'K':
        return theNumber(ioFields.theHour12);
    case u'H':
        return theNumber(ioFields.theHour);
    case u'k': {
        const bool theIsThere = theNumber(ioFields.theHour);
        ioFields.theHour = ioFields.theHour == 24 ? 0 : ioFields.theHour;
        return theIsThere;
    }
    case u'm':
        return theNumber(ioFields.theMinute);
    case u's':
        return theNumber(ioFields.theSecond);
    case u'S': {
        const size_t theFirst = ioPosition;
        const auto theDigits = TakeNumber(theText, ioPosition, kMostDigits);
        ioFields.theFraction = static_cast<double>(theDigits.value_or(0)) /
                               std::pow(10, static_cast<double>(ioPosition - theFirst));
        return theDigits.has_value();
    }
    case u'z':
    case u'Z':
        return ParseZone(theText, ioPosition, ioFields);
    default:
        return false;
    }
}

CFAbsoluteTime PlainDateFormat::TimeOf(const Fields& theFields) const
{
    const SInt64 theYear = theFields.theEra == 0 ? 1 - theFields.theYear : theFields.theYear;
    const SInt64 theMonths = theYear * 12 + theFields.theMonth - 1;
    const SInt64 theFirst =
        DaysSince2001({FloorQuotient(theMonths, 12), static_cast<int>(FloorRemainder(theMonths, 12)) + 1, 1});
    const SInt64 theDays = theFields.theDayOfYear > 0
                               ? DaysSince2001({theYear, 1, 1}) + theFields.theDayOfYear - 1
                               : theFirst + theFields.theDay - 1;
    const SInt64 theHour = theFields.theHour12 < 0
                               ? theFields.theHour
                               : theFields.theHour12 % 12 + SInt64{theFields.theHalf} * 12;
    const double theLocalTime =
        static_cast<double>(theDays) * kSecondsPerDay +
        static_cast<double>(theHour * 3600 + theFields.theMinute * 60 + theFields.theSecond) +
        theFields.theFraction;
    return theFields.theZone ? theLocalTime - *theFields.theZone : MomentOfLocalTime(mZone, theLocalTime);
}

std::optional<DateFormat::Reading> PlainDateFormat::Parse(const Characters& theText) const
{
    Fields theFields;
    size_t thePosition = 0;
    const std::vector<Piece> thePieces = ParsePattern(mPattern);
    for (size_t theIndex = 0; theIndex < thePieces.size(); ++theIndex) {
        // Digits behind which others follow at once have their exact number.
        const bool theIsTight = theIndex + 1 < thePieces.size() && IsNumber(thePieces[theIndex + 1]);
        if (!ParsePiece(thePieces[theIndex], theIsTight, theText, thePosition, theFields)) {
            return std::nullopt;
        }
    }
    if (thePosition == 0 || (!mIsLenient && !IsValid(theFields))) {
        return std::nullopt;
    }
    return Reading{TimeOf(theFields), thePosition};
}

} // namespace

std::unique_ptr<DateFormat> MakeDateFormat(const std::string&, CFDateFormatterStyle, CFDateFormatterStyle)
{
    return std::make_unique<PlainDateFormat>(Characters());
}

} // namespace Host
