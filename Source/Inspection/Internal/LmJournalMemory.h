// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalMemory_h
#define LmJournalMemory_h

#include "LmJournalHook.h"
#include "LmString.h"

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <utility>

// What a journal that begins in the middle of a program could not know: the names that objects were given,
// and the bindings that there are. Kept where journals may be asked for at any time. Not part of the
// interface.
//
// It is the hook then, and hands on what it is told.
class LmJournalMemory final : public LmJournalHook
{
public:
    LmJournalMemory() = default;
    ~LmJournalMemory() = default;
    LmJournalMemory(const LmJournalMemory&) = delete;
    LmJournalMemory& operator=(const LmJournalMemory&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept override;
    void Close(const void* theScope) noexcept override;

    // From now on theHook is told as well, and at once of all that is known; null ends that.
    void SetNext(LmJournalHook* theHook);

private:
    struct Record
    {
        const LmDebugObject* theObject;
        LmString theKey;
        const LmDebugObject* theOther;
        LmString theOtherKey;
        const LmValueTransform* theTransform;
    };

    void Note(const LmJournalEntry& theEntry);
    void NoteBinding(const LmJournalEntry& theEntry);
    void ForgetRecord(const void* theNumber);
    void ForgetObject(const LmDebugObject* theObject);
    void TellAll();

    std::mutex mMutex;
    LmJournalHook* mNext = nullptr;
    bool mIsTelling = false; // what is known already
    std::map<const LmDebugObject*, std::string> mNames;
    std::map<const void*, Record> mRecords;
    std::set<std::pair<const LmDebugObject*, const void*>> mFollowers; // what each object is the source of
};

#endif
