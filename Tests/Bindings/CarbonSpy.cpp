// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CarbonSpy.h"

#include "LmCodeText.h"

#include <dlfcn.h>
#include <map>

namespace {

Lines gWrites;
std::map<std::string, OSStatus> gFailures;
Rect gBounds;
Lines gEvents;
OSType gKindSignature = 0;

template <typename Function>
Function* FindReal(const char* theName)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, theName));
}

// What a spied call does: fails as the test asked, or calls the real function.
template <typename Result, typename... Parameters, typename... Arguments>
Result CallThrough(const char* theName, Result (*theReal)(Parameters...), Arguments... theArguments)
{
    if constexpr (std::is_void_v<Result>) {
        theReal(theArguments...);
    } else {
        const OSStatus theFailure = CarbonSpy::FailureOf(theName);
        return theFailure != noErr ? static_cast<Result>(theFailure) : theReal(theArguments...);
    }
}

} // namespace

void CarbonSpy::Reset()
{
    gWrites.clear();
    gFailures.clear();
    gKindSignature = 0;
}

Lines CarbonSpy::TakeWrites()
{
    Lines theWrites;
    theWrites.swap(gWrites);
    return theWrites;
}

void CarbonSpy::Fail(const std::string& theName, OSStatus theStatus)
{
    gFailures[theName] = theStatus;
}

void CarbonSpy::PretendKindsOf(OSType theSignature)
{
    gKindSignature = theSignature;
}

OSStatus CarbonSpy::FailureOf(const char* theName)
{
    const auto theFailure = gFailures.find(theName);
    return theFailure == gFailures.end() ? OSStatus{noErr} : theFailure->second;
}

void CarbonSpy::NoteWrite(const char* theName)
{
    gWrites.emplace_back(theName);
}

void CarbonSpy::NoteBounds(const Rect& theBounds)
{
    gBounds = theBounds;
}

Rect CarbonSpy::LastBounds()
{
    return gBounds;
}

void CarbonSpy::NoteEvents(const EventTypeSpec* theList, ItemCount theCount)
{
    gEvents.clear();
    for (ItemCount theIndex = 0; theIndex < theCount; ++theIndex) {
        gEvents.push_back(LmCodeText(theList[theIndex].eventClass).GetText() + std::string(" ") +
                          std::to_string(theList[theIndex].eventKind));
    }
}

Lines CarbonSpy::LastEvents()
{
    return gEvents;
}

#define SPY_ON(theResult, theName, theParameters, ...)                                                       \
    extern "C" __attribute__((visibility("default"))) theResult theName theParameters                        \
    {                                                                                                        \
        static const auto kReal = FindReal<theResult theParameters>(#theName);                               \
        return CallThrough(#theName, kReal, __VA_ARGS__);                                                    \
    }

#define SPY_ON_WRITE(theResult, theName, theParameters, ...)                                                 \
    extern "C" __attribute__((visibility("default"))) theResult theName theParameters                        \
    {                                                                                                        \
        static const auto kReal = FindReal<theResult theParameters>(#theName);                               \
        CarbonSpy::NoteWrite(#theName);                                                                      \
        return CallThrough(#theName, kReal, __VA_ARGS__);                                                    \
    }

SPY_ON_WRITE(void, SetControl32BitValue, (ControlRef theControl, SInt32 theValue), theControl, theValue)
SPY_ON_WRITE(void, SetControl32BitMinimum, (ControlRef theControl, SInt32 theValue), theControl, theValue)
SPY_ON_WRITE(void, SetControl32BitMaximum, (ControlRef theControl, SInt32 theValue), theControl, theValue)
SPY_ON_WRITE(OSStatus, EnableControl, (ControlRef theControl), theControl)
SPY_ON_WRITE(OSStatus, DisableControl, (ControlRef theControl), theControl)
extern "C" __attribute__((visibility("default"))) OSErr
SetControlVisibility(ControlRef theControl, Boolean theState, Boolean theDraw)
{
    static const auto kReal = FindReal<OSErr(ControlRef, Boolean, Boolean)>("SetControlVisibility");
    CarbonSpy::NoteWrite(theDraw ? "SetControlVisibility" : "SetControlVisibility without drawing");
    return CallThrough("SetControlVisibility", kReal, theControl, theState, theDraw);
}

SPY_ON_WRITE(OSStatus, SetControlTitleWithCFString, (ControlRef theControl, CFStringRef theTitle), theControl,
             theTitle)
SPY_ON_WRITE(OSErr, SetControlData,
             (ControlRef theControl, ControlPartCode thePart, ResType theTag, Size theSize,
              const void* theData),
             theControl, thePart, theTag, theSize, theData)

SPY_ON(OSErr, GetControlData,
       (ControlRef theControl, ControlPartCode thePart, ResType theTag, Size theSize, void* theData,
        Size* theActualSize),
       theControl, thePart, theTag, theSize, theData, theActualSize)
SPY_ON(OSStatus, CopyControlTitleAsCFString, (ControlRef theControl, CFStringRef* theTitle), theControl,
       theTitle)
extern "C" __attribute__((visibility("default"))) OSStatus GetControlKind(ControlRef theControl,
                                                                          ControlKind* theKind)
{
    static const auto kReal = FindReal<OSStatus(ControlRef, ControlKind*)>("GetControlKind");
    const OSStatus theStatus = CallThrough("GetControlKind", kReal, theControl, theKind);
    if (theStatus == noErr && gKindSignature != 0) {
        theKind->signature = gKindSignature;
    }
    return theStatus;
}

SPY_ON(OSErr, SetKeyboardFocus, (WindowRef theWindow, ControlRef theControl, ControlFocusPart thePart),
       theWindow, theControl, thePart)
SPY_ON(OSStatus, RemoveEventHandler, (EventHandlerRef theReference), theReference)
SPY_ON(OSStatus, GetEventParameter,
       (EventRef theEvent, EventParamName theName, EventParamType theType, EventParamType* theActualType,
        ByteCount theSize, ByteCount* theActualSize, void* theData),
       theEvent, theName, theType, theActualType, theSize, theActualSize, theData)

SPY_ON_WRITE(void, ShowWindow, (WindowRef theWindow), theWindow)
SPY_ON_WRITE(void, HideWindow, (WindowRef theWindow), theWindow)
SPY_ON_WRITE(OSStatus, CollapseWindow, (WindowRef theWindow, Boolean theState), theWindow, theState)
SPY_ON_WRITE(OSStatus, SetWindowTitleWithCFString, (WindowRef theWindow, CFStringRef theTitle), theWindow,
             theTitle)
SPY_ON(OSStatus, GetWindowBounds, (WindowRef theWindow, WindowRegionCode theRegion, Rect* theBounds),
       theWindow, theRegion, theBounds)
SPY_ON(OSStatus, CopyWindowTitleAsCFString, (WindowRef theWindow, CFStringRef* theTitle), theWindow, theTitle)

extern "C" __attribute__((visibility("default"))) OSStatus
SetWindowBounds(WindowRef theWindow, WindowRegionCode theRegion, const Rect* theBounds)
{
    static const auto kReal = FindReal<OSStatus(WindowRef, WindowRegionCode, const Rect*)>("SetWindowBounds");
    CarbonSpy::NoteWrite("SetWindowBounds");
    CarbonSpy::NoteBounds(*theBounds);
    return CallThrough("SetWindowBounds", kReal, theWindow, theRegion, theBounds);
}
SPY_ON_WRITE(OSStatus, SetMenuCommandMark, (MenuRef theMenu, MenuCommand theCommand, UniChar theMark),
             theMenu, theCommand, theMark)
SPY_ON_WRITE(void, EnableMenuCommand, (MenuRef theMenu, MenuCommand theCommand), theMenu, theCommand)
SPY_ON_WRITE(void, DisableMenuCommand, (MenuRef theMenu, MenuCommand theCommand), theMenu, theCommand)
SPY_ON_WRITE(OSStatus, SetMenuItemTextWithCFString,
             (MenuRef theMenu, MenuItemIndex theItem, CFStringRef theText), theMenu, theItem, theText)
SPY_ON(OSStatus, GetMenuCommandMark, (MenuRef theMenu, MenuCommand theCommand, UniChar* theMark), theMenu,
       theCommand, theMark)
SPY_ON(OSStatus, CopyMenuItemTextAsCFString, (MenuRef theMenu, MenuItemIndex theItem, CFStringRef* theText),
       theMenu, theItem, theText)

extern "C" __attribute__((visibility("default"))) OSStatus
InstallEventHandler(EventTargetRef theTarget, EventHandlerUPP theHandler, ItemCount theCount,
                    const EventTypeSpec* theList, void* theData, EventHandlerRef* theReference)
{
    using Function =
        OSStatus(EventTargetRef, EventHandlerUPP, ItemCount, const EventTypeSpec*, void*, EventHandlerRef*);
    static const auto kReal = FindReal<Function>("InstallEventHandler");
    CarbonSpy::NoteEvents(theList, theCount);
    return CallThrough("InstallEventHandler", kReal, theTarget, theHandler, theCount, theList, theData,
                       theReference);
}

extern "C" __attribute__((visibility("default"))) OSStatus
GetControlByID(WindowRef theWindow, const ControlID* theID, ControlRef* theControl)
{
    static const auto kReal = FindReal<OSStatus(WindowRef, const ControlID*, ControlRef*)>("GetControlByID");
    const OSStatus theStatus = kReal(theWindow, theID, theControl);
    const OSStatus theFailure = CarbonSpy::FailureOf("GetControlByID");
    return theFailure != noErr ? theFailure : theStatus;
}
