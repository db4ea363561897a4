// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CoreFoundation.h>
#include <cstdio>
#include <Debugging.h>

void DebugStr(ConstStr255Param debuggerMsg)
{
    if (debuggerMsg == nullptr) {
        return;
    }
    const CFStringRef theText =
        CFStringCreateWithPascalString(nullptr, debuggerMsg, kCFStringEncodingMacRoman);
    if (theText == nullptr) {
        return;
    }
    // Each of at most 255 characters takes three bytes or fewer.
    char theBytes[3 * 255 + 1] = "";
    CFStringGetCString(theText, theBytes, sizeof theBytes, kCFStringEncodingUTF8);
    CFRelease(theText);
    std::fprintf(stderr, "%s\n", theBytes);
}
