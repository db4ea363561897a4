// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_Properties_h
#define Base_Properties_h

#include <Carbon/Carbon.h>
#include <map>
#include <string>
#include <utility>

namespace Host {

// What an application keeps at a control or window under two four-character codes. The statuses are the same
// numbers for both.
class Properties
{
public:
    OSStatus Set(OSType theCreator, OSType theTag, ByteCount theSize, const void* theData);
    OSStatus Get(OSType theCreator, OSType theTag, ByteCount theBufferSize, ByteCount* theActualSize,
                 void* theBuffer) const;
    OSStatus GetSize(OSType theCreator, OSType theTag, ByteCount* theSize) const;
    OSStatus Remove(OSType theCreator, OSType theTag);

private:
    std::map<std::pair<OSType, OSType>, std::string> mData;
};

} // namespace Host

#endif
