// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "OpenFile.h"

#include "FileStatus.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace Host {

namespace {

static_assert(sizeof(off_t) == 8, "files must have 64-bit sizes");

int FlagsOf(FileAccess theAccess)
{
    switch (theAccess) {
    case FileAccess::kRead:
        return O_RDONLY;
    case FileAccess::kWrite:
        return O_WRONLY;
    case FileAccess::kReadAndWrite:
        break;
    }
    return O_RDWR;
}

// Moves all bytes, however many the system moves at a time and whatever signals come between.
template <class Call>
OSErr MoveAll(std::size_t theSize, std::size_t& theCount, const Call& theCall)
{
    constexpr std::size_t kMost = std::numeric_limits<ssize_t>::max();
    theCount = 0;
    while (theCount < theSize) {
        const ssize_t theStep = theCall(theCount, std::min(theSize - theCount, kMost));
        if (theStep == 0) {
            break;
        }
        if (theStep < 0 && errno != EINTR) {
            return LastFileStatus();
        }
        theCount += static_cast<std::size_t>(std::max<ssize_t>(theStep, 0));
    }
    return noErr;
}

} // namespace

OpenFile::~OpenFile()
{
    if (mDescriptor >= 0) {
        close(mDescriptor);
    }
}

OSErr OpenFile::Open(const std::string& thePath, FileAccess theAccess)
{
    // A pipe that nobody writes into would be waited for.
    mDescriptor = open(thePath.c_str(), FlagsOf(theAccess) | O_CLOEXEC | O_NONBLOCK);
    struct stat theState = {};
    if (mDescriptor < 0 || fstat(mDescriptor, &theState) < 0) {
        return errno == ENXIO ? OSErr{notAFileErr} : LastFileStatus();
    }
    return S_ISREG(theState.st_mode) ? OSErr{noErr} : OSErr{notAFileErr};
}

OSErr OpenFile::Read(void* theBuffer, std::size_t theSize, std::size_t& theCount)
{
    return MoveAll(theSize, theCount, [&](std::size_t theStart, std::size_t theStep) {
        return read(mDescriptor, static_cast<char*>(theBuffer) + theStart, theStep);
    });
}

OSErr OpenFile::Write(const void* theBytes, std::size_t theSize, std::size_t& theCount)
{
    return MoveAll(theSize, theCount, [&](std::size_t theStart, std::size_t theStep) {
        return write(mDescriptor, static_cast<const char*>(theBytes) + theStart, theStep);
    });
}

OSErr OpenFile::GetPosition(std::int64_t& thePosition) const
{
    thePosition = lseek(mDescriptor, 0, SEEK_CUR);
    return thePosition < 0 ? LastFileStatus() : OSErr{noErr};
}

OSErr OpenFile::SetPosition(std::int64_t thePosition)
{
    return lseek(mDescriptor, thePosition, SEEK_SET) < 0 ? LastFileStatus() : OSErr{noErr};
}

OSErr OpenFile::GetLength(std::int64_t& theLength) const
{
    struct stat theState = {};
    const OSErr theStatus = FileStatusOf(fstat(mDescriptor, &theState));
    theLength = theState.st_size;
    return theStatus;
}

OSErr OpenFile::SetLength(std::int64_t theLength)
{
    return FileStatusOf(ftruncate(mDescriptor, theLength));
}

OSErr OpenFile::Flush()
{
    return FileStatusOf(fsync(mDescriptor));
}

} // namespace Host
