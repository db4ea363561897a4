// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Coercions.h"

#include "Base/Owned.h"
#include "Base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <variant>

namespace Host {

namespace {

// --- What data says -----------------------------------------------------------------------------------

struct Code
{
    OSType theCode;
};

struct FilePath
{
    std::string thePath; // in UTF-8, from the root on
};

// What is between one type and another. SInt64 holds all whole numbers that it can; UInt64 those beyond.
using Meaning = std::variant<std::monostate, bool, SInt64, UInt64, double, Text, Code, FilePath>;

template <class Value>
std::optional<Value> ValueIn(const std::string& theBytes)
{
    Value theValue{};
    if (theBytes.size() != sizeof theValue) {
        return std::nullopt;
    }
    std::memcpy(&theValue, theBytes.data(), sizeof theValue);
    return theValue;
}

// The bytes of a value under the type that stands for it.
template <class Value>
std::string BytesOfValue(const Value& theValue)
{
    std::string theBytes(sizeof theValue, '\0');
    std::memcpy(theBytes.data(), &theValue, sizeof theValue);
    return theBytes;
}

// --- Numbers ------------------------------------------------------------------------------------------

template <class Value>
Meaning Number(const std::string& theBytes)
{
    const std::optional<Value> theValue = ValueIn<Value>(theBytes);
    if (!theValue) {
        return Meaning();
    }
    if constexpr (std::is_floating_point_v<Value>) {
        return Meaning(static_cast<double>(*theValue));
    } else if constexpr (std::is_same_v<Value, UInt64>) {
        const bool theIsSmall = *theValue <= static_cast<UInt64>(std::numeric_limits<SInt64>::max());
        return theIsSmall ? Meaning(static_cast<SInt64>(*theValue)) : Meaning(*theValue);
    } else {
        return Meaning(static_cast<SInt64>(*theValue));
    }
}

Meaning TruthIn(const std::string& theBytes)
{
    const std::optional<Boolean> theValue = ValueIn<Boolean>(theBytes);
    return theValue ? Meaning(*theValue != 0) : Meaning();
}

// A number all over, or nothing.
Meaning NumberInText(const Text& theText)
{
    if (std::any_of(theText.begin(), theText.end(), [](char16_t theUnit) { return theUnit >= 0x80; })) {
        return Meaning();
    }
    const std::string theBytes(theText.begin(), theText.end());
    const char* const theEnd = theBytes.data() + theBytes.size();
    SInt64 theWhole = 0;
    const auto theWholeEnd = std::from_chars(theBytes.data(), theEnd, theWhole);
    if (theWholeEnd.ec == std::errc() && theWholeEnd.ptr == theEnd) {
        return Meaning(theWhole);
    }
    double theReal = 0;
    const auto theRealEnd = std::from_chars(theBytes.data(), theEnd, theReal);
    const bool theIsReal = theRealEnd.ec == std::errc() && theRealEnd.ptr == theEnd && std::isfinite(theReal);
    return theIsReal ? Meaning(theReal) : Meaning();
}

// The meaning as a number: truth values are 1 and 0, and texts are read.
Meaning AsNumber(const Meaning& theMeaning)
{
    if (const auto* const theTruth = std::get_if<bool>(&theMeaning); theTruth != nullptr) {
        return Meaning(static_cast<SInt64>(*theTruth));
    }
    if (const auto* const theText = std::get_if<Text>(&theMeaning); theText != nullptr) {
        return NumberInText(*theText);
    }
    return theMeaning;
}

template <class Value>
std::optional<Value> RoundedTo(double theReal)
{
    const double theRounded = std::round(theReal);
    const double theLimit = std::ldexp(1.0, std::numeric_limits<Value>::digits);
    const double theLow = std::is_signed_v<Value> ? -theLimit : 0;
    return theRounded >= theLow && theRounded < theLimit ? std::optional(static_cast<Value>(theRounded))
                                                         : std::nullopt;
}

template <class Value>
std::optional<Value> WholeNumber(const Meaning& theNumber)
{
    using Limits = std::numeric_limits<Value>;
    if (const auto* const theReal = std::get_if<double>(&theNumber); theReal != nullptr) {
        return RoundedTo<Value>(*theReal);
    }
    if (const auto* const theLarge = std::get_if<UInt64>(&theNumber); theLarge != nullptr) {
        return *theLarge <= static_cast<UInt64>(Limits::max()) ? std::optional(static_cast<Value>(*theLarge))
                                                               : std::nullopt;
    }
    const auto* const theWhole = std::get_if<SInt64>(&theNumber);
    if (theWhole == nullptr) {
        return std::nullopt;
    }
    const bool theIsLow =
        *theWhole < 0 && (!Limits::is_signed || *theWhole < static_cast<SInt64>(Limits::min()));
    const bool theIsHigh =
        *theWhole > 0 && static_cast<UInt64>(*theWhole) > static_cast<UInt64>(Limits::max());
    return theIsLow || theIsHigh ? std::nullopt : std::optional(static_cast<Value>(*theWhole));
}

std::optional<double> RealNumber(const Meaning& theNumber)
{
    if (const auto* const theReal = std::get_if<double>(&theNumber); theReal != nullptr) {
        return *theReal;
    }
    if (const auto* const theLarge = std::get_if<UInt64>(&theNumber); theLarge != nullptr) {
        return static_cast<double>(*theLarge);
    }
    const auto* const theWhole = std::get_if<SInt64>(&theNumber);
    return theWhole == nullptr ? std::nullopt : std::optional(static_cast<double>(*theWhole));
}

template <class Value>
std::optional<std::string> NumberBytes(const Meaning& theMeaning)
{
    const Meaning theNumber = AsNumber(theMeaning);
    if constexpr (std::is_floating_point_v<Value>) {
        const std::optional<double> theReal = RealNumber(theNumber);
        const bool theFits = theReal && (!std::isfinite(*theReal) ||
                                         std::abs(*theReal) <= double{std::numeric_limits<Value>::max()});
        return theFits ? std::optional(BytesOfValue(static_cast<Value>(*theReal))) : std::nullopt;
    } else {
        const std::optional<Value> theWhole = WholeNumber<Value>(theNumber);
        return theWhole ? std::optional(BytesOfValue(*theWhole)) : std::nullopt;
    }
}

std::optional<bool> TruthOf(const Meaning& theMeaning)
{
    if (const auto* const theText = std::get_if<Text>(&theMeaning); theText != nullptr) {
        if (*theText == u"true" || *theText == u"false") {
            return *theText == u"true";
        }
    }
    const std::optional<double> theNumber = RealNumber(AsNumber(theMeaning));
    return theNumber ? std::optional(*theNumber != 0) : std::nullopt;
}

// --- Texts --------------------------------------------------------------------------------------------

// Pairs of bytes in one order or the other.
std::optional<Text> UnitsIn(const std::string& theBytes, bool theIsBigEndian)
{
    if (theBytes.size() % 2 != 0) {
        return std::nullopt;
    }
    Text theText;
    for (size_t theIndex = 0; theIndex < theBytes.size(); theIndex += 2) {
        const auto theFirst = static_cast<unsigned char>(theBytes[theIndex]);
        const auto theSecond = static_cast<unsigned char>(theBytes[theIndex + 1]);
        theText +=
            static_cast<char16_t>(theIsBigEndian ? theFirst << 8 | theSecond : theSecond << 8 | theFirst);
    }
    return theText;
}

bool IsBigEndianMachine()
{
    const UInt16 theOne = 1;
    return BytesOfValue(theOne)[0] == 0;
}

Meaning UnicodeIn(const std::string& theBytes)
{
    std::optional<Text> theText = UnitsIn(theBytes, IsBigEndianMachine());
    return theText ? Meaning(std::move(*theText)) : Meaning();
}

// A mark at the beginning says that the order of bytes is another one.
Meaning ExternalUnicodeIn(const std::string& theBytes)
{
    const bool theIsMarked =
        theBytes.compare(0, 2, "\xFF\xFE") == 0 || theBytes.compare(0, 2, "\xFE\xFF") == 0;
    const bool theIsLittle = theIsMarked && theBytes[0] == '\xFF';
    std::optional<Text> theText = UnitsIn(theBytes.substr(theIsMarked ? 2 : 0), !theIsLittle);
    return theText ? Meaning(std::move(*theText)) : Meaning();
}

Meaning MacRomanIn(const std::string& theBytes)
{
    return Meaning(TextOfBytes(theBytes.data(), theBytes.size()));
}

Meaning PascalStringIn(const std::string& theBytes)
{
    const size_t theLength = theBytes.empty() ? 0 : static_cast<unsigned char>(theBytes[0]);
    return theBytes.size() > theLength ? MacRomanIn(theBytes.substr(1, theLength)) : Meaning();
}

std::string BigEndianUnits(const Text& theText)
{
    std::string theBytes;
    for (const char16_t theUnit : theText) {
        theBytes += static_cast<char>(theUnit >> 8);
        theBytes += static_cast<char>(theUnit & 0xFF);
    }
    return theBytes;
}

std::string NativeUnits(const Text& theText)
{
    std::string theBytes(theText.size() * sizeof(char16_t), '\0');
    std::memcpy(theBytes.data(), theText.data(), theBytes.size());
    return theBytes;
}

std::optional<std::string> PascalString(const Text& theText)
{
    const std::string theBytes = BytesOf(theText);
    if (theBytes.size() > 255) {
        return std::nullopt;
    }
    return std::string(1, static_cast<char>(theBytes.size())) + theBytes;
}

Text TextOfAscii(const char* theBegin, const char* theEnd)
{
    return Text(theBegin, theEnd);
}

template <class Value>
Text Digits(Value theValue)
{
    std::array<char, 40> theDigits = {};
    const auto theResult = std::to_chars(theDigits.data(), theDigits.data() + theDigits.size(), theValue);
    return TextOfAscii(theDigits.data(), theResult.ptr);
}

std::optional<Text> TextMeant(const Meaning& theMeaning)
{
    if (const auto* const theText = std::get_if<Text>(&theMeaning); theText != nullptr) {
        return *theText;
    }
    if (const auto* const theTruth = std::get_if<bool>(&theMeaning); theTruth != nullptr) {
        return Text(*theTruth ? u"true" : u"false");
    }
    if (const auto* const theWhole = std::get_if<SInt64>(&theMeaning); theWhole != nullptr) {
        return Digits(*theWhole);
    }
    if (const auto* const theLarge = std::get_if<UInt64>(&theMeaning); theLarge != nullptr) {
        return Digits(*theLarge);
    }
    const auto* const theReal = std::get_if<double>(&theMeaning);
    return theReal == nullptr ? std::nullopt : std::optional(Digits(*theReal));
}

std::optional<std::string> TextBytes(const Meaning& theMeaning, DescType theType)
{
    const std::optional<Text> theText = TextMeant(theMeaning);
    if (!theText) {
        return std::nullopt;
    }
    switch (theType) {
    case typeUnicodeText:
        return NativeUnits(*theText);
    case typeUTF16ExternalText:
        return BigEndianUnits(*theText);
    case typeUTF8Text:
        return Utf8Of(*theText);
    case typeCString:
        return BytesOf(*theText) + '\0';
    case typePString:
        return PascalString(*theText);
    default:
        return BytesOf(*theText);
    }
}

// --- Files --------------------------------------------------------------------------------------------

// An alias here: a number for the program's own use, its own size in 16 bits, and then the path.
constexpr size_t kAliasHeadSize = sizeof(OSType) + sizeof(UInt16);

Meaning PathInURL(CFURLRef theURL)
{
    const Owned<CFStringRef> theScheme(theURL == nullptr ? nullptr : CFURLCopyScheme(theURL));
    if (theScheme.Get() == nullptr ||
        CFStringCompare(theScheme.Get(), CFSTR("file"), kCFCompareCaseInsensitive) != kCFCompareEqualTo) {
        return Meaning();
    }
    // Escapes make a URL longer than its path, never shorter.
    const CFIndex theRoom =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(CFURLGetString(theURL)), kCFStringEncodingUTF8) +
        1;
    std::vector<UInt8> thePath(static_cast<size_t>(theRoom));
    if (CFURLGetFileSystemRepresentation(theURL, true, thePath.data(), theRoom) == 0 || thePath[0] != '/') {
        return Meaning();
    }
    return Meaning(FilePath{reinterpret_cast<const char*>(thePath.data())});
}

Meaning PathInReference(const std::string& theBytes)
{
    const std::optional<FSRef> theReference = ValueIn<FSRef>(theBytes);
    const Owned<CFURLRef> theURL(theReference ? CFURLCreateFromFSRef(nullptr, &*theReference) : nullptr);
    return PathInURL(theURL.Get());
}

Meaning PathInURLText(const std::string& theBytes)
{
    const Owned<CFURLRef> theURL(
        CFURLCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theBytes.data()),
                             static_cast<CFIndex>(theBytes.size()), kCFStringEncodingUTF8, nullptr));
    return PathInURL(theURL.Get());
}

Meaning PathInAlias(const std::string& theBytes)
{
    UInt16 theSize = 0;
    if (theBytes.size() > kAliasHeadSize) {
        std::memcpy(&theSize, theBytes.data() + sizeof(OSType), sizeof theSize);
    }
    const bool theIsAlias = theSize != 0 && theSize == theBytes.size() && theBytes[kAliasHeadSize] == '/' &&
                            theBytes.find('\0', kAliasHeadSize) == std::string::npos;
    return theIsAlias ? Meaning(FilePath{theBytes.substr(kAliasHeadSize)}) : Meaning();
}

OSStatus MakeReference(const std::string& thePath, FSRef* theReference, Boolean* theIsFolder)
{
    return FSPathMakeRef(reinterpret_cast<const UInt8*>(thePath.c_str()), theReference, theIsFolder);
}

std::optional<std::string> ReferenceBytes(const FilePath& theFile)
{
    FSRef theReference;
    return MakeReference(theFile.thePath, &theReference, nullptr) == noErr
               ? std::optional(BytesOfValue(theReference))
               : std::nullopt;
}

std::optional<std::string> URLBytes(const FilePath& theFile)
{
    FSRef theReference;
    Boolean theIsFolder = 0;
    MakeReference(theFile.thePath, &theReference, &theIsFolder);
    const Owned<CFURLRef> theURL(CFURLCreateFromFileSystemRepresentation(
        nullptr, reinterpret_cast<const UInt8*>(theFile.thePath.data()),
        static_cast<CFIndex>(theFile.thePath.size()), theIsFolder));
    return theURL.Get() == nullptr ? std::nullopt
                                   : std::optional(Utf8Of(TextOf(CFURLGetString(theURL.Get()))));
}

std::optional<std::string> AliasBytes(const FilePath& theFile)
{
    const size_t theSize = kAliasHeadSize + theFile.thePath.size();
    if (theSize > std::numeric_limits<UInt16>::max()) {
        return std::nullopt;
    }
    return BytesOfValue(OSType{0}) + BytesOfValue(static_cast<UInt16>(theSize)) + theFile.thePath;
}

// --- From type to type --------------------------------------------------------------------------------

Meaning CodeIn(const std::string& theBytes)
{
    const std::optional<OSType> theCode = ValueIn<OSType>(theBytes);
    return theCode ? Meaning(Code{*theCode}) : Meaning();
}

Meaning CStringIn(const std::string& theBytes)
{
    return MacRomanIn(theBytes.substr(0, theBytes.find('\0')));
}

Meaning Utf8In(const std::string& theBytes)
{
    return Meaning(TextOfUtf8(theBytes));
}

Meaning TrueIn(const std::string&)
{
    return Meaning(true);
}

Meaning FalseIn(const std::string&)
{
    return Meaning(false);
}

template <class Kind>
std::optional<std::string> FileBytes(const Meaning& theMeaning, const Kind& theMaker)
{
    const auto* const theFile = std::get_if<FilePath>(&theMeaning);
    return theFile == nullptr ? std::nullopt : theMaker(*theFile);
}

std::optional<std::string> CodeBytes(const Meaning& theMeaning)
{
    const auto* const theCode = std::get_if<Code>(&theMeaning);
    return theCode == nullptr ? std::nullopt : std::optional(BytesOfValue(theCode->theCode));
}

std::optional<std::string> TruthBytes(const Meaning& theMeaning)
{
    const std::optional<bool> theTruth = TruthOf(theMeaning);
    return theTruth ? std::optional(BytesOfValue(static_cast<Boolean>(*theTruth))) : std::nullopt;
}

// typeTrue and typeFalse: the type says it all.
std::optional<std::string> NothingWhen(bool theTruth, const Meaning& theMeaning)
{
    return TruthOf(theMeaning) == theTruth ? std::optional(std::string()) : std::nullopt;
}

struct DataType
{
    DescType theType;
    Meaning (*theReader)(const std::string& theBytes);
    std::optional<std::string> (*theWriter)(const Meaning& theMeaning); // of its bytes
};

template <DescType kType>
std::optional<std::string> TextWriter(const Meaning& theMeaning)
{
    return TextBytes(theMeaning, kType);
}

const DataType kDataTypes[] = {
    {typeBoolean, TruthIn, TruthBytes},
    {typeTrue, TrueIn, [](const Meaning& theMeaning) { return NothingWhen(true, theMeaning); }},
    {typeFalse, FalseIn, [](const Meaning& theMeaning) { return NothingWhen(false, theMeaning); }},
    {typeSInt16, Number<SInt16>, NumberBytes<SInt16>},
    {typeUInt16, Number<UInt16>, NumberBytes<UInt16>},
    {typeSInt32, Number<SInt32>, NumberBytes<SInt32>},
    {typeUInt32, Number<UInt32>, NumberBytes<UInt32>},
    {typeSInt64, Number<SInt64>, NumberBytes<SInt64>},
    {typeUInt64, Number<UInt64>, NumberBytes<UInt64>},
    {typeIEEE32BitFloatingPoint, Number<Float32>, NumberBytes<Float32>},
    {typeIEEE64BitFloatingPoint, Number<Float64>, NumberBytes<Float64>},
    {typeChar, MacRomanIn, TextWriter<typeChar>},
    {typeCString, CStringIn, TextWriter<typeCString>},
    {typePString, PascalStringIn, TextWriter<typePString>},
    {typeUTF8Text, Utf8In, TextWriter<typeUTF8Text>},
    {typeUnicodeText, UnicodeIn, TextWriter<typeUnicodeText>},
    {typeUTF16ExternalText, ExternalUnicodeIn, TextWriter<typeUTF16ExternalText>},
    {typeType, CodeIn, CodeBytes},
    {typeEnumerated, CodeIn, CodeBytes},
    {typeKeyword, CodeIn, CodeBytes},
    {typeProperty, CodeIn, CodeBytes},
    {typeApplSignature, CodeIn, CodeBytes},
    {typeFSRef, PathInReference,
     [](const Meaning& theMeaning) { return FileBytes(theMeaning, ReferenceBytes); }},
    {typeFileURL, PathInURLText, [](const Meaning& theMeaning) { return FileBytes(theMeaning, URLBytes); }},
    {typeAlias, PathInAlias, [](const Meaning& theMeaning) { return FileBytes(theMeaning, AliasBytes); }},
};

const DataType* FindDataType(DescType theType)
{
    const auto* const theEntry =
        std::find_if(std::begin(kDataTypes), std::end(kDataTypes),
                     [theType](const DataType& theCandidate) { return theCandidate.theType == theType; });
    return theEntry == std::end(kDataTypes) ? nullptr : theEntry;
}

bool CoerceData(const Descriptor& theSource, DescType theType, Descriptor* theResult)
{
    const DataType* const theFrom = FindDataType(theSource.theType);
    const DataType* const theTo = FindDataType(theType);
    if (theFrom == nullptr || theTo == nullptr) {
        return false;
    }
    std::optional<std::string> theBytes = theTo->theWriter(theFrom->theReader(theSource.theBytes));
    if (!theBytes) {
        return false;
    }
    theResult->theType = theType;
    theResult->theBytes = std::move(*theBytes);
    return true;
}

void MakeListOfOne(const Descriptor& theSource, Descriptor* theResult)
{
    theResult->theType = typeAEList;
    theResult->theForm = Descriptor::Form::kList;
    theResult->theItems.push_back(theSource);
    theResult->theItems.back().theKeyword = typeWildCard;
}

// Types of records are those that are nothing else.
bool CoerceRecord(const Descriptor& theSource, DescType theType, Descriptor* theResult)
{
    if (FindDataType(theType) != nullptr || theType == typeAppleEvent || theType == typeNull) {
        return false;
    }
    theResult->theType = theType;
    theResult->theForm = Descriptor::Form::kRecord;
    theResult->theItems = theSource.theItems;
    return true;
}

} // namespace

bool Coerce(const Descriptor& theSource, DescType theType, Descriptor* theResult)
{
    if (theType == typeWildCard || theType == theSource.theType) {
        *theResult = theSource;
        return true;
    }
    if (theType == typeAEList) {
        MakeListOfOne(theSource, theResult);
        return true;
    }
    if (IsRecord(theSource)) {
        return CoerceRecord(theSource, theType, theResult);
    }
    if (IsList(theSource)) {
        return theSource.theItems.size() == 1 && Coerce(theSource.theItems[0], theType, theResult);
    }
    return CoerceData(theSource, theType, theResult);
}

} // namespace Host
