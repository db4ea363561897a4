// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The interface of MacWindows.h.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "KeyboardFocus.h"
#include "Window.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

using namespace Host;

namespace {

WindowRef ReferenceOf(const SharedWindow& theWindow)
{
    return theWindow == nullptr ? nullptr : theWindow->Reference();
}

// Most calls do something with the window behind a reference, or give errInvalidWindowRef.
template <class Action>
OSStatus With(WindowRef theWindow, Action theAction)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    theAction(theFound);
    return noErr;
}

template <class Type, class Reader>
OSStatus ReadField(WindowRef theWindow, Type* theResult, Reader theReader)
{
    if (theResult == nullptr) {
        return paramErr;
    }
    const SharedWindow theFound = Host::FindWindow(theWindow);
    *theResult = theFound == nullptr ? Type{} : theReader(*theFound);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef} : OSStatus{noErr};
}

const WindowAttributes kClassAttributes = kWindowStandardDocumentAttributes;
const WindowAttributes kUnknownAttributes = ((WindowAttributes)1 << 12) | ((WindowAttributes)1 << 13) |
                                            ((WindowAttributes)1 << 14) | ((WindowAttributes)1 << 30);

bool AreAllowed(WindowAttributes theAttributes, WindowAttributes theAllowed)
{
    return (theAttributes & kClassAttributes & ~theAllowed) == 0 && (theAttributes & kUnknownAttributes) == 0;
}

} // namespace

// Life ---------------------------------------------------------------------------------------------------

OSStatus CreateNewWindow(WindowClass theClass, WindowAttributes theAttributes, const Rect* theContentBounds,
                         WindowRef* theWindow)
{
    if (theWindow == nullptr) {
        return paramErr;
    }
    *theWindow = nullptr;
    const WindowTraits* theTraits = TraitsOf(theClass);
    if (theTraits == nullptr) {
        return errUnrecognizedWindowClass;
    }
    if (!AreAllowed(theAttributes, theTraits->theAllowed)) {
        return errUnsupportedWindowAttributesForClass;
    }
    if (theContentBounds == nullptr || IsEmpty(*theContentBounds)) {
        return paramErr;
    }
    return Guarded([&] {
        const auto theNew = std::make_shared<Window>(*theTraits, theAttributes, *theContentBounds);
        const OSStatus theStatus = theNew->Begin();
        *theWindow = theStatus == noErr ? theNew->Reference() : nullptr;
        return theStatus;
    });
}

void DisposeWindow(WindowRef theWindow)
{
    ReleaseWindow(theWindow);
}

OSStatus ReleaseWindow(WindowRef theWindow)
{
    return With(theWindow, [](const SharedWindow& theFound) { theFound->Release(); });
}

OSStatus RetainWindow(WindowRef theWindow)
{
    return With(theWindow, [](const SharedWindow& theFound) { theFound->Retain(); });
}

ItemCount GetWindowRetainCount(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? 0 : theFound->References();
}

Boolean IsValidWindowPtr(WindowRef theWindow)
{
    return Host::FindWindow(theWindow) != nullptr;
}

EventTargetRef GetWindowEventTarget(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? nullptr : theFound->Target();
}

// Showing ------------------------------------------------------------------------------------------------

void ShowWindow(WindowRef theWindow)
{
    With(theWindow, [](const SharedWindow& theFound) {
        if (!theFound->IsVisible() && !theFound->IsClosing()) {
            theFound->SetVisible(true);
            ActivateAfterShowing(theFound);
        }
    });
}

void HideWindow(WindowRef theWindow)
{
    With(theWindow, [](const SharedWindow& theFound) {
        theFound->SetVisible(false);
        ActivateAfterHiding(theFound);
    });
}

void ShowHide(WindowRef theWindow, Boolean theShow)
{
    With(theWindow, [theShow](const SharedWindow& theFound) {
        if (!theFound->IsClosing()) {
            theFound->SetVisible(theShow != 0);
        }
    });
}

Boolean IsWindowVisible(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound != nullptr && theFound->IsVisible();
}

OSStatus CollapseWindow(WindowRef theWindow, Boolean theCollapse)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (theCollapse && !theFound->Has(kWindowCollapseBoxAttribute)) {
        return windowWrongStateErr;
    }
    const bool theWasCollapsed = theFound->IsCollapsed();
    theFound->SetCollapsed(theCollapse != 0);
    if (theCollapse) {
        ActivateAfterHiding(theFound);
    } else if (theWasCollapsed && !theFound->IsClosing()) {
        ActivateAfterShowing(theFound);
    }
    return noErr;
}

Boolean IsWindowCollapsed(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound != nullptr && theFound->IsCollapsed();
}

Boolean IsWindowCollapsable(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound != nullptr && theFound->Has(kWindowCollapseBoxAttribute);
}

OSStatus CollapseAllWindows(Boolean theCollapse)
{
    return Guarded([=] {
        // A copy: handlers may close windows. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::vector<SharedWindow> theWindows = AllWindows();
        for (const SharedWindow& theWindow : theWindows) {
            if (theWindow->IsVisible() && !theWindow->IsGone() &&
                theWindow->Has(kWindowCollapseBoxAttribute)) {
                CollapseWindow(theWindow->Reference(), theCollapse);
            }
        }
        return OSStatus{noErr};
    });
}

// Bounds -------------------------------------------------------------------------------------------------

OSStatus SetWindowBounds(WindowRef theWindow, WindowRegionCode theRegion, const Rect* theBounds)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (theRegion != kWindowContentRgn && theRegion != kWindowStructureRgn) {
        return errWindowRegionCodeInvalid;
    }
    if (theBounds == nullptr) {
        return paramErr;
    }
    Rect theContent = *theBounds;
    if (theRegion == kWindowStructureRgn) {
        const Rect theWidths = theFound->FrameWidths();
        theContent = MakeRect(theBounds->left + theWidths.left, theBounds->top + theWidths.top,
                              theBounds->right - theWidths.right, theBounds->bottom - theWidths.bottom);
    }
    if (IsEmpty(theContent)) {
        return paramErr;
    }
    theFound->SetContent(theContent);
    return noErr;
}

OSStatus GetWindowBounds(WindowRef theWindow, WindowRegionCode theRegion, Rect* theBounds)
{
    if (theBounds == nullptr) {
        return paramErr;
    }
    *theBounds = MakeRect(0, 0, 0, 0);
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    *theBounds = theFound->PlaceOf(theRegion);
    const bool theCanBeEmpty = theRegion == kWindowContentRgn;
    return IsEmpty(*theBounds) && !theCanBeEmpty ? OSStatus{errWindowRegionCodeInvalid} : OSStatus{noErr};
}

void MoveWindow(WindowRef theWindow, short theLeft, short theTop, Boolean theFront)
{
    With(theWindow, [=](const SharedWindow& theFound) {
        const Rect theContent = theFound->Content();
        theFound->SetContent(Moved(theContent, theLeft - theContent.left, theTop - theContent.top));
        if (theFront && !theFound->IsGone()) {
            SelectWindow(theFound->Reference());
        }
    });
}

OSStatus MoveWindowStructure(WindowRef theWindow, short theLeft, short theTop)
{
    return With(theWindow, [=](const SharedWindow& theFound) {
        const Rect theStructure = theFound->Structure();
        theFound->SetContent(
            Moved(theFound->Content(), theLeft - theStructure.left, theTop - theStructure.top));
    });
}

void SizeWindow(WindowRef theWindow, short theWidth, short theHeight, Boolean)
{
    With(theWindow, [=](const SharedWindow& theFound) {
        const Rect theContent = theFound->Content();
        const Rect theNew =
            MakeRect(theContent.left, theContent.top, theContent.left + theWidth, theContent.top + theHeight);
        if (!IsEmpty(theNew)) {
            theFound->SetContent(theNew);
        }
    });
}

Rect* GetWindowPortBounds(WindowRef theWindow, Rect* theBounds)
{
    if (theBounds != nullptr) {
        *theBounds = MakeRect(0, 0, 0, 0);
        With(theWindow, [=](const SharedWindow& theFound) {
            *theBounds = MakeRect(0, 0, WidthOf(theFound->Content()), HeightOf(theFound->Content()));
        });
    }
    return theBounds;
}

OSStatus GetWindowStructureWidths(WindowRef theWindow, Rect* theWidths)
{
    return ReadField(theWindow, theWidths, [](const Window& theFound) { return theFound.FrameWidths(); });
}

OSStatus SetWindowResizeLimits(WindowRef theWindow, const HISize* theSmallest, const HISize* theLargest)
{
    return With(theWindow, [=](const SharedWindow& theFound) {
        theFound->mSmallest = theSmallest == nullptr ? CGSizeMake(0, 0) : *theSmallest;
        theFound->mLargest = theLargest == nullptr ? CGSizeMake(32767, 32767) : *theLargest;
        theFound->Show();
    });
}

OSStatus GetWindowResizeLimits(WindowRef theWindow, HISize* theSmallest, HISize* theLargest)
{
    return With(theWindow, [=](const SharedWindow& theFound) {
        if (theSmallest != nullptr) {
            *theSmallest = theFound->mSmallest;
        }
        if (theLargest != nullptr) {
            *theLargest = theFound->mLargest;
        }
    });
}

// Titles -------------------------------------------------------------------------------------------------

OSStatus SetWindowTitleWithCFString(WindowRef theWindow, CFStringRef theTitle)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theTitle == nullptr) {
        return paramErr;
    }
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    Text theText;
    const OSStatus theStatus = Guarded([&] {
        theText = TextOf(theTitle);
        return OSStatus{noErr};
    });
    if (theStatus == noErr) {
        theFound->SetTitle(std::move(theText));
    }
    return theStatus;
}

OSStatus CopyWindowTitleAsCFString(WindowRef theWindow, CFStringRef* theTitle)
{
    if (theTitle == nullptr) {
        return paramErr;
    }
    *theTitle = nullptr;
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    return Guarded([&] {
        *theTitle = CreateString(theFound->Title());
        return *theTitle == nullptr ? OSStatus{memFullErr} : OSStatus{noErr};
    });
}

void SetWTitle(WindowRef theWindow, ConstStr255Param theTitle)
{
    if (theTitle != nullptr) {
        With(theWindow, [=](const SharedWindow& theFound) {
            Guarded([&] {
                theFound->SetTitle(TextOfPascalString(theTitle));
                return OSStatus{noErr};
            });
        });
    }
}

void GetWTitle(WindowRef theWindow, Str255 theTitle)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theTitle != nullptr) {
        CopyToPascalString(theFound == nullptr ? Text() : theFound->Title(), theTitle);
    }
}

// Order and activation -----------------------------------------------------------------------------------

void SelectWindow(WindowRef theWindow)
{
    With(theWindow, [](const SharedWindow& theFound) {
        PutInFront(theFound);
        if (theFound->TakesPart() && theFound->Traits().theSharesActivity) {
            MakeActive(theFound);
        }
    });
}

void BringToFront(WindowRef theWindow)
{
    With(theWindow, [](const SharedWindow& theFound) { PutInFront(theFound); });
}

void SendBehind(WindowRef theWindow, WindowRef theBehind)
{
    const SharedWindow theFront = Host::FindWindow(theBehind);
    if (theBehind != nullptr && (theFront == nullptr || theBehind == theWindow)) {
        return;
    }
    With(theWindow, [&](const SharedWindow& theFound) {
        PutBehind(theFound, theFront);
        ActivateAfterReordering();
    });
}

OSStatus ActivateWindow(WindowRef theWindow, Boolean theActivate)
{
    return With(theWindow, [=](const SharedWindow& theFound) {
        if (theActivate && theFound->Traits().theSharesActivity) {
            MakeActive(theFound);
        } else if (!theActivate && theFound == ActiveWindow()) {
            MakeActive(nullptr);
        } else {
            theFound->SetActive(theActivate != 0);
        }
    });
}

Boolean IsWindowActive(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound != nullptr && theFound->IsActive();
}

WindowRef ActiveNonFloatingWindow(void)
{
    return ReferenceOf(ActiveWindow());
}

namespace {

// The first window from theStart on for which theTest holds.
template <class Test>
WindowRef FirstWindow(size_t theStart, Test theTest)
{
    const std::vector<SharedWindow>& theWindows = AllWindows();
    for (size_t theIndex = theStart; theIndex < theWindows.size(); ++theIndex) {
        if (theTest(*theWindows[theIndex])) {
            return theWindows[theIndex]->Reference();
        }
    }
    return nullptr;
}

WindowRef Neighbour(WindowRef theWindow, int theDistance)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return nullptr;
    }
    const int thePlace = PlaceInOrder(*theFound) + theDistance;
    const std::vector<SharedWindow>& theWindows = AllWindows();
    const bool theIsInside = thePlace >= 0 && static_cast<size_t>(thePlace) < theWindows.size();
    return theIsInside ? theWindows[static_cast<size_t>(thePlace)]->Reference() : nullptr;
}

} // namespace

WindowRef FrontNonFloatingWindow(void)
{
    return FirstWindow(
        0, [](const Window& theOne) { return theOne.IsVisible() && theOne.Traits().theSharesActivity; });
}

WindowRef FrontWindow(void)
{
    return FirstWindow(0, [](const Window& theOne) { return theOne.IsVisible(); });
}

WindowRef GetWindowList(void)
{
    return FirstWindow(0, [](const Window&) { return true; });
}

WindowRef GetNextWindow(WindowRef theWindow)
{
    return Neighbour(theWindow, 1);
}

WindowRef GetPreviousWindow(WindowRef theWindow)
{
    return Neighbour(theWindow, -1);
}

WindowRef GetFrontWindowOfClass(WindowClass theClass, Boolean theMustBeVisible)
{
    return GetNextWindowOfClass(kFirstWindowOfClass, theClass, theMustBeVisible);
}

WindowRef GetNextWindowOfClass(WindowRef theWindow, WindowClass theClass, Boolean theMustBeVisible)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr && theWindow != kFirstWindowOfClass) {
        return nullptr;
    }
    const size_t theStart = theFound == nullptr ? 0 : static_cast<size_t>(PlaceInOrder(*theFound)) + 1;
    return FirstWindow(theStart, [=](const Window& theOne) {
        return (theClass == kAllWindowClasses || theOne.Traits().theClass == theClass) &&
               (!theMustBeVisible || theOne.IsVisible());
    });
}

WindowPartCode FindWindow(Point thePoint, WindowRef* theWindow)
{
    const SharedWindow theFound = WindowAt(thePoint);
    if (theWindow != nullptr) {
        *theWindow = ReferenceOf(theFound);
    }
    if (theFound != nullptr) {
        return PartAt(*theFound, thePoint);
    }
    const ScreenLook theScreen = PresenterRegistry::Current().Screens().front();
    const bool theIsInMenuBar =
        thePoint.v >= theScreen.theBounds.theTop && thePoint.v < theScreen.theAvailable.theTop;
    return theIsInMenuBar ? WindowPartCode{inMenuBar} : WindowPartCode{inDesk};
}

// State of its own ---------------------------------------------------------------------------------------

OSStatus GetWindowClass(WindowRef theWindow, WindowClass* theClass)
{
    return ReadField(theWindow, theClass, [](const Window& theFound) { return theFound.Traits().theClass; });
}

OSStatus GetWindowAttributes(WindowRef theWindow, WindowAttributes* theAttributes)
{
    return ReadField(theWindow, theAttributes, [](const Window& theFound) { return theFound.Attributes(); });
}

OSStatus ChangeWindowAttributes(WindowRef theWindow, WindowAttributes theSet, WindowAttributes theClear)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if ((theSet & theClear) != 0) {
        return windowAttributesConflictErr;
    }
    if (((theSet | theClear) & kWindowCompositingAttribute) != 0) {
        return windowAttributeImmutableErr;
    }
    if (!AreAllowed(theSet, theFound->Traits().theAllowedLater)) {
        return errUnsupportedWindowAttributesForClass;
    }
    theFound->SetAttributes((theFound->Attributes() | theSet) & ~theClear);
    return noErr;
}

OSStatus SetWindowModified(WindowRef theWindow, Boolean theModified)
{
    return With(theWindow, [=](const SharedWindow& theFound) { theFound->SetModified(theModified != 0); });
}

Boolean IsWindowModified(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound != nullptr && theFound->IsModified();
}

void SetWRefCon(WindowRef theWindow, SRefCon theData)
{
    With(theWindow, [=](const SharedWindow& theFound) { theFound->mReference = theData; });
}

SRefCon GetWRefCon(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? SRefCon{} : theFound->mReference;
}

void SetWindowKind(WindowRef theWindow, short theKind)
{
    With(theWindow, [=](const SharedWindow& theFound) { theFound->mKind = theKind; });
}

short GetWindowKind(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? short{0} : theFound->mKind;
}

OSStatus SetWindowProperty(WindowRef theWindow, PropertyCreator theCreator, PropertyTag theTag,
                           ByteCount theSize, const void* theData)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef}
                               : theFound->mProperties.Set(theCreator, theTag, theSize, theData);
}

OSStatus GetWindowProperty(WindowRef theWindow, PropertyCreator theCreator, PropertyTag theTag,
                           ByteCount theBufferSize, ByteCount* theActualSize, void* theBuffer)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr
               ? OSStatus{errInvalidWindowRef}
               : theFound->mProperties.Get(theCreator, theTag, theBufferSize, theActualSize, theBuffer);
}

OSStatus GetWindowPropertySize(WindowRef theWindow, PropertyCreator theCreator, PropertyTag theTag,
                               ByteCount* theSize)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef}
                               : theFound->mProperties.GetSize(theCreator, theTag, theSize);
}

OSStatus RemoveWindowProperty(WindowRef theWindow, PropertyCreator theCreator, PropertyTag theTag)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef}
                               : theFound->mProperties.Remove(theCreator, theTag);
}
