// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The choices of a radio group.

#include "ChoiceTestSupport.h"
#include "ControllersTestSupport.h"
#include "LmObservation.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

class LmChoiceBindingGroupTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mWindow = MakeChoiceWindow();
        const Rect theBounds = {10, 10, 390, 390};
        CreateRadioGroupControl(mWindow, &theBounds, &mGroup);
        mPost = Add(CFSTR("Post"), 10);
        mCourier = Add(CFSTR("Courier"), 20);
        mPickUp = Add(CFSTR("Pick up"), 30);
    }
    void TearDown() override { DisposeWindow(mWindow); }

    ControlRef Add(CFStringRef theTitle, SInt32 theTag, SInt32 theValue = 0)
    {
        const ControlRef theButton = MakeRadioButton(mWindow, &mTop, theTitle, theTag, theValue, false);
        EmbedControl(theButton, mGroup);
        return theButton;
    }

    // "2 010": the group's value, and which buttons are on.
    std::string Shown() const
    {
        std::string theText = std::to_string(GetControl32BitValue(mGroup)) + " ";
        for (const ControlRef theButton : {mPost, mCourier, mPickUp}) {
            theText +=
                IsValidControlHandle(theButton) ? std::to_string(GetControl32BitValue(theButton)) : "-";
        }
        return theText;
    }

    WindowRef mWindow = nullptr;
    ControlRef mGroup = nullptr;
    ControlRef mPost = nullptr;
    ControlRef mCourier = nullptr;
    ControlRef mPickUp = nullptr;
    short mTop = 0;
};

} // namespace

TEST_F(LmChoiceBindingGroupTest, TellsTheButtonsAndNothingElseThatStandsAmongThem)
{
    const Rect theBounds = {300, 20, 320, 200};
    ControlRef theText = nullptr;
    CreateStaticTextControl(mWindow, &theBounds, CFSTR("or"), nullptr, &theText);
    EmbedControl(theText, mGroup);
    Add(CFSTR("Pigeon"), 40);
    SetControl32BitValue(mGroup, 5);
    LmChoiceBinding theChoice(mGroup);
    EXPECT_EQ(Titles(theChoice), "Post, Courier, Pick up, Pigeon");
    EXPECT_EQ(Selected(theChoice), "3 40 Pigeon");
    theChoice.SetKeyPathValue("index", LmValue(1));
    EXPECT_EQ(Shown(), "2 010");
    theChoice.SetKeyPathValue("tag", LmValue(40));
    EXPECT_EQ(Shown(), "5 000");
}

TEST_F(LmChoiceBindingGroupTest, FollowsAClickAndWhatAProgramDoes)
{
    LmChoiceBinding theChoice(mGroup);
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    ClickRadioButton(mCourier);
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    SetControl32BitValue(mGroup, 3);
    EXPECT_EQ(Selected(theChoice), "2 30 Pick up");
    SetControl32BitValue(mPost, 1);
    EXPECT_EQ(Selected(theChoice), "0 10 Post");
    SetControl32BitValue(mPost, 0);
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Courier"), false));
    EXPECT_EQ(Shown(), "2 010");
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Pigeon"), false));
    EXPECT_EQ(Shown(), "0 000");
    EXPECT_EQ(Selected(theChoice), "-1 -1 Pigeon");
}

TEST_F(LmChoiceBindingGroupTest, TellsOncePerSelectionAndInThisOrder)
{
    LmChoiceBinding theChoice(mGroup);
    ClickRadioButton(mPost);
    NotificationRecorder theRecorder;
    for (const char* theKey : {"title", "tag", "index", "count", "choices.0"}) {
        theChoice.ObserveKeyPathValue(theKey, &theRecorder);
    }
    ClickRadioButton(mCourier);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing index", "changed index", "changing tag", "changed tag",
                                         "changing title", "changed title"}));
    ClickRadioButton(mCourier);
    EXPECT_EQ(theRecorder.Take(), Lines());
}

TEST_F(LmChoiceBindingGroupTest, KeepsTheSelectionWhenButtonsComeAndGo)
{
    LmChoiceBinding theChoice(mGroup);
    ClickRadioButton(mCourier);
    DisposeControl(mPost);
    EXPECT_EQ(Selected(theChoice), "0 20 Courier");
    EXPECT_EQ(Titles(theChoice), "Courier, Pick up");
    EXPECT_EQ(Read(theChoice, "choices.2"), "String \"\"");
    DisposeControl(mCourier);
    EXPECT_EQ(Selected(theChoice), "-1 20 ");
    Add(CFSTR("Pigeon"), 40);
    EXPECT_EQ(Selected(theChoice), "-1 20 ");
    const ControlRef theBicycle = Add(CFSTR("Bicycle"), 20);
    EXPECT_EQ(Selected(theChoice), "2 20 Bicycle");
    EXPECT_EQ(GetControl32BitValue(theBicycle), 1);
    EXPECT_EQ(Titles(theChoice), "Pick up, Pigeon, Bicycle");
    Add(CFSTR("Drone"), 50, 1);
    EXPECT_EQ(Selected(theChoice), "2 20 Bicycle") << "the group keeps the first that is on";
}

TEST_F(LmChoiceBindingGroupTest, SelectsTheButtonThatComesTurnedOn)
{
    LmChoiceBinding theChoice(mGroup);
    Add(CFSTR("Drone"), 50, 1);
    EXPECT_EQ(Selected(theChoice), "3 50 Drone");
}

TEST_F(LmChoiceBindingGroupTest, KeepsTheSelectionWhenButtonsChangePlaces)
{
    LmChoiceBinding theChoice(mGroup);
    ClickRadioButton(mCourier);
    ControlRef theRoot = nullptr;
    GetRootControl(mWindow, &theRoot);
    EmbedControl(mCourier, theRoot);
    EXPECT_EQ(Selected(theChoice), "-1 20 ");
    EmbedControl(mCourier, mGroup);
    EXPECT_EQ(Selected(theChoice), "2 20 Courier");
    EXPECT_EQ(Titles(theChoice), "Post, Pick up, Courier");
    EXPECT_EQ(Shown(), "3 010");
    EmbedControl(mPost, mGroup); // once more, behind the others
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    EXPECT_EQ(Titles(theChoice), "Pick up, Courier, Post");
    EXPECT_EQ(Shown(), "2 010");
}

TEST_F(LmChoiceBindingGroupTest, TheTagOfAButtonWithoutIdentifierIsItsFirstPlace)
{
    const ControlRef thePigeon = Add(CFSTR("Pigeon"), 0);
    LmChoiceBinding theChoice(mGroup);
    ClickRadioButton(thePigeon);
    EXPECT_EQ(Selected(theChoice), "3 3 Pigeon");
    DisposeControl(mPost);
    EXPECT_EQ(Selected(theChoice), "2 3 Pigeon");
}

TEST_F(LmChoiceBindingGroupTest, FollowsTheTitlesOfTheButtons)
{
    LmChoiceBinding theChoice(mGroup);
    ClickRadioButton(mCourier);
    SetControlTitleWithCFString(mCourier, CFSTR("Bicycle"));
    EXPECT_EQ(Selected(theChoice), "1 20 Bicycle");
    EXPECT_EQ(Titles(theChoice), "Post, Bicycle, Pick up");
    SetControlTitleWithCFString(mGroup, CFSTR("Delivery"));
    EXPECT_EQ(Titles(theChoice), "Post, Bicycle, Pick up");
    theChoice.SetKeyPathValue("choices.0", LmValue(CFSTR("Mail"), false));
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(mPost, &theTitle);
    EXPECT_EQ(LmGetStdString(LmValue(theTitle, true)), "Mail");
    EXPECT_EQ(Titles(theChoice), "Mail, Bicycle, Pick up");
}

TEST_F(LmChoiceBindingGroupTest, TheGroupMayBeDisposedOf)
{
    LmChoiceBinding theChoice(mGroup);
    ClickRadioButton(mCourier);
    DisposeControl(mGroup);
    EXPECT_EQ(Selected(theChoice), "-1 20 ");
    EXPECT_EQ(Titles(theChoice), "");
}

TEST_F(LmChoiceBindingGroupTest, MayBeDestroyedByAnythingThatItTells)
{
    for (const char* theKey : {"index", "tag", "title", "count", "choices.0"}) {
        auto theChoice = std::make_unique<LmChoiceBinding>(mGroup);
        theChoice->SetKeyPathValue("tag", LmValue(20));
        const LmObservation theObservation(theChoice.get(), theKey,
                                           [&](const LmChange&) { theChoice.reset(); });
        const ControlRef theNew = Add(CFSTR("Pigeon"), 40);
        if (theChoice != nullptr) {
            theChoice->SetKeyPathValue("choices.0", LmValue(CFSTR("Mail"), false));
        }
        if (theChoice != nullptr) {
            ClickRadioButton(mPickUp);
        }
        EXPECT_EQ(theChoice, nullptr) << theKey;
        SetControlTitleWithCFString(mPost, CFSTR("Post"));
        DisposeControl(theNew);
    }
}
