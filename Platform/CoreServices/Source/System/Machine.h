// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_Machine_h
#define System_Machine_h

#include <cstdint>

namespace Host {

// The bytes of memory that the machine has; 0 when it does not say.
std::uint64_t PhysicalMemory();

} // namespace Host

#endif
