// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChoiceBinding.h"

#include "ChoiceTestSupport.h"
#include "ControllersTestSupport.h"
#include "LmObservation.h"
#include "NotificationRecorder.h"

#include <Carbon/Carbon.h>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

class LmChoiceBindingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mWindow = MakeChoiceWindow();
        mPost = MakeButton(CFSTR("Post"), 10);
        mCourier = MakeButton(CFSTR("Courier"), 20);
        mPickUp = MakeButton(CFSTR("Pick up"), 30);
        mModel.SetKeyPathValue("delivery", LmValue(20));
    }
    void TearDown() override { DisposeWindow(mWindow); }

    ControlRef MakeButton(CFStringRef theTitle, SInt32 theTag, SInt32 theValue = 0)
    {
        return MakeRadioButton(mWindow, &mTop, theTitle, theTag, theValue, true);
    }

    std::vector<ControlRef> All() const { return {mPost, mCourier, mPickUp}; }

    // "010", which buttons are on.
    static std::string On(const std::vector<ControlRef>& theButtons)
    {
        std::string theText;
        for (const ControlRef theButton : theButtons) {
            theText += std::to_string(GetControl32BitValue(theButton));
        }
        return theText;
    }

    WindowRef mWindow = nullptr;
    ControlRef mPost = nullptr;
    ControlRef mCourier = nullptr;
    ControlRef mPickUp = nullptr;
    LmKeyValueBinding mModel;
    short mTop = 0;
};

} // namespace

// ---- What is there

TEST_F(LmChoiceBindingTest, TellsTheChoices)
{
    LmChoiceBinding theChoice(All());
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 3");
    EXPECT_EQ(Read(theChoice, "choices.0"), "String \"Post\"");
    EXPECT_EQ(Read(theChoice, "choices.2"), "String \"Pick up\"");
    EXPECT_EQ(Read(theChoice, "choices.3"), "-");
    SetControlTitleWithCFString(mPost, CFSTR("Mail"));
    EXPECT_EQ(Read(theChoice, "choices.0"), "String \"Mail\"");
}

TEST_F(LmChoiceBindingTest, HasNoChoicesAtFirst)
{
    const LmChoiceBinding theChoice;
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 0");
}

TEST_F(LmChoiceBindingTest, SelectsTheFirstButtonThatIsOn)
{
    SetControl32BitValue(mCourier, 1);
    SetControl32BitValue(mPickUp, 1);
    const LmChoiceBinding theChoice(All());
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    EXPECT_EQ(On(All()), "010");
}

TEST_F(LmChoiceBindingTest, PassesOverWhatIsNoneOrThereTwice)
{
    const LmChoiceBinding theChoice({mPost, nullptr, mPost, mCourier});
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 2");
    EXPECT_EQ(Read(theChoice, "choices.1"), "String \"Courier\"");
}

TEST_F(LmChoiceBindingTest, TakesThePlaceAsTheTagOfAButtonWithoutIdentifier)
{
    const Rect theBounds = {300, 10, 320, 200};
    ControlRef theButton = nullptr;
    CreateRadioButtonControl(mWindow, &theBounds, CFSTR("Pigeon"), 1, true, &theButton);
    const LmChoiceBinding theChoice({mPost, mCourier, theButton});
    EXPECT_EQ(Selected(theChoice), "2 2 Pigeon");
}

// ---- Selecting

TEST_F(LmChoiceBindingTest, FollowsAPersonsClicks)
{
    LmChoiceBinding theChoice(All());
    theChoice.Bind("tag", &mModel, "delivery", nullptr, nullptr);
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    EXPECT_EQ(On(All()), "010");
    ClickRadioButton(mPickUp);
    EXPECT_EQ(Selected(theChoice), "2 30 Pick up");
    EXPECT_EQ(On(All()), "001");
    EXPECT_EQ(Read(mModel, "delivery"), "SInt32 30");
    mModel.SetKeyPathValue("delivery", LmValue(10));
    EXPECT_EQ(Selected(theChoice), "0 10 Post");
    EXPECT_EQ(On(All()), "100");
}

TEST_F(LmChoiceBindingTest, FollowsButtonsThatDoNotTurnThemselvesOn)
{
    const Rect theBounds = {300, 10, 320, 200};
    ControlRef theButton = nullptr;
    CreateRadioButtonControl(mWindow, &theBounds, CFSTR("Pigeon"), 0, false, &theButton);
    const LmChoiceBinding theChoice({mPost, theButton});
    ClickRadioButton(theButton);
    EXPECT_EQ(Selected(theChoice), "1 1 Pigeon");
    EXPECT_EQ(On({mPost, theButton}), "01");
}

TEST_F(LmChoiceBindingTest, FollowsWhatAProgramDoesToTheButtons)
{
    const LmChoiceBinding theChoice(All());
    SetControl32BitValue(mCourier, 1);
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    SetControl32BitValue(mPost, 1);
    EXPECT_EQ(Selected(theChoice), "0 10 Post");
    EXPECT_EQ(On(All()), "100");
    SetControl32BitValue(mPost, 0);
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
}

TEST_F(LmChoiceBindingTest, SelectsByEachOfTheThreeKeys)
{
    LmChoiceBinding theChoice(All());
    theChoice.SetKeyPathValue("index", LmValue(2));
    EXPECT_EQ(Selected(theChoice), "2 30 Pick up");
    EXPECT_EQ(On(All()), "001");
    theChoice.SetKeyPathValue("tag", LmValue(10));
    EXPECT_EQ(Selected(theChoice), "0 10 Post");
    EXPECT_EQ(On(All()), "100");
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Courier"), false));
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    EXPECT_EQ(On(All()), "010");
}

TEST_F(LmChoiceBindingTest, SelectsNoneWhereThereIsNoSuchChoice)
{
    LmChoiceBinding theChoice(All());
    for (const int thePlace : {3, -2, 2147483647}) {
        theChoice.SetKeyPathValue("index", LmValue(1));
        theChoice.SetKeyPathValue("index", LmValue(thePlace));
        EXPECT_EQ(Selected(theChoice), "-1 -1 ");
        EXPECT_EQ(On(All()), "000");
    }
    theChoice.SetKeyPathValue("index", LmValue(1));
    theChoice.SetKeyPathValue("tag", LmValue(99));
    EXPECT_EQ(Selected(theChoice), "-1 99 ");
    EXPECT_EQ(On(All()), "000");
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Pigeon"), false));
    EXPECT_EQ(Selected(theChoice), "-1 -1 Pigeon");
}

TEST_F(LmChoiceBindingTest, SelectsNothingByValuesOfOtherKinds)
{
    LmChoiceBinding theChoice(All());
    for (const char* theKey : {"index", "tag"}) {
        theChoice.SetKeyPathValue("index", LmValue(1));
        theChoice.SetKeyPathValue(theKey, LmValue(CFSTR("1"), false));
        EXPECT_EQ(On(All()), "000") << theKey;
    }
    theChoice.SetKeyPathValue("index", LmValue(1));
    theChoice.SetKeyPathValue("title", LmValue(1));
    EXPECT_EQ(On(All()), "000");
    theChoice.SetKeyPathValue("choices.0", LmValue(1));
    EXPECT_EQ(Read(theChoice, "choices.0"), "SInt32 1") << "it is kept";
    theChoice.SetButtons(All());
    EXPECT_EQ(Read(theChoice, "choices.0"), "String \"Post\"");
}

TEST_F(LmChoiceBindingTest, TellsOncePerSelectionAndInThisOrder)
{
    LmChoiceBinding theChoice(All());
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

TEST_F(LmChoiceBindingTest, ChangesTitlesAndNotTheCount)
{
    LmChoiceBinding theChoice(All());
    theChoice.SetKeyPathValue("index", LmValue(0));
    theChoice.SetKeyPathValue("choices.0", LmValue(CFSTR("Mail"), false));
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(mPost, &theTitle);
    EXPECT_EQ(LmGetStdString(LmValue(theTitle, true)), "Mail");
    EXPECT_EQ(Selected(theChoice), "0 10 Mail");
    theChoice.SetKeyPathValue("count", LmValue(7));
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 3");
    theChoice.SetKeyPathValue("other", LmValue(7));
    EXPECT_EQ(Read(theChoice, "other"), "SInt32 7");
}

// ---- Choices that come, go and change places

TEST_F(LmChoiceBindingTest, KeepsTheSelectionWhenButtonsChangePlaces)
{
    LmChoiceBinding theChoice(All());
    ClickRadioButton(mCourier);
    theChoice.SetButtons({mCourier, mPickUp, mPost});
    EXPECT_EQ(Selected(theChoice), "0 20 Courier");
    EXPECT_EQ(Read(theChoice, "choices.2"), "String \"Post\"");
    EXPECT_EQ(On(All()), "010");
    ClickRadioButton(mPost);
    EXPECT_EQ(Selected(theChoice), "2 10 Post");
}

TEST_F(LmChoiceBindingTest, KeepsTheSelectionWhenButtonsComeAndGo)
{
    LmChoiceBinding theChoice(All());
    ClickRadioButton(mCourier);
    theChoice.SetButtons({mCourier});
    EXPECT_EQ(Selected(theChoice), "0 20 Courier");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 1");
    EXPECT_EQ(Read(theChoice, "choices.1"), "String \"\"");
    ClickRadioButton(mPost);
    EXPECT_EQ(Selected(theChoice), "0 20 Courier") << "it is no choice any more";
    theChoice.SetButtons(All());
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    EXPECT_EQ(On(All()), "010");
}

TEST_F(LmChoiceBindingTest, KeepsTheSelectionWhenButtonsAreDisposedOf)
{
    LmChoiceBinding theChoice(All());
    ClickRadioButton(mCourier);
    DisposeControl(mPickUp);
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 2");
    DisposeControl(mPost);
    EXPECT_EQ(Selected(theChoice), "0 20 Courier");
    EXPECT_EQ(Read(theChoice, "choices.0"), "String \"Courier\"");
    DisposeControl(mCourier);
    EXPECT_EQ(Selected(theChoice), "-1 20 ");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 0");
    theChoice.SetButtons({MakeButton(CFSTR("Post"), 10), MakeButton(CFSTR("Bicycle"), 20)});
    EXPECT_EQ(Selected(theChoice), "1 20 Bicycle");
}

TEST_F(LmChoiceBindingTest, WaitsForTheChoiceThatIsWanted)
{
    LmChoiceBinding theChoice(std::vector<ControlRef>{mPost});
    theChoice.Bind("tag", &mModel, "delivery", nullptr, nullptr);
    EXPECT_EQ(Selected(theChoice), "-1 20 ");
    EXPECT_EQ(Read(mModel, "delivery"), "SInt32 20");
    theChoice.SetButtons(All());
    EXPECT_EQ(Selected(theChoice), "1 20 Courier");
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Pigeon"), false));
    DisposeControl(mPost);
    EXPECT_EQ(Selected(theChoice), "-1 -1 Pigeon");
    SetControlTitleWithCFString(mPickUp, CFSTR("Pigeon"));
    EXPECT_EQ(Selected(theChoice), "1 30 Pigeon");
    EXPECT_EQ(Read(mModel, "delivery"), "SInt32 30");
}

// ---- Re-entrancy and life

TEST_F(LmChoiceBindingTest, AnObserverMaySelectSomethingElse)
{
    for (const char* theKey : {"index", "tag", "title"}) {
        for (const LmChangeTime theTime : {kAfterChange, kBeforeChange}) {
            LmChoiceBinding theChoice(All());
            ClickRadioButton(mPost);
            bool isFirst = true;
            const LmObservation theObservation(
                &theChoice, theKey,
                [&](const LmChange&) {
                    if (std::exchange(isFirst, false)) {
                        theChoice.SetKeyPathValue("index", LmValue(2));
                    }
                },
                theTime);
            ClickRadioButton(mCourier);
            EXPECT_EQ(Selected(theChoice), "2 30 Pick up") << theKey << ", time " << theTime;
            EXPECT_EQ(On(All()), "001") << theKey << ", time " << theTime;
        }
    }
}

TEST_F(LmChoiceBindingTest, AHandlerOfAButtonMaySelectSomethingElse)
{
    LmChoiceBinding theChoice(All());
    ClickRadioButton(mPost);
    const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
    InstallEventHandler(
        GetControlEventTarget(mPost),
        [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
            static_cast<LmChoiceBinding*>(theData)->SetKeyPathValue("tag", LmValue(30));
            return eventNotHandledErr;
        },
        1, &theType, &theChoice, nullptr);
    theChoice.SetKeyPathValue("index", LmValue(1)); // turns the first button off
    EXPECT_EQ(Selected(theChoice), "2 30 Pick up");
    EXPECT_EQ(On(All()), "001");
}

TEST_F(LmChoiceBindingTest, AnObserverMayReplaceTheButtons)
{
    LmChoiceBinding theChoice(All());
    const LmObservation theObservation(&theChoice, "index", [&](const LmChange&) {
        theChoice.SetButtons({mCourier, mPost});
    });
    ClickRadioButton(mCourier);
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 2");
    EXPECT_EQ(On(All()), "010");
}

TEST_F(LmChoiceBindingTest, MayBeDestroyedByAnythingThatItTells)
{
    for (const char* theKey : {"index", "tag", "title", "count", "choices.0", "choices.1"}) {
        auto theChoice = std::make_unique<LmChoiceBinding>(All());
        const LmObservation theObservation(theChoice.get(), theKey,
                                           [&](const LmChange&) { theChoice.reset(); });
        const ControlRef theExtra = MakeButton(CFSTR("Pigeon"), 40);
        ClickRadioButton(mCourier);
        if (theChoice != nullptr) {
            theChoice->SetButtons({theExtra, mPost, mCourier, mPickUp});
        }
        EXPECT_EQ(theChoice, nullptr) << theKey;
        SetControl32BitValue(mCourier, 0);
    }
}

TEST_F(LmChoiceBindingTest, MayBeDestroyedWhileItGetsOtherButtons)
{
    for (const char* theKey : {"index", "title", "count", "choices.0"}) {
        auto theChoice = std::make_unique<LmChoiceBinding>(All());
        theChoice->SetKeyPathValue("tag", LmValue(30));
        const LmObservation theObservation(theChoice.get(), theKey,
                                           [&](const LmChange&) { theChoice.reset(); });
        theChoice->SetButtons({mCourier});
        EXPECT_EQ(theChoice, nullptr) << theKey;
    }
}

TEST_F(LmChoiceBindingTest, MayBeDestroyedByAButtonThatItTurnsOff)
{
    auto theChoice = std::make_unique<LmChoiceBinding>(All());
    ClickRadioButton(mPost);
    const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
    InstallEventHandler(
        GetControlEventTarget(mPost),
        [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
            static_cast<std::unique_ptr<LmChoiceBinding>*>(theData)->reset();
            return eventNotHandledErr;
        },
        1, &theType, &theChoice, nullptr);
    theChoice->SetKeyPathValue("index", LmValue(1));
    EXPECT_EQ(theChoice, nullptr);
}

TEST_F(LmChoiceBindingTest, AButtonMayBeDisposedOfWhileItIsTurnedOff)
{
    LmChoiceBinding theChoice(All());
    ClickRadioButton(mPost);
    const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
    InstallEventHandler(
        GetControlEventTarget(mPost),
        [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
            DisposeControl(static_cast<ControlRef>(theData));
            return eventNotHandledErr;
        },
        1, &theType, mPost, nullptr);
    theChoice.SetKeyPathValue("index", LmValue(2));
    EXPECT_EQ(Selected(theChoice), "1 30 Pick up");
    EXPECT_EQ(On({mCourier, mPickUp}), "01");
}

TEST_F(LmChoiceBindingTest, LetsTheButtonsGoAtItsEnd)
{
    {
        const LmChoiceBinding theChoice(All());
    }
    ClickRadioButton(mPost);
    ClickRadioButton(mCourier);
    EXPECT_EQ(On(All()), "110");
}
