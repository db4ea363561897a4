// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Combo boxes: fields with a list.

#include "ManagerTestSupport.h"

namespace {

class ComboBoxes : public ControlKindTest
{
protected:
    // In the window, shown, from 20, 200 to 220, 220.
    HIViewRef NewBox(OptionBits theAttributes = 0,
                     const std::vector<const char*>& theItems = {"Oslo", "Rome", "Riga"})
    {
        const HIRect theBounds = CGRectMake(20, 200, 200, 20);
        HIViewRef theView = nullptr;
        EXPECT_EQ(HIComboBoxCreate(&theBounds, nullptr, nullptr, nullptr, theAttributes, &theView), noErr);
        for (const char* theItem : theItems) {
            EXPECT_EQ(HIComboBoxAppendTextItem(theView, TestString(theItem), nullptr), noErr);
        }
        EmbedControl(theView, HIViewGetRoot(mWindow));
        HIViewSetVisible(theView, true);
        return theView;
    }

    static std::string Item(HIViewRef theView, CFIndex theIndex)
    {
        CFStringRef theText = nullptr;
        const OSStatus theStatus = HIComboBoxCopyTextItemAtIndex(theView, theIndex, &theText);
        if (theStatus != noErr) {
            EXPECT_EQ(theText, nullptr);
            return "status " + std::to_string(theStatus);
        }
        std::string theResult = TextOf(theText);
        CFRelease(theText);
        return theResult;
    }

    static std::string Items(HIViewRef theView)
    {
        std::string theItems;
        for (CFIndex theIndex = 0; theIndex < static_cast<CFIndex>(HIComboBoxGetItemCount(theView));
             ++theIndex) {
            theItems += (theIndex == 0 ? "" : " ") + Item(theView, theIndex);
        }
        return theItems;
    }

    void WatchChoices(HIViewRef theView)
    {
        Watch(theView, "box",
              {{kEventClassTextField, kEventTextDidChange},
               {kEventClassTextField, kEventTextAccepted},
               {kEventClassHIComboBox, kEventComboBoxListItemSelected},
               {kEventClassControl, kEventControlHit}},
              [this](EventRef theEvent) {
                  CFIndex theIndex = -1;
                  if (GetEventParameter(theEvent, kEventParamComboBoxListSelectedItemIndex, typeCFIndex,
                                        nullptr, sizeof theIndex, nullptr, &theIndex) == noErr) {
                      mLog.back() = "item " + std::to_string(theIndex);
                  }
                  return OSStatus{eventNotHandledErr};
              });
    }

    // Clicks the button while the person chooses an item of the list, 0 for none.
    void ClickAndChoose(int theItem)
    {
        const Host::PopUpAnswer theAnswer([&](const Host::PopUpLook& theLook) {
            mShown.push_back(theLook);
            return Host::MenuChoice{theLook.theMenu.theId, theItem};
        });
        Click(210, 210);
    }

    std::vector<Host::PopUpLook> mShown;
};

} // namespace

TEST_F(ComboBoxes, HaveAListOfTexts)
{
    HIViewRef theBox = NewBox();
    CFIndex theIndex = -1;
    EXPECT_EQ(HIComboBoxAppendTextItem(theBox, CFSTR("Vaduz"), &theIndex), noErr);
    EXPECT_EQ(theIndex, 3);
    EXPECT_EQ(HIComboBoxInsertTextItemAtIndex(theBox, 1, CFSTR("Kyiv")), noErr);
    EXPECT_EQ(HIComboBoxInsertTextItemAtIndex(theBox, 77, CFSTR("Bern")), noErr);
    EXPECT_EQ(Items(theBox), "Oslo Kyiv Rome Riga Vaduz Bern");
    EXPECT_EQ(HIComboBoxRemoveItemAtIndex(theBox, 0), noErr);
    EXPECT_EQ(HIComboBoxRemoveItemAtIndex(theBox, 4), noErr);
    EXPECT_EQ(Items(theBox), "Kyiv Rome Riga Vaduz");
}

TEST_F(ComboBoxes, AnswerWhatTheyHaveNotWithAStatus)
{
    HIViewRef theBox = NewBox();
    EXPECT_EQ(Item(theBox, -1), "status -50");
    EXPECT_EQ(Item(theBox, 3), "status -50");
    EXPECT_EQ(HIComboBoxRemoveItemAtIndex(theBox, 3), paramErr);
    EXPECT_EQ(HIComboBoxAppendTextItem(theBox, nullptr, nullptr), paramErr);
    EXPECT_EQ(HIComboBoxCopyTextItemAtIndex(theBox, 0, nullptr), paramErr);
    EXPECT_EQ(HIComboBoxChangeAttributes(theBox, 64, 0), paramErr);
    EXPECT_EQ(HIComboBoxGetAttributes(theBox, nullptr), paramErr);
    OptionBits theAttributes = 1;
    for (HIViewRef theWrong : {HIViewRef{}, NewPushButton(), InventedReference<HIViewRef>()}) {
        EXPECT_EQ(HIComboBoxAppendTextItem(theWrong, CFSTR("Text"), nullptr), errUnknownControl);
        EXPECT_EQ(HIComboBoxRemoveItemAtIndex(theWrong, 0), errUnknownControl);
        EXPECT_EQ(Item(theWrong, 0), "status " + std::to_string(errUnknownControl));
        EXPECT_EQ(HIComboBoxGetItemCount(theWrong), 0u);
        EXPECT_EQ(HIComboBoxChangeAttributes(theWrong, 1, 0), errUnknownControl);
        EXPECT_EQ(HIComboBoxGetAttributes(theWrong, &theAttributes), errUnknownControl);
        EXPECT_FALSE(HIComboBoxIsListVisible(theWrong));
    }
    const HIRect theBounds = CGRectMake(0, 0, 100, 20);
    EXPECT_EQ(HIComboBoxCreate(nullptr, nullptr, nullptr, nullptr, 0, &theBox), paramErr);
    EXPECT_EQ(theBox, nullptr);
    EXPECT_EQ(HIComboBoxCreate(&theBounds, nullptr, nullptr, nullptr, 64, &theBox), paramErr);
}

TEST_F(ComboBoxes, TakeAndGiveTheirListUnderATag)
{
    HIViewRef theBox = NewBox();
    const void* theValues[] = {CFSTR("One"), kCFBooleanTrue, CFSTR("Two")};
    CFArrayRef theList = CFArrayCreate(nullptr, theValues, 3, &kCFTypeArrayCallBacks);
    EXPECT_EQ(SetControlData(theBox, 0, kHIComboBoxListTag, sizeof theList, &theList), noErr);
    CFRelease(theList);
    EXPECT_EQ(Items(theBox), "One Two");
    EXPECT_EQ(GetControlData(theBox, 0, kHIComboBoxListTag, sizeof theList, &theList, nullptr), noErr);
    EXPECT_EQ(CFArrayGetCount(theList), 2);
    EXPECT_EQ(CFGetRetainCount(theList), 1);
    CFRelease(theList);
    UInt32 theNumber = 12;
    EXPECT_EQ(SetControlData(theBox, 0, kHIComboBoxNumVisibleItemsTag, sizeof theNumber, &theNumber), noErr);
    theNumber = 0;
    GetControlData(theBox, 0, kHIComboBoxNumVisibleItemsTag, sizeof theNumber, &theNumber, nullptr);
    EXPECT_EQ(theNumber, 12u);
}

TEST_F(ComboBoxes, AChoiceFromTheListIsAnEditThatIsAccepted)
{
    HIViewRef theBox = NewBox();
    WatchChoices(theBox);
    ClickAndChoose(2);
    EXPECT_EQ(TextIn(theBox), "Rome");
    EXPECT_EQ(TakeLog(), (Log{"box: TextDidChange", "item 1", "box: TextAccepted", "box: Hit"}));
    ASSERT_EQ(mShown.size(), 1u);
    EXPECT_EQ(mShown[0].theMenu.theItems.size(), 3u);
    EXPECT_EQ(mShown[0].theMenu.theItems[2].theText, "Riga");
    EXPECT_EQ(mShown[0].thePlace.theY, 100 + 220);
    ClickAndChoose(0);
    EXPECT_EQ(TakeLog(), Log()) << "nothing chosen, nothing hit";
    ClickAndChoose(2);
    EXPECT_EQ(TakeLog(), (Log{"item 1", "box: TextAccepted", "box: Hit"})) << "the text is what it was";
}

TEST_F(ComboBoxes, AHandlerMayRefuseAChoice)
{
    HIViewRef theBox = NewBox();
    WatchChoices(theBox);
    Watch(theBox, "refusal", {{kEventClassTextField, kEventTextShouldChangeInRange}},
          [](EventRef) { return OSStatus{userCanceledErr}; });
    ClickAndChoose(1);
    EXPECT_EQ(TextIn(theBox), "");
    EXPECT_EQ(TakeLog(), (Log{"refusal: TextShouldChangeInRange", "box: Hit"}));
}

TEST_F(ComboBoxes, TheirListIsVisibleWhileItIsOpen)
{
    HIViewRef theBox = NewBox();
    bool theIsVisible = false;
    const Host::PopUpAnswer theAnswer([&](const Host::PopUpLook&) {
        theIsVisible = HIComboBoxIsListVisible(theBox);
        DisposeControl(theBox);
        return Host::MenuChoice();
    });
    EXPECT_FALSE(HIComboBoxIsListVisible(theBox));
    Click(210, 210);
    EXPECT_TRUE(theIsVisible);
    EXPECT_FALSE(HIComboBoxIsListVisible(theBox));
}

TEST_F(ComboBoxes, AnEmptyOrLockedOneOpensNothing)
{
    HIViewRef theEmpty = NewBox(0, {});
    ClickAndChoose(1);
    EXPECT_EQ(mShown.size(), 0u);
    DisposeControl(theEmpty);
    HIViewRef theLocked = NewBox();
    const Boolean theIsLocked = true;
    SetControlData(theLocked, 0, kControlEditTextLockedTag, sizeof theIsLocked, &theIsLocked);
    ClickAndChoose(1);
    EXPECT_EQ(mShown.size(), 0u);
}

TEST_F(ComboBoxes, AreTypedIntoWherePressesLeadToTheText)
{
    HIViewRef theBox = NewBox();
    Click(100, 210);
    EXPECT_EQ(Focus(), theBox);
    Type("Rom");
    EXPECT_EQ(TextIn(theBox), "Rom");
    EXPECT_EQ(TestControl(theBox, Point{210, 199}), kHIComboBoxEditTextPart);
    EXPECT_EQ(TestControl(theBox, Point{210, 200}), kHIComboBoxDisclosurePart);
}

TEST_F(ComboBoxes, TheArrowsGoThroughTheListAndOptionOpensIt)
{
    HIViewRef theBox = NewBox();
    SetFocus(theBox);
    Key(kVK_DownArrow);
    EXPECT_EQ(TextIn(theBox), "Oslo");
    Key(kVK_UpArrow);
    EXPECT_EQ(TextIn(theBox), "Oslo");
    Key(kVK_DownArrow);
    Key(kVK_DownArrow);
    Key(kVK_DownArrow);
    EXPECT_EQ(TextIn(theBox), "Riga");
    Type("x");
    Key(kVK_UpArrow);
    EXPECT_EQ(TextIn(theBox), "Riga") << "from a text of one's own, to the last";
    const Host::PopUpAnswer theAnswer([](const Host::PopUpLook& theLook) {
        return Host::MenuChoice{theLook.theMenu.theId, 2};
    });
    Key(kVK_DownArrow, "", optionKey);
    EXPECT_EQ(TextIn(theBox), "Rome");
}

TEST_F(ComboBoxes, CompleteWhatIsTypedWhenTheyAreAskedTo)
{
    HIViewRef theBox = NewBox(kHIComboBoxAutoCompletionAttribute);
    SetFocus(theBox);
    Type("r");
    EXPECT_EQ(TextIn(theBox), "rome");
    EXPECT_EQ(Selection(theBox), "1-4");
    Type("i");
    EXPECT_EQ(TextIn(theBox), "riga");
    EXPECT_EQ(Selection(theBox), "2-4");
    Key(kVK_Delete);
    EXPECT_EQ(TextIn(theBox), "ri") << "what is deleted stays away";
    EXPECT_EQ(HIComboBoxChangeAttributes(theBox, 0, kHIComboBoxAutoCompletionAttribute), noErr);
    Type("g");
    EXPECT_EQ(TextIn(theBox), "rig");
}

TEST_F(ComboBoxes, SortTheirListWhenTheyAreAskedTo)
{
    HIViewRef theBox = NewBox();
    EXPECT_EQ(HIComboBoxChangeAttributes(theBox, kHIComboBoxAutoSortAttribute, 0), noErr);
    EXPECT_EQ(Items(theBox), "Oslo Riga Rome");
    CFIndex theIndex = -1;
    HIComboBoxAppendTextItem(theBox, CFSTR("paris"), &theIndex);
    EXPECT_EQ(theIndex, 1);
    EXPECT_EQ(Items(theBox), "Oslo paris Riga Rome");
    OptionBits theAttributes = 0;
    EXPECT_EQ(HIComboBoxGetAttributes(theBox, &theAttributes), noErr);
    EXPECT_EQ(theAttributes, OptionBits{kHIComboBoxAutoSortAttribute});
}
