// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Texts between the forms that calls and presenters take: Pascal strings, strings and UTF-8.

#include "ManagerTestSupport.h"
#include "MenuTestSupport.h"

namespace {

using Text = ManagerTest;

using MenuText = MenuTest;

} // namespace

TEST_F(Text, TitlesComeAndGoAsPascalStrings)
{
    ControlRef theButton = NewPushButton();
    const unsigned char theNew[] = {4, 'C', 'a', 'f', 0x8E};
    Str255 theTitle;
    SetControlTitle(theButton, theNew);
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(std::string(theTitle + 1, theTitle + 1 + theTitle[0]), "Caf\x8E");
    SetControlTitleWithCFString(theButton, TestString("\xE4\xB8\xAD!"));
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(std::string(theTitle + 1, theTitle + 1 + theTitle[0]), "?!");
    SetControlTitleWithCFString(theButton, TestString(std::string(300, 'x').c_str()));
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(theTitle[0], 255);
    GetControlTitle(nullptr, theTitle);
    EXPECT_EQ(theTitle[0], 0);
    SetControlTitle(nullptr, theNew);
    SetControlTitle(theButton, nullptr);
    GetControlTitle(theButton, nullptr);
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(theTitle[0], 255);
}

TEST_F(MenuText, TextsAreReadAsPascalStringsUpTo255Characters)
{
    CFMutableStringRef theLong = NewMutableString(std::string(300, 'x').c_str());
    SetMenuItemTextWithCFString(mFile, 1, theLong);
    Str255 theText = {0};
    GetMenuItemText(mFile, 1, theText);
    EXPECT_EQ(PascalText(theText), std::string(255, 'x'));
    CFRelease(theLong);
    const unsigned char theNew[] = {3, 'N', 'e', 'w'};
    SetMenuItemText(mFile, 1, theNew);
    EXPECT_EQ(ItemText(mFile, 1), "New");
    GetMenuItemText(mFile, 9, theText);
    EXPECT_EQ(theText[0], 0);
}

TEST_F(MenuText, LoneHalvesOfCharactersReachAPresenterAsReplacements)
{
    const UniChar theUnits[] = {'a', 0xD83C, 'b', 0xDFB9, 0xD83C, 0xDFB9, 0xD83C};
    CFStringRef theText = CFStringCreateWithCharacters(nullptr, theUnits, 7);
    SetMenuItemTextWithCFString(mFile, 1, theText);
    EXPECT_EQ(BarLook().theMenus.at(0).theItems.at(0).theText, "a\xEF\xBF\xBD"
                                                               "b\xEF\xBF\xBD\xF0\x9F\x8E\xB9\xEF\xBF\xBD");
    CFRelease(theText);
}
