// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The targets that belong to no object: the application, the dispatcher and the user focus.

#include "Base/Guarded.h"
#include "EventLoop.h"
#include "EventManager.h"
#include "EventTarget.h"
#include "OutgoingEvent.h"

#include <vector>

namespace Host {

namespace {

UserFocusFinder gUserFocusFinder = nullptr;
CommandKeyMatcher gCommandKeyMatcher = nullptr;

// --- The application --------------------------------------------------------------------------------

OSStatus HandleApplicationEvent(UInt32 theKind)
{
    return theKind == kEventAppQuit && EndApplicationLoop() ? OSStatus(noErr) : OSStatus(eventNotHandledErr);
}

OSStatus HandleCommandEvent(EventRef theEvent, UInt32 theKind)
{
    HICommand theCommand{};
    if (theKind != kEventCommandProcess || !IsApplicationLoopRunning() ||
        !ReadParameter(theEvent, kEventParamDirectObject, typeHICommand, &theCommand) ||
        theCommand.commandID != kHICommandQuit) {
        return eventNotHandledErr;
    }
    TheAppleEventCalls().theQuit();
    return noErr;
}

OSStatus HandleAppleEvent(EventRef theEvent)
{
    return IsApplicationLoopRunning() ? TheAppleEventCalls().theProcess(theEvent)
                                      : OSStatus(eventNotHandledErr);
}

// What a key types: the text that came with the event, else its single character.
std::vector<UniChar> TextOfKey(EventRef theEvent)
{
    ByteCount theSize = 0;
    std::vector<UniChar> theText;
    if (GetEventParameter(theEvent, kEventParamKeyUnicodes, typeUnicodeText, nullptr, 0, &theSize, nullptr) ==
        noErr) {
        theText.resize(theSize / sizeof(UniChar));
        GetEventParameter(theEvent, kEventParamKeyUnicodes, typeUnicodeText, nullptr,
                          theText.size() * sizeof(UniChar), nullptr, theText.data());
        return theText;
    }
    UInt8 theCharacter = 0;
    if (ReadParameter(theEvent, kEventParamKeyMacCharCodes, typeChar, &theCharacter) && theCharacter < 0x80) {
        theText.push_back(theCharacter);
    }
    return theText;
}

// Turns a key press that nobody handled into typed text, and sends that where the key was sent.
OSStatus HandleKeyboardEvent(EventRef theEvent, UInt32 theKind)
{
    UInt32 theModifiers = 0;
    ReadParameter(theEvent, kEventParamKeyModifiers, typeUInt32, &theModifiers);
    if ((theKind != kEventRawKeyDown && theKind != kEventRawKeyRepeat) || (theModifiers & cmdKey) != 0) {
        return eventNotHandledErr;
    }
    std::vector<UniChar> theText;
    Guarded([&] {
        theText = TextOfKey(theEvent);
        return noErr;
    });
    const OutgoingEvent theTextEvent(kEventClassTextInput, kEventTextInputUnicodeForKeyEvent);
    SetEventParameter(theTextEvent.Get(), kEventParamTextInputSendText, typeUnicodeText,
                      theText.size() * sizeof(UniChar), theText.data());
    SetEventParameter(theTextEvent.Get(), kEventParamTextInputSendKeyboardEvent, typeEventRef,
                      sizeof theEvent, &theEvent);
    return theTextEvent.SendTo(GetEventDispatcherTarget());
}

bool ConcernsApplication(OSType theClass)
{
    return theClass == kEventClassApplication || theClass == kEventClassCommand ||
           theClass == kEventClassKeyboard || theClass == kEventClassAppleEvent;
}

OSStatus HandleByApplication(EventRef theEvent)
{
    const UInt32 theKind = GetEventKind(theEvent);
    switch (GetEventClass(theEvent)) {
    case kEventClassApplication:
        return HandleApplicationEvent(theKind);
    case kEventClassCommand:
        return HandleCommandEvent(theEvent, theKind);
    case kEventClassKeyboard:
        return HandleKeyboardEvent(theEvent, theKind);
    case kEventClassAppleEvent:
        return HandleAppleEvent(theEvent);
    default:
        return eventNotHandledErr;
    }
}

// --- The dispatcher ---------------------------------------------------------------------------------

// The target of the object that a parameter of the event refers to; null when there is none.
template <class Reference>
EventTargetRef TargetNamedIn(EventRef theEvent, EventParamName theName, EventParamType theType,
                             EventTargetRef (*theFinder)(Reference))
{
    Reference theObject = nullptr;
    ReadParameter(theEvent, theName, theType, &theObject);
    return theFinder(theObject);
}

EventTargetRef NaturalTarget(EventRef theEvent)
{
    switch (GetEventClass(theEvent)) {
    case kEventClassKeyboard:
    case kEventClassTextInput:
    case kEventClassCommand:
        return GetUserFocusEventTarget();
    case kEventClassMouse:
        return TargetNamedIn(theEvent, kEventParamWindowRef, typeWindowRef, GetWindowEventTarget);
    case kEventClassWindow:
        return TargetNamedIn(theEvent, kEventParamDirectObject, typeWindowRef, GetWindowEventTarget);
    case kEventClassControl:
        return TargetNamedIn(theEvent, kEventParamDirectObject, typeControlRef, GetControlEventTarget);
    case kEventClassMenu:
        return TargetNamedIn(theEvent, kEventParamDirectObject, typeMenuRef, GetMenuEventTarget);
    default:
        return nullptr;
    }
}

bool IsCommandKeyTaken(EventRef theEvent)
{
    const UInt32 theKind = GetEventKind(theEvent);
    return gCommandKeyMatcher != nullptr && GetEventClass(theEvent) == kEventClassKeyboard &&
           (theKind == kEventRawKeyDown || theKind == kEventRawKeyRepeat) && gCommandKeyMatcher(theEvent);
}

OSStatus SendToPostTarget(EventRef theEvent, EventTargetRef theTarget)
{
    OptionBits theOptions = 0;
    ReadParameter(theEvent, kEventParamPostOptions, typeUInt32, &theOptions);
    return SendEventToEventTargetWithOptions(theEvent, theTarget, theOptions);
}

OSStatus DispatchByClass(EventRef theEvent)
{
    EventTargetRef thePostTarget = nullptr;
    if (ReadParameter(theEvent, kEventParamPostTarget, typeEventTargetRef, &thePostTarget)) {
        return SendToPostTarget(theEvent, thePostTarget);
    }
    if (IsCommandKeyTaken(theEvent)) {
        return noErr;
    }
    const EventTargetRef theTarget = NaturalTarget(theEvent);
    return SendEventToEventTarget(theEvent, theTarget == nullptr ? GetApplicationEventTarget() : theTarget);
}

// A target that lives as long as the program; null as long as there is no memory for it.
EventTargetRef MadeOnce(EventTargetRef* theTarget, OSStatus (*theDefault)(EventRef),
                        bool (*theConcerns)(OSType theClass))
{
    if (*theTarget == nullptr) {
        Guarded([&] {
            *theTarget = NewEventTarget({nullptr, theDefault, theConcerns});
            return noErr;
        });
    }
    return *theTarget;
}

} // namespace

void SetUserFocusFinder(UserFocusFinder theFinder)
{
    gUserFocusFinder = theFinder;
}

void SetCommandKeyMatcher(CommandKeyMatcher theMatcher)
{
    gCommandKeyMatcher = theMatcher;
}

OSStatus DispatchUserEvent(EventRef theEvent)
{
    return SendEventToEventTarget(theEvent, GetEventDispatcherTarget());
}

} // namespace Host

using namespace Host;

EventTargetRef GetApplicationEventTarget(void)
{
    static EventTargetRef sTarget = nullptr;
    return MadeOnce(&sTarget, HandleByApplication, ConcernsApplication);
}

EventTargetRef GetEventDispatcherTarget(void)
{
    static EventTargetRef sTarget = nullptr;
    return MadeOnce(&sTarget, DispatchByClass, nullptr);
}

EventTargetRef GetUserFocusEventTarget(void)
{
    const EventTargetRef theTarget = gUserFocusFinder == nullptr ? nullptr : gUserFocusFinder();
    return theTarget == nullptr ? GetApplicationEventTarget() : theTarget;
}

OSStatus ProcessHICommand(const HICommand* inCommand)
{
    if (inCommand == nullptr) {
        return paramErr;
    }
    OutgoingEvent theEvent(kEventClassCommand, kEventCommandProcess);
    theEvent.Set(kEventParamDirectObject, typeHICommand, *inCommand);
    return theEvent.SendTo(GetUserFocusEventTarget());
}
