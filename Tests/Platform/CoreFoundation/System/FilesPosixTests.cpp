// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Folders and files for the user alone, and places that cannot be written to. Each of those is tried in a
// process of its own: its changes are never written.

#include "PreferenceFileSupport.h"

#include <csignal>
#include <sys/resource.h>

namespace {

using FilesPosix = PreferenceFiles;

} // namespace

TEST_F(FilesPosix, FoldersAreMadeForTheUserAlone)
{
    setenv("XDG_CONFIG_HOME", PathInFolder("new/folder").c_str(), 1);
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(ModeOf(PathInFolder("new")), 0700U);
    EXPECT_EQ(ModeOf(PathInFolder("new/folder")), 0700U);
    EXPECT_EQ(NamesIn(PathInFolder("new/folder")).size(), 1U);
}

TEST_F(FilesPosix, ALinkIsReplacedByAFile)
{
    WriteFile(PathInFolder("target"), FileWith("<dict><key>a</key><true/></dict>"));
    ASSERT_EQ(symlink(PathInFolder("target").c_str(), Path().c_str()), 0);
    EXPECT_TRUE(Has(CFSTR("a"), kCFBooleanTrue));
    Set(CFSTR("b"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    struct stat theStatus = {};
    ASSERT_EQ(lstat(Path().c_str(), &theStatus), 0);
    EXPECT_TRUE(S_ISREG(theStatus.st_mode));
    EXPECT_EQ(FileText(PathInFolder("target")), FileWith("<dict><key>a</key><true/></dict>"));
}

TEST_F(FilesPosix, WhatAKilledProcessLeftBehindIsWrittenOver)
{
    WriteFile(Path() + ".new", "half a file");
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), kCFBooleanTrue}})));
}

TEST_F(FilesPosix, WhatIsNoFileIsLeftAlone)
{
    ASSERT_EQ(mkdir(Path().c_str(), 0700), 0);
    EXPECT_EQ(RunInProcess([this] {
                  const bool theIsEmpty = Has(CFSTR("a"), nullptr);
                  Set(CFSTR("a"), kCFBooleanTrue);
                  return theIsEmpty && !Synchronize() && Has(CFSTR("a"), kCFBooleanTrue) ? 0 : 1;
              }),
              0);
    EXPECT_TRUE(Exists(Path()));
}

TEST_F(FilesPosix, APipeIsNotWaitedFor)
{
    ASSERT_EQ(mkfifo(Path().c_str(), 0600), 0);
    EXPECT_EQ(RunInProcess([this] {
                  Set(CFSTR("a"), kCFBooleanTrue);
                  return Synchronize() ? 1 : 0;
              }),
              0);
}

TEST_F(FilesPosix, AFileInTheFoldersPlaceMakesSynchronizingFail)
{
    WriteFile(PathInFolder("file"), "text");
    setenv("XDG_CONFIG_HOME", PathInFolder("file").c_str(), 1);
    EXPECT_EQ(RunInProcess([this] {
                  Set(CFSTR("a"), kCFBooleanTrue);
                  const bool theHasFailed =
                      !Synchronize() && Has(CFSTR("a"), kCFBooleanTrue) && !Synchronize();
                  setenv("XDG_CONFIG_HOME", mFolder.c_str(), 1);
                  return theHasFailed && Synchronize() ? 0 : 1;
              }),
              0);
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), kCFBooleanTrue}})));
}

TEST_F(FilesPosix, AReadOnlyFolderMakesSynchronizingFailAndKeepsWhatWasThere)
{
    const std::string theText = FileWith("<dict><key>a</key><string>before</string></dict>");
    WriteFile(Path(), theText);
    chmod(Path().c_str(), 0644);
    chmod(mFolder.c_str(), 0555);
    EXPECT_EQ(RunInProcess([this] {
                  // The superuser may write everywhere.
                  const uid_t kNobody = 65534;
                  if (getuid() == 0 && setuid(kNobody) != 0) {
                      return 2;
                  }
                  Set(CFSTR("a"), CFSTR("after"));
                  return !Synchronize() && Has(CFSTR("a"), CFSTR("after")) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(FileText(Path()), theText);
}

TEST_F(FilesPosix, AFullDiskMakesSynchronizingFailAndKeepsWhatWasThere)
{
    const std::string theText = FileWith("<dict><key>a</key><string>before</string></dict>");
    WriteFile(Path(), theText);
    EXPECT_EQ(RunInProcess([this] {
                  // Files that may not grow stand for a disk that is full.
                  std::signal(SIGXFSZ, SIG_IGN);
                  rlimit theLimit = {};
                  getrlimit(RLIMIT_FSIZE, &theLimit);
                  const rlim_t theOldLimit = std::exchange(theLimit.rlim_cur, 4096);
                  setrlimit(RLIMIT_FSIZE, &theLimit);
                  Set(CFSTR("b"), String(std::string(100000, 'x')));
                  const bool theHasFailed = !Synchronize() && !Has(CFSTR("b"), nullptr);
                  const bool theIsKept = Has(CFSTR("a"), CFSTR("before")) && FileText(Path()).size() < 4096;
                  theLimit.rlim_cur = theOldLimit;
                  setrlimit(RLIMIT_FSIZE, &theLimit);
                  return theHasFailed && theIsKept && NamesIn(mFolder).size() == 1 && Synchronize() ? 0 : 1;
              }),
              0);
    EXPECT_EQ(CFDictionaryGetCount(FileValues()), 2);
}

// A file of that size would never be read again.
TEST_F(FilesPosix, WhatIsTooLargeToBeReadIsNotWritten)
{
    const std::string theText = FileWith("<dict><key>a</key><string>before</string></dict>");
    WriteFile(Path(), theText);
    EXPECT_EQ(RunInProcess([this] {
                  // Each line of a nested list begins with as many tabs, which are quickly written.
                  const std::vector<CFPropertyListRef> theItems(140000, kCFBooleanTrue);
                  const Owned<CFArrayRef> theList(
                      CFArrayCreate(nullptr, const_cast<const void**>(theItems.data()),
                                    static_cast<CFIndex>(theItems.size()), &kCFTypeArrayCallBacks));
                  Set(CFSTR("b"), NestedArray(500, theList));
                  return Synchronize() ? 1 : 0;
              }),
              0);
    EXPECT_EQ(FileText(Path()), theText);
}

// It could be written over only by its owner, but anybody who owns the folder can remove it.
TEST_F(FilesPosix, WhatAKilledProcessOfAnotherUserLeftBehindMakesWay)
{
    WriteFile(Path() + ".new", "half a file");
    chmod((Path() + ".new").c_str(), 0);
    EXPECT_EQ(RunInProcess([this] {
                  const uid_t kNobody = 65534;
                  if (getuid() == 0 &&
                      (chown(mFolder.c_str(), kNobody, getgid()) != 0 || setuid(kNobody) != 0)) {
                      return 2;
                  }
                  Set(CFSTR("a"), kCFBooleanTrue);
                  return Synchronize() ? 0 : 1;
              }),
              0);
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), kCFBooleanTrue}})));
}
