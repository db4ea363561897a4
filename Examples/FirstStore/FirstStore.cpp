// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The first steps: two objects bound to each other, and an observer.

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
    theModel.ObserveKeyPathValue("volume", &theMeter);
    theSlider.Bind("value", &theModel, "volume", NULL, NULL); // each follows the other from here on
    theSlider.SetKeyPathValue("value", LmValue(55UL));
}
