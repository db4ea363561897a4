// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_OpenFile_h
#define System_OpenFile_h

#include <CoreServices/MacErrors.h>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Host {

enum class FileAccess
{
    kRead,
    kWrite,
    kReadAndWrite
};

// A file of the system with a position, closed when this goes.
class OpenFile
{
public:
    OpenFile() = default;
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    // notAFileErr for what is no plain file. To be called once.
    OSErr Open(const std::string& thePath, FileAccess theAccess);

    // From the position on, which moves on by theCount: less than was asked for only at the end of the file,
    // or where the status says why.
    OSErr Read(void* theBuffer, std::size_t theSize, std::size_t& theCount);
    OSErr Write(const void* theBytes, std::size_t theSize, std::size_t& theCount);

    OSErr GetPosition(std::int64_t& thePosition) const;
    OSErr SetPosition(std::int64_t thePosition);
    OSErr GetLength(std::int64_t& theLength) const;
    OSErr SetLength(std::int64_t theLength);

    // What was written is on the disk then.
    OSErr Flush();

private:
    int mDescriptor = -1;
};

} // namespace Host

#endif
