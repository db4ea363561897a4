// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_FileStatus_h
#define System_FileStatus_h

#include <CoreServices/MacErrors.h>

namespace Host {

// What the last call of the system that failed means to callers of the File Manager.
OSErr LastFileStatus();

// noErr for a call that gave no negative result.
inline OSErr FileStatusOf(int theResult)
{
    return theResult < 0 ? LastFileStatus() : OSErr{noErr};
}

} // namespace Host

#endif
