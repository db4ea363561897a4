// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FuzzTarget_h
#define FuzzTarget_h

// A fuzz target hands bytes, whatever they are, to one thing that reads what others wrote, and ends the
// process when a promise is broken. In the build of the preset `fuzz` libFuzzer makes the bytes; in every
// other build Replay.cpp hands it the kept ones.

#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize);

// Ends the process with a line that says which promise is broken.
#define FUZZ_EXPECT(theCondition)                                                                            \
    do {                                                                                                     \
        if (!(theCondition)) {                                                                               \
            std::fprintf(stderr, "%s:%d: not true: %s\n", __FILE__, __LINE__, #theCondition);                \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

// Holds one reference, which may be NULL, and releases it at the end of the scope.
template <class Reference>
class Held
{
public:
    explicit Held(Reference theReference)
        : mReference(theReference)
    {
    }
    ~Held()
    {
        if (mReference != nullptr) {
            CFRelease(mReference);
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    operator Reference() const { return mReference; }

private:
    Reference mReference; // owned; may be null
};

#endif
