// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Qt's declared properties, set by name. What follows is connected signal to slot: a compiled call that knows
// no names.

#include "Peer.h"
#include "QtDoubles10.h"
#include "QtIntegers10.h"
#include "QtIntegers1000.h"
#include "QtObjects.h"
#include "QtTexts10.h"

#include <QVariant>

namespace {

std::unique_ptr<QtKeys> MakeKeys(const StoreShape& theShape)
{
    if (theShape.theKeys == 1000 && theShape.thePayload == Payload::kInteger) {
        return std::make_unique<QtIntegers1000>();
    }
    if (theShape.theKeys != 10) {
        return nullptr; // a class with that many properties was not written
    }
    switch (theShape.thePayload) {
    case Payload::kInteger:
        return std::make_unique<QtIntegers10>();
    case Payload::kDouble:
        return std::make_unique<QtDoubles10>();
    default:
        return std::make_unique<QtTexts10>();
    }
}

class DeclaredStore final : public PeerStore
{
public:
    DeclaredStore(std::unique_ptr<QtKeys> theObject, const StoreShape& theShape)
        : mObject(std::move(theObject)),
          mPayload(theShape.thePayload),
          mKey(PeerKey(theShape.theKeys / 2)),
          mTexts{QString(kPeerTexts[0]), QString(kPeerTexts[1])}
    {
        for (std::size_t theIndex = 0; theIndex < theShape.theObservers; ++theIndex) {
            QObject::connect(mObject.get(), &QtKeys::keyChanged, mObject.get(), [this] { ++mCalls; });
        }
    }

    void Set(long theNumber) override
    {
        switch (mPayload) {
        case Payload::kInteger:
            mObject->setProperty(mKey.c_str(), static_cast<int>(theNumber));
            break;
        case Payload::kDouble:
            mObject->setProperty(mKey.c_str(), static_cast<double>(theNumber));
            break;
        case Payload::kText:
            mObject->setProperty(mKey.c_str(), mTexts[theNumber & 1]);
            break;
        }
    }

    std::size_t GetCalls() const override { return mCalls; }

private:
    std::unique_ptr<QtKeys> mObject;
    Payload mPayload;
    std::string mKey;
    QString mTexts[2];
    std::size_t mCalls = 0;
};

template <typename Object, typename Number>
class DeclaredGraph final : public PeerGraph
{
public:
    DeclaredGraph(std::size_t theObjects, Hop theHop)
        : mConnections(theObjects),
          mHop(theHop)
    {
        for (std::size_t theIndex = 0; theIndex < theObjects; ++theIndex) {
            mObjects.push_back(std::make_unique<Object>());
        }
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        Links& theLinks = mConnections[theTarget];
        theLinks.theForth = Connect(theSource, theTarget, 2);
        if (mHop != Hop::kOneWay) {
            theLinks.theBack = Connect(theTarget, theSource, 0.5);
        }
        mObjects[theTarget]->Set(mObjects[theSource]->Get());
    }

    void Unbind(std::size_t /*theSource*/, std::size_t theTarget) override
    {
        QObject::disconnect(mConnections[theTarget].theForth);
        QObject::disconnect(mConnections[theTarget].theBack);
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        mObjects[theObject]->setProperty("value", static_cast<Number>(theNumber));
    }

    double Get(std::size_t theObject) const override { return mObjects[theObject]->Get(); }

private:
    struct Links
    {
        QMetaObject::Connection theForth;
        QMetaObject::Connection theBack;
    };

    QMetaObject::Connection Connect(std::size_t theSource, std::size_t theTarget, double theFactor)
    {
        Object* const theTo = mObjects[theTarget].get();
        if (mHop != Hop::kScaled) {
            return QObject::connect(mObjects[theSource].get(), &Object::valueChanged, theTo, &Object::Set);
        }
        return QObject::connect(
            mObjects[theSource].get(), &Object::valueChanged, theTo,
            [theTo, theFactor](Number theValue) { theTo->Set(static_cast<Number>(theValue * theFactor)); });
    }

    std::vector<std::unique_ptr<Object>> mObjects;
    std::vector<Links> mConnections; // by target
    Hop mHop;
};

class DeclaredPeer final : public Peer
{
public:
    const char* GetName() const override { return "Qt, declared"; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        std::unique_ptr<QtKeys> theObject = MakeKeys(theShape);
        if (!theObject) {
            return nullptr;
        }
        return std::make_unique<DeclaredStore>(std::move(theObject), theShape);
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        if (theHop == Hop::kScaled) {
            return std::make_unique<DeclaredGraph<QtNumber, double>>(theObjects, theHop);
        }
        return std::make_unique<DeclaredGraph<QtInteger, int>>(theObjects, theHop);
    }
};

const DeclaredPeer kPeer;
const PeerRegistration kRegistration(4, kPeer);

} // namespace
