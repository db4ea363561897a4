// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "JournalReader.h"

#include "LmKeyValueBinding.h"

#include <cstdlib>
#include <gtest/gtest.h>

// Memory that runs out while something is written costs entries, and nothing else.

namespace {

int NumberOf(const std::string& theLine)
{
    return std::stoi(theLine.substr(5));
}

} // namespace

TEST(JournalWithoutMemory, LosesEntriesAndCountsThem)
{
    bool hasFailed = true;
    int theLost = 0;
    for (std::size_t theNumber = 1; hasFailed; ++theNumber) {
        LmKeyValueStore theStore;
        theStore.SetKeyValue("volume", LmValue(40));
        TestJournal theJournal;
        AllocationFailures theFailures(theNumber);
        // The library itself needs no memory for this.
        theStore.SetKeyPathValue("volume", LmValue(55));
        theFailures.Stop();
        hasFailed = theFailures.HasFailed();
        EXPECT_EQ(theStore.GetKeyPathValue("volume").GetSInt32(), 55);

        theStore.NotifyObservers("volume", true);
        const Lines theLines = theJournal.Take();
        int theLast = 1;
        for (const std::string& theLine : theLines) {
            EXPECT_GT(NumberOf(theLine), theLast);
            EXPECT_EQ(theLine.back(), '}');
            theLast = NumberOf(theLine);
            theLost += theLine.find(R"("what":"lost","count":1})") != std::string::npos ? 1 : 0;
        }
        EXPECT_NE(theLines.back().find(R"("what":"notify")"), std::string::npos) << theLines.back();
    }
    EXPECT_GT(theLost, 0);
}

TEST(JournalWithoutMemory, IsNotBegun)
{
    const JournalFolder theFolder;
    const std::string thePath = theFolder.GetPath("journal");
    LmJournalSettings theSettings;
    theSettings.theFile = thePath.c_str();
    bool hasFailed = true;
    int theRefused = 0;
    for (std::size_t theNumber = 1; hasFailed; ++theNumber) {
        AllocationFailures theFailures(theNumber);
        const bool isBegun = LmBeginJournal(theSettings);
        theFailures.Stop();
        hasFailed = theFailures.HasFailed();
        LmEndJournal();
        theRefused += isBegun ? 0 : 1;
        StandardErrorCapture::TakeText();
    }
    EXPECT_GT(theRefused, 0);
}

TEST(JournalWithoutMemory, HasNoDoor)
{
    const JournalFolder theFolder;
    ::setenv("XDG_RUNTIME_DIR", theFolder.GetPath(".").c_str(), 1);
    int theRefused = 0;
    FailEachAllocation([&](AllocationFailures& theFailures) {
        const bool isAllowed = LmAllowAttaching(true);
        theFailures.Stop();
        EXPECT_EQ(StandardErrorCapture::TakeLines().size(), isAllowed ? 0U : 1U);
        theRefused += isAllowed ? 0 : 1;
        LmAllowAttaching(false);
    });
    EXPECT_GT(theRefused, 0);
    ::unsetenv("XDG_RUNTIME_DIR");
}
