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

int main()
{
    ObserveAKey();
}
