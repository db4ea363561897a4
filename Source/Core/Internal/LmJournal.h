// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournal_h
#define LmJournal_h

#include "LmDebugObject.h"
#include "LmJournalHook.h"

#include <cstdint>

// How the library tells the journal what happens. Not part of the interface.
//
// Whether there is a journal is said by the variable that says whether the trace log is on, so that a place
// that has a line of the trace asks once for both.
class LmJournal
{
public:
    // Whether anything is on, the trace log or the journal: what every place asks.
    static bool IsAnythingOn() { return LmDebugObject::mDebugLog != 0; }

    // Whether there is a journal; for those who know that something is on.
    static bool IsOn() { return (LmDebugObject::mDebugLog & kJournalBit) != 0; }

    // Whether this thread is inside the journal's own work, in which nothing is reported.
    static bool IsAtWork() { return sIsAtWork; }

    // Tells the hook; see there.
    static std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept;
    static void Close(const void* theScope) noexcept;

    // The same for an entry that has no more to it than this; when there is a journal.
    [[gnu::cold]] static void WriteAbout(LmJournalKind theKind, const LmDebugObject& theObject,
                                         std::uint32_t theCode, std::uint32_t theDetail,
                                         const void* theScope) noexcept;

    // Sets the hook, and whether there is a journal.
    static LmJournalHook* SetHook(LmJournalHook* theHook);

    // Begins the journal that the environment asks for.
    static void BeginFromEnvironment();

private:
    static constexpr std::uint32_t kJournalBit = 2;

    [[gnu::tls_model("initial-exec")]] static inline thread_local bool sIsAtWork = false;
};

// What LmNote does while something is on; a function of its own, so that what is noted stays short. The
// result is the number of the entry, 0 for none.
template <typename Make>
[[gnu::cold, gnu::noinline]] std::uint64_t LmWriteNote(const void* theScope, const Make& theMake) noexcept
{
    return LmJournal::IsOn() ? LmJournal::Write(theMake(), theScope) : 0;
}

// Writes the entry of the journal that theMake returns, when there is a journal. theMake needs no memory.
template <typename Make>
inline void LmNote(const Make& theMake)
{
    if (LmJournal::IsAnythingOn()) {
        LmWriteNote(nullptr, theMake);
    }
}

// The same; what happens while the object lives is caused by that entry, on every way out.
//
// Whether there is a journal is asked anew at the end. One that was begun in between was never told of this
// scope, and ignores it.
class [[nodiscard]] LmNoteScope
{
public:
    template <typename Make>
    explicit LmNoteScope(const Make& theMake)
    {
        if (LmJournal::IsAnythingOn()) {
            LmWriteNote(this, theMake);
        }
    }

    ~LmNoteScope()
    {
        if (LmJournal::IsAnythingOn()) {
            LmJournal::Close(this);
        }
    }

    LmNoteScope(const LmNoteScope&) = delete;
    LmNoteScope& operator=(const LmNoteScope&) = delete;
};

#endif
