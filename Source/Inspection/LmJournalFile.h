// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalFile_h
#define LmJournalFile_h

// Writes a journal of all that happens to the keys of a program: who set what, from which value to which, and
// what that led to. For the question why a value moved, or why it did not.
//
//     LmJournalSettings theSettings;
//     theSettings.theFile = "/tmp/thermostat.journal";
//     if (LmBeginJournal(theSettings)) {
//         RunApplicationEventLoop();
//         LmEndJournal();
//     }
//
// A program need not call this: with this library loaded, LM_JOURNAL=<file> in the environment does the
// same as soon as the program uses the first store. Documentation/Journal.md describes the file, line by
// line, and the variables.
//
// Main thread only. Nothing is thrown. An entry for which there is no memory, or no room on the disk, is lost
// and counted, and nothing else.

#include "LmExport.h"

#include <cstddef>
#include <cstdint>

struct LmJournalSettings
{
    // The file, which is overwritten; "-" is the standard output stream. Copied. Not null.
    const char* theFile = nullptr;

    // How large the file may become, in bytes; then it is renamed, with ".1" behind its name, and a new one
    // begins. 0 is no limit.
    std::uint64_t theLimit = std::uint64_t{1} << 30;

    // How many bytes of a string are kept; at least 16.
    std::size_t theLongestString = 1000;

    // How many callers of each call are kept, at most 64. Eight of them make an entry cost
    // about four times as much.
    std::size_t theCallers = 0;
};

// Begins a journal; one that is being written ends. False, with a diagnostic, when the file cannot be
// written.
//
// Diagnostics: "The journal %s cannot be written".
LM_EXPORT bool LmBeginJournal(const LmJournalSettings& theSettings);

// Ends the journal, if there is one. The end of the program does so too.
LM_EXPORT void LmEndJournal();

// Whether lminspect may ask for a journal while the program runs: `lminspect attach`. False at first, so that
// nobody meets it by accident. It comes by a socket in the user's runtime directory, which only this user can
// open; LM_JOURNAL_SOCKET=1 in the environment does the same as true.
//
// It is heard by a timer of the main event loop, ten times a second, so a program that runs none is not
// reached. From the call on the names that objects are given and the bindings that are made are kept for a
// journal that begins later. False allows it no longer; a journal that was asked for goes on.
//
// Returns whether it is as asked for. Diagnostics: "No socket for lminspect: %s".
LM_EXPORT bool LmAllowAttaching(bool isAllowed);

// Begins the journal that LM_JOURNAL and its companions in the environment ask for; called by the library
// when its first store is made. Does nothing when there is a journal already.
//
// Diagnostics: those of LmBeginJournal, and "%s: %s is no number" for a variable that is none.
extern "C" LM_EXPORT void LmBeginJournalFromEnvironment();

#endif
