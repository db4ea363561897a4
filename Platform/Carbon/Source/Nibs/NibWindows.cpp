// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NibWindows.h"

#include "Base/Guarded.h"
#include "NibControls.h"
#include "Windows/Window.h"

namespace Host {

namespace {

struct WindowAttributeName
{
    const char* theName;
    bool theDefault; // what the attribute of the nib is when it is left out
    bool theMeaning; // with which value of it the window has the attribute
    WindowAttributes theAttribute;
};

const WindowAttributeName kAttributes[] = {
    {"isResizable", true, true, kWindowResizableAttribute},
    {"hasCloseBox", true, true, kWindowCloseBoxAttribute},
    {"hasCollapseBox", true, true, kWindowCollapseBoxAttribute},
    {"hasHorizontalZoom", true, true, kWindowHorizontalZoomAttribute},
    {"hasVerticalZoom", true, true, kWindowVerticalZoomAttribute},
    {"liveResize", false, true, kWindowLiveResizeAttribute},
    {"compositing", false, true, kWindowCompositingAttribute},
    {"receiveUpdates", true, false, kWindowNoUpdatesAttribute},
    {"isConstrained", true, false, kWindowNoConstrainAttribute},
    {"hideOnSuspend", false, true, kWindowHideOnSuspendAttribute},
    {"hideOnFullScreen", false, true, kWindowHideOnFullScreenAttribute},
    {"asyncDrag", false, true, kWindowAsyncDragAttribute},
    {"metal", false, true, kWindowMetalAttribute},
};

// Those that depend on the class are left out of nibs when they have their default, whether the class can
// have them or not.
WindowAttributes AttributesFor(const NibObject& theObject, const WindowTraits& theTraits)
{
    WindowAttributes theAttributes = kWindowStandardHandlerAttribute;
    for (const WindowAttributeName& theEntry : kAttributes) {
        if (theObject.Flag(theEntry.theName, theEntry.theDefault) == theEntry.theMeaning) {
            theAttributes |= theEntry.theAttribute;
        }
    }
    return theAttributes & ~(kWindowStandardDocumentAttributes & ~theTraits.theAllowed);
}

OSStatus Fill(const NibObject& theObject, WindowRef theWindow)
{
    SetWindowTitleWithCFString(theWindow, NibString(theObject.String("title")));
    const OSStatus theStatus = AddNibControls(theObject.Object("rootControl"), theWindow);
    if (theObject.Has("windowPosition")) {
        RepositionWindow(theWindow, nullptr,
                         static_cast<WindowPositionMethod>(theObject.Number("windowPosition")));
    }
    return theStatus;
}

} // namespace

OSStatus MakeNibWindow(const NibObject& theObject, WindowRef* theWindow)
{
    const auto theClass =
        static_cast<WindowClass>(theObject.Number("carbonWindowClass", kDocumentWindowClass));
    const WindowTraits* theTraits = TraitsOf(theClass);
    if (theTraits == nullptr) {
        return errUnrecognizedWindowClass;
    }
    const Rect theBounds = NibRect(theObject, "windowRect");
    WindowRef theNew = nullptr;
    OSStatus theStatus = CreateNewWindow(theClass, AttributesFor(theObject, *theTraits), &theBounds, &theNew);
    if (theStatus != noErr) {
        return theStatus;
    }
    theStatus = Guarded([&] { return Fill(theObject, theNew); });
    if (theStatus != noErr) {
        DisposeWindow(theNew);
        return theStatus;
    }
    *theWindow = theNew;
    return noErr;
}

} // namespace Host
