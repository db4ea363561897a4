// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Base/Geometry.h"
#include "Base/ReferenceTable.h"
#include "Windows/Window.h"

#include <Carbon/Carbon.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

using PortReference = NumberedReference<CGrafPtr, ReferenceKind::kPort>;

GrafPtr gCurrentPort = nullptr;

// The window of a port, or null.
SharedWindow WindowOf(CGrafPtr thePort)
{
    const auto theNumber = reinterpret_cast<std::uintptr_t>(thePort) >> 4;
    const bool theIsPort = theNumber != 0 && PortReference::Of(theNumber) == thePort;
    return theIsPort ? FindWindow(static_cast<ObjectId>(theNumber)) : nullptr;
}

Rect ScreenBounds()
{
    const PixelRect theScreen = PresenterRegistry::Current().Screens().front().theBounds;
    return MakeRect(theScreen.theLeft, theScreen.theTop, theScreen.theRight, theScreen.theBottom);
}

// The global place of a port's 0, 0.
Point OriginOf(CGrafPtr thePort)
{
    const SharedWindow theWindow = WindowOf(thePort);
    return theWindow == nullptr ? Point{0, 0}
                                : MakePoint(theWindow->Content().left, theWindow->Content().top);
}

} // namespace

} // namespace Host

using namespace Host;

CGrafPtr GetWindowPort(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    return theWindow == nullptr ? nullptr : PortReference::Of(theWindow->Identifier());
}

WindowRef GetWindowFromPort(CGrafPtr inPort)
{
    const SharedWindow theWindow = WindowOf(inPort);
    return theWindow == nullptr ? nullptr : theWindow->Reference();
}

void SetPort(GrafPtr inPort)
{
    gCurrentPort = inPort;
}

void GetPort(GrafPtr* outPort)
{
    if (outPort != nullptr) {
        *outPort = WindowOf(gCurrentPort) == nullptr ? nullptr : gCurrentPort;
    }
}

void SetPortWindowPort(WindowRef inWindow)
{
    SetPort(GetWindowPort(inWindow));
}

Rect* GetPortBounds(CGrafPtr inPort, Rect* outRect)
{
    if (outRect != nullptr) {
        const SharedWindow theWindow = WindowOf(inPort);
        const Rect theBounds = theWindow == nullptr ? ScreenBounds() : theWindow->Content();
        *outRect = Moved(theBounds, -theBounds.left, -theBounds.top);
    }
    return outRect;
}

void LocalToGlobal(Point* ioPoint)
{
    QDLocalToGlobalPoint(gCurrentPort, ioPoint);
}

void GlobalToLocal(Point* ioPoint)
{
    QDGlobalToLocalPoint(gCurrentPort, ioPoint);
}

Point* QDLocalToGlobalPoint(CGrafPtr inPort, Point* ioPoint)
{
    AddPt(OriginOf(inPort), ioPoint);
    return ioPoint;
}

Point* QDGlobalToLocalPoint(CGrafPtr inPort, Point* ioPoint)
{
    SubPt(OriginOf(inPort), ioPoint);
    return ioPoint;
}
