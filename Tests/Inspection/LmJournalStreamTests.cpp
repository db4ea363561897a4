// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalStream.h"

#include "JournalReader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool WriteLine(LmJournalStream& theStream, std::string theLine)
{
    return theStream.Write(theLine);
}

} // namespace

TEST(LmJournalStream, HasEachLineInTheFileAtOnce)
{
    const JournalFolder theFolder;
    LmJournalStream theStream(theFolder.GetPath("journal"), 0);
    EXPECT_TRUE(WriteLine(theStream, "one"));
    EXPECT_EQ(ReadJournalLines(theFolder.GetPath("journal")), Lines{"one"});
    EXPECT_TRUE(WriteLine(theStream, "two"));
    EXPECT_EQ(ReadJournalLines(theFolder.GetPath("journal")), (Lines{"one", "two"}));
}

TEST(LmJournalStream, OverwritesWhatIsThere)
{
    const JournalFolder theFolder;
    WriteLine(*std::make_unique<LmJournalStream>(theFolder.GetPath("journal"), 0), "old");
    LmJournalStream theStream(theFolder.GetPath("journal"), 0);
    WriteLine(theStream, "new");
    EXPECT_EQ(ReadJournalLines(theFolder.GetPath("journal")), Lines{"new"});
}

TEST(LmJournalStream, IsFullWhenALineAndItsLineFeedWouldPassTheLimit)
{
    const JournalFolder theFolder;
    LmJournalStream theStream(theFolder.GetPath("journal"), 10);
    EXPECT_FALSE(theStream.IsFullFor(100)); // an empty file takes any line
    WriteLine(theStream, "1234");
    EXPECT_FALSE(theStream.IsFullFor(4));
    EXPECT_TRUE(theStream.IsFullFor(5));
}

TEST(LmJournalStream, KeepsOneOlderFile)
{
    const JournalFolder theFolder;
    LmJournalStream theStream(theFolder.GetPath("journal"), 10);
    for (const char* theLine : {"one", "two", "three"}) {
        theStream.Renew();
        WriteLine(theStream, theLine);
    }
    EXPECT_EQ(ReadJournalLines(theFolder.GetPath("journal")), Lines{"three"});
    EXPECT_EQ(ReadJournalLines(theFolder.GetPath("journal.1")), Lines{"two"});
}

TEST(LmJournalStream, HasNoLimitOnAPipe)
{
    const JournalFolder theFolder;
    ASSERT_EQ(mkfifo(theFolder.GetPath("journal").c_str(), 0600), 0);
    const int theReader = open(theFolder.GetPath("journal").c_str(), O_RDONLY | O_NONBLOCK);
    LmJournalStream theStream(theFolder.GetPath("journal"), 4);
    EXPECT_TRUE(WriteLine(theStream, "12345"));
    EXPECT_FALSE(theStream.IsFullFor(100));
    char theText[20] = "";
    EXPECT_EQ(read(theReader, theText, sizeof theText), 6);
    EXPECT_STREQ(theText, "12345\n");
    close(theReader);
}

TEST(LmJournalStream, LosesALineThatTheDiskHasNoRoomFor)
{
    LmJournalStream theStream("/dev/full", 4);
    EXPECT_TRUE(theStream.IsOpen());
    EXPECT_FALSE(WriteLine(theStream, "one"));
    EXPECT_FALSE(WriteLine(theStream, "two"));
    EXPECT_FALSE(theStream.IsFullFor(100)); // a device is not renamed
}

TEST(LmJournalStream, IsNotOpenWhereNoFileCanBe)
{
    LmJournalStream theStream("/nowhere/at/all", 0);
    EXPECT_FALSE(theStream.IsOpen());
    EXPECT_FALSE(WriteLine(theStream, "one"));
}
