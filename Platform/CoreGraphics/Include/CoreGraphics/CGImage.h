// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGImage_h
#define CGImage_h

// An image, which is an object of CoreFoundation: CFRetain and CFRelease hold it. Nothing makes one.
typedef struct CGImage* CGImageRef;

#endif
