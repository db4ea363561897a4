// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Quickdraw_h
#define Quickdraw_h

// Points and rectangles in whole pixels, places on windows and on the screen, and the cursor. Nothing here
// draws.
//
// A rectangle is empty when its bottom is not below its top or its right is not right of its left.
// Coordinates that leave the range of 16 bits stay at its end.

#include <Carbon/CarbonBase.h>
#include <CoreServices/MacErrors.h>

// What can be drawn in; here it stands for a window, or for the screen when it is NULL, and gives its
// coordinates. It is none of the window's references: cast none to the other. One whose window is gone is as
// good as NULL.
typedef struct OpaqueGrafPtr* GrafPtr;
typedef GrafPtr CGrafPtr;

// An area. What is here makes rectangles of it.
typedef struct OpaqueRgnHandle* RgnHandle;
typedef struct OpaquePicHandle* PicHandle;
typedef struct OpaqueCIconHandle* CIconHandle;

// A screen.
typedef struct OpaqueGDHandle* GDHandle;

#pragma pack(push, 2)

// A picture in memory. The screen's has no memory that a program could look at: only its bounds are told.
typedef struct BitMap
{
    Ptr baseAddr;
    short rowBytes;
    Rect bounds;
} BitMap;

#pragma pack(pop)

// Bits of Style
enum
{
    normal = 0,
    bold = 1,
    italic = 2,
    underline = 4,
    outline = 8,
    shadow = 16,
    condense = 32,
    extend = 64
};

// Fonts
enum
{
    systemFont = 0,
    applFont = 1
};

// How what is drawn meets what is there
enum
{
    srcCopy = 0,
    srcOr = 1,
    srcXor = 2,
    patCopy = 8,
    patXor = 10,
    transparent = 36
};

// Old colours
enum
{
    blackColor = 33,
    whiteColor = 30,
    redColor = 205,
    greenColor = 341,
    blueColor = 409,
    cyanColor = 273,
    magentaColor = 137,
    yellowColor = 69
};

// Cursors by number
enum
{
    iBeamCursor = 1,
    crossCursor = 2,
    plusCursor = 3,
    watchCursor = 4
};

// Rectangles. Nothing is done where one is NULL; it is equal to none, and empty.

// Sets all four edges. On purpose: the order of the parameters is not the order of the fields; the platform
// has it so.
CARBON_EXPORT void SetRect(Rect* outRect, short inLeft, short inTop, short inRight, short inBottom);

// Moves the rectangle right by inHorizontal and down by inVertical.
CARBON_EXPORT void OffsetRect(Rect* ioRect, short inHorizontal, short inVertical);

// Whether all four edges agree.
CARBON_EXPORT Boolean EqualRect(const Rect* inOne, const Rect* inOther);

// Whether the point lies inside. The left and top edges belong to the rectangle, the right and bottom ones do
// not.
CARBON_EXPORT Boolean PtInRect(Point inPoint, const Rect* inRect);

// Moves the left and right edges inwards by inHorizontal, the top and bottom ones by inVertical; outwards
// when negative. A rectangle of which nothing is left is empty at 0, 0.
CARBON_EXPORT void InsetRect(Rect* ioRect, short inHorizontal, short inVertical);

// Writes what both have in common, an empty rectangle at 0, 0 when that is nothing; whether it is something.
CARBON_EXPORT Boolean SectRect(const Rect* inOne, const Rect* inOther, Rect* outRect);

// Writes the smallest rectangle that holds both.
CARBON_EXPORT void UnionRect(const Rect* inOne, const Rect* inOther, Rect* outRect);

CARBON_EXPORT Boolean EmptyRect(const Rect* inRect);

// Points. Nothing is done where one is NULL.

// On purpose: the horizontal coordinate comes first; the platform has it so.
CARBON_EXPORT void SetPt(Point* outPoint, short inHorizontal, short inVertical);
CARBON_EXPORT void AddPt(Point inPoint, Point* ioPoint);
CARBON_EXPORT void SubPt(Point inPoint, Point* ioPoint); // takes inPoint away
CARBON_EXPORT Boolean EqualPt(Point inOne, Point inOther);

// Ports. There is a current one; at first and with NULL it is the screen, whose coordinates are global.

// The port of a window; NULL for a bad window. And the way back.
CARBON_EXPORT CGrafPtr GetWindowPort(WindowRef inWindow);
CARBON_EXPORT WindowRef GetWindowFromPort(CGrafPtr inPort);

CARBON_EXPORT void SetPort(GrafPtr inPort);
CARBON_EXPORT void GetPort(GrafPtr* outPort);
CARBON_EXPORT void SetPortWindowPort(WindowRef inWindow);

// Writes the port's own rectangle, from 0, 0 to the size of the window's content, or of the screen; the
// result is the second argument.
CARBON_EXPORT Rect* GetPortBounds(CGrafPtr inPort, Rect* outRect);

// Turn a place in a port (the current one) into a global one, and back. The result is the last argument.
CARBON_EXPORT void LocalToGlobal(Point* ioPoint);
CARBON_EXPORT void GlobalToLocal(Point* ioPoint);
CARBON_EXPORT Point* QDLocalToGlobalPoint(CGrafPtr inPort, Point* ioPoint);
CARBON_EXPORT Point* QDGlobalToLocalPoint(CGrafPtr inPort, Point* ioPoint);

// Regions, which are rectangles: no call here makes another shape of one. A bad region is empty, and stays as
// it is.

// An empty region, which DisposeRgn disposes of; NULL without memory.
CARBON_EXPORT RgnHandle NewRgn(void);
CARBON_EXPORT void DisposeRgn(RgnHandle inRegion);
CARBON_EXPORT void SetRectRgn(RgnHandle ioRegion, short inLeft, short inTop, short inRight, short inBottom);
CARBON_EXPORT void RectRgn(RgnHandle ioRegion, const Rect* inRect);
CARBON_EXPORT Rect* GetRegionBounds(RgnHandle inRegion, Rect* outBounds); // the result is the second argument
CARBON_EXPORT Boolean EmptyRgn(RgnHandle inRegion);
CARBON_EXPORT Boolean PtInRgn(Point inPoint, RgnHandle inRegion);

// The screen with the menu bar, the only one that programs are told of.

CARBON_EXPORT GDHandle GetMainDevice(void);

// Where windows can be on a screen, in global coordinates: all of it but what the menu bar and the desktop's
// own panels take. NULL stands for the main screen. paramErr for another device, and without a place for the
// answer.
CARBON_EXPORT OSStatus GetAvailableWindowPositioningBounds(GDHandle inDevice, Rect* outBounds);

// Writes the main screen's bounds, without memory; the result is the argument.
CARBON_EXPORT BitMap* GetQDGlobalsScreenBits(BitMap* outBitMap);

// The cursor. What it looks like is set by Appearance.h.

// The arrow, shown, however often it was hidden.
CARBON_EXPORT void InitCursor(void);

// Each HideCursor wants a ShowCursor of its own before the cursor is seen again; one ShowCursor too many does
// nothing.
CARBON_EXPORT void HideCursor(void);
CARBON_EXPORT void ShowCursor(void);

// Hides the cursor until the pointer moves.
CARBON_EXPORT void ObscureCursor(void);

#endif
