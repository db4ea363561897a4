// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "KeyboardFocus.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Common/NeverDestroyed.h"
#include "ControlTracking.h"
#include "Events/EventLoop.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"
#include "Window.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

bool gIsFullKeyboardAccessOn = true;

// Asks a control to take the focus with a part, or to give it up with kControlFocusNoPart, and gives the part
// that it has then.
ControlPartCode AskForFocus(const SharedControl& theControl, ControlPartCode thePart)
{
    OutgoingEvent theEvent(kEventClassControl, kEventControlSetFocusPart);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl->Reference());
    theEvent.Set(kEventParamControlPart, typeControlPartCode, thePart);
    theEvent.Set(kEventParamControlFocusEverything, typeBoolean,
                 static_cast<Boolean>(gIsFullKeyboardAccessOn));
    const OSStatus theAnswer = theEvent.SendTo(theControl->Target(), kEventTargetDontPropagate);
    if (theAnswer == noErr) {
        theEvent.Read(kEventParamControlPart, typeControlPartCode, &thePart);
    }
    if (theAnswer == eventNotHandledErr && !theControl->IsGone()) {
        return theControl->AnswerFocus(thePart);
    }
    return theAnswer == noErr || theAnswer == eventNotHandledErr ? thePart
                                                                 : ControlPartCode{kControlFocusNoPart};
}

void TellFocusPart(const Control& theControl, ControlPartCode thePrevious, ControlPartCode theCurrent)
{
    OutgoingEvent theEvent(kEventClassControl, kEventControlFocusPartChanged);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl.Reference());
    theEvent.Set(kEventParamControlPreviousPart, typeControlPartCode, thePrevious);
    theEvent.Set(kEventParamControlCurrentPart, typeControlPartCode, theCurrent);
    theEvent.SendTo(theControl.Target(), kEventTargetDontPropagate);
}

void GiveUpFocus(const SharedWindow& theWindow)
{
    const SharedControl theControl = FocusedControl(*theWindow);
    if (theControl == nullptr) {
        return;
    }
    const ControlPartCode thePart = theWindow->mFocusPart;
    theWindow->mFocus.reset();
    theWindow->mFocusPart = kControlFocusNoPart;
    ShowFocus();
    // A handler that gives it back leaves nothing to tell.
    const auto theIsLost = [&] { return !theControl->IsGone() && FocusedControl(*theWindow) != theControl; };
    AskForFocus(theControl, kControlFocusNoPart);
    if (theIsLost()) {
        theControl->FocusMoved(false);
    }
    if (theIsLost()) {
        TellFocusPart(*theControl, thePart, kControlFocusNoPart);
    }
}

bool CanHaveFocus(const Window& theWindow, const Control& theControl, ControlPartCode thePart)
{
    return !theControl.IsGoing() && !theWindow.IsClosing() && theControl.Owner().get() == &theWindow &&
           theControl.CanBePressed() && thePart != kControlFocusNoPart &&
           theControl.FocusPart(gIsFullKeyboardAccessOn) == thePart;
}

OSErr TakeFocus(const SharedWindow& theWindow, const SharedControl& theControl, ControlPartCode thePart)
{
    const ControlPartCode theAnswer = AskForFocus(theControl, thePart);
    if (theAnswer == kControlFocusNoPart || !CanHaveFocus(*theWindow, *theControl, thePart) ||
        FocusedControl(*theWindow) != nullptr) {
        return FocusedControl(*theWindow) == theControl ? OSErr{noErr} : OSErr{errCouldntSetFocus};
    }
    theWindow->mFocus = theControl;
    theWindow->mFocusPart = thePart;
    ShowFocus();
    theControl->FocusMoved(true);
    TellFocusPart(*theControl, kControlFocusNoPart, thePart);
    return noErr;
}

// Every control that can take the focus, in the order of the Tab key.
void CollectFocusable(const SharedControl& theControl, std::vector<SharedControl>* theControls)
{
    const ControlPartCode thePart = theControl->FocusPart(gIsFullKeyboardAccessOn);
    if (thePart != kControlFocusNoPart && theControl->CanBePressed()) {
        theControls->push_back(theControl);
    }
    for (const SharedControl& theSubControl : theControl->SubControls()) {
        CollectFocusable(theSubControl, theControls);
    }
}

std::vector<SharedControl> FocusOrder(const Window& theWindow)
{
    std::vector<SharedControl> theControls;
    if (theWindow.Root() != nullptr) {
        CollectFocusable(theWindow.Root(), &theControls);
    }
    SortByPlace(&theControls);
    return theControls;
}

} // namespace

void SetFullKeyboardAccess(bool theIsOn)
{
    gIsFullKeyboardAccessOn = theIsOn;
}

bool IsFullKeyboardAccessOn()
{
    return gIsFullKeyboardAccessOn;
}

void SortByPlace(std::vector<SharedControl>* theControls)
{
    std::stable_sort(theControls->begin(), theControls->end(), [](const auto& theOne, const auto& theOther) {
        const Rect theFirst = theOne->WindowBounds();
        const Rect theSecond = theOther->WindowBounds();
        return theFirst.top != theSecond.top ? theFirst.top < theSecond.top : theFirst.left < theSecond.left;
    });
}

SharedControl FocusedControl(const Window& theWindow)
{
    return theWindow.mFocus.lock();
}

OSErr MoveFocus(const SharedWindow& theWindow, const SharedControl& theControl, ControlPartCode thePart)
{
    theWindow->mIsFocusChosen = true;
    if (theControl != nullptr && FocusedControl(*theWindow) == theControl &&
        theWindow->mFocusPart == thePart) {
        return noErr;
    }
    if (theControl != nullptr && !CanHaveFocus(*theWindow, *theControl, thePart)) {
        return errCouldntSetFocus;
    }
    GiveUpFocus(theWindow);
    if (theControl == nullptr) {
        return noErr;
    }
    if (!CanHaveFocus(*theWindow, *theControl, thePart)) {
        return errCouldntSetFocus;
    }
    return TakeFocus(theWindow, theControl, thePart);
}

namespace {

OSErr MoveFocusByKey(const SharedWindow& theWindow, const SharedControl& theControl)
{
    const OSErr theError = MoveFocus(theWindow, theControl, theControl->FocusPart(gIsFullKeyboardAccessOn));
    if (theError == noErr && FocusedControl(*theWindow) == theControl) {
        theControl->EnteredByKey();
    }
    return theError;
}

} // namespace

OSErr AdvanceFocus(const SharedWindow& theWindow, bool theIsBackward)
{
    std::vector<SharedControl> theControls = FocusOrder(*theWindow);
    if (theControls.empty()) {
        return errCouldntSetFocus;
    }
    if (theIsBackward) {
        std::reverse(theControls.begin(), theControls.end());
    }
    const auto theFound = std::find(theControls.begin(), theControls.end(), FocusedControl(*theWindow));
    const bool theIsLast = theFound == theControls.end() || theFound + 1 == theControls.end();
    return MoveFocusByKey(theWindow, theIsLast ? theControls.front() : *(theFound + 1));
}

bool GiveFirstFocus()
{
    const SharedWindow theWindow = UserFocusWindow();
    if (theWindow == nullptr || theWindow->mIsFocusChosen ||
        !theWindow->Has(kWindowStandardHandlerAttribute)) {
        return false;
    }
    // Without memory for it there is no first focus yet.
    return Guarded([&theWindow] {
               const std::vector<SharedControl> theControls = FocusOrder(*theWindow);
               return theControls.empty() ? OSStatus{errCouldntSetFocus}
                                          : OSStatus{MoveFocusByKey(theWindow, theControls.front())};
           }) == noErr;
}

void ReleaseFocusInside(const Control& theControl)
{
    ReleaseFocusInside(theControl.Owner(), theControl);
}

void ReleaseFocusInside(const SharedWindow& theWindow, const Control& theControl)
{
    const SharedControl theFocus = theWindow == nullptr ? nullptr : FocusedControl(*theWindow);
    if (theFocus != nullptr && theFocus->IsInside(theControl)) {
        GiveUpFocus(theWindow);
    }
}

void FocusByClick(const SharedControl& theControl)
{
    const SharedWindow theWindow = theControl->Owner();
    const ControlPartCode thePart = theControl->FocusPart(gIsFullKeyboardAccessOn);
    const bool theWantsIt = (theControl->Features() & kControlGetsFocusOnClick) != 0;
    if (theWindow != nullptr && theWantsIt && thePart != kControlFocusNoPart) {
        MoveFocus(theWindow, theControl, thePart);
    }
}

// Keys ---------------------------------------------------------------------------------------------------

namespace {

const UInt32 kNoKey = 0xFFFFFFFF;
const UInt32 kEnterOfPortables = 52;

Text TextOfEvent(EventRef theEvent)
{
    ByteCount theSize = 0;
    if (GetEventParameter(theEvent, kEventParamTextInputSendText, typeUnicodeText, nullptr, 0, &theSize,
                          nullptr) != noErr) {
        return Text();
    }
    std::vector<UniChar> theUnits(theSize / sizeof(UniChar));
    if (theUnits.empty()) {
        return Text();
    }
    GetEventParameter(theEvent, kEventParamTextInputSendText, typeUnicodeText, nullptr,
                      static_cast<ByteCount>(theUnits.size() * sizeof(UniChar)), nullptr, theUnits.data());
    return Text(theUnits.begin(), theUnits.end());
}

KeyPress KeyOf(EventRef theEvent)
{
    KeyPress theKey;
    theKey.theCode = kNoKey;
    theKey.theText = TextOfEvent(theEvent);
    EventRef theKeyboardEvent = nullptr;
    if (ReadParameter(theEvent, kEventParamTextInputSendKeyboardEvent, typeEventRef, &theKeyboardEvent)) {
        ReadParameter(theKeyboardEvent, kEventParamKeyCode, typeUInt32, &theKey.theCode);
        ReadParameter(theKeyboardEvent, kEventParamKeyModifiers, typeUInt32, &theKey.theModifiers);
    }
    return theKey;
}

bool IsKey(EventRef theEvent)
{
    return GetEventClass(theEvent) == kEventClassTextInput &&
           GetEventKind(theEvent) == kEventTextInputUnicodeForKeyEvent;
}

// Keys with the command key never become text input; they are taken from the key event itself.
bool IsCommandKey(EventRef theEvent, UInt32* theModifiers)
{
    ReadParameter(theEvent, kEventParamKeyModifiers, typeUInt32, theModifiers);
    return GetEventClass(theEvent) == kEventClassKeyboard && GetEventKind(theEvent) == kEventRawKeyDown &&
           (*theModifiers & cmdKey) != 0;
}

bool IsCommandPeriod(EventRef theEvent)
{
    UInt32 theCode = kNoKey;
    UInt32 theModifiers = 0;
    ReadParameter(theEvent, kEventParamKeyCode, typeUInt32, &theCode);
    return IsCommandKey(theEvent, &theModifiers) && theCode == kVK_ANSI_Period;
}

const char kNoLetter = '\0';

// The letter of a key that is pressed with the command key and no other; kNoLetter for other events.
char CommandLetter(EventRef theEvent)
{
    UInt32 theModifiers = 0;
    if (!IsCommandKey(theEvent, &theModifiers) || (theModifiers & ~UInt32{alphaLock}) != cmdKey) {
        return kNoLetter;
    }
    char theLetter = kNoLetter;
    ReadParameter(theEvent, kEventParamKeyMacCharCodes, typeChar, &theLetter);
    return theLetter >= 'A' && theLetter <= 'Z' ? static_cast<char>(theLetter - 'A' + 'a') : theLetter;
}

OSStatus PressButton(const std::weak_ptr<Control>& theButton, UInt32 theModifiers)
{
    const SharedControl theControl = theButton.lock();
    if (theControl == nullptr || theControl->IsGone() || !theControl->CanBePressed()) {
        return eventNotHandledErr;
    }
    const ControlPartCode thePart = theControl->PartAt(MiddleOf(theControl->WindowBounds()));
    PressAndRelease(theControl, thePart, theModifiers);
    return noErr;
}

} // namespace

bool ConcernsControl(OSType theClass)
{
    return theClass == kEventClassTextInput;
}

// Unhandled events of the controls inside come by here too; only its own keys are the control's.
OSStatus PressKeyInControl(Control& theControl, EventRef theEvent)
{
    if (!IsKey(theEvent)) {
        return eventNotHandledErr;
    }
    const SharedWindow theWindow = theControl.Owner();
    const bool theHasFocus = theWindow != nullptr && FocusedControl(*theWindow).get() == &theControl;
    return theHasFocus ? theControl.PressKey(KeyOf(theEvent)) : OSStatus{eventNotHandledErr};
}

OSStatus PressKeyInWindow(const SharedWindow& theWindow, EventRef theEvent)
{
    if (theWindow->Has(kWindowStandardHandlerAttribute) && IsCommandPeriod(theEvent)) {
        return PressButton(theWindow->mCancelButton, cmdKey);
    }
    if (const char theLetter = CommandLetter(theEvent); theLetter != kNoLetter) {
        const SharedControl theFocus = FocusedControl(*theWindow);
        return theFocus == nullptr ? OSStatus{eventNotHandledErr} : theFocus->PressCommandKey(theLetter);
    }
    if (!IsKey(theEvent) || !theWindow->Has(kWindowStandardHandlerAttribute)) {
        return eventNotHandledErr;
    }
    const KeyPress theKey = KeyOf(theEvent);
    switch (theKey.theCode) {
    case kVK_Tab:
        return AdvanceFocus(theWindow, (theKey.theModifiers & shiftKey) != 0) == noErr
                   ? OSStatus{noErr}
                   : OSStatus{eventNotHandledErr};
    case kVK_Return:
    case kVK_ANSI_KeypadEnter:
    case kEnterOfPortables:
        return PressButton(theWindow->mDefaultButton, theKey.theModifiers);
    case kVK_Escape:
        return PressButton(theWindow->mCancelButton, theKey.theModifiers);
    default:
        return eventNotHandledErr;
    }
}

// The user focus -----------------------------------------------------------------------------------------

namespace {

struct UserFocus
{
    std::weak_ptr<Window> theChosen; // by SetUserFocusWindow
    std::weak_ptr<Window> theTold;   // that heard last that it has the focus
};

UserFocus& CurrentUserFocus()
{
    static NeverDestroyed<UserFocus> sFocus;
    return sFocus.Get();
}

EventTargetRef UserFocusTarget()
{
    const SharedWindow theWindow = UserFocusWindow();
    if (theWindow == nullptr) {
        return nullptr;
    }
    const SharedControl theControl = FocusedControl(*theWindow);
    return theControl == nullptr ? theWindow->Target() : theControl->Target();
}

} // namespace

void AnswerForUserFocus()
{
    SetUserFocusFinder(UserFocusTarget);
    AddLoopChore(GiveFirstFocus);
}

SharedWindow UserFocusWindow()
{
    const SharedWindow theChosen = CurrentUserFocus().theChosen.lock();
    const bool theCanHaveIt = theChosen != nullptr && theChosen->TakesPart() && !theChosen->IsClosing();
    return theCanHaveIt ? theChosen : ActiveWindow();
}

void UpdateUserFocus()
{
    const SharedWindow theOld = CurrentUserFocus().theTold.lock();
    const SharedWindow theNew = UserFocusWindow();
    if (theOld == theNew) {
        return;
    }
    CurrentUserFocus().theTold = theNew;
    ShowFocus();
    if (theOld != nullptr && !theOld->IsGone()) {
        theOld->Tell(kEventWindowFocusRelinquish);
    }
    if (theNew != nullptr && !theNew->IsGone() && CurrentUserFocus().theTold.lock() == theNew) {
        theNew->Tell(kEventWindowFocusAcquired);
    }
}

void ForgetChosenUserFocus()
{
    CurrentUserFocus().theChosen.reset();
    UpdateUserFocus();
}

void ShowFocus()
{
    const SharedWindow theWindow = UserFocusWindow();
    const SharedControl theControl = theWindow == nullptr ? nullptr : FocusedControl(*theWindow);
    PresenterRegistry::Current().FocusIsAt(theWindow == nullptr ? kNoObject : theWindow->Identifier(),
                                           theControl == nullptr ? kNoObject : theControl->Identifier());
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

OSErr GetKeyboardFocus(WindowRef inWindow, ControlRef* outControl)
{
    if (outControl == nullptr) {
        return paramErr;
    }
    *outControl = nullptr;
    const SharedWindow theFound = Host::FindWindow(inWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (const SharedControl theFocus = FocusedControl(*theFound)) {
        *outControl = theFocus->Reference();
    }
    return noErr;
}

namespace {

// The part that a request leads to: the directions stay within the control, which has one part.
ControlPartCode PartWanted(const Control& theControl, bool theHasFocus, ControlFocusPart thePart)
{
    if (thePart != kControlFocusNextPart && thePart != kControlFocusPrevPart) {
        return thePart;
    }
    return theHasFocus ? ControlPartCode{kControlFocusNoPart}
                       : theControl.FocusPart(IsFullKeyboardAccessOn());
}

} // namespace

OSErr SetKeyboardFocus(WindowRef inWindow, ControlRef inControl, ControlFocusPart inPart)
{
    const SharedWindow theFound = Host::FindWindow(inWindow);
    const SharedControl theNext = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (theNext == nullptr) {
        return errUnknownControl;
    }
    if (theNext->Owner() != theFound) {
        return paramErr;
    }
    const bool theHasFocus = FocusedControl(*theFound) == theNext;
    const ControlPartCode theWanted = PartWanted(*theNext, theHasFocus, inPart);
    if (theWanted != kControlFocusNoPart) {
        return MoveFocus(theFound, theNext, theWanted);
    }
    if (theHasFocus) {
        return MoveFocus(theFound, nullptr, kControlFocusNoPart);
    }
    return inPart == kControlFocusNoPart ? OSErr{noErr} : OSErr{errCouldntSetFocus};
}

namespace {

OSErr Advance(WindowRef theWindow, bool theIsBackward)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    return static_cast<OSErr>(Guarded([&] { return OSStatus{AdvanceFocus(theFound, theIsBackward)}; }));
}

} // namespace

OSErr AdvanceKeyboardFocus(WindowRef inWindow)
{
    return Advance(inWindow, false);
}

OSErr ReverseKeyboardFocus(WindowRef inWindow)
{
    return Advance(inWindow, true);
}

OSErr ClearKeyboardFocus(WindowRef inWindow)
{
    const SharedWindow theFound = Host::FindWindow(inWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    return theFound->Root() == nullptr ? OSErr{errNoRootControl}
                                       : MoveFocus(theFound, nullptr, kControlFocusNoPart);
}

OSStatus SetUserFocusWindow(WindowRef inWindow)
{
    if (inWindow == kUserFocusAuto) {
        ForgetChosenUserFocus();
        return noErr;
    }
    const SharedWindow theFound = Host::FindWindow(inWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    CurrentUserFocus().theChosen = theFound;
    UpdateUserFocus();
    return noErr;
}

WindowRef GetUserFocusWindow(void)
{
    const SharedWindow theWindow = UserFocusWindow();
    return theWindow == nullptr ? nullptr : theWindow->Reference();
}

// Default and cancel buttons -----------------------------------------------------------------------------

namespace {

OSStatus SetButton(WindowRef theWindow, std::weak_ptr<Control> Window::*theButton, ControlRef theControl)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    const SharedControl theNew = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (theControl != nullptr && theNew == nullptr) {
        return errUnknownControl;
    }
    if (theNew != nullptr && theNew->Owner() != theFound) {
        return paramErr;
    }
    const SharedControl theOld = ((*theFound).*theButton).lock();
    (*theFound).*theButton = theNew;
    for (const SharedControl& theChanged : {theOld, theNew}) {
        if (theChanged != nullptr) {
            theChanged->Show();
        }
    }
    return noErr;
}

OSStatus GetButton(WindowRef theWindow, std::weak_ptr<Control> Window::*theButton, ControlRef* theControl)
{
    if (theControl == nullptr) {
        return paramErr;
    }
    *theControl = nullptr;
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    const SharedControl theOne = ((*theFound).*theButton).lock();
    if (theOne != nullptr && !theOne->IsGone()) {
        *theControl = theOne->Reference();
    }
    return noErr;
}

} // namespace

OSStatus SetWindowDefaultButton(WindowRef inWindow, ControlRef inControl)
{
    return SetButton(inWindow, &Window::mDefaultButton, inControl);
}

OSStatus SetWindowCancelButton(WindowRef inWindow, ControlRef inControl)
{
    return SetButton(inWindow, &Window::mCancelButton, inControl);
}

OSStatus GetWindowDefaultButton(WindowRef inWindow, ControlRef* outControl)
{
    return GetButton(inWindow, &Window::mDefaultButton, outControl);
}

OSStatus GetWindowCancelButton(WindowRef inWindow, ControlRef* outControl)
{
    return GetButton(inWindow, &Window::mCancelButton, outControl);
}
