// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BundleTestSupport.h"

#include <CoreServices/CoreServices.h>

namespace {

// A folder with a file in it, and references to both.
class FileReferences : public testing::Test
{
protected:
    FileReferences()
    {
        mFolder.Write("a b", "");
        EXPECT_EQ(Refer("", &mFolderRef), noErr);
        EXPECT_EQ(Refer("a b", &mFileRef), noErr);
    }

    OSStatus Refer(const std::string& theName, FSRef* theReference, Boolean* theIsFolder = nullptr) const
    {
        const std::string thePath = mFolder.Path(theName);
        return FSPathMakeRef(reinterpret_cast<const UInt8*>(thePath.c_str()), theReference, theIsFolder);
    }

    static std::string PathOf(const FSRef& theReference)
    {
        UInt8 thePath[1024] = "";
        const OSStatus theStatus = FSRefMakePath(&theReference, thePath, sizeof thePath);
        return theStatus == noErr ? reinterpret_cast<const char*>(thePath) : std::to_string(theStatus);
    }

    static OSErr InFolder(const FSRef& theFolder, const Units& theName, FSRef* theReference)
    {
        return FSMakeFSRefUnicode(&theFolder, theName.size(), theName.data(), kTextEncodingUnknown,
                                  theReference);
    }

    TemporaryFolder mFolder;
    FSRef mFolderRef;
    FSRef mFileRef;
};

static_assert(sizeof(FSRef) == 80);
static_assert(sizeof(FSSpec) == 70 || sizeof(SInt32) != 4);
static_assert(sizeof(HFSUniStr255) == 512);

} // namespace

TEST_F(FileReferences, APathComesBack)
{
    EXPECT_EQ(PathOf(mFileRef), mFolder.Path("a b"));
    EXPECT_EQ(PathOf(mFolderRef), mFolder.Path());
    Boolean theIsFolder = 0;
    FSRef theReference;
    EXPECT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>((mFolder.Path() + "/").c_str()), &theReference,
                            &theIsFolder),
              noErr);
    EXPECT_TRUE(theIsFolder);
    EXPECT_EQ(PathOf(theReference), mFolder.Path());
    EXPECT_EQ(Refer("a b", &theReference, &theIsFolder), noErr);
    EXPECT_FALSE(theIsFolder);
}

TEST_F(FileReferences, APathNeedsRoomForItsEnd)
{
    const std::string thePath = mFolder.Path("a b");
    std::vector<UInt8> theBuffer(thePath.size() + 1, 'x');
    EXPECT_EQ(FSRefMakePath(&mFileRef, theBuffer.data(), static_cast<UInt32>(thePath.size())),
              pathTooLongErr);
    EXPECT_EQ(theBuffer[0], 'x');
    EXPECT_EQ(FSRefMakePath(&mFileRef, theBuffer.data(), static_cast<UInt32>(theBuffer.size())), noErr);
    EXPECT_EQ(FSRefMakePath(&mFileRef, theBuffer.data(), 0), pathTooLongErr);
}

TEST_F(FileReferences, OnlyWhatIsThereHasAReference)
{
    FSRef theReference = mFileRef;
    EXPECT_EQ(Refer("absent", &theReference), fnfErr);
    EXPECT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>(""), &theReference, nullptr), fnfErr);
    EXPECT_FALSE(CFURLGetFSRef(mFolder.URL("absent"), &theReference));
    EXPECT_FALSE(
        CFURLGetFSRef(Owned(CFURLCreateWithString(nullptr, CFSTR("http://a/tmp"), nullptr)), &theReference));
    EXPECT_EQ(FSCompareFSRefs(&theReference, &mFileRef), noErr) << "it was changed";
}

TEST_F(FileReferences, URLsAndReferencesLeadToOneAnother)
{
    FSRef theReference;
    EXPECT_TRUE(CFURLGetFSRef(mFolder.URL("a b"), &theReference));
    EXPECT_EQ(FSCompareFSRefs(&theReference, &mFileRef), noErr);
    EXPECT_TRUE(CFEqual(Owned(CFURLCreateFromFSRef(nullptr, &mFileRef)), mFolder.URL("a b")));
    EXPECT_TRUE(CFURLHasDirectoryPath(Owned(CFURLCreateFromFSRef(nullptr, &mFolderRef))));
}

TEST_F(FileReferences, AFolderHasItsFilesByName)
{
    FSRef theReference;
    EXPECT_EQ(InFolder(mFolderRef, {'a', ' ', 'b'}, &theReference), noErr);
    EXPECT_EQ(FSCompareFSRefs(&theReference, &mFileRef), noErr);
    EXPECT_EQ(InFolder(mFolderRef, {'x'}, &theReference), fnfErr);
    EXPECT_EQ(InFolder(mFileRef, {'x'}, &theReference), errFSNotAFolder);
    EXPECT_EQ(InFolder(mFolderRef, {}, &theReference), errFSMissingName);
    EXPECT_EQ(InFolder(mFolderRef, Units(256, 'x'), &theReference), errFSNameTooLong);
    for (const Units& theName :
         {Units{'.'}, Units{'.', '.'}, Units{'a', '/', 'b'}, Units{'a', 0}, Units{0xD800}}) {
        EXPECT_EQ(InFolder(mFolderRef, theName, &theReference), bdNamErr);
    }
    FSRef theRoot;
    EXPECT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>("/"), &theRoot, nullptr), noErr);
    EXPECT_EQ(InFolder(theRoot, {'t', 'm', 'p'}, &theReference), noErr);
    EXPECT_EQ(PathOf(theReference), "/tmp");
}

TEST_F(FileReferences, ReferencesDiffer)
{
    EXPECT_EQ(FSCompareFSRefs(&mFileRef, &mFolderRef), errFSRefsDifferent);
}

TEST_F(FileReferences, WhatIsNoReferenceIsSaidToBeNone)
{
    FSRef theZero = {};
    FSRef theStrange = mFileRef;
    memset(theStrange.hidden + 8, 0xFF, 4);
    for (const FSRef& theBad : {theZero, theStrange}) {
        FSRef theReference;
        EXPECT_EQ(PathOf(theBad), "-1401");
        EXPECT_EQ(FSCompareFSRefs(&theBad, &mFileRef), errFSBadFSRef);
        EXPECT_EQ(FSCompareFSRefs(&mFileRef, &theBad), errFSBadFSRef);
        EXPECT_EQ(InFolder(theBad, {'x'}, &theReference), errFSBadFSRef);
        EXPECT_EQ(CFURLCreateFromFSRef(nullptr, &theBad), nullptr);
    }
    EXPECT_EQ(FSCompareFSRefs(nullptr, &mFileRef), errFSBadFSRef);
    EXPECT_EQ(CFURLCreateFromFSRef(nullptr, nullptr), nullptr);
}

TEST_F(FileReferences, NullIsRefused)
{
    UInt8 thePath[16];
    FSRef theReference;
    EXPECT_EQ(FSPathMakeRef(nullptr, &theReference, nullptr), paramErr);
    EXPECT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>("/"), nullptr, nullptr), paramErr);
    EXPECT_EQ(FSRefMakePath(&mFileRef, nullptr, 16), paramErr);
    EXPECT_EQ(FSRefMakePath(nullptr, thePath, 16), errFSBadFSRef);
    EXPECT_EQ(FSMakeFSRefUnicode(&mFolderRef, 1, nullptr, 0, &theReference), paramErr);
    EXPECT_EQ(FSMakeFSRefUnicode(&mFolderRef, 1, Units{'x'}.data(), 0, nullptr), paramErr);
    EXPECT_EQ(FSMakeFSRefUnicode(nullptr, 1, Units{'x'}.data(), 0, &theReference), errFSBadFSRef);
    EXPECT_FALSE(CFURLGetFSRef(mFolder.URL("a b"), nullptr));
}
