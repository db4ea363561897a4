// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_Catalog_h
#define System_Catalog_h

// What the host asks the system about files and folders, and has it do to them. Every status is one of those
// that Files.h names for the catalogue.

#include <CoreServices/MacErrors.h>
#include <cstdint>
#include <string>

namespace Host {

// Since the beginning of 1970, in Greenwich; before it, theSeconds is negative.
struct FileTime
{
    std::int64_t theSeconds = 0;
    std::uint32_t theNanoseconds = 0;
};

struct CatalogEntry
{
    bool theIsFolder = false;
    std::uint32_t theOwner = 0;
    std::uint32_t theGroup = 0;
    std::uint32_t theMode = 0; // the bits of who may do what, and no others
    std::uint64_t theLength = 0;
    std::uint64_t theRoom = 0; // the bytes that it takes on the disk
    FileTime theChange;
    FileTime theAttributeChange;
    FileTime theAccess;
};

// The bit of the mode without which the owner cannot write a file.
constexpr std::uint32_t kOwnerWrites = 0200;

OSErr ReadEntry(const std::string& thePath, CatalogEntry& theEntry);

// Both fail for a path where something is.
OSErr MakeFile(const std::string& thePath);
OSErr MakeFolder(const std::string& thePath);

OSErr RemoveEntry(const std::string& thePath, bool theIsFolder);
OSErr SetMode(const std::string& thePath, std::uint32_t theMode);

// Null leaves a date as it is.
OSErr SetDates(const std::string& thePath, const FileTime* theChange, const FileTime* theAccess);

} // namespace Host

#endif
