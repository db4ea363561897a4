// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControllerScenarios.h"

#include <Carbon/Carbon.h>

ObservationScenario::ObservationScenario()
{
    mStore.SetKeyPathValue("value", LmValue(0));
    mObservation = LmObservation(&mStore, "value", [this](const LmChange& theChange) {
        mSum += theChange.theNewValue.GetSInt32() - theChange.theOldValue.GetSInt32();
    });
}

void ObservationScenario::Step()
{
    mStore.SetKeyPathValue("value", LmValue(++mSteps));
}

bool ObservationScenario::IsRight() const
{
    return mSum == mSteps;
}

ScopedHopScenario::ScopedHopScenario(bool theTwoWay)
    : mBinding(theTwoWay ? LmScopedBinding(&mView, "value", &mModel, "value")
                         : LmScopedBinding::OneWay(&mView, "value", &mModel, "value"))
{
}

void ScopedHopScenario::Step()
{
    mModel.SetKeyPathValue("value", LmValue(++mSteps));
}

bool ScopedHopScenario::IsRight() const
{
    return mView.GetKeyPathValue("value").GetSInt32() == mSteps;
}

ScopedPairScenario::ScopedPairScenario()
{
    mModel.SetKeyPathValue("value", LmValue(1));
}

void ScopedPairScenario::Step()
{
    mSteps += 1;
    const LmScopedBinding theBinding(&mView, "value", &mModel, "value");
    mBound += theBinding.IsBound() ? 1 : 0;
}

bool ScopedPairScenario::IsRight() const
{
    return mBound == mSteps && mView.GetKeyPathValue("value").GetSInt32() == 1;
}

void GroupScenario::Step()
{
    mSteps += 1;
    LmChangeGroup theGroup;
    for (const long theNumber : {-mSteps, mSteps}) {
        for (const char* theKey : {"a", "b", "c", "d", "e"}) {
            theGroup.Set(&mStore, theKey, LmValue(theNumber));
        }
    }
}

bool GroupScenario::IsRight() const
{
    return mStore.GetKeyPathValue("e").GetSInt32() == mSteps;
}

PostScenario::PostScenario()
    : mQueue(&mStore)
{
}

void PostScenario::Step()
{
    mQueue.GetPoster().Set("value", LmValue(++mSteps));
    RunCurrentEventLoop(kEventDurationNoWait);
}

bool PostScenario::IsRight() const
{
    return mStore.GetKeyPathValue("value").GetSInt32() == mSteps;
}
