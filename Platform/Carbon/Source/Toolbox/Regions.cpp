// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"

#include <Carbon/Carbon.h>

namespace Host {

namespace {

using RegionTable = ReferenceTable<RgnHandle, ReferenceKind::kRegion, Rect, NoMutex>;

RegionTable& Regions()
{
    static NeverDestroyed<RegionTable> sTable;
    return sTable.Get();
}

Rect BoundsOf(RgnHandle theRegion)
{
    const std::shared_ptr<Rect> theFound = Regions().Find(theRegion);
    return theFound == nullptr ? Rect{} : *theFound;
}

} // namespace

} // namespace Host

using namespace Host;

RgnHandle NewRgn(void)
{
    RgnHandle theRegion = nullptr;
    Guarded([&] {
        theRegion = Regions().Add(std::make_shared<Rect>());
        return noErr;
    });
    return theRegion;
}

void DisposeRgn(RgnHandle inRegion)
{
    Regions().Remove(inRegion);
}

void SetRectRgn(RgnHandle ioRegion, short inLeft, short inTop, short inRight, short inBottom)
{
    if (const std::shared_ptr<Rect> theFound = Regions().Find(ioRegion); theFound != nullptr) {
        const Rect theRect = MakeRect(inLeft, inTop, inRight, inBottom);
        *theFound = IsEmpty(theRect) ? Rect{} : theRect;
    }
}

void RectRgn(RgnHandle ioRegion, const Rect* inRect)
{
    if (inRect != nullptr) {
        SetRectRgn(ioRegion, inRect->left, inRect->top, inRect->right, inRect->bottom);
    }
}

Rect* GetRegionBounds(RgnHandle inRegion, Rect* outBounds)
{
    if (outBounds != nullptr) {
        *outBounds = BoundsOf(inRegion);
    }
    return outBounds;
}

Boolean EmptyRgn(RgnHandle inRegion)
{
    return IsEmpty(BoundsOf(inRegion));
}

Boolean PtInRgn(Point inPoint, RgnHandle inRegion)
{
    return Contains(BoundsOf(inRegion), inPoint);
}
