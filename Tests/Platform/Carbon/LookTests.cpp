// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the Window and Control Manager tell a presenter.

#include "ManagerTestSupport.h"

#include <map>
#include <Presentation/PresenterRegistry.h>
#include <Windows/Controls.h>
#include <Windows/Windows.h>

namespace {

// Keeps the last look of everything, and what it was told in order.
class Picture : public Host::Presenter
{
public:
    void WindowLooks(const Host::WindowLook& theLook) override
    {
        mTold.push_back("window");
        mWindows[theLook.theId] = theLook;
    }
    void ControlLooks(const Host::ControlLook& theLook) override
    {
        mTold.push_back("control");
        mControls[theLook.theId] = theLook;
    }
    void WindowGone(Host::ObjectId theWindow) override
    {
        mTold.push_back("window gone");
        mWindows.erase(theWindow);
    }
    void ControlGone(Host::ObjectId theControl) override
    {
        mTold.push_back("control gone");
        mControls.erase(theControl);
    }
    void FocusIsAt(Host::ObjectId theWindow, Host::ObjectId theControl) override
    {
        mTold.push_back("focus");
        mFocusWindow = theWindow;
        mFocus = theControl;
    }

    Log mTold;
    std::map<Host::ObjectId, Host::WindowLook> mWindows;
    std::map<Host::ObjectId, Host::ControlLook> mControls;
    Host::ObjectId mFocusWindow = Host::kNoObject;
    Host::ObjectId mFocus = Host::kNoObject;
};

class Looks : public ManagerTest
{
protected:
    Looks()
    {
        auto thePicture = std::make_unique<Picture>();
        mPicture = thePicture.get();
        EXPECT_TRUE(Host::PresenterRegistry::Use(std::move(thePicture)));
    }
    ~Looks() override { Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>()); }

    const Host::ControlLook& Look(ControlRef theControl)
    {
        return mPicture->mControls[Host::IdentifierOf(theControl)];
    }
    const Host::WindowLook& Look(WindowRef theWindow)
    {
        return mPicture->mWindows[Host::IdentifierOf(theWindow)];
    }

    Picture* mPicture = nullptr;
};

} // namespace

TEST_F(Looks, EveryChangeOfAControlIsShown)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    EXPECT_EQ(Look(theSlider).theShape, Host::ControlShape::kSlider);
    EXPECT_EQ(Look(theSlider).theWindow, Host::IdentifierOf(mWindow));
    SetControl32BitValue(theSlider, 7);
    EXPECT_EQ(Look(theSlider).theValue, 7);
    SetControl32BitMinimum(theSlider, 1);
    EXPECT_EQ(Look(theSlider).theMinimum, 1);
    SetControlTitleWithCFString(theSlider, TestString("W\xC3\xA4rme"));
    EXPECT_EQ(Look(theSlider).theTitle, "W\xC3\xA4rme");
    DisableControl(theSlider);
    EXPECT_FALSE(Look(theSlider).theIsEnabled);
    HideControl(theSlider);
    EXPECT_FALSE(Look(theSlider).theIsVisible);
    DeactivateControl(theSlider);
    EXPECT_FALSE(Look(theSlider).theIsActive);
    HiliteControl(theSlider, kControlIndicatorPart);
    EXPECT_TRUE(Look(theSlider).theIsHilited);
    MoveControl(theSlider, 3, 4);
    EXPECT_EQ(Look(theSlider).theBounds.theLeft, 3);
    const ControlID theID = {'Lmte', 7};
    SetControlID(theSlider, &theID);
    EXPECT_EQ(Look(theSlider).theSignature, UInt32{'Lmte'});
    EXPECT_EQ(Look(theSlider).theNumber, 7);
}

TEST_F(Looks, JustificationIsShown)
{
    ControlRef theControl = NewStaticText("21");
    ControlFontStyleRec theStyle = {};
    theStyle.just = teFlushRight;
    SetControlFontStyle(theControl, &theStyle);
    EXPECT_EQ(Look(theControl).theAlignment,
              Host::TextAlignment::kLeft); // the flags say that it means nothing
    theStyle.flags = kControlUseJustMask;
    SetControlFontStyle(theControl, &theStyle);
    EXPECT_EQ(Look(theControl).theAlignment, Host::TextAlignment::kRight);
    theStyle.just = teCenter;
    SetControlFontStyle(theControl, &theStyle);
    EXPECT_EQ(Look(theControl).theAlignment, Host::TextAlignment::kCentre);
    ControlRef theField = NewEditText("22");
    SetControlFontStyle(theField, &theStyle);
    EXPECT_EQ(Look(theField).theAlignment, Host::TextAlignment::kCentre);
}

TEST_F(Looks, AHandlerFindsTheNewLookOnTheScreen)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    int theShown = 0;
    Watch(theSlider, "slider", EventWatch::ControlNotifications(), [&](EventRef) {
        theShown = Look(theSlider).theValue;
        return OSStatus{eventNotHandledErr};
    });
    SetControl32BitValue(theSlider, 8);
    EXPECT_EQ(theShown, 8);
}

TEST_F(Looks, AControlShowsTheStatesOfWhatIsAroundIt)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theField = NewEditText("text");
    EmbedControl(theField, theBox);
    EXPECT_EQ(Look(theField).theParent, Host::IdentifierOf(theBox));
    EXPECT_EQ(Look(theField).theText, "text");
    HideControl(theBox);
    EXPECT_FALSE(Look(theField).theIsVisible);
    DisableControl(theBox);
    EXPECT_FALSE(Look(theField).theIsEnabled);
}

TEST_F(Looks, ALoneHalfOfACharacterIsShownAsAReplacement)
{
    const UniChar theUnits[] = {'a', 0xD83C, 'b'};
    CFStringRef theText = CFStringCreateWithCharacters(nullptr, theUnits, 3);
    ControlRef theField = NewEditText("");
    SetControlData(theField, 0, kControlEditTextCFStringTag, sizeof theText, &theText);
    CFRelease(theText);
    EXPECT_EQ(Look(theField).theText, "a\xEF\xBF\xBD"
                                      "b");
}

TEST_F(Looks, ControlsOfACompositingWindowAreShownInItsContent)
{
    mWindow = NewWindow(kDocumentWindowClass, kWindowCompositingAttribute);
    ControlRef theBox = NewGroupBox();
    MoveControl(theBox, 100, 50);
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    EXPECT_EQ(Look(theSlider).theBounds.theLeft, 110);
    EXPECT_EQ(Look(theSlider).theBounds.theTop, 60);
    MoveControl(theBox, 0, 0);
    EXPECT_EQ(Look(theSlider).theBounds.theLeft, 10);
}

TEST_F(Looks, EveryChangeOfAWindowIsShown)
{
    WindowRef theWindow = NewWindow();
    EXPECT_FALSE(Look(theWindow).theIsVisible);
    EXPECT_EQ(Look(theWindow).theOrder, 0);
    EXPECT_EQ(Look(mWindow).theOrder, 1);
    ShowWindow(theWindow);
    EXPECT_TRUE(Look(theWindow).theIsVisible);
    EXPECT_TRUE(Look(theWindow).theIsActive);
    EXPECT_FALSE(Look(mWindow).theIsActive);
    SetWindowTitleWithCFString(theWindow, CFSTR("Title"));
    EXPECT_EQ(Look(theWindow).theTitle, "Title");
    CollapseWindow(theWindow, true);
    EXPECT_TRUE(Look(theWindow).theIsCollapsed);
    EXPECT_EQ(Look(theWindow).theContent.theLeft, 100);
    MoveWindow(theWindow, 10, 60, false);
    EXPECT_EQ(Look(theWindow).theContent.theLeft, 10);
    EXPECT_EQ(Look(theWindow).theStructure.theTop, 38);
    BringToFront(mWindow);
    EXPECT_EQ(Look(theWindow).theOrder, 1);
    EXPECT_EQ(Look(mWindow).theOrder, 0);
    ChangeWindowAttributes(theWindow, 0, kWindowCloseBoxAttribute);
    EXPECT_FALSE(Look(theWindow).theHasCloseBox);
    EXPECT_TRUE(Look(theWindow).theHasZoomBox);
}

TEST_F(Looks, AWindowLooksModifiedOnlyWhenTheProgramHasSaidSo)
{
    EXPECT_TRUE(IsWindowModified(mWindow));
    EXPECT_FALSE(Look(mWindow).theIsModified);
    SetWindowModified(mWindow, true);
    EXPECT_TRUE(Look(mWindow).theIsModified);
    SetWindowModified(mWindow, false);
    EXPECT_FALSE(Look(mWindow).theIsModified);
}

TEST_F(Looks, WhatGoesIsNamedInnermostFirst)
{
    ControlRef theBox = NewGroupBox();
    EmbedControl(NewSlider(), theBox);
    mPicture->mTold.clear();
    DisposeControl(theBox);
    EXPECT_EQ(mPicture->mTold, (Log{"control gone", "control gone"}));
    mPicture->mTold.clear();
    DisposeWindow(mWindow);
    EXPECT_EQ(mPicture->mTold.back(), "window gone");
    EXPECT_TRUE(mPicture->mControls.empty());
    EXPECT_TRUE(mPicture->mWindows.empty());
}

TEST_F(Looks, TheFocusIsShownWhereKeysGo)
{
    EXPECT_EQ(mPicture->mFocusWindow, Host::IdentifierOf(mWindow));
    ControlRef theField = NewEditText();
    SetKeyboardFocus(mWindow, theField, kControlEditTextPart);
    EXPECT_EQ(mPicture->mFocus, Host::IdentifierOf(theField));
    Type("x");
    EXPECT_EQ(Look(theField).theText, "x");
    EXPECT_EQ(Look(theField).theSelectionEnd, 1);
    ClearKeyboardFocus(mWindow);
    EXPECT_EQ(mPicture->mFocus, Host::kNoObject);
}

TEST_F(Looks, TheDefaultButtonIsShownAsSuch)
{
    ControlRef theFirst = NewPushButton();
    ControlRef theSecond = NewPushButton();
    SetWindowDefaultButton(mWindow, theFirst);
    EXPECT_TRUE(Look(theFirst).theIsDefault);
    SetWindowDefaultButton(mWindow, theSecond);
    EXPECT_FALSE(Look(theFirst).theIsDefault);
    EXPECT_TRUE(Look(theSecond).theIsDefault);
}

TEST_F(Looks, AReplayGivesTheSamePicture)
{
    ControlRef theBox = NewGroupBox();
    EmbedControl(NewSlider(), theBox);
    NewCheckBox();
    ShowWindow(NewWindow());
    Picture theReplay;
    Host::PresenterRegistry::ReplayLooks(theReplay);
    EXPECT_EQ(theReplay.mTold,
              (Log{"window", "control", "control", "control", "control", "window", "focus"}));
    EXPECT_EQ(theReplay.mControls.size(), mPicture->mControls.size());
    for (const auto& [theId, theLook] : mPicture->mControls) {
        EXPECT_EQ(theReplay.mControls[theId].theBounds, theLook.theBounds);
        EXPECT_EQ(theReplay.mControls[theId].theValue, theLook.theValue);
        EXPECT_EQ(theReplay.mControls[theId].theOrder, theLook.theOrder);
        EXPECT_EQ(theReplay.mControls[theId].theIsActive, theLook.theIsActive);
    }
    for (const auto& [theId, theLook] : mPicture->mWindows) {
        EXPECT_EQ(theReplay.mWindows[theId].theOrder, theLook.theOrder);
        EXPECT_EQ(theReplay.mWindows[theId].theIsActive, theLook.theIsActive);
        EXPECT_EQ(theReplay.mWindows[theId].theStructure, theLook.theStructure);
    }
}
