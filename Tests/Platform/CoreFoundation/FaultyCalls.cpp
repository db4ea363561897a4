// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FaultyCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kKill = -1; // for an error

int gCallsUntilFault = -1; // negative: no fault
int gError = 0;
void (*gFunction)() = nullptr;

// Whether this call is the one with the fault. A signal does not interrupt calls that wait for nothing.
bool HasFault(bool theCanWait)
{
    if (gCallsUntilFault < 0 || (gError == EINTR && !theCanWait)) {
        return false;
    }
    return gCallsUntilFault-- == 0;
}

int Fail()
{
    if (gError == kKill) {
        kill(getpid(), SIGKILL);
    }
    errno = gError;
    return -1;
}

void SetFault(int theCalls, int theError)
{
    gCallsUntilFault = theCalls;
    gError = theError;
}

} // namespace

// These take the place of the system's functions in the whole test program, the libraries included.
#pragma GCC visibility push(default)

extern "C" int open64(const char* thePath, int theFlags, ...)
{
    mode_t theMode = 0;
    if ((theFlags & O_CREAT) != 0) {
        va_list theArguments;
        va_start(theArguments, theFlags);
        theMode = static_cast<mode_t>(va_arg(theArguments, unsigned));
        va_end(theArguments);
    }
    return HasFault(true)
               ? Fail()
               : static_cast<int>(syscall(SYS_openat, AT_FDCWD, thePath, theFlags | O_LARGEFILE, theMode));
}

extern "C" ssize_t write(int theDescriptor, const void* theBytes, size_t theCount)
{
    if (!HasFault(true)) {
        return syscall(SYS_write, theDescriptor, theBytes, theCount);
    }
    // A call that a signal has ended early has written something, or nothing and says so.
    if (gError != EINTR) {
        syscall(SYS_write, theDescriptor, theBytes, theCount / 2);
    }
    return Fail();
}

extern "C" int fsync(int theDescriptor)
{
    if (gFunction != nullptr) {
        std::exchange(gFunction, nullptr)();
    }
    return HasFault(true) ? Fail() : static_cast<int>(syscall(SYS_fsync, theDescriptor));
}

// A structure has the same name.
extern "C" int LockFile(int theDescriptor, int theOperation) __asm__("flock");

extern "C" int LockFile(int theDescriptor, int theOperation)
{
    return HasFault(true) ? Fail() : static_cast<int>(syscall(SYS_flock, theDescriptor, theOperation));
}

extern "C" int mkdir(const char* thePath, mode_t theMode) noexcept
{
    return HasFault(false) ? Fail() : static_cast<int>(syscall(SYS_mkdir, thePath, theMode));
}

extern "C" int rename(const char* theOldPath, const char* theNewPath) noexcept
{
    return HasFault(false) ? Fail() : static_cast<int>(syscall(SYS_rename, theOldPath, theNewPath));
}

extern "C" int unlink(const char* thePath) noexcept
{
    return HasFault(false) ? Fail() : static_cast<int>(syscall(SYS_unlink, thePath));
}

#pragma GCC visibility pop

void FaultyCalls::KillAfter(int theCalls)
{
    SetFault(theCalls, kKill);
}

void FaultyCalls::FailAfter(int theCalls, int theError)
{
    SetFault(theCalls, theError);
}

void FaultyCalls::RunInSynchronizing(void (*theFunction)())
{
    gFunction = theFunction;
}

bool FaultyCalls::HasFailed()
{
    return gCallsUntilFault < 0;
}
