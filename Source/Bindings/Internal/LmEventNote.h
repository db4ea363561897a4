// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmEventNote_h
#define LmEventNote_h

#include "LmJournal.h"
#include "LmKeyValueStore.h"

#include <Carbon/Carbon.h>

// Writes to the journal that a binding was told of an event. What happens while the object lives is caused by
// it; the binding may be destroyed meanwhile. Not part of the interface.
class [[nodiscard]] LmEventNote
{
public:
    LmEventNote(const LmKeyValueStore& theBinding, EventRef theEvent)
    {
        if (LmJournal::IsAnythingOn()) {
            LmJournal::WriteAbout(kJournalEvent, theBinding, GetEventClass(theEvent), GetEventKind(theEvent),
                                  this);
        }
    }
    ~LmEventNote()
    {
        if (LmJournal::IsAnythingOn()) {
            LmJournal::Close(this);
        }
    }

    LmEventNote(const LmEventNote&) = delete;
    LmEventNote& operator=(const LmEventNote&) = delete;
};

#endif
