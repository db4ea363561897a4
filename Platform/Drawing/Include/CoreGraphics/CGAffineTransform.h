// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGAffineTransform_h
#define CGAffineTransform_h

// Changes of coordinates that keep straight lines straight.

#include <CoreGraphics/CGGeometry.h>

// A point goes from (x, y) to (a x + c y + tx, b x + d y + ty).
struct CGAffineTransform
{
    CGFloat a;
    CGFloat b;
    CGFloat c;
    CGFloat d;
    CGFloat tx;
    CGFloat ty;
};
typedef struct CGAffineTransform CGAffineTransform;

CG_EXPORT const CGAffineTransform CGAffineTransformIdentity;

CG_EXPORT CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx,
                                                  CGFloat ty);
CG_EXPORT CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
CG_EXPORT CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
// By an angle in radians, from the x axis towards the y axis.
CG_EXPORT CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);

// The change named, and then t.
CG_EXPORT CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty);
CG_EXPORT CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy);
CG_EXPORT CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle);

// First t1, then t2.
CG_EXPORT CGAffineTransform CGAffineTransformConcat(CGAffineTransform t1, CGAffineTransform t2);

// The way back. One that has none, since it leaves no area, is given as it is.
CG_EXPORT CGAffineTransform CGAffineTransformInvert(CGAffineTransform t);

CG_EXPORT bool CGAffineTransformIsIdentity(CGAffineTransform t);
CG_EXPORT bool CGAffineTransformEqualToTransform(CGAffineTransform t1, CGAffineTransform t2);

CG_EXPORT CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform t);
CG_EXPORT CGSize CGSizeApplyAffineTransform(CGSize size, CGAffineTransform t);
// The smallest rectangle around the one that came out.
CG_EXPORT CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t);

#endif
