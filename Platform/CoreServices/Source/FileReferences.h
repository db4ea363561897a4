// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FileReferences_h
#define FileReferences_h

// What references to files stand for, for the calls that do something with the files.

#include "CFPropertyListSupport.h"

#include <CoreServices/Files.h>
#include <cstdint>
#include <optional>
#include <string>

namespace Host {

// What a call that needs memory answers, a status in every case.
template <class Body>
OSErr WithMemory(const Body& theBody)
{
    OSErr theStatus = memFullErr;
    NothingWithoutMemory([&] {
        theStatus = theBody();
        return 0;
    });
    return theStatus;
}

// The path in a reference; none for one that no call has made.
std::optional<std::string> PathIn(const FSRef* theReference);

// Makes a reference of the path of something that is there; else fnfErr.
OSErr MakeReference(const std::string& thePath, FSRef* theReference, Boolean* theIsFolder);

// The path of something, there or not, that has a name in a folder; the statuses are those of
// FSMakeFSRefUnicode.
OSErr MakeChildPath(const FSRef* theFolder, UniCharCount theLength, const UniChar* theName,
                    std::string& thePath);

// A path's number, from 1, by which it is found again; none for a number that no path has.
std::uint32_t NumberOfPath(const std::string& thePath);
std::optional<std::string> PathOfNumber(std::uint32_t theNumber);

} // namespace Host

#endif
