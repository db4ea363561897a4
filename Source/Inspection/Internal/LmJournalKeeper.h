// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalKeeper_h
#define LmJournalKeeper_h

#include "LmJournalFile.h"
#include "LmJournalMemory.h"
#include "LmJournalOutput.h"
#include "LmJournalRecorder.h"
#include "LmPersonWatch.h"

#include <cstdint>
#include <memory>

// The journal of the process: there is one, or none. Its end is that of the program at the latest. Not part
// of the interface.
class LmJournalKeeper
{
public:
    // Who asked for it.
    enum class Origin : std::uint8_t
    {
        Program, // the program, or its environment
        Visitor  // somebody who connected to it
    };

    static LmJournalKeeper& Get();

    // Ends the journal that there is, and begins another one. Throws when there is no memory.
    void Begin(const LmJournalRecorder::Settings& theSettings, std::unique_ptr<LmJournalOutput> theOutput,
               Origin theOrigin);
    // The same, in a file. False when that cannot be written.
    bool BeginFile(const LmJournalSettings& theSettings, Origin theOrigin);
    void End();
    bool IsOn() const { return mJournal != nullptr; }
    bool IsOf(Origin theOrigin) const { return IsOn() && mOrigin == theOrigin; }

    // See LmJournalOutput. True when there is no journal.
    bool Tend();

    // Keeps what a journal that begins later has to know, or stops doing so.
    void Remember(bool isRemembered);

    LmJournalKeeper(const LmJournalKeeper&) = delete;
    LmJournalKeeper& operator=(const LmJournalKeeper&) = delete;

private:
    // The recorder is told as long as it lives.
    struct Journal
    {
        Journal(const LmJournalRecorder::Settings& theSettings, std::unique_ptr<LmJournalOutput> theOutput);

        LmJournalRecorder theRecorder;
        LmPersonWatch thePersonWatch;
    };

    LmJournalKeeper() = default;
    ~LmJournalKeeper();
    void Tell(LmJournalHook* theHook);

    std::unique_ptr<LmJournalMemory> mMemory;
    std::unique_ptr<Journal> mJournal;
    Origin mOrigin = Origin::Program;
};

#endif
