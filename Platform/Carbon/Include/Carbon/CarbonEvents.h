// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The Event Manager's vocabulary: classes and kinds of events, the names and types of their parameters,
// commands, and the targets that events are sent to.

#ifndef CarbonEvents_h
#define CarbonEvents_h

#include <Carbon/AEDataModel.h>
#include <Carbon/CarbonEventsCore.h>
#include <CoreServices/MacErrors.h>

// Event classes.
enum
{
    kEventClassMouse = 'mous',
    kEventClassKeyboard = 'keyb',
    kEventClassTextInput = 'text',
    kEventClassApplication = 'appl',
    kEventClassAppleEvent = 'eppc',
    kEventClassEPPC = kEventClassAppleEvent,
    kEventClassMenu = 'menu',
    kEventClassWindow = 'wind',
    kEventClassControl = 'cntl',
    kEventClassCommand = 'cmds',
    kEventClassTablet = 'tblt',
    kEventClassVolume = 'vol ',
    kEventClassAppearance = 'appm',
    kEventClassService = 'serv',
    kEventClassToolbar = 'tbar',
    kEventClassToolbarItem = 'tbit',
    kEventClassToolbarItemView = 'tbiv',
    kEventClassAccessibility = 'acce',
    kEventClassSystem = 'macs',
    kEventClassInk = 'ink ',
    kEventClassTSMDocumentAccess = 'tdac',
    kEventClassTextField = 'txfd',
    kEventClassHIObject = 'hiob'
};

// kEventClassKeyboard. Key events go to the user focus: focused control, its parents, its window, the
// application.
enum
{
    kEventRawKeyDown = 1,
    kEventRawKeyRepeat = 2,
    kEventRawKeyUp = 3,
    kEventRawKeyModifiersChanged = 4,
    kEventHotKeyPressed = 5,
    kEventHotKeyReleased = 6
};

// kEventClassTextInput. Typed text, made from a key press that nobody handled.
enum
{
    kEventTextInputUpdateActiveInputArea = 1,
    kEventTextInputUnicodeForKeyEvent = 2,
    kEventTextInputOffsetToPos = 3,
    kEventTextInputPosToOffset = 4,
    kEventTextInputShowHideBottomWindow = 5,
    kEventTextInputGetSelectedText = 6,
    kEventUpdateActiveInputArea = kEventTextInputUpdateActiveInputArea,
    kEventUnicodeForKeyEvent = kEventTextInputUnicodeForKeyEvent,
    kEventOffsetToPos = kEventTextInputOffsetToPos,
    kEventPosToOffset = kEventTextInputPosToOffset,
    kEventShowHideBottomWindow = kEventTextInputShowHideBottomWindow,
    kEventGetSelectedText = kEventTextInputGetSelectedText
};

// kEventClassAppleEvent. What the desktop asks of the program, see AppleEvents.h.
enum
{
    kEventAppleEvent = 1,
    kEventHighLevelEvent = kEventAppleEvent
};

// kEventClassTextField. What happens to the text of an edit field by a person's hand.
enum
{
    kEventTextAccepted = 1,
    kEventTextShouldChangeInRange = 2,
    kEventTextDidChange = 3
};

// kEventClassCommand.
enum
{
    kEventCommandProcess = 1,
    kEventProcessCommand = kEventCommandProcess,
    kEventCommandUpdateStatus = 2
};

// kEventClassControl; the direct object is the control.
enum
{
    kEventControlInitialize = 1000,
    kEventControlDispose = 1001,
    kEventControlGetOptimalBounds = 1003,
    kEventControlHit = 1,
    kEventControlSimulateHit = 2,
    kEventControlHitTest = 3,
    kEventControlDraw = 4,
    kEventControlSetFocusPart = 7,
    kEventControlGetFocusPart = 8,
    kEventControlActivate = 9,
    kEventControlDeactivate = 10,
    kEventControlSetCursor = 11,
    kEventControlContextualMenuClick = 12,
    kEventControlClick = 13,
    kEventControlGetNextFocusCandidate = 14,
    kEventControlGetAutoToggleValue = 15,
    kEventControlInterceptSubviewClick = 16,
    kEventControlGetSubviewForMouseEvent = kEventControlInterceptSubviewClick,
    kEventControlGetClickActivation = 17,
    kEventControlInvalidateForSizeChange = 22,
    kEventControlTrack = 51,
    kEventControlGetPartRegion = 101,
    kEventControlGetPartBounds = 102,
    kEventControlSetData = 103,
    kEventControlGetData = 104,
    kEventControlValueFieldChanged = 151,
    kEventControlAddedSubControl = 152,
    kEventControlRemovingSubControl = 153,
    kEventControlBoundsChanged = 154,
    kEventControlVisibilityChanged = 157,
    kEventControlTitleChanged = 158,
    kEventControlOwningWindowChanged = 159,
    kEventControlHiliteChanged = 160,
    kEventControlEnabledStateChanged = 161,
    kEventControlLayoutInfoChanged = 162,
    kEventControlFocusPartChanged = 164, // since Mac OS X 10.5
    kEventControlArbitraryMessage = 201
};

// kEventClassMenu; the direct object is the menu.
enum
{
    kEventMenuBeginTracking = 1,
    kEventMenuEndTracking = 2,
    kEventMenuChangeTrackingMode = 3,
    kEventMenuOpening = 4,
    kEventMenuClosed = 5,
    kEventMenuTargetItem = 6,
    kEventMenuMatchKey = 7,
    kEventMenuEnableItems = 8,
    kEventMenuPopulate = 9,
    kEventMenuDispose = 1001,
    kEventMenuBarShown = 2000,
    kEventMenuBarHidden = 2001
};

// kEventClassWindow; the direct object is the window.
enum
{
    kEventWindowUpdate = 1,
    kEventWindowDrawContent = 2,
    kEventWindowActivated = 5,
    kEventWindowDeactivated = 6,
    kEventWindowHandleActivate = 91,
    kEventWindowHandleDeactivate = 92,
    kEventWindowGetClickActivation = 7,
    kEventWindowShowing = 22,
    kEventWindowHiding = 23,
    kEventWindowShown = 24,
    kEventWindowHidden = 25,
    kEventWindowCollapsing = 86,
    kEventWindowCollapsed = 67,
    kEventWindowExpanding = 87,
    kEventWindowExpanded = 70,
    kEventWindowZoomed = 76,
    kEventWindowBoundsChanging = 26,
    kEventWindowBoundsChanged = 27,
    kEventWindowResizeStarted = 28,
    kEventWindowResizeCompleted = 29,
    kEventWindowDragStarted = 30,
    kEventWindowDragCompleted = 31,
    kEventWindowClosed = 73,
    kEventWindowTransitionStarted = 88,
    kEventWindowTransitionCompleted = 89,
    kEventWindowClickContentRgn = 37,
    kEventWindowCursorChange = 40,
    kEventWindowCollapse = 66,
    kEventWindowCollapseAll = 68,
    kEventWindowExpand = 69,
    kEventWindowExpandAll = 71,
    kEventWindowClose = 72,
    kEventWindowCloseAll = 74,
    kEventWindowZoom = 75,
    kEventWindowZoomAll = 77,
    kEventWindowGetIdealSize = 80,
    kEventWindowGetMinimumSize = 81,
    kEventWindowGetMaximumSize = 82,
    kEventWindowConstrain = 83,
    kEventWindowHandleContentClick = 85,
    kEventWindowFocusAcquired = 200,
    kEventWindowFocusRelinquish = 201,
    kEventWindowFocusContent = 202,
    kEventWindowFocusToolbar = 203,
    kEventWindowFocusDrawer = 204,
    kEventWindowFocusLost = 205,     // since Mac OS X 10.5
    kEventWindowFocusRestored = 206, // since Mac OS X 10.5
    kEventWindowInit = 1004,
    kEventWindowDispose = 1005,
    kEventWindowDragHilite = 1006,
    kEventWindowModified = 1007,
    kEventWindowStateChanged = 1009,
    kEventWindowPaint = 1013,
    kEventWindowAttributesChanged = 1019,
    kEventWindowTitleChanged = 1020
};

// kEventClassApplication.
enum
{
    kEventAppActivated = 1,
    kEventAppDeactivated = 2,
    kEventAppQuit = 3,
    kEventAppLaunchNotification = 4,
    kEventAppLaunched = 5,
    kEventAppTerminated = 6,
    kEventAppFrontSwitched = 7,
    kEventAppHidden = 107,
    kEventAppShown = 108,
    kEventAppSystemUIModeChanged = 109,
    kEventAppActiveWindowChanged = 111
};

// kEventClassMouse.
enum
{
    kEventMouseDown = 1,
    kEventMouseUp = 2,
    kEventMouseMoved = 5,
    kEventMouseDragged = 6,
    kEventMouseWheelMoved = 10
};

// Buttons and axes of a mouse.
typedef UInt16 EventMouseButton;
typedef UInt16 EventMouseWheelAxis;

enum
{
    kEventMouseButtonPrimary = 1,
    kEventMouseButtonSecondary = 2,
    kEventMouseButtonTertiary = 3
};

enum
{
    kEventMouseWheelAxisX = 0,
    kEventMouseWheelAxisY = 1
};

// What a bounds event of a window says about the change (kEventParamAttributes). The user bits are clear
// when a program made the change.
enum
{
    kWindowBoundsChangeUserDrag = 1,
    kWindowBoundsChangeUserResize = 2,
    kWindowBoundsChangeSizeChanged = 4,
    kWindowBoundsChangeOriginChanged = 8,
    kWindowBoundsChangeZoom = 16
};

// The same for kEventControlBoundsChanged.
enum
{
    kControlBoundsChangeSizeChanged = 4,
    kControlBoundsChangePositionChanged = 8
};

// Names of parameters, with the type that each holds (the name without its prefix "type"). The headers of Mac
// OS X 10.4 do not have kEventParamPostOptions.
enum
{
    kEventParamDirectObject = '----',                   // depends on event
    kEventParamPostTarget = 'ptrg',                     // EventTargetRef
    kEventParamPostOptions = 'popt',                    // EventTargetOptions (OptionBits)
    kEventParamWindowRef = 'wind',                      // WindowRef
    kEventParamControlRef = 'ctrl',                     // ControlRef
    kEventParamMenuRef = 'menu',                        // MenuRef
    kEventParamEventRef = 'evnt',                       // EventRef
    kEventParamGrafPort = 'graf',                       // GrafPtr
    kEventParamRgnHandle = 'rgnh',                      // QDRgnHandle
    kEventParamEnabled = 'enab',                        // Boolean
    kEventParamDimensions = 'dims',                     // QDPoint
    kEventParamBounds = 'boun',                         // QDRectangle
    kEventParamAvailableBounds = 'avlb',                // QDRectangle
    kEventParamMinimumSize = 'mnsz',                    // HISize
    kEventParamMaximumSize = 'mxsz',                    // HISize
    kEventParamAttributes = 'attr',                     // UInt32
    kEventParamReason = 'why?',                         // UInt32
    kEventParamResult = 'ansr',                         // any type - depends on event like direct object
    kEventParamMutableArray = 'marr',                   // CFMutableArrayRef
    kEventParamCGContextRef = 'cntx',                   // CGContextRef
    kEventParamShape = 'shap',                          // HIShapeRef
    kEventParamUserData = 'usrd',                       // VoidPtr
    kEventParamIndex = 'indx',                          // CFIndex
    kEventParamMouseLocation = 'mloc',                  // HIPoint
    kEventParamWindowMouseLocation = 'wmou',            // HIPoint
    kEventParamMouseButton = 'mbtn',                    // MouseButton
    kEventParamClickCount = 'ccnt',                     // UInt32
    kEventParamMouseChord = 'chor',                     // UInt32
    kEventParamMouseDelta = 'mdta',                     // HIPoint
    kEventParamMouseWheelAxis = 'mwax',                 // MouseWheelAxis
    kEventParamMouseWheelDelta = 'mwdl',                // SInt32
    kEventParamMouseTrackingRef = 'mtrf',               // MouseTrackingRef
    kEventParamKeyCode = 'kcod',                        // UInt32
    kEventParamKeyMacCharCodes = 'kchr',                // Char
    kEventParamKeyModifiers = 'kmod',                   // UInt32
    kEventParamKeyUnicodes = 'kuni',                    // UnicodeText
    kEventParamKeyboardType = 'kbdt',                   // UInt32
    kEventParamTextInputSendText = 'tstx',              // UnicodeText
    kEventParamTextInputSendRefCon = 'tsrc',            // RefCon
    kEventParamTextInputSendComponentInstance = 'tsci', // ComponentInstance
    kEventParamTextInputSendSLRec = 'tssl',             // IntlWritingCode
    kEventParamTextInputSendKeyboardEvent = 'tske',     // EventRef
    kEventParamTextInputSendGlyphInfoArray = 'glph',    // GlyphInfoArray
    kEventParamHICommand = 'hcmd',                      // HICommand
    kEventParamCurrentBounds = 'crct',                  // QDRectangle
    kEventParamOriginalBounds = 'orct',                 // QDRectangle
    kEventParamPreviousBounds = 'prct',                 // QDRectangle
    kEventParamWindowPartCode = 'wpar',                 // WindowPartCode
    kEventParamWindowDefPart = 'wdpc',                  // WindowDefPartCode
    kEventParamWindowRegionCode = 'wshp',               // WindowRegionCode
    kEventParamWindowFeatures = 'wftr',                 // UInt32
    kEventParamWindowModifiedFlag = 'wmff',             // Boolean
    kEventParamWindowStateChangedFlags = 'wscf',        // UInt32
    kEventParamWindowDragHiliteFlag = 'wdhf',           // Boolean
    kEventParamClickActivation = 'clac',                // ClickActivationResult
    kEventParamPreviousWindow = 'prvw',                 // WindowRef
    kEventParamCurrentWindow = 'curw',                  // WindowRef
    kEventParamControlPart = 'cprt',                    // ControlPartCode
    kEventParamControlPreviousPart = 'copc',            // ControlPartCode
    kEventParamControlCurrentPart = 'cnpc',             // ControlPartCode
    kEventParamControlValue = 'cval',                   // SInt32
    kEventParamControlAction = 'caup',                  // ControlActionUPP
    kEventParamControlFeatures = 'cftr',                // UInt32
    kEventParamControlRegion = 'crgn',                  // QDRgnHandle
    kEventParamControlPrefersShape = 'cpsh',            // Boolean
    kEventParamControlSubControl = 'csub',              // ControlRef
    kEventParamControlSubview = 'csvw',                 // ControlRef
    kEventParamControlOriginalOwningWindow = 'coow',    // WindowRef
    kEventParamControlCurrentOwningWindow = 'ccow',     // WindowRef
    kEventParamControlFocusEverything = 'cfev',         // Boolean
    kEventParamStartControl = 'cstc',                   // ControlRef
    kEventParamNextControl = 'cnxc',                    // ControlRef
    kEventParamControlDataTag = 'cdtg',                 // Enumeration
    kEventParamControlDataBuffer = 'cdbf',              // Ptr
    kEventParamControlDataBufferSize = 'cdbs',          // ByteCount
    kEventParamControlPartBounds = 'cpbd',              // QDRectangle
    kEventParamControlOptimalBounds = 'cobn',           // QDRectangle
    kEventParamControlOptimalBaselineOffset = 'cobo',   // SInt16
    kEventParamInitCollection = 'icol',                 // Collection
    kEventParamControlMessage = 'cmsg',                 // SInt16
    kEventParamControlParam = 'cprm',                   // RefCon
    kEventParamControlResult = 'crsl',                  // SInt32
    kEventParamCurrentMenuTrackingMode = 'cmtm',        // MenuTrackingMode
    kEventParamNewMenuTrackingMode = 'nmtm',            // MenuTrackingMode
    kEventParamMenuFirstOpen = '1sto',                  // Boolean
    kEventParamMenuItemIndex = 'item',                  // MenuItemIndex
    kEventParamMenuCommand = 'mcmd',                    // MenuCommand
    kEventParamEnableMenuForKeyEvent = 'fork',          // Boolean
    kEventParamMenuEventOptions = 'meop',               // MenuEventOptions
    kEventParamMenuContext = 'mctx',                    // UInt32
    kEventParamMenuDismissed = 'mdis',                  // UInt32
    kEventParamParentMenu = 'mprm',                     // MenuRef
    kEventParamParentMenuItem = 'mpri',                 // MenuItemIndex
    kEventParamProcessID = 'psn ',                      // ProcessSerialNumber
    kEventParamAEEventClass = 'evcl',                   // OSType
    kEventParamAEEventID = 'evti',                      // OSType
    kEventParamLaunchRefCon = 'lref',                   // RefCon
    kEventParamLaunchErr = 'err ',                      // OSStatus
    kEventParamSystemUIMode = 'uimd',                   // UInt32
    kEventParamTextSelection = 'txsl',                  // CFRange
    kEventParamCandidateText = 'tstx',                  // CFStringRef
    kEventParamReplacementText = 'trtx',                // CFStringRef
    kEventParamUnconfirmedRange = 'tunr',               // CFRange
    kEventParamUnconfirmedText = 'txun'                 // CFStringRef
};

// Types of parameters, with the data that each stands for; numbers and texts are in AEDataModel.h.
enum
{
    typePtr = 'ptr ',                   // Ptr
    typeVoidPtr = 'void',               // void*
    typeCFStringRef = 'cfst',           // CFStringRef
    typeCFMutableStringRef = 'cfms',    // CFMutableStringRef
    typeCFArrayRef = 'cfar',            // CFArrayRef
    typeCFMutableArrayRef = 'cfma',     // CFMutableArrayRef
    typeCFDictionaryRef = 'cfdc',       // CFDictionaryRef
    typeCFTypeRef = 'cfty',             // CFTypeRef
    typeCFRange = 'cfrn',               // CFRange
    typeCFIndex = 'cfix',               // CFIndex
    typeEventRef = 'evrf',              // EventRef
    typeEventTargetRef = 'etrg',        // EventTargetRef
    typeHICommand = 'hcmd',             // HICommand / HICommandExtended
    typeControlRef = 'ctrl',            // ControlRef
    typeControlPartCode = 'cprt',       // ControlPartCode
    typeControlActionUPP = 'caup',      // ControlActionUPP
    typeWindowRef = 'wind',             // WindowRef
    typeWindowPartCode = 'wpar',        // WindowPartCode
    typeWindowRegionCode = 'wshp',      // WindowRegionCode
    typeWindowDefPartCode = 'wdpt',     // WindowDefPartCode
    typeClickActivationResult = 'clac', // UInt32
    typeMenuRef = 'menu',               // MenuRef
    typeMenuItemIndex = 'midx',         // MenuItemIndex
    typeMenuCommand = 'mcmd',           // MenuCommand
    typeMenuTrackingMode = 'mtmd',      // UInt32
    typeMenuEventOptions = 'meop',      // UInt32
    typeMouseButton = 'mbtn',           // UInt16
    typeMouseWheelAxis = 'mwax',        // UInt16
    typeQDPoint = 'QDpt',               // Point
    typeQDRectangle = 'qdrt',           // Rect
    typeQDRgnHandle = 'rgnh',           // RgnHandle
    typeHIPoint = 'hipt',               // HIPoint
    typeHISize = 'hisz',                // HISize
    typeHIRect = 'hirc',                // HIRect
    typeHIShapeRef = 'shap',            // HIShapeRef
    typeCGContextRef = 'cntx',          // CGContextRef
    typeGrafPtr = 'graf',               // CGrafPtr
    typeCollection = 'cltn',            // Collection
    typeOSStatus = 'osst',              // OSStatus
    typeEventHotKeyID = 'hkid',         // EventHotKeyID
    typeHIObjectRef = 'hiob',           // HIObjectRef
    typeComponentInstance = 'cmpi',     // component instance
    typeIntlWritingCode = 'intl'        // script/language record
};

// Since Mac OS X 10.5.
#if defined(__LP64__)
enum
{
    typeRefCon = typeVoidPtr,
    typeByteCount = typeUInt64
};
#else
enum
{
    typeRefCon = typeSInt32,
    typeByteCount = typeUInt32
};
#endif

// Commands that have a fixed meaning.
enum
{
    kHICommandOK = 'ok  ',
    kHICommandCancel = 'not!',
    kHICommandOther = 'othr',
    kHICommandQuit = 'quit',
    kHICommandUndo = 'undo',
    kHICommandRedo = 'redo',
    kHICommandCut = 'cut ',
    kHICommandCopy = 'copy',
    kHICommandPaste = 'past',
    kHICommandClear = 'clea',
    kHICommandSelectAll = 'sall',
    kHICommandHide = 'hide',
    kHICommandHideOthers = 'hido',
    kHICommandShowAll = 'shal',
    kHICommandPreferences = 'pref',
    kHICommandZoomWindow = 'zoom',
    kHICommandMinimizeWindow = 'mini',
    kHICommandMinimizeAll = 'mina',
    kHICommandMaximizeWindow = 'maxi',
    kHICommandMaximizeAll = 'maxa',
    kHICommandArrangeInFront = 'frnt',
    kHICommandBringAllToFront = 'bfrt',
    kHICommandWindowListSeparator = 'wldv',
    kHICommandWindowListTerminator = 'wlst',
    kHICommandSelectWindow = 'swin',
    kHICommandRotateWindowsForward = 'rotw',
    kHICommandRotateWindowsBackward = 'rotb',
    kHICommandAbout = 'abou',
    kHICommandNew = 'new ',
    kHICommandOpen = 'open',
    kHICommandClose = 'clos',
    kHICommandCloseFile = 'clof',
    kHICommandSave = 'save',
    kHICommandSaveAs = 'svas',
    kHICommandRevert = 'rvrt',
    kHICommandPrint = 'prnt',
    kHICommandPageSetup = 'page',
    kHICommandAppHelp = 'ahlp',
    kHICommandShowCharacterPalette = 'chrp',
    kHICommandShowSpellingPanel = 'shsp',
    kHICommandCheckSpelling = 'cksp',
    kHICommandChangeSpelling = 'chsp',
    kHICommandCheckSpellingAsYouType = 'aspc',
    kHICommandIgnoreSpelling = 'igsp',
    kHICommandLearnWord = 'lrwd',
    kHICommandRotateFloatingWindowsForward = 'rtfw'
};

// Where a command came from; at most one bit is set.
enum
{
    kHICommandFromMenu = 1,
    kHICommandFromControl = 2,
    kHICommandFromWindow = 4
};

#pragma pack(push, 2)

// A command and where it came from. 14 bytes on a 32-bit host, 18 on a 64-bit one. The menu reference is
// not retained by the structure, nor by an event that carries it.
typedef struct HICommand
{
    UInt32 attributes;
    UInt32 commandID;
    struct
    {
        MenuRef menuRef;
        MenuItemIndex menuItemIndex;
    } menu;
} HICommand;

// The same with every possible source; may be read where an HICommand was stored, and the other way round.
typedef struct HICommandExtended
{
    UInt32 attributes;
    UInt32 commandID;
    union
    {
        ControlRef control;
        WindowRef window;
        struct
        {
            MenuRef menuRef;
            MenuItemIndex menuItemIndex;
        } menu;
    } source;
} HICommandExtended;

#pragma pack(pop)

// The targets that events are sent to. A null or disposed object has no target: the result is null, and
// sending to it or installing a handler on it answers paramErr. A target lives as long as its object, and
// its handlers go with it.

// The end of every chain: what no control, window or menu handled arrives here.
CARBON_EXPORT EventTargetRef GetApplicationEventTarget(void);

CARBON_EXPORT EventTargetRef GetWindowEventTarget(WindowRef inWindow);
CARBON_EXPORT EventTargetRef GetControlEventTarget(ControlRef inControl);
CARBON_EXPORT EventTargetRef GetMenuEventTarget(MenuRef inMenu);

// The target of the control that has the keyboard focus at the time of the call; without one, that of the
// window that has it; without one, the application's.
CARBON_EXPORT EventTargetRef GetUserFocusEventTarget(void);

// Sends each event on to where its class belongs; handlers on the dispatcher itself see it before. An
// event that carries kEventParamPostTarget goes to that target, with the send options of
// kEventParamPostOptions. Keyboard, text input and command events go to the user focus; mouse events to
// the window named in them; control, window and menu events to their direct object; everything else to
// the application. RunApplicationEventLoop uses it for every event it takes from the queue.
CARBON_EXPORT EventTargetRef GetEventDispatcherTarget(void);

// Sends kEventCommandProcess with the command as its direct object to the user focus. Result as of
// SendEventToEventTarget; paramErr without a command.
CARBON_EXPORT OSStatus ProcessHICommand(const HICommand* inCommand);

// Takes events from the main queue and sends them to the dispatcher until the application quits: the
// default handler of kEventAppQuit, present while the loop runs, ends it. So does the command
// kHICommandQuit when nobody else handles it, by the Apple event kAEQuitApplication. The program is told what
// it was started for before anything else, see AppleEvents.h. The end of the session (SIGTERM, SIGINT,
// SIGHUP, the desktop's wish) comes as that command; a second signal ends the process at once. A signal that
// is ignored, or that the program handles itself, stays what it is, and all are as before when this returns.
CARBON_EXPORT void RunApplicationEventLoop(void);

// Sends kEventAppQuit to the application target. A handler that returns noErr for it keeps the
// application running; when no application loop runs, nothing else happens.
CARBON_EXPORT void QuitApplicationEventLoop(void);

// Modal loops. A modal state keeps a person from every window but this one, what hangs from it and modal
// windows in front of it, for as long as it is shown, and from the menus of the bar. Of several states the
// newest counts. A window that is shown comes to the front of its layer and is activated. It is retained.
//
// windowAppModalStateAlreadyExistsErr when the window has one, windowNoAppModalStateErr when it has none.
CARBON_EXPORT OSStatus BeginAppModalStateForWindow(WindowRef inWindow);
CARBON_EXPORT OSStatus EndAppModalStateForWindow(WindowRef inWindow);

// Begins a modal state, takes events from the main queue and sends them to the dispatcher until
// QuitAppModalLoopForWindow was called for this window, or the window was disposed, and ends the state. Loops
// may be nested, each with a window of its own: a loop that is quit from an inner one ends after that.
//
// noErr; windowWrongStateErr at once when the window is hidden; eventLoopQuitErr when the application quits
// or somebody calls QuitEventLoop; eventLoopTimedOutErr when there is nothing that the loop could wait for.
CARBON_EXPORT OSStatus RunAppModalLoopForWindow(WindowRef inWindow);

// windowNoAppModalStateErr when no loop of this window runs.
CARBON_EXPORT OSStatus QuitAppModalLoopForWindow(WindowRef inWindow);

// The person's event (kEventAttributeUserEvent) that the dispatcher is working on, or null. What a program
// sends to other targets meanwhile does not become the current event. Not retained for the caller.
CARBON_EXPORT EventRef GetCurrentEvent(void);

// The modifier keys as of the last person's event that was dispatched, and as they are now.
CARBON_EXPORT UInt32 GetCurrentEventKeyModifiers(void);
CARBON_EXPORT UInt32 GetCurrentKeyModifiers(void);

// Shorthand: installing a handler on an object's target, and sending to it.
#define InstallApplicationEventHandler(inHandler, inCount, inList, inData, outHandler)                       \
    InstallEventHandler(GetApplicationEventTarget(), (inHandler), (inCount), (inList), (inData), (outHandler))
#define InstallWindowEventHandler(inWindow, inHandler, inCount, inList, inData, outHandler)                  \
    InstallEventHandler(GetWindowEventTarget(inWindow), (inHandler), (inCount), (inList), (inData),          \
                        (outHandler))
#define InstallControlEventHandler(inControl, inHandler, inCount, inList, inData, outHandler)                \
    InstallEventHandler(GetControlEventTarget(inControl), (inHandler), (inCount), (inList), (inData),        \
                        (outHandler))
#define InstallMenuEventHandler(inMenu, inHandler, inCount, inList, inData, outHandler)                      \
    InstallEventHandler(GetMenuEventTarget(inMenu), (inHandler), (inCount), (inList), (inData), (outHandler))

#define SendEventToApplication(inEvent) SendEventToEventTarget((inEvent), GetApplicationEventTarget())
#define SendEventToWindow(inEvent, inWindow) SendEventToEventTarget((inEvent), GetWindowEventTarget(inWindow))
#define SendEventToControl(inEvent, inControl)                                                               \
    SendEventToEventTarget((inEvent), GetControlEventTarget(inControl))
#define SendEventToMenu(inEvent, inMenu) SendEventToEventTarget((inEvent), GetMenuEventTarget(inMenu))
#define SendEventToUserFocus(inEvent) SendEventToEventTarget((inEvent), GetUserFocusEventTarget())

#endif
