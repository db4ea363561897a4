// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"
#include "LmControllers.h"

#include <cstdio>

static void ObserveAKey()
{
    std::printf("A function that is told:\n");
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("volume", LmValue(40));
    {
        const LmObservation theDisplay(&theRadio, "volume", [](const LmChange& theChange) {
            std::printf("  the volume goes from %ld to %ld\n", theChange.theOldValue.GetSInt32(),
                        theChange.theNewValue.GetSInt32());
        });
        theRadio.SetKeyPathValue("volume", LmValue(55));
        theRadio.SetKeyPathValue("volume", LmValue(20));
    }
    theRadio.SetKeyPathValue("volume", LmValue(0)); // nobody is told any more
}

static void BindForAWhile()
{
    std::printf("Bindings that undo themselves:\n");
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theSlider;
    LmKeyValueBinding theText;
    theRadio.SetKeyPathValue("volume", LmValue(40));
    {
        const LmScopedBinding theVolume(&theSlider, "value", &theRadio, "volume");
        const LmScopedBinding theNumber =
            LmScopedBinding::OneWay(&theText, "value", &theRadio, "volume", new LmScaleTransform(10));
        theSlider.SetKeyPathValue("value", LmValue(55));
    }
    theRadio.SetKeyPathValue("volume", LmValue(0));
    std::printf("  the slider is at %ld, the text at %ld, the volume at %ld\n",
                theSlider.GetKeyPathValue("value").GetSInt32(), theText.GetKeyPathValue("value").GetSInt32(),
                theRadio.GetKeyPathValue("volume").GetSInt32());
}

int main()
{
    ObserveAKey();
    BindForAWhile();
}
