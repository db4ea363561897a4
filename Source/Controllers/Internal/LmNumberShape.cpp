// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumberShape.h"

#include <algorithm>
#include <limits>

namespace {

LmCharacters TextProperty(CFNumberFormatterRef theFormatter, CFStringRef theKey)
{
    const LmScopedReference<CFTypeRef> theValue(CFNumberFormatterCopyProperty(theFormatter, theKey));
    return theValue.Get() != nullptr && CFGetTypeID(theValue.Get()) == CFStringGetTypeID()
               ? LmCharactersOf(static_cast<CFStringRef>(theValue.Get()))
               : LmCharacters();
}

std::size_t SizeProperty(CFNumberFormatterRef theFormatter, CFStringRef theKey)
{
    int theNumber = 0;
    const LmScopedReference<CFTypeRef> theValue(CFNumberFormatterCopyProperty(theFormatter, theKey));
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

} // namespace

LmNumberShape::LmNumberShape(CFLocaleRef theLocale, CFNumberFormatterStyle theStyle,
                             CFStringRef theCurrencyCode)
    : mStyle(theStyle),
      mDigits{u'0', u'1', u'2', u'3', u'4', u'5', u'6', u'7', u'8', u'9'},
      mDecimalSeparator(u"."),
      mNegative{u"-", LmCharacters()}
{
    const LmScopedReference<CFNumberFormatterRef> theFormatter(
        CFNumberFormatterCreate(nullptr, theLocale, theStyle));
    if (theFormatter.Get() == nullptr) {
        return;
    }
    if (IsCurrency() && theCurrencyCode != nullptr && CFStringGetLength(theCurrencyCode) > 0) {
        CFNumberFormatterSetProperty(theFormatter.Get(), kCFNumberFormatterCurrencyCode, theCurrencyCode);
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
    const LmScopedReference<CFTypeRef> theCode(
        CFNumberFormatterCopyProperty(theFormatter.Get(), kCFNumberFormatterCurrencyCode));
    SInt32 thePlaces = 2;
    if (theCode.Get() != nullptr && CFGetTypeID(theCode.Get()) == CFStringGetTypeID() &&
        CFNumberFormatterGetDecimalInfoForCurrencyCode(static_cast<CFStringRef>(theCode.Get()), &thePlaces,
                                                       nullptr)) {
        mCurrencyPlaces = static_cast<unsigned>(std::max<SInt32>(thePlaces, 0));
    }
}

// What the platform had no memory to tell must not make two numbers look the same.
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
    const LmScopedReference<CFNumberFormatterRef> thePlain(CFNumberFormatterCreate(
        nullptr, CFNumberFormatterGetLocale(theFormatter), kCFNumberFormatterNoStyle));
    std::array<char16_t, 10> theDigits{};
    for (int theNumber = 0; theNumber < 10 && thePlain.Get() != nullptr; ++theNumber) {
        const LmScopedReference<CFStringRef> theText(
            CFNumberFormatterCreateStringWithValue(nullptr, thePlain.Get(), kCFNumberIntType, &theNumber));
        if (theText.Get() == nullptr || CFStringGetLength(theText.Get()) != 1) {
            return;
        }
        theDigits[static_cast<std::size_t>(theNumber)] = CFStringGetCharacterAtIndex(theText.Get(), 0);
    }
    if (thePlain.Get() != nullptr) {
        mDigits = theDigits;
    }
}

// What stands between the digits of a large number. Currencies have one of their own, which is no property
// before Mac OS X 10.5.
LmCharacters LmNumberShape::FindSeparator(CFNumberFormatterRef theFormatter) const
{
    const int theNumber = 1111111;
    const LmScopedReference<CFStringRef> theText(
        CFNumberFormatterCreateStringWithValue(nullptr, theFormatter, kCFNumberIntType, &theNumber));
    const LmCharacters theWhole = theText.Get() != nullptr ? LmCharactersOf(theText.Get()) : LmCharacters();
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
