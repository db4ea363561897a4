// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <cmath>
#include <CoreGraphics/CGAffineTransform.h>
#include <initializer_list>

const CGAffineTransform CGAffineTransformIdentity = {1, 0, 0, 1, 0, 0};

namespace {

// The terms are worked out in double, so that small ones do not get lost in large ones.
double Sum(CGFloat theOne, CGFloat theOther, CGFloat theThird, CGFloat theFourth)
{
    return double{theOne} * double{theOther} + double{theThird} * double{theFourth};
}

CGFloat Narrow(double theValue)
{
    return static_cast<CGFloat>(theValue);
}

} // namespace

CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty)
{
    return {a, b, c, d, tx, ty};
}

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty)
{
    return {1, 0, 0, 1, tx, ty};
}

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy)
{
    return {sx, 0, 0, sy, 0, 0};
}

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle)
{
    const CGFloat theCosine = std::cos(angle);
    const CGFloat theSine = std::sin(angle);
    return {theCosine, theSine, -theSine, theCosine, 0, 0};
}

CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty)
{
    return CGAffineTransformConcat(CGAffineTransformMakeTranslation(tx, ty), t);
}

CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy)
{
    return CGAffineTransformConcat(CGAffineTransformMakeScale(sx, sy), t);
}

CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle)
{
    return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), t);
}

CGAffineTransform CGAffineTransformConcat(CGAffineTransform t1, CGAffineTransform t2)
{
    return {Narrow(Sum(t1.a, t2.a, t1.b, t2.c)),
            Narrow(Sum(t1.a, t2.b, t1.b, t2.d)),
            Narrow(Sum(t1.c, t2.a, t1.d, t2.c)),
            Narrow(Sum(t1.c, t2.b, t1.d, t2.d)),
            Narrow(Sum(t1.tx, t2.a, t1.ty, t2.c) + double{t2.tx}),
            Narrow(Sum(t1.tx, t2.b, t1.ty, t2.d) + double{t2.ty})};
}

CGAffineTransform CGAffineTransformInvert(CGAffineTransform t)
{
    const double theArea = Sum(t.a, t.d, -t.b, t.c);
    if (theArea == 0 || !std::isfinite(theArea)) {
        return t;
    }
    return {Narrow(double{t.d} / theArea),
            Narrow(double{-t.b} / theArea),
            Narrow(double{-t.c} / theArea),
            Narrow(double{t.a} / theArea),
            Narrow(Sum(t.c, t.ty, -t.d, t.tx) / theArea),
            Narrow(Sum(t.b, t.tx, -t.a, t.ty) / theArea)};
}

bool CGAffineTransformIsIdentity(CGAffineTransform t)
{
    return CGAffineTransformEqualToTransform(t, CGAffineTransformIdentity);
}

bool CGAffineTransformEqualToTransform(CGAffineTransform t1, CGAffineTransform t2)
{
    return t1.a == t2.a && t1.b == t2.b && t1.c == t2.c && t1.d == t2.d && t1.tx == t2.tx && t1.ty == t2.ty;
}

CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform t)
{
    return {Narrow(Sum(t.a, point.x, t.c, point.y) + double{t.tx}),
            Narrow(Sum(t.b, point.x, t.d, point.y) + double{t.ty})};
}

CGSize CGSizeApplyAffineTransform(CGSize size, CGAffineTransform t)
{
    return {Narrow(Sum(t.a, size.width, t.c, size.height)), Narrow(Sum(t.b, size.width, t.d, size.height))};
}

CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t)
{
    if (CGRectIsNull(rect)) {
        return rect;
    }
    const CGFloat theLeft = CGRectGetMinX(rect);
    const CGFloat theRight = CGRectGetMaxX(rect);
    const CGFloat theBottom = CGRectGetMinY(rect);
    const CGFloat theTop = CGRectGetMaxY(rect);
    const CGPoint theFirst = CGPointApplyAffineTransform({theLeft, theBottom}, t);
    CGFloat theLowX = theFirst.x;
    CGFloat theHighX = theFirst.x;
    CGFloat theLowY = theFirst.y;
    CGFloat theHighY = theFirst.y;
    for (const CGPoint theCorner : {CGPoint{theRight, theBottom}, {theLeft, theTop}, {theRight, theTop}}) {
        const CGPoint thePoint = CGPointApplyAffineTransform(theCorner, t);
        theLowX = std::fmin(theLowX, thePoint.x);
        theHighX = std::fmax(theHighX, thePoint.x);
        theLowY = std::fmin(theLowY, thePoint.y);
        theHighY = std::fmax(theHighY, thePoint.y);
    }
    return CGRectMake(theLowX, theLowY, theHighX - theLowX, theHighY - theLowY);
}
