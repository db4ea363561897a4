// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Menus, their items, and the menu bar.
//
// A menu is a list of items, counted from 1. An item has a text, a command that it stands for, a mark, a
// command key, and may hold another menu. The menu bar is a menu too, the root menu: each of its items holds
// one menu that a person can pull down.
//
// Menus are counted: a new menu belongs to whoever made it, a menu that is attached to an item or inserted
// into the bar is held by it as well, and it is destroyed when nobody holds it any more. kEventMenuDispose
// tells its handlers then, while the menu can still be read.
//
// No event tells that a program changed a menu. The bar on the screen follows when the event loop runs, or
// at DrawMenuBar.
//
// A call that is given a menu that is null or gone answers menuInvalidErr (or 0, false or nothing, where it
// has no status); one that is given an item that the menu does not have answers menuItemNotFoundErr; one
// that is given no place for a result that it must have answers paramErr. Main thread only; nothing throws.

#ifndef Menus_h
#define Menus_h

#include <Carbon/CarbonBase.h>
#include <CoreServices/MacErrors.h>

typedef UInt32 MenuAttributes;
typedef UInt32 MenuItemAttributes;
typedef UInt32 MenuEventOptions;
typedef UInt32 MenuTrackingMode;

// Marks, which are characters.
enum
{
    noMark = 0,
    commandMark = 17,
    checkMark = 18,
    diamondMark = 19,
    appleMark = 20
};

// Attributes of menus. AutoDisable: the title looks disabled while all items are.
enum
{
    kMenuAttrExcludesMarkColumn = 1,
    kMenuAttrAutoDisable = 4,
    kMenuAttrUsePencilGlyph = 8,
    kMenuAttrHidden = 16,
    kMenuAttrCondenseSeparators = 32,
    kMenuAttrDoNotCacheImage = 64,
    kMenuAttrDoNotUseUserCommandKeys = 128
};

// Attributes of items.
enum
{
    kMenuItemAttrDisabled = 1,
    kMenuItemAttrIconDisabled = 2,
    kMenuItemAttrSubmenuParentChoosable = 4, // may be chosen although it holds a menu
    kMenuItemAttrDynamic = 8,
    kMenuItemAttrNotPreviousAlternate = 16,
    kMenuItemAttrHidden = 32, // not shown, and its command key does nothing
    kMenuItemAttrSeparator = 64,
    kMenuItemAttrSectionHeader = 128,
    kMenuItemAttrIgnoreMeta = 256,
    kMenuItemAttrAutoRepeat = 512, // holding its command key down chooses it again and again
    kMenuItemAttrUseVirtualKey = 1024,
    kMenuItemAttrCustomDraw = 2048,
    kMenuItemAttrIncludeInCmdKeyMatching = 4096, // its command key works although it is hidden
    kMenuItemAttrAutoDisable = 8192,             // disabled when nobody handles its kEventCommandUpdateStatus
    kMenuItemAttrUpdateSingleItem =
        16384 // a command key brings only this item up to date, not its whole menu
};

// Modifiers of a command key besides the command key itself.
enum
{
    kMenuNoModifiers = 0,
    kMenuShiftModifier = 1,
    kMenuOptionModifier = 2,
    kMenuControlModifier = 4,
    kMenuNoCommandModifier = 8 // works without the command key
};

enum
{
    kInsertHierarchicalMenu = -1
};

// Options of IsMenuKeyEvent.
enum
{
    kMenuEventIncludeDisabledItems = 1,
    kMenuEventQueryOnly = 2,
    kMenuEventDontCheckSubmenus = 4
};

// What a menu event is about (kEventParamMenuContext).
enum
{
    kMenuContextMenuBar = 1 << 0,
    kMenuContextPullDown = 1 << 8,
    kMenuContextPopUp = 1 << 9,
    kMenuContextSubmenu = 1 << 10,
    kMenuContextMenuBarTracking = 1 << 16,
    kMenuContextPopUpTracking = 1 << 17,
    kMenuContextKeyMatching = 1 << 18,
    kMenuContextMenuEnabling = 1 << 19,
    kMenuContextCommandIDSearch = 1 << 20
};

enum
{
    kMenuTrackingModeMouse = 1,
    kMenuTrackingModeKeyboard = 2
};

// Why a menu closed (kEventParamMenuDismissed).
enum
{
    kHIMenuDismissedBySelection = 1,
    kHIMenuDismissedByUserCancel = 2,
    kHIMenuDismissedByMouseDown = 3,
    kHIMenuDismissedByMouseUp = 4,
    kHIMenuDismissedByKeyEvent = 5,
    kHIMenuDismissedByAppSwitch = 6,
    kHIMenuDismissedByTimeout = 7,
    kHIMenuDismissedByCancelMenuTracking = 8,
    kHIMenuDismissedByActivationChange = 9,
    kHIMenuDismissedByFocusChange = 10
};

// --- Life -------------------------------------------------------------------------------------------

// Makes an empty menu without a title, owned by the caller. The identifier need not be unique.
CARBON_EXPORT OSStatus CreateNewMenu(MenuID inMenuID, MenuAttributes inMenuAttributes, MenuRef* outMenuRef);

// The same with a title; null when there is no title or no memory.
CARBON_EXPORT MenuRef NewMenu(MenuID menuID, ConstStr255Param menuTitle);

// Give up one reference; at none the menu is destroyed: kEventMenuDispose goes to its handlers, then its
// reference is invalid and the menus held by its items are released.
CARBON_EXPORT void DisposeMenu(MenuRef theMenu);
CARBON_EXPORT OSStatus ReleaseMenu(MenuRef inMenu);

CARBON_EXPORT OSStatus RetainMenu(MenuRef inMenu);
CARBON_EXPORT ItemCount GetMenuRetainCount(MenuRef inMenu);
CARBON_EXPORT Boolean IsValidMenu(MenuRef inMenu);

// A copy with all items, owned by the caller. Menus held by the items are held by both. Handlers are not
// copied.
CARBON_EXPORT OSStatus DuplicateMenu(MenuRef inSourceMenu, MenuRef* outMenu);

// --- The menu bar -----------------------------------------------------------------------------------

// The root menu, retained for the caller; made when there is none yet. Null when there is no memory.
CARBON_EXPORT MenuRef AcquireRootMenu(void);

// Makes a menu the root menu and retains it; the former one is released, and the menus that were inserted as
// submenus are taken out. The menu that is the root menu already changes nothing.
CARBON_EXPORT OSStatus SetRootMenu(MenuRef inMenu);

// Adds a menu to the bar, before the one with the identifier beforeID, or at the end when that is 0 or not
// there. With kInsertHierarchicalMenu the menu does not appear, but can be found by identifier and by its
// commands. The bar retains it. A menu that is inserted already stays where it is.
CARBON_EXPORT void InsertMenu(MenuRef theMenu, MenuID beforeID);

// Take one menu, or all, out of the bar and release them.
CARBON_EXPORT void DeleteMenu(MenuID menuID);
CARBON_EXPORT void ClearMenuBar(void);

// The inserted menu with that identifier, not retained; null if there is none.
CARBON_EXPORT MenuRef GetMenuHandle(MenuID menuID);
#define GetMenuRef GetMenuHandle

// Show the bar as it is now; InvalMenuBar when the event loop runs next.
CARBON_EXPORT void DrawMenuBar(void);
CARBON_EXPORT void InvalMenuBar(void);

// --- Menus ------------------------------------------------------------------------------------------

CARBON_EXPORT MenuID GetMenuID(MenuRef menu);
CARBON_EXPORT void SetMenuID(MenuRef menu, MenuID menuID);

// An immutable string is retained, a mutable one copied. A copied title belongs to the caller; a menu
// without a title gives the empty string.
CARBON_EXPORT OSStatus SetMenuTitleWithCFString(MenuRef inMenu, CFStringRef inString);
CARBON_EXPORT OSStatus CopyMenuTitleAsCFString(MenuRef inMenu, CFStringRef* outString);

// The same as Pascal strings, which keep at most 255 characters. GetMenuTitle returns its second argument, or
// null for a bad menu.
CARBON_EXPORT OSStatus SetMenuTitle(MenuRef menu, ConstStr255Param title);
CARBON_EXPORT StringPtr GetMenuTitle(MenuRef menu, Str255 title);

CARBON_EXPORT OSStatus GetMenuAttributes(MenuRef menu, MenuAttributes* outAttributes);
CARBON_EXPORT OSStatus ChangeMenuAttributes(MenuRef menu, MenuAttributes setTheseAttributes,
                                            MenuAttributes clearTheseAttributes);

CARBON_EXPORT UInt16 CountMenuItems(MenuRef theMenu);

// --- Items ------------------------------------------------------------------------------------------

// Adds an item at the end, or after another item: 0 is the beginning, a number beyond the end is the end.
// The text is taken as it is; a null one is the empty text, which is enough for a separator
// (kMenuItemAttrSeparator). outNewItem, which may be null, receives the new item's place. A menu has room
// for 65534 items; beyond that, paramErr.
CARBON_EXPORT OSStatus AppendMenuItemTextWithCFString(MenuRef inMenu, CFStringRef inString,
                                                      MenuItemAttributes inAttributes,
                                                      MenuCommand inCommandID, MenuItemIndex* outNewItem);
CARBON_EXPORT OSStatus InsertMenuItemTextWithCFString(MenuRef inMenu, CFStringRef inString,
                                                      MenuItemIndex inAfterItem,
                                                      MenuItemAttributes inAttributes,
                                                      MenuCommand inCommandID);
CARBON_EXPORT OSStatus AppendMenuItemText(MenuRef menu, ConstStr255Param inString);

// Remove one item, or several from the first on; menus held by them are released.
CARBON_EXPORT void DeleteMenuItem(MenuRef theMenu, MenuItemIndex item);
CARBON_EXPORT OSStatus DeleteMenuItems(MenuRef inMenu, MenuItemIndex inFirstItem, ItemCount inNumItems);

// Texts follow the rules of titles; paramErr for a null string. GetMenuItemText gives the empty string for
// what is not there.
CARBON_EXPORT OSStatus SetMenuItemTextWithCFString(MenuRef inMenu, MenuItemIndex inItem,
                                                   CFStringRef inString);
CARBON_EXPORT OSStatus CopyMenuItemTextAsCFString(MenuRef inMenu, MenuItemIndex inItem,
                                                  CFStringRef* outString);
CARBON_EXPORT void SetMenuItemText(MenuRef theMenu, MenuItemIndex item, ConstStr255Param itemString);
CARBON_EXPORT void GetMenuItemText(MenuRef theMenu, MenuItemIndex item, Str255 itemString);

// The command an item stands for; 0 is none.
CARBON_EXPORT OSErr SetMenuItemCommandID(MenuRef inMenu, MenuItemIndex inItem, MenuCommand inCommandID);
CARBON_EXPORT OSErr GetMenuItemCommandID(MenuRef inMenu, MenuItemIndex inItem, MenuCommand* outCommandID);

// Item 0 is the menu itself: while it is disabled, none of its items can be chosen. The items keep states of
// their own, which is what IsMenuItemEnabled tells.
CARBON_EXPORT void EnableMenuItem(MenuRef theMenu, MenuItemIndex item);
CARBON_EXPORT void DisableMenuItem(MenuRef theMenu, MenuItemIndex item);
CARBON_EXPORT Boolean IsMenuItemEnabled(MenuRef menu, MenuItemIndex item);

// All items; the menu itself keeps its state.
CARBON_EXPORT void EnableAllMenuItems(MenuRef theMenu);
CARBON_EXPORT void DisableAllMenuItems(MenuRef theMenu);

// Whether any item but a separator is enabled, whatever the menu itself is.
CARBON_EXPORT Boolean MenuHasEnabledItems(MenuRef theMenu);

// The mark beside an item: any character, noMark for none. CheckMenuItem sets checkMark or noMark.
CARBON_EXPORT void CheckMenuItem(MenuRef theMenu, MenuItemIndex item, Boolean checked);
CARBON_EXPORT void SetItemMark(MenuRef theMenu, MenuItemIndex item, CharParameter markChar);
CARBON_EXPORT void GetItemMark(MenuRef theMenu, MenuItemIndex item, CharParameter* markChar);

// Attaches a menu to an item, which retains it; null detaches. paramErr for a menu that would come to hold
// itself.
CARBON_EXPORT OSStatus SetMenuItemHierarchicalMenu(MenuRef inMenu, MenuItemIndex inItem, MenuRef inHierMenu);

// Not retained for the caller; null when the item holds none.
CARBON_EXPORT OSStatus GetMenuItemHierarchicalMenu(MenuRef inMenu, MenuItemIndex inItem,
                                                   MenuRef* outHierMenu);

// The key that chooses the item. An item has a character and, beside it, the position of a key (kVK_...);
// neither is read as the other, and 0 stands for the one that was never set. Setting the position sets
// kMenuItemAttrUseVirtualKey, with which it chooses the item; setting the character clears that, and the
// character chooses it. A character 0 chooses nothing; position 0 is the key of A.
CARBON_EXPORT OSStatus SetMenuItemCommandKey(MenuRef inMenu, MenuItemIndex inItem, Boolean inSetVirtualKey,
                                             UInt16 inKey);
CARBON_EXPORT OSStatus GetMenuItemCommandKey(MenuRef inMenu, MenuItemIndex inItem, Boolean inGetVirtualKey,
                                             UInt16* outKey);
CARBON_EXPORT void SetItemCmd(MenuRef theMenu, MenuItemIndex item, CharParameter cmdChar);
CARBON_EXPORT void GetItemCmd(MenuRef theMenu, MenuItemIndex item, CharParameter* cmdChar);
CARBON_EXPORT OSErr SetMenuItemModifiers(MenuRef inMenu, MenuItemIndex inItem, UInt8 inModifiers);
CARBON_EXPORT OSErr GetMenuItemModifiers(MenuRef inMenu, MenuItemIndex inItem, UInt8* outModifiers);

CARBON_EXPORT OSStatus GetMenuItemAttributes(MenuRef menu, MenuItemIndex item,
                                             MenuItemAttributes* outAttributes);
CARBON_EXPORT OSStatus ChangeMenuItemAttributes(MenuRef menu, MenuItemIndex item,
                                                MenuItemAttributes setTheseAttributes,
                                                MenuItemAttributes clearTheseAttributes);

// Values and data that the application keeps at an item. Creators of lower-case letters are the platform's:
// menuPropertyInvalidErr. What is not there: menuPropertyNotFoundErr. A buffer of another size than the data
// gets the smaller amount, and paramErr.
CARBON_EXPORT OSErr SetMenuItemRefCon(MenuRef inMenu, MenuItemIndex inItem, URefCon inRefCon);
CARBON_EXPORT OSErr GetMenuItemRefCon(MenuRef inMenu, MenuItemIndex inItem, URefCon* outRefCon);
CARBON_EXPORT OSStatus SetMenuItemProperty(MenuRef menu, MenuItemIndex item, OSType propertyCreator,
                                           OSType propertyTag, ByteCount propertySize,
                                           const void* propertyData);
CARBON_EXPORT OSStatus GetMenuItemProperty(MenuRef menu, MenuItemIndex item, OSType propertyCreator,
                                           OSType propertyTag, ByteCount bufferSize, ByteCount* actualSize,
                                           void* propertyBuffer);
CARBON_EXPORT OSStatus GetMenuItemPropertySize(MenuRef menu, MenuItemIndex item, OSType propertyCreator,
                                               OSType propertyTag, ByteCount* size);
CARBON_EXPORT OSStatus RemoveMenuItemProperty(MenuRef menu, MenuItemIndex item, OSType propertyCreator,
                                              OSType propertyTag);

// --- Items by their commands ------------------------------------------------------------------------

// These look for the items with a command in a menu and the menus that its items hold: an item comes before
// the items of the menu that it holds, and those before the next item. A null menu stands for the root menu,
// after which the menus inserted with kInsertHierarchicalMenu are searched.
//
// Each menu that is looked into gets kEventMenuPopulate first, with kMenuContextCommandIDSearch and the
// command; its handlers may add the items then.
//
// The calls on one command work on the first item with it. menuItemNotFoundErr when there is none.
// Cost: proportional to the number of items looked at.
CARBON_EXPORT ItemCount CountMenuItemsWithCommandID(MenuRef inMenu, MenuCommand inCommandID);

// The inItemIndex-th item with the command, from 1. Both results may be null; they are left alone when
// there is no such item.
CARBON_EXPORT OSStatus GetIndMenuItemWithCommandID(MenuRef inMenu, MenuCommand inCommandID,
                                                   UInt32 inItemIndex, MenuRef* outMenu,
                                                   MenuItemIndex* outIndex);

CARBON_EXPORT void EnableMenuCommand(MenuRef inMenu, MenuCommand inCommandID);
CARBON_EXPORT void DisableMenuCommand(MenuRef inMenu, MenuCommand inCommandID);
CARBON_EXPORT Boolean IsMenuCommandEnabled(MenuRef inMenu, MenuCommand inCommandID);

// Only the low byte of the mark counts.
CARBON_EXPORT OSStatus SetMenuCommandMark(MenuRef inMenu, MenuCommand inCommandID, UniChar inMark);
CARBON_EXPORT OSStatus GetMenuCommandMark(MenuRef inMenu, MenuCommand inCommandID, UniChar* outMark);

CARBON_EXPORT OSStatus SetMenuCommandProperty(MenuRef inMenu, MenuCommand inCommandID,
                                              OSType inPropertyCreator, OSType inPropertyTag,
                                              ByteCount inPropertySize, const void* inPropertyData);
CARBON_EXPORT OSStatus GetMenuCommandProperty(MenuRef inMenu, MenuCommand inCommandID,
                                              OSType inPropertyCreator, OSType inPropertyTag,
                                              ByteCount inBufferSize, ByteCount* outActualSize,
                                              void* inPropertyBuffer);
CARBON_EXPORT OSStatus GetMenuCommandPropertySize(MenuRef inMenu, MenuCommand inCommandID,
                                                  OSType inPropertyCreator, OSType inPropertyTag,
                                                  ByteCount* outSize);
CARBON_EXPORT OSStatus RemoveMenuCommandProperty(MenuRef inMenu, MenuCommand inCommandID,
                                                 OSType inPropertyCreator, OSType inPropertyTag);

// --- Keys, tracking and enabling --------------------------------------------------------------------

// Whether a key-down event is the command key of an item of the menu, or of the menus its items hold; a null
// menu stands for the bar. Each menu that is looked into gets kEventMenuPopulate and kEventMenuMatchKey. A
// handler that answers the latter, with noErr and an item or with menuItemNotFoundErr, has decided, and the
// items are taken as they are; in any other menu they are brought up to date before they are compared with
// the key: kEventMenuEnableItems, kEventCommandUpdateStatus for each item. For a key without the command key
// all this happens only when an item has it already. outMenu and outMenuItem may be null. The dispatcher asks
// this for every key, and sends the item's command.
CARBON_EXPORT Boolean IsMenuKeyEvent(MenuRef inStartMenu, EventRef inEvent, MenuEventOptions inOptions,
                                     MenuRef* outMenu, MenuItemIndex* outMenuItem);

// Shows a menu by itself, with popUpItem (0 for none) at a global point, and returns when the person has
// chosen: the menu's identifier in the high half and the item in the low half; 0 when nothing was chosen, or
// a handler has answered the item's command with noErr.
CARBON_EXPORT SInt32 PopUpMenuSelect(MenuRef menu, short top, short left, MenuItemIndex popUpItem);

// Closes the menus that the person has open. A null menu stands for whichever is open. noErr also when none
// is. inImmediate makes no difference here: nothing fades.
CARBON_EXPORT OSStatus CancelMenuTracking(MenuRef inRootMenu, Boolean inImmediate, UInt32 inDismissalReason);

// Asks for the items of a menu of the bar (null: of every one) to be brought up to date when the event loop
// runs next: kEventMenuEnableItems, then kEventCommandUpdateStatus for each, with kMenuContextMenuEnabling.
// Other menus are brought up to date whenever they open, and nothing is put off for them.
CARBON_EXPORT OSStatus InvalidateMenuEnabling(MenuRef inMenu);

// The height of the menu bar at the top of the main screen, or of what else the desktop keeps there; 0 where
// menu bars are in the windows.
CARBON_EXPORT short GetMBarHeight(void);

// Titles of menus are lit and darkened by who shows them, so there is nothing to be done.
CARBON_EXPORT void HiliteMenu(MenuID menuID);

#endif
