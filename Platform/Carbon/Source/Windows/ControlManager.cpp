// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The interface of Controls.h to values, states, bounds, titles and identity. Hierarchy, data, focus and
// clicks have files of their own.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Control.h"
#include "Window.h"

using namespace Host;

// Procedures ---------------------------------------------------------------------------------------------

ControlActionUPP NewControlActionUPP(ControlActionProcPtr inProcedure)
{
    return inProcedure;
}

void DisposeControlActionUPP(ControlActionUPP) {}

void InvokeControlActionUPP(ControlRef theControl, ControlPartCode inPartCode, ControlActionUPP inProcedure)
{
    if (inProcedure != nullptr) {
        inProcedure(theControl, inPartCode);
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

void SetControl32BitValue(ControlRef theControl, SInt32 newValue)
{
    SetNumber(theControl, &ControlRange::theValue, newValue);
}

SInt32 GetControl32BitMinimum(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theMinimum);
}

void SetControl32BitMinimum(ControlRef theControl, SInt32 newMinimum)
{
    SetNumber(theControl, &ControlRange::theMinimum, newMinimum);
}

SInt32 GetControl32BitMaximum(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theMaximum);
}

void SetControl32BitMaximum(ControlRef theControl, SInt32 newMaximum)
{
    SetNumber(theControl, &ControlRange::theMaximum, newMaximum);
}

SInt32 GetControlViewSize(ControlRef theControl)
{
    return GetNumber(theControl, &ControlRange::theViewSize);
}

void SetControlViewSize(ControlRef theControl, SInt32 newViewSize)
{
    SetNumber(theControl, &ControlRange::theViewSize, newViewSize);
}

SInt16 GetControlValue(ControlRef theControl)
{
    return LowerHalf(GetControl32BitValue(theControl));
}

void SetControlValue(ControlRef theControl, SInt16 newValue)
{
    SetControl32BitValue(theControl, newValue);
}

SInt16 GetControlMinimum(ControlRef theControl)
{
    return LowerHalf(GetControl32BitMinimum(theControl));
}

void SetControlMinimum(ControlRef theControl, SInt16 newMinimum)
{
    SetControl32BitMinimum(theControl, newMinimum);
}

SInt16 GetControlMaximum(ControlRef theControl)
{
    return LowerHalf(GetControl32BitMaximum(theControl));
}

void SetControlMaximum(ControlRef theControl, SInt16 newMaximum)
{
    SetControl32BitMaximum(theControl, newMaximum);
}

// State --------------------------------------------------------------------------------------------------

namespace {

bool GetState(ControlRef theControl, ControlState theState)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound != nullptr && theFound->Is(theState);
}

OSErr SetState(ControlRef theControl, ControlState theState, bool theIsOn)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    return static_cast<OSErr>(theFound->Set(theState, theIsOn));
}

} // namespace

OSStatus EnableControl(ControlRef inControl)
{
    return SetState(inControl, ControlState::kEnabled, true);
}

OSStatus DisableControl(ControlRef inControl)
{
    return SetState(inControl, ControlState::kEnabled, false);
}

Boolean IsControlEnabled(ControlRef inControl)
{
    return GetState(inControl, ControlState::kEnabled);
}

OSErr ActivateControl(ControlRef inControl)
{
    return SetState(inControl, ControlState::kActive, true);
}

OSErr DeactivateControl(ControlRef inControl)
{
    return SetState(inControl, ControlState::kActive, false);
}

Boolean IsControlActive(ControlRef inControl)
{
    return GetState(inControl, ControlState::kActive);
}

OSErr SetControlVisibility(ControlRef inControl, Boolean inIsVisible, Boolean)
{
    return SetState(inControl, ControlState::kVisible, inIsVisible != 0);
}

void ShowControl(ControlRef theControl)
{
    SetState(theControl, ControlState::kVisible, true);
}

void HideControl(ControlRef theControl)
{
    SetState(theControl, ControlState::kVisible, false);
}

Boolean IsControlVisible(ControlRef inControl)
{
    return GetState(inControl, ControlState::kVisible);
}

void HiliteControl(ControlRef theControl, ControlPartCode hiliteState)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr || hiliteState < 0 || hiliteState > kControlInactivePart) {
        return;
    }
    if (hiliteState == kControlDisabledPart) {
        theFound->Set(ControlState::kEnabled, false);
    } else if (hiliteState == kControlInactivePart) {
        theFound->Set(ControlState::kActive, false);
    } else {
        theFound->Set(ControlState::kEnabled, true);
        theFound->Set(ControlState::kActive, true);
        theFound->SetHilite(hiliteState);
    }
}

UInt16 GetControlHilite(ControlRef control)
{
    const SharedControl theFound = Host::FindControl(control);
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

Rect* GetControlBounds(ControlRef control, Rect* bounds)
{
    const SharedControl theFound = Host::FindControl(control);
    if (bounds != nullptr) {
        *bounds = theFound == nullptr ? MakeRect(0, 0, 0, 0) : theFound->Bounds();
    }
    return bounds;
}

void SetControlBounds(ControlRef control, const Rect* bounds)
{
    const SharedControl theFound = Host::FindControl(control);
    if (theFound != nullptr && bounds != nullptr) {
        theFound->SetBounds(*bounds);
    }
}

void MoveControl(ControlRef theControl, SInt16 h, SInt16 v)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        const Rect& theBounds = theFound->Bounds();
        theFound->SetBounds(Moved(theBounds, h - theBounds.left, v - theBounds.top));
    }
}

void SizeControl(ControlRef theControl, SInt16 w, SInt16 h)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        const Rect& theBounds = theFound->Bounds();
        theFound->SetBounds(MakeRect(theBounds.left, theBounds.top, theBounds.left + w, theBounds.top + h));
    }
}

// Titles -------------------------------------------------------------------------------------------------

OSStatus SetControlTitleWithCFString(ControlRef inControl, CFStringRef inString)
{
    const SharedControl theFound = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (inString == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        theFound->SetTitle(TextOf(inString));
        return OSStatus{noErr};
    });
}

OSStatus CopyControlTitleAsCFString(ControlRef inControl, CFStringRef* outString)
{
    if (outString == nullptr) {
        return paramErr;
    }
    *outString = nullptr;
    const SharedControl theFound = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    return Guarded([&] {
        *outString = CreateString(theFound->Title());
        return *outString == nullptr ? OSStatus{memFullErr} : OSStatus{noErr};
    });
}

void SetControlTitle(ControlRef theControl, ConstStr255Param title)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound != nullptr && title != nullptr) {
        Guarded([&] {
            theFound->SetTitle(TextOfPascalString(title));
            return OSStatus{noErr};
        });
    }
}

void GetControlTitle(ControlRef theControl, Str255 title)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (title != nullptr) {
        CopyToPascalString(theFound == nullptr ? Text() : theFound->Title(), title);
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

OSStatus GetControlKind(ControlRef inControl, ControlKind* outControlKind)
{
    return ReadField(inControl, outControlKind, [](const Control& theFound) {
        return ControlKind{kControlKindSignatureApple, theFound.Kind()};
    });
}

OSStatus SetControlID(ControlRef inControl, const ControlID* inID)
{
    const SharedControl theFound = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (inID == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        theFound->SetID(*inID);
        theFound->Show();
        return OSStatus{noErr};
    });
}

OSStatus GetControlID(ControlRef inControl, ControlID* outID)
{
    return ReadField(inControl, outID, [](const Control& theFound) { return theFound.ID(); });
}

OSStatus SetControlCommandID(ControlRef inControl, UInt32 inCommandID)
{
    const SharedControl theFound = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    theFound->mCommand = inCommandID;
    return noErr;
}

OSStatus GetControlCommandID(ControlRef inControl, UInt32* outCommandID)
{
    return ReadField(inControl, outCommandID, [](const Control& theFound) { return theFound.mCommand; });
}

void SetControlReference(ControlRef theControl, SRefCon data)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        theFound->mReference = data;
    }
}

SRefCon GetControlReference(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? SRefCon{} : theFound->mReference;
}

void SetControlAction(ControlRef theControl, ControlActionUPP actionProc)
{
    if (const SharedControl theFound = Host::FindControl(theControl)) {
        theFound->mAction = actionProc;
    }
}

ControlActionUPP GetControlAction(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? nullptr : theFound->mAction;
}

OSErr GetControlFeatures(ControlRef inControl, UInt32* outFeatures)
{
    return static_cast<OSErr>(
        ReadField(inControl, outFeatures, [](const Control& theFound) { return theFound.Features(); }));
}
