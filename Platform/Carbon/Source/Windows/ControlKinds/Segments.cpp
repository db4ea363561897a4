// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Segments.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Creation.h"
#include "Windows/ControlTracking.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

// Greater part codes mean states of the whole control.
const UInt32 kMostSegments = 128;

// Around what is in a segment, both sides together.
const int kSegmentEdges = 20;

// The room of an image, with the space before a label.
const int kImageWidth = 20;

// No window is wider; what is beyond would overflow sums of many.
const int kWidestSegment = 32767;

} // namespace

SegmentedView::SegmentedView()
    : Control(kHISegmentedViewKind, kControlSupportsFocus)
{
}

Segment* SegmentedView::At(UInt32 theNumber)
{
    return theNumber < 1 || theNumber > mSegments.size() ? nullptr : &mSegments[theNumber - 1];
}

const Segment* SegmentedView::At(UInt32 theNumber) const
{
    return theNumber < 1 || theNumber > mSegments.size() ? nullptr : &mSegments[theNumber - 1];
}

// Values -------------------------------------------------------------------------------------------------

void SegmentedView::SetCount(size_t theCount)
{
    const SharedControl theKeepAlive = shared_from_this();
    mSegments.resize(theCount);
    ControlRange theRange = Range();
    theRange.theMaximum = static_cast<SInt32>(theCount);
    theRange.theValue = theRange.theValue > theRange.theMaximum ? 0 : theRange.theValue;
    SetRange(theRange);
    Show();
}

OSStatus SegmentedView::SetBehavior(UInt32 theNumber, HISegmentBehavior theBehavior)
{
    Segment* const theSegment = At(theNumber);
    if (theSegment == nullptr || theBehavior < kHISegmentBehaviorMomentary ||
        theBehavior > kHISegmentBehaviorSticky) {
        return paramErr;
    }
    theSegment->theBehavior = theBehavior;
    if (theBehavior == kHISegmentBehaviorMomentary) {
        theSegment->theValue = 0;
    }
    FollowRadios();
    return noErr;
}

OSStatus SegmentedView::SetSegmentValue(UInt32 theNumber, SInt32 theValue)
{
    Segment* const theSegment = At(theNumber);
    if (theSegment == nullptr || theValue < 0 || theValue > 1 ||
        (theValue == 1 && theSegment->theBehavior == kHISegmentBehaviorMomentary)) {
        return paramErr;
    }
    if (theValue == 1 && theSegment->theBehavior == kHISegmentBehaviorRadio) {
        for (Segment& theOther : mSegments) {
            theOther.theValue = theOther.theBehavior == kHISegmentBehaviorRadio ? 0 : theOther.theValue;
        }
    }
    theSegment->theValue = theValue;
    FollowRadios();
    return noErr;
}

// The value of the view is the number of the first radio segment that is on.
void SegmentedView::FollowRadios()
{
    const SharedControl theKeepAlive = shared_from_this();
    const auto theFirst = std::find_if(mSegments.begin(), mSegments.end(), [](const Segment& theSegment) {
        return theSegment.theBehavior == kHISegmentBehaviorRadio && theSegment.theValue != 0;
    });
    SetValue(theFirst == mSegments.end() ? 0 : static_cast<SInt32>(theFirst - mSegments.begin()) + 1);
    Show();
}

void SegmentedView::RangeChanged()
{
    for (size_t theIndex = 0; theIndex < mSegments.size(); ++theIndex) {
        if (mSegments[theIndex].theBehavior == kHISegmentBehaviorRadio) {
            mSegments[theIndex].theValue = static_cast<SInt32>(theIndex) + 1 == Range().theValue ? 1 : 0;
        }
    }
    Show();
    Control::RangeChanged();
}

// Places -------------------------------------------------------------------------------------------------

CGFloat SegmentedView::ContentWidthOf(const Segment& theSegment)
{
    if (!theSegment.theIsAsWideAsNeeded) {
        return theSegment.theWidth;
    }
    const std::string theLabel = theSegment.theLabel ? Utf8Of(*theSegment.theLabel) : std::string();
    const PixelSize theSize = PresenterRegistry::Current().MeasureText(theLabel, TextStyle::kBody);
    const bool theHasImage =
        theSegment.theImage != nullptr && theSegment.theImage->Picture() != PictureShape::kNone;
    return static_cast<CGFloat>(std::min(theSize.theWidth, kWidestSegment) + (theHasImage ? kImageWidth : 0));
}

int SegmentedView::WidthOf(const Segment& theSegment)
{
    return NearestCoordinate(double{ContentWidthOf(theSegment)}) + kSegmentEdges;
}

// One after the other from the left; what has no room in the bounds ends with them.
Rect SegmentedView::PlaceOfSegment(size_t theIndex) const
{
    int theStart = 0;
    for (size_t theBefore = 0; theBefore < theIndex; ++theBefore) {
        theStart += WidthOf(mSegments[theBefore]);
    }
    const Rect theBounds = WindowBounds();
    const auto theAcross = [&](int theOffset) {
        return std::min<int>(theBounds.left + theOffset, std::max(theBounds.left, theBounds.right));
    };
    return MakeRect(theAcross(theStart), theBounds.top, theAcross(theStart + WidthOf(mSegments[theIndex])),
                    theBounds.bottom);
}

// A segment that is disabled is no part that could be pressed.
Rect SegmentedView::PlaceOf(ControlPartCode thePart) const
{
    const Segment* const theSegment = thePart < 1 ? nullptr : At(static_cast<UInt32>(thePart));
    return theSegment != nullptr && theSegment->theIsEnabled
               ? PlaceOfSegment(static_cast<size_t>(thePart) - 1)
               : MakeRect(0, 0, 0, 0);
}

ControlPartCode SegmentedView::PartAt(Point thePoint) const
{
    for (size_t theIndex = 0; theIndex < mSegments.size(); ++theIndex) {
        const auto thePart = static_cast<ControlPartCode>(theIndex + 1);
        if (Contains(PlaceOf(thePart), thePoint)) {
            return thePart;
        }
    }
    return kControlNoPart;
}

// Mouse and keys -----------------------------------------------------------------------------------------

void SegmentedView::PartClicked(ControlPartCode thePart)
{
    const auto theNumber = static_cast<UInt32>(thePart);
    const Segment* const theSegment = At(theNumber);
    if (theSegment == nullptr) {
        return;
    }
    mNumberWithKeys = theNumber;
    switch (theSegment->theBehavior) {
    case kHISegmentBehaviorToggles:
        SetSegmentValue(theNumber, theSegment->theValue == 0 ? 1 : 0);
        break;
    case kHISegmentBehaviorRadio:
    case kHISegmentBehaviorSticky:
        SetSegmentValue(theNumber, 1);
        break;
    default:
        Show();
        break;
    }
}

PartCommand SegmentedView::CommandOf(ControlPartCode thePart) const
{
    const Segment* const theSegment = thePart < 1 ? nullptr : At(static_cast<UInt32>(thePart));
    if (theSegment == nullptr || theSegment->theCommand == 0) {
        return Control::CommandOf(thePart);
    }
    const bool theGoesToFocus = (theSegment->theAttributes & kHISegmentSendCmdToUserFocus) != 0;
    return {theSegment->theCommand, theGoesToFocus ? GetUserFocusEventTarget() : Target()};
}

bool SegmentedView::CanBeReached(UInt32 theNumber) const
{
    const Segment* const theSegment = At(theNumber);
    return theSegment != nullptr && theSegment->theIsEnabled;
}

// The segment that was reached last, else the first that can be; 0 when none can.
UInt32 SegmentedView::NumberWithKeys() const
{
    UInt32 theNumber = CanBeReached(mNumberWithKeys) ? mNumberWithKeys : 1;
    while (At(theNumber) != nullptr && !CanBeReached(theNumber)) {
        ++theNumber;
    }
    return At(theNumber) == nullptr ? 0 : theNumber;
}

ControlPartCode SegmentedView::FocusPart(bool theIsFullAccess) const
{
    return theIsFullAccess && NumberWithKeys() != 0 ? ControlPartCode{1}
                                                    : ControlPartCode{kControlFocusNoPart};
}

OSStatus SegmentedView::PressKey(const KeyPress& theKey)
{
    UInt32 theNumber = NumberWithKeys();
    const bool theMoves = theKey.theCode == kVK_LeftArrow || theKey.theCode == kVK_RightArrow;
    if ((theKey.theCode != kVK_Space && !theMoves) || theNumber == 0 || !CanBePressed()) {
        return eventNotHandledErr;
    }
    if (!theMoves) {
        PressAndRelease(shared_from_this(), static_cast<ControlPartCode>(theNumber), theKey.theModifiers);
        return noErr;
    }
    const UInt32 theStep = theKey.theCode == kVK_LeftArrow ? ~UInt32{0} : 1; // down wraps to 0, which is none
    do {
        theNumber += theStep;
    } while (At(theNumber) != nullptr && !CanBeReached(theNumber));
    if (At(theNumber) != nullptr) {
        mNumberWithKeys = theNumber;
        Show();
    }
    return noErr;
}

void SegmentedView::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kSegments;
    const auto theRareLook = std::make_shared<RareLook>();
    const UInt32 theNumberWithKeys = NumberWithKeys();
    for (size_t theIndex = 0; theIndex < mSegments.size(); ++theIndex) {
        const Segment& theSegment = mSegments[theIndex];
        SegmentLook theOne;
        theOne.theTitle = theSegment.theLabel ? Utf8Of(*theSegment.theLabel) : std::string();
        theOne.thePicture =
            theSegment.theImage == nullptr ? PictureShape::kNone : theSegment.theImage->Picture();
        theOne.theIsEnabled = theSegment.theIsEnabled;
        theOne.theIsOn = theSegment.theValue != 0;
        theOne.theIsPressed = Hilite() == static_cast<ControlPartCode>(theIndex + 1);
        theOne.theHasKeys = theIndex + 1 == theNumberWithKeys;
        theOne.theBounds = PixelsOf(PlaceOfSegment(theIndex));
        theRareLook->theSegments.push_back(std::move(theOne));
    }
    theLook.theRareLook = theRareLook;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

namespace {

using View = std::shared_ptr<SegmentedView>;

// Does something with a segment.
template <class Action>
OSStatus With(const View& theView, UInt32 theNumber, const Action& theAction)
{
    if (theView == nullptr) {
        return errUnknownControl;
    }
    Segment* const theSegment = theView->At(theNumber);
    if (theSegment == nullptr) {
        return paramErr;
    }
    return Guarded([&] { return OSStatus{theAction(*theSegment)}; });
}

// Does something to a segment and shows the view anew.
template <class Action>
OSStatus Change(HIViewRef theReference, UInt32 theNumber, const Action& theChange)
{
    const View theView = FindKind<SegmentedView>(theReference);
    const OSStatus theStatus = With(theView, theNumber, theChange);
    if (theStatus == noErr) {
        theView->Show();
    }
    return theStatus;
}

// What a segment has, or theDefault where there is none.
template <class Type, class Reader>
Type Read(HIViewRef theView, UInt32 theNumber, Type theDefault, const Reader& theRead)
{
    const View theFound = FindKind<SegmentedView>(theView);
    const Segment* const theSegment = theFound == nullptr ? nullptr : theFound->At(theNumber);
    return theSegment == nullptr ? theDefault : theRead(*theSegment);
}

} // namespace

OSStatus HISegmentedViewCreate(const HIRect* inBounds, HIViewRef* outRef)
{
    return MakeView(inBounds, outRef, [] { return std::make_shared<SegmentedView>(); });
}

OSStatus HISegmentedViewSetSegmentCount(HIViewRef inSegmentedView, UInt32 inSegmentCount)
{
    const View theFound = FindKind<SegmentedView>(inSegmentedView);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (inSegmentCount > kMostSegments) {
        return paramErr;
    }
    return Guarded([&] {
        theFound->SetCount(inSegmentCount);
        return OSStatus{noErr};
    });
}

UInt32 HISegmentedViewGetSegmentCount(HIViewRef inSegmentedView)
{
    const View theFound = FindKind<SegmentedView>(inSegmentedView);
    return theFound == nullptr ? 0 : static_cast<UInt32>(theFound->Count());
}

OSStatus HISegmentedViewSetSegmentBehavior(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                           HISegmentBehavior inBehavior)
{
    const View theFound = FindKind<SegmentedView>(inSegmentedView);
    return theFound == nullptr ? OSStatus{errUnknownControl}
                               : theFound->SetBehavior(inSegmentIndexOneBased, inBehavior);
}

HISegmentBehavior HISegmentedViewGetSegmentBehavior(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased)
{
    return Read(inSegmentedView, inSegmentIndexOneBased, HISegmentBehavior{0},
                [](const Segment& theSegment) { return theSegment.theBehavior; });
}

OSStatus HISegmentedViewChangeSegmentAttributes(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                                OptionBits inAttributesToSet, OptionBits inAttributesToClear)
{
    return Change(inSegmentedView, inSegmentIndexOneBased, [&](Segment& theSegment) -> OSStatus {
        if (((inAttributesToSet | inAttributesToClear) & ~OptionBits{kHISegmentSendCmdToUserFocus}) != 0) {
            return paramErr;
        }
        theSegment.theAttributes = (theSegment.theAttributes | inAttributesToSet) & ~inAttributesToClear;
        return noErr;
    });
}

OptionBits HISegmentedViewGetSegmentAttributes(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased)
{
    return Read(inSegmentedView, inSegmentIndexOneBased, OptionBits{0},
                [](const Segment& theSegment) { return theSegment.theAttributes; });
}

OSStatus HISegmentedViewSetSegmentValue(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                        SInt32 inValue)
{
    const View theFound = FindKind<SegmentedView>(inSegmentedView);
    return theFound == nullptr ? OSStatus{errUnknownControl}
                               : theFound->SetSegmentValue(inSegmentIndexOneBased, inValue);
}

SInt32 HISegmentedViewGetSegmentValue(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased)
{
    return Read(inSegmentedView, inSegmentIndexOneBased, SInt32{0},
                [](const Segment& theSegment) { return theSegment.theValue; });
}

OSStatus HISegmentedViewSetSegmentEnabled(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                          Boolean inEnabled)
{
    return Change(inSegmentedView, inSegmentIndexOneBased, [&](Segment& theSegment) {
        theSegment.theIsEnabled = inEnabled != 0;
        return noErr;
    });
}

Boolean HISegmentedViewIsSegmentEnabled(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased)
{
    return Read(inSegmentedView, inSegmentIndexOneBased, Boolean{false},
                [](const Segment& theSegment) { return static_cast<Boolean>(theSegment.theIsEnabled); });
}

OSStatus HISegmentedViewSetSegmentCommand(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                          UInt32 inCommand)
{
    return Change(inSegmentedView, inSegmentIndexOneBased, [&](Segment& theSegment) {
        theSegment.theCommand = inCommand;
        return noErr;
    });
}

UInt32 HISegmentedViewGetSegmentCommand(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased)
{
    return Read(inSegmentedView, inSegmentIndexOneBased, UInt32{0},
                [](const Segment& theSegment) { return theSegment.theCommand; });
}

OSStatus HISegmentedViewSetSegmentLabel(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                        CFStringRef inLabel)
{
    return Change(inSegmentedView, inSegmentIndexOneBased, [&](Segment& theSegment) {
        theSegment.theLabel =
            inLabel == nullptr ? std::optional<Text>() : std::optional<Text>(Host::TextOf(inLabel));
        return noErr;
    });
}

OSStatus HISegmentedViewCopySegmentLabel(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                         CFStringRef* outLabel)
{
    if (outLabel == nullptr) {
        return paramErr;
    }
    *outLabel = nullptr;
    const View theView = FindKind<SegmentedView>(inSegmentedView);
    return With(theView, inSegmentIndexOneBased, [&](const Segment& theSegment) {
        *outLabel = theSegment.theLabel ? CreateString(*theSegment.theLabel) : nullptr;
        return noErr;
    });
}

OSStatus HISegmentedViewSetSegmentContentWidth(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                               Boolean inAutoCalculateWidth, CGFloat inWidth)
{
    return Change(inSegmentedView, inSegmentIndexOneBased, [&](Segment& theSegment) -> OSStatus {
        if (inAutoCalculateWidth == 0 && !(inWidth >= 0)) {
            return paramErr;
        }
        theSegment.theIsAsWideAsNeeded = inAutoCalculateWidth != 0;
        theSegment.theWidth = inAutoCalculateWidth != 0 ? 0 : inWidth;
        return noErr;
    });
}

CGFloat HISegmentedViewGetSegmentContentWidth(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                              Boolean* outAutoCalculated)
{
    const View theFound = FindKind<SegmentedView>(inSegmentedView);
    const Segment* const theSegment = theFound == nullptr ? nullptr : theFound->At(inSegmentIndexOneBased);
    if (outAutoCalculated != nullptr) {
        *outAutoCalculated = theSegment != nullptr && theSegment->theIsAsWideAsNeeded;
    }
    return theSegment == nullptr ? CGFloat{0} : SegmentedView::ContentWidthOf(*theSegment);
}

OSStatus HISegmentedViewSetSegmentImage(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                        const HIViewImageContentInfo* inImage)
{
    return Change(inSegmentedView, inSegmentIndexOneBased, [&](Segment& theSegment) -> OSStatus {
        if (inImage == nullptr) {
            return paramErr;
        }
        auto theImage = std::make_shared<HeldContent>();
        const OSStatus theStatus = theImage->Set(*inImage);
        if (theStatus == noErr) {
            theSegment.theImage = std::move(theImage);
        }
        return theStatus;
    });
}

OSStatus HISegmentedViewCopySegmentImage(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased,
                                         HIViewImageContentInfo* ioImage)
{
    const View theView = FindKind<SegmentedView>(inSegmentedView);
    return With(theView, inSegmentIndexOneBased, [&](const Segment& theSegment) -> OSStatus {
        if (ioImage == nullptr) {
            return paramErr;
        }
        *ioImage = theSegment.theImage == nullptr ? HeldContent().Get() : theSegment.theImage->Get();
        HeldContent::Hold(*ioImage);
        return noErr;
    });
}

HIViewImageContentType HISegmentedViewGetSegmentImageContentType(HIViewRef inSegmentedView,
                                                                 UInt32 inSegmentIndexOneBased)
{
    return Read(inSegmentedView, inSegmentIndexOneBased, HIViewImageContentType{0},
                [](const Segment& theSegment) {
                    return theSegment.theImage == nullptr ? HIViewImageContentType{kControlContentTextOnly}
                                                          : theSegment.theImage->Get().contentType;
                });
}
