// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What words a bundle finds in a .strings file.

#include "BundleTestSupport.h"

namespace {

// The text for "key" in a table of these bytes; "none" where there is none.
std::string WordIn(const std::string& theBytes)
{
    const TemporaryFolder theFolder;
    theFolder.Write("B.app/Contents/Resources/Localizable.strings", theBytes);
    const Owned theBundle(CFBundleCreate(nullptr, theFolder.URL("B.app")));
    return TakeText(CFBundleCopyLocalizedString(theBundle, CFSTR("key"), CFSTR("none"), nullptr));
}

std::string InUTF16(const std::string& theText, bool theIsBigEndian)
{
    std::string theBytes = theIsBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char theCharacter : theText) {
        theBytes += theIsBigEndian ? std::string{'\0', theCharacter} : std::string{theCharacter, '\0'};
    }
    return theBytes;
}

} // namespace

TEST(StringsTable, LinesHaveKeysAndTexts)
{
    EXPECT_EQ(WordIn("\"key\" = \"value\";"), "value");
    EXPECT_EQ(WordIn("\"other\" = \"a\";\n\"key\" = \"value\";\n"), "value");
    EXPECT_EQ(WordIn("key = value;"), "value");
    EXPECT_EQ(WordIn("key;"), "key");
    EXPECT_EQ(WordIn("{ key = value; }"), "value");
    EXPECT_EQ(WordIn(""), "none");
}

TEST(StringsTable, CommentsAreLeftOut)
{
    EXPECT_EQ(WordIn("/* key = a; */ key = /* b */ value; // c"), "value");
    EXPECT_EQ(WordIn("// key = a;\nkey = value;"), "value");
    EXPECT_EQ(WordIn("key = \"/* no comment */ // none\";"), "/* no comment */ // none");
}

TEST(StringsTable, EscapesAreRead)
{
    EXPECT_EQ(WordIn("key = \"a\\\"b\\\\c\\nd\\te\";"), "a\"b\\c\nd\te");
    EXPECT_EQ(WordIn("key = \"K\\U00FCche\";"), "K\u00FCche");
    EXPECT_EQ(WordIn("\"k\\U0065y\" = value;"), "value");
}

TEST(StringsTable, TextIsInItsEncoding)
{
    EXPECT_EQ(WordIn("key = \"K\u00FCche\";"), "K\u00FCche");
    EXPECT_EQ(WordIn("\uFEFFkey = \"K\u00FCche\";"), "K\u00FCche");
    EXPECT_EQ(WordIn(InUTF16("key = \"value\";", true)), "value");
    EXPECT_EQ(WordIn(InUTF16("key = \"value\";", false)), "value");
    EXPECT_EQ(WordIn("key = \"K\x9F"
                     "che\";"),
              "K\u00FCche")
        << "MacRoman";
}

TEST(StringsTable, APropertyListInXMLIsATableToo)
{
    EXPECT_EQ(WordIn("<?xml version=\"1.0\"?><plist "
                     "version=\"1.0\"><dict><key>key</key><string>value</string></dict></plist>"),
              "value");
}

TEST(StringsTable, WhatIsNoTableHasNoTexts)
{
    for (const char* const theText : {"key", "(key, value)", "key = value", "key = \"value", "\"key = value;",
                                      "key = (value);", "key = {a = b;};", "= value;", "key == value;", "}",
                                      "/* key = value;", "key = value; }", "key = \"\\UD800\";"}) {
        EXPECT_EQ(WordIn(theText), "none") << theText;
    }
    EXPECT_EQ(WordIn(std::string("\xFF\xFEk", 3)), "none");
    EXPECT_EQ(WordIn(std::string(1000000, '{')), "none");
    EXPECT_EQ(WordIn("bplist00" + std::string(40, '\xFF')), "none");
}
