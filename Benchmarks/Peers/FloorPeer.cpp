// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The floor: the least that a store of named, tagged values with an equality test and two notifications can
// cost when it is written by hand. It checks no argument, keeps no observer alive or dead, and takes no care
// of observers that come and go while they are told.

#include "Peer.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <variant>

namespace {

using Value = std::variant<std::monostate, std::int32_t, double, std::string>;

class Store;

class Observer
{
public:
    virtual void ValueChanging(Store& theStore, const std::string& theKey) = 0;
    virtual void ValueChanged(Store& theStore, const std::string& theKey) = 0;

protected:
    ~Observer() = default;
};

class Store
{
public:
    void Set(const std::string& theKey, const Value& theValue)
    {
        Value& theCurrent = mValues[theKey];
        if (theCurrent == theValue) {
            return;
        }
        const auto theEntry = mObservers.find(theKey);
        if (theEntry == mObservers.end()) {
            theCurrent = theValue;
            return;
        }
        const std::vector<Observer*>& theObservers = theEntry->second;
        for (std::size_t theIndex = 0; theIndex < theObservers.size(); ++theIndex) {
            theObservers[theIndex]->ValueChanging(*this, theKey);
        }
        theCurrent = theValue;
        for (std::size_t theIndex = 0; theIndex < theObservers.size(); ++theIndex) {
            theObservers[theIndex]->ValueChanged(*this, theKey);
        }
    }

    const Value& Get(const std::string& theKey) const { return mValues.find(theKey)->second; }

    void Observe(const std::string& theKey, Observer* theObserver)
    {
        mObservers[theKey].push_back(theObserver);
    }

    void Ignore(const std::string& theKey, Observer* theObserver)
    {
        std::vector<Observer*>& theObservers = mObservers[theKey];
        theObservers.erase(std::find(theObservers.begin(), theObservers.end(), theObserver));
    }

private:
    std::map<std::string, Value> mValues;
    std::map<std::string, std::vector<Observer*>> mObservers;
};

class Counter final : public Observer
{
public:
    void ValueChanging(Store&, const std::string&) override { ++mCalls; }
    void ValueChanged(Store&, const std::string&) override { ++mCalls; }

    std::size_t mCalls = 0;
};

// Copies a key of one store into a key of another whenever it changes.
class Follower final : public Observer
{
public:
    Follower(Store& theTarget, std::string theTargetKey, double theFactor)
        : mTarget(theTarget),
          mTargetKey(std::move(theTargetKey)),
          mFactor(theFactor)
    {
    }
    void ValueChanging(Store&, const std::string&) override {}
    void ValueChanged(Store& theStore, const std::string& theKey) override
    {
        const Value& theValue = theStore.Get(theKey);
        if (mFactor == 1) {
            mTarget.Set(mTargetKey, theValue);
        } else {
            mTarget.Set(mTargetKey, std::get<double>(theValue) * mFactor);
        }
    }

private:
    Store& mTarget;
    std::string mTargetKey;
    double mFactor;
};

class FloorStore final : public PeerStore
{
public:
    explicit FloorStore(const StoreShape& theShape)
        : mObservers(theShape.theObservers),
          mPayload(theShape.thePayload),
          mKey(PeerKey(theShape.theKeys / 2)),
          mTexts{Value(kPeerTexts[0]), Value(kPeerTexts[1])}
    {
        for (std::size_t theIndex = 0; theIndex < theShape.theKeys; ++theIndex) {
            mStore.Set(PeerKey(theIndex), MakeValue(0));
        }
        for (Counter& theObserver : mObservers) {
            mStore.Observe(mKey, &theObserver);
        }
    }

    void Set(long theNumber) override
    {
        if (mPayload == Payload::kText) {
            mStore.Set(mKey, mTexts[theNumber & 1]);
        } else {
            mStore.Set(mKey, MakeValue(theNumber));
        }
    }

    std::size_t GetCalls() const override
    {
        std::size_t theCalls = 0;
        for (const Counter& theObserver : mObservers) {
            theCalls += theObserver.mCalls;
        }
        return theCalls;
    }

private:
    Value MakeValue(long theNumber) const
    {
        switch (mPayload) {
        case Payload::kInteger:
            return static_cast<std::int32_t>(theNumber);
        case Payload::kDouble:
            return static_cast<double>(theNumber);
        default:
            return mTexts[theNumber & 1];
        }
    }

    std::deque<Counter> mObservers;
    Store mStore;
    Payload mPayload;
    std::string mKey;
    Value mTexts[2];
};

class FloorGraph final : public PeerGraph
{
public:
    FloorGraph(std::size_t theObjects, Hop theHop)
        : mObjects(theObjects),
          mFollowers(theObjects),
          mHop(theHop)
    {
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        Links& theLinks = mFollowers[theTarget];
        theLinks.theForth = MakeFollower(theSource, theTarget, 2);
        if (mHop != Hop::kOneWay) {
            theLinks.theBack = MakeFollower(theTarget, theSource, 0.5);
        }
        mObjects[theTarget].Set(mKey, mObjects[theSource].Get(mKey));
    }

    void Unbind(std::size_t theSource, std::size_t theTarget) override
    {
        Links& theLinks = mFollowers[theTarget];
        mObjects[theSource].Ignore(mKey, theLinks.theForth.get());
        if (theLinks.theBack) {
            mObjects[theTarget].Ignore(mKey, theLinks.theBack.get());
        }
        theLinks = {};
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        if (mHop == Hop::kScaled) {
            mObjects[theObject].Set(mKey, static_cast<double>(theNumber));
        } else {
            mObjects[theObject].Set(mKey, static_cast<std::int32_t>(theNumber));
        }
    }

    double Get(std::size_t theObject) const override
    {
        const Value& theValue = mObjects[theObject].Get(mKey);
        return mHop == Hop::kScaled ? std::get<double>(theValue) : std::get<std::int32_t>(theValue);
    }

private:
    struct Links
    {
        std::unique_ptr<Follower> theForth;
        std::unique_ptr<Follower> theBack;
    };

    std::unique_ptr<Follower> MakeFollower(std::size_t theSource, std::size_t theTarget, double theFactor)
    {
        auto theFollower =
            std::make_unique<Follower>(mObjects[theTarget], mKey, mHop == Hop::kScaled ? theFactor : 1);
        mObjects[theSource].Observe(mKey, theFollower.get());
        return theFollower;
    }

    std::deque<Store> mObjects;
    std::vector<Links> mFollowers; // by target
    Hop mHop;
    std::string mKey = "value";
};

class FloorPeer final : public Peer
{
public:
    const char* GetName() const override { return "the floor"; }
    std::size_t GetCallsPerChange() const override { return 2; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        return std::make_unique<FloorStore>(theShape);
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        return std::make_unique<FloorGraph>(theObjects, theHop);
    }
};

const FloorPeer kPeer;
const PeerRegistration kRegistration(0, kPeer);

} // namespace
