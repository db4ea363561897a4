// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The choices of a pop-up button.

#include "ChoiceTestSupport.h"
#include "ControllersTestSupport.h"
#include "LmObservation.h"
#include "NotificationRecorder.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <utility>
#include <vector>

namespace {

const MenuEntry kEuro = {CFSTR("Euro"), 'eur '};
const MenuEntry kFranc = {CFSTR("Franc"), 'chf '};
const MenuEntry kPound = {CFSTR("Pound"), 'gbp '};
const MenuEntry kYen = {CFSTR("Yen"), 'jpy '};
const MenuEntry kOther = {CFSTR("Other"), 0};

// The tags as texts.
const std::string kTagEuro = std::to_string('eur ');
const std::string kTagFranc = std::to_string('chf ');
const std::string kTagPound = std::to_string('gbp ');

class LmChoiceBindingPopUpTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mWindow = MakeChoiceWindow();
        CreateNewMenu(200, 0, &mMenu);
        Fill({kEuro, kFranc, kPound});
        mPopUp = MakePopUp(mWindow, mMenu);
    }
    void TearDown() override { DisposeWindow(mWindow); }

    void Fill(const std::vector<MenuEntry>& theEntries) const { FillMenu(mMenu, theEntries); }

    SInt32 Value() const { return GetControl32BitValue(mPopUp); }

    // Calls theFunction when the value of the pop-up button, or its range, has changed.
    void OnChange(std::function<void()> theFunction)
    {
        if (std::exchange(mFunction, std::move(theFunction)) != nullptr) {
            return; // there is a handler
        }
        const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
        InstallEventHandler(
            GetControlEventTarget(mPopUp),
            [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
                (*static_cast<std::function<void()>*>(theData))();
                return eventNotHandledErr;
            },
            1, &theType, &mFunction, nullptr);
    }

    WindowRef mWindow = nullptr;
    MenuRef mMenu = nullptr; // the pop-up button's
    ControlRef mPopUp = nullptr;
    LmKeyValueBinding mModel;
    std::function<void()> mFunction;
};

} // namespace

// ---- What is there

TEST_F(LmChoiceBindingPopUpTest, TellsTheItemsAndWhichOneIsShown)
{
    SetControl32BitValue(mPopUp, 2);
    const LmChoiceBinding theChoice(mPopUp);
    EXPECT_EQ(Titles(theChoice), "Euro, Franc, Pound");
    EXPECT_EQ(Selected(theChoice), "1 " + kTagFranc + " Franc");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 3");
}

TEST_F(LmChoiceBindingPopUpTest, PassesOverSeparatorsAndHiddenItems)
{
    Fill({kEuro, {CFSTR("-"), 0}, kFranc, kPound});
    ChangeMenuItemAttributes(mMenu, 2, kMenuItemAttrSeparator, 0);
    ChangeMenuItemAttributes(mMenu, 3, kMenuItemAttrHidden, 0);
    LmChoiceBinding theChoice(mPopUp);
    EXPECT_EQ(Titles(theChoice), "Euro, Pound");
    theChoice.SetKeyPathValue("index", LmValue(1));
    EXPECT_EQ(Value(), 4);
    SetControl32BitValue(mPopUp, 2);
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    EXPECT_EQ(Value(), 0) << "a separator is nothing to show";
}

TEST_F(LmChoiceBindingPopUpTest, HasNoChoicesWithoutAMenu)
{
    SetControlPopupMenuHandle(mPopUp, nullptr);
    LmChoiceBinding theChoice(mPopUp);
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    EXPECT_EQ(Titles(theChoice), "");
    MenuRef theMenu = nullptr;
    CreateNewMenu(201, 0, &theMenu);
    FillMenu(theMenu, std::vector<MenuEntry>{kYen, kEuro});
    theChoice.SetKeyPathValue("tag", LmValue('eur '));
    SetControlData(mPopUp, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag, sizeof theMenu,
                   &theMenu);
    EXPECT_EQ(Titles(theChoice), "Yen, Euro");
    EXPECT_EQ(Selected(theChoice), "1 " + kTagEuro + " Euro");
    EXPECT_EQ(Value(), 2);
}

TEST_F(LmChoiceBindingPopUpTest, TakesAnyOtherControlAsOneButtonAndNullAsNone)
{
    const Rect theBounds = {100, 20, 120, 220};
    ControlRef theBox = nullptr;
    CreateCheckBoxControl(mWindow, &theBounds, CFSTR("Box"), 1, true, &theBox);
    LmChoiceBinding theChoice(theBox);
    EXPECT_EQ(Titles(theChoice), "Box");
    EXPECT_EQ(Selected(theChoice), "0 0 Box");
    theChoice.SetControl(nullptr);
    EXPECT_EQ(Titles(theChoice), "");
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "-1 0 ") << "what was selected may come back";
}

// ---- Selecting

TEST_F(LmChoiceBindingPopUpTest, ShowsWhatIsSelectedByEachOfTheThreeKeys)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("index", LmValue(2));
    EXPECT_EQ(Selected(theChoice), "2 " + kTagPound + " Pound");
    EXPECT_EQ(Value(), 3);
    theChoice.SetKeyPathValue("tag", LmValue('eur '));
    EXPECT_EQ(Selected(theChoice), "0 " + kTagEuro + " Euro");
    EXPECT_EQ(Value(), 1);
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Franc"), false));
    EXPECT_EQ(Selected(theChoice), "1 " + kTagFranc + " Franc");
    EXPECT_EQ(Value(), 2);
}

TEST_F(LmChoiceBindingPopUpTest, FollowsTheValue)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.Bind("title", &mModel, "currency", nullptr, nullptr);
    SetControl32BitValue(mPopUp, 3);
    EXPECT_EQ(Selected(theChoice), "2 " + kTagPound + " Pound");
    EXPECT_EQ(Read(mModel, "currency"), "String \"Pound\"");
    mModel.SetKeyPathValue("currency", LmValue(CFSTR("Franc"), false));
    EXPECT_EQ(Value(), 2);
}

TEST_F(LmChoiceBindingPopUpTest, IsEmptyWhereThereIsNoSuchChoice)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("tag", LmValue('jpy '));
    EXPECT_EQ(Selected(theChoice), "-1 " + std::to_string('jpy ') + " ");
    EXPECT_EQ(Value(), 0);
    EXPECT_EQ(GetControl32BitMinimum(mPopUp), 0);
    SetControl32BitValue(mPopUp, 1);
    EXPECT_EQ(Selected(theChoice), "0 " + kTagEuro + " Euro");
    theChoice.SetKeyPathValue("tag", LmValue(-1));
    EXPECT_EQ(Selected(theChoice), "-1 -1 ");
    EXPECT_EQ(Value(), 0);
}

TEST_F(LmChoiceBindingPopUpTest, KeepsTheWantedChoiceWhenTheMinimumIsRaised)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Yen"), false));
    SetControl32BitMinimum(mPopUp, 1); // which raises the value
    EXPECT_EQ(Selected(theChoice), "-1 -1 Yen");
    EXPECT_EQ(Value(), 0);
}

TEST_F(LmChoiceBindingPopUpTest, TellsOncePerSelectionAndInThisOrder)
{
    LmChoiceBinding theChoice(mPopUp);
    NotificationRecorder theRecorder;
    for (const char* theKey : {"title", "tag", "index", "count", "choices.0"}) {
        theChoice.ObserveKeyPathValue(theKey, &theRecorder);
    }
    SetControl32BitValue(mPopUp, 2);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing index", "changed index", "changing tag", "changed tag",
                                         "changing title", "changed title"}));
    SetControl32BitValue(mPopUp, 2);
    theChoice.UpdateChoices();
    EXPECT_EQ(theRecorder.Take(), Lines());
}

TEST_F(LmChoiceBindingPopUpTest, TheTitleStandsForItemsWithoutACommand)
{
    Fill({kOther, kEuro, {CFSTR("None"), 0}});
    LmChoiceBinding theChoice(mPopUp);
    EXPECT_EQ(Selected(theChoice), "0 -1 Other");
    theChoice.SetKeyPathValue("tag", LmValue('eur '));
    theChoice.SetKeyPathValue("tag", LmValue(-1));
    EXPECT_EQ(Selected(theChoice), "-1 -1 ") << "it says that none is selected";
    theChoice.SetKeyPathValue("index", LmValue(2));
    EXPECT_EQ(Selected(theChoice), "2 -1 None");
    Fill({kEuro, {CFSTR("None"), 0}, kOther});
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "1 -1 None");
    EXPECT_EQ(Value(), 2);
    Fill({kEuro});
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "-1 -1 None");
    Fill({kEuro, kOther, {CFSTR("None"), 0}});
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "2 -1 None");
}

TEST_F(LmChoiceBindingPopUpTest, ChangesTheTextOfAnItem)
{
    Fill({kEuro, kOther});
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("index", LmValue(1));
    theChoice.SetKeyPathValue("choices.1", LmValue(CFSTR("Another"), false));
    CFStringRef theText = nullptr;
    CopyMenuItemTextAsCFString(mMenu, 2, &theText);
    EXPECT_EQ(LmGetStdString(LmValue(theText, true)), "Another");
    EXPECT_EQ(Selected(theChoice), "1 -1 Another") << "it is the same item";
    EXPECT_EQ(Titles(theChoice), "Euro, Another");
}

TEST_F(LmChoiceBindingPopUpTest, ATextThatIsChangedMayBeTheOneThatIsWanted)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Yen"), false));
    theChoice.SetKeyPathValue("choices.2", LmValue(CFSTR("Yen"), false));
    EXPECT_EQ(Selected(theChoice), "2 " + kTagPound + " Yen");
    EXPECT_EQ(Value(), 3);
}

TEST_F(LmChoiceBindingPopUpTest, ATextThatIsChangedShowsWhatElseHasChanged)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("index", LmValue(1));
    Fill({kFranc, kEuro, kPound});
    theChoice.SetKeyPathValue("choices.2", LmValue(CFSTR("Sterling"), false));
    EXPECT_EQ(Selected(theChoice), "0 " + kTagFranc + " Franc");
    EXPECT_EQ(Titles(theChoice), "Franc, Euro, Sterling");
}

// ---- Choices that come, go and change places

TEST_F(LmChoiceBindingPopUpTest, KeepsTheSelectionWhenItemsChangePlaces)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("index", LmValue(1));
    Fill({kPound, kEuro, kFranc});
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "2 " + kTagFranc + " Franc");
    EXPECT_EQ(Titles(theChoice), "Pound, Euro, Franc");
    EXPECT_EQ(Value(), 3);
}

TEST_F(LmChoiceBindingPopUpTest, GivesTheButtonTheMaximumThatItNeeds)
{
    LmChoiceBinding theChoice(mPopUp);
    Fill({kEuro, kFranc, kPound, kYen});
    theChoice.UpdateChoices();
    EXPECT_EQ(GetControl32BitMaximum(mPopUp), 4);
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Yen"), false));
    EXPECT_EQ(Value(), 4);
}

TEST_F(LmChoiceBindingPopUpTest, KeepsTheSelectionWhenTheProgramSetsTheMaximumOfOtherItems)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("index", LmValue(1));
    Fill({kYen, kEuro, kPound, kFranc});
    SetControl32BitMaximum(mPopUp, 4);
    EXPECT_EQ(Selected(theChoice), "3 " + kTagFranc + " Franc");
    Fill({kFranc, kPound});
    SetControl32BitMaximum(mPopUp, 2); // which lowers the value
    EXPECT_EQ(Selected(theChoice), "0 " + kTagFranc + " Franc");
    EXPECT_EQ(Value(), 1);
    Fill({kPound});
    SetControl32BitMaximum(mPopUp, 1);
    EXPECT_EQ(Selected(theChoice), "-1 " + kTagFranc + " ");
    EXPECT_EQ(Value(), 0);
    Fill({kPound, kFranc});
    SetControl32BitMaximum(mPopUp, 2);
    EXPECT_EQ(Selected(theChoice), "1 " + kTagFranc + " Franc");
}

TEST_F(LmChoiceBindingPopUpTest, TakesAChoiceOfItemsThatNobodyToldOf)
{
    LmChoiceBinding theChoice(mPopUp);
    Fill({kYen, kPound});
    SetControl32BitValue(mPopUp, 2);
    EXPECT_EQ(Selected(theChoice), "1 " + kTagPound + " Pound");
    EXPECT_EQ(Titles(theChoice), "Yen, Pound");
    Fill({kYen, kEuro});
    HIViewSimulateClick(mPopUp, kControlMenuPart, 0, nullptr); // nothing comes of it
    const EventRef theHit = [&] {
        EventRef theEvent = nullptr;
        CreateEvent(nullptr, kEventClassControl, kEventControlHit, 0, kEventAttributeNone, &theEvent);
        SetEventParameter(theEvent, kEventParamDirectObject, typeControlRef, sizeof mPopUp, &mPopUp);
        return theEvent;
    }();
    SendEventToEventTarget(theHit, GetControlEventTarget(mPopUp)); // the same place as before
    ReleaseEvent(theHit);
    EXPECT_EQ(Selected(theChoice), "1 " + kTagEuro + " Euro");
    EXPECT_EQ(Titles(theChoice), "Yen, Euro");
}

TEST_F(LmChoiceBindingPopUpTest, KeepsTheSelectionWhenTheButtonIsDisposedOfAndAnotherComes)
{
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetKeyPathValue("index", LmValue(1));
    MenuRef theMenu = nullptr;
    CreateNewMenu(201, 0, &theMenu);
    FillMenu(theMenu, std::vector<MenuEntry>{kYen, kEuro, kFranc});
    const ControlRef theOther = MakePopUp(mWindow, theMenu, 60);
    DisposeControl(mPopUp);
    EXPECT_EQ(Selected(theChoice), "-1 " + kTagFranc + " ");
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 0");
    EXPECT_EQ(Read(theChoice, "choices.2"), "String \"\"");
    theChoice.SetKeyPathValue("index", LmValue(1));
    EXPECT_EQ(Selected(theChoice), "-1 -1 ") << "there is nothing to select";
    theChoice.SetKeyPathValue("tag", LmValue('chf '));
    theChoice.SetControl(theOther);
    EXPECT_EQ(Selected(theChoice), "2 " + kTagFranc + " Franc");
    EXPECT_EQ(GetControl32BitValue(theOther), 3);
}

TEST_F(LmChoiceBindingPopUpTest, LetsGoOfWhatItHadBefore)
{
    const Rect theBounds = {100, 20, 120, 220};
    ControlRef theButton = nullptr;
    CreateRadioButtonControl(mWindow, &theBounds, CFSTR("Dollar"), 0, true, &theButton);
    LmChoiceBinding theChoice(mPopUp);
    theChoice.SetButtons({theButton});
    SetControl32BitValue(mPopUp, 3);
    EXPECT_EQ(Selected(theChoice), "-1 " + kTagEuro + " ");
    theChoice.SetControl(mPopUp);
    EXPECT_EQ(Selected(theChoice), "0 " + kTagEuro + " Euro");
    SetControl32BitValue(theButton, 1);
    EXPECT_EQ(Selected(theChoice), "0 " + kTagEuro + " Euro");
}

// ---- Re-entrancy and life

TEST_F(LmChoiceBindingPopUpTest, AnObserverMaySelectSomethingElse)
{
    for (const char* theKey : {"index", "tag", "title"}) {
        LmChoiceBinding theChoice(mPopUp);
        theChoice.SetKeyPathValue("index", LmValue(0));
        bool isFirst = true;
        const LmObservation theObservation(&theChoice, theKey, [&](const LmChange&) {
            if (std::exchange(isFirst, false)) {
                theChoice.SetKeyPathValue("index", LmValue(2));
            }
        });
        SetControl32BitValue(mPopUp, 2);
        EXPECT_EQ(Selected(theChoice), "2 " + kTagPound + " Pound") << theKey;
        EXPECT_EQ(Value(), 3) << theKey;
    }
}

TEST_F(LmChoiceBindingPopUpTest, AHandlerMaySelectSomethingElseAtEachStep)
{
    // What is wanted has no place, so that the maximum, the minimum and the value are changed in turn.
    for (int theStep = 1; theStep <= 3; ++theStep) {
        LmChoiceBinding theChoice(mPopUp);
        theChoice.SetKeyPathValue("index", LmValue(0));
        SetControl32BitMinimum(mPopUp, 1);
        Fill({kEuro, kPound, kYen, kOther});
        theChoice.UpdateChoices();
        SetControl32BitMaximum(mPopUp, 3);
        int theChanges = 0;
        OnChange([&] {
            if (++theChanges == theStep) {
                theChoice.SetKeyPathValue("tag", LmValue('gbp '));
            }
        });
        theChoice.SetKeyPathValue("title", LmValue(CFSTR("Dollar"), false));
        mFunction = [] {};
        EXPECT_GE(theChanges, theStep);
        EXPECT_EQ(Selected(theChoice), "1 " + kTagPound + " Pound") << "step " << theStep;
        EXPECT_EQ(Value(), 2) << "step " << theStep;
        EXPECT_EQ(GetControl32BitMinimum(mPopUp), theStep == 1 ? 1 : 0) << "step " << theStep;
        Fill({kEuro, kFranc, kPound});
        SetControl32BitMaximum(mPopUp, 3);
    }
}

TEST_F(LmChoiceBindingPopUpTest, MayBeDestroyedOrGetOtherControlsByAnythingThatItTells)
{
    const Rect theBounds = {100, 20, 120, 220};
    ControlRef theButton = nullptr;
    CreateRadioButtonControl(mWindow, &theBounds, CFSTR("Dollar"), 0, true, &theButton);
    for (const bool isEnd : {true, false}) {
        for (const char* theKey : {"index", "tag", "title", "count", "choices.0", "choices.3"}) {
            Fill({kEuro, kFranc, kPound});
            SetControl32BitMaximum(mPopUp, 3);
            auto theChoice = std::make_unique<LmChoiceBinding>(mPopUp);
            theChoice->SetKeyPathValue("index", LmValue(0));
            bool isTold = false;
            const LmObservation theObservation(theChoice.get(), theKey, [&](const LmChange&) {
                isTold = true;
                if (isEnd) {
                    theChoice.reset();
                } else {
                    theChoice->SetButtons({theButton});
                }
            });
            Fill({kYen, kEuro, kFranc, kPound});
            SetControl32BitMaximum(mPopUp, 4);
            if (!isTold) {
                SetControl32BitValue(mPopUp, 3);
            }
            EXPECT_TRUE(isTold) << theKey;
            if (!isEnd) {
                EXPECT_EQ(Titles(*theChoice), "Dollar") << theKey;
            }
        }
    }
}

TEST_F(LmChoiceBindingPopUpTest, MayBeDestroyedByAChoiceOfItemsThatNobodyToldOf)
{
    for (const char* theKey : {"index", "tag", "title", "count", "choices.0"}) {
        Fill({kEuro, kFranc, kPound});
        SetControl32BitValue(mPopUp, 1);
        auto theChoice = std::make_unique<LmChoiceBinding>(mPopUp);
        const LmObservation theObservation(theChoice.get(), theKey,
                                           [&](const LmChange&) { theChoice.reset(); });
        Fill({kYen, kPound});
        SetControl32BitValue(mPopUp, 2);
        EXPECT_EQ(theChoice, nullptr) << theKey;
    }
}

TEST_F(LmChoiceBindingPopUpTest, MayBeDestroyedWhileItSetsTheRange)
{
    for (int theStep = 1; theStep <= 3; ++theStep) {
        Fill({kEuro, kFranc, kPound});
        SetControl32BitMaximum(mPopUp, 3);
        SetControl32BitMinimum(mPopUp, 1);
        auto theChoice = std::make_unique<LmChoiceBinding>(mPopUp);
        Fill({kEuro, kFranc, kPound, kYen});
        theChoice->UpdateChoices();
        SetControl32BitMaximum(mPopUp, 3);
        int theChanges = 0;
        OnChange([&] {
            if (++theChanges == theStep) {
                theChoice.reset();
            }
        });
        theChoice->SetKeyPathValue("tag", LmValue('usd '));
        mFunction = [] {};
        EXPECT_EQ(theChoice, nullptr) << "step " << theStep;
    }
}

TEST_F(LmChoiceBindingPopUpTest, TheButtonMayBeDisposedOfWhileItIsChanged)
{
    LmChoiceBinding theChoice(mPopUp);
    OnChange([this] { DisposeControl(mPopUp); });
    theChoice.SetKeyPathValue("index", LmValue(2));
    EXPECT_EQ(Titles(theChoice), "");
    EXPECT_EQ(Read(theChoice, "index"), "SInt32 -1");
}

TEST_F(LmChoiceBindingPopUpTest, LetsTheButtonGoAtItsEnd)
{
    {
        LmChoiceBinding theChoice(mPopUp);
        theChoice.SetKeyPathValue("index", LmValue(2));
    }
    SetControl32BitValue(mPopUp, 1);
    EXPECT_EQ(Value(), 1);
}
