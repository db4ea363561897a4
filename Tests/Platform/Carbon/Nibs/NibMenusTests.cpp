// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Menus and menu bars from nibs.

#include "NibTestSupport.h"

namespace {

class NibMenus : public NibTest
{
protected:
    ~NibMenus() override
    {
        if (mMenu != nullptr) {
            ReleaseMenu(mMenu);
        }
    }

    OSStatus Make(const std::string& theAttributes, const std::string& theItems,
                  const std::string& theOthers = "")
    {
        EXPECT_EQ(Open(NibWith("<object class=\"IBCarbonMenu\" id=\"1\">" + theAttributes +
                               "<array name=\"items\">" + theItems + "</array></object>" + theOthers)),
                  noErr);
        return CreateMenuFromNib(mNib, CFSTR("It"), &mMenu);
    }

    static std::string Item(const std::string& theAttributes)
    {
        return "<object class=\"IBCarbonMenuItem\">" + theAttributes + "</object>\n";
    }

    std::string ItemText(MenuRef theMenu, MenuItemIndex theItem)
    {
        CFStringRef theText = nullptr;
        EXPECT_EQ(CopyMenuItemTextAsCFString(theMenu, theItem, &theText), noErr);
        std::string theResult = TextOf(theText);
        CFRelease(theText);
        return theResult;
    }

    std::string Title(MenuRef theMenu)
    {
        CFStringRef theText = nullptr;
        EXPECT_EQ(CopyMenuTitleAsCFString(theMenu, &theText), noErr);
        std::string theResult = TextOf(theText);
        CFRelease(theText);
        return theResult;
    }

    // "key modifiers", the modifiers as numbers.
    std::string KeyOf(MenuItemIndex theItem)
    {
        UInt16 theKey = 0;
        UInt8 theModifiers = 0;
        GetMenuItemCommandKey(mMenu, theItem, false, &theKey);
        GetMenuItemModifiers(mMenu, theItem, &theModifiers);
        return std::string(1, theKey == 0 ? '-' : static_cast<char>(theKey)) + " " +
               std::to_string(theModifiers);
    }

    MenuRef mMenu = nullptr;
};

std::string Keyed(const std::string& theKey, const std::string& theModifiers = "")
{
    return "<string name=\"keyEquivalent\">" + theKey + "</string>" +
           (theModifiers.empty() ? "" : "<int name=\"keyEquivalentModifier\">" + theModifiers + "</int>");
}

} // namespace

TEST_F(NibMenus, HaveTheirTitleNumberAndItems)
{
    ASSERT_EQ(Make("<string name=\"title\">Edit</string><int name=\"menuID\">130</int>",
                   Item("<string name=\"title\">Cut</string><ostype name=\"command\">cut </ostype>") +
                       Item("<boolean name=\"separator\">TRUE</boolean>") +
                       Item("<string name=\"title\">Wrap</string><boolean name=\"checked\">TRUE</boolean>"
                            "<boolean name=\"disabled\">TRUE</boolean>")),
              noErr);
    EXPECT_EQ(Title(mMenu), "Edit");
    EXPECT_EQ(GetMenuID(mMenu), 130);
    ASSERT_EQ(CountMenuItems(mMenu), 3);
    EXPECT_EQ(ItemText(mMenu, 1), "Cut");
    MenuCommand theCommand = 0;
    EXPECT_EQ(GetMenuItemCommandID(mMenu, 1, &theCommand), noErr);
    EXPECT_EQ(theCommand, MenuCommand{'cut '});
    MenuItemAttributes theAttributes = 0;
    GetMenuItemAttributes(mMenu, 2, &theAttributes);
    EXPECT_EQ(theAttributes, MenuItemAttributes{kMenuItemAttrSeparator});
    EXPECT_FALSE(IsMenuItemEnabled(mMenu, 3));
    CharParameter theMark = 0;
    GetItemMark(mMenu, 3, &theMark);
    EXPECT_EQ(theMark, checkMark);
}

TEST_F(NibMenus, HaveKeysWithTheirModifiers)
{
    ASSERT_EQ(Make("", Item(Keyed("s")) + Item(Keyed("S")) + Item(Keyed("w", "1572864")) +
                           Item(Keyed("f", "1179648")) + Item(Keyed("t", "262144")) + Item(Keyed("0", "0")) +
                           Item("")),
              noErr);
    EXPECT_EQ(KeyOf(1), "S 0");
    EXPECT_EQ(KeyOf(2), "S 1");
    EXPECT_EQ(KeyOf(3), "W 2");
    EXPECT_EQ(KeyOf(4), "F 1");
    EXPECT_EQ(KeyOf(5), "T 12");
    EXPECT_EQ(KeyOf(6), "0 8");
    EXPECT_EQ(KeyOf(7), "- 0");
}

TEST_F(NibMenus, HaveEveryAttributeOfItems)
{
    const std::pair<const char*, MenuItemAttributes> kAttributes[] = {
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
    std::string theItems;
    for (const auto& theEntry : kAttributes) {
        theItems += Item("<boolean name=\"" + std::string(theEntry.first) + "\">TRUE</boolean>");
    }
    ASSERT_EQ(Make("", theItems), noErr);
    MenuItemIndex theItem = 0;
    for (const auto& theEntry : kAttributes) {
        MenuItemAttributes theAttributes = 0;
        GetMenuItemAttributes(mMenu, ++theItem, &theAttributes);
        EXPECT_EQ(theAttributes, theEntry.second) << theEntry.first;
    }
}

TEST_F(NibMenus, HoldSubmenusThatStandAnywhereInTheNib)
{
    ASSERT_EQ(Make("",
                   Item("<string name=\"title\">Font</string>"
                        "<reference name=\"submenu\" idRef=\"7\"/>") +
                       Item("<object name=\"submenu\" class=\"IBCarbonMenu\"/>"),
                   "<object class=\"IBCarbonMenu\" id=\"7\"><string name=\"title\">Fonts</string></object>"),
              noErr);
    MenuRef theFonts = nullptr;
    MenuRef theOther = nullptr;
    ASSERT_EQ(GetMenuItemHierarchicalMenu(mMenu, 1, &theFonts), noErr);
    ASSERT_EQ(GetMenuItemHierarchicalMenu(mMenu, 2, &theOther), noErr);
    EXPECT_EQ(Title(theFonts), "Fonts");
    EXPECT_EQ(GetMenuRetainCount(theFonts), 1u);
    EXPECT_NE(GetMenuID(theFonts), GetMenuID(theOther));
    EXPECT_NE(GetMenuID(theFonts), 0);
}

TEST_F(NibMenus, BecomeTheBarOfTheApplication)
{
    ASSERT_EQ(Make("<string name=\"name\">_NSMainMenu</string>",
                   Item("<object name=\"submenu\" class=\"IBCarbonMenu\"><string name=\"title\">\x14</string>"
                        "<int name=\"menuID\">129</int></object>")),
              noErr);
    ASSERT_EQ(SetMenuBarFromNib(mNib, CFSTR("It")), noErr);
    const MenuRef theRoot = AcquireRootMenu();
    EXPECT_EQ(CountMenuItems(theRoot), 1);
    EXPECT_EQ(GetMenuRetainCount(theRoot), 2u);
    ReleaseMenu(theRoot);
    ASSERT_NE(GetMenuHandle(129), nullptr);
    EXPECT_EQ(Title(GetMenuHandle(129)), "Application");
    ClearMenuBar();
}

TEST_F(NibMenus, ComeInABlockOfMemoryInTheOldForm)
{
    ASSERT_EQ(Make("<int name=\"menuID\">131</int>", ""), noErr);
    Handle theBar = nullptr;
    ASSERT_EQ(CreateMenuBarFromNib(mNib, CFSTR("It"), &theBar), noErr);
    ASSERT_EQ(GetHandleSize(theBar), static_cast<Size>(sizeof(MenuRef)));
    MenuRef theMenu = nullptr;
    memcpy(&theMenu, *theBar, sizeof theMenu);
    EXPECT_EQ(GetMenuID(theMenu), 131);
    ReleaseMenu(theMenu);
    DisposeHandle(theBar);
}

TEST_F(NibMenus, EndWithAStatusWhenOneHoldsItself)
{
    EXPECT_EQ(Make("", Item("<reference name=\"submenu\" idRef=\"1\"/>")), memFullErr);
    EXPECT_EQ(mMenu, nullptr);
    // Each of the menus holds the next one twice.
    std::string theOthers;
    for (int theNumber = 10; theNumber < 40; ++theNumber) {
        const std::string theItem =
            Item("<reference name=\"submenu\" idRef=\"" + std::to_string(theNumber + 1) + "\"/>");
        theOthers.append("<object class=\"IBCarbonMenu\" id=\"").append(std::to_string(theNumber));
        theOthers.append("\"><array name=\"items\">").append(theItem).append(theItem);
        theOthers.append("</array></object>");
    }
    EXPECT_EQ(Make("", Item("<reference name=\"submenu\" idRef=\"10\"/>"), theOthers), memFullErr);
}

TEST_F(NibMenus, AreMadeOfWhatHasAnotherTypeAsFarAsItMakesSense)
{
    ASSERT_EQ(Make("<array name=\"title\"/><string name=\"menuID\">99999999999999999999</string>",
                   Item("<int name=\"title\">7</int><boolean name=\"checked\">perhaps</boolean>"
                        "<int name=\"command\">1</int>") +
                       "<string>words</string><object class=\"Other\"/>"
                       "<reference idRef=\"nowhere\"/>"),
              noErr);
    EXPECT_EQ(Title(mMenu), "");
    ASSERT_EQ(CountMenuItems(mMenu), 1);
    EXPECT_EQ(ItemText(mMenu, 1), "7");
    MenuCommand theCommand = 0;
    GetMenuItemCommandID(mMenu, 1, &theCommand);
    EXPECT_EQ(theCommand, 1u);
}
