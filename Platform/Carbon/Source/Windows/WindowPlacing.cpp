// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where windows are put by a rule, and transitions.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Window.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

// How far each window of a cascade is from the one before, across and down.
constexpr int kCascadeStep = 20;

enum class Rule
{
    kCentre,
    kAlert,
    kCascade,
};

enum class Area
{
    kMainScreen,
    kParent,
    kScreenOfParent,
};

struct Method
{
    WindowPositionMethod theMethod;
    Rule theRule;
    Area theArea;
    bool theStartsAtParent;
};

const Method kMethods[] = {
    {kWindowCenterOnMainScreen, Rule::kCentre, Area::kMainScreen, false},
    {kWindowCenterOnParentWindow, Rule::kCentre, Area::kParent, false},
    {kWindowCenterOnParentWindowScreen, Rule::kCentre, Area::kScreenOfParent, false},
    {kWindowCascadeOnMainScreen, Rule::kCascade, Area::kMainScreen, false},
    {kWindowCascadeOnParentWindow, Rule::kCascade, Area::kParent, true},
    {kWindowCascadeOnParentWindowScreen, Rule::kCascade, Area::kScreenOfParent, false},
    {kWindowAlertPositionOnMainScreen, Rule::kAlert, Area::kMainScreen, false},
    {kWindowAlertPositionOnParentWindow, Rule::kAlert, Area::kParent, false},
    {kWindowAlertPositionOnParentWindowScreen, Rule::kAlert, Area::kScreenOfParent, false},
    {kWindowCascadeStartAtParentWindowScreen, Rule::kCascade, Area::kScreenOfParent, true},
};

const Method* FindMethod(WindowPositionMethod theMethod)
{
    const auto* theFound = std::find_if(std::begin(kMethods), std::end(kMethods),
                                        [=](const Method& theOne) { return theOne.theMethod == theMethod; });
    return theFound == std::end(kMethods) ? nullptr : theFound;
}

Rect RectOf(const PixelRect& thePixels)
{
    return MakeRect(thePixels.theLeft, thePixels.theTop, thePixels.theRight, thePixels.theBottom);
}

int SharedArea(const Rect& theOne, const Rect& theOther)
{
    const int theWidth = std::min(theOne.right, theOther.right) - std::max(theOne.left, theOther.left);
    const int theHeight = std::min(theOne.bottom, theOther.bottom) - std::max(theOne.top, theOther.top);
    return theWidth > 0 && theHeight > 0 ? theWidth * theHeight : 0;
}

// What of a screen is free for windows: of the one that most of the window lies on, of the main one for null.
Rect ScreenFor(const SharedWindow& theWindow)
{
    const std::vector<ScreenLook> theScreens = PresenterRegistry::Current().Screens();
    const ScreenLook* theBest = &theScreens.front();
    int theMost = 0;
    for (const ScreenLook& theScreen : theScreens) {
        const int theArea =
            theWindow == nullptr ? 0 : SharedArea(theWindow->Structure(), RectOf(theScreen.theBounds));
        if (theArea > theMost) {
            theMost = theArea;
            theBest = &theScreen;
        }
    }
    return RectOf(theBest->theAvailable);
}

bool BeginsAt(const Window& theWindow, int theLeft, int theTop)
{
    const Rect theStructure = theWindow.Structure();
    return theStructure.left == theLeft && theStructure.top == theTop;
}

bool IsTaken(const SharedWindow& theWindow, int theLeft, int theTop)
{
    const std::vector<SharedWindow>& theWindows = AllWindows();
    return std::any_of(theWindows.begin(), theWindows.end(), [&](const SharedWindow& theOther) {
        return theOther != theWindow && BeginsAt(*theOther, theLeft, theTop);
    });
}

// The first free place of a cascade. With more windows than places, one that is taken.
Point CascadePlace(const SharedWindow& theWindow, Point theStart, const Rect& theScreen)
{
    const Rect theSize = theWindow->Structure();
    int theLeft = theStart.h;
    int theTop = theStart.v;
    while (IsTaken(theWindow, theLeft, theTop)) {
        theLeft += kCascadeStep;
        theTop += kCascadeStep;
        if (theLeft + WidthOf(theSize) > theScreen.right || theTop + HeightOf(theSize) > theScreen.bottom) {
            return theStart;
        }
    }
    return MakePoint(theLeft, theTop);
}

Point CascadeStart(const Method& theMethod, const SharedWindow& theParent, const Rect& theScreen)
{
    const Rect theFrom = theMethod.theStartsAtParent ? theParent->Structure() : theScreen;
    return MakePoint(theFrom.left + kCascadeStep, theFrom.top + kCascadeStep);
}

Point CentredPlace(const Rect& theStructure, const Rect& theArea, int thePartAbove)
{
    return MakePoint(theArea.left + (WidthOf(theArea) - WidthOf(theStructure)) / 2,
                     theArea.top + (HeightOf(theArea) - HeightOf(theStructure)) / thePartAbove);
}

Point PlaceFor(const Method& theMethod, const SharedWindow& theWindow, const SharedWindow& theParent)
{
    const Rect theScreen = ScreenFor(theMethod.theArea == Area::kMainScreen ? nullptr : theParent);
    const Rect theArea = theMethod.theArea == Area::kParent ? theParent->Structure() : theScreen;
    Point thePlace = {0, 0};
    switch (theMethod.theRule) {
    case Rule::kCascade:
        thePlace = CascadePlace(theWindow, CascadeStart(theMethod, theParent, theScreen), theScreen);
        break;
    case Rule::kCentre:
        thePlace = CentredPlace(theWindow->Structure(), theArea, 2);
        break;
    case Rule::kAlert:
        thePlace = CentredPlace(theWindow->Structure(), theArea, 3);
        break;
    }
    return MakePoint(std::max(thePlace.h, theScreen.left), std::max(thePlace.v, theScreen.top));
}

bool CanBeParent(const Method& theMethod, const SharedWindow& theWindow, const SharedWindow& theParent)
{
    switch (theMethod.theArea) {
    case Area::kMainScreen:
        return true;
    case Area::kParent:
        return theParent != nullptr && theParent != theWindow;
    case Area::kScreenOfParent:
        break;
    }
    return theParent != nullptr && (theParent != theWindow || !theMethod.theStartsAtParent);
}

// Transitions --------------------------------------------------------------------------------------------

bool IsByRect(WindowTransitionAction theAction)
{
    return theAction == kWindowMoveTransitionAction || theAction == kWindowResizeTransitionAction;
}

bool GoTogether(WindowTransitionEffect theEffect, WindowTransitionAction theAction, const Rect* theRect)
{
    if (theEffect < kWindowZoomTransitionEffect || theEffect > kWindowGenieTransitionEffect) {
        return false;
    }
    if (IsByRect(theAction)) {
        return theEffect == kWindowSlideTransitionEffect && theRect != nullptr && !IsEmpty(*theRect);
    }
    return theAction == kWindowShowTransitionAction || theAction == kWindowHideTransitionAction;
}

OSStatus Carry(WindowRef theWindow, WindowTransitionAction theAction, const Rect* theRect)
{
    if (IsByRect(theAction)) {
        return SetWindowBounds(theWindow, kWindowStructureRgn, theRect);
    }
    theAction == kWindowShowTransitionAction ? ShowWindow(theWindow) : HideWindow(theWindow);
    return noErr;
}

} // namespace

} // namespace Host

using namespace Host;

OSStatus RepositionWindow(WindowRef window, WindowRef parentWindow, WindowPositionMethod method)
{
    const SharedWindow theWindow = Host::FindWindow(window);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    const Method* const theMethod = FindMethod(method);
    const SharedWindow theParent = Host::FindWindow(parentWindow);
    if (theMethod == nullptr || !CanBeParent(*theMethod, theWindow, theParent)) {
        return paramErr;
    }
    return Guarded([&] {
        const Point thePlace = PlaceFor(*theMethod, theWindow, theParent);
        return MoveWindowStructure(window, thePlace.h, thePlace.v);
    });
}

OSStatus TransitionWindow(WindowRef inWindow, WindowTransitionEffect inEffect,
                          WindowTransitionAction inAction, const Rect* inRect)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    if (!GoTogether(inEffect, inAction, inRect)) {
        return paramErr;
    }
    theWindow->Tell(kEventWindowTransitionStarted);
    const OSStatus theStatus = Carry(inWindow, inAction, inRect);
    if (!theWindow->IsGone()) {
        theWindow->Tell(kEventWindowTransitionCompleted);
    }
    return theStatus;
}

OSStatus TransitionWindowAndParent(WindowRef inWindow, WindowRef inParentWindow,
                                   WindowTransitionEffect inEffect, WindowTransitionAction inAction,
                                   const Rect* inRect)
{
    if (Host::FindWindow(inWindow) == nullptr || Host::FindWindow(inParentWindow) == nullptr) {
        return errInvalidWindowRef;
    }
    if (inWindow == inParentWindow || inEffect != kWindowSheetTransitionEffect) {
        return paramErr;
    }
    return TransitionWindow(inWindow, inEffect, inAction, inRect);
}
