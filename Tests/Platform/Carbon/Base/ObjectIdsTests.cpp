// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The identifiers by which presenters know windows, controls and menus.

#include "ManagerTestSupport.h"

#include <set>
#include <Windows/Controls.h>
#include <Windows/Windows.h>

namespace {

using ObjectIds = ManagerTest;

} // namespace

TEST_F(ObjectIds, AreNeverGivenTwiceToWindowsOrControls)
{
    std::set<Host::ObjectId> theIds = {Host::kNoObject, Host::IdentifierOf(mWindow)};
    for (int theRound = 0; theRound < 10; ++theRound) {
        WindowRef theWindow = NewWindow();
        ControlRef theSlider = NewSlider();
        EXPECT_TRUE(theIds.insert(Host::IdentifierOf(theWindow)).second);
        EXPECT_TRUE(theIds.insert(Host::IdentifierOf(theSlider)).second);
        DisposeControl(theSlider);
        DisposeWindow(theWindow);
    }
}
