// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// An application's own model object, which knows nothing of bindings, and a binding that makes its one
// property available as a key. LmExampleBinding.h is the pattern.

#include "LmBindings.h"

#include <cstdio>
#include <functional>

// A lamp as an application might have it. It tells one listener when it changes by itself.
class Lamp
{
public:
    int GetBrightness() const { return mBrightness; }

    void SetBrightness(int theBrightness)
    {
        mBrightness = theBrightness;
        if (mListener) {
            mListener();
        }
    }

    void SetListener(const std::function<void()>& theListener) { mListener = theListener; }

private:
    int mBrightness = 30;
    std::function<void()> mListener;
};

// Makes "brightness" of a lamp a key.
class LampBinding : public LmKeyValueBinding
{
public:
    explicit LampBinding(Lamp& theLamp)
        : mLamp(theLamp)
    {
        mLamp.SetListener([this] { SyncBrightness(); });
        SyncBrightness();
    }
    ~LampBinding() override { mLamp.SetListener(nullptr); }

    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        if (mUpdateLamp && theKey == "brightness") {
            mLamp.SetBrightness(static_cast<int>(theValue.GetSInt32()));
        }
        LmKeyValueStore::SetKeyValue(theKey, theValue);
    }

private:
    // The lamp's own changes are not written back into the lamp.
    void SyncBrightness()
    {
        const LmUpdateScope theScope(this, mUpdateLamp);
        SetKeyPathValue("brightness", LmValue(static_cast<long>(mLamp.GetBrightness())));
    }

    Lamp& mLamp;
    bool mUpdateLamp = true;
};

int main()
{
    Lamp theLamp;
    LampBinding theBinding(theLamp);
    LmKeyValueBinding theDimmer;
    theDimmer.Bind("position", &theBinding, "brightness", NULL, NULL);
    std::printf("the dimmer begins at %ld\n", theDimmer.GetKeyPathValue("position").GetSInt32());

    theDimmer.SetKeyPathValue("position", LmValue(80L));
    std::printf("the dimmer is turned up: the lamp shines at %d\n", theLamp.GetBrightness());

    theLamp.SetBrightness(10);
    std::printf("the lamp flickers: the dimmer follows to %ld\n",
                theDimmer.GetKeyPathValue("position").GetSInt32());
}
