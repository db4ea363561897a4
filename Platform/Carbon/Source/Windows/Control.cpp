// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Control.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"
#include "HelpTags.h"
#include "KeyboardFocus.h"
#include "Layout.h"
#include "Window.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

UInt32 KindOfChange(ControlState theState, bool theIsOn)
{
    switch (theState) {
    case ControlState::kVisible:
        return kEventControlVisibilityChanged;
    case ControlState::kEnabled:
        return kEventControlEnabledStateChanged;
    case ControlState::kActive:
        break;
    }
    return theIsOn ? kEventControlActivate : kEventControlDeactivate;
}

UInt32 BoundsAttributes(const Rect& theOld, const Rect& theNew)
{
    UInt32 theAttributes = 0;
    if (WidthOf(theOld) != WidthOf(theNew) || HeightOf(theOld) != HeightOf(theNew)) {
        theAttributes |= kControlBoundsChangeSizeChanged;
    }
    if (theOld.left != theNew.left || theOld.top != theNew.top) {
        theAttributes |= kControlBoundsChangePositionChanged;
    }
    return theAttributes;
}

void SendBoundsChange(const Control& theControl, UInt32 theKind, const Rect& theOld)
{
    OutgoingEvent theEvent(kEventClassControl, theKind);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theControl.Reference());
    theEvent.Set(kEventParamOriginalBounds, typeQDRectangle, theOld);
    theEvent.Set(kEventParamCurrentBounds, typeQDRectangle, theControl.Bounds());
    if (theKind == kEventControlBoundsChanged) {
        theEvent.Set(kEventParamAttributes, typeUInt32, BoundsAttributes(theOld, theControl.Bounds()));
        theEvent.Set(kEventParamPreviousBounds, typeQDRectangle, theOld);
    }
    theEvent.SendTo(theControl.Target());
}

} // namespace

SInt32 ControlRange::Nearest(SInt32 theWanted) const
{
    return std::max(theMinimum, std::min(theWanted, theMaximum));
}

bool operator==(const ControlRange& theOne, const ControlRange& theOther)
{
    return theOne.theValue == theOther.theValue && theOne.theMinimum == theOther.theMinimum &&
           theOne.theMaximum == theOther.theMaximum && theOne.theViewSize == theOther.theViewSize;
}

// State --------------------------------------------------------------------------------------------------

void ControlStates::Set(ControlState theState, bool theIsOn)
{
    const auto theBit = static_cast<unsigned>(theState);
    mBits = theIsOn ? mBits | theBit : mBits & ~theBit;
}

ControlStates ControlStates::operator&(ControlStates theOther) const
{
    theOther.mBits &= mBits;
    return theOther;
}

ControlStates Control::States() const
{
    const SharedControl theParent = Parent();
    return theParent == nullptr ? mStates : mStates & theParent->States();
}

bool Control::CanBePressed() const
{
    const ControlStates theStates = States();
    return theStates.Has(ControlState::kVisible) && theStates.Has(ControlState::kEnabled);
}

void Control::CollectInState(ControlState theState, std::vector<SharedControl>* theControls)
{
    if (!OwnState(theState)) {
        return;
    }
    theControls->push_back(shared_from_this());
    for (const SharedControl& theSubControl : mSubControls) {
        theSubControl->CollectInState(theState, theControls);
    }
}

OSStatus Control::Set(ControlState theState, bool theIsOn)
{
    if (OwnState(theState) == theIsOn) {
        return noErr;
    }
    if (!theIsOn && theState != ControlState::kActive) {
        // The focus leaves while the control can still hear of it.
        ReleaseFocusInside(*this);
        if (mIsGone || OwnState(theState) == theIsOn) {
            return noErr;
        }
    }
    mStates.Set(theState, true);
    std::vector<SharedControl> theChanged;
    const OSStatus theStatus = Guarded([&] {
        if (Is(theState)) {
            CollectInState(theState, &theChanged);
        }
        return OSStatus{noErr};
    });
    mStates.Set(theState, theStatus == noErr ? theIsOn : !theIsOn);
    if (theStatus != noErr) {
        return theStatus;
    }
    if (!CanBePressed()) {
        // A handler gave it back while it could still be had.
        ReleaseFocusInside(*this);
    }
    for (const SharedControl& theControl : theChanged) {
        theControl->ShowChange();
    }
    for (const SharedControl& theControl : theChanged) {
        if (!theControl->mIsGone) {
            theControl->StateChanged(theState, theIsOn);
        }
        if (!theControl->mIsGone) {
            theControl->Tell(kEventClassControl, KindOfChange(theState, theIsOn));
        }
    }
    return noErr;
}

void Control::StartWithRange(const ControlRange& theRange)
{
    mRange = theRange;
    mRange.theValue = mRange.Nearest(theRange.theValue);
}

void Control::SetRange(const ControlRange& theRange)
{
    ControlRange theNew = theRange;
    theNew.theValue = theNew.Nearest(theNew.theValue);
    if (theNew == mRange) {
        return;
    }
    const SharedControl theKeepAlive = shared_from_this();
    mRange = theNew;
    Show();
    RangeChanged();
    if (!mIsGone) {
        Tell(kEventClassControl, kEventControlValueFieldChanged);
    }
}

void Control::SetValue(SInt32 theValue)
{
    ControlRange theNew = mRange;
    theNew.theValue = theValue;
    SetRange(theNew);
}

void Control::SetBounds(const Rect& theBounds)
{
    if (Agree(theBounds, mBounds)) {
        return;
    }
    const SharedControl theKeepAlive = shared_from_this();
    const Rect theOld = mBounds;
    mBounds = theBounds;
    ShowAll();
    if ((BoundsAttributes(theOld, theBounds) & kControlBoundsChangeSizeChanged) != 0) {
        if (mIsDrawnByProgram) {
            Changed();
        }
        SendBoundsChange(*this, kEventControlInvalidateForSizeChange, theOld);
    }
    if (!mIsGone) {
        SendBoundsChange(*this, kEventControlBoundsChanged, theOld);
    }
    if (!mIsGone) {
        LayOutFollowers(theKeepAlive, theOld);
    }
}

void Control::SetTitle(Text theTitle)
{
    if (theTitle == mTitle) {
        return;
    }
    mTitle = std::move(theTitle);
    ShowChange();
    Tell(kEventClassControl, kEventControlTitleChanged);
}

void Control::SetHilite(ControlPartCode thePart)
{
    if (thePart == mHilite) {
        return;
    }
    const ControlPartCode theOld = mHilite;
    mHilite = thePart;
    ShowChange();
    OutgoingEvent theEvent(kEventClassControl, kEventControlHiliteChanged);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamControlPreviousPart, typeControlPartCode, theOld);
    theEvent.Set(kEventParamControlCurrentPart, typeControlPartCode, thePart);
    theEvent.SendTo(mTarget);
}

// Events -------------------------------------------------------------------------------------------------

void Control::Tell(OSType theClass, UInt32 theKind)
{
    OutgoingEvent theEvent(theClass, theKind);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    // Nobody can refuse what has happened, so the handlers' answer means nothing here.
    theEvent.SendTo(mTarget);
}

OSStatus Control::Ask(OSType theClass, UInt32 theKind)
{
    OutgoingEvent theEvent(theClass, theKind);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    return theEvent.SendTo(mTarget, kEventTargetDontPropagate);
}

// Looks --------------------------------------------------------------------------------------------------

// The managers hold the truth: a picture that there is no memory for is made up for by the next one.
void Control::Show() const
{
    if (!mIsGone && !mOwner.expired()) {
        Guarded([this] {
            PresenterRegistry::Current().ControlLooks(Look());
            return OSStatus{noErr};
        });
    }
}

void Control::ShowAll() const
{
    if (!mIsGone && !mOwner.expired()) {
        Guarded([this] {
            Replay(PresenterRegistry::Current());
            return OSStatus{noErr};
        });
    }
}

void Control::ShowChange()
{
    Show();
    if (mIsDrawnByProgram) {
        Changed();
    }
}

void Control::Replay(Presenter& thePresenter) const
{
    thePresenter.ControlLooks(Look());
    for (const SharedControl& theSubControl : mSubControls) {
        theSubControl->Replay(thePresenter);
    }
}

ControlLook Control::Look() const
{
    ControlLook theLook;
    theLook.theId = mIdentifier;
    theLook.theSignature = mID.signature;
    theLook.theNumber = static_cast<std::int32_t>(mID.id);
    theLook.theTitle = Utf8Of(mTitle);
    theLook.theBounds = PixelsOf(WindowBounds());
    theLook.theValue = static_cast<std::int32_t>(mRange.theValue);
    theLook.theMinimum = static_cast<std::int32_t>(mRange.theMinimum);
    theLook.theMaximum = static_cast<std::int32_t>(mRange.theMaximum);
    theLook.theViewSize = static_cast<std::int32_t>(mRange.theViewSize);
    const ControlStates theStates = States();
    theLook.theIsVisible = theStates.Has(ControlState::kVisible);
    theLook.theIsEnabled = theStates.Has(ControlState::kEnabled);
    theLook.theIsActive = theStates.Has(ControlState::kActive);
    theLook.theIsHilited = mHilite != kControlNoPart;
    theLook.theTakesFocus = FocusPart(IsFullKeyboardAccessOn()) != kControlFocusNoPart;
    AddPlaceToLook(theLook);
    AddToLook(theLook);
    AddHelpToLook(*this, theLook);
    return theLook;
}

void Control::AddPlaceToLook(ControlLook& theLook) const
{
    if (const SharedWindow theOwner = Owner()) {
        theLook.theWindow = theOwner->Identifier();
        theLook.theIsDefault = theOwner->mDefaultButton.lock().get() == this;
        theLook.theIsCancel = theOwner->mCancelButton.lock().get() == this;
    }
    if (const SharedControl theParent = Parent()) {
        theLook.theParent = theParent->mIdentifier;
        theLook.theOrder = static_cast<int>(mOrder);
    }
}

// What a kind does unless it says otherwise ---------------------------------------------------------------

ControlPartCode Control::PartAt(Point) const
{
    return kControlNoPart;
}

Rect Control::PlaceOf(ControlPartCode thePart) const
{
    const Rect theBounds = WindowBounds();
    return PartAt(MiddleOf(theBounds)) == thePart ? theBounds : Rect{0, 0, 0, 0};
}

bool Control::HasPartAt(ControlPartCode thePart, Point thePoint) const
{
    return Contains(PlaceOf(thePart), thePoint);
}

bool Control::IsIndicator(ControlPartCode) const
{
    return false;
}

SInt32 Control::ValueAt(Point) const
{
    return mRange.theValue;
}

Point Control::PlaceOfValue(SInt32) const
{
    return MiddleOf(WindowBounds());
}

std::optional<ControlPartCode> Control::TrackInLoop(ControlPartCode, UInt32)
{
    return std::nullopt;
}

void Control::RangeChanged()
{
    if (const SharedControl theParent = Parent()) {
        theParent->SubControlChanged(*this);
    }
}

void Control::SubControlChanged(const Control&) {}

void Control::SubControlsChanged() {}

bool Control::ChoosesAmong(const Control&) const
{
    return false;
}

void Control::PartClicked(ControlPartCode) {}

PartCommand Control::CommandOf(ControlPartCode) const
{
    return {mCommand, mTarget};
}

bool Control::ToggledValue(ControlPartCode, SInt32*) const
{
    return false;
}

OSStatus Control::PressKey(const KeyPress&)
{
    return eventNotHandledErr;
}

OSStatus Control::PressCommandKey(char)
{
    return eventNotHandledErr;
}

ControlPartCode Control::FocusPart(bool) const
{
    return kControlFocusNoPart;
}

std::optional<ControlPartCode> Control::TrackByProcedure(Point)
{
    return std::nullopt;
}

ControlPartCode Control::AnswerFocus(ControlPartCode thePart)
{
    return thePart;
}

void Control::StateChanged(ControlState, bool) {}

void Control::FocusMoved(bool) {}

void Control::EnteredByKey() {}

void Control::Disposed() {}

void Control::Changed() {}

} // namespace Host
