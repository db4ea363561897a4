// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Files_h
#define Files_h

// What programs call files and folders by.

#include <CoreFoundation/CFURL.h>
#include <CoreServices/MacErrors.h>

typedef SInt16 FSVolumeRefNum;
typedef SInt16 FSIORefNum;
typedef UInt32 FSCatalogInfoBitmap;
typedef Str63 StrFileName;

// What FSGetCatalogInfo tells.
enum
{
    kFSCatInfoNone = 0x00000000,
    kFSCatInfoTextEncoding = 0x00000001,
    kFSCatInfoNodeFlags = 0x00000002,
    kFSCatInfoVolume = 0x00000004,
    kFSCatInfoParentDirID = 0x00000008,
    kFSCatInfoNodeID = 0x00000010,
    kFSCatInfoCreateDate = 0x00000020,
    kFSCatInfoContentMod = 0x00000040,
    kFSCatInfoAttrMod = 0x00000080,
    kFSCatInfoAccessDate = 0x00000100,
    kFSCatInfoBackupDate = 0x00000200,
    kFSCatInfoAllDates = 0x000003E0,
    kFSCatInfoPermissions = 0x00000400,
    kFSCatInfoFinderInfo = 0x00000800,
    kFSCatInfoFinderXInfo = 0x00001000,
    kFSCatInfoValence = 0x00002000,
    kFSCatInfoDataSizes = 0x00004000,
    kFSCatInfoRsrcSizes = 0x00008000,
    kFSCatInfoGettableInfo = 0x0003FFFF
};

// The flags of a file or folder.
enum
{
    kFSNodeLockedMask = 0x0001,
    kFSNodeIsDirectoryMask = 0x0010
};

// What an open file may be used for, and where its position is counted from.
enum
{
    fsCurPerm = 0,
    fsRdPerm = 1,
    fsWrPerm = 2,
    fsRdWrPerm = 3,
    fsRdWrShPerm = 4
};
enum
{
    fsAtMark = 0,
    fsFromStart = 1,
    fsFromLEOF = 2,
    fsFromMark = 3
};

#pragma pack(push, 2)

// Seconds since the beginning of 1904, in Greenwich, and a fraction of one in 65,536ths.
typedef struct UTCDateTime
{
    UInt16 highSeconds;
    UInt32 lowSeconds;
    UInt16 fraction;
} UTCDateTime;

// What is known of a file or folder. Of the permissions the first is the owner's number, the second the
// group's, and the third has the system's bits.
typedef struct FSCatalogInfo
{
    UInt16 nodeFlags;
    FSVolumeRefNum volume;
    UInt32 parentDirID;
    UInt32 nodeID;
    UInt8 sharingFlags;
    UInt8 userPrivileges;
    UInt8 reserved1;
    UInt8 reserved2;
    UTCDateTime createDate;
    UTCDateTime contentModDate;
    UTCDateTime attributeModDate;
    UTCDateTime accessDate;
    UTCDateTime backupDate;
    UInt32 permissions[4];
    UInt8 finderInfo[16];
    UInt8 extFinderInfo[16];
    UInt64 dataLogicalSize;
    UInt64 dataPhysicalSize;
    UInt64 rsrcLogicalSize;
    UInt64 rsrcPhysicalSize;
    UInt32 valence;
    TextEncoding textEncodingHint;
} FSCatalogInfo;
typedef FSCatalogInfo* FSCatalogInfoPtr;

#pragma pack(pop)

#pragma pack(push, 2)

// A name in Unicode.
typedef struct HFSUniStr255
{
    UInt16 length;
    UniChar unicode[255];
} HFSUniStr255;
typedef const HFSUniStr255* ConstHFSUniStr255Param;

// A volume, a folder on it and a name in MacRoman: how older calls named a file. It is made by the calls
// below, and only they can tell which folder a number means.
typedef struct FSSpec
{
    FSVolumeRefNum vRefNum;
    SInt32 parID;
    StrFileName name;
} FSSpec;
typedef FSSpec* FSSpecPtr;
typedef const FSSpec* ConstFSSpecPtr;

#pragma pack(pop)

// A file or folder that was there when the reference was made; what is in it is nobody's business. It is
// valid as long as the program runs, may be copied, and is not given back. Here it stands for the path: what
// is renamed is not found by it any more.
typedef struct FSRef
{
    UInt8 hidden[80];
} FSRef;
typedef FSRef* FSRefPtr;

// A reference that outlives a move of the file.
typedef struct AliasRecord** AliasHandle;
typedef struct AliasRecord* AliasPtr;

// Statuses: errFSBadFSRef for a reference that no call has made, or NULL; paramErr for NULL elsewhere; fnfErr
// for what is not there. A call that fails writes nothing.

// Of a path in UTF-8; a relative one stands in the current folder. isDirectory may be NULL.
CF_EXPORT OSStatus FSPathMakeRef(const UInt8* path, FSRef* ref, Boolean* isDirectory);

// The path without a slash at its end, with a zero byte; pathTooLongErr when it does not fit.
CF_EXPORT OSStatus FSRefMakePath(const FSRef* ref, UInt8* path, UInt32 pathBufferSize);

// False when nothing is there, and for a URL of another scheme than file.
CF_EXPORT Boolean CFURLGetFSRef(CFURLRef url, FSRef* fsRef);

// The caller releases it; NULL for a bad reference.
CF_EXPORT CFURLRef CFURLCreateFromFSRef(CFAllocatorRef allocator, const FSRef* fsRef);

// What has a name in a folder. errFSNotAFolder when there is no such folder; errFSMissingName,
// errFSNameTooLong (beyond 255 units) and bdNamErr (a slash, a zero, "." and "..") for what is no name. The
// hint is not used.
CF_EXPORT OSErr FSMakeFSRefUnicode(const FSRef* parentRef, UniCharCount nameLength, const UniChar* name,
                                   TextEncoding textEncodingHint, FSRef* newRef);

// noErr when both are of the same path, else errFSRefsDifferent.
CF_EXPORT OSErr FSCompareFSRefs(const FSRef* ref1, const FSRef* ref2);

// The file that a specification names; fnfErr also when its folder is none that a call here has told, and
// when its name is in no MacRoman.
CF_EXPORT OSErr FSpMakeFSRef(const FSSpec* source, FSRef* newRef);

// The catalogue ------------------------------------------------------------------------------------------
//
// What the system refuses ends in fnfErr, permErr, dupFNErr, dskFulErr, wPrErr (a volume that cannot be
// written on), tmfoErr (too many open files) or ioErr.

// Tells of a file or folder what whichInfo asks for; the rest of catalogInfo stays as it is. Each result may
// be NULL. The numbers of files and folders hold for this program alone; dates of the backup, information of
// the Finder and resource forks are not kept, and are zero. A volume has the number -100. The name of the
// root is "/", and its parent a reference that is none.
CF_EXPORT OSErr FSGetCatalogInfo(const FSRef* ref, FSCatalogInfoBitmap whichInfo, FSCatalogInfo* catalogInfo,
                                 HFSUniStr255* outName, FSSpecPtr fsSpec, FSRef* parentRef);

// Sets the dates of the last change and of the last access, the permissions and whether a file is locked,
// which here means that its owner may not write it. Whatever else whichInfo names is not kept.
CF_EXPORT OSErr FSSetCatalogInfo(const FSRef* ref, FSCatalogInfoBitmap whichInfo,
                                 const FSCatalogInfo* catalogInfo);

// Makes an empty file. The statuses of FSMakeFSRefUnicode, and dupFNErr for a name that is taken. Each result
// may be NULL, and so may catalogInfo, for kFSCatInfoNone; else it is set as by FSSetCatalogInfo.
CF_EXPORT OSErr FSCreateFileUnicode(const FSRef* parentRef, UniCharCount nameLength, const UniChar* name,
                                    FSCatalogInfoBitmap whichInfo, const FSCatalogInfo* catalogInfo,
                                    FSRef* newRef, FSSpecPtr newSpec);
CF_EXPORT OSErr FSCreateDirectoryUnicode(const FSRef* parentRef, UniCharCount nameLength, const UniChar* name,
                                         FSCatalogInfoBitmap whichInfo, const FSCatalogInfo* catalogInfo,
                                         FSRef* newRef, FSSpecPtr newSpec, UInt32* newDirID);

// A file, or a folder with nothing in it; fBsyErr for one with something.
CF_EXPORT OSErr FSDeleteObject(const FSRef* ref);

// Open files ---------------------------------------------------------------------------------------------
//
// A file has one fork, whose name is empty; errFSBadForkName for any other. rfNumErr for a number that no
// open file has. They may be used from any thread, each by one at a time.

// notAFileErr for a folder. With fsCurPerm it is opened for writing too, where that is allowed. The caller
// closes it.
CF_EXPORT OSErr FSOpenFork(const FSRef* ref, UniCharCount forkNameLength, const UniChar* forkName,
                           SInt8 permissions, FSIORefNum* forkRefNum);

// eofErr where the file ends before requestCount bytes; what there was is read. posErr for a place before the
// beginning. actualCount may be NULL.
CF_EXPORT OSErr FSReadFork(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset,
                           ByteCount requestCount, void* buffer, ByteCount* actualCount);

// wrPermErr for a file that is open for reading. All is written or the status says why not, and actualCount,
// which may be NULL, how much was.
CF_EXPORT OSErr FSWriteFork(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset,
                            ByteCount requestCount, const void* buffer, ByteCount* actualCount);

CF_EXPORT OSErr FSGetForkPosition(FSIORefNum forkRefNum, SInt64* position);
CF_EXPORT OSErr FSSetForkPosition(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset);
CF_EXPORT OSErr FSGetForkSize(FSIORefNum forkRefNum, SInt64* forkSize);
CF_EXPORT OSErr FSSetForkSize(FSIORefNum forkRefNum, UInt16 positionMode, SInt64 positionOffset);

// What is written is on the disk when this returns noErr.
CF_EXPORT OSErr FSFlushFork(FSIORefNum forkRefNum);

CF_EXPORT OSErr FSCloseFork(FSIORefNum forkRefNum);

// The empty name.
CF_EXPORT OSErr FSGetDataForkName(HFSUniStr255* dataForkName);

#endif
