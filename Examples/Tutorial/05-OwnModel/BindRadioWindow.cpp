// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindRadioWindow.h"

#include "RadioTransforms.h"
#include "RadioWindow.h"

void BindRadioWindow(WindowRef theWindow, Radio& theRadio)
{
    LmKeyValueBinding* theModel = theRadio.GetBindings();
    (new LmControlBinding(theWindow, kStationField))->Bind("value", theModel, "station", NULL, NULL);
    (new LmControlBinding(theWindow, kOnBox))->Bind("value", theModel, "on", NULL, NULL);

    LmControlBinding* theSlider = new LmControlBinding(theWindow, kVolumeSlider);
    theSlider->Bind("value", theModel, "volume", NULL, NULL);
    theSlider->BindTo("enabled", theModel, "on", NULL);

    (new LmControlBinding(theWindow, kVolumeText))
        ->BindTo("value", theModel, "output", NewPercentTransform());
}
