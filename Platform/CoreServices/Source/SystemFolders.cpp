// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FileReferences.h"
#include "System/Files.h"
#include "System/UserFolders.h"

#include <CoreServices/Folders.h>

namespace Host {

namespace {

std::optional<FolderKind> KindOf(OSType theType)
{
    switch (theType) {
    case kPreferencesFolderType:
        return FolderKind::kPreferences;
    case kApplicationSupportFolderType:
        return FolderKind::kSupport;
    case kDesktopFolderType:
        return FolderKind::kDesktop;
    case kDocumentsFolderType:
        return FolderKind::kDocuments;
    case kTemporaryFolderType:
        return FolderKind::kTemporary;
    case kCurrentUserFolderType:
        return FolderKind::kHome;
    case kApplicationsFolderType:
        return FolderKind::kApplications;
    case kFontsFolderType:
        return FolderKind::kFonts;
    case kTrashFolderType:
        return FolderKind::kTrash;
    case kCachedDataFolderType:
        return FolderKind::kCaches;
    default:
        return std::nullopt;
    }
}

std::string FolderOf(FSVolumeRefNum theDomain, FolderKind theKind)
{
    switch (theDomain) {
    case kSystemDomain:
        return SharedFolder(theKind, false);
    case kLocalDomain:
        return SharedFolder(theKind, true);
    case kNetworkDomain:
        return "";
    default:
        return UserFolder(theKind);
    }
}

} // namespace

} // namespace Host

using namespace Host;

OSErr FSFindFolder(FSVolumeRefNum vRefNum, OSType folderType, Boolean createFolder, FSRef* foundRef)
{
    if (foundRef == nullptr) {
        return paramErr;
    }
    return WithMemory([&]() -> OSErr {
        const std::optional<FolderKind> theKind = KindOf(folderType);
        const std::string theFolder = theKind ? FolderOf(vRefNum, *theKind) : "";
        if (theFolder.empty()) {
            return fnfErr;
        }
        if (createFolder) {
            MakeFolders(theFolder);
        }
        Boolean theIsFolder = false;
        FSRef theFound = {};
        const OSErr theStatus = MakeReference(theFolder, &theFound, &theIsFolder);
        if (theStatus != noErr || !theIsFolder) {
            return fnfErr;
        }
        *foundRef = theFound;
        return noErr;
    });
}
