// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControllersTestSupport.h"
#include "CountFormatter.h"
#include "LmBindable.h"
#include "LmTextFieldBinding.h"
#include "RandomPrograms.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <Simulation/UserSimulator.h>
#include <string>

// A person and a program do anything to a text field, which is bound to a model that takes no more than 1500.

namespace {

constexpr long kMost = 1500;
constexpr long kFirst = 1200;

enum Kind
{
    kType,   // a person replaces the text by another one
    kAppend, // types something behind it
    kDelete, // takes the last character away
    kReturn,
    kTab,
    kEscape,
    kClickField,
    kClickOther,
    kFocusOther, // a program moves the focus
    kCommand,    // and so on
    kCommit,
    kDiscard,
    kSetModel,
    kSetKey,
    kKinds
};

struct Step
{
    Kind theKind;
    std::string theText;
    long theNumber;
};

std::string DescribeStep(const Step& theStep)
{
    static const char* const kNames[] = {"type",   "append",      "delete",      "return",      "tab",
                                         "escape", "click field", "click other", "focus other", "command",
                                         "commit", "discard",     "set model",   "set key"};
    std::string theText = kNames[theStep.theKind];
    return theText.append(" \"")
        .append(theStep.theText)
        .append("\" ")
        .append(std::to_string(theStep.theNumber));
}

Step MakeStep(std::mt19937& theChance)
{
    static const char* const kTexts[] = {"1", "12", "1300", "1,300", "2000", "x", "1x", "", "007"};
    static constexpr long kNumbers[] = {0, 1, 12, 1200, 1500, 1501, 99999};
    return {static_cast<Kind>(theChance() % kKinds), kTexts[theChance() % 9], kNumbers[theChance() % 7]};
}

std::string DescribeState(const std::string& theText, long theKey, long theModel, bool isValid,
                          const std::string& theProblem, bool isEditing, bool hasFocus)
{
    std::string theState = "\"" + theText + "\"";
    theState.append(" key ").append(std::to_string(theKey));
    theState.append(" model ").append(std::to_string(theModel));
    theState.append(isValid ? " valid" : " refused").append(theProblem);
    return theState.append(isEditing ? " editing" : "").append(hasFocus ? " focus" : "");
}

// ---- The program played with the library

class Store : public LmBindable
{
public:
    Store() { GetBindings()->SetKeyPathValue("quantity", LmValue(kFirst)); }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        if (theStore->GetKeyPathValue(theKeyName).GetSInt32() > kMost) {
            GetBindings()->SetKeyPathValue(theKeyName, LmValue(kMost));
        }
    }
};

class RealRun
{
public:
    explicit RealRun(unsigned theOptions)
    {
        const Rect theBounds = {50, 50, 250, 450};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &mWindow);
        mField = MakeField(10);
        mOther = MakeField(50);
        ShowWindow(mWindow);
        mBinding = new LmTextFieldBinding(mField, std::make_shared<CountFormatter>(), theOptions);
        mBinding->Bind("value", mModel.GetBindings(), "quantity", nullptr, nullptr);
        SetKeyboardFocus(mWindow, mField, kControlEditTextPart);
    }
    ~RealRun() { DisposeWindow(mWindow); }
    RealRun(const RealRun&) = delete;
    RealRun& operator=(const RealRun&) = delete;

    Lines Play(const std::vector<Step>& theProgram)
    {
        Lines theLines;
        for (const Step& theStep : theProgram) {
            PlayStep(theStep);
            theLines.push_back(DescribeState(Text(), mBinding->GetKeyPathValue("value").GetSInt32(),
                                             mModel.GetBindings()->GetKeyPathValue("quantity").GetSInt32(),
                                             mBinding->GetKeyPathValue("valid").GetBoolean(),
                                             LmGetStdString(mBinding->GetKeyPathValue("problem")),
                                             mBinding->GetKeyPathValue("editing").GetBoolean(), HasFocus()));
        }
        return theLines;
    }

private:
    ControlRef MakeField(short theTop)
    {
        const Rect theBounds = {theTop, 10, static_cast<short>(theTop + 20), 200};
        ControlRef theControl = nullptr;
        CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR(""), false, nullptr, &theControl);
        return theControl;
    }

    std::string Text() const
    {
        CFStringRef theText = nullptr;
        GetControlData(mField, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText, &theText,
                       nullptr);
        return LmGetStdString(LmValue(theText, true));
    }

    bool HasFocus() const
    {
        ControlRef theFocus = nullptr;
        GetKeyboardFocus(mWindow, &theFocus);
        return theFocus == mField;
    }

    void Select(SInt16 theStart)
    {
        const ControlEditTextSelectionRec theSelection = {theStart, 32767};
        SetControlData(mField, kControlEntireControl, kControlEditTextSelectionTag, sizeof theSelection,
                       &theSelection);
    }

    void Type(const std::string& theText, SInt16 theStart)
    {
        Select(theStart);
        if (theText.empty()) {
            mUser.PressKey(kVK_Delete);
        } else {
            mUser.TypeText(theText);
        }
    }

    void PlayStep(const Step& theStep)
    {
        switch (theStep.theKind) {
        case kType:
        case kAppend:
        case kDelete:
        case kReturn:
        case kTab:
        case kEscape:
            if (HasFocus()) {
                PressKeys(theStep);
            }
            break;
        case kClickField:
            mUser.Click(mField);
            break;
        case kClickOther:
            mUser.Click(mOther);
            break;
        case kFocusOther:
            SetKeyboardFocus(mWindow, mOther, kControlEditTextPart);
            break;
        default:
            PlayProgram(theStep);
        }
    }

    void PressKeys(const Step& theStep)
    {
        switch (theStep.theKind) {
        case kType:
            Type(theStep.theText, 0);
            break;
        case kAppend:
        case kDelete:
            Type(theStep.theKind == kAppend ? theStep.theText : std::string(), 32767);
            break;
        case kReturn:
            mUser.PressKey(kVK_Return);
            break;
        case kTab:
            mUser.PressKey(kVK_Tab);
            break;
        default:
            mUser.PressKey(kVK_Escape);
        }
    }

    void PlayProgram(const Step& theStep)
    {
        HICommand theCommand = {0, 'Ordr', {nullptr, 0}};
        switch (theStep.theKind) {
        case kCommand:
            ProcessHICommand(&theCommand);
            break;
        case kCommit:
            mBinding->Commit();
            break;
        case kDiscard:
            mBinding->Discard();
            break;
        case kSetModel:
            mModel.GetBindings()->SetKeyPathValue("quantity", LmValue(theStep.theNumber));
            break;
        default:
            mBinding->SetKeyPathValue("value", LmValue(theStep.theNumber));
        }
    }

    Host::UserSimulator mUser;
    Store mModel;
    WindowRef mWindow = nullptr;
    ControlRef mField = nullptr;
    ControlRef mOther = nullptr;
    LmTextFieldBinding* mBinding = nullptr; // deletes itself
};

// ---- The same by the rules alone

class ModelRun
{
public:
    explicit ModelRun(unsigned theOptions)
        : mIsEachKey((theOptions & kCommitEachKey) != 0),
          mKeepsFocus((theOptions & kKeepFocus) != 0)
    {
    }

    Lines Play(const std::vector<Step>& theProgram)
    {
        Lines theLines;
        for (const Step& theStep : theProgram) {
            PlayStep(theStep);
            // The key and the model are never seen to differ.
            theLines.push_back(
                DescribeState(mText, mValue, mValue, mProblem.empty(), mProblem, mIsEditing, mHasFocus));
        }
        return theLines;
    }

private:
    // -1 where the text is refused, with the problem.
    static long Parse(const std::string& theText, std::string& theProblem)
    {
        std::string theDigits;
        for (const char theCharacter : theText) {
            const bool isDigit = theCharacter >= '0' && theCharacter <= '9' && theDigits.size() < 6;
            if (!isDigit && theCharacter != ',' && theCharacter != ' ') {
                theProblem = "This is no number.";
                return -1;
            }
            theDigits.append(isDigit ? 1 : 0, theCharacter);
        }
        theProblem = theDigits.empty() ? "A number is needed." : "";
        return theDigits.empty() ? -1 : std::stol(theDigits);
    }

    static std::string Format(long theNumber)
    {
        const std::string theText = std::to_string(theNumber);
        return theNumber < 1000
                   ? theText
                   : theText.substr(0, theText.size() - 3) + "," + theText.substr(theText.size() - 3);
    }

    void Show()
    {
        mText = mShown = Format(mValue);
        mProblem.clear();
        mIsEditing = false;
    }

    bool IsRefused()
    {
        if (mText == mShown) {
            return false;
        }
        const long theNumber = Parse(mText, mProblem);
        if (theNumber < 0) {
            mIsEditing = true;
            return true;
        }
        mValue = std::min(theNumber, kMost);
        mBefore.reset();
        Show();
        return false;
    }

    void TypeOne(const std::string& theText)
    {
        if (theText == mText) {
            return;
        }
        mText = theText;
        mIsEditing = mText != mShown;
        if (mIsEditing && !mIsEachKey) {
            return;
        }
        const long theNumber = Parse(mText, mProblem);
        if (mIsEachKey && theNumber >= 0) {
            mBefore = mBefore.value_or(mValue);
            mValue = std::min(theNumber, kMost);
        }
    }

    void Discard()
    {
        if (mText == mShown) {
            return;
        }
        mValue = mBefore.value_or(mValue);
        mBefore.reset();
        Show();
    }

    void Leave() { mHasFocus = IsRefused() && mKeepsFocus; }

    void Set(long theNumber)
    {
        const bool isChange = theNumber != mValue;
        mValue = std::min(theNumber, kMost);
        if (isChange) {
            mBefore.reset();
        }
        if (isChange && mText == mShown) {
            Show();
        }
    }

    void TypeBehind(std::string theText, const std::string& theTyped)
    {
        for (const char theCharacter : theTyped) {
            theText += theCharacter;
            TypeOne(theText);
        }
    }

    void PressKeys(const Step& theStep)
    {
        switch (theStep.theKind) {
        case kType:
            if (theStep.theText.empty()) {
                TypeOne("");
            }
            TypeBehind("", theStep.theText);
            break;
        case kAppend:
            if (!theStep.theText.empty()) {
                TypeBehind(mText, theStep.theText);
                break;
            }
            [[fallthrough]];
        case kDelete:
            TypeOne(mText.substr(0, mText.size() - (mText.empty() ? 0 : 1)));
            break;
        case kReturn:
            IsRefused();
            break;
        case kTab:
            Leave();
            break;
        default:
            Discard();
        }
    }

    void PlayStep(const Step& theStep)
    {
        switch (theStep.theKind) {
        case kClickField:
            mHasFocus = true;
            break;
        case kClickOther:
        case kFocusOther:
            if (mHasFocus) {
                Leave();
            }
            break;
        case kCommand:
        case kCommit:
            IsRefused();
            break;
        case kDiscard:
            Discard();
            break;
        case kSetModel:
        case kSetKey:
            Set(theStep.theNumber);
            break;
        default:
            if (mHasFocus) {
                PressKeys(theStep);
            }
        }
    }

    const bool mIsEachKey;
    const bool mKeepsFocus;
    std::string mText = Format(kFirst);
    std::string mShown = mText;
    std::string mProblem;
    long mValue = kFirst;
    std::optional<long> mBefore; // what keystrokes have taken the place of, until somebody else sets it
    bool mIsEditing = false;
    bool mHasFocus = true;
};

} // namespace

TEST(LmTextFieldBindingModel, RandomPersonsAndProgramsMeetWhatTheRulesSay)
{
    for (const unsigned theOptions : {0U, unsigned(kCommitEachKey), unsigned(kKeepFocus)}) {
        RandomPrograms<Step> thePrograms;
        thePrograms.theMaker = MakeStep;
        thePrograms.theLibrary = [=](const std::vector<Step>& theProgram) {
            return RealRun(theOptions).Play(theProgram);
        };
        thePrograms.theModel = [=](const std::vector<Step>& theProgram) {
            return ModelRun(theOptions).Play(theProgram);
        };
        thePrograms.theDescription = DescribeStep;
        SCOPED_TRACE("options " + std::to_string(theOptions));
        thePrograms.Play(25, 25);
    }
}
