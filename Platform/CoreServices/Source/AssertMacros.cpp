// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <AssertMacros.h>
#include <cstdio>
#include <Debugging.h>
#include <string>

void __CoreServicesAssertionFailed(const char* inAssertion, const char* inMessage, long inError,
                                   const char* inFile, long inLine)
{
    std::string theLine = std::string("Assertion failed: ") + inAssertion;
    if (inMessage != nullptr) {
        theLine += std::string(", ") + inMessage;
    }
    if (inError != 0) {
        theLine += ", error " + std::to_string(inError);
    }
    std::fprintf(stderr, "%s, %s:%ld\n", theLine.c_str(), inFile, inLine);
}
