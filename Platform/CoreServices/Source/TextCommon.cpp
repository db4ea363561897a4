// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/TextCommon.h>

TextEncoding GetApplicationTextEncoding(void)
{
    return kTextEncodingMacRoman;
}
