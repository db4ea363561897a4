// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How the user's folders are asked of the environment and of the desktop.

#include "FileTestSupport.h"

namespace {

class UserFoldersPosix : public FolderWithReferences
{
protected:
    // Makes the folder, too.
    std::string Find(OSType theType) const
    {
        FSRef theFound = {};
        const OSErr theStatus = FSFindFolder(kUserDomain, theType, kCreateFolder, &theFound);
        const std::string thePath = theStatus == noErr ? PathOf(theFound) : std::to_string(theStatus);
        return thePath.compare(0, mFolder.Path().size(), mFolder.Path()) == 0
                   ? thePath.substr(mFolder.Path().size())
                   : thePath;
    }

    Variable mHome{"HOME", mFolder.Path().c_str()};
    Variable mSettings{"XDG_CONFIG_HOME", nullptr};
};

} // namespace

TEST_F(UserFoldersPosix, VariablesComeFirst)
{
    const Variable theData("XDG_DATA_HOME", mFolder.Path("data").c_str());
    const Variable theCaches("XDG_CACHE_HOME", mFolder.Path("caches").c_str());
    const Variable theSettings("XDG_CONFIG_HOME", mFolder.Path("settings").c_str());
    const Variable theTemporary("TMPDIR", mFolder.Path("passing").c_str());
    EXPECT_EQ(Find(kApplicationSupportFolderType), "/data");
    EXPECT_EQ(Find(kFontsFolderType), "/data/fonts");
    EXPECT_EQ(Find(kCachedDataFolderType), "/caches");
    EXPECT_EQ(Find(kPreferencesFolderType), "/settings");
    EXPECT_EQ(Find(kTemporaryFolderType), "/passing");
}

TEST_F(UserFoldersPosix, RelativeFoldersInVariablesDoNotCount)
{
    const Variable theCaches("XDG_CACHE_HOME", "caches");
    const Variable theTemporary("TMPDIR", "passing");
    EXPECT_EQ(Find(kCachedDataFolderType), "/.cache");
    EXPECT_EQ(Find(kTemporaryFolderType), "/tmp");
}

TEST_F(UserFoldersPosix, TheDesktopsListSaysWhatFoldersAreCalled)
{
    mFolder.Write(".config/user-dirs.dirs", "# a comment\nXDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
                                            "XDG_DOCUMENTS_DIR=\"" +
                                                mFolder.Path("elsewhere") + "\"\n");
    EXPECT_EQ(Find(kDesktopFolderType), "/Schreibtisch");
    EXPECT_EQ(Find(kDocumentsFolderType), "/elsewhere");
}

TEST_F(UserFoldersPosix, LinesOfTheListThatSayNothingAreSkipped)
{
    mFolder.Write(".config/user-dirs.dirs",
                  "XDG_DESKTOP_DIR=\nXDG_DESKTOP_DIR=\"\nXDG_DESKTOP_DIR=\"there\"\n"
                  "XDG_DESKTOP_DIRS=\"/usr\"\n");
    EXPECT_EQ(Find(kDesktopFolderType), "/Desktop");
}
