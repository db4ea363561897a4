// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ReferenceValue.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace Model {

// ---- Values

namespace {

bool IsInteger(const Value& theValue)
{
    return theValue.theKind >= Kind::UInt32 && theValue.theKind <= Kind::SInt64;
}

bool IsWide(const Value& theValue)
{
    return theValue.theKind == Kind::UInt64 || theValue.theKind == Kind::SInt64;
}

bool IsNumber(const Value& theValue)
{
    return theValue.theKind >= Kind::Boolean && theValue.theKind <= Kind::Double;
}

bool IsGeometry(const Value& theValue)
{
    return theValue.theKind >= Kind::Point;
}

constexpr double kTwoTo31 = 2147483648.0;
constexpr double kTwoTo63 = 9223372036854775808.0;

std::uint64_t Low32(std::uint64_t theBits)
{
    return theBits & 0xFFFFFFFFU;
}

std::uint64_t ExtendSign(std::uint64_t theBits)
{
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(static_cast<std::int32_t>(theBits)));
}

Value FromInteger(Kind theKind, std::uint64_t theBits)
{
    return Value::Number(theKind, theKind == Kind::UInt32   ? Low32(theBits)
                                  : theKind == Kind::SInt32 ? ExtendSign(theBits)
                                                            : theBits);
}

double DoubleOf(const Value& theValue)
{
    const bool isSigned = theValue.theKind == Kind::SInt32 || theValue.theKind == Kind::SInt64;
    return theValue.theKind == Kind::Double ? theValue.theDouble
           : isSigned                       ? static_cast<double>(static_cast<std::int64_t>(theValue.theBits))
                                            : static_cast<double>(theValue.theBits);
}

// A double cut off towards zero, at the limits of signed numbers of 32 or 64 bits.
std::int64_t CutOff(double theDouble, double theLimit)
{
    const std::int64_t theLowest = theLimit == kTwoTo31 ? std::numeric_limits<std::int32_t>::min()
                                                        : std::numeric_limits<std::int64_t>::min();
    if (std::isnan(theDouble)) {
        return theLimit == kTwoTo31 ? theLowest : 0;
    }
    if (theDouble >= theLimit) {
        return -(theLowest + 1);
    }
    return theDouble <= -theLimit ? theLowest : static_cast<std::int64_t>(theDouble);
}

// An unsigned number has two halves; the lower one is that of signed numbers.
std::uint64_t IntegerOf(double theDouble, Kind theKind)
{
    const double theLimit = theKind == Kind::UInt32 || theKind == Kind::SInt32 ? kTwoTo31 : kTwoTo63;
    const bool isUnsigned = theKind == Kind::UInt32 || theKind == Kind::UInt64;
    if (isUnsigned && theDouble >= theLimit) {
        return static_cast<std::uint64_t>(CutOff(theDouble - theLimit, theLimit)) +
               static_cast<std::uint64_t>(theLimit);
    }
    return FromInteger(theKind, static_cast<std::uint64_t>(CutOff(theDouble, theLimit))).theBits;
}

Value ConvertNumber(const Value& theValue, Kind theKind)
{
    if (theKind == Kind::Double) {
        return Value::Double(DoubleOf(theValue));
    }
    const bool isDouble = theValue.theKind == Kind::Double;
    if (theKind == Kind::Boolean) {
        // A NaN is not equal to zero, and so true.
        return Value::Number(theKind, (isDouble ? theValue.theDouble != 0.0 : theValue.theBits != 0) ? 1 : 0);
    }
    return FromInteger(theKind, isDouble ? IntegerOf(theValue.theDouble, theKind) : theValue.theBits);
}

} // namespace

Value ConvertValue(const Value& theValue, Kind theKind, const Reporter& theReporter)
{
    if (IsNumber(theValue)) {
        return ConvertNumber(theValue, theKind);
    }
    theReporter("LmValue", "IsNumber()");
    return theKind == Kind::Double ? Value::Double(0) : Value::Number(theKind, 0);
}

bool ValuesAreEqual(const Value& theLeft, const Value& theRight)
{
    if (IsNumber(theLeft) && IsNumber(theRight)) {
        return ConvertNumber(theLeft, Kind::UInt64).theBits == ConvertNumber(theRight, Kind::UInt64).theBits;
    }
    if (theLeft.theKind != theRight.theKind) {
        return false;
    }
    switch (theLeft.theKind) {
    case Kind::Invalid:
        return true;
    case Kind::Pointer:
        return theLeft.theBits == theRight.theBits;
    case Kind::Text:
        return theLeft.theText && theRight.theText && *theLeft.theText == *theRight.theText;
    default:
        return theLeft.theParts == theRight.theParts;
    }
}

// ---- Getters of what is no number

namespace {

const char* const kValueSource = "LmValue";

std::uint64_t AddressOf(const Value& theValue, const Reporter& theReporter)
{
    if (theValue.theKind != Kind::Pointer) {
        theReporter(kValueSource, "IsPointer()");
        if (theValue.theKind != Kind::Invalid && theValue.theKind != Kind::Boolean) {
            throw Undefined{"the bits of another kind are taken for a pointer"};
        }
    }
    return theValue.theBits;
}

// The first components of another kind; zeros where that has fewer.
std::array<float, 4> GeometryOf(const Value& theValue, Kind theKind, const Reporter& theReporter)
{
    if (theValue.theKind == theKind) {
        return theValue.theParts;
    }
    theReporter(kValueSource, theKind == Kind::Point  ? "IsPoint()"
                              : theKind == Kind::Size ? "IsSize()"
                                                      : "IsRect()");
    if ((IsWide(theValue) || theValue.theKind == Kind::Double) && theKind != Kind::Rect) {
        throw Undefined{"the bits of a number are taken for components"};
    }
    const std::array<float, 4>& theParts = theValue.theParts;
    return theKind == Kind::Rect ? std::array<float, 4>{}
                                 : std::array<float, 4>{theParts[0], theParts[1], 0, 0};
}

// ---- Questions

const char* const kLogicalSource = "LmLogicalTransforms";
const char* const kNumericalSource = "LmNumericalTransforms";

Value Illegal(const char* theSource, const Value& theValue, const Reporter& theReporter)
{
    theReporter(theSource, "Illegal value type: " + std::to_string(static_cast<int>(theValue.theKind)));
    return {};
}

// The temporary transform of the opposite question goes without having been released.
void ReportTemporary(const Reporter& theReporter)
{
    theReporter("LmValueTransform", "mRefCount == 0");
}

bool IsNull(const Value& theValue, const Reporter& theReporter)
{
    const std::array<float, 4>& theParts = theValue.theParts;
    const bool isText = theValue.theKind == Kind::Text;
    if (theValue.theKind == Kind::Invalid) {
        Illegal(kLogicalSource, theValue, theReporter);
        return false;
    }
    if (IsGeometry(theValue)) {
        // Of a rectangle its size counts, and of a size its width.
        const std::size_t theFirst = theValue.theKind == Kind::Rect ? 2 : 0;
        return theParts[theFirst] == 0 && (theValue.theKind == Kind::Size || theParts[theFirst + 1] == 0);
    }
    return isText ? !theValue.theText || theValue.theText->empty()
                  : theValue.theBits == 0 && theValue.theDouble == 0;
}

template <typename Number>
bool Passes(Number theLeft, Number theRight, bool isInclusive)
{
    return isInclusive ? theLeft >= theRight : theLeft > theRight;
}

bool IsAbove(const Step& theStep, const Value& theValue, const Reporter& theReporter)
{
    const auto theOther = [&] { return ConvertValue(theStep.theOperand, theValue.theKind, theReporter); };
    switch (theValue.theKind) {
    case Kind::Boolean:
    case Kind::UInt32:
    case Kind::UInt64:
        return Passes(theValue.theBits, theOther().theBits, theStep.isInclusive);
    case Kind::SInt32:
    case Kind::SInt64:
        return Passes(static_cast<std::int64_t>(theValue.theBits),
                      static_cast<std::int64_t>(theOther().theBits), theStep.isInclusive);
    case Kind::Double:
        return Passes(theValue.theDouble, theOther().theDouble, theStep.isInclusive);
    case Kind::Pointer:
        return Passes(theValue.theBits, AddressOf(theStep.theOperand, theReporter), theStep.isInclusive);
    case Kind::Text:
        // A string is compared with itself.
        return theValue.theText && theStep.isInclusive;
    default:
        Illegal(kLogicalSource, theValue, theReporter);
        return false;
    }
}

bool IsBelow(const Step& theStep, const Value& theValue, const Reporter& theReporter)
{
    Step theOpposite = theStep;
    theOpposite.isInclusive = !theStep.isInclusive;
    const bool isBelow = !IsAbove(theOpposite, theValue, theReporter);
    ReportTemporary(theReporter);
    return isBelow;
}

// ---- Arithmetic

// What arithmetic does to a point's or size's components, or to the width and height of a rectangle.
template <typename Change>
Value ChangeGeometry(const Value& theValue, const Change& theChange)
{
    Value theResult = theValue;
    const std::size_t theFirst = theValue.theKind == Kind::Rect ? 2 : 0;
    for (std::size_t theIndex = theFirst; theIndex < theFirst + 2; ++theIndex) {
        theResult.theParts[theIndex] = theChange(theValue.theParts[theIndex], theIndex);
    }
    return theResult;
}

Value Absolute(const Value& theValue)
{
    if (theValue.theKind == Kind::SInt32 || theValue.theKind == Kind::SInt64) {
        // Only 32 bits of an integer count, the wider one's too.
        const std::uint64_t theLow = ExtendSign(theValue.theBits);
        return Value::Number(theValue.theKind, ExtendSign(theLow >> 63U != 0 ? 0 - theLow : theLow));
    }
    if (theValue.theKind == Kind::Point || theValue.theKind == Kind::Size) {
        return ChangeGeometry(theValue, [](float thePart, std::size_t) { return std::fabs(thePart); });
    }
    return theValue.theKind == Kind::Double ? Value::Double(std::fabs(theValue.theDouble)) : theValue;
}

Value Add(const Value& theAmount, const Value& theValue, const Reporter& theReporter)
{
    const auto theNumber = [&] { return ConvertValue(theAmount, theValue.theKind, theReporter); };
    switch (theValue.theKind) {
    case Kind::Invalid:
        return Illegal(kNumericalSource, theValue, theReporter);
    case Kind::Boolean:
        // The amount of a false value is not even read.
        return theValue.theBits == 0 ? theValue : theNumber();
    case Kind::Double:
        return Value::Double(theValue.theDouble + theNumber().theDouble);
    case Kind::Pointer:
        return Value::Number(
            Kind::Pointer, static_cast<std::uintptr_t>(theValue.theBits + AddressOf(theAmount, theReporter)));
    case Kind::Text: {
        const Text theText = theAmount.theText; // none of another kind
        if (theAmount.theKind != Kind::Text) {
            theReporter(kValueSource, "IsString()");
        }
        return theText && theValue.theText
                   ? Value::String(std::make_shared<std::u16string>(*theValue.theText + *theText))
                   : Value::String(theText ? theText : theValue.theText);
    }
    case Kind::Point:
    case Kind::Size:
    case Kind::Rect: {
        const std::array<float, 4> theOther = GeometryOf(theAmount, theValue.theKind, theReporter);
        return ChangeGeometry(
            theValue, [&](float thePart, std::size_t theIndex) { return thePart + theOther[theIndex]; });
    }
    default:
        return FromInteger(theValue.theKind, theValue.theBits + theNumber().theBits);
    }
}

Value Scale(double theFactor, const Value& theValue, const Reporter& theReporter)
{
    if (IsInteger(theValue)) {
        return Value::Number(theValue.theKind, IntegerOf(DoubleOf(theValue) * theFactor, theValue.theKind));
    }
    if (IsGeometry(theValue)) {
        return ChangeGeometry(theValue, [&](float thePart, std::size_t) {
            return static_cast<float>(static_cast<double>(thePart) * theFactor);
        });
    }
    return theValue.theKind == Kind::Double ? Value::Double(theValue.theDouble * theFactor)
                                            : Illegal(kNumericalSource, theValue, theReporter);
}

Value Negate(const Value& theValue, const Reporter& theReporter)
{
    if (IsInteger(theValue)) {
        return FromInteger(IsWide(theValue) ? Kind::SInt64 : Kind::SInt32, 0 - theValue.theBits);
    }
    if (IsGeometry(theValue)) {
        return ChangeGeometry(theValue, [](float thePart, std::size_t) { return -thePart; });
    }
    if (theValue.theKind == Kind::Boolean) {
        return Value::Number(Kind::Boolean, 1 - theValue.theBits);
    }
    return theValue.theKind == Kind::Double ? Value::Double(-theValue.theDouble)
                                            : Illegal(kNumericalSource, theValue, theReporter);
}

// ---- Texts

template <typename... Arguments>
Value Format(const char* theFormat, Arguments... theArguments)
{
    const int theLength = std::snprintf(nullptr, 0, theFormat, theArguments...);
    std::string theText(static_cast<std::size_t>(theLength) + 1, '\0');
    std::snprintf(theText.data(), theText.size(), theFormat, theArguments...);
    return Value::String(std::make_shared<std::u16string>(theText.begin(), theText.end() - 1));
}

Value ToText(const Value& theValue, const Reporter& theReporter)
{
    static const Text theTrue = std::make_shared<std::u16string>(u"true");
    static const Text theFalse = std::make_shared<std::u16string>(u"false");
    static const Text theUnknown = std::make_shared<std::u16string>(u"unknown");
    const auto theUnsigned = static_cast<unsigned long long>(theValue.theBits);
    const auto thePart = [&](std::size_t theIndex) {
        return static_cast<double>(theValue.theParts[theIndex]);
    };
    switch (theValue.theKind) {
    case Kind::Boolean:
        return Value::String(theValue.theBits != 0 ? theTrue : theFalse);
    case Kind::UInt32:
    case Kind::UInt64:
        return Format("%llu", theUnsigned);
    case Kind::SInt32:
    case Kind::SInt64:
        return Format("%lld", static_cast<long long>(theValue.theBits));
    case Kind::Double:
        return Format("%Lf", static_cast<long double>(theValue.theDouble));
    case Kind::Pointer:
        return Format("0x%llX", theUnsigned);
    case Kind::Text:
        return theValue;
    case Kind::Point:
    case Kind::Size:
        return Format("(%g, %g)", thePart(0), thePart(1));
    case Kind::Rect:
        return Format("(%g, %g)-(%g, %g)", thePart(0), thePart(1), thePart(2), thePart(3));
    default:
        Illegal("LmStringTransforms", theValue, theReporter);
        return Value::String(theUnknown);
    }
}

// The character that begins at theIndex, which moves on behind it, in UTF-8; '?' for half a pair.
std::string NextCharacter(const std::u16string& theText, std::size_t& theIndex)
{
    std::uint32_t theCharacter = theText[theIndex++];
    const std::uint32_t theNext = theIndex < theText.size() ? theText[theIndex] : 0;
    if (theCharacter >= 0xD800 && theCharacter <= 0xDFFF) {
        if (theCharacter > 0xDBFF || theNext < 0xDC00 || theNext > 0xDFFF) {
            return "?";
        }
        theCharacter = 0x10000U + ((theCharacter - 0xD800U) << 10U) + (theNext - 0xDC00U);
        ++theIndex;
    }
    static const std::uint32_t kMarks[] = {0, 0xC0, 0xE0, 0xF0};
    unsigned theRest = theCharacter < 0x80 ? 0 : theCharacter < 0x800 ? 1 : theCharacter < 0x10000 ? 2 : 3;
    std::string theBytes(1, static_cast<char>(kMarks[theRest] | (theCharacter >> (6 * theRest))));
    while (theRest-- > 0) {
        theBytes += static_cast<char>(0x80U | ((theCharacter >> (6 * theRest)) & 0x3FU));
    }
    return theBytes;
}

// The text in UTF-8, as far as whole characters fit into as many bytes as it has 16-bit units.
std::string ReadableBytes(const std::u16string& theText)
{
    std::string theBytes;
    for (std::size_t theIndex = 0; theIndex < theText.size();) {
        const std::string theCharacter = NextCharacter(theText, theIndex);
        if (theBytes.size() + theCharacter.size() > theText.size()) {
            break;
        }
        theBytes += theCharacter;
    }
    return theBytes.substr(0, theBytes.find('\0')); // a zero ends the text
}

// What "%lu" reads where it reads 32 bits. False when the text does not begin so.
bool ReadUnsigned(const std::string& theText, std::uint64_t& theResult)
{
    const std::size_t theStart = theText.find_first_not_of(" \t\n\v\f\r");
    if (theStart == std::string::npos) {
        return false;
    }
    const char theSign = theText[theStart];
    const char* const theDigits = theText.c_str() + theStart + (theSign == '-' || theSign == '+' ? 1 : 0);
    const unsigned long long theMagnitude = std::strtoull(theDigits, nullptr, 10);
    theResult =
        theMagnitude > 0xFFFFFFFFU ? 0xFFFFFFFFU : Low32(theSign == '-' ? 0 - theMagnitude : theMagnitude);
    return *theDigits >= '0' && *theDigits <= '9';
}

bool IsWord(std::u16string theText, const std::u16string& theWord)
{
    for (char16_t& theUnit : theText) {
        theUnit = theUnit >= u'A' && theUnit <= u'Z' ? static_cast<char16_t>(theUnit + 32) : theUnit;
    }
    return theText == theWord;
}

// On purpose as loose as the reading it stands for: what follows is ignored, and no text comes out as a size,
// as a rectangle or as an integer of another kind.
Value FromText(const Value& theValue)
{
    if (theValue.theKind != Kind::Text || !theValue.theText) {
        return theValue;
    }
    for (const bool isTrue : {true, false}) {
        if (IsWord(*theValue.theText, isTrue ? u"true" : u"false")) {
            return Value::Number(Kind::Boolean, isTrue ? 1 : 0);
        }
    }
    const std::string theBytes = ReadableBytes(*theValue.theText);
    std::uint64_t theUnsigned = 0;
    if (ReadUnsigned(theBytes, theUnsigned)) {
        return Value::Number(Kind::UInt32, theUnsigned);
    }
    double theDouble = 0;
    if (std::sscanf(theBytes.c_str(), "%lf", &theDouble) == 1) {
        return Value::Double(theDouble);
    }
    std::array<float, 4> theParts{};
    if (std::sscanf(theBytes.c_str(), "(%g, %g)", &theParts[0], &theParts[1]) == 2) {
        return Value::Geometry(Kind::Point, theParts);
    }
    return theValue;
}

Value Answer(bool isTrue)
{
    return Value::Number(Kind::Boolean, isTrue ? 1 : 0);
}

} // namespace

Value ApplyStep(const Step& theStep, const Value& theValue, const Reporter& theReporter)
{
    switch (theStep.theSort) {
    case StepSort::IsNull:
        return Answer(IsNull(theValue, theReporter));
    case StepSort::IsNotNull: {
        const bool isNotNull = !IsNull(theValue, theReporter);
        ReportTemporary(theReporter);
        return Answer(isNotNull);
    }
    case StepSort::IsAbove:
        return Answer(IsAbove(theStep, theValue, theReporter));
    case StepSort::IsBelow:
        return Answer(IsBelow(theStep, theValue, theReporter));
    case StepSort::IsEqual:
        return Answer(ValuesAreEqual(theStep.theOperand, theValue));
    case StepSort::IsNotEqual:
        ReportTemporary(theReporter);
        return Answer(!ValuesAreEqual(theStep.theOperand, theValue));
    case StepSort::Absolute:
        return Absolute(theValue);
    case StepSort::Add:
        return Add(theStep.theOperand, theValue, theReporter);
    case StepSort::Scale:
        return Scale(theStep.theFactor, theValue, theReporter);
    case StepSort::Negate:
        return Negate(theValue, theReporter);
    case StepSort::ToText:
        return ToText(theValue, theReporter);
    case StepSort::FromText:
        return FromText(theValue);
    }
    return {};
}

} // namespace Model
