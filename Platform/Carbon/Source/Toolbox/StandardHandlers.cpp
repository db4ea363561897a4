// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Events/EventTarget.h"
#include "Windows/Window.h"

#include <Carbon/Carbon.h>

namespace Host {

namespace {

OSStatus ChangeStandardHandler(EventTargetRef theTarget, WindowAttributes theSet, WindowAttributes theCleared)
{
    if (FindEventTarget(theTarget) == nullptr) {
        return paramErr;
    }
    for (const SharedWindow& theWindow : AllWindows()) {
        if (theWindow->Target() == theTarget) {
            return ChangeWindowAttributes(theWindow->Reference(), theSet, theCleared);
        }
    }
    return noErr;
}

} // namespace

} // namespace Host

using namespace Host;

OSStatus InstallStandardEventHandler(EventTargetRef inTarget)
{
    return ChangeStandardHandler(inTarget, kWindowStandardHandlerAttribute, 0);
}

OSStatus RemoveStandardEventHandler(EventTargetRef inTarget)
{
    return ChangeStandardHandler(inTarget, 0, kWindowStandardHandlerAttribute);
}
