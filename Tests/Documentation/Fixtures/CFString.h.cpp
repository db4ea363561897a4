// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TestStrings.h"

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

const UniChar kUnits[] = {'u', 'n', 'i', 't', 's', 0};
const unsigned char kPascal[] = {6, 'P', 'a', 's', 'c', 'a', 0x8E};

template <typename... Arguments>
std::string Format(const std::string& theFormat, Arguments... theArguments)
{
    const TestString theText(theFormat.c_str());
    const CFStringRef theResult = CFStringCreateWithFormat(nullptr, nullptr, theText.Get(), theArguments...);
    const std::string theBytes = GetText(theResult);
    CFRelease(theResult);
    return theBytes;
}

} // namespace

TEST(CFString, KnowsTheFormatsThatItsHeaderLists)
{
    const char* const kShown[][2] = {
        // @rows 1
    };
    std::map<std::string, std::string> theResults;
    for (const auto& theRow : kShown) {
        theResults[theRow[0]] = theRow[0];
    }
    const int theNumber = 7;
    const CFNumberRef theObject = CFNumberCreate(nullptr, kCFNumberIntType, &theNumber);
    EXPECT_EQ(Format(theResults.at("%@"), theObject), "7");
    EXPECT_EQ(Format(theResults.at("%@"), CFSTR("text")), "text");
    EXPECT_EQ(Format(theResults.at("%@"), nullptr), "(null)");
    EXPECT_EQ(Format(theResults.at("%C"), 0xE9), "é");
    EXPECT_EQ(Format(theResults.at("%S"), kUnits), "units");
    EXPECT_EQ(Format(theResults.at("%P"), kPascal), "Pascaé");
    EXPECT_EQ(Format(theResults.at("%s"), "Mac\x8E"), "Macé");
    EXPECT_EQ(Format("%2$d, " + theResults.at("%1$d"), 1, 2), "2, 1");
    EXPECT_EQ(theResults.size(), 6U);
    CFRelease(theObject);
}
