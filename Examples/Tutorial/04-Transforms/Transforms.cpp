// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"
#include "RadioTransforms.h"
#include "RadioWindow.h"
#include "ShowScreen.h"

#include <cstdio>

int main()
{
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("volume", LmValue(4L)); // this radio counts from 0 to 10

    WindowRef theWindow = MakeRadioWindow();
    LmControlBinding* theSlider = new LmControlBinding(theWindow, kVolumeSlider);
    theSlider->Bind("value", &theRadio, "volume", new LmScaleTransform(10), new LmScaleTransform(0.1));

    LmControlBinding* theText = new LmControlBinding(theWindow, kVolumeText);
    theText->BindTo("value", theSlider, "value", NewPercentTransform());

    LmKeyValueBinding theLog;
    theLog.BindTo("loudness", theSlider, "value", new LoudnessTransform);

    ShowWindow(theWindow);
    ShowScreen("The slider shows 40 for a volume of 4:");

    theRadio.SetKeyPathValue("volume", LmValue(7L));
    ShowScreen("The volume is 7:");
    CFShow(theLog.GetKeyPathValue("loudness").GetString());

    SetControl32BitValue(FindControl(theWindow, kVolumeSlider), 38);
    ShowScreen("The slider was moved to 38, and the volume is a whole number:");
    std::printf("volume %ld\n", theRadio.GetKeyPathValue("volume").GetSInt32());

    theLog.Unbind("loudness", theSlider);
    DisposeWindow(theWindow);
}
