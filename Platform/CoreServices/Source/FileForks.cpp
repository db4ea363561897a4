// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Common/NeverDestroyed.h"
#include "FileReferences.h"
#include "System/OpenFile.h"

#include <CoreServices/Files.h>
#include <limits>
#include <map>
#include <memory>
#include <mutex>

namespace Host {

namespace {

struct Fork
{
    OpenFile theFile;
    bool theCanBeWritten = false;
};

// The open files by their numbers, the smallest free ones from 1 on.
class Forks
{
public:
    // 0 when there is no number left.
    FSIORefNum Add(std::shared_ptr<Fork> theFork)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        FSIORefNum theNumber = 1;
        for (const auto& theEntry : mForks) {
            if (theEntry.first != theNumber) {
                break;
            }
            if (theNumber == std::numeric_limits<FSIORefNum>::max()) {
                return 0;
            }
            ++theNumber;
        }
        mForks.emplace(theNumber, std::move(theFork));
        return theNumber;
    }

    // Null for a number that no open file has.
    std::shared_ptr<Fork> Find(FSIORefNum theNumber) const
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theEntry = mForks.find(theNumber);
        return theEntry == mForks.end() ? nullptr : theEntry->second;
    }

    bool Remove(FSIORefNum theNumber)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        return mForks.erase(theNumber) != 0;
    }

private:
    mutable std::mutex mMutex;
    std::map<FSIORefNum, std::shared_ptr<Fork>> mForks;
};

Forks& TheForks()
{
    static NeverDestroyed<Forks> sForks;
    return sForks.Get();
}

// Does something to an open file, which stays open as long.
template <class Body>
OSErr WithFork(FSIORefNum theNumber, const Body& theBody)
{
    const std::shared_ptr<Fork> theFork = TheForks().Find(theNumber);
    return theFork == nullptr ? OSErr{rfNumErr} : theBody(*theFork);
}

OSErr OpenAs(const std::string& thePath, FileAccess theAccess, std::shared_ptr<Fork>& theFork)
{
    theFork = std::make_shared<Fork>();
    theFork->theCanBeWritten = theAccess != FileAccess::kRead;
    return theFork->theFile.Open(thePath, theAccess);
}

OSErr Open(const std::string& thePath, SInt8 thePermission, std::shared_ptr<Fork>& theFork)
{
    switch (thePermission) {
    case fsRdPerm:
        return OpenAs(thePath, FileAccess::kRead, theFork);
    case fsWrPerm:
        return OpenAs(thePath, FileAccess::kWrite, theFork);
    case fsRdWrPerm:
    case fsRdWrShPerm:
        return OpenAs(thePath, FileAccess::kReadAndWrite, theFork);
    case fsCurPerm: {
        const OSErr theStatus = OpenAs(thePath, FileAccess::kReadAndWrite, theFork);
        const bool theMayOnlyRead = theStatus == permErr || theStatus == wPrErr || theStatus == fBsyErr;
        return theMayOnlyRead ? OpenAs(thePath, FileAccess::kRead, theFork) : theStatus;
    }
    default:
        return paramErr;
    }
}

// Where a position that is counted in some way stands; the bits above the way are hints for caches.
OSErr FindPosition(const OpenFile& theFile, UInt16 theMode, SInt64 theOffset, std::int64_t& thePosition)
{
    std::int64_t theStart = 0;
    OSErr theStatus = noErr;
    switch (theMode & 3) {
    case fsAtMark:
        theOffset = 0;
        theStatus = theFile.GetPosition(theStart);
        break;
    case fsFromLEOF:
        theStatus = theFile.GetLength(theStart);
        break;
    case fsFromMark:
        theStatus = theFile.GetPosition(theStart);
        break;
    default:
        break;
    }
    if (theStatus != noErr) {
        return theStatus;
    }
    const bool theIsBeyond = theOffset > 0 && theStart > std::numeric_limits<std::int64_t>::max() - theOffset;
    if (theIsBeyond || theStart + theOffset < 0) {
        return posErr;
    }
    thePosition = theStart + theOffset;
    return noErr;
}

OSErr MoveTo(OpenFile& theFile, UInt16 theMode, SInt64 theOffset)
{
    std::int64_t thePosition = 0;
    const OSErr theStatus = FindPosition(theFile, theMode, theOffset, thePosition);
    return theStatus == noErr ? theFile.SetPosition(thePosition) : theStatus;
}

// A number of an open file; where it cannot be had, theResult stays as it is.
OSErr TellNumber(FSIORefNum theNumber, OSErr (OpenFile::*theAsk)(std::int64_t&) const, SInt64* theResult)
{
    if (theResult == nullptr) {
        return paramErr;
    }
    return WithFork(theNumber, [&](Fork& theFork) {
        std::int64_t theAnswer = 0;
        const OSErr theStatus = (theFork.theFile.*theAsk)(theAnswer);
        if (theStatus == noErr) {
            *theResult = theAnswer;
        }
        return theStatus;
    });
}

} // namespace

} // namespace Host

using namespace Host;

OSErr FSOpenFork(const FSRef* ref, UniCharCount forkNameLength, const UniChar*, SInt8 permissions,
                 FSIORefNum* forkRefNum)
{
    if (forkRefNum == nullptr) {
        return paramErr;
    }
    if (forkNameLength != 0) {
        return errFSBadForkName;
    }
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> thePath = PathIn(ref);
        std::shared_ptr<Fork> theFork;
        const OSErr theStatus = thePath ? Open(*thePath, permissions, theFork) : OSErr{errFSBadFSRef};
        if (theStatus != noErr) {
            return theStatus;
        }
        const FSIORefNum theNumber = TheForks().Add(std::move(theFork));
        if (theNumber == 0) {
            return tmfoErr;
        }
        *forkRefNum = theNumber;
        return noErr;
    });
}

OSErr FSReadFork(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset, ByteCount requestCount,
                 void* buffer, ByteCount* actualCount)
{
    if (buffer == nullptr && requestCount > 0) {
        return paramErr;
    }
    return WithFork(forkRefNum, [&](Fork& theFork) -> OSErr {
        std::size_t theCount = 0;
        OSErr theStatus = MoveTo(theFork.theFile, positionMode, positionOffset);
        if (theStatus == noErr) {
            theStatus = theFork.theFile.Read(buffer, requestCount, theCount);
        }
        if (actualCount != nullptr) {
            *actualCount = theCount;
        }
        return theStatus == noErr && theCount < requestCount ? OSErr{eofErr} : theStatus;
    });
}

OSErr FSWriteFork(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset, ByteCount requestCount,
                  const void* buffer, ByteCount* actualCount)
{
    if (buffer == nullptr && requestCount > 0) {
        return paramErr;
    }
    return WithFork(forkRefNum, [&](Fork& theFork) -> OSErr {
        std::size_t theCount = 0;
        OSErr theStatus = theFork.theCanBeWritten ? MoveTo(theFork.theFile, positionMode, positionOffset)
                                                  : OSErr{wrPermErr};
        if (theStatus == noErr) {
            theStatus = theFork.theFile.Write(buffer, requestCount, theCount);
        }
        if (actualCount != nullptr) {
            *actualCount = theCount;
        }
        return theStatus;
    });
}

OSErr FSGetForkPosition(FSIORefNum forkRefNum, SInt64* position)
{
    return TellNumber(forkRefNum, &OpenFile::GetPosition, position);
}

OSErr FSSetForkPosition(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset)
{
    return WithFork(forkRefNum,
                    [&](Fork& theFork) { return MoveTo(theFork.theFile, positionMode, positionOffset); });
}

OSErr FSGetForkSize(FSIORefNum forkRefNum, SInt64* forkSize)
{
    return TellNumber(forkRefNum, &OpenFile::GetLength, forkSize);
}

OSErr FSSetForkSize(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset)
{
    return WithFork(forkRefNum, [&](Fork& theFork) -> OSErr {
        std::int64_t theLength = 0;
        OSErr theStatus = theFork.theCanBeWritten
                              ? FindPosition(theFork.theFile, positionMode, positionOffset, theLength)
                              : OSErr{wrPermErr};
        if (theStatus == noErr) {
            theStatus = theFork.theFile.SetLength(theLength);
        }
        return theStatus;
    });
}

OSErr FSFlushFork(FSIORefNum forkRefNum)
{
    return WithFork(forkRefNum, [](Fork& theFork) { return theFork.theFile.Flush(); });
}

OSErr FSCloseFork(FSIORefNum forkRefNum)
{
    return TheForks().Remove(forkRefNum) ? OSErr{noErr} : OSErr{rfNumErr};
}

OSErr FSGetDataForkName(HFSUniStr255* dataForkName)
{
    if (dataForkName == nullptr) {
        return paramErr;
    }
    dataForkName->length = 0;
    return noErr;
}
