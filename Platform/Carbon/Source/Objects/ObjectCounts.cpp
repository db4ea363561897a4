// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Objects, views, windows and menus as CFRetain and CFRelease count them.

#include "Common/NumberedObjects.h"
#include "PlainObject.h"
#include "Windows/Control.h"

namespace {

// A reference as each manager has it.
WindowRef AsWindow(const void* theReference)
{
    return static_cast<WindowRef>(const_cast<void*>(theReference));
}

MenuRef AsMenu(const void* theReference)
{
    return static_cast<MenuRef>(const_cast<void*>(theReference));
}

Host::SharedControl FindView(const void* theReference)
{
    return Host::FindControl(static_cast<ControlRef>(const_cast<void*>(theReference)));
}

std::shared_ptr<Host::PlainObject> FindObject(const void* theReference)
{
    return Host::FindPlainObject(static_cast<HIObjectRef>(const_cast<void*>(theReference)));
}

void Retain(const void* theReference)
{
    if (const auto theView = FindView(theReference)) {
        theView->Retain();
    } else if (const auto theObject = FindObject(theReference)) {
        theObject->Retain();
    } else if (RetainMenu(AsMenu(theReference)) != noErr) {
        RetainWindow(AsWindow(theReference));
    }
}

void Release(const void* theReference)
{
    if (const auto theView = FindView(theReference)) {
        theView->Release();
    } else if (const auto theObject = FindObject(theReference)) {
        theObject->Release();
    } else if (ReleaseMenu(AsMenu(theReference)) != noErr) {
        ReleaseWindow(AsWindow(theReference));
    }
}

long CountOf(const void* theReference)
{
    if (const auto theView = FindView(theReference)) {
        return theView->Count();
    }
    if (const auto theObject = FindObject(theReference)) {
        return theObject->Count();
    }
    const ItemCount theReferences = IsValidMenu(AsMenu(theReference)) != 0
                                        ? GetMenuRetainCount(AsMenu(theReference))
                                        : GetWindowRetainCount(AsWindow(theReference));
    return static_cast<long>(theReferences);
}

// Before any function of the program runs.
[[maybe_unused]] const bool gAreThere = [] {
    Host::UseNumberedObjects({Retain, Release, CountOf});
    return true;
}();

} // namespace
