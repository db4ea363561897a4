// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Decimal.h"

#include "CFText.h"
#include "CFUnicode.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Host {

namespace {

// Points further away than any number's: what is behind them counts for nothing.
constexpr int kFarthestPoint = 1000000;

// The number in theText from ioPosition on, no larger than kFarthestPoint.
int ReadExponent(const std::string& theText, size_t& ioPosition)
{
    int theNumber = 0;
    while (ioPosition < theText.size() && IsDigit(theText[ioPosition])) {
        theNumber = std::min(theNumber * 10 + (theText[ioPosition] - '0'), kFarthestPoint);
        ++ioPosition;
    }
    return theNumber;
}

bool TakeCharacter(const std::string& theText, size_t& ioPosition, const char* theChoice)
{
    const bool theIsThere =
        ioPosition < theText.size() && std::string(theChoice).find(theText[ioPosition]) != std::string::npos;
    ioPosition += theIsThere ? 1 : 0;
    return theIsThere;
}

void ReadDigits(const std::string& theText, size_t& ioPosition, std::string& theDigits)
{
    while (ioPosition < theText.size() && IsDigit(theText[ioPosition])) {
        theDigits.push_back(theText[ioPosition++]);
    }
}

// How what is left out compares with a half of the last digit that stays: -1, 0 or 1.
int CompareRestWithHalf(const std::string& theDigits, size_t theKept)
{
    if (theDigits[theKept] != '5') {
        return theDigits[theKept] < '5' ? -1 : 1;
    }
    return theDigits.size() > theKept + 1 ? 1 : 0;
}

bool RoundsAway(const Decimal& theDecimal, int theHalf, bool theLastIsOdd,
                CFNumberFormatterRoundingMode theMode)
{
    switch (theMode) {
    case kCFNumberFormatterRoundCeiling:
        return !theDecimal.theIsNegative;
    case kCFNumberFormatterRoundFloor:
        return theDecimal.theIsNegative;
    case kCFNumberFormatterRoundDown:
        return false;
    case kCFNumberFormatterRoundUp:
        return true;
    case kCFNumberFormatterRoundHalfDown:
        return theHalf > 0;
    case kCFNumberFormatterRoundHalfUp:
        return theHalf >= 0;
    default:
        return theHalf > 0 || (theHalf == 0 && theLastIsOdd);
    }
}

// Adds one to the last digit.
void Increment(Decimal& ioDecimal)
{
    size_t theIndex = ioDecimal.theDigits.size();
    while (theIndex > 0 && ioDecimal.theDigits[theIndex - 1] == '9') {
        ioDecimal.theDigits[--theIndex] = '0';
    }
    if (theIndex > 0) {
        ++ioDecimal.theDigits[theIndex - 1];
        return;
    }
    ioDecimal.theDigits.insert(0, 1, '1');
    ++ioDecimal.thePoint;
}

} // namespace

void Normalise(Decimal& ioDecimal)
{
    const size_t theFirst = std::min(ioDecimal.theDigits.find_first_not_of('0'), ioDecimal.theDigits.size());
    ioDecimal.theDigits.erase(0, theFirst);
    ioDecimal.thePoint -= static_cast<int>(theFirst);
    ioDecimal.theDigits.erase(ioDecimal.theDigits.find_last_not_of('0') + 1);
    if (ioDecimal.theDigits.empty()) {
        ioDecimal.thePoint = 0;
    }
}

Decimal DecimalOf(double theNumber)
{
    for (int theDigits = 15;; ++theDigits) {
        const std::string theText = FormatInCLocale("%.*e", theDigits - 1, theNumber);
        if (theDigits == 17 || ParseInCLocale(theText) == theNumber) {
            return ParseDecimal(theText).value_or(Decimal());
        }
    }
}

Decimal DecimalOf(SInt64 theNumber)
{
    return ParseDecimal(FormatInCLocale("%lld", theNumber)).value_or(Decimal());
}

std::optional<Decimal> ParseDecimal(const std::string& theText)
{
    Decimal theDecimal;
    size_t thePosition = 0;
    theDecimal.theIsNegative = !theText.empty() && theText[0] == '-';
    TakeCharacter(theText, thePosition, "+-");
    ReadDigits(theText, thePosition, theDecimal.theDigits);
    theDecimal.thePoint = static_cast<int>(theDecimal.theDigits.size());
    if (TakeCharacter(theText, thePosition, ".")) {
        ReadDigits(theText, thePosition, theDecimal.theDigits);
    }
    if (theDecimal.theDigits.empty()) {
        return std::nullopt;
    }
    if (TakeCharacter(theText, thePosition, "Ee")) {
        const bool theIsNegative = thePosition < theText.size() && theText[thePosition] == '-';
        TakeCharacter(theText, thePosition, "+-");
        const int theExponent = ReadExponent(theText, thePosition);
        theDecimal.thePoint += theIsNegative ? -theExponent : theExponent;
    }
    if (thePosition != theText.size()) {
        return std::nullopt;
    }
    Normalise(theDecimal);
    return theDecimal;
}

void RoundDecimal(Decimal& ioDecimal, int theCount, CFNumberFormatterRoundingMode theMode)
{
    const SInt64 theKept = SInt64{ioDecimal.thePoint} + theCount;
    if (theKept >= static_cast<SInt64>(ioDecimal.theDigits.size())) {
        return;
    }
    if (theKept < 0) {
        // All of it is less than a half; zeros before it make the same rule hold.
        ioDecimal.theDigits.insert(0, 1, '0');
        ioDecimal.thePoint = 1 - theCount;
    }
    const size_t theLength = theKept < 0 ? 0 : static_cast<size_t>(theKept);
    const int theHalf = CompareRestWithHalf(ioDecimal.theDigits, theLength);
    const bool theLastIsOdd = theLength > 0 && (ioDecimal.theDigits[theLength - 1] - '0') % 2 != 0;
    ioDecimal.theDigits.erase(theLength);
    if (theKept < 0) {
        ioDecimal.thePoint = -theCount;
    }
    if (RoundsAway(ioDecimal, theHalf, theLastIsOdd, theMode)) {
        Increment(ioDecimal);
    }
    Normalise(ioDecimal);
}

double DoubleOf(const Decimal& theDecimal)
{
    return ParseInCLocale((theDecimal.theIsNegative ? "-." : ".") + theDecimal.theDigits + "0e" +
                          std::to_string(theDecimal.thePoint));
}

std::optional<SInt64> IntegerOf(const Decimal& theDecimal)
{
    constexpr UInt64 kLargest = std::numeric_limits<SInt64>::max();
    constexpr int kMostDigits = 19;
    if (theDecimal.thePoint > kMostDigits) {
        return std::nullopt;
    }
    UInt64 theNumber = 0;
    for (int theIndex = 0; theIndex < theDecimal.thePoint; ++theIndex) {
        const size_t thePlace = static_cast<size_t>(theIndex);
        const bool theIsThere = thePlace < theDecimal.theDigits.size();
        theNumber =
            theNumber * 10 + static_cast<UInt64>(theIsThere ? theDecimal.theDigits[thePlace] - '0' : 0);
    }
    if (theNumber > kLargest + (theDecimal.theIsNegative ? 1 : 0)) {
        return std::nullopt;
    }
    return static_cast<SInt64>(theDecimal.theIsNegative ? 0 - theNumber : theNumber);
}

} // namespace Host
