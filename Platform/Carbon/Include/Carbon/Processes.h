// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Processes_h
#define Processes_h

// Programs that run. This one is all that there is to see: others are not listed.

#include <Carbon/CarbonBase.h>
#include <CoreServices/MacErrors.h>

typedef ProcessSerialNumber* ProcessSerialNumberPtr;

// Serial numbers that stand for something; the high half is 0.
enum
{
    kNoProcess = 0,
    kSystemProcess = 1,
    kCurrentProcess = 2
};

// Ends the program at once with success. What the C library does at the end of a program is done.
CARBON_EXPORT void ExitToShell(void) __attribute__((noreturn));

// The serial number {0, kCurrentProcess}; the front program is this one too, as far as it can know. paramErr
// for NULL.
CARBON_EXPORT OSErr GetCurrentProcess(ProcessSerialNumber* PSN);
CARBON_EXPORT OSErr GetFrontProcess(ProcessSerialNumber* PSN);

// This program brings its windows to the front by showing them, so there is nothing to be done: noErr.
// Another one is not to be found: procNotFound. paramErr for NULL.
CARBON_EXPORT OSErr SetFrontProcess(const ProcessSerialNumber* PSN);

// Whether both are the same number. paramErr for NULL.
CARBON_EXPORT OSErr SameProcess(const ProcessSerialNumber* PSN1, const ProcessSerialNumber* PSN2,
                                Boolean* result);

#endif
