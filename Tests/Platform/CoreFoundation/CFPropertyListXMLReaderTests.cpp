// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

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
