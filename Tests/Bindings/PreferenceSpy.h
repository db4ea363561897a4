// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PreferenceSpy_h
#define PreferenceSpy_h

#include "StandardErrorCapture.h"

#include <CoreFoundation/CoreFoundation.h>

#include <string>

// Stands between the library and the preferences of CoreFoundation: keeps them in memory, one domain for all
// identifiers, notes the calls, and answers as a test asks where a real answer cannot be produced.
//
// It works by defining functions of CoreFoundation's names in the test program, which the dynamic linker
// finds first.
class PreferenceSpy
{
public:
    // Forgets everything, and keeps the preferences in memory from here on; for the start of a test.
    static void Reset();

    // Lets all calls through to the host's preferences.
    static void UseHost();

    // The property that is stored for theKey, or null. Not owned by the caller.
    static CFTypeRef Stored(const std::string& theKey);

    // Stores a property and takes over the caller's reference to it.
    static void Store(const std::string& theKey, CFTypeRef theProperty);

    // The calls since the last time: "copy Target", "set Target", "synchronise com.example.app".
    static Lines TakeCalls();

    // What synchronising answers.
    static void SetSynchroniseResult(bool theResult);

    // Lets CFNumberGetType answer theType for every number.
    static void SetNumberType(CFNumberType theType);

    // Lets CFNumberGetValue say that the number does not fit.
    static void LoseNumbers();

    // Lets CFNumberCreate and CFDataCreate fail.
    static void FailCreation();

    PreferenceSpy() = delete;
};

#endif
