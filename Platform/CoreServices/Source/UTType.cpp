// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/UTType.h>

CFStringRef UTCreateStringForOSType(OSType inOSType)
{
    const UInt8 theBytes[] = {static_cast<UInt8>(inOSType >> 24), static_cast<UInt8>(inOSType >> 16 & 0xFF),
                              static_cast<UInt8>(inOSType >> 8 & 0xFF), static_cast<UInt8>(inOSType & 0xFF)};
    const CFIndex theLength = inOSType == 0 ? 0 : CFIndex{sizeof theBytes};
    return CFStringCreateWithBytes(nullptr, theBytes, theLength, kCFStringEncodingMacRoman, 0);
}

OSType UTGetOSTypeFromString(CFStringRef inString)
{
    UInt8 theBytes[4] = {};
    CFIndex theUsed = 0;
    if (inString == nullptr || CFStringGetLength(inString) != 4 ||
        CFStringGetBytes(inString, CFRangeMake(0, 4), kCFStringEncodingMacRoman, 0, 0, theBytes,
                         sizeof theBytes, &theUsed) != 4) {
        return 0;
    }
    return OSType{theBytes[0]} << 24 | OSType{theBytes[1]} << 16 | OSType{theBytes[2]} << 8 |
           OSType{theBytes[3]};
}
