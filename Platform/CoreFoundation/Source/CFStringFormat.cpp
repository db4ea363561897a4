// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFStringObject.h"
#include "CFUnicode.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <map>
#include <vector>

// A format becomes text in three steps: it is parsed into conversions, the arguments are fetched in their
// order (which may differ from that of the conversions), and the conversions are written.

namespace {

using Host::Units;

constexpr int kNone = -1;

// The largest width of a conversion and the most digits of a number: more are meant by nobody, and cost
// memory and time that a program may not have.
constexpr int kMostCharacters = 65535;

enum class ArgumentKind
{
    kInt,
    kLong,
    kLongLong,
    kDouble,
    kLongDouble,
    kPointer
};

struct Argument
{
    long long theInteger = 0;
    double theDouble = 0;
    long double theLongDouble = 0;
    const void* thePointer = nullptr;
};

struct Conversion
{
    bool HasFlag(char theFlag) const { return theFlags.find(theFlag) != std::string::npos; }

    std::string theFlags;
    int theWidth = kNone;
    int theWidthArgument = kNone; // where a width of '*' comes from
    int thePrecision = kNone;
    int thePrecisionArgument = kNone;
    std::string theModifier; // hh h l ll L
    UniChar theLetter = 0;
    int theArgument = kNone;
};

// Text, and the conversion behind it.
struct Piece
{
    Units theText;
    Conversion theConversion; // without a letter in the last piece
};

bool IsOneOf(UniChar theUnit, const char* theCharacters)
{
    return theUnit != 0 && theUnit < 0x80 && std::strchr(theCharacters, theUnit) != nullptr;
}

class Parser
{
public:
    explicit Parser(const Units& theFormat)
        : mUnit(theFormat.begin()),
          mEnd(theFormat.end())
    {
    }

    std::vector<Piece> Parse()
    {
        std::vector<Piece> thePieces(1);
        while (mUnit != mEnd) {
            if (*mUnit != '%') {
                thePieces.back().theText.push_back(*mUnit++);
                continue;
            }
            ++mUnit;
            ParseConversion(thePieces);
        }
        return thePieces;
    }

private:
    // A letter that means nothing stands for itself, and takes no argument.
    void ParseConversion(std::vector<Piece>& thePieces)
    {
        Conversion theConversion;
        theConversion.theArgument = ParsePosition();
        ParseFlags(theConversion);
        ParseWidth(theConversion);
        ParsePrecision(theConversion);
        ParseModifier(theConversion);
        if (mUnit == mEnd) {
            return;
        }
        theConversion.theLetter = *mUnit++;
        if (!IsOneOf(theConversion.theLetter, "diuxXofFeEgGaAcCsSP@pn")) {
            thePieces.back().theText.push_back(theConversion.theLetter);
            return;
        }
        if (theConversion.theArgument == kNone) {
            theConversion.theArgument = mNextArgument++;
        }
        thePieces.back().theConversion = std::move(theConversion);
        thePieces.emplace_back();
    }

    // "2$" at the start of a conversion: the argument's position, from 0.
    int ParsePosition()
    {
        const auto theStart = mUnit;
        const int theNumber = ParseNumber();
        if (theNumber > 0 && mUnit != mEnd && *mUnit == '$') {
            ++mUnit;
            return theNumber - 1;
        }
        mUnit = theStart;
        return kNone;
    }

    void ParseFlags(Conversion& theConversion)
    {
        while (mUnit != mEnd && IsOneOf(*mUnit, "-+ #0")) {
            theConversion.theFlags.push_back(static_cast<char>(*mUnit++));
        }
    }

    void ParseWidth(Conversion& theConversion)
    {
        if (SkipUnit('*')) {
            theConversion.theWidthArgument = ParseStarArgument();
        } else {
            theConversion.theWidth = ParseNumber();
        }
    }

    void ParsePrecision(Conversion& theConversion)
    {
        if (!SkipUnit('.')) {
            return;
        }
        if (SkipUnit('*')) {
            theConversion.thePrecisionArgument = ParseStarArgument();
        } else {
            theConversion.thePrecision = std::max(ParseNumber(), 0);
        }
    }

    // 'q' is another name of "ll"; the sizes behind 'z', 't' and 'j' are those of long and long long.
    void ParseModifier(Conversion& theConversion)
    {
        while (mUnit != mEnd && IsOneOf(*mUnit, "hlLqztj")) {
            switch (*mUnit++) {
            case 'h':
                theConversion.theModifier += 'h';
                break;
            case 'L':
                theConversion.theModifier = "L";
                break;
            case 'q':
            case 'j':
                theConversion.theModifier = "ll";
                break;
            default:
                theConversion.theModifier += 'l';
                break;
            }
        }
    }

    int ParseStarArgument()
    {
        const int thePosition = ParsePosition();
        return thePosition == kNone ? mNextArgument++ : thePosition;
    }

    // kNone when there is no digit.
    int ParseNumber()
    {
        int theNumber = kNone;
        for (; mUnit != mEnd && Host::IsDigit(*mUnit); ++mUnit) {
            const long long theLonger = std::max(theNumber, 0) * 10LL + (*mUnit - '0');
            theNumber = static_cast<int>(std::min<long long>(theLonger, INT_MAX));
        }
        return theNumber;
    }

    bool SkipUnit(char theUnit)
    {
        const bool theIsThere = mUnit != mEnd && *mUnit == theUnit;
        mUnit += theIsThere ? 1 : 0;
        return theIsThere;
    }

    Units::const_iterator mUnit;
    const Units::const_iterator mEnd;
    int mNextArgument = 0; // of the conversions that name no position
};

bool IsSigned(const Conversion& theConversion)
{
    return IsOneOf(theConversion.theLetter, "di");
}

ArgumentKind KindOf(const Conversion& theConversion)
{
    if (IsOneOf(theConversion.theLetter, "fFeEgGaA")) {
        return theConversion.theModifier == "L" ? ArgumentKind::kLongDouble : ArgumentKind::kDouble;
    }
    if (IsOneOf(theConversion.theLetter, "sSP@pn")) {
        return ArgumentKind::kPointer;
    }
    if (IsOneOf(theConversion.theLetter, "cC") || theConversion.theModifier.empty() ||
        theConversion.theModifier[0] == 'h') {
        return ArgumentKind::kInt;
    }
    return theConversion.theModifier == "l" ? ArgumentKind::kLong : ArgumentKind::kLongLong;
}

// What the conversions say about the arguments. The first that names one decides.
std::map<int, ArgumentKind> CollectKinds(const std::vector<Piece>& thePieces)
{
    std::map<int, ArgumentKind> theKinds;
    for (const Piece& thePiece : thePieces) {
        const Conversion& theConversion = thePiece.theConversion;
        theKinds.emplace(theConversion.theWidthArgument, ArgumentKind::kInt);
        theKinds.emplace(theConversion.thePrecisionArgument, ArgumentKind::kInt);
        theKinds.emplace(theConversion.theArgument, KindOf(theConversion));
    }
    theKinds.erase(kNone);
    return theKinds;
}

// A va_list can be passed on by reference only inside a structure.
struct ArgumentList
{
    va_list theList;
};

Argument FetchArgument(ArgumentKind theKind, ArgumentList& theArguments)
{
    Argument theArgument;
    switch (theKind) {
    // NOLINTNEXTLINE(bugprone-branch-clone): each argument is fetched as what it is
    case ArgumentKind::kInt:
        theArgument.theInteger = va_arg(theArguments.theList, int);
        break;
    case ArgumentKind::kLong:
        theArgument.theInteger = va_arg(theArguments.theList, long);
        break;
    case ArgumentKind::kLongLong:
        theArgument.theInteger = va_arg(theArguments.theList, long long);
        break;
    case ArgumentKind::kDouble:
        theArgument.theDouble = va_arg(theArguments.theList, double);
        break;
    case ArgumentKind::kLongDouble:
        theArgument.theLongDouble = va_arg(theArguments.theList, long double);
        break;
    case ArgumentKind::kPointer:
        theArgument.thePointer = va_arg(theArguments.theList, const void*);
        break;
    }
    return theArgument;
}

// Stops at the first argument that no conversion describes: its size is unknown, and so is the place of those
// behind it.
std::vector<Argument> FetchArguments(const std::vector<Piece>& thePieces, ArgumentList& theArguments)
{
    std::vector<Argument> theResult;
    for (const auto& theKind : CollectKinds(thePieces)) {
        if (theKind.first != static_cast<int>(theResult.size())) {
            break;
        }
        theResult.push_back(FetchArgument(theKind.second, theArguments));
    }
    return theResult;
}

class Writer
{
public:
    explicit Writer(const std::vector<Argument>& theArguments)
        : mArguments(theArguments)
    {
    }

    Units Write(const std::vector<Piece>& thePieces)
    {
        for (const Piece& thePiece : thePieces) {
            mResult.insert(mResult.end(), thePiece.theText.begin(), thePiece.theText.end());
            if (HasArgument(thePiece.theConversion.theArgument)) {
                WriteConversion(Resolve(thePiece.theConversion));
            }
        }
        return std::move(mResult);
    }

private:
    bool HasArgument(int theArgument) const
    {
        return theArgument >= 0 && theArgument < static_cast<int>(mArguments.size());
    }

    const Argument& ArgumentOf(const Conversion& theConversion) const
    {
        return mArguments[static_cast<size_t>(theConversion.theArgument)];
    }

    int IntegerAt(int theArgument) const
    {
        return static_cast<int>(mArguments[static_cast<size_t>(theArgument)].theInteger);
    }

    // Puts numbers where the format had '*'. A negative width means to the left; a negative precision, none.
    Conversion Resolve(Conversion theConversion) const
    {
        if (HasArgument(theConversion.theWidthArgument)) {
            const int theWidth = IntegerAt(theConversion.theWidthArgument);
            theConversion.theFlags += theWidth < 0 ? "-" : "";
            theConversion.theWidth = theWidth == INT_MIN ? INT_MAX : std::abs(theWidth);
        }
        theConversion.theWidth = std::min(theConversion.theWidth, kMostCharacters);
        if (HasArgument(theConversion.thePrecisionArgument)) {
            theConversion.thePrecision = std::max(IntegerAt(theConversion.thePrecisionArgument), kNone);
        }
        return theConversion;
    }

    void WriteConversion(const Conversion& theConversion)
    {
        switch (theConversion.theLetter) {
        case 'c':
            WritePadded(theConversion,
                        UnitOf(CharacterOf(static_cast<UInt8>(ArgumentOf(theConversion).theInteger))));
            break;
        case 'C':
            // On purpose: no width here, nor for a text that is NULL.
            AppendUnits(UnitOf(static_cast<UniChar>(ArgumentOf(theConversion).theInteger)));
            break;
        case 's':
        case 'S':
        case 'P':
            WriteText(theConversion);
            break;
        case '@':
            WriteObject(ArgumentOf(theConversion).thePointer);
            break;
        case 'p':
            WritePointer(theConversion);
            break;
        case 'n':
            break;
        default:
            WriteNumber(theConversion);
        }
    }

    // Numbers

    void WriteNumber(const Conversion& theConversion)
    {
        const Argument& theArgument = ArgumentOf(theConversion);
        switch (KindOf(theConversion)) {
        case ArgumentKind::kDouble:
            WritePrinted(theConversion, "", theArgument.theDouble);
            break;
        case ArgumentKind::kLongDouble:
            WritePrinted(theConversion, "L", theArgument.theLongDouble);
            break;
        default:
            WritePrinted(theConversion, "ll", CutInteger(theConversion, theArgument.theInteger));
        }
    }

    // The value of the argument's own width, extended to the widest type as its signedness asks for.
    static long long CutInteger(const Conversion& theConversion, long long theInteger)
    {
        const int theBits = 8 * SizeOf(theConversion);
        if (theBits == 64) {
            return theInteger;
        }
        const unsigned long long theMask = (1ULL << theBits) - 1;
        const unsigned long long theLow = static_cast<unsigned long long>(theInteger) & theMask;
        const bool theIsNegative = IsSigned(theConversion) && (theLow >> (theBits - 1)) != 0;
        return static_cast<long long>(theIsNegative ? theLow | ~theMask : theLow);
    }

    static int SizeOf(const Conversion& theConversion)
    {
        if (theConversion.theModifier == "h") {
            return sizeof(short);
        }
        if (theConversion.theModifier.compare(0, 2, "hh") == 0) {
            return sizeof(char);
        }
        return theConversion.theModifier.empty()  ? static_cast<int>(sizeof(int))
               : theConversion.theModifier == "l" ? static_cast<int>(sizeof(long))
                                                  : static_cast<int>(sizeof(long long));
    }

    template <class Value>
    void WritePrinted(const Conversion& theConversion, const char* theModifier, Value theValue)
    {
        const std::string theWidth =
            theConversion.theWidth == kNone ? "" : std::to_string(theConversion.theWidth);
        const std::string thePrecision =
            theConversion.thePrecision == kNone
                ? ""
                : "." + std::to_string(std::min(theConversion.thePrecision, kMostCharacters));
        const std::string theFormat = "%" + theConversion.theFlags + theWidth + thePrecision + theModifier +
                                      static_cast<char>(theConversion.theLetter);
        Append(Host::FormatInCLocale(theFormat.c_str(), theValue));
    }

    void WritePointer(const Conversion& theConversion)
    {
        Units theText;
        const auto theAddress = reinterpret_cast<unsigned long>(ArgumentOf(theConversion).thePointer);
        for (const char theCharacter : Host::FormatInCLocale("0x%lx", theAddress)) {
            theText.push_back(static_cast<unsigned char>(theCharacter));
        }
        WritePadded(theConversion, theText);
    }

    // Text

    static UniChar CharacterOf(UInt8 theByte)
    {
        Units theUnits;
        Host::DecodeBytes(&theByte, 1, CFStringGetSystemEncoding(), false, theUnits);
        return theUnits[0];
    }

    // A zero is nothing.
    static Units UnitOf(UniChar theUnit) { return theUnit == 0 ? Units() : Units(1, theUnit); }

    void WriteText(const Conversion& theConversion)
    {
        const void* const theText = ArgumentOf(theConversion).thePointer;
        if (theText == nullptr) {
            Append("(null)");
            return;
        }
        // On purpose: a precision of 0 cuts nothing off, unless it is an argument.
        const bool theIsLimited =
            theConversion.thePrecision > 0 ||
            (theConversion.thePrecision == 0 && theConversion.thePrecisionArgument != kNone);
        const size_t theLimit = theIsLimited ? static_cast<size_t>(theConversion.thePrecision) : SIZE_MAX;
        WritePadded(theConversion, theConversion.theLetter == 'S'   ? ReadUnits(theText, theLimit)
                                   : theConversion.theLetter == 'P' ? ReadPascalString(theText, theLimit)
                                                                    : ReadCString(theText, theLimit));
    }

    static Units ReadUnits(const void* theText, size_t theLimit)
    {
        Units theUnits;
        const UniChar* theUnit = static_cast<const UniChar*>(theText);
        while (theUnits.size() < theLimit && *theUnit != 0) {
            theUnits.push_back(*theUnit++);
        }
        return theUnits;
    }

    static Units ReadPascalString(const void* theText, size_t theLimit)
    {
        const UInt8* const theBytes = static_cast<const UInt8*>(theText);
        return ReadBytes(theBytes + 1, std::min<size_t>(theBytes[0], theLimit));
    }

    // With a limit, no zero byte need follow.
    static Units ReadCString(const void* theText, size_t theLimit)
    {
        const char* const theCharacters = static_cast<const char*>(theText);
        size_t theLength = 0;
        while (theLength < theLimit && theCharacters[theLength] != '\0') {
            ++theLength;
        }
        return ReadBytes(static_cast<const UInt8*>(theText), theLength);
    }

    static Units ReadBytes(const UInt8* theBytes, size_t theLength)
    {
        Units theUnits;
        Host::DecodeBytes(theBytes, static_cast<CFIndex>(theLength), CFStringGetSystemEncoding(), false,
                          theUnits);
        return theUnits;
    }

    // On purpose: width and precision do nothing to an object.
    void WriteObject(CFTypeRef theObject)
    {
        const Host::Holder<CFStringRef> theText(Host::CopyFormatText(theObject));
        if (theText.Get() == nullptr) {
            throw std::bad_alloc();
        }
        AppendUnits(theText.Get()->mUnits);
    }

    void WritePadded(const Conversion& theConversion, const Units& theText)
    {
        const size_t theWidth = static_cast<size_t>(std::max(theConversion.theWidth, 0));
        const Units theSpaces(theWidth > theText.size() ? theWidth - theText.size() : 0, ' ');
        const bool theIsLeft = theConversion.HasFlag('-');
        AppendUnits(theIsLeft ? theText : theSpaces);
        AppendUnits(theIsLeft ? theSpaces : theText);
    }

    void Append(const std::string& theText)
    {
        for (const char theCharacter : theText) {
            mResult.push_back(static_cast<unsigned char>(theCharacter));
        }
    }

    void AppendUnits(const Units& theUnits)
    {
        mResult.insert(mResult.end(), theUnits.begin(), theUnits.end());
    }

    const std::vector<Argument>& mArguments;
    Units mResult;
};

// Throws std::bad_alloc.
Units FormatUnits(CFStringRef theFormat, ArgumentList& theArguments)
{
    const std::vector<Piece> thePieces = Parser(theFormat->mUnits).Parse();
    return Writer(FetchArguments(thePieces, theArguments)).Write(thePieces);
}

// theUse is handed the formatted units.
template <class Use>
auto WithFormattedUnits(CFStringRef theFormat, va_list theArguments, Use theUse) -> decltype(theUse(Units()))
{
    ArgumentList theList;
    va_copy(theList.theList, theArguments);
    const auto theResult =
        Host::NothingWithoutMemory([&] { return theUse(FormatUnits(theFormat, theList)); });
    va_end(theList.theList);
    return theResult;
}

} // namespace

CFStringRef CFStringCreateWithFormat(CFAllocatorRef inAllocator, CFDictionaryRef inOptions,
                                     CFStringRef inFormat, ...)
{
    va_list theArguments;
    va_start(theArguments, inFormat);
    const CFStringRef theString =
        CFStringCreateWithFormatAndArguments(inAllocator, inOptions, inFormat, theArguments);
    va_end(theArguments);
    return theString;
}

CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef, CFDictionaryRef, CFStringRef inFormat,
                                                 va_list inArguments)
{
    return WithFormattedUnits(Host::Require(inFormat, Host::kStringType, __func__), inArguments,
                              [](Units&& theUnits) { return Host::MakeString(std::move(theUnits)); });
}

void CFStringAppendFormat(CFMutableStringRef inString, CFDictionaryRef inOptions, CFStringRef inFormat, ...)
{
    va_list theArguments;
    va_start(theArguments, inFormat);
    CFStringAppendFormatAndArguments(inString, inOptions, inFormat, theArguments);
    va_end(theArguments);
}

void CFStringAppendFormatAndArguments(CFMutableStringRef inString, CFDictionaryRef, CFStringRef inFormat,
                                      va_list inArguments)
{
    Host::RequireMutable(inString, Host::kStringType, __func__);
    WithFormattedUnits(Host::Require(inFormat, Host::kStringType, __func__), inArguments,
                       [inString](Units&& theUnits) {
                           inString->mUnits.insert(inString->mUnits.end(), theUnits.begin(), theUnits.end());
                           return true;
                       });
}
