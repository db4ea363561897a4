// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What callers are told when the system refuses.

#include "FileTestSupport.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FileStatusPosix : public FolderWithReferences
{
};

// A limit of the system on this process, for a while.
class Limit
{
public:
    Limit(decltype(RLIMIT_FSIZE) theKind, rlim_t theMost)
        : mKind(theKind)
    {
        EXPECT_EQ(getrlimit(mKind, &mFormer), 0);
        rlimit theLimit = mFormer;
        theLimit.rlim_cur = theMost;
        EXPECT_EQ(setrlimit(mKind, &theLimit), 0);
    }
    ~Limit() { setrlimit(mKind, &mFormer); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

private:
    decltype(RLIMIT_FSIZE) mKind;
    rlimit mFormer = {};
};

} // namespace

TEST_F(FileStatusPosix, WhatIsGoneIsNotFound)
{
    FSRef theSub = {};
    ASSERT_EQ(MakeFolder(u"sub", &theSub), noErr);
    const FSRef theFile = Write("sub/a", "");
    std::filesystem::remove_all(mFolder.Path("sub"));
    FSIORefNum theFork = 0;
    EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdPerm, &theFork), fnfErr);
    mFolder.Write("sub", "a file");
    EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdPerm, &theFork), fnfErr) << "its folder is none";
}

TEST_F(FileStatusPosix, AFileThatMayGrowNoMoreIsOnAFullDisk)
{
    const FSRef theFile = Write("a", "");
    FSIORefNum theFork = 0;
    ASSERT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdWrPerm, &theFork), noErr);
    const auto theFormer = std::signal(SIGXFSZ, SIG_IGN);
    ByteCount theCount = 0;
    {
        const Limit theLimit(RLIMIT_FSIZE, 3);
        EXPECT_EQ(FSWriteFork(theFork, fsFromStart, 0, 5, "12345", &theCount), dskFulErr);
        EXPECT_EQ(theCount, 3U) << "what there was room for";
        EXPECT_EQ(FSSetForkSize(theFork, fsFromStart, 9), dskFulErr);
    }
    std::signal(SIGXFSZ, theFormer);
    EXPECT_EQ(FSCloseFork(theFork), noErr);
}

TEST_F(FileStatusPosix, ThereAreOnlySoManyOpenFiles)
{
    const FSRef theFile = Write("a", "");
    FSIORefNum theFork = 0;
    const Limit theLimit(RLIMIT_NOFILE, 0);
    EXPECT_EQ(FSOpenFork(&theFile, 0, nullptr, fsRdPerm, &theFork), tmfoErr);
}

TEST_F(FileStatusPosix, ANameMayBeTooLongForTheSystem)
{
    // 255 units, and three times as many bytes.
    EXPECT_EQ(MakeFile(std::u16string(255, u'温')), errFSNameTooLong);
}

TEST_F(FileStatusPosix, WhatMayNotBeReadIsRefused)
{
    const FSRef theFile = Write("a", "");
    ASSERT_EQ(chmod(mFolder.Path("a").c_str(), 0), 0);
    ASSERT_EQ(chmod(mFolder.Path().c_str(), 0711), 0);
    // The administrator may read everything, and so becomes somebody else for a while.
    const bool theIsMighty = geteuid() == 0;
    ASSERT_TRUE(!theIsMighty || seteuid(65534) == 0);
    FSIORefNum theFork = 0;
    const OSErr theStatus = FSOpenFork(&theFile, 0, nullptr, fsCurPerm, &theFork);
    ASSERT_TRUE(!theIsMighty || seteuid(0) == 0);
    EXPECT_EQ(theStatus, permErr);
}
