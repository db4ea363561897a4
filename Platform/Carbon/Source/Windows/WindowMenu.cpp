// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The menu of windows. What its commands do to a window, windows know by themselves; the menu knows which
// window each of its items stands for.

#include "Base/Guarded.h"
#include "Events/OutgoingEvent.h"
#include "Window.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace Host {

namespace {

// The property by which an item says which window it stands for.
constexpr OSType kCreator = 'Wmnu';
constexpr OSType kWindowTag = 'wind';

bool IsListed(const SharedWindow& theWindow)
{
    return theWindow->Has(kWindowInWindowMenuAttribute) && theWindow->IsVisible() && !theWindow->IsClosing();
}

// The windows of the list, in the order in which they were made.
std::vector<SharedWindow> ListedWindows()
{
    std::vector<SharedWindow> theWindows;
    std::copy_if(AllWindows().begin(), AllWindows().end(), std::back_inserter(theWindows), IsListed);
    std::sort(theWindows.begin(), theWindows.end(),
              [](const SharedWindow& theOne, const SharedWindow& theOther) {
                  return theOne->Identifier() < theOther->Identifier();
              });
    return theWindows;
}

MenuItemIndex Append(MenuRef theMenu, CFStringRef theText, MenuItemAttributes theAttributes,
                     MenuCommand theCommand)
{
    MenuItemIndex theItem = 0;
    AppendMenuItemTextWithCFString(theMenu, theText, theAttributes, theCommand, &theItem);
    return theItem;
}

MenuCommand CommandAt(MenuRef theMenu, MenuItemIndex theItem)
{
    MenuCommand theCommand = 0;
    GetMenuItemCommandID(theMenu, theItem, &theCommand);
    return theCommand;
}

void AppendFixedItems(MenuRef theMenu, OptionBits theOptions)
{
    SetMenuItemCommandKey(theMenu, Append(theMenu, CFSTR("Minimize"), 0, kHICommandMinimizeWindow), false,
                          'M');
    Append(theMenu, CFSTR("Zoom"), 0, kHICommandZoomWindow);
    if ((theOptions & kWindowMenuIncludeRotate) != 0) {
        const MenuItemIndex theItem =
            Append(theMenu, CFSTR("Cycle Through Windows"), 0, kHICommandRotateWindowsForward);
        SetMenuItemCommandKey(theMenu, theItem, false, '`');
    }
    Append(theMenu, CFSTR(""), kMenuItemAttrSeparator, 0);
    Append(theMenu, CFSTR("Bring All to Front"), 0, kHICommandBringAllToFront);
}

void RemoveList(MenuRef theMenu)
{
    for (MenuItemIndex theItem = CountMenuItems(theMenu); theItem > 0; --theItem) {
        const MenuCommand theCommand = CommandAt(theMenu, theItem);
        if (theCommand == kHICommandSelectWindow || theCommand == kHICommandWindowListSeparator) {
            DeleteMenuItem(theMenu, theItem);
        }
    }
}

void AppendWindow(MenuRef theMenu, const Window& theWindow)
{
    const CFStringRef theTitle = CreateString(theWindow.Title());
    if (theTitle == nullptr) {
        return;
    }
    const MenuItemIndex theItem = Append(theMenu, theTitle, 0, kHICommandSelectWindow);
    CFRelease(theTitle);
    const WindowRef theReference = theWindow.Reference();
    SetMenuItemProperty(theMenu, theItem, kCreator, kWindowTag, sizeof(theReference), &theReference);
    const int theOtherMark = theWindow.IsCollapsed() ? diamondMark : noMark;
    SetItemMark(theMenu, theItem,
                static_cast<CharParameter>(theWindow.IsActive() ? int{checkMark} : theOtherMark));
}

void Fill(MenuRef theMenu, OptionBits theOptions)
{
    if (CountMenuItems(theMenu) == 0) {
        AppendFixedItems(theMenu, theOptions);
    }
    RemoveList(theMenu);
    const std::vector<SharedWindow> theWindows = ListedWindows();
    if (!theWindows.empty()) {
        Append(theMenu, CFSTR(""), kMenuItemAttrSeparator, kHICommandWindowListSeparator);
    }
    for (const SharedWindow& theWindow : theWindows) {
        AppendWindow(theMenu, *theWindow);
    }
}

bool CanBeDone(MenuCommand theCommand)
{
    const SharedWindow theActive = ActiveWindow();
    switch (theCommand) {
    case kHICommandMinimizeWindow:
        return theActive != nullptr && theActive->Has(kWindowCollapseBoxAttribute);
    case kHICommandZoomWindow:
        return theActive != nullptr && theActive->Has(kWindowFullZoomAttribute);
    case kHICommandRotateWindowsForward:
        return std::count_if(AllWindows().begin(), AllWindows().end(), IsListed) > 1;
    default:
        return true;
    }
}

void Enable(const HICommand& theCommand)
{
    if (CanBeDone(theCommand.commandID)) {
        EnableMenuItem(theCommand.menu.menuRef, theCommand.menu.menuItemIndex);
    } else {
        DisableMenuItem(theCommand.menu.menuRef, theCommand.menu.menuItemIndex);
    }
}

OSStatus SelectWindowOf(const HICommand& theCommand)
{
    WindowRef theReference = nullptr;
    GetMenuItemProperty(theCommand.menu.menuRef, theCommand.menu.menuItemIndex, kCreator, kWindowTag,
                        sizeof(theReference), nullptr, &theReference);
    const SharedWindow theWindow = FindWindow(theReference);
    if (theWindow == nullptr) {
        return eventNotHandledErr;
    }
    AskToExpand(theWindow);
    SelectWindow(theReference);
    return noErr;
}

// Others come first, window and application among them.
OSStatus HandleCommand(EventHandlerCallRef theCall, EventRef theEvent)
{
    const OSStatus theStatus = CallNextEventHandler(theCall, theEvent);
    HICommand theCommand{};
    if (theStatus != eventNotHandledErr ||
        !ReadParameter(theEvent, kEventParamDirectObject, typeHICommand, &theCommand) ||
        (theCommand.attributes & kHICommandFromMenu) == 0) {
        return theStatus;
    }
    if (GetEventKind(theEvent) == kEventCommandUpdateStatus) {
        Enable(theCommand);
        return noErr;
    }
    const MenuCommand theCode = theCommand.commandID;
    return theCode == kHICommandSelectWindow ? SelectWindowOf(theCommand) : theStatus;
}

// The number that the handler is given is the options.
OSStatus HandleMenu(EventHandlerCallRef theCall, EventRef theEvent, void* theOptions)
{
    if (GetEventClass(theEvent) == kEventClassCommand) {
        return HandleCommand(theCall, theEvent);
    }
    MenuRef theMenu = nullptr;
    ReadParameter(theEvent, kEventParamDirectObject, typeMenuRef, &theMenu);
    Guarded([=] {
        Fill(theMenu, static_cast<OptionBits>(reinterpret_cast<std::uintptr_t>(theOptions)));
        return OSStatus{noErr};
    });
    return eventNotHandledErr;
}

const EventTypeSpec kMenuEvents[] = {{kEventClassMenu, kEventMenuPopulate},
                                     {kEventClassCommand, kEventCommandProcess},
                                     {kEventClassCommand, kEventCommandUpdateStatus}};

} // namespace

} // namespace Host

using namespace Host;

OSStatus CreateStandardWindowMenu(OptionBits inOptions, MenuRef* outMenu)
{
    if (outMenu == nullptr) {
        return paramErr;
    }
    *outMenu = nullptr;
    if ((inOptions & ~OptionBits{kWindowMenuIncludeRotate}) != 0) {
        return paramErr;
    }
    MenuRef theMenu = nullptr;
    OSStatus theStatus = CreateNewMenu(0, 0, &theMenu);
    if (theStatus != noErr) {
        return theStatus;
    }
    SetMenuTitleWithCFString(theMenu, CFSTR("Window"));
    theStatus =
        InstallMenuEventHandler(theMenu, NewEventHandlerUPP(HandleMenu), std::size(kMenuEvents), kMenuEvents,
                                reinterpret_cast<void*>(std::uintptr_t{inOptions}), nullptr);
    if (theStatus != noErr) {
        ReleaseMenu(theMenu);
        return theStatus;
    }
    *outMenu = theMenu;
    return noErr;
}
