// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LoopSteps_h
#define LoopSteps_h

#include <Carbon/Carbon.h>
#include <functional>
#include <memory>
#include <Simulation/VirtualClock.h>
#include <utility>
#include <vector>

// What happens while a loop runs, one second after another, on a clock that stands still otherwise: what is
// given to Then before the call that runs the loop.
class LoopSteps
{
public:
    using Step = std::function<void()>;

    LoopSteps() = default;
    ~LoopSteps()
    {
        for (const std::unique_ptr<Timed>& theStep : mSteps) {
            RemoveEventLoopTimer(theStep->theTimer);
        }
    }
    LoopSteps(const LoopSteps&) = delete;
    LoopSteps& operator=(const LoopSteps&) = delete;

    void Then(Step theStep)
    {
        mSteps.push_back(std::make_unique<Timed>());
        mSteps.back()->theStep = std::move(theStep);
        InstallEventLoopTimer(GetMainEventLoop(), static_cast<double>(mSteps.size()), 0, Call,
                              mSteps.back().get(), &mSteps.back()->theTimer);
    }

private:
    struct Timed
    {
        Step theStep;
        EventLoopTimerRef theTimer = nullptr;
    };

    static void Call(EventLoopTimerRef, void* theStep) { static_cast<Timed*>(theStep)->theStep(); }

    Host::VirtualClock mClock;
    std::vector<std::unique_ptr<Timed>> mSteps;
};

#endif
