// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Peer.h"

#include <deque>
#include <LmBindings.h>

namespace {

class Counter final : public LmKeyValueObserver
{
public:
    void ValueChanging(const LmKeyValueStore*, const LmString&) override { ++mCalls; }
    void ValueChanged(const LmKeyValueStore*, const LmString&) override { ++mCalls; }

    std::size_t mCalls = 0;
};

LmValue TextValue(const char* theText)
{
    return LmValue(CFStringCreateWithCString(nullptr, theText, kCFStringEncodingUTF8), true);
}

class LmStore final : public PeerStore
{
public:
    explicit LmStore(const StoreShape& theShape)
        : mObservers(theShape.theObservers),
          mPayload(theShape.thePayload),
          mKey(PeerKey(theShape.theKeys / 2).c_str()),
          mTexts{TextValue(kPeerTexts[0]), TextValue(kPeerTexts[1])}
    {
        for (std::size_t theIndex = 0; theIndex < theShape.theKeys; ++theIndex) {
            mStore.SetKeyPathValue(PeerKey(theIndex).c_str(), MakeValue(0));
        }
        for (Counter& theObserver : mObservers) {
            mStore.ObserveKeyPathValue(mKey, &theObserver);
        }
    }

    void Set(long theNumber) override
    {
        if (mPayload == Payload::kText) {
            mStore.SetKeyPathValue(mKey, mTexts[theNumber & 1]);
        } else {
            mStore.SetKeyPathValue(mKey, MakeValue(theNumber));
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
    LmValue MakeValue(long theNumber) const
    {
        switch (mPayload) {
        case Payload::kInteger:
            return LmValue(theNumber);
        case Payload::kDouble:
            return LmValue(static_cast<double>(theNumber));
        default:
            return mTexts[theNumber & 1];
        }
    }

    std::deque<Counter> mObservers;
    LmKeyValueStore mStore;
    Payload mPayload;
    LmString mKey;
    LmValue mTexts[2];
};

class LmGraph final : public PeerGraph
{
public:
    LmGraph(std::size_t theObjects, Hop theHop)
        : mObjects(theObjects),
          mHop(theHop)
    {
    }

    // From the back, where the followers are: a binding made one way goes before the object that it follows.
    ~LmGraph() override
    {
        while (!mObjects.empty()) {
            mObjects.pop_back();
        }
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        LmKeyValueBinding& theObject = mObjects[theTarget];
        LmKeyValueBinding* const theModel = &mObjects[theSource];
        switch (mHop) {
        case Hop::kOneWay:
            KeepRemovalSilent(*theModel);
            theObject.BindTo(mKey, theModel, mKey, nullptr);
            break;
        case Hop::kTwoWay:
            theObject.Bind(mKey, theModel, mKey, nullptr, nullptr);
            break;
        case Hop::kScaled:
            theObject.Bind(mKey, theModel, mKey, new LmScaleTransform(2), new LmScaleTransform(0.5));
            break;
        }
    }

    void Unbind(std::size_t theSource, std::size_t theTarget) override
    {
        mObjects[theTarget].Unbind(mKey, &mObjects[theSource]);
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        if (mHop == Hop::kScaled) {
            mObjects[theObject].SetKeyPathValue(mKey, LmValue(static_cast<double>(theNumber)));
        } else {
            mObjects[theObject].SetKeyPathValue(mKey, LmValue(theNumber));
        }
    }

    double Get(std::size_t theObject) const override
    {
        return mObjects[theObject].GetKeyPathValue(mKey).GetDouble();
    }

private:
    // Removing a one-way binding is reported when nothing was ever bound to the other object's key. So
    // something is bound to it for a moment.
    void KeepRemovalSilent(LmKeyValueBinding& theModel)
    {
        LmKeyValueBinding theOther;
        theOther.Bind(mKey, &theModel, mKey, nullptr, nullptr);
        theOther.Unbind(mKey, &theModel);
    }

    std::deque<LmKeyValueBinding> mObjects;
    Hop mHop;
    LmString mKey = "value";
};

class LmPeer final : public Peer
{
public:
    const char* GetName() const override { return "LmBindings"; }
    std::size_t GetCallsPerChange() const override { return 2; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        return std::make_unique<LmStore>(theShape);
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        return std::make_unique<LmGraph>(theObjects, theHop);
    }
};

const LmPeer kPeer;
const PeerRegistration kRegistration(1, kPeer);

} // namespace
