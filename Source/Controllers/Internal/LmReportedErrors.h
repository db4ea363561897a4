// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmReportedErrors_h
#define LmReportedErrors_h

#include "LmDiagnosticHandler.h"

#include <Carbon/Carbon.h>

// Makes a call of Carbon whose status nobody waits for, and says it where it is an error, as the bindings do
// that these ones are derived from: "Source/Controllers/X.cpp, line 13: Error -50".
#define LM_REPORT_ERROR(theCall) LmReportError(__FILE__, __LINE__, theCall)

inline void LmReportError(const char* theFile, int theLine, OSStatus theStatus)
{
    if (theStatus != noErr) {
        LmReportDiagnostic(theFile, theLine, "Error %ld", static_cast<long>(theStatus));
    }
}

#endif
