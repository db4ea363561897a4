// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The interface of Controls.h to values, states, bounds, titles and identity. Hierarchy, data, focus and
// clicks have files of their own.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Control.h"
#include "Window.h"

using namespace Host;

// Procedures ---------------------------------------------------------------------------------------------

ControlActionUPP NewControlActionUPP(ControlActionProcPtr theProcedure)
{
    return theProcedure;
}

void DisposeControlActionUPP(ControlActionUPP) {}

void InvokeControlActionUPP(ControlRef theControl, ControlPartCode thePart, ControlActionUPP theProcedure)
{
    if (theProcedure != nullptr) {
        theProcedure(theControl, thePart);
    }
}

// Values -------------------------------------------------------------------------------------------------

namespace {

SInt32 GetNumber(ControlRef theControl, SInt32 ControlRange::*theField)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? 0 : theFound->Range().*theField;
}

void SetNumber(ControlRef theControl, SInt32 ControlRange::*theField, SInt32 theNumber)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        ControlRange theRange = theFound->Range();
        theRange.*theField = theNumber;
        theFound->SetRange(theRange);
    }
}

SInt16 LowerHalf(SInt32 theNumber)
{
    return static_cast<SInt16>(static_cast<UInt16>(theNumber));
}

} // namespace

SInt32 GetControl32BitValue(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theValue);
}

void SetControl32BitValue(ControlRef theControl, SInt32 theValue)
{
    SetNumber(theControl, &ControlRange::theValue, theValue);
}

SInt32 GetControl32BitMinimum(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theMinimum);
}

void SetControl32BitMinimum(ControlRef theControl, SInt32 theMinimum)
{
    SetNumber(theControl, &ControlRange::theMinimum, theMinimum);
}

SInt32 GetControl32BitMaximum(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theMaximum);
}

void SetControl32BitMaximum(ControlRef theControl, SInt32 theMaximum)
{
    SetNumber(theControl, &ControlRange::theMaximum, theMaximum);
}

SInt32 GetControlViewSize(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theViewSize);
}

void SetControlViewSize(ControlRef theControl, SInt32 theViewSize)
{
    SetNumber(theControl, &ControlRange::theViewSize, theViewSize);
}

SInt16 GetControlValue(ControlRef theControl)
{
    return LowerHalf(GetControl32BitValue(theControl));
}

void SetControlValue(ControlRef theControl, SInt16 theValue)
{
    SetControl32BitValue(theControl, theValue);
}

SInt16 GetControlMinimum(ControlRef theControl)
{
    return LowerHalf(GetControl32BitMinimum(theControl));
}

void SetControlMinimum(ControlRef theControl, SInt16 theMinimum)
{
    SetControl32BitMinimum(theControl, theMinimum);
}

SInt16 GetControlMaximum(ControlRef theControl)
{
    return LowerHalf(GetControl32BitMaximum(theControl));
}

void SetControlMaximum(ControlRef theControl, SInt16 theMaximum)
{
    SetControl32BitMaximum(theControl, theMaximum);
}

// State --------------------------------------------------------------------------------------------------

namespace {

bool GetState(ControlRef theControl, ControlState theState)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound != nullptr && theFound->Is(theState);
}

OSErr SetState(ControlRef theControl, ControlState theState, bool theNewState)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    return static_cast<OSErr>(theFound->Set(theState, theNewState));
}

} // namespace

OSStatus EnableControl(ControlRef theControl)
{
    return SetState(theControl, ControlState::kEnabled, true);
}

OSStatus DisableControl(ControlRef theControl)
{
    return SetState(theControl, ControlState::kEnabled, false);
}

Boolean IsControlEnabled(ControlRef theControl)
{
    return GetState(theControl, ControlState::kEnabled);
}

OSErr ActivateControl(ControlRef theControl)
{
    return SetState(theControl, ControlState::kActive, true);
}

OSErr DeactivateControl(ControlRef theControl)
{
    return SetState(theControl, ControlState::kActive, false);
}

Boolean IsControlActive(ControlRef theControl)
{
    return GetState(theControl, ControlState::kActive);
}

OSErr SetControlVisibility(ControlRef theControl, Boolean theIsVisible, Boolean)
{
    return SetState(theControl, ControlState::kVisible, theIsVisible != 0);
}

void ShowControl(ControlRef theControl)
{
    SetState(theControl, ControlState::kVisible, true);
}

void HideControl(ControlRef theControl)
{
    SetState(theControl, ControlState::kVisible, false);
}

Boolean IsControlVisible(ControlRef theControl)
{
    return GetState(theControl, ControlState::kVisible);
}

void HiliteControl(ControlRef theControl, ControlPartCode theState)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr || theState < 0 || theState > kControlInactivePart) {
        return;
    }
    if (theState == kControlDisabledPart) {
        theFound->Set(ControlState::kEnabled, false);
    } else if (theState == kControlInactivePart) {
        theFound->Set(ControlState::kActive, false);
    } else {
        theFound->Set(ControlState::kEnabled, true);
        theFound->Set(ControlState::kActive, true);
        theFound->SetHilite(theState);
    }
}

UInt16 GetControlHilite(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return 0;
    }
    if (!theFound->Is(ControlState::kEnabled)) {
        return kControlDisabledPart;
    }
    const bool theIsActive = theFound->Is(ControlState::kActive);
    return theIsActive ? static_cast<UInt16>(theFound->Hilite()) : UInt16{kControlInactivePart};
}

// Bounds -------------------------------------------------------------------------------------------------

Rect* GetControlBounds(ControlRef theControl, Rect* theBounds)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theBounds != nullptr) {
        *theBounds = theFound == nullptr ? MakeRect(0, 0, 0, 0) : theFound->Bounds();
    }
    return theBounds;
}

void SetControlBounds(ControlRef theControl, const Rect* theBounds)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound != nullptr && theBounds != nullptr) {
        theFound->SetBounds(*theBounds);
    }
}

void MoveControl(ControlRef theControl, SInt16 theLeft, SInt16 theTop)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        const Rect& theBounds = theFound->Bounds();
        theFound->SetBounds(Moved(theBounds, theLeft - theBounds.left, theTop - theBounds.top));
    }
}

void SizeControl(ControlRef theControl, SInt16 theWidth, SInt16 theHeight)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        const Rect& theBounds = theFound->Bounds();
        theFound->SetBounds(
            MakeRect(theBounds.left, theBounds.top, theBounds.left + theWidth, theBounds.top + theHeight));
    }
}

// Titles -------------------------------------------------------------------------------------------------

OSStatus SetControlTitleWithCFString(ControlRef theControl, CFStringRef theTitle)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (theTitle == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        theFound->SetTitle(TextOf(theTitle));
        return OSStatus{noErr};
    });
}

OSStatus CopyControlTitleAsCFString(ControlRef theControl, CFStringRef* theTitle)
{
    if (theTitle == nullptr) {
        return paramErr;
    }
    *theTitle = nullptr;
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    return Guarded([&] {
        *theTitle = CreateString(theFound->Title());
        return *theTitle == nullptr ? OSStatus{memFullErr} : OSStatus{noErr};
    });
}

void SetControlTitle(ControlRef theControl, ConstStr255Param theTitle)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound != nullptr && theTitle != nullptr) {
        Guarded([&] {
            theFound->SetTitle(TextOfPascalString(theTitle));
            return OSStatus{noErr};
        });
    }
}

void GetControlTitle(ControlRef theControl, Str255 theTitle)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theTitle != nullptr) {
        CopyToPascalString(theFound == nullptr ? Text() : theFound->Title(), theTitle);
    }
}

// Identity -----------------------------------------------------------------------------------------------

namespace {

// Most of the calls below read or write one field of a control through a pointer of the caller.
template <class Type, class Reader>
OSStatus ReadField(ControlRef theControl, Type* theResult, Reader theReader)
{
    if (theResult == nullptr) {
        return paramErr;
    }
    const SharedControl theFound = Host::FindControl(theControl);
    *theResult = theFound == nullptr ? Type{} : theReader(*theFound);
    return theFound == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr};
}

} // namespace

OSStatus GetControlKind(ControlRef theControl, ControlKind* theKind)
{
    return ReadField(theControl, theKind, [](const Control& theFound) {
        return ControlKind{kControlKindSignatureApple, theFound.Kind()};
    });
}

OSStatus SetControlID(ControlRef theControl, const ControlID* theID)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (theID == nullptr) {
        return paramErr;
    }
    theFound->mID = *theID;
    theFound->mHasID = true;
    theFound->Show();
    return noErr;
}

OSStatus GetControlID(ControlRef theControl, ControlID* theID)
{
    return ReadField(theControl, theID, [](const Control& theFound) { return theFound.mID; });
}

OSStatus SetControlCommandID(ControlRef theControl, UInt32 theCommand)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    theFound->mCommand = theCommand;
    return noErr;
}

OSStatus GetControlCommandID(ControlRef theControl, UInt32* theCommand)
{
    return ReadField(theControl, theCommand, [](const Control& theFound) { return theFound.mCommand; });
}

void SetControlReference(ControlRef theControl, SRefCon theData)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        theFound->mReference = theData;
    }
}

SRefCon GetControlReference(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? SRefCon{} : theFound->mReference;
}

void SetControlAction(ControlRef theControl, ControlActionUPP theAction)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        theFound->mAction = theAction;
    }
}

ControlActionUPP GetControlAction(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? nullptr : theFound->mAction;
}

OSErr GetControlFeatures(ControlRef theControl, UInt32* theFeatures)
{
    return static_cast<OSErr>(
        ReadField(theControl, theFeatures, [](const Control& theFound) { return theFound.Features(); }));
}
