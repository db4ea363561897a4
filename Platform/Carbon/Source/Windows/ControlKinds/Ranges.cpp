// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Ranges.h"

#include "Base/Geometry.h"
#include "Creation.h"
#include "DataTags.h"
#include "Windows/ControlTracking.h"

#include <algorithm>
#include <cstdint>

namespace Host {

namespace {

const int kSliderIndicator = 16;
const int kArrow = 16;
const int kSmallestThumb = 8;

// How many times a page key moves a slider from one end to the other.
const int kPages = 10;

std::int64_t Span(const ControlRange& theRange)
{
    return std::max<std::int64_t>(std::int64_t{theRange.theMaximum} - theRange.theMinimum, 0);
}

} // namespace

// Indicators ---------------------------------------------------------------------------------------------

bool IndicatorControl::IsUpright() const
{
    return HeightOf(Bounds()) > WidthOf(Bounds());
}

bool IndicatorControl::RunsBackward() const
{
    return IsUpright() && RunsBackwardWhenUpright();
}

int IndicatorControl::TotalLength() const
{
    return std::max(IsUpright() ? HeightOf(Bounds()) : WidthOf(Bounds()), 0);
}

int IndicatorControl::IndicatorStart(SInt32 theValue) const
{
    const std::int64_t theSpan = Span(Range());
    const std::int64_t theTravel = std::max(TrackLength() - IndicatorLength(), 0);
    const std::int64_t theAmount = std::int64_t{Range().Nearest(theValue)} - Range().theMinimum;
    const std::int64_t theStep = theSpan == 0 ? 0 : (theAmount * theTravel + theSpan / 2) / theSpan;
    return ArrowLength() + static_cast<int>(theStep);
}

int IndicatorControl::Along(Point thePoint) const
{
    const Rect theBounds = WindowBounds();
    if (RunsBackward()) {
        return theBounds.bottom - 1 - thePoint.v;
    }
    return IsUpright() ? thePoint.v - theBounds.top : thePoint.h - theBounds.left;
}

Rect IndicatorControl::Slice(int theStart, int theEnd) const
{
    const Rect theBounds = WindowBounds();
    if (RunsBackward()) {
        return MakeRect(theBounds.left, theBounds.bottom - theEnd, theBounds.right,
                        theBounds.bottom - theStart);
    }
    if (IsUpright()) {
        return MakeRect(theBounds.left, theBounds.top + theStart, theBounds.right, theBounds.top + theEnd);
    }
    return MakeRect(theBounds.left + theStart, theBounds.top, theBounds.left + theEnd, theBounds.bottom);
}

bool IndicatorControl::IsIndicator(ControlPartCode thePart) const
{
    return thePart == kControlIndicatorPart;
}

SInt32 IndicatorControl::ValueAt(Point thePoint) const
{
    const std::int64_t theTravel = TrackLength() - IndicatorLength();
    if (theTravel <= 0) {
        return Range().theValue;
    }
    const std::int64_t theMiddle = Along(thePoint) - ArrowLength() - IndicatorLength() / 2;
    const std::int64_t theStep = std::clamp<std::int64_t>(theMiddle, 0, theTravel);
    const std::int64_t theAmount = (theStep * Span(Range()) + theTravel / 2) / theTravel;
    return static_cast<SInt32>(Range().theMinimum + theAmount);
}

Rect IndicatorControl::PlaceOf(ControlPartCode thePart) const
{
    if (thePart != kControlIndicatorPart) {
        return MakeRect(0, 0, 0, 0);
    }
    const int theStart = IndicatorStart(Range().theValue);
    return Slice(theStart, theStart + IndicatorLength());
}

Point IndicatorControl::PlaceOfValue(SInt32 theValue) const
{
    const int theMiddle = IndicatorStart(theValue) + IndicatorLength() / 2;
    return MiddleOf(Slice(theMiddle, theMiddle + 1));
}

bool IndicatorControl::SetByKey(SInt32 theValue, UInt32 theModifiers)
{
    if (theValue == Range().theValue) {
        return false;
    }
    const SharedControl theKeepAlive = shared_from_this();
    SetValue(theValue);
    if (!IsGone()) {
        Hit(theKeepAlive, kControlIndicatorPart, theModifiers, 1);
    }
    return true;
}

// Sliders ------------------------------------------------------------------------------------------------

Slider::Slider(UInt16 theTickMarks, bool theIsLive, ControlActionUPP theAction)
    : IndicatorControl(kControlKindSlider,
                       kControlSupportsFocus | (theIsLive ? UInt32{kControlSupportsLiveFeedback} : 0)),
      mTickMarks(theTickMarks)
{
    mIsLive = theIsLive;
    mAction = theAction;
}

int Slider::IndicatorLength() const
{
    return std::min(kSliderIndicator, TotalLength());
}

// A press beside the indicator brings it there, so all of the slider counts as its indicator.
ControlPartCode Slider::PartAt(Point) const
{
    return kControlIndicatorPart;
}

ControlPartCode Slider::FocusPart(bool theIsFullAccess) const
{
    return theIsFullAccess ? ControlPartCode{kControlIndicatorPart} : ControlPartCode{kControlFocusNoPart};
}

SInt32 Slider::ValueAfter(const KeyPress& theKey) const
{
    const std::int64_t theStep =
        mTickMarks > 1 ? std::max<std::int64_t>(Span(Range()) / (mTickMarks - 1), 1) : 1;
    std::int64_t theValue = Range().theValue;
    switch (theKey.theCode) {
    case kVK_RightArrow:
    case kVK_UpArrow:
        theValue += theStep;
        break;
    case kVK_LeftArrow:
    case kVK_DownArrow:
        theValue -= theStep;
        break;
    case kVK_PageUp:
        theValue += std::max(theStep, Span(Range()) / kPages);
        break;
    case kVK_PageDown:
        theValue -= std::max(theStep, Span(Range()) / kPages);
        break;
    case kVK_Home:
        theValue = Range().theMinimum;
        break;
    case kVK_End:
        theValue = Range().theMaximum;
        break;
    default:
        break;
    }
    return static_cast<SInt32>(std::clamp<std::int64_t>(theValue, Range().theMinimum,
                                                        std::max(Range().theMinimum, Range().theMaximum)));
}

OSStatus Slider::PressKey(const KeyPress& theKey)
{
    const bool theIsMoved = CanBePressed() && SetByKey(ValueAfter(theKey), theKey.theModifiers);
    return theIsMoved ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
}

void Slider::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kSlider;
    theLook.theTickMarks = mTickMarks;
}

// Scroll bars --------------------------------------------------------------------------------------------

ScrollBar::ScrollBar(bool theIsLive, ControlActionUPP theAction)
    : IndicatorControl(kControlKindScrollBar, kControlSupportsDataAccess | kControlSupportsFocus |
                                                  (theIsLive ? UInt32{kControlSupportsLiveFeedback} : 0))
{
    mIsLive = theIsLive;
    mAction = theAction;
}

int ScrollBar::ArrowLength() const
{
    return mShowsArrows ? std::min(kArrow, TotalLength() / 2) : 0;
}

int ScrollBar::IndicatorLength() const
{
    const int theTrack = TrackLength();
    if (Range().theViewSize <= 0) {
        return std::min(kArrow, theTrack);
    }
    const std::int64_t theWhole = Span(Range()) + Range().theViewSize;
    const int theShare = static_cast<int>(theTrack * std::int64_t{Range().theViewSize} / theWhole);
    return std::min(std::max(theShare, kSmallestThumb), theTrack);
}

// With nothing to scroll there is nothing to press.
ControlPartCode ScrollBar::PartAt(Point thePoint) const
{
    if (Span(Range()) == 0) {
        return kControlNoPart;
    }
    const int theAlong = Along(thePoint);
    const int theStart = IndicatorStart(Range().theValue);
    if (theAlong < ArrowLength()) {
        return kControlUpButtonPart;
    }
    if (theAlong >= TotalLength() - ArrowLength()) {
        return kControlDownButtonPart;
    }
    if (theAlong < theStart) {
        return kControlPageUpPart;
    }
    return theAlong < theStart + IndicatorLength() ? kControlIndicatorPart : kControlPageDownPart;
}

Rect ScrollBar::PlaceOf(ControlPartCode thePart) const
{
    const int theStart = IndicatorStart(Range().theValue);
    const int theEnd = TotalLength();
    if (Span(Range()) == 0) {
        return MakeRect(0, 0, 0, 0);
    }
    switch (thePart) {
    case kControlUpButtonPart:
        return Slice(0, ArrowLength());
    case kControlPageUpPart:
        return Slice(ArrowLength(), theStart);
    case kControlPageDownPart:
        return Slice(theStart + IndicatorLength(), theEnd - ArrowLength());
    case kControlDownButtonPart:
        return Slice(theEnd - ArrowLength(), theEnd);
    default:
        return IndicatorControl::PlaceOf(thePart);
    }
}

ControlPartCode ScrollBar::FocusPart(bool theEverything) const
{
    return theEverything ? ControlPartCode{kControlIndicatorPart} : ControlPartCode{kControlFocusNoPart};
}

// The keys press the parts that a mouse would; what a press does to the value is the program's to say.
OSStatus ScrollBar::PressKey(const KeyPress& theKey)
{
    if (!CanBePressed() || Span(Range()) == 0) {
        return eventNotHandledErr;
    }
    const auto thePress = [&](ControlPartCode thePart) {
        PressAndRelease(shared_from_this(), thePart, theKey.theModifiers);
        return OSStatus{noErr};
    };
    switch (theKey.theCode) {
    case kVK_UpArrow:
    case kVK_LeftArrow:
        return thePress(kControlUpButtonPart);
    case kVK_DownArrow:
    case kVK_RightArrow:
        return thePress(kControlDownButtonPart);
    case kVK_PageUp:
        return thePress(kControlPageUpPart);
    case kVK_PageDown:
        return thePress(kControlPageDownPart);
    case kVK_Home:
        SetByKey(Range().theMinimum, theKey.theModifiers);
        return noErr;
    case kVK_End:
        SetByKey(Range().theMaximum, theKey.theModifiers);
        return noErr;
    default:
        return eventNotHandledErr;
    }
}

const ControlDataTag* ScrollBar::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        FlagTag<ScrollBar, &ScrollBar::mShowsArrows>(kControlScrollBarShowsArrowsTag),
    };
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

void ScrollBar::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kScrollBar;
}

// Progress bars ------------------------------------------------------------------------------------------

ProgressBar::ProgressBar(bool theIsIndeterminate)
    : Control(kControlKindProgressBar, kControlSupportsDataAccess),
      mIsIndeterminate(theIsIndeterminate)
{
}

const ControlDataTag* ProgressBar::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        FlagTag<ProgressBar, &ProgressBar::mIsIndeterminate>(kControlProgressBarIndeterminateTag),
        FlagTag<ProgressBar, &ProgressBar::mIsAnimating>(kControlProgressBarAnimatingTag),
    };
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

void ProgressBar::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kProgressBar;
    theLook.theIsIndeterminate = mIsIndeterminate;
}

// Relevance bars and chasing arrows ----------------------------------------------------------------------

RelevanceBar::RelevanceBar()
    : Control(kControlKindRelevanceBar, 0)
{
}

void RelevanceBar::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kRelevanceBar;
}

ChasingArrows::ChasingArrows()
    : Control(kControlKindChasingArrows, kControlSupportsDataAccess)
{
}

const ControlDataTag* ChasingArrows::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        FlagTag<ChasingArrows, &ChasingArrows::mIsAnimating>(kControlChasingArrowsAnimatingTag),
    };
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

void ChasingArrows::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kChasingArrows;
    theLook.theIsAnimated = mIsAnimating;
}

// Little arrows ------------------------------------------------------------------------------------------

LittleArrows::LittleArrows(SInt32 theIncrement)
    : Control(kControlKindLittleArrows, kControlSupportsDataAccess | kControlSupportsFocus),
      mIncrement(theIncrement)
{
}

ControlPartCode LittleArrows::PartAt(Point thePoint) const
{
    return Contains(PlaceOf(kControlUpButtonPart), thePoint) ? kControlUpButtonPart : kControlDownButtonPart;
}

Rect LittleArrows::PlaceOf(ControlPartCode thePart) const
{
    const Rect theBounds = WindowBounds();
    const int theMiddle = (theBounds.top + theBounds.bottom) / 2;
    switch (thePart) {
    case kControlUpButtonPart:
        return MakeRect(theBounds.left, theBounds.top, theBounds.right, theMiddle);
    case kControlDownButtonPart:
        return MakeRect(theBounds.left, theMiddle, theBounds.right, theBounds.bottom);
    default:
        return MakeRect(0, 0, 0, 0);
    }
}

ControlPartCode LittleArrows::FocusPart(bool theIsFullAccess) const
{
    return theIsFullAccess ? ControlPartCode{kControlUpButtonPart} : ControlPartCode{kControlFocusNoPart};
}

OSStatus LittleArrows::PressKey(const KeyPress& theKey)
{
    const bool theIsUp = theKey.theCode == kVK_UpArrow;
    if ((!theIsUp && theKey.theCode != kVK_DownArrow) || !CanBePressed()) {
        return eventNotHandledErr;
    }
    PressAndRelease(shared_from_this(), theIsUp ? kControlUpButtonPart : kControlDownButtonPart,
                    theKey.theModifiers);
    return noErr;
}

const ControlDataTag* LittleArrows::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        NumberTag<LittleArrows, SInt32, &LittleArrows::mIncrement>(kControlLittleArrowsIncrementValueTag),
    };
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

void LittleArrows::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kLittleArrows;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

OSStatus CreateSliderControl(WindowRef window, const Rect* boundsRect, SInt32 value, SInt32 minimum,
                             SInt32 maximum, ControlSliderOrientation orientation, UInt16 numTickMarks,
                             Boolean liveTracking, ControlActionUPP liveTrackingProc, ControlRef* outControl)
{
    if (orientation > kControlSliderDoesNotPoint ||
        (numTickMarks > 0 && orientation == kControlSliderDoesNotPoint)) {
        if (outControl != nullptr) {
            *outControl = nullptr;
        }
        return paramErr;
    }
    return Host::Create<Host::Slider>(
        {window, boundsRect, nullptr, outControl, false, {value, minimum, maximum, 0}}, numTickMarks,
        liveTracking != 0, liveTrackingProc);
}

OSStatus CreateScrollBarControl(WindowRef window, const Rect* boundsRect, SInt32 value, SInt32 minimum,
                                SInt32 maximum, SInt32 viewSize, Boolean liveTracking,
                                ControlActionUPP liveTrackingProc, ControlRef* outControl)
{
    return Host::Create<Host::ScrollBar>(
        {window, boundsRect, nullptr, outControl, true, {value, minimum, maximum, viewSize}},
        liveTracking != 0, liveTrackingProc);
}

OSStatus CreateProgressBarControl(WindowRef window, const Rect* boundsRect, SInt32 value, SInt32 minimum,
                                  SInt32 maximum, Boolean indeterminate, ControlRef* outControl)
{
    return Host::Create<Host::ProgressBar>(
        {window, boundsRect, nullptr, outControl, false, {value, minimum, maximum, 0}}, indeterminate != 0);
}

OSStatus CreateLittleArrowsControl(WindowRef window, const Rect* boundsRect, SInt32 value, SInt32 minimum,
                                   SInt32 maximum, SInt32 increment, ControlRef* outControl)
{
    return Host::Create<Host::LittleArrows>(
        {window, boundsRect, nullptr, outControl, false, {value, minimum, maximum, 0}}, increment);
}

OSStatus CreateRelevanceBarControl(WindowRef window, const Rect* boundsRect, SInt32 value, SInt32 minimum,
                                   SInt32 maximum, ControlRef* outControl)
{
    return Host::Create<Host::RelevanceBar>(
        {window, boundsRect, nullptr, outControl, false, {value, minimum, maximum, 0}});
}

OSStatus CreateChasingArrowsControl(WindowRef window, const Rect* boundsRect, ControlRef* outControl)
{
    return Host::Create<Host::ChasingArrows>({window, boundsRect, nullptr, outControl});
}
