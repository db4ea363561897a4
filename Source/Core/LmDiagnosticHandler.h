// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmDiagnosticHandler_h
#define LmDiagnosticHandler_h

// Where everything passes that the library has to say about what is wrong, and how to have it elsewhere than
// on the standard error stream.
//
//     void NoteProblem(const LmDiagnostic& theDiagnostic, void* theLog)
//     {
//         static_cast<Log*>(theLog)->Add(theDiagnostic.theMessage);
//     }
//
// Set once, it receives all that comes after:
//
//     LmSetDiagnosticHandler(&NoteProblem, &theLog);
//
// To see who caused a diagnostic, set a breakpoint on LmReportDiagnostic.
//
// Two variables of the environment, read at the first diagnostic, help with tests and with programs that have
// been delivered:
//
// - LM_FATAL=1 aborts the program at the first diagnostic, after it has been printed or handed on.
// - LM_QUIET=1 prints none. A handler receives them all the same.
//
// Documentation/Diagnostics.md lists every diagnostic with its cause and its cure.

#include "LmExport.h"

// One diagnostic. All of it belongs to the library, and is good for the time of the call.
struct LmDiagnostic
{
    const char* theFile;    // the source file that reports, by its place in the project
    int theLine;            // in theFile
    const char* theMessage; // the condition that does not hold, "Error -50", or what else is wrong
};

// Receives diagnostics. theUserData is what LmSetDiagnosticHandler was given.
//
// It is called in the midst of any call of the library. So it must not change a key, begin or end an
// observation, bind or destroy an object; and it must not throw.
using LmDiagnosticHandler = void (*)(const LmDiagnostic& theDiagnostic, void* theUserData);

// From now on, hands every diagnostic to theHandler instead of printing it; null prints them again. There is
// one handler in the process; theUserData is not owned.
//
// What theHandler itself gives cause for is printed, not handed on.
LM_EXPORT void LmSetDiagnosticHandler(LmDiagnosticHandler theHandler, void* theUserData);

// Reports what is wrong: prints "file, line n: message" on the standard error stream, or hands it to the
// handler. Every diagnostic of the library comes by here, and an application may report its own in the same
// way.
//
// The message is what printf makes of theFormat and the arguments after it. Nothing is thrown: where there is
// no memory for a very long message, the handler gets its beginning. Errors of the stream are ignored.
LM_EXPORT void LmReportDiagnostic(const char* theFile, int theLine, const char* theFormat, ...)
    LM_PRINTF_FORMAT(3, 4);

#endif
