// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindRadioWindow.h"
#include "RadioMenu.h"
#include "RadioPlace.h"
#include "RadioWindow.h"
#include "ShowScreen.h"

#include <cstdio>

static void PrintBounds(const LmWindowBinding& theWindow)
{
    const CGRect theBounds = theWindow.GetKeyPathValue("bounds").GetRect();
    std::printf("The window is at %g, %g.\n\n", double(theBounds.origin.x), double(theBounds.origin.y));
}

int main()
{
    Radio theRadio;
    const RadioMenu theMenu(theRadio);
    WindowRef theWindow = MakeRadioWindow();
    BindRadioWindow(theWindow, theRadio);
    LmWindowBinding* thePlace = BindRadioPlace(theWindow, theRadio);
    ShowScreen("The window is shown because the radio's key says so:");
    PrintBounds(*thePlace);

    theRadio.Set("station", LmValue(CFSTR("News"), false));
    MoveWindow(theWindow, 240, 160, false);
    ShowScreen("Another station, another place:");
    PrintBounds(*thePlace);

    HideWindow(theWindow);
    std::printf("Hidden, and the key \"shown\" is %s.\n",
                theRadio.Get("shown").GetBoolean() ? "true" : "false");
    DisposeWindow(theWindow);
}
