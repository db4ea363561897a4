// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PathObject.h"

#include <array>

using namespace Host;

namespace {

bool AreEqualObjects(const Object* theOne, const Object* theOther)
{
    return static_cast<const CGPath*>(theOne)->mOutline == static_cast<const CGPath*>(theOther)->mOutline;
}

CFHashCode HashOf(const Object* theObject)
{
    return static_cast<CFHashCode>(static_cast<const CGPath*>(theObject)->mOutline.Steps().size());
}

CGPath* Make(const Outline& theOutline)
{
    return NothingWithoutMemory([&] { return new CGPath(theOutline); });
}

const CGAffineTransform& Known(const CGAffineTransform* theTransform)
{
    return theTransform == nullptr ? CGAffineTransformIdentity : *theTransform;
}

// Changes a path with a function of its outline and a transform.
template <class Change>
void ChangePath(CGMutablePathRef thePath, const CGAffineTransform* theTransform, const Change& theChange)
{
    CGPath* const theFound = Checked(thePath, kPathType);
    if (theFound != nullptr) {
        NothingWithoutMemory([&] {
            theChange(theFound->mOutline, Known(theTransform));
            return true;
        });
    }
}

CGPoint PointOf(Spot theSpot)
{
    return {static_cast<CGFloat>(theSpot.theX), static_cast<CGFloat>(theSpot.theY)};
}

struct ElementShape
{
    CGPathElementType theType;
    size_t theCount; // of points
};

ElementShape ShapeOf(Outline::Step theStep)
{
    switch (theStep) {
    case Outline::Step::kMove:
        return {kCGPathElementMoveToPoint, 1};
    case Outline::Step::kLine:
        return {kCGPathElementAddLineToPoint, 1};
    case Outline::Step::kCurve:
        return {kCGPathElementAddCurveToPoint, 3};
    case Outline::Step::kClose:
        break;
    }
    return {kCGPathElementCloseSubpath, 0};
}

void ApplyTo(const Outline& theOutline, void* theInfo, CGPathApplierFunction theFunction)
{
    size_t thePlace = 0;
    for (const Outline::Step theStep : theOutline.Steps()) {
        const ElementShape theShape = ShapeOf(theStep);
        std::array<CGPoint, 3> thePoints = {};
        for (size_t theIndex = 0; theIndex < theShape.theCount; ++theIndex) {
            thePoints[theIndex] = PointOf(theOutline.Spots()[thePlace++]);
        }
        const CGPathElement theElement = {theShape.theType, thePoints.data()};
        theFunction(theInfo, &theElement);
    }
}

} // namespace

const TypeOperations Host::kPathType = {kPathTypeID, "CGPath", Delete<CGPath>, AreEqualObjects,
                                        HashOf,      nullptr,  nullptr};

CFTypeID CGPathGetTypeID()
{
    return kPathTypeID;
}

CGMutablePathRef CGPathCreateMutable()
{
    return Make({});
}

CGPathRef CGPathCreateCopy(CGPathRef path)
{
    return CGPathCreateMutableCopy(path);
}

CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path)
{
    const CGPath* const thePath = Checked(path, kPathType);
    return thePath == nullptr ? nullptr : Make(thePath->mOutline);
}

CGPathRef CGPathRetain(CGPathRef path)
{
    return RetainChecked(path, kPathType);
}

void CGPathRelease(CGPathRef path)
{
    ReleaseChecked(path, kPathType);
}

void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y)
{
    ChangePath(path, m, [=](Outline& theOutline, const CGAffineTransform& t) { theOutline.Move({x, y}, t); });
}

void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y)
{
    ChangePath(path, m, [=](Outline& theOutline, const CGAffineTransform& t) { theOutline.Line({x, y}, t); });
}

void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cp1x, CGFloat cp1y,
                           CGFloat cp2x, CGFloat cp2y, CGFloat x, CGFloat y)
{
    ChangePath(path, m, [=](Outline& theOutline, const CGAffineTransform& t) {
        theOutline.Curve({cp1x, cp1y}, {cp2x, cp2y}, {x, y}, t);
    });
}

void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cpx, CGFloat cpy,
                               CGFloat x, CGFloat y)
{
    ChangePath(path, m, [=](Outline& theOutline, const CGAffineTransform& t) {
        theOutline.QuadCurve({cpx, cpy}, {x, y}, t);
    });
}

void CGPathCloseSubpath(CGMutablePathRef path)
{
    ChangePath(path, nullptr, [](Outline& theOutline, const CGAffineTransform&) { theOutline.Close(); });
}

void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect)
{
    ChangePath(path, m,
               [&](Outline& theOutline, const CGAffineTransform& t) { theOutline.Rectangle(rect, t); });
}

void CGPathAddRects(CGMutablePathRef path, const CGAffineTransform* m, const CGRect rects[], size_t count)
{
    for (size_t theIndex = 0; rects != nullptr && theIndex < count; ++theIndex) {
        CGPathAddRect(path, m, rects[theIndex]);
    }
}

void CGPathAddLines(CGMutablePathRef path, const CGAffineTransform* m, const CGPoint points[], size_t count)
{
    if (points == nullptr || count == 0) {
        return;
    }
    CGPathMoveToPoint(path, m, points[0].x, points[0].y);
    for (size_t theIndex = 1; theIndex < count; ++theIndex) {
        CGPathAddLineToPoint(path, m, points[theIndex].x, points[theIndex].y);
    }
}

void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect)
{
    ChangePath(path, m,
               [&](Outline& theOutline, const CGAffineTransform& t) { theOutline.Ellipse(rect, t); });
}

void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise)
{
    ChangePath(path, m, [=](Outline& theOutline, const CGAffineTransform& t) {
        theOutline.Arc({x, y}, radius, double{startAngle}, double{endAngle}, clockwise, t);
    });
}

void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x1, CGFloat y1,
                         CGFloat x2, CGFloat y2, CGFloat radius)
{
    ChangePath(path, m, [=](Outline& theOutline, const CGAffineTransform& t) {
        theOutline.ArcToPoint({x1, y1}, {x2, y2}, radius, t);
    });
}

void CGPathAddPath(CGMutablePathRef path1, const CGAffineTransform* m, CGPathRef path2)
{
    const CGPath* const theAdded = Checked(path2, kPathType);
    if (theAdded != nullptr) {
        ChangePath(path1, m, [&](Outline& theOutline, const CGAffineTransform& t) {
            theOutline.Append(theAdded->mOutline, t);
        });
    }
}

bool CGPathIsEmpty(CGPathRef path)
{
    const CGPath* const thePath = Checked(path, kPathType);
    return thePath == nullptr || thePath->mOutline.IsEmpty();
}

bool CGPathEqualToPath(CGPathRef path1, CGPathRef path2)
{
    const CGPath* const theOne = Checked(path1, kPathType);
    const CGPath* const theOther = Checked(path2, kPathType);
    return theOne == theOther ||
           (theOne != nullptr && theOther != nullptr && theOne->mOutline == theOther->mOutline);
}

CGPoint CGPathGetCurrentPoint(CGPathRef path)
{
    const CGPath* const thePath = Checked(path, kPathType);
    return thePath == nullptr ? CGPointZero : PointOf(thePath->mOutline.Current());
}

CGRect CGPathGetBoundingBox(CGPathRef path)
{
    const CGPath* const thePath = Checked(path, kPathType);
    return thePath == nullptr ? CGRectNull : thePath->mOutline.Box();
}

bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* m, CGPoint point, bool eoFill)
{
    const CGPath* const thePath = Checked(path, kPathType);
    if (thePath == nullptr) {
        return false;
    }
    const CGPoint thePoint = CGPointApplyAffineTransform(point, Known(m));
    return thePath->mOutline.Contains({double{thePoint.x}, double{thePoint.y}}, eoFill);
}

void CGPathApply(CGPathRef path, void* info, CGPathApplierFunction function)
{
    const CGPath* const thePath = Checked(path, kPathType);
    if (thePath != nullptr && function != nullptr) {
        NothingWithoutMemory([&] {
            const Outline theOutline = thePath->mOutline;
            ApplyTo(theOutline, info, function);
            return true;
        });
    }
}
