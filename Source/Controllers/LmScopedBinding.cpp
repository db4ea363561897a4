// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmScopedBinding.h"

#include "LmEndableObserver.h"
#include "LmKeyValueBinding.h"
#include "LmKeyValueStore.h"
#include "LmLifeLine.h"

#include <algorithm>
#include <utility>

namespace {

// One side of a binding: the keys that follow each other with the other side's.
struct Side
{
    LmKeyValueStore* theStore;
    std::vector<LmString> theKeys;
};

// Whether others may bind to a key, as far as the store has something to say about it.
bool IsBindable(LmKeyValueStore& theStore, const LmString& theKey)
{
    LmKeyValueBinding* const theBinding = dynamic_cast<LmKeyValueBinding*>(&theStore);
    return theKey.IsNotEmpty() &&
           (theBinding != nullptr ? theBinding->IsBindable(theKey) : theKey != kKeyAnyValue);
}

} // namespace

// What observes both sides and copies from one to the other. The source's key is observed, and the object's
// too in a two-way binding; in a one-way binding the observation of another key of the object tells that it
// lives. Who may delete it is said in LmEndableObserver.h.
class LM_HIDDEN LmScopedBinding::Link : public LmEndableObserver
{
public:
    // Both ways, from one key to one key.
    Link(Side&& theObject, Side&& theSource, const LmSharedTransform& theTransform,
         const LmSharedTransform& theReverse)
        : mObject(std::move(theObject)),
          mSource(std::move(theSource)),
          mTransform(theTransform),
          mReverse(theReverse),
          mIsTwoWay(true)
    {
    }

    // One way, from one key to all of theObject's.
    Link(Side&& theObject, Side&& theSource, const LmSharedTransform& theTransform)
        : mObject(std::move(theObject)),
          mSource(std::move(theSource)),
          mTransform(theTransform),
          mIsTwoWay(false)
    {
    }

    [[nodiscard]] bool IsPossible() const
    {
        return mObject.theStore != nullptr && mSource.theStore != nullptr &&
               IsBindable(*mSource.theStore, SourceKey()) && !mObject.theKeys.empty() &&
               std::all_of(mObject.theKeys.begin(), mObject.theKeys.end(),
                           [this](const LmString& theKey) { return CanFollow(theKey); });
    }

    void Begin()
    {
        if (mIsTwoWay) {
            mObject.theStore->ObserveKeyPathValue(mObject.theKeys.front(), this);
        } else {
            LmLifeLine::Attach(*mObject.theStore, *this);
        }
        mSource.theStore->ObserveKeyPathValue(SourceKey(), this);
        CopyFirstValue();
    }

    // The stores' addresses are compared only: a store that is gone has taken itself off the record.
    [[nodiscard]] bool IsWhole()
    {
        const bool hasObject = mIsTwoWay ? AmObserving(mObject.theStore, mObject.theKeys.front())
                                         : LmLifeLine::IsAttached(mObject.theStore, *this);
        return hasObject && AmObserving(mSource.theStore, SourceKey());
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        const Work theWork(*this);
        if (theStore == mSource.theStore && theKeyName == SourceKey()) {
            Copy(mSource, mTransform, mObject);
        } else if (mIsTwoWay && theStore == mObject.theStore && theKeyName == mObject.theKeys.front()) {
            Copy(mObject, mReverse, mSource);
        }
    }

private:
    ~Link() override = default;

    [[nodiscard]] const LmString& SourceKey() const { return mSource.theKeys.front(); }

    // Whether a key of the object can. On purpose: one that follows one way need not be bindable.
    [[nodiscard]] bool CanFollow(const LmString& theKey) const
    {
        const bool isItself = mObject.theStore == mSource.theStore && theKey == SourceKey();
        return theKey.IsNotEmpty() && !isItself && (!mIsTwoWay || IsBindable(*mObject.theStore, theKey));
    }

    // On purpose: the first value runs from the source to the object, in a two-way binding too, and only when
    // it is valid.
    void CopyFirstValue()
    {
        const Work theWork(*this);
        const LmValue theValue = mTransform.Apply(mSource.theStore->GetKeyPathValue(SourceKey()));
        if (theValue.IsValid()) {
            SetKeys(mObject, theValue);
        }
    }

    void Copy(const Side& theFrom, const LmSharedTransform& theTransform, const Side& theTo)
    {
        // Without a transform, SetKeys is soon enough to ask.
        if (theTransform.Get() == nullptr || IsWhole()) {
            SetKeys(theTo, theTransform.Apply(theFrom.theStore->GetKeyPathValue(theFrom.theKeys.front())));
        }
    }

    // Asks before each key whether there is still something to set: transforms and observers may do anything.
    void SetKeys(const Side& theSide, const LmValue& theValue)
    {
        for (const LmString& theKey : theSide.theKeys) {
            if (!IsWhole()) {
                return;
            }
            theSide.theStore->SetKeyPathValue(theKey, theValue);
        }
    }

    const Side mObject;
    const Side mSource; // has one key
    const LmSharedTransform mTransform;
    const LmSharedTransform mReverse;
    const bool mIsTwoWay;
};

LmScopedBinding::LmScopedBinding(LmKeyValueStore* theObject, const LmString& theKey,
                                 LmKeyValueStore* theSource, const LmString& theSourceKey,
                                 const LmSharedTransform& theTransform,
                                 const LmSharedTransform& theReverse)
    : LmScopedBinding() // so that the destructor runs where memory runs out
{
    mLink = new Link({theObject, {theKey}}, {theSource, {theSourceKey}}, theTransform, theReverse);
    Begin();
}

LmScopedBinding LmScopedBinding::OneWay(LmKeyValueStore* theObject, const LmString& theKey,
                                        LmKeyValueStore* theSource, const LmString& theSourceKey,
                                        const LmSharedTransform& theTransform)
{
    return Several(theObject, {theKey}, theSource, theSourceKey, theTransform);
}

LmScopedBinding LmScopedBinding::Several(LmKeyValueStore* theObject, const std::vector<LmString>& theKeys,
                                         LmKeyValueStore* theSource, const LmString& theSourceKey,
                                         const LmSharedTransform& theTransform)
{
    LmScopedBinding theBinding;
    theBinding.mLink = new Link({theObject, theKeys}, {theSource, {theSourceKey}}, theTransform);
    theBinding.Begin();
    return theBinding;
}

LmScopedBinding::LmScopedBinding(LmScopedBinding&& theOther) noexcept
    : mLink(std::exchange(theOther.mLink, nullptr))
{
}

LmScopedBinding& LmScopedBinding::operator=(LmScopedBinding&& theOther) noexcept
{
    // The old one ends last: its transforms may own either of these.
    if (Link* const theOld = std::exchange(mLink, std::exchange(theOther.mLink, nullptr))) {
        theOld->End();
    }
    return *this;
}

LmScopedBinding::~LmScopedBinding()
{
    End();
}

void LmScopedBinding::End() noexcept
{
    if (Link* const theLink = std::exchange(mLink, nullptr)) {
        theLink->End();
    }
}

bool LmScopedBinding::IsBound() const
{
    return mLink != nullptr && mLink->IsWhole();
}

void LmScopedBinding::Begin()
{
    if (mLink->IsPossible()) {
        mLink->Begin();
    } else {
        End();
    }
}
