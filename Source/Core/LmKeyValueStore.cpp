// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueStore.h"

#include "LmAnyKey.h"
#include "LmDiagnostics.h"
#include "LmKeyMemo.h"
#include "LmKeyValueObserver.h"
#include "LmLifeWatch.h"
#include "LmLongList.h"
#include "LmObserverSnapshot.h"
#include "LmRollback.h"
#include "LmTrace.h"

#include <algorithm>
#include <cstddef>
#include <functional>
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

} // namespace

// Setting a key is what must be fast here. What is called once for an observer or a dependency is cold, so
// that the compiler makes it small.

LmKeyValueStore::LmKeyValueStore() = default;

[[gnu::cold]] LmKeyValueStore::~LmKeyValueStore()
{
    LmLifeWatch::StoreIsGone(this);
    LmKeyMemo::StoreIsGone(this);
    RemoveObservers();
}

LmValue LmKeyValueStore::GetKeyValue(const LmString& theKeyName) const
{
    LM_ASSERT(theKeyName.IsNotEmpty());
    LM_ASSERT(theKeyName != kKeyAnyValue);
    const LmValue* theValue = FindValue(theKeyName);
    return theValue != nullptr ? *theValue : LmValue();
}

void LmKeyValueStore::SetKeyValue(const LmString& theKeyName, const LmValue& theValue)
{
    LM_ASSERT(theKeyName.IsNotEmpty());
    LM_ASSERT(theKeyName != kKeyAnyValue);
    if (const LmValue* theEntry = FindValue(theKeyName)) {
        const_cast<LmValue&>(*theEntry) = theValue; // an entry of this store, which is not constant here
    } else {
        AddValue(theKeyName, theValue);
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
    LM_ASSERT(theKeyPath.IsNotEmpty());
    // A copy: an observer may be what keeps the caller's string alive, and let go of it.
    const LmString theKeyName = theKeyPath; // NOLINT(performance-unnecessary-copy-initialization)
    LM_ASSERT(theKeyName != kKeyAnyValue);
    const LmKeyMemo theMemo(this, theKeyName);
    if (theValue == GetKeyValue(theKeyName)) {
        return;
    }
    LmFound<LmKeyState> theState;
    NotifyObserversOf(theState.In(mKeyStates, theKeyName), theKeyName, false);
    if (!theMemo.IsGone()) {
        SetKeyValue(theKeyName, theValue);
    }
    if (!theMemo.IsGone()) {
        NotifyObserversOf(theState.In(mKeyStates, theKeyName), theKeyName, true);
    }
    if (!theMemo.IsGone()) {
        LM_ASSERT(HasKey(theKeyName));
        NotifyDependentsOf(theState.In(mKeyStates, theKeyName));
    }
}

bool LmKeyValueStore::HasKey(const LmString& theKeyName)
{
    LM_ASSERT(theKeyName.IsNotEmpty());
    return theKeyName == kKeyAnyValue || GetKeyValue(theKeyName).IsValid();
}

void LmKeyValueStore::ObserveKeyPathValue(const LmString& theKeyPath, LmKeyValueObserver* theObserver)
{
    // On purpose: who registers twice is reported, registered twice and told twice.
    LM_ASSERT(!IsObserving(theKeyPath, theObserver));
    LmTrace([&] {
        LogString("Observer %s started watching Key '%s' in Store %s", theObserver->GetDebugInfo().GetUTF8(),
                  theKeyPath.GetUTF8(), GetDebugInfo().GetUTF8());
    });
    ObserverList theNewObserver(1, theObserver);
    const auto theInsertion = mKeyStates.try_emplace(theKeyPath);
    ObserverList& theObservers = theInsertion.first->second.theObservers;
    LmRollback theNewState([&] {
        if (theInsertion.second) {
            mKeyStates.erase(theInsertion.first);
        }
    });
    Observers::Append(theObservers, theNewObserver);
    LmRollback theRegistration([&] { Observers::RemoveLast(theObservers); });
    theObserver->StartedObserving(this, theKeyPath);
    theRegistration.Commit();
    theNewState.Commit();
}

void LmKeyValueStore::IgnoreKeyPathValue(const LmString& theKeyPath, LmKeyValueObserver* theObserver)
{
    LM_ASSERT(IsObserving(theKeyPath, theObserver));
    LmTrace([&] {
        LogString("Observer %s stopped watching Key '%s' in Store %s", theObserver->GetDebugInfo().GetUTF8(),
                  theKeyPath.GetUTF8(), GetDebugInfo().GetUTF8());
    });
    // On purpose: a key state is made where there was none, and stays where its lists are empty now.
    ObserverList theRemoved;
    Observers::TakeAll(MakeKeyState(theKeyPath).theObservers, theObserver, theRemoved);
    theObserver->StoppedObserving(this, theKeyPath);
}

bool LmKeyValueStore::IsObserving(const LmString& theKeyPath, LmKeyValueObserver* theObserver)
{
    LM_ASSERT(theKeyPath.IsNotEmpty());
    LM_ASSERT(theObserver != NULL);
    const LmKeyState* theState = FindKeyState(theKeyPath);
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
    NotifyObserversOf(FindKeyState(theKeyName), theKeyName, hasChanged);
}

void LmKeyValueStore::NotifyObserversOf(const LmKeyState* theState, const LmString& theKeyName,
                                        bool hasChanged)
{
    const LmTraceIndent theIndent;
    LmTrace([&] {
        // Both words are eight characters, so that the lines of the trace line up.
        LogString("%s %s.%s", hasChanged ? "changed " : "changing", GetDebugInfo().GetUTF8(),
                  theKeyName.GetUTF8());
    });
    // On purpose: a key without a key state is silent even to the observers of "*".
    if (theState != nullptr) {
        CallObservers(theKeyName, *theState, hasChanged);
    }
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
}

[[gnu::cold]] void LmKeyValueStore::BreakDependency(const LmString& watchedKey, const LmString& dependentKey)
{
    LM_ASSERT(watchedKey != kKeyAnyValue);
    LM_ASSERT(dependentKey != kKeyAnyValue);
    LM_ASSERT(IsDependent(watchedKey, dependentKey));
    // On purpose: a key state is made where there was none, and stays where its lists are empty now.
    MakeKeyState(watchedKey).theDependents.remove(dependentKey);
}

[[gnu::cold]] bool LmKeyValueStore::IsDependent(const LmString& theKeyName, const LmString& dependentKey)
{
    LM_ASSERT(HasKey(theKeyName));
    LM_ASSERT(HasKey(dependentKey));
    const LmKeyState* theState = FindKeyState(theKeyName);
    if (theState == nullptr) {
        return false;
    }
    const std::list<LmString>& theDependents = theState->theDependents;
    return std::find(theDependents.begin(), theDependents.end(), dependentKey) != theDependents.end();
}

void LmKeyValueStore::NotifyDependents(const LmString& theKeyName)
{
    LM_ASSERT(HasKey(theKeyName));
    NotifyDependentsOf(FindKeyState(theKeyName));
}

void LmKeyValueStore::NotifyDependentsOf(const LmKeyState* theState)
{
    if (theState != nullptr && !theState->theDependents.empty()) {
        TellDependents(*theState);
    }
}

[[gnu::cold]] void LmKeyValueStore::TellDependents(const LmKeyState& theState)
{
    // A copy: observers may make and break dependencies of this key.
    const std::vector<LmString> theDependents(theState.theDependents.begin(), theState.theDependents.end());
    const LmLifeWatch theWatch(this);
    // On purpose: told afterwards only, and one level deep. The dependents of a dependent key are not told,
    // so a cycle ends here.
    for (const LmString& theDependent : theDependents) {
        NotifyObservers(theDependent, true);
        if (theWatch.IsGone()) {
            return;
        }
    }
}

// The entries of a key, or null. While a key is set, each is looked up once.

const LmValue* LmKeyValueStore::FindValue(const LmString& theKeyName) const
{
    LmKeyMemo* theMemo = LmKeyMemo::Of(this, theKeyName);
    return theMemo != nullptr ? theMemo->mValue.In(mValues, theKeyName) : LmFind(mValues, theKeyName);
}

const LmKeyState* LmKeyValueStore::FindKeyState(const LmString& theKeyName) const
{
    return LmFind(mKeyStates, theKeyName);
}

// Stores the value of a key that has none yet.
void LmKeyValueStore::AddValue(const LmString& theKeyName, const LmValue& theValue)
{
    mValues[theKeyName] = theValue;
}

// The state of a key, made where there is none.
LmKeyState& LmKeyValueStore::MakeKeyState(const LmString& theKeyName)
{
    if (const LmKeyState* theState = FindKeyState(theKeyName)) {
        return const_cast<LmKeyState&>(*theState); // an entry of this store, which is not constant here
    }
    return mKeyStates[theKeyName];
}

// The state of "*", or null. There is at least one state.
const LmKeyState* LmKeyValueStore::FindAnyState() const
{
    // Few names sort before "*", so it stands first, or it is not there and a letter stands first.
    const auto& theFirst = *mKeyStates.begin();
    if (theFirst.first == kKeyAnyValue) {
        return &theFirst.second;
    }
    return theFirst.first.GetUTF8()[0] > *kKeyAnyValue ? nullptr : LmFind(mKeyStates, kKeyAnyValue);
}

void LmKeyValueStore::CallObservers(const LmString& theKeyName, const LmKeyState& theState, bool hasChanged)
{
    const LmKeyState* theAnyState = FindAnyState();
    if (theAnyState == nullptr && theState.theObservers.size() == 1) {
        // The usual case. Nothing is looked at after the call, so it may change the list or destroy anything.
        Tell(*theState.theObservers.front(), theKeyName, hasChanged);
    } else {
        CallSeveral(theKeyName, theState.theObservers,
                    theAnyState != nullptr ? &theAnyState->theObservers : nullptr, hasChanged);
    }
}

// The observers of a key and, if there are any, those of all keys.
void LmKeyValueStore::CallSeveral(const LmString& theKeyName, const ObserverList& theKeyObservers,
                                  const ObserverList* theAnyObservers, bool hasChanged)
{
    const LmObserverSnapshot theObservers(theKeyObservers, theAnyObservers);
    const LmLifeWatch theWatch(this);
    for (LmKeyValueObserver* theObserver : theObservers) {
        if (theObserver != nullptr) {
            Tell(*theObserver, theKeyName, hasChanged);
        }
        if (theWatch.IsGone()) {
            return;
        }
    }
}

void LmKeyValueStore::Tell(LmKeyValueObserver& theObserver, const LmString& theKeyName, bool hasChanged)
{
    if (hasChanged) {
        theObserver.ValueChanged(this, theKeyName);
    } else {
        theObserver.ValueChanging(this, theKeyName);
    }
}
