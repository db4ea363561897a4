// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ViewTestSupport.h"

namespace {

class ViewState : public ViewTest
{
protected:
    static std::string TextOfView(HIViewRef theView)
    {
        CFStringRef theText = HIViewCopyText(theView);
        std::string theResult = theText == nullptr ? "null" : TextOf(theText);
        if (theText != nullptr) {
            CFRelease(theText);
        }
        return theResult;
    }
};

} // namespace

TEST_F(ViewState, ValuesAreThoseOfTheControl)
{
    const HIViewRef theSlider = NewSlider(5, 0, 10);
    Watch(theSlider, "slider");
    EXPECT_EQ(HIViewSetValue(theSlider, 7), noErr);
    EXPECT_EQ(HIViewSetMinimum(theSlider, 2), noErr);
    EXPECT_EQ(HIViewSetMaximum(theSlider, 6), noErr);
    EXPECT_EQ(HIViewSetViewSize(theSlider, 3), noErr);
    EXPECT_EQ(HIViewGetValue(theSlider), 6);
    EXPECT_EQ(HIViewGetMinimum(theSlider), 2);
    EXPECT_EQ(HIViewGetMaximum(theSlider), 6);
    EXPECT_EQ(HIViewGetViewSize(theSlider), 3);
    EXPECT_EQ(TakeLog(), Log(4, "slider: ValueFieldChanged"));
    EXPECT_EQ(HIViewGetValue(nullptr), 0);
    EXPECT_EQ(HIViewGetMinimum(nullptr), 0);
    EXPECT_EQ(HIViewGetMaximum(nullptr), 0);
    EXPECT_EQ(HIViewGetViewSize(nullptr), 0);
    for (OSStatus (*theSetter)(HIViewRef, SInt32) :
         {HIViewSetValue, HIViewSetMinimum, HIViewSetMaximum, HIViewSetViewSize}) {
        EXPECT_EQ(theSetter(nullptr, 1), errUnknownControl);
    }
}

TEST_F(ViewState, TheTextIsThatOfAFieldAndElseTheTitle)
{
    const HIViewRef theField = NewEditText("old");
    const HIViewRef theButton = NewPushButton("Old");
    EXPECT_EQ(HIViewSetText(theField, CFSTR("new")), noErr);
    EXPECT_EQ(HIViewSetText(theButton, CFSTR("New")), noErr);
    EXPECT_EQ(TextIn(theField), "new");
    EXPECT_EQ(TextOfView(theField), "new");
    EXPECT_EQ(TextOfView(theButton), "New");
    EXPECT_EQ(TextOfView(nullptr), "null");
    EXPECT_EQ(HIViewSetText(theField, nullptr), paramErr);
    EXPECT_EQ(HIViewSetText(nullptr, CFSTR("new")), errUnknownControl);
}

TEST_F(ViewState, NameCommandKindAndFeaturesAreThoseOfTheControl)
{
    const HIViewRef theButton = NewPushButton();
    EXPECT_EQ(HIViewSetID(theButton, HIViewID{'test', 5}), noErr);
    HIViewID theID = {};
    EXPECT_EQ(HIViewGetID(theButton, &theID), noErr);
    EXPECT_EQ(theID.signature, OSType{'test'});
    EXPECT_EQ(theID.id, 5);
    EXPECT_EQ(HIViewSetCommandID(theButton, 'cmnd'), noErr);
    UInt32 theCommand = 0;
    EXPECT_EQ(HIViewGetCommandID(theButton, &theCommand), noErr);
    EXPECT_EQ(theCommand, UInt32{'cmnd'});
    HIViewKind theKind = {};
    EXPECT_EQ(HIViewGetKind(theButton, &theKind), noErr);
    EXPECT_EQ(theKind.kind, OSType{kControlKindPushButton});
    HIViewFeatures theFeatures = 0;
    EXPECT_EQ(HIViewGetFeatures(NewGroupBox(), &theFeatures), noErr);
    EXPECT_NE(theFeatures & kControlSupportsEmbedding, 0U);
    EXPECT_EQ(HIViewGetID(nullptr, &theID), errUnknownControl);
    EXPECT_EQ(HIViewSetID(nullptr, theID), errUnknownControl);
    EXPECT_EQ(HIViewGetCommandID(nullptr, &theCommand), errUnknownControl);
    EXPECT_EQ(HIViewSetCommandID(nullptr, 1), errUnknownControl);
    EXPECT_EQ(HIViewGetKind(nullptr, &theKind), errUnknownControl);
    EXPECT_EQ(HIViewGetFeatures(nullptr, &theFeatures), errUnknownControl);
}

TEST_F(ViewState, StatesAreToldFromThoseOfTheViewsAround)
{
    const HIViewRef theBox = NewGroupBox();
    const HIViewRef theButton = NewPushButton();
    ASSERT_EQ(HIViewAddSubview(theBox, theButton), noErr);
    EXPECT_EQ(HIViewSetVisible(theBox, false), noErr);
    EXPECT_EQ(HIViewSetEnabled(theBox, false), noErr);
    EXPECT_EQ(HIViewSetActivated(theBox, false), noErr);
    Boolean theIsLatent = false;
    EXPECT_FALSE(HIViewIsVisible(theButton));
    EXPECT_TRUE(HIViewIsLatentlyVisible(theButton));
    EXPECT_FALSE(HIViewIsEnabled(theButton, &theIsLatent));
    EXPECT_TRUE(theIsLatent);
    theIsLatent = false;
    EXPECT_FALSE(HIViewIsActive(theButton, &theIsLatent));
    EXPECT_TRUE(theIsLatent);
    EXPECT_FALSE(HIViewIsLatentlyVisible(theBox));
    EXPECT_FALSE(HIViewIsEnabled(theBox, &theIsLatent));
    EXPECT_FALSE(theIsLatent);
    EXPECT_EQ(HIViewSetEnabled(theBox, true), noErr);
    EXPECT_TRUE(HIViewIsEnabled(theButton, nullptr));
}

TEST_F(ViewState, WhatIsNoViewIsInNoState)
{
    Boolean theIsLatent = true;
    EXPECT_FALSE(HIViewIsVisible(nullptr));
    EXPECT_FALSE(HIViewIsLatentlyVisible(nullptr));
    EXPECT_FALSE(HIViewIsEnabled(nullptr, &theIsLatent));
    EXPECT_FALSE(theIsLatent);
    EXPECT_FALSE(HIViewIsActive(nullptr, nullptr));
    EXPECT_FALSE(HIViewIsCompositingEnabled(nullptr));
    EXPECT_EQ(HIViewSetVisible(nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewSetEnabled(nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewSetActivated(nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewSetHilite(nullptr, kControlButtonPart), errUnknownControl);
}

TEST_F(ViewState, TheHiliteIsThatOfTheControl)
{
    const HIViewRef theButton = NewPushButton();
    EXPECT_EQ(HIViewSetHilite(theButton, kControlButtonPart), noErr);
    EXPECT_EQ(GetControlHilite(theButton), kControlButtonPart);
}

TEST_F(ViewState, CompositingIsTheWindows)
{
    EXPECT_TRUE(HIViewIsCompositingEnabled(NewPushButton()));
    mWindow = NewWindow();
    EXPECT_FALSE(HIViewIsCompositingEnabled(NewPushButton()));
}

TEST_F(ViewState, TheFocusIsFoundInItsViewAndAround)
{
    const HIViewRef theBox = NewGroupBox();
    const HIViewRef theField = NewEditText("text");
    const HIViewRef theOther = NewEditText("other");
    ASSERT_EQ(HIViewAddSubview(theBox, theField), noErr);
    ASSERT_EQ(SetKeyboardFocus(mWindow, theField, kControlEditTextPart), noErr);
    HIViewPartCode thePart = kHIViewFocusNoPart;
    EXPECT_EQ(HIViewGetFocusPart(theField, &thePart), noErr);
    EXPECT_EQ(thePart, kControlEditTextPart);
    EXPECT_EQ(HIViewGetFocusPart(theOther, &thePart), noErr);
    EXPECT_EQ(thePart, kHIViewFocusNoPart);
    EXPECT_TRUE(HIViewSubtreeContainsFocus(theBox));
    EXPECT_TRUE(HIViewSubtreeContainsFocus(theField));
    EXPECT_FALSE(HIViewSubtreeContainsFocus(theOther));
    EXPECT_EQ(HIViewAdvanceFocus(Root(), 0), noErr);
    EXPECT_TRUE(HIViewSubtreeContainsFocus(theOther));
    EXPECT_EQ(HIViewAdvanceFocus(Root(), shiftKey), noErr);
    EXPECT_TRUE(HIViewSubtreeContainsFocus(theField));
    EXPECT_FALSE(HIViewSubtreeContainsFocus(nullptr));
    EXPECT_EQ(HIViewGetFocusPart(nullptr, &thePart), errUnknownControl);
    EXPECT_EQ(HIViewGetFocusPart(theField, nullptr), paramErr);
    EXPECT_EQ(HIViewAdvanceFocus(nullptr, 0), errUnknownControl);
    ASSERT_EQ(HIViewRemoveFromSuperview(theBox), noErr);
    EXPECT_EQ(HIViewAdvanceFocus(theField, 0), errCouldntSetFocus);
    EXPECT_FALSE(HIViewSubtreeContainsFocus(theBox));
    DisposeControl(theBox);
}

TEST_F(ViewState, AskingForDisplayChangesNothing)
{
    const HIViewRef theButton = NewPushButton();
    const HIRect theArea = CGRectMake(0, 0, 5, 5);
    Watch(theButton, "button");
    EXPECT_EQ(HIViewSetNeedsDisplay(theButton, true), noErr);
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(theButton, &theArea, true), noErr);
    EXPECT_EQ(TakeLog(), Log());
    EXPECT_EQ(HIViewSetNeedsDisplay(nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(theButton, nullptr, true), paramErr);
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(nullptr, &theArea, true), errUnknownControl);
}
