// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What windows do by themselves, and what a person asks of them.

#include "WindowDefaults.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "ControlTracking.h"
#include "Events/OutgoingEvent.h"
#include "Events/PersonActions.h"
#include "KeyboardFocus.h"
#include "ModalStates.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

namespace Host {

// The mouse ----------------------------------------------------------------------------------------------

namespace {

// A point of an event in the coordinates of a window's content.
Point ContentPoint(const Window& theWindow, const HIPoint& theGlobalPoint)
{
    const Rect& theContent = theWindow.Content();
    return MakePoint(Narrow(double{theGlobalPoint.x}) - theContent.left,
                     Narrow(double{theGlobalPoint.y}) - theContent.top);
}

void SelectByClick(const SharedWindow& theWindow)
{
    if (!theWindow->IsActive()) {
        ActivatedByPerson(theWindow);
    }
}

} // namespace

Press PressOf(const Window& theWindow, EventRef theEvent, const HIPoint& theGlobalPoint)
{
    const Rect theStructure = theWindow.Structure();
    Press thePress;
    thePress.theWindow = theWindow.Reference();
    thePress.thePoint = ContentPoint(theWindow, theGlobalPoint);
    thePress.theGlobalPoint = theGlobalPoint;
    thePress.theWindowPoint = CGPointMake(theGlobalPoint.x - static_cast<CGFloat>(theStructure.left),
                                          theGlobalPoint.y - static_cast<CGFloat>(theStructure.top));
    ReadParameter(theEvent, kEventParamKeyModifiers, typeUInt32, &thePress.theModifiers);
    ReadParameter(theEvent, kEventParamClickCount, typeUInt32, &thePress.theClickCount);
    return thePress;
}

namespace {

OSStatus PressMouse(const SharedWindow& theWindow, EventRef theEvent, const HIPoint& theGlobalPoint)
{
    SelectByClick(theWindow);
    if (theWindow->IsClosing() || !theWindow->TakesPart() ||
        !theWindow->Has(kWindowStandardHandlerAttribute)) {
        return eventNotHandledErr;
    }
    const Point theGlobal = MakePoint(Narrow(double{theGlobalPoint.x}), Narrow(double{theGlobalPoint.y}));
    if (PartAt(*theWindow, theGlobal) != inContent) {
        return eventNotHandledErr; // the frame is the presenter's
    }
    const Press thePress = PressOf(*theWindow, theEvent, theGlobalPoint);
    const SharedControl theControl = ControlAt(theWindow, thePress.thePoint);
    if (theControl == nullptr) {
        return eventNotHandledErr;
    }
    BeginTracking(theControl, thePress);
    return noErr;
}

// Drags and releases belong to the control that is tracked, wherever the mouse is now.
OSStatus FollowMouse(EventRef theEvent, const HIPoint& theGlobalPoint)
{
    const SharedControl theControl = TrackedControl();
    const SharedWindow theOwner = theControl == nullptr ? nullptr : theControl->Owner();
    if (theOwner == nullptr) {
        return eventNotHandledErr;
    }
    const Point thePoint = ContentPoint(*theOwner, theGlobalPoint);
    SInt32 theValue = 0;
    const bool theIsExact = ReadParameter(theEvent, kEventParamExactIndicatorValue, typeSInt32, &theValue);
    const auto theExactValue = theIsExact ? std::optional<SInt32>(theValue) : std::nullopt;
    if (GetEventKind(theEvent) == kEventMouseDragged) {
        ContinueTracking(thePoint, theExactValue);
        return noErr;
    }
    UInt32 theModifiers = 0;
    ReadParameter(theEvent, kEventParamKeyModifiers, typeUInt32, &theModifiers);
    EndTracking(thePoint, theExactValue, theModifiers);
    return noErr;
}

bool IsPrimaryButton(EventRef theEvent)
{
    EventMouseButton theButton = kEventMouseButtonPrimary;
    ReadParameter(theEvent, kEventParamMouseButton, typeMouseButton, &theButton);
    return theButton == kEventMouseButtonPrimary;
}

OSStatus HandleMouse(const SharedWindow& theWindow, EventRef theEvent)
{
    HIPoint thePoint = CGPointMake(0, 0);
    if (!ReadParameter(theEvent, kEventParamMouseLocation, typeHIPoint, &thePoint) ||
        !IsPrimaryButton(theEvent)) {
        return eventNotHandledErr;
    }
    switch (GetEventKind(theEvent)) {
    case kEventMouseDown:
        return PressMouse(theWindow, theEvent, thePoint);
    case kEventMouseDragged:
    case kEventMouseUp:
        return FollowMouse(theEvent, thePoint);
    default:
        return eventNotHandledErr;
    }
}

// Requests -----------------------------------------------------------------------------------------------

OSStatus HandleRequest(const SharedWindow& theWindow, EventRef theEvent)
{
    switch (GetEventKind(theEvent)) {
    case kEventWindowCollapse:
        return CollapseWindow(theWindow->Reference(), true);
    case kEventWindowExpand:
        return CollapseWindow(theWindow->Reference(), false);
    case kEventWindowCollapseAll:
        return CollapseAllWindows(true);
    case kEventWindowExpandAll:
        return CollapseAllWindows(false);
    case kEventWindowZoom:
        return Zoom(theWindow) ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    case kEventWindowClose:
        if (theWindow->Has(kWindowStandardHandlerAttribute)) {
            DisposeWindow(theWindow->Reference());
            return noErr;
        }
        return eventNotHandledErr;
    default:
        return eventNotHandledErr;
    }
}

// Commands ---------------------------------------------------------------------------------------------

OSStatus AskIf(const SharedWindow& theWindow, WindowAttributes theNeeded, UInt32 theKind)
{
    return theWindow->Has(theNeeded) ? theWindow->Ask(theKind) : OSStatus{eventNotHandledErr};
}

// Every window stays where it is among those of the program.
OSStatus BringAllToFront()
{
    return Guarded([] {
        // A copy: the order changes. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::vector<SharedWindow> theWindows = AllWindows();
        for (auto theEntry = theWindows.rbegin(); theEntry != theWindows.rend(); ++theEntry) {
            if ((*theEntry)->IsVisible() && (*theEntry)->Parent() == nullptr) {
                PutInFront(*theEntry);
            }
        }
        return OSStatus{noErr};
    });
}

OSStatus HandleCommand(const SharedWindow& theWindow, EventRef theEvent)
{
    HICommand theCommand{};
    if (GetEventKind(theEvent) != kEventCommandProcess ||
        !ReadParameter(theEvent, kEventParamDirectObject, typeHICommand, &theCommand)) {
        return eventNotHandledErr;
    }
    switch (theCommand.commandID) {
    case kHICommandZoomWindow:
        return AskIf(theWindow, kWindowFullZoomAttribute, kEventWindowZoom);
    case kHICommandMinimizeWindow:
        return AskIf(theWindow, kWindowCollapseBoxAttribute, kEventWindowCollapse);
    case kHICommandMinimizeAll:
        return CollapseAllWindows(true);
    case kHICommandBringAllToFront:
        return BringAllToFront();
    case kHICommandRotateWindowsForward:
        SendBehind(theWindow->Reference(), nullptr);
        return noErr;
    default:
        return eventNotHandledErr;
    }
}

bool Ask(const SharedWindow& theWindow, WindowAttributes theNeeded, UInt32 theKind)
{
    if (theWindow->IsClosing() || !theWindow->Has(theNeeded)) {
        return false;
    }
    PersonAction theAction(kEventClassWindow, theKind);
    theAction.Set(kEventParamDirectObject, typeWindowRef, theWindow->Reference());
    theAction.Do([&] { theWindow->Ask(theKind); });
    return true;
}

} // namespace

bool ConcernsWindow(OSType theClass)
{
    return theClass == kEventClassMouse || theClass == kEventClassKeyboard ||
           theClass == kEventClassTextInput || theClass == kEventClassWindow ||
           theClass == kEventClassCommand;
}

OSStatus HandleWindowEvent(const SharedWindow& theWindow, EventRef theEvent)
{
    switch (GetEventClass(theEvent)) {
    case kEventClassMouse:
        return HandleMouse(theWindow, theEvent);
    case kEventClassKeyboard:
    case kEventClassTextInput:
        return PressKeyInWindow(theWindow, theEvent);
    case kEventClassWindow:
        return HandleRequest(theWindow, theEvent);
    case kEventClassCommand:
        return HandleCommand(theWindow, theEvent);
    default:
        return eventNotHandledErr;
    }
}

bool AskToClose(const SharedWindow& theWindow)
{
    return Ask(theWindow, kWindowCloseBoxAttribute, kEventWindowClose);
}

bool AskToCollapse(const SharedWindow& theWindow)
{
    return !theWindow->IsCollapsed() && Ask(theWindow, kWindowCollapseBoxAttribute, kEventWindowCollapse);
}

bool AskToExpand(const SharedWindow& theWindow)
{
    return theWindow->IsCollapsed() && Ask(theWindow, kWindowCollapseBoxAttribute, kEventWindowExpand);
}

bool AskToZoom(const SharedWindow& theWindow)
{
    return Ask(theWindow, kWindowFullZoomAttribute, kEventWindowZoom);
}

bool ActivatedByPerson(const SharedWindow& theWindow)
{
    if (theWindow->IsClosing() || !theWindow->TakesPart() || ModalWindowOver(theWindow) != nullptr) {
        return false;
    }
    ForgetChosenUserFocus();
    SelectWindow(theWindow->Reference());
    return true;
}

// Bounds by hand -----------------------------------------------------------------------------------------

namespace {

bool ChangeByHand(const SharedWindow& theWindow, const Rect& theContent, UInt32 theCause, UInt32 theStart,
                  UInt32 theEnd)
{
    if (theWindow->IsClosing() || IsEmpty(theContent) || Agree(theContent, theWindow->Content())) {
        return false;
    }
    PersonAction theAction(kEventClassWindow, theStart);
    theAction.Set(kEventParamDirectObject, typeWindowRef, theWindow->Reference());
    theAction.Do([&] {
        const Rect theOriginal = theWindow->Content();
        theWindow->Tell(theStart);
        if (!theWindow->IsGone()) {
            theWindow->SetContent(theContent, theCause, &theOriginal);
        }
        if (!theWindow->IsGone()) {
            theWindow->Tell(theEnd);
            theWindow->Show(); // handlers may have wanted it elsewhere than the desktop has it
        }
    });
    return true;
}

int Limited(int theSize, float theSmallest, float theLargest)
{
    const int theLow = Narrow(double{theSmallest});
    const int theHigh = std::max(theLow, int{Narrow(double{theLargest})});
    return std::clamp(theSize, theLow, theHigh);
}

} // namespace

bool MovedByPerson(const SharedWindow& theWindow, const Rect& theContent)
{
    if (theWindow->Parent() != nullptr) {
        return false; // a sheet hangs where it hangs
    }
    theWindow->mUnzoomed = MakeRect(0, 0, 0, 0);
    return ChangeByHand(theWindow, theContent, kWindowBoundsChangeUserDrag, kEventWindowDragStarted,
                        kEventWindowDragCompleted);
}

bool ResizedByPerson(const SharedWindow& theWindow, const Rect& theContent)
{
    if (!theWindow->Has(kWindowResizableAttribute)) {
        return false;
    }
    const int theWidth = Limited(WidthOf(theContent), theWindow->mSmallest.width, theWindow->mLargest.width);
    const int theHeight =
        Limited(HeightOf(theContent), theWindow->mSmallest.height, theWindow->mLargest.height);
    const Rect theNew =
        MakeRect(theContent.left, theContent.top, theContent.left + theWidth, theContent.top + theHeight);
    theWindow->mUnzoomed = MakeRect(0, 0, 0, 0);
    return ChangeByHand(theWindow, theNew, kWindowBoundsChangeUserResize, kEventWindowResizeStarted,
                        kEventWindowResizeCompleted);
}

// From the bounds that the person or program gave to those that fill the main screen, and back.
bool Zoom(const SharedWindow& theWindow)
{
    const Rect theOld = theWindow->Content();
    const PixelRect theScreen = PresenterRegistry::Current().Screens().front().theAvailable;
    const Rect theWidths = theWindow->FrameWidths();
    const Rect theFull =
        MakeRect(theScreen.theLeft + theWidths.left, theScreen.theTop + theWidths.top,
                 theScreen.theRight - theWidths.right, theScreen.theBottom - theWidths.bottom);
    const bool theIsZoomed = Agree(theOld, theFull) && !IsEmpty(theWindow->mUnzoomed);
    theWindow->SetContent(theIsZoomed ? theWindow->mUnzoomed : theFull, kWindowBoundsChangeZoom);
    if (theWindow->IsGone() || Agree(theOld, theWindow->Content())) {
        return false;
    }
    theWindow->mUnzoomed = theIsZoomed ? MakeRect(0, 0, 0, 0) : theOld;
    theWindow->Tell(kEventWindowZoomed);
    return true;
}

// Finding and replaying ----------------------------------------------------------------------------------

SharedWindow WindowAt(Point theGlobalPoint)
{
    for (const SharedWindow& theWindow : AllWindows()) {
        if (theWindow->TakesPart() && Contains(theWindow->Structure(), theGlobalPoint)) {
            return theWindow;
        }
    }
    return nullptr;
}

namespace {

// The newest modal state counts: what has an older one is kept out too.
bool IsKeptOutByState(const SharedWindow& theWindow, const SharedWindow& theState)
{
    const SharedWindow theBase = BaseOf(theWindow);
    const bool theIsNewer =
        theBase->IsModal() && theBase->mModalStates == 0 && IndexInOrder(*theBase) < IndexInOrder(*theState);
    return !HangsFrom(theWindow, theState) && !theIsNewer;
}

// A modal window in front, apart from those that have an older modal state than the window.
SharedWindow ModalWindowInFrontOf(const SharedWindow& theWindow, bool theIsInState)
{
    for (const SharedWindow& theOther : AllWindows()) {
        if (theOther == theWindow) {
            break;
        }
        const bool theIsOlder = theIsInState && theOther->mModalStates > 0;
        if (theOther->TakesPart() && theOther->IsModal() && !theIsOlder && !HangsFrom(theWindow, theOther)) {
            return theOther;
        }
    }
    return nullptr;
}

// A sheet, or what else keeps a person from this one window.
SharedWindow ModalWindowOfItsOwn(const SharedWindow& theWindow)
{
    for (const SharedWindow& theOther : AllWindows()) {
        if (theOther->Modality() == kWindowModalityWindowModal && theOther->KeptOut() == theWindow &&
            theOther->TakesPart()) {
            return theOther;
        }
    }
    return nullptr;
}

} // namespace

SharedWindow ModalWindowOver(const SharedWindow& theWindow)
{
    SharedWindow theState = WindowOfModalState();
    if (theState != nullptr && IsKeptOutByState(theWindow, theState)) {
        return theState;
    }
    const SharedWindow theFront = ModalWindowInFrontOf(theWindow, theState != nullptr);
    return theFront != nullptr ? theFront : ModalWindowOfItsOwn(theWindow);
}

void TurnAway(const SharedWindow& theWindow)
{
    const SharedWindow theModal = ModalWindowOver(theWindow);
    if (theModal == nullptr) {
        return;
    }
    const SharedWindow theTop = TopSheetOf(theModal);
    if (theTop->IsActive() || !ActivatedByPerson(theTop)) {
        SysBeep(1);
    }
}

void ReplayWindowLooks(Presenter& thePresenter)
{
    const std::vector<SharedWindow>& theWindows = AllWindows();
    for (auto theEntry = theWindows.rbegin(); theEntry != theWindows.rend(); ++theEntry) {
        thePresenter.WindowLooks((*theEntry)->Look());
        if ((*theEntry)->Root() != nullptr) {
            (*theEntry)->Root()->Replay(thePresenter);
        }
    }
    const SharedWindow theFocusWindow = UserFocusWindow();
    const SharedControl theFocus = theFocusWindow == nullptr ? nullptr : FocusedControl(*theFocusWindow);
    thePresenter.FocusIsAt(theFocusWindow == nullptr ? kNoObject : theFocusWindow->Identifier(),
                           theFocus == nullptr ? kNoObject : theFocus->Identifier());
}

} // namespace Host
