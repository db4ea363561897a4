// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Bitmap_h
#define Bitmap_h

#include "Canvas.h"

#include <CoreGraphics/CGBitmapContext.h>

namespace Host {

// What a program asks for.
struct BitmapRequest
{
    void* theData; // the program's, or null
    size_t theWidth;
    size_t theHeight;
    size_t theBitsPerComponent;
    size_t theBytesPerRow; // 0 may stand for any, without data
    CGColorSpaceModel theModel;
    CGBitmapInfo theInfo;

    // Whether there are such bitmaps.
    bool IsPossible() const;
};

// The pixels of a context, in the order of bytes that the program wants. While something is drawn, they are
// in that of canvases.
class Bitmap
{
public:
    // The request is possible. Throws std::bad_alloc.
    explicit Bitmap(const BitmapRequest& theRequest);
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;

    const BitmapRequest& Request() const { return mRequest; } // with its data and the length of its rows
    PixelMemory Memory() const;

    void BeginDrawing() const;
    void EndDrawing() const;

private:
    template <class Change>
    void ChangePixels(const Change& theChange) const;
    bool IsAlphaLast() const;
    bool IsOtherOrder() const;

    BitmapRequest mRequest;
    std::vector<std::uint32_t> mOwned; // empty for pixels of the program
};

} // namespace Host

#endif
