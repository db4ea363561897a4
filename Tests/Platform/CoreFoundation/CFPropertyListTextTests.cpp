// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

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

TEST(CFPropertyListText, AFileIsInTheEncodingThatItNames)
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

TEST(CFPropertyListText, AMarkAtTheStartOfAStringIsACharacter)
{
    EXPECT_TRUE(CFEqual(ReadContent(u8"<string>\uFEFFa</string>"), String(Units{0xFEFF, 'a'})));
    EXPECT_TRUE(CFEqual(ReadContent(u8"<string>&#xFEFF;</string>"), String(Units{0xFEFF})));
}
