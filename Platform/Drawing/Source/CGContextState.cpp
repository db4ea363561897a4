// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The state of a context: its coordinates, colours and lines.

#include "ColorObject.h"
#include "ContextObject.h"

#include <cmath>

namespace Host {

void SpacedPaint::Set(CGColorSpace& theNewSpace, const CGFloat* theComponents)
{
    theSpace = &theNewSpace;
    thePaint = PaintOf(theNewSpace, theComponents);
}

GraphicsState::GraphicsState()
    : theTransform(CGAffineTransformIdentity),
      theFill{CGColorSpaceCreateDeviceGray(), Paint()},
      theStroke{CGColorSpaceCreateDeviceGray(), Paint()}
{
}

Ink GraphicsState::InkOf(Paint thePaint) const
{
    thePaint.theAlpha *= theAlpha;
    return {thePaint, theMode, theIsSmooth};
}

namespace {

bool IsFinite(const CGAffineTransform& theTransform)
{
    return std::isfinite(theTransform.a) && std::isfinite(theTransform.b) && std::isfinite(theTransform.c) &&
           std::isfinite(theTransform.d) && std::isfinite(theTransform.tx) && std::isfinite(theTransform.ty);
}

void Concat(CGContextRef theContext, const CGAffineTransform& theChange)
{
    With(theContext, [&](CGContext& theFound) {
        const CGAffineTransform theNew = CGAffineTransformConcat(theChange, theFound.mState.theTransform);
        if (IsFinite(theNew)) {
            theFound.mState.theTransform = theNew;
        }
    });
}

using PaintField = SpacedPaint GraphicsState::*;

void SetPaint(CGContextRef theContext, PaintField theField, CGColorSpaceRef theSpace,
              const CGFloat* theComponents)
{
    CGColorSpace* const theKnown = Checked(theSpace, kColorSpaceType);
    if (theKnown != nullptr && theComponents != nullptr) {
        With(theContext,
             [&](CGContext& theFound) { (theFound.mState.*theField).Set(*theKnown, theComponents); });
    }
}

void SetSpace(CGContextRef theContext, PaintField theField, CGColorSpaceRef theSpace)
{
    if (const CGColorSpace* const theKnown = Checked(theSpace, kColorSpaceType)) {
        SetPaint(theContext, theField, theSpace, BlackOf(*theKnown).data());
    }
}

void SetComponents(CGContextRef theContext, PaintField theField, const CGFloat* theComponents)
{
    With(theContext, [&](CGContext& theFound) {
        SetPaint(theContext, theField, (theFound.mState.*theField).theSpace, theComponents);
    });
}

void SetColor(CGContextRef theContext, PaintField theField, CGColorRef theColor)
{
    if (const CGColor* const theKnown = Checked(theColor, kColorType)) {
        SetPaint(theContext, theField, &theKnown->mSpace, theKnown->mComponents.data());
    }
}

// Not negative, and at least one of them more than nothing.
bool AreDashes(const CGFloat* theLengths, size_t theCount)
{
    double theSum = 0;
    for (size_t theIndex = 0; theIndex < theCount; ++theIndex) {
        if (!std::isfinite(theLengths[theIndex]) || theLengths[theIndex] < 0) {
            return false;
        }
        theSum += double{theLengths[theIndex]};
    }
    return theSum > 0;
}

// More than any program has, and few enough to go through.
constexpr size_t kMostDashes = 1000;

bool IsBlendMode(CGBlendMode theMode)
{
    const int theNumber = static_cast<int>(theMode);
    return theNumber >= kCGBlendModeNormal && theNumber <= kCGBlendModePlusLighter && theNumber != 26;
}

} // namespace

} // namespace Host

using namespace Host;

void CGContextSaveGState(CGContextRef c)
{
    With(c, [](CGContext& theContext) {
        theContext.mSaved.push_back(theContext.mState);
        theContext.mCanvas->SaveClip();
    });
}

void CGContextRestoreGState(CGContextRef c)
{
    With(c, [](CGContext& theContext) {
        if (!theContext.mSaved.empty()) {
            theContext.mState = std::move(theContext.mSaved.back());
            theContext.mSaved.pop_back();
            theContext.mCanvas->RestoreClip();
        }
    });
}

void CGContextScaleCTM(CGContextRef c, CGFloat sx, CGFloat sy)
{
    Concat(c, CGAffineTransformMakeScale(sx, sy));
}

void CGContextTranslateCTM(CGContextRef c, CGFloat tx, CGFloat ty)
{
    Concat(c, CGAffineTransformMakeTranslation(tx, ty));
}

void CGContextRotateCTM(CGContextRef c, CGFloat angle)
{
    Concat(c, CGAffineTransformMakeRotation(angle));
}

void CGContextConcatCTM(CGContextRef c, CGAffineTransform transform)
{
    Concat(c, transform);
}

CGAffineTransform CGContextGetCTM(CGContextRef c)
{
    const CGContext* const theContext = Checked(c, kContextType);
    return theContext == nullptr ? CGAffineTransformIdentity : theContext->mState.theTransform;
}

void CGContextSetLineWidth(CGContextRef c, CGFloat width)
{
    if (std::isfinite(width) && width >= 0) {
        With(c, [=](CGContext& theContext) { theContext.mState.theLine.theWidth = double{width}; });
    }
}

void CGContextSetLineCap(CGContextRef c, CGLineCap cap)
{
    if (cap == kCGLineCapButt || cap == kCGLineCapRound || cap == kCGLineCapSquare) {
        With(c, [=](CGContext& theContext) { theContext.mState.theLine.theCap = cap; });
    }
}

void CGContextSetLineJoin(CGContextRef c, CGLineJoin join)
{
    if (join == kCGLineJoinMiter || join == kCGLineJoinRound || join == kCGLineJoinBevel) {
        With(c, [=](CGContext& theContext) { theContext.mState.theLine.theJoin = join; });
    }
}

void CGContextSetMiterLimit(CGContextRef c, CGFloat limit)
{
    if (std::isfinite(limit) && limit > 0) {
        With(c, [=](CGContext& theContext) { theContext.mState.theLine.theMiterLimit = double{limit}; });
    }
}

void CGContextSetLineDash(CGContextRef c, CGFloat phase, const CGFloat lengths[], size_t count)
{
    const bool theIsSolid = lengths == nullptr || count == 0;
    if (!theIsSolid && (!std::isfinite(phase) || count > kMostDashes || !AreDashes(lengths, count))) {
        return;
    }
    With(c, [=](CGContext& theContext) {
        LineStyle& theLine = theContext.mState.theLine;
        theLine.theDashes =
            theIsSolid ? std::vector<double>() : std::vector<double>(lengths, lengths + count);
        theLine.thePhase = theIsSolid ? 0 : double{phase};
    });
}

void CGContextSetAlpha(CGContextRef c, CGFloat alpha)
{
    if (!std::isnan(alpha)) {
        With(c, [=](CGContext& theContext) {
            theContext.mState.theAlpha = std::fmax(0, std::fmin(double{alpha}, 1));
        });
    }
}

void CGContextSetBlendMode(CGContextRef c, CGBlendMode mode)
{
    if (IsBlendMode(mode)) {
        With(c, [=](CGContext& theContext) { theContext.mState.theMode = mode; });
    }
}

void CGContextSetShouldAntialias(CGContextRef c, bool shouldAntialias)
{
    With(c, [=](CGContext& theContext) { theContext.mState.theIsSmooth = shouldAntialias; });
}

void CGContextSetGrayFillColor(CGContextRef c, CGFloat gray, CGFloat alpha)
{
    const CGFloat theComponents[] = {gray, alpha};
    SetPaint(c, &GraphicsState::theFill, CGColorSpaceCreateDeviceGray(), theComponents);
}

void CGContextSetGrayStrokeColor(CGContextRef c, CGFloat gray, CGFloat alpha)
{
    const CGFloat theComponents[] = {gray, alpha};
    SetPaint(c, &GraphicsState::theStroke, CGColorSpaceCreateDeviceGray(), theComponents);
}

void CGContextSetRGBFillColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha)
{
    const CGFloat theComponents[] = {red, green, blue, alpha};
    SetPaint(c, &GraphicsState::theFill, CGColorSpaceCreateDeviceRGB(), theComponents);
}

void CGContextSetRGBStrokeColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha)
{
    const CGFloat theComponents[] = {red, green, blue, alpha};
    SetPaint(c, &GraphicsState::theStroke, CGColorSpaceCreateDeviceRGB(), theComponents);
}

void CGContextSetCMYKFillColor(CGContextRef c, CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black,
                               CGFloat alpha)
{
    const CGFloat theComponents[] = {cyan, magenta, yellow, black, alpha};
    SetPaint(c, &GraphicsState::theFill, CGColorSpaceCreateDeviceCMYK(), theComponents);
}

void CGContextSetCMYKStrokeColor(CGContextRef c, CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black,
                                 CGFloat alpha)
{
    const CGFloat theComponents[] = {cyan, magenta, yellow, black, alpha};
    SetPaint(c, &GraphicsState::theStroke, CGColorSpaceCreateDeviceCMYK(), theComponents);
}

void CGContextSetFillColorSpace(CGContextRef c, CGColorSpaceRef space)
{
    SetSpace(c, &GraphicsState::theFill, space);
}

void CGContextSetStrokeColorSpace(CGContextRef c, CGColorSpaceRef space)
{
    SetSpace(c, &GraphicsState::theStroke, space);
}

void CGContextSetFillColor(CGContextRef c, const CGFloat components[])
{
    SetComponents(c, &GraphicsState::theFill, components);
}

void CGContextSetStrokeColor(CGContextRef c, const CGFloat components[])
{
    SetComponents(c, &GraphicsState::theStroke, components);
}

void CGContextSetFillColorWithColor(CGContextRef c, CGColorRef color)
{
    SetColor(c, &GraphicsState::theFill, color);
}

void CGContextSetStrokeColorWithColor(CGContextRef c, CGColorRef color)
{
    SetColor(c, &GraphicsState::theStroke, color);
}
