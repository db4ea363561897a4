// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @prose 2 inspect.Attach.IsUsedOnProgramsThatRun attaches in the same way, to a program of its own
// @prose 1 inspection.LmJournalFile switches a journal on in the same way, for a program of its own

#include "LmJournalFile.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmStringTransforms.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

const char kExample[] =
    // @text 3
    ;

std::vector<std::string> LinesWithoutTimes(std::istream&& theStream)
{
    static const std::regex kTime("\"t\":[0-9]+,");
    std::vector<std::string> theLines;
    for (std::string theLine; std::getline(theStream, theLine);) {
        theLines.push_back(std::regex_replace(theLine, kTime, ""));
    }
    return theLines;
}

} // namespace

TEST(Journal, OfAChangeIsAsThePageShows)
{
    const std::string theFile = testing::TempDir() + "LmDocumentedJournal";
    LmJournalSettings theSettings;
    theSettings.theFile = theFile.c_str();
    ASSERT_TRUE(LmBeginJournal(theSettings));
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theSlider;
    LmKeyValueBinding theText;
    LmNameObject(theRadio, "radio");
    LmNameObject(theSlider, "slider");
    LmNameObject(theText, "text");
    theRadio.SetKeyPathValue("volume", LmValue(40));
    theSlider.Bind("value", &theRadio, "volume", nullptr, nullptr);
    theText.Bind("value", &theRadio, "volume", new LmToStringTransform, new LmFromStringTransform);
    theRadio.SetKeyPathValue("volume", LmValue(55));
    LmEndJournal();
    std::vector<std::string> theLines = LinesWithoutTimes(std::ifstream(theFile));
    std::remove(theFile.c_str());
    theLines.pop_back(); // the end
    const std::vector<std::string> theShown = LinesWithoutTimes(std::istringstream(kExample));
    ASSERT_GE(theLines.size(), theShown.size());
    EXPECT_EQ(std::vector<std::string>(theLines.end() - static_cast<std::ptrdiff_t>(theShown.size()),
                                       theLines.end()),
              theShown);
}
