// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Touches the library of controllers once.

#include <cstdio>
#include <LmBindings.h>
#include <LmControllers.h>

int main()
{
    LmKeyValueStore theModel;
    theModel.SetKeyPathValue("volume", LmValue(7));
    const LmObservation theObservation(&theModel, "volume", [](const LmChange& theChange) {
        std::printf("volume %ld, was %ld\n", theChange.theNewValue.GetSInt32(),
                    theChange.theOldValue.GetSInt32());
    });
    theModel.SetKeyPathValue("volume", LmValue(11));
    return 0;
}
