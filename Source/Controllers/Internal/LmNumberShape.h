// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmNumberShape_h
#define LmNumberShape_h

#include "LmCharacters.h"

#include <array>
#include <cstdint>

// How numbers look in a locale and a style, as the platform's number formatter tells. The digits are written
// and read here: the platform's own way leads through doubles, which lose those behind the sixteenth.
class LmNumberShape
{
public:
    // Null for the locale is the person's. Null or an empty code is the currency of the locale.
    LmNumberShape(CFLocaleRef theLocale, CFNumberFormatterStyle theStyle, CFStringRef theCurrencyCode);

    // A number of so many places behind the separator, as a whole number of its smallest units.
    struct Number
    {
        bool isNegative;
        std::uint64_t theMagnitude;
    };
    [[nodiscard]] LmCharacters Write(const Number& theNumber, unsigned thePlaces) const;

    enum class Outcome
    {
        kIsNumber,
        kIsNone,
        kHasTooManyPlaces, // of which one is not 0
        kIsTooLarge        // for 64 bits
    };
    // Takes signs, separators and what stands around the digits as they are written, and with plain blanks
    // and signs in their place; groups, and what stands around them, may be left out. A group that is not
    // where groups are is none: "1,5" is no number in English.
    Outcome Read(CFStringRef theText, unsigned thePlaces, Number& outNumber) const;

    // How many places the currency has; 2 where it is not known.
    [[nodiscard]] unsigned GetCurrencyPlaces() const { return mCurrencyPlaces; }

private:
    struct Affixes
    {
        LmCharacters thePrefix;
        LmCharacters theSuffix;
    };
    [[nodiscard]] bool IsCurrency() const { return mStyle == kCFNumberFormatterCurrencyStyle; }
    void MakeReadable();
    [[nodiscard]] LmCharacters FindSeparator(CFNumberFormatterRef theFormatter) const;
    void ReadDigits(CFNumberFormatterRef theFormatter);
    [[nodiscard]] int DigitOf(char16_t theCharacter) const;
    [[nodiscard]] LmCharacters Grouped(const LmCharacters& theDigits, const LmCharacters& theSeparator) const;
    bool TakeOutGroups(LmCharacters& ioWhole) const;
    Outcome ReadBetween(const LmCharacters& theText, const Affixes& theAffixes, bool isNegative,
                        unsigned thePlaces, Number& outNumber) const;
    Outcome ReadPlain(const LmCharacters& theText, unsigned thePlaces, Number& outNumber) const;

    CFNumberFormatterStyle mStyle;
    std::array<char16_t, 10> mDigits;
    LmCharacters mDecimalSeparator;
    LmCharacters mGroupingSeparator;
    LmCharacters mPlainGroupingSeparator;
    std::size_t mGroupingSize = 0; // 0: no groups
    std::size_t mSecondaryGroupingSize = 0;
    Affixes mPositive;
    Affixes mNegative;
    unsigned mCurrencyPlaces = 2;
};

#endif
