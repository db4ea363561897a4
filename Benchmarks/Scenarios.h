// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Scenarios_h
#define Scenarios_h

// What is measured. Each scenario builds what it needs once; Step does the work whose cost is asked for, and
// every call of it makes a real change. IsRight tells after the last step whether the work was really done,
// so that nothing is measured that does not happen.

#include <cstddef>
#include <deque>
#include <LmBindings.h>
#include <string>
#include <vector>

// Keys k0, k1, ... that sort all over a map. Short names, as applications have them.
LmString BenchmarkKey(std::size_t theIndex);

// Counts what it is told.
class CountingObserver : public LmKeyValueObserver
{
public:
    void ValueChanging(const LmKeyValueStore*, const LmString&) override { ++mChanging; }
    void ValueChanged(const LmKeyValueStore*, const LmString&) override { ++mChanged; }

    std::size_t mChanging = 0;
    std::size_t mChanged = 0;
};

// Setting one key of a store of theKeys keys, which theObservers observers watch.
class SetKeyScenario
{
public:
    SetKeyScenario(std::size_t theKeys, std::size_t theObservers);
    void Step();
    bool IsRight() const;

private:
    LmKeyValueStore mStore;
    std::deque<CountingObserver> mObservers;
    LmString mKey;
    long mSteps = 0;
};

// A change of one object's key that arrives in another's, over one hop.
class HopScenario
{
public:
    explicit HopScenario(bool theTwoWay);
    void Step();
    bool IsRight() const;

private:
    LmKeyValueBinding mModel;
    LmKeyValueBinding mView;
    long mSteps = 0;
};

// A change that travels through theLength objects, each bound to the one before.
class ChainScenario
{
public:
    explicit ChainScenario(std::size_t theLength);
    void Step();
    bool IsRight() const;

private:
    std::deque<LmKeyValueBinding> mObjects;
    long mSteps = 0;
};

// A change of one key that theWidth objects follow, each bound to it one way or both ways.
class FanOutScenario
{
public:
    FanOutScenario(std::size_t theWidth, bool theTwoWay);
    void Step();
    bool IsRight() const;

private:
    LmKeyValueBinding mModel;
    std::deque<LmKeyValueBinding> mViews;
    long mSteps = 0;
};

// A change of one of theKeys keys of an object, all of them bound both ways to the keys of another. The key
// stands in the middle of the order in which the objects look for it.
class BoundKeysScenario
{
public:
    explicit BoundKeysScenario(std::size_t theKeys);
    void Step();
    bool IsRight() const;

private:
    LmKeyValueBinding mModel;
    LmKeyValueBinding mView;
    LmString mKey;
    long mSteps = 0;
};

// Binding thePairs pairs of objects both ways, and unbinding them again.
class PairsScenario
{
public:
    explicit PairsScenario(std::size_t thePairs);
    void Step();
    bool IsRight() const;

private:
    std::deque<LmKeyValueBinding> mModels;
    std::deque<LmKeyValueBinding> mViews;
    long mSteps = 0;
};

// Binding theFollowers objects both ways to one key of one object, and unbinding them in another order.
class FollowersScenario
{
public:
    explicit FollowersScenario(std::size_t theFollowers);
    void Step();
    bool IsRight() const;

private:
    LmKeyValueBinding mModel;
    std::deque<LmKeyValueBinding> mViews;
    long mSteps = 0;
};

#endif
