// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDiagnosticHandler.h"

#include "LmJournal.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

LmDiagnosticHandler sHandler = nullptr; // null: diagnostics are printed
void* sUserData = nullptr;              // for the handler; not owned
bool sIsHandling = false;               // the handler is at work

bool IsOn(const char* theVariable)
{
    const char* const theValue = std::getenv(theVariable);
    return theValue != nullptr && std::strcmp(theValue, "1") == 0;
}

// Read at the first diagnostic, and not again: a program that changes its environment later means others.
bool IsQuiet()
{
    static const bool isQuiet = IsOn("LM_QUIET");
    return isQuiet;
}

bool IsFatal()
{
    static const bool isFatal = IsOn("LM_FATAL");
    return isFatal;
}

LM_PRINTF_FORMAT(3, 0)
void Print(const char* theFile, int theLine, const char* theFormat, va_list theArguments)
{
    std::fprintf(stderr, "%s, line %d: ", theFile, theLine);
    std::vfprintf(stderr, theFormat, theArguments);
    std::fputc('\n', stderr);
}

// Writes it into the journal, where that is on. A very long message is cut.
[[gnu::noinline]] LM_PRINTF_FORMAT(3, 0) void Note(const char* theFile, int theLine, const char* theFormat,
                                                   va_list theArguments)
{
    char theText[1024];
    va_list theSameArguments;
    va_copy(theSameArguments, theArguments);
    if (std::vsnprintf(theText, sizeof theText, theFormat, theSameArguments) < 0) {
        theText[0] = '\0';
    }
    va_end(theSameArguments);
    LmNote([&] {
        LmJournalEntry theEntry{kJournalDiagnostic};
        theEntry.theFile = theFile;
        theEntry.theDetail = static_cast<std::uint32_t>(theLine);
        theEntry.theText = theText;
        return theEntry;
    });
}

LM_PRINTF_FORMAT(3, 0)
void HandOn(const char* theFile, int theLine, const char* theFormat, va_list theArguments)
{
    char theStart[256];
    va_list theSameArguments;
    va_copy(theSameArguments, theArguments);
    const int theLength = std::vsnprintf(theStart, sizeof theStart, theFormat, theSameArguments);
    va_end(theSameArguments);
    if (theLength < 0) {
        theStart[0] = '\0';
    }
    const std::size_t theSize = theLength < 0 ? 0 : static_cast<std::size_t>(theLength) + 1;
    char* const theWhole = theSize > sizeof theStart ? static_cast<char*>(std::malloc(theSize)) : nullptr;
    if (theWhole != nullptr) {
        std::vsnprintf(theWhole, theSize, theFormat, theArguments);
    }
    sIsHandling = true;
    sHandler({theFile, theLine, theWhole != nullptr ? theWhole : theStart}, sUserData);
    sIsHandling = false;
    std::free(theWhole);
}

} // namespace

void LmSetDiagnosticHandler(LmDiagnosticHandler theHandler, void* theUserData)
{
    sHandler = theHandler;
    sUserData = theUserData;
}

void LmReportDiagnostic(const char* theFile, int theLine, const char* theFormat, ...)
{
    if (LmJournal::IsAtWork()) {
        return;
    }
    va_list theArguments;
    va_start(theArguments, theFormat);
    if (LmJournal::IsAnythingOn()) {
        Note(theFile, theLine, theFormat, theArguments);
    }
    if (sHandler != nullptr && !sIsHandling) {
        HandOn(theFile, theLine, theFormat, theArguments);
    } else if (!IsQuiet()) {
        Print(theFile, theLine, theFormat, theArguments);
    }
    va_end(theArguments);
    if (IsFatal()) {
        std::abort();
    }
}
