// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What of views must be drawn, and when it is.

#include "Windows/DrawnView.h"
#include "Windows/Window.h"

#include <memory>

using namespace Host;

namespace {

// Does something with a view that its program may draw; others are shown by the desktop, which needs no word
// for it.
template <class Body>
OSStatus WithDrawn(HIViewRef theReference, const Body& theBody)
{
    const SharedControl theView = Host::FindControl(theReference);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    if (const auto theDrawn = std::dynamic_pointer_cast<DrawnView>(theView)) {
        theBody(*theDrawn);
    }
    return noErr;
}

OSStatus SetMark(HIViewRef theReference, const CGRect* thePart, bool theIsMarked)
{
    return WithDrawn(theReference, [=](DrawnView& theView) {
        const CGRect theArea = thePart == nullptr ? theView.WholeArea() : *thePart;
        if (!theIsMarked) {
            theView.Unmark(theArea);
        } else if (theView.Is(ControlState::kVisible)) {
            theView.Mark(theArea);
        }
    });
}

CGRect AreaOf(RgnHandle theRegion)
{
    Rect theRect{};
    GetRegionBounds(theRegion, &theRect);
    return CGRectMake(static_cast<CGFloat>(theRect.left), static_cast<CGFloat>(theRect.top),
                      static_cast<CGFloat>(theRect.right - theRect.left),
                      static_cast<CGFloat>(theRect.bottom - theRect.top));
}

void MarkAllIn(const Control& theView)
{
    SetMark(theView.Reference(), nullptr, true);
    for (const SharedControl& theSubView : theView.SubControls()) {
        MarkAllIn(*theSubView);
    }
}

void DrawAgain(const SharedControl& theView)
{
    if (theView != nullptr) {
        MarkAllIn(*theView);
        DrawMarkedIn(theView);
    }
}

} // namespace

OSStatus HIViewSetNeedsDisplay(HIViewRef inView, Boolean inNeedsDisplay)
{
    return SetMark(inView, nullptr, inNeedsDisplay != 0);
}

OSStatus HIViewSetNeedsDisplayInRect(HIViewRef inView, const HIRect* inRect, Boolean inNeedsDisplay)
{
    return inRect == nullptr ? OSStatus{paramErr} : SetMark(inView, inRect, inNeedsDisplay != 0);
}

OSStatus HIViewSetNeedsDisplayInRegion(HIViewRef inView, RgnHandle inRegion, Boolean inNeedsDisplay)
{
    const CGRect theArea = AreaOf(inRegion);
    return SetMark(inView, &theArea, inNeedsDisplay != 0);
}

Boolean HIViewGetNeedsDisplay(HIViewRef inView)
{
    bool theIsMarked = false;
    WithDrawn(inView, [&](DrawnView& theView) { theIsMarked = theView.IsMarked(); });
    return theIsMarked;
}

OSStatus HIViewSetDrawingEnabled(HIViewRef inView, Boolean inEnabled)
{
    return WithDrawn(inView, [=](DrawnView& theView) { theView.EnableDrawing(inEnabled != 0); });
}

Boolean HIViewIsDrawingEnabled(HIViewRef inView)
{
    bool theIsEnabled = Host::FindControl(inView) != nullptr;
    WithDrawn(inView, [&](DrawnView& theView) { theIsEnabled = theView.IsDrawingEnabled(); });
    return theIsEnabled;
}

OSStatus HIViewRender(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    DrawMarkedIn(theView);
    return noErr;
}

OSStatus HIWindowFlush(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    if (theWindow->Root() != nullptr) {
        DrawMarkedIn(theWindow->Root());
    }
    return noErr;
}

void Draw1Control(ControlRef theControl)
{
    DrawAgain(Host::FindControl(theControl));
}

void DrawControls(WindowRef theWindow)
{
    const SharedWindow theFound = Host::FindWindow(theWindow);
    DrawAgain(theFound == nullptr ? nullptr : theFound->Root());
}
