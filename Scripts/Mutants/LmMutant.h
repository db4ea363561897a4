// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmMutant_h
#define LmMutant_h

// What sources that Scripts/Mutants.py has written anew ask for: whether they shall have this fault now.
//
// The environment chooses one of all (LM_MUTANT). Every fault that is asked for is noted in gLmMutantsReached, which
// is a file when the environment names one (LM_MUTANTS_REACHED), so that processes share it.

#include <type_traits>

#define LM_MUTANT_COUNT (1U << 20U)

extern "C" {
extern __attribute__((visibility("default"))) unsigned gLmMutant;
extern __attribute__((visibility("default"))) unsigned char* gLmMutantsReached;
}

inline bool LmMutantAtRunTime(unsigned theNumber)
{
    gLmMutantsReached[theNumber] = 1;
    return theNumber == gLmMutant;
}

// What the compiler computes has no faults.
constexpr bool LmMutant(unsigned theNumber)
{
    if (__builtin_is_constant_evaluated()) {
        return false;
    }
    return LmMutantAtRunTime(theNumber);
}

// What a function returns instead of an object: one without content.
template <typename Type>
Type LmMutantNothing()
{
    if constexpr (std::is_default_constructible_v<Type>) {
        return Type();
    } else {
        return Type(nullptr);
    }
}

#endif
