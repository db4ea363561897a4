// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LineReader.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <unistd.h>

using Inspect::LineReader;
using Result = LineReader::Result;

TEST(LineReader, HandsOutEachLineWithItsNumber)
{
    LineReader theReader(FileWith("one\n\nthree\n"));
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "one");
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "");
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "three");
    EXPECT_EQ(theReader.GetNumber(), 3U);
    EXPECT_EQ(theReader.Next(), Result::End);
    EXPECT_FALSE(theReader.IsCutOff());
}

TEST(LineReader, LeavesOutWhatHasNoLineFeed)
{
    LineReader theReader(FileWith("whole\nhal"));
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.Next(), Result::End);
    EXPECT_TRUE(theReader.IsCutOff());
}

TEST(LineReader, HandsOutLinesThatAreLongerThanABlock)
{
    const std::string theLong(std::size_t{3} << 20U, 'x');
    LineReader theReader(FileWith("first\n" + theLong + "\nlast\n"));
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), theLong);
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "last");
}

TEST(LineReader, PassesOverALineThatIsTooLongAndGoesOnBehindIt)
{
    for (const std::size_t theExtra : {std::size_t{1}, std::size_t{300000}, std::size_t{9000000}}) {
        LineReader theReader(FileWith(std::string(LineReader::kLongestLine + theExtra, 'x') + "\nlast\n"));
        EXPECT_EQ(theReader.Next(), Result::TooLong);
        EXPECT_EQ(theReader.GetNumber(), 1U);
        EXPECT_EQ(theReader.Next(), Result::Line);
        EXPECT_EQ(theReader.GetLine(), "last");
        EXPECT_EQ(theReader.GetNumber(), 2U);
    }
}

TEST(LineReader, TakesALineOfTheGreatestLength)
{
    const std::string theLongest(LineReader::kLongestLine, 'x');
    LineReader theReader(FileWith(theLongest + "\n"));
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine().size(), LineReader::kLongestLine);
}

TEST(LineReader, EndsInALineThatIsTooLongAndCutOff)
{
    LineReader theReader(FileWith(std::string(LineReader::kLongestLine * 3, 'x')));
    EXPECT_EQ(theReader.Next(), Result::End);
    EXPECT_TRUE(theReader.IsCutOff());
}

TEST(LineReader, ReadsAgainFromTheBeginning)
{
    LineReader theReader(FileWith("one\ntwo\n"));
    theReader.Next();
    theReader.Next();
    EXPECT_TRUE(theReader.Rewind());
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "one");
    EXPECT_EQ(theReader.GetNumber(), 1U);
}

TEST(LineReader, HandsOutALineOfAPipeBeforeMoreIsWritten)
{
    int theEnds[2] = {};
    ASSERT_EQ(::pipe(theEnds), 0);
    LineReader theReader(Inspect::FilePointer(::fdopen(theEnds[0], "rb")));
    ASSERT_EQ(::write(theEnds[1], "one\ntw", 6), 6);
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "one");
    ASSERT_EQ(::write(theEnds[1], "o\n", 2), 2);
    EXPECT_EQ(theReader.Next(), Result::Line);
    EXPECT_EQ(theReader.GetLine(), "two");
    ::close(theEnds[1]);
    EXPECT_EQ(theReader.Next(), Result::End);
    EXPECT_FALSE(theReader.Rewind());
}

TEST(LineReader, SaysWhenTheSystemCannotReadOn)
{
    LineReader theReader(Inspect::FilePointer(std::fopen("/", "rb")));
    EXPECT_EQ(theReader.Next(), Result::Failure);
}
