// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Program.h"

#include "Status.h"

#include <exception>
#include <iostream>

int main(int theCount, char** theArguments)
{
    try {
        std::ios::sync_with_stdio(false);
        const int theStatus =
            Inspect::RunProgram({theArguments + 1, theArguments + theCount}, std::cout, std::cerr);
        std::cout.flush();
        if (!std::cout) {
            std::cerr << "lminspect: the output could not be written\n";
            return Inspect::kTrouble;
        }
        return theStatus;
    } catch (const std::exception& theException) {
        std::cerr << "lminspect: " << theException.what() << "\n";
        return Inspect::kTrouble;
    }
}
