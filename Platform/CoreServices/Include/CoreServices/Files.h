// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Files_h
#define Files_h

// What programs call files and folders by.

#include <CoreFoundation/CFURL.h>
#include <CoreServices/MacErrors.h>

typedef SInt16 FSVolumeRefNum;
typedef Str63 StrFileName;

#pragma pack(push, 2)

// A name in Unicode.
typedef struct HFSUniStr255
{
    UInt16 length;
    UniChar unicode[255];
} HFSUniStr255;
typedef const HFSUniStr255* ConstHFSUniStr255Param;

// A volume, a folder on it and a name in MacRoman: how older calls named a file. Nothing here reads one.
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

#endif
