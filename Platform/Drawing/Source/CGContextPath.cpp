// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The path of a context.

#include "ContextObject.h"
#include "PathObject.h"

using namespace Host;

namespace {

// Changes the path in the coordinates of the moment.
template <class Change>
void ChangePath(CGContextRef theContext, const Change& theChange)
{
    With(theContext, [&](CGContext& theFound) { theChange(theFound.mPath, theFound.mState.theTransform); });
}

} // namespace

void CGContextBeginPath(CGContextRef c)
{
    ChangePath(c, [](Outline& thePath, const CGAffineTransform&) { thePath.Clear(); });
}

void CGContextMoveToPoint(CGContextRef c, CGFloat x, CGFloat y)
{
    ChangePath(c, [=](Outline& thePath, const CGAffineTransform& t) { thePath.Move({x, y}, t); });
}

void CGContextAddLineToPoint(CGContextRef c, CGFloat x, CGFloat y)
{
    ChangePath(c, [=](Outline& thePath, const CGAffineTransform& t) { thePath.Line({x, y}, t); });
}

void CGContextAddCurveToPoint(CGContextRef c, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y,
                              CGFloat x, CGFloat y)
{
    ChangePath(c, [=](Outline& thePath, const CGAffineTransform& t) {
        thePath.Curve({cp1x, cp1y}, {cp2x, cp2y}, {x, y}, t);
    });
}

void CGContextAddQuadCurveToPoint(CGContextRef c, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y)
{
    ChangePath(c, [=](Outline& thePath, const CGAffineTransform& t) {
        thePath.QuadCurve({cpx, cpy}, {x, y}, t);
    });
}

void CGContextClosePath(CGContextRef c)
{
    ChangePath(c, [](Outline& thePath, const CGAffineTransform&) { thePath.Close(); });
}

void CGContextAddRect(CGContextRef c, CGRect rect)
{
    ChangePath(c, [&](Outline& thePath, const CGAffineTransform& t) { thePath.Rectangle(rect, t); });
}

void CGContextAddRects(CGContextRef c, const CGRect rects[], size_t count)
{
    for (size_t theIndex = 0; rects != nullptr && theIndex < count; ++theIndex) {
        CGContextAddRect(c, rects[theIndex]);
    }
}

void CGContextAddLines(CGContextRef c, const CGPoint points[], size_t count)
{
    if (points == nullptr || count == 0) {
        return;
    }
    CGContextMoveToPoint(c, points[0].x, points[0].y);
    for (size_t theIndex = 1; theIndex < count; ++theIndex) {
        CGContextAddLineToPoint(c, points[theIndex].x, points[theIndex].y);
    }
}

void CGContextAddEllipseInRect(CGContextRef c, CGRect rect)
{
    ChangePath(c, [&](Outline& thePath, const CGAffineTransform& t) { thePath.Ellipse(rect, t); });
}

void CGContextAddArc(CGContextRef c, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle,
                     CGFloat endAngle, int clockwise)
{
    ChangePath(c, [=](Outline& thePath, const CGAffineTransform& t) {
        thePath.Arc({x, y}, radius, double{startAngle}, double{endAngle}, clockwise != 0, t);
    });
}

void CGContextAddArcToPoint(CGContextRef c, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius)
{
    ChangePath(c, [=](Outline& thePath, const CGAffineTransform& t) {
        thePath.ArcToPoint({x1, y1}, {x2, y2}, radius, t);
    });
}

void CGContextAddPath(CGContextRef c, CGPathRef path)
{
    const CGPath* const theAdded = Checked(path, kPathType);
    if (theAdded != nullptr) {
        ChangePath(
            c, [&](Outline& thePath, const CGAffineTransform& t) { thePath.Append(theAdded->mOutline, t); });
    }
}

bool CGContextIsPathEmpty(CGContextRef c)
{
    const CGContext* const theContext = Checked(c, kContextType);
    return theContext == nullptr || theContext->mPath.IsEmpty();
}

CGPoint CGContextGetPathCurrentPoint(CGContextRef c)
{
    const CGContext* const theContext = Checked(c, kContextType);
    if (theContext == nullptr || theContext->mPath.IsEmpty()) {
        return CGPointZero;
    }
    const Spot theSpot = theContext->mPath.Current();
    return CGPointApplyAffineTransform(
        {static_cast<CGFloat>(theSpot.theX), static_cast<CGFloat>(theSpot.theY)},
        CGAffineTransformInvert(theContext->mState.theTransform));
}

CGRect CGContextGetPathBoundingBox(CGContextRef c)
{
    const CGContext* const theContext = Checked(c, kContextType);
    return theContext == nullptr
               ? CGRectNull
               : CGRectApplyAffineTransform(theContext->mPath.Box(),
                                            CGAffineTransformInvert(theContext->mState.theTransform));
}
