// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDiagnostics.h"
#include "LmString.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <regex>

namespace {

OSStatus DisposeThing(int)
{
    return paramErr;
}

// Where it stands is another matter in the example than in the header.
std::string WithoutPlace(const std::string& theLine)
{
    return std::regex_replace(theLine, std::regex("^Source/Core/[A-Za-z/]+\\.(h|cpp), line [0-9]+: "), "");
}

} // namespace

TEST(LmDiagnostics, AreWrittenAsTheirHeaderShows)
{
    const char* const kShown[][2] = {
        // @rows 1
    };
    const LmString theName;
    const int theThing = 1;
    const int theType = 12;
    // @left 1
    const Lines theLines = StandardErrorCapture::TakeLines();
    ASSERT_EQ(theLines.size(), std::size(kShown));
    for (size_t theIndex = 0; theIndex < theLines.size(); ++theIndex) {
        EXPECT_NE(WithoutPlace(theLines[theIndex]), theLines[theIndex]);
        EXPECT_EQ(WithoutPlace(theLines[theIndex]), WithoutPlace(kShown[theIndex][1]));
    }
}
