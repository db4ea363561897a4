// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers; the order of the objects is the host's
// own.

#include "CFPropertyListTestSupport.h"

#include <climits>

namespace {

Owned<CFDataRef> BinaryData(CFPropertyListRef theList)
{
    return Owned(CFPropertyListCreateData(nullptr, theList, kCFPropertyListBinaryFormat_v1_0, 0, nullptr));
}

std::string Written(CFPropertyListRef theList)
{
    return TextOf(BinaryData(theList));
}

void ExpectSameWhenReadBack(CFPropertyListRef theList)
{
    EXPECT_TRUE(CFEqual(ReadBytes(Written(theList)), theList)) << DescriptionOf(theList);
}

} // namespace

TEST(CFPropertyListBinaryWriter, Leaves)
{
    const std::pair<Owned<CFPropertyListRef>, std::string> kRows[] = {
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanFalse)), Bytes({0x08})},
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanTrue)), Bytes({0x09})},
        {Owned<CFPropertyListRef>(CFRetain(Integer(0))), Bytes({0x10, 0})},
        {Owned<CFPropertyListRef>(CFRetain(Integer(255))), Bytes({0x10, 255})},
        {Owned<CFPropertyListRef>(CFRetain(Integer(256))), Bytes({0x11, 1, 0})},
        {Owned<CFPropertyListRef>(CFRetain(Integer(65536))), Bytes({0x12, 0, 1, 0, 0})},
        {Owned<CFPropertyListRef>(CFRetain(Integer(4294967296))), Bytes({0x13, 0, 0, 0, 1, 0, 0, 0, 0})},
        {Owned<CFPropertyListRef>(CFRetain(Integer(-1))), Bytes({0x13}) + std::string(8, '\xFF')},
        {Owned<CFPropertyListRef>(CFRetain(Integer(LLONG_MIN))), Bytes({0x13, 0x80}) + NumberBytes(0, 7)},
        {Owned<CFPropertyListRef>(CFRetain(Number(kCFNumberFloat32Type, 2.5F))),
         Bytes({0x22, 0x40, 0x20, 0, 0})},
        {Owned<CFPropertyListRef>(CFRetain(Float(-0.0))), Bytes({0x23, 0x80}) + NumberBytes(0, 7)},
        {Owned<CFPropertyListRef>(CFRetain(Date(0.75))), Bytes({0x33, 0x3F, 0xE8}) + NumberBytes(0, 6)},
        {Owned<CFPropertyListRef>(CFRetain(Data({1, 2}))), Bytes({0x42, 1, 2})},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("ab"))), Bytes({0x52, 'a', 'b'})},
        {Owned<CFPropertyListRef>(CFRetain(String(u8"\u00E9"))), Bytes({0x61, 0, 0xE9})},
        {Owned<CFPropertyListRef>(CFRetain(String(std::string(15, 'x')))),
         Bytes({0x5F, 0x10, 15}) + std::string(15, 'x')},
        {Owned<CFPropertyListRef>(CFRetain(String(std::string(300, 'x')))),
         Bytes({0x5F, 0x11, 1, 44}) + std::string(300, 'x')},
        {Owned<CFPropertyListRef>(CFRetain(ObjectArray({}))), Bytes({0xA0})},
        {Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({}))), Bytes({0xD0})},
    };
    for (const auto& theRow : kRows) {
        const std::string theExpected = Binary({theRow.second}, theRow.second.size() < 248 ? 1 : 2);
        const std::string theWritten = Written(theRow.first);
        // One reference has one byte, whatever the offsets have.
        EXPECT_EQ(theWritten.substr(0, theWritten.size() - 25),
                  theExpected.substr(0, theExpected.size() - 25))
            << DescriptionOf(theRow.first);
        EXPECT_TRUE(CFEqual(ReadBytes(theWritten), theRow.first)) << DescriptionOf(theRow.first);
    }
}

TEST(CFPropertyListBinaryWriter, EqualLeavesAreOneObject)
{
    const auto theInner = ObjectDictionary({{CFSTR("b"), CFSTR("a")}, {CFSTR("a"), Integer(5)}});
    EXPECT_EQ(Written(ObjectArray({CFSTR("a"), theInner, Number(kCFNumberSInt8Type, SInt8{5})})),
              Binary({Bytes({0xA3, 1, 2, 4}), Bytes({0x51, 'a'}), Bytes({0xD2, 1, 3, 4, 1}),
                      Bytes({0x51, 'b'}), Bytes({0x10, 5})}));
}

TEST(CFPropertyListBinaryWriter, OffsetsAndReferencesAreAsLargeAsTheyMustBe)
{
    for (const int theCount : {10, 255, 256, 70000}) {
        const auto theArray = ObjectArray({});
        for (int theIndex = 0; theIndex < theCount; ++theIndex) {
            CFArrayAppendValue(theArray, Integer(theIndex));
        }
        const std::string theData = Written(theArray);
        const int theReferenceSize = theCount < 256 ? 1 : theCount < 65536 ? 2 : 4;
        EXPECT_EQ(theData[theData.size() - 25], theReferenceSize) << theCount;
        EXPECT_TRUE(CFEqual(ReadBytes(theData), theArray)) << theCount;
    }
}

TEST(CFPropertyListBinaryWriter, WhatIsWrittenIsReadBackEqual)
{
    const auto theInner =
        ObjectDictionary({{CFSTR(""), kCFBooleanFalse}, {CFSTR("a/b.c d"), Date(1000000000)}});
    ExpectSameWhenReadBack(
        ObjectArray({CFSTR("text"), Integer(5), Integer(-5000000000), Float(0.1), kCFBooleanTrue,
                     Data({0, 255, 128}), theInner, ObjectArray({}), String(u8"a<&>\u20AC\r\n"), kCFNumberNaN,
                     Date(-63113904000.5), String(Units{0, 'a', 0}), String(Units{0x20AC, 0, 'a'})}));
    ExpectSameWhenReadBack(NestedArray(512));
}

TEST(CFPropertyListBinaryWriter, WhatIsNoPropertyListIsNotWritten)
{
    EXPECT_EQ(static_cast<CFDataRef>(BinaryData(kCFNull)), nullptr);
    EXPECT_EQ(static_cast<CFDataRef>(BinaryData(NestedArray(513))), nullptr);
}
