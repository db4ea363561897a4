// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the system tells of files, and what it makes of those that are set.

#include "FileTestSupport.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

class CatalogPosix : public FolderWithReferences
{
protected:
    struct stat StateOf(const std::string& theName) const
    {
        struct stat theState = {};
        EXPECT_EQ(stat(mFolder.Path(theName).c_str(), &theState), 0);
        return theState;
    }
};

} // namespace

TEST_F(CatalogPosix, NewFilesHaveTheRightsThatTheUserGives)
{
    const mode_t theFormer = umask(027);
    EXPECT_EQ(MakeFile(u"file"), noErr);
    EXPECT_EQ(MakeFolder(u"folder"), noErr);
    umask(theFormer);
    EXPECT_EQ(StateOf("file").st_mode & 0777U, 0640U);
    EXPECT_EQ(StateOf("folder").st_mode & 0777U, 0750U);
}

TEST_F(CatalogPosix, OwnersAndRoomAreThoseOfTheSystem)
{
    const FSRef theFile = Write("a", std::string(10000, 'x'));
    FSCatalogInfo theInfo = {};
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoGettableInfo, &theInfo, nullptr, nullptr, nullptr), noErr);
    const struct stat theState = StateOf("a");
    EXPECT_EQ(theInfo.permissions[0], theState.st_uid);
    EXPECT_EQ(theInfo.permissions[1], theState.st_gid);
    EXPECT_EQ(theInfo.dataPhysicalSize, static_cast<UInt64>(theState.st_blocks) * 512);
}

TEST_F(CatalogPosix, ALinkIsWhatItLeadsTo)
{
    Write("a", "123");
    ASSERT_EQ(symlink("a", mFolder.Path("link").c_str()), 0);
    FSRef theLink = {};
    ASSERT_EQ(Refer("link", &theLink), noErr);
    FSCatalogInfo theInfo = {};
    EXPECT_EQ(FSGetCatalogInfo(&theLink, kFSCatInfoDataSizes, &theInfo, nullptr, nullptr, nullptr), noErr);
    EXPECT_EQ(theInfo.dataLogicalSize, 3U);
    EXPECT_EQ(FSDeleteObject(&theLink), noErr);
    EXPECT_EQ(StateOf("a").st_size, 3) << "the link is deleted, and nothing else";
}
