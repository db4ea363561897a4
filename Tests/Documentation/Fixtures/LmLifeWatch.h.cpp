// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLifeWatch.h"
#include "LmKeyValueBinding.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class Lamp
{
public:
    void SetBrightness(long theBrightness)
    {
        mBrightness = theBrightness;
        if (mListener) {
            mListener();
        }
    }
    void SetListener(const std::function<void()>& theListener) { mListener = theListener; }

private:
    long mBrightness = 0;
    std::function<void()> mListener;
};

class LampBinding : public LmKeyValueBinding
{
public:
    explicit LampBinding(Lamp& theLamp)
        : mLamp(theLamp)
    {
    }

    void Shine(long theBrightness, bool* theGoesOn)
    {
        *theGoesOn = false;
        // @code 1
        *theGoesOn = true;
    }

private:
    Lamp& mLamp;
};

} // namespace

TEST(LmLifeWatch, TellsThatAStoreIsGoneAsItsHeaderShows)
{
    Lamp theLamp;
    LampBinding* theBinding = new LampBinding(theLamp);
    bool goesOn = false;
    theBinding->Shine(10, &goesOn);
    EXPECT_TRUE(goesOn);

    theLamp.SetListener([&] { delete theBinding; });
    theBinding->Shine(20, &goesOn);
    EXPECT_FALSE(goesOn);
}
