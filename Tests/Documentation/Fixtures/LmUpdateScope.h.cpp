// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmUpdateScope.h"
#include "LmKeyValueBinding.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

class Lamp
{
public:
    long GetBrightness() const { return mBrightness; }
    void SetBrightness(long theBrightness)
    {
        mBrightness = theBrightness;
        mSet.push_back(theBrightness);
    }
    void Flicker(long theBrightness) { mBrightness = theBrightness; }
    const std::vector<long>& WhatWasSet() const { return mSet; }

private:
    long mBrightness = 30;
    std::vector<long> mSet;
};

class LampBinding : public LmKeyValueBinding
{
public:
    explicit LampBinding(Lamp& theLamp)
        : mLamp(theLamp)
    {
    }
    void LampHasChanged();
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    Lamp& mLamp;
    bool mUpdateLamp = true;
};

// @code 1

} // namespace

TEST(LmUpdateScope, KeepsCopiesFromBeingWrittenBackAsItsHeaderShows)
{
    Lamp theLamp;
    LampBinding theBinding(theLamp);
    theLamp.Flicker(10);
    theBinding.LampHasChanged();
    EXPECT_EQ(theBinding.GetKeyPathValue("brightness").GetSInt32(), 10);
    EXPECT_TRUE(theLamp.WhatWasSet().empty());
    theBinding.SetKeyPathValue("brightness", LmValue(80L));
    EXPECT_EQ(theLamp.WhatWasSet(), std::vector<long>{80});
}
