// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Picture_h
#define Picture_h

#include <cstdint>
#include <string>
#include <vector>

#include <Presentation/PresenterTypes.h>

namespace Host {

// Pixels that a program has drawn, from left to right and from the top down. Each is a number with alpha,
// red, green and blue from its highest byte down, colours multiplied by the alpha.
struct Picture
{
    int theWidth = 0; // in pixels of its own, of which theScale are as long as one of the window
    int theHeight = 0;
    int theScale = 1;
    std::vector<std::uint32_t> thePixels;
};

// The bytes of a PNG file: not compressed, so that nothing is needed for it.
HOST_PUBLIC std::string PngOf(const Picture& thePicture);

// Draws one picture over another. Its top left is at a place of the other, in pixels of that, where each of
// its own is as long as the scales say. What is outside is left out.
HOST_PUBLIC void DrawOver(const Picture& thePicture, PixelPoint thePlace, Picture& theGround);

} // namespace Host

#endif
