// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumberShape.h"

#include <algorithm>
#include <limits>

namespace {

// An empty text may be null, as is everything where memory has run out: what is null again is meant so.
LmScopedReference<CFTypeRef> Property(CFNumberFormatterRef theFormatter, CFStringRef theKey)
{
    const CFTypeRef theValue = CFNumberFormatterCopyProperty(theFormatter, theKey);
    return LmScopedReference<CFTypeRef>(
        theValue != nullptr ? theValue : CFNumberFormatterCopyProperty(theFormatter, theKey));
}

LmCharacters TextProperty(CFNumberFormatterRef theFormatter, CFStringRef theKey)
{
    const LmScopedReference<CFTypeRef> theValue = Property(theFormatter, theKey);
    return theValue.Get() != nullptr && CFGetTypeID(theValue.Get()) == CFStringGetTypeID()
               ? LmCharactersOf(static_cast<CFStringRef>(theValue.Get()))
               : LmCharacters();
}

std::size_t SizeProperty(CFNumberFormatterRef theFormatter, CFStringRef theKey)
{
    int theNumber = 0;
    const LmScopedReference<CFTypeRef> theValue = Property(theFormatter, theKey);
    if (theValue.Get() != nullptr && CFGetTypeID(theValue.Get()) == CFNumberGetTypeID()) {
        CFNumberGetValue(static_cast<CFNumberRef>(theValue.Get()), kCFNumberIntType, &theNumber);
    }
    return static_cast<std::size_t>(std::max(theNumber, 0));
}

bool StartsWith(const LmCharacters& theText, std::size_t thePosition, const LmCharacters& theStart)
{
    return thePosition <= theText.size() && theText.compare(thePosition, theStart.size(), theStart) == 0;
}

bool EndsWith(const LmCharacters& theText, const LmCharacters& theEnd)
{
    return theText.size() >= theEnd.size() && StartsWith(theText, theText.size() - theEnd.size(), theEnd);
}

// Appends a digit; false where 64 bits are not enough.
bool AppendDigit(std::uint64_t& ioNumber, unsigned theDigit)
{
    constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();
    if (ioNumber > (kLargest - theDigit) / 10) {
        return false;
    }
    ioNumber = ioNumber * 10 + theDigit;
    return true;
}

LmScopedReference<CFStringRef> Written(CFNumberFormatterRef theFormatter, int theNumber)
{
    return LmScopedReference<CFStringRef>(LmRequireMemory(
        CFNumberFormatterCreateStringWithValue(nullptr, theFormatter, kCFNumberIntType, &theNumber)));
}

void SetCurrency(CFNumberFormatterRef theFormatter, CFStringRef theCode)
{
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterCurrencyCode, theCode);
    if (TextProperty(theFormatter, kCFNumberFormatterCurrencyCode) != LmCharactersOf(theCode)) {
        // Another than before where there was no memory, the same where the platform does not take it.
        CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterCurrencyCode, theCode);
    }
}

// 2 where they are not known. The answer is the same without memory, which hardly runs out twice.
unsigned PlacesOfCurrency(CFNumberFormatterRef theFormatter)
{
    SInt32 thePlaces = 2;
    const LmValue theCode = LmTextValue(TextProperty(theFormatter, kCFNumberFormatterCurrencyCode));
    const CFStringRef theText = LmRequireMemory(theCode.IsString() ? theCode.GetString() : nullptr);
    return CFNumberFormatterGetDecimalInfoForCurrencyCode(theText, &thePlaces, nullptr) ||
                   CFNumberFormatterGetDecimalInfoForCurrencyCode(theText, &thePlaces, nullptr)
               ? static_cast<unsigned>(std::max<SInt32>(thePlaces, 0))
               : 2;
}

} // namespace

LmNumberShape::LmNumberShape(CFLocaleRef theLocale, CFNumberFormatterStyle theStyle,
                             CFStringRef theCurrencyCode)
    : mStyle(theStyle),
      mDigits{u'0', u'1', u'2', u'3', u'4', u'5', u'6', u'7', u'8', u'9'},
      mDecimalSeparator(u"."),
      mNegative{u"-", LmCharacters()}
{
    const LmScopedReference<CFNumberFormatterRef> theFormatter(
        LmRequireMemory(CFNumberFormatterCreate(nullptr, theLocale, theStyle)));
    if (IsCurrency() && theCurrencyCode != nullptr && CFStringGetLength(theCurrencyCode) > 0) {
        SetCurrency(theFormatter.Get(), theCurrencyCode);
    }
    ReadDigits(theFormatter.Get());
    mDecimalSeparator =
        TextProperty(theFormatter.Get(), IsCurrency() ? kCFNumberFormatterCurrencyDecimalSeparator
                                                      : kCFNumberFormatterDecimalSeparator);
    mGroupingSeparator = FindSeparator(theFormatter.Get());
    // Between others, for a blank at the end would go.
    mPlainGroupingSeparator = LmPlainCharacters(u"0" + mGroupingSeparator + u"0");
    mPlainGroupingSeparator = mPlainGroupingSeparator.substr(1, mPlainGroupingSeparator.size() - 2);
    mGroupingSize = mPlainGroupingSeparator.empty()
                        ? 0
                        : SizeProperty(theFormatter.Get(), kCFNumberFormatterGroupingSize);
    mSecondaryGroupingSize = SizeProperty(theFormatter.Get(), kCFNumberFormatterSecondaryGroupingSize);
    if (mSecondaryGroupingSize == 0) {
        mSecondaryGroupingSize = mGroupingSize;
    }
    mPositive = {TextProperty(theFormatter.Get(), kCFNumberFormatterPositivePrefix),
                 TextProperty(theFormatter.Get(), kCFNumberFormatterPositiveSuffix)};
    mNegative = {TextProperty(theFormatter.Get(), kCFNumberFormatterNegativePrefix),
                 TextProperty(theFormatter.Get(), kCFNumberFormatterNegativeSuffix)};
    MakeReadable();
    mCurrencyPlaces = PlacesOfCurrency(theFormatter.Get());
}

// What the platform does not tell must not make two numbers look the same.
void LmNumberShape::MakeReadable()
{
    if (mDecimalSeparator.empty()) {
        mDecimalSeparator = u".";
    }
    if (mPlainGroupingSeparator == LmPlainCharacters(mDecimalSeparator)) {
        mGroupingSize = 0;
    }
    if (mNegative.thePrefix == mPositive.thePrefix && mNegative.theSuffix == mPositive.theSuffix) {
        mNegative.thePrefix.insert(0, u"-");
    }
}

// Those of ASCII stay when the platform has none of one unit each.
void LmNumberShape::ReadDigits(CFNumberFormatterRef theFormatter)
{
    const LmScopedReference<CFNumberFormatterRef> thePlain(LmRequireMemory(CFNumberFormatterCreate(
        nullptr, CFNumberFormatterGetLocale(theFormatter), kCFNumberFormatterNoStyle)));
    std::array<char16_t, 10> theDigits{};
    for (int theNumber = 0; theNumber < 10; ++theNumber) {
        const LmScopedReference<CFStringRef> theText = Written(thePlain.Get(), theNumber);
        if (CFStringGetLength(theText.Get()) != 1) {
            return;
        }
        theDigits[static_cast<std::size_t>(theNumber)] = CFStringGetCharacterAtIndex(theText.Get(), 0);
    }
    mDigits = theDigits;
}

// What stands between the digits of a large number. Currencies have one of their own, which is no property
// before Mac OS X 10.5.
LmCharacters LmNumberShape::FindSeparator(CFNumberFormatterRef theFormatter) const
{
    const LmCharacters theWhole = LmCharactersOf(Written(theFormatter, 1111111).Get());
    LmCharacters theGap;
    bool hasDigit = false;
    for (const char16_t theCharacter : theWhole) {
        const bool isDigit = DigitOf(theCharacter) >= 0;
        if (isDigit && !theGap.empty()) {
            return theGap == mDecimalSeparator ? LmCharacters() : theGap;
        }
        if (hasDigit && !isDigit) {
            theGap.push_back(theCharacter);
        }
        hasDigit = hasDigit || isDigit;
    }
    return LmCharacters();
}

// Those of ASCII are read everywhere; -1 for what is none.
int LmNumberShape::DigitOf(char16_t theCharacter) const
{
    if (theCharacter >= u'0' && theCharacter <= u'9') {
        return theCharacter - u'0';
    }
    const auto thePlace = std::find(mDigits.begin(), mDigits.end(), theCharacter);
    return thePlace == mDigits.end() ? -1 : static_cast<int>(thePlace - mDigits.begin());
}

LmCharacters LmNumberShape::Grouped(const LmCharacters& theDigits, const LmCharacters& theSeparator) const
{
    LmCharacters theText;
    for (std::size_t theIndex = 0; theIndex < theDigits.size(); ++theIndex) {
        const std::size_t theRest = theDigits.size() - theIndex;
        if (theIndex > 0 && mGroupingSize > 0 && theRest >= mGroupingSize &&
            (theRest - mGroupingSize) % mSecondaryGroupingSize == 0) {
            theText += theSeparator;
        }
        theText.push_back(theDigits[theIndex]);
    }
    return theText;
}

LmCharacters LmNumberShape::Write(const Number& theNumber, unsigned thePlaces) const
{
    LmCharacters theDigits;
    for (std::uint64_t theRest = theNumber.theMagnitude; theRest > 0 || theDigits.size() <= thePlaces;
         theRest /= 10) {
        theDigits.insert(theDigits.begin(), mDigits[static_cast<std::size_t>(theRest % 10)]);
    }
    const Affixes& theAffixes = theNumber.isNegative ? mNegative : mPositive;
    const std::size_t thePoint = theDigits.size() - thePlaces;
    return theAffixes.thePrefix + Grouped(theDigits.substr(0, thePoint), mGroupingSeparator) +
           (thePlaces > 0 ? mDecimalSeparator : LmCharacters()) + theDigits.substr(thePoint) +
           theAffixes.theSuffix;
}

// The separators stand where groups end, everywhere or nowhere.
bool LmNumberShape::TakeOutGroups(LmCharacters& ioWhole) const
{
    LmCharacters theDigits;
    for (std::size_t thePosition = 0; thePosition < ioWhole.size();) {
        if (mGroupingSize > 0 && StartsWith(ioWhole, thePosition, mPlainGroupingSeparator)) {
            thePosition += mPlainGroupingSeparator.size();
        } else {
            theDigits.push_back(ioWhole[thePosition++]);
        }
    }
    const bool isWellGrouped = ioWhole == theDigits || ioWhole == Grouped(theDigits, mPlainGroupingSeparator);
    ioWhole = theDigits;
    return isWellGrouped;
}

LmNumberShape::Outcome LmNumberShape::ReadPlain(const LmCharacters& theText, unsigned thePlaces,
                                                Number& outNumber) const
{
    const std::size_t thePoint =
        mDecimalSeparator.empty() ? LmCharacters::npos : theText.find(mDecimalSeparator);
    LmCharacters theDigits = theText.substr(0, thePoint);
    const LmCharacters theFraction =
        thePoint == LmCharacters::npos ? LmCharacters() : theText.substr(thePoint + mDecimalSeparator.size());
    if (!TakeOutGroups(theDigits)) {
        return Outcome::kIsNone;
    }
    const auto isNoDigit = [this](char16_t theCharacter) { return DigitOf(theCharacter) < 0; };
    if (theDigits.size() + theFraction.size() == 0 ||
        std::any_of(theDigits.begin(), theDigits.end(), isNoDigit) ||
        std::any_of(theFraction.begin(), theFraction.end(), isNoDigit)) {
        return Outcome::kIsNone;
    }
    const std::size_t theKept = std::min<std::size_t>(theFraction.size(), thePlaces);
    if (std::any_of(theFraction.begin() + static_cast<std::ptrdiff_t>(theKept), theFraction.end(),
                    [this](char16_t theCharacter) { return DigitOf(theCharacter) != 0; })) {
        return Outcome::kHasTooManyPlaces;
    }
    theDigits += theFraction.substr(0, theKept);
    theDigits.append(thePlaces - theKept, u'0');
    outNumber.theMagnitude = 0;
    for (const char16_t theDigit : theDigits) {
        if (!AppendDigit(outNumber.theMagnitude, static_cast<unsigned>(DigitOf(theDigit)))) {
            return Outcome::kIsTooLarge;
        }
    }
    return Outcome::kIsNumber;
}

LmNumberShape::Outcome LmNumberShape::ReadBetween(const LmCharacters& theText, const Affixes& theAffixes,
                                                  bool isNegative, unsigned thePlaces,
                                                  Number& outNumber) const
{
    const LmCharacters thePrefix = LmPlainCharacters(theAffixes.thePrefix);
    const LmCharacters theSuffix = LmPlainCharacters(theAffixes.theSuffix);
    if (!StartsWith(theText, 0, thePrefix) || !EndsWith(theText, theSuffix) ||
        theText.size() < thePrefix.size() + theSuffix.size()) {
        return Outcome::kIsNone;
    }
    const LmCharacters theRest = LmPlainCharacters(
        theText.substr(thePrefix.size(), theText.size() - thePrefix.size() - theSuffix.size()));
    const Outcome theOutcome = ReadPlain(theRest, thePlaces, outNumber);
    outNumber.isNegative = isNegative && outNumber.theMagnitude > 0;
    return theOutcome;
}

LmNumberShape::Outcome LmNumberShape::Read(CFStringRef theText, unsigned thePlaces, Number& outNumber) const
{
    const LmCharacters thePlain = LmPlainCharacters(LmCharactersOf(theText));
    const struct
    {
        Affixes theAffixes;
        bool isNegative;
    } kForms[] = {{mNegative, true},
                  {mPositive, false},
                  {{u"-" + mPositive.thePrefix, mPositive.theSuffix}, true},
                  {{u"-", LmCharacters()}, true},
                  {{LmCharacters(), LmCharacters()}, false}};
    Outcome theWorst = Outcome::kIsNone;
    for (const auto& theForm : kForms) {
        const Outcome theOutcome =
            ReadBetween(thePlain, theForm.theAffixes, theForm.isNegative, thePlaces, outNumber);
        if (theOutcome == Outcome::kIsNumber) {
            return theOutcome;
        }
        theWorst = theOutcome == Outcome::kIsNone ? theWorst : theOutcome;
    }
    return theWorst;
}
