// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLiveRecord_h
#define LmLiveRecord_h

#include "LmJournalHook.h"
#include "LmJournalObjects.h"
#include "LmLiveSurvey.h"
#include "LmPersonWatch.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

// What has happened, as far as the inspector can be asked for it: the objects that are there, their keys and
// links, and the last changes with what led to them. Not part of the interface.
//
// It hears what a journal would, of the thread that it was made on. There is one hook in a process: another
// one that was there before is told of everything by this one.
class LmLiveRecord final : public LmJournalHook
{
public:
    // An entry in words. What led to it is kept as long as the entry itself.
    struct Line
    {
        LmSurveyedChange theChange;
        std::shared_ptr<const Line> theCause; // null where nothing led to it, or too much
        std::size_t theDepth = 0;             // how much led to it
        bool isCut = false;                   // too much did
        bool isListed = false;                // it is among the last changes, or was
    };
    using LinePointer = std::shared_ptr<const Line>;

    struct Object
    {
        const LmDebugObject* theBase = nullptr;
        std::map<std::string, LinePointer> theKeys; // each with its last move, or null
        bool isOwner = false;                       // an LmBindable, which its binding object stands for
    };

    LmLiveRecord();
    ~LmLiveRecord();
    LmLiveRecord(const LmLiveRecord&) = delete;
    LmLiveRecord& operator=(const LmLiveRecord&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept override;
    void Close(const void* theScope) noexcept override;

    // Makes this the hook again when a journal has begun or ended.
    void Renew();

    // Does theWork while the library reports nothing to anybody. Where memory runs out, it ends early.
    void DoQuietly(const std::function<void()>& theWork);

    // What happens in theWork is caused by this. Where memory runs out, it ends early.
    void DoBecauseOf(const std::string& theText, const std::function<void()>& theWork);

    // ---- What is known; inside of DoQuietly

    std::map<std::uint64_t, Object>& Objects() { return mKnown; }
    const LmJournalObject& Describe(const LmDebugObject& theObject);
    std::vector<LmSurveyedLink> Links() const;
    const std::deque<LinePointer>& Lines() const { return mLines; }
    std::uint64_t CountEntries() const { return mLastNumber; }

private:
    struct Frame
    {
        const void* theScope;
        const void* theGoneBase; // the base of an object that is gone then, or null
        LinePointer theLine;
        const void* theEvent; // of what a person did
    };
    struct Change
    {
        const void* theChange;
        std::string theOldValue;
    };
    // A dependency or an observation: its kind, the object and key where news arrive, and those that they
    // come from.
    using Link = std::tuple<LmLinkKind, std::uint64_t, std::string, std::uint64_t, std::string>;

    void Take(const LmJournalEntry& theEntry, const void* theScope);
    void TakeMade(const LmJournalEntry& theEntry);
    void TakeDestroyed(const LmJournalEntry& theEntry, const void* theScope);
    void TakeLink(const LmJournalEntry& theEntry, const LmDebugObject& theObject);
    void NoteOwner(const LmJournalEntry& theEntry);
    void NoteLink(const Link& theLink, bool isMade);
    void MeetNewObjects();
    std::uint64_t Meet(const LmDebugObject& theObject, bool withName);
    void MeetKey(std::uint64_t theObject, const LmString* theKey);
    void Forget(std::uint64_t theObject);
    void KeepLine(LinePointer theLine);
    void AddLine(const LmJournalEntry& theEntry, const void* theScope);
    void Open(const void* theScope, const void* theGoneBase, LinePointer theLine, const void* theEvent);

    std::string Say(const LmJournalEntry& theEntry);
    std::string SayChanged(const LmJournalEntry& theEntry);
    void NoteOldValue(const LmJournalEntry& theEntry);
    std::string KeyOf(const LmDebugObject* theObject, const LmString* theKey);
    std::string NameOf(const LmDebugObject* theObject);

    LmJournalHook* mNext = nullptr; // not owned
    const std::thread::id mThread;
    LmPersonWatch mPersonWatch;
    LmJournalObjects mObjects;
    std::map<std::uint64_t, Object> mKnown;
    std::vector<const LmDebugObject*> mNewObjects;
    std::map<const void*, LmSurveyedLink> mBindings; // by their records
    std::set<Link> mLinks;
    std::vector<Frame> mFrames;
    std::vector<Change> mChanges;
    std::deque<LinePointer> mLines;
    std::uint64_t mLastNumber = 0;
};

#endif
