// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TestMenus.h"
#include "TestProgram.h"

#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>

namespace {

using Host::UserResult;

class UserSimulatorMenus : public testing::Test
{
protected:
    UserSimulatorMenus()
        : mMenuLog(mLog)
    {
    }

    // Menus of an earlier test do not stay open.
    ~UserSimulatorMenus() override { mUser.CloseMenus(); }

    Log Take()
    {
        Log theLog;
        theLog.swap(mLog);
        return theLog;
    }

    static void ExpectDone(const UserResult& theResult) { EXPECT_TRUE(theResult) << theResult.Explain(); }

    void ExpectRefusal(const UserResult& theResult, const std::string& theReason)
    {
        EXPECT_EQ(theResult.Reason(), theReason);
        EXPECT_EQ(theResult.Explain(), "Refused: " + theReason + ".\n" + mUser.DescribeScreen());
    }

    // Answers one event, by its name in the log.
    void AnswerTo(const std::string& theName, OSStatus theStatus)
    {
        mMenuLog.mAnswer = [theName, theStatus](const std::string& theEvent) {
            return theEvent == theName ? theStatus : OSStatus{eventNotHandledErr};
        };
    }

    // Does something at one event.
    void DoAt(const std::string& theName, const std::function<void()>& theDeed)
    {
        mMenuLog.mAnswer = [theName, theDeed](const std::string& theEvent) {
            if (theEvent == theName) {
                theDeed();
            }
            return OSStatus{eventNotHandledErr};
        };
    }

    TestMenus mMenus;
    Log mLog;
    MenuLog mMenuLog;
    Host::UserSimulator mUser;
};

TEST_F(UserSimulatorMenus, OpensAMenuAndLeavesItOpen)
{
    ExpectDone(mUser.OpenMenu("Heating"));
    EXPECT_EQ(Take(), (Log{"begin", "update heat", "update none", "update rset", "opening Heating"}));
    ExpectDone(mUser.CloseMenus());
    const Log theLog = Take();
    ASSERT_FALSE(theLog.empty());
    EXPECT_EQ(theLog.front(), "closed Heating");
}

TEST_F(UserSimulatorMenus, OpensASubmenuWithTheMenuThatHoldsIt)
{
    ExpectDone(mUser.OpenMenu("Units"));
    EXPECT_EQ(Take(), (Log{"begin", "update heat", "update none", "update rset", "opening Heating",
                           "update cels", "update fahr", "opening Units"}));
    ExpectDone(mUser.CloseMenus());
    const Log theLog = Take();
    ASSERT_GE(theLog.size(), 2u);
    EXPECT_EQ(Log(theLog.begin(), theLog.begin() + 2), (Log{"closed Units", "closed Heating"}));
}

TEST_F(UserSimulatorMenus, ClosesTheOpenMenuBeforeItOpensAnother)
{
    ExpectDone(mUser.OpenMenu("File"));
    Take();
    ExpectDone(mUser.OpenMenu("Heating"));
    EXPECT_EQ(Take().front(), "closed File");
}

TEST_F(UserSimulatorMenus, RefusesToCloseWhatIsNotOpen)
{
    ExpectRefusal(mUser.CloseMenus(), "no menu is open");
    EXPECT_EQ(Take(), Log());
}

TEST_F(UserSimulatorMenus, ChoosesACommand)
{
    ExpectDone(mUser.ChooseCommand('rset'));
    const Log theLog = Take();
    ASSERT_GE(theLog.size(), 6u);
    EXPECT_EQ(
        Log(theLog.begin(), theLog.begin() + 6),
        (Log{"begin", "update heat", "update none", "update rset", "opening Heating", "closed Heating"}));
    EXPECT_EQ(theLog.back(), "command rset");
}

TEST_F(UserSimulatorMenus, ChoosesACommandOfASubmenu)
{
    ExpectDone(mUser.ChooseCommand('fahr'));
    EXPECT_EQ(Take().back(), "command fahr");
}

TEST_F(UserSimulatorMenus, ChoosesAnItemByItsText)
{
    ExpectDone(mUser.ChooseItem("Units", "Celsius"));
    EXPECT_EQ(Take().back(), "command cels");
}

TEST_F(UserSimulatorMenus, ChoosesWithTheKeyboard)
{
    ExpectDone(mUser.PressKey(kVK_ANSI_R, cmdKey));
    EXPECT_EQ(Take().back(), "command rset");
}

TEST_F(UserSimulatorMenus, RefusesWhatNoMenuHas)
{
    ExpectRefusal(mUser.OpenMenu("Cooling"), "there is no menu \"Cooling\"");
    ExpectRefusal(mUser.ChooseCommand('cool'), "no menu has the command 'cool'");
    ExpectRefusal(mUser.ChooseItem("Cooling", "Reset"), "there is no menu \"Cooling\"");
    ExpectRefusal(mUser.ChooseItem("Heating", "Quit"), "the menu \"Heating\" has no item \"Quit\"");
    EXPECT_EQ(mUser.DescribeMenu("Cooling"), "");
    EXPECT_EQ(Take(), Log());
}

TEST_F(UserSimulatorMenus, RefusesADisabledItemAndClosesTheMenu)
{
    DisableMenuItem(mMenus.mHeating, 4);
    ExpectRefusal(mUser.ChooseCommand('rset'), "the command 'rset' is disabled");
    ExpectRefusal(mUser.ChooseItem("Heating", "Reset"), "the item \"Reset\" is disabled");
    ExpectRefusal(mUser.CloseMenus(), "no menu is open");
}

TEST_F(UserSimulatorMenus, ChoosesAnItemThatIsEnabledWhenTheMenuOpens)
{
    DisableMenuItem(mMenus.mHeating, 4);
    DoAt("update rset", [this] { EnableMenuItem(mMenus.mHeating, 4); });
    ExpectDone(mUser.ChooseCommand('rset'));
    EXPECT_EQ(Take().back(), "command rset");
}

TEST_F(UserSimulatorMenus, RefusesAnItemThatIsDisabledWhenTheMenuOpens)
{
    DoAt("update rset", [this] { DisableMenuItem(mMenus.mHeating, 4); });
    ExpectRefusal(mUser.ChooseCommand('rset'), "the command 'rset' is disabled");
}

TEST_F(UserSimulatorMenus, RefusesAnItemThatIsGoneWhenTheMenuOpens)
{
    DoAt("opening Heating", [this] { DeleteMenuItem(mMenus.mHeating, 4); });
    ExpectRefusal(mUser.ChooseCommand('rset'), "the command 'rset' is gone from the open menu");
}

TEST_F(UserSimulatorMenus, RefusesAMenuThatIsDisabled)
{
    DisableMenuItem(mMenus.mHeating, 0);
    ExpectRefusal(mUser.OpenMenu("Heating"), "the menu \"Heating\" is disabled");
    ExpectRefusal(mUser.ChooseCommand('rset'), "the menu \"Heating\" is disabled");
    EXPECT_EQ(Take(), Log());
}

TEST_F(UserSimulatorMenus, RefusesASubmenuWhoseItemIsDisabled)
{
    DisableMenuItem(mMenus.mHeating, 3);
    ExpectRefusal(mUser.OpenMenu("Units"), "the menu \"Units\" is disabled");
    ExpectRefusal(mUser.ChooseCommand('cels'), "the menu \"Units\" is disabled");
}

TEST_F(UserSimulatorMenus, RefusesAMenuThatTheProgramKeepsClosed)
{
    AnswerTo("opening Heating", userCanceledErr);
    ExpectRefusal(mUser.OpenMenu("Heating"), "the menu \"Heating\" does not open");
}

TEST_F(UserSimulatorMenus, RefusesASubmenuThatIsGoneWhenItsHolderOpens)
{
    DoAt("opening Heating", [this] { SetMenuItemHierarchicalMenu(mMenus.mHeating, 3, nullptr); });
    ExpectRefusal(mUser.OpenMenu("Units"), "the menu is gone");
}

TEST_F(UserSimulatorMenus, TellsWhatAMenuShows)
{
    EXPECT_EQ(mUser.DescribeMenu("Units"), "  Celsius\n  Fahrenheit\n");
    EXPECT_EQ(Take(), Log());
}

// A pop-up button with a menu of three items, of which the second is disabled.
struct TestPopUp
{
    TestPopUp()
    {
        CreateNewMenu(150, 0, &mMenu);
        for (CFStringRef theText : {CFSTR("Low"), CFSTR("Middle"), CFSTR("High")}) {
            AppendMenuItemTextWithCFString(mMenu, theText, 0, 0, nullptr);
        }
        DisableMenuItem(mMenu, 2);
        const Rect theBounds = MakeRect(120, 100, 300, 120);
        CreatePopupButtonControl(mProgram.mWindow.Get(), &theBounds, CFSTR("Level:"), -12345, true, -1, 0, 0,
                                 &mControl);
        SetControlPopupMenuHandle(mControl, mMenu);
        TestProgram::Name(mControl, 'lvel');
    }
    ~TestPopUp() { DisposeMenu(mMenu); }
    TestPopUp(const TestPopUp&) = delete;
    TestPopUp& operator=(const TestPopUp&) = delete;

    TestProgram mProgram;
    MenuRef mMenu = nullptr;
    ControlRef mControl = nullptr;
};

TEST_F(UserSimulatorMenus, ChoosesInAPopUp)
{
    const TestPopUp thePopUp;
    ExpectDone(mUser.ChooseInPopUp(thePopUp.mControl, "High"));
    EXPECT_EQ(GetControl32BitValue(thePopUp.mControl), 3);
    EXPECT_EQ(mUser.DescribeControl(thePopUp.mControl),
              "Level: [ High ▾ ]                         pop-up button 'lvel' 1");
}

TEST_F(UserSimulatorMenus, RefusesWhatAPopUpDoesNotOffer)
{
    const TestPopUp thePopUp;
    ExpectRefusal(mUser.ChooseInPopUp(thePopUp.mControl, "Middle"), "the item \"Middle\" is disabled");
    ExpectRefusal(mUser.ChooseInPopUp(thePopUp.mControl, "Highest"),
                  "the item \"Highest\" is not in the menu");
    ExpectRefusal(mUser.ChooseInPopUp(thePopUp.mProgram.mCheckBox, "High"), "no menu pops up");
    DisableControl(thePopUp.mControl);
    ExpectRefusal(mUser.ChooseInPopUp(thePopUp.mControl, "High"), "the pop-up button 'lvel' 1 is disabled");
    EXPECT_EQ(GetControl32BitValue(thePopUp.mControl), 1);
}

TEST_F(UserSimulatorMenus, ClosesAPopUpThatAClickOpens)
{
    const TestPopUp thePopUp;
    ExpectDone(mUser.ClickPart(thePopUp.mControl, kControlMenuPart));
    EXPECT_EQ(GetControl32BitValue(thePopUp.mControl), 1);
}

} // namespace
