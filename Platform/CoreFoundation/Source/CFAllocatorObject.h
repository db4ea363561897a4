// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFAllocatorObject_h
#define CFAllocatorObject_h

#include "CFRuntime.h"

struct __CFAllocator : Host::Object
{
    constexpr __CFAllocator()
        : Object(Host::kAllocatorType, Host::kImmortal)
    {
    }
};

#endif
