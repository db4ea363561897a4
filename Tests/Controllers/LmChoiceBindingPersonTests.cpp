// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a person does to a choice with mouse and keyboard.

#include "ChoiceTestSupport.h"
#include "ControllersTestSupport.h"

#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>
#include <vector>

namespace {

class LmChoiceBindingPersonTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mWindow = MakeChoiceWindow();
        CreateNewMenu(200, 0, &mMenu);
        FillMenu(mMenu, std::vector<MenuEntry>{{CFSTR("Euro"), 1}, {CFSTR("Franc"), 2}, {CFSTR("Pound"), 3}});
        mPopUp = MakePopUp(mWindow, mMenu);
        mModel.SetKeyPathValue("currency", LmValue(2));
    }
    void TearDown() override { DisposeWindow(mWindow); }

    WindowRef mWindow = nullptr;
    MenuRef mMenu = nullptr;
    ControlRef mPopUp = nullptr;
    LmKeyValueBinding mModel;
    Host::UserSimulator mUser;
};

} // namespace

TEST_F(LmChoiceBindingPersonTest, ChoosesInAPopUpButton)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.Bind("tag", &mModel, "currency", nullptr, nullptr);
    EXPECT_EQ(Selected(theChoice), "1 2 Franc");
    EXPECT_TRUE(mUser.ChooseInPopUp(mPopUp, "Pound"));
    EXPECT_EQ(Selected(theChoice), "2 3 Pound");
    EXPECT_EQ(Read(mModel, "currency"), "SInt32 3");
}

TEST_F(LmChoiceBindingPersonTest, GoesThroughThePopUpButtonWithArrowKeys)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.Bind("tag", &mModel, "currency", nullptr, nullptr);
    SetKeyboardFocus(mWindow, mPopUp, kControlMenuPart);
    mUser.PressKey(kVK_UpArrow);
    EXPECT_EQ(Read(mModel, "currency"), "SInt32 1");
    mModel.SetKeyPathValue("currency", LmValue(9));
    EXPECT_EQ(GetControl32BitValue(mPopUp), 0);
    mUser.PressKey(kVK_DownArrow);
    EXPECT_EQ(Selected(theChoice), "0 1 Euro");
}

TEST_F(LmChoiceBindingPersonTest, ChoosesAnItemThatComesWhenTheMenuOpens)
{
    LmChoiceBinding theChoice(mPopUp);
    const EventTypeSpec theType = {kEventClassMenu, kEventMenuOpening};
    InstallEventHandler(
        GetMenuEventTarget(mMenu),
        [](EventHandlerCallRef, EventRef, void* theMenu) -> OSStatus {
            AppendMenuItemTextWithCFString(static_cast<MenuRef>(theMenu), CFSTR("Yen"), 0, 4, nullptr);
            return eventNotHandledErr;
        },
        1, &theType, mMenu, nullptr);
    EXPECT_TRUE(mUser.ChooseInPopUp(mPopUp, "Yen"));
    EXPECT_EQ(Selected(theChoice), "3 4 Yen");
    EXPECT_EQ(Titles(theChoice), "Euro, Franc, Pound, Yen");
}
