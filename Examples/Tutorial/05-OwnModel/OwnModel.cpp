// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindRadioWindow.h"
#include "Radio.h"
#include "RadioWindow.h"
#include "ShowScreen.h"

int main()
{
    Radio theRadio;
    WindowRef theWindow = MakeRadioWindow();
    BindRadioWindow(theWindow, theRadio);
    ShowWindow(theWindow);
    ShowScreen("The radio plays:");

    theRadio.Set("volume", LmValue(65L));
    ShowScreen("The program turns it up:");

    SetControl32BitValue(FindControl(theWindow, kOnBox), 0);
    ShowScreen("The check box was cleared:");

    DisposeWindow(theWindow);
}
