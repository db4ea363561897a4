// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

/* The interface is one of C: this file compiles the headers as C, and uses each kind of declaration. */

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>

Boolean HeadersWorkInC(void);

Boolean HeadersWorkInC(void)
{
    const CFStringRef theConstant = CFSTR("constant");
    const CFStringRef theString =
        CFStringCreateWithFormat(kCFAllocatorDefault, NULL, CFSTR("%@%d"), theConstant, 1);
    const CFRange theRange = CFStringFind(theString, theConstant, kCFCompareAnchored);
    const CGRect theRect = CGRectMake(0, 0, 8, 9);
    const Boolean theResult = CFStringGetLength(theString) == 9 && theRange.location != kCFNotFound &&
                              CGRectGetHeight(theRect) == (CGFloat)CFStringGetLength(theString);
    CFRelease(theString);
    return theResult;
}
