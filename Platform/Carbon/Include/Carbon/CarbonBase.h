// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The small types that every manager's interface uses.
//
// Structures are packed to two bytes, as the platform packs them: on a 32-bit host they have the platform's
// own sizes. A field need not be aligned: copy it into a variable before binding a reference to it.

#ifndef CarbonBase_h
#define CarbonBase_h

#include <CoreFoundation/CoreFoundation.h>
#include <MacTypes.h>

#ifdef __cplusplus
#define CARBON_EXPORT extern "C" __attribute__((visibility("default")))
#define CARBON_INLINE inline
#else
#define CARBON_EXPORT extern __attribute__((visibility("default")))
#define CARBON_INLINE static __inline__
#endif

typedef unsigned char Style;
typedef short CharParameter;
typedef SInt16 ThemeBrush;

#pragma pack(push, 2)

// A place in whole pixels; the vertical coordinate comes first.
typedef struct Point
{
    short v;
    short h;
} Point;

// A rectangle in whole pixels; right and bottom lie just outside it.
typedef struct Rect
{
    short top;
    short left;
    short bottom;
    short right;
} Rect;

typedef struct RGBColor
{
    unsigned short red;
    unsigned short green;
    unsigned short blue;
} RGBColor;

typedef struct ProcessSerialNumber
{
    UInt32 highLongOfPSN;
    UInt32 lowLongOfPSN;
} ProcessSerialNumber;

#pragma pack(pop)

// References to the managers' objects. They are opaque: nothing but the managers' calls may look behind
// one. A call that is given a reference whose object is gone, or null, answers with a status.
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventQueueRef* EventQueueRef;
typedef struct OpaqueEventLoopRef* EventLoopRef;
typedef struct OpaqueEventLoopTimerRef* EventLoopTimerRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueControlRef* ControlRef;
typedef ControlRef ControlHandle;
typedef ControlRef HIViewRef;
typedef struct OpaqueMenuRef* MenuRef;
typedef MenuRef MenuHandle;
typedef struct OpaqueDialogPtr* DialogRef;
typedef DialogRef DialogPtr;
typedef struct OpaqueIconRef* IconRef;
typedef struct OpaqueWindowPtr* WindowRef;
typedef WindowRef WindowPtr;
typedef WindowRef HIWindowRef;

// Menus: an identifier, an item's place in its menu (from 1), and the command an item stands for.
typedef SInt16 MenuID;
typedef UInt16 MenuItemIndex;
typedef OSType MenuCommand;

// Parts of a control.
typedef SInt16 ControlPartCode;
typedef SInt16 ControlFocusPart;

#endif
