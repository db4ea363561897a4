// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A person's way through menus, and the events it sends.

#include "MenuTestSupport.h"

#include <memory>

namespace {

using MenuTracking = MenuTrackingTest;

using Host::PresenterRegistry;

} // namespace

// --- Opening and choosing ---------------------------------------------------------------------------

TEST_F(MenuTracking, OpeningAMenuFirstBringsItsItemsUpToDate)
{
    EXPECT_TRUE(Open("Edit"));
    EXPECT_EQ(TakeLog(), (Log{"begin ", "populate Edit", "enable Edit", "update cut  Edit 1",
                              "update save Edit 3", "opening Edit"}));
    EXPECT_EQ(mContexts.front(), UInt32(kMenuContextMenuBar | kMenuContextMenuBarTracking));
    EXPECT_EQ(mContexts.back(),
              UInt32(kMenuContextMenuBar | kMenuContextMenuBarTracking | kMenuContextPullDown));
    EXPECT_FALSE(Open("Edit"));
    EXPECT_TRUE(Close("Edit"));
    EXPECT_EQ(TakeLog(), (Log{"closed Edit", "end ", "end Edit"}));
    EXPECT_FALSE(Close("Edit"));
    EXPECT_TRUE(mLog.empty());
}

TEST_F(MenuTracking, ChoosingAnItemClosesTheMenusThenSendsItsCommand)
{
    Open("File");
    TakeLog();
    EXPECT_TRUE(Choose("File", 2, optionKey));
    EXPECT_EQ(TakeLog(), (Log{"target File", "closed File", "end ", "end File", "process save File 2"}));
    EXPECT_FALSE(Close("File")) << "it is closed already";
}

TEST_F(MenuTracking, AMenuThatClosedBeforeTheChoiceWasToldSendsTheCommandToo)
{
    Open("File");
    Close("File");
    TakeLog();
    EXPECT_TRUE(Choose("File", 1));
    EXPECT_EQ(TakeLog(), (Log{"target File", "process open File 1"}));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextMenuBar | kMenuContextPullDown));
}

TEST_F(MenuTracking, SubmenusOpenInsideTheirMenuAndCloseWithIt)
{
    Open("File");
    TakeLog();
    EXPECT_TRUE(Open("Recent"));
    EXPECT_EQ(TakeLog(), (Log{"populate Recent", "enable Recent", "update frst Recent 1",
                              "update scnd Recent 2", "opening Recent"}));
    EXPECT_EQ(mContexts.back(),
              UInt32(kMenuContextMenuBar | kMenuContextMenuBarTracking | kMenuContextSubmenu));
    EXPECT_TRUE(Close("File"));
    EXPECT_EQ(TakeLog(), (Log{"closed Recent", "closed File", "end ", "end File", "end Recent"}));
}

TEST_F(MenuTracking, OpeningAnotherMenuClosesWhatIsBesideIt)
{
    Open("File");
    Open("Recent");
    TakeLog();
    Open("Edit");
    const Log theSeen = TakeLog();
    ASSERT_GE(theSeen.size(), 3u);
    EXPECT_EQ(theSeen[0], "closed Recent");
    EXPECT_EQ(theSeen[1], "closed File");
    EXPECT_EQ(theSeen[2], "populate Edit");
    Choose("Edit", 1);
    EXPECT_EQ(TakeLog(), (Log{"target Edit", "closed Edit", "end ", "end File", "end Recent", "end Edit",
                              "process cut  Edit 1"}));
}

TEST_F(MenuTracking, OpeningTellsWhetherItIsTheFirstTime)
{
    std::vector<int> theFirsts;
    const TestHandler theHandler(GetMenuEventTarget(mFile), "", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     theFirsts.push_back(
                                         Parameter<Boolean>(theEvent, kEventParamMenuFirstOpen, typeBoolean));
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuOpening}});
    Open("File");
    Open("Edit");
    Open("File");
    Close("File");
    Open("File");
    Close("File");
    EXPECT_EQ(theFirsts, (std::vector<int>{1, 0, 1}));
}

TEST_F(MenuTracking, TheReasonOfTheEndIsTold)
{
    std::vector<UInt32> theReasons;
    const TestHandler theHandler(GetMenuEventTarget(mFile), "", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     theReasons.push_back(
                                         Parameter<UInt32>(theEvent, kEventParamMenuDismissed, typeUInt32));
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuEndTracking}});
    Open("File");
    Choose("File", 1);
    Open("File");
    Close("File");
    Open("File");
    EXPECT_EQ(CancelMenuTracking(mEdit, true, kHIMenuDismissedByTimeout), noErr);
    EXPECT_EQ(CancelMenuTracking(nullptr, true, kHIMenuDismissedByTimeout), noErr);
    EXPECT_EQ(CancelMenuTracking(nullptr, true, kHIMenuDismissedByTimeout), noErr);
    EXPECT_EQ(theReasons, (std::vector<UInt32>{kHIMenuDismissedBySelection, kHIMenuDismissedByUserCancel,
                                               kHIMenuDismissedByTimeout}));
    EXPECT_EQ(CancelMenuTracking(InventedReference<MenuRef>(), true, 0), menuInvalidErr);
}

TEST_F(MenuTracking, AHandlerCanKeepTheTrackingFromBeginning)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "refused", mLog, Answer(userCanceledErr),
                                 {{kEventClassMenu, kEventMenuBeginTracking}});
    EXPECT_FALSE(Open("File"));
    EXPECT_EQ(TakeLog(), (Log{"refused", "begin "}));
}

TEST_F(MenuTracking, AHandlerCanKeepAMenuClosed)
{
    const TestHandler theHandler(GetMenuEventTarget(mEdit), "refused", mLog, Answer(userCanceledErr),
                                 {{kEventClassMenu, kEventMenuOpening}});
    EXPECT_FALSE(Open("Edit"));
    EXPECT_EQ(mLog.back(), "end ");
    EXPECT_FALSE(Close("Edit"));
}

TEST_F(MenuTracking, AMenuThatIsDisposedWhileItOpensStaysClosed)
{
    const TestHandler theHandler(GetMenuEventTarget(mEdit), "update", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     DeleteMenu(129);
                                     DisposeMenu(mEdit);
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassCommand, kEventCommandUpdateStatus}});
    EXPECT_FALSE(Open("Edit"));
    EXPECT_FALSE(IsValidMenu(mEdit));
}

TEST_F(MenuTracking, AMenuThatItsCommandDisposesIsNoTrouble)
{
    const TestHandler theHandler(GetMenuEventTarget(mEdit), "cut", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     DeleteMenu(129);
                                     DisposeMenu(mEdit);
                                     return OSStatus(eventNotHandledErr);
                                 },
                                 {{kEventClassCommand, kEventCommandProcess}});
    EXPECT_TRUE(Choose("Edit", 1));
    EXPECT_EQ(mLog.size(), 3u);
    EXPECT_FALSE(IsValidMenu(mEdit));
}

// --- What cannot be chosen --------------------------------------------------------------------------

struct Unavailable
{
    const char* theCase;
    std::function<void(MenuRef theFile, MenuRef theRecent, MenuRef theRoot)> theSetUp;
    const char* theMenu;
    int theItem;
};

void PrintTo(const Unavailable& theCase, std::ostream* theStream)
{
    *theStream << theCase.theCase;
}

class UnavailableItem : public MenuTrackingTest, public testing::WithParamInterface<Unavailable>
{
};

TEST_P(UnavailableItem, CannotBeChosen)
{
    MenuRef theRoot = AcquireRootMenu();
    GetParam().theSetUp(mFile, mRecent, theRoot);
    ReleaseMenu(theRoot);
    EXPECT_FALSE(Choose(GetParam().theMenu, GetParam().theItem));
    EXPECT_TRUE(mLog.empty());
}

INSTANTIATE_TEST_SUITE_P(
    EachReason, UnavailableItem,
    testing::Values(
        Unavailable{"disabled", [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 1); },
                    "File", 1},
        Unavailable{"the menu is disabled",
                    [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 0); }, "File", 1},
        Unavailable{"hidden",
                    [](MenuRef theFile, MenuRef, MenuRef) {
                        ChangeMenuItemAttributes(theFile, 1, kMenuItemAttrHidden, 0);
                    },
                    "File", 1},
        Unavailable{"a heading",
                    [](MenuRef theFile, MenuRef, MenuRef) {
                        ChangeMenuItemAttributes(theFile, 1, kMenuItemAttrSectionHeader, 0);
                    },
                    "File", 1},
        Unavailable{"a separator", [](MenuRef, MenuRef, MenuRef) {}, "Edit", 2},
        Unavailable{"it holds a menu", [](MenuRef, MenuRef, MenuRef) {}, "File", 3},
        Unavailable{"the holder is disabled",
                    [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 3); }, "Recent", 1},
        Unavailable{"the holder's menu is disabled",
                    [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 0); }, "Recent", 1},
        Unavailable{"the bar's item is disabled",
                    [](MenuRef, MenuRef, MenuRef theRoot) { DisableMenuItem(theRoot, 1); }, "Recent", 1},
        Unavailable{"there is no such item", [](MenuRef, MenuRef, MenuRef) {}, "File", 4},
        Unavailable{"items begin at 1", [](MenuRef, MenuRef, MenuRef) {}, "File", 0},
        Unavailable{"items are no large numbers", [](MenuRef, MenuRef, MenuRef) {}, "File", 65537},
        Unavailable{"there is no such menu", [](MenuRef, MenuRef, MenuRef) {}, "Nowhere", 1}));

TEST_F(MenuTracking, AnItemThatHoldsAMenuMayBeChoosable)
{
    ChangeMenuItemAttributes(mFile, 3, kMenuItemAttrSubmenuParentChoosable, 0);
    EXPECT_TRUE(Choose("File", 3));
    EXPECT_TRUE(Choose("Recent", 1));
}

// --- Pop-up menus -----------------------------------------------------------------------------------

namespace {

// A presenter whose person chooses from every pop-up menu what the test wants.
class PopUpPresenter : public Host::Presenter
{
public:
    explicit PopUpPresenter(int theItem)
        : mItem(theItem)
    {
    }

    Host::MenuChoice RunPopUp(const Host::PopUpLook& theLook) override
    {
        sLook = theLook;
        return {mItem == 0 ? Host::kNoObject : theLook.theMenu.theId, mItem};
    }

    static Host::PopUpLook sLook;

private:
    int mItem;
};

Host::PopUpLook PopUpPresenter::sLook;

class PopUpMenu : public MenuTrackingTest
{
protected:
    PopUpMenu() { mPopUp = NewMenuWith(-3, "Pop-up", {{"One", 'one '}, {"Two", 'two '}}); }
    ~PopUpMenu() override
    {
        DisposeMenu(mPopUp);
        PresenterRegistry::Use(std::make_unique<Host::Presenter>());
    }

    SInt32 Select(int theItem)
    {
        PresenterRegistry::Use(std::make_unique<PopUpPresenter>(theItem));
        return PopUpMenuSelect(mPopUp, 40, 30, 1);
    }

    MenuRef mPopUp = nullptr;
};

} // namespace

TEST_F(PopUpMenu, TheChoiceIsMenuAndItem)
{
    const SInt32 theChoice = Select(2);
    EXPECT_EQ(static_cast<SInt16>(static_cast<UInt32>(theChoice) >> 16), -3);
    EXPECT_EQ(theChoice & 0xFFFF, 2);
    EXPECT_EQ(TakeLog(), (Log{"begin Pop-up", "populate Pop-up", "enable Pop-up", "update one  Pop-up 1",
                              "update two  Pop-up 2", "opening Pop-up", "target Pop-up", "closed Pop-up",
                              "end Pop-up", "process two  Pop-up 2"}));
    EXPECT_EQ(mContexts.front(), UInt32(kMenuContextPopUpTracking));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextPopUpTracking | kMenuContextPopUp));
    EXPECT_EQ(PopUpPresenter::sLook.thePlace.theX, 30);
    EXPECT_EQ(PopUpPresenter::sLook.thePlace.theY, 40);
    EXPECT_EQ(PopUpPresenter::sLook.theItem, 1);
    EXPECT_EQ(PopUpPresenter::sLook.theMenu.theItems.size(), 2u);
}

TEST_F(PopUpMenu, AHandledCommandLeavesNothingForTheCaller)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "handled", mLog, Answer(noErr),
                                 {{kEventClassCommand, kEventCommandProcess}});
    EXPECT_EQ(Select(1), 0);
    EXPECT_EQ(mLog.back(), "handled");
}

TEST_F(PopUpMenu, ChoosingNothingClosesTheMenu)
{
    EXPECT_EQ(Select(0), 0);
    EXPECT_EQ(mLog.back(), "end Pop-up");
    DisableMenuItem(mPopUp, 2);
    EXPECT_EQ(Select(2), 0);
    EXPECT_EQ(mLog.back(), "end Pop-up");
}
