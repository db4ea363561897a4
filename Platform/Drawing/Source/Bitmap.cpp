// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Bitmap.h"

#include <cstring>

namespace Host {

namespace {

constexpr size_t kPixelSize = sizeof(std::uint32_t);
constexpr size_t kLargestSide = 32767;

std::uint32_t Reversed(std::uint32_t theWord)
{
    return (theWord >> 24) | ((theWord >> 8) & 0xFF00u) | ((theWord << 8) & 0xFF0000u) | (theWord << 24);
}

// Between colours and alpha, and alpha and colours.
std::uint32_t AlphaFirst(std::uint32_t theWord)
{
    return (theWord >> 8) | (theWord << 24);
}

std::uint32_t AlphaLast(std::uint32_t theWord)
{
    return (theWord << 8) | (theWord >> 24);
}

CGBitmapInfo AlphaOf(const BitmapRequest& theRequest)
{
    return theRequest.theInfo & kCGBitmapAlphaInfoMask;
}

bool IsKnown(CGBitmapInfo theAlpha)
{
    return theAlpha == kCGImageAlphaPremultipliedFirst || theAlpha == kCGImageAlphaPremultipliedLast ||
           theAlpha == kCGImageAlphaNoneSkipFirst || theAlpha == kCGImageAlphaNoneSkipLast;
}

bool IsKnownOrder(CGBitmapInfo theInfo)
{
    const CGBitmapInfo theRest = theInfo & ~CGBitmapInfo{kCGBitmapAlphaInfoMask};
    return theRest == kCGBitmapByteOrderDefault || theRest == kCGBitmapByteOrder32Big ||
           theRest == kCGBitmapByteOrder32Little;
}

} // namespace

bool BitmapRequest::IsPossible() const
{
    const bool theIsSize =
        theWidth > 0 && theHeight > 0 && theWidth <= kLargestSide && theHeight <= kLargestSide;
    const bool theIsRow = theBytesPerRow == 0
                              ? theData == nullptr
                              : theBytesPerRow >= theWidth * kPixelSize && theBytesPerRow % kPixelSize == 0 &&
                                    theBytesPerRow <= kLargestSide * kPixelSize;
    const bool theIsAligned = reinterpret_cast<std::uintptr_t>(theData) % kPixelSize == 0;
    return theIsSize && theIsRow && theIsAligned && theBitsPerComponent == 8 &&
           theModel == kCGColorSpaceModelRGB && IsKnown(theInfo & kCGBitmapAlphaInfoMask) &&
           IsKnownOrder(theInfo);
}

Bitmap::Bitmap(const BitmapRequest& theRequest)
    : mRequest(theRequest)
{
    if (mRequest.theBytesPerRow == 0) {
        mRequest.theBytesPerRow = mRequest.theWidth * kPixelSize;
    }
    if (mRequest.theData == nullptr) {
        mOwned.resize(mRequest.theBytesPerRow / kPixelSize * mRequest.theHeight);
        mRequest.theData = mOwned.data();
    }
}

PixelMemory Bitmap::Memory() const
{
    const CGBitmapInfo theAlpha = AlphaOf(mRequest);
    return {static_cast<unsigned char*>(mRequest.theData), static_cast<int>(mRequest.theWidth),
            static_cast<int>(mRequest.theHeight), static_cast<int>(mRequest.theBytesPerRow),
            theAlpha == kCGImageAlphaNoneSkipFirst || theAlpha == kCGImageAlphaNoneSkipLast};
}

bool Bitmap::IsAlphaLast() const
{
    const CGBitmapInfo theAlpha = AlphaOf(mRequest);
    return theAlpha == kCGImageAlphaPremultipliedLast || theAlpha == kCGImageAlphaNoneSkipLast;
}

bool Bitmap::IsOtherOrder() const
{
    const CGBitmapInfo theOrder = mRequest.theInfo & kCGBitmapByteOrderMask;
    const CGBitmapInfo theBig = kCGBitmapByteOrder32Big;
    return (theOrder == kCGBitmapByteOrderDefault ? theBig : theOrder) != kCGBitmapByteOrder32Host;
}

template <class Change>
void Bitmap::ChangePixels(const Change& theChange) const
{
    auto* theRow = static_cast<unsigned char*>(mRequest.theData);
    for (size_t theDown = 0; theDown < mRequest.theHeight; ++theDown, theRow += mRequest.theBytesPerRow) {
        for (size_t theByte = 0; theByte < mRequest.theWidth * kPixelSize; theByte += kPixelSize) {
            std::uint32_t theWord = 0;
            std::memcpy(&theWord, theRow + theByte, kPixelSize);
            theWord = theChange(theWord);
            std::memcpy(theRow + theByte, &theWord, kPixelSize);
        }
    }
}

void Bitmap::BeginDrawing() const
{
    const bool theIsOther = IsOtherOrder();
    const bool theIsLast = IsAlphaLast();
    if (theIsOther || theIsLast) {
        ChangePixels([=](std::uint32_t theWord) {
            const std::uint32_t theOrdered = theIsOther ? Reversed(theWord) : theWord;
            return theIsLast ? AlphaFirst(theOrdered) : theOrdered;
        });
    }
}

void Bitmap::EndDrawing() const
{
    const bool theIsOther = IsOtherOrder();
    const bool theIsLast = IsAlphaLast();
    if (theIsOther || theIsLast) {
        ChangePixels([=](std::uint32_t theWord) {
            const std::uint32_t theOrdered = theIsLast ? AlphaLast(theWord) : theWord;
            return theIsOther ? Reversed(theOrdered) : theOrdered;
        });
    }
}

} // namespace Host
