// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Reading and writing of open files.

#include "FileTestSupport.h"

#include <limits>

namespace {

class FileForks : public FolderWithReferences
{
protected:
    static FSIORefNum Open(const FSRef& theFile, SInt8 thePermission)
    {
        FSIORefNum theNumber = 0;
        EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, thePermission, &theNumber), noErr);
        return theNumber;
    }

    // What a call has read, and its status where that is none.
    static std::string Read(FSIORefNum theFork, UInt16 theMode, SInt64 theOffset, ByteCount theCount)
    {
        std::string theBytes(theCount, '?');
        ByteCount theActual = 99;
        const OSErr theStatus =
            FSReadFork(theFork, theMode, theOffset, theCount, theBytes.data(), &theActual);
        theBytes.resize(theActual);
        return theStatus == noErr ? theBytes : theBytes + " " + std::to_string(theStatus);
    }

    static OSErr Write(FSIORefNum theFork, UInt16 theMode, SInt64 theOffset, const std::string& theBytes)
    {
        ByteCount theActual = 0;
        const OSErr theStatus =
            FSWriteFork(theFork, theMode, theOffset, theBytes.size(), theBytes.data(), &theActual);
        EXPECT_EQ(theActual, theStatus == noErr ? theBytes.size() : 0U);
        return theStatus;
    }

    using FolderWithReferences::Write;
};

} // namespace

TEST_F(FileForks, AreReadFromEachKindOfPlace)
{
    const FSRef theFile = Write("a", "0123456789");
    const FSIORefNum theFork = Open(theFile, fsRdPerm);
    EXPECT_EQ(Read(theFork, fsAtMark, 0, 3), "012");
    EXPECT_EQ(Read(theFork, fsAtMark, 5, 2), "34") << "the offset does not count there";
    EXPECT_EQ(Read(theFork, fsFromStart, 1, 2), "12");
    EXPECT_EQ(Read(theFork, fsFromMark, 2, 2), "56");
    EXPECT_EQ(Read(theFork, fsFromMark, -4, 1), "3");
    EXPECT_EQ(Read(theFork, fsFromLEOF, -3, 3), "789");
    SInt64 thePosition = 0;
    EXPECT_EQ(FSGetForkPosition(theFork, &thePosition), noErr);
    EXPECT_EQ(thePosition, 10);
    EXPECT_EQ(Read(theFork, fsFromStart | 0x0020, 0, 1), "0") << "a hint for caches";
    EXPECT_EQ(FSCloseFork(theFork), noErr);
}

TEST_F(FileForks, EndWhereTheFileEnds)
{
    const FSIORefNum theFork = Open(Write("a", "abc"), fsRdPerm);
    EXPECT_EQ(Read(theFork, fsFromStart, 1, 5), "bc -39");
    EXPECT_EQ(Read(theFork, fsAtMark, 0, 1), " -39");
    EXPECT_EQ(Read(theFork, fsFromStart, 100, 1), " -39");
    EXPECT_EQ(Read(theFork, fsAtMark, 0, 0), "");
    EXPECT_EQ(Read(theFork, fsFromStart, -1, 1), " -40");
    EXPECT_EQ(Read(theFork, fsFromLEOF, std::numeric_limits<SInt64>::max(), 1), " -40");
    EXPECT_EQ(Read(theFork, fsFromMark, std::numeric_limits<SInt64>::min(), 1), " -40");
    EXPECT_EQ(FSReadFork(theFork, fsFromStart, 0, 1, nullptr, nullptr), paramErr);
    EXPECT_EQ(FSCloseFork(theFork), noErr);
}

TEST_F(FileForks, AreWrittenAndKeepWhatTheyGot)
{
    const FSRef theFile = Write("a", "0123456789");
    const FSIORefNum theFork = Open(theFile, fsRdWrPerm);
    EXPECT_EQ(Write(theFork, fsFromStart, 2, "xy"), noErr);
    EXPECT_EQ(Write(theFork, fsAtMark, 0, "z"), noErr);
    EXPECT_EQ(Write(theFork, fsFromLEOF, 1, "!"), noErr);
    EXPECT_EQ(FSWriteFork(theFork, fsAtMark, 0, 1, "?", nullptr), noErr);
    EXPECT_EQ(FSFlushFork(theFork), noErr);
    EXPECT_EQ(Read(theFork, fsFromStart, 0, 13), std::string("01xyz56789\0!?", 13));
    EXPECT_EQ(Write(theFork, fsFromStart, -1, "x"), posErr);
    EXPECT_EQ(FSWriteFork(theFork, fsFromStart, 0, 1, nullptr, nullptr), paramErr);
    EXPECT_EQ(FSCloseFork(theFork), noErr);
    const FSIORefNum theNext = Open(theFile, fsRdPerm);
    EXPECT_EQ(Read(theNext, fsFromStart, 0, 5), "01xyz");
    EXPECT_EQ(FSCloseFork(theNext), noErr);
}

TEST_F(FileForks, AreAsLongAsTheyAreMade)
{
    const FSIORefNum theFork = Open(Write("a", "abcdef"), fsRdWrShPerm);
    SInt64 theLength = 0;
    EXPECT_EQ(FSGetForkSize(theFork, &theLength), noErr);
    EXPECT_EQ(theLength, 6);
    EXPECT_EQ(FSSetForkSize(theFork, fsFromStart, 4), noErr);
    EXPECT_EQ(FSSetForkPosition(theFork, fsFromStart, 3), noErr);
    EXPECT_EQ(FSSetForkSize(theFork, fsFromMark, -1), noErr);
    EXPECT_EQ(FSGetForkSize(theFork, &theLength), noErr);
    EXPECT_EQ(theLength, 2);
    EXPECT_EQ(FSSetForkSize(theFork, fsFromLEOF, 2), noErr);
    EXPECT_EQ(Read(theFork, fsFromStart, 0, 4), std::string("ab\0\0", 4));
    EXPECT_EQ(FSSetForkSize(theFork, fsFromStart, -1), posErr);
    EXPECT_EQ(FSGetForkSize(theFork, nullptr), paramErr);
    EXPECT_EQ(FSGetForkPosition(theFork, nullptr), paramErr);
    EXPECT_EQ(FSCloseFork(theFork), noErr);
}

TEST_F(FileForks, AreOpenedForWhatIsAskedFor)
{
    const FSRef theFile = Write("a", "abc");
    const FSIORefNum theReader = Open(theFile, fsRdPerm);
    EXPECT_EQ(Write(theReader, fsFromStart, 0, "x"), wrPermErr);
    EXPECT_EQ(FSSetForkSize(theReader, fsFromStart, 0), wrPermErr);
    const FSIORefNum theWriter = Open(theFile, fsWrPerm);
    EXPECT_EQ(Write(theWriter, fsFromStart, 0, "x"), noErr);
    const FSIORefNum theCurrent = Open(theFile, fsCurPerm);
    EXPECT_EQ(Write(theCurrent, fsFromStart, 1, "y"), noErr);
    EXPECT_EQ(Read(theReader, fsFromStart, 0, 3), "xyc");
    EXPECT_NE(theReader, theWriter);
    EXPECT_NE(theWriter, theCurrent);
    for (const FSIORefNum theFork : {theReader, theWriter, theCurrent}) {
        EXPECT_EQ(FSCloseFork(theFork), noErr);
    }
}

TEST_F(FileForks, NumbersAreThoseOfOpenFiles)
{
    const FSIORefNum theFork = Open(Write("a", "abc"), fsRdPerm);
    EXPECT_EQ(FSCloseFork(theFork), noErr);
    EXPECT_EQ(FSCloseFork(theFork), rfNumErr);
    ByteCount theCount = 7;
    char theByte = 0;
    SInt64 theNumber = 0;
    EXPECT_EQ(FSReadFork(theFork, fsFromStart, 0, 1, &theByte, &theCount), rfNumErr);
    EXPECT_EQ(FSWriteFork(theFork, fsFromStart, 0, 1, &theByte, &theCount), rfNumErr);
    EXPECT_EQ(FSGetForkPosition(theFork, &theNumber), rfNumErr);
    EXPECT_EQ(FSSetForkPosition(theFork, fsFromStart, 0), rfNumErr);
    EXPECT_EQ(FSGetForkSize(theFork, &theNumber), rfNumErr);
    EXPECT_EQ(FSSetForkSize(theFork, fsFromStart, 0), rfNumErr);
    EXPECT_EQ(FSFlushFork(theFork), rfNumErr);
    EXPECT_EQ(FSCloseFork(0), rfNumErr);
    EXPECT_EQ(FSCloseFork(-1), rfNumErr);
    EXPECT_EQ(theCount, 7U);
}

TEST_F(FileForks, ThereIsOneForkAndItsNameIsEmpty)
{
    const FSRef theFile = Write("a", "abc");
    FSIORefNum theFork = 9;
    HFSUniStr255 theName = {1, {}};
    EXPECT_EQ(FSGetDataForkName(&theName), noErr);
    EXPECT_EQ(theName.length, 0);
    EXPECT_EQ(FSOpenFork(&theFile, 13, UnitsOf(u"RESOURCE_FORK").data(), fsRdPerm, &theFork),
              errFSBadForkName);
    EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, 77, &theFork), paramErr);
    EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdPerm, nullptr), paramErr);
    EXPECT_EQ(FSOpenFork(nullptr, 0, nullptr, fsRdPerm, &theFork), errFSBadFSRef);
    EXPECT_EQ(FSOpenFork(&mFolderRef, 0, nullptr, fsRdPerm, &theFork), notAFileErr);
    EXPECT_EQ(FSOpenFork(&mFolderRef, 0, nullptr, fsCurPerm, &theFork), notAFileErr);
    EXPECT_EQ(FSGetDataForkName(nullptr), paramErr);
    EXPECT_EQ(theFork, 9);
    EXPECT_EQ(FSDeleteObject(&theFile), noErr);
    EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdPerm, &theFork), fnfErr);
}
