// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmCallers_h
#define LmCallers_h

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// A file that a program runs code of. Not part of the interface.
struct LmModule
{
    std::string thePath;
    std::uintptr_t theBase = 0; // where the start of the file lies, or would
    std::uintptr_t theEnd = 0;  // the first address behind it
    bool isFixed = false;       // addresses in the file are those in memory
    std::string theBuild;       // the build id, hexadecimal; empty for none
    bool isWritten = false;     // it stands in the journal's file

    bool Holds(std::uintptr_t theAddress) const { return theAddress >= theBase && theAddress < theEnd; }
};

// Who has called the library, as addresses, and the modules that these lie in. Not part of the interface.
//
// The modules are read from the system's list of what the process has in its memory, a file; on a system
// without one there are addresses alone.
class LmCallers
{
public:
    // The addresses of the innermost callers outside of the library, at most theCount; may throw
    // std::bad_alloc.
    void Collect(std::size_t theCount);

    // What was collected last.
    const std::vector<std::uintptr_t>& Get() const { return mAddresses; }

    // The module that an address lies in, or null.
    LmModule* FindModule(std::uintptr_t theAddress);

    // All modules have to be written again.
    void ForgetWritten();

private:
    LmModule* FindKnown(std::uintptr_t theAddress);
    void ReadModules();
    bool IsOwn(std::uintptr_t theAddress);

    std::vector<std::uintptr_t> mAddresses;
    std::vector<LmModule> mModules;
    std::vector<std::uintptr_t> mNowhere; // addresses that lie in no module
};

// Reads what a file in the format of executables on Linux says of itself: its build id, and whether its
// addresses are fixed. Leaves a module alone whose file is of another format, or cannot be read.
void LmReadModuleFile(LmModule& theModule);

#endif
