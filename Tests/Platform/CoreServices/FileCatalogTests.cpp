// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What is known of files and folders, and how they are made, set and deleted.

#include "FileTestSupport.h"

#include <cstddef>

namespace {

class FileCatalog : public FolderWithReferences
{
protected:
    static FSCatalogInfo InfoOf(const FSRef& theReference, FSCatalogInfoBitmap theWanted)
    {
        FSCatalogInfo theInfo = {};
        EXPECT_EQ(FSGetCatalogInfo(&theReference, theWanted, &theInfo, nullptr, nullptr, nullptr), noErr);
        return theInfo;
    }

    static std::string NameOf(const FSRef& theReference)
    {
        HFSUniStr255 theName = {};
        EXPECT_EQ(FSGetCatalogInfo(&theReference, kFSCatInfoNone, nullptr, &theName, nullptr, nullptr),
                  noErr);
        return TakeText(CFStringCreateWithCharacters(nullptr, theName.unicode, theName.length));
    }
};

UInt64 Seconds(const UTCDateTime& theDate)
{
    return (UInt64{theDate.highSeconds} << 32) | theDate.lowSeconds;
}

// The beginning of 2001, as this calendar counts.
constexpr UInt64 kBeginOf2001 = 3061152000;

} // namespace

static_assert(sizeof(UTCDateTime) == 8);
static_assert(sizeof(FSCatalogInfo) == 144);
static_assert(offsetof(FSCatalogInfo, dataLogicalSize) == 104);

TEST_F(FileCatalog, TellsAFileFromAFolder)
{
    const FSRef theFile = Write("a", "12345");
    EXPECT_EQ(InfoOf(theFile, kFSCatInfoNodeFlags).nodeFlags & kFSNodeIsDirectoryMask, 0);
    EXPECT_EQ(InfoOf(mFolderRef, kFSCatInfoNodeFlags).nodeFlags & kFSNodeIsDirectoryMask,
              kFSNodeIsDirectoryMask);
}

TEST_F(FileCatalog, TellsHowLargeAFileIsAndHowMuchAFolderHas)
{
    const FSRef theFile = Write("a", "12345");
    const FSCatalogInfo theInfo = InfoOf(theFile, kFSCatInfoDataSizes | kFSCatInfoRsrcSizes);
    EXPECT_EQ(theInfo.dataLogicalSize, 5U);
    EXPECT_EQ(theInfo.rsrcLogicalSize, 0U);
    Write("b", "");
    EXPECT_EQ(InfoOf(mFolderRef, kFSCatInfoValence).valence, 2U);
    EXPECT_EQ(InfoOf(mFolderRef, kFSCatInfoDataSizes).dataLogicalSize, 0U);
}

TEST_F(FileCatalog, FillsOnlyWhatIsAskedFor)
{
    const FSRef theFile = Write("a", "12345");
    FSCatalogInfo theInfo;
    std::memset(&theInfo, 0x55, sizeof theInfo);
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoNodeFlags, &theInfo, nullptr, nullptr, nullptr), noErr);
    EXPECT_EQ(theInfo.nodeFlags, 0);
    EXPECT_EQ(theInfo.nodeID, 0x55555555U);
    EXPECT_EQ(theInfo.dataLogicalSize, 0x5555555555555555U);
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoGettableInfo, &theInfo, nullptr, nullptr, nullptr), noErr);
    EXPECT_EQ(theInfo.volume, -100);
    EXPECT_EQ(theInfo.textEncodingHint, 0U);
    EXPECT_EQ(Seconds(theInfo.backupDate), 0U);
    EXPECT_EQ(theInfo.finderInfo[15], 0);
    EXPECT_EQ(theInfo.extFinderInfo[0], 0);
    EXPECT_GT(Seconds(theInfo.createDate), kBeginOf2001);
    EXPECT_GE(Seconds(theInfo.attributeModDate), Seconds(theInfo.createDate));
}

TEST_F(FileCatalog, TellsTheNameAndTheFolder)
{
    const FSRef theFile = Write("Größe", "");
    EXPECT_EQ(NameOf(theFile), "Größe");
    FSRef theParent = {};
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoNone, nullptr, nullptr, nullptr, &theParent), noErr);
    EXPECT_EQ(FSCompareFSRefs(&theParent, &mFolderRef), noErr);
    EXPECT_EQ(InfoOf(theFile, kFSCatInfoParentDirID).parentDirID,
              InfoOf(mFolderRef, kFSCatInfoNodeID).nodeID);
    EXPECT_NE(InfoOf(theFile, kFSCatInfoNodeID).nodeID, InfoOf(mFolderRef, kFSCatInfoNodeID).nodeID);
}

TEST_F(FileCatalog, TheRootHasNoParent)
{
    FSRef theRoot = {};
    ASSERT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>("/"), &theRoot, nullptr), noErr);
    EXPECT_EQ(NameOf(theRoot), "/");
    FSRef theParent = mFolderRef;
    EXPECT_EQ(FSGetCatalogInfo(&theRoot, kFSCatInfoNone, nullptr, nullptr, nullptr, &theParent), noErr);
    EXPECT_EQ(PathOf(theParent), std::to_string(errFSBadFSRef));
}

TEST_F(FileCatalog, ASpecificationLeadsBackToTheFile)
{
    const FSRef theFile = Write("Größe", "");
    FSSpec theSpecification = {};
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoNone, nullptr, nullptr, &theSpecification, nullptr),
              noErr);
    EXPECT_EQ(theSpecification.vRefNum, -100);
    EXPECT_EQ(theSpecification.name[0], 5) << "in MacRoman";
    FSRef theFound = {};
    EXPECT_EQ(FSpMakeFSRef(&theSpecification, &theFound), noErr);
    EXPECT_EQ(PathOf(theFound), PathOf(theFile));
    theSpecification.parID = 0x7FFFFFFF;
    EXPECT_EQ(FSpMakeFSRef(&theSpecification, &theFound), fnfErr) << "no such folder was told of";
    EXPECT_EQ(FSpMakeFSRef(nullptr, &theFound), paramErr);
    EXPECT_EQ(FSpMakeFSRef(&theSpecification, nullptr), paramErr);
}

TEST_F(FileCatalog, ANameThatIsNotInMacRomanHasNoSpecification)
{
    const FSRef theFile = Write("温度", "");
    FSSpec theSpecification = {};
    FSRef theParent = {};
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoNone, nullptr, nullptr, &theSpecification, &theParent),
              bdNamErr);
    EXPECT_EQ(PathOf(theParent), std::to_string(errFSBadFSRef)) << "nothing is written";
    EXPECT_EQ(NameOf(theFile), "温度");
}

TEST_F(FileCatalog, ANameThatIsNoTextIsNone)
{
    mFolder.Write("\xff", "");
    FSRef theFile = {};
    ASSERT_EQ(Refer("\xff", &theFile), noErr);
    HFSUniStr255 theName = {};
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoNone, nullptr, &theName, nullptr, nullptr), bdNamErr);
}

TEST_F(FileCatalog, MakesFilesAndFolders)
{
    FSRef theFile = {};
    EXPECT_EQ(MakeFile(u"new", &theFile), noErr);
    EXPECT_EQ(PathOf(theFile), mFolder.Path("new"));
    EXPECT_EQ(InfoOf(theFile, kFSCatInfoDataSizes).dataLogicalSize, 0U);
    FSSpec theSpecification = {};
    UInt32 theNumber = 0;
    FSRef theMade = {};
    EXPECT_EQ(FSCreateDirectoryUnicode(&mFolderRef, 3, UnitsOf(u"sub").data(), kFSCatInfoNone, nullptr,
                                       &theMade, &theSpecification, &theNumber),
              noErr);
    EXPECT_EQ(theNumber, InfoOf(theMade, kFSCatInfoNodeID).nodeID);
    EXPECT_EQ(theSpecification.name[0], 3);
    EXPECT_EQ(MakeFile(u"new"), dupFNErr);
    EXPECT_EQ(MakeFolder(u"new"), dupFNErr);
    EXPECT_EQ(MakeFile(u"a/b"), bdNamErr);
    EXPECT_EQ(MakeFile(u""), errFSMissingName);
    EXPECT_EQ(MakeFile(std::u16string(256, u'x')), errFSNameTooLong);
    EXPECT_EQ(
        FSCreateFileUnicode(&theFile, 1, UnitsOf(u"x").data(), kFSCatInfoNone, nullptr, nullptr, nullptr),
        errFSNotAFolder);
    EXPECT_EQ(
        FSCreateFileUnicode(nullptr, 1, UnitsOf(u"x").data(), kFSCatInfoNone, nullptr, nullptr, nullptr),
        errFSBadFSRef);
    EXPECT_EQ(FSCreateFileUnicode(&mFolderRef, 1, nullptr, kFSCatInfoNone, nullptr, nullptr, nullptr),
              paramErr);
}

TEST_F(FileCatalog, ANewFileIsWhatItsInformationSays)
{
    FSCatalogInfo theInfo = {};
    theInfo.nodeFlags = kFSNodeLockedMask;
    theInfo.contentModDate = {0, static_cast<UInt32>(kBeginOf2001), 0x8000};
    FSRef theFile = {};
    EXPECT_EQ(FSCreateFileUnicode(&mFolderRef, 1, UnitsOf(u"x").data(),
                                  kFSCatInfoNodeFlags | kFSCatInfoContentMod, &theInfo, &theFile, nullptr),
              noErr);
    const FSCatalogInfo theFound = InfoOf(theFile, kFSCatInfoNodeFlags | kFSCatInfoContentMod);
    EXPECT_EQ(theFound.nodeFlags, kFSNodeLockedMask);
    EXPECT_EQ(Seconds(theFound.contentModDate), kBeginOf2001);
    EXPECT_EQ(theFound.contentModDate.fraction, 0x8000);
}

TEST_F(FileCatalog, SetsDatesPermissionsAndLocks)
{
    const FSRef theFile = Write("a", "");
    FSCatalogInfo theInfo = {};
    theInfo.accessDate = {0, 1000, 0xFFFF};
    theInfo.permissions[2] = 0640;
    EXPECT_EQ(FSSetCatalogInfo(&theFile, kFSCatInfoAccessDate | kFSCatInfoPermissions, &theInfo), noErr);
    FSCatalogInfo theFound = InfoOf(theFile, kFSCatInfoGettableInfo);
    EXPECT_EQ(theFound.permissions[2], 0640U);
    EXPECT_EQ(Seconds(theFound.accessDate), 1000U) << "in 1904";
    EXPECT_EQ(theFound.accessDate.fraction, 0xFFFF);
    EXPECT_GT(Seconds(theFound.contentModDate), kBeginOf2001) << "as it was";
    theInfo.nodeFlags = kFSNodeLockedMask;
    EXPECT_EQ(FSSetCatalogInfo(&theFile, kFSCatInfoNodeFlags, &theInfo), noErr);
    EXPECT_EQ(InfoOf(theFile, kFSCatInfoPermissions).permissions[2], 0440U);
    theInfo.nodeFlags = 0;
    EXPECT_EQ(FSSetCatalogInfo(&theFile, kFSCatInfoNodeFlags, &theInfo), noErr);
    EXPECT_EQ(InfoOf(theFile, kFSCatInfoPermissions).permissions[2], 0640U);
    EXPECT_EQ(FSSetCatalogInfo(&theFile, kFSCatInfoFinderInfo, &theInfo), noErr) << "is not kept";
    EXPECT_EQ(FSSetCatalogInfo(&theFile, kFSCatInfoNodeFlags, nullptr), paramErr);
    EXPECT_EQ(FSSetCatalogInfo(nullptr, kFSCatInfoNodeFlags, &theInfo), errFSBadFSRef);
}

TEST_F(FileCatalog, DeletesFilesAndEmptyFolders)
{
    FSRef theSub = {};
    EXPECT_EQ(MakeFolder(u"sub", &theSub), noErr);
    const FSRef theFile = Write("sub/a", "x");
    EXPECT_EQ(FSDeleteObject(&theSub), fBsyErr);
    EXPECT_EQ(FSDeleteObject(&theFile), noErr);
    EXPECT_EQ(FSDeleteObject(&theFile), fnfErr);
    EXPECT_EQ(FSGetCatalogInfo(&theFile, kFSCatInfoNone, nullptr, nullptr, nullptr, nullptr), fnfErr);
    EXPECT_EQ(FSDeleteObject(&theSub), noErr);
    EXPECT_EQ(FSDeleteObject(nullptr), errFSBadFSRef);
}
