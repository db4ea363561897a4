// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFStringObject.h"
#include "CFUnicode.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <limits>

namespace {

constexpr bool kIsBigEndianHost = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;
constexpr UniChar kByteOrderMark = 0xFEFF;
constexpr int kUpperHalf = 128;

// What the bytes from 0x80 on stand for; 0 for a byte that stands for nothing.
const UniChar kMacRoman[kUpperHalf] = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5,
    0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4,
    0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6,
    0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8, 0x221E, 0x00B1, 0x2264, 0x2265,
    0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA, 0x00BA, 0x03A9, 0x00E6, 0x00F8, 0x00BF,
    0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB, 0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5,
    0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044,
    0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1,
    0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9,
    0x0131, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7};

const UniChar kWindowsLatin1[kUpperHalf] = {
    0x20AC, 0x0000, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152,
    0x0000, 0x017D, 0x0000, 0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122,
    0x0161, 0x203A, 0x0153, 0x0000, 0x017E, 0x0178, 0x00A0, 0x00A1, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x00AA, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF, 0x00B0, 0x00B1, 0x00B2, 0x00B3,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x00B9, 0x00BA, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x00BF, 0x00C0,
    0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C6, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD,
    0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D7, 0x00D8, 0x00D9, 0x00DA,
    0x00DB, 0x00DC, 0x00DD, 0x00DE, 0x00DF, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF, 0x00F0, 0x00F1, 0x00F2, 0x00F3, 0x00F4,
    0x00F5, 0x00F6, 0x00F7, 0x00F8, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x00FE, 0x00FF};

const UniChar kNextStepLatin[kUpperHalf] = {
    0x00A0, 0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC,
    0x00CD, 0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D9, 0x00DA, 0x00DB,
    0x00DC, 0x00DD, 0x00DE, 0x00B5, 0x00D7, 0x00F7, 0x00A9, 0x00A1, 0x00A2, 0x00A3, 0x2044, 0x00A5, 0x0192,
    0x00A7, 0x00A4, 0x2019, 0x201C, 0x00AB, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x00AE, 0x2013, 0x2020, 0x2021,
    0x00B7, 0x00A6, 0x00B6, 0x2022, 0x201A, 0x201E, 0x201D, 0x00BB, 0x2026, 0x2030, 0x00AC, 0x00BF, 0x00B9,
    0x02CB, 0x00B4, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x00A8, 0x00B2, 0x02DA, 0x00B8, 0x00B3, 0x02DD,
    0x02DB, 0x02C7, 0x2014, 0x00B1, 0x00BC, 0x00BD, 0x00BE, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5,
    0x00E7, 0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00C6, 0x00ED, 0x00AA, 0x00EE, 0x00EF, 0x00F0, 0x00F1,
    0x0141, 0x00D8, 0x0152, 0x00BA, 0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00E6, 0x00F9, 0x00FA, 0x00FB,
    0x0131, 0x00FC, 0x00FD, 0x0142, 0x00F8, 0x0153, 0x00DF, 0x00FE, 0x00FF, 0x0000, 0x0000};

constexpr std::array<UniChar, kUpperHalf> MakeLatin1()
{
    std::array<UniChar, kUpperHalf> theTable = {};
    for (int theIndex = 0; theIndex < kUpperHalf; ++theIndex) {
        theTable[static_cast<size_t>(theIndex)] = static_cast<UniChar>(0x80 + theIndex);
    }
    return theTable;
}

constexpr std::array<UniChar, kUpperHalf> kISOLatin1 = MakeLatin1();

// Two characters for one thing; the tables have the second.
constexpr UniChar kOhmSign = 0x2126;
constexpr UniChar kOmega = 0x03A9;

struct EncodingInfo;

// One character on its way into bytes.
struct EncodedCharacter
{
    enum Outcome
    {
        kEncoded,
        kLacking,
        kBroken
    };

    Outcome theOutcome;
    UInt8 theBytes[4];
    CFIndex theByteCount;
    CFIndex theUnitCount; // how many units it stands for
};

using EncodeFunction = EncodedCharacter (*)(const EncodingInfo& theEncoding, const UniChar* theUnits,
                                            CFIndex theCount);
using DecodeFunction = bool (*)(const EncodingInfo& theEncoding, const UInt8* theBytes, CFIndex theLength,
                                Host::Units& theUnits);

struct EncodingInfo
{
    CFStringEncoding theEncoding;
    EncodeFunction theEncode;
    DecodeFunction theDecode;
    CFIndex theMaximumSize;   // bytes for one UTF-16 unit
    const UniChar* theTable;  // of the encodings that have one
    UniChar theLimit;         // of those that have none: the first character that they lack
    bool theIsBigEndian;      // of UTF-16 and UTF-32
    bool theHasByteOrderMark; // whether an external representation starts with one
};

// Encoding

EncodedCharacter Lacking()
{
    return {EncodedCharacter::kLacking, {0, 0, 0, 0}, 0, 1};
}

EncodedCharacter Broken()
{
    return {EncodedCharacter::kBroken, {0, 0, 0, 0}, 0, 0};
}

EncodedCharacter OneByte(UInt32 theByte, CFIndex theUnitCount)
{
    return {EncodedCharacter::kEncoded, {static_cast<UInt8>(theByte), 0, 0, 0}, 1, theUnitCount};
}

EncodedCharacter EncodePlain(const EncodingInfo& theEncoding, const UniChar* theUnits, CFIndex)
{
    return *theUnits < theEncoding.theLimit ? OneByte(*theUnits, 1) : Lacking();
}

// A letter and a mark go out as the one letter that the table may have for both.
EncodedCharacter EncodeByTable(const EncodingInfo& theEncoding, const UniChar* theUnits, CFIndex theCount)
{
    UniChar theUnit = *theUnits == kOhmSign ? kOmega : *theUnits;
    CFIndex theUnitCount = 1;
    if (theCount > 1 && Host::IsCombiningMark(theUnits[1])) {
        const UniChar theComposed = Host::Compose(theUnit, theUnits[1], theEncoding.theTable, kUpperHalf);
        if (theComposed != 0) {
            theUnit = theComposed;
            theUnitCount = 2;
        }
    }
    if (theUnit < 0x80) {
        return OneByte(theUnit, theUnitCount);
    }
    const UniChar* const theEnd = theEncoding.theTable + kUpperHalf;
    const UniChar* const theFound = std::find(theEncoding.theTable, theEnd, theUnit);
    return theFound == theEnd
               ? Lacking()
               : OneByte(static_cast<UInt32>(0x80 + (theFound - theEncoding.theTable)), theUnitCount);
}

// The character at the start of theUnits, and the number of its units: 0 for half a pair.
UTF32Char ReadCharacter(const UniChar* theUnits, CFIndex theCount, CFIndex& theUnitCount)
{
    const UTF32Char theUnit = *theUnits;
    theUnitCount = 1;
    if (theUnit < 0xD800 || theUnit > 0xDFFF) {
        return theUnit;
    }
    if (!Host::IsHighSurrogate(*theUnits) || theCount < 2 || !Host::IsLowSurrogate(theUnits[1])) {
        theUnitCount = 0;
        return 0;
    }
    theUnitCount = 2;
    return 0x10000 + ((theUnit - 0xD800) << 10) + (theUnits[1] - UTF32Char{0xDC00});
}

EncodedCharacter EncodeUTF8(const EncodingInfo&, const UniChar* theUnits, CFIndex theCount)
{
    CFIndex theUnitCount = 0;
    const UTF32Char theCharacter = ReadCharacter(theUnits, theCount, theUnitCount);
    if (theUnitCount == 0) {
        return Broken();
    }
    if (theCharacter < 0x80) {
        return OneByte(theCharacter, 1);
    }
    const int theTrailCount = theCharacter < 0x800 ? 1 : theCharacter < 0x10000 ? 2 : 3;
    static const UInt8 kLeadMarks[] = {0, 0xC0, 0xE0, 0xF0};
    EncodedCharacter theResult = {EncodedCharacter::kEncoded, {0, 0, 0, 0}, theTrailCount + 1, theUnitCount};
    theResult.theBytes[0] =
        static_cast<UInt8>(kLeadMarks[theTrailCount] | theCharacter >> (6 * theTrailCount));
    for (int theIndex = 1; theIndex <= theTrailCount; ++theIndex) {
        const UTF32Char theBits = theCharacter >> (6 * (theTrailCount - theIndex));
        theResult.theBytes[theIndex] = static_cast<UInt8>(0x80 | (theBits & 0x3F));
    }
    return theResult;
}

// Writes the theSize lowest bytes of a value in the encoding's order.
void WriteBytes(const EncodingInfo& theEncoding, UTF32Char theValue, int theSize, UInt8* theBytes)
{
    for (int theIndex = 0; theIndex < theSize; ++theIndex) {
        const int thePlace = theEncoding.theIsBigEndian ? theSize - 1 - theIndex : theIndex;
        theBytes[thePlace] = static_cast<UInt8>(theValue >> (8 * theIndex));
    }
}

// Halves of surrogate pairs go out as they are; whole pairs are never split.
EncodedCharacter EncodeUTF16(const EncodingInfo& theEncoding, const UniChar* theUnits, CFIndex theCount)
{
    const bool theIsPair =
        Host::IsHighSurrogate(*theUnits) && theCount > 1 && Host::IsLowSurrogate(theUnits[1]);
    EncodedCharacter theResult = {
        EncodedCharacter::kEncoded, {0, 0, 0, 0}, theIsPair ? 4 : 2, theIsPair ? 2 : 1};
    WriteBytes(theEncoding, theUnits[0], 2, theResult.theBytes);
    if (theIsPair) {
        WriteBytes(theEncoding, theUnits[1], 2, theResult.theBytes + 2);
    }
    return theResult;
}

EncodedCharacter EncodeUTF32(const EncodingInfo& theEncoding, const UniChar* theUnits, CFIndex theCount)
{
    CFIndex theUnitCount = 0;
    const UTF32Char theCharacter = ReadCharacter(theUnits, theCount, theUnitCount);
    if (theUnitCount == 0) {
        return Broken();
    }
    EncodedCharacter theResult = {EncodedCharacter::kEncoded, {0, 0, 0, 0}, 4, theUnitCount};
    WriteBytes(theEncoding, theCharacter, 4, theResult.theBytes);
    return theResult;
}

// Decoding

void AppendCharacter(UTF32Char theCharacter, Host::Units& theUnits)
{
    if (theCharacter < 0x10000) {
        theUnits.push_back(static_cast<UniChar>(theCharacter));
        return;
    }
    theUnits.push_back(static_cast<UniChar>(0xD800 + ((theCharacter - 0x10000) >> 10)));
    theUnits.push_back(static_cast<UniChar>(0xDC00 + (theCharacter & 0x3FF)));
}

// On purpose: ASCII takes bytes above 0x7F for the characters of the same number, as ISO Latin-1 does.
bool DecodePlain(const EncodingInfo&, const UInt8* theBytes, CFIndex theLength, Host::Units& theUnits)
{
    theUnits.insert(theUnits.end(), theBytes, theBytes + theLength);
    return true;
}

bool DecodeByTable(const EncodingInfo& theEncoding, const UInt8* theBytes, CFIndex theLength,
                   Host::Units& theUnits)
{
    for (const UInt8* theByte = theBytes; theByte != theBytes + theLength; ++theByte) {
        const UniChar theUnit = *theByte < 0x80 ? *theByte : theEncoding.theTable[*theByte - 0x80];
        if (theUnit == 0 && *theByte != 0) {
            return false;
        }
        theUnits.push_back(theUnit);
    }
    return true;
}

// How many bytes follow the lead byte of a character outside ASCII; -1 for a byte that leads nothing.
int TrailCount(UInt8 theLead)
{
    if (theLead < 0xC2 || theLead > 0xF4) {
        return -1;
    }
    return theLead < 0xE0 ? 1 : theLead < 0xF0 ? 2 : 3;
}

// Whether theCharacter needs that many trailing bytes and is no half of a surrogate pair.
bool IsWellFormed(UTF32Char theCharacter, int theTrailCount)
{
    static const UTF32Char kLeast[] = {0, 0x80, 0x800, 0x10000};
    return theCharacter >= kLeast[theTrailCount] && theCharacter <= 0x10FFFF &&
           (theCharacter < 0xD800 || theCharacter > 0xDFFF);
}

bool DecodeUTF8(const EncodingInfo&, const UInt8* theBytes, CFIndex theLength, Host::Units& theUnits)
{
    const UInt8* const theEnd = theBytes + theLength;
    if (theLength >= 3 && std::memcmp(theBytes, "\xEF\xBB\xBF", 3) == 0) {
        theBytes += 3;
    }
    while (theBytes != theEnd) {
        // Most text is ASCII: taken over in one piece.
        const UInt8* const theRunEnd =
            std::find_if(theBytes, theEnd, [](UInt8 theByte) { return theByte >= 0x80; });
        theUnits.insert(theUnits.end(), theBytes, theRunEnd);
        theBytes = theRunEnd;
        if (theBytes == theEnd) {
            return true;
        }
        const UInt8 theLead = *theBytes++;
        const int theTrailCount = TrailCount(theLead);
        if (theTrailCount < 0 || theEnd - theBytes < theTrailCount) {
            return false;
        }
        UTF32Char theCharacter = theLead & (0x3FU >> theTrailCount);
        for (int theIndex = 0; theIndex < theTrailCount; ++theIndex) {
            if ((*theBytes & 0xC0) != 0x80) {
                return false;
            }
            theCharacter = theCharacter << 6 | (*theBytes++ & 0x3F);
        }
        if (!IsWellFormed(theCharacter, theTrailCount)) {
            return false;
        }
        AppendCharacter(theCharacter, theUnits);
    }
    return true;
}

UTF32Char ReadBytes(const EncodingInfo& theEncoding, const UInt8* theBytes, int theSize)
{
    UTF32Char theValue = 0;
    for (int theIndex = 0; theIndex < theSize; ++theIndex) {
        theValue = theValue << 8 | theBytes[theEncoding.theIsBigEndian ? theIndex : theSize - 1 - theIndex];
    }
    return theValue;
}

// An odd last byte is ignored.
bool DecodeUTF16(const EncodingInfo& theEncoding, const UInt8* theBytes, CFIndex theLength,
                 Host::Units& theUnits)
{
    for (CFIndex theIndex = 0; theIndex + 2 <= theLength; theIndex += 2) {
        theUnits.push_back(static_cast<UniChar>(ReadBytes(theEncoding, theBytes + theIndex, 2)));
    }
    return true;
}

bool DecodeUTF32(const EncodingInfo& theEncoding, const UInt8* theBytes, CFIndex theLength,
                 Host::Units& theUnits)
{
    if (theLength % 4 != 0) {
        return false;
    }
    for (CFIndex theIndex = 0; theIndex < theLength; theIndex += 4) {
        const UTF32Char theCharacter = ReadBytes(theEncoding, theBytes + theIndex, 4);
        if (!IsWellFormed(theCharacter, 0)) {
            return false;
        }
        AppendCharacter(theCharacter, theUnits);
    }
    return true;
}

// The encodings

const EncodingInfo kEncodings[] = {
    {kCFStringEncodingUTF8, EncodeUTF8, DecodeUTF8, 3, nullptr, 0, false, false},
    {kCFStringEncodingMacRoman, EncodeByTable, DecodeByTable, 1, kMacRoman, 0, false, false},
    {kCFStringEncodingASCII, EncodePlain, DecodePlain, 1, nullptr, 0x80, false, false},
    {kCFStringEncodingISOLatin1, EncodeByTable, DecodeByTable, 1, kISOLatin1.data(), 0, false, false},
    {kCFStringEncodingWindowsLatin1, EncodeByTable, DecodeByTable, 1, kWindowsLatin1, 0, false, false},
    {kCFStringEncodingNextStepLatin, EncodeByTable, DecodeByTable, 1, kNextStepLatin, 0, false, false},
    {kCFStringEncodingUTF16, EncodeUTF16, DecodeUTF16, 2, nullptr, 0, kIsBigEndianHost, true},
    {kCFStringEncodingUTF16BE, EncodeUTF16, DecodeUTF16, 2, nullptr, 0, true, false},
    {kCFStringEncodingUTF16LE, EncodeUTF16, DecodeUTF16, 2, nullptr, 0, false, false},
    {kCFStringEncodingUTF32, EncodeUTF32, DecodeUTF32, 4, nullptr, 0, kIsBigEndianHost, true},
    {kCFStringEncodingUTF32BE, EncodeUTF32, DecodeUTF32, 4, nullptr, 0, true, false},
    {kCFStringEncodingUTF32LE, EncodeUTF32, DecodeUTF32, 4, nullptr, 0, false, false},
};

const EncodingInfo* FindEncoding(CFStringEncoding theEncoding)
{
    const EncodingInfo* const theFound =
        std::find_if(std::begin(kEncodings), std::end(kEncodings),
                     [=](const EncodingInfo& theInfo) { return theInfo.theEncoding == theEncoding; });
    return theFound == std::end(kEncodings) ? nullptr : theFound;
}

// Where the bytes of a conversion go: into a buffer, or, without one, nowhere.
class ByteSink
{
public:
    ByteSink(UInt8* theBuffer, CFIndex theSize)
        : mBuffer(theBuffer),
          mSize(theSize),
          mUsed(0)
    {
    }

    // False when the bytes do not fit whole.
    bool Write(const UInt8* theBytes, CFIndex theCount)
    {
        if (mBuffer != nullptr) {
            if (mSize - mUsed < theCount) {
                return false;
            }
            std::copy_n(theBytes, theCount, mBuffer + mUsed);
        }
        mUsed += theCount;
        return true;
    }

    CFIndex GetUsed() const { return mUsed; }

private:
    UInt8* const mBuffer; // not owned; may be null
    const CFIndex mSize;
    CFIndex mUsed;
};

// Returns how many units were converted.
CFIndex EncodeUnits(const EncodingInfo& theEncoding, const UniChar* theUnits, CFIndex theCount,
                    UInt8 theLossByte, ByteSink& theSink)
{
    CFIndex theDone = 0;
    while (theDone < theCount) {
        EncodedCharacter theCharacter =
            theEncoding.theEncode(theEncoding, theUnits + theDone, theCount - theDone);
        if (theCharacter.theOutcome == EncodedCharacter::kLacking && theLossByte != 0) {
            theCharacter = OneByte(theLossByte, 1);
        }
        if (theCharacter.theOutcome != EncodedCharacter::kEncoded ||
            !theSink.Write(theCharacter.theBytes, theCharacter.theByteCount)) {
            break;
        }
        theDone += theCharacter.theUnitCount;
    }
    return theDone;
}

// An external representation says its byte order in its mark; without one it is big-endian.
EncodingInfo ReadByteOrderMark(EncodingInfo theEncoding, const UInt8*& theBytes, CFIndex& theLength)
{
    const int theSize = static_cast<int>(theEncoding.theMaximumSize);
    for (const bool theIsBigEndian : {false, true}) {
        theEncoding.theIsBigEndian = theIsBigEndian;
        if (theLength >= theSize && ReadBytes(theEncoding, theBytes, theSize) == kByteOrderMark) {
            theBytes += theSize;
            theLength -= theSize;
            break;
        }
    }
    return theEncoding;
}

} // namespace

bool Host::DecodeBytes(const UInt8* theBytes, CFIndex theLength, CFStringEncoding theEncoding,
                       bool theIsExternalRepresentation, Units& theUnits)
{
    const EncodingInfo* const theInfo = FindEncoding(theEncoding);
    if (theInfo == nullptr || theLength < 0) {
        return false;
    }
    if (theLength == 0) {
        return true;
    }
    if (theIsExternalRepresentation && theInfo->theHasByteOrderMark) {
        const EncodingInfo theMarked = ReadByteOrderMark(*theInfo, theBytes, theLength);
        return theMarked.theDecode(theMarked, theBytes, theLength, theUnits);
    }
    return theInfo->theDecode(*theInfo, theBytes, theLength, theUnits);
}

CFIndex CFStringGetBytes(CFStringRef inString, CFRange inRange, CFStringEncoding inEncoding, UInt8 inLossByte,
                         Boolean inIsExternalRepresentation, UInt8* outBuffer, CFIndex inSize,
                         CFIndex* outUsed)
{
    const EncodingInfo* const theInfo = FindEncoding(inEncoding);
    const CFRange theClipped = Host::ClipRange(Host::Require(inString, Host::kStringType, __func__), inRange);
    if (theInfo == nullptr) {
        return 0;
    }
    ByteSink theSink(outBuffer, inSize);
    CFIndex theDone = 0;
    UInt8 theMark[4];
    const int theMarkSize = static_cast<int>(theInfo->theMaximumSize);
    WriteBytes(*theInfo, kByteOrderMark, theMarkSize, theMark);
    const bool theNeedsMark = inIsExternalRepresentation && theInfo->theHasByteOrderMark;
    if (!theNeedsMark || theSink.Write(theMark, theMarkSize)) {
        theDone = EncodeUnits(*theInfo, inString->mUnits.data() + theClipped.location, theClipped.length,
                              inLossByte, theSink);
    }
    if (outUsed != nullptr) {
        *outUsed = theSink.GetUsed();
    }
    return theDone;
}

Boolean CFStringGetCString(CFStringRef inString, char* outBuffer, CFIndex inSize, CFStringEncoding inEncoding)
{
    const CFIndex theLength = CFStringGetLength(inString);
    if (outBuffer == nullptr || inSize <= 0) {
        return false;
    }
    CFIndex theUsed = 0;
    const bool theIsWhole =
        CFStringGetBytes(inString, CFRangeMake(0, theLength), inEncoding, 0, false,
                         reinterpret_cast<UInt8*>(outBuffer), inSize - 1, &theUsed) == theLength &&
        FindEncoding(inEncoding) != nullptr;
    outBuffer[theIsWhole ? theUsed : 0] = '\0';
    return theIsWhole;
}

Boolean CFStringGetPascalString(CFStringRef inString, StringPtr outBuffer, CFIndex inSize,
                                CFStringEncoding inEncoding)
{
    constexpr CFIndex kMostBytes = 255;
    const CFIndex theLength = CFStringGetLength(inString);
    if (outBuffer == nullptr || inSize <= 0 || theLength > kMostBytes) {
        return false;
    }
    CFIndex theUsed = 0;
    const bool theIsWhole =
        CFStringGetBytes(inString, CFRangeMake(0, theLength), inEncoding, 0, false, outBuffer + 1,
                         std::min(inSize - 1, kMostBytes), &theUsed) == theLength &&
        FindEncoding(inEncoding) != nullptr;
    outBuffer[0] = static_cast<unsigned char>(theIsWhole ? theUsed : 0);
    return theIsWhole;
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex inLength, CFStringEncoding inEncoding)
{
    const EncodingInfo* const theInfo = FindEncoding(inEncoding);
    if (theInfo == nullptr || inLength < 0 ||
        inLength > std::numeric_limits<CFIndex>::max() / theInfo->theMaximumSize) {
        return kCFNotFound;
    }
    return inLength * theInfo->theMaximumSize;
}

CFStringEncoding CFStringGetSystemEncoding()
{
    return kCFStringEncodingMacRoman;
}
