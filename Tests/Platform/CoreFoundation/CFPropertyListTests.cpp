// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers; integers take the smaller type that
// holds them.

#include "CFTestSupport.h"

#include <climits>
#include <cmath>
#include <limits>

namespace {

const char* const kHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                            "<plist version=\"1.0\">\n";

// Where there is no library for property lists they cannot be written.
bool CanWrite()
{
    return Owned(CFPropertyListCreateXMLData(nullptr, kCFBooleanTrue)).operator CFDataRef() != nullptr;
}

class CFPropertyListWriting : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!CanWrite()) {
            GTEST_SKIP() << "there is no library for property lists";
        }
    }
};

// The text between the header and the end; "(NULL)" when there is none.
std::string Written(CFPropertyListRef theList)
{
    const Owned<CFDataRef> theData(CFPropertyListCreateXMLData(nullptr, theList));
    if (theData == nullptr) {
        return "(NULL)";
    }
    const std::string theText(reinterpret_cast<const char*>(CFDataGetBytePtr(theData)),
                              static_cast<size_t>(CFDataGetLength(theData)));
    const std::string theStart(kHeader);
    const std::string theEnd("</plist>\n");
    EXPECT_EQ(theText.substr(0, theStart.size()), theStart);
    EXPECT_EQ(theText.substr(theText.size() - theEnd.size()), theEnd);
    return theText.substr(theStart.size(), theText.size() - theStart.size() - theEnd.size());
}

Owned<CFPropertyListRef> ReadBytes(const std::string& theText,
                                   CFOptionFlags theMutability = kCFPropertyListImmutable)
{
    return Owned(CFPropertyListCreateFromXMLData(
        nullptr, Data(std::vector<UInt8>(theText.begin(), theText.end())), theMutability, nullptr));
}

Owned<CFPropertyListRef> Read(const std::string& theContent,
                              CFOptionFlags theMutability = kCFPropertyListImmutable)
{
    return ReadBytes(kHeader + theContent + "</plist>\n", theMutability);
}

// Why a text cannot be read; "(read)" when it can.
std::string ErrorOf(const std::string& theText)
{
    CFStringRef theError = kCFPreferencesAnyHost;
    const Owned<CFPropertyListRef> theList(
        CFPropertyListCreateFromXMLData(nullptr, Data(std::vector<UInt8>(theText.begin(), theText.end())),
                                        kCFPropertyListImmutable, &theError));
    if (theList != nullptr) {
        EXPECT_EQ(theError, nullptr);
        return "(read)";
    }
    return TextOf(Owned(theError));
}

std::string ContentError(const std::string& theContent)
{
    return ErrorOf(kHeader + theContent + "</plist>\n");
}

Owned<CFDateRef> Date(CFAbsoluteTime theTime)
{
    return Owned(CFDateCreate(nullptr, theTime));
}

std::string Repeated(const std::string& theText, int theCount)
{
    std::string theResult;
    for (int theIndex = 0; theIndex < theCount; ++theIndex) {
        theResult += theText;
    }
    return theResult;
}

// Arrays in arrays.
Owned<CFPropertyListRef> NestedArray(int theDepth)
{
    CFPropertyListRef theList = CFRetain(kCFBooleanTrue);
    for (int theIndex = 1; theIndex < theDepth; ++theIndex) {
        const CFPropertyListRef theArray = CFArrayCreate(nullptr, &theList, 1, &kCFTypeArrayCallBacks);
        CFRelease(theList);
        theList = theArray;
    }
    return Owned(theList);
}

// The number, as its type and its value.
std::pair<CFNumberType, SInt64> IntegerIn(const std::string& theText)
{
    const Owned<CFPropertyListRef> theList = Read("<integer>" + theText + "</integer>");
    if (theList == nullptr) {
        return {0, 0};
    }
    const CFNumberRef theNumber = static_cast<CFNumberRef>(static_cast<CFPropertyListRef>(theList));
    SInt64 theValue = 0;
    CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theValue);
    return {CFNumberGetType(theNumber), theValue};
}

using TypeAndValue = std::pair<CFNumberType, SInt64>;

} // namespace

TEST(CFPropertyList, ConstantsHaveTheirPublishedValues)
{
    EXPECT_EQ(kCFPropertyListOpenStepFormat, 1);
    EXPECT_EQ(kCFPropertyListXMLFormat_v1_0, 100);
    EXPECT_EQ(kCFPropertyListBinaryFormat_v1_0, 200);
    EXPECT_EQ(kCFPropertyListImmutable, 0U);
    EXPECT_EQ(kCFPropertyListMutableContainers, 1U);
    EXPECT_EQ(kCFPropertyListMutableContainersAndLeaves, 2U);
}

TEST_F(CFPropertyListWriting, DictionariesAreSortedAndIndented)
{
    const auto theArray = ObjectArray({CFSTR("a"), kCFBooleanTrue});
    EXPECT_EQ(Written(ObjectDictionary({{CFSTR("list"), theArray}, {CFSTR("Alpha"), Integer(2)}})),
              "<dict>\n\t<key>Alpha</key>\n\t<integer>2</integer>\n\t<key>list</key>\n\t<array>\n"
              "\t\t<string>a</string>\n\t\t<true/>\n\t</array>\n</dict>\n");
}

TEST_F(CFPropertyListWriting, KeysAreInPlainOrder)
{
    const auto theDictionary = ObjectDictionary({});
    for (const char* theKey : {"b", "a", "", "10", "9", "A", "Z", "a b", "z", u8"\u00E9"}) {
        CFDictionarySetValue(theDictionary, String(theKey), kCFBooleanFalse);
    }
    std::string theExpected = "<dict>\n";
    for (const char* theKey : {"", "10", "9", "A", "Z", "a", "a b", "b", "z", u8"\u00E9"}) {
        theExpected += std::string("\t<key>") + theKey + "</key>\n\t<false/>\n";
    }
    EXPECT_EQ(Written(theDictionary), theExpected + "</dict>\n");
}

TEST_F(CFPropertyListWriting, Leaves)
{
    const std::pair<Owned<CFPropertyListRef>, const char*> kRows[] = {
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
        {Owned<CFPropertyListRef>(CFRetain(Data({1, 2, 3}))), "<data>\nAQID\n</data>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Data({}))), "<data>\n</data>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(0))), "<date>2001-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(0.75))), "<date>2001-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(-978307200))), "<date>1970-01-01T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(Date(64092211200.0))), "<date>4032-01-02T00:00:00Z</date>\n"},
        {Owned<CFPropertyListRef>(CFRetain(ObjectArray({}))), "<array/>\n"},
        {Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({}))), "<dict/>\n"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Written(theRow.first), theRow.second);
    }
}

TEST_F(CFPropertyListWriting, LongDataIsWrapped)
{
    EXPECT_EQ(Written(ObjectArray({Data(std::vector<UInt8>(60, 0))})),
              "<array>\n\t<data>\n\t" + std::string(68, 'A') + "\n\t" + std::string(12, 'A') +
                  "\n\t</data>\n</array>\n");
}

TEST_F(CFPropertyListWriting, WhatIsWrittenIsReadBackEqual)
{
    const auto theInner =
        ObjectDictionary({{CFSTR(""), kCFBooleanFalse}, {CFSTR("a/b.c d"), Date(1000000000)}});
    const auto theList =
        ObjectArray({CFSTR("text"), Integer(5), Integer(-5000000000), Float(0.1), kCFBooleanTrue,
                     Data({0, 255, 128}), theInner, ObjectArray({}), String(u8"a<&>\u20AC\r\n")});
    const Owned<CFDataRef> theData(CFPropertyListCreateXMLData(nullptr, theList));
    const Owned<CFPropertyListRef> theCopy(CFPropertyListCreateFromXMLData(nullptr, theData, 0, nullptr));
    ASSERT_NE(static_cast<CFPropertyListRef>(theCopy), nullptr);
    EXPECT_TRUE(CFEqual(theCopy, theList));
}

TEST_F(CFPropertyListWriting, WhatIsNoPropertyListIsNotWritten)
{
    EXPECT_EQ(Written(nullptr), "(NULL)");
    EXPECT_EQ(Written(kCFNull), "(NULL)");
    EXPECT_EQ(Written(ObjectArray({CFSTR("a"), kCFNull})), "(NULL)");
}

TEST_F(CFPropertyListWriting, NestingIsWrittenAndReadUpToItsLimit)
{
    EXPECT_NE(Written(NestedArray(512)), "(NULL)");
    EXPECT_EQ(Written(NestedArray(513)), "(NULL)");
}

TEST(CFPropertyList, ValidityDependsOnEveryPart)
{
    const CFPropertyListFormat kXML = kCFPropertyListXMLFormat_v1_0;
    EXPECT_TRUE(CFPropertyListIsValid(CFSTR("a"), kXML));
    EXPECT_TRUE(CFPropertyListIsValid(CFSTR("a"), kCFPropertyListBinaryFormat_v1_0));
    EXPECT_FALSE(CFPropertyListIsValid(CFSTR("a"), kCFPropertyListOpenStepFormat));
    EXPECT_FALSE(CFPropertyListIsValid(nullptr, kXML));
    EXPECT_FALSE(CFPropertyListIsValid(kCFNull, kXML));
    EXPECT_FALSE(CFPropertyListIsValid(String(Units{0xD800}), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(String(Units{'a', 0}), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Date(1e300), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Date(-1e12), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Date(std::numeric_limits<double>::quiet_NaN()), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(NestedArray(513), kXML));
    EXPECT_TRUE(CFPropertyListIsValid(NestedArray(512), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Owned(CFArrayCreateMutable(nullptr, 0, nullptr)), kXML));
    const Owned<CFMutableDictionaryRef> theDictionary(CFDictionaryCreateMutable(
        nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    CFDictionarySetValue(theDictionary, Integer(100), CFSTR("a"));
    EXPECT_FALSE(CFPropertyListIsValid(theDictionary, kXML));
}

TEST(CFPropertyList, IntegersTakeTheSmallerTypeThatHoldsThem)
{
    EXPECT_EQ(IntegerIn("7"), TypeAndValue(kCFNumberSInt32Type, 7));
    EXPECT_EQ(IntegerIn("1000"), TypeAndValue(kCFNumberSInt32Type, 1000));
    EXPECT_EQ(IntegerIn("2147483647"), TypeAndValue(kCFNumberSInt32Type, 2147483647));
    EXPECT_EQ(IntegerIn("-2147483648"), TypeAndValue(kCFNumberSInt32Type, -2147483648LL));
    EXPECT_EQ(IntegerIn("2147483648"), TypeAndValue(kCFNumberSInt64Type, 2147483648));
    EXPECT_EQ(IntegerIn("-2147483649"), TypeAndValue(kCFNumberSInt64Type, -2147483649LL));
    EXPECT_EQ(IntegerIn("-9223372036854775808"), TypeAndValue(kCFNumberSInt64Type, LLONG_MIN));
    EXPECT_EQ(IntegerIn("9223372036854775808"), TypeAndValue(kCFNumberSInt64Type, LLONG_MIN));
}

TEST(CFPropertyList, IntegersHaveSignsZerosAndTwoBases)
{
    EXPECT_EQ(IntegerIn("+5").second, 5);
    EXPECT_EQ(IntegerIn("010").second, 10);
    EXPECT_EQ(IntegerIn(" \n\t42").second, 42);
    EXPECT_EQ(IntegerIn("0x1F").second, 31);
    EXPECT_EQ(IntegerIn("-0x1f").second, -31);
}

TEST(CFPropertyList, TextsThatAreNoIntegersAreErrors)
{
    for (const char* theText :
         {"", "7x", "1.5", "7 ", "--7", "0x", "18446744073709551616", "-9223372036854775809"}) {
        EXPECT_EQ(ContentError(std::string("<integer>") + theText + "</integer>"),
                  "an integer is none, or is too large")
            << theText;
    }
    EXPECT_EQ(ContentError("<integer>" + std::string(1000000, '9') + "</integer>"),
              "an integer is none, or is too large");
    EXPECT_EQ(ContentError("<integer/>"), "an integer is none, or is too large");
}

TEST(CFPropertyList, RealNumbersAreDoubles)
{
    const std::pair<const char*, double> kRows[] = {
        {"5", 5},          {"1e3", 1000},          {"-0", -0.0},
        {"inf", HUGE_VAL}, {"-INF", -HUGE_VAL},    {"+Infinity", HUGE_VAL},
        {"0.1", 0.1},      {"infinity", HUGE_VAL}, {"-2.5E-1", -0.25}};
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(CFEqual(Read(std::string("<real>") + theRow.first + "</real>"), Float(theRow.second)))
            << theRow.first;
    }
    EXPECT_EQ(static_cast<CFPropertyListRef>(Read("<real>NaN</real>")), kCFNumberNaN);
    for (const char* theText : {"", " 5", "5 ", "5x", "0x10", "1e", "infinit", "nan(1)"}) {
        EXPECT_EQ(ContentError(std::string("<real>") + theText + "</real>"), "a real number is none")
            << theText;
    }
}

TEST(CFPropertyList, BooleansAreTheConstants)
{
    EXPECT_EQ(static_cast<CFPropertyListRef>(Read("<true/>")), kCFBooleanTrue);
    EXPECT_EQ(static_cast<CFPropertyListRef>(Read("<true></true>")), kCFBooleanTrue);
    EXPECT_EQ(static_cast<CFPropertyListRef>(Read("<false />")), kCFBooleanFalse);
    EXPECT_EQ(ContentError("<true>no</true>"), "a boolean has content");
}

TEST(CFPropertyList, StringsKeepTheirSpaceAndKnowSomeEntities)
{
    const std::pair<const char*, const char*> kRows[] = {
        {"<string> a b </string>", " a b "},
        {"<string/>", ""},
        {"<string></string>", ""},
        {"<string>&lt;&gt;&amp;&quot;&apos;</string>", "<>&\"'"},
        {"<string>&#65;&#x42;&#xe9;&#x20AC;&#x1F600;</string>", u8"AB\u00E9\u20AC\U0001F600"},
        {"<string>a<![CDATA[<&b>]]>c</string>", "a<&b>c"},
    };
    for (const auto& theRow : kRows) {
        const Owned<CFPropertyListRef> theString = Read(theRow.first);
        EXPECT_EQ(TextOf(static_cast<CFStringRef>(static_cast<CFPropertyListRef>(theString))), theRow.second);
    }
    EXPECT_EQ(ContentError("<string>&foo;</string>"), "there is an unknown entity");
    EXPECT_EQ(ContentError("<string>&#0;</string>"), "there is an unknown character");
    EXPECT_EQ(ContentError("<string>&#1114112;</string>"), "there is an unknown character");
    EXPECT_EQ(ContentError("<string>&#xD800;</string>"), "a string is not in UTF-8");
    EXPECT_EQ(ContentError("<string>\xFF</string>"), "a string is not in UTF-8");
    EXPECT_EQ(ContentError("<string>a<b/></string>"), "an end tag is missing");
}

TEST(CFPropertyList, DataSkipsWhatIsNoBase64)
{
    EXPECT_TRUE(CFEqual(Read("<data>\n\tAQ ID\n</data>"), Data({1, 2, 3})));
    EXPECT_TRUE(CFEqual(Read("<data>A*QI=</data>"), Data({1, 2})));
    EXPECT_TRUE(CFEqual(Read("<data></data>"), Data({})));
}

TEST(CFPropertyList, DatesAreCompleteOrErrors)
{
    EXPECT_TRUE(CFEqual(Read("<date>2001-01-01T00:00:00Z</date>"), Date(0)));
    EXPECT_TRUE(CFEqual(Read("<date>2004-02-29T23:59:59Z</date>"), Date(99791999)));
    EXPECT_TRUE(CFEqual(Read("<date>1969-07-20T20:17:40Z</date>"), Date(-992490140)));
    EXPECT_TRUE(CFEqual(Read("<date>4032-01-02T00:00:00Z</date>"), Date(64092211200.0)));
    EXPECT_TRUE(CFEqual(Read("<date>0000-01-01T00:00:00Z</date>"), Date(-63145526400.0)));
    for (const char* theText :
         {"", "2001-01-01", "2001-01-01T00:00:00", "2001-13-01T00:00:00Z", "2001-00-01T00:00:00Z",
          "2001-02-29T00:00:00Z", "1900-02-29T00:00:00Z", "2001-01-00T00:00:00Z", "2001-01-01T24:00:00Z",
          "2001-01-01T00:60:00Z", "2001-01-01T00:00:60Z", " 2001-01-01T00:00:00Z", "2001-01-01T00:00:00Zx"}) {
        EXPECT_EQ(ContentError(std::string("<date>") + theText + "</date>"), "a date is none") << theText;
    }
}

TEST_F(CFPropertyListWriting, EveryDayOfFourCenturiesGoesThereAndBack)
{
    for (int theDay = -36525; theDay < 146097 - 36525; theDay += 29) {
        const auto theDate = Date(theDay * 86400.0 + 12345);
        const std::string theText = Written(theDate);
        EXPECT_TRUE(CFEqual(Read(theText), theDate)) << theText;
    }
}

TEST(CFPropertyList, OfEqualKeysTheLastWins)
{
    EXPECT_TRUE(CFEqual(Read("<dict><key>a</key><true/><key>a</key><false/></dict>"),
                        ObjectDictionary({{CFSTR("a"), kCFBooleanFalse}})));
}

TEST(CFPropertyList, HeadersAndCommentsAreOptional)
{
    const auto theExpected = ObjectDictionary({{CFSTR("a"), kCFBooleanTrue}});
    for (const char* theText :
         {"<dict><key>a</key><true/></dict>", "<plist><dict><key>a</key><true/></dict></plist>",
          "\xEF\xBB\xBF<?xml version=\"1.0\"?><plist "
          "version=\"1.0\"><dict><key>a</key><true/></dict></plist>",
          "<!-- x --><plist><!-- <true/> --><dict><!----><key>a</key><!-- y --><true/></dict></plist><!-- z "
          "-->",
          " \n<dict>\r\n<key >a</key >\t<true />\n</dict> \n"}) {
        EXPECT_TRUE(CFEqual(ReadBytes(theText), theExpected)) << theText;
    }
}

TEST(CFPropertyList, BrokenTextsAreErrors)
{
    const std::pair<std::string, const char*> kRows[] = {
        {"", "there is nothing"},
        {"random words", "an element is expected"},
        {std::string("\0\1\2\3", 4), "an element is expected"},
        {"<plist></plist>", "there is an unknown element"},
        {"<plist/>", "there is no object"},
        {"<plist><true/><false/></plist>", "an end tag is missing"},
        {"<true/><false/>", "there is something behind the end"},
        {"<foo/>", "there is an unknown element"},
        {"<dict><key>a</key></dict>", "there is an unknown element"},
        {"<dict><true/></dict>", "a key is expected"},
        {"<array><key>a</key></array>", "there is an unknown element"},
        {"<array><true/>", "an element is expected"},
        {"<array><true/></dict>", "an end tag is missing"},
        {"<array", "the text is cut off"},
        {"<string>abc", "the text is cut off"},
        {"<string>&#65", "the text is cut off"},
        {"<string><![CDATA[abc</string>", "the text is cut off"},
        {"<integer>5", "the text is cut off"},
        {"<!-- abc", "the text is cut off"},
        {"<!ELEMENT a>", "there is unknown markup"},
        {"<array><true></array>", "an end tag is missing"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(ErrorOf(theRow.first), theRow.second) << theRow.first;
    }
}

TEST(CFPropertyList, TextsThatAreMadeToDoHarmAreErrors)
{
    EXPECT_EQ(
        ErrorOf(
            "<!DOCTYPE plist [<!ENTITY a \"xx\"><!ENTITY b \"&a;&a;\">]><plist><string>&b;</string></plist>"),
        "the document type defines something");
    EXPECT_EQ(ErrorOf(Repeated("<array>", 100000) + Repeated("</array>", 100000)), "the nesting is too deep");
    EXPECT_EQ(ErrorOf(Repeated("<array>", 100000)), "the nesting is too deep");
    EXPECT_EQ(ErrorOf(Repeated("<dict><key>a</key>", 100000)), "the nesting is too deep");
    EXPECT_EQ(ErrorOf(Repeated("<array><!--</array>-->", 100000)), "the nesting is too deep");
    EXPECT_EQ(ErrorOf(Repeated("<array>", 512) + Repeated("</array>", 512)), "(read)");
    EXPECT_EQ(ErrorOf(Repeated("<array>", 513) + Repeated("</array>", 513)), "the nesting is too deep");
}

TEST(CFPropertyList, EveryBeginningOfATextIsReadOrAnError)
{
    const std::string theText =
        std::string(kHeader) +
        "<dict><key>a&amp;</key><array><integer>5</integer><real>1</real><data>AQID</data>"
        "<date>2001-01-01T00:00:00Z</date><string><![CDATA[x]]></string></array></dict></plist>";
    for (size_t theLength = 0; theLength < theText.size(); ++theLength) {
        EXPECT_NE(ErrorOf(theText.substr(0, theLength)), "(read)") << theLength;
    }
    EXPECT_EQ(ErrorOf(theText), "(read)");
}

TEST(CFPropertyList, WhiteSpaceAloneIsAnEmptyDictionaryOnPurpose)
{
    EXPECT_TRUE(CFEqual(ReadBytes(" \n"), ObjectDictionary({})));
}

TEST(CFPropertyList, MutabilityIsWhatWasAskedFor)
{
    const std::string theText = "<array><string>a</string></array>";
    const auto theMutable = Read(theText, kCFPropertyListMutableContainers);
    const auto theArray =
        static_cast<CFMutableArrayRef>(const_cast<void*>(static_cast<CFTypeRef>(theMutable)));
    CFArrayAppendValue(theArray, kCFBooleanTrue);
    EXPECT_EQ(CFArrayGetCount(theArray), 2);
    const auto theAllMutable = Read(theText, kCFPropertyListMutableContainersAndLeaves);
    const auto theLeaf = const_cast<void*>(
        CFArrayGetValueAtIndex(static_cast<CFArrayRef>(static_cast<CFTypeRef>(theAllMutable)), 0));
    CFStringAppend(static_cast<CFMutableStringRef>(theLeaf), CFSTR("b"));
    EXPECT_TRUE(CFEqual(theAllMutable, ObjectArray({CFSTR("ab")})));
}

TEST(CFPropertyList, DeepCopiesShareNothingThatChanges)
{
    const auto theInner = MutableString("text");
    const auto theBytes = Data({1});
    const auto theList =
        ObjectArray({theInner, ObjectDictionary({{CFSTR("k"), theInner}}), theBytes, Integer(100)});
    const Owned<CFPropertyListRef> theCopy(
        CFPropertyListCreateDeepCopy(nullptr, theList, kCFPropertyListImmutable));
    EXPECT_TRUE(CFEqual(theCopy, theList));
    CFStringAppend(theInner, CFSTR(" changed"));
    EXPECT_TRUE(CFEqual(theCopy, ObjectArray({CFSTR("text"), ObjectDictionary({{CFSTR("k"), CFSTR("text")}}),
                                              theBytes, Integer(100)})));
    EXPECT_EQ(CFPropertyListCreateDeepCopy(nullptr, kCFNull, 0), nullptr);
    const Owned<CFPropertyListRef> theMutableData(
        CFPropertyListCreateDeepCopy(nullptr, theBytes, kCFPropertyListMutableContainersAndLeaves));
    CFDataSetLength(static_cast<CFMutableDataRef>(const_cast<void*>(static_cast<CFTypeRef>(theMutableData))),
                    5);
    EXPECT_EQ(CFDataGetLength(theBytes), 1);
}

// The binary form

namespace {

// A binary property list of these objects; the first one is the root. All offsets and references have one
// byte.
std::string Binary(const std::vector<std::string>& theObjects)
{
    std::string theText = "bplist00";
    std::string theTable;
    for (const std::string& theObject : theObjects) {
        theTable += static_cast<char>(theText.size());
        theText += theObject;
    }
    const char theTableOffset = static_cast<char>(theText.size());
    theText += theTable + std::string(6, '\0') + "\1\1" + std::string(7, '\0') +
               static_cast<char>(theObjects.size()) + std::string(8, '\0') + std::string(7, '\0') +
               theTableOffset;
    return theText;
}

std::string Bytes(std::initializer_list<int> theBytes)
{
    return std::string(theBytes.begin(), theBytes.end());
}

} // namespace

TEST_F(CFPropertyListWriting, TheBinaryFormIsRead)
{
    const std::string theText =
        Binary({Bytes({0xD2, 1, 2, 3, 4}), Bytes({0x51, 'a'}), Bytes({0x51, 'b'}), Bytes({0xA2, 5, 6}),
                Bytes({0x08}), Bytes({0x11, 0x03, 0xE8}), Bytes({0x09})});
    EXPECT_TRUE(CFEqual(ReadBytes(theText),
                        ObjectDictionary({{CFSTR("a"), ObjectArray({Integer(1000), kCFBooleanTrue})},
                                          {CFSTR("b"), kCFBooleanFalse}})));
}

TEST(CFPropertyList, BinaryFormsThatAreMadeToDoHarmAreErrors)
{
    const std::string kError = "the binary form is damaged";
    EXPECT_EQ(ErrorOf("bplist00"), kError);
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xA1, 0})})), kError) << "an array that contains itself";
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xA1, 9}), Bytes({0x09})})), kError) << "an element that is not there";
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xAF, 0x13, 0x7F, -1, -1, -1, -1, -1, -1, -1})})), kError)
        << "a huge count";
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xAF, 0x09})})), kError) << "a count that is none";
    EXPECT_EQ(ErrorOf(Binary({Bytes({0xAF})}).substr(0, 9)), kError);
    std::vector<std::string> theBomb;
    for (int theIndex = 1; theIndex < 15; ++theIndex) {
        theBomb.push_back(Bytes({0xA8}) + std::string(8, static_cast<char>(theIndex)));
    }
    theBomb.push_back(Bytes({0x09}));
    EXPECT_EQ(ErrorOf(Binary(theBomb)), kError) << "arrays that each contain the next one eight times";
    std::string theText = Binary({Bytes({0xA1, 1}), Bytes({0x09})});
    for (size_t theIndex = 8; theIndex < theText.size(); ++theIndex) {
        std::string theDamaged = theText;
        theDamaged[theIndex] = static_cast<char>(0xFF);
        EXPECT_NE(ErrorOf(theDamaged), "") << theIndex;
    }
}
