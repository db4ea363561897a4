// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGContext_h
#define CGContext_h

// Drawing: paths that are filled, stroked and used as clips, in coordinates that can be changed.
//
// A context is made by whoever has something to draw into: see CGBitmapContext.h. Its coordinates have their
// origin at the bottom left, and y grows upwards. A null context is allowed everywhere and does nothing;
// numbers that are infinite or none at all leave things as they are.
//
// The state has the coordinates, the clip, the colours and their spaces, the line style, the alpha, the blend
// mode and whether edges are smooth. It can be saved and restored. The path is not part of it. At the start
// everything is black and opaque, lines are 1 wide with butt ends and mitred corners up to 10, and edges are
// smooth.
//
// There is one path. What paints it, or clips to it, leaves it empty.

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGPath.h>

typedef struct CGContext* CGContextRef;

enum CGLineJoin
{
    kCGLineJoinMiter = 0,
    kCGLineJoinRound = 1,
    kCGLineJoinBevel = 2
};
typedef enum CGLineJoin CGLineJoin;

enum CGLineCap
{
    kCGLineCapButt = 0,
    kCGLineCapRound = 1,
    kCGLineCapSquare = 2
};
typedef enum CGLineCap CGLineCap;

enum CGPathDrawingMode
{
    kCGPathFill = 0,
    kCGPathEOFill = 1,
    kCGPathStroke = 2,
    kCGPathFillStroke = 3,
    kCGPathEOFillStroke = 4
};
typedef enum CGPathDrawingMode CGPathDrawingMode;

enum CGBlendMode
{
    kCGBlendModeNormal = 0,
    kCGBlendModeMultiply = 1,
    kCGBlendModeScreen = 2,
    kCGBlendModeOverlay = 3,
    kCGBlendModeDarken = 4,
    kCGBlendModeLighten = 5,
    kCGBlendModeColorDodge = 6,
    kCGBlendModeColorBurn = 7,
    kCGBlendModeSoftLight = 8,
    kCGBlendModeHardLight = 9,
    kCGBlendModeDifference = 10,
    kCGBlendModeExclusion = 11,
    kCGBlendModeHue = 12,
    kCGBlendModeSaturation = 13,
    kCGBlendModeColor = 14,
    kCGBlendModeLuminosity = 15,
    kCGBlendModeClear = 16,
    kCGBlendModeCopy = 17,
    kCGBlendModeSourceIn = 18,
    kCGBlendModeSourceOut = 19,
    kCGBlendModeSourceAtop = 20,
    kCGBlendModeDestinationOver = 21,
    kCGBlendModeDestinationIn = 22,
    kCGBlendModeDestinationOut = 23,
    kCGBlendModeDestinationAtop = 24,
    kCGBlendModeXOR = 25,
    kCGBlendModePlusLighter = 27
};
typedef enum CGBlendMode CGBlendMode;

CG_EXPORT CFTypeID CGContextGetTypeID(void);
CG_EXPORT CGContextRef CGContextRetain(CGContextRef c);
CG_EXPORT void CGContextRelease(CGContextRef c);

// State -------------------------------------------------------------------------------------------------

// What was saved last comes back first; restoring more than was saved does nothing.
CG_EXPORT void CGContextSaveGState(CGContextRef c);
CG_EXPORT void CGContextRestoreGState(CGContextRef c);

// The change comes before those that were made earlier. What is in the path stays where it is.
CG_EXPORT void CGContextScaleCTM(CGContextRef c, CGFloat sx, CGFloat sy);
CG_EXPORT void CGContextTranslateCTM(CGContextRef c, CGFloat tx, CGFloat ty);
CG_EXPORT void CGContextRotateCTM(CGContextRef c, CGFloat angle);
CG_EXPORT void CGContextConcatCTM(CGContextRef c, CGAffineTransform transform);
// From here to the pixels, whose y grows upwards; the identity for null.
CG_EXPORT CGAffineTransform CGContextGetCTM(CGContextRef c);

// Lines. What is no value of a line style is ignored; so are a width that is negative, a limit that is not
// positive, and dashes of which one is negative or none is positive. No dashes, or null, are a solid line.
CG_EXPORT void CGContextSetLineWidth(CGContextRef c, CGFloat width);
CG_EXPORT void CGContextSetLineCap(CGContextRef c, CGLineCap cap);
CG_EXPORT void CGContextSetLineJoin(CGContextRef c, CGLineJoin join);
CG_EXPORT void CGContextSetMiterLimit(CGContextRef c, CGFloat limit);
CG_EXPORT void CGContextSetLineDash(CGContextRef c, CGFloat phase, const CGFloat lengths[], size_t count);

// What all colours are multiplied by, from 0 to 1; how colours meet what is there; whether edges are smooth.
CG_EXPORT void CGContextSetAlpha(CGContextRef c, CGFloat alpha);
CG_EXPORT void CGContextSetBlendMode(CGContextRef c, CGBlendMode mode);
CG_EXPORT void CGContextSetShouldAntialias(CGContextRef c, bool shouldAntialias);

// Colours. Components count from 0 to 1; beyond, they are the nearest of these.
CG_EXPORT void CGContextSetGrayFillColor(CGContextRef c, CGFloat gray, CGFloat alpha);
CG_EXPORT void CGContextSetGrayStrokeColor(CGContextRef c, CGFloat gray, CGFloat alpha);
CG_EXPORT void CGContextSetRGBFillColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue,
                                        CGFloat alpha);
CG_EXPORT void CGContextSetRGBStrokeColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue,
                                          CGFloat alpha);
CG_EXPORT void CGContextSetCMYKFillColor(CGContextRef c, CGFloat cyan, CGFloat magenta, CGFloat yellow,
                                         CGFloat black, CGFloat alpha);
CG_EXPORT void CGContextSetCMYKStrokeColor(CGContextRef c, CGFloat cyan, CGFloat magenta, CGFloat yellow,
                                           CGFloat black, CGFloat alpha);

// A space makes the colour its black; SetFillColor then takes as many components as the space has, and the
// alpha.
CG_EXPORT void CGContextSetFillColorSpace(CGContextRef c, CGColorSpaceRef space);
CG_EXPORT void CGContextSetStrokeColorSpace(CGContextRef c, CGColorSpaceRef space);
CG_EXPORT void CGContextSetFillColor(CGContextRef c, const CGFloat components[]);
CG_EXPORT void CGContextSetStrokeColor(CGContextRef c, const CGFloat components[]);
CG_EXPORT void CGContextSetFillColorWithColor(CGContextRef c, CGColorRef color);
CG_EXPORT void CGContextSetStrokeColorWithColor(CGContextRef c, CGColorRef color);

// The path ----------------------------------------------------------------------------------------------

CG_EXPORT void CGContextBeginPath(CGContextRef c);
CG_EXPORT void CGContextMoveToPoint(CGContextRef c, CGFloat x, CGFloat y);

// From the current point on; nothing where there is none.
CG_EXPORT void CGContextAddLineToPoint(CGContextRef c, CGFloat x, CGFloat y);
CG_EXPORT void CGContextAddCurveToPoint(CGContextRef c, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x,
                                        CGFloat cp2y, CGFloat x, CGFloat y);
CG_EXPORT void CGContextAddQuadCurveToPoint(CGContextRef c, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y);
CG_EXPORT void CGContextClosePath(CGContextRef c);

CG_EXPORT void CGContextAddRect(CGContextRef c, CGRect rect);
CG_EXPORT void CGContextAddRects(CGContextRef c, const CGRect rects[], size_t count);
CG_EXPORT void CGContextAddLines(CGContextRef c, const CGPoint points[], size_t count);
CG_EXPORT void CGContextAddEllipseInRect(CGContextRef c, CGRect rect);

// A part of a circle, with a line to its start from the current point, if there is one. clockwise is as seen
// where y grows upwards. A negative radius adds nothing.
CG_EXPORT void CGContextAddArc(CGContextRef c, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle,
                               CGFloat endAngle, int clockwise);

// Rounds the corner that the current point, (x1, y1) and (x2, y2) make.
CG_EXPORT void CGContextAddArcToPoint(CGContextRef c, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2,
                                      CGFloat radius);

// All of a path, in the coordinates of the moment.
CG_EXPORT void CGContextAddPath(CGContextRef c, CGPathRef path);

// In the coordinates of the moment. Without a path the point is zero, and the box is the null rectangle.
CG_EXPORT bool CGContextIsPathEmpty(CGContextRef c);
CG_EXPORT CGPoint CGContextGetPathCurrentPoint(CGContextRef c);
CG_EXPORT CGRect CGContextGetPathBoundingBox(CGContextRef c);

// Painting ----------------------------------------------------------------------------------------------

CG_EXPORT void CGContextDrawPath(CGContextRef c, CGPathDrawingMode mode);
CG_EXPORT void CGContextFillPath(CGContextRef c);
CG_EXPORT void CGContextEOFillPath(CGContextRef c);
CG_EXPORT void CGContextStrokePath(CGContextRef c);

// These paint shapes of their own, and leave the path empty.
CG_EXPORT void CGContextFillRect(CGContextRef c, CGRect rect);
CG_EXPORT void CGContextFillRects(CGContextRef c, const CGRect rects[], size_t count);
CG_EXPORT void CGContextStrokeRect(CGContextRef c, CGRect rect);
CG_EXPORT void CGContextStrokeRectWithWidth(CGContextRef c, CGRect rect, CGFloat width);
CG_EXPORT void CGContextClearRect(CGContextRef c, CGRect rect); // makes it transparent
CG_EXPORT void CGContextFillEllipseInRect(CGContextRef c, CGRect rect);
CG_EXPORT void CGContextStrokeEllipseInRect(CGContextRef c, CGRect rect);

// A line from the first point to the second, from the third to the fourth, and so on.
CG_EXPORT void CGContextStrokeLineSegments(CGContextRef c, const CGPoint points[], size_t count);

// Clips only become smaller; what was saved before has the larger ones. An empty path clips everything away.
CG_EXPORT void CGContextClip(CGContextRef c);
CG_EXPORT void CGContextEOClip(CGContextRef c);
CG_EXPORT void CGContextClipToRect(CGContextRef c, CGRect rect);
CG_EXPORT void CGContextClipToRects(CGContextRef c, const CGRect rects[], size_t count);
CG_EXPORT CGRect CGContextGetClipBoundingBox(CGContextRef c); // in the coordinates of the moment

// What was drawn is where it belongs as soon as a call returns: these have nothing to do.
CG_EXPORT void CGContextFlush(CGContextRef c);
CG_EXPORT void CGContextSynchronize(CGContextRef c);

#endif
