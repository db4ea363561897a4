// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGGeometry_h
#define CGGeometry_h

// Points, sizes and rectangles with fractional coordinates.
//
// A rectangle may have a negative width or height; the functions that ask for its edges answer as if it had
// been turned round so that both are positive.

#include <CoreGraphics/CGBase.h>
#include <stdbool.h>

struct CGPoint
{
    CGFloat x;
    CGFloat y;
};
typedef struct CGPoint CGPoint;

struct CGSize
{
    CGFloat width;
    CGFloat height;
};
typedef struct CGSize CGSize;

struct CGRect
{
    CGPoint origin;
    CGSize size;
};
typedef struct CGRect CGRect;

enum CGRectEdge
{
    CGRectMinXEdge,
    CGRectMinYEdge,
    CGRectMaxXEdge,
    CGRectMaxYEdge
};
typedef enum CGRectEdge CGRectEdge;

#ifdef __cplusplus
#define CG_EXPORT extern "C" __attribute__((visibility("default")))
#else
#define CG_EXPORT extern __attribute__((visibility("default")))
#endif

CG_EXPORT const CGPoint CGPointZero;
CG_EXPORT const CGSize CGSizeZero;
CG_EXPORT const CGRect CGRectZero;
// The result of an intersection that is empty; it is not the same as CGRectZero.
CG_EXPORT const CGRect CGRectNull;
// Contains every point.
CG_EXPORT const CGRect CGRectInfinite;

static __inline__ CGPoint CGPointMake(CGFloat inX, CGFloat inY)
{
    CGPoint thePoint;
    thePoint.x = inX;
    thePoint.y = inY;
    return thePoint;
}

static __inline__ CGSize CGSizeMake(CGFloat inWidth, CGFloat inHeight)
{
    CGSize theSize;
    theSize.width = inWidth;
    theSize.height = inHeight;
    return theSize;
}

static __inline__ CGRect CGRectMake(CGFloat inX, CGFloat inY, CGFloat inWidth, CGFloat inHeight)
{
    CGRect theRect;
    theRect.origin = CGPointMake(inX, inY);
    theRect.size = CGSizeMake(inWidth, inHeight);
    return theRect;
}

CG_EXPORT bool CGPointEqualToPoint(CGPoint inFirst, CGPoint inSecond);
CG_EXPORT bool CGSizeEqualToSize(CGSize inFirst, CGSize inSecond);
// Rectangles that cover the same area are equal, turned round or not.
CG_EXPORT bool CGRectEqualToRect(CGRect inFirst, CGRect inSecond);

CG_EXPORT CGFloat CGRectGetMinX(CGRect inRect);
CG_EXPORT CGFloat CGRectGetMidX(CGRect inRect);
CG_EXPORT CGFloat CGRectGetMaxX(CGRect inRect);
CG_EXPORT CGFloat CGRectGetMinY(CGRect inRect);
CG_EXPORT CGFloat CGRectGetMidY(CGRect inRect);
CG_EXPORT CGFloat CGRectGetMaxY(CGRect inRect);
CG_EXPORT CGFloat CGRectGetWidth(CGRect inRect);
CG_EXPORT CGFloat CGRectGetHeight(CGRect inRect);

// A width or height of zero, or the null rectangle.
CG_EXPORT bool CGRectIsEmpty(CGRect inRect);
CG_EXPORT bool CGRectIsNull(CGRect inRect);

// Moves the edges inwards (outwards for negative distances); the null rectangle when nothing is left.
CG_EXPORT CGRect CGRectInset(CGRect inRect, CGFloat inDistanceX, CGFloat inDistanceY);
CG_EXPORT CGRect CGRectOffset(CGRect inRect, CGFloat inDistanceX, CGFloat inDistanceY);
// The smallest rectangle that holds both; a null rectangle adds nothing.
CG_EXPORT CGRect CGRectUnion(CGRect inFirst, CGRect inSecond);
// The area that is in both; the null rectangle when they have nothing in common.
CG_EXPORT CGRect CGRectIntersection(CGRect inFirst, CGRect inSecond);

// The left and top edges belong to a rectangle, the right and bottom edges do not.
CG_EXPORT bool CGRectContainsPoint(CGRect inRect, CGPoint inPoint);
CG_EXPORT bool CGRectContainsRect(CGRect inOuter, CGRect inInner);
CG_EXPORT bool CGRectIntersectsRect(CGRect inFirst, CGRect inSecond);

#endif
