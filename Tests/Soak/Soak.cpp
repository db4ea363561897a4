// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Lives through windows that are opened, changed and closed, and looks whether anything grows: memory, open
// files, lines of diagnostics. Its result is 0 when nothing does and every change came to what it should.

#include "LmDiagnosticHandler.h"
#include "ProcessState.h"
#include "SoakedRadio.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// What may come and go: tables that are rehashed, the last window's blocks that are kept, pages that the
// allocator keeps.
const std::size_t kHeapTolerance = 16UL * 1024;
const std::size_t kResidentTolerance = 1024UL * 1024;

// The state is looked at this often, the first time after the first of these parts: by then, all is in place.
const unsigned long kParts = 10;

struct Arguments
{
    unsigned long theWindows = 1000;
    unsigned long theChanges = 100; // in each window
    bool theLeaks = false;          // on purpose
};

bool ReadCount(const char* theText, unsigned long* theCount)
{
    char* theEnd = nullptr;
    *theCount = std::strtoul(theText, &theEnd, 10);
    return *theText >= '1' && *theText <= '9' && *theEnd == '\0';
}

bool Read(int theCount, char** theTexts, Arguments* theArguments)
{
    for (int theIndex = 1; theIndex < theCount; ++theIndex) {
        const bool theHasNext = theIndex + 1 < theCount;
        if (std::strcmp(theTexts[theIndex], "--leak") == 0) {
            theArguments->theLeaks = true;
        } else if (std::strcmp(theTexts[theIndex], "--windows") == 0 && theHasNext) {
            if (!ReadCount(theTexts[++theIndex], &theArguments->theWindows)) {
                return false;
            }
        } else if (std::strcmp(theTexts[theIndex], "--changes") == 0 && theHasNext) {
            if (!ReadCount(theTexts[++theIndex], &theArguments->theChanges)) {
                return false;
            }
        } else {
            return false;
        }
    }
    return true;
}

// The volume's text follows the radio one way. When such a binding is removed, one line says -50, as it
// should.
struct Lines
{
    unsigned long theRemovals = 0;
    unsigned long theOthers = 0;
};

void CountLine(const LmDiagnostic& theDiagnostic, void* theUserData)
{
    Lines& theLines = *static_cast<Lines*>(theUserData);
    if (std::strcmp(theDiagnostic.theMessage, "Error -50") == 0) {
        ++theLines.theRemovals;
    } else if (++theLines.theOthers <= 10) {
        std::printf("%s, line %d: %s\n", theDiagnostic.theFile, theDiagnostic.theLine,
                    theDiagnostic.theMessage);
    }
}

// One window's life. The number of changes that did not come to what they should.
unsigned long LiveThroughWindow(SoakedRadio& theRadio, unsigned long theFirst, const Arguments& theArguments)
{
    unsigned long theFailures = 0;
    theRadio.OpenWindow();
    for (unsigned long theIndex = 0; theIndex < theArguments.theChanges; ++theIndex) {
        if (!theRadio.Change(theFirst + theIndex)) {
            ++theFailures;
            std::printf("change %lu did not come to what it should\n", theFirst + theIndex);
        }
    }
    theRadio.CloseWindow();
    if (theArguments.theLeaks) {
        new Radio;
    }
    return theFailures;
}

void Print(unsigned long theWindows, unsigned long theChanges, const ProcessState& theState)
{
    std::printf("%10lu %12lu %12zu %12zu %6zu\n", theWindows, theWindows * theChanges, theState.theHeap,
                theState.theResident, theState.theOpenFiles);
    std::fflush(stdout);
}

unsigned long CountGrown(const ProcessState& theFirst, const ProcessState& theLast)
{
    unsigned long theCount = 0;
    const auto theCompare = [&](const char* theWhat, std::size_t theBefore, std::size_t theAfter,
                                std::size_t theTolerance) {
        if (theAfter > theBefore + theTolerance) {
            ++theCount;
            std::printf("%s grew from %zu to %zu\n", theWhat, theBefore, theAfter);
        }
    };
    theCompare("the heap", theFirst.theHeap, theLast.theHeap, kHeapTolerance);
    theCompare("the memory in use", theFirst.theResident, theLast.theResident, kResidentTolerance);
    theCompare("the number of open files", theFirst.theOpenFiles, theLast.theOpenFiles, 0);
    return theCount;
}

// The number of things that were not as they should be.
unsigned long Soak(const Arguments& theArguments)
{
    unsigned long theFailures = 0;
    unsigned long theNextPart = 1;
    ProcessState theFirst = {};
    ProcessState theLast = {};
    SoakedRadio theRadio;
    std::printf("%10s %12s %12s %12s %6s\n", "windows", "changes", "heap", "resident", "files");
    for (unsigned long theWindow = 0; theWindow < theArguments.theWindows; ++theWindow) {
        theFailures += LiveThroughWindow(theRadio, theWindow * theArguments.theChanges, theArguments);
        if ((theWindow + 1) * kParts >= theNextPart * theArguments.theWindows) {
            theFailures += theRadio.Flush() || std::getenv("LM_PREFERENCES") != nullptr ? 0 : 1;
            theLast = ProcessState::Now();
            if (theNextPart == 1) {
                theFirst = theLast;
            }
            Print(theWindow + 1, theArguments.theChanges, theLast);
            ++theNextPart;
        }
    }
    return theFailures + CountGrown(theFirst, theLast);
}

} // namespace

int main(int theCount, char** theTexts)
{
    Arguments theArguments;
    if (!Read(theCount, theTexts, &theArguments)) {
        std::fprintf(stderr, "usage: soak [--windows <n>] [--changes <n in each window>] [--leak]\n");
        return 2;
    }
    Lines theLines;
    LmSetDiagnosticHandler(CountLine, &theLines);
    const unsigned long theFailures = Soak(theArguments);
    LmSetDiagnosticHandler(nullptr, nullptr);
    std::printf("%lu one-way bindings removed, %lu other lines, %lu complaints\n", theLines.theRemovals,
                theLines.theOthers, theFailures);
    const bool isRight =
        theFailures == 0 && theLines.theOthers == 0 && theLines.theRemovals == theArguments.theWindows;
    return isRight ? 0 : 1;
}
