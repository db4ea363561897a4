// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_Guarded_h
#define Base_Guarded_h

#include <Carbon/Carbon.h>
#include <new>
#include <stdexcept>

namespace Host {

// Runs the body of a call that needs memory, and answers memFullErr when there is none: no exception leaves
// the C interface.
template <class Body>
OSStatus Guarded(const Body& theBody)
{
    try {
        return theBody();
    } catch (const std::bad_alloc&) {
        return memFullErr;
    } catch (const std::length_error&) {
        return memFullErr;
    }
}

} // namespace Host

#endif
