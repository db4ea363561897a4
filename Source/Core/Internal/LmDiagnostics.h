// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmDiagnostics_h
#define LmDiagnostics_h

// How every source file of the library reports what is wrong.
//
// There are three reports, all on the standard error stream, all one line that begins with the place in the
// source:
//
//     LM_ASSERT(theName.IsNotEmpty());          Source/Core/X.cpp, line 12: theName.IsNotEmpty()
//     LM_CHECK_STATUS(DisposeThing(theThing));  Source/Core/X.cpp, line 13: Error -50
//     LM_ERROR("Unknown type: %d", theType);    Source/Core/X.cpp, line 14: Unknown type: 12
//
// None of them stops anything: the statement after a failed check always runs. They are in every build, and
// evaluate their argument exactly once, so a call that must be made may stand inside them. Errors of the
// stream itself are ignored.
//
// The place is where the macro is written. A check whose line shall name a .cpp file therefore has to stand
// in that file, not in an inline function of its header.
//
// All of them go by LmReportDiagnostic, which is where a handler, the environment and a breakpoint come in.

#include "LmDiagnosticHandler.h"

// What is wrong is seldom so.
[[gnu::cold]] void LmReportDiagnostic(const char* theFile, int theLine, const char* theFormat, ...);

// Reports the text of theCondition, exactly as written here, when it is false. The text is taken before
// macros inside it are expanded: LM_ASSERT(thePointer != NULL) says "thePointer != NULL".
#define LM_ASSERT(theCondition)                                                                              \
    (static_cast<bool>(theCondition) ? static_cast<void>(0)                                                  \
                                     : LmReportDiagnostic(__FILE__, __LINE__, "%s", #theCondition))

// Reports the status that theCall returned when it is not noErr. The expression's value is that status.
#define LM_CHECK_STATUS(theCall) LmDiagnostics::CheckStatus(__FILE__, __LINE__, theCall)

// Reports an impossible or unsupported case: a printf format and its arguments.
#define LM_ERROR(...) LmReportDiagnostic(__FILE__, __LINE__, __VA_ARGS__)

namespace LmDiagnostics {

// A template, because a status is an int on some platforms and a long on others.
template <typename Status>
inline Status CheckStatus(const char* theFile, int theLine, Status theStatus)
{
    if (theStatus != 0) {
        LmReportDiagnostic(theFile, theLine, "Error %ld", static_cast<long>(theStatus));
    }
    return theStatus;
}

} // namespace LmDiagnostics

#endif
