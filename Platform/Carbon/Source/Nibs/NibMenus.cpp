// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NibMenus.h"

#include <limits>

namespace Host {

namespace {

struct AttributeName
{
    const char* theName;
    MenuItemAttributes theAttribute;
};

const AttributeName kAttributes[] = {
    {"separator", kMenuItemAttrSeparator},
    {"disabled", kMenuItemAttrDisabled},
    {"hidden", kMenuItemAttrHidden},
    {"dynamic", kMenuItemAttrDynamic},
    {"updateSingleItem", kMenuItemAttrUpdateSingleItem},
    {"autoDisable", kMenuItemAttrAutoDisable},
    {"notPreviousAlternate", kMenuItemAttrNotPreviousAlternate},
    {"submenuParentChoosable", kMenuItemAttrSubmenuParentChoosable},
    {"ignoreMeta", kMenuItemAttrIgnoreMeta},
    {"sectionHeader", kMenuItemAttrSectionHeader},
    {"customDraw", kMenuItemAttrCustomDraw},
    {"autoRepeat", kMenuItemAttrAutoRepeat},
    {"includeInCmdKeyMatching", kMenuItemAttrIncludeInCmdKeyMatching},
};

// Of keyEquivalentModifier.
const SInt32 kShiftBit = 0x020000;
const SInt32 kControlBit = 0x040000;
const SInt32 kOptionBit = 0x080000;
const SInt32 kCommandBit = 0x100000;

// A new menu, released at the end unless it is taken.
class NewNibMenu
{
public:
    NewNibMenu() = default;
    ~NewNibMenu()
    {
        if (mMenu != nullptr) {
            ReleaseMenu(mMenu);
        }
    }
    NewNibMenu(const NewNibMenu&) = delete;
    NewNibMenu& operator=(const NewNibMenu&) = delete;

    MenuRef* Place() { return &mMenu; }
    MenuRef Get() const { return mMenu; }
    MenuRef Take()
    {
        MenuRef theMenu = mMenu;
        mMenu = nullptr;
        return theMenu;
    }

private:
    MenuRef mMenu = nullptr;
};

// One that no menu of the bar has. Programs give their own menus small numbers.
MenuID FreeMenuID()
{
    static MenuID sLast = 10000;
    do {
        sLast = sLast == std::numeric_limits<MenuID>::max() ? MenuID{10000} : static_cast<MenuID>(sLast + 1);
    } while (GetMenuHandle(sLast) != nullptr);
    return sLast;
}

// The application menu has a sign as its title, which is shown as the application's name.
Text TitleOf(const NibObject& theMenu)
{
    Text theTitle = theMenu.String("title");
    if (theTitle != Text(1, char16_t{appleMark})) {
        return theTitle;
    }
    CFTypeRef theName = CFBundleGetValueForInfoDictionaryKey(CFBundleGetMainBundle(), kCFBundleNameKey);
    if (theName != nullptr && CFGetTypeID(theName) == CFStringGetTypeID()) {
        return TextOf(static_cast<CFStringRef>(theName));
    }
    return u"Application";
}

MenuItemAttributes AttributesOf(const NibObject& theItem)
{
    MenuItemAttributes theAttributes = 0;
    for (const AttributeName& theEntry : kAttributes) {
        theAttributes |= theItem.Flag(theEntry.theName) ? theEntry.theAttribute : 0;
    }
    return theAttributes;
}

UInt8 ModifiersOf(SInt32 theBits, bool theIsCapital)
{
    int theModifiers = (theBits & kCommandBit) != 0 ? kMenuNoModifiers : kMenuNoCommandModifier;
    theModifiers |= (theBits & kShiftBit) != 0 || theIsCapital ? kMenuShiftModifier : 0;
    theModifiers |= (theBits & kOptionBit) != 0 ? kMenuOptionModifier : 0;
    theModifiers |= (theBits & kControlBit) != 0 ? kMenuControlModifier : 0;
    return static_cast<UInt8>(theModifiers);
}

// A capital letter is the key with shift; menus have the capital either way.
void SetKey(const NibObject& theItem, MenuRef theMenu, MenuItemIndex theIndex)
{
    const std::string theKey = BytesOf(theItem.String("keyEquivalent").substr(0, 1));
    if (theKey.empty()) {
        return;
    }
    auto theCharacter = static_cast<unsigned char>(theKey[0]);
    const bool theIsCapital = theCharacter >= 'A' && theCharacter <= 'Z';
    if (theCharacter >= 'a' && theCharacter <= 'z') {
        theCharacter = static_cast<unsigned char>(theCharacter - 'a' + 'A');
    }
    SetMenuItemCommandKey(theMenu, theIndex, false, theCharacter);
    SetMenuItemModifiers(theMenu, theIndex,
                         ModifiersOf(theItem.Number("keyEquivalentModifier", kCommandBit), theIsCapital));
}

OSStatus AddSubmenu(const NibObject& theItem, NibLimit& theLimit, MenuRef theMenu, MenuItemIndex theIndex)
{
    const NibObject theObject = theItem.Object("submenu");
    if (!theObject) {
        return noErr;
    }
    NewNibMenu theSubmenu;
    const OSStatus theStatus = MakeNibMenu(theObject, theLimit, theSubmenu.Place());
    return theStatus != noErr ? theStatus : SetMenuItemHierarchicalMenu(theMenu, theIndex, theSubmenu.Get());
}

OSStatus AddItem(const NibObject& theItem, NibLimit& theLimit, MenuRef theMenu)
{
    const NibLimit::Level theLevel(theLimit);
    if (!theLevel.IsAllowed()) {
        return memFullErr;
    }
    MenuItemIndex theIndex = 0;
    const OSStatus theStatus =
        AppendMenuItemTextWithCFString(theMenu, NibString(theItem.String("title")), AttributesOf(theItem),
                                       theItem.Code("command"), &theIndex);
    if (theStatus != noErr) {
        return theStatus;
    }
    SetKey(theItem, theMenu, theIndex);
    if (theItem.Flag("checked")) {
        CheckMenuItem(theMenu, theIndex, true);
    }
    return AddSubmenu(theItem, theLimit, theMenu, theIndex);
}

} // namespace

OSStatus MakeNibMenu(const NibObject& theObject, NibLimit& theLimit, MenuRef* theMenu)
{
    *theMenu = nullptr;
    if (theObject.Class() != "IBCarbonMenu") {
        return kIBCarbonRuntimeObjectNotOfRequestedType;
    }
    NewNibMenu theNew;
    const MenuID theID = theObject.Has("menuID") ? theObject.Short("menuID") : FreeMenuID();
    OSStatus theStatus = CreateNewMenu(theID, 0, theNew.Place());
    if (theStatus == noErr) {
        theStatus = SetMenuTitleWithCFString(theNew.Get(), NibString(TitleOf(theObject)));
    }
    for (const NibObject& theItem : theObject.List("items")) {
        if (theStatus == noErr && theItem.Class() == "IBCarbonMenuItem") {
            theStatus = AddItem(theItem, theLimit, theNew.Get());
        }
    }
    *theMenu = theStatus == noErr ? theNew.Take() : nullptr;
    return theStatus;
}

} // namespace Host
