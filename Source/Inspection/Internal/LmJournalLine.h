// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalLine_h
#define LmJournalLine_h

#include "LmValue.h"

#include <cstddef>
#include <cstdint>
#include <string>

// One line of a journal while it is being put together: a JSON object with its fields in the order in which
// they are added. Not part of the interface.
//
// Bytes that are no UTF-8 become U+FFFD. Numbers have a full stop whatever the locale says. Longer strings
// than the limit are cut between two characters. Memory that runs out passes through as std::bad_alloc.
class LmJournalLine
{
public:
    explicit LmJournalLine(std::size_t theLongestString)
        : mLongestString(theLongestString)
    {
    }

    // Begins anew; the memory is kept.
    void Clear() { mText.clear(); }

    // What has been added, without the braces around it.
    const std::string& GetText() const { return mText; }

    // ---- Fields

    void AddNumber(const char* theField, std::uint64_t theNumber);
    void AddBoolean(const char* theField, bool isTrue);
    void AddNull(const char* theField);
    void AddString(const char* theField, const char* theBytes);
    void AddWhole(const char* theField, const char* theBytes); // what a reader needs uncut
    void AddAddress(const char* theField, std::uintptr_t theAddress);
    void AddValue(const char* theField, const LmValue& theValue);
    void AddPlace(const char* theField, double theX, double theY);

    // Fields that have been taken from a text like this one, with the comma before them.
    void AddFields(const std::string& theFields) { mText += theFields; }

    // A field whose value is JSON already.
    void AddJSON(const char* theField, const std::string& theJSON);

    // ---- Pieces of JSON

    // A string with its quotes, of bytes that should be UTF-8.
    static void AppendString(std::string& theText, const char* theBytes, std::size_t theLength,
                             std::size_t theLongest);

    // A number, or one of the strings "nan", "inf" and "-inf". With the fewest digits that read the same
    // again.
    static void AppendDouble(std::string& theText, double theNumber);
    static void AppendFloat(std::string& theText, float theNumber);

    // The digits of a number that printf has made, with a full stop for the sign of the locale, which may be
    // of one byte or of several.
    static void AppendWithPoint(std::string& theText, const char* theDigits);

    static void AppendAddress(std::string& theText, std::uintptr_t theAddress);

private:
    void BeginField(const char* theField);
    void AppendCFString(CFStringRef theString);
    void AppendPayload(const LmValue& theValue);

    std::string mText;
    std::size_t mLongestString;
};

#endif
