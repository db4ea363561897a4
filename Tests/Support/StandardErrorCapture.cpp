// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StandardErrorCapture.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

namespace {

const int kNoDescriptor = -1;
int gCaptureFile = kNoDescriptor;
int gSavedError = kNoDescriptor;

int OpenCaptureFile()
{
    FILE* theFile = std::tmpfile();
    if (theFile == nullptr) {
        std::perror("tmpfile");
        std::abort();
    }
    return fileno(theFile);
}

std::string ReadCaptureFile()
{
    std::string theText;
    lseek(gCaptureFile, 0, SEEK_SET);
    char theBuffer[4096];
    ssize_t theCount = 0;
    while ((theCount = read(gCaptureFile, theBuffer, sizeof theBuffer)) > 0) {
        theText.append(theBuffer, static_cast<size_t>(theCount));
    }
    return theText;
}

void EmptyCaptureFile()
{
    if (ftruncate(gCaptureFile, 0) != 0) {
        std::abort();
    }
    lseek(gCaptureFile, 0, SEEK_SET);
}

// A sanitizer's report ends the program, and would be lost with the captured text.
void ShowCapturedText()
{
    const std::string theText = ReadCaptureFile();
    if (write(gSavedError, theText.data(), theText.size()) < 0) {
        std::abort();
    }
}

// Each sanitizer's library has its own way out of the program; in other builds neither is there.
void ShowCapturedTextOnDeath()
{
    for (const char* theLibrary : {"libasan.so.8", "libubsan.so.1"}) {
        void* const theHandle = dlopen(theLibrary, RTLD_LAZY | RTLD_NOLOAD);
        if (theHandle == nullptr) {
            continue;
        }
        if (void* const theSetter = dlsym(theHandle, "__sanitizer_set_death_callback")) {
            reinterpret_cast<void (*)(void (*)())>(theSetter)(ShowCapturedText);
        }
        dlclose(theHandle);
    }
}

// A function of the leak checker, where there is one.
void CallOfLeakChecker(const char* theName)
{
    if (void* const theFunction = dlsym(RTLD_DEFAULT, theName)) {
        reinterpret_cast<void (*)()>(theFunction)();
    }
}

// What the loader keeps of the search above looks lost where the program replaces the allocator. The leak
// checker forgives the loader, but only after it has read all debug information, at the end of every single
// test.
void PrepareForDeath()
{
    CallOfLeakChecker("__lsan_disable");
    ShowCapturedTextOnDeath();
    CallOfLeakChecker("__lsan_enable");
}

// Turns "Source/Core/LmValue.cpp, line 123: text" into "Source/Core/LmValue.cpp, line #: text"; leaves every
// other line as it is.
void HideLineNumber(std::string& theLine)
{
    static const char kBefore[] = ", line ";
    const size_t thePlace = theLine.find(kBefore);
    if (thePlace == std::string::npos || theLine.find(' ') < thePlace) {
        return;
    }
    const size_t theNumber = thePlace + sizeof kBefore - 1;
    const size_t theEnd = theLine.find_first_not_of("0123456789", theNumber);
    if (theEnd != std::string::npos && theEnd != theNumber && theLine.compare(theEnd, 2, ": ") == 0) {
        theLine.replace(theNumber, theEnd - theNumber, "#");
    }
}

} // namespace

void StandardErrorCapture::Begin()
{
    std::fflush(stderr);
    if (gCaptureFile == kNoDescriptor) {
        gCaptureFile = OpenCaptureFile();
        PrepareForDeath();
    }
    EmptyCaptureFile();
    gSavedError = dup(STDERR_FILENO);
    dup2(gCaptureFile, STDERR_FILENO);
}

std::string StandardErrorCapture::End()
{
    std::string theRest = TakeText();
    dup2(gSavedError, STDERR_FILENO);
    close(gSavedError);
    gSavedError = STDERR_FILENO;
    return theRest;
}

std::string StandardErrorCapture::TakeText()
{
    std::fflush(stderr);
    std::string theText = ReadCaptureFile();
    EmptyCaptureFile();
    return theText;
}

Lines StandardErrorCapture::TakeLines()
{
    const std::string theText = TakeText();
    Lines theLines;
    size_t theStart = 0;
    while (theStart < theText.size()) {
        size_t theEnd = theText.find('\n', theStart);
        if (theEnd == std::string::npos) {
            theEnd = theText.size();
        }
        theLines.push_back(theText.substr(theStart, theEnd - theStart));
        theStart = theEnd + 1;
    }
    return theLines;
}

Lines StandardErrorCapture::TakeDiagnostics()
{
    Lines theLines = TakeLines();
    for (std::string& theLine : theLines) {
        HideLineNumber(theLine);
    }
    return theLines;
}
