// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmEventNames.h"

namespace {

struct EventName
{
    OSType theClass;
    UInt32 theKind;
    const char* theName;
};

#define LM_EVENT(theClass, theKind)                                                                          \
    {                                                                                                        \
        theClass, theKind, #theKind                                                                          \
    }

const EventName kNames[] = {
    LM_EVENT(kEventClassMouse, kEventMouseDown),
    LM_EVENT(kEventClassMouse, kEventMouseUp),
    LM_EVENT(kEventClassMouse, kEventMouseDragged),
    LM_EVENT(kEventClassMouse, kEventMouseWheelMoved),
    LM_EVENT(kEventClassKeyboard, kEventRawKeyDown),
    LM_EVENT(kEventClassKeyboard, kEventRawKeyRepeat),
    LM_EVENT(kEventClassKeyboard, kEventRawKeyUp),
    LM_EVENT(kEventClassControl, kEventControlDispose),
    LM_EVENT(kEventClassControl, kEventControlValueFieldChanged),
    LM_EVENT(kEventClassControl, kEventControlEnabledStateChanged),
    LM_EVENT(kEventClassControl, kEventControlVisibilityChanged),
    LM_EVENT(kEventClassControl, kEventControlTitleChanged),
    LM_EVENT(kEventClassWindow, kEventWindowActivated),
    LM_EVENT(kEventClassWindow, kEventWindowDragStarted),
    LM_EVENT(kEventClassWindow, kEventWindowResizeStarted),
    LM_EVENT(kEventClassWindow, kEventWindowZoom),
    LM_EVENT(kEventClassWindow, kEventWindowCollapse),
    LM_EVENT(kEventClassWindow, kEventWindowExpand),
    LM_EVENT(kEventClassWindow, kEventWindowClose),
    LM_EVENT(kEventClassWindow, kEventWindowClosed),
    LM_EVENT(kEventClassWindow, kEventWindowShown),
    LM_EVENT(kEventClassWindow, kEventWindowHidden),
    LM_EVENT(kEventClassWindow, kEventWindowCollapsed),
    LM_EVENT(kEventClassWindow, kEventWindowExpanded),
    LM_EVENT(kEventClassWindow, kEventWindowBoundsChanged),
    LM_EVENT(kEventClassWindow, kEventWindowTitleChanged),
    LM_EVENT(kEventClassMenu, kEventMenuOpening),
    LM_EVENT(kEventClassMenu, kEventMenuClosed),
    LM_EVENT(kEventClassMenu, kEventMenuDispose),
    LM_EVENT(kEventClassCommand, kEventCommandProcess),
    LM_EVENT(kEventClassCommand, kEventCommandUpdateStatus),
    LM_EVENT(kEventClassTextInput, kEventTextInputUnicodeForKeyEvent),
    LM_EVENT(kEventClassApplication, kEventAppQuit),
};

#undef LM_EVENT

} // namespace

const char* LmEventName(OSType theClass, UInt32 theKind)
{
    for (const EventName& theName : kNames) {
        if (theName.theClass == theClass && theName.theKind == theKind) {
            return theName.theName;
        }
    }
    return nullptr;
}
