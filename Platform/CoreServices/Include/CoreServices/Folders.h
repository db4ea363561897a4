// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Folders_h
#define Folders_h

// Where the system and the person keep what kind of files.

#include <CoreServices/Files.h>

// Instead of a volume: whose folder is looked for. Every other number means the user's, and so does the disk
// of the system.
enum
{
    kOnSystemDisk = -32768,
    kSystemDomain = -32766,
    kLocalDomain = -32765,
    kNetworkDomain = -32764,
    kUserDomain = -32763
};

enum
{
    kCreateFolder = 1,
    kDontCreateFolder = 0
};

enum
{
    kPreferencesFolderType = 'pref',
    kApplicationSupportFolderType = 'asup',
    kDesktopFolderType = 'desk',
    kDocumentsFolderType = 'docs',
    kTemporaryFolderType = 'temp',
    kCurrentUserFolderType = 'cusr',
    kApplicationsFolderType = 'apps',
    kFontsFolderType = 'font',
    kTrashFolderType = 'trsh',
    kCachedDataFolderType = 'cach'
};

// The folder of a kind. fnfErr when it is not there, unless createFolder says that it is to be made, for the
// user alone; and for a kind that is not above, or that the domain has none of. The user's home is never
// made. Where the desktop keeps the user's folders is asked of the environment and of the list of the desktop
// (user-dirs.dirs).
CF_EXPORT OSErr FSFindFolder(FSVolumeRefNum vRefNum, OSType folderType, Boolean createFolder,
                             FSRef* foundRef);

#endif
