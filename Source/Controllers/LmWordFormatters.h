// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmWordFormatters_h
#define LmWordFormatters_h

#include "LmFormatter.h"

#include <string>
#include <vector>

// One of a list of words, such as the sizes of a shirt. The value is of the kind SInt32: the place of the
// word, from 0 on.
//
// Upper and lower case do not matter, nor do blanks around the word; a part of a word is none. Where words
// are the same so, the first is meant, and others can only be written. Everything else is refused: "Only
// these are possible: %@.", which the application's LmFormatters.strings translates. A number that is the
// place of no word gives an invalid value.
class LM_EXPORT LmWordFormatter : public LmFormatter
{
public:
    // The words are UTF-8 and shown as they are; one that is not UTF-8 is the empty one. Throws
    // std::bad_alloc where memory runs out.
    explicit LmWordFormatter(const std::vector<std::string>& theWords);
    ~LmWordFormatter() override;

    [[nodiscard]] LmReading Parse(CFStringRef theText) const override;
    [[nodiscard]] LmValue Format(const LmValue& theValue) const override;

private:
    std::vector<LmValue> mWords; // strings
};

// Texts of one form, such as the number of a part. The value is a string in that form.
//
// In the pattern '0' is a digit, 'A' a letter, 'X' either, each of ASCII; a backslash makes the next
// character stand for itself, as all others do. So "AA-0000" takes "ab-1234", "AB1234" and " ab - 1234 ",
// and makes "AB-1234" of each: letters are capitals, blanks do not matter, and what stands for itself may
// be left out. Everything else is refused: "The text must look like %@."
//
// - What stands for itself takes the next character wherever that is the same: a pattern of a backslash and
//   "00", which is a 0 and a digit, makes "05" of "5", but refuses "0", whose digit is missing.
// - Only letters of ASCII match in either case: where a capital letter with an accent stands for itself, the
//   small one is refused.
// - Dashes and apostrophes that stand for themselves match each of their kind.
//
// Format takes strings that have the form, and gives them as they are read; others give an invalid value.
class LM_EXPORT LmPatternFormatter : public LmFormatter
{
public:
    // The pattern is UTF-8; one that is not is the empty one, which only the empty text has. Throws
    // std::bad_alloc where memory runs out.
    explicit LmPatternFormatter(const char* thePattern);
    ~LmPatternFormatter() override;

    [[nodiscard]] LmReading Parse(CFStringRef theText) const override;
    [[nodiscard]] LmValue Format(const LmValue& theValue) const override;

private:
    std::u16string mPattern;
};

#endif
