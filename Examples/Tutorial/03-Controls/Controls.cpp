// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"
#include "RadioWindow.h"
#include "ShowScreen.h"

#include <cstdio>

static LmControlBinding* BindControl(WindowRef theWindow, ControlID theID)
{
    return new LmControlBinding(theWindow, theID); // deletes itself together with its control
}

int main()
{
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("station", LmValue(CFSTR("Jazz"), false));
    theRadio.SetKeyPathValue("on", LmValue(true));
    theRadio.SetKeyPathValue("volume", LmValue(40L));

    WindowRef theWindow = MakeRadioWindow();
    BindControl(theWindow, kStationField)->Bind("value", &theRadio, "station", NULL, NULL);
    BindControl(theWindow, kOnBox)->Bind("value", &theRadio, "on", NULL, NULL);

    LmControlBinding* theSlider = BindControl(theWindow, kVolumeSlider);
    theSlider->Bind("value", &theRadio, "volume", NULL, NULL);
    theSlider->BindTo("enabled", &theRadio, "on", NULL);

    ShowWindow(theWindow);
    ShowScreen("The window opens:");

    SetControl32BitValue(FindControl(theWindow, kVolumeSlider), 55);
    std::printf("The slider was moved, and the volume is %ld.\n\n",
                theRadio.GetKeyPathValue("volume").GetSInt32());

    theRadio.SetKeyPathValue("on", LmValue(false));
    ShowScreen("The radio was switched off:");

    DisposeWindow(theWindow);
}
