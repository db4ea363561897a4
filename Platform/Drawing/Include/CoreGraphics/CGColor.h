// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGColor_h
#define CGColor_h

// Colours: components from 0 to 1 in a space, and an alpha, which is the last of them.

#include <CoreGraphics/CGColorSpace.h>

typedef struct CGColor* CGColorRef;

CG_EXPORT CFTypeID CGColorGetTypeID(void);

// The components, one more than the space has, are copied. Null without a space or components, and when there
// is no memory.
CG_EXPORT CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat components[]);
CG_EXPORT CGColorRef CGColorCreateCopy(CGColorRef color);
CG_EXPORT CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha);
CG_EXPORT CGColorRef CGColorCreateGenericRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
CG_EXPORT CGColorRef CGColorCreateGenericGray(CGFloat gray, CGFloat alpha);

// Null is allowed.
CG_EXPORT CGColorRef CGColorRetain(CGColorRef color);
CG_EXPORT void CGColorRelease(CGColorRef color);

// What belongs to the colour, and goes with it; null and 0 for null. The number counts the alpha.
CG_EXPORT const CGFloat* CGColorGetComponents(CGColorRef color);
CG_EXPORT size_t CGColorGetNumberOfComponents(CGColorRef color);
CG_EXPORT CGFloat CGColorGetAlpha(CGColorRef color);
CG_EXPORT CGColorSpaceRef CGColorGetColorSpace(CGColorRef color);

// Of the same model with the same components. Null equals null.
CG_EXPORT bool CGColorEqualToColor(CGColorRef color1, CGColorRef color2);

#endif
