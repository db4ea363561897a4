// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"
#include "LmControllers.h"
#include "LmConveniences.h"
#include "RadioWindow.h"

#include <Carbon/Carbon.h>

#include <cstdio>
#include <memory>
#include <Simulation/UserSimulator.h>
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

static void KeepToTheModel()
{
    std::printf("A slider that keeps to the model:\n");
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("volume", LmValue(40));
    const WindowRef theWindow = MakeRadioWindow();
    {
        LmSettledControlBinding* theSlider = new LmSettledControlBinding(theWindow, kVolumeSlider);
        theSlider->Bind("value", &theRadio, "volume", NULL, new LmRangeTransform(0, 60, 5));
        SetControl32BitValue(FindControl(theWindow, kVolumeSlider), 33);
    }
    std::printf("  the slider is at %d, the volume at %ld\n",
                static_cast<int>(GetControl32BitValue(FindControl(theWindow, kVolumeSlider))),
                theRadio.GetKeyPathValue("volume").GetSInt32());
    DisposeWindow(theWindow);
}

// Frequencies from 87.5 to 108.0 megahertz, in tenths.
class FrequencyFormatter : public LmDecimalFormatter
{
public:
    FrequencyFormatter()
        : LmDecimalFormatter(1, 875, 1080)
    {
    }

    LmReading Parse(CFStringRef theText) const override
    {
        const LmReading theReading = LmDecimalFormatter::Parse(theText);
        return theReading.IsAccepted() ? theReading
                                       : LmReading::Refuse("There are stations from 87.5 to 108.0.");
    }
};

static void TypeAFrequency()
{
    std::printf("A field that is right:\n");
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("frequency", LmValue(985));
    const WindowRef theWindow = MakeRadioWindow();
    ShowWindow(theWindow);
    Host::UserSimulator theUser;
    {
        LmTextFieldBinding* theField =
            new LmTextFieldBinding(theWindow, kStationField, std::make_shared<FrequencyFormatter>());
        theField->Bind("value", &theRadio, "frequency", NULL, NULL);
        const LmObservation theMessage(theField, "problem", [](const LmChange& theChange) {
            std::printf("  the problem is \"%s\"\n", LmGetStdString(theChange.theNewValue).c_str());
        });
        theUser.Click(FindControl(theWindow, kStationField));
        theUser.PressKey(kVK_ANSI_A, cmdKey); // selects what stands there
        theUser.TypeText("120\n");
        theUser.TypeText("101\n");
        std::printf("  the frequency is %ld\n", theRadio.GetKeyPathValue("frequency").GetSInt32());
    }
    std::printf("  %s\n", theUser.DescribeControl(FindControl(theWindow, kStationField)).c_str());
    DisposeWindow(theWindow);
}

static ControlRef AddBandButton(WindowRef theWindow, CFStringRef theTitle, SInt32 theNumber)
{
    const short theTop = static_cast<short>(100 + 20 * theNumber);
    const Rect theBounds = {theTop, 18, static_cast<short>(theTop + 18), 120};
    const ControlID theID = {'Band', theNumber};
    ControlRef theButton = NULL;
    CreateRadioButtonControl(theWindow, &theBounds, theTitle, 0, true, &theButton);
    SetControlID(theButton, &theID);
    return theButton;
}

static void ChooseABand()
{
    std::printf("One of several:\n");
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("band", LmValue(1));
    const WindowRef theWindow = MakeRadioWindow();
    const ControlRef theMediumWave = AddBandButton(theWindow, CFSTR("Medium wave"), 0);
    const ControlRef theShortWave = AddBandButton(theWindow, CFSTR("Short wave"), 1);
    {
        LmChoiceBinding theBand({theMediumWave, theShortWave});
        theBand.Bind("tag", &theRadio, "band", NULL, NULL);
        std::printf("  %s\n", LmGetStdString(theBand.GetKeyPathValue("title")).c_str());
        HIViewSimulateClick(theMediumWave, kControlRadioButtonPart, 0, NULL);
        std::printf("  %s, and the band is %ld\n", LmGetStdString(theBand.GetKeyPathValue("title")).c_str(),
                    theRadio.GetKeyPathValue("band").GetSInt32());
    }
    DisposeWindow(theWindow);
}

static void ChooseAStation()
{
    std::printf("Choices that change:\n");
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("station", LmValue(CFSTR("Harbour"), false));
    const WindowRef theWindow = MakeRadioWindow();
    MenuRef theStations = NULL;
    CreateNewMenu(200, 0, &theStations);
    AppendMenuItemTextWithCFString(theStations, CFSTR("City"), 0, 0, NULL);
    AppendMenuItemTextWithCFString(theStations, CFSTR("Harbour"), 0, 0, NULL);
    const Rect theBounds = {100, 18, 120, 178};
    ControlRef thePopUpButton = NULL;
    CreatePopupButtonControl(theWindow, &theBounds, NULL, -12345, false, 0, teFlushDefault, normal,
                             &thePopUpButton);
    SetControlData(thePopUpButton, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag,
                   sizeof theStations, &theStations);
    {
        LmChoiceBinding theStation(thePopUpButton);
        theStation.Bind("title", &theRadio, "station", NULL, NULL);
        InsertMenuItemTextWithCFString(theStations, CFSTR("Coast"), 0, 0, 0); // before the others
        theStation.UpdateChoices();
        std::printf("  %s is item %d of %ld\n", LmGetStdString(theStation.GetKeyPathValue("title")).c_str(),
                    static_cast<int>(GetControl32BitValue(thePopUpButton)),
                    theStation.GetKeyPathValue("count").GetSInt32());
    }
    DisposeWindow(theWindow);
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
    KeepToTheModel();
    TypeAFrequency();
    ChooseABand();
    ChooseAStation();
    GroupChanges();
    FindStations();
}
