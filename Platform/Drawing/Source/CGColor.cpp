// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ColorObject.h"

#include <algorithm>

namespace {

using namespace Host;

bool AreEqual(const CGColor& theOne, const CGColor& theOther)
{
    return &theOne.mSpace == &theOther.mSpace && theOne.mComponents == theOther.mComponents;
}

bool AreEqualObjects(const Object* theOne, const Object* theOther)
{
    return AreEqual(*static_cast<const CGColor*>(theOne), *static_cast<const CGColor*>(theOther));
}

// Equal ones have the same alpha.
CFHashCode HashOf(const Object* theObject)
{
    const auto* const theColor = static_cast<const CGColor*>(theObject);
    const double theAlpha = PaintOf(theColor->mSpace, theColor->mComponents.data()).theAlpha;
    return static_cast<CFHashCode>(theAlpha * 255) + static_cast<CFHashCode>(theColor->mSpace.mCount);
}

CGColorRef Make(CGColorSpace& theSpace, const Components& theComponents)
{
    return NothingWithoutMemory([&] { return new CGColor(theSpace, theComponents); });
}

} // namespace

const Host::TypeOperations Host::kColorType = {kColorTypeID, "CGColor", Delete<CGColor>, AreEqualObjects,
                                               HashOf,       nullptr,   nullptr};

CFTypeID CGColorGetTypeID()
{
    return kColorTypeID;
}

CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat components[])
{
    CGColorSpace* const theSpace = Checked(space, kColorSpaceType);
    if (theSpace == nullptr || components == nullptr) {
        return nullptr;
    }
    Components theComponents = {};
    std::copy_n(components, theSpace->mCount + 1, theComponents.begin());
    return Make(*theSpace, theComponents);
}

CGColorRef CGColorCreateCopy(CGColorRef color)
{
    return CGColorRetain(Checked(color, kColorType));
}

CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha)
{
    const CGColor* const theColor = Checked(color, kColorType);
    if (theColor == nullptr) {
        return nullptr;
    }
    Components theComponents = theColor->mComponents;
    theComponents[theColor->mSpace.mCount] = alpha;
    return Make(theColor->mSpace, theComponents);
}

CGColorRef CGColorCreateGenericRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha)
{
    return Make(*CGColorSpaceCreateDeviceRGB(), {red, green, blue, alpha});
}

CGColorRef CGColorCreateGenericGray(CGFloat gray, CGFloat alpha)
{
    return Make(*CGColorSpaceCreateDeviceGray(), {gray, alpha});
}

CGColorRef CGColorRetain(CGColorRef color)
{
    return RetainChecked(color, kColorType);
}

void CGColorRelease(CGColorRef color)
{
    ReleaseChecked(color, kColorType);
}

const CGFloat* CGColorGetComponents(CGColorRef color)
{
    const CGColor* const theColor = Checked(color, kColorType);
    return theColor == nullptr ? nullptr : theColor->mComponents.data();
}

size_t CGColorGetNumberOfComponents(CGColorRef color)
{
    const CGColor* const theColor = Checked(color, kColorType);
    return theColor == nullptr ? 0 : theColor->mSpace.mCount + 1;
}

CGFloat CGColorGetAlpha(CGColorRef color)
{
    const CGColor* const theColor = Checked(color, kColorType);
    return theColor == nullptr ? 0 : theColor->mComponents[theColor->mSpace.mCount];
}

CGColorSpaceRef CGColorGetColorSpace(CGColorRef color)
{
    const CGColor* const theColor = Checked(color, kColorType);
    return theColor == nullptr ? nullptr : &theColor->mSpace;
}

bool CGColorEqualToColor(CGColorRef color1, CGColorRef color2)
{
    const CGColor* const theOne = Checked(color1, kColorType);
    const CGColor* const theOther = Checked(color2, kColorType);
    return theOne == theOther || (theOne != nullptr && theOther != nullptr && AreEqual(*theOne, *theOther));
}
