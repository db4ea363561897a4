// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Cursors.h"

#include <algorithm>
#include <Carbon/Carbon.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

PointerLook gLook;
int gHidings = 0; // that no ShowCursor has undone yet

void Change(const PointerLook& theLook)
{
    if (!(theLook == gLook)) {
        gLook = theLook;
        PresenterRegistry::Current().PointerLooks(theLook);
    }
}

void SetHidings(int theCount)
{
    gHidings = theCount;
    PointerLook theLook = gLook;
    theLook.theIsHidden = gHidings > 0;
    Change(theLook);
}

// The numbers of the platform are the places of the shapes.
OSStatus SetShape(ThemeCursor theCursor, UInt32 theStep)
{
    if (theCursor > kThemePoofCursor) {
        return paramErr;
    }
    PointerLook theLook = gLook;
    theLook.theShape = static_cast<PointerShape>(theCursor);
    theLook.theStep = static_cast<unsigned>(theStep);
    Change(theLook);
    return noErr;
}

static_assert(static_cast<ThemeCursor>(PointerShape::kArrow) == kThemeArrowCursor);
static_assert(static_cast<ThemeCursor>(PointerShape::kSpinning) == kThemeSpinningCursor);
static_assert(static_cast<ThemeCursor>(PointerShape::kPoof) == kThemePoofCursor);

} // namespace

void ReplayPointerLook(Presenter& thePresenter)
{
    if (!(gLook == PointerLook{})) {
        thePresenter.PointerLooks(gLook);
    }
}

void ShowObscuredPointer()
{
    PointerLook theLook = gLook;
    theLook.theIsObscured = false;
    Change(theLook);
}

} // namespace Host

using namespace Host;

void InitCursor(void)
{
    gHidings = 0;
    Change({});
}

OSStatus SetThemeCursor(ThemeCursor inCursor)
{
    return SetShape(inCursor, 0);
}

OSStatus SetAnimatedThemeCursor(ThemeCursor inCursor, UInt32 inAnimationStep)
{
    return SetShape(inCursor, inAnimationStep);
}

void HideCursor(void)
{
    SetHidings(gHidings + 1);
}

void ShowCursor(void)
{
    SetHidings(std::max(gHidings - 1, 0));
}

void ObscureCursor(void)
{
    PointerLook theLook = gLook;
    theLook.theIsObscured = true;
    Change(theLook);
}
