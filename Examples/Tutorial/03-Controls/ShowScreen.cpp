// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ShowScreen.h"

#include <cstdio>
#include <Simulation/UserSimulator.h>

void ShowScreen(const char* theLine)
{
    std::printf("%s\n%s\n", theLine, Host::UserSimulator().DescribeScreen().c_str());
    std::fflush(stdout); // before what follows on the standard error stream
}
