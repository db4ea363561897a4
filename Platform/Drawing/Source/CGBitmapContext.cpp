// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ContextObject.h"

#include <cstdio>

namespace {

using namespace Host;

CGContextRef Make(const BitmapRequest& theRequest)
{
    auto theBitmap = std::make_unique<Bitmap>(theRequest);
    std::unique_ptr<Canvas> theCanvas = MakeCanvas(theBitmap->Memory());
    return theCanvas == nullptr ? nullptr : new CGContext(std::move(theBitmap), std::move(theCanvas));
}

// Null for a context that is none.
const BitmapRequest* RequestOf(CGContextRef theContext)
{
    const CGContext* const theFound = Checked(theContext, kContextType);
    return theFound == nullptr ? nullptr : &theFound->mBitmap->Request();
}

} // namespace

CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent,
                                   size_t bytesPerRow, CGColorSpaceRef space, CGBitmapInfo bitmapInfo)
{
    const BitmapRequest theRequest = {
        data, width, height, bitsPerComponent, bytesPerRow, CGColorSpaceGetModel(space), bitmapInfo};
    if (!CanDraw()) {
        std::fputs("CGBitmapContextCreate: this host was built without what draws\n", stderr);
        return nullptr;
    }
    if (!theRequest.IsPossible()) {
        std::fputs("CGBitmapContextCreate: there are no bitmaps of this kind or size\n", stderr);
        return nullptr;
    }
    return NothingWithoutMemory([&] { return Make(theRequest); });
}

void* CGBitmapContextGetData(CGContextRef c)
{
    const BitmapRequest* const theRequest = RequestOf(c);
    return theRequest == nullptr ? nullptr : theRequest->theData;
}

size_t CGBitmapContextGetWidth(CGContextRef c)
{
    const BitmapRequest* const theRequest = RequestOf(c);
    return theRequest == nullptr ? 0 : theRequest->theWidth;
}

size_t CGBitmapContextGetHeight(CGContextRef c)
{
    const BitmapRequest* const theRequest = RequestOf(c);
    return theRequest == nullptr ? 0 : theRequest->theHeight;
}

size_t CGBitmapContextGetBytesPerRow(CGContextRef c)
{
    const BitmapRequest* const theRequest = RequestOf(c);
    return theRequest == nullptr ? 0 : theRequest->theBytesPerRow;
}

size_t CGBitmapContextGetBitsPerComponent(CGContextRef c)
{
    return RequestOf(c) == nullptr ? 0 : 8;
}

size_t CGBitmapContextGetBitsPerPixel(CGContextRef c)
{
    return RequestOf(c) == nullptr ? 0 : 32;
}

CGColorSpaceRef CGBitmapContextGetColorSpace(CGContextRef c)
{
    return RequestOf(c) == nullptr ? nullptr : CGColorSpaceCreateDeviceRGB();
}

CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef c)
{
    const BitmapRequest* const theRequest = RequestOf(c);
    return theRequest == nullptr
               ? kCGImageAlphaNone
               : static_cast<CGImageAlphaInfo>(theRequest->theInfo & kCGBitmapAlphaInfoMask);
}
