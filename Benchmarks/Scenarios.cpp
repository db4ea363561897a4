// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Scenarios.h"

#include <algorithm>

namespace {

LmValue NextValue(long& theSteps)
{
    return LmValue(++theSteps);
}

long NumberOf(const LmKeyValueStore& theStore, const char* theKey)
{
    return theStore.GetKeyPathValue(theKey).GetSInt32();
}

} // namespace

LmString BenchmarkKey(std::size_t theIndex)
{
    return LmString(("k" + std::to_string(theIndex)).c_str());
}

SetKeyScenario::SetKeyScenario(std::size_t theKeys, std::size_t theObservers)
    : mObservers(theObservers),
      mKey(BenchmarkKey(theKeys / 2))
{
    for (std::size_t theIndex = 0; theIndex < theKeys; ++theIndex) {
        mStore.SetKeyPathValue(BenchmarkKey(theIndex), LmValue(0L));
    }
    for (CountingObserver& theObserver : mObservers) {
        mStore.ObserveKeyPathValue(mKey, &theObserver);
    }
}

void SetKeyScenario::Step()
{
    mStore.SetKeyPathValue(mKey, NextValue(mSteps));
}

bool SetKeyScenario::IsRight() const
{
    const auto theSteps = static_cast<std::size_t>(mSteps);
    return mStore.GetKeyPathValue(mKey).GetSInt32() == mSteps &&
           std::all_of(mObservers.begin(), mObservers.end(), [theSteps](const CountingObserver& theObserver) {
               return theObserver.mChanging == theSteps && theObserver.mChanged == theSteps;
           });
}

HopScenario::HopScenario(bool theTwoWay)
{
    if (theTwoWay) {
        mView.Bind("value", &mModel, "value", nullptr, nullptr);
    } else {
        mView.BindTo("value", &mModel, "value", nullptr);
    }
}

void HopScenario::Step()
{
    mModel.SetKeyPathValue("value", NextValue(mSteps));
}

bool HopScenario::IsRight() const
{
    return NumberOf(mView, "value") == mSteps;
}

ChainScenario::ChainScenario(std::size_t theLength)
    : mObjects(theLength + 1)
{
    for (std::size_t theIndex = 1; theIndex < mObjects.size(); ++theIndex) {
        mObjects[theIndex].Bind("value", &mObjects[theIndex - 1], "value", nullptr, nullptr);
    }
}

void ChainScenario::Step()
{
    mObjects.front().SetKeyPathValue("value", NextValue(mSteps));
}

bool ChainScenario::IsRight() const
{
    return NumberOf(mObjects.back(), "value") == mSteps;
}

FanOutScenario::FanOutScenario(std::size_t theWidth)
    : mViews(theWidth)
{
    for (LmKeyValueBinding& theView : mViews) {
        theView.Bind("value", &mModel, "value", nullptr, nullptr);
    }
}

void FanOutScenario::Step()
{
    mModel.SetKeyPathValue("value", NextValue(mSteps));
}

bool FanOutScenario::IsRight() const
{
    return std::all_of(mViews.begin(), mViews.end(), [this](const LmKeyValueBinding& theView) {
        return NumberOf(theView, "value") == mSteps;
    });
}

PairsScenario::PairsScenario(std::size_t thePairs)
    : mModels(thePairs),
      mViews(thePairs)
{
}

void PairsScenario::Step()
{
    const LmValue theValue = NextValue(mSteps);
    for (std::size_t theIndex = 0; theIndex < mModels.size(); ++theIndex) {
        mModels[theIndex].SetKeyPathValue("value", theValue);
        mViews[theIndex].Bind("value", &mModels[theIndex], "value", nullptr, nullptr);
    }
    for (std::size_t theIndex = 0; theIndex < mModels.size(); ++theIndex) {
        mViews[theIndex].Unbind("value", &mModels[theIndex]);
    }
}

bool PairsScenario::IsRight() const
{
    return std::all_of(mViews.begin(), mViews.end(), [this](const LmKeyValueBinding& theView) {
        return NumberOf(theView, "value") == mSteps;
    });
}
