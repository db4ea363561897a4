// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Base/Geometry.h"

#include <Carbon/Carbon.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

// What the reference of the one screen points at.
char gMainDevice = 0;

Rect RectOf(const PixelRect& theRect)
{
    return MakeRect(theRect.theLeft, theRect.theTop, theRect.theRight, theRect.theBottom);
}

ScreenLook MainScreen()
{
    return PresenterRegistry::Current().Screens().front();
}

} // namespace

} // namespace Host

using namespace Host;

GDHandle GetMainDevice(void)
{
    return reinterpret_cast<GDHandle>(&gMainDevice);
}

OSStatus GetAvailableWindowPositioningBounds(GDHandle inDevice, Rect* outBounds)
{
    if (outBounds == nullptr || (inDevice != nullptr && inDevice != GetMainDevice())) {
        return paramErr;
    }
    *outBounds = RectOf(MainScreen().theAvailable);
    return noErr;
}

BitMap* GetQDGlobalsScreenBits(BitMap* outBitMap)
{
    if (outBitMap != nullptr) {
        *outBitMap = {nullptr, 0, RectOf(MainScreen().theBounds)};
    }
    return outBitMap;
}
