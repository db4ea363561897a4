// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalRecorder_h
#define LmJournalRecorder_h

#include "LmCallers.h"
#include "LmJournalHook.h"
#include "LmJournalLine.h"
#include "LmJournalObjects.h"
#include "LmJournalOutput.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// Makes a line of each thing that happens, and keeps what the next lines need: the objects that have been
// named, and what each thread is in the midst of. Not part of the interface.
//
// Threads take turns. The lines of each have causes of that thread alone.
class LmJournalRecorder final : public LmJournalHook
{
public:
    struct Settings
    {
        std::size_t theLongestString;
        std::size_t theCallers;
    };

    LmJournalRecorder(const Settings& theSettings, std::unique_ptr<LmJournalOutput> theOutput);
    ~LmJournalRecorder() = default;

    LmJournalRecorder(const LmJournalRecorder&) = delete;
    LmJournalRecorder& operator=(const LmJournalRecorder&) = delete;

    // See LmJournalOutput; from the main loop now and then.
    bool Tend();

    std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept override;
    void Close(const void* theScope) noexcept override;

private:
    // An entry that is the cause of what happens until its scope ends.
    struct Frame
    {
        const void* theScope;
        std::uint64_t theNumber;
        const void* theGoneBase; // the base of an object that is gone then, or null
    };

    // A set between its two passes.
    struct Change
    {
        const void* theChange;
        std::uint64_t theNumber; // of the entry that announced it
        std::string theOldValue; // the field "was"
    };

    struct Thread
    {
        std::uint64_t theNumber; // 1 for the first
        std::vector<Frame> theFrames;
        std::vector<Change> theChanges;
    };

    // A base that was made, and is written of when more is known of its object.
    struct NewObject
    {
        const LmDebugObject* theBase;
        std::uint32_t theRole;
        std::uint64_t theTime;
        std::uint64_t theCause;
    };

    using Adder = void (LmJournalRecorder::*)(const LmJournalEntry& theEntry);
    struct Kind
    {
        const char* theName;
        Adder theAdder; // of what only this kind has
    };
    static const Kind& KindOf(LmJournalKind theKind);

    std::uint64_t WriteEntry(const LmJournalEntry& theEntry, const void* theScope);
    void Meet(const LmJournalEntry& theEntry);
    void NoteOwner(const LmJournalEntry& theEntry);
    void MeetObject(const LmDebugObject* theObject, bool withName);
    void NoteMade(const LmJournalEntry& theEntry);
    void WriteNewObjects();
    std::uint64_t WriteDestruction(const LmJournalEntry& theEntry, const void* theScope);
    void WriteNamed(const LmJournalObject& theObject);

    std::uint64_t BeginLine(const char* theWhat, std::uint64_t theTime, std::uint64_t theCause);
    std::uint64_t BeginLine(const char* theWhat);
    void WriteLine();
    void WriteBegin();
    std::uint64_t WriteEnd();
    void WriteLost();
    void RenewWhenFull();

    void FindCallers();
    void WriteModules();
    void AddCallers();

    void AddObject(const char* theField, const LmDebugObject* theObject);
    void AddKey(const char* theField, const LmString* theKey);
    void AddCurrentValue(const char* theField, const LmJournalEntry& theEntry);
    void AddTransform(const LmJournalEntry& theEntry);
    void AddLink(const LmJournalEntry& theEntry);

    void AddObservation(const LmJournalEntry& theEntry);
    void AddDependency(const LmJournalEntry& theEntry);
    void AddBind(const LmJournalEntry& theEntry);
    void AddUnbind(const LmJournalEntry& theEntry);
    void AddChanging(const LmJournalEntry& theEntry);
    void AddChanged(const LmJournalEntry& theEntry);
    void AddNoChange(const LmJournalEntry& theEntry);
    void AddTold(const LmJournalEntry& theEntry);
    void AddNotify(const LmJournalEntry& theEntry);
    void AddTransforming(const LmJournalEntry& theEntry);
    void AddUpdate(const LmJournalEntry& theEntry);
    void AddEvent(const LmJournalEntry& theEntry);
    void AddRead(const LmJournalEntry& theEntry);
    void AddWrite(const LmJournalEntry& theEntry);
    void AddFlush(const LmJournalEntry& theEntry);
    void AddDiagnostic(const LmJournalEntry& theEntry);
    void AddAction(const LmJournalEntry& theEntry);

    Thread& ThisThread();
    std::uint64_t CauseOf(const Thread& theThread) const;
    std::uint64_t Now() const;

    const Settings mSettings;
    const std::chrono::steady_clock::time_point mBeginning;
    std::recursive_mutex mMutex;
    const std::unique_ptr<LmJournalOutput> mOutput;
    LmJournalLine mLine;
    std::string mText; // of the line with its braces
    LmJournalObjects mObjects;
    LmCallers mCallers;
    std::deque<NewObject> mNewObjects;
    std::map<std::thread::id, Thread> mThreads;
    Thread* mThread = nullptr; // the one whose turn it is
    std::uint64_t mLastNumber = 0;
    std::uint64_t mFileNumber = 1;
    std::size_t mLongestLine = 0;
    bool mIsRenewing = false;
    std::uint64_t mLost = 0;    // since the last entry about that
    std::uint64_t mAllLost = 0; // all in all
    std::string mStarted;       // the time of day
};

#endif
