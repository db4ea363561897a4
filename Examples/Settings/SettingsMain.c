/* LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE. */

#include "Settings.h"

int main(void)
{
    WindowRef theWindow = MakeSettingsWindow();
    if (theWindow == NULL) {
        return 1;
    }
    ConnectSettings(theWindow);
    InstallSettingsCommands(theWindow);
    ShowWindow(theWindow);
    RunApplicationEventLoop();
    DisconnectSettings(theWindow);
    DisposeWindow(theWindow);
    return 0;
}
