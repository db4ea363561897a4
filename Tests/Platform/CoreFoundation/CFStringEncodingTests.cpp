// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <climits>

namespace {

using Bytes = std::vector<UInt8>;

Owned<CFStringRef> FromBytes(const Bytes& theBytes, CFStringEncoding theEncoding, bool theIsExternal = false)
{
    return Owned(CFStringCreateWithBytes(nullptr, theBytes.data(), static_cast<CFIndex>(theBytes.size()),
                                         theEncoding, theIsExternal));
}

// How a conversion went.
struct Conversion
{
    CFIndex theConverted;
    CFIndex theUsed;
    Bytes theBytes; // those that were used

    bool operator==(const Conversion& theOther) const
    {
        return theConverted == theOther.theConverted && theUsed == theOther.theUsed &&
               theBytes == theOther.theBytes;
    }
};

void PrintTo(const Conversion& theConversion, std::ostream* theStream)
{
    *theStream << theConversion.theConverted << "/" << theConversion.theUsed << " "
               << testing::PrintToString(theConversion.theBytes);
}

// Checks on the way that nothing is written behind the used bytes.
Conversion Convert(CFStringRef theString, CFRange theRange, CFStringEncoding theEncoding, UInt8 theLossByte,
                   CFIndex theSize, bool theIsExternal = false)
{
    Bytes theBuffer(100, 0xEE);
    CFIndex theUsed = -1;
    const CFIndex theConverted = CFStringGetBytes(theString, theRange, theEncoding, theLossByte,
                                                  theIsExternal, theBuffer.data(), theSize, &theUsed);
    const auto theEnd = theBuffer.begin() + theUsed;
    EXPECT_EQ(Bytes(theEnd, theBuffer.end()), Bytes(static_cast<size_t>(theBuffer.end() - theEnd), 0xEE));
    return {theConverted, theUsed, Bytes(theBuffer.begin(), theEnd)};
}

Conversion Convert(CFStringRef theString, CFStringEncoding theEncoding, UInt8 theLossByte = 0,
                   CFIndex theSize = 100, bool theIsExternal = false)
{
    return Convert(theString, WholeOf(theString), theEncoding, theLossByte, theSize, theIsExternal);
}

// Units and bytes only.
std::pair<CFIndex, CFIndex> Counts(const char* theText, CFIndex theSize)
{
    const Conversion theConversion = Convert(String(theText), kCFStringEncodingUTF8, 0, theSize);
    return {theConversion.theConverted, theConversion.theUsed};
}

using Pair = std::pair<CFIndex, CFIndex>;

// The result, and the whole buffer of a fixed size, filled with 9 before.
std::pair<bool, std::string> CString(CFStringRef theString, CFIndex theSize,
                                     CFStringEncoding theEncoding = kCFStringEncodingUTF8)
{
    char theBuffer[16];
    std::fill(std::begin(theBuffer), std::end(theBuffer), '9');
    const bool theResult = CFStringGetCString(theString, theBuffer, theSize, theEncoding);
    return {theResult, std::string(theBuffer, 7)};
}

std::pair<bool, Bytes> PascalString(CFStringRef theString, CFIndex theSize,
                                    CFStringEncoding theEncoding = kCFStringEncodingMacRoman)
{
    Bytes theBuffer(8, 9);
    const bool theResult = CFStringGetPascalString(theString, theBuffer.data(), theSize, theEncoding);
    return {theResult, theBuffer};
}

const bool kIsBigEndian = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;

} // namespace

TEST(CFStringEncoding, EncodingsHaveTheirPublishedValues)
{
    EXPECT_EQ(kCFStringEncodingMacRoman, 0U);
    EXPECT_EQ(kCFStringEncodingWindowsLatin1, 0x0500U);
    EXPECT_EQ(kCFStringEncodingISOLatin1, 0x0201U);
    EXPECT_EQ(kCFStringEncodingASCII, 0x0600U);
    EXPECT_EQ(kCFStringEncodingUnicode, 0x0100U);
    EXPECT_EQ(kCFStringEncodingUTF16, 0x0100U);
    EXPECT_EQ(kCFStringEncodingUTF8, 0x08000100U);
    EXPECT_EQ(kCFStringEncodingUTF16BE, 0x10000100U);
    EXPECT_EQ(kCFStringEncodingUTF16LE, 0x14000100U);
    EXPECT_EQ(kCFStringEncodingUTF32, 0x0C000100U);
    EXPECT_EQ(kCFStringEncodingUTF32BE, 0x18000100U);
    EXPECT_EQ(kCFStringEncodingUTF32LE, 0x1C000100U);
    EXPECT_EQ(kCFStringEncodingInvalidId, 0xFFFFFFFFU);
    EXPECT_EQ(CFStringGetSystemEncoding(), kCFStringEncodingMacRoman);
}

TEST(CFStringEncoding, WellFormedUTF8IsRead)
{
    EXPECT_EQ(UnitsOf(FromBytes({'a', 0xC3, 0xA9, 0xE2, 0x82, 0xAC}, kCFStringEncodingUTF8)),
              (Units{'a', 0x00E9, 0x20AC}));
    EXPECT_EQ(UnitsOf(FromBytes({0xF0, 0x9F, 0x98, 0x80}, kCFStringEncodingUTF8)), (Units{0xD83D, 0xDE00}));
    EXPECT_EQ(UnitsOf(FromBytes({0xEF, 0xBF, 0xBF}, kCFStringEncodingUTF8)), (Units{0xFFFF}));
    EXPECT_EQ(UnitsOf(FromBytes({0xF4, 0x8F, 0xBF, 0xBF}, kCFStringEncodingUTF8)), (Units{0xDBFF, 0xDFFF}));
}

TEST(CFStringEncoding, AByteOrderMarkBeforeUTF8IsDropped)
{
    EXPECT_EQ(UnitsOf(FromBytes({0xEF, 0xBB, 0xBF, 'a'}, kCFStringEncodingUTF8, false)), (Units{'a'}));
    EXPECT_EQ(UnitsOf(FromBytes({0xEF, 0xBB, 0xBF, 'a'}, kCFStringEncodingUTF8, true)), (Units{'a'}));
    EXPECT_EQ(UnitsOf(FromBytes({'a', 0xEF, 0xBB, 0xBF}, kCFStringEncodingUTF8)), (Units{'a', 0xFEFF}));
}

TEST(CFStringEncoding, OneBadByteOfUTF8SpoilsTheString)
{
    const Bytes kBad[] = {
        {0x80},                               // a stray continuation byte
        {0xFF},                               //
        {0xFE},                               //
        {'a', 0xC3},                          // cut off
        {0xE2, 0x82},                         //
        {0xF0, 0x9F, 0x98},                   //
        {0xC3, 'a'},                          // not continued
        {0xC0, 0x80},                         // longer than need be
        {0xC1, 0xBF},                         //
        {0xE0, 0x80, 0x80},                   //
        {0xF0, 0x80, 0x80, 0x80},             //
        {0xED, 0xA0, 0x80},                   // half a surrogate pair
        {0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}, // both halves
        {0xF4, 0x90, 0x80, 0x80},             // beyond U+10FFFF
        {0xF8, 0x88, 0x80, 0x80, 0x80},       // five bytes
    };
    for (const Bytes& theBytes : kBad) {
        Bytes theText = {'o', 'k'};
        theText.insert(theText.end(), theBytes.begin(), theBytes.end());
        EXPECT_EQ(static_cast<CFStringRef>(FromBytes(theText, kCFStringEncodingUTF8)), nullptr)
            << testing::PrintToString(theBytes);
        theText.push_back('!');
        theText.push_back(0);
        EXPECT_EQ(CFStringCreateWithCString(nullptr, reinterpret_cast<const char*>(theText.data()),
                                            kCFStringEncodingUTF8),
                  nullptr)
            << testing::PrintToString(theBytes);
    }
}

TEST(CFStringEncoding, CStringsEndAtTheirZeroByte)
{
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithCString(nullptr, "ab\0cd", kCFStringEncodingUTF8))), "ab");
    EXPECT_EQ(TextOf(FromBytes({'a', 0, 'b'}, kCFStringEncodingUTF8)), std::string("a\0b", 3));
}

TEST(CFStringEncoding, UnknownEncodingsMakeNoString)
{
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "a", kCFStringEncodingInvalidId), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "a", 0x1234), nullptr);
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, nullptr, -1, kCFStringEncodingUTF8, false), nullptr);
    EXPECT_EQ(CFStringCreateWithCharacters(nullptr, nullptr, -1), nullptr);
}

TEST(CFStringEncoding, NoBytesMakeTheEmptyString)
{
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithBytes(nullptr, nullptr, 0, kCFStringEncodingUTF8, false))), "");
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithBytes(nullptr, nullptr, 0, kCFStringEncodingUTF16, true))), "");
}

TEST(CFStringEncoding, PascalStringsSayTheirLength)
{
    const unsigned char theText[] = {4, 'c', 'a', 0, 0x8E, 'x'};
    EXPECT_EQ(UnitsOf(Owned(CFStringCreateWithPascalString(nullptr, theText, kCFStringEncodingMacRoman))),
              (Units{'c', 'a', 0, 0x00E9}));
    const unsigned char theEmptyText[] = {0, 'x'};
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithPascalString(nullptr, theEmptyText, kCFStringEncodingMacRoman))),
              "");
    EXPECT_EQ(CFStringCreateWithPascalString(nullptr, theText, kCFStringEncodingUTF8), nullptr);
}

TEST(CFStringEncoding, EveryByteOfMacRomanGoesThereAndBack)
{
    for (int theByte = 0; theByte < 256; ++theByte) {
        const Bytes theBytes = {static_cast<UInt8>(theByte)};
        const auto theString = FromBytes(theBytes, kCFStringEncodingMacRoman);
        ASSERT_EQ(CFStringGetLength(theString), 1) << theByte;
        EXPECT_EQ(Convert(theString, kCFStringEncodingMacRoman), (Conversion{1, 1, theBytes})) << theByte;
    }
    EXPECT_EQ(UnitsOf(FromBytes({0x80, 0x8E, 0xA0, 0xDB, 0xF0, 0xFF}, kCFStringEncodingMacRoman)),
              (Units{0x00C4, 0x00E9, 0x2020, 0x20AC, 0xF8FF, 0x02C7}));
}

TEST(CFStringEncoding, LettersAndMarksBecomeOneByteOfMacRoman)
{
    const auto theString = String(Units{'c', 'a', 'f', 'e', 0x0301, '!'});
    EXPECT_EQ(Convert(theString, kCFStringEncodingMacRoman),
              (Conversion{6, 5, {0x63, 0x61, 0x66, 0x8E, 0x21}}));
    const auto theStranger = String(Units{'x', 0x0301});
    EXPECT_EQ(Convert(theStranger, kCFStringEncodingMacRoman), (Conversion{1, 1, {'x'}}));
}

TEST(CFStringEncoding, ASCIITakesHighBytesAsCharactersOnPurpose)
{
    EXPECT_EQ(UnitsOf(FromBytes({'a', 0xE9}, kCFStringEncodingASCII)), (Units{'a', 0x00E9}));
    EXPECT_EQ(UnitsOf(FromBytes({'a', 0xE9}, kCFStringEncodingISOLatin1)), (Units{'a', 0x00E9}));
}

TEST(CFStringEncoding, TheOhmSignIsAnOmegaInMacRoman)
{
    EXPECT_EQ(Convert(String(Units{0x2126}), kCFStringEncodingMacRoman), (Conversion{1, 1, {0xBD}}));
    EXPECT_EQ(UnitsOf(FromBytes({0xBD}, kCFStringEncodingMacRoman)), Units{0x03A9});
}

TEST(CFStringEncoding, LettersAndMarksBecomeOneByteOfLatin1)
{
    EXPECT_EQ(Convert(String(Units{'e', 0x0301, '!'}), kCFStringEncodingISOLatin1),
              (Conversion{3, 2, {0xE9, '!'}}));
    EXPECT_EQ(Convert(String(Units{'x', 0x0301}), kCFStringEncodingISOLatin1), (Conversion{1, 1, {'x'}}));
    EXPECT_EQ(UnitsOf(FromBytes({0x80, 0xFF}, kCFStringEncodingISOLatin1)), (Units{0x80, 0xFF}));
    EXPECT_EQ(Convert(String(Units{0x80, 0xFF}), kCFStringEncodingISOLatin1),
              (Conversion{2, 2, {0x80, 0xFF}}));
}

TEST(CFStringEncoding, NextStepLatinIsATable)
{
    EXPECT_EQ(kCFStringEncodingNextStepLatin, 0x0B01U);
    EXPECT_EQ(UnitsOf(FromBytes({0x80, 0xA9, 0xDD, 0xFD}, kCFStringEncodingNextStepLatin)),
              (Units{0x00A0, 0x2019, 0x00E9, 0x00FF}));
    EXPECT_EQ(static_cast<CFStringRef>(FromBytes({0xFE}, kCFStringEncodingNextStepLatin)), nullptr);
    EXPECT_EQ(Convert(String(Units{0x00E9}), kCFStringEncodingNextStepLatin), (Conversion{1, 1, {0xDD}}));
}

TEST(CFStringEncoding, WindowsLatin1HasHolesAndAEuroSign)
{
    EXPECT_EQ(UnitsOf(FromBytes({0x80, 0xE9}, kCFStringEncodingWindowsLatin1)), (Units{0x20AC, 0x00E9}));
    EXPECT_EQ(static_cast<CFStringRef>(FromBytes({0x81}, kCFStringEncodingWindowsLatin1)), nullptr);
    EXPECT_EQ(Convert(String(Units{0x20AC}), kCFStringEncodingWindowsLatin1), (Conversion{1, 1, {0x80}}));
}

TEST(CFStringEncoding, UTF16WithoutExternalFormIsInTheHostsOrder)
{
    const Bytes theBytes = kIsBigEndian ? Bytes{0xFE, 0xFF, 0x00, 0xE9} : Bytes{0xFF, 0xFE, 0xE9, 0x00};
    EXPECT_EQ(UnitsOf(FromBytes(theBytes, kCFStringEncodingUTF16)), (Units{0xFEFF, 0x00E9}));
}

TEST(CFStringEncoding, ExternalUTF16SaysItsOrder)
{
    EXPECT_EQ(UnitsOf(FromBytes({0xFE, 0xFF, 0x00, 0xE9}, kCFStringEncodingUTF16, true)), (Units{0x00E9}));
    EXPECT_EQ(UnitsOf(FromBytes({0xFF, 0xFE, 0xE9, 0x00}, kCFStringEncodingUTF16, true)), (Units{0x00E9}));
    EXPECT_EQ(UnitsOf(FromBytes({0x00, 0xE9}, kCFStringEncodingUTF16, true)), (Units{0x00E9}));
}

TEST(CFStringEncoding, AnOddLastByteOfUTF16IsIgnored)
{
    EXPECT_EQ(UnitsOf(FromBytes({0x00, 0xE9, 0x41}, kCFStringEncodingUTF16BE)), (Units{0x00E9}));
    EXPECT_EQ(UnitsOf(FromBytes({0x41}, kCFStringEncodingUTF16LE)), Units{});
}

TEST(CFStringEncoding, UTF32IsReadInItsOrder)
{
    EXPECT_EQ(UnitsOf(FromBytes({0, 1, 0xF6, 0}, kCFStringEncodingUTF32BE)), (Units{0xD83D, 0xDE00}));
    EXPECT_EQ(UnitsOf(FromBytes({0xE9, 0, 0, 0}, kCFStringEncodingUTF32LE)), (Units{0x00E9}));
    EXPECT_EQ(UnitsOf(FromBytes({0xFF, 0xFE, 0, 0, 0xE9, 0, 0, 0}, kCFStringEncodingUTF32, true)),
              (Units{0x00E9}));
    EXPECT_EQ(UnitsOf(FromBytes({0, 0, 0, 0xE9}, kCFStringEncodingUTF32, true)), (Units{0x00E9}));
    EXPECT_EQ(static_cast<CFStringRef>(FromBytes({0, 0, 0xD8, 0}, kCFStringEncodingUTF32BE)), nullptr);
    EXPECT_EQ(static_cast<CFStringRef>(FromBytes({0, 0x11, 0, 0}, kCFStringEncodingUTF32BE)), nullptr);
    EXPECT_EQ(static_cast<CFStringRef>(FromBytes({0, 0, 0}, kCFStringEncodingUTF32BE)), nullptr);
}

TEST(CFStringGetBytes, CountsUnitsAndBytesApart)
{
    EXPECT_EQ(Counts("hello", 5), Pair(5, 5));
    EXPECT_EQ(Counts("hello", 3), Pair(3, 3));
    EXPECT_EQ(Counts("hello", 0), Pair(0, 0));
    EXPECT_EQ(Counts(u8"caf\u00E9!", 3), Pair(3, 3));
    EXPECT_EQ(Counts(u8"caf\u00E9!", 4), Pair(3, 3));
    EXPECT_EQ(Counts(u8"caf\u00E9!", 5), Pair(4, 5));
    EXPECT_EQ(Counts(u8"caf\u00E9!", 6), Pair(5, 6));
    for (CFIndex theSize = 1; theSize <= 4; ++theSize) {
        EXPECT_EQ(Counts(u8"a\U0001F600z", theSize), Pair(1, 1)) << theSize;
    }
    EXPECT_EQ(Counts(u8"a\U0001F600z", 5), Pair(3, 5));
    EXPECT_EQ(Counts(u8"a\U0001F600z", 6), Pair(4, 6));
    EXPECT_EQ(Counts(u8"\u20AC\u20AC", 2), Pair(0, 0));
    EXPECT_EQ(Counts(u8"\u20AC\u20AC", 5), Pair(1, 3));
    EXPECT_EQ(Counts(u8"\u20AC\u20AC", 0), Pair(0, 0));
    EXPECT_EQ(Counts("hello", -5), Pair(0, 0));
}

TEST(CFStringGetBytes, WithoutABufferItMeasures)
{
    const auto theString = String(u8"caf\u00E9!");
    for (const CFIndex theSize : {CFIndex{100}, CFIndex{2}, CFIndex{0}}) {
        CFIndex theUsed = -1;
        EXPECT_EQ(CFStringGetBytes(theString, WholeOf(theString), kCFStringEncodingUTF8, 0, false, nullptr,
                                   theSize, &theUsed),
                  5);
        EXPECT_EQ(theUsed, 6);
    }
    EXPECT_EQ(
        CFStringGetBytes(theString, WholeOf(theString), kCFStringEncodingUTF8, 0, false, nullptr, 0, nullptr),
        5);
}

TEST(CFStringGetBytes, ConvertsARange)
{
    EXPECT_EQ(Convert(CFSTR("hello"), CFRangeMake(1, 3), kCFStringEncodingUTF8, 0, 100),
              (Conversion{3, 3, {'e', 'l', 'l'}}));
    EXPECT_EQ(Convert(CFSTR("hello"), CFRangeMake(3, 100), kCFStringEncodingUTF8, 0, 100),
              (Conversion{2, 2, {'l', 'o'}}));
}

TEST(CFStringGetBytes, StopsAtACharacterThatTheEncodingLacks)
{
    EXPECT_EQ(Convert(String(u8"caf\u00E9!"), kCFStringEncodingASCII), (Conversion{3, 3, {'c', 'a', 'f'}}));
    EXPECT_EQ(Convert(String(Units{0x0100}), kCFStringEncodingISOLatin1), (Conversion{0, 0, {}}));
}

TEST(CFStringGetBytes, TheLossByteStandsForEachUnit)
{
    EXPECT_EQ(Convert(String(u8"caf\u00E9!"), kCFStringEncodingASCII, '?'),
              (Conversion{5, 5, {0x63, 0x61, 0x66, 0x3F, 0x21}}));
    EXPECT_EQ(Convert(String(u8"\U0001F600"), kCFStringEncodingASCII, '?'), (Conversion{2, 2, {'?', '?'}}));
    EXPECT_EQ(Convert(String(u8"\u201Ca\u201D"), kCFStringEncodingASCII, '?'),
              (Conversion{3, 3, {'?', 'a', '?'}}));
    EXPECT_EQ(Convert(String(Units{'e', 0x0301}), kCFStringEncodingASCII, '?'),
              (Conversion{2, 2, {'e', '?'}}));
    EXPECT_EQ(Convert(String(Units{0xD800}), kCFStringEncodingMacRoman, '?'), (Conversion{1, 1, {'?'}}));
}

TEST(CFStringGetBytes, HalfASurrogatePairStopsUTF8EvenWithALossByte)
{
    EXPECT_EQ(Convert(String(Units{'a', 0xD800, 'b'}), kCFStringEncodingUTF8, '?'),
              (Conversion{1, 1, {'a'}}));
    EXPECT_EQ(Convert(String(Units{0xDC00}), kCFStringEncodingUTF8, '?'), (Conversion{0, 0, {}}));
    const auto thePair = String(u8"a\U0001F600");
    EXPECT_EQ(Convert(thePair, CFRangeMake(0, 2), kCFStringEncodingUTF8, '?', 100),
              (Conversion{1, 1, {'a'}}));
    EXPECT_EQ(Convert(thePair, CFRangeMake(2, 1), kCFStringEncodingUTF8, '?', 100), (Conversion{0, 0, {}}));
    EXPECT_EQ(Convert(String(Units{0xDC00}), kCFStringEncodingUTF32BE, '?'), (Conversion{0, 0, {}}));
}

TEST(CFStringGetBytes, ExternalFormsInTheHostsOrderStartWithAMark)
{
    const Bytes theUTF16 = kIsBigEndian ? Bytes{0xFE, 0xFF, 0x00, 0xE9} : Bytes{0xFF, 0xFE, 0xE9, 0x00};
    EXPECT_EQ(Convert(String(Units{0xE9}), kCFStringEncodingUTF16, 0, 100, true),
              (Conversion{1, 4, theUTF16}));
    EXPECT_EQ(Convert(String(Units{0xE9}), kCFStringEncodingUTF16, 0, 100, false),
              (Conversion{1, 2, Bytes(theUTF16.begin() + 2, theUTF16.end())}));
    EXPECT_EQ(Convert(String(Units{0xE9}), kCFStringEncodingUTF16, 0, 1, true), (Conversion{0, 0, {}}));
    EXPECT_EQ(Convert(String(Units{0xE9}), kCFStringEncodingUTF32, 0, 100, true).theUsed, 8);
    EXPECT_EQ(Convert(String(Units{0xE9}), kCFStringEncodingUTF8, 0, 100, true),
              (Conversion{1, 2, {0xC3, 0xA9}}));
}

TEST(CFStringGetBytes, FixedOrdersHaveNoMark)
{
    const auto theString = String(u8"\u00E9\U0001F600");
    EXPECT_EQ(Convert(theString, kCFStringEncodingUTF16BE, 0, 100, true),
              (Conversion{3, 6, {0x00, 0xE9, 0xD8, 0x3D, 0xDE, 0x00}}));
    EXPECT_EQ(Convert(theString, kCFStringEncodingUTF16LE, 0, 5, true), (Conversion{1, 2, {0xE9, 0x00}}));
    EXPECT_EQ(Convert(theString, kCFStringEncodingUTF32LE),
              (Conversion{3, 8, {0xE9, 0, 0, 0, 0x00, 0xF6, 0x01, 0x00}}));
    EXPECT_EQ(Convert(String(Units{0xDC00}), kCFStringEncodingUTF16BE), (Conversion{1, 2, {0xDC, 0x00}}));
}

TEST(CFStringGetBytes, AnUnknownEncodingConvertsNothingAndLeavesTheCountAlone)
{
    CFIndex theUsed = 77;
    UInt8 theBuffer[4] = {9, 9, 9, 9};
    EXPECT_EQ(CFStringGetBytes(CFSTR("a"), CFRangeMake(0, 1), 0x1234, 0, false, theBuffer, 4, &theUsed), 0);
    EXPECT_EQ(theUsed, 77);
    EXPECT_EQ(theBuffer[0], 9);
}

TEST(CFStringGetCString, NeedsRoomForTheTextAndAZeroByte)
{
    EXPECT_EQ(CString(CFSTR("hello"), 6), (std::pair{true, std::string("hello\0"
                                                                       "9",
                                                                       7)}));
    EXPECT_FALSE(CString(CFSTR("hello"), 5).first);
    EXPECT_EQ(CString(CFSTR("hello"), 0), (std::pair{false, std::string("9999999")}));
    EXPECT_EQ(CString(CFSTR(""), 1), (std::pair{true, std::string("\0"
                                                                  "999999",
                                                                  7)}));
}

TEST(CFStringGetCString, NeverSubstitutes)
{
    EXPECT_FALSE(CString(String(u8"caf\u00E9"), 16, kCFStringEncodingASCII).first);
    EXPECT_FALSE(CString(String(Units{0xD800}), 16).first);
    EXPECT_FALSE(CString(CFSTR("a"), 16, 0x1234).first);
    EXPECT_FALSE(CString(CFSTR(""), 16, 0x1234).first);
    EXPECT_TRUE(CString(String(u8"caf\u00E9"), 16, kCFStringEncodingMacRoman).first);
}

TEST(CFStringGetCString, WritesInnerZeroCharacters)
{
    EXPECT_EQ(CString(String(std::string("a\0b", 3)), 16), (std::pair{true, std::string("a\0b\0"
                                                                                        "999",
                                                                                        7)}));
}

TEST(CFStringGetPascalString, WritesLengthAndText)
{
    EXPECT_EQ(PascalString(String(u8"caf\u00E9"), 5),
              (std::pair{true, Bytes{4, 0x63, 0x61, 0x66, 0x8E, 9, 9, 9}}));
    EXPECT_FALSE(PascalString(String(u8"caf\u00E9"), 4).first);
    EXPECT_EQ(PascalString(String(u8"caf\u00E9"), 6, kCFStringEncodingUTF8),
              (std::pair{true, Bytes{5, 0x63, 0x61, 0x66, 0xC3, 0xA9, 9, 9}}));
    EXPECT_FALSE(PascalString(String(u8"caf\u00E9"), 5, kCFStringEncodingUTF8).first);
    EXPECT_EQ(PascalString(CFSTR(""), 1), (std::pair{true, Bytes{0, 9, 9, 9, 9, 9, 9, 9}}));
    EXPECT_EQ(PascalString(CFSTR(""), 0), (std::pair{false, Bytes(8, 9)}));
}

TEST(CFStringGetPascalString, NeverCutsAndNeverSubstitutes)
{
    EXPECT_FALSE(PascalString(String(u8"\u4E00"), 8).first);
    EXPECT_FALSE(PascalString(CFSTR("a"), 8, 0x1234).first);
    EXPECT_FALSE(PascalString(CFSTR(""), 8, 0x1234).first);
    Bytes theBuffer(600, 9);
    const auto theLongest = String(std::string(255, 'x'));
    EXPECT_FALSE(CFStringGetPascalString(theLongest, theBuffer.data(), 255, kCFStringEncodingMacRoman));
    EXPECT_TRUE(CFStringGetPascalString(theLongest, theBuffer.data(), 256, kCFStringEncodingMacRoman));
    EXPECT_EQ(theBuffer[0], 255);
    EXPECT_EQ(theBuffer[255], 'x');
    EXPECT_EQ(theBuffer[256], 9);
}

TEST(CFStringGetPascalString, LeavesTheBufferAloneForMoreUnitsThanItCanTell)
{
    Bytes theBuffer(600, 9);
    const auto theTooLong = String(std::string(256, 'x'));
    EXPECT_FALSE(CFStringGetPascalString(theTooLong, theBuffer.data(), 600, kCFStringEncodingMacRoman));
    EXPECT_EQ(theBuffer, Bytes(600, 9));
}

TEST(CFStringGetMaximumSize, DependsOnTheEncoding)
{
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(10, kCFStringEncodingUTF8), 30);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(10, kCFStringEncodingMacRoman), 10);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(10, kCFStringEncodingASCII), 10);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(10, kCFStringEncodingUTF16), 20);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(10, 0x1234), kCFNotFound);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(LONG_MAX, kCFStringEncodingUTF8), kCFNotFound);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(-1, kCFStringEncodingUTF8), kCFNotFound);
}
