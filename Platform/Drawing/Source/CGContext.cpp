// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A context's life, and what it paints and clips.

#include "ContextObject.h"

#include <cmath>

using namespace Host;

const TypeOperations Host::kContextType = {kContextTypeID, "CGContext", Delete<CGContext>, nullptr, nullptr,
                                           nullptr,        nullptr};

namespace {

void Fill(CGContext& theContext, const Outline& theShape, bool theIsEvenOdd)
{
    theContext.Draw(
        [&](Canvas& theCanvas) { theCanvas.Fill(theShape, theIsEvenOdd, theContext.mState.FillInk()); });
}

void Stroke(CGContext& theContext, const Outline& theShape)
{
    const GraphicsState& theState = theContext.mState;
    theContext.Draw([&](Canvas& theCanvas) {
        theCanvas.Stroke(theShape, theState.theTransform, theState.theLine, theState.StrokeInk());
    });
}

// Paints or clips with a shape of its own; the path is empty after that.
template <class Adding, class Use>
void UseShape(CGContextRef theContext, const Adding& theAdding, const Use& theUse)
{
    With(theContext, [&](CGContext& theFound) {
        theFound.mPath.Clear();
        Outline theShape;
        theAdding(theShape, theFound.mState.theTransform);
        theUse(theFound, theShape);
    });
}

auto RectangleOf(const CGRect& theRect)
{
    return [theRect](Outline& theShape, const CGAffineTransform& t) { theShape.Rectangle(theRect, t); };
}

auto RectanglesOf(const CGRect* theRects, size_t theCount)
{
    return [=](Outline& theShape, const CGAffineTransform& t) {
        for (size_t theIndex = 0; theRects != nullptr && theIndex < theCount; ++theIndex) {
            theShape.Rectangle(theRects[theIndex], t);
        }
    };
}

auto EllipseOf(const CGRect& theRect)
{
    return [theRect](Outline& theShape, const CGAffineTransform& t) { theShape.Ellipse(theRect, t); };
}

void FillShape(CGContext& theContext, const Outline& theShape)
{
    Fill(theContext, theShape, false);
}

void ClipToShape(CGContext& theContext, const Outline& theShape)
{
    theContext.mCanvas->Clip(theShape, false);
}

void ClipToPath(CGContextRef theContext, bool theIsEvenOdd)
{
    With(theContext, [=](CGContext& theFound) {
        theFound.mCanvas->Clip(theFound.mPath, theIsEvenOdd);
        theFound.mPath.Clear();
    });
}

} // namespace

CFTypeID CGContextGetTypeID()
{
    return kContextTypeID;
}

CGContextRef CGContextRetain(CGContextRef c)
{
    return RetainChecked(c, kContextType);
}

void CGContextRelease(CGContextRef c)
{
    ReleaseChecked(c, kContextType);
}

void CGContextDrawPath(CGContextRef c, CGPathDrawingMode mode)
{
    if (mode < kCGPathFill || mode > kCGPathEOFillStroke) {
        return;
    }
    With(c, [=](CGContext& theContext) {
        if (mode != kCGPathStroke) {
            Fill(theContext, theContext.mPath, mode == kCGPathEOFill || mode == kCGPathEOFillStroke);
        }
        if (mode >= kCGPathStroke) {
            Stroke(theContext, theContext.mPath);
        }
        theContext.mPath.Clear();
    });
}

void CGContextFillPath(CGContextRef c)
{
    CGContextDrawPath(c, kCGPathFill);
}

void CGContextEOFillPath(CGContextRef c)
{
    CGContextDrawPath(c, kCGPathEOFill);
}

void CGContextStrokePath(CGContextRef c)
{
    CGContextDrawPath(c, kCGPathStroke);
}

void CGContextFillRect(CGContextRef c, CGRect rect)
{
    UseShape(c, RectangleOf(rect), FillShape);
}

void CGContextFillRects(CGContextRef c, const CGRect rects[], size_t count)
{
    UseShape(c, RectanglesOf(rects, count), FillShape);
}

void CGContextStrokeRect(CGContextRef c, CGRect rect)
{
    UseShape(c, RectangleOf(rect), Stroke);
}

void CGContextStrokeRectWithWidth(CGContextRef c, CGRect rect, CGFloat width)
{
    if (!std::isfinite(width) || width < 0) {
        return;
    }
    UseShape(c, RectangleOf(rect), [=](CGContext& theContext, const Outline& theShape) {
        double& theWidth = theContext.mState.theLine.theWidth;
        const double theOld = theWidth;
        theWidth = double{width};
        Stroke(theContext, theShape);
        theWidth = theOld;
    });
}

void CGContextClearRect(CGContextRef c, CGRect rect)
{
    UseShape(c, RectangleOf(rect), [](CGContext& theContext, const Outline& theShape) {
        Ink theInk = theContext.mState.FillInk();
        theInk.theMode = kCGBlendModeClear;
        theContext.Draw([&](Canvas& theCanvas) { theCanvas.Fill(theShape, false, theInk); });
    });
}

void CGContextFillEllipseInRect(CGContextRef c, CGRect rect)
{
    UseShape(c, EllipseOf(rect), FillShape);
}

void CGContextStrokeEllipseInRect(CGContextRef c, CGRect rect)
{
    UseShape(c, EllipseOf(rect), Stroke);
}

void CGContextStrokeLineSegments(CGContextRef c, const CGPoint points[], size_t count)
{
    const auto theLines = [=](Outline& theShape, const CGAffineTransform& t) {
        for (size_t theIndex = 0; points != nullptr && theIndex + 1 < count; theIndex += 2) {
            theShape.Move(points[theIndex], t);
            theShape.Line(points[theIndex + 1], t);
        }
    };
    UseShape(c, theLines, Stroke);
}

void CGContextClip(CGContextRef c)
{
    ClipToPath(c, false);
}

void CGContextEOClip(CGContextRef c)
{
    ClipToPath(c, true);
}

void CGContextClipToRect(CGContextRef c, CGRect rect)
{
    UseShape(c, RectangleOf(rect), ClipToShape);
}

void CGContextClipToRects(CGContextRef c, const CGRect rects[], size_t count)
{
    UseShape(c, RectanglesOf(rects, count), ClipToShape);
}

CGRect CGContextGetClipBoundingBox(CGContextRef c)
{
    const CGContext* const theContext = Checked(c, kContextType);
    return theContext == nullptr
               ? CGRectNull
               : CGRectApplyAffineTransform(theContext->mCanvas->ClipBox(),
                                            CGAffineTransformInvert(theContext->mState.theTransform));
}

void CGContextFlush(CGContextRef) {}

void CGContextSynchronize(CGContextRef) {}
