// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

#include <climits>

TEST(CFPropertyListXMLWriter, DictionariesAreSortedAndIndented)
{
    const auto theArray = ObjectArray({CFSTR("a"), kCFBooleanTrue});
    EXPECT_EQ(WrittenXML(ObjectDictionary({{CFSTR("list"), theArray}, {CFSTR("Alpha"), Integer(2)}})),
              "<dict>\n\t<key>Alpha</key>\n\t<integer>2</integer>\n\t<key>list</key>\n\t<array>\n"
              "\t\t<string>a</string>\n\t\t<true/>\n\t</array>\n</dict>\n");
}

TEST(CFPropertyListXMLWriter, KeysAreInPlainOrder)
{
    const auto theDictionary = ObjectDictionary({});
    for (const char* theKey : {"b", "a", "", "10", "9", "A", "Z", "a b", "z", u8"\u00E9"}) {
        CFDictionarySetValue(theDictionary, String(theKey), kCFBooleanFalse);
    }
    std::string theExpected = "<dict>\n";
    for (const char* theKey : {"", "10", "9", "A", "Z", "a", "a b", "b", "z", u8"\u00E9"}) {
        theExpected += std::string("\t<key>") + theKey + "</key>\n\t<false/>\n";
    }
    EXPECT_EQ(WrittenXML(theDictionary), theExpected + "</dict>\n");
}

TEST(CFPropertyListXMLWriter, Leaves)
{
    const std::pair<Owned<CFPropertyListRef>, std::string> kRows[] = {
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanTrue)), "<true/>\n"},
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanFalse)), "<false/>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Integer(-5))), "<integer>-5</integer>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Integer(LLONG_MAX))), "<integer>9223372036854775807</integer>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Integer(LLONG_MIN))), "<integer>-9223372036854775808</integer>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Number(kCFNumberSInt8Type, SInt8{100}))),
         "<integer>100</integer>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(0.5))), "<real>0.5</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(2.0))), "<real>2</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(0.1))), "<real>0.10000000000000001</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(1.0 / 3))), "<real>0.33333333333333331</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(1e20))), "<real>1e+20</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(1e16))), "<real>10000000000000000</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(1e17))), "<real>1e+17</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(0.0))), "<real>0.0</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Float(-0.0))), "<real>0.0</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(kCFNumberPositiveInfinity)), "<real>+infinity</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(kCFNumberNegativeInfinity)), "<real>-infinity</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(kCFNumberNaN)), "<real>nan</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Number(kCFNumberFloat32Type, 0.1F))),
         "<real>0.10000000149011612</real>\n"},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("a<b>&\"'\t\n"))),
         "<string>a&lt;b&gt;&amp;\"'\t\n</string>\n"},
        {Owned<CFPropertyListRef>(CFRetain(String(u8"\u00E9\U0001F600"))),
         u8"<string>\u00E9\U0001F600</string>\n"},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR(""))), "<string></string>\n"},
        {Owned<CFPropertyListRef>(CFRetain(String(Units{'a', 1, 0, 'b'}))),
         std::string("<string>a\1\0b</string>\n", 22)},
        {Owned<CFPropertyListRef>(CFRetain(Data({1, 2, 3}))), "<data>\nAQID\n</data>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Data({}))), "<data>\n</data>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(0))), "<date>2001-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(0.75))), "<date>2001-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(-978307200))), "<date>1970-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(64092211200.0))), "<date>4032-01-02T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(-63113904000.0))), "<date>0001-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(-63145526400.0))), "<date>0000-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(-31620067201.0))), "<date>0998-12-31T23:59:59Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(ObjectArray({}))), "<array/>\n"},
        {Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({}))), "<dict/>\n"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(WrittenXML(theRow.first), theRow.second);
    }
}

TEST(CFPropertyListXMLWriter, LongDataIsWrapped)
{
    EXPECT_EQ(WrittenXML(ObjectArray({Data(std::vector<UInt8>(60, 0))})),
              "<array>\n\t<data>\n\t" + std::string(68, 'A') + "\n\t" + std::string(12, 'A') +
                  "\n\t</data>\n</array>\n");
}

// From the eighth level on, lines of data get no shorter and begin no further to the right.
TEST(CFPropertyListXMLWriter, DeepDataKeepsRoomForItself)
{
    for (const size_t theDepth : {7U, 8U, 9U, 100U}) {
        Owned<CFPropertyListRef> theList(CFRetain(Data(std::vector<UInt8>(12, 0))));

        for (size_t theIndex = 0; theIndex < theDepth; ++theIndex) {
            Owned<CFPropertyListRef> theArray(CFRetain(ObjectArray({theList})));
            theList.Swap(theArray);
        }
        const std::string theText = WrittenXML(theList);
        const std::string theIndent(std::min<size_t>(theDepth, 8), '\t');
        const std::string theTag(theDepth, '\t');
        std::string theElement;
        theElement.append("\n").append(theTag).append("<data>\n").append(theIndent);
        if (theDepth == 7) {
            theElement.append("AAAAAAAAAAAAAAAA\n");
        } else {
            theElement.append("AAAAAAAAAAAA\n").append(theIndent).append("AAAA\n");
        }
        theElement.append(theTag).append("</data>\n");
        EXPECT_NE(theText.find(theElement), std::string::npos) << theText;
    }
}

TEST(CFPropertyListXMLWriter, WhatIsWrittenIsReadBackEqual)
{
    const auto theInner =
        ObjectDictionary({{CFSTR(""), kCFBooleanFalse}, {CFSTR("a/b.c d"), Date(1000000000)}});
    const auto theList = ObjectArray({CFSTR("text"), Integer(5), Integer(-5000000000), Float(0.1),
                                      kCFBooleanTrue, Data({0, 255, 128}), theInner, ObjectArray({}),
                                      String(u8"a<&>\u20AC\r\n"), String(Units{0, 'a', 0})});
    const Owned<CFDataRef> theData(CFPropertyListCreateXMLData(nullptr, theList));
    const Owned<CFPropertyListRef> theCopy(CFPropertyListCreateFromXMLData(nullptr, theData, 0, nullptr));
    ASSERT_NE(static_cast<CFPropertyListRef>(theCopy), nullptr);
    EXPECT_TRUE(CFEqual(theCopy, theList));
}

TEST(CFPropertyListXMLWriter, WhatIsNoPropertyListIsNotWritten)
{
    EXPECT_EQ(WrittenXML(nullptr), "(NULL)");
    EXPECT_EQ(WrittenXML(kCFNull), "(NULL)");
    EXPECT_EQ(WrittenXML(ObjectArray({CFSTR("a"), kCFNull})), "(NULL)");
}

TEST(CFPropertyListXMLWriter, NestingIsWrittenAndReadUpToItsLimit)
{
    EXPECT_NE(WrittenXML(NestedArray(512)), "(NULL)");
    EXPECT_EQ(WrittenXML(NestedArray(513)), "(NULL)");
}
