// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Qt's QProperty: a typed variable without a name, bound by a compiled function, one way only. It shows what
// remains when names, tagged values and the second notification are given up.

#include "Peer.h"

#include <QProperty>
#include <QString>

namespace {

template <typename Value>
class PropertyStore final : public PeerStore
{
public:
    explicit PropertyStore(const StoreShape& theShape)
        : mKeys(theShape.theKeys),
          mKey(mKeys[theShape.theKeys / 2])
    {
        if constexpr (!std::is_arithmetic_v<Value>) {
            mTexts[0] = kPeerTexts[0];
            mTexts[1] = kPeerTexts[1];
        }
        for (std::size_t theIndex = 0; theIndex < theShape.theObservers; ++theIndex) {
            mObservers.emplace_back(mKey, Count{&mCalls});
        }
    }

    void Set(long theNumber) override
    {
        if constexpr (std::is_arithmetic_v<Value>) {
            mKey = static_cast<Value>(theNumber);
        } else {
            mKey = mTexts[theNumber & 1];
        }
    }

    std::size_t GetCalls() const override { return mCalls; }

private:
    struct Count
    {
        std::size_t* theCalls;
        void operator()() { ++*theCalls; }
    };

    std::vector<QProperty<Value>> mKeys;
    QProperty<Value>& mKey;
    std::vector<QPropertyChangeHandler<Count>> mObservers;
    Value mTexts[2] = {};
    std::size_t mCalls = 0;
};

class PropertyGraph final : public PeerGraph
{
public:
    explicit PropertyGraph(std::size_t theObjects)
        : mObjects(theObjects)
    {
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        const QProperty<int>* const theFrom = &mObjects[theSource];
        mObjects[theTarget].setBinding([theFrom] { return theFrom->value(); });
    }

    void Unbind(std::size_t /*theSource*/, std::size_t theTarget) override
    {
        mObjects[theTarget].takeBinding();
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        mObjects[theObject] = static_cast<int>(theNumber);
    }

    double Get(std::size_t theObject) const override { return mObjects[theObject].value(); }

private:
    std::vector<QProperty<int>> mObjects;
};

class PropertyPeer final : public Peer
{
public:
    const char* GetName() const override { return "QProperty"; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        switch (theShape.thePayload) {
        case Payload::kInteger:
            return std::make_unique<PropertyStore<int>>(theShape);
        case Payload::kDouble:
            return std::make_unique<PropertyStore<double>>(theShape);
        default:
            return std::make_unique<PropertyStore<QString>>(theShape);
        }
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        if (theHop != Hop::kOneWay) {
            return nullptr;
        }
        return std::make_unique<PropertyGraph>(theObjects);
    }
};

const PropertyPeer kPeer;
const PeerRegistration kRegistration(6, kPeer);

} // namespace
