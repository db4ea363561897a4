// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MacWindows_h
#define MacWindows_h

// The Window Manager.
//
//     Rect theBounds = {100, 100, 400, 500};
//     WindowRef theWindow = NULL;
//     CreateNewWindow(kDocumentWindowClass,
//                     kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute, &theBounds,
//                     &theWindow);
//     SetWindowTitleWithCFString(theWindow, CFSTR("Thermostat"));
//     ShowWindow(theWindow);       // kEventWindowShowing, kEventWindowShown, kEventWindowActivated
//
// Rules for every call:
// - Main thread only.
// - A null or disposed reference, or a reference to anything else, is never followed: the calls with a status
//   give errInvalidWindowRef, the others do nothing, and those that read give 0, false or null. A null
//   pointer where a result is to be put gives paramErr.
// - A change sends its events whether a program or a person made it; a call that changes nothing sends
//   nothing. Events that report a change go to every handler of the window for them, and to the
//   application's; none can keep one from the others.
// - A handler may dispose any window, the event's own included.
//
// Windows stand in layers, front to back: overlay, help, utility, modal (alerts and modal dialogs), floating,
// toolbar, document (everything else), as long as a program does not make layers of its own (see Groups).
// Order changes only inside of a layer. A sheet is in the layer of its parent.
//
// At most one window of activation scope "all" is active: the frontmost that is shown and not collapsed. It
// changes with showing, hiding, collapsing, closing and reordering. Floating and utility windows are active
// whenever they are shown; help and toolbar windows never. SetWindowActivationScope changes that.

#include <Carbon/CarbonBase.h>
#include <Carbon/CarbonEvents.h>
#include <Carbon/HIGeometry.h>
#include <Carbon/Quickdraw.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/Files.h>
#include <CoreServices/MacErrors.h>

// Constants ---------------------------------------------------------------------------------------------

typedef UInt32 WindowClass;
enum
{
    kAlertWindowClass = 1,
    kMovableAlertWindowClass = 2,
    kModalWindowClass = 3,
    kMovableModalWindowClass = 4,
    kFloatingWindowClass = 5,
    kDocumentWindowClass = 6,
    kUtilityWindowClass = 8,
    kHelpWindowClass = 10,
    kSheetWindowClass = 11,
    kToolbarWindowClass = 12,
    kPlainWindowClass = 13,
    kOverlayWindowClass = 14,
    kSheetAlertWindowClass = 15,
    kAltPlainWindowClass = 16,
    kSimpleWindowClass = 18,
    kDrawerWindowClass = 20
};
#define kAllWindowClasses ((WindowClass)0xFFFFFFFFu)

typedef OptionBits WindowAttributes;
#define kWindowNoAttributes ((WindowAttributes)0)
#define kWindowCloseBoxAttribute ((WindowAttributes)1)
#define kWindowHorizontalZoomAttribute ((WindowAttributes)2)
#define kWindowVerticalZoomAttribute ((WindowAttributes)4)
#define kWindowFullZoomAttribute ((WindowAttributes)6)
#define kWindowCollapseBoxAttribute ((WindowAttributes)8)
#define kWindowResizableAttribute ((WindowAttributes)16)
#define kWindowSideTitlebarAttribute ((WindowAttributes)32)
#define kWindowToolbarButtonAttribute ((WindowAttributes)64)
#define kWindowUnifiedTitleAndToolbarAttribute ((WindowAttributes)128)
#define kWindowMetalAttribute ((WindowAttributes)256)
#define kWindowNoTitleBarAttribute ((WindowAttributes)512)
#define kWindowTexturedSquareCornersAttribute ((WindowAttributes)1 << 10)
#define kWindowMetalNoContentSeparatorAttribute ((WindowAttributes)1 << 11)
#define kWindowDoesNotCycleAttribute ((WindowAttributes)1 << 15)
#define kWindowNoUpdatesAttribute ((WindowAttributes)1 << 16)
#define kWindowNoActivatesAttribute ((WindowAttributes)1 << 17)
#define kWindowOpaqueForEventsAttribute ((WindowAttributes)1 << 18)
#define kWindowCompositingAttribute ((WindowAttributes)1 << 19)
#define kWindowFrameworkScaledAttribute ((WindowAttributes)1 << 20)
#define kWindowNoShadowAttribute ((WindowAttributes)1 << 21)
#define kWindowCanBeVisibleWithoutLoginAttribute ((WindowAttributes)1 << 22)
#define kWindowAsyncDragAttribute ((WindowAttributes)1 << 23)
#define kWindowHideOnSuspendAttribute ((WindowAttributes)1 << 24)
#define kWindowStandardHandlerAttribute ((WindowAttributes)1 << 25)
#define kWindowHideOnFullScreenAttribute ((WindowAttributes)1 << 26)
#define kWindowInWindowMenuAttribute ((WindowAttributes)1 << 27)
#define kWindowLiveResizeAttribute ((WindowAttributes)1 << 28)
#define kWindowIgnoreClicksAttribute ((WindowAttributes)1 << 29)
#define kWindowNoConstrainAttribute ((WindowAttributes)1 << 31)
#define kWindowStandardDocumentAttributes                                                                    \
    (kWindowCloseBoxAttribute | kWindowFullZoomAttribute | kWindowCollapseBoxAttribute |                     \
     kWindowResizableAttribute)
#define kWindowStandardFloatingAttributes (kWindowCloseBoxAttribute | kWindowCollapseBoxAttribute)

// Areas of a window.
typedef UInt16 WindowRegionCode;
enum
{
    kWindowTitleBarRgn = 0,
    kWindowCloseBoxRgn = 2,
    kWindowZoomBoxRgn = 3,
    kWindowDragRgn = 5, // the title bar without its boxes
    kWindowGrowRgn = 6, // the corner of the content that resizes the window
    kWindowCollapseBoxRgn = 7,
    kWindowStructureRgn = 32, // all of it, frame included
    kWindowContentRgn = 33,   // what belongs to the application; empty while the window is collapsed
    kWindowGlobalPortRgn = 40 // the content's place, collapsed or not
};

// What FindWindow finds at a point.
typedef SInt16 WindowPartCode;
enum
{
    inDesk = 0,
    inMenuBar = 1,
    inSysWindow = 2,
    inContent = 3,
    inDrag = 4,
    inGrow = 5,
    inGoAway = 6,
    inZoomIn = 7,
    inZoomOut = 8,
    inCollapseBox = 11,
    inProxyIcon = 12,
    inToolbarButton = 13,
    inStructure = 15
};

typedef OSType PropertyCreator;
typedef OSType PropertyTag;

// The start of a search with GetNextWindowOfClass, and "let the platform choose" for SetUserFocusWindow.
#define kFirstWindowOfClass ((WindowRef)(-1))
#define kUserFocusAuto ((WindowRef)(-1))

// Life --------------------------------------------------------------------------------------------------

// Makes a window, hidden, frontmost in its layer, with one reference that belongs to the caller.
// contentBounds is in global coordinates. An empty title, and "modified" set. A compositing window has its
// root control from the start.
//
// errUnrecognizedWindowClass; errUnsupportedWindowAttributesForClass for a close, zoom or collapse box or the
// resizing that the class does not have, or bits that mean nothing; paramErr for null or empty bounds.
// Floating, utility and toolbar windows are made without the collapse or zoom box that they do not have.
CARBON_EXPORT OSStatus CreateNewWindow(WindowClass windowClass, WindowAttributes attributes,
                                       const Rect* contentBounds, WindowRef* outWindow);

// Give a reference up or take one. With the last one the window goes, in this order: kEventWindowHiding and
// kEventWindowHidden if it was shown, and the next window becomes active in its place; kEventWindowClosed;
// its controls are disposed; kEventWindowDispose; handlers go, and the reference is no longer valid.
CARBON_EXPORT void DisposeWindow(WindowRef window);
CARBON_EXPORT OSStatus ReleaseWindow(WindowRef inWindow);
CARBON_EXPORT OSStatus RetainWindow(WindowRef inWindow);
CARBON_EXPORT ItemCount GetWindowRetainCount(WindowRef inWindow);

CARBON_EXPORT Boolean IsValidWindowPtr(WindowRef possibleWindow);

// Showing -----------------------------------------------------------------------------------------------

// kEventWindowShowing, kEventWindowShown and kEventWindowHiding, kEventWindowHidden.
CARBON_EXPORT void ShowWindow(WindowRef window);
CARBON_EXPORT void HideWindow(WindowRef window);

// The same events, but no other window is activated or deactivated for it.
CARBON_EXPORT void ShowHide(WindowRef window, Boolean showFlag);

// Whether it is shown. A collapsed window counts as shown.
CARBON_EXPORT Boolean IsWindowVisible(WindowRef window);

// kEventWindowCollapsing, kEventWindowCollapsed and kEventWindowExpanding, kEventWindowExpanded. A hidden
// window can be collapsed, and appears so when it is shown. windowWrongStateErr to collapse a window without
// a collapse box.
CARBON_EXPORT OSStatus CollapseWindow(WindowRef window, Boolean collapse);
CARBON_EXPORT Boolean IsWindowCollapsed(WindowRef window);

// Whether the window has a collapse box.
CARBON_EXPORT Boolean IsWindowCollapsable(WindowRef window);

// Collapses or expands every shown window that can be; noErr always.
CARBON_EXPORT OSStatus CollapseAllWindows(Boolean collapse);

// Bounds ------------------------------------------------------------------------------------------------
//
// In global coordinates. A change sends kEventWindowBoundsChanging, whose handler may write other bounds into
// the event and return noErr, then kEventWindowBoundsChanged. What both carry is the content, also while the
// window is collapsed.

// kWindowStructureRgn or kWindowContentRgn; errWindowRegionCodeInvalid for others, paramErr for empty bounds.
CARBON_EXPORT OSStatus SetWindowBounds(WindowRef window, WindowRegionCode regionCode,
                                       const Rect* globalBounds);

// errWindowRegionCodeInvalid for other codes, and for parts of the frame that the window does not have.
CARBON_EXPORT OSStatus GetWindowBounds(WindowRef window, WindowRegionCode regionCode, Rect* globalBounds);

// The content's top left; brings the window to front when front is true.
CARBON_EXPORT void MoveWindow(WindowRef window, short hGlobal, short vGlobal, Boolean front);

// The structure's top left.
CARBON_EXPORT OSStatus MoveWindowStructure(WindowRef window, short hGlobal, short vGlobal);

// The content's size; fUpdate makes no difference. Sizes that are not positive are ignored.
CARBON_EXPORT void SizeWindow(WindowRef window, short w, short h, Boolean fUpdate);

// The content in its own coordinates, whose top left is 0, 0. Gives back its second argument.
CARBON_EXPORT Rect* GetWindowPortBounds(WindowRef window, Rect* bounds);

// How far the frame reaches beyond the content on each side.
CARBON_EXPORT OSStatus GetWindowStructureWidths(WindowRef inWindow, Rect* outRect);

// The content sizes that a person can give the window; a null limit is none. Program calls are not held to
// them.
CARBON_EXPORT OSStatus SetWindowResizeLimits(WindowRef inWindow, const HISize* inMinLimits,
                                             const HISize* inMaxLimits);

// What was set; without it 0 by 0 and 32767 by 32767. Either may be null.
CARBON_EXPORT OSStatus GetWindowResizeLimits(WindowRef inWindow, HISize* outMinLimits, HISize* outMaxLimits);

// Titles ------------------------------------------------------------------------------------------------
//
// kEventWindowTitleChanged, for every sort of window, as since Mac OS X 10.5.

// paramErr for a null string. The string is copied.
CARBON_EXPORT OSStatus SetWindowTitleWithCFString(WindowRef inWindow, CFStringRef inString);

// The caller releases the string; null when the call fails.
CARBON_EXPORT OSStatus CopyWindowTitleAsCFString(WindowRef inWindow, CFStringRef* outString);

// The same with Pascal strings in Mac Roman; 255 characters at most, "?" for characters that it does not
// have.
CARBON_EXPORT void SetWTitle(WindowRef window, ConstStr255Param title);
CARBON_EXPORT void GetWTitle(WindowRef window, Str255 title);

// Order and activation ----------------------------------------------------------------------------------

// Brings the window to the front of its layer; a shown window becomes the active one.
CARBON_EXPORT void SelectWindow(WindowRef window);

// To the front of its layer, without a change of activation.
CARBON_EXPORT void BringToFront(WindowRef window);

// Right behind another window, or to the back of its layer for null; activation follows the new order.
CARBON_EXPORT void SendBehind(WindowRef window, WindowRef behindWindow);

// Makes the window active or inactive wherever it stands: kEventWindowActivated or kEventWindowDeactivated.
// The standard handler then sends kEventWindowHandleActivate or kEventWindowHandleDeactivate, and activates
// or deactivates the root control unless a handler took that.
CARBON_EXPORT OSStatus ActivateWindow(WindowRef inWindow, Boolean inActivate);
CARBON_EXPORT Boolean IsWindowActive(WindowRef inWindow);

// The active window of scope "all", wherever it stands.
CARBON_EXPORT WindowRef ActiveNonFloatingWindow(void);

// The frontmost shown window of scope "all"; the frontmost shown window of any kind.
CARBON_EXPORT WindowRef FrontNonFloatingWindow(void);
CARBON_EXPORT WindowRef FrontWindow(void);

// Every window, front to back, hidden ones included: the first, and from one to the next.
CARBON_EXPORT WindowRef GetWindowList(void);
CARBON_EXPORT WindowRef GetNextWindow(WindowRef window);
CARBON_EXPORT WindowRef GetPreviousWindow(WindowRef inWindow);

// The same for one class, or kAllWindowClasses; kFirstWindowOfClass starts from the front.
CARBON_EXPORT WindowRef GetFrontWindowOfClass(WindowClass inWindowClass, Boolean mustBeVisible);
CARBON_EXPORT WindowRef GetNextWindowOfClass(WindowRef inWindow, WindowClass inWindowClass,
                                             Boolean mustBeVisible);

// The frontmost shown window at a global point, and its part there; null and inDesk or inMenuBar where there
// is none.
CARBON_EXPORT WindowPartCode FindWindow(Point thePoint, WindowRef* window);

// State of its own --------------------------------------------------------------------------------------

CARBON_EXPORT OSStatus GetWindowClass(WindowRef window, WindowClass* outClass);
CARBON_EXPORT OSStatus GetWindowAttributes(WindowRef window, WindowAttributes* outAttributes);

// kEventWindowAttributesChanged. windowAttributesConflictErr when both name one bit;
// windowAttributeImmutableErr for kWindowCompositingAttribute; errUnsupportedWindowAttributesForClass as
// CreateNewWindow has it, though a floating or utility window may have a collapse box.
CARBON_EXPORT OSStatus ChangeWindowAttributes(WindowRef window, WindowAttributes setTheseAttributes,
                                              WindowAttributes clearTheseAttributes);

// kEventWindowModified.
CARBON_EXPORT OSStatus SetWindowModified(WindowRef window, Boolean modified);
CARBON_EXPORT Boolean IsWindowModified(WindowRef window);

// One value of the application's own, and a number of its own.
CARBON_EXPORT void SetWRefCon(WindowRef window, SRefCon data);
CARBON_EXPORT SRefCon GetWRefCon(WindowRef window);
CARBON_EXPORT void SetWindowKind(WindowRef window, short kind);
CARBON_EXPORT short GetWindowKind(WindowRef window);

// Named data of the application's own, copied in and out. errInvalidWindowProperty when the creator is all
// lower-case letters, which are kept for the platform; errWindowPropertyNotFound when there is none. A buffer
// of another size receives the smaller amount of data, and the call gives paramErr.
CARBON_EXPORT OSStatus SetWindowProperty(WindowRef window, PropertyCreator propertyCreator,
                                         PropertyTag propertyTag, ByteCount propertySize,
                                         const void* propertyBuffer);
CARBON_EXPORT OSStatus GetWindowProperty(WindowRef window, PropertyCreator propertyCreator,
                                         PropertyTag propertyTag, ByteCount bufferSize, ByteCount* actualSize,
                                         void* propertyBuffer);
CARBON_EXPORT OSStatus GetWindowPropertySize(WindowRef window, PropertyCreator creator, PropertyTag tag,
                                             ByteCount* size);
CARBON_EXPORT OSStatus RemoveWindowProperty(WindowRef window, PropertyCreator propertyCreator,
                                            PropertyTag propertyTag);

// Placing -----------------------------------------------------------------------------------------------

// What a window is placed by: the screen without its menu bar, or the structure of another window. The screen
// of a parent is the one that most of it lies on.
typedef UInt32 WindowPositionMethod;
enum
{
    kWindowCenterOnMainScreen = 1,
    kWindowCenterOnParentWindow = 2,
    kWindowCenterOnParentWindowScreen = 3,
    kWindowCascadeOnMainScreen = 4,
    kWindowCascadeOnParentWindow = 5,
    kWindowCascadeOnParentWindowScreen = 6,
    kWindowAlertPositionOnMainScreen = 7, // a third of the free height is above, two are below
    kWindowAlertPositionOnParentWindow = 8,
    kWindowAlertPositionOnParentWindowScreen = 9,
    kWindowCascadeStartAtParentWindowScreen = 10 // from the parent on
};

// Moves a window, which may be hidden. A cascade takes the first place, going down and to the right, at which
// no other window begins, and starts again where the window would leave the screen. No method puts the top
// left of a window out of the screen.
//
// paramErr: an unknown method; a method with a parent but no such window, or the window itself except for its
// screen.
CARBON_EXPORT OSStatus RepositionWindow(WindowRef window, WindowRef parentWindow,
                                        WindowPositionMethod method);

typedef UInt32 WindowTransitionEffect;
enum
{
    kWindowZoomTransitionEffect = 1,
    kWindowSheetTransitionEffect = 2,
    kWindowSlideTransitionEffect = 3,
    kWindowFadeTransitionEffect = 4,
    kWindowGenieTransitionEffect = 5
};

typedef UInt32 WindowTransitionAction;
enum
{
    kWindowShowTransitionAction = 1,
    kWindowHideTransitionAction = 2,
    kWindowMoveTransitionAction = 3,
    kWindowResizeTransitionAction = 4
};

// What ShowWindow, HideWindow and SetWindowBounds do, between kEventWindowTransitionStarted and
// kEventWindowTransitionCompleted; nothing is seen to move. The rectangle is the new structure, and only for
// moving and resizing, which go with the slide effect alone. paramErr for what does not go together.
CARBON_EXPORT OSStatus TransitionWindow(WindowRef inWindow, WindowTransitionEffect inEffect,
                                        WindowTransitionAction inAction, const Rect* inRect);

// The same for showing and hiding with the sheet effect; the parent stays where it is.
CARBON_EXPORT OSStatus TransitionWindowAndParent(WindowRef inWindow, WindowRef inParentWindow,
                                                 WindowTransitionEffect inEffect,
                                                 WindowTransitionAction inAction, const Rect* inRect);

// Modal windows and sheets ------------------------------------------------------------------------------

// Whom a window keeps a person from while it is shown and not collapsed: nobody, the windows behind it, or
// one window. Alerts and modal dialogs begin as kWindowModalityAppModal.
typedef UInt32 WindowModality;
enum
{
    kWindowModalityNone = 0,
    kWindowModalitySystemModal = 1, // the same as kWindowModalityAppModal
    kWindowModalityAppModal = 2,
    kWindowModalityWindowModal = 3
};

// The third window is the one that is kept out by kWindowModalityWindowModal; the others ignore it. paramErr
// for an unknown modality, and when that window is missing or the window itself.
CARBON_EXPORT OSStatus SetWindowModality(WindowRef inWindow, WindowModality inModalKind,
                                         WindowRef inUnavailableWindow);

// The third parameter may be null.
CARBON_EXPORT OSStatus GetWindowModality(WindowRef inWindow, WindowModality* outModalKind,
                                         WindowRef* outUnavailableWindow);

// Shows a sheet on its parent and returns. The sheet hangs from the parent's title bar, in the middle, moves
// with it, stands right in front of it, and keeps it from the person: its modality is then
// kWindowModalityWindowModal. The parent is retained until the sheet is hidden or detached. A person who
// clicks on the parent gets the sheet.
//
// paramErr: the window is not of class kSheetWindowClass or kSheetAlertWindowClass, is the parent, or hangs
// from one already; or the parent has a sheet. A sheet that is disposed leaves its parent by itself.
CARBON_EXPORT OSStatus ShowSheetWindow(WindowRef inSheet, WindowRef inParentWindow);

// Hides the sheet and lets go of the parent. paramErr when the window hangs from none.
CARBON_EXPORT OSStatus HideSheetWindow(WindowRef inSheet);

// Lets go of the parent, and leaves the sheet on the screen; it keeps nobody out then.
CARBON_EXPORT OSStatus DetachSheetWindow(WindowRef inSheet);

// Null and paramErr when the window hangs from none.
CARBON_EXPORT OSStatus GetSheetWindowParent(WindowRef inSheet, WindowRef* outParentWindow);

// Groups ------------------------------------------------------------------------------------------------
//
// Every window is in a group. The platform has one for each layer, and those are in the root group; programs
// make their own, in the root group or in another. A group of the root group is a layer by its level. Windows
// of a group that is in such a group share its layer.

typedef struct OpaqueWindowGroupRef* WindowGroupRef;

typedef OptionBits WindowGroupAttributes;
enum
{
    kWindowGroupAttrSelectAsLayer = 1,
    kWindowGroupAttrMoveTogether = 2,  // moving one window moves all
    kWindowGroupAttrLayerTogether = 4, // bringing one window to front brings the others, right behind it
    kWindowGroupAttrSharedActivation = 8,
    kWindowGroupAttrHideOnCollapse = 16,
    kWindowGroupAttrFixedLevel = 32
};

typedef OptionBits WindowGroupContentOptions;
enum
{
    kWindowGroupContentsReturnWindows = 1,
    kWindowGroupContentsRecurse = 2,
    kWindowGroupContentsVisible = 4
};

// A group of the program's own, empty, in the root group at the level of documents, with one reference that
// belongs to the caller. paramErr for attributes that there are not.
CARBON_EXPORT OSStatus CreateWindowGroup(WindowGroupAttributes inAttributes, WindowGroupRef* outGroup);

// With the last reference the group goes; its windows and groups come to the group that it was in, or from
// under the root group to that of their class. The platform's groups stay.
CARBON_EXPORT OSStatus RetainWindowGroup(WindowGroupRef inGroup);
CARBON_EXPORT OSStatus ReleaseWindowGroup(WindowGroupRef inGroup);
CARBON_EXPORT ItemCount GetWindowGroupRetainCount(WindowGroupRef inGroup);
CARBON_EXPORT Boolean IsValidWindowGroup(WindowGroupRef inGroup);

// The platform's group for a class, or the root group for kAllWindowClasses. Not retained for the caller.
CARBON_EXPORT WindowGroupRef GetWindowGroupOfClass(WindowClass windowClass);

// The group of a window. A window that comes into a group in a layer further in front goes to the back of
// that layer, else to its front. windowGroupInvalidErr for the root group.
CARBON_EXPORT WindowGroupRef GetWindowGroup(WindowRef inWindow);
CARBON_EXPORT OSStatus SetWindowGroup(WindowRef inWindow, WindowGroupRef inNewGroup);
CARBON_EXPORT Boolean IsWindowContainedInGroup(WindowRef inWindow, WindowGroupRef inGroup);

// The group that a group of the program's own is in. paramErr when it has windows, or would come to be in
// itself.
CARBON_EXPORT OSStatus SetWindowGroupParent(WindowGroupRef inGroup, WindowGroupRef inNewGroup);
CARBON_EXPORT WindowGroupRef GetWindowGroupParent(WindowGroupRef inGroup);

// For the reader of debugging output.
CARBON_EXPORT OSStatus SetWindowGroupName(WindowGroupRef inGroup, CFStringRef inName);
CARBON_EXPORT OSStatus CopyWindowGroupName(WindowGroupRef inGroup, CFStringRef* outName);

// The level of a group in the root group; higher is further in front. paramErr for other groups, and for one
// of kWindowGroupAttrFixedLevel.
CARBON_EXPORT OSStatus SetWindowGroupLevel(WindowGroupRef inGroup, SInt32 inLevel);
CARBON_EXPORT OSStatus GetWindowGroupLevel(WindowGroupRef inGroup, SInt32* outLevel);

CARBON_EXPORT OSStatus ChangeWindowGroupAttributes(WindowGroupRef inGroup,
                                                   WindowGroupAttributes setTheseAttributes,
                                                   WindowGroupAttributes clearTheseAttributes);
CARBON_EXPORT OSStatus GetWindowGroupAttributes(WindowGroupRef inGroup, WindowGroupAttributes* outAttributes);

// The windows of a group, front to back: those in it alone, or with kWindowGroupContentsRecurse those of the
// groups in it too; with kWindowGroupContentsVisible, those that are shown. Without
// kWindowGroupContentsReturnWindows it is the groups in it that are counted. Windows are numbered from 1;
// errWindowNotFound beyond the last.
CARBON_EXPORT ItemCount CountWindowGroupContents(WindowGroupRef inGroup, WindowGroupContentOptions inOptions);
CARBON_EXPORT OSStatus GetIndexedWindow(WindowGroupRef inGroup, ItemCount inIndex,
                                        WindowGroupContentOptions inOptions, WindowRef* outWindow);

// Whether a window is never active, whenever it is shown, or alone of its kind.
typedef UInt32 WindowActivationScope;
enum
{
    kWindowActivationScopeNone = 0,
    kWindowActivationScopeIndependent = 1,
    kWindowActivationScopeAll = 2
};
CARBON_EXPORT OSStatus SetWindowActivationScope(WindowRef inWindow, WindowActivationScope inScope);
CARBON_EXPORT OSStatus GetWindowActivationScope(WindowRef inWindow, WindowActivationScope* outScope);

// The menu of windows -----------------------------------------------------------------------------------

enum
{
    kWindowMenuIncludeRotate = 1
};

// A menu "Window" for the program to insert, with one reference that belongs to the caller: Zoom, Minimize,
// on demand Cycle Through Windows, Bring All to Front, and the shown windows that have
// kWindowInWindowMenuAttribute, in the order in which they were made, the active one with a check mark and
// collapsed ones with a diamond. It is filled when it is opened, or looked into for a command.
//
// What its commands do happens only when no handler of the program takes them. paramErr for options that
// there are not.
CARBON_EXPORT OSStatus CreateStandardWindowMenu(OptionBits inOptions, MenuRef* outMenu);

// Draws what is marked in the views of a window, now; see HIView.h.
CARBON_EXPORT OSStatus HIWindowFlush(WindowRef inWindow);

// What windows here do not have -------------------------------------------------------------------------
//
// Neither icons of their documents, nor toolbars, nor drags. The calls are there because programs make them
// in passing; they check the window.

CARBON_EXPORT OSStatus SetWindowProxyFSSpec(WindowRef window, const FSSpec* inFile);
CARBON_EXPORT OSStatus HIWindowSetProxyFSRef(WindowRef inWindow, const FSRef* inRef);
CARBON_EXPORT OSStatus SetWindowProxyCreatorAndType(WindowRef window, OSType fileCreator, OSType fileType,
                                                    SInt16 vRefNum);
CARBON_EXPORT OSStatus RemoveWindowProxy(WindowRef window);

// errUserWantsToDragWindow.
CARBON_EXPORT OSStatus TrackWindowProxyDrag(WindowRef window, Point startPt);

// paramErr for anything but null.
typedef struct OpaqueHIToolbarRef* HIToolbarRef;
CARBON_EXPORT OSStatus SetWindowToolbar(WindowRef inWindow, HIToolbarRef inToolbar);

CARBON_EXPORT OSStatus ShowHideWindowToolbar(WindowRef inWindow, Boolean inShow, Boolean inAnimate);
CARBON_EXPORT Boolean IsWindowToolbarVisible(WindowRef inWindow);
CARBON_EXPORT OSStatus SetAutomaticControlDragTrackingEnabledForWindow(WindowRef inWindow, Boolean inTracks);

// Keyboard focus ----------------------------------------------------------------------------------------

// Sends keys to a window, or to the active one for kUserFocusAuto, which is how it starts. When the window
// that has the focus changes, for this or by activation, the old one gets kEventWindowFocusRelinquish and the
// new one kEventWindowFocusAcquired.
CARBON_EXPORT OSStatus SetUserFocusWindow(WindowRef inWindow);

// The window that keys go to, or null.
CARBON_EXPORT WindowRef GetUserFocusWindow(void);

#endif
