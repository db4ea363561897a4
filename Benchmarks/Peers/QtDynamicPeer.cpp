// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Qt's dynamic properties, which are made by setting them, as keys are. Observers filter the events that the
// object gets of each change.

#include "Peer.h"

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QString>
#include <QVariant>

namespace {

// Events are delivered only while there is an application.
void NeedApplication()
{
    static int kCount = 0;
    static const QCoreApplication kApplication(kCount, nullptr);
}

class Counter final : public QObject
{
public:
    explicit Counter(const std::string& theKey)
        : mKey(theKey)
    {
    }

    bool eventFilter(QObject* /*theObject*/, QEvent* theEvent) override
    {
        if (theEvent->type() == QEvent::DynamicPropertyChange &&
            static_cast<QDynamicPropertyChangeEvent*>(theEvent)->propertyName() == mKey.c_str()) {
            ++mCalls;
        }
        return false;
    }

    std::size_t mCalls = 0;

private:
    const std::string& mKey;
};

// Copies the property into another object's whenever it changes.
class Follower final : public QObject
{
public:
    Follower(QObject& theTarget, double theFactor)
        : mTarget(theTarget),
          mFactor(theFactor)
    {
    }

    bool eventFilter(QObject* theObject, QEvent* theEvent) override
    {
        if (theEvent->type() == QEvent::DynamicPropertyChange &&
            static_cast<QDynamicPropertyChangeEvent*>(theEvent)->propertyName() == "value") {
            const QVariant theValue = theObject->property("value");
            mTarget.setProperty("value", mFactor == 1 ? theValue : QVariant(theValue.toDouble() * mFactor));
        }
        return false;
    }

private:
    QObject& mTarget;
    double mFactor;
};

class DynamicStore final : public PeerStore
{
public:
    explicit DynamicStore(const StoreShape& theShape)
        : mPayload(theShape.thePayload),
          mKey(PeerKey(theShape.theKeys / 2)),
          mTexts{QString(kPeerTexts[0]), QString(kPeerTexts[1])}
    {
        for (std::size_t theIndex = 0; theIndex < theShape.theKeys; ++theIndex) {
            mObject.setProperty(PeerKey(theIndex).c_str(), MakeValue(0));
        }
        for (std::size_t theIndex = 0; theIndex < theShape.theObservers; ++theIndex) {
            mObservers.push_back(std::make_unique<Counter>(mKey));
            mObject.installEventFilter(mObservers.back().get());
        }
    }

    void Set(long theNumber) override { mObject.setProperty(mKey.c_str(), MakeValue(theNumber)); }

    std::size_t GetCalls() const override
    {
        std::size_t theCalls = 0;
        for (const auto& theObserver : mObservers) {
            theCalls += theObserver->mCalls;
        }
        return theCalls;
    }

private:
    QVariant MakeValue(long theNumber) const
    {
        switch (mPayload) {
        case Payload::kInteger:
            return static_cast<int>(theNumber);
        case Payload::kDouble:
            return static_cast<double>(theNumber);
        default:
            return mTexts[theNumber & 1];
        }
    }

    QObject mObject;
    std::vector<std::unique_ptr<Counter>> mObservers;
    Payload mPayload;
    std::string mKey;
    QString mTexts[2];
};

class DynamicGraph final : public PeerGraph
{
public:
    DynamicGraph(std::size_t theObjects, Hop theHop)
        : mFollowers(theObjects),
          mHop(theHop)
    {
        for (std::size_t theIndex = 0; theIndex < theObjects; ++theIndex) {
            mObjects.push_back(std::make_unique<QObject>());
        }
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        Links& theLinks = mFollowers[theTarget];
        theLinks.theForth = MakeFollower(theSource, theTarget, 2);
        if (mHop != Hop::kOneWay) {
            theLinks.theBack = MakeFollower(theTarget, theSource, 0.5);
        }
        mObjects[theTarget]->setProperty("value", mObjects[theSource]->property("value"));
    }

    void Unbind(std::size_t theSource, std::size_t theTarget) override
    {
        Links& theLinks = mFollowers[theTarget];
        mObjects[theSource]->removeEventFilter(theLinks.theForth.get());
        mObjects[theTarget]->removeEventFilter(theLinks.theBack.get());
        theLinks = {};
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        mObjects[theObject]->setProperty("value", mHop == Hop::kScaled
                                                      ? QVariant(static_cast<double>(theNumber))
                                                      : QVariant(static_cast<int>(theNumber)));
    }

    double Get(std::size_t theObject) const override
    {
        return mObjects[theObject]->property("value").toDouble();
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
            std::make_unique<Follower>(*mObjects[theTarget], mHop == Hop::kScaled ? theFactor : 1);
        mObjects[theSource]->installEventFilter(theFollower.get());
        return theFollower;
    }

    std::vector<std::unique_ptr<QObject>> mObjects;
    std::vector<Links> mFollowers; // by target
    Hop mHop;
};

class DynamicPeer final : public Peer
{
public:
    const char* GetName() const override { return "Qt, dynamic"; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        // Making the keys takes time with the square of their number: minutes for 100,000.
        if (theShape.theKeys > 10000) {
            return nullptr;
        }
        NeedApplication();
        return std::make_unique<DynamicStore>(theShape);
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        NeedApplication();
        return std::make_unique<DynamicGraph>(theObjects, theHop);
    }
};

const DynamicPeer kPeer;
const PeerRegistration kRegistration(5, kPeer);

} // namespace
