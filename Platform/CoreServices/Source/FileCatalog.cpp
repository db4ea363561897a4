// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFPropertyListSupport.h"
#include "FileReferences.h"
#include "System/Catalog.h"
#include "System/Folders.h"

#include <CoreServices/Files.h>
#include <cstring>

namespace Host {

namespace {

constexpr FSVolumeRefNum kOnlyVolume = -100;
constexpr std::int64_t kFrom1904To1970 = 2082844800;

UTCDateTime DateOf(const FileTime& theTime)
{
    const auto theSeconds = static_cast<std::uint64_t>(theTime.theSeconds + kFrom1904To1970);
    return {static_cast<UInt16>(theSeconds >> 32), static_cast<UInt32>(theSeconds),
            static_cast<UInt16>(std::uint64_t{theTime.theNanoseconds} * 65536 / 1000000000)};
}

FileTime TimeOf(const UTCDateTime& theDate)
{
    const std::uint64_t theSeconds = (std::uint64_t{theDate.highSeconds} << 32) | theDate.lowSeconds;
    // Rounded up, so that the date that is read is the one that was set.
    return {static_cast<std::int64_t>(theSeconds) - kFrom1904To1970,
            static_cast<std::uint32_t>((std::uint64_t{theDate.fraction} * 1000000000 + 65535) / 65536)};
}

std::string ParentOf(const std::string& thePath)
{
    const std::size_t theSlash = thePath.rfind('/');
    return theSlash == 0 ? "/" : thePath.substr(0, theSlash);
}

std::string LastNameOf(const std::string& thePath)
{
    return thePath == "/" ? thePath : thePath.substr(thePath.rfind('/') + 1);
}

UInt16 FlagsOf(const CatalogEntry& theEntry)
{
    const bool theIsLocked = (theEntry.theMode & kOwnerWrites) == 0;
    return static_cast<UInt16>((theIsLocked ? kFSNodeLockedMask : 0) |
                               (theEntry.theIsFolder ? kFSNodeIsDirectoryMask : 0));
}

void FillNumbers(const std::string& thePath, const CatalogEntry& theEntry, FSCatalogInfoBitmap theWanted,
                 FSCatalogInfo& theInfo)
{
    if ((theWanted & kFSCatInfoNodeFlags) != 0) {
        theInfo.nodeFlags = FlagsOf(theEntry);
    }
    if ((theWanted & kFSCatInfoVolume) != 0) {
        theInfo.volume = kOnlyVolume;
    }
    if ((theWanted & kFSCatInfoParentDirID) != 0) {
        theInfo.parentDirID = NumberOfPath(ParentOf(thePath));
    }
    if ((theWanted & kFSCatInfoNodeID) != 0) {
        theInfo.nodeID = NumberOfPath(thePath);
    }
    if ((theWanted & kFSCatInfoValence) != 0) {
        theInfo.valence = static_cast<UInt32>(NamesIn(thePath).size());
    }
    if ((theWanted & kFSCatInfoTextEncoding) != 0) {
        theInfo.textEncodingHint = 0;
    }
    if ((theWanted & kFSCatInfoPermissions) != 0) {
        theInfo.permissions[0] = theEntry.theOwner;
        theInfo.permissions[1] = theEntry.theGroup;
        theInfo.permissions[2] = theEntry.theMode;
        theInfo.permissions[3] = 0;
    }
}

// The system does not tell when a file was made, to every program on every disk; when it was there for
// certain, it does.
void FillDates(const CatalogEntry& theEntry, FSCatalogInfoBitmap theWanted, FSCatalogInfo& theInfo)
{
    if ((theWanted & kFSCatInfoCreateDate) != 0) {
        const bool theContentIsOlder = theEntry.theChange.theSeconds < theEntry.theAttributeChange.theSeconds;
        theInfo.createDate = DateOf(theContentIsOlder ? theEntry.theChange : theEntry.theAttributeChange);
    }
    if ((theWanted & kFSCatInfoContentMod) != 0) {
        theInfo.contentModDate = DateOf(theEntry.theChange);
    }
    if ((theWanted & kFSCatInfoAttrMod) != 0) {
        theInfo.attributeModDate = DateOf(theEntry.theAttributeChange);
    }
    if ((theWanted & kFSCatInfoAccessDate) != 0) {
        theInfo.accessDate = DateOf(theEntry.theAccess);
    }
    if ((theWanted & kFSCatInfoBackupDate) != 0) {
        theInfo.backupDate = {};
    }
}

void FillSizes(const CatalogEntry& theEntry, FSCatalogInfoBitmap theWanted, FSCatalogInfo& theInfo)
{
    if ((theWanted & kFSCatInfoDataSizes) != 0) {
        theInfo.dataLogicalSize = theEntry.theLength;
        theInfo.dataPhysicalSize = theEntry.theRoom;
    }
    if ((theWanted & kFSCatInfoRsrcSizes) != 0) {
        theInfo.rsrcLogicalSize = 0;
        theInfo.rsrcPhysicalSize = 0;
    }
    if ((theWanted & kFSCatInfoFinderInfo) != 0) {
        std::memset(theInfo.finderInfo, 0, sizeof theInfo.finderInfo);
    }
    if ((theWanted & kFSCatInfoFinderXInfo) != 0) {
        std::memset(theInfo.extFinderInfo, 0, sizeof theInfo.extFinderInfo);
    }
}

Holder<CFStringRef> TextOf(const std::string& theBytes)
{
    return Holder<CFStringRef>(CFStringCreateWithCString(nullptr, theBytes.c_str(), kCFStringEncodingUTF8));
}

// bdNamErr for a name that is no UTF-8, which no call here could name again.
OSErr FillName(const std::string& thePath, HFSUniStr255& theName)
{
    const Holder<CFStringRef> theText = TextOf(LastNameOf(thePath));
    if (theText.Get() == nullptr) {
        return bdNamErr;
    }
    const CFIndex theLength = CFStringGetLength(theText.Get());
    UniChar theUnits[255];
    CFStringGetCharacters(theText.Get(), CFRangeMake(0, theLength), theUnits);
    theName.length = static_cast<UInt16>(theLength);
    std::memcpy(theName.unicode, theUnits, static_cast<std::size_t>(theLength) * sizeof(UniChar));
    return noErr;
}

OSErr FillSpecification(const std::string& thePath, FSSpec& theSpecification)
{
    const Holder<CFStringRef> theText = TextOf(LastNameOf(thePath));
    FSSpec theResult = {kOnlyVolume, static_cast<SInt32>(NumberOfPath(ParentOf(thePath))), {}};
    if (theText.Get() == nullptr ||
        !CFStringGetPascalString(theText.Get(), theResult.name, sizeof theResult.name,
                                 kCFStringEncodingMacRoman)) {
        return bdNamErr;
    }
    theSpecification = theResult;
    return noErr;
}

OSErr FillParent(const std::string& thePath, FSRef& theParent)
{
    if (thePath == "/") {
        theParent = {};
        return noErr;
    }
    return MakeReference(ParentOf(thePath), &theParent, nullptr);
}

OSErr SetEntry(const std::string& thePath, FSCatalogInfoBitmap theWanted, const FSCatalogInfo& theInfo)
{
    CatalogEntry theEntry;
    OSErr theStatus = ReadEntry(thePath, theEntry);
    std::uint32_t theMode = theEntry.theMode;
    if ((theWanted & kFSCatInfoPermissions) != 0) {
        theMode = theInfo.permissions[2] & 0777U;
    }
    if ((theWanted & kFSCatInfoNodeFlags) != 0) {
        theMode = (theInfo.nodeFlags & kFSNodeLockedMask) != 0 ? theMode & ~0222U : theMode | kOwnerWrites;
    }
    if (theStatus == noErr && theMode != theEntry.theMode) {
        theStatus = SetMode(thePath, theMode);
    }
    const FileTime theChange = TimeOf(theInfo.contentModDate);
    const FileTime theAccess = TimeOf(theInfo.accessDate);
    const bool theHasChange = (theWanted & kFSCatInfoContentMod) != 0;
    const bool theHasAccess = (theWanted & kFSCatInfoAccessDate) != 0;
    if (theStatus == noErr && (theHasChange || theHasAccess)) {
        theStatus =
            SetDates(thePath, theHasChange ? &theChange : nullptr, theHasAccess ? &theAccess : nullptr);
    }
    return theStatus;
}

// What a new file or folder is known by.
struct NewEntry
{
    FSCatalogInfoBitmap theWanted;
    const FSCatalogInfo* theInfo;
    FSRef* theReference;
    FSSpec* theSpecification;
};

OSErr FinishEntry(const std::string& thePath, const NewEntry& theNew)
{
    OSErr theStatus = noErr;
    if (theNew.theInfo != nullptr && theNew.theWanted != kFSCatInfoNone) {
        theStatus = SetEntry(thePath, theNew.theWanted, *theNew.theInfo);
    }
    if (theStatus == noErr && theNew.theReference != nullptr) {
        theStatus = MakeReference(thePath, theNew.theReference, nullptr);
    }
    if (theStatus == noErr && theNew.theSpecification != nullptr) {
        theStatus = FillSpecification(thePath, *theNew.theSpecification);
    }
    return theStatus;
}

} // namespace

} // namespace Host

using namespace Host;

OSErr FSGetCatalogInfo(const FSRef* ref, FSCatalogInfoBitmap whichInfo, FSCatalogInfo* catalogInfo,
                       HFSUniStr255* outName, FSSpecPtr fsSpec, FSRef* parentRef)
{
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> thePath = PathIn(ref);
        CatalogEntry theEntry;
        OSErr theStatus = thePath ? ReadEntry(*thePath, theEntry) : OSErr{errFSBadFSRef};
        FSCatalogInfo theInfo = catalogInfo == nullptr ? FSCatalogInfo{} : *catalogInfo;
        HFSUniStr255 theName = {};
        FSSpec theSpecification = {};
        FSRef theParent = {};
        if (theStatus == noErr && catalogInfo != nullptr) {
            FillNumbers(*thePath, theEntry, whichInfo, theInfo);
            FillDates(theEntry, whichInfo, theInfo);
            FillSizes(theEntry, whichInfo, theInfo);
        }
        if (theStatus == noErr && outName != nullptr) {
            theStatus = FillName(*thePath, theName);
        }
        if (theStatus == noErr && fsSpec != nullptr) {
            theStatus = FillSpecification(*thePath, theSpecification);
        }
        if (theStatus == noErr && parentRef != nullptr) {
            theStatus = FillParent(*thePath, theParent);
        }
        if (theStatus != noErr) {
            return theStatus;
        }
        if (catalogInfo != nullptr) {
            *catalogInfo = theInfo;
        }
        if (outName != nullptr) {
            *outName = theName;
        }
        if (fsSpec != nullptr) {
            *fsSpec = theSpecification;
        }
        if (parentRef != nullptr) {
            *parentRef = theParent;
        }
        return noErr;
    });
}

OSErr FSSetCatalogInfo(const FSRef* ref, FSCatalogInfoBitmap whichInfo, const FSCatalogInfo* catalogInfo)
{
    if (catalogInfo == nullptr) {
        return paramErr;
    }
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> thePath = PathIn(ref);
        return thePath ? SetEntry(*thePath, whichInfo, *catalogInfo) : OSErr{errFSBadFSRef};
    });
}

OSErr FSCreateFileUnicode(const FSRef* parentRef, UniCharCount nameLength, const UniChar* name,
                          FSCatalogInfoBitmap whichInfo, const FSCatalogInfo* catalogInfo, FSRef* newRef,
                          FSSpecPtr newSpec)
{
    return WithMemory([&]() -> OSErr {
        std::string thePath;
        OSErr theStatus = MakeChildPath(parentRef, nameLength, name, thePath);
        if (theStatus == noErr) {
            theStatus = MakeFile(thePath);
        }
        return theStatus == noErr ? FinishEntry(thePath, {whichInfo, catalogInfo, newRef, newSpec})
                                  : theStatus;
    });
}

OSErr FSCreateDirectoryUnicode(const FSRef* parentRef, UniCharCount nameLength, const UniChar* name,
                               FSCatalogInfoBitmap whichInfo, const FSCatalogInfo* catalogInfo, FSRef* newRef,
                               FSSpecPtr newSpec, UInt32* newDirID)
{
    return WithMemory([&]() -> OSErr {
        std::string thePath;
        OSErr theStatus = MakeChildPath(parentRef, nameLength, name, thePath);
        if (theStatus == noErr) {
            theStatus = MakeFolder(thePath);
        }
        if (theStatus == noErr) {
            theStatus = FinishEntry(thePath, {whichInfo, catalogInfo, newRef, newSpec});
        }
        if (theStatus == noErr && newDirID != nullptr) {
            *newDirID = NumberOfPath(thePath);
        }
        return theStatus;
    });
}

OSErr FSDeleteObject(const FSRef* ref)
{
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> thePath = PathIn(ref);
        CatalogEntry theEntry;
        const OSErr theStatus = thePath ? ReadEntry(*thePath, theEntry) : OSErr{errFSBadFSRef};
        return theStatus == noErr ? RemoveEntry(*thePath, theEntry.theIsFolder) : theStatus;
    });
}

OSErr FSpMakeFSRef(const FSSpec* source, FSRef* newRef)
{
    if (source == nullptr || newRef == nullptr) {
        return paramErr;
    }
    return WithMemory([&]() -> OSErr {
        const std::optional<std::string> theFolder = PathOfNumber(static_cast<std::uint32_t>(source->parID));
        const Holder<CFStringRef> theText(
            source->name[0] >= sizeof source->name
                ? nullptr
                : CFStringCreateWithPascalString(nullptr, source->name, kCFStringEncodingMacRoman));
        const std::optional<std::string> theName =
            theText.Get() == nullptr ? std::nullopt : UTF8Text(theText.Get());
        if (!theFolder || !theName || theName->empty()) {
            return fnfErr;
        }
        return MakeReference((*theFolder == "/" ? "" : *theFolder) + "/" + *theName, newRef, nullptr);
    });
}
