// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InputGate.h"

#include "AppleEvents/DesktopRequests.h"
#include "Events/EventLoop.h"
#include "Events/EventLoopTimers.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"
#include "Events/PersonActions.h"
#include "KeyText.h"
#include "Menus/Menus.h"
#include "Toolbox/Held.h"
#include "Windows/Control.h"
#include "Windows/KeyboardFocus.h"
#include "Windows/Window.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Host {

namespace {

// No key position depends on it; programs get a number because they expect one.
constexpr UInt32 kKeyboardType = 0;

short ToShort(int theNumber)
{
    constexpr int kLeast = std::numeric_limits<short>::min();
    constexpr int kMost = std::numeric_limits<short>::max();
    return static_cast<short>(std::clamp(theNumber, kLeast, kMost));
}

// Differences and sums of coordinates from outside need more room than they have.
int ToInt(std::int64_t theNumber)
{
    constexpr std::int64_t kLeast = std::numeric_limits<int>::min();
    constexpr std::int64_t kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(theNumber, kLeast, kMost));
}

PixelPoint Difference(PixelPoint theOne, PixelPoint theOther)
{
    return {ToInt(static_cast<std::int64_t>(theOne.theX) - theOther.theX),
            ToInt(static_cast<std::int64_t>(theOne.theY) - theOther.theY)};
}

HIPoint ToHIPoint(PixelPoint thePoint)
{
    return {static_cast<CGFloat>(thePoint.theX), static_cast<CGFloat>(thePoint.theY)};
}

Point ToPoint(PixelPoint thePoint)
{
    return {ToShort(thePoint.theY), ToShort(thePoint.theX)};
}

// The window when a person can act on it, else null.
SharedWindow FindOpenWindow(ObjectId theIdentifier)
{
    SharedWindow theWindow = FindWindow(theIdentifier);
    const bool theIsOpen =
        theWindow != nullptr && theWindow->TakesPart() && ModalWindowOver(theWindow) == nullptr;
    return theIsOpen ? theWindow : nullptr;
}

// A person cannot act on the window, which may be for a modal one.
void TurnAwayFrom(ObjectId theIdentifier)
{
    if (const SharedWindow theWindow = FindWindow(theIdentifier);
        theWindow != nullptr && theWindow->TakesPart()) {
        TurnAway(theWindow);
    }
}

// The part of the window at a place; inContent when the pointer has left a window that it was pressed in.
WindowPartCode PartAt(WindowRef theWindow, PixelPoint thePlace)
{
    WindowRef theFound = nullptr;
    const WindowPartCode thePart = ::FindWindow(ToPoint(thePlace), &theFound);
    return theFound == theWindow ? thePart : static_cast<WindowPartCode>(inContent);
}

// A mouse event with what all kinds of them carry.
class MouseEvent : public OutgoingEvent
{
public:
    // theWindow may be null.
    MouseEvent(UInt32 theKind, const SharedWindow& theWindow, PixelPoint thePlace, UInt32 theModifiers)
        : OutgoingEvent(kEventClassMouse, theKind, kEventAttributeUserEvent)
    {
        Set(kEventParamMouseLocation, typeHIPoint, ToHIPoint(thePlace));
        Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
        if (theWindow != nullptr) {
            SetWindow(*theWindow, thePlace);
        }
    }

    void SetButton(PointerButton theButton, UInt32 theClickCount, UInt32 theButtonsDown)
    {
        Set(kEventParamMouseButton, typeMouseButton, static_cast<UInt16>(theButton));
        Set(kEventParamClickCount, typeUInt32, theClickCount);
        Set(kEventParamMouseChord, typeUInt32, theButtonsDown);
    }

    void SetExactValue(std::optional<SInt32> theValue)
    {
        if (theValue) {
            Set(kEventParamExactIndicatorValue, typeSInt32, *theValue);
        }
    }

    // Whether somebody wanted it.
    bool Dispatch() const { return DispatchUserEvent(Get()) != eventNotHandledErr; }

private:
    void SetWindow(const Window& theWindow, PixelPoint thePlace)
    {
        const Rect theFrame = theWindow.Structure();
        const PixelPoint theCorner = {theFrame.left, theFrame.top};
        const WindowRef theReference = theWindow.Reference();
        Set(kEventParamWindowRef, typeWindowRef, theReference);
        Set(kEventParamWindowMouseLocation, typeHIPoint, ToHIPoint(Difference(thePlace, theCorner)));
        Set(kEventParamWindowPartCode, typeWindowPartCode, PartAt(theReference, thePlace));
    }
};

std::uint32_t BitOf(PointerButton theButton)
{
    return theButton == PointerButton::kPrimary ? 1u : theButton == PointerButton::kSecondary ? 2u : 4u;
}

// Whether somebody wanted it.
bool SendKey(UInt32 theKind, const KeyAction& theAction)
{
    const KeyText theText = TextOfKey(theAction.theKey, theAction.theText);
    const OutgoingEvent theEvent(kEventClassKeyboard, theKind, kEventAttributeUserEvent);
    SetEventParameter(theEvent.Get(), kEventParamKeyMacCharCodes, typeChar, 1, &theText.theMacCharacter);
    if (!theText.theUnicode.empty()) {
        SetEventParameter(theEvent.Get(), kEventParamKeyUnicodes, typeUnicodeText,
                          theText.theUnicode.size() * sizeof(UniChar), theText.theUnicode.data());
    }
    const UInt32 theNumbers[] = {theAction.theKey, theAction.theModifiers, kKeyboardType};
    const EventParamName theNames[] = {kEventParamKeyCode, kEventParamKeyModifiers, kEventParamKeyboardType};
    for (size_t theIndex = 0; theIndex < std::size(theNames); ++theIndex) {
        SetEventParameter(theEvent.Get(), theNames[theIndex], typeUInt32, sizeof(UInt32),
                          &theNumbers[theIndex]);
    }
    return DispatchUserEvent(theEvent.Get()) != eventNotHandledErr;
}

// Keys do not reach a window behind a modal one.
bool KeysAreHeld()
{
    const SharedWindow theWindow = UserFocusWindow();
    return theWindow != nullptr && ModalWindowOver(theWindow) != nullptr;
}

ControlPartCode CodeOf(ControlPart thePart, OSType theKind)
{
    switch (thePart) {
    case ControlPart::kMenuButton:
        return theKind == kControlKindHIComboBox ? ControlPartCode{kHIComboBoxDisclosurePart}
                                                 : ControlPartCode{kControlMenuPart};
    case ControlPart::kCancelButton:
        return kControlSearchFieldCancelPart;
    case ControlPart::kUpButton:
        return kControlUpButtonPart;
    case ControlPart::kDownButton:
        return kControlDownButtonPart;
    case ControlPart::kPageUp:
        return kControlPageUpPart;
    case ControlPart::kPageDown:
        break;
    }
    return kControlPageDownPart;
}

// The global place of a point of the control's window.
PixelPoint GlobalPlace(const Window& theWindow, Point theContentPoint)
{
    const Rect& theContent = theWindow.Content();
    return {theContent.left + theContentPoint.h, theContent.top + theContentPoint.v};
}

Rect Moved(const Rect& theRect, PixelPoint theTopLeft)
{
    return {ToShort(theTopLeft.theY), ToShort(theTopLeft.theX),
            ToShort(ToInt(static_cast<std::int64_t>(theTopLeft.theY) + theRect.bottom - theRect.top)),
            ToShort(ToInt(static_cast<std::int64_t>(theTopLeft.theX) + theRect.right - theRect.left))};
}

Rect Resized(const Rect& theRect, PixelSize theSize)
{
    return {theRect.top, theRect.left,
            ToShort(ToInt(static_cast<std::int64_t>(theRect.top) + theSize.theHeight)),
            ToShort(ToInt(static_cast<std::int64_t>(theRect.left) + theSize.theWidth))};
}

bool IsSame(const Rect& theOne, const Rect& theOther)
{
    return theOne.top == theOther.top && theOne.left == theOther.left && theOne.bottom == theOther.bottom &&
           theOne.right == theOther.right;
}

} // namespace

// Told before the events are sent, whose handlers may ask.
void InputGate::TellState() const
{
    SetHeld({mPlace, mButtonsDown, mKeysDown});
}

void InputGate::LetGo()
{
    mPressedWindow = kNoObject;
    mTrackedControl = kNoObject;
    mButtonsDown = 0;
    mKeysDown.clear();
    TellState();
}

// Pointer ----------------------------------------------------------------------------------------------

bool InputGate::PointerPressed(const PointerAction& theAction)
{
    if (mButtonsDown != 0 && FindWindow(mPressedWindow) == nullptr) {
        // Who closes the window under the pointer may never report the release.
        LetGo();
    }
    const SharedWindow theWindow = FindOpenWindow(mButtonsDown == 0 ? theAction.theWindow : mPressedWindow);
    mWasTaken = false;
    if (theWindow == nullptr && mButtonsDown == 0) {
        TurnAwayFrom(theAction.theWindow);
    }
    if (theWindow == nullptr || (mButtonsDown & BitOf(theAction.theButton)) != 0) {
        return false;
    }
    mPressedWindow = theWindow->Identifier();
    mButtonsDown |= BitOf(theAction.theButton);
    mPlace = theAction.thePlace;
    TellState();
    MouseEvent theEvent(kEventMouseDown, theWindow, theAction.thePlace, theAction.theModifiers);
    theEvent.SetButton(theAction.theButton, static_cast<UInt32>(theAction.theClickCount), mButtonsDown);
    mWasTaken = theEvent.Dispatch();
    return true;
}

bool InputGate::PointerMoved(const PointerAction& theAction)
{
    return theAction.thePlace != mPlace && SendMove(theAction);
}

bool InputGate::SendMove(const PointerAction& theAction, std::optional<SInt32> theExactValue)
{
    const bool theIsDrag = mButtonsDown != 0;
    const SharedWindow theWindow =
        theIsDrag ? FindWindow(mPressedWindow) : FindOpenWindow(theAction.theWindow);
    if (theWindow == nullptr && (theIsDrag || theAction.theWindow != kNoObject)) {
        return false;
    }
    const PixelPoint theDelta = Difference(theAction.thePlace, mPlace);
    mPlace = theAction.thePlace;
    TellState();
    MouseEvent theEvent(theIsDrag ? kEventMouseDragged : kEventMouseMoved, theWindow, theAction.thePlace,
                        theAction.theModifiers);
    theEvent.Set(kEventParamMouseDelta, typeHIPoint, ToHIPoint(theDelta));
    theEvent.SetExactValue(theExactValue);
    theEvent.Dispatch();
    return true;
}

bool InputGate::PointerReleased(const PointerAction& theAction)
{
    return SendRelease(theAction);
}

bool InputGate::SendRelease(const PointerAction& theAction, std::optional<SInt32> theExactValue)
{
    if ((mButtonsDown & BitOf(theAction.theButton)) == 0) {
        return false;
    }
    const SharedWindow theWindow = FindWindow(mPressedWindow);
    mButtonsDown &= ~BitOf(theAction.theButton);
    mPressedWindow = mButtonsDown == 0 ? kNoObject : mPressedWindow;
    mPlace = theAction.thePlace;
    TellState();
    if (theWindow == nullptr) {
        return false;
    }
    MouseEvent theEvent(kEventMouseUp, theWindow, theAction.thePlace, theAction.theModifiers);
    theEvent.SetButton(theAction.theButton, static_cast<UInt32>(theAction.theClickCount), mButtonsDown);
    theEvent.SetExactValue(theExactValue);
    theEvent.Dispatch();
    return true;
}

bool InputGate::WheelTurned(const WheelAction& theAction)
{
    const SharedWindow theWindow = FindOpenWindow(theAction.theWindow);
    mWasTaken = false;
    if (theWindow == nullptr || theAction.theLines == 0) {
        return false;
    }
    MouseEvent theEvent(kEventMouseWheelMoved, theWindow, theAction.thePlace, theAction.theModifiers);
    const UInt16 theAxis = theAction.theIsHorizontal ? kEventMouseWheelAxisX : kEventMouseWheelAxisY;
    theEvent.Set(kEventParamMouseWheelAxis, typeMouseWheelAxis, theAxis);
    theEvent.Set(kEventParamMouseWheelDelta, typeSInt32, static_cast<SInt32>(theAction.theLines));
    mWasTaken = theEvent.Dispatch();
    return true;
}

// Keys -------------------------------------------------------------------------------------------------

bool InputGate::KeyPressed(const KeyAction& theAction)
{
    mWasTaken = false;
    if (KeysAreHeld()) {
        return false;
    }
    GiveFirstFocus();
    // Some desktops report a repetition as one more press.
    const bool theIsNew = mKeysDown.insert(theAction.theKey).second;
    TellState();
    return Deliver(theIsNew ? kEventRawKeyDown : kEventRawKeyRepeat, theAction);
}

bool InputGate::KeyRepeated(const KeyAction& theAction)
{
    mWasTaken = false;
    if (mKeysDown.count(theAction.theKey) == 0 || KeysAreHeld()) {
        return false;
    }
    return Deliver(kEventRawKeyRepeat, theAction);
}

bool InputGate::KeyReleased(const KeyAction& theAction)
{
    mWasTaken = false;
    if (mKeysDown.erase(theAction.theKey) == 0) {
        return false;
    }
    TellState();
    return Deliver(kEventRawKeyUp, theAction);
}

bool InputGate::Deliver(UInt32 theKind, const KeyAction& theAction)
{
    // Handlers may report keys too: what counts is how this one ended.
    mWasTaken = SendKey(theKind, theAction);
    return true;
}

bool InputGate::ModifiersChanged(std::uint32_t theModifiers)
{
    if (theModifiers == mModifiers) {
        return false;
    }
    mModifiers = theModifiers;
    SetCurrentKeyModifiers(theModifiers);
    OutgoingEvent theEvent(kEventClassKeyboard, kEventRawKeyModifiersChanged, kEventAttributeUserEvent);
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, static_cast<UInt32>(theModifiers));
    DispatchUserEvent(theEvent.Get());
    return true;
}

// Controls ---------------------------------------------------------------------------------------------

bool InputGate::ControlDragged(const ControlDrag& theDrag)
{
    if (theDrag.thePhase == DragPhase::kBegan) {
        return PressPart(FindControl(theDrag.theControl), kControlIndicatorPart, theDrag.theModifiers);
    }
    return theDrag.theControl == mTrackedControl && DragIndicator(theDrag);
}

bool InputGate::PartPressed(const PartPress& thePress)
{
    if (thePress.theIsDown) {
        const SharedControl theControl = FindControl(thePress.theControl);
        const OSType theKind = theControl == nullptr ? OSType{0} : theControl->Kind();
        return PressPart(theControl, CodeOf(thePress.thePart, theKind), thePress.theModifiers);
    }
    if (mTrackedControl == kNoObject || mTrackedControl != thePress.theControl) {
        return false;
    }
    mTrackedControl = kNoObject;
    PointerAction theRelease;
    theRelease.thePlace = mPlace;
    theRelease.theModifiers = thePress.theModifiers;
    return PointerReleased(theRelease);
}

// Presses the part where the managers think that it is. theControl may be null.
bool InputGate::PressPart(const SharedControl& theControl, ControlPartCode thePart,
                          std::uint32_t theModifiers)
{
    const SharedWindow theOwner = theControl == nullptr ? nullptr : theControl->Owner();
    Point thePoint = {0, 0};
    if (theOwner == nullptr || !PointOfPart(theControl, thePart, &thePoint)) {
        return false;
    }
    PointerAction thePress;
    thePress.theWindow = theOwner->Identifier();
    thePress.thePlace = GlobalPlace(*theOwner, thePoint);
    thePress.theModifiers = theModifiers;
    if (mButtonsDown != 0 || !PointerPressed(thePress)) {
        return false;
    }
    mTrackedControl = theControl->Identifier();
    return true;
}

// A small step of the value may leave the indicator on its pixel, and is reported all the same: the exact
// value travels with the mouse event, for whoever handles it.
bool InputGate::DragIndicator(const ControlDrag& theDrag)
{
    PointerAction theMove;
    theMove.theModifiers = theDrag.theModifiers;
    theMove.thePlace = mPlace;
    std::optional<SInt32> theExactValue;
    Point thePoint = {0, 0};
    const SharedWindow theWindow = FindWindow(mPressedWindow);
    const SharedControl theControl = FindControl(theDrag.theControl);
    if (theWindow != nullptr && theControl != nullptr &&
        PointOfValue(theControl, theDrag.theValue, &thePoint)) {
        theMove.thePlace = GlobalPlace(*theWindow, thePoint);
        theExactValue = theDrag.theValue;
    }
    if (theDrag.thePhase == DragPhase::kMoved) {
        return SendMove(theMove, theExactValue);
    }
    mTrackedControl = kNoObject;
    return SendRelease(theMove, theExactValue);
}

bool InputGate::TextEdited(const TextEdit& theEdit)
{
    const SharedControl theControl = FindControl(theEdit.theControl);
    const auto theIndex = [](int theNumber) { return static_cast<size_t>(std::max(theNumber, 0)); };
    return theControl != nullptr &&
           TextEditedByPerson(theControl, ToUtf16(theEdit.theText), theIndex(theEdit.theSelectionStart),
                              theIndex(theEdit.theSelectionEnd));
}

// Windows ----------------------------------------------------------------------------------------------

bool InputGate::CloseAsked(ObjectId theWindow)
{
    const SharedWindow theFound = FindOpenWindow(theWindow);
    return theFound != nullptr && AskToClose(theFound);
}

bool InputGate::ZoomAsked(ObjectId theWindow)
{
    const SharedWindow theFound = FindOpenWindow(theWindow);
    return theFound != nullptr && AskToZoom(theFound);
}

bool InputGate::CollapseAsked(ObjectId theWindow, bool theIsCollapse)
{
    const SharedWindow theFound = FindWindow(theWindow);
    if (theFound == nullptr || !theFound->IsVisible() || theFound->IsCollapsed() == theIsCollapse ||
        ModalWindowOver(theFound) != nullptr) {
        return false;
    }
    return theIsCollapse ? AskToCollapse(theFound) : AskToExpand(theFound);
}

// Only the managers show windows: whatever a desktop says about it is an echo.
bool InputGate::WindowShown(ObjectId)
{
    return false;
}

bool InputGate::WindowMoved(ObjectId theWindow, PixelPoint theContentTopLeft)
{
    const SharedWindow theFound = FindOpenWindow(theWindow);
    if (theFound == nullptr) {
        return false;
    }
    const Rect theNew = Moved(theFound->Content(), theContentTopLeft);
    return !IsSame(theFound->Content(), theNew) && MovedByPerson(theFound, theNew);
}

bool InputGate::WindowResized(ObjectId theWindow, PixelSize theContentSize)
{
    const SharedWindow theFound = FindOpenWindow(theWindow);
    if (theFound == nullptr) {
        return false;
    }
    const Rect theNew = Resized(theFound->Content(), theContentSize);
    return !IsSame(theFound->Content(), theNew) && ResizedByPerson(theFound, theNew);
}

bool InputGate::WindowActivated(ObjectId theWindow)
{
    const SharedWindow theFound = FindOpenWindow(theWindow);
    if (theFound == nullptr || theFound->IsActive()) {
        return false;
    }
    PersonAction theAction(kEventClassWindow, kEventWindowActivated);
    theAction.Set(kEventParamDirectObject, typeWindowRef, theFound->Reference());
    bool isDelivered = false;
    theAction.Do([&] { isDelivered = ActivatedByPerson(theFound); });
    return isDelivered;
}

// Menus ------------------------------------------------------------------------------------------------

bool InputGate::MenuOpened(ObjectId theMenu)
{
    return MenuOpenedByPerson(theMenu);
}

bool InputGate::MenuChosen(const MenuChoice& theChoice, std::uint32_t theModifiers)
{
    const bool theIsIndex =
        theChoice.theItem > 0 && theChoice.theItem <= std::numeric_limits<MenuItemIndex>::max();
    return theIsIndex &&
           MenuChosenByPerson(theChoice.theMenu, static_cast<MenuItemIndex>(theChoice.theItem), theModifiers);
}

bool InputGate::MenuClosed(ObjectId theMenu)
{
    return MenuClosedByPerson(theMenu);
}

bool InputGate::OpenAsked(const std::vector<std::string>& theFiles)
{
    return AskWithFiles(kAEOpenDocuments, theFiles);
}

bool InputGate::PrintAsked(const std::vector<std::string>& theFiles)
{
    return AskWithFiles(kAEPrintDocuments, theFiles);
}

bool InputGate::ReopenAsked()
{
    return AskFor(kAEReopenApplication);
}

bool InputGate::QuitAsked()
{
    PersonAction theAction(kEventClassApplication, kEventAppQuit);
    theAction.Do([] { AskToQuit(); });
    return true;
}

double InputGate::FireTimers()
{
    FireDueTimers();
    const double theNext = NextTimerTime();
    return std::isfinite(theNext) ? std::max(0.0, theNext - GetCurrentEventTime()) : -1;
}

} // namespace Host
