// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Boost.Signals2, which notifies and does nothing else: a variable with an equality test and two signals. It
// has neither names nor tagged values nor a way to bind.

#include "Peer.h"

#include <boost/signals2/signal.hpp>
#include <cstdint>

namespace {

template <typename Value>
class Signals2Store final : public PeerStore
{
public:
    Signals2Store(std::size_t theObservers, const Value& theEven, const Value& theOdd)
        : mCalls(theObservers),
          mTexts{theEven, theOdd}
    {
        for (std::size_t& theCalls : mCalls) {
            mChanging.connect([&theCalls] { ++theCalls; });
            mChanged.connect([&theCalls] { ++theCalls; });
        }
    }

    void Set(long theNumber) override
    {
        if constexpr (std::is_arithmetic_v<Value>) {
            Change(static_cast<Value>(theNumber));
        } else {
            Change(mTexts[theNumber & 1]);
        }
    }

    std::size_t GetCalls() const override
    {
        std::size_t theSum = 0;
        for (const std::size_t theCalls : mCalls) {
            theSum += theCalls;
        }
        return theSum;
    }

private:
    void Change(const Value& theValue)
    {
        if (mValue != theValue) {
            mChanging();
            mValue = theValue;
            mChanged();
        }
    }

    Value mValue = {};
    boost::signals2::signal<void()> mChanging;
    boost::signals2::signal<void()> mChanged;
    std::vector<std::size_t> mCalls;
    Value mTexts[2];
};

class Signals2Peer final : public Peer
{
public:
    const char* GetName() const override { return "Boost.Signals2"; }
    std::size_t GetCallsPerChange() const override { return 2; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        if (theShape.theKeys > 10) {
            return nullptr;
        }
        switch (theShape.thePayload) {
        case Payload::kInteger:
            return std::make_unique<Signals2Store<std::int32_t>>(theShape.theObservers, 0, 0);
        case Payload::kDouble:
            return std::make_unique<Signals2Store<double>>(theShape.theObservers, 0, 0);
        default:
            return std::make_unique<Signals2Store<std::string>>(theShape.theObservers, kPeerTexts[0],
                                                                kPeerTexts[1]);
        }
    }
};

const Signals2Peer kPeer;
const PeerRegistration kRegistration(7, kPeer);

} // namespace
