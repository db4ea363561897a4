// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Values, texts, names and states of views: mostly the Control Manager's calls under other names, and with a
// status.

#include "Windows/KeyboardFocus.h"
#include "Windows/Window.h"

using namespace Host;

namespace {

// A setter of the Control Manager that has no status, with one.
template <class Number>
OSStatus SetNumber(HIViewRef theView, void (*theSetter)(ControlRef, Number), Number theNumber)
{
    if (Host::FindControl(theView) == nullptr) {
        return errUnknownControl;
    }
    theSetter(theView, theNumber);
    return noErr;
}

// Whether a view is in a state with all around it, and whether it is by itself.
Boolean GetState(HIViewRef theReference, ControlState theState, Boolean* theIsLatent)
{
    const SharedControl theView = Host::FindControl(theReference);
    if (theIsLatent != nullptr) {
        *theIsLatent = theView != nullptr && theView->OwnState(theState);
    }
    return theView != nullptr && theView->Is(theState);
}

OSStatus SetState(HIViewRef theReference, ControlState theState, bool theIsOn)
{
    const SharedControl theView = Host::FindControl(theReference);
    return theView == nullptr ? OSStatus{errUnknownControl} : theView->Set(theState, theIsOn);
}

} // namespace

SInt32 HIViewGetValue(HIViewRef inView)
{
    return GetControl32BitValue(inView);
}

OSStatus HIViewSetValue(HIViewRef inView, SInt32 inValue)
{
    return SetNumber(inView, SetControl32BitValue, inValue);
}

SInt32 HIViewGetMinimum(HIViewRef inView)
{
    return GetControl32BitMinimum(inView);
}

OSStatus HIViewSetMinimum(HIViewRef inView, SInt32 inMinimum)
{
    return SetNumber(inView, SetControl32BitMinimum, inMinimum);
}

SInt32 HIViewGetMaximum(HIViewRef inView)
{
    return GetControl32BitMaximum(inView);
}

OSStatus HIViewSetMaximum(HIViewRef inView, SInt32 inMaximum)
{
    return SetNumber(inView, SetControl32BitMaximum, inMaximum);
}

SInt32 HIViewGetViewSize(HIViewRef inView)
{
    return GetControlViewSize(inView);
}

OSStatus HIViewSetViewSize(HIViewRef inView, SInt32 inViewSize)
{
    return SetNumber(inView, SetControlViewSize, inViewSize);
}

OSStatus HIViewSetText(HIViewRef inView, CFStringRef inText)
{
    if (Host::FindControl(inView) == nullptr) {
        return errUnknownControl;
    }
    if (inText == nullptr) {
        return paramErr;
    }
    const OSErr theStatus =
        SetControlData(inView, kControlEntireControl, kControlEditTextCFStringTag, sizeof(inText), &inText);
    return theStatus == errDataNotSupported ? SetControlTitleWithCFString(inView, inText)
                                            : OSStatus{theStatus};
}

CFStringRef HIViewCopyText(HIViewRef inView)
{
    CFStringRef theText = nullptr;
    const OSErr theStatus = GetControlData(inView, kControlEntireControl, kControlEditTextCFStringTag,
                                           sizeof(theText), &theText, nullptr);
    if (theStatus == errDataNotSupported) {
        CopyControlTitleAsCFString(inView, &theText);
    }
    return theText;
}

OSStatus HIViewGetID(HIViewRef inView, HIViewID* outID)
{
    return GetControlID(inView, outID);
}

OSStatus HIViewSetID(HIViewRef inView, HIViewID inID)
{
    return SetControlID(inView, &inID);
}

OSStatus HIViewGetCommandID(HIViewRef inView, UInt32* outCommandID)
{
    return GetControlCommandID(inView, outCommandID);
}

OSStatus HIViewSetCommandID(HIViewRef inView, UInt32 inCommandID)
{
    return SetControlCommandID(inView, inCommandID);
}

OSStatus HIViewGetKind(HIViewRef inView, HIViewKind* outViewKind)
{
    return GetControlKind(inView, outViewKind);
}

OSStatus HIViewGetFeatures(HIViewRef inView, HIViewFeatures* outFeatures)
{
    return GetControlFeatures(inView, outFeatures);
}

OSStatus HIViewChangeFeatures(HIViewRef inView, HIViewFeatures inFeaturesToSet,
                              HIViewFeatures inFeaturesToClear)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    theView->SetFeatures((theView->Features() | inFeaturesToSet) & ~inFeaturesToClear);
    return noErr;
}

Boolean HIViewIsVisible(HIViewRef inView)
{
    return GetState(inView, ControlState::kVisible, nullptr);
}

Boolean HIViewIsLatentlyVisible(HIViewRef inView)
{
    Boolean theIsLatent = false;
    GetState(inView, ControlState::kVisible, &theIsLatent);
    return theIsLatent;
}

OSStatus HIViewSetVisible(HIViewRef inView, Boolean inVisible)
{
    return SetState(inView, ControlState::kVisible, inVisible);
}

Boolean HIViewIsEnabled(HIViewRef inView, Boolean* outIsLatentEnabled)
{
    return GetState(inView, ControlState::kEnabled, outIsLatentEnabled);
}

OSStatus HIViewSetEnabled(HIViewRef inView, Boolean inSetEnabled)
{
    return SetState(inView, ControlState::kEnabled, inSetEnabled);
}

Boolean HIViewIsActive(HIViewRef inView, Boolean* outIsLatentActive)
{
    return GetState(inView, ControlState::kActive, outIsLatentActive);
}

OSStatus HIViewSetActivated(HIViewRef inView, Boolean inSetActivated)
{
    return SetState(inView, ControlState::kActive, inSetActivated);
}

OSStatus HIViewSetHilite(HIViewRef inView, HIViewPartCode inHilitePart)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    theView->SetHilite(inHilitePart);
    return noErr;
}

Boolean HIViewIsCompositingEnabled(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    return theView != nullptr && theView->IsInCompositingWindow();
}

OSStatus HIViewGetFocusPart(HIViewRef inView, HIViewPartCode* outFocusPart)
{
    if (outFocusPart == nullptr) {
        return paramErr;
    }
    *outFocusPart = kHIViewFocusNoPart;
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    const SharedWindow theWindow = theView->Owner();
    if (theWindow != nullptr && theWindow->mFocus.lock() == theView) {
        *outFocusPart = theWindow->mFocusPart;
    }
    return noErr;
}

Boolean HIViewSubtreeContainsFocus(HIViewRef inSubtreeStart)
{
    const SharedControl theView = Host::FindControl(inSubtreeStart);
    const SharedWindow theWindow = theView == nullptr ? nullptr : theView->Owner();
    const SharedControl theFocus = theWindow == nullptr ? nullptr : theWindow->mFocus.lock();
    return theFocus != nullptr && theFocus->IsInside(*theView);
}

OSStatus HIViewAdvanceFocus(HIViewRef inRootForFocus, EventModifiers inModifiers)
{
    const SharedControl theView = Host::FindControl(inRootForFocus);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    const SharedWindow theWindow = theView->Owner();
    return theWindow == nullptr ? OSStatus{errCouldntSetFocus}
                                : AdvanceFocus(theWindow, (inModifiers & shiftKey) != 0);
}
