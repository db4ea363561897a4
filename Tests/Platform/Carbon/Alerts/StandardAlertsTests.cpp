// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Standard alerts and sheets.

#include "AlertTestSupport.h"

#include <cstddef>
#include <cstring>

namespace {

#if !defined(__LP64__)
static_assert(sizeof(AlertStdCFStringAlertParamRec) == 32, "as on the platform");
static_assert(offsetof(AlertStdCFStringAlertParamRec, defaultText) == 6, "as on the platform");
static_assert(offsetof(AlertStdCFStringAlertParamRec, flags) == 24, "as on the platform");
static_assert(sizeof(AlertStdAlertParamRec) == 24, "as on the platform");
static_assert(offsetof(AlertStdAlertParamRec, defaultText) == 6, "as on the platform");
#endif

class StandardAlerts : public AlertTest
{
protected:
    // A sheet that notes what it sends to the test's window as its target.
    DialogRef NewSheet()
    {
        DialogRef theSheet = nullptr;
        EXPECT_EQ(CreateStandardSheet(kAlertCautionAlert, CFSTR("Save?"), CFSTR("There are changes."),
                                      &mParams, GetWindowEventTarget(mWindow), &theSheet),
                  noErr);
        return theSheet;
    }

    void NoteCommands(WindowRef theWindow)
    {
        Watch(theWindow, "command", {{kEventClassCommand, kEventCommandProcess}}, [this](EventRef theEvent) {
            const UInt32 theCode =
                Parameter<HICommand>(theEvent, kEventParamDirectObject, typeHICommand).commandID;
            mLog.back() = std::string{static_cast<char>(theCode >> 24), static_cast<char>(theCode >> 16),
                                      static_cast<char>(theCode >> 8), static_cast<char>(theCode)};
            return OSStatus{noErr};
        });
    }

    static Host::UserResult Press(DialogRef theDialog, SInt32 theNumber)
    {
        Host::UserSimulator theUser;
        return theUser.Click({GetDialogWindow(theDialog), {'alrt', theNumber}});
    }
};

const unsigned char kPascalError[] = "\x0FSwitch \"^0\" off";
const unsigned char kPascalName[] = "\x07Radio 1";
const unsigned char kPascalOff[] = "\x03Off";

} // namespace

// --- Making ------------------------------------------------------------------------------------------

TEST_F(StandardAlerts, TheDefaultsAreOneButton)
{
    AlertStdCFStringAlertParamRec theParams;
    std::memset(&theParams, 0x55, sizeof theParams);
    EXPECT_EQ(GetStandardAlertDefaultParams(&theParams, kStdCFStringAlertVersionTwo), noErr);
    EXPECT_EQ(UInt32{theParams.version}, UInt32{kStdCFStringAlertVersionTwo});
    EXPECT_TRUE(theParams.movable);
    EXPECT_FALSE(theParams.helpButton);
    EXPECT_TRUE(theParams.defaultText == DefaultText());
    EXPECT_TRUE(theParams.cancelText == nullptr);
    EXPECT_TRUE(theParams.otherText == nullptr);
    EXPECT_EQ(SInt16{theParams.defaultButton}, kAlertStdAlertOKButton);
    EXPECT_EQ(SInt16{theParams.cancelButton}, 0);
    EXPECT_EQ(UInt32{theParams.flags}, 0u);
    EXPECT_EQ(GetStandardAlertDefaultParams(&theParams, 3), paramErr);
    EXPECT_EQ(GetStandardAlertDefaultParams(nullptr, kStdCFStringAlertVersionOne), paramErr);
}

TEST_F(StandardAlerts, AnAlertIsMadeHidden)
{
    DialogRef theAlert = nullptr;
    EXPECT_EQ(CreateStandardAlert(kAlertStopAlert, CFSTR("No"), nullptr, nullptr, &theAlert), noErr);
    const WindowRef theWindow = GetDialogWindow(theAlert);
    EXPECT_TRUE(IsValidWindowPtr(theWindow));
    EXPECT_FALSE(IsWindowVisible(theWindow));
    EXPECT_EQ(GetDialogFromWindow(theWindow), theAlert);
    EXPECT_EQ(Items(theAlert), (Log{"No", "OK", "(none)", "(none)", "(none)"}));
    WindowClass theClass = 0;
    GetWindowClass(theWindow, &theClass);
    EXPECT_EQ(theClass, UInt32{kMovableAlertWindowClass});
    DisposeDialog(theAlert);
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    EXPECT_EQ(GetDialogWindow(theAlert), nullptr);
}

TEST_F(StandardAlerts, ButtonsHaveTheirOwnTitlesOrThePlatforms)
{
    mParams.cancelText = DefaultText();
    mParams.otherText = DefaultText();
    mParams.helpButton = true;
    const DialogRef theOne = NewAlert(CFSTR("Save?"), CFSTR("There are changes."));
    EXPECT_EQ(Items(theOne), (Log{"Save?", "There are changes.", "OK", "Cancel", "Don\u2019t Save", "?"}));
    mParams.defaultText = CFSTR("Save");
    mParams.cancelText = nullptr;
    mParams.otherText = CFSTR("Revert");
    mParams.helpButton = false;
    EXPECT_EQ(Items(NewAlert()), (Log{"Switch off?", "Save", "(none)", "Revert", "(none)"}));
}

TEST_F(StandardAlerts, ThereIsAlwaysAButtonToAnswerWith)
{
    mParams.defaultText = nullptr;
    mParams.helpButton = true;
    EXPECT_EQ(Items(NewAlert()), (Log{"Switch off?", "OK", "(none)", "(none)", "?"}));
}

TEST_F(StandardAlerts, RefusesWhatIsNoAlert)
{
    DialogRef theAlert = InventedReference<DialogRef>();
    const auto theMake = [&](AlertType theType) {
        return CreateStandardAlert(theType, CFSTR("x"), nullptr, &mParams, &theAlert);
    };
    EXPECT_EQ(theMake(-1), paramErr);
    EXPECT_EQ(theMake(4), paramErr);
    EXPECT_EQ(theAlert, nullptr);
    EXPECT_EQ(CreateStandardAlert(0, nullptr, nullptr, nullptr, &theAlert), paramErr);
    EXPECT_EQ(CreateStandardAlert(0, CFSTR("x"), nullptr, nullptr, nullptr), paramErr);
    mParams.cancelButton = kAlertStdAlertOKButton;
    EXPECT_EQ(theMake(0), paramErr) << "default and cancel are the same";
    mParams.cancelButton = 4;
    EXPECT_EQ(theMake(0), paramErr);
    mParams.cancelButton = -1;
    EXPECT_EQ(theMake(0), paramErr);
    mParams.cancelButton = 0;
    mParams.defaultButton = 4;
    EXPECT_EQ(theMake(0), paramErr);
    mParams.defaultButton = 0;
    mParams.version = 0;
    EXPECT_EQ(theMake(0), paramErr);
    mParams.version = kStdCFStringAlertVersionOne;
    EXPECT_EQ(theMake(0), noErr) << "without a default and a cancel button";
}

TEST_F(StandardAlerts, RefusesReferencesToNothing)
{
    const DialogRef theAlert = NewAlert();
    DisposeDialog(theAlert);
    DisposeDialog(theAlert);
    DialogItemIndex theItem = 7;
    EXPECT_EQ(RunStandardAlert(theAlert, nullptr, &theItem), paramErr);
    EXPECT_EQ(theItem, 0);
    EXPECT_EQ(RunStandardAlert(nullptr, nullptr, nullptr), paramErr);
    EXPECT_EQ(RunStandardAlert(reinterpret_cast<DialogRef>(mWindow), nullptr, nullptr), paramErr);
    EXPECT_EQ(CloseStandardSheet(theAlert, 0), paramErr);
    EXPECT_EQ(CloseStandardSheet(NewAlert(), 0), paramErr) << "it is no sheet";
    EXPECT_EQ(RunStandardAlert(NewSheet(), nullptr, nullptr), paramErr) << "it is a sheet";
    EXPECT_EQ(GetDialogWindow(InventedReference<DialogRef>()), nullptr);
    EXPECT_EQ(GetDialogFromWindow(mWindow), nullptr);
    EXPECT_EQ(GetDialogFromWindow(nullptr), nullptr);
}

TEST_F(StandardAlerts, AnAlertWhoseWindowIsDisposedIsGone)
{
    const DialogRef theAlert = NewAlert();
    DisposeWindow(GetDialogWindow(theAlert));
    EXPECT_EQ(GetDialogWindow(theAlert), nullptr);
    EXPECT_EQ(RunStandardAlert(theAlert, nullptr, nullptr), paramErr);
}

// --- Running -----------------------------------------------------------------------------------------

TEST_F(StandardAlerts, EveryButtonIsAnAnswer)
{
    mParams.cancelText = DefaultText();
    mParams.otherText = DefaultText();
    mParams.helpButton = true;
    for (DialogItemIndex theNumber = 1; theNumber <= 4; ++theNumber) {
        PressLater(theNumber);
        const DialogRef theAlert = NewAlert();
        const WindowRef theWindow = GetDialogWindow(theAlert);
        EXPECT_EQ(Run(theAlert), theNumber);
        EXPECT_FALSE(IsValidWindowPtr(theWindow));
        EXPECT_EQ(GetDialogWindow(theAlert), nullptr);
        EXPECT_TRUE(IsWindowActive(mWindow));
    }
}

TEST_F(StandardAlerts, AnAlertKeepsThePersonFromTheProgram)
{
    mSteps.Then([this] {
        EXPECT_TRUE(IsClosedOff(mWindow));
        EXPECT_TRUE(IsWindowActive(FrontWindow()));
    });
    PressLater(1);
    EXPECT_EQ(Run(NewAlert()), 1);
    EXPECT_FALSE(IsClosedOff(mWindow));
}

TEST_F(StandardAlerts, ReturnAndEnterPressTheDefaultButton)
{
    mParams.cancelText = DefaultText();
    mParams.cancelButton = kAlertStdAlertCancelButton;
    PressKeyLater(kVK_Return);
    EXPECT_EQ(Run(NewAlert()), 1);
    PressKeyLater(kVK_ANSI_KeypadEnter);
    EXPECT_EQ(Run(NewAlert()), 1);
    mParams.defaultButton = kAlertStdAlertCancelButton;
    mParams.cancelButton = kAlertStdAlertOKButton;
    PressKeyLater(kVK_Return);
    EXPECT_EQ(Run(NewAlert()), 2);
}

TEST_F(StandardAlerts, EscapeAndCommandPeriodPressTheCancelButton)
{
    mParams.cancelText = DefaultText();
    mParams.otherText = DefaultText();
    mParams.cancelButton = kAlertStdAlertCancelButton;
    PressKeyLater(kVK_Escape);
    EXPECT_EQ(Run(NewAlert()), 2);
    PressKeyLater(kVK_ANSI_Period, cmdKey);
    EXPECT_EQ(Run(NewAlert()), 2);
    mParams.cancelButton = kAlertStdAlertOtherButton;
    PressKeyLater(kVK_Escape);
    EXPECT_EQ(Run(NewAlert()), 3);
}

TEST_F(StandardAlerts, WithoutSuchAButtonTheKeysDoNothing)
{
    mParams.defaultButton = 0;
    PressKeyLater(kVK_Return);
    PressKeyLater(kVK_Escape);
    mSteps.Then([this] { mLog.push_back("still there"); });
    PressLater(1);
    EXPECT_EQ(Run(NewAlert()), 1);
    EXPECT_EQ(TakeLog(), Log{"still there"});
}

TEST_F(StandardAlerts, TheAnswerNeedNotBeAskedFor)
{
    PressLater(1);
    EXPECT_EQ(RunStandardAlert(NewAlert(), nullptr, nullptr), noErr);
}

TEST_F(StandardAlerts, TheHelpButtonMayLeaveTheAlertOpen)
{
    mParams.helpButton = true;
    mParams.flags = kStdAlertDoNotCloseOnHelp;
    const DialogRef theAlert = NewAlert();
    NoteCommands(GetDialogWindow(theAlert));
    PressLater(4);
    PressLater(1);
    EXPECT_EQ(Run(theAlert), 1);
    EXPECT_EQ(TakeLog(), Log{"ahlp"});
}

TEST_F(StandardAlerts, AnAlertMayAskInAnAlert)
{
    mSteps.Then([this] { mLog.push_back("inner " + std::to_string(Run(NewAlert()))); });
    PressLater(1);
    mSteps.Then([this] { mLog.push_back("outer is open"); });
    PressLater(1);
    EXPECT_EQ(Run(NewAlert()), 1);
    EXPECT_EQ(TakeLog(), (Log{"inner 1", "outer is open"}));
}

TEST_F(StandardAlerts, AnAlertRunsOnce)
{
    const DialogRef theAlert = NewAlert();
    mSteps.Then([=] { EXPECT_EQ(RunStandardAlert(theAlert, nullptr, nullptr), paramErr); });
    PressLater(1);
    EXPECT_EQ(Run(theAlert), 1);
}

TEST_F(StandardAlerts, QuittingEndsAnAlertWithoutAnAnswer)
{
    const DialogRef theAlert = NewAlert();
    mSteps.Then([] { Person().QuitAsked(); });
    EXPECT_EQ(Run(theAlert, eventLoopQuitErr), 0);
    EXPECT_EQ(GetDialogWindow(theAlert), nullptr);
}

TEST_F(StandardAlerts, DisposingAnAlertEndsIt)
{
    const DialogRef theAlert = NewAlert();
    const WindowRef theWindow = GetDialogWindow(theAlert);
    mSteps.Then([=] { DisposeDialog(theAlert); });
    EXPECT_EQ(Run(theAlert), 0);
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
}

// --- Pascal strings ----------------------------------------------------------------------------------

TEST_F(StandardAlerts, TextsOfPascalStringsAreReplaced)
{
    ParamText(kPascalName, nullptr, nullptr, nullptr);
    ParamText(nullptr, kPascalOff, nullptr, nullptr);
    mSteps.Then([this] {
        mLog = Items(GetDialogFromWindow(FrontWindow()));
        Press(GetDialogFromWindow(FrontWindow()), 1);
    });
    SInt16 theItem = 0;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, kPascalError, nullptr, nullptr, &theItem), noErr);
    EXPECT_EQ(theItem, 1);
    EXPECT_EQ(TakeLog(), (Log{"Switch \"Radio 1\" off", "OK", "(none)", "(none)", "(none)"}));
}

TEST_F(StandardAlerts, AnAlertOfPascalStringsHasItsOwnButtons)
{
    AlertStdAlertParamRec theParams = {};
    theParams.helpButton = true;
    theParams.defaultText = kPascalOff;
    theParams.cancelText = reinterpret_cast<ConstStringPtr>(std::intptr_t{-1});
    theParams.defaultButton = 1;
    theParams.cancelButton = 2;
    mSteps.Then([this] { mLog = Items(GetDialogFromWindow(FrontWindow())); });
    PressKeyLater(kVK_Escape);
    SInt16 theItem = 0;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, kPascalName, kPascalOff, &theParams, &theItem), noErr);
    EXPECT_EQ(theItem, 2);
    EXPECT_EQ(TakeLog(), (Log{"Radio 1", "Off", "Off", "Cancel", "(none)", "?"}));
}

TEST_F(StandardAlerts, RefusesWhatIsNoAlertOfPascalStrings)
{
    SInt16 theItem = 9;
    AlertStdAlertParamRec theParams = {};
    theParams.defaultButton = 9;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, nullptr, nullptr, nullptr, &theItem), paramErr);
    EXPECT_EQ(theItem, 0);
    EXPECT_EQ(StandardAlert(9, kPascalName, nullptr, nullptr, nullptr), paramErr);
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, kPascalName, nullptr, &theParams, nullptr), paramErr);
}

// --- Sheets ------------------------------------------------------------------------------------------

TEST_F(StandardAlerts, AButtonOfASheetClosesItAndSendsItsCommand)
{
    mParams.cancelText = DefaultText();
    mParams.otherText = DefaultText();
    mParams.helpButton = true;
    NoteCommands(mWindow);
    const Log kCommands = {"ok  ", "not!", "othr", "ahlp"};
    for (const SInt32 theNumber : {1, 2, 3, 4}) {
        const DialogRef theSheet = NewSheet();
        const WindowRef theWindow = GetDialogWindow(theSheet);
        EXPECT_FALSE(IsWindowVisible(theWindow));
        EXPECT_EQ(ShowSheetWindow(theWindow, mWindow), noErr);
        EXPECT_TRUE(IsClosedOff(mWindow));
        EXPECT_TRUE(Press(theSheet, theNumber));
        EXPECT_EQ(TakeLog(), Log{kCommands[static_cast<size_t>(theNumber) - 1]});
        EXPECT_FALSE(IsValidWindowPtr(theWindow));
        EXPECT_EQ(GetDialogWindow(theSheet), nullptr);
        EXPECT_FALSE(IsClosedOff(mWindow));
    }
}

TEST_F(StandardAlerts, ASheetIsGoneWhenItsCommandComes)
{
    const DialogRef theSheet = NewSheet();
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    WindowRef theNext = nullptr;
    Watch(mWindow, "command", {{kEventClassCommand, kEventCommandProcess}}, [&](EventRef) {
        EXPECT_EQ(GetDialogWindow(theSheet), nullptr);
        theNext = GetDialogWindow(NewSheet());
        EXPECT_EQ(ShowSheetWindow(theNext, mWindow), noErr);
        return OSStatus{noErr};
    });
    Press(theSheet, 1);
    EXPECT_TRUE(IsWindowActive(theNext));
}

TEST_F(StandardAlerts, ASheetCanBeKept)
{
    mParams.flags = kStdAlertDoNotDisposeSheet;
    NoteCommands(mWindow);
    const DialogRef theSheet = NewSheet();
    const WindowRef theWindow = GetDialogWindow(theSheet);
    for (int theCount = 0; theCount < 2; ++theCount) {
        EXPECT_EQ(ShowSheetWindow(theWindow, mWindow), noErr);
        Press(theSheet, 1);
        EXPECT_FALSE(IsWindowVisible(theWindow));
        EXPECT_EQ(TakeLog(), Log{"ok  "});
    }
    DisposeDialog(theSheet);
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
}

TEST_F(StandardAlerts, ReturnAndEscapeAnswerASheet)
{
    mParams.cancelText = DefaultText();
    mParams.cancelButton = kAlertStdAlertCancelButton;
    NoteCommands(mWindow);
    Host::UserSimulator theUser;
    ShowSheetWindow(GetDialogWindow(NewSheet()), mWindow);
    EXPECT_TRUE(theUser.PressKey(kVK_Return));
    ShowSheetWindow(GetDialogWindow(NewSheet()), mWindow);
    EXPECT_TRUE(theUser.PressKey(kVK_Escape));
    EXPECT_EQ(TakeLog(), (Log{"ok  ", "not!"}));
}

TEST_F(StandardAlerts, TheProgramMayCloseASheet)
{
    NoteCommands(mWindow);
    DialogRef theSheet = NewSheet();
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    EXPECT_EQ(CloseStandardSheet(theSheet, kHICommandCancel), noErr);
    EXPECT_EQ(TakeLog(), Log{"not!"});
    EXPECT_EQ(GetDialogWindow(theSheet), nullptr);
    theSheet = NewSheet();
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    EXPECT_EQ(CloseStandardSheet(theSheet, 0), noErr);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_EQ(CloseStandardSheet(theSheet, 0), paramErr);
}

TEST_F(StandardAlerts, ASheetMayHaveNoTargetOrOneThatIsGone)
{
    DialogRef theSheet = nullptr;
    EXPECT_EQ(CreateStandardSheet(0, CFSTR("x"), nullptr, nullptr, nullptr, &theSheet), noErr);
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    EXPECT_TRUE(Press(theSheet, 1));
    WindowRef theOther = NewWindow();
    EXPECT_EQ(CreateStandardSheet(0, CFSTR("x"), nullptr, nullptr, GetWindowEventTarget(theOther), &theSheet),
              noErr);
    DisposeWindow(theOther);
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    EXPECT_TRUE(Press(theSheet, 1));
    EXPECT_EQ(GetDialogWindow(theSheet), nullptr);
}

TEST_F(StandardAlerts, TheHelpButtonMayLeaveASheetOpen)
{
    mParams.helpButton = true;
    mParams.flags = kStdAlertDoNotCloseOnHelp;
    NoteCommands(mWindow);
    const DialogRef theSheet = NewSheet();
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    EXPECT_TRUE(Press(theSheet, 4));
    EXPECT_EQ(TakeLog(), Log{"ahlp"});
    EXPECT_TRUE(IsWindowVisible(GetDialogWindow(theSheet)));
}

TEST_F(StandardAlerts, ASheetThatIsUpCanBeDisposed)
{
    const DialogRef theSheet = NewSheet();
    ShowSheetWindow(GetDialogWindow(theSheet), mWindow);
    DisposeDialog(theSheet);
    EXPECT_FALSE(IsClosedOff(mWindow));
    EXPECT_EQ(GetWindowRetainCount(mWindow), 1u);
}
