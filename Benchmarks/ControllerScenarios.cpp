// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControllerScenarios.h"

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
