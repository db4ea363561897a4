// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CarbonSpy_h
#define CarbonSpy_h

#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>

#include <string>

// Stands between the library and Carbon: notes the calls that write into a control, a menu or a window, and
// makes single calls fail on demand.
//
// It works by defining functions of Carbon's names in the test program, which the dynamic linker finds first;
// each then calls the real one. The tests' own calls pass through it too.
class CarbonSpy
{
public:
    // Forgets everything; for the start of a test.
    static void Reset();

    // The writing calls since the last time, by name.
    static Lines TakeWrites();

    // The events that InstallEventHandler was last asked for: "cntl 151".
    static Lines LastEvents();

    // Lets every further call of theName fail with theStatus, without doing anything; GetControlByID finds
    // its control all the same.
    static void Fail(const std::string& theName, OSStatus theStatus);

    // Lets every further control be of the kind that it is, but of theSignature's making.
    static void PretendKindsOf(OSType theSignature);

    // What SetWindowBounds was last asked for, before the Window Manager made anything of it.
    static Rect LastBounds();

    // For the functions of the spy.
    static OSStatus FailureOf(const char* theName);
    static void NoteWrite(const char* theName);
    static void NoteBounds(const Rect& theBounds);
    static void NoteEvents(const EventTypeSpec* theList, ItemCount theCount);

    CarbonSpy() = delete;
};

#endif
