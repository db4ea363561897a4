// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalHook_h
#define LmJournalHook_h

// Where all that the library does can be followed, and how an object gets a name there. For authors of tools;
// the recorder of Lm::Inspection, which writes journals, is the pattern. An application needs LmNameObject
// alone:
//
//     LmNameObject(theModel, "thermostat");
//
// A hook is told of each entry in the order in which things happen, and for most kinds also when that which
// the entry began has ended, so that what comes in between is known to be caused by it. There is one hook in
// the process, and none at first; then nothing of this costs more than the trace log does while it is off.
//
//     class Counter : public LmJournalHook
//     {
//     public:
//         std::uint64_t Write(const LmJournalEntry&, const void*) noexcept override { return ++mCount; }
//
//     private:
//         std::uint64_t mCount = 0;
//     };
//
// It is told of everything from LmSetJournalHook(&theCounter) on.
//
// What stands in a store is not handed on: a hook reads it with GetKeyValue, which for kJournalChanging is
// the value before and for the other kinds the one after.
//
// While a hook is at work the library neither traces nor reports anything, and tells the hook of nothing: it
// may ask objects for their GetDebugInfo and stores for their values. It must leave everything as it is.
//
// Documentation/Journal.md says what each kind of entry means.

#include "LmExport.h"

#include <cstdint>

class LmDebugObject;
class LmKeyValueBinding;
class LmKeyValueObserver;
class LmKeyValueStore;
class LmString;
class LmValue;
class LmValueTransform;

// What kind of entry it is. Their numbers are part of the interface: new kinds come at the end.
enum LmJournalKind : std::uint32_t
{
    kJournalMade = 1,
    kJournalNamed,
    kJournalDestroyed,
    kJournalObserve,
    kJournalUnobserve,
    kJournalDepend,
    kJournalUndepend,
    kJournalBind,
    kJournalUnbind,
    kJournalChanging,
    kJournalChanged,
    kJournalEqual,
    kJournalRefused,
    kJournalTold,
    kJournalNotify,
    kJournalTransform,
    kJournalUpdate,
    kJournalEvent,
    kJournalRead,
    kJournalWrite,
    kJournalFlush,
    kJournalDiagnostic,
    kJournalAction,
    kJournalEnd
};

// One entry. What a kind has no use for is null or 0. All of it is good for the time of the call.
struct LmJournalEntry
{
    LmJournalKind theKind;                    // what happened
    const LmDebugObject* theObject = nullptr; // whom it is about
    const LmString* theKey = nullptr;         // the key of theObject
    const LmDebugObject* theOther = nullptr;  // the observer, or the object that a value comes from
    const LmString* theOtherKey = nullptr;    // the key of theOther; of a dependency, the other key
    const LmValue* theInput = nullptr;        // what went into a transform
    const LmValue* theValue = nullptr;        // what is set, handed on, read, or came out of a transform
    const LmValueTransform* theTransform = nullptr; // of a binding
    const void* theRecord = nullptr;                // stands for the record of a binding while there is one
    const void* theChange = nullptr; // kJournalChanging, kJournalChanged: stands for the set while it goes on
    const void* theEvent = nullptr;  // kJournalAction: the EventRef
    std::uint32_t theCode = 0;       // kJournalEvent, kJournalAction: the event's class
    std::uint32_t theDetail = 0;     // see below
    const char* theFile = nullptr;   // kJournalDiagnostic
    const char* theText = nullptr;   // kJournalDiagnostic: the message; kJournalNamed: the name
};

// theDetail is
// - for kJournalMade an LmJournalRole,
// - for kJournalNotify 1 when the key has changed, 0 when it is about to,
// - for kJournalUpdate 1 when it is the first value of a new binding,
// - for kJournalEvent and kJournalAction the event's kind,
// - for kJournalFlush 1 when it succeeded,
// - for kJournalDiagnostic the line.

// What kind of object was made. A binding object's two bases are told of first, each as what it is.
enum LmJournalRole : std::uint32_t
{
    kJournalStore = 1,
    kJournalObserver,
    kJournalBinding
};

class LM_EXPORT LmJournalHook
{
public:
    // Something happens. When theScope is not null, what happens until Close is called with it is caused by
    // it; theScope is an address on the stack, which stands for it. The result is the entry's number, 0 for
    // none.
    virtual std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept = 0;

    // What an entry began has ended. The call may come for a scope that was never opened, when the hook was
    // set in between, and it may be missing. The default does nothing.
    virtual void Close(const void* theScope) noexcept;

protected:
    LmJournalHook() = default;
    ~LmJournalHook() = default;
    // A hook has nothing of its own that could not be copied.
    LmJournalHook(const LmJournalHook&) = default;
    // The same.
    LmJournalHook& operator=(const LmJournalHook&) = default;
};

// From now on theHook is told; null ends that. It is not owned. Returns the one before, or null.
LM_EXPORT LmJournalHook* LmSetJournalHook(LmJournalHook* theHook);

// Tells the hook, when there is one, of something that the library does not know of, as it tells it itself;
// see LmJournalHook.
LM_EXPORT void LmWriteJournalEntry(const LmJournalEntry& theEntry, const void* theScope);
LM_EXPORT void LmCloseJournalEntry(const void* theScope);

// Gives theObject, a store or an observer, a name in journals: where there is one, and until theObject is
// destroyed. Without a journal it does nothing.
LM_EXPORT void LmNameObject(const LmKeyValueStore& theObject, const LmString& theName);
LM_EXPORT void LmNameObject(const LmKeyValueObserver& theObject, const LmString& theName);
LM_EXPORT void LmNameObject(const LmKeyValueBinding& theObject, const LmString& theName);

#endif
