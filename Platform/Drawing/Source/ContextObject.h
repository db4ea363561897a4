// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ContextObject_h
#define ContextObject_h

#include "Bitmap.h"
#include "Canvas.h"

#include <CoreGraphics/CGContext.h>
#include <utility>

namespace Host {

// A colour, and the space whose components it takes.
struct SpacedPaint
{
    CGColorSpace* theSpace; // never freed
    Paint thePaint;

    void Set(CGColorSpace& theNewSpace, const CGFloat* theComponents);
};

// What CGContextSaveGState saves, but for the clip, which is the canvas's.
struct GraphicsState
{
    GraphicsState();

    CGAffineTransform theTransform;
    SpacedPaint theFill;
    SpacedPaint theStroke;
    LineStyle theLine;
    double theAlpha = 1;
    CGBlendMode theMode = kCGBlendModeNormal;
    bool theIsSmooth = true;

    Ink FillInk() const { return InkOf(theFill.thePaint); }
    Ink StrokeInk() const { return InkOf(theStroke.thePaint); }

private:
    Ink InkOf(Paint thePaint) const;
};

} // namespace Host

struct CGContext : Host::Object
{
    CGContext(std::unique_ptr<Host::Bitmap> theBitmap, std::unique_ptr<Host::Canvas> theCanvas)
        : Host::Object(Host::kContextType),
          mBitmap(std::move(theBitmap)),
          mCanvas(std::move(theCanvas))
    {
    }

    // Draws with a function of the canvas, from what is in the memory now to what will be.
    template <class Drawing>
    void Draw(const Drawing& theDrawing)
    {
        mBitmap->BeginDrawing();
        mCanvas->Reload();
        theDrawing(*mCanvas);
        mCanvas->Flush();
        mBitmap->EndDrawing();
    }

    const std::unique_ptr<Host::Bitmap> mBitmap; // before the canvas, which draws on it
    const std::unique_ptr<Host::Canvas> mCanvas;
    Host::GraphicsState mState;
    std::vector<Host::GraphicsState> mSaved;
    Host::Outline mPath;
};

namespace Host {

// Does something with a context; nothing for null, and when there is no memory for it.
template <class Body>
void With(CGContextRef theContext, const Body& theBody)
{
    CGContext* const theFound = Checked(theContext, kContextType);
    if (theFound != nullptr) {
        NothingWithoutMemory([&] {
            theBody(*theFound);
            return true;
        });
    }
}

} // namespace Host

#endif
