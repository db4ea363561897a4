// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Search fields.

#include "ManagerTestSupport.h"

namespace {

class SearchFields : public ControlKindTest
{
protected:
    SearchFields()
    {
        CreateNewMenu(150, 0, &mMenu);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Everywhere"), 0, 'ever', nullptr);
    }

    ~SearchFields() override { ReleaseMenu(mMenu); }

    // In the window, shown, from 20, 200 to 220, 220.
    HIViewRef NewField(OptionBits theAttributes = kHISearchFieldAttributesCancel, MenuRef theMenu = nullptr)
    {
        const HIRect theBounds = CGRectMake(20, 200, 200, 20);
        HIViewRef theView = nullptr;
        EXPECT_EQ(HISearchFieldCreate(&theBounds, theAttributes, theMenu, CFSTR("Names"), &theView), noErr);
        EmbedControl(theView, HIViewGetRoot(mWindow));
        HIViewSetVisible(theView, true);
        return theView;
    }

    void WatchClicks(HIViewRef theView, OSStatus theAnswer = eventNotHandledErr)
    {
        Watch(theView, "field",
              {{kEventClassSearchField, kEventSearchFieldCancelClicked},
               {kEventClassSearchField, kEventSearchFieldSearchClicked},
               {kEventClassTextField, kEventTextDidChange},
               {kEventClassControl, kEventControlHit}},
              [this, theAnswer](EventRef theEvent) {
                  if (GetEventClass(theEvent) != kEventClassSearchField) {
                      return OSStatus{eventNotHandledErr};
                  }
                  mLog.back() =
                      GetEventKind(theEvent) == kEventSearchFieldCancelClicked ? "cancel" : "search";
                  return theAnswer;
              });
    }

    MenuRef mMenu = nullptr;
};

} // namespace

TEST_F(SearchFields, AreTypedIntoLikeAnyField)
{
    HIViewRef theField = NewField();
    Click(100, 210);
    EXPECT_EQ(Focus(), theField);
    Type("Ada");
    EXPECT_EQ(TextIn(theField), "Ada");
    Watch(theField, "field", {{kEventClassTextField, kEventTextAccepted}});
    Key(kVK_Return);
    EXPECT_EQ(TakeLog(), Log{"field: TextAccepted"});
}

TEST_F(SearchFields, TheCancelButtonIsThereWhileThereIsSomethingToCancel)
{
    HIViewRef theField = NewField();
    EXPECT_FALSE(LookOf(theField).Rare().theHasCancelButton);
    EXPECT_EQ(TestControl(theField, Point{210, 210}), kControlEditTextPart);
    SetControlData(theField, 0, kControlEditTextTextTag, 3, "Ada");
    EXPECT_TRUE(LookOf(theField).Rare().theHasCancelButton);
    EXPECT_EQ(TestControl(theField, Point{210, 210}), kControlSearchFieldCancelPart);
    EXPECT_EQ(HISearchFieldChangeAttributes(theField, 0, kHISearchFieldAttributesCancel), noErr);
    EXPECT_EQ(TestControl(theField, Point{210, 210}), kControlEditTextPart);
}

TEST_F(SearchFields, CancellingEmptiesTheFieldUnlessAHandlerTakesIt)
{
    HIViewRef theField = NewField();
    WatchClicks(theField);
    SetControlData(theField, 0, kControlEditTextTextTag, 3, "Ada");
    Click(210, 210);
    EXPECT_EQ(TextIn(theField), "");
    EXPECT_EQ(TakeLog(), (Log{"cancel", "field: TextDidChange", "field: Hit"}));
    DisposeControl(theField);

    theField = NewField();
    WatchClicks(theField, noErr);
    SetControlData(theField, 0, kControlEditTextTextTag, 3, "Ada");
    Click(210, 210);
    EXPECT_EQ(TextIn(theField), "Ada");
    EXPECT_EQ(TakeLog(), (Log{"cancel", "field: Hit"}));
}

TEST_F(SearchFields, EscapeCancelsAndOtherwiseGoesOn)
{
    HIViewRef theField = NewField();
    SetFocus(theField);
    WatchClicks(theField);
    Type("A");
    TakeLog();
    EXPECT_EQ(Key(kVK_Escape), noErr);
    EXPECT_EQ(TakeLog(), (Log{"cancel", "field: TextDidChange", "field: Hit"}));
    Key(kVK_Escape);
    EXPECT_EQ(TakeLog(), Log());
}

TEST_F(SearchFields, AClickOnTheGlassIsToldOfWhereThereIsNoMenu)
{
    HIViewRef theField = NewField(kHISearchFieldAttributesSearchIcon);
    EXPECT_TRUE(LookOf(theField).Rare().theHasGlass);
    WatchClicks(theField);
    Click(30, 210);
    EXPECT_EQ(TakeLog(), (Log{"search", "field: Hit"}));
}

TEST_F(SearchFields, AMenuPopsUpFromTheGlassAndSendsItsCommand)
{
    HIViewRef theField = NewField(0, mMenu);
    EXPECT_EQ(GetMenuRetainCount(mMenu), 2u);
    EXPECT_TRUE(LookOf(theField).Rare().theHasGlass) << "a menu needs one";
    WatchClicks(theField);
    Watch(mWindow, "window", {{kEventClassCommand, kEventCommandProcess}},
          [](EventRef) { return OSStatus{noErr}; });
    const Host::PopUpAnswer theAnswer([](const Host::PopUpLook& theLook) {
        return Host::MenuChoice{theLook.theMenu.theId, 1};
    });
    Click(30, 210);
    EXPECT_EQ(TakeLog(), (Log{"window: CommandProcess", "field: Hit"}));
    SetFocus(theField);
    Key(kVK_DownArrow, "", optionKey);
    EXPECT_EQ(TakeLog(), (Log{"window: CommandProcess", "field: Hit"}));
    DisposeControl(theField);
    EXPECT_EQ(GetMenuRetainCount(mMenu), 1u);
}

TEST_F(SearchFields, TakeAndGiveMenuAttributesAndDescription)
{
    HIViewRef theField = NewField(0, mMenu);
    MenuRef theMenu = nullptr;
    EXPECT_EQ(HISearchFieldGetSearchMenu(theField, &theMenu), noErr);
    EXPECT_EQ(theMenu, mMenu);
    EXPECT_EQ(HISearchFieldSetSearchMenu(theField, InventedReference<MenuRef>()), paramErr);
    EXPECT_EQ(HISearchFieldSetSearchMenu(theField, nullptr), noErr);
    EXPECT_EQ(GetMenuRetainCount(mMenu), 1u);
    EXPECT_EQ(HISearchFieldChangeAttributes(theField, kHISearchFieldAttributesSearchIcon, 0), noErr);
    EXPECT_EQ(HISearchFieldChangeAttributes(theField, 4, 0), paramErr);
    OptionBits theAttributes = 0;
    EXPECT_EQ(HISearchFieldGetAttributes(theField, &theAttributes), noErr);
    EXPECT_EQ(theAttributes, OptionBits{kHISearchFieldAttributesSearchIcon});
    CFStringRef theText = nullptr;
    EXPECT_EQ(HISearchFieldCopyDescriptiveText(theField, &theText), noErr);
    EXPECT_EQ(TextOf(theText), "Names");
    CFRelease(theText);
    EXPECT_EQ(LookOf(theField).Rare().theDescription, "Names");
    EXPECT_EQ(HISearchFieldSetDescriptiveText(theField, nullptr), noErr);
    EXPECT_EQ(HISearchFieldCopyDescriptiveText(theField, &theText), noErr);
    EXPECT_EQ(theText, nullptr);
}

TEST_F(SearchFields, AnswerWhatIsNoneWithAStatus)
{
    HIViewRef theField = InventedReference<HIViewRef>();
    const HIRect theBounds = CGRectMake(0, 0, 100, 20);
    EXPECT_EQ(HISearchFieldCreate(&theBounds, 4, nullptr, nullptr, &theField), paramErr);
    EXPECT_EQ(theField, nullptr);
    EXPECT_EQ(HISearchFieldCreate(&theBounds, 0, InventedReference<MenuRef>(), nullptr, &theField), paramErr);
    EXPECT_EQ(HISearchFieldGetSearchMenu(NewField(), nullptr), paramErr);
    EXPECT_EQ(HISearchFieldCopyDescriptiveText(NewField(), nullptr), paramErr);
    OptionBits theAttributes = 1;
    MenuRef theMenu = mMenu;
    CFStringRef theText = nullptr;
    for (HIViewRef theWrong : {HIViewRef{}, NewPushButton()}) {
        EXPECT_EQ(HISearchFieldSetSearchMenu(theWrong, nullptr), errUnknownControl);
        EXPECT_EQ(HISearchFieldGetSearchMenu(theWrong, &theMenu), errUnknownControl);
        EXPECT_EQ(HISearchFieldChangeAttributes(theWrong, 1, 0), errUnknownControl);
        EXPECT_EQ(HISearchFieldGetAttributes(theWrong, &theAttributes), errUnknownControl);
        EXPECT_EQ(HISearchFieldSetDescriptiveText(theWrong, nullptr), errUnknownControl);
        EXPECT_EQ(HISearchFieldCopyDescriptiveText(theWrong, &theText), errUnknownControl);
    }
}
