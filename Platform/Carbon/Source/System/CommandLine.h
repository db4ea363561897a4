// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_CommandLine_h
#define System_CommandLine_h

#include <cstdint>
#include <string>
#include <vector>

namespace Host {

// What the program was started with, without its own name. Nothing where the system does not tell. Throws
// std::bad_alloc.
std::vector<std::string> ProgramArguments();

// What the system knows this process by.
std::int32_t ProcessNumber();

} // namespace Host

#endif
