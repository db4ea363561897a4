// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a presenter is told of menus.

#include "MenuTestSupport.h"

#include <memory>

namespace {

using MenuLooks = MenuTest;

} // namespace

TEST_F(MenuLooks, ThePresenterSeesTheBarWithAllItsMenus)
{
    SetItemMark(mEdit, 1, checkMark);
    SetMenuItemCommandKey(mEdit, 1, false, 'X');
    SetMenuItemModifiers(mEdit, 1, kMenuShiftModifier | kMenuOptionModifier);
    DisableMenuItem(mEdit, 3);
    const Host::MenuBarLook theBar = BarLook();
    ASSERT_EQ(theBar.theMenus.size(), 2u);
    EXPECT_EQ(theBar.theMenus[0].theTitle, "File");
    ASSERT_EQ(theBar.theMenus[0].theItems.size(), 3u);
    ASSERT_EQ(theBar.theMenus[0].theItems[2].theSubmenu.size(), 1u);
    EXPECT_EQ(theBar.theMenus[0].theItems[2].theSubmenu[0].theItems[1].theText, "Second");
    const Host::MenuItemLook& theCut = theBar.theMenus[1].theItems[0];
    EXPECT_EQ(theCut.theText, "Cut");
    EXPECT_EQ(theCut.theCommand, std::uint32_t('cut '));
    EXPECT_EQ(theCut.theMark, 0x2713u);
    EXPECT_EQ(theCut.theKey, "X");
    EXPECT_EQ(theCut.theKeyModifiers, std::uint32_t(cmdKey | shiftKey | optionKey));
    EXPECT_TRUE(theBar.theMenus[1].theItems[1].theIsSeparator);
    EXPECT_FALSE(theBar.theMenus[1].theItems[2].theIsEnabled);
}

TEST_F(MenuLooks, TheSystemMenuHasATitleThatCanBeRead)
{
    const unsigned char kPicture[] = {1, 0x14};
    SetMenuTitle(mFile, kPicture);
    EXPECT_EQ(BarLook().theMenus[0].theTitle, "System");
    Str255 theTitle = {};
    EXPECT_EQ(GetMenuTitle(mFile, theTitle)[1], 0x14);
}

TEST_F(MenuLooks, HiddenMenusAreNotInTheBarAndEmptyOnesMayLookDisabled)
{
    ChangeMenuAttributes(mFile, kMenuAttrHidden, 0);
    DisableAllMenuItems(mEdit);
    Host::MenuBarLook theBar = BarLook();
    ASSERT_EQ(theBar.theMenus.size(), 1u);
    EXPECT_TRUE(theBar.theMenus[0].theIsEnabled);
    ChangeMenuAttributes(mEdit, kMenuAttrAutoDisable, 0);
    EXPECT_FALSE(BarLook().theMenus[0].theIsEnabled);
    EnableAllMenuItems(mEdit);
    EXPECT_TRUE(BarLook().theMenus[0].theIsEnabled);
    DisableMenuItem(mEdit, 0);
    EXPECT_FALSE(BarLook().theMenus[0].theIsEnabled);
}

struct MarkLook
{
    CharParameter theMark;
    std::uint32_t theCodePoint;
};

class MenuMark : public MenuTest, public testing::WithParamInterface<MarkLook>
{
};

TEST_P(MenuMark, IsShownAsItsCharacter)
{
    SetItemMark(mEdit, 1, GetParam().theMark);
    EXPECT_EQ(BarLook().theMenus[1].theItems[0].theMark, GetParam().theCodePoint);
}

INSTANTIATE_TEST_SUITE_P(EachMark, MenuMark,
                         testing::Values(MarkLook{noMark, 0}, MarkLook{commandMark, 0x2318},
                                         MarkLook{checkMark, 0x2713}, MarkLook{diamondMark, 0x25C6},
                                         MarkLook{appleMark, 0xF8FF}, MarkLook{'*', '*'},
                                         MarkLook{0xA5, 0x2022}));

namespace {

// Notes the first title and the number of menus of each bar that it is told of.
class CountingPresenter : public Host::Presenter
{
public:
    explicit CountingPresenter(Log& theLog)
        : mLog(theLog)
    {
    }
    void MenuBarLooks(const Host::MenuBarLook& theLook) override
    {
        mLog.push_back(theLook.theMenus.at(0).theTitle + " of " + std::to_string(theLook.theMenus.size()));
    }

private:
    Log& mLog;
};

} // namespace

TEST_F(MenuLooks, AChangedBarIsShownWhenTheLoopRunsOrItIsDrawn)
{
    Host::PresenterRegistry::Use(std::make_unique<CountingPresenter>(mLog));
    RunCurrentEventLoop(0);
    mLog.clear();
    SetMenuTitleWithCFString(mFile, CFSTR("New"));
    DisableMenuItem(mFile, 1);
    EXPECT_TRUE(mLog.empty());
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog, Log{"New of 2"});
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog.size(), 1u);
    DeleteMenu(129);
    DrawMenuBar();
    EXPECT_EQ(mLog.back(), "New of 1");
    InvalMenuBar();
    EXPECT_EQ(mLog.size(), 2u);
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog.size(), 3u);
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
}

TEST_F(MenuLooks, WhatIsChangedWhileTheLoopGivesTheFirstFocusIsShownBeforeItWaits)
{
    const Rect theBounds = {100, 100, 300, 400};
    WindowRef theWindow = nullptr;
    ControlRef theControl = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &theWindow);
    CreateCheckBoxControl(theWindow, &theBounds, nullptr, 0, true, &theControl);
    ShowWindow(theWindow);
    DrawMenuBar();
    Host::PresenterRegistry::Use(std::make_unique<CountingPresenter>(mLog));
    Log theFocus;
    const TestHandler theHandler(GetControlEventTarget(theControl), "focus", theFocus,
                                 [&](EventHandlerCallRef, EventRef) {
                                     SetMenuTitleWithCFString(mFile, CFSTR("New"));
                                     return OSStatus{eventNotHandledErr};
                                 },
                                 {{kEventClassControl, kEventControlFocusPartChanged}});
    RunCurrentEventLoop(0);
    EXPECT_EQ(theFocus, Log{"focus"});
    EXPECT_EQ(mLog.back(), "New of 2");
    DisposeWindow(theWindow);
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
}
