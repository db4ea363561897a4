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

// Removing a one-way binding reports the status -50 when nothing was ever bound to the other object's key.
// So that these reports are neither seen nor measured, something is bound to it for a moment.
void KeepRemovalSilent(LmKeyValueBinding& theModel)
{
    LmKeyValueBinding theOther;
    theOther.Bind("value", &theModel, "value", nullptr, nullptr);
    theOther.Unbind("value", &theModel);
}

void BindValues(LmKeyValueBinding& theView, LmKeyValueBinding& theModel, bool theTwoWay)
{
    if (theTwoWay) {
        theView.Bind("value", &theModel, "value", nullptr, nullptr);
    } else {
        KeepRemovalSilent(theModel);
        theView.BindTo("value", &theModel, "value", nullptr);
    }
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
    BindValues(mView, mModel, theTwoWay);
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
        BindValues(mObjects[theIndex], mObjects[theIndex - 1], true);
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

FanOutScenario::FanOutScenario(std::size_t theWidth, bool theTwoWay)
    : mViews(theWidth)
{
    for (LmKeyValueBinding& theView : mViews) {
        BindValues(theView, mModel, theTwoWay);
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

BoundKeysScenario::BoundKeysScenario(std::size_t theKeys)
{
    std::vector<std::string> theNames;
    for (std::size_t theIndex = 0; theIndex < theKeys; ++theIndex) {
        const LmString theKey = BenchmarkKey(theIndex);
        mView.Bind(theKey, &mModel, theKey, nullptr, nullptr);
        theNames.emplace_back(theKey.GetUTF8());
    }
    std::sort(theNames.begin(), theNames.end());
    mKey = theNames[theKeys / 2].c_str();
}

void BoundKeysScenario::Step()
{
    mModel.SetKeyPathValue(mKey, NextValue(mSteps));
}

bool BoundKeysScenario::IsRight() const
{
    return mView.GetKeyPathValue(mKey).GetSInt32() == mSteps;
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
        BindValues(mViews[theIndex], mModels[theIndex], true);
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

FollowersScenario::FollowersScenario(std::size_t theFollowers)
    : mViews(theFollowers)
{
}

void FollowersScenario::Step()
{
    mModel.SetKeyPathValue("value", NextValue(mSteps));
    for (LmKeyValueBinding& theView : mViews) {
        BindValues(theView, mModel, true);
    }
    // The prime number leads to every view once, now here, now there.
    constexpr std::size_t kStride = 7919;
    for (std::size_t theIndex = 0; theIndex < mViews.size(); ++theIndex) {
        mViews[theIndex * kStride % mViews.size()].Unbind("value", &mModel);
    }
}

bool FollowersScenario::IsRight() const
{
    return std::all_of(mViews.begin(), mViews.end(), [this](const LmKeyValueBinding& theView) {
        return NumberOf(theView, "value") == mSteps;
    });
}
