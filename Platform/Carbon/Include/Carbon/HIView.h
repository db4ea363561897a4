// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Controls as views: the tree that they form, their places in each other with fractional coordinates, and
// rules by which they follow each other when one changes its place.
//
// Every control is a view, and every call works on every control, in compositing windows and in others. A
// reference that is null, disposed or invented answers errUnknownControl, and where a call has no status,
// null, zero or false. Null for what a call writes to is paramErr unless it is said to be allowed; what is
// written is null or zero after an error.
//
// The root of a window is its content: views stand in each other from there on, and the parts of the frame
// are no views.
//
// Coordinates: a view's own begin at its top left, its bounds; its frame is in those of the view around it.
// Those of a window begin at the top left of its structure, title bar included, and those of the screen at
// the top left of the screen. Controls stand on whole pixels, so what a call sets is rounded to the
// nearest.

#ifndef HIView_h
#define HIView_h

#include <Carbon/Controls.h>
#include <Carbon/Events.h>
#include <Carbon/HIGeometry.h>

typedef ControlID HIViewID;
typedef ControlKind HIViewKind;
typedef ControlPartCode HIViewPartCode;
typedef OptionBits HIViewFeatures;

// The same bits as those of Controls.h. With a view of a program's own, the first three have an effect; the
// others are hints, which are kept.
enum
{
    kHIViewFeatureAllowsSubviews = kControlSupportsEmbedding,
    kHIViewFeatureGetsFocusOnClick = kControlGetsFocusOnClick,
    kHIViewFeatureIgnoresClicks = 1 << 29,
    kHIViewFeatureSupportsGhosting = 1 << 0,
    kHIViewFeatureSupportsLiveFeedback = kControlSupportsLiveFeedback,
    kHIViewFeatureSupportsRadioBehavior = kControlHasRadioBehavior,
    kHIViewFeatureAutoToggles = kControlAutoToggles,
    kHIViewFeatureIdlesWithTimer = 1 << 23,
    kHIViewFeatureInvertsUpDownValueMeaning = 1 << 24,
    kHIViewFeatureIsOpaque = 1 << 25,
    kHIViewFeatureDoesNotDraw = 1 << 27,
    kHIViewFeatureDoesNotUseSpecialParts = 1 << 28
};

typedef UInt32 HIViewZOrderOp;
enum
{
    kHIViewZOrderAbove = 1,
    kHIViewZOrderBelow = 2
};

enum
{
    kHIViewNoPart = 0,
    kHIViewEntireView = 0,
    kHIViewIndicatorPart = 129,
    kHIViewDisabledPart = 254,
    kHIViewInactivePart = 255,
    kHIViewFocusNoPart = 0,
    kHIViewFocusNextPart = -1,
    kHIViewFocusPrevPart = -2
};

typedef UInt32 HICoordinateSpace;
enum
{
    kHICoordSpace72DPIGlobal = 1,
    kHICoordSpaceScreenPixel = 2, // the same: there is one pixel to a point
    kHICoordSpaceWindow = 3,
    kHICoordSpaceView = 4
};

// The view that holds those of the program in a compositing window.
CARBON_EXPORT const HIViewID kHIViewWindowContentID;

// The tree ----------------------------------------------------------------------------------------------

// The view that holds all others of a window, which is made if there is none yet. Null for a window that is
// none, and when there is no memory.
CARBON_EXPORT HIViewRef HIViewGetRoot(WindowRef inWindow);

// The first view with an identifier: inStartView itself, else in it, the ones in the back before those in
// front. errUnknownControl, and null, when there is none.
CARBON_EXPORT OSStatus HIViewFindByID(HIViewRef inStartView, HIViewID inID, HIViewRef* outView);

// Puts a view into another one of a compositing window, in front of what is there; from where it is, if it
// is somewhere. What is sent and what is refused is as with EmbedControl; errNeedsCompositedWindow in
// addition where the parent is in a window that is not compositing. The parent takes the view over: it is
// disposed with it.
CARBON_EXPORT OSStatus HIViewAddSubview(HIViewRef inParent, HIViewRef inNewChild);

// Takes a view, with all in it, out of the one around it and out of the window. It stays, to be added
// somewhere or disposed. kEventControlRemovingSubControl to the parent before,
// kEventControlOwningWindowChanged, with no window, to each view after. A view that is nowhere stays there.
// errCantEmbedRoot for a root.
CARBON_EXPORT OSStatus HIViewRemoveFromSuperview(HIViewRef inView);

// Null where there is none. The first subview is the one in front, and the next view is the one behind.
CARBON_EXPORT HIViewRef HIViewGetSuperview(HIViewRef inView);
CARBON_EXPORT HIViewRef HIViewGetFirstSubview(HIViewRef inView);
CARBON_EXPORT HIViewRef HIViewGetLastSubview(HIViewRef inView);
CARBON_EXPORT HIViewRef HIViewGetNextView(HIViewRef inView);
CARBON_EXPORT HIViewRef HIViewGetPreviousView(HIViewRef inView);
CARBON_EXPORT CFIndex HIViewCountSubviews(HIViewRef inView);

// The frontmost has the index 1. paramErr out of range.
CARBON_EXPORT OSStatus HIViewGetIndexedSubview(HIViewRef inView, CFIndex inSubviewIndex,
                                               HIViewRef* outSubview);

// Puts a view directly in front of another one in the same view, or directly behind it; with null, in front
// of all or behind all. Nothing is sent. paramErr for another operation, for inOther elsewhere, and for a
// view that is nowhere.
CARBON_EXPORT OSStatus HIViewSetZOrder(HIViewRef inView, HIViewZOrderOp inOp, HIViewRef inOther);

CARBON_EXPORT WindowRef HIViewGetWindow(HIViewRef inView);
CARBON_EXPORT Boolean HIViewIsValid(HIViewRef inView);

// Places ------------------------------------------------------------------------------------------------

CARBON_EXPORT OSStatus HIViewGetBounds(HIViewRef inView, HIRect* outRect);
CARBON_EXPORT OSStatus HIViewGetFrame(HIViewRef inView, HIRect* outRect);

// Moves and resizes a view, as SetControlBounds does: the same events, and then the views that are laid out
// by it follow.
CARBON_EXPORT OSStatus HIViewSetFrame(HIViewRef inView, const HIRect* inRect);
CARBON_EXPORT OSStatus HIViewMoveBy(HIViewRef inView, CGFloat inDX, CGFloat inDY);
CARBON_EXPORT OSStatus HIViewPlaceInSuperviewAt(HIViewRef inView, CGFloat inX, CGFloat inY);

// From the coordinates of one view to those of another in the same window; null stands for the window.
// paramErr for views of two windows, or of none.
CARBON_EXPORT OSStatus HIViewConvertPoint(HIPoint* ioPoint, HIViewRef inSourceView, HIViewRef inDestView);
CARBON_EXPORT OSStatus HIViewConvertRect(HIRect* ioRect, HIViewRef inSourceView, HIViewRef inDestView);

// The same between any two spaces. The object is a view, or a window; it is not looked at for the two of
// the screen. Nothing changes when an object is not what its space needs.
CARBON_EXPORT void HIPointConvert(HIPoint* ioPoint, HICoordinateSpace inSourceSpace, void* inSourceObject,
                                  HICoordinateSpace inDestinationSpace, void* inDestinationObject);
CARBON_EXPORT void HIRectConvert(HIRect* ioRect, HICoordinateSpace inSourceSpace, void* inSourceObject,
                                 HICoordinateSpace inDestinationSpace, void* inDestinationObject);
CARBON_EXPORT void HISizeConvert(HISize* ioSize, HICoordinateSpace inSourceSpace, void* inSourceObject,
                                 HICoordinateSpace inDestinationSpace, void* inDestinationObject);

// The part at a point of the view's own coordinates; no part outside, and of one that is hidden, disabled
// or inactive.
CARBON_EXPORT OSStatus HIViewGetPartHit(HIViewRef inView, const HIPoint* inPoint, HIViewPartCode* outPart);

// The frontmost visible view in inView at a point of its coordinates, or null; the deepest such one when
// inDeep.
CARBON_EXPORT OSStatus HIViewGetSubviewHit(HIViewRef inView, const HIPoint* inPoint, Boolean inDeep,
                                           HIViewRef* outView);

// The view inside inView, or itself, that an event of the mouse is for: the frontmost and deepest one at its
// place. On the way each view that has others at that place is asked with
// kEventControlInterceptSubviewClick, and is the one when a handler answers noErr. Null when the place is
// outside. paramErr for an event without a place, and for a view without a window.
CARBON_EXPORT OSStatus HIViewGetViewForMouseEvent(HIViewRef inView, EventRef inEvent, HIViewRef* outView);

// Presses a view as the mouse does it, with the event of a press in the view's window. What follows is as if
// the person had pressed there, up to the button's coming up. paramErr for other events.
CARBON_EXPORT OSStatus HIViewClick(HIViewRef inView, EventRef inEvent);

// State -------------------------------------------------------------------------------------------------

// Values and texts, as the calls of the same name in Controls.h have them, with a status. The setters send
// what those send.
CARBON_EXPORT SInt32 HIViewGetValue(HIViewRef inView);
CARBON_EXPORT OSStatus HIViewSetValue(HIViewRef inView, SInt32 inValue);
CARBON_EXPORT SInt32 HIViewGetMinimum(HIViewRef inView);
CARBON_EXPORT OSStatus HIViewSetMinimum(HIViewRef inView, SInt32 inMinimum);
CARBON_EXPORT SInt32 HIViewGetMaximum(HIViewRef inView);
CARBON_EXPORT OSStatus HIViewSetMaximum(HIViewRef inView, SInt32 inMaximum);
CARBON_EXPORT SInt32 HIViewGetViewSize(HIViewRef inView);
CARBON_EXPORT OSStatus HIViewSetViewSize(HIViewRef inView, SInt32 inViewSize);

// The text of a view that has one, else its title. The text is copied; the caller releases what it gets,
// and gets null for what is no view, or when there is no memory. paramErr for no text.
CARBON_EXPORT OSStatus HIViewSetText(HIViewRef inView, CFStringRef inText);
CARBON_EXPORT CFStringRef HIViewCopyText(HIViewRef inView);

CARBON_EXPORT OSStatus HIViewGetID(HIViewRef inView, HIViewID* outID);
CARBON_EXPORT OSStatus HIViewSetID(HIViewRef inView, HIViewID inID);
CARBON_EXPORT OSStatus HIViewGetCommandID(HIViewRef inView, UInt32* outCommandID);
CARBON_EXPORT OSStatus HIViewSetCommandID(HIViewRef inView, UInt32 inCommandID);
CARBON_EXPORT OSStatus HIViewGetKind(HIViewRef inView, HIViewKind* outViewKind);
CARBON_EXPORT OSStatus HIViewGetFeatures(HIViewRef inView, HIViewFeatures* outFeatures);

// What a view can do is another from now on: first those of inFeaturesToSet, then not those of
// inFeaturesToClear. Nothing is sent, and views that are in it stay.
CARBON_EXPORT OSStatus HIViewChangeFeatures(HIViewRef inView, HIViewFeatures inFeaturesToSet,
                                            HIViewFeatures inFeaturesToClear);

// Whether a view is so together with all around it. The second answer, which may be null, is the view's own
// alone.
CARBON_EXPORT Boolean HIViewIsVisible(HIViewRef inView);
CARBON_EXPORT Boolean HIViewIsLatentlyVisible(HIViewRef inView);
CARBON_EXPORT OSStatus HIViewSetVisible(HIViewRef inView, Boolean inVisible);
CARBON_EXPORT Boolean HIViewIsEnabled(HIViewRef inView, Boolean* outIsLatentEnabled);
CARBON_EXPORT OSStatus HIViewSetEnabled(HIViewRef inView, Boolean inSetEnabled);
CARBON_EXPORT Boolean HIViewIsActive(HIViewRef inView, Boolean* outIsLatentActive);
CARBON_EXPORT OSStatus HIViewSetActivated(HIViewRef inView, Boolean inSetActivated);
CARBON_EXPORT OSStatus HIViewSetHilite(HIViewRef inView, HIViewPartCode inHilitePart);
CARBON_EXPORT Boolean HIViewIsCompositingEnabled(HIViewRef inView);

// The keyboard focus: the part that has it, kHIViewFocusNoPart for none; whether it is somewhere in a view,
// or the view itself; and on to the next view of the window, or with shiftKey to the one before, as
// AdvanceKeyboardFocus does it.
CARBON_EXPORT OSStatus HIViewGetFocusPart(HIViewRef inView, HIViewPartCode* outFocusPart);
CARBON_EXPORT Boolean HIViewSubtreeContainsFocus(HIViewRef inSubtreeStart);
CARBON_EXPORT OSStatus HIViewAdvanceFocus(HIViewRef inRootForFocus, EventModifiers inModifiers);

// Layout ------------------------------------------------------------------------------------------------
//
// A view can follow others: its sides move as far as a side of another one moves, its size is a multiple of
// the size of another, it stays centred in another or at its edge. The other is the view around it, for
// null, or any view in its window. It happens when the other one changes its frame, after the events about
// that, and goes on from view to view; a view that is in the midst of it is not moved by those that follow
// it.

enum
{
    kHILayoutInfoVersionZero = 0
};

typedef UInt16 HIBindingKind;
enum
{
    kHILayoutBindNone = 0,
    kHILayoutBindMin = 1,
    kHILayoutBindMax = 2,
    kHILayoutBindLeft = kHILayoutBindMin,
    kHILayoutBindRight = kHILayoutBindMax,
    kHILayoutBindTop = kHILayoutBindMin,
    kHILayoutBindBottom = kHILayoutBindMax
};

typedef UInt16 HIScaleKind;
enum
{
    kHILayoutScaleAbsolute = 0
};

typedef UInt16 HIPositionKind;
enum
{
    kHILayoutPositionNone = 0,
    kHILayoutPositionCenter = 1,
    kHILayoutPositionMin = 2,
    kHILayoutPositionMax = 3,
    kHILayoutPositionLeft = kHILayoutPositionMin,
    kHILayoutPositionRight = kHILayoutPositionMax,
    kHILayoutPositionTop = kHILayoutPositionMin,
    kHILayoutPositionBottom = kHILayoutPositionMax
};

#pragma pack(push, 2)

// A side that moves as far as a side of toView moves: its left or top one, or its right or bottom one. The
// offset is not used.
typedef struct HISideBinding
{
    HIViewRef toView;
    HIBindingKind kind;
    CGFloat offset;
} HISideBinding;

typedef struct HIBinding
{
    HISideBinding top;
    HISideBinding left;
    HISideBinding bottom;
    HISideBinding right;
} HIBinding;

// A width or height that is so many times that of toView; 0 leaves it alone.
typedef struct HIAxisScale
{
    HIViewRef toView;
    HIScaleKind kind;
    CGFloat ratio;
} HIAxisScale;

typedef struct HIScaling
{
    HIAxisScale x;
    HIAxisScale y;
} HIScaling;

// A place at the left or top of toView, in its middle, or at its right or bottom, so far to the right or
// below.
typedef struct HIAxisPosition
{
    HIViewRef toView;
    HIPositionKind kind;
    CGFloat offset;
} HIAxisPosition;

typedef struct HIPositioning
{
    HIAxisPosition x;
    HIAxisPosition y;
} HIPositioning;

typedef struct HILayoutInfo
{
    UInt32 version;
    HIBinding binding;
    HIScaling scale;
    HIPositioning position;
} HILayoutInfo;

#pragma pack(pop)

// Copies the rules, which hold from the next change of what they name on, and sends
// kEventControlLayoutInfoChanged. paramErr for another version or for kinds that do not exist. A view that
// is gone later moves nothing any more.
CARBON_EXPORT OSStatus HIViewSetLayoutInfo(HIViewRef inView, const HILayoutInfo* inLayoutInfo);

// The caller sets the version, paramErr for another one. A view without rules has those that do nothing.
CARBON_EXPORT OSStatus HIViewGetLayoutInfo(HIViewRef inView, HILayoutInfo* outLayoutInfo);

// Positions and scales a view now, in this order, unless its layout rests; its bindings do nothing.
CARBON_EXPORT OSStatus HIViewApplyLayout(HIViewRef inView);

// Lets the layout of a view and of all in it rest: it follows nothing until resumed, and does not make up
// for it.
CARBON_EXPORT OSStatus HIViewSuspendLayout(HIViewRef inView);
CARBON_EXPORT OSStatus HIViewResumeLayout(HIViewRef inView);

// False while the layout of the view, or of one around it, rests.
CARBON_EXPORT Boolean HIViewIsLayoutActive(HIViewRef inView);

// Display -----------------------------------------------------------------------------------------------

// Views of the program's own classes, user panes and the root of a window are drawn by handlers of
// kEventControlDraw, if there are any. They are given, beside the control, a context whose origin is at the
// top left of the view, with y growing downwards (kEventParamCGContextRef), and the part that must be drawn
// (kEventParamRgnHandle), outside of which nothing is drawn; what was in it is gone. What they have drawn is
// shown, whatever they answer, behind the views in this one. Other views draw themselves, and marks on them
// mean nothing.
//
// A view must be drawn as a whole when it is new, shown, enabled, active, highlighted, named, sized or valued
// otherwise than before. Everything else is for the program to mark. What is marked is collected as one
// rectangle, and drawn once before the event loop waits, when the view can be seen.

// Marks a view, or a part of it in its own coordinates, or takes the mark away; that of a part only when
// nothing else is marked. A hidden view is not marked. Views in it are not touched.
CARBON_EXPORT OSStatus HIViewSetNeedsDisplay(HIViewRef inView, Boolean inNeedsDisplay);
CARBON_EXPORT OSStatus HIViewSetNeedsDisplayInRect(HIViewRef inView, const HIRect* inRect,
                                                   Boolean inNeedsDisplay);
CARBON_EXPORT OSStatus HIViewSetNeedsDisplayInRegion(HIViewRef inView, RgnHandle inRegion,
                                                     Boolean inNeedsDisplay);
CARBON_EXPORT Boolean HIViewGetNeedsDisplay(HIViewRef inView);

// A view whose drawing is disabled is never drawn, and cannot be marked. Enabling it marks nothing.
CARBON_EXPORT OSStatus HIViewSetDrawingEnabled(HIViewRef inView, Boolean inEnabled);
CARBON_EXPORT Boolean HIViewIsDrawingEnabled(HIViewRef inView);

// Draws what is marked in a view and in all that it holds, now.
CARBON_EXPORT OSStatus HIViewRender(HIViewRef inView);

#endif
