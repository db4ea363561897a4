// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalMemory.h"

#include <new>

void LmJournalMemory::NoteBinding(const LmJournalEntry& theEntry)
{
    ForgetRecord(theEntry.theRecord);
    mFollowers.emplace(theEntry.theOther, theEntry.theRecord);
    mRecords.emplace(theEntry.theRecord, Record{theEntry.theObject, *theEntry.theKey, theEntry.theOther,
                                                *theEntry.theOtherKey, theEntry.theTransform});
}

void LmJournalMemory::ForgetRecord(const void* theNumber)
{
    const auto theFound = mRecords.find(theNumber);
    if (theFound != mRecords.end()) {
        mFollowers.erase({theFound->second.theOther, theNumber});
        mRecords.erase(theFound);
    }
}

// A one-way binding may be left of what it follows, and nothing could be asked of that.
void LmJournalMemory::ForgetObject(const LmDebugObject* theObject)
{
    mNames.erase(theObject);
    for (auto theFollower = mFollowers.lower_bound({theObject, nullptr});
         theFollower != mFollowers.end() && theFollower->first == theObject;
         theFollower = mFollowers.erase(theFollower)) {
        mRecords.erase(theFollower->second);
    }
}

void LmJournalMemory::Note(const LmJournalEntry& theEntry)
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    switch (theEntry.theKind) {
    case kJournalNamed:
        mNames[theEntry.theObject] = theEntry.theText;
        break;
    case kJournalDestroyed:
        ForgetObject(theEntry.theObject);
        break;
    case kJournalBind:
        NoteBinding(theEntry);
        break;
    case kJournalUnbind:
        ForgetRecord(theEntry.theRecord);
        break;
    default:
        break;
    }
}

std::uint64_t LmJournalMemory::Write(const LmJournalEntry& theEntry, const void* theScope) noexcept
{
    try {
        if (!mIsTelling) {
            Note(theEntry);
        }
    } catch (const std::bad_alloc&) {
        // A journal that begins later does not know of it, and that is all.
        mIsTelling = false;
    }
    return mNext != nullptr ? mNext->Write(theEntry, theScope) : 0;
}

void LmJournalMemory::Close(const void* theScope) noexcept
{
    if (mNext != nullptr) {
        mNext->Close(theScope);
    }
}

void LmJournalMemory::SetNext(LmJournalHook* theHook)
{
    mNext = theHook;
    if (theHook != nullptr) {
        mIsTelling = true;
        TellAll();
        mIsTelling = false;
    }
}

// By the way that all entries come, so that the library is quiet meanwhile.
void LmJournalMemory::TellAll()
{
    for (const auto& [theObject, theName] : mNames) {
        LmJournalEntry theEntry{kJournalNamed};
        theEntry.theObject = theObject;
        theEntry.theText = theName.c_str();
        LmWriteJournalEntry(theEntry, nullptr);
    }
    for (const auto& [theNumber, theRecord] : mRecords) {
        LmJournalEntry theEntry{kJournalBind};
        theEntry.theObject = theRecord.theObject;
        theEntry.theKey = &theRecord.theKey;
        theEntry.theOther = theRecord.theOther;
        theEntry.theOtherKey = &theRecord.theOtherKey;
        theEntry.theTransform = theRecord.theTransform;
        theEntry.theRecord = theNumber;
        LmWriteJournalEntry(theEntry, nullptr);
    }
}
