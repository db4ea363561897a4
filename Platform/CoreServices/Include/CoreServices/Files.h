// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Files_h
#define Files_h

// What programs call a file by, to pass it on.

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

// A file or folder that exists; what is in it is nobody's business.
typedef struct FSRef
{
    UInt8 hidden[80];
} FSRef;
typedef FSRef* FSRefPtr;

// A reference that outlives a move of the file.
typedef struct AliasRecord** AliasHandle;
typedef struct AliasRecord* AliasPtr;

#endif
