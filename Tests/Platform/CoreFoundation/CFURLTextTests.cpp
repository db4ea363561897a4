// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The parts of texts, as what is made of them shows.

#include "BundleTestSupport.h"

namespace {

struct PartsRow
{
    const char* theText;
    const char* theScheme;
    const char* theHost;
    const char* thePath;
};

} // namespace

TEST(CFURLText, TextsFallIntoParts)
{
    const PartsRow theRows[] = {
        {"http://host/path", "http", "host", "/path"},
        {"http://host", "http", "host", ""},
        {"http:", "http", "NULL", ""},
        {"//host/path", "NULL", "host", "/path"},
        {"file:///path", "file", "NULL", "/path"},
        {"a/b:c", "NULL", "NULL", "a/b:c"},
        {"1a:b", "NULL", "NULL", "1a:b"},
        {"x+y-z.1:b", "x+y-z.1", "NULL", "b"},
        {":b", "NULL", "NULL", ":b"},
        {"a?b:c", "NULL", "NULL", "a"},
        {"a#b?c", "NULL", "NULL", "a"},
        {"http://host?q", "http", "host", ""},
        {"", "NULL", "NULL", ""},
    };
    for (const PartsRow& theRow : theRows) {
        const Owned theURL(CFURLCreateWithString(nullptr, String(theRow.theText), nullptr));
        ASSERT_NE(theURL, nullptr) << theRow.theText;
        EXPECT_EQ(TakeText(CFURLCopyScheme(theURL)), theRow.theScheme) << theRow.theText;
        EXPECT_EQ(TakeText(CFURLCopyHostName(theURL)), theRow.theHost) << theRow.theText;
        EXPECT_EQ(TakeText(CFURLCopyPath(theURL)), theRow.thePath) << theRow.theText;
        EXPECT_EQ(TakeText(CFURLCopyAbsoluteURL(theURL)), theRow.theText);
    }
}
