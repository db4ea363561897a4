// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The form that Mac OS X wrote up to 10.2: the leaves are strings and data.

#include "CFPropertyListTestSupport.h"

TEST(CFPropertyListOpenStepReader, Objects)
{
    const std::pair<std::string, Owned<CFPropertyListRef>> kRows[] = {
        {"word", Owned<CFPropertyListRef>(CFRetain(CFSTR("word")))},
        {"a-b_c$/:.9", Owned<CFPropertyListRef>(CFRetain(CFSTR("a-b_c$/:.9")))},
        {"42", Owned<CFPropertyListRef>(CFRetain(CFSTR("42")))},
        {"\"two words\"", Owned<CFPropertyListRef>(CFRetain(CFSTR("two words")))},
        {"'two \"words\"'", Owned<CFPropertyListRef>(CFRetain(CFSTR("two \"words\"")))},
        {"{ a = b; }", Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({{CFSTR("a"), CFSTR("b")}})))},
        {"{a=b;c={};\"\"=();}",
         Owned<CFPropertyListRef>(CFRetain(ObjectDictionary(
             {{CFSTR("a"), CFSTR("b")}, {CFSTR("c"), ObjectDictionary({})}, {CFSTR(""), ObjectArray({})}})))},
        {"{ a; }", Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({{CFSTR("a"), CFSTR("a")}})))},
        {"a = b; \"c\" = (d);\n", Owned<CFPropertyListRef>(CFRetain(ObjectDictionary(
                                      {{CFSTR("a"), CFSTR("b")}, {CFSTR("c"), ObjectArray({CFSTR("d")})}})))},
        {"(a, b)", Owned<CFPropertyListRef>(CFRetain(ObjectArray({CFSTR("a"), CFSTR("b")})))},
        {"(a, (b), )",
         Owned<CFPropertyListRef>(CFRetain(ObjectArray({CFSTR("a"), ObjectArray({CFSTR("b")})})))},
        {"<0fbd77 1C>", Owned<CFPropertyListRef>(CFRetain(Data({0x0F, 0xBD, 0x77, 0x1C})))},
        {"<dead>", Owned<CFPropertyListRef>(CFRetain(Data({0xDE, 0xAD})))},
        {"<>", Owned<CFPropertyListRef>(CFRetain(Data({})))},
        {"// a comment\n{ /* another } */ a = /**/ b; }",
         Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({{CFSTR("a"), CFSTR("b")}})))},
        {" \n", Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({})))},
        {"{ a = 1; a = 2; }",
         Owned<CFPropertyListRef>(CFRetain(ObjectDictionary({{CFSTR("a"), CFSTR("2")}})))},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(ErrorOf(theRow.first), "(read)") << theRow.first;
        EXPECT_TRUE(CFEqual(ReadBytes(theRow.first), theRow.second)) << theRow.first;
    }
}

TEST(CFPropertyListOpenStepReader, EscapesInQuotedStrings)
{
    const std::pair<std::string, Owned<CFStringRef>> kRows[] = {
        {R"("\\\"\'\n\t\a\b\f\r\v")", String("\\\"'\n\t\a\b\f\r\v")},
        {R"("\U20AC\Ue9 \Ud83d\Ude00")", String(u8"\u20AC\u00E9 \U0001F600")},
        {R"("\101\60\0")", String(Units{'A', '0', 0})},
        {R"("\351\335")", String(u8"\u00D8\u00E9")}, // bytes of the NeXTSTEP encoding
        {"\"a\\\nb\"", String("a\nb")},
        {u8"\"\u00E9\\\u00E9\"", String(u8"\u00E9\u00E9")},
        {u8"\"\uFEFF\"", String(Units{0xFEFF})},
    };
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(CFEqual(ReadBytes(theRow.first), theRow.second))
            << theRow.first << " " << ErrorOf(theRow.first);
    }
}

TEST(CFPropertyListOpenStepReader, TheFormIsTold)
{
    CFPropertyListFormat theFormat = 0;
    const Owned<CFPropertyListRef> theList(
        CFPropertyListCreateWithData(nullptr, DataOf("{ a = b; }"), 0, &theFormat, nullptr));
    EXPECT_TRUE(CFEqual(theList, ObjectDictionary({{CFSTR("a"), CFSTR("b")}})));
    EXPECT_EQ(theFormat, kCFPropertyListOpenStepFormat);
}

TEST(CFPropertyListOpenStepReader, BrokenTextsAreErrors)
{
    const std::pair<std::string, const char*> kRows[] = {
        {"random words", "a semicolon is missing"},
        {"{ a = b }", "a semicolon is missing"},
        {"{ a = b;", "the end of a dictionary is missing"},
        {"{ = b; }", "an object is expected"},
        {"{ (a) = b; }", "an object is expected"},
        {"{ a = ; }", "an object is expected"},
        {"(a b)", "a comma is missing"},
        {"(a", "a comma is missing"},
        {"(a,", "the text is cut off"},
        {"(", "the text is cut off"},
        {"(a) b", "there is something behind the end"},
        {"{} {}", "there is something behind the end"},
        {"\"abc", "the text is cut off"},
        {"\"abc\\", "the text is cut off"},
        {"/* abc", "the text is cut off"},
        {"(<0f) )", "data is not hexadecimal"},
        {"<0f1>", "data is not hexadecimal"},
        {"(<0f", "the text is cut off"},
        {std::string("\0\1\2\3", 4), "an object is expected"},
        {"\1\2\3", "an object is expected"},
        {"\"\xE9\"", "a string is not in UTF-8"},
        {R"("\Ud83d")", "a string has half of a surrogate pair"},
        {Repeated("(", 100000), "the nesting is too deep"},
        {Repeated("{a=", 100000), "the nesting is too deep"},
        {Repeated("{a=", 510) + "{b;}" + Repeated(";}", 510), "(read)"},
        {Repeated("{a=", 511) + "{b;}" + Repeated(";}", 511), "the nesting is too deep"},
        {Repeated("(", 511) + "a" + Repeated(")", 511), "(read)"},
        {Repeated("(", 512) + "a" + Repeated(")", 512), "the nesting is too deep"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(ErrorOf(theRow.first), theRow.second) << theRow.first.substr(0, 50);
    }
}

TEST(CFPropertyListOpenStepReader, EveryBeginningIsReadOrRefused)
{
    const std::string theText = "{ a = (b, \"c\\U20ac\", <0f0f>); /* x */ \"d\" = { e; }; }";
    for (size_t theLength = 1; theLength < theText.size(); ++theLength) {
        EXPECT_NE(ErrorOf(theText.substr(0, theLength)), "(read)") << theLength;
    }
    EXPECT_EQ(ErrorOf(theText), "(read)");
}
