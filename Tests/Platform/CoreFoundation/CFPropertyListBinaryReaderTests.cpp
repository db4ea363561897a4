// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers. Data that is damaged, or was made to do
// harm, is refused with a reason.

#include "CFPropertyListTestSupport.h"

#include <cmath>

namespace {

const char* const kDamaged = "the binary form is damaged";

CFNumberType TypeIn(const Owned<CFPropertyListRef>& theNumber)
{
    return CFNumberGetType(static_cast<CFNumberRef>(static_cast<CFPropertyListRef>(theNumber)));
}

double ValueIn(const Owned<CFPropertyListRef>& theNumber)
{
    double theValue = 0;
    CFNumberGetValue(static_cast<CFNumberRef>(static_cast<CFPropertyListRef>(theNumber)),
                     kCFNumberFloat64Type, &theValue);
    return theValue;
}

CFAbsoluteTime TimeIn(const Owned<CFPropertyListRef>& theDate)
{
    return CFDateGetAbsoluteTime(static_cast<CFDateRef>(static_cast<CFPropertyListRef>(theDate)));
}

// A list that has every kind of object.
std::string SampleData()
{
    const auto theList = ObjectDictionary(
        {{CFSTR("array"), ObjectArray({Integer(5), Integer(-1), Float(0.5), kCFBooleanTrue, Date(0.5)})},
         {CFSTR("data"), Data(std::vector<UInt8>(20, 7))},
         {CFSTR("text"), String(u8"\u00E9\U0001F600")},
         {CFSTR("more"), ObjectDictionary({{CFSTR("text"), CFSTR("a text of more than 15 letters")}})}});
    return TextOf(
        Owned(CFPropertyListCreateData(nullptr, theList, kCFPropertyListBinaryFormat_v1_0, 0, nullptr)));
}

} // namespace

TEST(CFPropertyListBinaryReader, ContainersReferToTheirElements)
{
    const std::string theData =
        Binary({Bytes({0xD2, 1, 2, 3, 4}), Bytes({0x51, 'a'}), Bytes({0x51, 'b'}), Bytes({0xA2, 5, 6}),
                Bytes({0x08}), Bytes({0x11, 0x03, 0xE8}), Bytes({0x09})});
    EXPECT_TRUE(CFEqual(ReadBytes(theData),
                        ObjectDictionary({{CFSTR("a"), ObjectArray({Integer(1000), kCFBooleanTrue})},
                                          {CFSTR("b"), kCFBooleanFalse}})));
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0xA0})})), ObjectArray({})));
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0xD0})})), ObjectDictionary({})));
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0xA2, 0, 1, 0, 1}), Bytes({0x09})}, 2)),
                        ObjectArray({kCFBooleanTrue, kCFBooleanTrue})));
}

TEST(CFPropertyListBinaryReader, IntegersUpToFourBytesHaveNoSign)
{
    const std::pair<std::string, SInt64> kRows[] = {
        {Bytes({0x10, 0}), 0},
        {Bytes({0x10, 0xFF}), 255},
        {Bytes({0x11, 0xFF, 0xFF}), 65535},
        {Bytes({0x12, 0xFF, 0xFF, 0xFF, 0xFF}), 4294967295},
        {Bytes({0x13}) + NumberBytes(5, 8), 5},
        {Bytes({0x13}) + std::string(8, '\xFF'), -1},
        {Bytes({0x13, 0x80}) + NumberBytes(0, 7), INT64_MIN},
        {Bytes({0x14}) + NumberBytes(5, 16), 5},
        {Bytes({0x14}) + NumberBytes(0, 8) + std::string(8, '\xFF'), -1}, // wraps around
        {Bytes({0x14}) + std::string(16, '\xFF'), -1},
    };
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(CFEqual(ReadBytes(Binary({theRow.first})), Integer(theRow.second))) << theRow.second;
    }
    EXPECT_EQ(TypeIn(ReadBytes(Binary({Bytes({0x10, 12})}))), kCFNumberSInt32Type);
    EXPECT_EQ(TypeIn(ReadBytes(Binary({Bytes({0x10, 13})}))), kCFNumberSInt64Type);
    EXPECT_EQ(ErrorOf(Binary({Bytes({0x14}) + NumberBytes(1, 8) + NumberBytes(0, 8)})),
              "an integer is too large");
    EXPECT_EQ(ErrorOf(Binary({Bytes({0x14}) + std::string(8, '\xFF') + NumberBytes(0, 8)})),
              "an integer is too large");
}

TEST(CFPropertyListBinaryReader, RealNumbersKeepTheirTypeAndTheirSign)
{
    const auto theShort = ReadBytes(Binary({Bytes({0x22, 0x40, 0x20, 0, 0})}));
    EXPECT_EQ(TypeIn(theShort), kCFNumberFloat32Type);
    EXPECT_EQ(ValueIn(theShort), 2.5);
    const auto theLong = ReadBytes(Binary({Bytes({0x23, 0x3F, 0xB9, 0x99, 0x99, 0x99, 0x99, 0x99, 0x9A})}));
    EXPECT_EQ(TypeIn(theLong), kCFNumberFloat64Type);
    EXPECT_EQ(ValueIn(theLong), 0.1);
    EXPECT_TRUE(std::signbit(ValueIn(ReadBytes(Binary({Bytes({0x23, 0x80}) + NumberBytes(0, 7)})))));
    EXPECT_TRUE(std::signbit(ValueIn(ReadBytes(Binary({Bytes({0x22, 0x80}) + NumberBytes(0, 3)})))));
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0x22, 0x7F, 0x80, 0, 0})})), kCFNumberPositiveInfinity));
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0x23, 0x7F, 0xF8}) + NumberBytes(0, 6)})), kCFNumberNaN));
}

TEST(CFPropertyListBinaryReader, DatesKeepTheirFractions)
{
    EXPECT_EQ(TimeIn(ReadBytes(Binary({Bytes({0x33, 0x3F, 0xE8}) + NumberBytes(0, 6)}))), 0.75);
    EXPECT_EQ(TimeIn(ReadBytes(Binary({Bytes({0x33, 0xC2, 0x2D, 0x63, 0xC3, 0x7F}) + NumberBytes(0, 3)}))),
              -63113904000.0)
        << "the year 1";
    for (const std::string& theBits :
         {Bytes({0x7F, 0xF8, 0, 0, 0, 0, 0, 0}), Bytes({0x7F, 0xF0, 0, 0, 0, 0, 0, 0}),
          Bytes({0x54, 0xF0, 0, 0, 0, 0, 0, 0}), Bytes({0xC5, 0xF0, 0, 0, 0, 0, 0, 0})}) {
        EXPECT_EQ(ErrorOf(Binary({Bytes({0x33}) + theBits})), "a date is not in the years 0 to 9999");
    }
}

TEST(CFPropertyListBinaryReader, TextIsASCIIOrUTF16)
{
    const std::pair<std::string, Owned<CFStringRef>> kRows[] = {
        {Bytes({0x50}), String("")},
        {Bytes({0x53, 'a', 'b', 'c'}), String("abc")},
        {Bytes({0x51, 0xE9}), String(u8"\u00E9")},
        {Bytes({0x61, 0x20, 0xAC}), String(u8"\u20AC")},
        {Bytes({0x61, 0xFE, 0xFF}), String(Units{0xFEFF})},
        {Bytes({0x62, 0xD8, 0x3D, 0xDE, 0x00}), String(u8"\U0001F600")},
        {Bytes({0x5F, 0x10, 0x10}) + std::string(16, 'x'), String(std::string(16, 'x'))},
        {Bytes({0x5F, 0x11, 0, 1, 'x'}), String("x")},
    };
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(CFEqual(ReadBytes(Binary({theRow.first})), theRow.second)) << TextOf(theRow.second);
    }
    EXPECT_EQ(ErrorOf(Binary({Bytes({0x61, 0xD8, 0x3D})})), "a string has half of a surrogate pair");
}

TEST(CFPropertyListBinaryReader, DataIsWhatItIs)
{
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0x43, 0, 255, 7})})), Data({0, 255, 7})));
    EXPECT_TRUE(CFEqual(ReadBytes(Binary({Bytes({0x40})})), Data({})));
}

TEST(CFPropertyListBinaryReader, DamagedDataIsRefused)
{
    const std::string kWhole = Binary({Bytes({0xA1, 1}), Bytes({0x09})});
    std::string theOtherVersion = kWhole;
    theOtherVersion[6] = '1';
    const std::pair<std::string, const char*> kRows[] = {
        {"bplist00", kDamaged},
        {"bplist0", kDamaged},
        {theOtherVersion, kDamaged},
        {Binary({}), kDamaged},
        {Binary({Bytes({0x00})}), "there is an unknown object"},    // null
        {Binary({Bytes({0x0F})}), "there is an unknown object"},    // filling
        {Binary({Bytes({0x70})}), "there is an unknown object"},    // unused
        {Binary({Bytes({0x80, 1})}), "there is an unknown object"}, // an archive's reference
        {Binary({Bytes({0xC1, 0})}), "there is an unknown object"}, // a set
        {Binary({Bytes({0x15}) + NumberBytes(0, 32)}), kDamaged},   // an integer of 32 bytes
        {Binary({Bytes({0x21, 0, 0})}), kDamaged},                  // a real number of 2 bytes
        {Binary({Bytes({0x24}) + NumberBytes(0, 16)}), kDamaged},   // a real number of 16 bytes
        {Binary({Bytes({0x32, 0, 0, 0, 0})}), kDamaged},            // a date of 4 bytes
        {Binary({Bytes({0x55, 'a'})}), kDamaged},                   // text that ends too early
        {Binary({Bytes({0x62, 0, 'a', 0})}), kDamaged},
        {Binary({Bytes({0x13, 0, 0})}), kDamaged},
        {Binary({Bytes({0xA2, 1}), Bytes({0x09})}), kDamaged}, // an array that ends too early
        {Binary({Bytes({0xA1, 9}), Bytes({0x09})}), kDamaged}, // an element that is not there
        {Binary({Bytes({0xD1, 1, 1}), Bytes({0x09})}), "a key is no string"},
        {Binary({Bytes({0xAF})}), kDamaged},       // a count that is not there
        {Binary({Bytes({0xAF, 0x09})}), kDamaged}, // a count that is no integer
        {Binary({Bytes({0xAF, 0x14}) + NumberBytes(0, 16)}), kDamaged},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(ErrorOf(theRow.first), theRow.second) << testing::PrintToString(theRow.first);
    }
    EXPECT_EQ(ErrorOf(kWhole), "(read)");
}

TEST(CFPropertyListBinaryReader, DataThatIsMadeToDoHarmIsRefused)
{
    const std::string kHuge = Bytes({0x13, 0x7F}) + std::string(7, '\xFF');
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xA1, 0})})), "a container contains itself");
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xA1, 1}), Bytes({0xD1, 2, 0}), Bytes({0x51, 'a'})})),
              "a container contains itself");
    for (const int theKind : {0x4F, 0x5F, 0x6F, 0xAF, 0xDF}) {
        EXPECT_EQ(ErrorOf(Binary({Bytes({theKind}) + kHuge})), kDamaged) << theKind;
        EXPECT_EQ(ErrorOf(Binary({Bytes({theKind, 0x13}) + std::string(8, '\xFF')})), kDamaged) << theKind;
        // Twice as many would be none at all.
        EXPECT_EQ(ErrorOf(Binary({Bytes({theKind, 0x13, 0x80}) + NumberBytes(0, 7)})), kDamaged) << theKind;
    }
    // Arrays that each contain the next one eight times.
    std::vector<std::string> theBomb;
    for (int theIndex = 1; theIndex < 15; ++theIndex) {
        theBomb.push_back(Bytes({0xA8}) + std::string(8, static_cast<char>(theIndex)));
    }
    theBomb.push_back(Bytes({0x09}));
    EXPECT_EQ(ErrorOf(Binary(theBomb)), "the objects are too many");
}

TEST(CFPropertyListBinaryReader, AnObjectThatIsReferredToOftenCountsAsOften)
{
    const auto theListWith = [](int theCount) {
        return Binary({Bytes({0xAF, 0x12, 0, 0}) + NumberBytes(static_cast<size_t>(theCount), 2) +
                           Repeated(NumberBytes(1, 4), theCount),
                       Bytes({0x5F, 0x12}) + NumberBytes(100000, 4) + std::string(100000, 'x')},
                      4);
    };
    EXPECT_EQ(ErrorOf(theListWith(500)), "(read)");
    EXPECT_EQ(ErrorOf(theListWith(5000)), "the objects are too many");
}

TEST(CFPropertyListBinaryReader, NestingIsLimitedWhateverTheOrder)
{
    const auto theArrays = [](size_t theCount, size_t theReferenceSize) {
        std::vector<std::string> theObjects;
        for (size_t theIndex = 1; theIndex < theCount; ++theIndex) {
            theObjects.push_back(Bytes({0xA1}) + NumberBytes(theIndex, theReferenceSize));
        }
        theObjects.push_back(Bytes({0x09}));
        return theObjects;
    };
    EXPECT_EQ(ErrorOf(Binary(theArrays(512, 2), 2)), "(read)");
    EXPECT_EQ(ErrorOf(Binary(theArrays(513, 2), 2)), "the nesting is too deep");
    EXPECT_EQ(ErrorOf(Binary(theArrays(60000, 4), 4)), "the nesting is too deep");
    // The deepest array has been read already when it is found deeper.
    std::vector<std::string> theObjects = theArrays(512, 2);
    theObjects[0] = Bytes({0xA2}) + NumberBytes(1, 2) + NumberBytes(512, 2);
    theObjects.push_back(Bytes({0xA1}) + NumberBytes(1, 2));
    EXPECT_EQ(ErrorOf(Binary(theObjects, 2)), "the nesting is too deep");
}

TEST(CFPropertyListBinaryReader, EveryBeginningIsRefused)
{
    const std::string theData = SampleData();
    for (size_t theLength = 6; theLength < theData.size(); ++theLength) {
        EXPECT_EQ(ErrorOf(theData.substr(0, theLength)).find("(read)"), std::string::npos) << theLength;
    }
    EXPECT_EQ(ErrorOf(theData), "(read)");
}

TEST(CFPropertyListBinaryReader, AnyOtherByteAnywhereIsReadOrRefused)
{
    const std::string theData = SampleData();
    int theRefusals = 0;
    for (size_t theIndex = 6; theIndex < theData.size(); ++theIndex) {
        for (const int theByte : {0x00, 0x01, 0x0F, 0x1F, 0x7F, 0x80, 0xA1, 0xD1, 0xFF}) {
            std::string theDamaged = theData;
            theDamaged[theIndex] = static_cast<char>(theByte);
            const std::string theError = ErrorOf(theDamaged);
            EXPECT_NE(theError, "") << theIndex;
            theRefusals += theError == "(read)" ? 0 : 1;
        }
    }
    EXPECT_GT(theRefusals, 0);
}

TEST(CFPropertyListBinaryReader, NoiseInItsPlaceIsReadOrRefused)
{
    const std::string theData = SampleData();
    unsigned theState = 2026;
    const auto theNext = [&theState](size_t theLimit) {
        theState = theState * 1103515245 + 12345;
        return theState / 65536 % theLimit;
    };
    for (int theTurn = 0; theTurn < 3000; ++theTurn) {
        std::string theDamaged = theData;
        for (size_t theCount = theNext(6); theCount > 0; --theCount) {
            theDamaged[6 + theNext(theData.size() - 6)] = static_cast<char>(theNext(256));
        }
        EXPECT_NE(ErrorOf(theDamaged), "") << theTurn;
    }
}
