// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmObservation.h"

#include "LmEndableObserver.h"
#include "LmKeyValueStore.h"

#include <map>
#include <utility>

// What the store tells, and what holds the function. Who may delete it is said in LmEndableObserver.h.
class LM_HIDDEN LmObservation::Observer : public LmEndableObserver
{
public:
    Observer(Function&& theFunction, LmChangeTime theTime)
        : mFunction(std::move(theFunction)),
          mTime(theTime)
    {
    }

    void Begin(LmKeyValueStore& theStore, const LmString& theKeyPath)
    {
        mStore = &theStore;
        mKeyPath = theKeyPath;
        if (mTime == kAfterChange && theKeyPath != kKeyAnyValue) {
            mLastValues[theKeyPath] = theStore.GetKeyPathValue(theKeyPath);
        }
        theStore.ObserveKeyPathValue(theKeyPath, this);
    }

    // The store's address is compared only: a store that is gone has taken itself off the record.
    bool IsObserving() { return AmObserving(mStore, mKeyPath); }

    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        const Work theWork(*this);
        if (mTime == kAfterChange) {
            RememberFirst(*theStore, theKeyName);
        } else if (!HasEnded()) {
            Call({theStore, theKeyName, theStore->GetKeyPathValue(theKeyName), LmValue()});
        }
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        const Work theWork(*this);
        if (mTime != kAfterChange || HasEnded()) {
            return;
        }
        const LmValue theNewValue = theStore->GetKeyPathValue(theKeyName);
        // Both are copies: the function may change the key again, and come here before it returns.
        const LmValue theOldValue = std::exchange(mLastValues[theKeyName], theNewValue);
        Call({theStore, theKeyName, theOldValue, theNewValue});
    }

private:
    ~Observer() override = default;

    // A store that makes its values when they are read may have ended this while it did so.
    void Call(const LmChange& theChange)
    {
        if (!HasEnded()) {
            mFunction(theChange);
        }
    }

    // Of all keys, it is not known before which ones will change.
    void RememberFirst(const LmKeyValueStore& theStore, const LmString& theKeyName)
    {
        const auto theInsertion = mLastValues.try_emplace(theKeyName);
        if (theInsertion.second) {
            theInsertion.first->second = theStore.GetKeyPathValue(theKeyName);
        }
    }

    const Function mFunction;
    const LmChangeTime mTime;
    LmKeyValueStore* mStore = nullptr;       // not owned, and perhaps gone
    LmString mKeyPath;                       // the key of mStore, or "*"
    std::map<LmString, LmValue> mLastValues; // what the function was told last, by key
};

LmObservation::LmObservation(LmKeyValueStore* theStore, const LmString& theKeyPath, Function theFunction,
                             LmChangeTime theTime)
    : LmObservation() // so that the destructor runs where memory runs out
{
    if (theStore != nullptr && theKeyPath.IsNotEmpty() && theFunction) {
        mObserver = new Observer(std::move(theFunction), theTime);
        mObserver->Begin(*theStore, theKeyPath);
    }
}

LmObservation::LmObservation(LmObservation&& theOther) noexcept
    : mObserver(std::exchange(theOther.mObserver, nullptr))
{
}

LmObservation& LmObservation::operator=(LmObservation&& theOther) noexcept
{
    // The old one ends last: its function may own either of these.
    if (Observer* const theOld = std::exchange(mObserver, std::exchange(theOther.mObserver, nullptr))) {
        theOld->End();
    }
    return *this;
}

LmObservation::~LmObservation()
{
    End();
}

void LmObservation::End() noexcept
{
    if (Observer* const theObserver = std::exchange(mObserver, nullptr)) {
        theObserver->End();
    }
}

bool LmObservation::IsObserving() const
{
    return mObserver != nullptr && mObserver->IsObserving();
}
