// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Machine.h"

#include <algorithm>
#include <unistd.h>

namespace Host {

std::uint64_t PhysicalMemory()
{
    const long thePages = std::max(sysconf(_SC_PHYS_PAGES), 0L);
    const long thePageSize = std::max(sysconf(_SC_PAGESIZE), 0L);
    return static_cast<std::uint64_t>(thePages) * static_cast<std::uint64_t>(thePageSize);
}

} // namespace Host
