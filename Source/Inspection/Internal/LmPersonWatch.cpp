// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmPersonWatch.h"

#include "LmJournalHook.h"

namespace {

const EventTypeSpec kActions[] = {
    {kEventClassMouse, kEventMouseDown},     {kEventClassMouse, kEventMouseUp},
    {kEventClassMouse, kEventMouseDragged},  {kEventClassMouse, kEventMouseWheelMoved},
    {kEventClassKeyboard, kEventRawKeyDown}, {kEventClassKeyboard, kEventRawKeyRepeat},
    {kEventClassKeyboard, kEventRawKeyUp},
};

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
}

LmPersonWatch::~LmPersonWatch()
{
    if (mHandler != nullptr) {
        RemoveEventHandler(mHandler);
    }
}
