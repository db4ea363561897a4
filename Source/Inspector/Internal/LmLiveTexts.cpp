// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLiveTexts.h"

#include "LmConveniences.h"
#include "LmJournalLine.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <locale>
#include <sstream>
#include <vector>

namespace {

constexpr std::size_t kLongestShown = 60; // bytes

std::string ShowFloats(const std::vector<float>& theNumbers)
{
    std::string theText;
    for (const float theNumber : theNumbers) {
        theText += theText.empty() ? "(" : ", ";
        LmJournalLine::AppendFloat(theText, theNumber);
    }
    return theText + ")";
}

std::vector<float> PartsOf(const LmValue& theValue)
{
    if (theValue.GetType() == kTypePoint) {
        return {theValue.GetPoint().x, theValue.GetPoint().y};
    }
    if (theValue.GetType() == kTypeSize) {
        return {theValue.GetSize().width, theValue.GetSize().height};
    }
    const CGRect theRect = theValue.GetRect();
    return {theRect.origin.x, theRect.origin.y, theRect.size.width, theRect.size.height};
}

std::string ShowDouble(double theNumber)
{
    std::string theText;
    LmJournalLine::AppendDouble(theText, theNumber);
    // What JSON has no number for stands in quotation marks.
    return theText.front() == '"' ? theText.substr(1, theText.size() - 2) : theText;
}

// Everything but strings.
std::string ShowPlain(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeInvalid:
        return "not valid";
    case kTypeBoolean:
        return theValue.GetBoolean() ? "true" : "false";
    case kTypeUInt32:
        return std::to_string(theValue.GetUInt32());
    case kTypeSInt32:
        return std::to_string(theValue.GetSInt32());
    case kTypeUInt64:
        return std::to_string(theValue.GetUInt64());
    case kTypeSInt64:
        return std::to_string(theValue.GetSInt64());
    case kTypeDouble:
        return ShowDouble(theValue.GetDouble());
    case kTypePointer:
        return theValue.GetPointer() == nullptr ? "null pointer" : "a pointer";
    case kTypePoint:
    case kTypeSize:
    case kTypeRect:
        return ShowFloats(PartsOf(theValue));
    default:
        return "a kind of its own";
    }
}

bool ReadSigned(const std::string& theText, long long theLeast, long long theMost, long long& theNumber)
{
    char* theEnd = nullptr;
    errno = 0;
    const long long theResult = std::strtoll(theText.c_str(), &theEnd, 10);
    const bool isRead = theEnd != theText.c_str() && *theEnd == '\0' && errno == 0;
    if (!isRead || theResult < theLeast || theResult > theMost) {
        return false;
    }
    theNumber = theResult;
    return true;
}

bool ReadUnsigned(const std::string& theText, unsigned long long theMost, unsigned long long& theNumber)
{
    char* theEnd = nullptr;
    errno = 0;
    const unsigned long long theResult = std::strtoull(theText.c_str(), &theEnd, 10);
    const bool isRead = theEnd != theText.c_str() && *theEnd == '\0' && errno == 0;
    // A number with a minus sign would be read modulo 2^64.
    if (!isRead || theResult > theMost || theText.find('-') != std::string::npos) {
        return false;
    }
    theNumber = theResult;
    return true;
}

// As many numbers as there are, with brackets, commas and blanks around them. With a full stop, whatever the
// locale says.
bool ReadNumbers(std::string theText, std::size_t theCount, std::vector<double>& theNumbers)
{
    for (char& theCharacter : theText) {
        if (theCharacter == '(' || theCharacter == ')' || theCharacter == ',') {
            theCharacter = ' ';
        }
    }
    std::istringstream theStream(theText);
    theStream.imbue(std::locale::classic());
    double theNumber = 0;
    while (theStream >> theNumber) {
        theNumbers.push_back(theNumber);
    }
    return theNumbers.size() == theCount && theStream.eof();
}

bool ReadBoolean(const std::string& theText, LmValue& theValue)
{
    const bool isTrue = theText == "true" || theText == "1";
    if (!isTrue && theText != "false" && theText != "0") {
        return false;
    }
    theValue = LmValue(isTrue);
    return true;
}

bool ReadString(const std::string& theText, LmValue& theValue)
{
    const CFStringRef theString =
        CFStringCreateWithCString(kCFAllocatorDefault, theText.c_str(), kCFStringEncodingUTF8);
    if (theString == nullptr) {
        return false;
    }
    theValue = LmValue(theString, true);
    return true;
}

bool ReadInteger(const std::string& theText, ValueType theType, LmValue& theValue)
{
    long long theSigned = 0;
    unsigned long long theUnsigned = 0;
    switch (theType) {
    case kTypeUInt32:
        if (ReadUnsigned(theText, std::numeric_limits<std::uint32_t>::max(), theUnsigned)) {
            theValue = LmValue(static_cast<unsigned long>(theUnsigned));
            return true;
        }
        return false;
    case kTypeSInt32:
        if (ReadSigned(theText, std::numeric_limits<std::int32_t>::min(),
                       std::numeric_limits<std::int32_t>::max(), theSigned)) {
            theValue = LmValue(static_cast<long>(theSigned));
            return true;
        }
        return false;
    case kTypeUInt64:
        if (ReadUnsigned(theText, std::numeric_limits<std::uint64_t>::max(), theUnsigned)) {
            theValue = LmValue(theUnsigned);
            return true;
        }
        return false;
    default:
        if (ReadSigned(theText, std::numeric_limits<std::int64_t>::min(),
                       std::numeric_limits<std::int64_t>::max(), theSigned)) {
            theValue = LmValue(theSigned);
            return true;
        }
        return false;
    }
}

bool ReadGeometry(const std::string& theText, ValueType theType, LmValue& theValue)
{
    std::vector<double> theNumbers;
    if (!ReadNumbers(theText, theType == kTypeRect ? 4 : 2, theNumbers)) {
        return false;
    }
    std::array<float, 4> theParts = {};
    for (std::size_t theIndex = 0; theIndex < theNumbers.size(); ++theIndex) {
        const double theMost = std::numeric_limits<float>::max();
        if (!(theNumbers[theIndex] >= -theMost && theNumbers[theIndex] <= theMost)) {
            return false;
        }
        theParts[theIndex] = static_cast<float>(theNumbers[theIndex]);
    }
    if (theType == kTypePoint) {
        theValue = LmValue(CGPointMake(theParts[0], theParts[1]));
    } else if (theType == kTypeSize) {
        theValue = LmValue(CGSizeMake(theParts[0], theParts[1]));
    } else {
        theValue = LmValue(CGRectMake(theParts[0], theParts[1], theParts[2], theParts[3]));
    }
    return true;
}

} // namespace

std::string LmShowValue(const LmValue& theValue)
{
    if (!theValue.IsString()) {
        return ShowPlain(theValue);
    }
    if (theValue.GetString() == nullptr) {
        return "null";
    }
    const std::string theString = LmGetStdString(theValue);
    std::string theText;
    LmJournalLine::AppendString(theText, theString.data(), theString.size(), kLongestShown);
    return theString.size() > kLongestShown ? theText + "..." : theText;
}

std::string LmEditedValue(const LmValue& theValue)
{
    return theValue.IsString() ? LmGetStdString(theValue) : ShowPlain(theValue);
}

bool LmIsEditable(ValueType theType)
{
    return theType != kTypeInvalid && theType != kTypePointer && theType <= kTypeRect;
}

bool LmReadValue(const std::string& theText, ValueType theType, LmValue& theValue)
{
    switch (theType) {
    case kTypeBoolean:
        return ReadBoolean(theText, theValue);
    case kTypeUInt32:
    case kTypeSInt32:
    case kTypeUInt64:
    case kTypeSInt64:
        return ReadInteger(theText, theType, theValue);
    case kTypeDouble: {
        std::vector<double> theNumbers;
        const bool isRead = ReadNumbers(theText, 1, theNumbers);
        if (isRead) {
            theValue = LmValue(theNumbers.front());
        }
        return isRead;
    }
    case kTypeString:
        return ReadString(theText, theValue);
    case kTypePoint:
    case kTypeSize:
    case kTypeRect:
        return ReadGeometry(theText, theType, theValue);
    default:
        return false;
    }
}

const char* LmTypeName(ValueType theType)
{
    static const char* const kNames[] = {"no valid value",
                                         "boolean",
                                         "unsigned 32-bit integer",
                                         "32-bit integer",
                                         "unsigned 64-bit integer",
                                         "64-bit integer",
                                         "double",
                                         "pointer",
                                         "string",
                                         "point",
                                         "size",
                                         "rectangle"};
    return theType <= kTypeRect ? kNames[theType] : "a kind of its own";
}
