// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// JournalProgram: a program that knows nothing of journals. It sets a
// key to 1, 2, 3 and so on up to its first argument, and prints a line; then, with a second argument, it
// waits to be killed.

#include "LmKeyValueStore.h"

#include <cstdio>
#include <cstdlib>

int main(int theCount, char** theArguments)
{
    LmKeyValueStore theStore;
    const long theSets = theCount > 1 ? std::strtol(theArguments[1], nullptr, 10) : 1;
    for (long theSet = 1; theSet <= theSets; ++theSet) {
        theStore.SetKeyPathValue("volume", LmValue(theSet));
    }
    std::puts("done");
    std::fflush(stdout);
    if (theCount > 2) {
        std::getchar();
    }
    return EXIT_SUCCESS;
}
