// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Modal windows and sheets.

#include "Window.h"

using namespace Host;

namespace {

bool IsSheetClass(const Window& theWindow)
{
    return theWindow.Traits().theShape == WindowShape::kSheet;
}

// Finds a sheet that hangs, or says why there is none.
template <class Action>
OSStatus WithSheet(WindowRef theSheet, Action theAction)
{
    const SharedWindow theFound = Host::FindWindow(theSheet);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (theFound->Parent() == nullptr) {
        return paramErr;
    }
    theAction(theFound);
    return noErr;
}

} // namespace

// Modality -----------------------------------------------------------------------------------------------

OSStatus SetWindowModality(WindowRef inWindow, WindowModality inModalKind, WindowRef inUnavailableWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    const bool theIsForOne = inModalKind == kWindowModalityWindowModal;
    const SharedWindow theKeptOut = theIsForOne ? Host::FindWindow(inUnavailableWindow) : nullptr;
    if (inModalKind > kWindowModalityWindowModal ||
        (theIsForOne && (theKeptOut == nullptr || theKeptOut == theWindow))) {
        return paramErr;
    }
    theWindow->SetModality(inModalKind, theKeptOut);
    return noErr;
}

OSStatus GetWindowModality(WindowRef inWindow, WindowModality* outModalKind, WindowRef* outUnavailableWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (outUnavailableWindow != nullptr) {
        const SharedWindow theKeptOut = theWindow == nullptr ? nullptr : theWindow->KeptOut();
        *outUnavailableWindow = theKeptOut == nullptr ? nullptr : theKeptOut->Reference();
    }
    if (outModalKind == nullptr) {
        return paramErr;
    }
    *outModalKind = theWindow == nullptr ? WindowModality{kWindowModalityNone} : theWindow->Modality();
    return theWindow == nullptr ? OSStatus{errInvalidWindowRef} : OSStatus{noErr};
}

// Sheets -------------------------------------------------------------------------------------------------

OSStatus ShowSheetWindow(WindowRef inSheet, WindowRef inParentWindow)
{
    const SharedWindow theSheet = Host::FindWindow(inSheet);
    const SharedWindow theParent = Host::FindWindow(inParentWindow);
    if (theSheet == nullptr || theParent == nullptr) {
        return errInvalidWindowRef;
    }
    if (!IsSheetClass(*theSheet) || theSheet->Parent() != nullptr || theParent->Sheet() != nullptr ||
        HangsFrom(theParent, theSheet) || theSheet->IsClosing() || theParent->IsClosing()) {
        return paramErr;
    }
    theSheet->HangFrom(theParent);
    ShowWindow(inSheet);
    ActivateAfterReordering();
    return noErr;
}

OSStatus HideSheetWindow(WindowRef inSheet)
{
    return WithSheet(inSheet, [=](const SharedWindow& theSheet) {
        HideWindow(inSheet);
        theSheet->LetGoOfParent();
    });
}

OSStatus DetachSheetWindow(WindowRef inSheet)
{
    return WithSheet(inSheet, [](const SharedWindow& theSheet) { theSheet->LetGoOfParent(); });
}

OSStatus GetSheetWindowParent(WindowRef inSheet, WindowRef* outParentWindow)
{
    if (outParentWindow == nullptr) {
        return paramErr;
    }
    *outParentWindow = nullptr;
    return WithSheet(
        inSheet, [=](const SharedWindow& theSheet) { *outParentWindow = theSheet->Parent()->Reference(); });
}
