// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFAllocatorObject.h"

namespace {

const __CFAllocator gSystemDefault;
const __CFAllocator gMalloc;
const __CFAllocator gNull;

} // namespace

const Host::TypeOperations Host::kAllocatorType = {
    Host::kAllocatorTypeID, "CFAllocator", nullptr, nullptr, nullptr, nullptr, nullptr};

const CFAllocatorRef kCFAllocatorSystemDefault = &gSystemDefault;
const CFAllocatorRef kCFAllocatorMalloc = &gMalloc;
const CFAllocatorRef kCFAllocatorNull = &gNull;

CFTypeID CFAllocatorGetTypeID()
{
    return Host::kAllocatorTypeID;
}

CFAllocatorRef CFAllocatorGetDefault()
{
    return kCFAllocatorSystemDefault;
}
