// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Calls for what windows here do not have: they check the window, and change nothing.

#include "ManagerTestSupport.h"

namespace {

using WindowTrimmings = WindowTest;

} // namespace

TEST_F(WindowTrimmings, AWindowTakesAnIconThatNobodySees)
{
    const FSSpec theSpec{};
    const FSRef theFile{};
    EXPECT_EQ(SetWindowProxyFSSpec(mWindow, &theSpec), noErr);
    EXPECT_EQ(SetWindowProxyFSSpec(mWindow, nullptr), paramErr);
    EXPECT_EQ(HIWindowSetProxyFSRef(mWindow, &theFile), noErr);
    EXPECT_EQ(HIWindowSetProxyFSRef(mWindow, nullptr), paramErr);
    EXPECT_EQ(SetWindowProxyCreatorAndType(mWindow, 'ttxt', 'TEXT', 0), noErr);
    EXPECT_EQ(TrackWindowProxyDrag(mWindow, Point{0, 0}), errUserWantsToDragWindow);
    EXPECT_EQ(RemoveWindowProxy(mWindow), noErr);
}

TEST_F(WindowTrimmings, AWindowHasNoToolbar)
{
    int theStranger = 0;
    EXPECT_EQ(SetWindowToolbar(mWindow, nullptr), noErr);
    EXPECT_EQ(SetWindowToolbar(mWindow, reinterpret_cast<HIToolbarRef>(&theStranger)), paramErr);
    EXPECT_EQ(ShowHideWindowToolbar(mWindow, true, false), noErr);
    EXPECT_FALSE(IsWindowToolbarVisible(mWindow));
    EXPECT_EQ(SetAutomaticControlDragTrackingEnabledForWindow(mWindow, true), noErr);
}

TEST_F(WindowTrimmings, AWindowThatIsGoneIsRefused)
{
    const FSSpec theSpec{};
    const FSRef theFile{};
    WindowRef theGone = NewWindow();
    DisposeWindow(theGone);
    EXPECT_EQ(SetWindowProxyFSSpec(theGone, &theSpec), errInvalidWindowRef);
    EXPECT_EQ(HIWindowSetProxyFSRef(theGone, &theFile), errInvalidWindowRef);
    EXPECT_EQ(SetWindowProxyCreatorAndType(theGone, 0, 0, 0), errInvalidWindowRef);
    EXPECT_EQ(TrackWindowProxyDrag(theGone, Point{0, 0}), errInvalidWindowRef);
    EXPECT_EQ(RemoveWindowProxy(theGone), errInvalidWindowRef);
    EXPECT_EQ(SetWindowToolbar(theGone, nullptr), errInvalidWindowRef);
    EXPECT_EQ(ShowHideWindowToolbar(theGone, true, true), errInvalidWindowRef);
    EXPECT_EQ(SetAutomaticControlDragTrackingEnabledForWindow(theGone, true), errInvalidWindowRef);
}
