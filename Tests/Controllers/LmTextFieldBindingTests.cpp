// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmTextFieldBinding.h"

#include "ControllersTestSupport.h"
#include "CountFormatter.h"
#include "LmBindable.h"
#include "LmMetaTransforms.h"
#include "LmObservation.h"
#include "LmRangeTransform.h"
#include "NotificationRecorder.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <Simulation/UserSimulator.h>
#include <string>
#include <utility>
#include <vector>

namespace {

const UInt32 kOrderCommand = 'Ordr';

std::string TextOf(ControlRef theControl)
{
    CFStringRef theText = nullptr;
    GetControlData(theControl, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText, &theText,
                   nullptr);
    return theText == nullptr ? "(none)" : LmGetStdString(LmValue(theText, true));
}

void SetText(ControlRef theControl, const char* theText)
{
    const LmValue theString = LmMakeStringValue(theText);
    const CFStringRef theReference = theString.GetString();
    SetControlData(theControl, kControlEntireControl, kControlEditTextCFStringTag, sizeof theReference,
                   &theReference);
}

// "1 to 3", what is selected.
std::string SelectionOf(ControlRef theControl)
{
    ControlEditTextSelectionRec theSelection = {0, 0};
    GetControlData(theControl, kControlEntireControl, kControlEditTextSelectionTag, sizeof theSelection,
                   &theSelection, nullptr);
    return std::to_string(theSelection.selStart) + " to " + std::to_string(theSelection.selEnd);
}

// A model that takes no more than 1500.
class Store : public LmBindable
{
public:
    Store() { GetBindings()->SetKeyPathValue("quantity", LmValue(1200)); }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        const LmValue theValue = theStore->GetKeyPathValue(theKeyName);
        if (theValue.IsNumber() && theValue.GetSInt32() > 1500) {
            GetBindings()->SetKeyPathValue(theKeyName, LmValue(1500));
        }
    }
};

class LmTextFieldBindingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mWindow = MakeWindow(50);
        mField = MakeField(10, CFSTR(""));
        mOther = MakeField(50, CFSTR(""));
        ShowWindow(mWindow);
        mFormatter = std::make_shared<CountFormatter>();
    }
    void TearDown() override
    {
        if (mWindow != nullptr) {
            DisposeWindow(mWindow);
        }
    }

    static WindowRef MakeWindow(short theTop)
    {
        const Rect theBounds = {theTop, 50, static_cast<short>(theTop + 200), 450};
        WindowRef theWindow = nullptr;
        CreateNewWindow(kDocumentWindowClass,
                        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute, &theBounds,
                        &theWindow);
        return theWindow;
    }

    ControlRef MakeField(short theTop, CFStringRef theText)
    {
        const Rect theBounds = {theTop, 10, static_cast<short>(theTop + 20), 200};
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateEditUnicodeTextControl(mWindow, &theBounds, theText, false, nullptr, &theControl),
                  noErr);
        return theControl;
    }

    ControlRef MakeButton()
    {
        const Rect theBounds = {100, 10, 120, 200};
        ControlRef theButton = nullptr;
        CreatePushButtonControl(mWindow, &theBounds, CFSTR("Order"), &theButton);
        SetControlCommandID(theButton, kOrderCommand);
        return theButton;
    }

    // A binding of the field that is bound to the model's quantity, with the focus in the field.
    LmTextFieldBinding* Bind(unsigned theOptions = 0)
    {
        mBinding = new LmTextFieldBinding(mField, mFormatter, theOptions);
        mBinding->Bind("value", mModel.GetBindings(), "quantity", nullptr, nullptr);
        SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
        return mBinding;
    }

    // Types in the place of what stands in the field.
    void Type(const std::string& theText)
    {
        const ControlEditTextSelectionRec theWhole = {0, 32767};
        SetControlData(mField, kControlEntireControl, kControlEditTextSelectionTag, sizeof theWhole,
                       &theWhole);
        const Host::UserResult theResult = mUser.TypeText(theText);
        EXPECT_TRUE(theResult) << theResult.Explain();
    }

    void Press(UInt32 theKey) { EXPECT_TRUE(mUser.PressKey(theKey)); }

    // "1,200 | 1200 | 1200": the field, the key and the model.
    std::string All()
    {
        return TextOf(mField) + " | " + Number(mBinding->GetKeyPathValue("value")) + " | " +
               Number(mModel.GetBindings()->GetKeyPathValue("quantity"));
    }

    // "valid", "refused: This is no number.", with ", editing" behind it.
    std::string State()
    {
        std::string theState = mBinding->GetKeyPathValue("valid").GetBoolean() ? "valid" : "refused";
        const std::string theProblem = LmGetStdString(mBinding->GetKeyPathValue("problem"));
        theState += theProblem.empty() ? "" : ": " + theProblem;
        return theState + (mBinding->GetKeyPathValue("editing").GetBoolean() ? ", editing" : "");
    }

    // The same where the key and the model hold the number of theText.
    static std::string Told(const std::string& theText) { return Told(theText, theText); }
    static std::string Told(const std::string& theText, const std::string& theNumber)
    {
        std::string theResult = theText;
        return theResult.append(" | ").append(theNumber).append(" | ").append(theNumber);
    }

    bool HasFocus(ControlRef theControl)
    {
        ControlRef theFocus = nullptr;
        GetKeyboardFocus(mWindow, &theFocus);
        return theFocus == theControl;
    }

    static std::string Number(const LmValue& theValue)
    {
        return theValue.IsNumber() ? std::to_string(theValue.GetSInt32()) : Describe(theValue);
    }

    Host::UserSimulator mUser;
    WindowRef mWindow = nullptr;
    ControlRef mField = nullptr;
    ControlRef mOther = nullptr;
    std::shared_ptr<CountFormatter> mFormatter;
    Store mModel;
    LmTextFieldBinding* mBinding = nullptr; // deletes itself
};

} // namespace

// ---- What is shown

TEST_F(LmTextFieldBindingTest, ShowsTheModelsValueInItsNormalForm)
{
    Bind();
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(999));
    EXPECT_EQ(All(), "999 | 999 | 999");
}

TEST_F(LmTextFieldBindingTest, ReadsWhatStandsInTheFieldAtFirst)
{
    SetText(mField, " 1234");
    mBinding = new LmTextFieldBinding(mField, mFormatter);
    EXPECT_EQ(All(), "1,234 | 1234 | 1200");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, TellsFromTheStartThatAFieldHoldsNoValue)
{
    mBinding = new LmTextFieldBinding(mField, mFormatter);
    EXPECT_EQ(All(), " | - | 1200");
    EXPECT_EQ(State(), "refused: A number is needed.");
    mBinding->SetKeyPathValue("value", LmValue(5));
    EXPECT_EQ(TextOf(mField), "5");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, IsEmptyForAValueThatTheFormatterCannotWrite)
{
    Bind();
    mBinding->SetKeyPathValue("value", LmValue(CFSTR("many"), false));
    EXPECT_EQ(TextOf(mField), "");
    EXPECT_EQ(Read(*mBinding, "value"), "String \"many\"");
    EXPECT_EQ(State(), "refused");
}

TEST_F(LmTextFieldBindingTest, TakesTextsAsTheyAreWithoutAFormatter)
{
    SetText(mField, "Ann");
    mBinding = new LmTextFieldBinding(mField);
    EXPECT_EQ(Read(*mBinding, "value"), "String \"Ann\"");
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    Type("Bob\n");
    EXPECT_EQ(Read(*mBinding, "value"), "String \"Bob\"");
    EXPECT_EQ(State(), "valid");
    mBinding->SetKeyPathValue("value", LmValue(5));
    EXPECT_EQ(TextOf(mField), "Bob");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 1U) << "as the base class has it: IsString()";
}

TEST_F(LmTextFieldBindingTest, ShowsValuesInAStaticTextToo)
{
    const Rect theBounds = {150, 10, 170, 200};
    ControlRef theLabel = nullptr;
    CreateStaticTextControl(mWindow, &theBounds, CFSTR("0"), nullptr, &theLabel);
    mBinding = new LmTextFieldBinding(theLabel, mFormatter);
    mBinding->Bind("value", mModel.GetBindings(), "quantity", nullptr, nullptr);
    EXPECT_EQ(TextOf(theLabel), "1,200");
    EXPECT_TRUE(mBinding->Commit());
}

TEST_F(LmTextFieldBindingTest, IsAControlBindingForOtherControls)
{
    const Rect theBounds = {150, 10, 170, 200};
    ControlRef theSlider = nullptr;
    CreateSliderControl(mWindow, &theBounds, 7, 0, 2000, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theSlider);
    mBinding = new LmTextFieldBinding(theSlider, mFormatter);
    EXPECT_EQ(Read(*mBinding, "value"), "UInt32 7");
    mBinding->Bind("value", mModel.GetBindings(), "quantity", nullptr, nullptr);
    SetControl32BitValue(theSlider, 1900);
    EXPECT_EQ(GetControl32BitValue(theSlider), 1500);
    EXPECT_FALSE(mBinding->Commit());
    mBinding->Discard();
    mBinding->SetFormatter(nullptr);
    EXPECT_EQ(GetControl32BitValue(theSlider), 1500);
}

// ---- When what was typed is taken

TEST_F(LmTextFieldBindingTest, TakesWhatWasTypedWithTheKeysThatEndIt)
{
    struct Row
    {
        UInt32 theKey;
        bool isFocusKept;
    };
    const Row kRows[] = {{kVK_Return, true}, {52, true}, {kVK_ANSI_KeypadEnter, true}, {kVK_Tab, false}};
    Bind();
    long theNumber = 100;
    std::string theBefore = "1200";
    for (const Row& theRow : kRows) {
        SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
        const std::string theText = std::to_string(++theNumber);
        Type("0" + theText);
        EXPECT_EQ(All(), Told("0" + theText, theBefore));
        EXPECT_EQ(State(), "valid, editing");
        Press(theRow.theKey);
        EXPECT_EQ(All(), Told(theText));
        theBefore = theText;
        EXPECT_EQ(State(), "valid");
        EXPECT_EQ(HasFocus(mField), theRow.isFocusKept) << theRow.theKey;
    }
}

TEST_F(LmTextFieldBindingTest, TakesWhatWasTypedWhenItIsOver)
{
    const ControlRef theButton = MakeButton();
    const Rect theBounds = {300, 50, 400, 450};
    WindowRef theNext = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &theNext);
    const std::function<void()> kEnds[] = {
        [&] { EXPECT_TRUE(mUser.Click(mOther)); },
        [&] { SetKeyboardFocus(mWindow, mOther, kControlEditTextPart); },
        [&] { ClearKeyboardFocus(mWindow); },
        [&] { AdvanceKeyboardFocus(mWindow); },
        [&] { HideControl(mField), ShowControl(mField); },
        [&] { DisableControl(mField), EnableControl(mField); },
        [&] { ShowWindow(theNext), SelectWindow(theNext), SelectWindow(mWindow); },
        [&] { HideWindow(mWindow), ShowWindow(mWindow); },
        [&] { EXPECT_TRUE(mUser.Click(theButton)); },
        [&] {
            HICommand theCommand = {0, kOrderCommand, {nullptr, 0}};
            ProcessHICommand(&theCommand);
        },
        [&] { QuitApplicationEventLoop(); },
        [&] { EXPECT_TRUE(mBinding->Commit()); },
    };
    Bind();
    long theNumber = 100;
    for (const std::function<void()>& theEnd : kEnds) {
        SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
        Type(std::to_string(++theNumber));
        EXPECT_EQ(State(), "valid, editing") << theNumber;
        theEnd();
        const std::string theText = std::to_string(theNumber);
        EXPECT_EQ(All(), Told(theText));
        EXPECT_EQ(State(), "valid") << theNumber;
    }
    DisposeWindow(theNext);
}

TEST_F(LmTextFieldBindingTest, TakesWhatWasTypedBeforeTheWindowCloses)
{
    Bind();
    Type("7");
    EXPECT_TRUE(mUser.CloseWindow(mWindow));
    EXPECT_EQ(Read(*mModel.GetBindings(), "quantity"), "SInt32 7");
    SetUp();
    Bind();
    Type("8");
    DisposeWindow(mWindow);
    EXPECT_EQ(Read(*mModel.GetBindings(), "quantity"), "SInt32 8");
    SetUp();
    Bind();
    HideWindow(mWindow);
    ClearKeyboardFocus(mWindow);
    SetText(mField, "9");
    DisposeWindow(mWindow);
    mWindow = nullptr;
    EXPECT_EQ(Read(*mModel.GetBindings(), "quantity"), "SInt32 9");
}

TEST_F(LmTextFieldBindingTest, TakesWhatWasTypedBeforeAHandlerIsAskedWhetherTheWindowMayClose)
{
    const EventTypeSpec theType = {kEventClassWindow, kEventWindowClose};
    long theQuantity = 0;
    std::pair<Store&, long&> theData = {mModel, theQuantity};
    InstallEventHandler(
        GetWindowEventTarget(mWindow),
        [](EventHandlerCallRef, EventRef, void* theUserData) -> OSStatus {
            const auto& theOne = *static_cast<std::pair<Store&, long&>*>(theUserData);
            theOne.second = theOne.first.GetBindings()->GetKeyPathValue("quantity").GetSInt32();
            return noErr;
        },
        1, &theType, &theData, nullptr);
    Bind();
    Type("7");
    EXPECT_TRUE(mUser.CloseWindow(mWindow));
    EXPECT_EQ(theQuantity, 7);
}

TEST_F(LmTextFieldBindingTest, TakesWhatWasTypedBeforeACommandOfAnotherWindow)
{
    const Rect theBounds = {300, 50, 400, 450};
    WindowRef thePalette = nullptr;
    CreateNewWindow(kFloatingWindowClass, kWindowStandardHandlerAttribute, &theBounds, &thePalette);
    ShowWindow(thePalette);
    Bind();
    Type("13");
    SetUserFocusWindow(thePalette);
    HICommand theCommand = {0, kOrderCommand, {nullptr, 0}};
    ProcessHICommand(&theCommand);
    EXPECT_EQ(All(), "13 | 13 | 13");
    SetUserFocusWindow(kUserFocusAuto);
    DisposeWindow(thePalette);
}

TEST_F(LmTextFieldBindingTest, TakesWhatWasTypedBeforeAHandlerOfTheCommandRuns)
{
    Bind();
    const ControlRef theButton = MakeButton();
    struct Order
    {
        Store& theModel;
        std::vector<long> theQuantities;
    } theOrder = {mModel, {}};
    const auto theHandler = [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
        Order& theOne = *static_cast<Order*>(theData);
        theOne.theQuantities.push_back(
            theOne.theModel.GetBindings()->GetKeyPathValue("quantity").GetSInt32());
        return noErr;
    };
    // The binding was made later.
    const EventTypeSpec theType = {kEventClassCommand, kEventCommandProcess};
    EventHandlerRef theInstalled = nullptr;
    mBinding->SetControl(nullptr);
    InstallEventHandler(GetWindowEventTarget(mWindow), theHandler, 1, &theType, &theOrder, &theInstalled);
    mBinding->SetControl(mField);
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    Type("77");
    EXPECT_TRUE(mUser.Click(theButton));
    Type("78");
    HICommand theCommand = {0, kOrderCommand, {nullptr, 0}};
    ProcessHICommand(&theCommand);
    EXPECT_EQ(theOrder.theQuantities, (std::vector<long>{77, 78}));
    RemoveEventHandler(theInstalled);
}

TEST_F(LmTextFieldBindingTest, TellsOncePerValueAndInThisOrder)
{
    Bind();
    NotificationRecorder theRecorder;
    for (const char* theKey : {"value", "valid", "problem", "editing"}) {
        mBinding->ObserveKeyPathValue(theKey, &theRecorder);
    }
    Type("1300");
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing editing", "changed editing"}));
    Press(kVK_Return);
    EXPECT_EQ(theRecorder.Take(),
              (Lines{"changing value", "changed value", "changing editing", "changed editing"}));
    Type("many\n");
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing editing", "changed editing", "changing problem",
                                         "changed problem", "changing valid", "changed valid"}));
    Type("1300\n");
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing problem", "changed problem", "changing valid",
                                         "changed valid", "changing editing", "changed editing"}))
        << "the value is what it was";
    Press(kVK_Return);
    EXPECT_EQ(theRecorder.Take(), Lines()) << "nothing was typed";
}

TEST_F(LmTextFieldBindingTest, ShowsTheNormalFormOfAValueThatWasThereAlready)
{
    Bind();
    Type("1 2 0 0\n");
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, ShowsWhatTheModelMadeOfAValue)
{
    Bind();
    Type("2000\n");
    EXPECT_EQ(All(), "1,500 | 1500 | 1500");
    Type("3000\n");
    EXPECT_EQ(All(), "1,500 | 1500 | 1500") << "the model has nothing to tell";
}

TEST_F(LmTextFieldBindingTest, ShowsWhatATransformMadeOfAValue)
{
    mBinding = new LmTextFieldBinding(mField, mFormatter);
    mBinding->Bind("value", mModel.GetBindings(), "quantity", nullptr, new LmRangeTransform(0, 1200, 12));
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    Type("1203\n");
    EXPECT_EQ(All(), "1,200 | 1200 | 1200") << "the model has nothing to tell";
    Type("25\n");
    EXPECT_EQ(All(), "24 | 24 | 24");
}

TEST_F(LmTextFieldBindingTest, CountsWhatWasTypedAndTakenBackAsNothing)
{
    Bind();
    mUser.TypeText("5");
    EXPECT_EQ(State(), "valid, editing");
    Press(kVK_Delete);
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, FollowsTypingInAnOldEditTextToo)
{
    const Rect theBounds = {150, 10, 170, 200};
    CreateEditTextControl(mWindow, &theBounds, CFSTR(""), false, false, nullptr, &mField);
    Bind();
    Type("13");
    EXPECT_EQ(State(), "valid, editing");
    EXPECT_TRUE(mUser.Click(mOther));
    EXPECT_EQ(All(), "13 | 13 | 13");
}

// ---- What is refused

TEST_F(LmTextFieldBindingTest, KeepsWhatItRefusesAndSaysWhy)
{
    Bind();
    NotificationRecorder theRecorder;
    mModel.GetBindings()->ObserveKeyPathValue("quantity", &theRecorder);
    mBinding->ObserveKeyPathValue("value", &theRecorder);
    Type("many\n");
    EXPECT_EQ(All(), "many | 1200 | 1200");
    EXPECT_EQ(State(), "refused: This is no number., editing");
    EXPECT_EQ(SelectionOf(mField), "0 to 4");
    EXPECT_TRUE(HasFocus(mField));
    EXPECT_EQ(theRecorder.Take(), Lines());
    EXPECT_FALSE(mBinding->Commit());
    EXPECT_TRUE(mUser.Click(mOther));
    EXPECT_TRUE(HasFocus(mOther));
    EXPECT_EQ(All(), "many | 1200 | 1200");
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    EXPECT_EQ(SelectionOf(mField), "0 to 4") << "it is selected when the focus is back";
    mUser.TypeText("14\n");
    EXPECT_EQ(All(), "14 | 14 | 14");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, KeepsTheFocusWhileWhatWasTypedIsRefused)
{
    Bind(kKeepFocus);
    const std::function<void()> kWays[] = {
        [&] { Press(kVK_Tab); },
        [&] { mUser.Click(mOther); },
        [&] { SetKeyboardFocus(mWindow, mOther, kControlEditTextPart); },
        [&] { ClearKeyboardFocus(mWindow); },
    };
    for (const std::function<void()>& theWay : kWays) {
        Type("many");
        theWay();
        EXPECT_TRUE(HasFocus(mField));
        EXPECT_EQ(SelectionOf(mField), "0 to 4");
        EXPECT_EQ(State(), "refused: This is no number., editing");
    }
    Type("14\t");
    EXPECT_FALSE(HasFocus(mField));
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, EndKeysOfAFieldThatKeepsTheFocusGoNoFurther)
{
    Bind(kKeepFocus);
    const ControlRef theButton = MakeButton();
    SetWindowDefaultButton(mWindow, theButton);
    int theHits = 0;
    const EventTypeSpec theType = {kEventClassControl, kEventControlHit};
    InstallEventHandler(
        GetControlEventTarget(theButton),
        [](EventHandlerCallRef, EventRef, void* theCount) -> OSStatus {
            *static_cast<int*>(theCount) += 1;
            return noErr;
        },
        1, &theType, &theHits, nullptr);
    Type("many");
    Press(kVK_ANSI_KeypadEnter);
    EXPECT_EQ(theHits, 0);
    Type("13");
    Press(kVK_ANSI_KeypadEnter);
    EXPECT_EQ(theHits, 1);
}

TEST_F(LmTextFieldBindingTest, LetsTheFocusGoFromAFieldThatNobodyHasTypedIn)
{
    mBinding = new LmTextFieldBinding(mField, mFormatter, kKeepFocus);
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    EXPECT_EQ(State(), "refused: A number is needed.");
    Press(kVK_Tab);
    EXPECT_FALSE(HasFocus(mField));
}

TEST_F(LmTextFieldBindingTest, GivesUpAFocusThatItCannotKeep)
{
    Bind(kKeepFocus);
    Type("many");
    HideControl(mField);
    EXPECT_FALSE(HasFocus(mField));
    EXPECT_EQ(State(), "refused: This is no number., editing");
}

TEST_F(LmTextFieldBindingTest, LeavesWhatIsTypedToThePersonWhenTheModelChanges)
{
    Bind();
    Type("13");
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(999));
    EXPECT_EQ(All(), "13 | 999 | 999");
    Press(kVK_Escape);
    EXPECT_EQ(All(), "999 | 999 | 999");
    Type("13");
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(998));
    Press(kVK_Return);
    EXPECT_EQ(All(), "13 | 13 | 13");
}

TEST_F(LmTextFieldBindingTest, LetsTheTabKeyGoOnWithWhatIsRefused)
{
    Bind();
    Type("many\t");
    EXPECT_FALSE(HasFocus(mField));
    EXPECT_EQ(State(), "refused: This is no number., editing");
}

TEST_F(LmTextFieldBindingTest, NothingIsWrongAnyMoreWhenThePersonHasTypedWhatWasThere)
{
    Bind();
    Type("many\n");
    Type("1,200");
    EXPECT_EQ(State(), "valid");
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
}

TEST_F(LmTextFieldBindingTest, RefusesWhatAProgramHasPutIntoTheField)
{
    Bind();
    SetText(mField, "many");
    EXPECT_FALSE(mBinding->Commit());
    EXPECT_EQ(State(), "refused: This is no number., editing");
}

// ---- How typing is followed

TEST_F(LmTextFieldBindingTest, ShowsToHandlersOfTheKeyTheValueAndNotTheText)
{
    Bind();
    struct Reader
    {
        LmTextFieldBinding* theBinding;
        Lines theValues;
    } theReader = {mBinding, {}};
    const EventTypeSpec theType = {kEventClassKeyboard, kEventRawKeyDown};
    InstallEventHandler(
        GetWindowEventTarget(mWindow),
        [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
            Reader& theOne = *static_cast<Reader*>(theData);
            theOne.theValues.push_back(Read(*theOne.theBinding, "value"));
            return eventNotHandledErr;
        },
        1, &theType, &theReader, nullptr);
    Press(kVK_ANSI_KeypadEnter);
    Press(kVK_Tab);
    EXPECT_EQ(theReader.theValues, (Lines{"SInt32 1200", "SInt32 1200"}));
}

TEST_F(LmTextFieldBindingTest, LeavesTheCaretWhereItIsInATextThatIsInItsNormalForm)
{
    Bind();
    Type("13");
    Press(kVK_LeftArrow);
    Press(kVK_Return);
    EXPECT_EQ(SelectionOf(mField), "1 to 1");
}

TEST_F(LmTextFieldBindingTest, ComparesWithWhatIsShownNow)
{
    Bind();
    Type("1300\n");
    const ControlEditTextSelectionRec theComma = {1, 2};
    SetControlData(mField, kControlEntireControl, kControlEditTextSelectionTag, sizeof theComma, &theComma);
    Press(kVK_Delete);
    EXPECT_EQ(All(), "1300 | 1300 | 1300");
    EXPECT_EQ(State(), "valid, editing");
}

TEST_F(LmTextFieldBindingTest, ReadsTheTextOnlyWhenItHasChanged)
{
    Bind();
    const int theReadings = mFormatter->mReadings;
    for (const UInt32 theKey : {kVK_LeftArrow, kVK_Return, kVK_RightArrow, kVK_Tab}) {
        Press(theKey);
    }
    EXPECT_EQ(mFormatter->mReadings, theReadings);
}

TEST_F(LmTextFieldBindingTest, TakesNothingFromAFieldThatDoesNotTakeWhatItIsGiven)
{
    Bind();
    const EventTypeSpec theType = {kEventClassControl, kEventControlSetData};
    InstallEventHandler(
        GetControlEventTarget(mField), [](EventHandlerCallRef, EventRef, void*) -> OSStatus { return noErr; },
        1, &theType, nullptr, nullptr);
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(999));
    EXPECT_EQ(All(), "1,200 | 999 | 999");
    EXPECT_TRUE(mBinding->Commit());
    EXPECT_EQ(All(), "1,200 | 999 | 999");
}

TEST_F(LmTextFieldBindingTest, IsNotDeceivedByAControlThatTellsOfWhatAProgramWrites)
{
    Bind();
    const EventTypeSpec theType = {kEventClassControl, kEventControlSetData};
    InstallEventHandler(
        GetControlEventTarget(mField),
        [](EventHandlerCallRef theCall, EventRef theEvent, void* theField) -> OSStatus {
            const OSStatus theStatus = CallNextEventHandler(theCall, theEvent);
            EventRef theNews = nullptr;
            CreateEvent(nullptr, kEventClassTextField, kEventTextDidChange, 0, kEventAttributeNone, &theNews);
            SendEventToEventTarget(theNews, GetControlEventTarget(static_cast<ControlRef>(theField)));
            ReleaseEvent(theNews);
            return theStatus;
        },
        1, &theType, mField, nullptr);
    NotificationRecorder theRecorder;
    mBinding->ObserveKeyPathValue("editing", &theRecorder);
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(999));
    EXPECT_EQ(All(), "999 | 999 | 999");
    EXPECT_EQ(theRecorder.Take(), Lines());
}

TEST_F(LmTextFieldBindingTest, FollowsTextThatComesWithoutAKey)
{
    Bind();
    SetText(mField, "13");
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, kEventClassTextField, kEventTextDidChange, 0, kEventAttributeNone, &theEvent);
    SendEventToEventTarget(theEvent, GetControlEventTarget(mField));
    ReleaseEvent(theEvent);
    EXPECT_EQ(State(), "valid, editing");
    Press(kVK_Escape);
    EXPECT_EQ(State(), "valid");
    const UniChar kText[] = {'7'};
    CreateEvent(nullptr, kEventClassTextInput, kEventTextInputUnicodeForKeyEvent, 0, kEventAttributeNone,
                &theEvent);
    SetEventParameter(theEvent, kEventParamTextInputSendText, typeUnicodeText, sizeof kText, kText);
    const Rect theBounds = {150, 10, 170, 200};
    CreateEditTextControl(mWindow, &theBounds, CFSTR(""), false, false, nullptr, &mField);
    Bind();
    SendEventToEventTarget(theEvent, GetControlEventTarget(mField));
    ReleaseEvent(theEvent);
    EXPECT_EQ(TextOf(mField), "1,2007");
    EXPECT_EQ(State(), "valid, editing");
}

// ---- Going back

TEST_F(LmTextFieldBindingTest, EscapeGivesBackWhatWasThere)
{
    Bind();
    Type("many\n");
    Press(kVK_Escape);
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
    Type("13");
    Press(kVK_Escape);
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, EscapeGivesBackATextThatWasNoValue)
{
    SetText(mField, "?");
    mBinding = new LmTextFieldBinding(mField, mFormatter);
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    Type("13");
    Press(kVK_Escape);
    EXPECT_EQ(TextOf(mField), "?");
    EXPECT_EQ(State(), "refused: This is no number.");
}

TEST_F(LmTextFieldBindingTest, EscapePressesTheCancelButtonWhereNothingWasTyped)
{
    Bind();
    const Rect theBounds = {130, 10, 150, 200};
    ControlRef theButton = nullptr;
    CreatePushButtonControl(mWindow, &theBounds, CFSTR("Cancel"), &theButton);
    SetWindowCancelButton(mWindow, theButton);
    int theHits = 0;
    const EventTypeSpec theType = {kEventClassControl, kEventControlHit};
    InstallEventHandler(
        GetControlEventTarget(theButton),
        [](EventHandlerCallRef, EventRef, void* theCount) -> OSStatus {
            *static_cast<int*>(theCount) += 1;
            return noErr;
        },
        1, &theType, &theHits, nullptr);
    Type("13");
    Press(kVK_Escape);
    EXPECT_EQ(theHits, 0);
    Press(kVK_Escape);
    EXPECT_EQ(theHits, 1);
}

TEST_F(LmTextFieldBindingTest, DiscardDoesWhatEscapeDoes)
{
    Bind();
    Type("13");
    mBinding->Discard();
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
    mBinding->Discard();
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
}

// ---- With each keystroke

TEST_F(LmTextFieldBindingTest, TakesEachKeystrokeThatIsAccepted)
{
    Bind(kCommitEachKey);
    Type("1");
    EXPECT_EQ(All(), "1 | 1 | 1");
    mUser.TypeText("3");
    EXPECT_EQ(All(), "13 | 13 | 13");
    EXPECT_EQ(State(), "valid, editing");
    mUser.TypeText("x");
    EXPECT_EQ(All(), "13x | 13 | 13");
    EXPECT_EQ(State(), "refused: This is no number., editing");
    Press(kVK_Delete);
    EXPECT_EQ(State(), "valid, editing");
    mUser.TypeText("579");
    EXPECT_EQ(All(), "13579 | 1500 | 1500") << "the field is the person's until he is done";
    Press(kVK_Return);
    EXPECT_EQ(All(), "1,500 | 1500 | 1500");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, EscapeTakesBackWhatKeystrokesHaveSet)
{
    Bind(kCommitEachKey);
    Type("13");
    Press(kVK_Escape);
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, EscapeLeavesAValueThatCameBetweenKeystrokes)
{
    Bind(kCommitEachKey);
    Type("5");
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(77));
    EXPECT_EQ(All(), "5 | 77 | 77");
    Press(kVK_Escape);
    EXPECT_EQ(All(), "77 | 77 | 77");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, EscapeGivesBackAValueThatTheFieldCannotShow)
{
    Bind(kCommitEachKey);
    mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(CFSTR("many"), false));
    Type("5");
    EXPECT_EQ(All(), "5 | 5 | 5");
    Press(kVK_Escape);
    EXPECT_EQ(All(), R"( | String "many" | String "many")");
    EXPECT_EQ(State(), "refused");
    Type("5");
    Press(kVK_Return);
    EXPECT_EQ(All(), "5 | 5 | 5");
    Type("6");
    Press(kVK_Escape);
    EXPECT_EQ(All(), "5 | 5 | 5") << "what was taken is what was there before";
}

TEST_F(LmTextFieldBindingTest, EscapeShowsTheLastKeystrokeWhereThereWasNoValueBefore)
{
    SetText(mField, "");
    mBinding = new LmTextFieldBinding(mField, mFormatter, kCommitEachKey);
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    Type("5x");
    Press(kVK_Escape);
    EXPECT_EQ(TextOf(mField), "5");
    EXPECT_EQ(Number(mBinding->GetKeyPathValue("value")), "5");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, RefusesAValueThatItsFormatterWritesAndWouldNotTake)
{
    mBinding = new LmTextFieldBinding(mField, mFormatter);
    mBinding->SetKeyPathValue("value", LmValue(1234567));
    EXPECT_EQ(TextOf(mField), "1234,567");
    EXPECT_EQ(State(), "refused: This is no number.");
    EXPECT_FALSE(mBinding->Commit());
    mBinding->SetKeyPathValue("value", LmValue(123456));
    EXPECT_EQ(State(), "valid");
    EXPECT_TRUE(mBinding->Commit());
}

TEST_F(LmTextFieldBindingTest, CommitsByWhatStandsInTheFieldAndNotByWhatAKeyWasSetTo)
{
    Bind();
    mBinding->SetKeyPathValue("valid", LmValue(false));
    EXPECT_TRUE(mBinding->Commit());
    Type("x");
    EXPECT_FALSE(mBinding->Commit());
    mBinding->SetKeyPathValue("valid", LmValue(true));
    EXPECT_FALSE(mBinding->Commit());
}

// ---- Life

TEST_F(LmTextFieldBindingTest, LeavesNothingBehindOfAnEditInAFieldThatItLeaves)
{
    Bind();
    Type("x\n");
    EXPECT_EQ(State(), "refused: This is no number., editing");
    mBinding->SetControl(nullptr);
    EXPECT_EQ(State(), "valid");
    EXPECT_EQ(Number(mBinding->GetKeyPathValue("value")), "1200");
    delete mBinding;
}

TEST_F(LmTextFieldBindingTest, IsFoundByItsIdentifier)
{
    const ControlID theID = {'Quan', 1};
    SetControlID(mField, &theID);
    SetText(mField, "13");
    mBinding = new LmTextFieldBinding(mWindow, theID, mFormatter);
    EXPECT_EQ(All(), "13 | 13 | 1200");
    const LmTextFieldBinding theNone(mWindow, ControlID{'None', 0}, mFormatter);
    EXPECT_EQ(theNone.GetControl(), nullptr);
    const Lines theLines = StandardErrorCapture::TakeDiagnostics();
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find("Source/Controllers/LmTextFieldBinding.cpp, line #: Error -30584"),
              std::string::npos)
        << theLines[0];
}

TEST_F(LmTextFieldBindingTest, MovesToAnotherField)
{
    Bind();
    SetText(mOther, "77");
    mBinding->SetControl(mOther);
    EXPECT_EQ(TextOf(mOther), "77");
    EXPECT_EQ(Read(*mModel.GetBindings(), "quantity"), "SInt32 77");
    SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    Type("13\n");
    EXPECT_EQ(Read(*mModel.GetBindings(), "quantity"), "SInt32 77") << "the old field is let go";
    mBinding->SetControl(nullptr);
    EXPECT_EQ(Read(*mBinding, "value"), "SInt32 77");
    delete mBinding;
    EXPECT_FALSE(LmTextFieldBinding(nullptr).Commit());
}

TEST_F(LmTextFieldBindingTest, TakesAnotherFormatter)
{
    Bind();
    mBinding->SetFormatter(nullptr);
    EXPECT_EQ(TextOf(mField), "") << "the number is none that a text can show";
    mBinding->SetFormatter(mFormatter);
    EXPECT_EQ(All(), "1,200 | 1200 | 1200");
    EXPECT_EQ(State(), "valid");
    Type("x");
    mBinding->SetFormatter(nullptr);
    EXPECT_EQ(TextOf(mField), "x");
    delete mBinding;
    SetText(mOther, "?");
    mBinding = new LmTextFieldBinding(mOther, mFormatter);
    EXPECT_EQ(State(), "refused: This is no number.");
    mBinding->SetFormatter(nullptr);
    EXPECT_EQ(Read(*mBinding, "value"), "String \"?\"");
    EXPECT_EQ(State(), "valid");
}

TEST_F(LmTextFieldBindingTest, NothingOfTheBaseClassReachesTheKeysPastTheFormatter)
{
    Bind();
    Type("many");
    SetControl32BitMaximum(mField, 5);
    SetControl32BitValue(mField, 1);
    EXPECT_EQ(All(), "many | 1200 | 1200");
    DisableControl(mField);
    EnableControl(mField);
    SetControlTitleWithCFString(mField, CFSTR("Quantity"));
    EXPECT_EQ(All(), "many | 1200 | 1200");
    EXPECT_EQ(Read(*mBinding, "title"), "String \"Quantity\"");
    StandardErrorCapture::TakeDiagnostics(); // the base class compares the text with a number
}

TEST_F(LmTextFieldBindingTest, MayBeDestroyedByAnythingThatItTells)
{
    const char* const kKeys[] = {"value", "valid", "problem", "editing"};
    for (const char* theKey : kKeys) {
        for (const char* theText : {"many", "13"}) {
            for (const unsigned theOptions : {0U, unsigned(kCommitEachKey), unsigned(kKeepFocus)}) {
                Bind(theOptions);
                int theRound = 0;
                bool isGone = false;
                const LmObservation theObservation(mBinding, theKey, [&](const LmChange&) {
                    if (++theRound == (std::string(theText) == "13" ? 2 : 1)) {
                        isGone = true;
                        delete mBinding;
                    }
                });
                Type(std::string("y"));
                if (!isGone) {
                    Press(kVK_Return);
                }
                if (!isGone) {
                    Type(theText);
                }
                if (!isGone) {
                    Press(kVK_Return);
                }
                if (!isGone) {
                    delete mBinding;
                }
                mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(1200));
            }
        }
    }
}

TEST_F(LmTextFieldBindingTest, MayLoseItsWindowToACommit)
{
    Bind();
    const LmObservation theObservation(mModel.GetBindings(), "quantity", [&](const LmChange&) {
        DisposeWindow(mWindow);
        mWindow = nullptr;
    });
    Type("13");
    mUser.PressKey(kVK_Tab);
    EXPECT_EQ(mWindow, nullptr);
}

TEST_F(LmTextFieldBindingTest, MayBeDestroyedWhenTheFocusMoves)
{
    const EventTypeSpec theType = {kEventClassControl, kEventControlSetFocusPart};
    for (const bool isComing : {true, false}) {
        ClearKeyboardFocus(mWindow);
        EventHandlerRef theHandler = nullptr;
        std::pair<LmTextFieldBinding*, bool> theData = {nullptr, isComing};
        InstallEventHandler(
            GetControlEventTarget(mField),
            [](EventHandlerCallRef, EventRef theEvent, void* theUserData) -> OSStatus {
                auto& theOne = *static_cast<std::pair<LmTextFieldBinding*, bool>*>(theUserData);
                ControlPartCode thePart = 0;
                GetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, nullptr,
                                  sizeof thePart, nullptr, &thePart);
                if (thePart != kControlFocusNoPart) {
                    delete std::exchange(theOne.first, nullptr);
                }
                return eventNotHandledErr;
            },
            1, &theType, &theData, &theHandler);
        Bind(kKeepFocus);
        if (isComing) {
            ClearKeyboardFocus(mWindow);
        } else {
            Type("many");
        }
        theData.first = mBinding;
        SetKeyboardFocus(mWindow, isComing ? mField : mOther, kControlEditTextPart);
        EXPECT_EQ(theData.first, nullptr);
        RemoveEventHandler(theHandler);
    }
}

TEST_F(LmTextFieldBindingTest, MayBeDestroyedByTheFieldThatItWrites)
{
    for (const char* theText : {"1,3", "many"}) {
        for (const UInt32 theKey : {kVK_Return, kVK_Escape, kVK_Tab}) {
            LmTextFieldBinding* theBinding = Bind(kKeepFocus);
            Type(theText);
            const EventTypeSpec theType = {kEventClassControl, kEventControlSetData};
            EventHandlerRef theHandler = nullptr;
            InstallEventHandler(
                GetControlEventTarget(mField),
                [](EventHandlerCallRef, EventRef, void* theData) -> OSStatus {
                    auto& theOne = *static_cast<LmTextFieldBinding**>(theData);
                    delete std::exchange(theOne, nullptr);
                    return eventNotHandledErr;
                },
                1, &theType, &theBinding, &theHandler);
            mUser.PressKey(theKey);
            EXPECT_EQ(theBinding, nullptr);
            RemoveEventHandler(theHandler);
        }
    }
}

TEST_F(LmTextFieldBindingTest, MayBeDestroyedByItsFormatter)
{
    for (const bool isTyping : {false, true}) {
        Bind(isTyping ? unsigned(kCommitEachKey) : 0U);
        Type(isTyping ? "" : "13");
        mFormatter->mOnParse = [&] {
            mFormatter->mOnParse = nullptr;
            delete mBinding;
        };
        if (isTyping) {
            mUser.TypeText("1");
        } else {
            Press(kVK_Return);
        }
        EXPECT_EQ(mFormatter->mOnParse, nullptr);
    }
}

TEST_F(LmTextFieldBindingTest, MayGetAnotherFormatterWhileItReads)
{
    Bind();
    Type("13");
    mFormatter->mOnParse = [&] {
        mBinding->SetFormatter(std::make_shared<CountFormatter>());
        mFormatter.reset();
    };
    Press(kVK_Return);
    EXPECT_EQ(Read(*mBinding, "value"), "SInt32 13");
}

TEST_F(LmTextFieldBindingTest, TakesNothingTwice)
{
    Bind();
    bool isCommitted = false;
    const LmObservation theObservation(mBinding, "value", [&](const LmChange&) {
        isCommitted = mBinding->Commit();
        mBinding->Discard();
        SetKeyboardFocus(mWindow, mOther, kControlEditTextPart);
    });
    Type("13");
    Press(kVK_Tab);
    EXPECT_TRUE(isCommitted);
    EXPECT_EQ(All(), "13 | 13 | 13");
    EXPECT_EQ(State(), "valid");
}
