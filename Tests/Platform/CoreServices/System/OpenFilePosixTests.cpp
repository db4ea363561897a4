// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What is no plain file is not opened, and what is large is read whole.

#include "FileTestSupport.h"

#include <sys/stat.h>

namespace {

class OpenFilePosix : public FolderWithReferences
{
protected:
    OSErr Open(const FSRef& theFile, SInt8 thePermission)
    {
        FSIORefNum theFork = 0;
        const OSErr theStatus = FSOpenFork(&theFile, 0, nullptr, thePermission, &theFork);
        if (theStatus == noErr) {
            EXPECT_EQ(FSCloseFork(theFork), noErr);
        }
        return theStatus;
    }
};

} // namespace

TEST_F(OpenFilePosix, APipeIsNoFileAndNobodyWaitsForIt)
{
    ASSERT_EQ(mkfifo(mFolder.Path("pipe").c_str(), 0600), 0);
    FSRef thePipe = {};
    ASSERT_EQ(Refer("pipe", &thePipe), noErr);
    EXPECT_EQ(Open(thePipe, fsRdPerm), notAFileErr);
    EXPECT_EQ(Open(thePipe, fsWrPerm), notAFileErr);
    EXPECT_EQ(Open(thePipe, fsRdWrPerm), notAFileErr);
}

TEST_F(OpenFilePosix, ADeviceIsNoFile)
{
    FSRef theDevice = {};
    ASSERT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>("/dev/null"), &theDevice, nullptr), noErr);
    EXPECT_EQ(Open(theDevice, fsRdPerm), notAFileErr);
}

TEST_F(OpenFilePosix, LargeFilesAreReadAndWrittenWhole)
{
    const FSRef theFile = Write("a", "");
    FSIORefNum theFork = 0;
    ASSERT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdWrPerm, &theFork), noErr);
    const std::string theText(3000000, 'x');
    const SInt64 theDistance = SInt64{5} * 1024 * 1024 * 1024;
    ByteCount theCount = 0;
    EXPECT_EQ(FSWriteFork(theFork, fsFromStart, theDistance, theText.size(), theText.data(), &theCount),
              noErr);
    std::string theRead(theText.size(), '?');
    EXPECT_EQ(FSReadFork(theFork, fsFromStart, theDistance, theRead.size(), theRead.data(), &theCount),
              noErr);
    EXPECT_TRUE(theRead == theText);
    SInt64 theLength = 0;
    EXPECT_EQ(FSGetForkSize(theFork, &theLength), noErr);
    EXPECT_EQ(theLength, theDistance + 3000000) << "more than 32 bits";
    EXPECT_EQ(FSCloseFork(theFork), noErr);
}
