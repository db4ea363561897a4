// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a press of the mouse does to a control, from the button's going down to its coming up.

#include "ControlTracking.h"

#include "Base/Geometry.h"
#include "Common/NeverDestroyed.h"
#include "Events/OutgoingEvent.h"
#include "KeyboardFocus.h"
#include "Window.h"

namespace Host {

Point OriginOf(const Control& theControl)
{
    if (!theControl.IsInCompositingWindow()) {
        return MakePoint(0, 0);
    }
    const Rect theBounds = theControl.WindowBounds();
    return MakePoint(theBounds.left, theBounds.top);
}

namespace {

// The press that is going on. There is one mouse.
struct Tracking
{
    std::weak_ptr<Control> theControl;
    ControlPartCode thePart = kControlNoPart;
    UInt32 theClickCount = 1;
    Point theGrip = {0, 0};     // from the pointer to the indicator's middle
    SInt32 theDraggedValue = 0; // where the indicator is
};

Tracking& Current()
{
    static NeverDestroyed<Tracking> sTracking;
    return sTracking.Get();
}

void CallAction(const SharedControl& theControl, ControlPartCode thePart)
{
    if (theControl->mAction != nullptr) {
        theControl->mAction(theControl->Reference(), thePart);
    }
}

// The part that a press at a point of the window's content would take.
ControlPartCode PressedPartAt(const Control& theControl, Point theContentPoint)
{
    const bool theIsReached = theControl.CanBePressed() && theControl.Is(ControlState::kActive) &&
                              Contains(theControl.WindowBounds(), theContentPoint);
    return theIsReached ? theControl.PartAt(theContentPoint) : ControlPartCode{kControlNoPart};
}

void SetMouseParameters(OutgoingEvent& theEvent, const Control& theControl, const Press& thePress)
{
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl.Reference());
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, thePress.theModifiers);
}

// The click is told before it is tracked; a handler that takes it does with it what it likes.
bool IsClickTaken(const Control& theControl, const Press& thePress)
{
    OutgoingEvent theEvent(kEventClassControl, kEventControlClick);
    SetMouseParameters(theEvent, theControl, thePress);
    theEvent.Set(kEventParamMouseLocation, typeHIPoint, thePress.theGlobalPoint);
    theEvent.Set(kEventParamWindowRef, typeWindowRef, thePress.theWindow);
    theEvent.Set(kEventParamWindowMouseLocation, typeHIPoint, thePress.theWindowPoint);
    theEvent.Set(kEventParamWindowPartCode, typeWindowPartCode, WindowPartCode{inContent});
    theEvent.Set(kEventParamMouseButton, typeMouseButton, EventMouseButton{kEventMouseButtonPrimary});
    theEvent.Set(kEventParamClickCount, typeUInt32, thePress.theClickCount);
    theEvent.Set(kEventParamMouseChord, typeUInt32, UInt32{1});
    return theEvent.SendTo(theControl.Target()) != eventNotHandledErr;
}

// How a tracking ended.
struct TrackingResult
{
    ControlPartCode thePart = kControlNoPart;
    UInt32 theModifiers = 0;
};

// A handler may do the tracking itself; it gives the part that was hit, and the modifiers at the end.
std::optional<TrackingResult> TrackByHandler(const Control& theControl, const Press& thePress)
{
    const Point theOrigin = OriginOf(theControl);
    OutgoingEvent theEvent(kEventClassControl, kEventControlTrack);
    SetMouseParameters(theEvent, theControl, thePress);
    theEvent.Set(kEventParamMouseLocation, typeQDPoint,
                 MakePoint(thePress.thePoint.h - theOrigin.h, thePress.thePoint.v - theOrigin.v));
    theEvent.Set(kEventParamControlAction, typeControlActionUPP, theControl.mAction);
    if (theEvent.SendTo(theControl.Target(), kEventTargetDontPropagate) == eventNotHandledErr) {
        return std::nullopt;
    }
    TrackingResult theResult;
    theEvent.Read(kEventParamControlPart, typeControlPartCode, &theResult.thePart);
    theEvent.Read(kEventParamKeyModifiers, typeUInt32, &theResult.theModifiers);
    return theResult;
}

// Shows the part pressed for as long as the control follows the press by itself.
std::optional<TrackingResult> TrackInLoop(Control& theControl, ControlPartCode thePart, const Press& thePress)
{
    std::optional<ControlPartCode> thePartHit = theControl.TrackByProcedure(thePress.thePoint);
    if (!thePartHit && !theControl.IsGone()) {
        thePartHit = theControl.TrackInLoop(thePart, thePress.theModifiers);
    }
    return thePartHit ? std::optional<TrackingResult>({*thePartHit, thePress.theModifiers}) : std::nullopt;
}

SInt32 ValueUnder(const Control& theControl, Point thePoint)
{
    const Point theGrip = Current().theGrip;
    return theControl.ValueAt(MakePoint(thePoint.h + theGrip.h, thePoint.v + theGrip.v));
}

void DragTo(const SharedControl& theControl, SInt32 theValue)
{
    Tracking& theTracking = Current();
    theValue = theControl->Range().Nearest(theValue);
    if (theValue == theTracking.theDraggedValue) {
        return;
    }
    theTracking.theDraggedValue = theValue;
    if (theControl->mIsLive) {
        theControl->SetValue(theValue);
        if (!theControl->IsGone()) {
            CallAction(theControl, kControlIndicatorPart);
        }
    }
}

// An indicator keeps its place under the pointer; a press beside it brings it there.
Point GripAt(const Control& theControl, Point thePoint)
{
    const Rect thePlace = theControl.PlaceOf(kControlIndicatorPart);
    if (!Contains(thePlace, thePoint)) {
        return MakePoint(0, 0);
    }
    const Point theMiddle = theControl.PlaceOfValue(theControl.Range().theValue);
    return MakePoint(theMiddle.h - thePoint.h, theMiddle.v - thePoint.v);
}

ControlPartCode PartToTrack(const Control& theControl, const Press& thePress)
{
    const bool theCanBeTracked = !theControl.IsGone() && theControl.CanBePressed();
    return theCanBeTracked ? theControl.PartAt(thePress.thePoint) : ControlPartCode{kControlNoPart};
}

void Start(const SharedControl& theControl, ControlPartCode thePart, const Press& thePress)
{
    Tracking& theTracking = Current();
    theTracking = Tracking();
    theTracking.theControl = theControl;
    theTracking.thePart = thePart;
    theTracking.theClickCount = thePress.theClickCount;
    theTracking.theDraggedValue = theControl->Range().theValue;
    if (theControl->IsIndicator(thePart)) {
        theTracking.theGrip = GripAt(*theControl, thePress.thePoint);
    }
    theControl->SetHilite(thePart);
    if (theControl->IsGone()) {
        return;
    }
    if (theControl->IsIndicator(thePart)) {
        DragTo(theControl, ValueUnder(*theControl, thePress.thePoint));
    } else {
        CallAction(theControl, thePart);
    }
}

SharedControl StopTracking()
{
    SharedControl theControl = TrackedControl();
    Current().theControl.reset();
    return theControl;
}

// Lets the control show a click that nobody makes with the mouse. A handler may say which part it hits, or
// that it hits none.
ControlPartCode PartOfSimulatedHit(const Control& theControl, ControlPartCode thePart, UInt32 theModifiers)
{
    OutgoingEvent theEvent(kEventClassControl, kEventControlSimulateHit);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl.Reference());
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
    theEvent.Set(kEventParamControlPart, typeControlPartCode, thePart);
    if (theEvent.SendTo(theControl.Target(), kEventTargetDontPropagate) == noErr) {
        theEvent.Read(kEventParamControlPart, typeControlPartCode, &thePart);
    }
    return thePart;
}

bool SendHit(const Control& theControl, ControlPartCode thePart, UInt32 theModifiers, UInt32 theClickCount)
{
    OutgoingEvent theEvent(kEventClassControl, kEventControlHit);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl.Reference());
    theEvent.Set(kEventParamControlPart, typeControlPartCode, thePart);
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
    theEvent.Set(kEventParamClickCount, typeUInt32, theClickCount);
    return theEvent.SendTo(theControl.Target()) != eventNotHandledErr;
}

void SendCommand(const Control& theControl, const PartCommand& thePartCommand, UInt32 theModifiers)
{
    HICommandExtended theCommand = {};
    theCommand.attributes = kHICommandFromControl;
    theCommand.commandID = thePartCommand.theCommand;
    theCommand.source.control = theControl.Reference();
    OutgoingEvent theEvent(kEventClassCommand, kEventCommandProcess);
    theEvent.Set(kEventParamDirectObject, typeHICommand, theCommand);
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
    theEvent.SendTo(thePartCommand.theTarget);
}

// The container in which a click on a control chooses that one, or null.
SharedControl GroupAround(const Control& theControl)
{
    SharedControl theParent = theControl.Parent();
    return theParent != nullptr && theParent->ChoosesAmong(theControl) ? theParent : nullptr;
}

} // namespace

void Hit(const SharedControl& theControl, ControlPartCode thePart, UInt32 theModifiers, UInt32 theClickCount)
{
    const SharedControl theGroup = GroupAround(*theControl);
    const bool theIsTaken = SendHit(*theControl, thePart, theModifiers, theClickCount);
    if (!theIsTaken && !theControl->IsGone()) {
        const PartCommand theCommand = theControl->CommandOf(thePart);
        if (theCommand.theCommand != 0) {
            SendCommand(*theControl, theCommand, theModifiers);
        }
    }
    if (theGroup != nullptr && !theGroup->IsGone()) {
        Hit(theGroup, kControlRadioGroupPart, theModifiers, theClickCount);
    }
}

void Toggle(const SharedControl& theControl, ControlPartCode thePart)
{
    theControl->PartClicked(thePart);
    if (theControl->IsGone()) {
        return;
    }
    SInt32 theValue = 0;
    const bool theIsToggled =
        (theControl->Features() & kControlAutoToggles) != 0 || GroupAround(*theControl) != nullptr;
    if (!theIsToggled || !theControl->ToggledValue(thePart, &theValue)) {
        return;
    }
    OutgoingEvent theEvent(kEventClassControl, kEventControlGetAutoToggleValue);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl->Reference());
    theEvent.Set(kEventParamControlPart, typeControlPartCode, thePart);
    if (theEvent.SendTo(theControl->Target(), kEventTargetDontPropagate) == noErr) {
        theEvent.Read(kEventParamControlValue, typeSInt32, &theValue);
    }
    if (!theControl->IsGone()) {
        theControl->SetValue(theValue);
    }
}

void PressAndRelease(const SharedControl& theControl, ControlPartCode thePart, UInt32 theModifiers)
{
    if (theControl->IsGone()) {
        return; // a handler that was asked for the part has seen to it
    }
    if (const std::optional<ControlPartCode> theHit = theControl->TrackInLoop(thePart, theModifiers)) {
        if (*theHit != kControlNoPart && !theControl->IsGone()) {
            Hit(theControl, *theHit, theModifiers, 1);
        }
        return;
    }
    if (!theControl->IsIndicator(thePart)) {
        CallAction(theControl, thePart);
    }
    if (!theControl->IsGone()) {
        Toggle(theControl, thePart);
    }
    if (!theControl->IsGone()) {
        Hit(theControl, thePart, theModifiers, 1);
    }
}

SharedControl TrackedControl()
{
    const SharedControl theControl = Current().theControl.lock();
    return theControl == nullptr || theControl->IsGone() ? nullptr : theControl;
}

void BeginTracking(const SharedControl& theControl, const Press& thePress)
{
    if (const SharedControl theForgotten = StopTracking()) {
        // A handler kept the release of the last press for itself.
        theForgotten->SetHilite(kControlNoPart);
    }
    if (theControl->IsGone() || !theControl->CanBePressed() || IsClickTaken(*theControl, thePress) ||
        theControl->IsGone()) {
        return;
    }
    FocusByClick(theControl);
    const ControlPartCode thePart = PartToTrack(*theControl, thePress);
    if (thePart == kControlNoPart || theControl->IsGone()) {
        return;
    }
    std::optional<TrackingResult> theResult = TrackByHandler(*theControl, thePress);
    if (!theResult && !theControl->IsGone()) {
        theResult = TrackInLoop(*theControl, thePart, thePress);
    }
    if (theControl->IsGone()) {
        return;
    }
    if (!theResult) {
        Start(theControl, thePart, thePress);
    } else if (theResult->thePart != kControlNoPart) {
        Hit(theControl, theResult->thePart, theResult->theModifiers, thePress.theClickCount);
    }
}

void ContinueTracking(Point theContentPoint, std::optional<SInt32> theExactValue)
{
    const SharedControl theControl = TrackedControl();
    if (theControl == nullptr) {
        return;
    }
    const ControlPartCode thePart = Current().thePart;
    if (theControl->IsIndicator(thePart)) {
        DragTo(theControl, theExactValue ? *theExactValue : ValueUnder(*theControl, theContentPoint));
    } else {
        const bool theIsInside = theControl->HasPartAt(thePart, theContentPoint);
        theControl->SetHilite(theIsInside ? thePart : ControlPartCode{kControlNoPart});
    }
}

void EndTracking(Point theContentPoint, std::optional<SInt32> theExactValue, UInt32 theModifiers)
{
    ContinueTracking(theContentPoint, theExactValue);
    const ControlPartCode thePart = Current().thePart;
    const SInt32 theDraggedValue = Current().theDraggedValue;
    const UInt32 theClickCount = Current().theClickCount;
    const SharedControl theControl = StopTracking();
    if (theControl == nullptr) {
        return;
    }
    const bool theIsHit = theControl->IsIndicator(thePart) || theControl->Hilite() == thePart;
    theControl->SetHilite(kControlNoPart);
    if (!theIsHit || theControl->IsGone() || !theControl->CanBePressed()) {
        return;
    }
    if (!theControl->IsIndicator(thePart)) {
        Toggle(theControl, thePart);
    } else if (!theControl->mIsLive) {
        theControl->SetValue(theDraggedValue);
    }
    if (!theControl->IsGone()) {
        Hit(theControl, thePart, theModifiers, theClickCount);
    }
}

bool PointOfPart(const SharedControl& theControl, ControlPartCode thePart, Point* thePoint)
{
    const Rect thePlace = theControl->PlaceOf(thePart);
    if (IsEmpty(thePlace)) {
        return false;
    }
    *thePoint = MiddleOf(thePlace);
    return true;
}

bool PointOfValue(const SharedControl& theControl, SInt32 theValue, Point* thePoint)
{
    if (!theControl->IsIndicator(kControlIndicatorPart)) {
        return false;
    }
    *thePoint = theControl->PlaceOfValue(theControl->Range().Nearest(theValue));
    return true;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

ControlPartCode FindControl(Point testPoint, WindowRef theWindow, ControlRef* theControl)
{
    const SharedControl theFound = ControlAt(Host::FindWindow(theWindow), testPoint);
    if (theControl != nullptr) {
        *theControl = theFound == nullptr ? nullptr : theFound->Reference();
    }
    return theFound == nullptr ? ControlPartCode{kControlNoPart} : PressedPartAt(*theFound, testPoint);
}

ControlPartCode TestControl(ControlRef theControl, Point testPoint)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return kControlNoPart;
    }
    const Point theOrigin = OriginOf(*theFound);
    return PressedPartAt(*theFound, MakePoint(testPoint.h + theOrigin.h, testPoint.v + theOrigin.v));
}

OSStatus HIViewSimulateClick(ControlRef inView, ControlPartCode inPartToClick, UInt32 inModifiers,
                             ControlPartCode* outPartClicked)
{
    if (outPartClicked != nullptr) {
        *outPartClicked = kControlNoPart;
    }
    const SharedControl theFound = Host::FindControl(inView);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (!theFound->CanBePressed()) {
        return errControlHiddenOrDisabled;
    }
    const ControlPartCode theMiddle = theFound->PartAt(MiddleOf(theFound->WindowBounds()));
    inPartToClick = inPartToClick == kControlEntireControl ? theMiddle : inPartToClick;
    if (inPartToClick == kControlNoPart ||
        (inPartToClick != theMiddle && IsEmpty(theFound->PlaceOf(inPartToClick)))) {
        return errInvalidPartCode;
    }
    inPartToClick = PartOfSimulatedHit(*theFound, inPartToClick, inModifiers);
    if (outPartClicked != nullptr) {
        *outPartClicked = inPartToClick;
    }
    if (inPartToClick != kControlNoPart && !theFound->IsGone() && theFound->CanBePressed()) {
        PressAndRelease(theFound, inPartToClick, inModifiers);
    }
    return noErr;
}
