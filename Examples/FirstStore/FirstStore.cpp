// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The first steps: keys, an observer, and two objects bound to each other.

#include "LmBindings.h"

#include <cstdio>

class Meter : public LmKeyValueObserver
{
    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKey) override
    {
        std::printf("%s is now %lu\n", theKey.GetUTF8(), theStore->GetKeyPathValue(theKey).GetUInt32());
    }
};

int main()
{
    LmKeyValueBinding theModel, theSlider;
    Meter theMeter;
    theModel.SetKeyPathValue("volume", LmValue(40UL));
    theSlider.Bind("value", &theModel, "volume", NULL, NULL); // each follows the other from here on
    theModel.ObserveKeyPathValue("volume", &theMeter);
    theSlider.SetKeyPathValue("value", LmValue(55UL));
    theModel.SetKeyPathValue("volume", LmValue(70UL));
    std::printf("the slider shows %lu\n", theSlider.GetKeyPathValue("value").GetUInt32());
}
