// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Numbers in English, without any data: what there is where ICU is not.

#include "Formats/NumberFormat.h"

#include "NumberPattern.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Host {

namespace {

constexpr size_t kTexts = static_cast<size_t>(NumberSymbol::kNegativeSuffix) + 1;

size_t IndexOf(NumberSymbol theText)
{
    return static_cast<size_t>(theText);
}

struct Currency
{
    const char16_t* theCode;
    const char16_t* theSign;
    int theFractionDigits;
};

const Currency kCurrencies[] = {
    {u"AUD", u"A$", 2},     {u"CAD", u"CA$", 2},    {u"CHF", u"CHF", 2}, {u"EUR", u"\u20AC", 2},
    {u"GBP", u"\u00A3", 2}, {u"JPY", u"\u00A5", 0}, {u"USD", u"$", 2},
};

// Null for one that is not known.
const Currency* FindCurrency(const Characters& theCode)
{
    const auto theFound =
        std::find_if(std::begin(kCurrencies), std::end(kCurrencies),
                     [&theCode](const Currency& theCurrency) { return theCode == theCurrency.theCode; });
    return theFound != std::end(kCurrencies) ? &*theFound : nullptr;
}

Characters Quoted(const Characters& theText)
{
    Characters theQuoted;
    for (const char16_t theCharacter : theText) {
        theQuoted += theCharacter == u'\'' ? Characters(u"''") : Characters(u"'") + theCharacter + u"'";
    }
    return theQuoted;
}

// As much of theText as is theExpected, at thePosition.
bool Has(const Characters& theText, size_t thePosition, const Characters& theExpected)
{
    return theText.compare(std::min(thePosition, theText.size()), theExpected.size(), theExpected) == 0;
}

class PlainNumberFormat : public NumberFormat
{
public:
    explicit PlainNumberFormat(const Characters& thePattern) { PlainNumberFormat::SetPattern(thePattern); }

    Characters Pattern() const override { return TextOfNumberPattern(mPattern); }
    void SetPattern(const Characters& thePattern) override;
    Characters Format(SInt64 theNumber) const override;
    Characters Format(double theNumber) const override;
    std::optional<Reading> Parse(const Characters& theText, bool theIsInteger) override;
    int Attribute(NumberAttribute theAttribute) const override;
    void SetAttribute(NumberAttribute theAttribute, int theValue) override;
    double RoundingIncrement() const override { return mIncrement; }
    void SetRoundingIncrement(double theIncrement) override { mIncrement = theIncrement; }
    Characters Text(NumberSymbol theText) const override;
    void SetText(NumberSymbol theText, const Characters& theCharacters) override;

private:
    Characters* Affix(NumberSymbol theText);
    int* Field(NumberAttribute theAttribute);
    bool IsCurrency() const;
    Characters Affix(const Characters& thePattern) const;
    int Shift() const;
    Characters FormatDecimal(Decimal theNumber) const;
    Characters FormatOther(double theNumber) const;
    Characters Digits(const Decimal& theNumber) const;
    Characters Scientific(Decimal theNumber) const;
    Characters Whole(const std::string& theDigits) const;
    Characters Padded(const Characters& thePrefix, const Characters& theDigits,
                      const Characters& theSuffix) const;
    std::optional<Reading> ParseWith(const Characters& theText, bool theIsNegative, bool theIsInteger) const;
    size_t TakeDigits(const Characters& theText, size_t thePosition, bool theIsInteger,
                      std::string& theNumber) const;
    size_t TakeExponent(const Characters& theText, size_t thePosition, std::string& theNumber) const;

    NumberPattern mPattern;
    int mMaxIntegerDigits = 0; // 0: as many as there are
    int mRoundingMode = kCFNumberFormatterRoundHalfEven;
    int mWidth = 0;
    int mPadding = kCFNumberFormatterPadBeforePrefix;
    int mMultiplier = 1;
    int mUsesGroups = 0;
    int mShowsDecimal = 0;
    int mIsLenient = 0;
    double mIncrement = 0;
    std::array<Characters, kTexts> mTexts = {u".", u".", u",",      u",",   u"%", u"\u2030", u"-",
                                             u"+", u"E", u"\u221E", u"NaN", u"$", u"USD",    u"USD",
                                             u" ", u"",  u"",       u"",    u""};
};

Characters* PlainNumberFormat::Affix(NumberSymbol theText)
{
    switch (theText) {
    case NumberSymbol::kPositivePrefix:
        return &mPattern.thePositivePrefix;
    case NumberSymbol::kPositiveSuffix:
        return &mPattern.thePositiveSuffix;
    case NumberSymbol::kNegativePrefix:
        return &mPattern.theNegativePrefix;
    case NumberSymbol::kNegativeSuffix:
        return &mPattern.theNegativeSuffix;
    default:
        return nullptr;
    }
}

int* PlainNumberFormat::Field(NumberAttribute theAttribute)
{
    switch (theAttribute) {
    case NumberAttribute::kMinIntegerDigits:
        return &mPattern.theMinIntegerDigits;
    case NumberAttribute::kMaxIntegerDigits:
        return &mMaxIntegerDigits;
    case NumberAttribute::kMinFractionDigits:
        return &mPattern.theMinFractionDigits;
    case NumberAttribute::kMaxFractionDigits:
        return &mPattern.theMaxFractionDigits;
    case NumberAttribute::kGroupingSize:
    case NumberAttribute::kSecondaryGroupingSize:
        return &mPattern.theGroupingSize;
    case NumberAttribute::kRoundingMode:
        return &mRoundingMode;
    case NumberAttribute::kFormatWidth:
        return &mWidth;
    case NumberAttribute::kPaddingPosition:
        return &mPadding;
    case NumberAttribute::kMultiplier:
        return &mMultiplier;
    case NumberAttribute::kUseGrouping:
        return &mUsesGroups;
    case NumberAttribute::kAlwaysShowDecimal:
        return &mShowsDecimal;
    default:
        return &mIsLenient;
    }
}

void PlainNumberFormat::SetPattern(const Characters& thePattern)
{
    if (const auto theParsed = ParseNumberPattern(thePattern)) {
        mPattern = *theParsed;
        mUsesGroups = mPattern.theGroupingSize > 0 ? 1 : 0;
        mMultiplier = 1;
        for (int theShift = Shift(); theShift > 0; --theShift) {
            mMultiplier *= 10;
        }
    }
}

bool PlainNumberFormat::IsCurrency() const
{
    return (mPattern.thePositivePrefix + mPattern.thePositiveSuffix).find(u'\u00A4') != Characters::npos;
}

// By how many places a sign in the pattern moves the point.
int PlainNumberFormat::Shift() const
{
    const Characters theAffixes = mPattern.thePositivePrefix + mPattern.thePositiveSuffix;
    return theAffixes.find(u'%') != Characters::npos        ? 2
           : theAffixes.find(u'\u2030') != Characters::npos ? 3
                                                            : 0;
}

// What stands before or behind a number, with its quotes taken off and the symbols in.
Characters PlainNumberFormat::Affix(const Characters& thePattern) const
{
    Characters theText;
    bool theIsQuoted = false;
    for (size_t theIndex = 0; theIndex < thePattern.size(); ++theIndex) {
        const char16_t theCharacter = thePattern[theIndex];
        if (theCharacter == u'\'' && Has(thePattern, theIndex, u"''") && !theIsQuoted) {
            theText.push_back(theCharacter);
            ++theIndex;
        } else if (theCharacter == u'\'') {
            theIsQuoted = !theIsQuoted;
        } else if (theIsQuoted) {
            theText.push_back(theCharacter);
        } else if (Has(thePattern, theIndex, u"\u00A4\u00A4")) {
            theText += Text(NumberSymbol::kInternationalCurrencySymbol);
            ++theIndex;
        } else {
            theText += theCharacter == u'\u00A4'   ? Text(NumberSymbol::kCurrencySymbol)
                       : theCharacter == u'%'      ? Text(NumberSymbol::kPercent)
                       : theCharacter == u'\u2030' ? Text(NumberSymbol::kPerMill)
                       : theCharacter == u'-'      ? Text(NumberSymbol::kMinus)
                       : theCharacter == u'+'      ? Text(NumberSymbol::kPlus)
                                                   : Characters(1, theCharacter);
        }
    }
    return theText;
}

Characters PlainNumberFormat::Format(SInt64 theNumber) const
{
    return mMultiplier == 1 || Shift() > 0 ? FormatDecimal(DecimalOf(theNumber))
                                           : Format(static_cast<double>(theNumber));
}

Characters PlainNumberFormat::Format(double theNumber) const
{
    double theValue = Shift() > 0 ? theNumber : theNumber * mMultiplier;
    if (mIncrement > 0) {
        theValue = std::nearbyint(theValue / mIncrement) * mIncrement;
    }
    return std::isfinite(theValue) ? FormatDecimal(DecimalOf(theValue)) : FormatOther(theValue);
}

Characters PlainNumberFormat::FormatOther(double theNumber) const
{
    if (std::isnan(theNumber)) {
        return Text(NumberSymbol::kNaN);
    }
    return theNumber < 0 ? Text(NumberSymbol::kNegativePrefix) + Text(NumberSymbol::kInfinity) +
                               Text(NumberSymbol::kNegativeSuffix)
                         : Text(NumberSymbol::kPositivePrefix) + Text(NumberSymbol::kInfinity) +
                               Text(NumberSymbol::kPositiveSuffix);
}

// The digits of a whole number, in groups.
Characters PlainNumberFormat::Whole(const std::string& theDigits) const
{
    const size_t theGroup = mUsesGroups != 0 ? static_cast<size_t>(mPattern.theGroupingSize) : 0;
    const Characters theSeparator =
        Text(IsCurrency() ? NumberSymbol::kCurrencyGroupingSeparator : NumberSymbol::kGroupingSeparator);
    Characters theText;
    for (size_t theIndex = 0; theIndex < theDigits.size(); ++theIndex) {
        if (theGroup > 0 && theIndex > 0 && (theDigits.size() - theIndex) % theGroup == 0) {
            theText += theSeparator;
        }
        theText.push_back(static_cast<char16_t>(theDigits[theIndex]));
    }
    return theText;
}

Characters PlainNumberFormat::Digits(const Decimal& theNumber) const
{
    const size_t thePoint = static_cast<size_t>(std::max(theNumber.thePoint, 0));
    std::string theWhole = theNumber.theDigits.substr(0, std::min(thePoint, theNumber.theDigits.size()));
    theWhole.append(thePoint - theWhole.size(), '0');
    std::string theFraction(static_cast<size_t>(std::max(-theNumber.thePoint, 0)), '0');
    theFraction += theNumber.theDigits.substr(std::min(thePoint, theNumber.theDigits.size()));
    const size_t theLeast = static_cast<size_t>(mPattern.theMinIntegerDigits);
    theWhole.insert(0, theLeast - std::min(theLeast, theWhole.size()), '0');
    const size_t theLeastFraction = static_cast<size_t>(mPattern.theMinFractionDigits);
    theFraction.append(theLeastFraction - std::min(theLeastFraction, theFraction.size()), '0');
    if (mMaxIntegerDigits > 0 && theWhole.size() > static_cast<size_t>(mMaxIntegerDigits)) {
        theWhole.erase(0, theWhole.size() - static_cast<size_t>(mMaxIntegerDigits));
    }
    if (theWhole.empty() && theFraction.empty()) {
        theWhole = "0";
    }
    Characters theText = Whole(theWhole);
    if (!theFraction.empty() || mShowsDecimal != 0) {
        theText +=
            Text(IsCurrency() ? NumberSymbol::kCurrencyDecimalSeparator : NumberSymbol::kDecimalSeparator);
    }
    return theText.append(theFraction.begin(), theFraction.end());
}

Characters PlainNumberFormat::Scientific(Decimal theNumber) const
{
    if (mPattern.theMaxFractionDigits > 0 || mPattern.theMinIntegerDigits > 0) {
        RoundDecimal(theNumber, mPattern.theMaxFractionDigits + 1 - theNumber.thePoint, mRoundingMode);
    }
    const int theExponent = theNumber.theDigits.empty() ? 0 : theNumber.thePoint - 1;
    theNumber.thePoint -= theExponent;
    std::string theText = std::to_string(std::abs(theExponent));
    const size_t theLeast = static_cast<size_t>(mPattern.theExponentDigits);
    theText.insert(0, theLeast - std::min(theLeast, theText.size()), '0');
    return Digits(theNumber) + Text(NumberSymbol::kExponent) +
           (theExponent < 0 ? Text(NumberSymbol::kMinus) : Characters()) + CharactersOf(theText);
}

Characters PlainNumberFormat::Padded(const Characters& thePrefix, const Characters& theDigits,
                                     const Characters& theSuffix) const
{
    const size_t theLength = thePrefix.size() + theDigits.size() + theSuffix.size();
    const size_t theWidth = static_cast<size_t>(mWidth);
    Characters thePadding;
    while (theLength + thePadding.size() < theWidth) {
        thePadding +=
            Text(NumberSymbol::kPaddingCharacter).empty() ? u' ' : Text(NumberSymbol::kPaddingCharacter)[0];
    }
    switch (mPadding) {
    case kCFNumberFormatterPadBeforePrefix:
        return thePadding + thePrefix + theDigits + theSuffix;
    case kCFNumberFormatterPadAfterPrefix:
        return thePrefix + thePadding + theDigits + theSuffix;
    case kCFNumberFormatterPadBeforeSuffix:
        return thePrefix + theDigits + thePadding + theSuffix;
    default:
        return thePrefix + theDigits + theSuffix + thePadding;
    }
}

Characters PlainNumberFormat::FormatDecimal(Decimal theNumber) const
{
    theNumber.thePoint += theNumber.theDigits.empty() ? 0 : Shift();
    if (mPattern.theExponentDigits == 0) {
        RoundDecimal(theNumber, std::max(mPattern.theMaxFractionDigits, mPattern.theMinFractionDigits),
                     mRoundingMode);
    }
    const Characters theDigits = mPattern.theExponentDigits > 0 ? Scientific(theNumber) : Digits(theNumber);
    return theNumber.theIsNegative
               ? Padded(Text(NumberSymbol::kNegativePrefix), theDigits, Text(NumberSymbol::kNegativeSuffix))
               : Padded(Text(NumberSymbol::kPositivePrefix), theDigits, Text(NumberSymbol::kPositiveSuffix));
}

size_t PlainNumberFormat::TakeDigits(const Characters& theText, size_t thePosition, bool theIsInteger,
                                     std::string& theNumber) const
{
    const Characters theGroup =
        Text(IsCurrency() ? NumberSymbol::kCurrencyGroupingSeparator : NumberSymbol::kGroupingSeparator);
    const Characters thePoint =
        Text(IsCurrency() ? NumberSymbol::kCurrencyDecimalSeparator : NumberSymbol::kDecimalSeparator);
    const auto theIsDigit = [&](size_t theIndex) {
        return theIndex < theText.size() && theText[theIndex] >= u'0' && theText[theIndex] <= u'9';
    };
    bool theHasPoint = false;
    for (;;) {
        if (theIsDigit(thePosition)) {
            theNumber.push_back(static_cast<char>(theText[thePosition++]));
        } else if (!theHasPoint && !theIsInteger && !thePoint.empty() &&
                   Has(theText, thePosition, thePoint)) {
            theHasPoint = true;
            theNumber.push_back('.');
            thePosition += thePoint.size();
        } else if (!theHasPoint && mUsesGroups != 0 && !theNumber.empty() && !theGroup.empty() &&
                   Has(theText, thePosition, theGroup) && theIsDigit(thePosition + theGroup.size())) {
            thePosition += theGroup.size();
        } else {
            return thePosition;
        }
    }
}

size_t PlainNumberFormat::TakeExponent(const Characters& theText, size_t thePosition,
                                       std::string& theNumber) const
{
    size_t theEnd = thePosition + Text(NumberSymbol::kExponent).size();
    if (!Has(theText, thePosition, Text(NumberSymbol::kExponent))) {
        return thePosition;
    }
    std::string theExponent = "E";
    if (Has(theText, theEnd, Text(NumberSymbol::kMinus))) {
        theEnd += Text(NumberSymbol::kMinus).size();
        theExponent.push_back('-');
    }
    const size_t theFirst = theEnd;
    while (theEnd < theText.size() && theText[theEnd] >= u'0' && theText[theEnd] <= u'9') {
        theExponent.push_back(static_cast<char>(theText[theEnd++]));
    }
    if (theEnd == theFirst) {
        return thePosition;
    }
    theNumber += theExponent;
    return theEnd;
}

std::optional<NumberFormat::Reading> PlainNumberFormat::ParseWith(const Characters& theText,
                                                                  bool theIsNegative, bool theIsInteger) const
{
    const Characters thePrefix =
        Text(theIsNegative ? NumberSymbol::kNegativePrefix : NumberSymbol::kPositivePrefix);
    const Characters theSuffix =
        Text(theIsNegative ? NumberSymbol::kNegativeSuffix : NumberSymbol::kPositiveSuffix);
    if (!Has(theText, 0, thePrefix)) {
        return std::nullopt;
    }
    std::string theNumber;
    size_t theEnd = TakeDigits(theText, thePrefix.size(), theIsInteger, theNumber);
    if (mPattern.theExponentDigits > 0) {
        theEnd = TakeExponent(theText, theEnd, theNumber);
    }
    auto theDecimal = ParseDecimal((theIsNegative ? "-" : "") + theNumber);
    if (!theDecimal || !Has(theText, theEnd, theSuffix)) {
        return std::nullopt;
    }
    theDecimal->thePoint -= theDecimal->theDigits.empty() ? 0 : Shift();
    if (mMultiplier != 1 && Shift() == 0) {
        theDecimal = DecimalOf(DoubleOf(*theDecimal) / mMultiplier);
    }
    return Reading{*theDecimal, std::nullopt, theEnd + theSuffix.size()};
}

std::optional<NumberFormat::Reading> PlainNumberFormat::Parse(const Characters& theText, bool theIsInteger)
{
    for (const double theOther : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        const Characters theExpected = FormatOther(theOther);
        if (!theExpected.empty() && Has(theText, 0, theExpected)) {
            return Reading{{}, theOther, theExpected.size()};
        }
    }
    // The form that takes more of the text is meant.
    const auto thePositive = ParseWith(theText, false, theIsInteger);
    const auto theNegative = ParseWith(theText, true, theIsInteger);
    const bool theIsNegative =
        theNegative && (!thePositive || theNegative->theLength > thePositive->theLength);
    return theIsNegative ? theNegative : thePositive;
}

int PlainNumberFormat::Attribute(NumberAttribute theAttribute) const
{
    return *const_cast<PlainNumberFormat*>(this)->Field(theAttribute);
}

void PlainNumberFormat::SetAttribute(NumberAttribute theAttribute, int theValue)
{
    *Field(theAttribute) = theValue;
    if (theAttribute == NumberAttribute::kMinFractionDigits) {
        mPattern.theMaxFractionDigits = std::max(mPattern.theMaxFractionDigits, theValue);
    }
    if (theAttribute == NumberAttribute::kMaxFractionDigits) {
        mPattern.theMinFractionDigits = std::min(mPattern.theMinFractionDigits, theValue);
    }
}

Characters PlainNumberFormat::Text(NumberSymbol theText) const
{
    const Characters* const theAffix = const_cast<PlainNumberFormat*>(this)->Affix(theText);
    return theAffix == nullptr ? mTexts[IndexOf(theText)] : Affix(*theAffix);
}

void PlainNumberFormat::SetText(NumberSymbol theText, const Characters& theCharacters)
{
    if (Characters* const theAffix = Affix(theText)) {
        *theAffix = Quoted(theCharacters);
        return;
    }
    mTexts[IndexOf(theText)] = theCharacters;
    if (theText == NumberSymbol::kCurrencyCode) {
        const Currency* const theCurrency = FindCurrency(theCharacters);
        mTexts[IndexOf(NumberSymbol::kCurrencySymbol)] =
            theCurrency != nullptr ? Characters(theCurrency->theSign) : theCharacters;
        mTexts[IndexOf(NumberSymbol::kInternationalCurrencySymbol)] = theCharacters;
    }
}

} // namespace

std::unique_ptr<NumberFormat> MakeNumberFormat(const std::string&, CFNumberFormatterStyle theStyle)
{
    static const char16_t* const kPatterns[] = {u"0", u"#,##0.###", u"\u00A4#,##0.00", u"#,##0%", u"#E0"};
    if (theStyle == kCFNumberFormatterSpellOutStyle) {
        return nullptr;
    }
    return std::make_unique<PlainNumberFormat>(kPatterns[theStyle]);
}

bool CurrencyInfo(const Characters& theCode, int& outFractionDigits, double& outRoundingIncrement)
{
    const Currency* const theCurrency = FindCurrency(theCode);
    if (theCurrency == nullptr) {
        return false;
    }
    outFractionDigits = theCurrency->theFractionDigits;
    outRoundingIncrement = 0;
    return true;
}

} // namespace Host
