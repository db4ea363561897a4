// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalObjects_h
#define LmJournalObjects_h

#include "LmDebugObject.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

class LmKeyValueObserver;
class LmKeyValueStore;

// The name of a class as it stands in the sources. Not part of the interface.
std::string LmClassName(const std::type_info& theType);

// What the journal knows of one store, observer or binding object. Not part of the interface.
struct LmJournalObject
{
    std::uint64_t theNumber = 0;             // 0 until it is written of
    std::string theClass;                    // the most derived one that was seen
    std::string theName;                     // see Documentation/Journal.md
    std::string theDebugInfo;                // what GetDebugInfo said last
    std::string theGivenName;                // from LmNameObject; empty for none
    std::string theJSON;                     // number, class and name as entries have them
    bool isDying = false;                    // its destructor has begun
    const LmDebugObject* theOwner = nullptr; // the LmBindable that it belongs to, or null; lives longer
    std::string theOwnersName;               // as it was when the name was made
    std::uint64_t theEnd = 0;                // the number of the entry that said so
    std::vector<const std::type_info*>
        theTypes; // all that were seen, since an object that dies goes back to them
};

// The objects that the journal knows, by the addresses of their bases. A binding object has two, that of the
// store and that of the observer. Not part of the interface.
class LmJournalObjects
{
public:
    // The object, which becomes known by this.
    LmJournalObject& Find(const LmDebugObject& theObject);

    // A base was made at that address: whatever was known there is gone.
    void Begin(const LmDebugObject& theBase);

    // The two bases of a binding object are one object.
    void Join(const LmKeyValueStore& theStore, const LmKeyValueObserver& theObserver);

    // theOwned is the binding object of an LmBindable, and is called as that is where it has no name of its
    // own.
    void SetOwner(const LmDebugObject& theOwned, const LmDebugObject& theOwner);

    // The base at that address is gone.
    void End(const void* theBase);

    // Looks class and name up again. True when they are others than they were.
    bool Refresh(LmJournalObject& theKnown, const LmDebugObject& theObject, bool withName);

    // The number of a transform, given once for as long as it is known.
    std::uint64_t NumberOfTransform(const void* theTransform);
    void ForgetTransform(const void* theTransform);

    // A binding's record, and its number: 0 when it was made before the journal began.
    std::uint64_t BeginRecord(const void* theRecord);
    std::uint64_t NumberOfRecord(const void* theRecord) const;
    void EndRecord(const void* theRecord);

private:
    bool HasRenamedOwner(const LmJournalObject& theKnown);
    void MakeName(LmJournalObject& theKnown, const LmDebugObject& theObject);

    std::map<const void*, std::shared_ptr<LmJournalObject>> mObjects;
    std::map<const void*, std::uint64_t> mTransforms;
    std::map<const void*, std::uint64_t> mRecords;
    std::uint64_t mLastNumber = 0;
    std::uint64_t mLastTransform = 0;
    std::uint64_t mLastRecord = 0;
};

#endif
