// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Bounds and frames of views, the coordinates that they are in, and what is at a place.

#include "Base/Geometry.h"
#include "Windows/Window.h"

#include <optional>

using namespace Host;

namespace {

// Where the coordinates of something begin, in those of the window's content or of the screen.
struct Origin
{
    double theAcross = 0;
    double theDown = 0;
};

Origin operator+(const Origin& theOne, const Origin& theOther)
{
    return {theOne.theAcross + theOther.theAcross, theOne.theDown + theOther.theDown};
}

Origin operator-(const Origin& theOne, const Origin& theOther)
{
    return {theOne.theAcross - theOther.theAcross, theOne.theDown - theOther.theDown};
}

Origin TopLeftOf(const Rect& theRect)
{
    return {static_cast<double>(theRect.left), static_cast<double>(theRect.top)};
}

// In the window's content.
Origin OriginOf(const Control& theView)
{
    return theView.IsRoot() ? Origin() : TopLeftOf(theView.WindowBounds());
}

// In the window's content, too: the structure begins above and to the left of it.
Origin OriginOf(const Window& theWindow)
{
    return Origin() - TopLeftOf(theWindow.FrameWidths());
}

Origin OriginAround(const Control& theView)
{
    const SharedControl theParent = theView.Parent();
    return theParent == nullptr ? Origin() : OriginOf(*theParent);
}

HIRect BoundsOf(const Control& theView)
{
    return CGRectMake(0, 0, static_cast<CGFloat>(WidthOf(theView.Bounds())),
                      static_cast<CGFloat>(HeightOf(theView.Bounds())));
}

HIRect FrameOf(const Control& theView)
{
    HIRect theFrame = BoundsOf(theView);
    const Origin thePlace = OriginOf(theView) - OriginAround(theView);
    theFrame.origin =
        CGPointMake(static_cast<CGFloat>(thePlace.theAcross), static_cast<CGFloat>(thePlace.theDown));
    return theFrame;
}

void SetFrame(Control& theView, const HIRect& theFrame)
{
    // Bounds count from the view around in a compositing window, and from the content in others.
    const Origin theShift = TopLeftOf(theView.Bounds()) - (OriginOf(theView) - OriginAround(theView));
    const double theLeft = double{theFrame.origin.x} + theShift.theAcross;
    const double theTop = double{theFrame.origin.y} + theShift.theDown;
    theView.SetBounds(Host::MakeRect(NearestCoordinate(theLeft), NearestCoordinate(theTop),
                                     NearestCoordinate(theLeft + double{theFrame.size.width}),
                                     NearestCoordinate(theTop + double{theFrame.size.height})));
}

// What a call that changes the place of a view begins and ends with.
template <class Changes>
OSStatus ChangeFrame(HIViewRef theReference, const Changes& theChanges)
{
    const SharedControl theView = Host::FindControl(theReference);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    HIRect theFrame = FrameOf(*theView);
    theChanges(&theFrame);
    SetFrame(*theView, theFrame);
    return noErr;
}

OSStatus GetRect(HIViewRef theReference, HIRect* theRect, HIRect (*theQuestion)(const Control&))
{
    if (theRect == nullptr) {
        return paramErr;
    }
    *theRect = CGRectZero;
    const SharedControl theView = Host::FindControl(theReference);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    *theRect = theQuestion(*theView);
    return noErr;
}

void Shift(HIPoint* thePoint, const Origin& theShift)
{
    thePoint->x = static_cast<CGFloat>(double{thePoint->x} + theShift.theAcross);
    thePoint->y = static_cast<CGFloat>(double{thePoint->y} + theShift.theDown);
}

// From one view to another, null standing for the window of the other.
OSStatus Convert(HIPoint* thePoint, HIViewRef theSource, HIViewRef theDestination)
{
    const SharedControl theFrom = Host::FindControl(theSource);
    const SharedControl theTo = Host::FindControl(theDestination);
    if ((theFrom == nullptr && theSource != nullptr) || (theTo == nullptr && theDestination != nullptr)) {
        return errUnknownControl;
    }
    if (theFrom == nullptr && theTo == nullptr) {
        return paramErr;
    }
    const SharedWindow theWindow = (theFrom == nullptr ? theTo : theFrom)->Owner();
    if (theWindow == nullptr || (theTo != nullptr && theTo->Owner() != theWindow)) {
        return paramErr;
    }
    const Origin theStart = theFrom == nullptr ? OriginOf(*theWindow) : OriginOf(*theFrom);
    const Origin theEnd = theTo == nullptr ? OriginOf(*theWindow) : OriginOf(*theTo);
    Shift(thePoint, theStart - theEnd);
    return noErr;
}

// On the screen.
std::optional<Origin> OriginOfSpace(HICoordinateSpace theSpace, void* theObject)
{
    switch (theSpace) {
    case kHICoordSpace72DPIGlobal:
    case kHICoordSpaceScreenPixel:
        return Origin();
    case kHICoordSpaceWindow: {
        const SharedWindow theWindow = Host::FindWindow(static_cast<WindowRef>(theObject));
        return theWindow == nullptr ? std::nullopt : std::optional<Origin>(TopLeftOf(theWindow->Structure()));
    }
    case kHICoordSpaceView: {
        const SharedControl theView = Host::FindControl(static_cast<HIViewRef>(theObject));
        const SharedWindow theWindow = theView == nullptr ? nullptr : theView->Owner();
        return theWindow == nullptr
                   ? std::nullopt
                   : std::optional<Origin>(TopLeftOf(theWindow->Content()) + OriginOf(*theView));
    }
    default:
        return std::nullopt;
    }
}

Point ContentPoint(const Control& theView, const HIPoint& thePoint)
{
    const Origin theOrigin = OriginOf(theView);
    Point theResult;
    theResult.h = Narrow(double{thePoint.x} + theOrigin.theAcross);
    theResult.v = Narrow(double{thePoint.y} + theOrigin.theDown);
    return theResult;
}

bool CanBeHit(const Control& theView)
{
    return theView.CanBePressed() && theView.Is(ControlState::kActive);
}

} // namespace

OSStatus HIViewGetBounds(HIViewRef inView, HIRect* outRect)
{
    return GetRect(inView, outRect, BoundsOf);
}

OSStatus HIViewGetFrame(HIViewRef inView, HIRect* outRect)
{
    return GetRect(inView, outRect, FrameOf);
}

OSStatus HIViewSetFrame(HIViewRef inView, const HIRect* inRect)
{
    if (inRect == nullptr) {
        return paramErr;
    }
    return ChangeFrame(inView, [=](HIRect* theFrame) { *theFrame = *inRect; });
}

OSStatus HIViewMoveBy(HIViewRef inView, CGFloat inDX, CGFloat inDY)
{
    return ChangeFrame(inView, [=](HIRect* theFrame) {
        Shift(&theFrame->origin, {double{inDX}, double{inDY}});
    });
}

OSStatus HIViewPlaceInSuperviewAt(HIViewRef inView, CGFloat inX, CGFloat inY)
{
    return ChangeFrame(inView, [=](HIRect* theFrame) { theFrame->origin = CGPointMake(inX, inY); });
}

OSStatus HIViewConvertPoint(HIPoint* ioPoint, HIViewRef inSourceView, HIViewRef inDestView)
{
    return ioPoint == nullptr ? OSStatus{paramErr} : Convert(ioPoint, inSourceView, inDestView);
}

OSStatus HIViewConvertRect(HIRect* ioRect, HIViewRef inSourceView, HIViewRef inDestView)
{
    return ioRect == nullptr ? OSStatus{paramErr} : Convert(&ioRect->origin, inSourceView, inDestView);
}

void HIPointConvert(HIPoint* ioPoint, HICoordinateSpace inSourceSpace, void* inSourceObject,
                    HICoordinateSpace inDestinationSpace, void* inDestinationObject)
{
    const std::optional<Origin> theStart = OriginOfSpace(inSourceSpace, inSourceObject);
    const std::optional<Origin> theEnd = OriginOfSpace(inDestinationSpace, inDestinationObject);
    if (ioPoint != nullptr && theStart.has_value() && theEnd.has_value()) {
        Shift(ioPoint, *theStart - *theEnd);
    }
}

void HIRectConvert(HIRect* ioRect, HICoordinateSpace inSourceSpace, void* inSourceObject,
                   HICoordinateSpace inDestinationSpace, void* inDestinationObject)
{
    if (ioRect != nullptr) {
        HIPointConvert(&ioRect->origin, inSourceSpace, inSourceObject, inDestinationSpace,
                       inDestinationObject);
    }
}

// Every space has the same scale.
void HISizeConvert(HISize*, HICoordinateSpace, void*, HICoordinateSpace, void*) {}

OSStatus HIViewGetPartHit(HIViewRef inView, const HIPoint* inPoint, HIViewPartCode* outPart)
{
    if (outPart == nullptr) {
        return paramErr;
    }
    *outPart = kHIViewNoPart;
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    if (inPoint == nullptr) {
        return paramErr;
    }
    const Point thePlace = ContentPoint(*theView, *inPoint);
    if (CanBeHit(*theView) && Contains(theView->WindowBounds(), thePlace)) {
        *outPart = theView->PartAt(thePlace);
    }
    return noErr;
}

OSStatus HIViewGetSubviewHit(HIViewRef inView, const HIPoint* inPoint, Boolean inDeep, HIViewRef* outView)
{
    if (outView == nullptr) {
        return paramErr;
    }
    *outView = nullptr;
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    if (inPoint == nullptr) {
        return paramErr;
    }
    const SharedControl theFound = SubControlAt(*theView, ContentPoint(*theView, *inPoint), inDeep);
    *outView = theFound == nullptr ? nullptr : theFound->Reference();
    return noErr;
}
