// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Controls_h
#define Controls_h

// The Control Manager: what all controls have in common. The kinds and their creation are in
// ControlDefinitions.h.
//
//     ControlRef theSlider;
//     CreateSliderControl(theWindow, &theBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true, NULL,
//                         &theSlider);
//     SetControl32BitValue(theSlider, 7);      // kEventControlValueFieldChanged to theSlider
//     SetControl32BitValue(theSlider, 7);      // nothing: it is 7 already
//
// Rules for every call:
// - Main thread only.
// - A null or disposed reference, or a reference to anything else, is never followed: the calls with a result
//   give errUnknownControl (property calls: controlHandleInvalidErr), the others do nothing, and those that
//   read give 0 or null. A null pointer where a result is to be put gives paramErr.
// - A change sends its event after it was made, to the control, then up its chain of parents to the window
//   and the application; a call that changes nothing sends nothing. Changes by a person send the same.
// - A handler may dispose any control or window, the event's own included.
// - Visible, enabled and active are asked for with the parents': a control in a hidden, disabled or inactive
//   one is so too. When a call changes that for a control and for those embedded in it, each of them gets the
//   event, parents before children. A control whose own state changes behind a parent that hides the
//   difference gets no event until the difference shows. Whether the window is shown plays no part.

#include <Carbon/CarbonBase.h>
#include <Carbon/CarbonEvents.h>
#include <Carbon/HIGeometry.h>
#include <Carbon/Quickdraw.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/MacErrors.h>

// Types -------------------------------------------------------------------------------------------------

// Parts of a control that a person can point at, and the states that HiliteControl takes beside them.
enum
{
    kControlNoPart = 0,
    kControlEntireControl = 0,
    kControlDisabledPart = 254,
    kControlInactivePart = 255
};

// The directions of SetKeyboardFocus, beside the parts that keys go to.
enum
{
    kControlFocusNoPart = 0,
    kControlFocusNextPart = -1,
    kControlFocusPrevPart = -2
};

#pragma pack(push, 2)

// The application's own name for a control.
struct ControlID
{
    OSType signature;
    SInt32 id;
};
typedef struct ControlID ControlID;

// What sort of control it is; the signature of those made here is kControlKindSignatureApple.
struct ControlKind
{
    OSType signature;
    OSType kind;
};
typedef struct ControlKind ControlKind;

// How a control's text is drawn; flags tells which of the other fields mean something.
struct ControlFontStyleRec
{
    SInt16 flags;
    SInt16 font;
    SInt16 size;
    SInt16 style;
    SInt16 mode;
    SInt16 just;
    RGBColor foreColor;
    RGBColor backColor;
};
typedef struct ControlFontStyleRec ControlFontStyleRec;

#pragma pack(pop)

enum
{
    kControlUseFontMask = 0x0001,
    kControlUseFaceMask = 0x0002,
    kControlUseSizeMask = 0x0004,
    kControlUseForeColorMask = 0x0008,
    kControlUseBackColorMask = 0x0010,
    kControlUseModeMask = 0x0020,
    kControlUseJustMask = 0x0040,
    kControlUseThemeFontIDMask = 0x0080,
    kControlUseAllMask = 0x00FF,
    kControlAddFontSizeMask = 0x0100,
    kControlAddToMetaFontMask = 0x0200
};

// Values of just, under each of their names.
enum
{
    teFlushDefault = 0, // left
    teCenter = 1,
    teFlushRight = -1,
    teFlushLeft = -2,
    teJustLeft = teFlushDefault,
    teJustCenter = teCenter,
    teJustRight = teFlushRight,
    teForceLeft = teFlushLeft
};

enum
{
    kControlFontBigSystemFont = -1,
    kControlFontSmallSystemFont = -2,
    kControlFontSmallBoldSystemFont = -3,
    kControlFontViewSystemFont = -4,
    kControlFontMiniSystemFont = -5
};

typedef UInt16 ControlSize;
enum
{
    kControlSizeNormal = 0,
    kControlSizeSmall = 1,
    kControlSizeLarge = 2,
    kControlSizeMini = 3,
    kControlSizeAuto = 0xFFFF
};

// What a control can do, as GetControlFeatures gives it.
enum
{
    kControlSupportsEmbedding = 1 << 1,
    kControlSupportsFocus = 1 << 2,
    kControlWantsActivate = 1 << 4,
    kControlHandlesTracking = 1 << 5,
    kControlSupportsDataAccess = 1 << 6,
    kControlGetsFocusOnClick = 1 << 8,
    kControlSupportsLiveFeedback = 1 << 10,
    kControlHasRadioBehavior = 1 << 11,
    kControlAutoToggles = 1 << 14
};

// Data that every control has.
enum
{
    kControlFontStyleTag = 'font', // ControlFontStyleRec
    kControlKindTag = 'kind',      // ControlKind; read only
    kControlSizeTag = 'size'       // ControlSize
};

// Called while a person holds a part of a control: after each step of a drag (kControlIndicatorPart), and
// once for the press of any other part.
typedef void (*ControlActionProcPtr)(ControlRef theControl, ControlPartCode partCode);
typedef ControlActionProcPtr ControlActionUPP;

CARBON_EXPORT ControlActionUPP NewControlActionUPP(ControlActionProcPtr inProcedure);
CARBON_EXPORT void DisposeControlActionUPP(ControlActionUPP inProcedure);
CARBON_EXPORT void InvokeControlActionUPP(ControlRef theControl, ControlPartCode inPartCode,
                                          ControlActionUPP inProcedure);

// Life and hierarchy ------------------------------------------------------------------------------------

// Makes the root control of a window. Windows get theirs by themselves with the first control, a compositing
// window with its creation; errRootAlreadyExists then. outControl may be null.
CARBON_EXPORT OSErr CreateRootControl(WindowRef inWindow, ControlRef* outControl);

// The control that holds all others of the window; errNoRootControl while there is none.
CARBON_EXPORT OSErr GetRootControl(WindowRef inWindow, ControlRef* outControl);

// Puts a control into another container, in front of what is there, and into the container's window; bounds
// stay the same numbers. Sends kEventControlRemovingSubControl to the old parent before,
// kEventControlAddedSubControl to the new one after, and kEventControlOwningWindowChanged to each control
// that came to another window. A control in the container already is brought to its front, and nothing is
// sent.
//
// errCantEmbedIntoSelf when inContainer is inControl or inside of it, errCantEmbedRoot for a root control,
// errControlIsNotEmbedder for a container that cannot hold controls.
CARBON_EXPORT OSErr EmbedControl(ControlRef inControl, ControlRef inContainer);

// Embeds a control in the deepest container of inWindow whose bounds enclose its own, the root in the end.
// errNeedsCompositedWindow never; paramErr in a compositing window, where bounds depend on the parent.
CARBON_EXPORT OSErr AutoEmbedControl(ControlRef inControl, WindowRef inWindow);

CARBON_EXPORT OSErr CountSubControls(ControlRef inControl, UInt16* outNumChildren);

// The first control of a container, from back to front, has the index 1. paramErr and null out of range.
CARBON_EXPORT OSErr GetIndexedSubControl(ControlRef inControl, UInt16 inIndex, ControlRef* outSubControl);

// The parent; null for a root control.
CARBON_EXPORT OSErr GetSuperControl(ControlRef inControl, ControlRef* outParent);

// The window that a control is in, or null.
CARBON_EXPORT WindowRef GetControlOwner(ControlRef control);

// Disposes a control and all in it. In this order: it gives up the keyboard focus; kEventControlDispose to it
// alone, not to its parents; the same for its sub-controls, front to back; kEventControlRemovingSubControl to
// the parent; handlers go, and the references are no longer valid. A root control goes with its window only;
// it is left alone here.
CARBON_EXPORT void DisposeControl(ControlRef theControl);

// Disposes all controls of a window but the root.
CARBON_EXPORT void KillControls(WindowRef theWindow);

CARBON_EXPORT Boolean IsValidControlHandle(ControlRef theControl);

// Values ------------------------------------------------------------------------------------------------
//
// A value stays within minimum and maximum: one outside is put at the nearer end, when it is set and when the
// range changes. While the minimum is above the maximum the value is the minimum. Value, minimum, maximum and
// view size share kEventControlValueFieldChanged, which is sent once for each call that changed one of them
// or more.

CARBON_EXPORT SInt32 GetControl32BitValue(ControlRef theControl);
CARBON_EXPORT void SetControl32BitValue(ControlRef theControl, SInt32 newValue);
CARBON_EXPORT SInt32 GetControl32BitMinimum(ControlRef theControl);
CARBON_EXPORT void SetControl32BitMinimum(ControlRef theControl, SInt32 newMinimum);
CARBON_EXPORT SInt32 GetControl32BitMaximum(ControlRef theControl);
CARBON_EXPORT void SetControl32BitMaximum(ControlRef theControl, SInt32 newMaximum);
CARBON_EXPORT SInt32 GetControlViewSize(ControlRef theControl);
CARBON_EXPORT void SetControlViewSize(ControlRef theControl, SInt32 newViewSize);

// The same in 16 bits; what is read is the lower half.
CARBON_EXPORT SInt16 GetControlValue(ControlRef theControl);
CARBON_EXPORT void SetControlValue(ControlRef theControl, SInt16 newValue);
CARBON_EXPORT SInt16 GetControlMinimum(ControlRef theControl);
CARBON_EXPORT void SetControlMinimum(ControlRef theControl, SInt16 newMinimum);
CARBON_EXPORT SInt16 GetControlMaximum(ControlRef theControl);
CARBON_EXPORT void SetControlMaximum(ControlRef theControl, SInt16 newMaximum);

// State -------------------------------------------------------------------------------------------------

// kEventControlEnabledStateChanged. A control that becomes disabled gives up the keyboard focus first.
CARBON_EXPORT OSStatus EnableControl(ControlRef inControl);
CARBON_EXPORT OSStatus DisableControl(ControlRef inControl);
CARBON_EXPORT Boolean IsControlEnabled(ControlRef inControl);

// kEventControlActivate and kEventControlDeactivate.
CARBON_EXPORT OSErr ActivateControl(ControlRef inControl);
CARBON_EXPORT OSErr DeactivateControl(ControlRef inControl);
CARBON_EXPORT Boolean IsControlActive(ControlRef inControl);

// kEventControlVisibilityChanged. A control that is hidden gives up the keyboard focus first. inDoDraw makes
// no difference: what is shown is always up to date.
CARBON_EXPORT OSErr SetControlVisibility(ControlRef inControl, Boolean inIsVisible, Boolean inDoDraw);
CARBON_EXPORT void ShowControl(ControlRef theControl);
CARBON_EXPORT void HideControl(ControlRef theControl);
CARBON_EXPORT Boolean IsControlVisible(ControlRef inControl);

// Has a control and all in it drawn by the program, as far as it draws them, now; all controls of a window.
CARBON_EXPORT void Draw1Control(ControlRef theControl);
#define DrawOneControl(theControl) Draw1Control(theControl)
CARBON_EXPORT void DrawControls(WindowRef theWindow);

// Draws a part as pressed (1 to 253), none (0), or makes the control disabled (254) or inactive (255), which
// 0 to 253 take back. kEventControlHiliteChanged tells of parts, the events above of the rest.
CARBON_EXPORT void HiliteControl(ControlRef theControl, ControlPartCode hiliteState);

// kControlDisabledPart or kControlInactivePart when the control is so, else the part that is drawn as
// pressed.
CARBON_EXPORT UInt16 GetControlHilite(ControlRef control);

// Bounds ------------------------------------------------------------------------------------------------
//
// In the coordinates of the window's content; in a compositing window, of the parent. Changes send
// kEventControlBoundsChanged, before it kEventControlInvalidateForSizeChange when the size is another. On
// purpose: controls embedded in one that moves keep their bounds as they are; in a compositing window they
// move along.

// Gives back its second argument, an empty rectangle for a bad reference.
CARBON_EXPORT Rect* GetControlBounds(ControlRef control, Rect* bounds);
CARBON_EXPORT void SetControlBounds(ControlRef control, const Rect* bounds);
CARBON_EXPORT void MoveControl(ControlRef theControl, SInt16 h, SInt16 v);
CARBON_EXPORT void SizeControl(ControlRef theControl, SInt16 w, SInt16 h);

// Titles ------------------------------------------------------------------------------------------------
//
// kEventControlTitleChanged. On purpose: the title of a static or edit text is not the text that it shows.

// paramErr for a null string. The string is copied.
CARBON_EXPORT OSStatus SetControlTitleWithCFString(ControlRef inControl, CFStringRef inString);

// The caller releases the string; null when the call fails.
CARBON_EXPORT OSStatus CopyControlTitleAsCFString(ControlRef inControl, CFStringRef* outString);

// The same with Pascal strings in Mac Roman; 255 characters at most, "?" for characters that it does not
// have.
CARBON_EXPORT void SetControlTitle(ControlRef theControl, ConstStr255Param title);
CARBON_EXPORT void GetControlTitle(ControlRef theControl, Str255 title);

// Data --------------------------------------------------------------------------------------------------
//
// Every tag belongs to the whole control, so inPart makes no difference but to handlers. Results:
// errDataNotSupported for a tag that the control does not have, or has in the other direction only;
// errDataSizeMismatch for a size that does not fit the tag; paramErr for a null string where the tag asks for
// one.
//
// The calls send kEventControlSetData and kEventControlGetData to the control alone, with what they were
// given; a handler that returns noErr has done the work itself.

CARBON_EXPORT OSErr SetControlData(ControlRef inControl, ControlPartCode inPart, ResType inTagName,
                                   Size inSize, const void* inData);

// Bytes are given up to inBufferSize; for anything else a buffer smaller than the data is a size mismatch.
// outActualSize, which may be null, receives the size of all of it. With a null buffer nothing but the size
// is given.
CARBON_EXPORT OSErr GetControlData(ControlRef inControl, ControlPartCode inPart, ResType inTagName,
                                   Size inBufferSize, void* inBuffer, Size* outActualSize);
CARBON_EXPORT OSErr GetControlDataSize(ControlRef inControl, ControlPartCode inPart, ResType inTagName,
                                       Size* outMaxSize);

// Identity ----------------------------------------------------------------------------------------------

CARBON_EXPORT OSStatus GetControlKind(ControlRef inControl, ControlKind* outControlKind);

// Both fields are 0 until they are set. Nothing keeps two controls from having the same one.
CARBON_EXPORT OSStatus SetControlID(ControlRef inControl, const ControlID* inID);
CARBON_EXPORT OSStatus GetControlID(ControlRef inControl, ControlID* outID);

// The first control of the window with this identifier, containers before what is in them, from back to
// front. errUnknownControl and null when there is none; a control whose identifier was never set is never
// found. errInvalidWindowRef for a bad window.
CARBON_EXPORT OSStatus GetControlByID(WindowRef inWindow, const ControlID* inID, ControlRef* outControl);

// A command other than 0 is sent after a click whose kEventControlHit nobody handled: kEventCommandProcess,
// to the control and up its chain.
CARBON_EXPORT OSStatus SetControlCommandID(ControlRef inControl, UInt32 inCommandID);
CARBON_EXPORT OSStatus GetControlCommandID(ControlRef inControl, UInt32* outCommandID);

// One value of the application's own.
CARBON_EXPORT void SetControlReference(ControlRef theControl, SRefCon data);
CARBON_EXPORT SRefCon GetControlReference(ControlRef theControl);

CARBON_EXPORT void SetControlAction(ControlRef theControl, ControlActionUPP actionProc);
CARBON_EXPORT ControlActionUPP GetControlAction(ControlRef theControl);
CARBON_EXPORT OSErr GetControlFeatures(ControlRef inControl, UInt32* outFeatures);
CARBON_EXPORT OSErr SetControlFontStyle(ControlRef inControl, const ControlFontStyleRec* inStyle);

// Properties: named data of the application's own, copied in and out. controlPropertyInvalid when the creator
// is all lower-case letters, which are kept for the platform; controlPropertyNotFoundErr when there is none.
// A buffer of another size receives the smaller amount of data, and the call gives paramErr.
CARBON_EXPORT OSStatus SetControlProperty(ControlRef control, OSType propertyCreator, OSType propertyTag,
                                          ByteCount propertySize, const void* propertyData);
CARBON_EXPORT OSStatus GetControlProperty(ControlRef control, OSType propertyCreator, OSType propertyTag,
                                          ByteCount bufferSize, ByteCount* actualSize, void* propertyBuffer);
CARBON_EXPORT OSStatus GetControlPropertySize(ControlRef control, OSType propertyCreator, OSType propertyTag,
                                              ByteCount* size);
CARBON_EXPORT OSStatus RemoveControlProperty(ControlRef control, OSType propertyCreator, OSType propertyTag);

// Keyboard focus ----------------------------------------------------------------------------------------
//
// Each window has at most one control that keys go to. A focus moves in this order. The control that has it
// gets kEventControlSetFocusPart with part 0 (which a handler cannot refuse), kEventTextAccepted if a person
// changed its text since that was accepted last, and kEventControlFocusPartChanged. The next one gets
// kEventControlSetFocusPart with its part, which a handler may answer with part 0 to refuse, and
// kEventControlFocusPartChanged. A handler that moves the focus elsewhere meanwhile has its way.
//
// Edit texts take the focus; other controls only while full keyboard access is on. A control must be visible,
// enabled and in the window.

CARBON_EXPORT OSErr GetKeyboardFocus(WindowRef inWindow, ControlRef* outControl);

// Gives the focus to a part of a control, kControlEditTextPart for edit texts. kControlFocusNoPart clears it
// if the control has it. kControlFocusNextPart and kControlFocusPrevPart move within the control, which leads
// to its only part, or out of it when it has the focus. A focus that is there already stays without any
// event.
//
// errCouldntSetFocus: the control cannot take it, or not this part; the focus is as it was, or cleared when a
// handler refused. errUnknownControl for a bad control, errInvalidWindowRef for a bad window, paramErr when
// the control is in another window.
CARBON_EXPORT OSErr SetKeyboardFocus(WindowRef inWindow, ControlRef inControl, ControlFocusPart inPart);

// To the next or previous control that takes it, in order from top to bottom and left to right, round the
// end; errCouldntSetFocus when there is none.
CARBON_EXPORT OSErr AdvanceKeyboardFocus(WindowRef inWindow);
CARBON_EXPORT OSErr ReverseKeyboardFocus(WindowRef inWindow);

// errNoRootControl when the window has no controls.
CARBON_EXPORT OSErr ClearKeyboardFocus(WindowRef inWindow);

// Finding and pressing ----------------------------------------------------------------------------------

// The visible control at a point of the window's content, the frontmost and deepest, and its part there; no
// part of a disabled or inactive one, and null and 0 where there is none.
CARBON_EXPORT ControlPartCode FindControl(Point testPoint, WindowRef theWindow, ControlRef* theControl);

// The part of a control at a point of the window's content (in a compositing window, from the control's own
// top left); kControlNoPart outside, and when it is hidden, disabled or inactive.
CARBON_EXPORT ControlPartCode TestControl(ControlRef theControl, Point testPoint);

// What a click does, without the mouse: kEventControlSimulateHit to the control alone, auto-toggling,
// kEventControlHit, then the command unless somebody handled the hit. inPartToClick 0 stands for the part
// that a click in the middle would take. A handler that answers kEventControlSimulateHit with noErr may put
// another part into it, or 0, which ends the click. Nothing lights up by itself. outPartClicked, which may be
// null, receives the part that was clicked. errControlHiddenOrDisabled, errInvalidPartCode.
CARBON_EXPORT OSStatus HIViewSimulateClick(ControlRef inView, ControlPartCode inPartToClick,
                                           UInt32 inModifiers, ControlPartCode* outPartClicked);

// Buttons that keys press in a window: Return and Enter the default one, Escape and command-period the other.
// Null takes the choice back. The window must have the standard handler. paramErr for a control of another
// window.
CARBON_EXPORT OSStatus SetWindowDefaultButton(WindowRef inWindow, ControlRef inControl);
CARBON_EXPORT OSStatus SetWindowCancelButton(WindowRef inWindow, ControlRef inControl);
CARBON_EXPORT OSStatus GetWindowDefaultButton(WindowRef inWindow, ControlRef* outControl);
CARBON_EXPORT OSStatus GetWindowCancelButton(WindowRef inWindow, ControlRef* outControl);

#endif
