// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreGraphics/CGGeometry.h>

#include <algorithm>
#include <cfloat>
#include <limits>

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

CGRect RectFromEdges(CGFloat theLeft, CGFloat theTop, CGFloat theRight, CGFloat theBottom)
{
    return CGRectMake(theLeft, theTop, theRight - theLeft, theBottom - theTop);
}

} // namespace

const CGPoint CGPointZero = {0, 0};
const CGSize CGSizeZero = {0, 0};
const CGRect CGRectZero = {{0, 0}, {0, 0}};
const CGRect CGRectNull = {{kInfinity, kInfinity}, {0, 0}};
// Half of the largest float on either side of zero, so that its edges are finite numbers.
const CGRect CGRectInfinite = {{-FLT_MAX / 2, -FLT_MAX / 2}, {FLT_MAX, FLT_MAX}};

bool CGPointEqualToPoint(CGPoint theFirst, CGPoint theSecond)
{
    return theFirst.x == theSecond.x && theFirst.y == theSecond.y;
}

bool CGSizeEqualToSize(CGSize theFirst, CGSize theSecond)
{
    return theFirst.width == theSecond.width && theFirst.height == theSecond.height;
}

bool CGRectEqualToRect(CGRect theFirst, CGRect theSecond)
{
    return CGRectGetMinX(theFirst) == CGRectGetMinX(theSecond) &&
           CGRectGetMinY(theFirst) == CGRectGetMinY(theSecond) &&
           CGRectGetWidth(theFirst) == CGRectGetWidth(theSecond) &&
           CGRectGetHeight(theFirst) == CGRectGetHeight(theSecond);
}

CGFloat CGRectGetMinX(CGRect theRect)
{
    return std::min(theRect.origin.x, theRect.origin.x + theRect.size.width);
}

CGFloat CGRectGetMidX(CGRect theRect)
{
    return theRect.origin.x + theRect.size.width / 2;
}

CGFloat CGRectGetMaxX(CGRect theRect)
{
    return std::max(theRect.origin.x, theRect.origin.x + theRect.size.width);
}

CGFloat CGRectGetMinY(CGRect theRect)
{
    return std::min(theRect.origin.y, theRect.origin.y + theRect.size.height);
}

CGFloat CGRectGetMidY(CGRect theRect)
{
    return theRect.origin.y + theRect.size.height / 2;
}

CGFloat CGRectGetMaxY(CGRect theRect)
{
    return std::max(theRect.origin.y, theRect.origin.y + theRect.size.height);
}

CGFloat CGRectGetWidth(CGRect theRect)
{
    return theRect.size.width < 0 ? -theRect.size.width : theRect.size.width;
}

CGFloat CGRectGetHeight(CGRect theRect)
{
    return theRect.size.height < 0 ? -theRect.size.height : theRect.size.height;
}

bool CGRectIsEmpty(CGRect theRect)
{
    return CGRectIsNull(theRect) || theRect.size.width == 0 || theRect.size.height == 0;
}

bool CGRectIsNull(CGRect theRect)
{
    return theRect.origin.x == kInfinity || theRect.origin.y == kInfinity;
}

CGRect CGRectInset(CGRect theRect, CGFloat theDistanceX, CGFloat theDistanceY)
{
    if (CGRectIsNull(theRect)) {
        return theRect;
    }
    const CGFloat theWidth = CGRectGetWidth(theRect) - 2 * theDistanceX;
    const CGFloat theHeight = CGRectGetHeight(theRect) - 2 * theDistanceY;
    if (theWidth < 0 || theHeight < 0) {
        return CGRectNull;
    }
    return CGRectMake(CGRectGetMinX(theRect) + theDistanceX, CGRectGetMinY(theRect) + theDistanceY, theWidth,
                      theHeight);
}

CGRect CGRectOffset(CGRect theRect, CGFloat theDistanceX, CGFloat theDistanceY)
{
    if (CGRectIsNull(theRect)) {
        return theRect;
    }
    return CGRectMake(CGRectGetMinX(theRect) + theDistanceX, CGRectGetMinY(theRect) + theDistanceY,
                      CGRectGetWidth(theRect), CGRectGetHeight(theRect));
}

CGRect CGRectUnion(CGRect theFirst, CGRect theSecond)
{
    if (CGRectIsNull(theFirst)) {
        return theSecond;
    }
    if (CGRectIsNull(theSecond)) {
        return theFirst;
    }
    return RectFromEdges(std::min(CGRectGetMinX(theFirst), CGRectGetMinX(theSecond)),
                         std::min(CGRectGetMinY(theFirst), CGRectGetMinY(theSecond)),
                         std::max(CGRectGetMaxX(theFirst), CGRectGetMaxX(theSecond)),
                         std::max(CGRectGetMaxY(theFirst), CGRectGetMaxY(theSecond)));
}

CGRect CGRectIntersection(CGRect theFirst, CGRect theSecond)
{
    if (CGRectIsNull(theFirst) || CGRectIsNull(theSecond)) {
        return CGRectNull;
    }
    const CGFloat theLeft = std::max(CGRectGetMinX(theFirst), CGRectGetMinX(theSecond));
    const CGFloat theTop = std::max(CGRectGetMinY(theFirst), CGRectGetMinY(theSecond));
    const CGFloat theRight = std::min(CGRectGetMaxX(theFirst), CGRectGetMaxX(theSecond));
    const CGFloat theBottom = std::min(CGRectGetMaxY(theFirst), CGRectGetMaxY(theSecond));
    if (theRight < theLeft || theBottom < theTop) {
        return CGRectNull;
    }
    return RectFromEdges(theLeft, theTop, theRight, theBottom);
}

bool CGRectContainsPoint(CGRect theRect, CGPoint thePoint)
{
    return !CGRectIsEmpty(theRect) && thePoint.x >= CGRectGetMinX(theRect) &&
           thePoint.x < CGRectGetMaxX(theRect) && thePoint.y >= CGRectGetMinY(theRect) &&
           thePoint.y < CGRectGetMaxY(theRect);
}

bool CGRectContainsRect(CGRect theOuter, CGRect theInner)
{
    return CGRectEqualToRect(CGRectUnion(theOuter, theInner), theOuter);
}

bool CGRectIntersectsRect(CGRect theFirst, CGRect theSecond)
{
    return !CGRectIsEmpty(CGRectIntersection(theFirst, theSecond));
}
