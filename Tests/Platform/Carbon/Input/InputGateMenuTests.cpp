// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TestMenus.h"

#include <gtest/gtest.h>

namespace {

using Host::MenuLook;
using Host::ObjectId;
using Host::PresenterRegistry;

class InputGateMenus : public testing::Test
{
protected:
    InputGateMenus()
        : mMenuLog(mLog)
    {
    }

    static ObjectId MenuCalled(const std::string& theTitle)
    {
        const Screen theScreen;
        for (const MenuLook& theMenu : theScreen.MenuBar().theMenus) {
            if (theMenu.theTitle == theTitle) {
                return theMenu.theId;
            }
        }
        return Host::kNoObject;
    }

    static Host::PresenterEvents& Gate() { return PresenterRegistry::Events(); }

    Log Take()
    {
        Log theLog;
        theLog.swap(mLog);
        return theLog;
    }

    TestMenus mMenus;
    Log mLog;
    MenuLog mMenuLog;
};

TEST_F(InputGateMenus, ShowTheBar)
{
    const Screen theScreen;
    EXPECT_EQ(theScreen.DescribeScreen(), "Menu bar: File | Heating\n");
    EXPECT_EQ(Host::HeadlessSnapshot::DescribeMenu(theScreen.MenuBar().theMenus.at(1)),
              "✓ Heating On\n"
              "  ────────────────────\n"
              "  Units ▸\n"
              "  Reset               ⌘R\n");
}

TEST_F(InputGateMenus, BringItemsUpToDateWhenTheyOpen)
{
    EXPECT_TRUE(Gate().MenuOpened(MenuCalled("File")));
    EXPECT_EQ(Take(), (Log{"begin", "update quit", "opening File"}));
    EXPECT_FALSE(Gate().MenuOpened(MenuCalled("File")));
    EXPECT_TRUE(Gate().MenuClosed(MenuCalled("File")));
    EXPECT_FALSE(Gate().MenuClosed(MenuCalled("File")));
}

TEST_F(InputGateMenus, CloseBeforeTheCommandOfTheChoiceIsSent)
{
    Gate().MenuOpened(MenuCalled("Heating"));
    Take();
    EXPECT_TRUE(Gate().MenuChosen({MenuCalled("Heating"), 4}, 0));
    const Log theLog = Take();
    ASSERT_GE(theLog.size(), 2u);
    EXPECT_EQ(theLog.front(), "closed Heating");
    EXPECT_EQ(theLog.back(), "command rset");
}

TEST_F(InputGateMenus, TellOfAChoiceFromAMenuThatIsNotOpen)
{
    EXPECT_TRUE(Gate().MenuChosen({MenuCalled("Heating"), 4}, 0));
    EXPECT_EQ(Take(), Log{"command rset"});
}

TEST_F(InputGateMenus, DropChoicesThatAreNone)
{
    const ObjectId theMenu = MenuCalled("Heating");
    DisableMenuItem(mMenus.mHeating, 1);
    for (const int theItem : {-1, 0, 1, 2, 3, 5, 65536 + 4, 2147483647}) {
        EXPECT_FALSE(Gate().MenuChosen({theMenu, theItem}, 0)) << theItem;
    }
    EXPECT_FALSE(Gate().MenuChosen({0x7FFFFFFF, 4}, 0));
    EXPECT_FALSE(Gate().MenuOpened(0x7FFFFFFF));
    EXPECT_FALSE(Gate().MenuClosed(0x7FFFFFFF));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGateMenus, MatchCommandKeys)
{
    const Host::KeyAction theKey = {kVK_ANSI_R, "r", cmdKey};
    EXPECT_TRUE(Gate().KeyPressed(theKey));
    EXPECT_TRUE(Gate().WasTaken());
    EXPECT_TRUE(Gate().KeyReleased(theKey));
    EXPECT_EQ(Take().back(), "command rset");
}

TEST_F(InputGateMenus, ArePartOfThePictureForThePresenterThatComesNext)
{
    auto theFirst = std::make_unique<Host::HeadlessSnapshot>();
    const Host::HeadlessSnapshot* theScreen = theFirst.get();
    ASSERT_TRUE(PresenterRegistry::Use(std::move(theFirst)));
    EXPECT_EQ(theScreen->DescribeScreen(), "Menu bar: File | Heating\n");
}

} // namespace
