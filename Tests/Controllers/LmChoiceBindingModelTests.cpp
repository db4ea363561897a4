// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControllersTestSupport.h"
#include "LmChoiceBinding.h"
#include "LmKeyValueBinding.h"
#include "RandomPrograms.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// A person and a program do anything to the buttons of a choice, which is bound to a model by its tag.

namespace {

constexpr int kButtons = 4;
constexpr int kNone = -1;

enum Kind
{
    kClick,   // a person clicks a button
    kTurnOn,  // a program turns one on
    kTurnOff, // and so on
    kDispose,
    kSetIndex,
    kSetTag,
    kSetTitle,
    kSetModel,
    kSetButtons, // those that theNumber has a bit for, from the one on that theButton is
    kKinds
};

struct Step
{
    Kind theKind;
    int theButton;
    int theNumber;
};

// The titles and tags of the buttons.
std::string TitleOf(int theButton)
{
    return std::string(1, static_cast<char>('A' + theButton));
}

int TagOf(int theButton)
{
    return 10 * (theButton + 1);
}

std::string DescribeStep(const Step& theStep)
{
    static const char* const kNames[] = {"click",   "turn on",   "turn off",  "dispose",    "set index",
                                         "set tag", "set title", "set model", "set buttons"};
    std::string theText = kNames[theStep.theKind];
    return theText.append(" ")
        .append(TitleOf(theStep.theButton))
        .append(", ")
        .append(std::to_string(theStep.theNumber));
}

Step MakeStep(std::mt19937& theChance)
{
    const auto thePick = [&](int theCount) { return static_cast<int>(theChance() % unsigned(theCount)); };
    return {static_cast<Kind>(thePick(kKinds)), thePick(kButtons), thePick(16)};
}

// The buttons that a step names, in its order.
std::vector<int> ButtonsOf(const Step& theStep)
{
    std::vector<int> theButtons;
    for (int theCount = 0; theCount < kButtons; ++theCount) {
        const int theButton = (theStep.theButton + theCount) % kButtons;
        if ((theStep.theNumber & (1 << theButton)) != 0) {
            theButtons.push_back(theButton);
        }
    }
    return theButtons;
}

std::string DescribeState(int theIndex, int theTag, const std::string& theTitle, int theModel, int theCount,
                          const std::string& theTitles, const std::string& theOnes)
{
    std::string theState = "index " + std::to_string(theIndex);
    theState.append(" tag ").append(std::to_string(theTag)).append(" title ").append(theTitle);
    theState.append(" model ").append(std::to_string(theModel)).append(" of ");
    theState.append(std::to_string(theCount)).append(" ").append(theTitles);
    return theState.append(" on ").append(theOnes);
}

// ---- The program played with the library

class RealRun
{
public:
    RealRun()
    {
        const Rect theBounds = {50, 50, 250, 450};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &mWindow);
        for (int theButton = 0; theButton < kButtons; ++theButton) {
            mButtons.push_back(MakeButton(theButton));
        }
        ShowWindow(mWindow);
        mChoice.SetButtons(mButtons);
        mModel.SetKeyPathValue("tag", LmValue(TagOf(0)));
        mChoice.Bind("tag", &mModel, "tag", nullptr, nullptr);
    }
    ~RealRun() { DisposeWindow(mWindow); }
    RealRun(const RealRun&) = delete;
    RealRun& operator=(const RealRun&) = delete;

    Lines Play(const std::vector<Step>& theProgram)
    {
        Lines theLines;
        for (const Step& theStep : theProgram) {
            PlayStep(theStep);
            theLines.push_back(DescribeNow());
        }
        return theLines;
    }

private:
    ControlRef MakeButton(int theButton) const
    {
        const short theTop = static_cast<short>(10 + 30 * theButton);
        const Rect theBounds = {theTop, 10, static_cast<short>(theTop + 20), 200};
        const ControlID theID = {'Choi', TagOf(theButton)};
        ControlRef theControl = nullptr;
        CreateRadioButtonControl(mWindow, &theBounds, LmMakeStringValue(TitleOf(theButton)).GetString(), 0,
                                 true, &theControl);
        SetControlID(theControl, &theID);
        return theControl;
    }

    void PlayStep(const Step& theStep)
    {
        ControlRef& theButton = mButtons[static_cast<std::size_t>(theStep.theButton)];
        switch (theStep.theKind) {
        case kClick:
            HIViewSimulateClick(theButton, kControlRadioButtonPart, 0, nullptr);
            break;
        case kTurnOn:
        case kTurnOff:
            SetControl32BitValue(theButton, theStep.theKind == kTurnOn ? 1 : 0);
            break;
        case kDispose:
            DisposeControl(theButton);
            theButton = MakeButton(theStep.theButton); // no choice yet
            break;
        case kSetIndex:
            mChoice.SetKeyPathValue("index", LmValue(theStep.theNumber - 3));
            break;
        case kSetTag:
            mChoice.SetKeyPathValue("tag", LmValue(TagOf(theStep.theButton)));
            break;
        case kSetTitle:
            mChoice.SetKeyPathValue("title", LmMakeStringValue(TitleOf(theStep.theButton)));
            break;
        case kSetModel:
            mModel.SetKeyPathValue("tag", LmValue(TagOf(theStep.theButton)));
            break;
        default:
            SetButtons(theStep);
        }
    }

    void SetButtons(const Step& theStep)
    {
        std::vector<ControlRef> theButtons;
        for (const int theButton : ButtonsOf(theStep)) {
            theButtons.push_back(mButtons[static_cast<std::size_t>(theButton)]);
        }
        mChoice.SetButtons(theButtons);
    }

    std::string DescribeNow() const
    {
        const int theCount = static_cast<int>(mChoice.GetKeyPathValue("count").GetSInt32());
        std::string theTitles;
        for (int thePlace = 0; thePlace < theCount; ++thePlace) {
            theTitles +=
                LmGetStdString(mChoice.GetKeyPathValue(LmMakeString("choices." + std::to_string(thePlace))));
        }
        std::string theOnes;
        for (const ControlRef theButton : mButtons) {
            theOnes += std::to_string(GetControl32BitValue(theButton));
        }
        return DescribeState(static_cast<int>(mChoice.GetKeyPathValue("index").GetSInt32()),
                             static_cast<int>(mChoice.GetKeyPathValue("tag").GetSInt32()),
                             LmGetStdString(mChoice.GetKeyPathValue("title")),
                             static_cast<int>(mModel.GetKeyPathValue("tag").GetSInt32()), theCount, theTitles,
                             theOnes);
    }

    WindowRef mWindow = nullptr;
    std::vector<ControlRef> mButtons;
    LmKeyValueBinding mModel;
    LmChoiceBinding mChoice;
};

// ---- The same by the rules alone

class ModelRun
{
public:
    Lines Play(const std::vector<Step>& theProgram)
    {
        Select(0);
        Lines theLines;
        for (const Step& theStep : theProgram) {
            PlayStep(theStep);
            theLines.push_back(DescribeNow());
        }
        return theLines;
    }

private:
    [[nodiscard]] int PlaceOf(int theButton) const
    {
        const auto theFound = std::find(mChoices.begin(), mChoices.end(), theButton);
        return theFound == mChoices.end() ? kNone : static_cast<int>(theFound - mChoices.begin());
    }

    void TurnOff()
    {
        for (const int theButton : mChoices) {
            mIsOn[theButton] = false;
        }
    }

    // The button of a place.
    void Select(int thePlace)
    {
        TurnOff();
        mIndex = thePlace;
        const int theButton = thePlace == kNone ? kNone : mChoices[static_cast<std::size_t>(thePlace)];
        mTag = thePlace == kNone ? kNone : TagOf(theButton);
        mTitle = thePlace == kNone ? "" : TitleOf(theButton);
        if (thePlace != kNone) {
            mIsOn[theButton] = true;
        }
    }

    // A button by its tag or its title, there or not.
    void Want(int theButton, bool isByTag)
    {
        Select(PlaceOf(theButton));
        if (mIndex == kNone) {
            mTag = isByTag ? TagOf(theButton) : kNone;
            mTitle = isByTag ? "" : TitleOf(theButton);
        }
    }

    void WantAgain()
    {
        if (mTag != kNone) {
            Want(mTag / 10 - 1, true);
        } else if (!mTitle.empty()) {
            Want(mTitle[0] - 'A', false);
        } else {
            const auto isOn = [this](int theButton) { return mIsOn[theButton]; };
            const auto theOne = std::find_if(mChoices.begin(), mChoices.end(), isOn);
            Select(theOne == mChoices.end() ? kNone : PlaceOf(*theOne));
        }
    }

    void Turn(int theButton, bool isOn)
    {
        const bool isChange = mIsOn[theButton] != isOn;
        mIsOn[theButton] = isOn;
        if (isChange && PlaceOf(theButton) != kNone) {
            Select(isOn ? PlaceOf(theButton) : kNone);
        }
    }

    void PlayStep(const Step& theStep)
    {
        const int theButton = theStep.theButton;
        switch (theStep.theKind) {
        case kClick:
        case kTurnOn:
            Turn(theButton, true);
            break;
        case kTurnOff:
            Turn(theButton, false);
            break;
        case kDispose:
            Dispose(theButton);
            break;
        case kSetIndex: {
            const int thePlace = theStep.theNumber - 3;
            if (thePlace != mIndex) {
                Select(thePlace >= 0 && thePlace < static_cast<int>(mChoices.size()) ? thePlace : kNone);
            }
            break;
        }
        case kSetTag:
        case kSetModel:
            if (mTag != TagOf(theButton)) {
                Want(theButton, true);
            }
            break;
        case kSetTitle:
            if (mTitle != TitleOf(theButton)) {
                Want(theButton, false);
            }
            break;
        default:
            mChoices = ButtonsOf(theStep);
            WantAgain();
        }
    }

    void Dispose(int theButton)
    {
        const int thePlace = PlaceOf(theButton);
        mIsOn[theButton] = false;
        if (thePlace == kNone) {
            return;
        }
        mChoices.erase(mChoices.begin() + thePlace);
        WantAgain();
    }

    std::string DescribeNow() const
    {
        std::string theTitles;
        for (const int theButton : mChoices) {
            theTitles += TitleOf(theButton);
        }
        std::string theOnes;
        for (const bool isOn : mIsOn) {
            theOnes += isOn ? "1" : "0";
        }
        // The model holds the tag, always.
        return DescribeState(mIndex, mTag, mTitle, mTag, static_cast<int>(mChoices.size()), theTitles,
                             theOnes);
    }

    std::vector<int> mChoices = {0, 1, 2, 3};
    bool mIsOn[kButtons] = {false, false, false, false};
    int mIndex = kNone;
    int mTag = kNone;
    std::string mTitle;
};

} // namespace

TEST(LmChoiceBindingModel, RandomPersonsAndProgramsMeetWhatTheRulesSay)
{
    RandomPrograms<Step> thePrograms;
    thePrograms.theMaker = MakeStep;
    thePrograms.theLibrary = [](const std::vector<Step>& theProgram) { return RealRun().Play(theProgram); };
    thePrograms.theModel = [](const std::vector<Step>& theProgram) { return ModelRun().Play(theProgram); };
    thePrograms.theDescription = DescribeStep;
    thePrograms.Play(100, 20);
}
