// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where there is a folder of processes; others tell nothing.

#include "CommandLine.h"

#include <fstream>
#include <unistd.h>

namespace Host {

std::vector<std::string> ProgramArguments()
{
    std::ifstream theFile("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> theArguments;
    std::string theArgument;
    std::getline(theFile, theArgument, '\0');
    while (std::getline(theFile, theArgument, '\0')) {
        theArguments.push_back(theArgument);
    }
    return theArguments;
}

std::int32_t ProcessNumber()
{
    return getpid();
}

} // namespace Host
