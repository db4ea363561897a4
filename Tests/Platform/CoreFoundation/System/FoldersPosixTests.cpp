// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the system says of folders, as URLs and bundles show it.

#include "BundleTestSupport.h"

TEST(FoldersPosix, TheCurrentFolderIsWhereItIs)
{
    const Owned theURL(CFURLCreateWithFileSystemPath(nullptr, CFSTR("x"), kCFURLPOSIXPathStyle, false));
    const Owned theAbsolute(CFURLCopyAbsoluteURL(theURL));
    EXPECT_EQ(TakeText(CFURLCopyFileSystemPath(theAbsolute, kCFURLPOSIXPathStyle)),
              (std::filesystem::current_path() / "x").string());
}

TEST(FoldersPosix, ALinkIsWhatItLeadsTo)
{
    const TemporaryFolder theFolder;
    theFolder.Write("Real.app/Contents/Resources/a", "");
    std::filesystem::create_symlink(theFolder.Path("Real.app"), theFolder.Path("Link.app"));
    std::filesystem::create_symlink(theFolder.Path("nowhere"), theFolder.Path("Broken.app"));
    EXPECT_NE(Owned(CFBundleCreate(nullptr, theFolder.URL("Link.app"))), nullptr);
    EXPECT_EQ(Owned(CFBundleCreate(nullptr, theFolder.URL("Broken.app"))), nullptr);
}

TEST(FoldersPosix, ManyNamesAreListedInOrder)
{
    const TemporaryFolder theFolder;
    for (int theNumber = 300; theNumber > 0; --theNumber) {
        theFolder.Write("B.app/Contents/Resources/" + std::to_string(1000 + theNumber) + ".x", "");
    }
    const Owned theBundle(CFBundleCreate(nullptr, theFolder.URL("B.app")));
    const Owned theURLs(CFBundleCopyResourceURLsOfType(theBundle, CFSTR("x"), nullptr));
    ASSERT_EQ(CFArrayGetCount(theURLs), 300);
    for (CFIndex theIndex = 0; theIndex < 300; ++theIndex) {
        EXPECT_EQ(TakeText(CFURLCopyLastPathComponent(
                      static_cast<CFURLRef>(CFArrayGetValueAtIndex(theURLs, theIndex)))),
                  std::to_string(1001 + theIndex) + ".x");
    }
}
