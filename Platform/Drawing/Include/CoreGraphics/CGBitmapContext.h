// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGBitmapContext_h
#define CGBitmapContext_h

// Contexts whose pixels are in memory. The first row in memory is the top one.

#include <CoreGraphics/CGContext.h>

enum CGImageAlphaInfo
{
    kCGImageAlphaNone = 0,
    kCGImageAlphaPremultipliedLast = 1,
    kCGImageAlphaPremultipliedFirst = 2,
    kCGImageAlphaLast = 3,
    kCGImageAlphaFirst = 4,
    kCGImageAlphaNoneSkipLast = 5,
    kCGImageAlphaNoneSkipFirst = 6,
    kCGImageAlphaOnly = 7
};
typedef enum CGImageAlphaInfo CGImageAlphaInfo;

// An alpha info, and the order of the bytes of a pixel, big by default: AlphaFirst means that A, R, G, B
// follow each other in memory.
typedef unsigned int CGBitmapInfo;
enum
{
    kCGBitmapAlphaInfoMask = 0x1F,
    kCGBitmapFloatComponents = 1 << 8,
    kCGBitmapByteOrderMask = 0x7000,
    kCGBitmapByteOrderDefault = 0 << 12,
    kCGBitmapByteOrder16Little = 1 << 12,
    kCGBitmapByteOrder32Little = 2 << 12,
    kCGBitmapByteOrder16Big = 3 << 12,
    kCGBitmapByteOrder32Big = 4 << 12
};

#ifdef __BIG_ENDIAN__
#define kCGBitmapByteOrder32Host kCGBitmapByteOrder32Big
#elif defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
#define kCGBitmapByteOrder32Host kCGBitmapByteOrder32Big
#else
#define kCGBitmapByteOrder32Host kCGBitmapByteOrder32Little
#endif

// A context that draws into data, which holds height rows of bytesPerRow bytes and lives as long as the
// context, or into memory of its own, all zero at the start, for null; bytesPerRow may be 0 then. What there
// is: 8 bits of RGB in pixels of 32 bits, with kCGImageAlphaPremultipliedFirst or Last, or NoneSkipFirst or
// Last, in either order. Null, and a line on the standard error stream, for anything else, for sizes that are
// zero, above 32,767 or do not fit their rows, and where the host was built without Cairo; null alone when
// there is no memory.
CG_EXPORT CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent,
                                             size_t bytesPerRow, CGColorSpaceRef space,
                                             CGBitmapInfo bitmapInfo);

// Of a context of memory; null and 0 for another one.
CG_EXPORT void* CGBitmapContextGetData(CGContextRef c);
CG_EXPORT size_t CGBitmapContextGetWidth(CGContextRef c);
CG_EXPORT size_t CGBitmapContextGetHeight(CGContextRef c);
CG_EXPORT size_t CGBitmapContextGetBytesPerRow(CGContextRef c);
CG_EXPORT size_t CGBitmapContextGetBitsPerComponent(CGContextRef c);
CG_EXPORT size_t CGBitmapContextGetBitsPerPixel(CGContextRef c);
CG_EXPORT CGColorSpaceRef CGBitmapContextGetColorSpace(CGContextRef c);
CG_EXPORT CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef c);

#endif
