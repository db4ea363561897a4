// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Properties.h"

#include <algorithm>
#include <cstring>

namespace Host {

namespace {

// Codes of lower-case letters are kept for the platform.
bool IsReserved(OSType theCreator)
{
    for (unsigned int theShift = 0; theShift < 32; theShift += 8) {
        const UInt32 theCharacter = (theCreator >> theShift) & 0xFF;
        if (theCharacter < 'a' || theCharacter > 'z') {
            return false;
        }
    }
    return true;
}

} // namespace

OSStatus Properties::Set(OSType theCreator, OSType theTag, ByteCount theSize, const void* theData)
{
    if (IsReserved(theCreator)) {
        return controlPropertyInvalid;
    }
    if (theData == nullptr && theSize > 0) {
        return paramErr;
    }
    mData[{theCreator, theTag}] = std::string(static_cast<const char*>(theData), theSize);
    return noErr;
}

OSStatus Properties::Get(OSType theCreator, OSType theTag, ByteCount theBufferSize, ByteCount* theActualSize,
                         void* theBuffer) const
{
    const auto theEntry = mData.find({theCreator, theTag});
    if (theEntry == mData.end()) {
        return controlPropertyNotFoundErr;
    }
    const std::string& theData = theEntry->second;
    if (theActualSize != nullptr) {
        *theActualSize = theData.size();
    }
    if (theBuffer == nullptr) {
        return paramErr;
    }
    std::memcpy(theBuffer, theData.data(), std::min<size_t>(theData.size(), theBufferSize));
    return theBufferSize == theData.size() ? OSStatus{noErr} : OSStatus{paramErr};
}

OSStatus Properties::GetSize(OSType theCreator, OSType theTag, ByteCount* theSize) const
{
    const auto theEntry = mData.find({theCreator, theTag});
    if (theEntry == mData.end()) {
        return controlPropertyNotFoundErr;
    }
    if (theSize == nullptr) {
        return paramErr;
    }
    *theSize = theEntry->second.size();
    return noErr;
}

OSStatus Properties::Remove(OSType theCreator, OSType theTag)
{
    return mData.erase({theCreator, theTag}) == 0 ? OSStatus{controlPropertyNotFoundErr} : OSStatus{noErr};
}

} // namespace Host
