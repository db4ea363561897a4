// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HIImageViews_h
#define HIImageViews_h

// A view that shows an image. A person can do nothing with it. Made without a window, hidden, and of no size:
// add it to a view, place it and show it.

#include <Carbon/ControlDefinitions.h>
#include <Carbon/HIGeometry.h>

// The image is retained and may be null. paramErr for a null result, and errUnknownControl for what is no
// image view.
CARBON_EXPORT OSStatus HIImageViewCreate(CGImageRef inImage, HIViewRef* outView);
CARBON_EXPORT OSStatus HIImageViewSetImage(HIViewRef inView, CGImageRef inImage);

// The caller releases it; null when there is none.
CARBON_EXPORT CGImageRef HIImageViewCopyImage(HIViewRef inView);

// Kept; a place that holds an image is all that is shown. Alpha runs from 0 to 1, paramErr beyond.
CARBON_EXPORT OSStatus HIImageViewSetScaleToFit(HIViewRef inView, Boolean inScaleToFit);
CARBON_EXPORT OSStatus HIImageViewSetOpaque(HIViewRef inView, Boolean inOpaque);
CARBON_EXPORT OSStatus HIImageViewSetAlpha(HIViewRef inView, CGFloat inAlpha);

#endif
