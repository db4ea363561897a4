// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Simulation/VirtualClock.h>

#include "System/Clock.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <mutex>

namespace Host {

class VirtualClock::Hands : public Clock
{
public:
    explicit Hands(double theStart)
        : mNow(theStart)
    {
    }

    double Now() override
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        return mNow;
    }

    bool WaitUntil(double theDeadline) override
    {
        if (mIsWoken.exchange(false)) {
            return true;
        }
        if (theDeadline < 0) {
            std::fputs("The event loop waits for ever: no event, timer or deadline is left.\n", stderr);
            return false;
        }
        const std::lock_guard<std::mutex> theLock(mMutex);
        mNow = std::max(mNow, theDeadline);
        return true;
    }

    bool StandsStill() const override { return true; }

    void Wake() override { mIsWoken = true; }

    void Advance(double theSeconds)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        mNow += std::max(theSeconds, 0.0);
    }

private:
    std::mutex mMutex; // other threads ask for the time
    double mNow;
    std::atomic<bool> mIsWoken{false};
};

VirtualClock::VirtualClock(double theStart)
    : mHands(std::make_unique<Hands>(theStart))
{
    UseClock(mHands.get());
}

VirtualClock::~VirtualClock()
{
    UseClock(nullptr);
}

double VirtualClock::Now() const
{
    return mHands->Now();
}

void VirtualClock::Advance(double theSeconds)
{
    mHands->Advance(theSeconds);
}

} // namespace Host
