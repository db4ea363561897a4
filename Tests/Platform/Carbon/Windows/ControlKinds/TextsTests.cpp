// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Static and edit texts: their data, selections, and what keys and edits do to them.

#include "ManagerTestSupport.h"

#include <Windows/Controls.h>

namespace {

class Texts : public ControlKindTest
{
protected:
    static bool Edit(ControlRef theField, const char* theText, int theStart, int theEnd)
    {
        return Host::PresenterRegistry::Events().TextEdited(
            {Host::IdentifierOf(theField), theText, theStart, theEnd});
    }

    // A letter with the command key. Whether somebody took it.
    static bool Command(UInt32 theKey, const char* theLetter)
    {
        Host::PresenterEvents& theGate = Host::PresenterRegistry::Events();
        theGate.KeyPressed({theKey, theLetter, Host::kCommandModifier});
        const bool theIsTaken = theGate.WasTaken();
        theGate.KeyReleased({theKey, theLetter, Host::kCommandModifier});
        return theIsTaken;
    }
};

const std::vector<EventTypeSpec> kTextEvents = {{kEventClassTextField, kEventTextAccepted},
                                                {kEventClassTextField, kEventTextShouldChangeInRange},
                                                {kEventClassTextField, kEventTextDidChange}};

} // namespace

// --- Texts -------------------------------------------------------------------------------------------

namespace {

struct TextRow
{
    const char* theName;
    OSStatus (*theMaker)(WindowRef theWindow, const Rect* theBounds, CFStringRef theText,
                         ControlRef* theControl);
};

class TextControls : public ManagerTest, public testing::WithParamInterface<TextRow>
{
protected:
    ControlRef Make(CFStringRef theText)
    {
        const Rect theBounds = MakeRect(10, 130, 210, 150);
        ControlRef theControl = nullptr;
        EXPECT_EQ(GetParam().theMaker(mWindow, &theBounds, theText, &theControl), noErr);
        return theControl;
    }
};

const TextRow kTextRows[] = {
    {"StaticText",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateStaticTextControl(theWindow, theBounds, theText, nullptr, theControl);
     }},
    {"EditText",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateEditTextControl(theWindow, theBounds, theText, false, true, nullptr, theControl);
     }},
    {"EditUnicodeText",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateEditUnicodeTextControl(theWindow, theBounds, theText, false, nullptr, theControl);
     }},
    {"Password",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateEditUnicodeTextControl(theWindow, theBounds, theText, true, nullptr, theControl);
     }},
};

INSTANTIATE_TEST_SUITE_P(Kinds, TextControls, testing::ValuesIn(kTextRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(TextControls, ShowTheTextOfTheirCreation)
{
    EXPECT_EQ(TextIn(Make(TestString("Gr\xC3\xBC\xC3\x9F Gott"))), "Gr\xC3\xBC\xC3\x9F Gott");
    EXPECT_EQ(TextIn(Make(nullptr)), "");
}

TEST_P(TextControls, TakeAndGiveStringsWithoutTellingAnybody)
{
    ControlRef theControl = Make(CFSTR("old"));
    Watch(theControl, "text", EventWatch::ControlNotifications());
    const TestString theNew("new \xF0\x9F\x8E\xB9");
    const CFStringRef theString = theNew;
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theString, &theString),
              noErr);
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    EXPECT_EQ(TextIn(theControl), "new \xF0\x9F\x8E\xB9");
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_P(TextControls, AStringThatIsReadBelongsToTheCaller)
{
    ControlRef theControl = Make(CFSTR("text"));
    CFStringRef theString = nullptr;
    Size theSize = 0;
    EXPECT_EQ(
        GetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theString, &theString, &theSize),
        noErr);
    EXPECT_EQ(theSize, Size{sizeof theString});
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    DisposeControl(theControl);
    EXPECT_EQ(TextOf(theString), "text");
    CFRelease(theString);
}

TEST_P(TextControls, TakeAndGiveBytesOfTheSystemsEncoding)
{
    ControlRef theControl = Make(CFSTR(""));
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, 4, "Caf\x8E"), noErr);
    EXPECT_EQ(TextIn(theControl), "Caf\xC3\xA9");
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theControl, 0, kControlEditTextTextTag, &theSize), noErr);
    EXPECT_EQ(theSize, 4);
    char theBuffer[4] = {'x', 'x', 'x', 'x'};
    EXPECT_EQ(GetControlData(theControl, 0, kControlEditTextTextTag, 3, theBuffer, &theSize), noErr);
    EXPECT_EQ(theSize, 4);
    EXPECT_EQ(std::string(theBuffer, 4), "Cafx");
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, 0, nullptr), noErr);
    EXPECT_EQ(TextIn(theControl), "");
}

TEST_P(TextControls, RefuseNullStringsAndWrongSizes)
{
    ControlRef theControl = Make(CFSTR("kept"));
    const CFStringRef theNull = nullptr;
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theNull, &theNull), paramErr);
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextCFStringTag, 1, &theNull), errDataSizeMismatch);
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, 4, nullptr), paramErr);
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, -4, "text"), paramErr);
    CFStringRef theString = nullptr;
    EXPECT_EQ(GetControlData(theControl, 0, kControlEditTextCFStringTag, 1, &theString, nullptr),
              errDataSizeMismatch);
    EXPECT_EQ(theString, nullptr);
    EXPECT_EQ(TextIn(theControl), "kept");
}

TEST_P(TextControls, TheirTitleIsNotTheirTextOnPurpose)
{
    ControlRef theControl = Make(CFSTR("text"));
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(theControl, &theTitle);
    EXPECT_EQ(TextOf(theTitle), "");
    CFRelease(theTitle);
    SetControlTitleWithCFString(theControl, CFSTR("title"));
    EXPECT_EQ(TextIn(theControl), "text");
}

TEST_F(Texts, DataBelongsToTheWholeControlWhateverPartIsNamed)
{
    for (const int theNumber : {int{kControlEditTextPart}, 1, 99}) {
        const auto thePart = static_cast<ControlPartCode>(theNumber);
        Size theSize = 0;
        EXPECT_EQ(GetControlDataSize(NewEditText("abc"), thePart, kControlEditTextTextTag, &theSize), noErr);
        EXPECT_EQ(theSize, 3);
        EXPECT_EQ(GetControlDataSize(NewStaticText("abcd"), thePart, kControlStaticTextTextTag, &theSize),
                  noErr);
        EXPECT_EQ(theSize, 4);
        CFStringRef theText = CFSTR("new");
        ControlRef theControl = NewStaticText("old");
        EXPECT_EQ(
            SetControlData(theControl, thePart, kControlStaticTextCFStringTag, sizeof theText, &theText),
            noErr);
        EXPECT_EQ(TextIn(theControl), "new");
    }
}

TEST_F(Texts, PasswordTagsBelongToPasswordFields)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    ControlRef theField = nullptr;
    CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR("secret"), true, nullptr, &theField);
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theField, 0, kControlEditTextPasswordTag, &theSize), noErr);
    EXPECT_EQ(theSize, 6);
    CFStringRef theString = nullptr;
    EXPECT_EQ(GetControlData(theField, 0, kControlEditTextPasswordCFStringTag, sizeof theString, &theString,
                             nullptr),
              noErr);
    EXPECT_EQ(TextOf(theString), "secret");
    CFRelease(theString);
    ControlRef theOpen = NewEditText("open");
    EXPECT_EQ(GetControlDataSize(theOpen, 0, kControlEditTextPasswordTag, &theSize), errDataNotSupported);
    EXPECT_EQ(GetControlDataSize(theOpen, 0, kControlEditTextPasswordCFStringTag, &theSize),
              errDataNotSupported);
}

TEST_F(Texts, ASelectionStaysInsideItsText)
{
    ControlRef theField = NewEditText("hello");
    const auto theSelect = [&](SInt16 theStart, SInt16 theEnd) {
        ControlEditTextSelectionRec theSelection = {theStart, theEnd};
        EXPECT_EQ(SetControlData(theField, kControlEditTextPart, kControlEditTextSelectionTag,
                                 sizeof theSelection, &theSelection),
                  noErr);
        EXPECT_EQ(GetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection,
                                 &theSelection, nullptr),
                  noErr);
        return std::to_string(theSelection.selStart) + "-" + std::to_string(theSelection.selEnd);
    };
    EXPECT_EQ(theSelect(1, 3), "1-3");
    EXPECT_EQ(theSelect(2, 99), "2-5");
    EXPECT_EQ(theSelect(4, 2), "2-2");
    EXPECT_EQ(theSelect(-9, -3), "0-0");
    EXPECT_EQ(theSelect(0, 5), "0-5");
}

TEST_F(Texts, InsertionsReplaceTheSelection)
{
    ControlRef theField = NewEditText("hello");
    const ControlEditTextSelectionRec theSelection = {1, 4};
    SetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection);
    const CFStringRef theString = CFSTR("ipp");
    EXPECT_EQ(SetControlData(theField, 0, kControlEditTextInsertCFStringRefTag, sizeof theString, &theString),
              noErr);
    EXPECT_EQ(TextIn(theField), "hippo");
    EXPECT_EQ(SetControlData(theField, 0, kControlEditTextInsertTextBufferTag, 1, "!"), noErr);
    EXPECT_EQ(TextIn(theField), "hipp!o");
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theField, 0, kControlEditTextInsertCFStringRefTag, &theSize),
              errDataNotSupported);
    EXPECT_EQ(GetControlDataSize(theField, 0, kControlEditTextInsertTextBufferTag, &theSize),
              errDataNotSupported);
    UInt32 theCount = 0;
    EXPECT_EQ(GetControlData(theField, 0, kControlEditTextCharCount, sizeof theCount, &theCount, nullptr),
              noErr);
    EXPECT_EQ(theCount, 6u);
    EXPECT_EQ(SetControlData(theField, 0, kControlEditTextCharCount, sizeof theCount, &theCount),
              errDataNotSupported);
}

TEST_F(Texts, TextsHaveFlags)
{
    CheckFlag(NewEditText(), kControlEditTextLockedTag, false);
    CheckFlag(NewEditText(), kControlEditTextSingleLineTag, false);
    CheckFlag(NewStaticText(), kControlStaticTextIsMultilineTag, true);
}

TEST_F(Texts, TextsTakeAStyleAtCreation)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    ControlFontStyleRec theStyle = {};
    theStyle.just = 1;
    ControlRef theControls[3] = {};
    CreateStaticTextControl(mWindow, &theBounds, CFSTR("a"), &theStyle, &theControls[0]);
    CreateEditTextControl(mWindow, &theBounds, CFSTR("a"), false, false, &theStyle, &theControls[1]);
    CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR("a"), false, &theStyle, &theControls[2]);
    for (ControlRef theControl : theControls) {
        ControlFontStyleRec theRead = {};
        GetControlData(theControl, 0, kControlFontStyleTag, sizeof theRead, &theRead, nullptr);
        EXPECT_EQ(SInt16{theRead.just}, 1);
    }
}

// --- Keys --------------------------------------------------------------------------------------------

TEST_F(Texts, TypingReplacesTheSelectionAndTellsBeforeAndAfter)
{
    ControlRef theField = NewEditText("hello");
    Select(theField, 1, 4);
    SetFocus(theField);
    std::string theCandidate;
    CFRange theRange = {0, 0};
    Watch(theField, "field", kTextEvents, [&](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventTextShouldChangeInRange) {
            theCandidate =
                TextOf(Parameter<CFStringRef>(theEvent, kEventParamCandidateText, typeCFStringRef));
            theRange = Parameter<CFRange>(theEvent, kEventParamTextSelection, typeCFRange);
            EXPECT_EQ(TextIn(theField), "hello");
        }
        return OSStatus{eventNotHandledErr};
    });
    Type("u");
    EXPECT_EQ(TextIn(theField), "huo");
    EXPECT_EQ(Selection(theField), "2-2");
    EXPECT_EQ(theCandidate, "u");
    EXPECT_EQ(theRange.location, 1);
    EXPECT_EQ(theRange.length, 3);
    EXPECT_EQ(TakeLog(), (Log{"field: TextShouldChangeInRange", "field: TextDidChange"}));
}

TEST_F(Texts, WhatIsCutOrCopiedIsPastedIntoAnotherField)
{
    ControlRef theField = NewEditText("hello");
    SetFocus(theField);
    EXPECT_TRUE(Command(kVK_ANSI_A, "a"));
    EXPECT_EQ(Selection(theField), "0-5");
    Watch(theField, "field", kTextEvents);
    EXPECT_TRUE(Command(kVK_ANSI_C, "c"));
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_TRUE(Command(kVK_ANSI_X, "x"));
    EXPECT_EQ(TakeLog(), (Log{"field: TextShouldChangeInRange", "field: TextDidChange"}));
    EXPECT_EQ(TextIn(theField), "");
    ControlRef theOther = NewEditText("say ");
    SetFocus(theOther);
    EXPECT_TRUE(Command(kVK_ANSI_V, "V")); // with caps lock
    EXPECT_EQ(TextIn(theOther), "say hello");
}

TEST_F(Texts, APasswordIsNeitherCutNorCopied)
{
    Host::PresenterRegistry::Current().SetClipboardText("before");
    const Rect theBounds = MakeRect(10, 10, 100, 26);
    ControlRef theField = nullptr;
    CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR("secret"), true, nullptr, &theField);
    SetFocus(theField);
    Command(kVK_ANSI_A, "a");
    Command(kVK_ANSI_C, "c");
    Command(kVK_ANSI_X, "x");
    EXPECT_EQ(Host::PresenterRegistry::Current().ClipboardText(), "before");
    EXPECT_EQ(TextIn(theField), "secret");
    Command(kVK_ANSI_V, "v");
    EXPECT_EQ(TextIn(theField), "before");
}

TEST_F(Texts, ALockedTextIsCopiedOnly)
{
    ControlRef theField = NewEditText("fixed");
    const Boolean theIsLocked = true;
    SetControlData(theField, 0, kControlEditTextLockedTag, sizeof theIsLocked, &theIsLocked);
    SetFocus(theField);
    EXPECT_TRUE(Command(kVK_ANSI_A, "a"));
    EXPECT_TRUE(Command(kVK_ANSI_C, "c"));
    EXPECT_EQ(Host::PresenterRegistry::Current().ClipboardText(), "fixed");
    EXPECT_FALSE(Command(kVK_ANSI_X, "x"));
    EXPECT_FALSE(Command(kVK_ANSI_V, "v"));
    EXPECT_EQ(TextIn(theField), "fixed");
    EXPECT_FALSE(Command(kVK_ANSI_K, "k"));
}

TEST_F(Texts, LinesOnTheClipboardEndWithALineFeed)
{
    ControlRef theField = NewEditText("");
    SetFocus(theField);
    Host::PresenterRegistry::Current().SetClipboardText("one\ntwo\a");
    Command(kVK_ANSI_V, "v");
    EXPECT_EQ(TextIn(theField), "one\rtwo");
    Command(kVK_ANSI_A, "a");
    Command(kVK_ANSI_C, "c");
    EXPECT_EQ(Host::PresenterRegistry::Current().ClipboardText(), "one\ntwo");
    const Boolean theIsSingle = true;
    SetControlData(theField, 0, kControlEditTextSingleLineTag, sizeof theIsSingle, &theIsSingle);
    Command(kVK_ANSI_V, "v");
    EXPECT_EQ(TextIn(theField), "one two");
}

TEST_F(Texts, TheOlderEditTextTypesInSilence)
{
    const Rect theBounds = MakeRect(10, 10, 100, 26);
    ControlRef theField = nullptr;
    CreateEditTextControl(mWindow, &theBounds, CFSTR(""), false, false, nullptr, &theField);
    SetFocus(theField);
    Watch(theField, "field", kTextEvents);
    Type("ab");
    EXPECT_EQ(TextIn(theField), "ab");
    EXPECT_EQ(TakeLog(), Log{});
}

namespace {

struct AnswerRow
{
    const char* theName;
    OSStatus theAnswer;
    const char* theReplacement; // null for none
    const char* theText; // of a field with "[old]", the brackets around the selection, after typing "x"
    bool theIsTold;
};

class TextChangeAnswers : public ManagerTest, public testing::WithParamInterface<AnswerRow>
{
};

const AnswerRow kAnswerRows[] = {
    {"NotHandled", eventNotHandledErr, nullptr, "ax", true},
    {"SomeError", paramErr, nullptr, "ax", true},
    {"Replaced", noErr, "yz", "ayz", true},
    {"HandledWithoutReplacement", noErr, nullptr, "a", true},
    {"Cancelled", userCanceledErr, nullptr, "aold", false},
};

INSTANTIATE_TEST_SUITE_P(Answers, TextChangeAnswers, testing::ValuesIn(kAnswerRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(TextChangeAnswers, DecideTheEdit)
{
    ControlRef theField = NewEditText("aold");
    const ControlEditTextSelectionRec theSelection = {1, 4};
    SetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection);
    SetKeyboardFocus(mWindow, theField, kControlEditTextPart);
    Watch(theField, "field", {{kEventClassTextField, kEventTextDidChange}});
    EventWatch theAnswerer(GetControlEventTarget(theField), "answer", mLog,
                           {{kEventClassTextField, kEventTextShouldChangeInRange}}, [](EventRef theEvent) {
                               if (GetParam().theReplacement != nullptr) {
                                   const TestString theText(GetParam().theReplacement);
                                   const CFStringRef theString = theText;
                                   SetEventParameter(theEvent, kEventParamReplacementText, typeCFStringRef,
                                                     sizeof theString, &theString);
                               }
                               return GetParam().theAnswer;
                           });
    Type("x");
    EXPECT_EQ(TextIn(theField), GetParam().theText);
    EXPECT_EQ(TakeLog().size(), GetParam().theIsTold ? 2u : 1u);
}

TEST_F(Texts, AFieldDisposedByItsTextHandlerIsForgotten)
{
    for (const UInt32 theKind : {kEventTextShouldChangeInRange, kEventTextDidChange, kEventTextAccepted}) {
        ControlRef theField = NewEditText();
        SetFocus(theField);
        EventWatch theWatch(GetControlEventTarget(theField), "field", mLog, {{kEventClassTextField, theKind}},
                            [&](EventRef) {
                                DisposeControl(theField);
                                return OSStatus{eventNotHandledErr};
                            });
        Type("x");
        Key(kVK_Return, "\r");
        EXPECT_FALSE(IsValidControlHandle(theField));
    }
}

namespace {

struct EditRow
{
    const char* theName;
    UInt32 theCode;
    const char* theTyped;
    UInt32 theModifiers;
    SInt16 theStart;
    SInt16 theEnd;
    const char* theText; // of a field that held "hello"
    const char* theSelection;
};

class EditKeys : public ManagerTest, public testing::WithParamInterface<EditRow>
{
};

const EditRow kEditRows[] = {
    {"Left", kVK_LeftArrow, "\x1C", 0, 3, 3, "hello", "2-2"},
    {"LeftAtTheStart", kVK_LeftArrow, "\x1C", 0, 0, 0, "hello", "0-0"},
    {"LeftOfASelection", kVK_LeftArrow, "\x1C", 0, 1, 3, "hello", "1-1"},
    {"ShiftLeft", kVK_LeftArrow, "\x1C", shiftKey, 3, 3, "hello", "2-3"},
    {"Right", kVK_RightArrow, "\x1D", 0, 3, 3, "hello", "4-4"},
    {"RightAtTheEnd", kVK_RightArrow, "\x1D", 0, 5, 5, "hello", "5-5"},
    {"RightOfASelection", kVK_RightArrow, "\x1D", 0, 1, 3, "hello", "3-3"},
    {"ShiftRight", kVK_RightArrow, "\x1D", shiftKey, 1, 3, "hello", "1-4"},
    {"Up", kVK_UpArrow, "\x1E", 0, 3, 3, "hello", "0-0"},
    {"ShiftHome", kVK_Home, "\x01", shiftKey, 3, 3, "hello", "0-3"},
    {"Down", kVK_DownArrow, "\x1F", 0, 3, 3, "hello", "5-5"},
    {"ShiftEnd", kVK_End, "\x04", shiftKey, 3, 3, "hello", "3-5"},
    {"Delete", kVK_Delete, "\x08", 0, 3, 3, "helo", "2-2"},
    {"DeleteAtTheStart", kVK_Delete, "\x08", 0, 0, 0, "hello", "0-0"},
    {"DeleteASelection", kVK_Delete, "\x08", 0, 1, 4, "ho", "1-1"},
    {"ForwardDelete", kVK_ForwardDelete, "\x7F", 0, 3, 3, "helo", "3-3"},
    {"ForwardDeleteAtTheEnd", kVK_ForwardDelete, "\x7F", 0, 5, 5, "hello", "5-5"},
    {"ForwardDeleteASelection", kVK_ForwardDelete, "\x7F", 0, 0, 5, "", "0-0"},
    {"ALetter", kVK_ANSI_A, "a", 0, 5, 5, "helloa", "6-6"},
    {"ACommandKey", kVK_ANSI_K, "k", cmdKey, 5, 5, "hello", "5-5"},
    {"AControlCharacter", kVK_F1, "\x10", 0, 5, 5, "hello", "5-5"},
    {"Escape", kVK_Escape, "\x1B", 0, 5, 5, "hello", "5-5"},
};

INSTANTIATE_TEST_SUITE_P(Keys, EditKeys, testing::ValuesIn(kEditRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(EditKeys, MoveAndChange)
{
    ControlRef theField = NewEditText("hello");
    ControlEditTextSelectionRec theSelection = {GetParam().theStart, GetParam().theEnd};
    SetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection);
    SetKeyboardFocus(mWindow, theField, kControlEditTextPart);
    Key(GetParam().theCode, GetParam().theTyped, GetParam().theModifiers);
    EXPECT_EQ(TextIn(theField), GetParam().theText);
    GetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection, nullptr);
    EXPECT_EQ(std::to_string(theSelection.selStart) + "-" + std::to_string(theSelection.selEnd),
              GetParam().theSelection);
}

TEST_F(Texts, AnArrowAndADeletionTakeTheWholeOfACharacterOfTwoUnits)
{
    ControlRef theField = NewEditText("a\xF0\x9F\x8E\xB9z");
    Select(theField, 1, 1);
    SetFocus(theField);
    Key(kVK_RightArrow, "\x1D");
    EXPECT_EQ(Selection(theField), "3-3");
    Key(kVK_Delete, "\x08");
    EXPECT_EQ(TextIn(theField), "az");
}

TEST_F(Texts, ALockedFieldTakesTheFocusButNoTyping)
{
    ControlRef theField = NewEditText("hello");
    const Boolean theLock = true;
    SetControlData(theField, 0, kControlEditTextLockedTag, 1, &theLock);
    EXPECT_EQ(SetFocus(theField), noErr);
    Type("x");
    Key(kVK_Delete, "\x08");
    EXPECT_EQ(TextIn(theField), "hello");
    Key(kVK_LeftArrow, "\x1C");
    EXPECT_EQ(Selection(theField), "4-4");
}

TEST_F(Texts, ATextIsAcceptedByReturnAndByLeavingItAfterAnEdit)
{
    ControlRef theField = NewFieldAt(10, 10, "old");
    ControlRef theOther = NewFieldAt(10, 40);
    Watch(theField, "field", {{kEventClassTextField, kEventTextAccepted}});
    SetFocus(theField);
    SetFocus(theOther);
    EXPECT_EQ(TakeLog(), Log{});
    SetFocus(theField);
    Type("x");
    SetFocus(theOther);
    EXPECT_EQ(TakeLog(), Log{"field: TextAccepted"});
    SetFocus(theField);
    for (const UInt32 theCode : {UInt32{kVK_Return}, UInt32{kVK_ANSI_KeypadEnter}, UInt32{52}}) {
        Key(theCode, "\r");
        EXPECT_EQ(TakeLog(), Log{"field: TextAccepted"});
    }
    SetFocus(theOther);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_EQ(TextIn(theField), "oldx");
}

// --- Edits that are not keys -------------------------------------------------------------------------

TEST_F(Texts, AnEditByAPresentersFieldTellsOnlyOfWhatDiffers)
{
    ControlRef theField = NewEditText("the cat sat");
    CFRange theRange = {0, 0};
    std::string theCandidate;
    Watch(theField, "field", kTextEvents, [&](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventTextShouldChangeInRange) {
            theRange = Parameter<CFRange>(theEvent, kEventParamTextSelection, typeCFRange);
            theCandidate =
                TextOf(Parameter<CFStringRef>(theEvent, kEventParamCandidateText, typeCFStringRef));
        }
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_TRUE(Edit(theField, "the cool cat sat", 3, 8));
    EXPECT_EQ(TextIn(theField), "the cool cat sat");
    EXPECT_EQ(Selection(theField), "3-8");
    EXPECT_EQ(theRange.length, 0);
    EXPECT_EQ(theCandidate.size(), 5u);
    EXPECT_EQ(TakeLog(), (Log{"field: TextShouldChangeInRange", "field: TextDidChange"}));
    EXPECT_FALSE(Edit(theField, "the cool cat sat", 3, 8));
    EXPECT_TRUE(Edit(theField, "the cool cat sat", 0, 99));
    EXPECT_EQ(Selection(theField), "0-16");
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_TRUE(Edit(theField, "", 0, 0));
    EXPECT_EQ(TextIn(theField), "");
    EXPECT_TRUE(Edit(theField, "aa", 0, 0));
    EXPECT_TRUE(Edit(theField, "aaa", 0, 0));
    EXPECT_EQ(TextIn(theField), "aaa");
    DisableControl(theField);
    EXPECT_FALSE(Edit(theField, "b", 0, 0));
    EXPECT_FALSE(Edit(NewSlider(), "b", 0, 0));
}
