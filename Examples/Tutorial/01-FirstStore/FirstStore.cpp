// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"

#include <cstdio>

class Display : public LmKeyValueObserver
{
public:
    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKey) override
    {
        std::printf("  %s was %ld\n", theKey.GetUTF8(), theStore->GetKeyPathValue(theKey).GetSInt32());
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKey) override
    {
        std::printf("  %s is %ld\n", theKey.GetUTF8(), theStore->GetKeyPathValue(theKey).GetSInt32());
    }
};

int main()
{
    LmKeyValueStore theRadio;
    theRadio.SetKeyPathValue("volume", LmValue(40L));

    Display theDisplay;
    theRadio.ObserveKeyPathValue("volume", &theDisplay);

    std::printf("The radio is turned up:\n");
    theRadio.SetKeyPathValue("volume", LmValue(55L));

    std::printf("The same again:\n");
    theRadio.SetKeyPathValue("volume", LmValue(55L));

    std::printf("Another key:\n");
    theRadio.SetKeyPathValue("treble", LmValue(3L));
}
