// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Icons, pictures, image wells and image views, and how they hold what they show.

#include "ManagerTestSupport.h"

namespace {

class Images : public ControlKindTest
{
protected:
    static ControlButtonContentInfo Content(SInt16 theType)
    {
        ControlButtonContentInfo theContent = {};
        theContent.contentType = theType;
        return theContent;
    }

    // One icon, held once by the test.
    static ControlButtonContentInfo IconContent(OSType theType)
    {
        ControlButtonContentInfo theContent = Content(kControlContentIconRef);
        IconRef theIcon = nullptr;
        EXPECT_EQ(GetIconRef(kOnSystemDisk, kSystemIconsCreator, theType, &theIcon), noErr);
        theContent.u.iconRef = theIcon;
        return theContent;
    }

    // Any object stands for an image.
    static CGImageRef NewImage()
    {
        return reinterpret_cast<CGImageRef>(
            const_cast<void*>(static_cast<const void*>(CFStringCreateMutable(nullptr, 0))));
    }

    ControlRef NewIcon(const ControlButtonContentInfo& theContent, bool theIsTracked = true)
    {
        const Rect theBounds = MakeRect(20, 200, 52, 232);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateIconControl(mWindow, &theBounds, &theContent, !theIsTracked, &theControl), noErr);
        return theControl;
    }

    static Host::PictureShape Picture(ControlRef theControl) { return LookOf(theControl).Rare().thePicture; }
};

} // namespace

TEST_F(Images, AnIconIsHitLikeAButtonUnlessItIsNotTracked)
{
    ControlRef theIcon = NewIcon(Content(kControlContentTextOnly));
    Watch(theIcon, "icon", kWithoutHilite);
    Click(30, 210);
    EXPECT_EQ(TakeLog(), Log{"icon: Hit"});
    EXPECT_EQ(TestControl(theIcon, Point{210, 30}), kControlIconPart);
    SetKeyboardFocus(mWindow, theIcon, kControlFocusNextPart);
    Key(kVK_Space, " ");
    EXPECT_EQ(TakeLog(), Log{"icon: Hit"});
    DisposeControl(theIcon);

    ControlRef theStill = NewIcon(Content(kControlContentTextOnly), false);
    Watch(theStill, "still", kWithoutHilite);
    Click(30, 210);
    EXPECT_EQ(TakeLog(), Log());
    EXPECT_EQ(TestControl(theStill, Point{210, 30}), kControlNoPart);
    EXPECT_NE(SetKeyboardFocus(mWindow, theStill, kControlFocusNextPart), noErr);
}

TEST_F(Images, ShowIconsOfTheSystemAndAFrameForTheRest)
{
    ControlButtonContentInfo theContent = IconContent(kAlertCautionIcon);
    ControlRef theIcon = NewIcon(theContent);
    ReleaseIconRef(theContent.u.iconRef);
    EXPECT_EQ(Picture(theIcon), Host::PictureShape::kCaution);
    ControlButtonContentInfo theResource = Content(kControlContentPictRes);
    theResource.u.resID = 128;
    EXPECT_EQ(SetControlData(theIcon, 0, kControlIconContentTag, sizeof theResource, &theResource), noErr);
    EXPECT_EQ(Picture(theIcon), Host::PictureShape::kFrame);
    const ControlButtonContentInfo theNothing = Content(kControlContentTextOnly);
    EXPECT_EQ(SetControlData(theIcon, 0, kControlIconContentTag, sizeof theNothing, &theNothing), noErr);
    EXPECT_EQ(Picture(theIcon), Host::PictureShape::kNone);
}

TEST_F(Images, HoldAnIconAsLongAsTheyShowIt)
{
    const ControlButtonContentInfo theContent = IconContent(kAlertNoteIcon);
    IconRef theIcon = theContent.u.iconRef;
    ControlRef theControl = NewIcon(theContent);
    EXPECT_EQ(ReleaseIconRef(theIcon), noErr);
    ControlButtonContentInfo theRead = {};
    EXPECT_EQ(GetControlData(theControl, 0, kControlIconContentTag, sizeof theRead, &theRead, nullptr),
              noErr);
    EXPECT_EQ(theRead.contentType, kControlContentIconRef);
    EXPECT_EQ(IconRef{theRead.u.iconRef}, theIcon);
    DisposeControl(theControl);
    EXPECT_EQ(ReleaseIconRef(theIcon), noErr) << "the count of who has read it";
    EXPECT_EQ(ReleaseIconRef(theIcon), paramErr);
    EXPECT_EQ(SetControlData(theControl, 0, kControlIconContentTag, sizeof theRead, &theRead),
              errUnknownControl);
}

TEST_F(Images, KeepWhatTheyShowWhenTheyAreGivenWhatIsNone)
{
    const ControlButtonContentInfo theContent = IconContent(kAlertStopIcon);
    ControlRef theControl = NewIcon(theContent);
    ReleaseIconRef(theContent.u.iconRef);
    ControlButtonContentInfo theWrong = Content(kControlContentIconRef);
    theWrong.u.iconRef = InventedReference<IconRef>();
    EXPECT_EQ(SetControlData(theControl, 0, kControlIconContentTag, sizeof theWrong, &theWrong), paramErr);
    theWrong.contentType = 6;
    EXPECT_EQ(SetControlData(theControl, 0, kControlIconContentTag, sizeof theWrong, &theWrong), paramErr);
    EXPECT_EQ(Picture(theControl), Host::PictureShape::kStop);
    const Rect theBounds = MakeRect(0, 0, 32, 32);
    ControlRef theNew = theControl;
    EXPECT_EQ(CreateIconControl(mWindow, &theBounds, &theWrong, false, &theNew), paramErr);
    EXPECT_EQ(theNew, nullptr);
    EXPECT_EQ(CreatePictureControl(mWindow, &theBounds, nullptr, false, &theNew), paramErr);
}

TEST_F(Images, EachKindHasTagsOfItsOwn)
{
    const Rect theBounds = MakeRect(20, 200, 52, 232);
    const ControlButtonContentInfo theNothing = Content(kControlContentTextOnly);
    ControlRef thePicture = nullptr;
    ControlRef theWell = nullptr;
    CreatePictureControl(mWindow, &theBounds, &theNothing, false, &thePicture);
    CreateImageWellControl(mWindow, &theBounds, &theNothing, &theWell);
    SInt16 theNumber = 5;
    EXPECT_EQ(SetControlData(NewIcon(theNothing), 0, kControlIconAlignmentTag, sizeof theNumber, &theNumber),
              noErr);
    EXPECT_EQ(SetControlData(thePicture, 0, kControlIconAlignmentTag, sizeof theNumber, &theNumber),
              errDataNotSupported);
    CheckFlag(theWell, kControlImageWellIsDragDestinationTag, false);
    PicHandle theHandle = InventedReference<PicHandle>();
    EXPECT_EQ(SetControlData(thePicture, 0, kControlPictureHandleTag, sizeof theHandle, &theHandle), noErr);
    PicHandle theRead = nullptr;
    EXPECT_EQ(GetControlData(thePicture, 0, kControlPictureHandleTag, sizeof theRead, &theRead, nullptr),
              noErr);
    EXPECT_EQ(theRead, theHandle);
    EXPECT_EQ(Picture(thePicture), Host::PictureShape::kFrame);
}

TEST_F(Images, AnImageWellIsClickedAndChosen)
{
    const Rect theBounds = MakeRect(20, 200, 52, 232);
    ControlButtonContentInfo theContent = Content(kControlContentTextOnly);
    ControlRef theWell = nullptr;
    CreateImageWellControl(mWindow, &theBounds, &theContent, &theWell);
    EXPECT_EQ(TestControl(theWell, Point{210, 30}), kControlImageWellPart);
    SetControl32BitValue(theWell, 1);
    EXPECT_EQ(GetControl32BitValue(theWell), 1);
    theContent = IconContent(kGenericDocumentIcon);
    EXPECT_EQ(SetImageWellContentInfo(theWell, &theContent), noErr);
    ReleaseIconRef(theContent.u.iconRef);
    EXPECT_EQ(GetImageWellContentInfo(theWell, &theContent), noErr);
    EXPECT_EQ(theContent.contentType, kControlContentIconRef);
    ReleaseIconRef(theContent.u.iconRef);
    EXPECT_EQ(GetImageWellContentInfo(theWell, nullptr), paramErr);
    EXPECT_EQ(SetImageWellContentInfo(theWell, nullptr), paramErr);
}

// Image views --------------------------------------------------------------------------------------------

TEST_F(Images, AnImageViewHoldsItsImage)
{
    CGImageRef theImage = NewImage();
    HIViewRef theView = nullptr;
    ASSERT_EQ(HIImageViewCreate(theImage, &theView), noErr);
    EXPECT_EQ(CFGetRetainCount(theImage), 2);
    CGImageRef theCopy = HIImageViewCopyImage(theView);
    EXPECT_EQ(theCopy, theImage);
    EXPECT_EQ(CFGetRetainCount(theImage), 3);
    CFRelease(theCopy);
    EXPECT_EQ(HIImageViewSetImage(theView, nullptr), noErr);
    EXPECT_EQ(CFGetRetainCount(theImage), 1);
    EXPECT_EQ(HIImageViewCopyImage(theView), nullptr);
    HIImageViewSetImage(theView, theImage);
    DisposeControl(theView);
    EXPECT_EQ(CFGetRetainCount(theImage), 1);
    CFRelease(theImage);
}

TEST_F(Images, AnImageViewTellsWhatIsNone)
{
    HIViewRef theView = nullptr;
    HIImageViewCreate(nullptr, &theView);
    EXPECT_EQ(HIImageViewSetScaleToFit(theView, true), noErr);
    EXPECT_EQ(HIImageViewSetOpaque(theView, true), noErr);
    EXPECT_EQ(HIImageViewSetAlpha(theView, 0.5F), noErr);
    EXPECT_EQ(HIImageViewSetAlpha(theView, 1.5F), paramErr);
    EXPECT_EQ(HIImageViewSetAlpha(theView, -0.5F), paramErr);
    DisposeControl(theView);
    for (HIViewRef theWrong : {theView, HIViewRef{}, NewPushButton()}) {
        EXPECT_EQ(HIImageViewSetImage(theWrong, nullptr), errUnknownControl);
        EXPECT_EQ(HIImageViewCopyImage(theWrong), nullptr);
        EXPECT_EQ(HIImageViewSetScaleToFit(theWrong, true), errUnknownControl);
        EXPECT_EQ(HIImageViewSetOpaque(theWrong, true), errUnknownControl);
        EXPECT_EQ(HIImageViewSetAlpha(theWrong, 1), errUnknownControl);
    }
}
