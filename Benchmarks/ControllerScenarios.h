// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControllerScenarios_h
#define ControllerScenarios_h

// The scenarios of what stands around stores and bindings. Each has Step and IsRight, as in Scenarios.h.

#include <LmBindings.h>
#include <LmControllers.h>

// A change of a key that a function observes.
class ObservationScenario
{
public:
    ObservationScenario();
    void Step();
    bool IsRight() const;

private:
    LmKeyValueStore mStore;
    LmObservation mObservation;
    long mSteps = 0;
    long mSum = 0; // of the differences that the function was told
};

#endif
