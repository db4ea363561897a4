// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChangeGroup.h"

#include "LmDiagnosticHandler.h"
#include "LmKeyValueStore.h"
#include "LmLifeLine.h"

#include <list>
#include <map>
#include <new>
#include <utility>

LmChangeGroup* LmChangeGroup::sInnermost = nullptr;

// The sets that are still to be made, in the order of first mention.
class LM_HIDDEN LmChangeGroup::Changes
{
public:
    [[nodiscard]] bool IsEmpty() const { return mSets.empty(); }
    [[nodiscard]] const LmString& FirstKey() const { return mSets.front().theName.second; }

    // Replaces the value of a key that is to be set. False when there is none.
    bool Replace(const LmKeyValueStore* theStore, const LmString& theKeyPath, const LmValue& theValue)
    {
        const auto thePlace = mPlaces.find({theStore, theKeyPath});
        if (thePlace == mPlaces.end() || !thePlace->second->theLine.IsAttached()) {
            return false;
        }
        thePlace->second->theValue = theValue;
        return true;
    }

    // Adds a key behind the others. One of a store that is gone, whose place another one has taken, is
    // forgotten.
    void Add(LmKeyValueStore& theStore, const LmString& theKeyPath, const LmValue& theValue)
    {
        const Name theName(&theStore, theKeyPath);
        std::list<Set> theNew;
        theNew.emplace_back(theStore, theName, theValue);
        const auto thePlace = mPlaces.try_emplace(theName, theNew.begin()).first;
        if (thePlace->second != theNew.begin()) {
            mSets.erase(std::exchange(thePlace->second, theNew.begin()));
        }
        mSets.splice(mSets.end(), theNew);
    }

    // Makes the first set. It is not among the others meanwhile, and is put back when memory runs out.
    void MakeFirst()
    {
        Taken theTaken(*this);
        Set& theSet = theTaken.Get();
        if (theSet.theLine.IsAttached()) {
            theSet.theLine.GetStore()->SetKeyPathValue(theSet.theName.second, theSet.theValue);
        }
        theTaken.Keep();
    }

    void RemoveFirst() { Taken(*this).Keep(); }

private:
    using Name = std::pair<const LmKeyValueStore*, LmString>;
    struct Set
    {
        Set(LmKeyValueStore& theStore, Name theSetName, const LmValue& theSetValue)
            : theName(std::move(theSetName)),
              theValue(theSetValue),
              theLine(theStore)
        {
        }

        Name theName;
        LmValue theValue;
        LmLifeLine theLine;
    };

    using Sets = std::list<Set>;
    using Places = std::map<Name, Sets::iterator>;

    // The first set, taken out for a while. It is moved by its nodes, so that no way of it needs memory.
    class [[nodiscard]] Taken
    {
    public:
        explicit Taken(Changes& theChanges)
            : mChanges(theChanges)
        {
            mSet.splice(mSet.begin(), mChanges.mSets, mChanges.mSets.begin());
            mPlace = mChanges.mPlaces.extract(mSet.front().theName);
        }
        ~Taken()
        {
            mChanges.mSets.splice(mChanges.mSets.begin(), mSet);
            mChanges.mPlaces.insert(std::move(mPlace));
        }
        Taken(const Taken&) = delete;
        Taken& operator=(const Taken&) = delete;

        [[nodiscard]] Set& Get() { return mSet.front(); }

        // It does not go back.
        void Keep()
        {
            mSet.clear();
            mPlace = Places::node_type();
        }

    private:
        Changes& mChanges;
        Sets mSet;
        Places::node_type mPlace;
    };

    Sets mSets;
    Places mPlaces; // where the set of a key stands
};

namespace {

// Sets a flag for the time of a call.
class [[nodiscard]] FlagScope
{
public:
    explicit FlagScope(bool& theFlag)
        : mFlag(theFlag)
    {
        mFlag = true;
    }
    ~FlagScope() { mFlag = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& mFlag;
};

} // namespace

LmChangeGroup::LmChangeGroup()
    : mOutermost(GetOuter() != nullptr && !GetOuter()->mOutermost.mIsEnding ? GetOuter()->mOutermost : *this)
{
}

LmChangeGroup::~LmChangeGroup()
{
    while (!MakeChanges()) {
        LmReportDiagnostic(__FILE__, __LINE__, "Out of memory: %s is not set",
                           mOwnChanges->FirstKey().GetUTF8());
        mOwnChanges->RemoveFirst();
    }
    delete mOwnChanges;
}

void LmChangeGroup::Set(LmKeyValueStore* theStore, const LmString& theKeyPath, const LmValue& theValue)
{
    if (theStore == nullptr) {
        return;
    }
    if (mOutermost.mOwnChanges == nullptr) {
        mOutermost.mOwnChanges = new Changes;
    }
    Changes& theChanges = *mOutermost.mOwnChanges;
    if (theChanges.Replace(theStore, theKeyPath, theValue)) {
        return;
    }
    if (mOutermost.mIsEnding) {
        theStore->SetKeyPathValue(theKeyPath, theValue);
    } else {
        theChanges.Add(*theStore, theKeyPath, theValue);
    }
}

void LmChangeGroup::End()
{
    if (mOwnChanges == nullptr || mIsEnding) {
        return; // nothing was collected here, or an observer has called this: what is under way goes on
    }
    const FlagScope theEnding(mIsEnding);
    while (!mOwnChanges->IsEmpty()) {
        mOwnChanges->MakeFirst();
    }
}

bool LmChangeGroup::MakeChanges() noexcept
{
    try {
        End();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}
