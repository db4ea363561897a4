// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BundleTestSupport.h"

namespace {

Owned<CFURLRef> OfPath(const std::string& thePath, bool theIsFolder = false)
{
    return Owned(CFURLCreateWithFileSystemPath(nullptr, String(thePath), kCFURLPOSIXPathStyle, theIsFolder));
}

Owned<CFURLRef> OfText(const std::string& theText, CFURLRef theBase = nullptr)
{
    return Owned(CFURLCreateWithString(nullptr, String(theText), theBase));
}

std::string Representation(CFURLRef theURL, bool theIsResolved = true)
{
    UInt8 theBuffer[1024];
    const bool theIsFile =
        CFURLGetFileSystemRepresentation(theURL, theIsResolved, theBuffer, sizeof theBuffer) != 0;
    return theIsFile ? reinterpret_cast<const char*>(theBuffer) : "none";
}

std::string Escaped(const std::string& theText, CFStringRef theToLeave = nullptr,
                    CFStringRef theToEscape = nullptr, CFStringEncoding theEncoding = kCFStringEncodingUTF8)
{
    return TakeText(CFURLCreateStringByAddingPercentEscapes(nullptr, String(theText), theToLeave, theToEscape,
                                                            theEncoding));
}

std::string Unescaped(const std::string& theText, CFStringRef theToLeave = CFSTR(""))
{
    return TakeText(CFURLCreateStringByReplacingPercentEscapes(nullptr, String(theText), theToLeave));
}

} // namespace

TEST(CFURL, APathBecomesTheTextOfAFile)
{
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfPath("/Users/me/a b#c%.txt"))),
              "file://localhost/Users/me/a%20b%23c%25.txt");
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfPath("/K\u00FCche", true))), "file://localhost/K%C3%BCche/");
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfPath("/", true))), "file://localhost/");
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfPath("/a/", true))), "file://localhost/a/");
}

TEST(CFURL, ThePathComesBack)
{
    for (const char* const thePath : {"/", "/a", "/a b/c?d;e&f", "/K\u00FCche/%20", "/a:b"}) {
        const Owned theURL = OfPath(thePath);
        EXPECT_EQ(Representation(theURL), thePath);
        EXPECT_EQ(TakeText(CFURLCopyFileSystemPath(theURL, kCFURLPOSIXPathStyle)), thePath);
        const Owned theAgain = OfText(TakeText(CFURLCopyAbsoluteURL(theURL)));
        EXPECT_EQ(Representation(theAgain), thePath);
    }
    EXPECT_EQ(Representation(OfPath("/folder", true)), "/folder");
}

TEST(CFURL, ARelativePathStandsInTheCurrentFolder)
{
    const Owned theURL = OfPath("a b/c");
    EXPECT_EQ(TakeText(CFStringCreateCopy(nullptr, CFURLGetString(theURL))), "a%20b/c");
    ASSERT_NE(CFURLGetBaseURL(theURL), nullptr);
    const std::string theFolder = std::filesystem::current_path().string();
    EXPECT_EQ(Representation(theURL), theFolder + "/a b/c");
    EXPECT_EQ(Representation(theURL, false), "a b/c");
    EXPECT_EQ(Representation(OfPath("a:b")), theFolder + "/a:b");
    EXPECT_EQ(Representation(OfPath("../x")),
              std::filesystem::current_path().parent_path().string() +
                  (std::filesystem::current_path().parent_path() == "/" ? "x" : "/x"));
}

TEST(CFURL, BytesOfAPathNeedNoEnd)
{
    const UInt8 theBytes[] = {'/', 'a', '/', 'b', 'x'};
    EXPECT_EQ(TakeText(CFURLCreateFromFileSystemRepresentation(nullptr, theBytes, 4, true)),
              "file://localhost/a/b/");
    const UInt8 theBad[] = {'/', 0xFF};
    EXPECT_EQ(CFURLCreateFromFileSystemRepresentation(nullptr, theBad, 2, false), nullptr);
    EXPECT_EQ(CFURLCreateFromFileSystemRepresentation(nullptr, theBad, 0, false), nullptr);
}

TEST(CFURL, WhatIsNoPathGivesNone)
{
    EXPECT_EQ(OfPath(""), nullptr);
    EXPECT_EQ(OfPath(std::string("/a\0b", 4)), nullptr);
    EXPECT_EQ(CFURLCreateWithFileSystemPath(nullptr, String(Units{'/', 0xD800}), kCFURLPOSIXPathStyle, false),
              nullptr);
    EXPECT_EQ(CFURLCreateWithFileSystemPath(nullptr, CFSTR("a:b"), kCFURLHFSPathStyle, false), nullptr);
    EXPECT_EQ(CFURLCreateWithFileSystemPath(nullptr, CFSTR("a"), kCFURLWindowsPathStyle, false), nullptr);
    EXPECT_EQ(CFURLCopyFileSystemPath(OfPath("/a"), kCFURLHFSPathStyle), nullptr);
}

TEST(CFURL, OnlyTheTextOfAURLIsOne)
{
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfText("http://me@host:80/a?b=c#d"))),
              "http://me@host:80/a?b=c#d");
    for (const char* const theText :
         {"http://host/a b", "a\"b", "a<b", "100%", "%4", "%zz", "K\u00FCche", "a\\b"}) {
        EXPECT_EQ(OfText(theText), nullptr) << theText;
    }
    const UInt8 theBytes[] = {'x', ':', 0xC3, 0xBC};
    EXPECT_EQ(TakeText(CFURLCreateWithBytes(nullptr, theBytes, 2, kCFStringEncodingUTF8, nullptr)), "x:");
    EXPECT_EQ(CFURLCreateWithBytes(nullptr, theBytes, 3, kCFStringEncodingUTF8, nullptr), nullptr);
}

TEST(CFURL, ItHasParts)
{
    const Owned theURL = OfText("http://me@host:80/a/b%20c.d%2Ee?q#f");
    EXPECT_EQ(TakeText(CFURLCopyScheme(theURL)), "http");
    EXPECT_EQ(TakeText(CFURLCopyHostName(theURL)), "host");
    EXPECT_EQ(TakeText(CFURLCopyPath(theURL)), "/a/b%20c.d%2Ee");
    EXPECT_EQ(TakeText(CFURLCopyLastPathComponent(theURL)), "b c.d.e");
    EXPECT_EQ(TakeText(CFURLCopyPathExtension(theURL)), "d.e");
    EXPECT_FALSE(CFURLHasDirectoryPath(theURL));
    EXPECT_EQ(Representation(theURL), "none");

    const Owned theBare = OfText("mailto:me");
    EXPECT_EQ(TakeText(CFURLCopyScheme(theBare)), "mailto");
    EXPECT_EQ(TakeText(CFURLCopyHostName(theBare)), "NULL");
    EXPECT_EQ(TakeText(CFURLCopyPathExtension(theBare)), "NULL");
    EXPECT_EQ(TakeText(CFURLCopyScheme(OfText("a/b"))), "NULL");
    EXPECT_EQ(TakeText(CFURLCopyHostName(OfText("http://[::1]:8080/"))), "[::1]");
    EXPECT_EQ(TakeText(CFURLCopyHostName(OfPath("/a"))), "localhost");
    EXPECT_EQ(TakeText(CFURLCopyLastPathComponent(OfPath("/", true))), "/");
    EXPECT_EQ(TakeText(CFURLCopyPathExtension(OfPath("/.hidden"))), "NULL");
    EXPECT_EQ(TakeText(CFURLCopyPathExtension(OfPath("/a.app", true))), "app");
    EXPECT_TRUE(CFURLHasDirectoryPath(OfPath("/a", true)));
}

TEST(CFURL, ARelativeOneIsResolvedAgainstItsBase)
{
    // From RFC 3986, 5.4.
    const Owned theBase = OfText("http://a/b/c/d;p?q");
    const std::pair<const char*, const char*> theRows[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g?y", "http://a/b/c/g?y"},
        {"#s", "http://a/b/c/d;p?q#s"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"..", "http://a/b/"},
        {"../g", "http://a/b/g"},
        {"../..", "http://a/"},
        {"../../../g", "http://a/g"},
        {"/./g", "http://a/g"},
        {"g;x=1/../y", "http://a/b/c/y"},
    };
    for (const auto& [theText, theResult] : theRows) {
        EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfText(theText, theBase))), theResult) << theText;
    }
    EXPECT_EQ(TakeText(CFURLCopyScheme(OfText("g", theBase))), "http");
    EXPECT_EQ(TakeText(CFURLCopyHostName(OfText("g", theBase))), "a");
    const Owned theOuter = OfText("http://host");
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfText("g", theOuter))), "http://host/g");
    const Owned theMiddle = OfText("x/", theOuter);
    EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(OfText("y", theMiddle))), "http://host/x/y");
}

TEST(CFURL, ComponentsComeAndGo)
{
    const Owned theFolder = OfPath("/a", true);
    EXPECT_EQ(TakeText(CFURLCreateCopyAppendingPathComponent(nullptr, theFolder, CFSTR("b c"), false)),
              "file://localhost/a/b%20c");
    EXPECT_EQ(TakeText(CFURLCreateCopyAppendingPathComponent(nullptr, OfPath("/a"), CFSTR("b"), true)),
              "file://localhost/a/b/");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingLastPathComponent(nullptr, OfPath("/a/b"))),
              "file://localhost/a/");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingLastPathComponent(nullptr, OfPath("/a/b", true))),
              "file://localhost/a/");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingLastPathComponent(nullptr, OfPath("/", true))),
              "file://localhost/");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingLastPathComponent(nullptr, OfText("x"))), "./");
}

TEST(CFURL, ExtensionsComeAndGo)
{
    EXPECT_EQ(TakeText(CFURLCreateCopyAppendingPathExtension(nullptr, OfPath("/a"), CFSTR("t t"))),
              "file://localhost/a.t%20t");
    EXPECT_EQ(TakeText(CFURLCreateCopyAppendingPathExtension(nullptr, OfPath("/a", true), CFSTR("app"))),
              "file://localhost/a.app/");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingPathExtension(nullptr, OfPath("/a.b.c"))),
              "file://localhost/a.b");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingPathExtension(nullptr, OfPath("/a.app", true))),
              "file://localhost/a/");
    EXPECT_EQ(TakeText(CFURLCreateCopyDeletingPathExtension(nullptr, OfPath("/.a"))), "file://localhost/.a");
}

TEST(CFURL, ARepresentationNeedsRoomForItsEnd)
{
    const Owned theURL = OfPath("/abc");
    UInt8 theBuffer[6] = "xxxxx";
    EXPECT_FALSE(CFURLGetFileSystemRepresentation(theURL, true, theBuffer, 4));
    EXPECT_EQ(theBuffer[0], 'x');
    EXPECT_TRUE(CFURLGetFileSystemRepresentation(theURL, true, theBuffer, 5));
    EXPECT_STREQ(reinterpret_cast<const char*>(theBuffer), "/abc");
    EXPECT_FALSE(CFURLGetFileSystemRepresentation(theURL, true, nullptr, 100));
    EXPECT_EQ(Representation(OfText("file:///a%00b")), "none");
    EXPECT_EQ(CFURLCopyFileSystemPath(OfText("file:///a%FF"), kCFURLPOSIXPathStyle), nullptr);
}

TEST(CFURL, EqualOnesHaveTheSameTextAndBase)
{
    const Owned theOne = OfPath("/a");
    const Owned theOther = OfText("file://localhost/a");
    EXPECT_TRUE(CFEqual(theOne, theOther));
    EXPECT_EQ(CFHash(theOne), CFHash(theOther));
    EXPECT_FALSE(CFEqual(theOne, OfPath("/a", true)));
    EXPECT_FALSE(CFEqual(OfText("x", theOne), OfText("x")));
    EXPECT_FALSE(CFEqual(OfText("x"), OfText("x", theOne)));
    EXPECT_TRUE(CFEqual(OfText("x", theOne), OfText("x", theOther)));
    EXPECT_EQ(CFGetTypeID(theOne), CFURLGetTypeID());
    EXPECT_NE(
        TakeText(CFCopyDescription(OfText("x", theOne))).find("{string = x, base = file://localhost/a}"),
        std::string::npos);
}

TEST(CFURL, CharactersAreEscaped)
{
    EXPECT_EQ(Escaped("a b/K\u00FCche?\U0001F600"), "a%20b/K%C3%BCche?%F0%9F%98%80");
    EXPECT_EQ(Escaped("100%#[]"), "100%25%23%5B%5D");
    EXPECT_EQ(Escaped("a b&c", CFSTR(" "), CFSTR("&")), "a b%26c");
    EXPECT_EQ(Escaped("K\u00FCche", nullptr, nullptr, kCFStringEncodingMacRoman), "K%9Fche");
    EXPECT_EQ(Escaped("\u3042", nullptr, nullptr, kCFStringEncodingMacRoman), "NULL");
    EXPECT_EQ(TakeText(CFURLCreateStringByAddingPercentEscapes(nullptr, String(Units{'a', 0xD83D}), nullptr,
                                                               nullptr, kCFStringEncodingUTF8)),
              "NULL");
}

TEST(CFURL, EscapesAreReplaced)
{
    EXPECT_EQ(Unescaped("a%20b%C3%BC%2F"), "a b\u00FC/");
    EXPECT_EQ(Unescaped("a%20b%2F%2f", CFSTR("/")), "a b%2F%2f");
    EXPECT_EQ(Unescaped("100% %4 %zz"), "100% %4 %zz");
    EXPECT_EQ(Unescaped("%FF"), "NULL");
    EXPECT_EQ(Unescaped("%C3"), "NULL");
    EXPECT_EQ(TakeText(CFURLCreateStringByReplacingPercentEscapes(nullptr, CFSTR("a%20b"), nullptr)),
              "a%20b");
}
