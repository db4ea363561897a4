// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFContainer.h"

const void* Host::RetainObject(CFAllocatorRef, const void* theObject)
{
    return CFRetain(theObject);
}

void Host::ReleaseObject(CFAllocatorRef, const void* theObject)
{
    CFRelease(theObject);
}
