// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueBinding.h"

#include "LmBindingIndex.h"
#include "LmDiagnostics.h"
#include "LmLifeNote.h"
#include "LmLifeWatch.h"
#include "LmNameComparison.h"
#include "LmRollback.h"
#include "LmTrace.h"
#include "LmValueTransform.h"

#include <Carbon/Carbon.h>
#include <cstddef>
#include <iterator>
#include <optional>

// A transform that is bound belongs to the record that names it. The record is the one holder the binding
// stands for: CreateBinding takes the caller's reference over by storing the record, and RemoveBinding gives
// it back. The transform may die in there, and with it whatever its destructor takes along, the other object
// included; nothing of it is touched afterwards.
//
// Passing a change on is what must be fast here. What is called once for a binding is cold, so that the
// compiler makes it small.

namespace {

// Holds a transform while it works, for it may do anything, removing the binding that it works for included.
class [[nodiscard]] TransformHold
{
public:
    explicit TransformHold(LmValueTransform& transform)
        : mTransform(transform)
    {
        mTransform.Retain();
    }
    ~TransformHold() { mTransform.Release(); }

    TransformHold(const TransformHold&) = delete;
    TransformHold& operator=(const TransformHold&) = delete;

private:
    LmValueTransform& mTransform;
};

// A record that is served: a key of a binding object takes its value from that key of that store.
struct Service
{
    LmKeyValueBinding& theBinding;
    const LmString& theKey;
    const LmKeyValueStore* theStore; // null once it is gone
    const LmString& theStoreKey;
    const void* theRecord; // stands for the record, which may be gone
};

LmJournalEntry MakeEntry(LmJournalKind theKind, const Service& theService)
{
    LmJournalEntry theEntry{theKind};
    theEntry.theObject = static_cast<const LmKeyValueStore*>(&theService.theBinding);
    theEntry.theKey = &theService.theKey;
    theEntry.theOther = theService.theStore;
    theEntry.theOtherKey = &theService.theStoreKey;
    theEntry.theRecord = theService.theRecord;
    return theEntry;
}

// An entry of the journal about a record of theBinding's.
LmJournalEntry MakeEntry(LmJournalKind theKind, const LmKeyValueBinding& theBinding, const LmString& bindKey,
                         const BindingInfo& theRecord)
{
    LmJournalEntry theEntry{theKind};
    theEntry.theObject = static_cast<const LmKeyValueStore*>(&theBinding);
    theEntry.theKey = &bindKey;
    theEntry.theOther = static_cast<const LmKeyValueStore*>(theRecord.boundTo);
    theEntry.theOtherKey = &theRecord.boundKey;
    theEntry.theTransform = theRecord.transform;
    theEntry.theRecord = &theRecord;
    return theEntry;
}

// Writes to the journal what a transform does. What its value leads to while this lives is caused by that.
class [[nodiscard]] TransformNote
{
public:
    // theStore is the one that the value comes from. The transform may destroy it.
    explicit TransformNote(const LmKeyValueStore& theStore)
        : mStore(theStore)
    {
        if (LmJournal::IsAnythingOn()) {
            mWatch.emplace(&theStore);
        }
    }
    ~TransformNote()
    {
        if (mWatch) {
            LmJournal::Close(this);
        }
    }

    TransformNote(const TransformNote&) = delete;
    TransformNote& operator=(const TransformNote&) = delete;

    // theService's object still lives, and so does transform.
    void Write(const Service& theService, const LmValueTransform& transform, const LmValue& theInput,
               const LmValue& theOutput) const
    {
        if (mWatch) {
            LmWriteNote(this, [&] {
                LmJournalEntry theEntry = MakeEntry(kJournalTransform, theService);
                theEntry.theOther = GetStore();
                theEntry.theTransform = &transform;
                theEntry.theInput = &theInput;
                theEntry.theValue = &theOutput;
                return theEntry;
            });
        }
    }

    // The store, null once it is gone. That is known only while something is on.
    const LmKeyValueStore* GetStore() const { return mWatch && mWatch->IsGone() ? nullptr : &mStore; }

private:
    const LmKeyValueStore& mStore;
    std::optional<LmLifeWatch> mWatch; // while something is on
};

// The value of a key as the transform hands it on. The store may be gone afterwards, and the object too,
// which theWatch is kept on.
[[gnu::noinline]] LmValue ReadThrough(const Service& theService, LmValueTransform& transform,
                                      const LmLifeWatch& theWatch, const TransformNote& theNote)
{
    const LmValue theInput = theService.theStore->GetKeyPathValue(theService.theStoreKey);
    const TransformHold theHold(transform);
    LmValue theOutput = transform.Apply(theInput);
    if (!theWatch.IsGone()) {
        theNote.Write(theService, transform, theInput, theOutput);
    }
    return theOutput;
}

void TraceUpdate(LmKeyValueBinding& theBinding, const LmString& theKey, const BindingInfo* /*theRecord*/,
                 const Service* /*theService*/, const LmValue& /*theValue*/)
{
    LmDebugObject().LogString("Updating %s.%s", theBinding.GetDebugInfo().GetUTF8(), theKey.GetUTF8());
}

void TraceUnbinding(const LmKeyValueBinding& theBinding, const LmString& bindKey,
                    const LmKeyValueBinding* boundTo, const BindingInfo& theRecord)
{
    LmDebugObject().LogString("Unbinding %s.%s from %s.%s", theBinding.GetDebugInfo().GetUTF8(),
                              bindKey.GetUTF8(), boundTo->GetDebugInfo().GetUTF8(),
                              theRecord.boundKey.GetUTF8());
}

void NoteUnbinding(const void* theScope, const LmKeyValueBinding& theBinding, const LmString& bindKey,
                   const LmKeyValueBinding* /*boundTo*/, const BindingInfo& theRecord)
{
    LmWriteNote(theScope, [&] { return MakeEntry(kJournalUnbind, theBinding, bindKey, theRecord); });
}

// Either theRecord, or theService where a transform may have removed the record.
void NoteUpdate(const void* theScope, LmKeyValueBinding& theBinding, const LmString& theKey,
                const BindingInfo* theRecord, const Service* theService, const LmValue& theValue)
{
    LmWriteNote(theScope, [&] {
        LmJournalEntry theEntry = theService != nullptr
                                      ? MakeEntry(kJournalUpdate, *theService)
                                      : MakeEntry(kJournalUpdate, theBinding, theKey, *theRecord);
        theEntry.theValue = &theValue;
        return theEntry;
    });
}

void SetUpdatedKey(LmKeyValueBinding& theBinding, const LmString& theKey, const BindingInfo* theRecord,
                   const Service* theService, const LmValue& theValue)
{
    const LmTraceIndent theIndent(&TraceUpdate, &NoteUpdate, theBinding, theKey, theRecord, theService,
                                  theValue);
    // On purpose: a value that is not valid is set like any other.
    theBinding.SetKeyPathValue(theKey, theValue);
}

// Sets a key of theBinding to what transform, the record's, makes of a key of theStore. A function of its
// own, so that a long chain without transforms takes less of the stack.
[[gnu::noinline]] void UpdateKeyThrough(LmValueTransform& transform, LmKeyValueBinding& theBinding,
                                        const LmBindingIndex::Hit& theHit, const LmKeyValueStore& theStore,
                                        const LmString& theStoreKey)
{
    // A copy: the transform may remove the binding, and the key with it. It may even destroy theBinding.
    const LmString theTarget = *theHit.theKey; // NOLINT(performance-unnecessary-copy-initialization)
    const LmLifeWatch theWatch(&theBinding);
    const TransformNote theNote(theStore);
    Service theService = {theBinding, theTarget, &theStore, theStoreKey, theHit.theRecord};
    const LmValue theValue = ReadThrough(theService, transform, theWatch, theNote);
    if (!theWatch.IsGone()) {
        theService.theStore = theNote.GetStore();
        SetUpdatedKey(theBinding, theTarget, nullptr, &theService, theValue);
    }
}

// Sets a key of theBinding to what the record's transform, if there is one, makes of a key of theStore.
void UpdateKey(LmKeyValueBinding& theBinding, const LmBindingIndex::Hit& theHit,
               const LmKeyValueStore& theStore, const LmString& theStoreKey)
{
    if (LmValueTransform* const transform = theHit.theRecord->transform) {
        UpdateKeyThrough(*transform, theBinding, theHit, theStore, theStoreKey);
        return;
    }
    SetUpdatedKey(theBinding, *theHit.theKey, theHit.theRecord, nullptr,
                  theStore.GetKeyPathValue(theStoreKey));
}

// On purpose: the first value runs from the other object to this one, in a two-way binding too.
[[gnu::cold, gnu::noinline]] void CopyFirstValue(const Service& theService, LmValueTransform* transform)
{
    const LmLifeWatch theWatch(&theService.theBinding);
    const TransformNote theNote(*theService.theStore);
    const LmValue theValue = transform != nullptr
                                 ? ReadThrough(theService, *transform, theWatch, theNote)
                                 : theService.theStore->GetKeyPathValue(theService.theStoreKey);
    if (theValue.IsValid() && !theWatch.IsGone()) {
        const LmNoteScope theScope([&] {
            LmJournalEntry theEntry = MakeEntry(kJournalUpdate, theService);
            theEntry.theOther = theNote.GetStore();
            theEntry.theValue = &theValue;
            theEntry.theDetail = 1;
            return theEntry;
        });
        theService.theBinding.SetKeyPathValue(theService.theKey, theValue);
    }
}

// What stands for the newest record of bindKey.
const void* NewestRecord(const LmBindingIndex::Map& theMap, const LmString& bindKey)
{
    return &theMap.find(bindKey)->second.back();
}

// Takes back the last record of bindKey, and its entry too where there were only so many keys before. The
// transform stays the caller's.
[[gnu::cold]] void Withdraw(const LmKeyValueBinding& theBinding, LmBindingIndex::Map& theMap,
                            const LmString& bindKey, std::size_t theKeysBefore)
{
    const auto theEntry = theMap.find(bindKey);
    LmNote([&] { return MakeEntry(kJournalUnbind, theBinding, bindKey, theEntry->second.back()); });
    LmBindingIndex::Records theWithdrawn;
    LmBindingIndex::Take(theMap, theEntry, std::prev(theEntry->second.end()), theWithdrawn);
    if (theMap.size() != theKeysBefore) {
        LmBindingIndex::EraseEntry(theMap, theEntry);
    }
}

// Lets theObserver observe a key, unless it does already. True when it did not.
bool ObserveOnce(LmKeyValueStore& theStore, const LmString& theKey, LmKeyValueObserver* theObserver)
{
    if (theStore.IsObserving(theKey, theObserver)) {
        return false;
    }
    theStore.ObserveKeyPathValue(theKey, theObserver);
    return true;
}

} // namespace

LmKeyValueBinding::LmKeyValueBinding()
{
    LmNoteMade(static_cast<const LmKeyValueStore&>(*this), kJournalBinding);
}

[[gnu::cold]] LmKeyValueBinding::~LmKeyValueBinding()
{
    const LmDestructionNote theNote(static_cast<const LmKeyValueStore&>(*this));
    UnbindAll();
}

[[gnu::cold]] LmString LmKeyValueBinding::GetDebugInfo() const
{
    return LmString("[LmKeyValueBinding ") + LmKeyValueStore::GetDebugInfo() + "]";
}

void LmKeyValueBinding::ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName)
{
    // On purpose: only the first record is served.
    const LmBindingIndex::Hit theHit = LmBindingIndex::FindFirst(mBindings, theStore, theKeyName);
    if (theHit.theRecord != nullptr) {
        UpdateKey(*this, theHit, *theStore, theKeyName);
    }
}

bool LmKeyValueBinding::IsBindable(const LmString& theKeyName)
{
    return theKeyName != kKeyAnyValue;
}

[[gnu::cold]] OSStatus LmKeyValueBinding::Bind(const LmString& bindKey, LmKeyValueBinding* boundTo,
                                               const LmString& boundKey, LmValueTransform* transform,
                                               LmValueTransform* reverseTransform)
{
    if (!IsBindable(bindKey) || !boundTo->IsBindable(boundKey)) {
        return paramErr;
    }
    return LM_CHECK_STATUS(CreateBinding(bindKey, true, boundTo, boundKey, transform, reverseTransform));
}

[[gnu::cold]] OSStatus LmKeyValueBinding::BindTo(const LmString& bindKey, LmKeyValueBinding* boundTo,
                                                 const LmString& boundKey, LmValueTransform* transform)
{
    // On purpose: bindKey need not be bindable, because nobody observes it through this binding.
    if (!boundTo->IsBindable(boundKey)) {
        return paramErr;
    }
    return LM_CHECK_STATUS(CreateBinding(bindKey, false, boundTo, boundKey, transform, nullptr));
}

OSStatus LmKeyValueBinding::Unbind(const LmString& boundKey, LmKeyValueBinding* boundTo)
{
    LM_ASSERT(boundKey.IsNotEmpty());
    const auto theEntry = mBindings.find(boundKey);
    if (theEntry == mBindings.end()) {
        return paramErr;
    }
    if (boundTo == nullptr) {
        BindingList& theRecords = theEntry->second;
        while (!theRecords.empty()) {
            RemoveBinding(theEntry, theRecords.begin(), theEntry->first, theRecords.front().boundTo);
        }
        LmBindingIndex::EraseEntry(mBindings, theEntry);
        return noErr;
    }
    const auto theRecord = LmBindingIndex::FindIn(mBindings, theEntry, boundTo);
    // On purpose: the entry stays, even when its list is empty now, and finding no record is no error.
    if (theRecord != theEntry->second.end()) {
        RemoveBinding(theEntry, theRecord, boundKey, boundTo);
    }
    return noErr;
}

[[gnu::cold]] void LmKeyValueBinding::UnbindAll()
{
    while (!mBindings.empty()) {
        // The key goes with its entry, which Unbind erases as the last thing it does.
        LM_CHECK_STATUS(Unbind(mBindings.begin()->first, nullptr));
    }
}

OSStatus LmKeyValueBinding::CreateBinding(const LmString& bindKey, bool twoWay, LmKeyValueBinding* boundTo,
                                          const LmString& boundKey, LmValueTransform* transform,
                                          LmValueTransform* reverseTransform)
{
    LM_ASSERT(bindKey.IsNotEmpty());
    LM_ASSERT(boundKey.IsNotEmpty());
    LM_ASSERT(boundTo != NULL);
    // All records and observations are made, or none when memory runs out.
    const std::size_t theKeys = mBindings.size();
    AddBinding(bindKey, {boundTo, boundKey, transform});
    LmRollback theRecord([&] { Withdraw(*this, mBindings, bindKey, theKeys); });

    const std::size_t theOtherKeys = boundTo->mBindings.size();
    if (twoWay) {
        boundTo->AddBinding(boundKey, {this, bindKey, reverseTransform});
    }
    LmRollback theMirrorRecord([&] {
        if (twoWay) {
            Withdraw(*boundTo, boundTo->mBindings, boundKey, theOtherKeys);
        }
    });

    const bool isNewlyObserved = twoWay && ObserveOnce(*this, bindKey, boundTo);
    LmRollback theObservation([&] {
        if (isNewlyObserved) {
            IgnoreKeyPathValue(bindKey, boundTo);
        }
    });
    ObserveOnce(*boundTo, boundKey, this);

    theObservation.Commit();
    theMirrorRecord.Commit();
    theRecord.Commit();
    const void* const theNewRecord = LmJournal::IsAnythingOn() ? NewestRecord(mBindings, bindKey) : nullptr;
    CopyFirstValue({*this, bindKey, boundTo, boundKey, theNewRecord}, transform);
    return noErr;
}

void LmKeyValueBinding::AddBinding(const LmString& bindKey, const BindingInfo& theInfo)
{
    LmTrace([&] {
        LmKeyValueStore::LogString("Binding %s.%s to %s.%s", GetDebugInfo().GetUTF8(), bindKey.GetUTF8(),
                                   theInfo.boundTo->GetDebugInfo().GetUTF8(), theInfo.boundKey.GetUTF8());
    });
    // On purpose: the same pair may be bound again, which makes a second record.
    LmBindingIndex::Append(mBindings, bindKey, theInfo);
    LmNote([&] { return MakeEntry(kJournalBind, *this, bindKey, mBindings.find(bindKey)->second.back()); });
}

void LmKeyValueBinding::RemoveBinding(BindingMap::iterator theEntry, BindingList::iterator theRecord,
                                      const LmString& bindKey, LmKeyValueBinding* boundTo)
{
    LM_ASSERT(boundTo != NULL);
    const LmTraceIndent theIndent(&TraceUnbinding, &NoteUnbinding, *this, bindKey, boundTo, *theRecord);
    // The record is out of everybody's reach from here on, and dies at the end: its key is still needed.
    BindingList theRemoved;
    LmBindingIndex::Take(mBindings, theEntry, theRecord, theRemoved);
    const LmLifeWatch theOtherSide(boundTo);
    if (theRecord->transform != nullptr) {
        theRecord->transform->Release();
    }
    if (theOtherSide.IsGone()) {
        // The transform was its owner. It has ended the observation and removed the mirror record itself.
        // Where there was no object in the first place, there is nothing to end either.
        return;
    }
    // On purpose: this ends the observation even where another record of this object needs it.
    boundTo->IgnoreKeyPathValue(theRecord->boundKey, this);
    // Removes the mirror record, which calls back here and finds nothing. On purpose: where there is no
    // mirror record, because the binding was one-way, the status is reported all the same.
    LM_CHECK_STATUS(boundTo->Unbind(theRecord->boundKey, this));
}
