// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueStore.h"

#include "LmDiagnostics.h"
#include "LmKeyMemo.h"
#include "LmKeyValueObserver.h"
#include "LmLifeNote.h"
#include "LmLifeWatch.h"
#include "LmLongList.h"
#include "LmNameComparison.h"
#include "LmObserverSnapshot.h"
#include "LmRollback.h"
#include "LmThreadCheck.h"
#include "LmTrace.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <utility>
#include <vector>

namespace {

struct CompareObservers
{
    int operator()(const LmKeyValueObserver* theLeft, const LmKeyValueObserver* theRight) const
    {
        if (theLeft == theRight) {
            return 0;
        }
        return std::less<>()(theLeft, theRight) ? -1 : 1;
    }
};

using Observers = LmLongList<LmKeyValueObserver*, CompareObservers>;
using ObserverList = Observers::List;
using KeyStates = std::map<LmString, LmKeyState>;
using Values = std::map<LmString, LmValue>;

// The value of a key of theStore, or null. While the key is set, it is looked up once.
const LmValue* FindValue(const Values& theValues, const LmKeyValueStore* theStore, const LmString& theKeyName)
{
    LmKeyMemo* theMemo = LmKeyMemo::Of(theStore, theKeyName);
    return theMemo != nullptr ? theMemo->mValue.In(theValues, theKeyName) : LmFind(theValues, theKeyName);
}

// Stores the value of a key that has none yet.
[[gnu::cold, gnu::noinline]] void AddValue(Values& theValues, const LmString& theKeyName,
                                           const LmValue& theValue)
{
    theValues[theKeyName] = theValue;
}

// The state of "*", or null. There is at least one state.
const LmKeyState* FindAnyState(const KeyStates& theStates)
{
    // Few names sort before "*", so it stands first, or it is not there and a letter stands first.
    const auto& theFirst = *theStates.begin();
    if (theFirst.first == kKeyAnyValue) {
        return &theFirst.second;
    }
    return theFirst.first.GetUTF8()[0] > *kKeyAnyValue ? nullptr : LmFind(theStates, kKeyAnyValue);
}

// Why observers are told: a set is about to store a value, or has stored it; or somebody else wants it.
enum Telling : unsigned
{
    kAboutToSet = 0,
    kHasSet = 1,
    kAboutToChange = 2,
    kHasChanged = 3
};

bool HasChanged(Telling theTelling)
{
    return (theTelling & 1U) != 0;
}

void Tell(LmKeyValueObserver& theObserver, const LmKeyValueStore& theStore, const LmString& theKeyName,
          Telling theTelling)
{
    if (HasChanged(theTelling)) {
        theObserver.ValueChanged(&theStore, theKeyName);
    } else {
        theObserver.ValueChanging(&theStore, theKeyName);
    }
}

// Tells the observers of a key and, if there are any, those of all keys.
[[gnu::noinline]] void TellSeveral(const ObserverList& theKeyObservers, const ObserverList* theAnyObservers,
                                   const LmKeyValueStore& theStore, const LmString& theKeyName,
                                   Telling theTelling)
{
    const LmObserverSnapshot theObservers(theStore, theKeyObservers, theAnyObservers);
    for (LmKeyValueObserver* theObserver : theObservers) {
        if (theObserver != nullptr) {
            Tell(*theObserver, theStore, theKeyName, theTelling);
        }
        if (theObservers.IsStoreGone()) {
            return;
        }
    }
}

// Writes to the trace that observers are told.
void TraceChange(LmKeyValueStore& theStore, const LmString& theKeyName, Telling theTelling)
{
    // Both words are eight characters, so that the lines of the trace line up.
    theStore.LogString("%s %s.%s", HasChanged(theTelling) ? "changed " : "changing",
                       theStore.GetDebugInfo().GetUTF8(), theKeyName.GetUTF8());
}

// The key whose dependent is about to be told, until it is: for the journal.
const LmString* sWatchedKey = nullptr;

class [[nodiscard]] WatchedKeyScope
{
public:
    explicit WatchedKeyScope(const LmString& theWatchedKey) { sWatchedKey = &theWatchedKey; }
    ~WatchedKeyScope() { sWatchedKey = nullptr; }

    WatchedKeyScope(const WatchedKeyScope&) = delete;
    WatchedKeyScope& operator=(const WatchedKeyScope&) = delete;
};

LmJournalEntry MakeEntry(LmJournalKind theKind, const LmKeyValueStore& theStore, const LmString& theKeyName)
{
    LmJournalEntry theEntry{theKind};
    theEntry.theObject = &theStore;
    theEntry.theKey = &theKeyName;
    return theEntry;
}

// Writes to the journal that observers are told.
void NoteTelling(const void* theScope, LmKeyValueStore& theStore, const LmString& theKeyName,
                 Telling theTelling)
{
    LmWriteNote(theScope, [&] {
        static const LmJournalKind kKinds[] = {kJournalChanging, kJournalChanged, kJournalNotify,
                                               kJournalNotify};
        LmJournalEntry theEntry = MakeEntry(kKinds[theTelling], theStore, theKeyName);
        const LmString* const theWatchedKey = std::exchange(sWatchedKey, nullptr);
        const LmKeyMemo* const theMemo = LmKeyMemo::Of(&theStore, theKeyName);
        if (theMemo != nullptr && theTelling <= kHasSet) {
            theEntry.theChange = theMemo;
            theEntry.theValue = theTelling == kAboutToSet ? &theMemo->GetNewValue() : nullptr;
        } else if (theWatchedKey != nullptr) {
            theEntry.theKind = kJournalTold;
            theEntry.theOtherKey = theWatchedKey;
        }
        theEntry.theDetail = HasChanged(theTelling) ? 1 : 0;
        return theEntry;
    });
}

// Writes to the journal that a set changes nothing.
void NoteNoChange(LmJournalKind theKind, const LmKeyValueStore& theStore, const LmString& theKeyName,
                  const LmValue& theValue)
{
    LmNote([&] {
        LmJournalEntry theEntry = MakeEntry(theKind, theStore, theKeyName);
        theEntry.theValue = &theValue;
        return theEntry;
    });
}

// Writes to the journal that a dependency is made or broken.
void NoteDependency(LmJournalKind theKind, const LmKeyValueStore& theStore, const LmString& theWatchedKey,
                    const LmString& theDependentKey)
{
    LmNote([&] {
        LmJournalEntry theEntry = MakeEntry(theKind, theStore, theWatchedKey);
        theEntry.theOtherKey = &theDependentKey;
        return theEntry;
    });
}

// Writes that an observation begins or ends, to the trace and to the journal. For those who know that
// something is on.
[[gnu::cold, gnu::noinline]] void WriteWatching(LmKeyValueStore& theStore, const LmString& theKeyPath,
                                                const LmKeyValueObserver* theObserver, LmJournalKind theKind)
{
    LmWriteTraceAndNote(
        [&] {
            theStore.LogString("Observer %s %s watching Key '%s' in Store %s",
                               theObserver->GetDebugInfo().GetUTF8(),
                               theKind == kJournalObserve ? "started" : "stopped", theKeyPath.GetUTF8(),
                               theStore.GetDebugInfo().GetUTF8());
        },
        [&] {
            LmJournalEntry theEntry = MakeEntry(theKind, theStore, theKeyPath);
            theEntry.theOther = theObserver;
            return theEntry;
        });
}

void TraceWatching(LmKeyValueStore& theStore, const LmString& theKeyPath,
                   const LmKeyValueObserver* theObserver, LmJournalKind theKind)
{
    if (LmJournal::IsAnythingOn()) {
        WriteWatching(theStore, theKeyPath, theObserver, theKind);
    }
}

// Tells all who observe a key, which has theState among theStates.
[[gnu::noinline]] void TellAll(const KeyStates& theStates, const LmKeyState& theState,
                               LmKeyValueStore& theStore, const LmString& theKeyName, Telling theTelling)
{
    const LmTraceIndent theIndent(&TraceChange, &NoteTelling, theStore, theKeyName, theTelling);
    const LmKeyState* theAnyState = FindAnyState(theStates);
    if (theAnyState == nullptr && theState.theObservers.size() == 1) {
        // The usual case. Nothing is looked at afterwards, so the observer may change the list or destroy
        // anything.
        Tell(*theState.theObservers.front(), theStore, theKeyName, theTelling);
    } else {
        TellSeveral(theState.theObservers, theAnyState != nullptr ? &theAnyState->theObservers : nullptr,
                    theStore, theKeyName, theTelling);
    }
}

// The same for a key that need not have a state.
void TellObservers(const KeyStates& theStates, const LmKeyState* theState, LmKeyValueStore& theStore,
                   const LmString& theKeyName, Telling theTelling)
{
    if (theState != nullptr) {
        TellAll(theStates, *theState, theStore, theKeyName, theTelling);
    } else {
        // On purpose: a key without a key state is silent even to the observers of "*".
        const LmTraceIndent theIndent(&TraceChange, &NoteTelling, theStore, theKeyName, theTelling);
    }
}

// Tells the observers of the keys that depend on a key.
[[gnu::cold, gnu::noinline]] void TellDependents(const LmKeyState& theState, LmKeyValueStore& theStore,
                                                 const LmString& theWatchedKey)
{
    // A copy: observers may make and break dependencies of this key.
    const std::vector<LmString> theDependents(theState.theDependents.begin(), theState.theDependents.end());
    const LmLifeWatch theWatch(&theStore);
    // On purpose: told afterwards only, and one level deep. The dependents of a dependent key are not told,
    // so a cycle ends here.
    for (const LmString& theDependent : theDependents) {
        const WatchedKeyScope theScope(theWatchedKey);
        theStore.NotifyObservers(theDependent, true);
        if (theWatch.IsGone()) {
            return;
        }
    }
}

void TellDependentsOf(const LmKeyState* theState, LmKeyValueStore& theStore, const LmString& theWatchedKey)
{
    if (theState != nullptr && !theState->theDependents.empty()) {
        TellDependents(*theState, theStore, theWatchedKey);
    }
}

} // namespace

// Setting a key is what must be fast here. What is called once for an observer or a dependency is cold, so
// that the compiler makes it small.

LmKeyValueStore::LmKeyValueStore()
{
    LmThreadCheck::Check();
    LmNoteMade(*this, kJournalStore);
}

[[gnu::cold]] LmKeyValueStore::~LmKeyValueStore()
{
    const LmDestructionNote theNote(*this);
    LmLifeWatch::StoreIsGone(this);
    LmKeyMemo::StoreIsGone(this);
    LmObserverSnapshot::StoreIsGone(this);
    RemoveObservers();
}

LmValue LmKeyValueStore::GetKeyValue(const LmString& theKeyName) const
{
    LM_ASSERT(theKeyName.IsNotEmpty());
    LM_ASSERT(theKeyName != kKeyAnyValue);
    const LmValue* theValue = FindValue(mValues, this, theKeyName);
    return theValue != nullptr ? *theValue : LmValue();
}

void LmKeyValueStore::SetKeyValue(const LmString& theKeyName, const LmValue& theValue)
{
    LM_ASSERT(theKeyName.IsNotEmpty());
    LM_ASSERT(theKeyName != kKeyAnyValue);
    if (const LmValue* theEntry = FindValue(mValues, this, theKeyName)) {
        const_cast<LmValue&>(*theEntry) = theValue; // an entry of this store, which is not constant here
    } else {
        AddValue(mValues, theKeyName, theValue);
    }
}

LmValue LmKeyValueStore::GetKeyPathValue(const LmString& theKeyPath) const
{
    LM_ASSERT(theKeyPath.IsNotEmpty());
    const LmString& theKeyName = theKeyPath;
    LM_ASSERT(theKeyName != kKeyAnyValue);
    return GetKeyValue(theKeyName);
}

void LmKeyValueStore::SetKeyPathValue(const LmString& theKeyPath, const LmValue& theValue)
{
    LmThreadCheck::Check();
    LM_ASSERT(theKeyPath.IsNotEmpty());
    // A copy: an observer may be what keeps the caller's string alive, and let go of it.
    const LmString theKeyName = theKeyPath; // NOLINT(performance-unnecessary-copy-initialization)
    LM_ASSERT(theKeyName != kKeyAnyValue);
    const LmKeyMemo theMemo(this, theKeyName, theValue);
    if (theValue == GetKeyValue(theKeyName)) {
        NoteNoChange(kJournalEqual, *this, theKeyName, theValue);
        return;
    }
    const LmChangeDepth theDepth;
    if (theDepth.IsWorthAsking() && theMemo.IsTooDeep()) {
        NoteNoChange(kJournalRefused, *this, theKeyName, theValue);
        return;
    }
    LmFound<LmKeyState> theState;
    TellObservers(mKeyStates, theState.In(mKeyStates, theKeyName), *this, theKeyName, kAboutToSet);
    if (!theMemo.IsGone()) {
        SetKeyValue(theKeyName, theValue);
    }
    if (!theMemo.IsGone()) {
        TellObservers(mKeyStates, theState.In(mKeyStates, theKeyName), *this, theKeyName, kHasSet);
    }
    if (!theMemo.IsGone()) {
        LM_ASSERT(HasKey(theKeyName));
        TellDependentsOf(theState.In(mKeyStates, theKeyName), *this, theKeyName);
    }
}

bool LmKeyValueStore::HasKey(const LmString& theKeyName)
{
    LM_ASSERT(theKeyName.IsNotEmpty());
    return theKeyName == kKeyAnyValue || GetKeyValue(theKeyName).IsValid();
}

void LmKeyValueStore::ObserveKeyPathValue(const LmString& theKeyPath, LmKeyValueObserver* theObserver)
{
    LmThreadCheck::Check();
    // On purpose: who registers twice is reported, registered twice and told twice.
    LM_ASSERT(!IsObserving(theKeyPath, theObserver));
    TraceWatching(*this, theKeyPath, theObserver, kJournalObserve);
    const auto theInsertion = mKeyStates.try_emplace(theKeyPath);
    ObserverList& theObservers = theInsertion.first->second.theObservers;
    LmRollback theNewState([&] {
        if (theInsertion.second) {
            mKeyStates.erase(theInsertion.first);
        }
    });
    Observers::Append(theObservers, theObserver);
    LmRollback theRegistration([&] { Observers::RemoveLast(theObservers); });
    theObserver->StartedObserving(this, theKeyPath);
    theRegistration.Commit();
    theNewState.Commit();
}

void LmKeyValueStore::IgnoreKeyPathValue(const LmString& theKeyPath, LmKeyValueObserver* theObserver)
{
    LmThreadCheck::Check();
    LM_ASSERT(IsObserving(theKeyPath, theObserver));
    TraceWatching(*this, theKeyPath, theObserver, kJournalUnobserve);
    // On purpose: a key state is made where there was none, and stays where its lists are empty now.
    ObserverList theRemoved;
    Observers::TakeAll(mKeyStates[theKeyPath].theObservers, theObserver, theRemoved);
    theObserver->StoppedObserving(this, theKeyPath);
}

bool LmKeyValueStore::IsObserving(const LmString& theKeyPath, LmKeyValueObserver* theObserver)
{
    LM_ASSERT(theKeyPath.IsNotEmpty());
    LM_ASSERT(theObserver != NULL);
    const LmKeyState* theState = LmFind(mKeyStates, theKeyPath);
    return theState != nullptr && Observers::Has(theState->theObservers, theObserver);
}

[[gnu::cold]] void LmKeyValueStore::RemoveObservers()
{
    for (const auto& theEntry : mKeyStates) {
        const ObserverList& theObservers = theEntry.second.theObservers;
        while (!theObservers.empty()) {
            IgnoreKeyPathValue(theEntry.first, theObservers.front());
        }
    }
}

void LmKeyValueStore::NotifyObservers(const LmString& theKeyName, bool hasChanged)
{
    TellObservers(mKeyStates, LmFind(mKeyStates, theKeyName), *this, theKeyName,
                  hasChanged ? kHasChanged : kAboutToChange);
}

[[gnu::cold]] void LmKeyValueStore::MakeDependency(const LmString& watchedKey, const LmString& dependentKey)
{
    LM_ASSERT(watchedKey != kKeyAnyValue);
    LM_ASSERT(dependentKey != kKeyAnyValue);
    // On purpose: a dependency made twice is reported, kept twice and told twice.
    LM_ASSERT(!IsDependent(watchedKey, dependentKey));
    // The name is copied first: when there is no memory for it, no key state shall appear either.
    std::list<LmString> theNewDependent(1, dependentKey);
    std::list<LmString>& theDependents = mKeyStates.try_emplace(watchedKey).first->second.theDependents;
    theDependents.splice(theDependents.end(), theNewDependent);
    NoteDependency(kJournalDepend, *this, watchedKey, dependentKey);
}

[[gnu::cold]] void LmKeyValueStore::BreakDependency(const LmString& watchedKey, const LmString& dependentKey)
{
    LM_ASSERT(watchedKey != kKeyAnyValue);
    LM_ASSERT(dependentKey != kKeyAnyValue);
    LM_ASSERT(IsDependent(watchedKey, dependentKey));
    // On purpose: a key state is made where there was none, and stays where its lists are empty now.
    NoteDependency(kJournalUndepend, *this, watchedKey, dependentKey);
    mKeyStates[watchedKey].theDependents.remove(dependentKey);
}

[[gnu::cold]] bool LmKeyValueStore::IsDependent(const LmString& theKeyName, const LmString& dependentKey)
{
    LM_ASSERT(HasKey(theKeyName));
    LM_ASSERT(HasKey(dependentKey));
    const LmKeyState* theState = LmFind(mKeyStates, theKeyName);
    if (theState == nullptr) {
        return false;
    }
    const std::list<LmString>& theDependents = theState->theDependents;
    return std::find(theDependents.begin(), theDependents.end(), dependentKey) != theDependents.end();
}

void LmKeyValueStore::NotifyDependents(const LmString& theKeyName)
{
    LM_ASSERT(HasKey(theKeyName));
    // A copy: an observer may be what keeps the caller's string alive, and let go of it.
    const LmString theWatchedKey = theKeyName; // NOLINT(performance-unnecessary-copy-initialization)
    TellDependentsOf(LmFind(mKeyStates, theWatchedKey), *this, theWatchedKey);
}
