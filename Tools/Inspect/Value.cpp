// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Value.h"

#include "Text.h"

#include <cinttypes>
#include <cmath>
#include <cstdio>

namespace Inspect {

namespace {

// With as few digits as read the same again.
std::string ShowDouble(double theNumber)
{
    if (std::isnan(theNumber)) {
        return "nan";
    }
    if (std::isinf(theNumber)) {
        return theNumber < 0 ? "-inf" : "inf";
    }
    std::array<char, 40> theBuffer = {};
    for (int theDigits = 15; theDigits <= 17; ++theDigits) {
        std::snprintf(theBuffer.data(), theBuffer.size(), "%.*g", theDigits, theNumber);
        double theAgain = 0;
        if (std::sscanf(theBuffer.data(), "%lf", &theAgain) == 1 && theAgain == theNumber) {
            break;
        }
    }
    return theBuffer.data();
}

std::string ShowParts(const Value& theValue)
{
    std::string theText = "(";
    for (std::size_t theIndex = 0; theIndex < theValue.CountParts(); ++theIndex) {
        theText += (theIndex == 0 ? "" : ", ") + ShowDouble(theValue.theParts[theIndex]);
    }
    return theText + ")";
}

std::string ShowString(const Value& theValue, std::size_t theLimit)
{
    if (theValue.isNull) {
        return "null";
    }
    std::string theText = Quote(theValue.theText, theLimit);
    if (theValue.theBytes != 0) {
        theText += " (" + std::to_string(theValue.theBytes) + " bytes)";
    }
    return theText;
}

bool IsSameDouble(double theLeft, double theRight)
{
    return theLeft == theRight || (std::isnan(theLeft) && std::isnan(theRight));
}

bool IsSigned(Value::Kind theKind)
{
    return theKind == Value::Kind::SInt32 || theKind == Value::Kind::SInt64;
}

bool IsNegative(const Value& theValue)
{
    return IsSigned(theValue.theKind) && static_cast<std::int64_t>(theValue.theInteger) < 0;
}

} // namespace

void Value::Clear()
{
    theKind = Kind::Absent;
    theInteger = theBytes = 0;
    theDouble = 0;
    theParts = {};
    theText.clear();
    isNull = false;
}

double Value::GetDouble() const
{
    if (theKind == Kind::Double) {
        return theDouble;
    }
    return IsNegative(*this) ? static_cast<double>(static_cast<std::int64_t>(theInteger))
                             : static_cast<double>(theInteger);
}

std::size_t Value::CountParts() const
{
    if (theKind == Kind::Rect) {
        return 4;
    }
    return theKind == Kind::Point || theKind == Kind::Size ? 2 : 0;
}

bool IsSame(const Value& theLeft, const Value& theRight)
{
    if (theLeft.theKind != theRight.theKind || theLeft.theInteger != theRight.theInteger ||
        !IsSameDouble(theLeft.theDouble, theRight.theDouble) || theLeft.isNull != theRight.isNull ||
        theLeft.theText != theRight.theText || theLeft.theBytes != theRight.theBytes) {
        return false;
    }
    for (std::size_t theIndex = 0; theIndex < theLeft.theParts.size(); ++theIndex) {
        if (!IsSameDouble(theLeft.theParts[theIndex], theRight.theParts[theIndex])) {
            return false;
        }
    }
    return true;
}

bool AreDifferentNumbers(const Value& theLeft, const Value& theRight)
{
    if (!theLeft.IsNumber() || !theRight.IsNumber()) {
        return false;
    }
    if (theLeft.IsInteger() && theRight.IsInteger()) {
        return theLeft.theInteger != theRight.theInteger || IsNegative(theLeft) != IsNegative(theRight);
    }
    return !IsSameDouble(theLeft.GetDouble(), theRight.GetDouble());
}

std::string Show(const Value& theValue, std::size_t theLimit)
{
    switch (theValue.theKind) {
    case Value::Kind::Absent:
        return "nothing";
    case Value::Kind::Invalid:
        return "not valid";
    case Value::Kind::Boolean:
        return theValue.theInteger != 0 ? "true" : "false";
    case Value::Kind::UInt32:
    case Value::Kind::UInt64:
        return std::to_string(theValue.theInteger);
    case Value::Kind::SInt32:
    case Value::Kind::SInt64:
        return std::to_string(static_cast<std::int64_t>(theValue.theInteger));
    case Value::Kind::Double:
        return ShowDouble(theValue.theDouble);
    case Value::Kind::Pointer:
        return theValue.theInteger == 0 ? "null pointer" : ShowAddress(theValue.theInteger);
    case Value::Kind::String:
        return ShowString(theValue, theLimit);
    case Value::Kind::Point:
    case Value::Kind::Size:
    case Value::Kind::Rect:
        return ShowParts(theValue);
    case Value::Kind::Unknown:
        return "a kind of its own (" + std::to_string(theValue.theInteger) + ")";
    }
    return {};
}

std::string ShowKind(Value::Kind theKind)
{
    switch (theKind) {
    case Value::Kind::Absent:
        return "nothing";
    case Value::Kind::Invalid:
        return "no valid value";
    case Value::Kind::Boolean:
        return "boolean";
    case Value::Kind::UInt32:
        return "unsigned 32-bit integer";
    case Value::Kind::SInt32:
        return "32-bit integer";
    case Value::Kind::UInt64:
        return "unsigned 64-bit integer";
    case Value::Kind::SInt64:
        return "64-bit integer";
    case Value::Kind::Double:
        return "double";
    case Value::Kind::Pointer:
        return "pointer";
    case Value::Kind::String:
        return "string";
    case Value::Kind::Point:
        return "point";
    case Value::Kind::Size:
        return "size";
    case Value::Kind::Rect:
        return "rectangle";
    case Value::Kind::Unknown:
        return "a kind of its own";
    }
    return {};
}

} // namespace Inspect
