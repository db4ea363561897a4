// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ProcessState.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <unistd.h>

namespace {

std::size_t ResidentBytes()
{
    std::ifstream theFile("/proc/self/statm");
    std::size_t thePagesInAll = 0;
    std::size_t thePages = 0;
    theFile >> thePagesInAll >> thePages;
    return thePages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::size_t CountOpenFiles()
{
    const std::filesystem::directory_iterator theFirst("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(theFirst, std::filesystem::directory_iterator()));
}

} // namespace

ProcessState ProcessState::Now()
{
    const struct mallinfo2 theInfo = mallinfo2();
    return {theInfo.uordblks + theInfo.hblkhd, ResidentBytes(), CountOpenFiles()};
}
