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

bool CGPointEqualToPoint(CGPoint inFirst, CGPoint inSecond)
{
    return inFirst.x == inSecond.x && inFirst.y == inSecond.y;
}

bool CGSizeEqualToSize(CGSize inFirst, CGSize inSecond)
{
    return inFirst.width == inSecond.width && inFirst.height == inSecond.height;
}

bool CGRectEqualToRect(CGRect inFirst, CGRect inSecond)
{
    return CGRectGetMinX(inFirst) == CGRectGetMinX(inSecond) &&
           CGRectGetMinY(inFirst) == CGRectGetMinY(inSecond) &&
           CGRectGetWidth(inFirst) == CGRectGetWidth(inSecond) &&
           CGRectGetHeight(inFirst) == CGRectGetHeight(inSecond);
}

CGFloat CGRectGetMinX(CGRect inRect)
{
    return std::min(inRect.origin.x, inRect.origin.x + inRect.size.width);
}

CGFloat CGRectGetMidX(CGRect inRect)
{
    return inRect.origin.x + inRect.size.width / 2;
}

CGFloat CGRectGetMaxX(CGRect inRect)
{
    return std::max(inRect.origin.x, inRect.origin.x + inRect.size.width);
}

CGFloat CGRectGetMinY(CGRect inRect)
{
    return std::min(inRect.origin.y, inRect.origin.y + inRect.size.height);
}

CGFloat CGRectGetMidY(CGRect inRect)
{
    return inRect.origin.y + inRect.size.height / 2;
}

CGFloat CGRectGetMaxY(CGRect inRect)
{
    return std::max(inRect.origin.y, inRect.origin.y + inRect.size.height);
}

CGFloat CGRectGetWidth(CGRect inRect)
{
    return inRect.size.width < 0 ? -inRect.size.width : inRect.size.width;
}

CGFloat CGRectGetHeight(CGRect inRect)
{
    return inRect.size.height < 0 ? -inRect.size.height : inRect.size.height;
}

bool CGRectIsEmpty(CGRect inRect)
{
    return CGRectIsNull(inRect) || inRect.size.width == 0 || inRect.size.height == 0;
}

bool CGRectIsNull(CGRect inRect)
{
    return inRect.origin.x == kInfinity || inRect.origin.y == kInfinity;
}

CGRect CGRectInset(CGRect inRect, CGFloat inDistanceX, CGFloat inDistanceY)
{
    if (CGRectIsNull(inRect)) {
        return inRect;
    }
    const CGFloat theWidth = CGRectGetWidth(inRect) - 2 * inDistanceX;
    const CGFloat theHeight = CGRectGetHeight(inRect) - 2 * inDistanceY;
    if (theWidth < 0 || theHeight < 0) {
        return CGRectNull;
    }
    return CGRectMake(CGRectGetMinX(inRect) + inDistanceX, CGRectGetMinY(inRect) + inDistanceY, theWidth,
                      theHeight);
}

CGRect CGRectOffset(CGRect inRect, CGFloat inDistanceX, CGFloat inDistanceY)
{
    if (CGRectIsNull(inRect)) {
        return inRect;
    }
    return CGRectMake(CGRectGetMinX(inRect) + inDistanceX, CGRectGetMinY(inRect) + inDistanceY,
                      CGRectGetWidth(inRect), CGRectGetHeight(inRect));
}

CGRect CGRectUnion(CGRect inFirst, CGRect inSecond)
{
    if (CGRectIsNull(inFirst)) {
        return inSecond;
    }
    if (CGRectIsNull(inSecond)) {
        return inFirst;
    }
    return RectFromEdges(std::min(CGRectGetMinX(inFirst), CGRectGetMinX(inSecond)),
                         std::min(CGRectGetMinY(inFirst), CGRectGetMinY(inSecond)),
                         std::max(CGRectGetMaxX(inFirst), CGRectGetMaxX(inSecond)),
                         std::max(CGRectGetMaxY(inFirst), CGRectGetMaxY(inSecond)));
}

CGRect CGRectIntersection(CGRect inFirst, CGRect inSecond)
{
    if (CGRectIsNull(inFirst) || CGRectIsNull(inSecond)) {
        return CGRectNull;
    }
    const CGFloat theLeft = std::max(CGRectGetMinX(inFirst), CGRectGetMinX(inSecond));
    const CGFloat theTop = std::max(CGRectGetMinY(inFirst), CGRectGetMinY(inSecond));
    const CGFloat theRight = std::min(CGRectGetMaxX(inFirst), CGRectGetMaxX(inSecond));
    const CGFloat theBottom = std::min(CGRectGetMaxY(inFirst), CGRectGetMaxY(inSecond));
    if (theRight < theLeft || theBottom < theTop) {
        return CGRectNull;
    }
    return RectFromEdges(theLeft, theTop, theRight, theBottom);
}

bool CGRectContainsPoint(CGRect inRect, CGPoint inPoint)
{
    return !CGRectIsEmpty(inRect) && inPoint.x >= CGRectGetMinX(inRect) &&
           inPoint.x < CGRectGetMaxX(inRect) && inPoint.y >= CGRectGetMinY(inRect) &&
           inPoint.y < CGRectGetMaxY(inRect);
}

bool CGRectContainsRect(CGRect inOuter, CGRect inInner)
{
    return CGRectEqualToRect(CGRectUnion(inOuter, inInner), inOuter);
}

bool CGRectIntersectsRect(CGRect inFirst, CGRect inSecond)
{
    return !CGRectIsEmpty(CGRectIntersection(inFirst, inSecond));
}
