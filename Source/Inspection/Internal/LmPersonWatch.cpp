// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmPersonWatch.h"

#include "LmConveniences.h"
#include "LmJournalHook.h"

namespace {

const EventTypeSpec kActions[] = {
    {kEventClassMouse, kEventMouseDown},     {kEventClassMouse, kEventMouseUp},
    {kEventClassMouse, kEventMouseDragged},  {kEventClassMouse, kEventMouseWheelMoved},
    {kEventClassKeyboard, kEventRawKeyDown}, {kEventClassKeyboard, kEventRawKeyRepeat},
    {kEventClassKeyboard, kEventRawKeyUp},
};

// A choice, and what is done by the frames of windows, reach a program of the host as no event of mouse or
// keyboard.
const EventTypeSpec kOtherActions[] = {
    {kEventClassCommand, kEventCommandProcess},
    {kEventClassMenu, kEventMenuOpening},
    {kEventClassMenu, kEventMenuClosed},
    {kEventClassWindow, kEventWindowDragStarted},
    {kEventClassWindow, kEventWindowResizeStarted},
    {kEventClassWindow, kEventWindowActivated},
    {kEventClassWindow, kEventWindowClose},
    {kEventClassWindow, kEventWindowZoom},
    {kEventClassWindow, kEventWindowCollapse},
    {kEventClassWindow, kEventWindowExpand},
    {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent},
    {kEventClassApplication, kEventAppQuit},
};

// Where the host tells of these; null on a system that has no need to.
EventTargetRef FindOtherActions()
{
    const CFBundleRef theProgram = CFBundleGetMainBundle();
    void* const theFunction =
        theProgram != nullptr
            ? CFBundleGetFunctionPointerForName(theProgram, CFSTR("HostGetPersonActionTarget"))
            : nullptr;
    return theFunction != nullptr ? reinterpret_cast<EventTargetRef (*)()>(theFunction)() : nullptr;
}

template <typename Object>
bool ReadDirectObject(EventRef theEvent, EventParamType theType, Object& theObject)
{
    return GetEventParameter(theEvent, kEventParamDirectObject, theType, nullptr, sizeof theObject, nullptr,
                             &theObject) == noErr;
}

OSStatus NoteAction(EventHandlerCallRef theNext, EventRef theEvent, void* /*userData*/)
{
    LmJournalEntry theEntry{kJournalAction};
    theEntry.theEvent = theEvent;
    theEntry.theCode = GetEventClass(theEvent);
    theEntry.theDetail = GetEventKind(theEvent);
    LmWriteJournalEntry(theEntry, &theEntry);
    const OSStatus theStatus = CallNextEventHandler(theNext, theEvent);
    LmCloseJournalEntry(&theEntry);
    return theStatus;
}

} // namespace

LmPersonWatch::LmPersonWatch()
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(NoteAction);
    // Where that fails, there are no entries of this kind.
    InstallEventHandler(GetEventDispatcherTarget(), kHandler, GetEventTypeCount(kActions), kActions, nullptr,
                        &mHandler);
    const EventTargetRef theOthers = FindOtherActions();
    if (theOthers != nullptr) {
        InstallEventHandler(theOthers, kHandler, GetEventTypeCount(kOtherActions), kOtherActions, nullptr,
                            &mOtherHandler);
    }
}

LmPersonWatch::~LmPersonWatch()
{
    for (const EventHandlerRef theHandler : {mHandler, mOtherHandler}) {
        if (theHandler != nullptr) {
            RemoveEventHandler(theHandler);
        }
    }
}

std::string LmTitleOfAction(EventRef theAction)
{
    CFStringRef theTitle = nullptr;
    HICommand theCommand{};
    WindowRef theWindow = nullptr;
    MenuRef theMenu = nullptr;
    if (ReadDirectObject(theAction, typeHICommand, theCommand)) {
        CopyMenuItemTextAsCFString(theCommand.menu.menuRef, theCommand.menu.menuItemIndex, &theTitle);
    } else if (ReadDirectObject(theAction, typeWindowRef, theWindow)) {
        CopyWindowTitleAsCFString(theWindow, &theTitle);
    } else if (ReadDirectObject(theAction, typeMenuRef, theMenu)) {
        CopyMenuTitleAsCFString(theMenu, &theTitle);
    }
    if (theTitle == nullptr) {
        return {};
    }
    LmValue theValue;
    theValue.SetString(theTitle, true);
    return LmGetStdString(theValue);
}
