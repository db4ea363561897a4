/* LmBindings - Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE. */

/* A small program in the style of the time: C of 1989, which is C++ as well. What it uses comes from the one header. */

#ifndef THE_HEADER
#define THE_HEADER <Carbon/Carbon.h>
#endif
#include THE_HEADER

#if !TARGET_API_MAC_CARBON || TARGET_API_MAC_OS8 || !PRAGMA_STRUCT_PACKPUSH
#error "The program is made for another system"
#endif
#if MAC_OS_X_VERSION_MAX_ALLOWED < MAC_OS_X_VERSION_10_4
#error "The headers are too old"
#endif

static const UInt32 kBigEndian = EndianU32_NtoB(0x01020304);
static const OSType kSignature = FOUR_CHAR_CODE('Lamp');

static pascal OSStatus HandleCommand(EventHandlerCallRef inCall, EventRef inEvent, void* inData)
{
    OSStatus theStatus = eventNotHandledErr;
    HICommand theCommand;
    CFStringRef theText = NULL;

    (void)inCall;
    (void)inData;
    require_noerr(GetEventParameter(inEvent, kEventParamDirectObject, typeHICommand, NULL, sizeof(theCommand), NULL,
                                    &theCommand),
                  CantGetCommand);
    require_quiet(theCommand.commandID == kHICommandAbout, CantGetCommand);
    theText = CFStringCreateWithFormat(kCFAllocatorDefault, NULL, CFSTR("%d"), 1);
    require_action(theText != NULL, CantMakeText, theStatus = memFullErr);
    SysBeep(30);
    CFRelease(theText);
    theStatus = noErr;

CantMakeText:
CantGetCommand:
    check(theStatus == noErr || inData == nil);
    return theStatus;
}

static pascal void Tick(EventLoopTimerRef inTimer, void* inData)
{
    Point thePlace;
    (void)inTimer;
    (void)inData;
    GetGlobalMouse(&thePlace);
    if (Button() && thePlace.h > 0 && TickCount() > 60) {
        verify_noerr(SetThemeCursor(kThemeWatchCursor));
    }
}

int main(void)
{
    static const EventTypeSpec kCommands[] = {{kEventClassCommand, kEventProcessCommand}};
    WindowPtr theWindow = NULL;
    ControlHandle theBox = NULL;
    SInt32 theVersion = 0;
    Str255 theName;
    Rect theBounds;
    Handle theHandle;
    FSSpec theFile;
    RgnHandle theRegion;
    GrafPtr thePort;
    double theRoot;
    char theLine[80];

    InitCursor();
    SetRect(&theBounds, 100, 100, 400, 300);
    verify_noerr(CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &theWindow));
    verify_noerr(InstallStandardEventHandler(GetWindowEventTarget(theWindow)));
    verify_noerr(InstallWindowEventHandler(theWindow, NewEventHandlerUPP(HandleCommand), GetEventTypeCount(kCommands),
                                           kCommands, NULL, NULL));
    verify_noerr(InstallEventLoopTimer(GetCurrentEventLoop(), 0, kEventDurationSecond, NewEventLoopTimerUPP(Tick),
                                       NULL, NULL));
    SetRect(&theBounds, 20, 20, 200, 40);
    verify_noerr(CreateCheckBoxControl(theWindow, &theBounds, CFSTR("Lamp"), kControlCheckboxUncheckedValue, true,
                                       &theBox));
    /* The C library comes with the header. */
    theRoot = sqrt(2.0);
    memset(&theFile, 0, sizeof(theFile));
    sprintf(theLine, "%g %d", theRoot, (int)strlen("text"));
    CopyCStringToPascal(theLine, theName);
    if (Gestalt(gestaltSystemVersion, &theVersion) == noErr && theVersion >= 0x1030 && isalpha('a')) {
        printf("%s %ld %d %d\n", theLine, (long)theVersion, (int)theFile.vRefNum, kBigEndian != 0 || kSignature != 0);
    }
    theHandle = NewHandleClear(sizeof(SInt32));
    HLock(theHandle);
    DisposeHandle(theHandle);
    theRegion = NewRgn();
    RectRgn(theRegion, &theBounds);
    DisposeRgn(theRegion);
    GetPort(&thePort);
    SetPortWindowPort(theWindow);
    SetPort(thePort);
    ShowWindow(theWindow);
    RunApplicationEventLoop();
    ExitToShell();
    return noErr;
}
