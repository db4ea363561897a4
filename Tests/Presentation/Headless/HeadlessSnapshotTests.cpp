// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HeadlessTestLooks.h"

#include <gtest/gtest.h>

namespace {

using Host::ControlLook;
using Host::ControlShape;
using Host::HeadlessSnapshot;
using Host::MenuItemLook;
using Host::MenuLook;
using Host::ObjectId;
using Host::WindowLook;

// Controls --------------------------------------------------------------------------------------------

TEST(HeadlessSnapshot, NamesAControlByItsIdentifierAndItsState)
{
    ControlLook theLook = Titled(ControlShape::kCheckBox, "Heat");
    theLook.theSignature = 0x68656174; // 'heat'
    theLook.theNumber = -7;
    theLook.theIsVisible = false;
    theLook.theIsEnabled = false;
    theLook.theIsLocked = true;
    theLook.theIsHilited = true;
    HeadlessSnapshot theSnapshot;
    theSnapshot.ControlLooks(theLook);
    EXPECT_EQ(
        theSnapshot.DescribeControl(3),
        "[ ] Heat                                  check box 'heat' -7, hidden, disabled, locked, pressed");
}

TEST(HeadlessSnapshot, ShowsUnprintableBytesOfAnIdentifierAsQuestionMarks)
{
    ControlLook theLook = Control(3, ControlShape::kPane);
    theLook.theSignature = 0x41001FFF;
    HeadlessSnapshot theSnapshot;
    theSnapshot.ControlLooks(theLook);
    EXPECT_EQ(theSnapshot.DescribeControl(3), std::string(42, ' ') + "pane 'A?"
                                                                     "?"
                                                                     "?' 0");
}

TEST(HeadlessSnapshot, DescribesAControlThatItDoesNotKnowAsNothing)
{
    EXPECT_EQ(HeadlessSnapshot().DescribeControl(3), "");
}

// Drawings ---------------------------------------------------------------------------------------------

TEST(HeadlessSnapshot, LaysDrawingsOverEachOtherAsTheViewsAre)
{
    const auto theDrawn = [](ObjectId theId, ObjectId theParent, Host::PixelRect theBounds,
                             Host::Picture theOne) {
        Host::RareLook theRareLook;
        theRareLook.theDrawing = std::make_shared<const Host::Picture>(std::move(theOne));
        ControlLook theLook = Control(theId, ControlShape::kPane, theParent);
        theLook.theBounds = theBounds;
        theLook.theRareLook = std::make_shared<const Host::RareLook>(theRareLook);
        return theLook;
    };
    HeadlessSnapshot theSnapshot;
    WindowLook theWindow = Window(kWindow, "Drawn", 0);
    theWindow.theContent = {100, 80, 102, 81};
    theSnapshot.WindowLooks(theWindow);
    theSnapshot.ControlLooks(
        theDrawn(kRoot, Host::kNoObject, {0, 0, 2, 1}, {2, 1, 1, {0xFF0000FF, 0xFF0000FF}}));
    theSnapshot.ControlLooks(
        theDrawn(4, kRoot, {1, 0, 2, 1}, {2, 2, 2, {0xFFFF0000, 0xFF00FF00, 0xFF000000, 0}}));
    const Host::Picture theDrawing = theSnapshot.DrawingOf(kWindow);
    EXPECT_EQ(theDrawing.theScale, 2);
    EXPECT_EQ(theDrawing.theWidth, 4);
    EXPECT_EQ(theDrawing.thePixels,
              (std::vector<std::uint32_t>{0xFF0000FF, 0xFF0000FF, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF,
                                          0xFF0000FF, 0xFF000000, 0xFF0000FF}));
    EXPECT_TRUE(theSnapshot.DrawingOf(99).thePixels.empty());
}

// The whole screen -------------------------------------------------------------------------------------

TEST(HeadlessSnapshot, SaysSoWhenNothingIsOnTheScreen)
{
    EXPECT_EQ(HeadlessSnapshot().DescribeScreen(), "Nothing is on the screen.\n");
}

TEST(HeadlessSnapshot, ShowsTheWindowWithItsControlsAsATree)
{
    HeadlessSnapshot theSnapshot;
    WindowLook theWindow = Window(kWindow, "Thermostat", 0);
    theWindow.theIsActive = true;
    theWindow.theHasCloseBox = true;
    theWindow.theHasCollapseBox = true;
    theWindow.theHasZoomBox = true;
    theWindow.theIsResizable = true;
    theSnapshot.WindowLooks(theWindow);
    theSnapshot.ControlLooks(Control(kRoot, ControlShape::kPane, Host::kNoObject));
    theSnapshot.ControlLooks(Valued(ControlShape::kSlider, 5, 0, 10));
    ControlLook theBox = Control(4, ControlShape::kGroupBox);
    theBox.theTitle = "Room";
    theSnapshot.ControlLooks(theBox);
    ControlLook theField = Control(5, ControlShape::kEditText, 4);
    theField.theText = "Kitchen";
    theSnapshot.ControlLooks(theField);
    ControlLook theButton = Control(6, ControlShape::kPushButton);
    theButton.theTitle = "Reset";
    theSnapshot.ControlLooks(theButton);
    theSnapshot.FocusIsAt(kWindow, 5);
    EXPECT_EQ(theSnapshot.DescribeScreen(),
              "\"Thermostat\" - document window, active\n"
              "   at 100, 80; 320 × 200; close box; collapse box; zoom box; resizable\n"
              " ├─ ├─────────●──────────┤ 5 of 0…10      slider\n"
              " ├─ Room                                  group box\n"
              " │  └─ [Kitchen         ]                 edit text, has the keys\n"
              " └─ ( Reset )                             push button\n");
}

TEST(HeadlessSnapshot, ListsWindowsFromFrontToBackAndHiddenOnesByNameOnly)
{
    HeadlessSnapshot theSnapshot;
    WindowLook theHidden = Window(7, "Hidden", 2);
    theHidden.theIsVisible = false;
    WindowLook theCollapsed = Window(8, "Collapsed", 1);
    theCollapsed.theIsCollapsed = true;
    WindowLook theAlert = Window(9, "Alert", 0);
    theAlert.theShape = Host::WindowShape::kAlert;
    theAlert.theIsModal = true;
    theSnapshot.WindowLooks(theHidden);
    theSnapshot.WindowLooks(theCollapsed);
    theSnapshot.WindowLooks(theAlert);
    EXPECT_EQ(theSnapshot.DescribeScreen(), "\"Alert\" - alert, modal\n"
                                            "   at 100, 80; 320 × 200\n"
                                            "\"Collapsed\" - document window, collapsed\n"
                                            "\"Hidden\" - document window, hidden\n");
}

TEST(HeadlessSnapshot, ForgetsTheControlsOfAWindowThatIsGone)
{
    HeadlessSnapshot theSnapshot;
    theSnapshot.WindowLooks(Window(kWindow, "Thermostat", 0));
    theSnapshot.ControlLooks(Control(3, ControlShape::kSlider, Host::kNoObject));
    theSnapshot.WindowGone(kWindow);
    EXPECT_EQ(theSnapshot.FindWindow(kWindow), nullptr);
    EXPECT_EQ(theSnapshot.FindControl(3), nullptr);
}

TEST(HeadlessSnapshot, ForgetsEverythingWhenStopped)
{
    HeadlessSnapshot theSnapshot;
    theSnapshot.WindowLooks(Window(kWindow, "Thermostat", 0));
    theSnapshot.ControlLooks(Control(3, ControlShape::kSlider));
    theSnapshot.MenuBarLooks({{MenuLook()}, true});
    theSnapshot.FocusIsAt(kWindow, 3);
    theSnapshot.Stop();
    EXPECT_EQ(theSnapshot.DescribeScreen(), "Nothing is on the screen.\n");
    EXPECT_EQ(theSnapshot.FindControl(3), nullptr);
    EXPECT_TRUE(theSnapshot.MenuBar().theMenus.empty());
    EXPECT_EQ(theSnapshot.FocusedWindow(), Host::kNoObject);
    EXPECT_EQ(theSnapshot.FocusedControl(), Host::kNoObject);
}

// Menus ------------------------------------------------------------------------------------------------

MenuItemLook Item(const std::string& theText)
{
    MenuItemLook theLook;
    theLook.theText = theText;
    return theLook;
}

TEST(HeadlessSnapshot, ShowsTheTitlesOfTheMenuBar)
{
    MenuLook theFile;
    theFile.theTitle = "File";
    MenuLook theView;
    theView.theTitle = "View";
    theView.theIsEnabled = false;
    HeadlessSnapshot theSnapshot;
    theSnapshot.MenuBarLooks({{theFile, theView}, true});
    EXPECT_EQ(theSnapshot.DescribeScreen(), "Menu bar: File | View (disabled)\n");
}

TEST(HeadlessSnapshot, LeavesOutAMenuBarThatIsNotShown)
{
    MenuLook theFile;
    theFile.theTitle = "File";
    HeadlessSnapshot theSnapshot;
    theSnapshot.MenuBarLooks({{theFile}, false});
    EXPECT_EQ(theSnapshot.DescribeScreen(), "Nothing is on the screen.\n");
}

TEST(HeadlessSnapshot, ShowsAnOpenMenuItemByItem)
{
    MenuItemLook theChecked = Item("Heating On");
    theChecked.theMark = 0x2713;
    theChecked.theKey = "H";
    theChecked.theKeyModifiers = Host::kCommandModifier | Host::kShiftModifier;
    MenuItemLook theDiamond = Item("Küche");
    theDiamond.theMark = 0xA4;
    MenuItemLook theLetter = Item("Letter");
    theLetter.theMark = 'x';
    theLetter.theKey = "L";
    theLetter.theKeyModifiers = Host::kControlModifier | Host::kOptionModifier;
    MenuItemLook theLine;
    theLine.theIsSeparator = true;
    MenuItemLook theHidden = Item("Secret");
    theHidden.theIsHidden = true;
    MenuItemLook theUnits = Item("Units");
    theUnits.theSubmenu.emplace_back();
    theUnits.theIsEnabled = false;
    MenuLook theMenu;
    theMenu.theItems = {theChecked, theDiamond, theLetter, theLine, theHidden, theUnits};
    EXPECT_EQ(HeadlessSnapshot::DescribeMenu(theMenu), "✓ Heating On          ⇧⌘H\n"
                                                       "¤ Küche\n"
                                                       "x Letter              ⌃⌥L\n"
                                                       "  ────────────────────\n"
                                                       "  Units ▸  (disabled)\n");
}

} // namespace
