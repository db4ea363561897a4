// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Bevel and round buttons.

#include "ManagerTestSupport.h"

#include <type_traits>

namespace {

static_assert(sizeof(ControlButtonContentInfo) == 2 + sizeof(void*), "packed, as on the platform");
static_assert(std::is_same_v<decltype(ControlButtonContentInfo::contentType), SInt16>);

class BevelButtons : public ControlKindTest
{
protected:
    BevelButtons()
    {
        CreateNewMenu(140, 0, &mMenu);
        for (const char* theText : {"Left", "Centre", "Right"}) {
            AppendMenuItemTextWithCFString(mMenu, TestString(theText), 0, 0, nullptr);
        }
        InsertMenu(mMenu, kInsertHierarchicalMenu);
    }

    ~BevelButtons() override
    {
        DeleteMenu(140);
        DisposeMenu(mMenu);
    }

    ControlRef NewBevel(UInt16 theBehavior, MenuID theMenu = 0, UInt16 theMenuBehavior = 0)
    {
        const Rect theBounds = MakeRect(20, 200, 120, 230);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateBevelButtonControl(mWindow, &theBounds, CFSTR("Align"),
                                           kControlBevelButtonNormalBevel, theBehavior, nullptr, theMenu,
                                           theMenuBehavior, kControlBevelButtonMenuOnBottom, &theControl),
                  noErr);
        return theControl;
    }

    // Clicks the button while the person chooses an item of whatever pops up.
    void ClickAndChoose(int theItem)
    {
        const Host::PopUpAnswer theAnswer([&](const Host::PopUpLook& theLook) {
            mPlace = theLook.thePlace;
            return Host::MenuChoice{theLook.theMenu.theId, theItem};
        });
        Click(70, 215);
    }

    std::string Marks()
    {
        std::string theMarks;
        for (MenuItemIndex theItem = 1; theItem <= CountMenuItems(mMenu); ++theItem) {
            CharParameter theMark = noMark;
            GetItemMark(mMenu, theItem, &theMark);
            theMarks += theMark == CharParameter(checkMark) ? 'x' : '-';
        }
        return theMarks;
    }

    static MenuItemIndex MenuValue(ControlRef theControl)
    {
        MenuItemIndex theValue = 99;
        EXPECT_EQ(GetBevelButtonMenuValue(theControl, &theValue), noErr);
        return theValue;
    }

    MenuRef mMenu = nullptr;
    Host::PixelPoint mPlace;
};

} // namespace

TEST_F(BevelButtons, AClickChangesTheValueAsTheBehaviorSays)
{
    ControlRef thePush = NewBevel(kControlBehaviorPushbutton);
    Watch(thePush, "push", kWithoutHilite);
    Click(70, 215);
    EXPECT_EQ(TakeLog(), Log{"push: Hit"});
    EXPECT_EQ(GetControl32BitValue(thePush), 0);
    DisposeControl(thePush);

    ControlRef theToggle = NewBevel(kControlBehaviorToggles | kControlBehaviorOffsetContents);
    Watch(theToggle, "toggle", kWithoutHilite);
    Click(70, 215);
    EXPECT_EQ(GetControl32BitValue(theToggle), 1);
    Click(70, 215);
    EXPECT_EQ(GetControl32BitValue(theToggle), 0);
    const Log theClick = {"toggle: ValueFieldChanged", "toggle: Hit"};
    EXPECT_EQ(TakeLog(), (Log{theClick[0], theClick[1], theClick[0], theClick[1]}));
    DisposeControl(theToggle);

    ControlRef theSticky = NewBevel(kControlBehaviorSticky);
    Click(70, 215);
    Click(70, 215);
    EXPECT_EQ(GetControl32BitValue(theSticky), 1);
    EXPECT_EQ(TestControl(theSticky, Point{215, 70}), kControlButtonPart);
}

TEST_F(BevelButtons, TheSpaceBarPressesAsAClickDoes)
{
    ControlRef theToggle = NewBevel(kControlBehaviorToggles);
    SetKeyboardFocus(mWindow, theToggle, kControlFocusNextPart);
    EXPECT_EQ(Focus(), theToggle);
    Key(kVK_Space, " ");
    EXPECT_EQ(GetControl32BitValue(theToggle), 1);
}

TEST_F(BevelButtons, AreChoicesOfARadioGroup)
{
    const Rect theBounds = MakeRect(10, 190, 300, 240);
    ControlRef theGroup = nullptr;
    CreateRadioGroupControl(mWindow, &theBounds, &theGroup);
    ControlRef theFirst = NewBevel(kControlBehaviorPushbutton);
    ControlRef theSecond = NewBevel(kControlBehaviorToggles);
    MoveControl(theFirst, 140, 200);
    EmbedControl(theFirst, theGroup);
    EmbedControl(theSecond, theGroup);
    Click(70, 215);
    EXPECT_EQ(GetControl32BitValue(theGroup), 2);
    Click(70, 215);
    EXPECT_EQ(GetControl32BitValue(theSecond), 1) << "a choice is not taken back by a click on it";
    Click(190, 215);
    EXPECT_EQ(GetControl32BitValue(theGroup), 1);
    EXPECT_EQ(GetControl32BitValue(theSecond), 0);
}

TEST_F(BevelButtons, AMenuOpensBelowAndSetsTheMenuValueBeforeTheHit)
{
    ControlRef theButton = NewBevel(kControlBehaviorPushbutton, 140);
    SetMenuItemCommandID(mMenu, 2, 'cent');
    EXPECT_EQ(MenuValue(theButton), 0);
    Watch(theButton, "button", kWithoutHilite);
    Watch(mWindow, "window", {{kEventClassCommand, kEventCommandProcess}}, [&](EventRef) {
        mLog.push_back("value " + std::to_string(MenuValue(theButton)));
        return OSStatus{noErr};
    });
    ClickAndChoose(2);
    EXPECT_EQ(TakeLog(), (Log{"window: CommandProcess", "value 2", "button: Hit"}));
    EXPECT_EQ(mPlace.theX, 100 + 20);
    EXPECT_EQ(mPlace.theY, 100 + 230);
    EXPECT_EQ(TestControl(theButton, Point{215, 70}), kControlMenuPart);
    SInt16 theLast = 0;
    GetControlData(theButton, 0, kControlBevelButtonLastMenuTag, sizeof theLast, &theLast, nullptr);
    EXPECT_EQ(theLast, 140);
    ClickAndChoose(0);
    EXPECT_EQ(TakeLog(), Log()) << "nothing was chosen, and nothing hit";
}

TEST_F(BevelButtons, AMenuMarksItsItemsAsItsBehaviorSays)
{
    ControlRef theSingle = NewBevel(0, 140, kControlBehaviorSingleValueMenu);
    ClickAndChoose(1);
    ClickAndChoose(3);
    EXPECT_EQ(Marks(), "--x");
    EXPECT_EQ(SetBevelButtonMenuValue(theSingle, 2), noErr);
    EXPECT_EQ(Marks(), "-x-");
    EXPECT_EQ(SetBevelButtonMenuValue(theSingle, 0), noErr);
    EXPECT_EQ(Marks(), "---");
    EXPECT_EQ(SetBevelButtonMenuValue(theSingle, 4), paramErr);
    EXPECT_EQ(SetBevelButtonMenuValue(theSingle, 40000), paramErr);
    DisposeControl(theSingle);

    ControlRef theMulti = NewBevel(0, 140, kControlBehaviorMultiValueMenu);
    ClickAndChoose(1);
    ClickAndChoose(2);
    EXPECT_EQ(Marks(), "xx-");
    ClickAndChoose(1);
    EXPECT_EQ(Marks(), "-x-");
    SetItemMark(mMenu, 2, noMark);
    DisposeControl(theMulti);

    NewBevel(0, 140, kControlBehaviorCommandMenu);
    ClickAndChoose(1);
    EXPECT_EQ(Marks(), "---");
}

TEST_F(BevelButtons, TakeAMenuUnderTheirTags)
{
    ControlRef theButton = NewBevel(0, -12345);
    MenuHandle theMenu = InventedReference<MenuRef>();
    EXPECT_EQ(GetBevelButtonMenuHandle(theButton, &theMenu), noErr);
    EXPECT_EQ(theMenu, nullptr);
    EXPECT_EQ(SetBevelButtonMenuValue(theButton, 1), paramErr) << "there is no menu";
    MenuRef theOwned = nullptr;
    CreateNewMenu(141, 0, &theOwned);
    EXPECT_EQ(SetControlData(theButton, 0, kControlBevelButtonOwnedMenuRefTag, sizeof theOwned, &theOwned),
              noErr);
    EXPECT_EQ(GetMenuRetainCount(theOwned), 1u);
    EXPECT_TRUE(LookOf(theButton).Rare().theHasMenu);
    EXPECT_EQ(SetControlData(theButton, 0, kControlBevelButtonMenuRefTag, sizeof mMenu, &mMenu), noErr);
    EXPECT_FALSE(IsValidMenu(theOwned));
    EXPECT_EQ(GetBevelButtonMenuHandle(theButton, &theMenu), noErr);
    EXPECT_EQ(theMenu, mMenu);
    theMenu = InventedReference<MenuRef>();
    EXPECT_EQ(SetControlData(theButton, 0, kControlBevelButtonMenuRefTag, sizeof theMenu, &theMenu),
              paramErr);
}

TEST_F(BevelButtons, AreRefusedWithWhatDoesNotExist)
{
    const Rect theBounds = MakeRect(20, 200, 120, 230);
    const auto theStatus = [&](UInt16 theThickness, ControlButtonContentInfoPtr theContent, MenuID theMenu) {
        ControlRef theControl = InventedReference<ControlRef>();
        const OSStatus theResult = CreateBevelButtonControl(mWindow, &theBounds, nullptr, theThickness, 0,
                                                            theContent, theMenu, 0, 0, &theControl);
        EXPECT_EQ(theControl, nullptr);
        return theResult;
    };
    ControlButtonContentInfo theContent = {};
    theContent.contentType = 77;
    EXPECT_EQ(theStatus(3, nullptr, 0), paramErr);
    EXPECT_EQ(theStatus(0, &theContent, 0), paramErr);
    EXPECT_EQ(theStatus(0, nullptr, 77), paramErr);
    EXPECT_EQ(CreateBevelButtonControl(mWindow, &theBounds, nullptr, 3, 0, nullptr, 0, 0, 0, nullptr),
              paramErr);
}

TEST_F(BevelButtons, KeepWhatTheirTagsSay)
{
    ControlRef theButton = NewBevel(0);
    CheckFlag(theButton, kControlBevelButtonCenterPopupGlyphTag, false);
    CheckFlag(theButton, kControlBevelButtonScaleIconTag, false);
    EXPECT_EQ(SetBevelButtonTextAlignment(theButton, kControlBevelButtonAlignTextFlushLeft, 7), noErr);
    EXPECT_EQ(SetBevelButtonGraphicAlignment(theButton, kControlBevelButtonAlignTop, 3, 4), noErr);
    EXPECT_EQ(SetBevelButtonTextPlacement(theButton, kControlBevelButtonPlaceBelowGraphic), noErr);
    const auto theNumber = [&](ResType theTag) {
        SInt16 theValue = 99;
        EXPECT_EQ(GetControlData(theButton, 0, theTag, sizeof theValue, &theValue, nullptr), noErr);
        return theValue;
    };
    EXPECT_EQ(theNumber(kControlBevelButtonTextAlignTag), kControlBevelButtonAlignTextFlushLeft);
    EXPECT_EQ(theNumber(kControlBevelButtonTextOffsetTag), 7);
    EXPECT_EQ(theNumber(kControlBevelButtonGraphicAlignTag), kControlBevelButtonAlignTop);
    EXPECT_EQ(theNumber(kControlBevelButtonTextPlaceTag), kControlBevelButtonPlaceBelowGraphic);
    Point theOffset = {0, 0};
    EXPECT_EQ(GetControlData(theButton, 0, kControlBevelButtonGraphicOffsetTag, sizeof theOffset, &theOffset,
                             nullptr),
              noErr);
    EXPECT_EQ(theOffset.h, 3);
    EXPECT_EQ(theOffset.v, 4);
    ControlRef thePush = NewPushButton();
    EXPECT_EQ(SetBevelButtonTextPlacement(thePush, 0), errDataNotSupported);
    EXPECT_EQ(GetBevelButtonMenuValue(theButton, nullptr), paramErr);
    EXPECT_EQ(SetBevelButtonContentInfo(theButton, nullptr), paramErr);
}

TEST_F(BevelButtons, ShowAPictureBesideTheTitle)
{
    ControlRef theButton = NewBevel(kControlBehaviorToggles);
    EXPECT_EQ(LookOf(theButton).Rare().thePicture, Host::PictureShape::kNone);
    EXPECT_TRUE(LookOf(theButton).Rare().theIsToggle);
    ControlButtonContentInfo theContent = {};
    theContent.contentType = kControlContentIconRef;
    IconRef theIcon = nullptr;
    GetIconRef(kOnSystemDisk, kSystemIconsCreator, kGenericFolderIcon, &theIcon);
    theContent.u.iconRef = theIcon;
    EXPECT_EQ(SetBevelButtonContentInfo(theButton, &theContent), noErr);
    SetBevelButtonTextPlacement(theButton, kControlBevelButtonPlaceToLeftOfGraphic);
    EXPECT_EQ(LookOf(theButton).Rare().thePicture, Host::PictureShape::kFolder);
    EXPECT_EQ(LookOf(theButton).Rare().theTitlePlace, Host::TitlePlace::kLeft);
    ReleaseIconRef(theIcon);
}

// Round buttons ------------------------------------------------------------------------------------------

namespace {

class RoundButtons : public ControlKindTest
{
protected:
    ControlRef NewRound(SInt16 theSize)
    {
        const Rect theBounds = MakeRect(20, 200, 120, 260);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateRoundButtonControl(mWindow, &theBounds, theSize, nullptr, &theControl), noErr);
        return theControl;
    }
};

} // namespace

TEST_F(RoundButtons, StandInTheMiddleOfTheirBoundsAndAreHitThere)
{
    ControlRef theButton = NewRound(kControlRoundButtonNormalSize);
    Watch(theButton, "button", kWithoutHilite);
    EXPECT_EQ(LookOf(theButton).Rare().theDiameter, 20);
    Click(59, 230);
    EXPECT_EQ(TakeLog(), Log());
    Click(60, 230);
    EXPECT_EQ(TakeLog(), Log{"button: Hit"});
    EXPECT_EQ(GetControl32BitValue(theButton), 0);
}

TEST_F(RoundButtons, AreLargerInTheLargeSizeWhichIsATag)
{
    ControlRef theButton = NewRound(kControlRoundButtonLargeSize);
    EXPECT_EQ(LookOf(theButton).Rare().theDiameter, 25);
    EXPECT_EQ(TestControl(theButton, Point{218, 58}), kControlButtonPart);
    EXPECT_EQ(TestControl(theButton, Point{217, 58}), kControlNoPart);
    SInt16 theSize = kControlRoundButtonNormalSize;
    EXPECT_EQ(SetControlData(theButton, 0, kControlRoundButtonSizeTag, sizeof theSize, &theSize), noErr);
    EXPECT_EQ(LookOf(theButton).Rare().theDiameter, 20);
    const Rect theBounds = MakeRect(0, 0, 30, 30);
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(CreateRoundButtonControl(mWindow, &theBounds, 1, nullptr, &theControl), paramErr);
    EXPECT_EQ(theControl, nullptr);
}
