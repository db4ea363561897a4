// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Appearance_h
#define Appearance_h

// The cursors of the desktop.

#include <Carbon/CarbonBase.h>
#include <CoreServices/MacErrors.h>

typedef UInt32 ThemeCursor;

enum
{
    kThemeArrowCursor = 0,
    kThemeCopyArrowCursor = 1,
    kThemeAliasArrowCursor = 2,
    kThemeContextualMenuArrowCursor = 3,
    kThemeIBeamCursor = 4,
    kThemeCrossCursor = 5,
    kThemePlusCursor = 6,
    kThemeWatchCursor = 7,
    kThemeClosedHandCursor = 8,
    kThemeOpenHandCursor = 9,
    kThemePointingHandCursor = 10,
    kThemeCountingUpHandCursor = 11,
    kThemeCountingDownHandCursor = 12,
    kThemeCountingUpAndDownHandCursor = 13,
    kThemeSpinningCursor = 14,
    kThemeResizeLeftCursor = 15,
    kThemeResizeRightCursor = 16,
    kThemeResizeLeftRightCursor = 17,
    kThemeNotAllowedCursor = 18,
    kThemeResizeUpCursor = 19,
    kThemeResizeDownCursor = 20,
    kThemeResizeUpDownCursor = 21,
    kThemePoofCursor = 22
};

// Gives the program's windows this cursor, until another one is set. With the arrow, what the pointer is over
// has its own again: an I-beam over texts. Where the desktop has no such cursor, it shows the one that is
// most like it. paramErr for a number that is none.
CARBON_EXPORT OSStatus SetThemeCursor(ThemeCursor inCursor);

// The same for cursors that move; each step is the next picture, and begins anew after the last. The desktop
// moves its own by itself.
CARBON_EXPORT OSStatus SetAnimatedThemeCursor(ThemeCursor inCursor, UInt32 inAnimationStep);

#endif
