// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioApplication.h"
#include "ShowScreen.h"

int main()
{
    {
        RadioApplication theApplication;
        ShowScreen("The first time:");
        theApplication.GetRadio().Set("station", LmValue(CFSTR("News"), false));
        theApplication.GetRadio().Set("volume", LmValue(65L));
        MoveWindow(theApplication.GetWindow(), 240, 160, false);
    }
    const RadioApplication theApplication;
    ShowScreen("The second time:");
}
