// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"
#include "LmControllers.h"

#include <Carbon/Carbon.h>

#include <cstdio>
#include <thread>

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

static void GroupChanges()
{
    std::printf("Several changes at once:\n");
    LmKeyValueBinding theRadio;
    const LmObservation theDisplay(&theRadio, "volume", [](const LmChange& theChange) {
        std::printf("  the volume is %ld\n", theChange.theNewValue.GetSInt32());
    });
    {
        LmChangeGroup theGroup;
        for (long theVolume = 0; theVolume <= 40; ++theVolume) {
            theGroup.Set(&theRadio, "volume", LmValue(theVolume));
        }
    }
}

static void FindStations()
{
    std::printf("News from another thread:\n");
    LmKeyValueBinding theRadio;
    const LmObservation theDisplay(&theRadio, "stations", [](const LmChange& theChange) {
        std::printf("  there are %ld stations\n", theChange.theNewValue.GetSInt32());
        QuitApplicationEventLoop();
    });
    const LmMainQueue theQueue(&theRadio);
    std::thread theSearch([thePoster = theQueue.GetPoster()] {
        thePoster.Set("stations", LmValue(17)); // what a search takes its time to find
    });
    RunApplicationEventLoop();
    theSearch.join();
}

int main()
{
    ObserveAKey();
    BindForAWhile();
    GroupChanges();
    FindStations();
}
