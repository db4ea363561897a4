// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Modal windows and sheets.

#include "ManagerTestSupport.h"
#include "Toolbox/HeadlessScreen.h"

#include <Windows/Windows.h>

namespace {

class Sheets : public WindowTest
{
protected:
    // A sheet of 200 by 100 pixels.
    static WindowRef NewSheet()
    {
        WindowRef theSheet = NewWindow(kSheetWindowClass, kWindowStandardHandlerAttribute);
        SizeWindow(theSheet, 200, 100, true);
        return theSheet;
    }

    static WindowModality ModalityOf(WindowRef theWindow)
    {
        WindowModality theModality = 99;
        EXPECT_EQ(GetWindowModality(theWindow, &theModality, nullptr), noErr);
        return theModality;
    }

    // Presses and releases the mouse in the title bar of a window.
    static bool Press(WindowRef theWindow)
    {
        const Rect theContent = Bounds(theWindow, kWindowGlobalPortRgn);
        Host::PointerAction theAction;
        theAction.theWindow = Host::IdentifierOf(theWindow);
        theAction.thePlace = {theContent.left + 2, theContent.top - 5};
        const bool isDelivered = Person().PointerPressed(theAction);
        Person().PointerReleased(theAction);
        return isDelivered;
    }
};

} // namespace

// --- Modality ----------------------------------------------------------------------------------------

TEST_F(Sheets, TheClassSaysWhetherAWindowIsModal)
{
    EXPECT_EQ(ModalityOf(mWindow), UInt32{kWindowModalityNone});
    EXPECT_EQ(ModalityOf(NewWindow(kMovableModalWindowClass, kWindowNoAttributes)),
              UInt32{kWindowModalityAppModal});
    EXPECT_EQ(ModalityOf(NewWindow(kAlertWindowClass, kWindowNoAttributes)), UInt32{kWindowModalityAppModal});
    EXPECT_EQ(ModalityOf(NewSheet()), UInt32{kWindowModalityNone});
}

TEST_F(Sheets, AnyWindowCanBeModal)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    EXPECT_FALSE(IsClosedOff(mWindow));
    EXPECT_EQ(SetWindowModality(theOther, kWindowModalityAppModal, nullptr), noErr);
    EXPECT_TRUE(IsClosedOff(mWindow));
    EXPECT_FALSE(IsClosedOff(theOther));
    EXPECT_EQ(SetWindowModality(theOther, kWindowModalitySystemModal, nullptr), noErr);
    EXPECT_TRUE(IsClosedOff(mWindow));
    HideWindow(theOther);
    EXPECT_FALSE(IsClosedOff(mWindow));
}

TEST_F(Sheets, AModalDialogCanBeMadeModeless)
{
    WindowRef theDialog = NewWindow(kMovableModalWindowClass, kWindowNoAttributes);
    ShowWindow(theDialog);
    EXPECT_TRUE(IsClosedOff(mWindow));
    SetWindowModality(theDialog, kWindowModalityNone, nullptr);
    EXPECT_FALSE(IsClosedOff(mWindow));
}

TEST_F(Sheets, AWindowModalOneKeepsOutOneWindow)
{
    WindowRef theOther = NewWindow();
    WindowRef theThird = NewWindow();
    ShowWindow(theOther);
    ShowWindow(theThird);
    EXPECT_EQ(SetWindowModality(theThird, kWindowModalityWindowModal, theOther), noErr);
    EXPECT_TRUE(IsClosedOff(theOther));
    EXPECT_FALSE(IsClosedOff(mWindow));
    WindowModality theModality = 0;
    WindowRef theKeptOut = nullptr;
    EXPECT_EQ(GetWindowModality(theThird, &theModality, &theKeptOut), noErr);
    EXPECT_EQ(theModality, UInt32{kWindowModalityWindowModal});
    EXPECT_EQ(theKeptOut, theOther);
    DisposeWindow(theOther);
    EXPECT_EQ(GetWindowModality(theThird, &theModality, &theKeptOut), noErr);
    EXPECT_EQ(theKeptOut, nullptr);
}

TEST_F(Sheets, RefusesModalitiesThatThereAreNot)
{
    WindowModality theModality = 7;
    EXPECT_EQ(SetWindowModality(nullptr, kWindowModalityAppModal, nullptr), errInvalidWindowRef);
    EXPECT_EQ(SetWindowModality(mWindow, 4, nullptr), paramErr);
    EXPECT_EQ(SetWindowModality(mWindow, kWindowModalityWindowModal, nullptr), paramErr);
    EXPECT_EQ(SetWindowModality(mWindow, kWindowModalityWindowModal, mWindow), paramErr);
    EXPECT_EQ(GetWindowModality(mWindow, nullptr, nullptr), paramErr);
    EXPECT_EQ(GetWindowModality(nullptr, &theModality, nullptr), errInvalidWindowRef);
    EXPECT_EQ(theModality, UInt32{kWindowModalityNone});
    EXPECT_EQ(ModalityOf(mWindow), UInt32{kWindowModalityNone});
}

// --- Showing sheets ----------------------------------------------------------------------------------

TEST_F(Sheets, ASheetHangsFromTheMiddleOfItsParent)
{
    WindowRef theSheet = NewSheet();
    EXPECT_EQ(ShowSheetWindow(theSheet, mWindow), noErr);
    EXPECT_TRUE(IsWindowVisible(theSheet));
    EXPECT_TRUE(IsWindowActive(theSheet));
    EXPECT_FALSE(IsWindowActive(mWindow));
    EXPECT_EQ(Content(theSheet), "200, 100, 400, 200");
    WindowRef theParent = nullptr;
    EXPECT_EQ(GetSheetWindowParent(theSheet, &theParent), noErr);
    EXPECT_EQ(theParent, mWindow);
    EXPECT_EQ(ModalityOf(theSheet), UInt32{kWindowModalityWindowModal});
    EXPECT_TRUE(IsClosedOff(mWindow));
    EXPECT_FALSE(IsClosedOff(theSheet));
}

TEST_F(Sheets, APresenterIsToldWhatASheetHangsFrom)
{
    const HeadlessScreen theScreen;
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_EQ(theScreen->FindWindow(Host::IdentifierOf(theSheet))->theParent, Host::IdentifierOf(mWindow));
    HideSheetWindow(theSheet);
    EXPECT_EQ(theScreen->FindWindow(Host::IdentifierOf(theSheet))->theParent, Host::kNoObject);
}

TEST_F(Sheets, ASheetGoesWhereItsParentGoes)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    MoveWindow(mWindow, 300, 200, false);
    EXPECT_EQ(Content(theSheet), "400, 200, 600, 300");
    SizeWindow(mWindow, 600, 300, true);
    EXPECT_EQ(Content(theSheet), "500, 200, 700, 300");
}

TEST_F(Sheets, ASheetStandsRightInFrontOfItsParent)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_EQ(Order(), (Windows{theOther, theSheet, mWindow}));
    EXPECT_TRUE(IsWindowActive(theOther)) << "a sheet on a window behind does not come to front";
    SelectWindow(mWindow);
    EXPECT_EQ(Order(), (Windows{theSheet, mWindow, theOther}));
    EXPECT_TRUE(IsWindowActive(theSheet));
    SendBehind(mWindow, nullptr);
    EXPECT_EQ(Order(), (Windows{theOther, theSheet, mWindow}));
    EXPECT_TRUE(IsWindowActive(theOther));
    BringToFront(theSheet);
    EXPECT_EQ(Order(), (Windows{theSheet, mWindow, theOther}));
}

TEST_F(Sheets, ASheetIsInTheLayerOfItsParent)
{
    WindowRef theDialog = NewWindow(kMovableModalWindowClass, kWindowNoAttributes);
    ShowWindow(theDialog);
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, theDialog);
    EXPECT_EQ(Order(), (Windows{theSheet, theDialog, mWindow}));
    EXPECT_FALSE(IsClosedOff(theSheet));
    DetachSheetWindow(theSheet);
    EXPECT_EQ(Order(), (Windows{theDialog, theSheet, mWindow}));
    EXPECT_TRUE(IsClosedOff(theSheet));
}

TEST_F(Sheets, ASheetLeavesTheScreenWithItsParent)
{
    const HeadlessScreen theScreen;
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    SelectWindow(mWindow);
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    const auto theIsSeen = [&] { return theScreen->FindWindow(Host::IdentifierOf(theSheet))->theIsVisible; };
    CollapseWindow(mWindow, true);
    EXPECT_FALSE(theIsSeen());
    EXPECT_TRUE(IsWindowVisible(theSheet));
    EXPECT_TRUE(IsWindowActive(theOther));
    CollapseWindow(mWindow, false);
    EXPECT_TRUE(theIsSeen());
    EXPECT_TRUE(IsWindowActive(theSheet));
    HideWindow(mWindow);
    EXPECT_FALSE(theIsSeen());
    EXPECT_TRUE(IsWindowActive(theOther));
}

TEST_F(Sheets, ASheetMayHangFromASheet)
{
    WindowRef theSheet = NewSheet();
    WindowRef theSecond = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_EQ(ShowSheetWindow(theSecond, theSheet), noErr);
    EXPECT_EQ(Order(), (Windows{theSecond, theSheet, mWindow}));
    EXPECT_TRUE(IsClosedOff(theSheet));
    EXPECT_TRUE(IsWindowActive(theSecond));
    MoveWindow(mWindow, 300, 200, false);
    EXPECT_EQ(Content(theSecond), "400, 200, 600, 300");
    WindowRef theThird = NewSheet();
    ShowSheetWindow(theThird, theSecond);
    HideSheetWindow(theSheet);
    EXPECT_EQ(ShowSheetWindow(theSheet, theThird), paramErr) << "it would hang from itself";
}

// --- Letting go --------------------------------------------------------------------------------------

TEST_F(Sheets, HidingASheetOpensTheParentAgain)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_EQ(HideSheetWindow(theSheet), noErr);
    EXPECT_FALSE(IsWindowVisible(theSheet));
    EXPECT_TRUE(IsWindowActive(mWindow));
    EXPECT_FALSE(IsClosedOff(mWindow));
    EXPECT_EQ(ModalityOf(theSheet), UInt32{kWindowModalityNone});
    WindowRef theParent = mWindow;
    EXPECT_EQ(GetSheetWindowParent(theSheet, &theParent), paramErr);
    EXPECT_EQ(theParent, nullptr);
    EXPECT_EQ(HideSheetWindow(theSheet), paramErr);
    EXPECT_EQ(ShowSheetWindow(theSheet, mWindow), noErr) << "it can be shown again";
}

TEST_F(Sheets, ADetachedSheetStaysOnTheScreen)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_EQ(DetachSheetWindow(theSheet), noErr);
    EXPECT_TRUE(IsWindowVisible(theSheet));
    EXPECT_FALSE(IsClosedOff(mWindow));
    MoveWindow(mWindow, 300, 200, false);
    EXPECT_EQ(Content(theSheet), "200, 100, 400, 200");
    EXPECT_EQ(DetachSheetWindow(theSheet), paramErr);
}

TEST_F(Sheets, AParentIsRetainedByItsSheet)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_EQ(GetWindowRetainCount(mWindow), 2u);
    DisposeWindow(mWindow);
    EXPECT_TRUE(IsValidWindowPtr(mWindow));
    HideSheetWindow(theSheet);
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
    EXPECT_TRUE(IsValidWindowPtr(theSheet));
}

TEST_F(Sheets, ADisposedSheetLeavesItsParent)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    DisposeWindow(theSheet);
    EXPECT_EQ(GetWindowRetainCount(mWindow), 1u);
    EXPECT_FALSE(IsClosedOff(mWindow));
    EXPECT_TRUE(IsWindowActive(mWindow));
    EXPECT_EQ(ShowSheetWindow(NewSheet(), mWindow), noErr);
}

TEST_F(Sheets, AParentThatIsReleasedTooOftenLeavesItsSheet)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    DisposeWindow(mWindow);
    DisposeWindow(mWindow);
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
    EXPECT_TRUE(IsWindowVisible(theSheet));
    EXPECT_EQ(DetachSheetWindow(theSheet), paramErr);
}

TEST_F(Sheets, RefusesWhatCannotBeASheet)
{
    WindowRef theOther = NewWindow();
    WindowRef theSheet = NewSheet();
    WindowRef theAlert = NewWindow(kSheetAlertWindowClass, kWindowNoAttributes);
    EXPECT_EQ(ShowSheetWindow(nullptr, mWindow), errInvalidWindowRef);
    EXPECT_EQ(ShowSheetWindow(theSheet, nullptr), errInvalidWindowRef);
    EXPECT_EQ(ShowSheetWindow(theOther, mWindow), paramErr);
    EXPECT_EQ(ShowSheetWindow(theSheet, theSheet), paramErr);
    EXPECT_EQ(ShowSheetWindow(theAlert, mWindow), noErr);
    EXPECT_EQ(ShowSheetWindow(theSheet, mWindow), paramErr) << "the parent has one";
    EXPECT_EQ(ShowSheetWindow(theAlert, theOther), paramErr) << "it hangs already";
    EXPECT_EQ(HideSheetWindow(nullptr), errInvalidWindowRef);
    EXPECT_EQ(DetachSheetWindow(nullptr), errInvalidWindowRef);
    EXPECT_EQ(GetSheetWindowParent(theAlert, nullptr), paramErr);
    EXPECT_FALSE(IsWindowVisible(theSheet));
}

// --- A person ----------------------------------------------------------------------------------------

TEST_F(Sheets, APressOnTheParentBringsItsSheet)
{
    const HeadlessScreen theScreen;
    WindowRef theOther = NewWindow();
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    ShowWindow(theOther);
    SelectWindow(theOther);
    EXPECT_FALSE(Press(mWindow));
    EXPECT_TRUE(IsWindowActive(theSheet));
    EXPECT_EQ(Order(), (Windows{theSheet, mWindow, theOther}));
    EXPECT_EQ(theScreen->Beeps(), 0);
    EXPECT_FALSE(Press(mWindow));
    EXPECT_EQ(theScreen->Beeps(), 1);
    EXPECT_TRUE(Press(theOther)) << "others are open";
}

TEST_F(Sheets, APersonCannotCloseTheParent)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_FALSE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
    EXPECT_FALSE(Person().WindowMoved(Host::IdentifierOf(mWindow), {10, 50}));
    EXPECT_TRUE(IsValidWindowPtr(mWindow));
}

TEST_F(Sheets, APersonCannotMoveASheetAway)
{
    WindowRef theSheet = NewSheet();
    ShowSheetWindow(theSheet, mWindow);
    EXPECT_FALSE(Person().WindowMoved(Host::IdentifierOf(theSheet), {10, 50}));
    EXPECT_EQ(Content(theSheet), "200, 100, 400, 200");
    DetachSheetWindow(theSheet);
    EXPECT_TRUE(Person().WindowMoved(Host::IdentifierOf(theSheet), {10, 50}));
}
