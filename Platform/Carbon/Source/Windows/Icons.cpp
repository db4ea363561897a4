// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Icons.h"

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"

#include <cstring>

namespace Host {

namespace {

struct Icon
{
    PictureShape thePicture = PictureShape::kDocument;
    UInt32 theCount = 1;
};

using IconTable = ReferenceTable<IconRef, ReferenceKind::kIcon, Icon, NoMutex>;

IconTable& Icons()
{
    static NeverDestroyed<IconTable> sTable;
    return sTable.Get();
}

PictureShape PictureOfType(OSType theType)
{
    switch (theType) {
    case kGenericFolderIcon:
    case kFinderIcon:
        return PictureShape::kFolder;
    case kGenericApplicationIcon:
        return PictureShape::kApplication;
    case kGenericHardDiskIcon:
        return PictureShape::kDisk;
    case kAlertNoteIcon:
        return PictureShape::kNote;
    case kAlertCautionIcon:
        return PictureShape::kCaution;
    case kAlertStopIcon:
        return PictureShape::kStop;
    default:
        return PictureShape::kDocument;
    }
}

// Programs have an icon put right into the content of a button, whose fields lie on even addresses, not all
// on those that a pointer wants.
void Store(IconRef theIcon, void* theResult)
{
    std::memcpy(theResult, &theIcon, sizeof theIcon);
}

} // namespace

PictureShape PictureOf(IconRef theIcon)
{
    const std::shared_ptr<Icon> theFound = Icons().Find(theIcon);
    return theFound == nullptr ? PictureShape::kNone : theFound->thePicture;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

OSErr GetIconRef(SInt16, OSType creator, OSType iconType, IconRef* theIconRef)
{
    if (theIconRef == nullptr) {
        return paramErr;
    }
    Store(nullptr, theIconRef);
    return static_cast<OSErr>(Guarded([&] {
        auto theIcon = std::make_shared<Icon>();
        if (creator == kSystemIconsCreator) {
            theIcon->thePicture = PictureOfType(iconType);
        }
        Store(Icons().Add(std::move(theIcon)), theIconRef);
        return OSStatus{noErr};
    }));
}

OSErr AcquireIconRef(IconRef theIconRef)
{
    const std::shared_ptr<Icon> theFound = Icons().Find(theIconRef);
    if (theFound == nullptr) {
        return paramErr;
    }
    ++theFound->theCount;
    return noErr;
}

OSErr ReleaseIconRef(IconRef theIconRef)
{
    const std::shared_ptr<Icon> theFound = Icons().Find(theIconRef);
    if (theFound == nullptr) {
        return paramErr;
    }
    if (--theFound->theCount == 0) {
        Icons().Remove(theIconRef);
    }
    return noErr;
}
