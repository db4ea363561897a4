// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NumberPattern.h"

namespace Host {

namespace {

// Reads a pattern from its beginning on.
class PatternReader
{
public:
    explicit PatternReader(const Characters& thePattern)
        : mPattern(thePattern)
    {
    }

    bool IsAtEnd() const { return mPosition == mPattern.size(); }
    bool Take(char16_t theCharacter)
    {
        const bool theIsThere = !IsAtEnd() && mPattern[mPosition] == theCharacter;
        mPosition += theIsThere ? 1 : 0;
        return theIsThere;
    }

    // What stands before or behind the digits; none when a quote is not closed, or when there is what is not
    // known here.
    std::optional<Characters> TakeAffix();
    bool TakeInteger(NumberPattern& ioPattern);
    bool TakeFraction(NumberPattern& ioPattern);
    bool TakeExponent(NumberPattern& ioPattern);

private:
    int Count(char16_t theCharacter)
    {
        int theCount = 0;
        while (Take(theCharacter)) {
            ++theCount;
        }
        return theCount;
    }

    const Characters& mPattern;
    size_t mPosition = 0;
};

std::optional<Characters> PatternReader::TakeAffix()
{
    Characters theAffix;
    bool theIsQuoted = false;
    while (!IsAtEnd() &&
           (theIsQuoted || std::u16string_view(u"#0,.;").find(mPattern[mPosition]) == Characters::npos)) {
        const char16_t theCharacter = mPattern[mPosition++];
        theIsQuoted = theIsQuoted != (theCharacter == u'\'');
        if (!theIsQuoted && std::u16string_view(u"@*123456789").find(theCharacter) != Characters::npos) {
            return std::nullopt;
        }
        theAffix.push_back(theCharacter);
    }
    return theIsQuoted ? std::nullopt : std::optional<Characters>(theAffix);
}

bool PatternReader::TakeInteger(NumberPattern& ioPattern)
{
    int theSinceComma = -1;
    bool theHasDigit = false;
    for (;;) {
        if (Take(u',')) {
            theSinceComma = 0;
            continue;
        }
        const bool theIsZero = Take(u'0');
        if (!theIsZero && (ioPattern.theMinIntegerDigits > 0 || !Take(u'#'))) {
            break;
        }
        theHasDigit = true;
        ioPattern.theMinIntegerDigits += theIsZero ? 1 : 0;
        theSinceComma += theSinceComma >= 0 ? 1 : 0;
    }
    ioPattern.theGroupingSize = theSinceComma > 0 ? theSinceComma : 0;
    return theHasDigit && theSinceComma != 0;
}

bool PatternReader::TakeFraction(NumberPattern& ioPattern)
{
    if (Take(u'.')) {
        ioPattern.theMinFractionDigits = Count(u'0');
        ioPattern.theMaxFractionDigits = ioPattern.theMinFractionDigits + Count(u'#');
    }
    return true;
}

bool PatternReader::TakeExponent(NumberPattern& ioPattern)
{
    if (Take(u'E')) {
        ioPattern.theExponentDigits = Count(u'0');
        return ioPattern.theExponentDigits > 0;
    }
    return true;
}

// The negative form of a pattern that has none of its own.
void AddMinus(NumberPattern& ioPattern)
{
    ioPattern.theNegativePrefix = u"-" + ioPattern.thePositivePrefix;
    ioPattern.theNegativeSuffix = ioPattern.thePositiveSuffix;
}

bool TakeNegative(PatternReader& theReader, NumberPattern& ioPattern)
{
    NumberPattern theOther;
    const auto thePrefix = theReader.TakeAffix();
    if (!thePrefix || !theReader.TakeInteger(theOther) || !theReader.TakeFraction(theOther) ||
        !theReader.TakeExponent(theOther)) {
        return false;
    }
    const auto theSuffix = theReader.TakeAffix();
    ioPattern.theNegativePrefix = *thePrefix;
    ioPattern.theNegativeSuffix = theSuffix.value_or(u"");
    return theSuffix.has_value();
}

Characters TextOfDigits(const NumberPattern& thePattern)
{
    const size_t theIntegers = static_cast<size_t>(thePattern.theMinIntegerDigits);
    const size_t theGroup = static_cast<size_t>(thePattern.theGroupingSize);
    Characters theText(theIntegers, u'0');
    if (theIntegers < theGroup + 1) {
        theText.insert(0, (theGroup == 0 ? 1 : theGroup + 1) - theIntegers, u'#');
    }
    if (theGroup > 0) {
        theText.insert(theText.size() - theGroup, 1, u',');
    }
    if (thePattern.theMaxFractionDigits > 0) {
        theText.push_back(u'.');
        theText.append(static_cast<size_t>(thePattern.theMinFractionDigits), u'0');
        theText.append(static_cast<size_t>(thePattern.theMaxFractionDigits - thePattern.theMinFractionDigits),
                       u'#');
    }
    if (thePattern.theExponentDigits > 0) {
        theText.push_back(u'E');
        theText.append(static_cast<size_t>(thePattern.theExponentDigits), u'0');
    }
    return theText;
}

} // namespace

std::optional<NumberPattern> ParseNumberPattern(const Characters& thePattern)
{
    NumberPattern theResult;
    PatternReader theReader(thePattern);
    const auto thePrefix = theReader.TakeAffix();
    if (!thePrefix || !theReader.TakeInteger(theResult) || !theReader.TakeFraction(theResult) ||
        !theReader.TakeExponent(theResult)) {
        return std::nullopt;
    }
    const auto theSuffix = theReader.TakeAffix();
    if (!theSuffix) {
        return std::nullopt;
    }
    theResult.thePositivePrefix = *thePrefix;
    theResult.thePositiveSuffix = *theSuffix;
    AddMinus(theResult);
    if (theReader.Take(u';') && !theReader.IsAtEnd() && !TakeNegative(theReader, theResult)) {
        return std::nullopt;
    }
    return theReader.IsAtEnd() ? std::optional<NumberPattern>(theResult) : std::nullopt;
}

Characters TextOfNumberPattern(const NumberPattern& thePattern)
{
    const Characters theDigits = TextOfDigits(thePattern);
    Characters theText = thePattern.thePositivePrefix + theDigits + thePattern.thePositiveSuffix;
    if (thePattern.theNegativePrefix != u"-" + thePattern.thePositivePrefix ||
        thePattern.theNegativeSuffix != thePattern.thePositiveSuffix) {
        theText += u";" + thePattern.theNegativePrefix + theDigits + thePattern.theNegativeSuffix;
    }
    return theText;
}

} // namespace Host
