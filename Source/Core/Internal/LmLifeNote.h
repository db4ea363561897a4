// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLifeNote_h
#define LmLifeNote_h

#include "LmJournal.h"

// How stores, observers and binding objects tell the journal that they come and go. Not part of the
// interface.

// Stands in the constructor.
inline void LmNoteMade(const LmDebugObject& theObject, LmJournalRole theRole)
{
    if (LmJournal::IsAnythingOn()) {
        LmJournal::WriteAbout(kJournalMade, theObject, 0, theRole, nullptr);
    }
}

// Stands at the beginning of the destructor: what ends in there is caused by it.
class [[nodiscard]] LmDestructionNote
{
public:
    explicit LmDestructionNote(const LmDebugObject& theObject)
    {
        if (LmJournal::IsAnythingOn()) {
            LmJournal::WriteAbout(kJournalDestroyed, theObject, 0, 0, this);
        }
    }
    ~LmDestructionNote()
    {
        if (LmJournal::IsAnythingOn()) {
            LmJournal::Close(this);
        }
    }

    LmDestructionNote(const LmDestructionNote&) = delete;
    LmDestructionNote& operator=(const LmDestructionNote&) = delete;
};

#endif
