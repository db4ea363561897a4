// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The menu of windows.

#include "ManagerTestSupport.h"
#include "MenuTestSupport.h"

namespace {

const WindowAttributes kListed =
    kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute | kWindowInWindowMenuAttribute;

class WindowMenu : public WindowTest
{
protected:
    WindowMenu()
    {
        EXPECT_EQ(CreateStandardWindowMenu(0, &mMenu), noErr);
        InsertMenu(mMenu, 0);
    }
    ~WindowMenu() override
    {
        ClearMenuBar();
        ReleaseMenu(mMenu);
    }

    static WindowRef NewListed(const char* theTitle)
    {
        WindowRef theWindow = NewWindow(kDocumentWindowClass, kListed);
        SetWindowTitleWithCFString(theWindow, TestString(theTitle));
        ShowWindow(theWindow);
        return theWindow;
    }

    // The items as a person sees them: the mark, the text, and "-" before one that is disabled.
    Log Open()
    {
        const Host::ObjectId theId = BarLook().theMenus.at(0).theId;
        EXPECT_TRUE(Person().MenuOpened(theId));
        Log theItems;
        for (MenuItemIndex theItem = 1; theItem <= CountMenuItems(mMenu); ++theItem) {
            const CharParameter theMark = MarkOf(mMenu, theItem);
            theItems.push_back((IsMenuItemEnabled(mMenu, theItem) ? "" : "-") + ItemText(mMenu, theItem) +
                               (theMark == checkMark     ? "*"
                                : theMark == diamondMark ? "+"
                                                         : ""));
        }
        Person().MenuClosed(theId);
        return theItems;
    }

    void Choose(const std::string& theText)
    {
        Open();
        const Log theTexts = ItemTexts(mMenu);
        for (size_t theIndex = 0; theIndex < theTexts.size(); ++theIndex) {
            if (theTexts[theIndex] == theText) {
                Person().MenuChosen({BarLook().theMenus.at(0).theId, static_cast<int>(theIndex) + 1}, 0);
                return;
            }
        }
        ADD_FAILURE() << "there is no item " << theText;
    }

    MenuRef mMenu = nullptr;
};

} // namespace

TEST_F(WindowMenu, IsEmptyUntilItIsOpened)
{
    EXPECT_EQ(TitleOf(mMenu), "Window");
    EXPECT_EQ(CountMenuItems(mMenu), 0u);
    EXPECT_EQ(Open(), (Log{"Minimize", "Zoom", "", "Bring All to Front"}));
    EXPECT_EQ(Open(), (Log{"Minimize", "Zoom", "", "Bring All to Front"}));
}

TEST_F(WindowMenu, IsFilledWhenItIsLookedIntoForACommand)
{
    MenuItemIndex theItem = 0;
    EXPECT_EQ(GetIndMenuItemWithCommandID(mMenu, kHICommandZoomWindow, 1, nullptr, &theItem), noErr);
    EXPECT_EQ(theItem, 2u);
}

TEST_F(WindowMenu, ListsWindowsInTheOrderInWhichTheyWereMade)
{
    WindowRef theOne = NewListed("One");
    WindowRef theTwo = NewListed("Two");
    WindowRef theHidden = NewListed("Hidden");
    HideWindow(theHidden);
    SelectWindow(theOne);
    const Log theFixed = {"Minimize", "Zoom", "", "Bring All to Front", ""};
    Log theExpected = theFixed;
    theExpected.insert(theExpected.end(), {"One*", "Two"});
    EXPECT_EQ(Open(), theExpected);
    CollapseWindow(theOne, true);
    theExpected = theFixed;
    theExpected.insert(theExpected.end(), {"One+", "Two*"});
    EXPECT_EQ(Open(), theExpected);
    DisposeWindow(theOne);
    DisposeWindow(theTwo);
    EXPECT_EQ(Open().size(), 4u);
}

TEST_F(WindowMenu, ChoosingAWindowSelectsIt)
{
    WindowRef theOne = NewListed("One");
    WindowRef theTwo = NewListed("Two");
    Choose("One");
    EXPECT_TRUE(IsWindowActive(theOne));
    EXPECT_EQ(Order().front(), theOne);
    CollapseWindow(theTwo, true);
    Choose("Two");
    EXPECT_FALSE(IsWindowCollapsed(theTwo));
    EXPECT_TRUE(IsWindowActive(theTwo));
}

TEST_F(WindowMenu, ItsCommandsAreTheActiveWindows)
{
    Choose("Zoom");
    EXPECT_NE(Content(mWindow), "100, 100, 500, 400");
    Choose("Zoom");
    EXPECT_EQ(Content(mWindow), "100, 100, 500, 400");
    Choose("Minimize");
    EXPECT_TRUE(IsWindowCollapsed(mWindow));
}

TEST_F(WindowMenu, WhatTheActiveWindowCannotDoIsDisabled)
{
    DisposeWindow(mWindow);
    EXPECT_EQ(Open(), (Log{"-Minimize", "-Zoom", "", "Bring All to Front"}));
    ShowWindow(NewWindow(kDocumentWindowClass, kWindowCollapseBoxAttribute));
    EXPECT_EQ(Open(), (Log{"Minimize", "-Zoom", "", "Bring All to Front"}));
}

TEST_F(WindowMenu, HandlersOfTheProgramComeFirst)
{
    WindowRef theOther = NewListed("Other");
    Watch(theOther, "window",
          {{kEventClassCommand, kEventCommandProcess}, {kEventClassCommand, kEventCommandUpdateStatus}},
          [this](EventRef theEvent) {
              if (GetEventKind(theEvent) == kEventCommandUpdateStatus) {
                  DisableMenuItem(mMenu, 2);
              }
              return OSStatus{noErr};
          });
    EXPECT_EQ(Open()[1], "-Zoom");
    Choose("Minimize");
    EXPECT_FALSE(IsWindowCollapsed(theOther));
    WindowRef theThird = NewListed("Third");
    SelectWindow(theOther);
    Choose("Third");
    EXPECT_FALSE(IsWindowActive(theThird));
}

TEST_F(WindowMenu, CyclesThroughWindows)
{
    MenuRef theMenu = nullptr;
    ASSERT_EQ(CreateStandardWindowMenu(kWindowMenuIncludeRotate, &theMenu), noErr);
    std::swap(theMenu, mMenu);
    ClearMenuBar();
    InsertMenu(mMenu, 0);
    ReleaseMenu(theMenu);
    WindowRef theOne = NewListed("One");
    EXPECT_EQ(Open()[2], "-Cycle Through Windows");
    WindowRef theTwo = NewListed("Two");
    Choose("Cycle Through Windows");
    EXPECT_EQ(Order(), (Windows{theOne, mWindow, theTwo}));
    EXPECT_TRUE(IsWindowActive(theOne));
}

TEST_F(WindowMenu, BringingAllToFrontKeepsTheirOrder)
{
    WindowRef theOne = NewListed("One");
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    ShowWindow(thePalette);
    Choose("Bring All to Front");
    EXPECT_EQ(Order(), (Windows{thePalette, theOne, mWindow}));
    EXPECT_TRUE(IsWindowActive(theOne));
}

TEST_F(WindowMenu, MinimizesAllWindows)
{
    WindowRef theOne = NewListed("One");
    HICommand theCommand{};
    theCommand.commandID = kHICommandMinimizeAll;
    EXPECT_EQ(ProcessHICommand(&theCommand), noErr);
    EXPECT_TRUE(IsWindowCollapsed(theOne));
    EXPECT_TRUE(IsWindowCollapsed(mWindow));
}

TEST_F(WindowMenu, RefusesOptionsThatThereAreNot)
{
    MenuRef theMenu = mMenu;
    EXPECT_EQ(CreateStandardWindowMenu(2, &theMenu), paramErr);
    EXPECT_EQ(theMenu, nullptr);
    EXPECT_EQ(CreateStandardWindowMenu(0, nullptr), paramErr);
}
