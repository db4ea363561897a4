// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Icons of the system.

#include "Windows/Icons.h"

#include "ManagerTestSupport.h"

using Host::PictureOf;
using Host::PictureShape;

namespace {

PictureShape PictureOfType(OSType theCreator, OSType theType)
{
    IconRef theIcon = nullptr;
    EXPECT_EQ(GetIconRef(kOnSystemDisk, theCreator, theType, &theIcon), noErr);
    const PictureShape thePicture = PictureOf(theIcon);
    EXPECT_EQ(ReleaseIconRef(theIcon), noErr);
    return thePicture;
}

} // namespace

TEST(Icons, StandForWhatTheDesktopHasAPictureOf)
{
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kGenericFolderIcon), PictureShape::kFolder);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kFinderIcon), PictureShape::kFolder);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kGenericApplicationIcon), PictureShape::kApplication);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kGenericHardDiskIcon), PictureShape::kDisk);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kAlertNoteIcon), PictureShape::kNote);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kAlertCautionIcon), PictureShape::kCaution);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, kAlertStopIcon), PictureShape::kStop);
    EXPECT_EQ(PictureOfType(kSystemIconsCreator, 'what'), PictureShape::kDocument);
    EXPECT_EQ(PictureOfType('ttxt', kAlertStopIcon), PictureShape::kDocument) << "another program's";
}

TEST(Icons, ArePutRightIntoTheContentOfAButton)
{
    // A record of this kind has its pointer two bytes behind its beginning.
    struct Content
    {
        UInt64 theFirst;
        ControlButtonContentInfo theContent;
    } theRecord = {};
    ASSERT_NE(reinterpret_cast<uintptr_t>(&theRecord.theContent.u) % alignof(UInt32), 0U);
    void* theField = &theRecord.theContent.u;
    EXPECT_EQ(GetIconRef(kOnSystemDisk, kSystemIconsCreator, kAlertStopIcon, static_cast<IconRef*>(theField)),
              noErr);
    EXPECT_EQ(PictureOf(theRecord.theContent.u.iconRef), PictureShape::kStop);
    EXPECT_EQ(ReleaseIconRef(theRecord.theContent.u.iconRef), noErr);
}

TEST(Icons, LiveAsLongAsSomebodyHoldsThem)
{
    IconRef theIcon = nullptr;
    GetIconRef(kOnSystemDisk, kSystemIconsCreator, kAlertNoteIcon, &theIcon);
    EXPECT_EQ(AcquireIconRef(theIcon), noErr);
    EXPECT_EQ(ReleaseIconRef(theIcon), noErr);
    EXPECT_EQ(PictureOf(theIcon), PictureShape::kNote);
    EXPECT_EQ(ReleaseIconRef(theIcon), noErr);
    EXPECT_EQ(PictureOf(theIcon), PictureShape::kNone);
    EXPECT_EQ(ReleaseIconRef(theIcon), paramErr);
    EXPECT_EQ(AcquireIconRef(theIcon), paramErr);
    EXPECT_EQ(GetIconRef(kOnSystemDisk, kSystemIconsCreator, kAlertNoteIcon, nullptr), paramErr);
    EXPECT_EQ(AcquireIconRef(nullptr), paramErr);
}
