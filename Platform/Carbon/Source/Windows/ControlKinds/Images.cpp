// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Images.h"

#include "Windows/Icons.h"

#include <utility>

namespace Host {

namespace {

bool IsType(ControlContentType theType)
{
    return (theType >= kControlContentTextOnly && theType <= kControlContentAlertIconRes) ||
           (theType >= kControlContentIconSuiteHandle && theType <= kControlContentCGImageRef);
}

// A picture that comes from elsewhere is given up with one count, and taken with one.
void HoldOnce(const ControlButtonContentInfo& theContent)
{
    if (theContent.contentType == kControlContentIconRef) {
        AcquireIconRef(theContent.u.iconRef);
    } else if (theContent.contentType == kControlContentCGImageRef && theContent.u.imageRef != nullptr) {
        CFRetain(theContent.u.imageRef);
    }
}

void LetGoOnce(const ControlButtonContentInfo& theContent)
{
    if (theContent.contentType == kControlContentIconRef) {
        ReleaseIconRef(theContent.u.iconRef);
    } else if (theContent.contentType == kControlContentCGImageRef && theContent.u.imageRef != nullptr) {
        CFRelease(theContent.u.imageRef);
    }
}

// The member that goes with the type, and nothing of what stands around it.
ControlButtonContentInfo Cleaned(const ControlButtonContentInfo& theContent)
{
    ControlButtonContentInfo theClean = {};
    theClean.contentType = theContent.contentType;
    if (theContent.contentType >= kControlContentIconSuiteHandle) {
        theClean.u.iconSuite = theContent.u.iconSuite;
    } else if (theContent.contentType != kControlContentTextOnly) {
        theClean.u.resID = theContent.u.resID;
    }
    return theClean;
}

// The look of a control with a picture and nothing else that is rare.
std::shared_ptr<const RareLook> LookOfPicture(PictureShape thePicture)
{
    if (thePicture == PictureShape::kNone) {
        return nullptr;
    }
    RareLook theLook;
    theLook.thePicture = thePicture;
    return std::make_shared<const RareLook>(theLook);
}

} // namespace

HeldContent::HeldContent()
    : mContent()
{
}

HeldContent::~HeldContent()
{
    LetGoOnce(mContent);
}

bool HeldContent::IsContent(const ControlButtonContentInfo& theContent)
{
    const bool theIsNoIcon = theContent.contentType == kControlContentIconRef &&
                             theContent.u.iconRef != nullptr &&
                             PictureOf(theContent.u.iconRef) == PictureShape::kNone;
    return IsType(theContent.contentType) && !theIsNoIcon;
}

OSErr HeldContent::Set(const ControlButtonContentInfo& theContent)
{
    if (!IsContent(theContent)) {
        return paramErr;
    }
    HoldOnce(theContent);
    LetGoOnce(std::exchange(mContent, Cleaned(theContent)));
    return noErr;
}

void HeldContent::Hold(const ControlButtonContentInfo& theContent)
{
    HoldOnce(theContent);
}

PictureShape HeldContent::Picture() const
{
    switch (mContent.contentType) {
    case kControlContentTextOnly:
        return PictureShape::kNone;
    case kControlContentIconRef:
        return PictureOf(mContent.u.iconRef);
    case kControlContentCGImageRef:
        return mContent.u.imageRef == nullptr ? PictureShape::kNone : PictureShape::kFrame;
    default:
        return PictureShape::kFrame;
    }
}

// Icons, pictures and image wells ------------------------------------------------------------------------

ImageControl::ImageControl(OSType theKind, ControlPartCode thePart, bool theIsTracked)
    : Button(theKind, kControlSupportsDataAccess | (theIsTracked ? UInt32{kControlSupportsFocus} : 0),
             thePart),
      mIsTracked(theIsTracked)
{
}

ControlPartCode ImageControl::PartAt(Point thePoint) const
{
    return mIsTracked ? Button::PartAt(thePoint) : ControlPartCode{kControlNoPart};
}

OSStatus ImageControl::PressKey(const KeyPress& theKey)
{
    return mIsTracked ? Button::PressKey(theKey) : OSStatus{eventNotHandledErr};
}

ControlPartCode ImageControl::FocusPart(bool theIsFullAccess) const
{
    return mIsTracked ? Button::FocusPart(theIsFullAccess) : ControlPartCode{kControlFocusNoPart};
}

namespace {

ControlDataTag PictureHandleTag()
{
    ControlDataTag theEntry = {kControlPictureHandleTag, sizeof(PicHandle), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        const ControlButtonContentInfo& theContent =
            static_cast<const ImageControl&>(theControl).mContent.Get();
        const bool theIsPicture = theContent.contentType == kControlContentPictHandle;
        Put(theBuffer, theIsPicture ? PicHandle{theContent.u.picture} : PicHandle{});
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        ControlButtonContentInfo theContent = {};
        theContent.contentType = kControlContentPictHandle;
        theContent.u.picture = Take<PicHandle>(theData);
        return static_cast<ImageControl&>(theControl).mContent.Set(theContent);
    };
    return theEntry;
}

} // namespace

const ControlDataTag* ImageControl::FindTag(ResType theTag) const
{
    static const ControlDataTag kCommon[] = {ContentTag<ImageControl, &ImageControl::mContent>()};
    static const ControlDataTag kIconTags[] = {
        NumberTag<ImageControl, SInt16, &ImageControl::mTransform>(kControlIconTransformTag),
        NumberTag<ImageControl, SInt16, &ImageControl::mAlignment>(kControlIconAlignmentTag),
    };
    static const ControlDataTag kPictureTags[] = {PictureHandleTag()};
    static const ControlDataTag kWellTags[] = {
        NumberTag<ImageControl, SInt16, &ImageControl::mTransform>(kControlImageWellTransformTag),
        FlagTag<ImageControl, &ImageControl::mIsDragDestination>(kControlImageWellIsDragDestinationTag),
    };
    const ControlDataTag* theFound = FindIn(kCommon, theTag, Button::FindTag(theTag));
    switch (Kind()) {
    case kControlKindIcon:
        return FindIn(kIconTags, theTag, theFound);
    case kControlKindPicture:
        return FindIn(kPictureTags, theTag, theFound);
    default:
        return FindIn(kWellTags, theTag, theFound);
    }
}

void ImageControl::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = Kind() == kControlKindImageWell ? ControlShape::kImageWell : ControlShape::kIcon;
    theLook.theRareLook = LookOfPicture(mContent.Picture());
}

// Image views --------------------------------------------------------------------------------------------

ImageView::ImageView()
    : Control(kControlKindHIImageView, 0)
{
}

void ImageView::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kIcon;
    theLook.theRareLook = LookOfPicture(mContent.Picture());
}

namespace {

ControlButtonContentInfo ContentOf(CGImageRef theImage)
{
    ControlButtonContentInfo theContent = {};
    theContent.contentType = kControlContentCGImageRef;
    theContent.u.imageRef = theImage;
    return theContent;
}

} // namespace

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

OSStatus CreateIconControl(WindowRef inWindow, const Rect* inBoundsRect,
                           const ControlButtonContentInfo* inIconContent, Boolean inDontTrack,
                           ControlRef* outControl)
{
    return Host::CreateWithContent<Host::ImageControl>({inWindow, inBoundsRect, nullptr, outControl, true},
                                                       inIconContent, false, OSType{kControlKindIcon},
                                                       ControlPartCode{kControlIconPart}, inDontTrack == 0);
}

OSStatus CreatePictureControl(WindowRef window, const Rect* boundsRect,
                              const ControlButtonContentInfo* content, Boolean dontTrack,
                              ControlRef* outControl)
{
    return Host::CreateWithContent<Host::ImageControl>({window, boundsRect, nullptr, outControl, true},
                                                       content, false, OSType{kControlKindPicture},
                                                       ControlPartCode{kControlPicturePart}, dontTrack == 0);
}

OSStatus CreateImageWellControl(WindowRef window, const Rect* boundsRect,
                                const ControlButtonContentInfo* info, ControlRef* outControl)
{
    return Host::CreateWithContent<Host::ImageControl>(
        {window, boundsRect, nullptr, outControl, true, {0, 0, 1, 0}}, info, false,
        OSType{kControlKindImageWell}, ControlPartCode{kControlImageWellPart}, true);
}

OSErr SetImageWellContentInfo(ControlRef inButton, ControlButtonContentInfoPtr inContent)
{
    return SetControlData(inButton, kControlEntireControl, kControlImageWellContentTag, sizeof *inContent,
                          inContent);
}

OSErr GetImageWellContentInfo(ControlRef inButton, ControlButtonContentInfoPtr outContent)
{
    return outContent == nullptr
               ? OSErr{paramErr}
               : GetControlData(inButton, kControlEntireControl, kControlImageWellContentTag,
                                sizeof *outContent, outContent, nullptr);
}

OSStatus HIImageViewCreate(CGImageRef inImage, HIViewRef* outView)
{
    return Host::MakeView(nullptr, outView, [&] {
        auto theNew = std::make_shared<Host::ImageView>();
        theNew->mContent.Set(Host::ContentOf(inImage));
        return theNew;
    });
}

OSStatus HIImageViewSetImage(HIViewRef inView, CGImageRef inImage)
{
    const auto theFound = Host::FindKind<Host::ImageView>(inView);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    theFound->mContent.Set(Host::ContentOf(inImage));
    theFound->Show();
    return noErr;
}

CGImageRef HIImageViewCopyImage(HIViewRef inView)
{
    const auto theFound = Host::FindKind<Host::ImageView>(inView);
    if (theFound == nullptr) {
        return nullptr;
    }
    Host::HeldContent::Hold(theFound->mContent.Get());
    return theFound->mContent.Get().u.imageRef;
}

OSStatus HIImageViewSetScaleToFit(HIViewRef inView, Boolean inScaleToFit)
{
    const auto theFound = Host::FindKind<Host::ImageView>(inView);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    theFound->mIsScaled = inScaleToFit != 0;
    return noErr;
}

OSStatus HIImageViewSetOpaque(HIViewRef inView, Boolean inOpaque)
{
    const auto theFound = Host::FindKind<Host::ImageView>(inView);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    theFound->mIsOpaque = inOpaque != 0;
    return noErr;
}

OSStatus HIImageViewSetAlpha(HIViewRef inView, CGFloat inAlpha)
{
    const auto theFound = Host::FindKind<Host::ImageView>(inView);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (!(inAlpha >= 0 && inAlpha <= 1)) {
        return paramErr;
    }
    theFound->mAlpha = inAlpha;
    return noErr;
}
