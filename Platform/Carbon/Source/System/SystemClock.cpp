// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Clock.h"
#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace Host {

namespace {

class SystemClock : public Clock
{
public:
    double Now() override { return SystemTime(); }

    bool WaitUntil(double theDeadline) override
    {
        std::unique_lock<std::mutex> theLock(mMutex);
        const auto theIsWoken = [this] { return mIsWoken; };
        if (theDeadline < 0) {
            mCondition.wait(theLock, theIsWoken);
        } else {
            // In steps, so that a deadline in a far future does not leave the range of a duration.
            const double theRest = std::clamp(theDeadline - Now(), 0.0, kLongestStep);
            mCondition.wait_for(theLock, std::chrono::duration<double>(theRest), theIsWoken);
        }
        mIsWoken = false;
        return true;
    }

    void Wake() override
    {
        {
            const std::lock_guard<std::mutex> theLock(mMutex);
            mIsWoken = true;
        }
        mCondition.notify_one();
    }

private:
    static constexpr double kLongestStep = 3600;

    std::mutex mMutex;
    std::condition_variable mCondition;
    bool mIsWoken = false;
};

// Another thread may still wake it while the program ends.
SystemClock& TheSystemClock()
{
    static NeverDestroyed<SystemClock> sClock;
    return sClock.Get();
}

// Other threads read it to wake the loop.
std::atomic<Clock*> gClock{nullptr};

} // namespace

Clock::~Clock() = default;

double SystemTime()
{
    const auto theTime = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(theTime).count();
}

Clock& CurrentClock()
{
    Clock* theClock = gClock;
    return theClock == nullptr ? TheSystemClock() : *theClock;
}

void UseClock(Clock* theClock)
{
    gClock = theClock;
}

} // namespace Host
