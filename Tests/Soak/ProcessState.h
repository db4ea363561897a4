// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ProcessState_h
#define ProcessState_h

#include <cstddef>

// What this process holds.
struct ProcessState
{
    static ProcessState Now();

    std::size_t theHeap;      // bytes in blocks that are not freed
    std::size_t theResident;  // bytes of memory that are in use, heap and all
    std::size_t theOpenFiles; // descriptors
};

#endif
