// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Catalog.h"

#include "FileStatus.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host {

namespace {

constexpr mode_t kFileMode = 0666; // less what the user keeps from others
constexpr mode_t kFolderMode = 0777;
constexpr mode_t kModeBits = 07777;
constexpr std::uint64_t kBlock = 512; // in which st_blocks counts, whatever the disk's blocks are

FileTime TimeOf(const timespec& theTime)
{
    return {theTime.tv_sec, static_cast<std::uint32_t>(theTime.tv_nsec)};
}

timespec TimeFor(const FileTime* theTime)
{
    timespec theResult = {};
    theResult.tv_nsec = UTIME_OMIT;
    if (theTime != nullptr) {
        theResult.tv_sec = static_cast<time_t>(theTime->theSeconds);
        theResult.tv_nsec = static_cast<long>(theTime->theNanoseconds);
    }
    return theResult;
}

} // namespace

OSErr ReadEntry(const std::string& thePath, CatalogEntry& theEntry)
{
    struct stat theState = {};
    if (stat(thePath.c_str(), &theState) < 0) {
        return LastFileStatus();
    }
    theEntry.theIsFolder = S_ISDIR(theState.st_mode);
    theEntry.theOwner = theState.st_uid;
    theEntry.theGroup = theState.st_gid;
    theEntry.theMode = theState.st_mode & kModeBits;
    theEntry.theLength = theEntry.theIsFolder ? 0 : static_cast<std::uint64_t>(theState.st_size);
    theEntry.theRoom = theEntry.theIsFolder ? 0 : static_cast<std::uint64_t>(theState.st_blocks) * kBlock;
    theEntry.theChange = TimeOf(theState.st_mtim);
    theEntry.theAttributeChange = TimeOf(theState.st_ctim);
    theEntry.theAccess = TimeOf(theState.st_atim);
    return noErr;
}

OSErr MakeFile(const std::string& thePath)
{
    const int theDescriptor = open(thePath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode);
    const OSErr theStatus = FileStatusOf(theDescriptor);
    if (theDescriptor >= 0) {
        close(theDescriptor);
    }
    return theStatus;
}

OSErr MakeFolder(const std::string& thePath)
{
    return FileStatusOf(mkdir(thePath.c_str(), kFolderMode));
}

OSErr RemoveEntry(const std::string& thePath, bool theIsFolder)
{
    const int theResult = theIsFolder ? rmdir(thePath.c_str()) : unlink(thePath.c_str());
    // Some systems say of a folder with something in it that it exists.
    return theResult < 0 && errno == EEXIST ? OSErr{fBsyErr} : FileStatusOf(theResult);
}

OSErr SetMode(const std::string& thePath, std::uint32_t theMode)
{
    return FileStatusOf(chmod(thePath.c_str(), static_cast<mode_t>(theMode & kModeBits)));
}

OSErr SetDates(const std::string& thePath, const FileTime* theChange, const FileTime* theAccess)
{
    const timespec theTimes[] = {TimeFor(theAccess), TimeFor(theChange)};
    return FileStatusOf(utimensat(AT_FDCWD, thePath.c_str(), theTimes, 0));
}

} // namespace Host
