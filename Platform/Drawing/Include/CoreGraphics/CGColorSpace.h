// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGColorSpace_h
#define CGColorSpace_h

// What the components of a colour mean. Every space of a model is the same here: colours are not matched to
// devices.

#include <CoreFoundation/CFBase.h>
#include <CoreGraphics/CGGeometry.h>

typedef struct CGColorSpace* CGColorSpaceRef;

enum CGColorSpaceModel
{
    kCGColorSpaceModelUnknown = -1,
    kCGColorSpaceModelMonochrome = 0,
    kCGColorSpaceModelRGB = 1,
    kCGColorSpaceModelCMYK = 2
};
typedef enum CGColorSpaceModel CGColorSpaceModel;

// Names of spaces.
#define kCGColorSpaceGenericGray CFSTR("kCGColorSpaceGenericGray")
#define kCGColorSpaceGenericRGB CFSTR("kCGColorSpaceGenericRGB")
#define kCGColorSpaceGenericCMYK CFSTR("kCGColorSpaceGenericCMYK")
#define kCGColorSpaceSRGB CFSTR("kCGColorSpaceSRGB")

CG_EXPORT CFTypeID CGColorSpaceGetTypeID(void);

// Each makes a reference for the caller; null when there is no memory.
CG_EXPORT CGColorSpaceRef CGColorSpaceCreateDeviceGray(void);
CG_EXPORT CGColorSpaceRef CGColorSpaceCreateDeviceRGB(void);
CG_EXPORT CGColorSpaceRef CGColorSpaceCreateDeviceCMYK(void);

// Null for a name that is not above.
CG_EXPORT CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);

// Null is allowed.
CG_EXPORT CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space);
CG_EXPORT void CGColorSpaceRelease(CGColorSpaceRef space);

// Without alpha; 0 and kCGColorSpaceModelUnknown for null.
CG_EXPORT size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space);
CG_EXPORT CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space);

#endif
