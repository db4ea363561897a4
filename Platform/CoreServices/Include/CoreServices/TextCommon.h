// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TextCommon_h
#define TextCommon_h

// Encodings and scripts as older calls number them.

#include <CoreFoundation/CFBase.h>

enum
{
    kTextEncodingMacRoman = 0,
    kTextEncodingUnknown = 0xFFFF
};

enum
{
    smRoman = 0,
    smUnicodeScript = 126,
    smSystemScript = -1,
    smCurrentScript = -2,
    smKeyScript = 22
};

// The encoding of Pascal strings and C strings that say none: MacRoman.
CF_EXPORT TextEncoding GetApplicationTextEncoding(void);

#endif
