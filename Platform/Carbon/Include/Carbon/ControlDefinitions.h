// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlDefinitions_h
#define ControlDefinitions_h

// The kinds of control, with their creation calls, parts, values and data tags.
//
// Every creation call takes the bounds in the coordinates of the window's content (of the new control's
// parent, in a compositing window, which is the content too), embeds the control in the window's root
// control, in front of the controls that are there, and gives it visible, enabled and active, without
// identifier, command or reference. The control belongs to its window and goes with it. outControl receives
// null when the call fails.
//
// Push buttons, check boxes, radio buttons, pop-up buttons, bevel and round buttons, scroll bars, placards,
// icons, pictures, image wells, static and edit texts can be made without a window, with null for it: the
// control is in nothing then and is shown nowhere, until EmbedControl puts it into a container, and it is the
// caller's to dispose of until that. All other kinds need a window.
//
// Results: noErr; paramErr when the bounds or outControl is null, the window is null and the kind needs one,
// the window is not a window (any more), or a range ends before it starts. A title or text may be null, which
// stands for the empty one. An initial value outside of the range is put at the nearer end of it.

#include <Carbon/Controls.h>
#include <Carbon/Menus.h>
#include <Carbon/Quickdraw.h>
#include <CoreGraphics/CoreGraphics.h>
#include <CoreServices/DateTimeUtils.h>

// Kinds -------------------------------------------------------------------------------------------------

enum
{
    kControlKindSignatureApple = 'appl',

    kControlKindPushButton = 'push',
    kControlKindCheckBox = 'cbox',
    kControlKindRadioButton = 'rdio',
    kControlKindSlider = 'sldr',
    kControlKindScrollBar = 'sbar',
    kControlKindProgressBar = 'prgb',
    kControlKindLittleArrows = 'larr',
    kControlKindStaticText = 'stxt',
    kControlKindEditText = 'etxt',
    kControlKindEditUnicodeText = 'eutx',
    kControlKindGroupBox = 'grpb',
    kControlKindRadioGroup = 'rgrp',
    kControlKindPopupButton = 'popb',
    kControlKindTabs = 'tabs',
    kControlKindSeparator = 'sepa',
    kControlKindPlacard = 'plac',
    kControlKindDisclosureTriangle = 'dist',
    kControlKindDisclosureButton = 'disb',
    kControlKindChasingArrows = 'carr',
    kControlKindRelevanceBar = 'relb',
    kControlKindBevelButton = 'bevl',
    kControlKindRoundButton = 'rndb',
    kControlKindIcon = 'icon',
    kControlKindPicture = 'pict',
    kControlKindImageWell = 'well',
    kControlKindHIImageView = 'imag',
    kControlKindHIComboBox = 'cbbx',
    kControlKindHISearchField = 'srfd',
    kControlKindClock = 'clck',
    kControlKindPopupArrow = 'parr',
    kControlKindWindowHeader = 'whed',
    kControlKindUserPane = 'upan' // the root control of a window is one, too
};

// Parts -------------------------------------------------------------------------------------------------

enum
{
    kControlLabelPart = 1,
    kControlMenuPart = 2,
    kControlTrianglePart = 4,
    kControlEditTextPart = 5,
    kControlPicturePart = 6,
    kControlIconPart = 7,
    kControlButtonPart = 10,
    kControlCheckBoxPart = 11,
    kControlRadioButtonPart = 11,
    kControlUpButtonPart = 20,
    kControlDownButtonPart = 21,
    kControlPageUpPart = 22,
    kControlPageDownPart = 23,
    kControlImageWellPart = 26,
    kControlRadioGroupPart = 27,
    kControlIndicatorPart = 129 // the thumb of a slider or scroll bar
};

// Values ------------------------------------------------------------------------------------------------

enum
{
    kControlCheckBoxUncheckedValue = 0,
    kControlCheckBoxCheckedValue = 1,
    kControlCheckBoxMixedValue = 2,
    kControlCheckboxUncheckedValue = kControlCheckBoxUncheckedValue,
    kControlCheckboxCheckedValue = kControlCheckBoxCheckedValue,
    kControlCheckboxMixedValue = kControlCheckBoxMixedValue,
    kControlRadioButtonUncheckedValue = 0,
    kControlRadioButtonCheckedValue = 1,
    kControlRadioButtonMixedValue = 2
};

enum
{
    kControlDisclosureButtonClosed = 0,
    kControlDisclosureButtonDisclosed = 1
};

// Which way a disclosure triangle points while it is closed.
typedef UInt16 ControlDisclosureTriangleOrientation;
enum
{
    kControlDisclosureTrianglePointDefault = 0, // right
    kControlDisclosureTrianglePointRight = 1,
    kControlDisclosureTrianglePointLeft = 2
};

// Which way the indicator of a slider points; the first two can show tick marks.
typedef UInt16 ControlSliderOrientation;
enum
{
    kControlSliderPointsDownOrRight = 0,
    kControlSliderPointsUpOrLeft = 1,
    kControlSliderDoesNotPoint = 2
};

// What a clock shows. Times have 24 hours, and dates begin with the year.
typedef UInt16 ControlClockType;
enum
{
    kControlClockTypeHourMinute = 0,
    kControlClockTypeHourMinuteSecond = 1,
    kControlClockTypeMonthDayYear = 2,
    kControlClockTypeMonthYear = 3
};

// A live clock goes on by itself, and is for display as well.
typedef UInt32 ControlClockFlags;
enum
{
    kControlClockNoFlags = 0,
    kControlClockIsDisplayOnly = 1,
    kControlClockIsLive = 2
};

// The numbers of a clock that can be pressed.
enum
{
    kControlClockPart = 8, // has the focus
    kControlClockHourDayPart = 9,
    kControlClockMinuteMonthPart = 10,
    kControlClockSecondYearPart = 11,
    kControlClockAMPMPart = 12 // never: there are 24 hours
};

// Where an arrow points.
typedef UInt16 ControlPopupArrowOrientation;
enum
{
    kControlPopupArrowOrientationEast = 0,
    kControlPopupArrowOrientationWest = 1,
    kControlPopupArrowOrientationNorth = 2,
    kControlPopupArrowOrientationSouth = 3
};

typedef UInt16 ControlPopupArrowSize;
enum
{
    kControlPopupArrowSizeNormal = 0,
    kControlPopupArrowSizeSmall = 1
};

typedef UInt16 ControlTabSize;
enum
{
    kControlTabSizeLarge = 0,
    kControlTabSizeSmall = 1,
    kControlTabSizeMini = 3
};

// The edge that tabs stand at.
typedef UInt16 ControlTabDirection;
enum
{
    kControlTabDirectionNorth = 0,
    kControlTabDirectionSouth = 1,
    kControlTabDirectionEast = 2,
    kControlTabDirectionWest = 3
};

typedef UInt16 ControlBevelThickness;
enum
{
    kControlBevelButtonSmallBevel = 0,
    kControlBevelButtonNormalBevel = 1,
    kControlBevelButtonLargeBevel = 2
};

// What a click does to the value of a bevel button: nothing, turn it between 0 and 1, or make it 1. Contents
// that move when they are pressed look as those that do not.
typedef UInt16 ControlBevelButtonBehavior;
typedef UInt16 ControlBevelButtonMenuBehavior;
enum
{
    kControlBehaviorPushbutton = 0,
    kControlBehaviorToggles = 0x0100,
    kControlBehaviorSticky = 0x0200,
    kControlBehaviorOffsetContents = 0x8000,
    kControlBehaviorSingleValueMenu = 0,     // the item that was chosen has a check mark
    kControlBehaviorMultiValueMenu = 0x4000, // each item that is chosen gets one, or loses it
    kControlBehaviorCommandMenu = 0x2000     // no marks
};

typedef UInt16 ControlBevelButtonMenuPlacement;
enum
{
    kControlBevelButtonMenuOnBottom = 0,
    kControlBevelButtonMenuOnRight = 1 << 2
};

typedef SInt16 ControlButtonGraphicAlignment;
enum
{
    kControlBevelButtonAlignSysDirection = -1,
    kControlBevelButtonAlignCenter = 0,
    kControlBevelButtonAlignLeft = 1,
    kControlBevelButtonAlignRight = 2,
    kControlBevelButtonAlignTop = 3,
    kControlBevelButtonAlignBottom = 4,
    kControlBevelButtonAlignTopLeft = 5,
    kControlBevelButtonAlignBottomLeft = 6,
    kControlBevelButtonAlignTopRight = 7,
    kControlBevelButtonAlignBottomRight = 8
};

typedef SInt16 ControlButtonTextAlignment;
enum
{
    kControlBevelButtonAlignTextSysDirection = 0,
    kControlBevelButtonAlignTextCenter = 1,
    kControlBevelButtonAlignTextFlushRight = -1,
    kControlBevelButtonAlignTextFlushLeft = -2
};

typedef SInt16 ControlButtonTextPlacement;
enum
{
    kControlBevelButtonPlaceSysDirection = -1,
    kControlBevelButtonPlaceNormally = 0,
    kControlBevelButtonPlaceToRightOfGraphic = 1,
    kControlBevelButtonPlaceToLeftOfGraphic = 2,
    kControlBevelButtonPlaceBelowGraphic = 3,
    kControlBevelButtonPlaceAboveGraphic = 4
};

// Of 20 and of 25 pixels.
typedef SInt16 ControlRoundButtonSize;
enum
{
    kControlRoundButtonNormalSize = 0,
    kControlRoundButtonLargeSize = 2
};

// What a button, an icon, a picture or an image well shows: nothing, or what the member of u that goes with
// the type names.
typedef SInt16 ControlContentType;
enum
{
    kControlContentTextOnly = 0,
    kControlContentIconSuiteRes = 1, // this and the next four: resID
    kControlContentCIconRes = 2,
    kControlContentPictRes = 3,
    kControlContentICONRes = 4,
    kControlContentAlertIconRes = 5,
    kControlContentIconSuiteHandle = 129,
    kControlContentCIconHandle = 130,
    kControlContentPictHandle = 131,
    kControlContentIconRef = 132,
    kControlContentICON = 133,
    kControlContentCGImageRef = 134
};

#pragma pack(push, 2)

struct ControlButtonContentInfo
{
    ControlContentType contentType;
    union
    {
        SInt16 resID;
        IconRef iconRef;
        CGImageRef imageRef;
        CIconHandle cIconHandle;
        Handle iconSuite;
        PicHandle picture;
        Handle ICONHandle;
    } u;
};
typedef struct ControlButtonContentInfo ControlButtonContentInfo;
typedef ControlButtonContentInfo* ControlButtonContentInfoPtr;
typedef ControlButtonContentInfo ControlImageContentInfo;
typedef ControlImageContentInfo* ControlImageContentInfoPtr;
typedef ControlContentType HIViewImageContentType;
typedef ControlImageContentInfo HIViewImageContentInfo;

#pragma pack(pop)

// Data tags ---------------------------------------------------------------------------------------------
//
// Text of an edit text or static text: kControl...TextTextTag is a buffer of bytes in the encoding of the
// system (Mac Roman), without length or end; kControl...CFStringTag is a CFStringRef. A string that is set is
// copied, one that is read belongs to the caller.

enum
{
    kControlPushButtonDefaultTag = 'dflt', // Boolean
    kControlPushButtonCancelTag = 'cncl'   // Boolean
};

enum
{
    kControlProgressBarIndeterminateTag = 'inde', // Boolean
    kControlProgressBarAnimatingTag = 'anim'      // Boolean
};

enum
{
    kControlChasingArrowsAnimatingTag = 'anim' // Boolean; true at first
};

enum
{
    kControlTriangleLastValueTag = 'last' // SInt16; kept, and never used: a triangle turns at once
};

enum
{
    kControlClockLongDateTag = 'date',    // LongDateRec, in the zone of the system
    kControlClockAbsoluteTimeTag = 'abst' // CFAbsoluteTime
};

enum
{
    kControlWindowHeaderIsListHeaderTag = 'islh' // Boolean; kept
};

enum
{
    kControlLittleArrowsIncrementValueTag = 'incr' // SInt32; kept for the application, never used
};

enum
{
    kControlScrollBarShowsArrowsTag = 'arro' // Boolean
};

enum
{
    kControlStaticTextTextTag = 'text',       // bytes
    kControlStaticTextCFStringTag = 'cfst',   // CFStringRef
    kControlStaticTextIsMultilineTag = 'stim' // Boolean
};

enum
{
    kControlEditTextTextTag = 'text',             // bytes
    kControlEditTextCFStringTag = 'cfst',         // CFStringRef
    kControlEditTextPasswordTag = 'pass',         // bytes; password fields only
    kControlEditTextPasswordCFStringTag = 'pwcf', // CFStringRef; password fields only
    kControlEditTextSelectionTag = 'sele',        // ControlEditTextSelectionRec
    kControlEditTextLockedTag = 'lock',           // Boolean; a locked field takes no typing
    kControlEditTextCharCount = 'chrc',           // UInt32, in UTF-16 units; read only
    kControlEditTextSingleLineTag = 'sglc',       // Boolean
    kControlEditTextInsertTextBufferTag = 'intx', // bytes that replace the selection; write only
    kControlEditTextInsertCFStringRefTag = 'incf' // CFStringRef that replaces the selection; write only
};

// A menu that is set is the application's, and has to live as long as the control shows it; one that is set
// under the owned tag is taken over with the caller's count, and released when the control goes or gets
// another menu. One that is read is not retained. With a menu the range becomes that of its items, 1 to
// their number; after adding items set the maximum anew.
enum
{
    kControlPopupButtonMenuRefTag = 'mhan', // MenuRef
    kControlPopupButtonMenuHandleTag = kControlPopupButtonMenuRefTag,
    kControlPopupButtonMenuIDTag = 'mnid',       // MenuID of a menu in the menu list
    kControlPopupButtonExtraHeightTag = 'exht',  // SInt16; kept, and never used
    kControlPopupButtonOwnedMenuRefTag = 'omrf', // MenuRef
    kControlPopupButtonCheckCurrentTag = 'chck'  // Boolean; whether the item that is chosen has a check mark
};

// Icons and images that are set are held by the control, and those that are read are held once more, for the
// caller; handles stay the application's. An icon that is none, or a type that does not exist, is a paramErr.
// Icons are drawn as those of the desktop; of everything else an empty frame is shown.
enum
{
    kControlContentTag = 'cont' // ControlButtonContentInfo
};

// Those of a menu are as a pop-up button's. What is kept has no effect.
enum
{
    kControlBevelButtonContentTag = kControlContentTag,
    kControlBevelButtonTransformTag = 'tran',     // SInt16; kept
    kControlBevelButtonTextAlignTag = 'tali',     // ControlButtonTextAlignment
    kControlBevelButtonTextOffsetTag = 'toff',    // SInt16; kept
    kControlBevelButtonGraphicAlignTag = 'gali',  // ControlButtonGraphicAlignment; kept
    kControlBevelButtonGraphicOffsetTag = 'goff', // Point; kept
    kControlBevelButtonTextPlaceTag = 'tplc',     // ControlButtonTextPlacement
    kControlBevelButtonMenuValueTag = 'mval',     // SInt16; the item that was chosen, 0 for none
    kControlBevelButtonMenuRefTag = 'mhnd',       // MenuRef
    kControlBevelButtonMenuHandleTag = kControlBevelButtonMenuRefTag,
    kControlBevelButtonOwnedMenuRefTag = 'omrf',     // MenuRef
    kControlBevelButtonCenterPopupGlyphTag = 'pglc', // Boolean; kept
    kControlBevelButtonLastMenuTag = 'lmnu',         // SInt16; the identifier of the menu chosen from last
    kControlBevelButtonMenuDelayTag = 'mdly',        // SInt32; kept: the menu opens at once
    kControlBevelButtonScaleIconTag = 'scal',        // Boolean; kept
    kControlBevelButtonKindTag = 'bebk'              // UInt16; kept
};

enum
{
    kControlRoundButtonContentTag = kControlContentTag,
    kControlRoundButtonSizeTag = 'size' // ControlRoundButtonSize
};

enum
{
    kControlIconTransformTag = 'trfm', // SInt16; kept
    kControlIconAlignmentTag = 'algn', // SInt16; kept
    kControlIconContentTag = kControlContentTag
};

enum
{
    kControlPictureHandleTag = 'pich' // PicHandle
};

enum
{
    kControlImageWellContentTag = kControlContentTag,
    kControlImageWellTransformTag = 'tran',        // SInt16; kept
    kControlImageWellIsDragDestinationTag = 'drag' // Boolean; kept
};

// The part of all but the first is the number of a tab, from 1; paramErr where there is no such tab.
enum
{
    kControlTabContentRectTag = 'rect', // Rect, as the control's bounds are; read only
    kControlTabEnabledFlagTag = 'enab', // Boolean
    kControlTabInfoTag = 'tabi'         // ControlTabInfoRec or ControlTabInfoRecV1, as its version says
};

enum
{
    kControlTabInfoVersionZero = 0,
    kControlTabInfoVersionOne = 1
};

#pragma pack(push, 2)

// What a tab of a new control is like; the icon is never shown.
struct ControlTabEntry
{
    struct ControlButtonContentInfo* icon;
    CFStringRef name;
    Boolean enabled;
};
typedef struct ControlTabEntry ControlTabEntry;

// The name of a tab. The icon suite is kept by nobody, and reads as 0.
struct ControlTabInfoRec
{
    SInt16 version; // kControlTabInfoVersionZero
    SInt16 iconSuiteID;
    Str255 name;
};
typedef struct ControlTabInfoRec ControlTabInfoRec;

// The same with a string: one that is set is copied, one that is read belongs to the caller.
struct ControlTabInfoRecV1
{
    SInt16 version; // kControlTabInfoVersionOne
    SInt16 iconSuiteID;
    CFStringRef name;
};
typedef struct ControlTabInfoRecV1 ControlTabInfoRecV1;

// The selected characters of an edit text, counted in UTF-16 units from 0; an insertion point when both are
// equal. Positions past 32767 read as that.
struct ControlEditTextSelectionRec
{
    SInt16 selStart;
    SInt16 selEnd;
};
typedef struct ControlEditTextSelectionRec ControlEditTextSelectionRec;

#pragma pack(pop)

// Buttons -----------------------------------------------------------------------------------------------

// A push button. Its value means nothing; a click sends kEventControlHit, then its command. The window may be
// null.
CARBON_EXPORT OSStatus CreatePushButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                               ControlRef* outControl);

// A check box of the range 0 to 2 (2 is the mixed state). With autoToggle, a click by a person turns 1
// into 0 and anything else into 1; without it, the application sets the value when it hears of the click. The
// window may be null.
CARBON_EXPORT OSStatus CreateCheckBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                             SInt32 initialValue, Boolean autoToggle, ControlRef* outControl);

// A radio button of the range 0 to 2. With autoToggle, a click by a person sets it to 1, never back to 0;
// turning the others of its group off is the application's task. The window may be null.
CARBON_EXPORT OSStatus CreateRadioButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                                SInt32 initialValue, Boolean autoToggle,
                                                ControlRef* outControl);

// A button with a menu, of which it shows the item that is its value. menuID is that of a menu in the menu
// list, where pop-up menus are inserted with kInsertHierarchicalMenu, or -12345 for a menu that is set
// later; a menu that is not there is a paramErr. The range is 1 to the number of items, and 0 to 0 as long
// as there is no menu. The title stands before the button: titleWidth pixels, as wide as it needs to be for
// -1. With variableWidth the button is only as wide as what it shows. titleStyle is kept and has no effect.
// The window may be null.
//
// A press opens the menu, and so does the space bar; the up and down arrows choose without it. When an item
// is chosen the value is set, then the menu sends its command, then kEventControlHit is sent with
// kControlMenuPart, and the control's command.
CARBON_EXPORT OSStatus CreatePopupButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                                MenuID menuID, Boolean variableWidth, SInt16 titleWidth,
                                                SInt16 titleJustification, Style titleStyle,
                                                ControlRef* outControl);

// The menu of a pop-up button, not retained; null when it has none, and for other controls. Set as with
// kControlPopupButtonMenuRefTag.
CARBON_EXPORT MenuRef GetControlPopupMenuHandle(ControlRef control);
CARBON_EXPORT void SetControlPopupMenuHandle(ControlRef control, MenuRef popupMenu);
#define GetControlPopupMenuRef GetControlPopupMenuHandle
#define SetControlPopupMenuRef SetControlPopupMenuHandle

// A triangle that opens and closes what stands below it, which is up to the application: 0 is closed, 1
// open. With inAutoToggles a click turns it. The title is drawn with inDrawTitle, and known to screen
// readers in any case. The right arrow opens it and the left one closes it, as the space bar does either. An
// orientation that is none is a paramErr, and so is a null window.
CARBON_EXPORT OSStatus CreateDisclosureTriangleControl(WindowRef inWindow, const Rect* inBoundsRect,
                                                       ControlDisclosureTriangleOrientation inOrientation,
                                                       CFStringRef inTitle, SInt32 inInitialValue,
                                                       Boolean inDrawTitle, Boolean inAutoToggles,
                                                       ControlRef* outControl);

// Sets kControlTriangleLastValueTag; errDataNotSupported for other controls.
CARBON_EXPORT OSErr SetDisclosureTriangleLastValue(HIViewRef inDisclosureTriangle, SInt16 inValue);

// A button that shows more of a window: 0 is closed, 1 disclosed. With inAutoToggles a click turns it. A
// null window is a paramErr.
CARBON_EXPORT OSStatus CreateDisclosureButtonControl(WindowRef inWindow, const Rect* inBoundsRect,
                                                     SInt32 inValue, Boolean inAutoToggles,
                                                     ControlRef* outControl);

// A button that can show a picture beside its title, keep its value, and have a menu. What a click does
// is said with the behavior; a bevel button in a radio group is one of its choices, whatever its
// behavior. With menuID 0 it has no menu, and with -12345 it comes later, under its tag; other menus are
// looked for in the menu list, and one that is not there is a paramErr. The range is 0 to 1, and the
// value 0 at first. The window, title and info may be null. Thicknesses look alike. A thickness that is
// none is a paramErr.
//
// With a menu, a press opens it, and so does the space bar. When an item is chosen the menu value is set,
// then the menu sends its command, then kEventControlHit is sent with kControlMenuPart, and the control's
// command.
CARBON_EXPORT OSStatus CreateBevelButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                                ControlBevelThickness thickness,
                                                ControlBevelButtonBehavior behavior,
                                                ControlButtonContentInfoPtr info, MenuID menuID,
                                                ControlBevelButtonMenuBehavior menuBehavior,
                                                ControlBevelButtonMenuPlacement menuPlacement,
                                                ControlRef* outControl);

// Set and get the tags of the same name.
CARBON_EXPORT OSErr SetBevelButtonContentInfo(ControlRef inButton, ControlButtonContentInfoPtr inContent);
CARBON_EXPORT OSErr GetBevelButtonContentInfo(ControlRef inButton, ControlButtonContentInfoPtr outContent);
CARBON_EXPORT OSErr SetBevelButtonTextPlacement(ControlRef inButton, ControlButtonTextPlacement inWhere);
CARBON_EXPORT OSErr SetBevelButtonTextAlignment(ControlRef inButton, ControlButtonTextAlignment inAlign,
                                                SInt16 inHOffset);
CARBON_EXPORT OSErr SetBevelButtonGraphicAlignment(ControlRef inButton, ControlButtonGraphicAlignment inAlign,
                                                   SInt16 inHOffset, SInt16 inVOffset);
CARBON_EXPORT OSErr SetBevelButtonMenuValue(ControlRef inButton, MenuItemIndex inValue);
CARBON_EXPORT OSErr GetBevelButtonMenuValue(ControlRef inButton, MenuItemIndex* outValue);
CARBON_EXPORT OSErr GetBevelButtonMenuHandle(ControlRef inButton, MenuHandle* outHandle);
#define GetBevelButtonMenuRef GetBevelButtonMenuHandle

// A round button with an icon, as large as its size says, in the middle of its bounds. It is pressed like a
// push button. The window and the content may be null; a size that is none is a paramErr.
CARBON_EXPORT OSStatus CreateRoundButtonControl(WindowRef inWindow, const Rect* inBoundsRect,
                                                ControlRoundButtonSize inSize,
                                                ControlButtonContentInfo* inContent, ControlRef* outControl);

// Images ------------------------------------------------------------------------------------------------

// An icon or a picture. A click hits it as it does a button, unless inDontTrack. The window may be null, but
// not the content.
CARBON_EXPORT OSStatus CreateIconControl(WindowRef inWindow, const Rect* inBoundsRect,
                                         const ControlButtonContentInfo* inIconContent, Boolean inDontTrack,
                                         ControlRef* outControl);
CARBON_EXPORT OSStatus CreatePictureControl(WindowRef window, const Rect* boundsRect,
                                            const ControlButtonContentInfo* content, Boolean dontTrack,
                                            ControlRef* outControl);

// An image in a sunken frame, which can be clicked. The range is 0 to 1; of 1 it looks chosen. The window may
// be null, but not the content.
CARBON_EXPORT OSStatus CreateImageWellControl(WindowRef window, const Rect* boundsRect,
                                              const ControlButtonContentInfo* info, ControlRef* outControl);
CARBON_EXPORT OSErr SetImageWellContentInfo(ControlRef inButton, ControlButtonContentInfoPtr inContent);
CARBON_EXPORT OSErr GetImageWellContentInfo(ControlRef inButton, ControlButtonContentInfoPtr outContent);

// Controls with a range ---------------------------------------------------------------------------------

// A slider; upright when it is higher than wide, with the minimum at the bottom. A person's drag sets the
// value, step by step with liveTracking, else once at its end. liveTrackingProc may be null; it is
// called after each step of a live drag. Tick marks on a slider that does not point are a paramErr, and so is
// a null window.
CARBON_EXPORT OSStatus CreateSliderControl(WindowRef window, const Rect* boundsRect, SInt32 value,
                                           SInt32 minimum, SInt32 maximum,
                                           ControlSliderOrientation orientation, UInt16 numTickMarks,
                                           Boolean liveTracking, ControlActionUPP liveTrackingProc,
                                           ControlRef* outControl);

// A scroll bar; upright when it is higher than wide, with the minimum at the top. viewSize is the amount
// in view, which makes the thumb proportional; 0 for a thumb of fixed size. The window may be null.
//
// On purpose: only a drag of the thumb changes the value. A press of an arrow or a page area calls the
// action procedure once, and scrolling is up to it.
CARBON_EXPORT OSStatus CreateScrollBarControl(WindowRef window, const Rect* boundsRect, SInt32 value,
                                              SInt32 minimum, SInt32 maximum, SInt32 viewSize,
                                              Boolean liveTracking, ControlActionUPP liveTrackingProc,
                                              ControlRef* outControl);

// A progress bar. A person can do nothing with it. A null window is a paramErr.
CARBON_EXPORT OSStatus CreateProgressBarControl(WindowRef window, const Rect* boundsRect, SInt32 value,
                                                SInt32 minimum, SInt32 maximum, Boolean indeterminate,
                                                ControlRef* outControl);

// A bar that shows how well something fits. A person can do nothing with it. A null window is a paramErr.
CARBON_EXPORT OSStatus CreateRelevanceBarControl(WindowRef window, const Rect* boundsRect, SInt32 value,
                                                 SInt32 minimum, SInt32 maximum, ControlRef* outControl);

// A sign that something is going on, which turns by itself. It has no value. A null window is a paramErr.
CARBON_EXPORT OSStatus CreateChasingArrowsControl(WindowRef window, const Rect* boundsRect,
                                                  ControlRef* outControl);

// A pair of arrows, up above down. A null window is a paramErr.
//
// On purpose: a click never changes the value, and increment is only kept. The action procedure, or the
// application when it hears of the click, changes the value.
CARBON_EXPORT OSStatus CreateLittleArrowsControl(WindowRef window, const Rect* boundsRect, SInt32 value,
                                                 SInt32 minimum, SInt32 maximum, SInt32 increment,
                                                 ControlRef* outControl);

// A time of day or a date, at first that of the system, with arrows to change it. Clicking a number, and the
// left and right arrow keys, choose which one they change: up and down, which the keys of that name do too,
// go to the next and the last; behind the greatest comes the smallest. The other numbers stay, but for a day
// that the month does not have. Digits are typed into the number. Each change by a person is told of with
// kEventControlHit, whose part is the number or the arrow. The value of the control means nothing; the time
// is data (kControlClock...Tag), and setting one whose year has not four digits, or that does not exist, is a
// paramErr. One that is for display takes neither presses nor the focus. A type or flags that do not exist
// are a paramErr, and so is a null window.
CARBON_EXPORT OSStatus CreateClockControl(WindowRef window, const Rect* boundsRect,
                                          ControlClockType clockType, ControlClockFlags clockFlags,
                                          ControlRef* outControl);

// Texts -------------------------------------------------------------------------------------------------

// A text that a person can only read. style may be null for the usual style, and the window may be null.
CARBON_EXPORT OSStatus CreateStaticTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text,
                                               const ControlFontStyleRec* style, ControlRef* outControl);

// An edit text of the older sort: it does not send kEventTextShouldChangeInRange and kEventTextDidChange.
// useInlineInput is kept and has no effect. The window may be null.
CARBON_EXPORT OSStatus CreateEditTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text,
                                             Boolean isPassword, Boolean useInlineInput,
                                             const ControlFontStyleRec* style, ControlRef* outControl);

// An edit text, the preferred sort. The window may be null.
CARBON_EXPORT OSStatus CreateEditUnicodeTextControl(WindowRef window, const Rect* boundsRect,
                                                    CFStringRef text, Boolean isPassword,
                                                    const ControlFontStyleRec* style, ControlRef* outControl);

// Containers --------------------------------------------------------------------------------------------

// A box with a title that other controls can be embedded in. primary chooses the look of an outer box.
// A null window is a paramErr.
CARBON_EXPORT OSStatus CreateGroupBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                             Boolean primary, ControlRef* outControl);

// A group of radio buttons, which are embedded in it. Its value is the place of the button that is on, as
// GetIndexedSubControl counts, 0 when none is; its maximum follows the number of its controls. Setting the
// value turns that button on and the others off; a click on a button, or setting its value, changes that of
// the group. After a click the button is told of its hit, and then the group, with kControlRadioGroupPart.
// The buttons need no autoToggle. Controls without kControlHasRadioBehavior only have a place in it. A null
// window is a paramErr.
CARBON_EXPORT OSStatus CreateRadioGroupControl(WindowRef window, const Rect* boundsRect,
                                               ControlRef* outControl);

// Tabs along an edge of a box. The value is the number of the tab in front, from 1; the maximum is the number
// of tabs, and setting it adds tabs without a name or takes the last ones away. There are 128 at most. A
// click on a tab that is enabled brings it to the front, and so do the arrow keys: the value is set, then
// kEventControlHit is sent with the number of the tab as its part. Other controls can be embedded; which of
// them are shown with which tab is up to the application, which mostly has a user pane for each. size is how
// high the tabs are. A size, direction or number that is none is a paramErr, and so are a null window and a
// null tabArray for tabs.
CARBON_EXPORT OSStatus CreateTabsControl(WindowRef window, const Rect* boundsRect, ControlTabSize size,
                                         ControlTabDirection direction, UInt16 numTabs,
                                         const ControlTabEntry* tabArray, ControlRef* outControl);

// Sets kControlTabEnabledFlagTag of the tab of this number.
CARBON_EXPORT OSErr SetTabEnabled(ControlRef inTabControl, SInt16 inTabToHilite, Boolean inEnabled);

// What a program can do in a user pane by procedures, which are given as data (kControlUserPane...ProcTag). A
// handler of the event that goes with a procedure is asked before it, and the procedure only when no handler
// has taken the event. Each may dispose the pane.
//
// HitTest gives the part at a point that is counted as the control's own are, 0 for none. Tracking is called
// with a press of a part, if the pane has kControlHandlesTracking: it follows the press by itself and gives
// the part that was hit, 0 for none. Activate is called after the pane or what it stands in becomes active or
// inactive, if it has kControlWantsActivate. Focus is called with kControlFocusNextPart when the pane is to
// get the focus, and with kControlFocusNoPart when it is to lose it, if it has kControlSupportsFocus; with 0
// it refuses the focus. KeyDown is called with each key while the pane has the focus, and gives 0 for one
// that it does not want; the character is in the encoding of the system, 0 for a key that types nothing.
typedef ControlPartCode (*ControlUserPaneHitTestProcPtr)(ControlRef control, Point where);
typedef ControlUserPaneHitTestProcPtr ControlUserPaneHitTestUPP;
typedef ControlPartCode (*ControlUserPaneTrackingProcPtr)(ControlRef control, Point startPt,
                                                          ControlActionUPP actionProc);
typedef ControlUserPaneTrackingProcPtr ControlUserPaneTrackingUPP;
typedef ControlPartCode (*ControlUserPaneKeyDownProcPtr)(ControlRef control, SInt16 keyCode, SInt16 charCode,
                                                         SInt16 modifiers);
typedef ControlUserPaneKeyDownProcPtr ControlUserPaneKeyDownUPP;
typedef void (*ControlUserPaneActivateProcPtr)(ControlRef control, Boolean activating);
typedef ControlUserPaneActivateProcPtr ControlUserPaneActivateUPP;
typedef ControlPartCode (*ControlUserPaneFocusProcPtr)(ControlRef control, ControlFocusPart action);
typedef ControlUserPaneFocusProcPtr ControlUserPaneFocusUPP;

CARBON_INLINE ControlUserPaneHitTestUPP
NewControlUserPaneHitTestUPP(ControlUserPaneHitTestProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeControlUserPaneHitTestUPP(ControlUserPaneHitTestUPP userUPP)
{
    (void)userUPP;
}
CARBON_INLINE ControlUserPaneTrackingUPP
NewControlUserPaneTrackingUPP(ControlUserPaneTrackingProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeControlUserPaneTrackingUPP(ControlUserPaneTrackingUPP userUPP)
{
    (void)userUPP;
}
CARBON_INLINE ControlUserPaneKeyDownUPP
NewControlUserPaneKeyDownUPP(ControlUserPaneKeyDownProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeControlUserPaneKeyDownUPP(ControlUserPaneKeyDownUPP userUPP)
{
    (void)userUPP;
}
CARBON_INLINE ControlUserPaneActivateUPP
NewControlUserPaneActivateUPP(ControlUserPaneActivateProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeControlUserPaneActivateUPP(ControlUserPaneActivateUPP userUPP)
{
    (void)userUPP;
}
CARBON_INLINE ControlUserPaneFocusUPP NewControlUserPaneFocusUPP(ControlUserPaneFocusProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeControlUserPaneFocusUPP(ControlUserPaneFocusUPP userUPP)
{
    (void)userUPP;
}

enum
{
    kControlUserPaneHitTestProcTag = 'hitt',  // ControlUserPaneHitTestUPP; each may be null
    kControlUserPaneTrackingProcTag = 'trak', // ControlUserPaneTrackingUPP
    kControlUserPaneKeyDownProcTag = 'keyd',  // ControlUserPaneKeyDownUPP
    kControlUserPaneActivateProcTag = 'acti', // ControlUserPaneActivateUPP
    kControlUserPaneFocusProcTag = 'foci'     // ControlUserPaneFocusUPP
};

// A pane that shows nothing itself. features are those that GetControlFeatures gives: with
// kControlSupportsEmbedding, other controls can be embedded, and are hidden and shown with it. A press
// reaches it where handlers of kEventControlHitTest or its procedure give a part. A null window is a
// paramErr.
CARBON_EXPORT OSStatus CreateUserPaneControl(WindowRef window, const Rect* boundsRect, UInt32 features,
                                             ControlRef* outControl);

// A flat plate behind other controls, which can be embedded in it. The window may be null.
CARBON_EXPORT OSStatus CreatePlacardControl(WindowRef window, const Rect* boundsRect, ControlRef* outControl);

// A strip below the title of a window; other controls can be embedded in it. isListHeader is kept. A null
// window is a paramErr.
CARBON_EXPORT OSStatus CreateWindowHeaderControl(WindowRef window, const Rect* boundsRect,
                                                 Boolean isListHeader, ControlRef* outControl);

// An arrow, as on a button with a menu. It has no value, and takes neither presses nor the focus. The window
// may be null. An orientation or size that does not exist is a paramErr.
CARBON_EXPORT OSStatus CreatePopupArrowControl(WindowRef window, const Rect* boundsRect,
                                               ControlPopupArrowOrientation orientation,
                                               ControlPopupArrowSize size, ControlRef* outControl);

// Separators --------------------------------------------------------------------------------------------

// A line between other controls: across when the bounds are wider than high, upright otherwise. It has no
// value, and takes neither presses nor the focus. A null window is a paramErr.
CARBON_EXPORT OSStatus CreateSeparatorControl(WindowRef window, const Rect* boundsRect,
                                              ControlRef* outControl);

#endif
