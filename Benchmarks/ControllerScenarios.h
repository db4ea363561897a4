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

// A change of one object's key that arrives in another's through a scoped binding.
class ScopedHopScenario
{
public:
    explicit ScopedHopScenario(bool theTwoWay);
    void Step();
    bool IsRight() const;

private:
    LmKeyValueBinding mModel;
    LmKeyValueBinding mView;
    LmScopedBinding mBinding;
    long mSteps = 0;
};

// A scoped binding that is made and undone.
class ScopedPairScenario
{
public:
    ScopedPairScenario();
    void Step();
    bool IsRight() const;

private:
    LmKeyValueBinding mModel;
    LmKeyValueBinding mView;
    long mSteps = 0;
    long mBound = 0; // how many were really made
};

// Ten sets of five keys, collected in a group and made.
class GroupScenario
{
public:
    void Step();
    bool IsRight() const;

private:
    LmKeyValueStore mStore;
    long mSteps = 0;
};

// A set that is posted and made when the event loop runs.
class PostScenario
{
public:
    PostScenario();
    void Step();
    bool IsRight() const;

private:
    LmKeyValueStore mStore;
    LmMainQueue mQueue;
    long mSteps = 0;
};

#endif
