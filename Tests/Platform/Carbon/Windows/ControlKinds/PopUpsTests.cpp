// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Pop-up buttons and their menus.

#include "ManagerTestSupport.h"

namespace {

class PopUps : public ControlKindTest
{
protected:
    PopUps()
    {
        CreateNewMenu(140, 0, &mMenu);
        for (const char* theText : {"Celsius", "Fahrenheit", "Kelvin"}) {
            AppendMenuItemTextWithCFString(mMenu, TestString(theText), 0, 0, nullptr);
        }
        InsertMenu(mMenu, kInsertHierarchicalMenu);
    }

    ~PopUps() override
    {
        if (mMenu != nullptr) {
            DeleteMenu(140);
            DisposeMenu(mMenu);
        }
    }

    ControlRef NewPopUp(MenuID theMenu = 140, SInt16 theTitleWidth = -1, bool theIsFitted = false,
                        const char* theTitle = "Unit:")
    {
        const Rect theBounds = MakeRect(20, 200, 220, 220);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreatePopupButtonControl(mWindow, &theBounds, TestString(theTitle), theMenu, theIsFitted,
                                           theTitleWidth, teFlushRight, normal, &theControl),
                  noErr);
        return theControl;
    }

    static MenuRef MenuOf(ControlRef theControl, ResType theTag = kControlPopupButtonMenuRefTag)
    {
        MenuRef theMenu = InventedReference<MenuRef>();
        EXPECT_EQ(GetControlData(theControl, 0, theTag, sizeof theMenu, &theMenu, nullptr), noErr);
        return theMenu;
    }

    static OSErr SetMenu(ControlRef theControl, MenuRef theMenu,
                         ResType theTag = kControlPopupButtonMenuRefTag)
    {
        return SetControlData(theControl, 0, theTag, sizeof theMenu, &theMenu);
    }

    // Chooses an item of the menu that pops up, and notes what menu it was.
    Host::MenuChoice Choose(const Host::PopUpLook& theLook, int theItem)
    {
        mPoppedUp.push_back(theLook);
        return {theLook.theMenu.theId, theItem};
    }

    std::vector<Host::PopUpLook> mPoppedUp;
    MenuRef mMenu = nullptr;
};

std::string MarksOf(MenuRef theMenu)
{
    std::string theMarks;
    for (MenuItemIndex theItem = 1; theItem <= CountMenuItems(theMenu); ++theItem) {
        CharParameter theMark = noMark;
        GetItemMark(theMenu, theItem, &theMark);
        theMarks += theMark == CharParameter(checkMark) ? 'x' : theMark == CharParameter(noMark) ? '-' : '?';
    }
    return theMarks;
}

} // namespace

TEST_F(PopUps, AMenuOfTheListGivesRangeValueAndText)
{
    ControlRef thePopUp = NewPopUp();
    EXPECT_EQ(GetControl32BitValue(thePopUp), 1);
    EXPECT_EQ(GetControl32BitMinimum(thePopUp), 1);
    EXPECT_EQ(GetControl32BitMaximum(thePopUp), 3);
    EXPECT_EQ(MenuOf(thePopUp), mMenu);
    EXPECT_EQ(GetControlPopupMenuHandle(thePopUp), mMenu);
    EXPECT_EQ(LookOf(thePopUp).theText, "Celsius");
    SetControl32BitValue(thePopUp, 3);
    EXPECT_EQ(LookOf(thePopUp).theText, "Kelvin");
}

TEST_F(PopUps, AMenuThatIsNotInTheListIsRefused)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(CreatePopupButtonControl(mWindow, &theBounds, nullptr, 77, false, 0, 0, normal, &theControl),
              paramErr);
    EXPECT_EQ(theControl, nullptr);
    EXPECT_EQ(CreatePopupButtonControl(mWindow, &theBounds, nullptr, 77, false, 0, 0, normal, nullptr),
              paramErr);
}

TEST_F(PopUps, AMenuMayComeLaterAndGoAgain)
{
    ControlRef thePopUp = NewPopUp(-12345);
    EXPECT_EQ(MenuOf(thePopUp), nullptr);
    EXPECT_EQ(LookOf(thePopUp).theText, "");
    Watch(thePopUp, "pop-up", kWithoutHilite);
    EXPECT_EQ(SetMenu(thePopUp, mMenu), noErr);
    EXPECT_EQ(TakeLog(), Log{"pop-up: ValueFieldChanged"});
    EXPECT_EQ(GetControl32BitMaximum(thePopUp), 3);
    EXPECT_EQ(LookOf(thePopUp).theText, "Celsius");
    SetControlPopupMenuHandle(thePopUp, nullptr);
    EXPECT_EQ(MenuOf(thePopUp), nullptr);
    EXPECT_EQ(GetControl32BitMaximum(thePopUp), 0);
    EXPECT_EQ(SetMenu(thePopUp, InventedReference<MenuRef>()), paramErr);
    EXPECT_EQ(SetControlData(thePopUp, 0, kControlPopupButtonMenuRefTag, 1, "a"), errDataSizeMismatch);
}

TEST_F(PopUps, AMenuIsFoundByItsNumber)
{
    ControlRef thePopUp = NewPopUp(-12345);
    MenuID theID = 140;
    EXPECT_EQ(SetControlData(thePopUp, 0, kControlPopupButtonMenuIDTag, sizeof theID, &theID), noErr);
    EXPECT_EQ(MenuOf(thePopUp), mMenu);
    theID = 0;
    EXPECT_EQ(GetControlData(thePopUp, 0, kControlPopupButtonMenuIDTag, sizeof theID, &theID, nullptr),
              noErr);
    EXPECT_EQ(theID, 140);
    theID = 77;
    EXPECT_EQ(SetControlData(thePopUp, 0, kControlPopupButtonMenuIDTag, sizeof theID, &theID), paramErr);
    EXPECT_EQ(MenuOf(thePopUp), mMenu);
}

TEST_F(PopUps, AMenuThatIsOwnedGoesWithTheControlAndOneThatIsNotStays)
{
    ControlRef theOwner = NewPopUp(-12345);
    MenuRef theOwned = nullptr;
    CreateNewMenu(141, 0, &theOwned);
    EXPECT_EQ(SetMenu(theOwner, theOwned, kControlPopupButtonOwnedMenuRefTag), noErr);
    EXPECT_EQ(GetMenuRetainCount(theOwned), 1u);
    EXPECT_EQ(MenuOf(theOwner, kControlPopupButtonOwnedMenuRefTag), theOwned);
    DisposeControl(theOwner);
    EXPECT_FALSE(IsValidMenu(theOwned));

    ControlRef theUser = NewPopUp();
    EXPECT_EQ(GetMenuRetainCount(mMenu), 2u); // the test's and the menu list's
    DisposeControl(theUser);
    EXPECT_TRUE(IsValidMenu(mMenu));
}

TEST_F(PopUps, AnOwnedMenuIsReleasedWhenAnotherOneComes)
{
    ControlRef thePopUp = NewPopUp(-12345);
    MenuRef theOwned = nullptr;
    CreateNewMenu(141, 0, &theOwned);
    SetMenu(thePopUp, theOwned, kControlPopupButtonOwnedMenuRefTag);
    EXPECT_EQ(SetMenu(thePopUp, mMenu), noErr);
    EXPECT_FALSE(IsValidMenu(theOwned));
}

TEST_F(PopUps, AMenuThatIsGoneIsShownNoMore)
{
    ControlRef thePopUp = NewPopUp();
    DeleteMenu(140);
    DisposeMenu(mMenu);
    mMenu = nullptr;
    EXPECT_EQ(MenuOf(thePopUp), nullptr);
    EXPECT_EQ(LookOf(thePopUp).theText, "");
    const Host::PopUpAnswer theAnswer([this](const Host::PopUpLook& theLook) { return Choose(theLook, 1); });
    Click(100, 210);
    EXPECT_EQ(mPoppedUp.size(), 0u);
}

TEST_F(PopUps, AChoiceSetsTheValueThenSendsTheItemsCommandThenTheHit)
{
    ControlRef thePopUp = NewPopUp();
    SetMenuItemCommandID(mMenu, 2, 'fahr');
    SetControlCommandID(thePopUp, 'unit');
    Watch(thePopUp, "pop-up", kWithoutHilite, [this](EventRef theEvent) {
        if (GetEventClass(theEvent) == kEventClassControl && GetEventKind(theEvent) == kEventControlHit) {
            ControlPartCode thePart = 0;
            GetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, nullptr, sizeof thePart,
                              nullptr, &thePart);
            mLog.push_back("part " + std::to_string(thePart));
        }
        return OSStatus{eventNotHandledErr};
    });
    Watch(mWindow, "window", {{kEventClassCommand, kEventCommandProcess}},
          [this, thePopUp](EventRef theEvent) {
              HICommand theCommand = {};
              GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand,
                                nullptr, &theCommand);
              mLog.push_back(theCommand.commandID == 'fahr'
                                 ? "the item's, value " + std::to_string(GetControl32BitValue(thePopUp))
                                 : "the control's");
              return OSStatus{noErr};
          });
    {
        const Host::PopUpAnswer theAnswer(
            [this](const Host::PopUpLook& theLook) { return Choose(theLook, 2); });
        Click(100, 210);
    }
    EXPECT_EQ(TakeLog(), (Log{"pop-up: ValueFieldChanged", "window: CommandProcess", "the item's, value 2",
                              "pop-up: Hit", "part 2", "pop-up: CommandProcess", "window: CommandProcess",
                              "the control's"}));
    EXPECT_EQ(GetControl32BitValue(thePopUp), 2);
}

TEST_F(PopUps, TheMenuOpensOverTheButtonAtTheCurrentItemWhichIsChecked)
{
    ControlRef thePopUp = NewPopUp(140, 50);
    SetControl32BitValue(thePopUp, 2);
    const Host::PopUpAnswer theAnswer([this](const Host::PopUpLook& theLook) {
        mLog.push_back(MarksOf(mMenu));
        return Choose(theLook, 3);
    });
    Click(100, 210);
    Click(100, 210);
    ASSERT_EQ(mPoppedUp.size(), 2u);
    EXPECT_EQ(mPoppedUp[0].theItem, 2);
    EXPECT_EQ(mPoppedUp[0].thePlace.theX, 100 + 20 + 50);
    EXPECT_EQ(mPoppedUp[0].thePlace.theY, 100 + 200);
    EXPECT_EQ(mPoppedUp[1].theItem, 3);
    EXPECT_EQ(TakeLog(), (Log{"-x-", "--x"}));
}

TEST_F(PopUps, WithoutTheCheckTagNoItemIsMarked)
{
    ControlRef thePopUp = NewPopUp();
    CheckFlag(thePopUp, kControlPopupButtonCheckCurrentTag, true);
    const Host::PopUpAnswer theAnswer([this](const Host::PopUpLook& theLook) { return Choose(theLook, 0); });
    Click(100, 210);
    EXPECT_EQ(mPoppedUp.size(), 1u);
    EXPECT_EQ(MarksOf(mMenu), "---");
}

TEST_F(PopUps, WithoutAChoiceNothingIsTold)
{
    ControlRef thePopUp = NewPopUp();
    DisableMenuItem(mMenu, 2);
    Watch(thePopUp, "pop-up", kWithoutHilite);
    for (const int theItem : {0, 2, 9}) {
        const Host::PopUpAnswer theAnswer(
            [this, theItem](const Host::PopUpLook& theLook) { return Choose(theLook, theItem); });
        Click(100, 210);
    }
    EXPECT_EQ(mPoppedUp.size(), 3u);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(PopUps, AnItemThatCameAfterTheRangeCanBeChosen)
{
    ControlRef thePopUp = NewPopUp();
    AppendMenuItemTextWithCFString(mMenu, CFSTR("Rankine"), 0, 0, nullptr);
    const Host::PopUpAnswer theAnswer([this](const Host::PopUpLook& theLook) { return Choose(theLook, 4); });
    Click(100, 210);
    EXPECT_EQ(GetControl32BitValue(thePopUp), 4);
    EXPECT_EQ(GetControl32BitMaximum(thePopUp), 4);
}

TEST_F(PopUps, ControlAndMenuMayGoWhileTheMenuIsOpen)
{
    ControlRef thePopUp = NewPopUp();
    Host::PopUpAnswer theAnswer([&](const Host::PopUpLook& theLook) {
        DisposeControl(thePopUp);
        return Choose(theLook, 2);
    });
    Click(100, 210);
    EXPECT_FALSE(IsValidControlHandle(thePopUp));

    thePopUp = NewPopUp();
    const Host::PopUpAnswer theOther([&](const Host::PopUpLook& theLook) {
        DeleteMenu(140);
        DisposeMenu(mMenu);
        mMenu = nullptr;
        return Choose(theLook, 2);
    });
    Click(100, 210);
    EXPECT_EQ(GetControl32BitValue(thePopUp), 1);
}

TEST_F(PopUps, TheArrowsChooseAndTheSpaceBarOpens)
{
    ControlRef thePopUp = NewPopUp();
    DisableMenuItem(mMenu, 2);
    EXPECT_EQ(SetKeyboardFocus(mWindow, thePopUp, kControlFocusNextPart), noErr);
    Watch(thePopUp, "pop-up", kWithoutHilite);
    Key(kVK_DownArrow);
    EXPECT_EQ(GetControl32BitValue(thePopUp), 3);
    EXPECT_EQ(TakeLog(), (Log{"pop-up: ValueFieldChanged", "pop-up: CommandProcess", "pop-up: Hit"}));
    Key(kVK_DownArrow);
    EXPECT_EQ(GetControl32BitValue(thePopUp), 3);
    EXPECT_EQ(TakeLog(), Log{});
    Key(kVK_UpArrow);
    EXPECT_EQ(GetControl32BitValue(thePopUp), 1);
    TakeLog();
    const Host::PopUpAnswer theAnswer([this](const Host::PopUpLook& theLook) { return Choose(theLook, 3); });
    Key(kVK_Space, " ");
    EXPECT_EQ(GetControl32BitValue(thePopUp), 3);
    EXPECT_EQ(TakeLog(), (Log{"pop-up: ValueFieldChanged", "pop-up: CommandProcess", "pop-up: Hit"}));
}

TEST_F(PopUps, TheTitleHasTheWidthThatItIsGiven)
{
    EXPECT_EQ(LookOf(NewPopUp(140, 60)).theTitleWidth, 60);
    EXPECT_EQ(LookOf(NewPopUp(140, 0)).theTitleWidth, 0);
    EXPECT_EQ(LookOf(NewPopUp(140, 999)).theTitleWidth, 200);
    EXPECT_EQ(LookOf(NewPopUp(140, -1)).theTitleWidth, 5 * 7 + 8);
    EXPECT_EQ(LookOf(NewPopUp(140, -1, false, "")).theTitleWidth, 0);
    EXPECT_EQ(LookOf(NewPopUp()).theTitle, "Unit:");
    EXPECT_EQ(LookOf(NewPopUp()).theAlignment, Host::TextAlignment::kRight);
}

TEST_F(PopUps, AButtonOfVariableWidthIsAsWideAsWhatItShows)
{
    ControlRef thePopUp = NewPopUp(140, 0, true);
    EXPECT_EQ(LookOf(thePopUp).theBounds.theRight, 20 + 7 * 7 + 40);
    SetControl32BitValue(thePopUp, 2);
    EXPECT_EQ(LookOf(thePopUp).theBounds.theRight, 20 + 10 * 7 + 40);
    EXPECT_EQ(TestControl(thePopUp, Point{210, 100}), kControlMenuPart);
    EXPECT_EQ(TestControl(thePopUp, Point{210, 215}), kControlNoPart);
}

TEST_F(PopUps, AChangedTextIsShownWhenTheLoopTurns)
{
    class TextReader : public Host::Presenter
    {
    public:
        void ControlLooks(const Host::ControlLook& theLook) override { mText = theLook.theText; }
        std::string mText;
    };
    auto theReader = std::make_unique<TextReader>();
    TextReader& theScreen = *theReader;
    NewPopUp();
    ASSERT_TRUE(Host::PresenterRegistry::Use(std::move(theReader)));
    SetMenuItemTextWithCFString(mMenu, 1, CFSTR("centigrade"));
    RunCurrentEventLoop(0);
    EXPECT_EQ(theScreen.mText, "centigrade");
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
}

TEST_F(PopUps, TheExtraHeightIsKept)
{
    ControlRef thePopUp = NewPopUp();
    SInt16 theHeight = 5;
    EXPECT_EQ(SetControlData(thePopUp, 0, kControlPopupButtonExtraHeightTag, sizeof theHeight, &theHeight),
              noErr);
    theHeight = 0;
    EXPECT_EQ(
        GetControlData(thePopUp, 0, kControlPopupButtonExtraHeightTag, sizeof theHeight, &theHeight, nullptr),
        noErr);
    EXPECT_EQ(theHeight, 5);
}

// Arrows -------------------------------------------------------------------------------------------------

TEST_F(PopUps, AnArrowPointsAndDoesNothing)
{
    const struct
    {
        ControlPopupArrowOrientation theOrientation;
        Host::ArrowDirection theDirection;
    } kRows[] = {{kControlPopupArrowOrientationEast, Host::ArrowDirection::kRight},
                 {kControlPopupArrowOrientationWest, Host::ArrowDirection::kLeft},
                 {kControlPopupArrowOrientationNorth, Host::ArrowDirection::kUp},
                 {kControlPopupArrowOrientationSouth, Host::ArrowDirection::kDown}};
    const Rect theBounds = MakeRect(20, 200, 36, 216);
    ControlRef theArrow = nullptr;
    for (const auto& theRow : kRows) {
        EXPECT_EQ(CreatePopupArrowControl(mWindow, &theBounds, theRow.theOrientation,
                                          kControlPopupArrowSizeSmall, &theArrow),
                  noErr);
        EXPECT_EQ(LookOf(theArrow).Rare().theArrow, theRow.theDirection);
        EXPECT_EQ(TestControl(theArrow, Point{210, 30}), kControlNoPart);
        EXPECT_EQ(SetKeyboardFocus(mWindow, theArrow, kControlFocusNextPart), errCouldntSetFocus);
    }
    EXPECT_EQ(CreatePopupArrowControl(mWindow, &theBounds, 4, 0, &theArrow), paramErr);
    EXPECT_EQ(theArrow, nullptr);
    EXPECT_EQ(CreatePopupArrowControl(mWindow, &theBounds, 0, 2, &theArrow), paramErr);
}
