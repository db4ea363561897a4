// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Icons_h
#define Icons_h

// Icons of the system, which the desktop draws as its own.

#include <Carbon/CarbonBase.h>
#include <CoreServices/Folders.h>

enum
{
    kSystemIconsCreator = 'macs'
};

enum
{
    kGenericFolderIcon = 'fldr',
    kGenericDocumentIcon = 'docu',
    kGenericApplicationIcon = 'APPL',
    kGenericHardDiskIcon = 'hdsk',
    kAlertNoteIcon = 'note',
    kAlertCautionIcon = 'caut',
    kAlertStopIcon = 'stop',
    kFinderIcon = 'FNDR'
};

// The icon of a type, held once by the caller; vRefNum is not looked at. Every type that is not above, and
// every other creator's, has that of a document. paramErr, and nothing else, for a null result.
CARBON_EXPORT OSErr GetIconRef(SInt16 vRefNum, OSType creator, OSType iconType, IconRef* theIconRef);

// Hold an icon once more, and once less; paramErr for what is no icon.
CARBON_EXPORT OSErr AcquireIconRef(IconRef theIconRef);
CARBON_EXPORT OSErr ReleaseIconRef(IconRef theIconRef);

#endif
