// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

#include <climits>
#include <cmath>

namespace {

std::string ContentError(const std::string& theContent)
{
    return ErrorOf(kHeader + theContent + "</plist>\n");
}

// The number, as its type and its value.
std::pair<CFNumberType, SInt64> IntegerIn(const std::string& theText)
{
    const Owned<CFPropertyListRef> theList = ReadContent("<integer>" + theText + "</integer>");
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

TEST(CFPropertyListXMLReader, IntegersHave64BitsUnlessTheyAreSharedOnes)
{
    EXPECT_EQ(IntegerIn("-2"), TypeAndValue(kCFNumberSInt64Type, -2));
    EXPECT_EQ(IntegerIn("-1"), TypeAndValue(kCFNumberSInt32Type, -1));
    EXPECT_EQ(IntegerIn("12"), TypeAndValue(kCFNumberSInt32Type, 12));
    EXPECT_EQ(IntegerIn("13"), TypeAndValue(kCFNumberSInt64Type, 13));
    EXPECT_EQ(IntegerIn("1000"), TypeAndValue(kCFNumberSInt64Type, 1000));
    EXPECT_EQ(IntegerIn("-9223372036854775808"), TypeAndValue(kCFNumberSInt64Type, LLONG_MIN));
    EXPECT_EQ(IntegerIn("9223372036854775808"), TypeAndValue(kCFNumberSInt64Type, LLONG_MIN));
}

TEST(CFPropertyListXMLReader, IntegersHaveSignsZerosAndTwoBases)
{
    EXPECT_EQ(IntegerIn("+5").second, 5);
    EXPECT_EQ(IntegerIn("010").second, 10);
    EXPECT_EQ(IntegerIn(" \n\t42").second, 42);
    EXPECT_EQ(IntegerIn("0x1F").second, 31);
    EXPECT_EQ(IntegerIn("-0x1f").second, -31);
}

TEST(CFPropertyListXMLReader, TextsThatAreNoIntegersAreErrors)
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

TEST(CFPropertyListXMLReader, RealNumbersAreDoubles)
{
    const std::pair<const char*, double> kRows[] = {
        {"5", 5},          {"1e3", 1000},          {"-0", -0.0},
        {"inf", HUGE_VAL}, {"-INF", -HUGE_VAL},    {"+Infinity", HUGE_VAL},
        {"0.1", 0.1},      {"infinity", HUGE_VAL}, {"-2.5E-1", -0.25}};
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(
            CFEqual(ReadContent(std::string("<real>") + theRow.first + "</real>"), Float(theRow.second)))
            << theRow.first;
    }
    EXPECT_EQ(static_cast<CFPropertyListRef>(ReadContent("<real>NaN</real>")), kCFNumberNaN);
    for (const char* theText : {"", " 5", "5 ", "5x", "0x10", "1e", "infinit", "nan(1)"}) {
        EXPECT_EQ(ContentError(std::string("<real>") + theText + "</real>"), "a real number is none")
            << theText;
    }
}

TEST(CFPropertyListXMLReader, BooleansAreTheConstants)
{
    EXPECT_EQ(static_cast<CFPropertyListRef>(ReadContent("<true/>")), kCFBooleanTrue);
    EXPECT_EQ(static_cast<CFPropertyListRef>(ReadContent("<true></true>")), kCFBooleanTrue);
    EXPECT_EQ(static_cast<CFPropertyListRef>(ReadContent("<false />")), kCFBooleanFalse);
    EXPECT_EQ(ContentError("<true>no</true>"), "a boolean has content");
    EXPECT_EQ(ContentError("<true> </true>"), "a boolean has content");
}

TEST(CFPropertyListXMLReader, StringsKeepTheirSpaceAndKnowSomeEntities)
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
        const Owned<CFPropertyListRef> theString = ReadContent(theRow.first);
        EXPECT_EQ(TextOf(static_cast<CFStringRef>(static_cast<CFPropertyListRef>(theString))), theRow.second);
    }
    EXPECT_EQ(ContentError("<string>&foo;</string>"), "there is an unknown entity");
    EXPECT_EQ(ContentError("<string>&#0;</string>"), "there is an unknown character");
    EXPECT_EQ(ContentError("<string>&#1114112;</string>"), "there is an unknown character");
    EXPECT_EQ(ContentError("<string>&#xD800;</string>"), "a string is not in UTF-8");
    EXPECT_EQ(ContentError("<string>\xFF</string>"), "a string is not in UTF-8");
    EXPECT_EQ(ContentError("<string>a<b/></string>"), "an end tag is missing");
}

TEST(CFPropertyListXMLReader, DataSkipsWhatIsNoBase64)
{
    EXPECT_TRUE(CFEqual(ReadContent("<data>\n\tAQ ID\n</data>"), Data({1, 2, 3})));
    EXPECT_TRUE(CFEqual(ReadContent("<data>A*QI=</data>"), Data({1, 2})));
    EXPECT_TRUE(CFEqual(ReadContent("<data></data>"), Data({})));
    EXPECT_EQ(ContentError("<data/>"), "data has no content");
}

TEST(CFPropertyListXMLReader, DatesAreCompleteOrErrors)
{
    EXPECT_TRUE(CFEqual(ReadContent("<date>2001-01-01T00:00:00Z</date>"), Date(0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>2004-02-29T23:59:59Z</date>"), Date(99791999)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>1969-07-20T20:17:40Z</date>"), Date(-992490140)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>4032-01-02T00:00:00Z</date>"), Date(64092211200.0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>0000-01-01T00:00:00Z</date>"), Date(-63145526400.0)));
    for (const char* theText :
         {"", "2001-01-01", "2001-01-01T00:00:00", "2001-13-01T00:00:00Z", "2001-00-01T00:00:00Z",
          "2001-02-29T00:00:00Z", "1900-02-29T00:00:00Z", "2001-01-00T00:00:00Z", "2001-01-01T24:00:00Z",
          "2001-01-01T00:60:00Z", "2001-01-01T00:00:60Z", " 2001-01-01T00:00:00Z", "2001-01-01T00:00:00Zx"}) {
        EXPECT_EQ(ContentError(std::string("<date>") + theText + "</date>"), "a date is none") << theText;
    }
}

// Some programs do not fill the year with zeros.
TEST(CFPropertyListXMLReader, AYearMayBeShort)
{
    EXPECT_TRUE(CFEqual(ReadContent("<date>0001-01-01T00:00:00Z</date>"), Date(-63113904000.0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>1-01-01T00:00:00Z</date>"), Date(-63113904000.0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>998-12-31T23:59:59Z</date>"), Date(-31620067201.0)));
    for (const char* theText : {"-01-01T00:00:00Z", "20010-01-01T00:00:00Z", "+1-01-01T00:00:00Z",
                                "-1-01-01T00:00:00Z", "1-1-01T00:00:00Z", "1-01-01T0:00:00Z"}) {
        EXPECT_EQ(ContentError(std::string("<date>") + theText + "</date>"), "a date is none") << theText;
    }
}

TEST(CFPropertyListXMLReader, OfEqualKeysTheLastWins)
{
    EXPECT_TRUE(CFEqual(ReadContent("<dict><key>a</key><true/><key>a</key><false/></dict>"),
                        ObjectDictionary({{CFSTR("a"), kCFBooleanFalse}})));
}

TEST(CFPropertyListXMLReader, HeadersAndCommentsAreOptional)
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

// A file that somebody has edited by hand is not damaged.
TEST(CFPropertyListXMLReader, AttributesAndCommentsMayStandEverywhere)
{
    const auto theExpected =
        ObjectDictionary({{CFSTR("a"), ObjectArray({Integer(42), CFSTR("xy"), Data({1, 2, 3}), Date(0)})}});
    for (const char* theText :
         {"<plist version='1.0' x=\"/>\"><dict class=\"a>b\"><key n='1'>a</key><array x=y/z>"
          "<integer u='>'>42</integer><string lang = \"en\" >xy</string><data x=''>AQID</data>"
          "<date x=\"<\">2001-01-01T00:00:00Z</date></array></dict></plist>",
          "<?x?><!-- 1 --><!DOCTYPE plist><?y > ?><plist><!-- 2 --><dict><!-- 3 --><key><!-- 4 "
          "-->a</key><!-- 5 -->"
          "<array><?z?><integer>4<!-- 6 -->2</integer><string>x<!-- </string> -->y</string>"
          "<data>AQ<!-- 7 -->ID</data><date>2001-01-01T00:00:00Z<!-- 8 --></date><!-- 9 --></array></dict>"
          "<!-- 10 --></plist>"}) {
        EXPECT_EQ(ErrorOf(theText), "(read)");
        EXPECT_TRUE(CFEqual(ReadBytes(theText), theExpected)) << theText;
    }
    EXPECT_TRUE(CFEqual(ReadContent("<string x='/'/>"), CFSTR("")));
    EXPECT_EQ(ContentError("<string x='>abc</string>"), "the text is cut off");
    EXPECT_EQ(ContentError("<integer>4<!-- 2</integer>"), "the text is cut off");
}

TEST(CFPropertyListXMLReader, WhatStandsBehindTheEndDoesNoHarm)
{
    for (const char* theEnd : {"\n\n", "a note", "<!-- not closed", "<plist/>"}) {
        EXPECT_TRUE(CFEqual(ReadBytes(std::string("<plist><true/></plist>") + theEnd), kCFBooleanTrue));
    }
}

namespace {

std::string InUTF16(const std::string& theText, bool theIsBigEndian)
{
    std::string theBytes;
    for (const UniChar theUnit : UnitsOf(String(theText))) {
        const char theHalves[] = {static_cast<char>(theUnit >> 8), static_cast<char>(theUnit & 0xFF)};
        theBytes += theHalves[theIsBigEndian ? 0 : 1];
        theBytes += theHalves[theIsBigEndian ? 1 : 0];
    }
    return theBytes;
}

std::string WithEncoding(const std::string& theName, const std::string& theText)
{
    return "<?xml version=\"1.0\" encoding=\"" + theName + "\"?><plist><string>" + theText +
           "</string></plist>";
}

} // namespace

TEST(CFPropertyListXMLReader, AFileIsInTheEncodingThatItNames)
{
    const std::string kWide = WithEncoding("UTF-16", u8"\u00E9\U0001F600");
    const std::pair<std::string, Owned<CFStringRef>> kRows[] = {
        {WithEncoding("UTF-8", u8"\u00E9"), String(u8"\u00E9")},
        {WithEncoding("ISO-8859-1", "\xE9"), String(u8"\u00E9")},
        {WithEncoding("iso-8859-1", "\xE9"), String(u8"\u00E9")},
        {WithEncoding("us-ascii", "e"), String("e")},
        {WithEncoding("windows-1252", "\x80"), String(u8"\u20AC")},
        {WithEncoding("macintosh", "\x8E"), String(u8"\u00E9")},
        {WithEncoding("UTF-16", u8"\u00E9"), String(u8"\u00E9")},
        {"\xFE\xFF" + InUTF16(kWide, true), String(u8"\u00E9\U0001F600")},
        {"\xFF\xFE" + InUTF16(kWide, false), String(u8"\u00E9\U0001F600")},
        {InUTF16(kWide, true), String(u8"\u00E9\U0001F600")},
        {InUTF16(kWide, false), String(u8"\u00E9\U0001F600")},
        {"<?xml version='1.0' encoding = 'ISO-8859-1' ?><string>\xE9</string>", String(u8"\u00E9")},
        {"<?xml version='1.0' encoding?><string>x</string>", String("x")},
    };
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(CFEqual(ReadBytes(theRow.first), theRow.second)) << ErrorOf(theRow.first);
    }
    EXPECT_EQ(ErrorOf(WithEncoding("klingon", "x")), "its encoding is unknown");
    EXPECT_EQ(ErrorOf(WithEncoding("windows-1252", "\x81")), "it is not in its encoding");
    EXPECT_EQ(ErrorOf("\xFE\xFF" + InUTF16("<string>", true) + "\xD8\x3D" + InUTF16("</string>", true)),
              "it is not in its encoding");
}

TEST(CFPropertyListXMLReader, AMarkAtTheStartOfAStringIsACharacter)
{
    EXPECT_TRUE(CFEqual(ReadContent(u8"<string>\uFEFFa</string>"), String(Units{0xFEFF, 'a'})));
    EXPECT_TRUE(CFEqual(ReadContent(u8"<string>&#xFEFF;</string>"), String(Units{0xFEFF})));
}

TEST(CFPropertyListXMLReader, BrokenTextsAreErrors)
{
    const std::pair<std::string, const char*> kRows[] = {
        {"", "there is nothing"},
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

TEST(CFPropertyListXMLReader, TextsThatAreMadeToDoHarmAreErrors)
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

TEST(CFPropertyListXMLReader, EveryBeginningOfATextIsReadOrAnError)
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

TEST(CFPropertyListXMLReader, WhiteSpaceAloneIsAnEmptyDictionaryOnPurpose)
{
    EXPECT_TRUE(CFEqual(ReadBytes(" \n"), ObjectDictionary({})));
}
