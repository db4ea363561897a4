// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A person's way through menus: opening, choosing, closing.

#include "Menu.h"

#include "Common/NeverDestroyed.h"
#include "Events/OutgoingEvent.h"
#include "Events/PersonActions.h"
#include "Menus.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>
#include <utility>
#include <vector>

namespace Host {

namespace {

// From the moment a person opens the first menu until the last one is closed.
struct Session
{
    bool theIsOn = false;
    MenuRef theRoot = nullptr; // the bar's menu, or the one that popped up
    UInt32 theContext = 0;
    std::vector<MenuRef> theOpen;   // from the outermost in
    std::vector<MenuRef> theOpened; // every menu that has been open
};

Session& TheSession()
{
    static NeverDestroyed<Session> sSession;
    return sSession.Get();
}

bool IsIn(const std::vector<MenuRef>& theMenus, MenuRef theMenu)
{
    return std::find(theMenus.begin(), theMenus.end(), theMenu) != theMenus.end();
}

// Sends an event about a menu to all handlers of the menu and of the user focus. False when one of them
// refused.
bool Tell(OutgoingEvent& theEvent, MenuRef theMenu, UInt32 theContext)
{
    theEvent.Set(kEventParamDirectObject, typeMenuRef, theMenu);
    theEvent.Set(kEventParamMenuContext, typeUInt32, theContext);
    return theEvent.SendTo(GetMenuEventTarget(theMenu), kEventTargetSendToAllHandlers) != userCanceledErr;
}

bool BeginSession(MenuRef theRoot, UInt32 theContext)
{
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuBeginTracking);
    theEvent.Set(kEventParamCurrentMenuTrackingMode, typeMenuTrackingMode, UInt32(kMenuTrackingModeMouse));
    if (!Tell(theEvent, theRoot, theContext)) {
        return false;
    }
    TheSession() = {true, theRoot, theContext, {}, {}};
    return true;
}

void TellEnd(MenuRef theMenu, UInt32 theContext, UInt32 theReason)
{
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuEndTracking);
    theEvent.Set(kEventParamMenuDismissed, typeUInt32, theReason);
    Tell(theEvent, theMenu, theContext);
}

void EndSession(UInt32 theReason)
{
    const Session theOver = std::exchange(TheSession(), {});
    TellEnd(theOver.theRoot, theOver.theContext, theReason);
    for (const MenuRef theMenu : theOver.theOpened) {
        if (theMenu != theOver.theRoot) {
            TellEnd(theMenu, theOver.theContext, theReason);
        }
    }
}

// What events about a menu say, by the number of menus around it.
UInt32 ContextAt(size_t theDepth)
{
    const Session& theSession = TheSession();
    // A menu bar that the desktop shows by itself tells of choices without any opening.
    const UInt32 theBase = theSession.theIsOn ? theSession.theContext : UInt32(kMenuContextMenuBar);
    if (theDepth > 0) {
        return theBase | kMenuContextSubmenu;
    }
    return theBase | ((theBase & kMenuContextPopUpTracking) != 0 ? kMenuContextPopUp : kMenuContextPullDown);
}

UInt32 ContextOf(MenuRef theMenu)
{
    const std::vector<MenuRef>& theOpen = TheSession().theOpen;
    const auto theFound = std::find(theOpen.begin(), theOpen.end(), theMenu);
    return ContextAt(theFound == theOpen.end() ? 0 : static_cast<size_t>(theFound - theOpen.begin()));
}

// Brings a menu up to date and opens it. False when a handler refused, or the menu is gone by then.
bool Open(const SharedMenu& theMenu)
{
    const UInt32 theContext = ContextAt(TheSession().theOpen.size());
    const MenuRef theReference = theMenu->Reference();
    PopulateMenu(theMenu, theContext);
    EnableMenuItems(theMenu, theContext);
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuOpening);
    theEvent.Set(kEventParamMenuFirstOpen, typeBoolean,
                 static_cast<Boolean>(!IsIn(TheSession().theOpened, theReference)));
    if (!Tell(theEvent, theReference, theContext) || theMenu->IsGone() || !TheSession().theIsOn) {
        return false;
    }
    TheSession().theOpen.push_back(theReference);
    if (!IsIn(TheSession().theOpened, theReference)) {
        TheSession().theOpened.push_back(theReference);
    }
    ShowChangedMenuBar();
    return true;
}

// Closes the innermost open menu.
void CloseInnermost()
{
    const MenuRef theMenu = TheSession().theOpen.back();
    TheSession().theOpen.pop_back();
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuClosed);
    Tell(theEvent, theMenu, ContextAt(TheSession().theOpen.size()));
}

void CloseAll(UInt32 theReason)
{
    while (!TheSession().theOpen.empty()) {
        CloseInnermost();
    }
    if (TheSession().theIsOn) {
        EndSession(theReason);
    }
}

// The item that holds an open menu, if its menu is open too: menus between the two close.
bool IsHeldBy(const SharedMenu& theMenu, MenuRef theHolder)
{
    const SharedMenu theFound = FindMenu(theHolder);
    return theFound != nullptr &&
           std::any_of(theFound->mItems.begin(), theFound->mItems.end(), [&](const MenuItem& theItem) {
               return theItem.theSubmenu.Get() == theMenu->Reference();
           });
}

// Closes what is open beside the way to a menu: everything when it is a menu of the bar.
void CloseUpTo(const SharedMenu& theMenu)
{
    while (!TheSession().theOpen.empty() && !IsHeldBy(theMenu, TheSession().theOpen.back())) {
        CloseInnermost();
    }
}

// The menus that a person can reach from a menu: those held by items that are enabled and shown, of menus
// that are enabled.
std::vector<SharedMenu> ReachableMenus(const SharedMenu& theRoot)
{
    std::vector<SharedMenu> theMenus;
    const auto theAdd = [&](const SharedMenu& theMenu) {
        if (theMenu != nullptr && theMenu->mIsEnabled &&
            std::find(theMenus.begin(), theMenus.end(), theMenu) == theMenus.end()) {
            theMenus.push_back(theMenu);
        }
    };
    theAdd(theRoot);
    // The list grows while it is walked.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (size_t theNext = 0; theNext < theMenus.size(); ++theNext) {
        for (MenuItemIndex theItem = 1; theItem <= theMenus[theNext]->Count(); ++theItem) {
            const MenuItem& theHolder = *theMenus[theNext]->Item(theItem);
            if (theHolder.IsEnabled() && !theHolder.Is(kMenuItemAttrHidden)) {
                theAdd(theMenus[theNext]->Submenu(theItem));
            }
        }
    }
    return theMenus;
}

bool IsReachable(const SharedMenu& theMenu)
{
    const SharedMenu theRoot = TheSession().theIsOn ? FindMenu(TheSession().theRoot) : RootMenu();
    if (theRoot == RootMenu() && IsBarHeld()) {
        return false;
    }
    const std::vector<SharedMenu> theMenus = ReachableMenus(theRoot);
    return std::find(theMenus.begin(), theMenus.end(), theMenu) != theMenus.end();
}

void TellTarget(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuTargetItem);
    theEvent.Set(kEventParamMenuItemIndex, typeMenuItemIndex, theItem);
    theEvent.Set(kEventParamMenuCommand, typeMenuCommand, theMenu->Item(theItem)->theCommand);
    Tell(theEvent, theMenu->Reference(), ContextOf(theMenu->Reference()));
}

bool CanBeChosen(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    return IsChoosable(theMenu, theItem) && !theMenu->Item(theItem)->Is(kMenuItemAttrHidden) &&
           IsReachable(theMenu);
}

// The menus close because an item of one of them was chosen. No menu when a handler of the closing has
// taken the item away.
PopUpChoice CloseByChoice(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    TellTarget(theMenu, theItem);
    const UInt32 theContext = ContextOf(theMenu->Reference());
    CloseAll(kHIMenuDismissedBySelection);
    return theMenu->Item(theItem) == nullptr ? PopUpChoice() : PopUpChoice{theMenu, theItem, theContext};
}

MenuChoice RunPopUp(const SharedMenu& theMenu, Point thePlace, MenuItemIndex theItem)
{
    PopUpLook theLook;
    theLook.theMenu = LookOfMenu(theMenu);
    theLook.thePlace = {thePlace.h, thePlace.v};
    theLook.theItem = theItem;
    return PresenterRegistry::RunPopUp(theLook);
}

SInt32 PackedChoice(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    const auto theID = static_cast<UInt32>(static_cast<UInt16>(theMenu->mID));
    return static_cast<SInt32>((theID << 16) | theItem);
}

// Opens a menu of the bar, or one that an item of an open menu holds. False when a handler refused.
bool PullDown(const SharedMenu& theMenu, const SharedMenu& theRoot)
{
    if (!TheSession().theIsOn &&
        !BeginSession(theRoot->Reference(), kMenuContextMenuBar | kMenuContextMenuBarTracking)) {
        return false;
    }
    CloseUpTo(theMenu);
    if (!Open(theMenu)) {
        if (TheSession().theOpen.empty() && TheSession().theIsOn) {
            EndSession(kHIMenuDismissedByUserCancel);
        }
        return false;
    }
    return true;
}

bool CloseWithoutChoice(MenuRef theMenu)
{
    while (IsIn(TheSession().theOpen, theMenu)) {
        CloseInnermost();
    }
    if (TheSession().theIsOn && TheSession().theOpen.empty()) {
        EndSession(kHIMenuDismissedByUserCancel);
    }
    return true;
}

// Does to a menu what a person wants, and answers what theWork does.
template <class Work>
bool DoToMenu(const SharedMenu& theMenu, UInt32 theKind, const Work& theWork)
{
    PersonAction theAction(kEventClassMenu, theKind);
    theAction.Set(kEventParamDirectObject, typeMenuRef, theMenu->Reference());
    bool isDelivered = false;
    theAction.Do([&] { isDelivered = theWork(); });
    return isDelivered;
}

} // namespace

bool MenuOpenedByPerson(ObjectId theMenu)
{
    const SharedMenu theFound = FindMenu(theMenu);
    const SharedMenu theRoot = RootMenu();
    if (theFound == nullptr || theRoot == nullptr || IsBarHeld() ||
        IsIn(TheSession().theOpen, theFound->Reference())) {
        return false;
    }
    return DoToMenu(theFound, kEventMenuOpening, [&] { return PullDown(theFound, theRoot); });
}

bool MenuChosenByPerson(ObjectId theMenu, MenuItemIndex theItem, UInt32 theModifiers)
{
    const SharedMenu theFound = FindMenu(theMenu);
    if (theFound == nullptr || !CanBeChosen(theFound, theItem)) {
        return false;
    }
    PersonAction theAction(kEventClassCommand, kEventCommandProcess);
    theAction.Set(kEventParamDirectObject, typeHICommand, CommandOf(theFound, theItem));
    theAction.Do([&] {
        if (const PopUpChoice theChoice = CloseByChoice(theFound, theItem)) {
            SendMenuCommand(theChoice.theMenu, theChoice.theItem, theChoice.theContext, &theModifiers);
        }
        CatchUpWithMenus();
    });
    return true;
}

bool MenuClosedByPerson(ObjectId theMenu)
{
    const SharedMenu theFound = FindMenu(theMenu);
    if (theFound == nullptr || !IsIn(TheSession().theOpen, theFound->Reference())) {
        return false;
    }
    return DoToMenu(theFound, kEventMenuClosed, [&] { return CloseWithoutChoice(theFound->Reference()); });
}

PopUpChoice TrackPopUp(const SharedMenu& theMenu, Point thePlace, MenuItemIndex theItem)
{
    if (TheSession().theIsOn || !BeginSession(theMenu->Reference(), kMenuContextPopUpTracking)) {
        return {};
    }
    MenuChoice theChoice;
    if (Open(theMenu)) {
        theChoice = RunPopUp(theMenu, thePlace, theItem);
    }
    const SharedMenu theChosen = FindMenu(theChoice.theMenu);
    const auto theChosenItem = static_cast<MenuItemIndex>(theChoice.theItem);
    if (theChosen == nullptr || !CanBeChosen(theChosen, theChosenItem)) {
        CloseAll(kHIMenuDismissedByUserCancel);
        return {};
    }
    return CloseByChoice(theChosen, theChosenItem);
}

} // namespace Host

using namespace Host;

SInt32 PopUpMenuSelect(MenuRef menu, short top, short left, MenuItemIndex popUpItem)
{
    const SharedMenu theMenu = FindMenu(menu);
    const PopUpChoice theChoice =
        theMenu == nullptr ? PopUpChoice() : TrackPopUp(theMenu, Point{top, left}, popUpItem);
    if (!theChoice) {
        return 0;
    }
    const SInt32 theResult = PackedChoice(theChoice.theMenu, theChoice.theItem);
    const UInt32 theModifiers = GetCurrentKeyModifiers();
    const OSStatus theStatus =
        SendMenuCommand(theChoice.theMenu, theChoice.theItem, theChoice.theContext, &theModifiers);
    return theStatus == noErr ? 0 : theResult;
}

OSStatus CancelMenuTracking(MenuRef inRootMenu, Boolean, UInt32 inDismissalReason)
{
    if (inRootMenu != nullptr && FindMenu(inRootMenu) == nullptr) {
        return menuInvalidErr;
    }
    if (inRootMenu == nullptr || inRootMenu == TheSession().theRoot) {
        CloseAll(inDismissalReason);
    }
    return noErr;
}
