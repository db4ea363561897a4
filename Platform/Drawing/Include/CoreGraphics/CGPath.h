// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGPath_h
#define CGPath_h

// Paths that a program keeps, and adds to the path of a context as often as it likes.
//
// What is added may be changed by a transform first; null stands for none. A null path, numbers that are
// infinite or none at all and null lists change nothing. Places are drawn in at half a million from the
// origin.

#include <CoreFoundation/CFBase.h>
#include <CoreGraphics/CGAffineTransform.h>

typedef struct CGPath* CGMutablePathRef;
typedef const struct CGPath* CGPathRef;

enum CGPathElementType
{
    kCGPathElementMoveToPoint = 0,
    kCGPathElementAddLineToPoint = 1,
    kCGPathElementAddQuadCurveToPoint = 2,
    kCGPathElementAddCurveToPoint = 3,
    kCGPathElementCloseSubpath = 4
};
typedef enum CGPathElementType CGPathElementType;

// One step of a path, with 1, 1, 2, 3 or 0 points.
struct CGPathElement
{
    CGPathElementType type;
    CGPoint* points;
};
typedef struct CGPathElement CGPathElement;

typedef void (*CGPathApplierFunction)(void* info, const CGPathElement* element);

CG_EXPORT CFTypeID CGPathGetTypeID(void);

// Paths are the caller's to release; null without memory, and copies of null. Copies change no more with
// what they were made of.
CG_EXPORT CGMutablePathRef CGPathCreateMutable(void);
CG_EXPORT CGPathRef CGPathCreateCopy(CGPathRef path);
CG_EXPORT CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path);
CG_EXPORT CGPathRef CGPathRetain(CGPathRef path);
CG_EXPORT void CGPathRelease(CGPathRef path);

CG_EXPORT void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y);

// From the current point on; nothing where there is none.
CG_EXPORT void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y);
CG_EXPORT void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cp1x,
                                     CGFloat cp1y, CGFloat cp2x, CGFloat cp2y, CGFloat x, CGFloat y);
CG_EXPORT void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cpx,
                                         CGFloat cpy, CGFloat x, CGFloat y);
CG_EXPORT void CGPathCloseSubpath(CGMutablePathRef path);

CG_EXPORT void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect);
CG_EXPORT void CGPathAddRects(CGMutablePathRef path, const CGAffineTransform* m, const CGRect rects[],
                              size_t count);
CG_EXPORT void CGPathAddLines(CGMutablePathRef path, const CGAffineTransform* m, const CGPoint points[],
                              size_t count);
CG_EXPORT void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect);

// As CGContextAddArc and CGContextAddArcToPoint.
CG_EXPORT void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y,
                            CGFloat radius, CGFloat startAngle, CGFloat endAngle, bool clockwise);
CG_EXPORT void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x1, CGFloat y1,
                                   CGFloat x2, CGFloat y2, CGFloat radius);

// A path may be added to itself.
CG_EXPORT void CGPathAddPath(CGMutablePathRef path1, const CGAffineTransform* m, CGPathRef path2);

// An empty path has its point at zero, and the null rectangle for a box, which has the places that pull at
// curves in it. Two paths are equal that have the same steps; null is equal to null.
CG_EXPORT bool CGPathIsEmpty(CGPathRef path);
CG_EXPORT bool CGPathEqualToPath(CGPathRef path1, CGPathRef path2);
CG_EXPORT CGPoint CGPathGetCurrentPoint(CGPathRef path);
CG_EXPORT CGRect CGPathGetBoundingBox(CGPathRef path);

// Whether filling the path would paint a point, which is changed by the transform first.
CG_EXPORT bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* m, CGPoint point, bool eoFill);

// Calls a function with each step; curves with one place that pulls are there as those with two. What the
// function makes of its points is lost. It may change and release the path, and sees it as it was.
CG_EXPORT void CGPathApply(CGPathRef path, void* info, CGPathApplierFunction function);

#endif
