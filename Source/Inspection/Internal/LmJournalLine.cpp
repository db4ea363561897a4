// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalLine.h"

#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

const char kReplacement[] = "\xEF\xBF\xBD"; // U+FFFD

void AppendNumber(std::string& theText, std::uint64_t theNumber)
{
    char theDigits[24];
    std::snprintf(theDigits, sizeof theDigits, "%" PRIu64, theNumber);
    theText += theDigits;
}

void AppendNumber(std::string& theText, std::int64_t theNumber)
{
    char theDigits[24];
    std::snprintf(theDigits, sizeof theDigits, "%" PRId64, theNumber);
    theText += theDigits;
}

// ---- Characters

void AppendControl(std::string& theText, unsigned char theCharacter)
{
    char theEscape[8];
    std::snprintf(theEscape, sizeof theEscape, "\\u%04x", static_cast<unsigned>(theCharacter));
    theText += theEscape;
}

void AppendASCII(std::string& theText, unsigned char theCharacter)
{
    switch (theCharacter) {
    case '"':
        theText += "\\\"";
        break;
    case '\\':
        theText += "\\\\";
        break;
    case '\n':
        theText += "\\n";
        break;
    case '\t':
        theText += "\\t";
        break;
    default:
        if (theCharacter < 0x20 || theCharacter == 0x7F) {
            AppendControl(theText, theCharacter);
        } else {
            theText += static_cast<char>(theCharacter);
        }
    }
}

bool IsContinuation(unsigned char theByte)
{
    return (theByte & 0xC0U) == 0x80;
}

// What the first byte of a character in UTF-8 says of it.
struct Lead
{
    std::size_t theLength;        // of the character; 0 for none
    unsigned char theFirstLowest; // what its second byte must at least and at most be
    unsigned char theFirstHighest;
};

Lead LeadOf(unsigned char theByte)
{
    if (theByte < 0xC2 || theByte > 0xF4) {
        return {0, 0, 0};
    }
    if (theByte < 0xE0) {
        return {2, 0x80, 0xBF};
    }
    if (theByte < 0xF0) {
        const bool isSurrogate = theByte == 0xED;
        return {3, static_cast<unsigned char>(theByte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(isSurrogate ? 0x9F : 0xBF)};
    }
    return {4, static_cast<unsigned char>(theByte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(theByte == 0xF4 ? 0x8F : 0xBF)};
}

// How long the character is that begins at theBytes and is not ASCII; 0 when there is none.
std::size_t CharacterLength(const unsigned char* theBytes, std::size_t theLength)
{
    const Lead theLead = LeadOf(theBytes[0]);
    const bool isThere = theLead.theLength != 0 && theLead.theLength <= theLength &&
                         theBytes[1] >= theLead.theFirstLowest && theBytes[1] <= theLead.theFirstHighest &&
                         std::all_of(theBytes + 1, theBytes + theLead.theLength, IsContinuation);
    return isThere ? theLead.theLength : 0;
}

// Takes UTF-16 units, and hands on one character after the other. Halves of surrogate pairs are U+FFFD.
class Characters
{
public:
    explicit Characters(CFStringRef theString)
        : mString(theString),
          mLength(CFStringGetLength(theString))
    {
    }

    bool IsAtEnd() const { return mPlace == mLength; }

    UInt32 Next()
    {
        const UniChar theUnit = CFStringGetCharacterAtIndex(mString, mPlace++);
        if ((theUnit & 0xF800U) != 0xD800) {
            return theUnit;
        }
        const UniChar theOther =
            (theUnit & 0x400U) == 0 && !IsAtEnd() ? CFStringGetCharacterAtIndex(mString, mPlace) : 0;
        if ((theOther & 0xFC00U) != 0xDC00) {
            return 0xFFFD;
        }
        mPlace += 1;
        return 0x10000 + ((theUnit & 0x3FFU) << 10U) + (theOther & 0x3FFU);
    }

private:
    CFStringRef mString;
    CFIndex mLength;
    CFIndex mPlace = 0;
};

std::size_t LengthInUTF8(UInt32 theCharacter)
{
    return theCharacter < 0x80 ? 1 : theCharacter < 0x800 ? 2 : theCharacter < 0x10000 ? 3 : 4;
}

void AppendCharacter(std::string& theText, UInt32 theCharacter)
{
    const std::size_t theLength = LengthInUTF8(theCharacter);
    if (theLength == 1) {
        AppendASCII(theText, static_cast<unsigned char>(theCharacter));
        return;
    }
    const UInt32 kLeads[] = {0, 0, 0xC0, 0xE0, 0xF0};
    theText += static_cast<char>(kLeads[theLength] | (theCharacter >> (6 * (theLength - 1))));
    for (std::size_t theRest = theLength - 1; theRest > 0; --theRest) {
        theText += static_cast<char>(0x80U | ((theCharacter >> (6 * (theRest - 1))) & 0x3FU));
    }
}

// True when it was one of those that JSON does not have.
bool AppendNoNumber(std::string& theText, double theNumber)
{
    if (std::isnan(theNumber)) {
        theText += "\"nan\"";
    } else if (std::isinf(theNumber)) {
        theText += theNumber < 0 ? "\"-inf\"" : "\"inf\"";
    } else {
        return false;
    }
    return true;
}

const char* const kKinds[] = {"invalid", "boolean", "uint32", "sint32", "uint64", "sint64",
                              "double",  "pointer", "string", "point",  "size",   "rect"};

void AppendFloats(std::string& theText, std::initializer_list<float> theNumbers)
{
    char theSeparator = '[';
    for (const float theNumber : theNumbers) {
        theText += theSeparator;
        LmJournalLine::AppendFloat(theText, theNumber);
        theSeparator = ',';
    }
    theText += ']';
}

} // namespace

// ---- Fields

void LmJournalLine::BeginField(const char* theField)
{
    mText += mText.empty() ? "\"" : ",\"";
    mText += theField;
    mText += "\":";
}

void LmJournalLine::AddNumber(const char* theField, std::uint64_t theNumber)
{
    BeginField(theField);
    AppendNumber(mText, theNumber);
}

void LmJournalLine::AddBoolean(const char* theField, bool isTrue)
{
    BeginField(theField);
    mText += isTrue ? "true" : "false";
}

void LmJournalLine::AddNull(const char* theField)
{
    BeginField(theField);
    mText += "null";
}

void LmJournalLine::AddString(const char* theField, const char* theBytes)
{
    BeginField(theField);
    AppendString(mText, theBytes, std::strlen(theBytes), mLongestString);
}

void LmJournalLine::AddWhole(const char* theField, const char* theBytes)
{
    BeginField(theField);
    const std::size_t theLength = std::strlen(theBytes);
    AppendString(mText, theBytes, theLength, theLength);
}

void LmJournalLine::AddAddress(const char* theField, std::uintptr_t theAddress)
{
    BeginField(theField);
    AppendAddress(mText, theAddress);
}

void LmJournalLine::AddPlace(const char* theField, double theX, double theY)
{
    BeginField(theField);
    mText += '[';
    AppendDouble(mText, theX);
    mText += ',';
    AppendDouble(mText, theY);
    mText += ']';
}

void LmJournalLine::AddJSON(const char* theField, const std::string& theJSON)
{
    BeginField(theField);
    mText += theJSON;
}

void LmJournalLine::AddValue(const char* theField, const LmValue& theValue)
{
    BeginField(theField);
    const ValueType theType = theValue.GetType();
    const bool isKnown = theType <= kTypeRect;
    mText += R"({"kind":")";
    mText += isKnown ? kKinds[theType] : "unknown";
    mText += '"';
    if (theType != kTypeInvalid) {
        mText += R"(,"value":)";
        if (isKnown) {
            AppendPayload(theValue);
        } else {
            AppendNumber(mText, std::uint64_t{theType});
        }
    }
    mText += '}';
}

void LmJournalLine::AppendPayload(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        mText += theValue.GetBoolean() ? "true" : "false";
        break;
    case kTypeUInt32:
        AppendNumber(mText, std::uint64_t{theValue.GetUInt32()});
        break;
    case kTypeSInt32:
        AppendNumber(mText, std::int64_t{theValue.GetSInt32()});
        break;
    case kTypeUInt64:
        mText += '"';
        AppendNumber(mText, std::uint64_t{theValue.GetUInt64()});
        mText += '"';
        break;
    case kTypeSInt64:
        mText += '"';
        AppendNumber(mText, std::int64_t{theValue.GetSInt64()});
        mText += '"';
        break;
    case kTypeDouble:
        AppendDouble(mText, theValue.GetDouble());
        break;
    case kTypePointer:
        AppendAddress(mText, reinterpret_cast<std::uintptr_t>(theValue.GetPointer()));
        break;
    case kTypeString:
        AppendCFString(theValue.GetString());
        break;
    case kTypePoint:
        AppendFloats(mText, {theValue.GetPoint().x, theValue.GetPoint().y});
        break;
    case kTypeSize:
        AppendFloats(mText, {theValue.GetSize().width, theValue.GetSize().height});
        break;
    default: {
        const CGRect theRect = theValue.GetRect();
        AppendFloats(mText, {theRect.origin.x, theRect.origin.y, theRect.size.width, theRect.size.height});
    }
    }
}

// With the field "bytes" behind it when it is cut.
void LmJournalLine::AppendCFString(CFStringRef theString)
{
    if (theString == nullptr) {
        mText += "null";
        return;
    }
    mText += '"';
    std::size_t theLength = 0;
    bool isCut = false;
    for (Characters theCharacters(theString); !theCharacters.IsAtEnd();) {
        const UInt32 theCharacter = theCharacters.Next();
        theLength += LengthInUTF8(theCharacter);
        isCut = isCut || theLength > mLongestString;
        if (!isCut) {
            AppendCharacter(mText, theCharacter);
        }
    }
    mText += '"';
    if (isCut) {
        mText += R"(,"bytes":)";
        AppendNumber(mText, std::uint64_t{theLength});
    }
}

// ---- Pieces of JSON

void LmJournalLine::AppendString(std::string& theText, const char* theBytes, std::size_t theLength,
                                 std::size_t theLongest)
{
    const auto* theByte = reinterpret_cast<const unsigned char*>(theBytes);
    std::size_t theRoom = theLongest;
    theText += '"';
    for (std::size_t theRest = theLength; theRest > 0;) {
        const bool isASCII = *theByte < 0x80;
        const std::size_t theSize = isASCII ? 1 : CharacterLength(theByte, theRest);
        const std::size_t theTaken = std::max<std::size_t>(theSize, 1);
        if (theTaken > theRoom) {
            break;
        }
        if (isASCII) {
            AppendASCII(theText, *theByte);
        } else if (theSize == 0) {
            theText += kReplacement;
        } else {
            theText.append(reinterpret_cast<const char*>(theByte), theSize);
        }
        theByte += theTaken;
        theRest -= theTaken;
        theRoom -= theTaken;
    }
    theText += '"';
}

void LmJournalLine::AppendWithPoint(std::string& theText, const char* theDigits)
{
    bool wasPoint = false;
    for (; *theDigits != '\0'; ++theDigits) {
        const bool isPoint = std::strchr("0123456789+-e", *theDigits) == nullptr;
        if (!isPoint) {
            theText += *theDigits;
        } else if (!wasPoint) {
            theText += '.';
        }
        wasPoint = isPoint;
    }
}

void LmJournalLine::AppendDouble(std::string& theText, double theNumber)
{
    if (AppendNoNumber(theText, theNumber)) {
        return;
    }
    char theDigits[40];
    for (int theCount = 15; theCount <= 17; ++theCount) {
        std::snprintf(theDigits, sizeof theDigits, "%.*g", theCount, theNumber);
        if (std::strtod(theDigits, nullptr) == theNumber) {
            break;
        }
    }
    AppendWithPoint(theText, theDigits);
}

void LmJournalLine::AppendFloat(std::string& theText, float theNumber)
{
    const auto theDouble = static_cast<double>(theNumber);
    if (AppendNoNumber(theText, theDouble)) {
        return;
    }
    char theDigits[40];
    for (int theCount = 6; theCount <= 9; ++theCount) {
        std::snprintf(theDigits, sizeof theDigits, "%.*g", theCount, theDouble);
        if (std::strtof(theDigits, nullptr) == theNumber) {
            break;
        }
    }
    AppendWithPoint(theText, theDigits);
}

void LmJournalLine::AppendAddress(std::string& theText, std::uintptr_t theAddress)
{
    char theDigits[24];
    std::snprintf(theDigits, sizeof theDigits, "\"0x%" PRIxPTR "\"", theAddress);
    theText += theDigits;
}
