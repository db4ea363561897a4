// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ColorSpaceObject.h"

#include <CoreFoundation/CoreFoundation.h>

const Host::TypeOperations Host::kColorSpaceType = {kColorSpaceTypeID, "CGColorSpace", nullptr, nullptr,
                                                    nullptr,           nullptr,        nullptr};

namespace {

CGColorSpace gGray(kCGColorSpaceModelMonochrome, 1);
CGColorSpace gRGB(kCGColorSpaceModelRGB, 3);
CGColorSpace gCMYK(kCGColorSpaceModelCMYK, 4);

double Part(CGFloat theComponent)
{
    return theComponent > 0 ? (theComponent < 1 ? double{theComponent} : 1) : 0;
}

} // namespace

Host::Components Host::BlackOf(const CGColorSpace& theSpace)
{
    Components theComponents = {};
    theComponents[theSpace.mCount] = 1;
    if (theSpace.mModel == kCGColorSpaceModelCMYK) {
        theComponents[3] = 1;
    }
    return theComponents;
}

Host::Paint Host::PaintOf(const CGColorSpace& theSpace, const CGFloat* theComponents)
{
    const double theAlpha = Part(theComponents[theSpace.mCount]);
    if (theSpace.mModel == kCGColorSpaceModelMonochrome) {
        const double theGray = Part(theComponents[0]);
        return {theGray, theGray, theGray, theAlpha};
    }
    if (theSpace.mModel == kCGColorSpaceModelRGB) {
        return {Part(theComponents[0]), Part(theComponents[1]), Part(theComponents[2]), theAlpha};
    }
    const double theLight = 1 - Part(theComponents[3]);
    return {(1 - Part(theComponents[0])) * theLight, (1 - Part(theComponents[1])) * theLight,
            (1 - Part(theComponents[2])) * theLight, theAlpha};
}

CFTypeID CGColorSpaceGetTypeID()
{
    return Host::kColorSpaceTypeID;
}

CGColorSpaceRef CGColorSpaceCreateDeviceGray()
{
    return &gGray;
}

CGColorSpaceRef CGColorSpaceCreateDeviceRGB()
{
    return &gRGB;
}

CGColorSpaceRef CGColorSpaceCreateDeviceCMYK()
{
    return &gCMYK;
}

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name)
{
    const auto theIsIt = [name](CFStringRef theName) {
        return name != nullptr && CFStringCompare(name, theName, 0) == kCFCompareEqualTo;
    };
    if (theIsIt(kCGColorSpaceGenericGray)) {
        return &gGray;
    }
    if (theIsIt(kCGColorSpaceGenericCMYK)) {
        return &gCMYK;
    }
    return theIsIt(kCGColorSpaceGenericRGB) || theIsIt(kCGColorSpaceSRGB) ? &gRGB : nullptr;
}

CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space)
{
    return space;
}

void CGColorSpaceRelease(CGColorSpaceRef) {}

size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space)
{
    const CGColorSpace* const theSpace = Host::Checked(space, Host::kColorSpaceType);
    return theSpace == nullptr ? 0 : theSpace->mCount;
}

CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space)
{
    const CGColorSpace* const theSpace = Host::Checked(space, Host::kColorSpaceType);
    return theSpace == nullptr ? kCGColorSpaceModelUnknown : theSpace->mModel;
}
