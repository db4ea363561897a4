// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <algorithm>
#include <Carbon/Carbon.h>
#include <limits>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

short GetMBarHeight(void)
{
    const Host::ScreenLook theScreen = Host::PresenterRegistry::Current().Screens().front();
    const int theHeight = theScreen.theAvailable.theTop - theScreen.theBounds.theTop;
    return static_cast<short>(std::clamp(theHeight, 0, int{std::numeric_limits<short>::max()}));
}

void HiliteMenu(MenuID) {}
