// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where the system and the person keep what kind of files.

#include "FileTestSupport.h"

namespace {

class SystemFolders : public FolderWithReferences
{
protected:
    static std::string Find(FSVolumeRefNum theDomain, OSType theType, Boolean theIsMade = kDontCreateFolder)
    {
        FSRef theFound = {};
        const OSErr theStatus = FSFindFolder(theDomain, theType, theIsMade, &theFound);
        return theStatus == noErr ? PathOf(theFound) : std::to_string(theStatus);
    }

    // The names of the host's own calls are those of the environment.
    Variable mHome{"HOME", mFolder.Path().c_str()};
    Variable mSettings{"XDG_CONFIG_HOME", nullptr};
    Variable mData{"XDG_DATA_HOME", nullptr};
    Variable mCaches{"XDG_CACHE_HOME", nullptr};
};

struct Kind
{
    OSType theType;
    const char* thePlace;
};

const Kind kKinds[] = {
    {kPreferencesFolderType, ".config"},
    {kApplicationSupportFolderType, ".local/share"},
    {kDesktopFolderType, "Desktop"},
    {kDocumentsFolderType, "Documents"},
    {kApplicationsFolderType, ".local/share/applications"},
    {kFontsFolderType, ".local/share/fonts"},
    {kTrashFolderType, ".local/share/Trash/files"},
    {kCachedDataFolderType, ".cache"},
};

} // namespace

TEST_F(SystemFolders, EachKindHasItsPlaceInTheUsersHome)
{
    for (const Kind& theKind : kKinds) {
        EXPECT_EQ(Find(kUserDomain, theKind.theType), std::to_string(fnfErr)) << theKind.thePlace;
        EXPECT_EQ(Find(kUserDomain, theKind.theType, kCreateFolder), mFolder.Path(theKind.thePlace));
        EXPECT_EQ(Find(kOnSystemDisk, theKind.theType), mFolder.Path(theKind.thePlace))
            << "whatever the volume";
    }
    EXPECT_EQ(Find(kUserDomain, kCurrentUserFolderType), mFolder.Path());
}

TEST_F(SystemFolders, SharedOnesAreThoseOfTheSystem)
{
    EXPECT_EQ(Find(kSystemDomain, kApplicationSupportFolderType), "/usr/share");
    EXPECT_EQ(Find(kLocalDomain, kTemporaryFolderType), "/tmp");
    EXPECT_EQ(Find(kSystemDomain, kDesktopFolderType), std::to_string(fnfErr));
    EXPECT_EQ(Find(kNetworkDomain, kFontsFolderType), std::to_string(fnfErr));
}

TEST_F(SystemFolders, NobodyMakesAHome)
{
    const Variable theHome("HOME", mFolder.Path("away").c_str());
    EXPECT_EQ(Find(kUserDomain, kCurrentUserFolderType, kCreateFolder), std::to_string(fnfErr));
    EXPECT_EQ(Find(kUserDomain, kPreferencesFolderType, kCreateFolder), std::to_string(fnfErr));
    EXPECT_FALSE(std::filesystem::exists(mFolder.Path("away")));
}

TEST_F(SystemFolders, WhatIsNoFolderIsNotFound)
{
    mFolder.Write("Desktop", "");
    EXPECT_EQ(Find(kUserDomain, kDesktopFolderType), std::to_string(fnfErr));
    EXPECT_EQ(Find(kUserDomain, kDesktopFolderType, kCreateFolder), std::to_string(fnfErr));
    EXPECT_EQ(Find(kUserDomain, 'what'), std::to_string(fnfErr));
    EXPECT_EQ(FSFindFolder(kUserDomain, kDesktopFolderType, false, nullptr), paramErr);
}
