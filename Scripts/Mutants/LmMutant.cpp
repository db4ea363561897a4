// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMutant.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

unsigned char gOwnNotes[LM_MUTANT_COUNT];

// Before anything of the library runs, and what is constructed when it is loaded.
__attribute__((constructor(101))) void ReadEnvironment()
{
    const char* theMutant = getenv("LM_MUTANT");
    gLmMutant = theMutant != nullptr ? static_cast<unsigned>(strtoul(theMutant, nullptr, 10)) : 0;
    const char* theFile = getenv("LM_MUTANTS_REACHED");
    const int theDescriptor = theFile != nullptr ? open(theFile, O_RDWR | O_CLOEXEC) : -1;
    if (theDescriptor >= 0) {
        void* theNotes = mmap(nullptr, LM_MUTANT_COUNT, PROT_READ | PROT_WRITE, MAP_SHARED, theDescriptor, 0);
        if (theNotes != MAP_FAILED) {
            gLmMutantsReached = static_cast<unsigned char*>(theNotes);
        }
        close(theDescriptor);
    }
}

} // namespace

unsigned gLmMutant = 0;
unsigned char* gLmMutantsReached = gOwnNotes;
