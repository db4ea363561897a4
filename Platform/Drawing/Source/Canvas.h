// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Canvas_h
#define Canvas_h

#include "CanDraw.h"
#include "ColorSpaceObject.h"
#include "Outline.h"

#include <CoreGraphics/CGContext.h>
#include <cstdint>
#include <memory>
#include <vector>

namespace Host {

// What lines look like. Lengths are in the coordinates of the pen.
struct LineStyle
{
    double theWidth = 1; // 0 is as thin as can be
    CGLineCap theCap = kCGLineCapButt;
    CGLineJoin theJoin = kCGLineJoinMiter;
    double theMiterLimit = 10;
    double thePhase = 0;
    std::vector<double> theDashes; // empty for a solid line
};

// What is put on the canvas, and how.
struct Ink
{
    Paint thePaint;
    CGBlendMode theMode = kCGBlendModeNormal;
    bool theIsSmooth = true;
};

// Pixels that can be drawn on: 32 bits each, a number with alpha, red, green and blue from its highest byte
// down, colours multiplied by the alpha. The origin is at the bottom left, and y grows upwards.
class Canvas
{
public:
    virtual ~Canvas() = default;
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    virtual void Fill(const Outline& theOutline, bool theIsEvenOdd, const Ink& theInk) = 0;

    // thePen has the coordinates that the style is in; nothing is drawn where it leaves no area.
    virtual void Stroke(const Outline& theOutline, const CGAffineTransform& thePen, const LineStyle& theStyle,
                        const Ink& theInk) = 0;

    // What is drawn from now on is inside of it, too. Nothing is inside of an empty outline.
    virtual void Clip(const Outline& theOutline, bool theIsEvenOdd) = 0;
    virtual void SaveClip() = 0;
    virtual void RestoreClip() = 0;
    virtual CGRect ClipBox() const = 0;

    // What was drawn is in the memory, and what is in the memory is drawn upon.
    virtual void Flush() = 0;
    virtual void Reload() = 0;
};

// Memory that is drawn on. It stays its owner's.
struct PixelMemory
{
    unsigned char* thePixels;
    int theWidth;
    int theHeight;
    int theBytesPerRow; // a multiple of 4
    bool theIsOpaque;   // the highest byte means nothing
};

// Null where there is nothing that draws, and when there is no memory.
std::unique_ptr<Canvas> MakeCanvas(const PixelMemory& theMemory);

} // namespace Host

#endif
