// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FileReferences.h"

#include "CFURLObject.h"
#include "Common/NeverDestroyed.h"
#include "System/Folders.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <string>

namespace Host {

namespace {

// What is in a reference; the rest is zero.
struct Content
{
    char theMark[8];
    std::uint32_t theNumber;
};

constexpr Content kContent = {{'F', 'i', 'l', 'e', ' ', 'r', 'e', 'f'}, 0};
static_assert(sizeof(Content) <= sizeof(FSRef::hidden));

// The paths that references were made of, each once and for good: a reference is not given back.
class Paths
{
public:
    // Numbers from 1.
    std::uint32_t NumberOf(const std::string& thePath)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theEntry = mNumbers.find(thePath);
        if (theEntry != mNumbers.end()) {
            return theEntry->second;
        }
        mPaths.push_back(thePath);
        const auto theNumber = static_cast<std::uint32_t>(mPaths.size());
        mNumbers.emplace(thePath, theNumber);
        return theNumber;
    }

    // None for a number that no path has.
    std::optional<std::string> PathOf(std::uint32_t theNumber) const
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        return theNumber == 0 || theNumber > mPaths.size() ? std::nullopt
                                                           : std::optional(mPaths[theNumber - 1]);
    }

private:
    mutable std::mutex mMutex;
    std::vector<std::string> mPaths;
    std::map<std::string, std::uint32_t> mNumbers;
};

Paths& ThePaths()
{
    static NeverDestroyed<Paths> sPaths;
    return sPaths.Get();
}

} // namespace

std::optional<std::string> PathIn(const FSRef* theReference)
{
    Content theContent = {};
    if (theReference == nullptr) {
        return std::nullopt;
    }
    std::memcpy(&theContent, theReference->hidden, sizeof theContent);
    const bool theIsMarked =
        std::memcmp(theContent.theMark, kContent.theMark, sizeof theContent.theMark) == 0;
    return theIsMarked ? ThePaths().PathOf(theContent.theNumber) : std::nullopt;
}

namespace {

std::string InCurrentFolder(const std::string& thePath)
{
    return thePath[0] == '/' ? thePath : CurrentFolder() + "/" + thePath;
}

} // namespace

OSErr MakeReference(const std::string& thePath, FSRef* theReference, Boolean* theIsFolder)
{
    const std::optional<FileState> theState = thePath.empty() ? std::nullopt : StateOfFile(thePath);
    if (!theState) {
        return fnfErr;
    }
    Content theContent = kContent;
    theContent.theNumber = ThePaths().NumberOf(WithoutSlash(InCurrentFolder(thePath)));
    *theReference = {};
    std::memcpy(theReference->hidden, &theContent, sizeof theContent);
    if (theIsFolder != nullptr) {
        *theIsFolder = theState->theIsFolder;
    }
    return noErr;
}

std::uint32_t NumberOfPath(const std::string& thePath)
{
    return ThePaths().NumberOf(thePath);
}

std::optional<std::string> PathOfNumber(std::uint32_t theNumber)
{
    return ThePaths().PathOf(theNumber);
}

namespace {

// A name in a folder, in UTF-8; none for what is no name.
std::optional<std::string> NameOf(const UniChar* theName, UniCharCount theLength)
{
    const Holder<CFStringRef> theText(
        CFStringCreateWithCharacters(nullptr, theName, static_cast<CFIndex>(theLength)));
    const std::optional<std::string> theBytes =
        theText.Get() == nullptr ? std::nullopt : UTF8Text(theText.Get());
    const bool theIsName = theBytes && !theBytes->empty() && theBytes->find('/') == std::string::npos &&
                           theBytes->find('\0') == std::string::npos && *theBytes != "." && *theBytes != "..";
    return theIsName ? theBytes : std::nullopt;
}

} // namespace

OSErr MakeChildPath(const FSRef* theFolder, UniCharCount theLength, const UniChar* theName,
                    std::string& thePath)
{
    if (theName == nullptr && theLength > 0) {
        return paramErr;
    }
    if (theLength == 0) {
        return errFSMissingName;
    }
    if (theLength > 255) {
        return errFSNameTooLong;
    }
    const std::optional<std::string> theParent = PathIn(theFolder);
    if (!theParent) {
        return errFSBadFSRef;
    }
    if (!IsFolder(*theParent)) {
        return errFSNotAFolder;
    }
    const std::optional<std::string> theBytes = NameOf(theName, theLength);
    if (!theBytes) {
        return bdNamErr;
    }
    thePath = (*theParent == "/" ? "" : *theParent) + "/" + *theBytes;
    return noErr;
}

} // namespace Host

using namespace Host;

OSStatus FSPathMakeRef(const UInt8* path, FSRef* ref, Boolean* isDirectory)
{
    if (path == nullptr || ref == nullptr) {
        return paramErr;
    }
    return WithMemory([&] { return MakeReference(reinterpret_cast<const char*>(path), ref, isDirectory); });
}

OSStatus FSRefMakePath(const FSRef* ref, UInt8* path, UInt32 pathBufferSize)
{
    if (path == nullptr) {
        return paramErr;
    }
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> thePath = PathIn(ref);
        if (!thePath) {
            return errFSBadFSRef;
        }
        if (thePath->size() >= pathBufferSize) {
            return pathTooLongErr;
        }
        std::memcpy(path, thePath->c_str(), thePath->size() + 1);
        return noErr;
    });
}

Boolean CFURLGetFSRef(CFURLRef url, FSRef* fsRef)
{
    Require(url, kURLType, "CFURLGetFSRef");
    return fsRef != nullptr && WithMemory([&]() -> OSErr {
                                   const std::optional<std::string> thePath = PathOfFile(url);
                                   return thePath ? MakeReference(*thePath, fsRef, nullptr) : OSErr{fnfErr};
                               }) == noErr;
}

CFURLRef CFURLCreateFromFSRef(CFAllocatorRef, const FSRef* fsRef)
{
    return NothingWithoutMemory([&]() -> CFURLRef {
        const std::optional<std::string> thePath = PathIn(fsRef);
        return thePath ? MakeFileURL(*thePath, IsFolder(*thePath)) : nullptr;
    });
}

OSErr FSMakeFSRefUnicode(const FSRef* parentRef, UniCharCount nameLength, const UniChar* name, TextEncoding,
                         FSRef* newRef)
{
    if (newRef == nullptr) {
        return paramErr;
    }
    return WithMemory([&]() -> OSErr {
        std::string thePath;
        const OSErr theStatus = MakeChildPath(parentRef, nameLength, name, thePath);
        return theStatus == noErr ? MakeReference(thePath, newRef, nullptr) : theStatus;
    });
}

OSErr FSCompareFSRefs(const FSRef* ref1, const FSRef* ref2)
{
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> theFirst = PathIn(ref1);
        const std::optional<std::string> theSecond = PathIn(ref2);
        return !theFirst || !theSecond   ? OSErr{errFSBadFSRef}
               : *theFirst == *theSecond ? OSErr{noErr}
                                         : OSErr{errFSRefsDifferent};
    });
}
