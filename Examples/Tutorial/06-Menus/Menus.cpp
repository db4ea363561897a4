// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioMenu.h"

#include <cstdio>
#include <Simulation/UserSimulator.h>

static void ShowMenu(const char* theLine)
{
    std::printf("%s\n%s\n", theLine, Host::UserSimulator().DescribeMenu("Radio").c_str());
    std::fflush(stdout);
}

int main()
{
    Radio theRadio;
    const RadioMenu theMenu(theRadio);
    ShowMenu("The radio plays:");

    theRadio.Set("on", LmValue(false));
    ShowMenu("The program switched it off:");

    HICommand theCommand = {};
    theCommand.commandID = kCommandOn;
    ProcessHICommand(&theCommand);
    ShowMenu("Somebody chose On:");
}
