// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Journal.h"

#include "TestJournal.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

using Inspect::Entry;
using Inspect::Journal;

namespace {

std::vector<std::uint64_t> NumbersOf(Journal& theJournal)
{
    std::vector<std::uint64_t> theNumbers;
    Entry theEntry;
    while (theJournal.Next(theEntry)) {
        theNumbers.push_back(theEntry.theNumber);
    }
    return theNumbers;
}

using Numbers = std::vector<std::uint64_t>;

std::string BeginLine(int theNumber, int theFile, const std::string& theDay = "2026-11-22T10:15:50Z")
{
    return R"({"n":)" + std::to_string(theNumber) +
           R"(,"t":0,"what":"begin","journal":"lmbindings","version":1,"started":")" + theDay +
           R"(","file":)" + std::to_string(theFile) + "}\n";
}

std::string LostLine(int theNumber)
{
    return R"({"n":)" + std::to_string(theNumber) +
           R"(,"t":0,"what":"lost","count":1})"
           "\n";
}

// A folder that is removed at the end.
class JournalFiles : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::string theTemplate = (std::filesystem::temp_directory_path() / "journal.XXXXXX").string();
        ASSERT_NE(::mkdtemp(theTemplate.data()), nullptr);
        mFolder = theTemplate;
    }
    void TearDown() override { std::filesystem::remove_all(mFolder); }

    std::string Write(const std::string& theName, const std::string& theText)
    {
        std::ofstream(mFolder / theName, std::ios::binary) << theText;
        return (mFolder / theName).string();
    }

    std::filesystem::path mFolder;
    std::ostringstream mErrors;
};

} // namespace

TEST(Journal, HandsOutItsEntries)
{
    TestJournal theText;
    theText.Made({1, "LmKeyValueStore", "radio"}, "store");
    theText.Ended();
    std::ostringstream theErrors;
    Journal theJournal = JournalWith(theText.GetText(), theErrors);
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 2, 3}));
    EXPECT_TRUE(theJournal.IsWhole());
    EXPECT_TRUE(theJournal.IsEnded());
    EXPECT_FALSE(theJournal.HasCallers());
    EXPECT_EQ(theJournal.GetTrouble(), "");
    EXPECT_EQ(theErrors.str(), "");
}

TEST(Journal, ReportsADamagedLineWithItsNumberAndGoesOn)
{
    TestJournal theText;
    theText.AddText("{\"n\":\n\n\xff\n");
    theText.AddText(std::string(Inspect::LineReader::kLongestLine + 1, 'x') + "\n");
    theText.Ended();
    theText.AddText("{\"n\":3,\"t\":0,\"wh");
    std::ostringstream theErrors;
    Journal theJournal = JournalWith(theText.GetText(), theErrors);
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 2}));
    EXPECT_EQ(theJournal.CountSkippedLines(), 4U);
    EXPECT_NE(theErrors.str().find("lminspect: test.journal, line 2 is skipped: "), std::string::npos);
    EXPECT_NE(theErrors.str().find("lminspect: test.journal, line 3 is skipped: "), std::string::npos);
    EXPECT_NE(theErrors.str().find("lminspect: test.journal, line 4 is skipped: "), std::string::npos);
    EXPECT_NE(
        theErrors.str().find("lminspect: test.journal, line 5 is skipped: it is longer than 4194304 bytes\n"),
        std::string::npos);
    EXPECT_EQ(theErrors.str().find("line 7"), std::string::npos);
}

TEST(Journal, NamesTwentyDamagedLinesAtMost)
{
    TestJournal theText;
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        theText.AddText("damaged\n");
    }
    std::ostringstream theErrors;
    Journal theJournal = JournalWith(theText.GetText(), theErrors);
    NumbersOf(theJournal);
    EXPECT_EQ(theJournal.CountSkippedLines(), 1000U);
    const std::string theReport = theErrors.str();
    EXPECT_NE(theReport.find("line 21 is skipped"), std::string::npos);
    EXPECT_EQ(theReport.find("line 22 is skipped"), std::string::npos);
    EXPECT_NE(theReport.find("lminspect: more lines are skipped, which are not named\n"), std::string::npos);
}

TEST(Journal, SkipsAnEntryThatDoesNotComeAfterTheOneBefore)
{
    std::ostringstream theErrors;
    Journal theJournal =
        JournalWith(BeginLine(1, 1) + LostLine(7) + LostLine(7) + LostLine(3) + LostLine(8), theErrors);
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 7, 8}));
    EXPECT_EQ(theJournal.CountMissing(), 5U);
    EXPECT_EQ(theErrors.str(),
              "lminspect: test.journal, line 3 is skipped: its number, 7, does not come after 7\n"
              "lminspect: test.journal, line 4 is skipped: its number, 3, does not come after 7\n");
}

TEST(Journal, RefusesAnotherVersionAndWhatIsNoJournal)
{
    std::ostringstream theErrors;
    Journal theLater = JournalWith(R"({"n":1,"t":0,"what":"begin","journal":"lmbindings","version":2})"
                                   "\n",
                                   theErrors);
    EXPECT_TRUE(NumbersOf(theLater).empty());
    EXPECT_EQ(theLater.GetTrouble(),
              "test.journal has version 2 of the format; this program reads version 1");

    Journal theForeign = JournalWith(R"({"n":1,"t":0,"what":"begin","journal":"other","version":1})"
                                     "\n",
                                     theErrors);
    EXPECT_TRUE(NumbersOf(theForeign).empty());
    EXPECT_EQ(theForeign.GetTrouble(), "test.journal is no journal of LmBindings");

    Journal theEmpty = JournalWith("", theErrors);
    EXPECT_TRUE(NumbersOf(theEmpty).empty());
    EXPECT_EQ(theEmpty.GetTrouble(), "test.journal holds no entry of a journal");
}

TEST(Journal, ReadsAPipeTwiceWhenItWasKept)
{
    int theEnds[2] = {};
    ASSERT_EQ(::pipe(theEnds), 0);
    const std::string theText = BeginLine(1, 1) + "damaged\n" + LostLine(2);
    ASSERT_EQ(::write(theEnds[1], theText.data(), theText.size()), static_cast<ssize_t>(theText.size()));
    ::close(theEnds[1]);
    std::ostringstream theErrors;
    Journal theJournal(Inspect::FilePointer(::fdopen(theEnds[0], "rb")), "pipe", theErrors);
    theJournal.KeepForRewind();
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 2}));
    const std::string theReport = theErrors.str();
    EXPECT_TRUE(theJournal.Rewind());
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 2}));
    EXPECT_EQ(theErrors.str(), theReport) << "what is wrong is reported once";
}

TEST_F(JournalFiles, ReadTheFileThatWasMovedAsideFirst)
{
    Write("a.journal.1", BeginLine(1, 1) + LostLine(2));
    Journal theJournal(Write("a.journal", BeginLine(3, 2) + LostLine(4)), mErrors);
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 2, 3, 4}));
    EXPECT_TRUE(theJournal.IsWhole());
    EXPECT_TRUE(theJournal.Rewind());
    EXPECT_EQ(NumbersOf(theJournal), (Numbers{1, 2, 3, 4}));
}

TEST_F(JournalFiles, LeaveOutAFileOfAnEarlierRun)
{
    Write("a.journal.1", BeginLine(1, 1) + LostLine(2));
    Journal theFirst(Write("a.journal", BeginLine(1, 1) + LostLine(9)), mErrors);
    EXPECT_EQ(NumbersOf(theFirst), (Numbers{1, 9}));

    Write("b.journal.1", BeginLine(1, 1, "2025-01-01T00:00:00Z") + LostLine(2));
    Journal theSecond(Write("b.journal", BeginLine(3, 2) + LostLine(4)), mErrors);
    EXPECT_EQ(NumbersOf(theSecond), (Numbers{3, 4}));
    EXPECT_FALSE(theSecond.IsWhole());
    EXPECT_EQ(theSecond.CountMissing(), 0U)
        << "what came before the first entry is not missing from the file";
}

TEST_F(JournalFiles, SayWhatCannotBeOpened)
{
    Journal theMissing((mFolder / "none").string(), mErrors);
    EXPECT_EQ(theMissing.GetTrouble(),
              (mFolder / "none").string() + " cannot be opened: No such file or directory");
    Journal theFolder(mFolder.string(), mErrors);
    EXPECT_EQ(theFolder.GetTrouble(), mFolder.string() + " is a folder");
    Entry theEntry;
    EXPECT_FALSE(theFolder.Next(theEntry));
}
