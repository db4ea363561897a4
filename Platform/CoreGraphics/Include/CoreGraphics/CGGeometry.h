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

static inline CGPoint CGPointMake(CGFloat theX, CGFloat theY)
{
    CGPoint thePoint;
    thePoint.x = theX;
    thePoint.y = theY;
    return thePoint;
}

static inline CGSize CGSizeMake(CGFloat theWidth, CGFloat theHeight)
{
    CGSize theSize;
    theSize.width = theWidth;
    theSize.height = theHeight;
    return theSize;
}

static inline CGRect CGRectMake(CGFloat theX, CGFloat theY, CGFloat theWidth, CGFloat theHeight)
{
    CGRect theRect;
    theRect.origin = CGPointMake(theX, theY);
    theRect.size = CGSizeMake(theWidth, theHeight);
    return theRect;
}

CG_EXPORT bool CGPointEqualToPoint(CGPoint theFirst, CGPoint theSecond);
CG_EXPORT bool CGSizeEqualToSize(CGSize theFirst, CGSize theSecond);
// Rectangles that cover the same area are equal, turned round or not.
CG_EXPORT bool CGRectEqualToRect(CGRect theFirst, CGRect theSecond);

CG_EXPORT CGFloat CGRectGetMinX(CGRect theRect);
CG_EXPORT CGFloat CGRectGetMidX(CGRect theRect);
CG_EXPORT CGFloat CGRectGetMaxX(CGRect theRect);
CG_EXPORT CGFloat CGRectGetMinY(CGRect theRect);
CG_EXPORT CGFloat CGRectGetMidY(CGRect theRect);
CG_EXPORT CGFloat CGRectGetMaxY(CGRect theRect);
CG_EXPORT CGFloat CGRectGetWidth(CGRect theRect);
CG_EXPORT CGFloat CGRectGetHeight(CGRect theRect);

// A width or height of zero, or the null rectangle.
CG_EXPORT bool CGRectIsEmpty(CGRect theRect);
CG_EXPORT bool CGRectIsNull(CGRect theRect);

// Moves the edges inwards (outwards for negative distances); the null rectangle when nothing is left.
CG_EXPORT CGRect CGRectInset(CGRect theRect, CGFloat theDistanceX, CGFloat theDistanceY);
CG_EXPORT CGRect CGRectOffset(CGRect theRect, CGFloat theDistanceX, CGFloat theDistanceY);
// The smallest rectangle that holds both; a null rectangle adds nothing.
CG_EXPORT CGRect CGRectUnion(CGRect theFirst, CGRect theSecond);
// The area that is in both; the null rectangle when they have nothing in common.
CG_EXPORT CGRect CGRectIntersection(CGRect theFirst, CGRect theSecond);

// The left and top edges belong to a rectangle, the right and bottom edges do not.
CG_EXPORT bool CGRectContainsPoint(CGRect theRect, CGPoint thePoint);
CG_EXPORT bool CGRectContainsRect(CGRect theOuter, CGRect theInner);
CG_EXPORT bool CGRectIntersectsRect(CGRect theFirst, CGRect theSecond);

#endif
