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

// Programs give palettes and toolbars a collapse or zoom box that those do not have: the window is made
// without.
WindowAttributes WithoutMissingBoxes(WindowClass theClass, WindowAttributes theAttributes,
                                     WindowAttributes theAllowed)
{
    const bool theIsForgiving = theClass == kFloatingWindowClass || theClass == kUtilityWindowClass ||
                                theClass == kToolbarWindowClass;
    const WindowAttributes theBoxes = kWindowCollapseBoxAttribute | kWindowFullZoomAttribute;
    return theIsForgiving ? theAttributes & ~(theBoxes & ~theAllowed) : theAttributes;
}

} // namespace

// Life ---------------------------------------------------------------------------------------------------

OSStatus CreateNewWindow(WindowClass windowClass, WindowAttributes attributes, const Rect* contentBounds,
                         WindowRef* outWindow)
{
    if (outWindow == nullptr) {
        return paramErr;
    }
    *outWindow = nullptr;
    const WindowTraits* theTraits = TraitsOf(windowClass);
    if (theTraits == nullptr) {
        return errUnrecognizedWindowClass;
    }
    attributes = WithoutMissingBoxes(windowClass, attributes, theTraits->theAllowed);
    if (!AreAllowed(attributes, theTraits->theAllowed)) {
        return errUnsupportedWindowAttributesForClass;
    }
    if (contentBounds == nullptr || IsEmpty(*contentBounds)) {
        return paramErr;
    }
    return Guarded([&] {
        const auto theNew = std::make_shared<Window>(*theTraits, attributes, *contentBounds);
        const OSStatus theStatus = theNew->Begin();
        *outWindow = theStatus == noErr ? theNew->Reference() : nullptr;
        return theStatus;
    });
}

void DisposeWindow(WindowRef window)
{
    ReleaseWindow(window);
}

OSStatus ReleaseWindow(WindowRef inWindow)
{
    return With(inWindow, [](const SharedWindow& theFound) { theFound->Release(); });
}

OSStatus RetainWindow(WindowRef inWindow)
{
    return With(inWindow, [](const SharedWindow& theFound) { theFound->Retain(); });
}

ItemCount GetWindowRetainCount(WindowRef inWindow)
{
    const SharedWindow theFound = Host::FindWindow(inWindow);
    return theFound == nullptr ? 0 : theFound->References();
}

Boolean IsValidWindowPtr(WindowRef possibleWindow)
{
    return Host::FindWindow(possibleWindow) != nullptr;
}

EventTargetRef GetWindowEventTarget(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    return theFound == nullptr ? nullptr : theFound->Target();
}

// Showing ------------------------------------------------------------------------------------------------

void ShowWindow(WindowRef window)
{
    With(window, [](const SharedWindow& theFound) {
        if (!theFound->IsVisible() && !theFound->IsClosing()) {
            theFound->SetVisible(true);
            ActivateAfterShowing(theFound);
        }
    });
}

void HideWindow(WindowRef window)
{
    With(window, [](const SharedWindow& theFound) {
        theFound->SetVisible(false);
        ActivateAfterHiding(theFound);
    });
}

void ShowHide(WindowRef window, Boolean showFlag)
{
    With(window, [showFlag](const SharedWindow& theFound) {
        if (!theFound->IsClosing()) {
            theFound->SetVisible(showFlag != 0);
        }
    });
}

Boolean IsWindowVisible(WindowRef window)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound != nullptr && theFound->IsVisible();
}

OSStatus CollapseWindow(WindowRef window, Boolean collapse)
{
    const SharedWindow theFound = Host::FindWindow(window);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (collapse && !theFound->Has(kWindowCollapseBoxAttribute)) {
        return windowWrongStateErr;
    }
    const bool theWasCollapsed = theFound->IsCollapsed();
    theFound->SetCollapsed(collapse != 0);
    if (collapse) {
        ActivateAfterHiding(theFound);
    } else if (theWasCollapsed && !theFound->IsClosing()) {
        ActivateAfterShowing(theFound);
    }
    return noErr;
}

Boolean IsWindowCollapsed(WindowRef window)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound != nullptr && theFound->IsCollapsed();
}

Boolean IsWindowCollapsable(WindowRef window)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound != nullptr && theFound->Has(kWindowCollapseBoxAttribute);
}

OSStatus CollapseAllWindows(Boolean collapse)
{
    return Guarded([=] {
        // A copy: handlers may close windows. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::vector<SharedWindow> theWindows = AllWindows();
        for (const SharedWindow& theWindow : theWindows) {
            if (theWindow->IsVisible() && !theWindow->IsGone() &&
                theWindow->Has(kWindowCollapseBoxAttribute)) {
                CollapseWindow(theWindow->Reference(), collapse);
            }
        }
        return OSStatus{noErr};
    });
}

// Bounds -------------------------------------------------------------------------------------------------

OSStatus SetWindowBounds(WindowRef window, WindowRegionCode regionCode, const Rect* globalBounds)
{
    const SharedWindow theFound = Host::FindWindow(window);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if (regionCode != kWindowContentRgn && regionCode != kWindowStructureRgn) {
        return errWindowRegionCodeInvalid;
    }
    if (globalBounds == nullptr) {
        return paramErr;
    }
    Rect theContent = *globalBounds;
    if (regionCode == kWindowStructureRgn) {
        const Rect theWidths = theFound->FrameWidths();
        theContent = MakeRect(globalBounds->left + theWidths.left, globalBounds->top + theWidths.top,
                              globalBounds->right - theWidths.right, globalBounds->bottom - theWidths.bottom);
    }
    if (IsEmpty(theContent)) {
        return paramErr;
    }
    theFound->SetContent(theContent);
    return noErr;
}

OSStatus GetWindowBounds(WindowRef window, WindowRegionCode regionCode, Rect* globalBounds)
{
    if (globalBounds == nullptr) {
        return paramErr;
    }
    *globalBounds = MakeRect(0, 0, 0, 0);
    const SharedWindow theFound = Host::FindWindow(window);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    *globalBounds = theFound->PlaceOf(regionCode);
    const bool theCanBeEmpty = regionCode == kWindowContentRgn;
    return IsEmpty(*globalBounds) && !theCanBeEmpty ? OSStatus{errWindowRegionCodeInvalid} : OSStatus{noErr};
}

void MoveWindow(WindowRef window, short hGlobal, short vGlobal, Boolean front)
{
    With(window, [=](const SharedWindow& theFound) {
        const Rect theContent = theFound->Content();
        theFound->SetContent(Moved(theContent, hGlobal - theContent.left, vGlobal - theContent.top));
        if (front && !theFound->IsGone()) {
            SelectWindow(theFound->Reference());
        }
    });
}

OSStatus MoveWindowStructure(WindowRef window, short hGlobal, short vGlobal)
{
    return With(window, [=](const SharedWindow& theFound) {
        const Rect theStructure = theFound->Structure();
        theFound->SetContent(
            Moved(theFound->Content(), hGlobal - theStructure.left, vGlobal - theStructure.top));
    });
}

void SizeWindow(WindowRef window, short w, short h, Boolean)
{
    With(window, [=](const SharedWindow& theFound) {
        const Rect theContent = theFound->Content();
        const Rect theNew =
            MakeRect(theContent.left, theContent.top, theContent.left + w, theContent.top + h);
        if (!IsEmpty(theNew)) {
            theFound->SetContent(theNew);
        }
    });
}

Rect* GetWindowPortBounds(WindowRef window, Rect* bounds)
{
    if (bounds != nullptr) {
        *bounds = MakeRect(0, 0, 0, 0);
        With(window, [=](const SharedWindow& theFound) {
            *bounds = MakeRect(0, 0, WidthOf(theFound->Content()), HeightOf(theFound->Content()));
        });
    }
    return bounds;
}

OSStatus GetWindowStructureWidths(WindowRef inWindow, Rect* outRect)
{
    return ReadField(inWindow, outRect, [](const Window& theFound) { return theFound.FrameWidths(); });
}

OSStatus SetWindowResizeLimits(WindowRef inWindow, const HISize* inMinLimits, const HISize* inMaxLimits)
{
    return With(inWindow, [=](const SharedWindow& theFound) {
        theFound->mSmallest = inMinLimits == nullptr ? CGSizeMake(0, 0) : *inMinLimits;
        theFound->mLargest = inMaxLimits == nullptr ? CGSizeMake(32767, 32767) : *inMaxLimits;
        theFound->Show();
    });
}

OSStatus GetWindowResizeLimits(WindowRef inWindow, HISize* outMinLimits, HISize* outMaxLimits)
{
    return With(inWindow, [=](const SharedWindow& theFound) {
        if (outMinLimits != nullptr) {
            *outMinLimits = theFound->mSmallest;
        }
        if (outMaxLimits != nullptr) {
            *outMaxLimits = theFound->mLargest;
        }
    });
}

// Titles -------------------------------------------------------------------------------------------------

OSStatus SetWindowTitleWithCFString(WindowRef inWindow, CFStringRef inString)
{
    const SharedWindow theFound = Host::FindWindow(inWindow);
    if (inString == nullptr) {
        return paramErr;
    }
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    Text theText;
    const OSStatus theStatus = Guarded([&] {
        theText = TextOf(inString);
        return OSStatus{noErr};
    });
    if (theStatus == noErr) {
        theFound->SetTitle(std::move(theText));
    }
    return theStatus;
}

OSStatus CopyWindowTitleAsCFString(WindowRef inWindow, CFStringRef* outString)
{
    if (outString == nullptr) {
        return paramErr;
    }
    *outString = nullptr;
    const SharedWindow theFound = Host::FindWindow(inWindow);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    return Guarded([&] {
        *outString = CreateString(theFound->Title());
        return *outString == nullptr ? OSStatus{memFullErr} : OSStatus{noErr};
    });
}

void SetWTitle(WindowRef window, ConstStr255Param title)
{
    if (title != nullptr) {
        With(window, [=](const SharedWindow& theFound) {
            Guarded([&] {
                theFound->SetTitle(TextOfPascalString(title));
                return OSStatus{noErr};
            });
        });
    }
}

void GetWTitle(WindowRef window, Str255 title)
{
    const SharedWindow theFound = Host::FindWindow(window);
    if (title != nullptr) {
        CopyToPascalString(theFound == nullptr ? Text() : theFound->Title(), title);
    }
}

// Order and activation -----------------------------------------------------------------------------------

void SelectWindow(WindowRef window)
{
    With(window, [](const SharedWindow& theFound) {
        PutInFront(theFound);
        if (const SharedWindow theTop = TopSheetOf(theFound);
            theTop->TakesPart() && theTop->SharesActivity()) {
            MakeActive(theTop);
        }
    });
}

void BringToFront(WindowRef window)
{
    With(window, [](const SharedWindow& theFound) { PutInFront(theFound); });
}

void SendBehind(WindowRef window, WindowRef behindWindow)
{
    const SharedWindow theFront = Host::FindWindow(behindWindow);
    if (behindWindow != nullptr && (theFront == nullptr || behindWindow == window)) {
        return;
    }
    With(window, [&](const SharedWindow& theFound) {
        PutBehind(theFound, theFront);
        ActivateAfterReordering();
    });
}

OSStatus ActivateWindow(WindowRef inWindow, Boolean inActivate)
{
    return With(inWindow, [=](const SharedWindow& theFound) {
        if (inActivate && theFound->SharesActivity()) {
            MakeActive(theFound);
        } else if (!inActivate && theFound == ActiveWindow()) {
            MakeActive(nullptr);
        } else {
            theFound->SetActive(inActivate != 0);
        }
    });
}

Boolean IsWindowActive(WindowRef inWindow)
{
    const SharedWindow theFound = Host::FindWindow(inWindow);
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
    const int theIndex = IndexInOrder(*theFound) + theDistance;
    const std::vector<SharedWindow>& theWindows = AllWindows();
    const bool theIsInside = theIndex >= 0 && static_cast<size_t>(theIndex) < theWindows.size();
    return theIsInside ? theWindows[static_cast<size_t>(theIndex)]->Reference() : nullptr;
}

} // namespace

WindowRef FrontNonFloatingWindow(void)
{
    return FirstWindow(0, [](const Window& theOne) { return theOne.IsVisible() && theOne.SharesActivity(); });
}

WindowRef FrontWindow(void)
{
    return FirstWindow(0, [](const Window& theOne) { return theOne.IsVisible(); });
}

WindowRef GetWindowList(void)
{
    return FirstWindow(0, [](const Window&) { return true; });
}

WindowRef GetNextWindow(WindowRef window)
{
    return Neighbour(window, 1);
}

WindowRef GetPreviousWindow(WindowRef inWindow)
{
    return Neighbour(inWindow, -1);
}

WindowRef GetFrontWindowOfClass(WindowClass inWindowClass, Boolean mustBeVisible)
{
    return GetNextWindowOfClass(kFirstWindowOfClass, inWindowClass, mustBeVisible);
}

WindowRef GetNextWindowOfClass(WindowRef inWindow, WindowClass inWindowClass, Boolean mustBeVisible)
{
    const SharedWindow theFound = Host::FindWindow(inWindow);
    if (theFound == nullptr && inWindow != kFirstWindowOfClass) {
        return nullptr;
    }
    const size_t theStart = theFound == nullptr ? 0 : static_cast<size_t>(IndexInOrder(*theFound)) + 1;
    return FirstWindow(theStart, [=](const Window& theOne) {
        return (inWindowClass == kAllWindowClasses || theOne.Traits().theClass == inWindowClass) &&
               (!mustBeVisible || theOne.IsVisible());
    });
}

WindowPartCode FindWindow(Point thePoint, WindowRef* window)
{
    const SharedWindow theFound = WindowAt(thePoint);
    if (window != nullptr) {
        *window = ReferenceOf(theFound);
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

OSStatus GetWindowClass(WindowRef window, WindowClass* outClass)
{
    return ReadField(window, outClass, [](const Window& theFound) { return theFound.Traits().theClass; });
}

OSStatus GetWindowAttributes(WindowRef window, WindowAttributes* outAttributes)
{
    return ReadField(window, outAttributes, [](const Window& theFound) { return theFound.Attributes(); });
}

OSStatus ChangeWindowAttributes(WindowRef window, WindowAttributes setTheseAttributes,
                                WindowAttributes clearTheseAttributes)
{
    const SharedWindow theFound = Host::FindWindow(window);
    if (theFound == nullptr) {
        return errInvalidWindowRef;
    }
    if ((setTheseAttributes & clearTheseAttributes) != 0) {
        return windowAttributesConflictErr;
    }
    if (((setTheseAttributes | clearTheseAttributes) & kWindowCompositingAttribute) != 0) {
        return windowAttributeImmutableErr;
    }
    if (!AreAllowed(setTheseAttributes, theFound->Traits().theAllowedLater)) {
        return errUnsupportedWindowAttributesForClass;
    }
    theFound->SetAttributes((theFound->Attributes() | setTheseAttributes) & ~clearTheseAttributes);
    return noErr;
}

OSStatus SetWindowModified(WindowRef window, Boolean modified)
{
    return With(window, [=](const SharedWindow& theFound) { theFound->SetModified(modified != 0); });
}

Boolean IsWindowModified(WindowRef window)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound != nullptr && theFound->IsModified();
}

void SetWRefCon(WindowRef window, SRefCon data)
{
    With(window, [=](const SharedWindow& theFound) { theFound->mReference = data; });
}

SRefCon GetWRefCon(WindowRef window)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound == nullptr ? SRefCon{} : theFound->mReference;
}

void SetWindowKind(WindowRef window, short kind)
{
    With(window, [=](const SharedWindow& theFound) { theFound->mKind = kind; });
}

short GetWindowKind(WindowRef window)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound == nullptr ? short{0} : theFound->mKind;
}

OSStatus SetWindowProperty(WindowRef window, PropertyCreator propertyCreator, PropertyTag propertyTag,
                           ByteCount propertySize, const void* propertyBuffer)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound == nullptr
               ? OSStatus{errInvalidWindowRef}
               : theFound->mProperties.Set(propertyCreator, propertyTag, propertySize, propertyBuffer);
}

OSStatus GetWindowProperty(WindowRef window, PropertyCreator propertyCreator, PropertyTag propertyTag,
                           ByteCount bufferSize, ByteCount* actualSize, void* propertyBuffer)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef}
                               : theFound->mProperties.Get(propertyCreator, propertyTag, bufferSize,
                                                           actualSize, propertyBuffer);
}

OSStatus GetWindowPropertySize(WindowRef window, PropertyCreator creator, PropertyTag tag, ByteCount* size)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef}
                               : theFound->mProperties.GetSize(creator, tag, size);
}

OSStatus RemoveWindowProperty(WindowRef window, PropertyCreator propertyCreator, PropertyTag propertyTag)
{
    const SharedWindow theFound = Host::FindWindow(window);
    return theFound == nullptr ? OSStatus{errInvalidWindowRef}
                               : theFound->mProperties.Remove(propertyCreator, propertyTag);
}
