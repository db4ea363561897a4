// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ChoiceTestSupport.h"
#include "ControllersTestSupport.h"
#include "LmChoiceBinding.h"
#include "LmKeyValueBinding.h"
#include "RandomPrograms.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

// A person and a program do anything to the controls of a choice, which is bound to a model by its tag: to
// radio buttons, to a radio group, and to a pop-up button; and to tabs, which have no tags, by its title.

namespace {

constexpr int kButtons = 4;
constexpr int kNone = -1;

enum Kind
{
    kClick,   // a person clicks a button, or chooses an item
    kTurnOn,  // a program turns one on, or gives the control its value
    kTurnOff, // and so on
    kDispose, // the program has another one then, which is no choice yet
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

// The titles and tags of the buttons or items.
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

std::string DescribeState(int theIndex, int theTag, const std::string& theTitle, const std::string& theModel,
                          int theCount, const std::string& theTitles, const std::string& theOnes)
{
    std::string theState = "index " + std::to_string(theIndex);
    theState.append(" tag ").append(std::to_string(theTag)).append(" title ").append(theTitle);
    theState.append(" model ").append(theModel).append(" of ");
    theState.append(std::to_string(theCount)).append(" ").append(theTitles);
    return theState.append(" on ").append(theOnes);
}

// ---- The program played with the library

// The controls of a choice, and what can be done to them.
class Stage
{
public:
    static constexpr bool kHasTags = true;

    Stage()
        : mWindow(MakeChoiceWindow())
    {
    }
    virtual ~Stage() { DisposeWindow(mWindow); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    // Makes the choice; all are there, and none is on.
    virtual void Begin(LmChoiceBinding& theChoice) = 0;
    virtual void Click(int theButton) = 0;
    virtual void Turn(int theButton, bool isOn) = 0;
    virtual void Dispose(int theButton) = 0;
    virtual void Arrange(LmChoiceBinding& theChoice, const std::vector<int>& theButtons) = 0;
    [[nodiscard]] virtual bool IsOn(int theButton) const = 0;

protected:
    [[nodiscard]] WindowRef Window() const { return mWindow; }

private:
    WindowRef mWindow;
};

// Radio buttons of a window.
class LooseButtons : public Stage
{
public:
    void Begin(LmChoiceBinding& theChoice) override
    {
        for (int theButton = 0; theButton < kButtons; ++theButton) {
            mButtons.push_back(Make(theButton, true));
        }
        theChoice.SetButtons(mButtons);
    }
    void Click(int theButton) override { ClickRadioButton(At(theButton)); }
    void Turn(int theButton, bool isOn) override { SetControl32BitValue(At(theButton), isOn ? 1 : 0); }
    void Dispose(int theButton) override
    {
        DisposeControl(At(theButton));
        mButtons[static_cast<std::size_t>(theButton)] = Make(theButton, true);
    }
    void Arrange(LmChoiceBinding& theChoice, const std::vector<int>& theButtons) override
    {
        std::vector<ControlRef> theControls;
        theControls.reserve(theButtons.size());
        for (const int theButton : theButtons) {
            theControls.push_back(At(theButton));
        }
        theChoice.SetButtons(theControls);
    }
    bool IsOn(int theButton) const override { return GetControl32BitValue(At(theButton)) != 0; }

protected:
    [[nodiscard]] ControlRef At(int theButton) const { return mButtons[static_cast<std::size_t>(theButton)]; }

    [[nodiscard]] ControlRef Make(int theButton, bool isToggle) const
    {
        const short theTop = static_cast<short>(10 + 30 * theButton);
        const Rect theBounds = {theTop, 10, static_cast<short>(theTop + 20), 200};
        const ControlID theID = {'Choi', TagOf(theButton)};
        ControlRef theControl = nullptr;
        CreateRadioButtonControl(Window(), &theBounds, LmMakeStringValue(TitleOf(theButton)).GetString(), 0,
                                 isToggle, &theControl);
        SetControlID(theControl, &theID);
        return theControl;
    }

    std::vector<ControlRef> mButtons;
};

// Radio buttons of a group; those that are not in it now are off, and nobody touches them.
class GroupedButtons : public LooseButtons
{
public:
    void Begin(LmChoiceBinding& theChoice) override
    {
        const Rect theBounds = {0, 0, 390, 390};
        CreateRadioGroupControl(Window(), &theBounds, &mGroup);
        for (int theButton = 0; theButton < kButtons; ++theButton) {
            mButtons.push_back(Make(theButton, false));
            EmbedControl(mButtons.back(), mGroup);
        }
        theChoice.SetControl(mGroup);
    }
    void Click(int theButton) override
    {
        if (IsInGroup(theButton)) {
            LooseButtons::Click(theButton);
        }
    }
    void Turn(int theButton, bool isOn) override
    {
        if (IsInGroup(theButton)) {
            LooseButtons::Turn(theButton, isOn);
        }
    }
    void Dispose(int theButton) override
    {
        DisposeControl(At(theButton));
        mButtons[static_cast<std::size_t>(theButton)] = Make(theButton, false);
    }
    void Arrange(LmChoiceBinding&, const std::vector<int>& theButtons) override
    {
        ControlRef theRoot = nullptr;
        GetRootControl(Window(), &theRoot);
        for (const ControlRef theControl : mButtons) {
            EmbedControl(theControl, theRoot);
            SetControl32BitValue(theControl, 0);
        }
        for (const int theButton : theButtons) {
            EmbedControl(At(theButton), mGroup);
        }
    }

private:
    [[nodiscard]] bool IsInGroup(int theButton) const
    {
        ControlRef theContainer = nullptr;
        GetSuperControl(At(theButton), &theContainer);
        return theContainer == mGroup;
    }

    ControlRef mGroup = nullptr;
};

// Items of a pop-up button.
class Items : public Stage
{
public:
    void Begin(LmChoiceBinding& theChoice) override
    {
        CreateNewMenu(200, 0, &mMenu);
        mPopUp = MakePopUp(Window(), mMenu);
        SetControl32BitMinimum(mPopUp, 0);
        theChoice.SetControl(mPopUp);
        Fill({0, 1, 2, 3});
        SetControl32BitMaximum(mPopUp, kButtons);
    }
    void Click(int theButton) override { Turn(theButton, true); }
    void Turn(int theButton, bool isOn) override
    {
        const auto thePlace = std::find(mItems.begin(), mItems.end(), theButton);
        if (thePlace != mItems.end() && (isOn || IsOn(theButton))) {
            SetControl32BitMinimum(mPopUp, 0);
            SetControl32BitValue(mPopUp, isOn ? static_cast<SInt32>(thePlace - mItems.begin()) + 1 : 0);
        }
    }
    void Dispose(int theButton) override
    {
        std::vector<int> theRest = mItems;
        theRest.erase(std::remove(theRest.begin(), theRest.end(), theButton), theRest.end());
        Fill(theRest);
        SetControl32BitMaximum(mPopUp,
                               static_cast<SInt32>(theRest.size())); // where it is another one, this tells
    }
    void Arrange(LmChoiceBinding& theChoice, const std::vector<int>& theButtons) override
    {
        Fill(theButtons);
        theChoice.UpdateChoices();
        SetControl32BitMaximum(mPopUp, static_cast<SInt32>(theButtons.size()));
    }
    bool IsOn(int theButton) const override
    {
        const SInt32 theItem = GetControl32BitValue(mPopUp);
        return theItem > 0 && theItem <= static_cast<SInt32>(mItems.size()) &&
               mItems[static_cast<std::size_t>(theItem) - 1] == theButton;
    }

private:
    void Fill(const std::vector<int>& theButtons)
    {
        mItems = theButtons;
        FillMenu(mMenu, std::vector<MenuEntry>());
        for (const int theButton : theButtons) {
            AppendMenuItemTextWithCFString(mMenu, LmMakeStringValue(TitleOf(theButton)).GetString(), 0,
                                           static_cast<MenuCommand>(TagOf(theButton)), nullptr);
        }
    }

    MenuRef mMenu = nullptr;
    ControlRef mPopUp = nullptr;
    std::vector<int> mItems;
};

// Tabs of a window.
class Pages : public Stage
{
public:
    static constexpr bool kHasTags = false;

    void Begin(LmChoiceBinding& theChoice) override
    {
        const Rect theBounds = {10, 10, 200, 390};
        CreateTabsControl(Window(), &theBounds, kControlTabSizeLarge, kControlTabDirectionNorth, 0, nullptr,
                          &mTabs);
        SetControl32BitMinimum(mTabs, 0);
        Arrange(theChoice, {0, 1, 2, 3});
    }
    void Click(int theButton) override
    {
        const auto thePart = static_cast<ControlPartCode>(PlaceOf(theButton));
        if (thePart > 0) {
            HIViewSimulateClick(mTabs, thePart, 0, nullptr);
        }
    }
    void Turn(int theButton, bool isOn) override
    {
        if (PlaceOf(theButton) > 0 && (isOn || IsOn(theButton))) {
            SetControl32BitMinimum(mTabs, 0);
            SetControl32BitValue(mTabs, isOn ? PlaceOf(theButton) : 0);
        }
    }
    void Dispose(int theButton) override
    {
        std::vector<int> theRest = mPages;
        theRest.erase(std::remove(theRest.begin(), theRest.end(), theButton), theRest.end());
        Name(theRest);
        SetControl32BitMaximum(mTabs, static_cast<SInt32>(theRest.size())); // this tells
    }
    void Arrange(LmChoiceBinding& theChoice, const std::vector<int>& theButtons) override
    {
        SetControl32BitMinimum(mTabs, 0);
        SetControl32BitMaximum(mTabs, 0);
        SetControl32BitMaximum(mTabs, static_cast<SInt32>(theButtons.size()));
        Name(theButtons);
        theChoice.SetControl(mTabs);
    }
    bool IsOn(int theButton) const override
    {
        return PlaceOf(theButton) > 0 && GetControl32BitValue(mTabs) == PlaceOf(theButton);
    }

private:
    // From 1, or 0 when there is no such tab.
    [[nodiscard]] SInt32 PlaceOf(int theButton) const
    {
        const auto theFound = std::find(mPages.begin(), mPages.end(), theButton);
        return theFound == mPages.end() ? 0 : static_cast<SInt32>(theFound - mPages.begin()) + 1;
    }

    void Name(const std::vector<int>& theButtons)
    {
        mPages = theButtons;
        for (std::size_t theIndex = 0; theIndex < theButtons.size(); ++theIndex) {
            const LmValue theName = LmMakeStringValue(TitleOf(theButtons[theIndex]));
            const ControlTabInfoRecV1 theInfo = {kControlTabInfoVersionOne, 0, theName.GetString()};
            SetControlData(mTabs, static_cast<ControlPartCode>(theIndex + 1), kControlTabInfoTag,
                           sizeof theInfo, &theInfo);
        }
    }

    ControlRef mTabs = nullptr;
    std::vector<int> mPages;
};

template <typename Controls>
class RealRun
{
public:
    RealRun()
    {
        mStage.Begin(mChoice);
        SetModel(0);
        mChoice.Bind(kKey, &mModel, kKey, nullptr, nullptr);
    }

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
    static constexpr const char* kKey = Controls::kHasTags ? "tag" : "title";

    void SetModel(int theButton)
    {
        mModel.SetKeyPathValue(kKey, Controls::kHasTags ? LmValue(TagOf(theButton))
                                                        : LmMakeStringValue(TitleOf(theButton)));
    }

    void PlayStep(const Step& theStep)
    {
        switch (theStep.theKind) {
        case kClick:
            mStage.Click(theStep.theButton);
            break;
        case kTurnOn:
        case kTurnOff:
            mStage.Turn(theStep.theButton, theStep.theKind == kTurnOn);
            break;
        case kDispose:
            mStage.Dispose(theStep.theButton);
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
            SetModel(theStep.theButton);
            break;
        default:
            mStage.Arrange(mChoice, ButtonsOf(theStep));
        }
    }

    std::string DescribeNow() const
    {
        std::string theTitles;
        const int theCount = static_cast<int>(mChoice.GetKeyPathValue("count").GetSInt32());
        for (int thePlace = 0; thePlace < theCount; ++thePlace) {
            theTitles +=
                LmGetStdString(mChoice.GetKeyPathValue(LmMakeString("choices." + std::to_string(thePlace))));
        }
        std::string theOnes;
        for (int theButton = 0; theButton < kButtons; ++theButton) {
            theOnes += mStage.IsOn(theButton) ? "1" : "0";
        }
        const LmValue theModel = mModel.GetKeyPathValue(kKey);
        return DescribeState(static_cast<int>(mChoice.GetKeyPathValue("index").GetSInt32()),
                             static_cast<int>(mChoice.GetKeyPathValue("tag").GetSInt32()),
                             LmGetStdString(mChoice.GetKeyPathValue("title")),
                             Controls::kHasTags ? std::to_string(theModel.GetSInt32())
                                                : LmGetStdString(theModel),
                             theCount, theTitles, theOnes);
    }

    Controls mStage;
    LmKeyValueBinding mModel;
    LmChoiceBinding mChoice;
};

// ---- The same by the rules alone

class ModelRun
{
public:
    // hasLoose: what is no choice is still there, and can be turned on.
    ModelRun(bool hasLoose, bool hasTags)
        : mHasLoose(hasLoose),
          mHasTags(hasTags)
    {
    }

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
        mTag = thePlace == kNone || !mHasTags ? kNone : TagOf(theButton);
        mTitle = thePlace == kNone ? "" : TitleOf(theButton);
        if (thePlace != kNone) {
            mIsOn[theButton] = true;
        }
    }

    // A button by its tag or its title, there or not.
    void Want(int theButton, bool isByTag)
    {
        Select(isByTag && !mHasTags ? kNone : PlaceOf(theButton));
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
        if (!mHasLoose && PlaceOf(theButton) == kNone) {
            return;
        }
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
            SetTag(theButton);
            break;
        case kSetTitle:
            SetTitle(theButton);
            break;
        case kSetModel:
            mHasTags ? SetTag(theButton) : SetTitle(theButton);
            break;
        default:
            Arrange(ButtonsOf(theStep));
        }
    }

    void SetTag(int theButton)
    {
        if (mTag != TagOf(theButton)) {
            Want(theButton, true);
        }
    }

    void SetTitle(int theButton)
    {
        if (mTitle != TitleOf(theButton)) {
            Want(theButton, false);
        }
    }

    void Arrange(const std::vector<int>& theButtons)
    {
        if (!mHasLoose) {
            TurnOff();
        }
        mChoices = theButtons;
        WantAgain();
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
        // The model holds the tag, always, or the title.
        return DescribeState(mIndex, mTag, mTitle, mHasTags ? std::to_string(mTag) : mTitle,
                             static_cast<int>(mChoices.size()), theTitles, theOnes);
    }

    const bool mHasLoose;
    const bool mHasTags;
    std::vector<int> mChoices = {0, 1, 2, 3};
    bool mIsOn[kButtons] = {false, false, false, false};
    int mIndex = kNone;
    int mTag = kNone;
    std::string mTitle;
};

template <typename Controls>
void PlayWith(bool hasLoose)
{
    RandomPrograms<Step> thePrograms;
    thePrograms.theMaker = MakeStep;
    thePrograms.theLibrary = [](const std::vector<Step>& theProgram) {
        return RealRun<Controls>().Play(theProgram);
    };
    thePrograms.theModel = [hasLoose](const std::vector<Step>& theProgram) {
        return ModelRun(hasLoose, Controls::kHasTags).Play(theProgram);
    };
    thePrograms.theDescription = DescribeStep;
    thePrograms.Play(100, 20);
}

} // namespace

TEST(LmChoiceBindingModel, RandomPersonsAndProgramsMeetWhatTheRulesSay)
{
    PlayWith<LooseButtons>(true);
}

TEST(LmChoiceBindingModel, RandomPersonsAndProgramsMeetInARadioGroup)
{
    PlayWith<GroupedButtons>(false);
}

TEST(LmChoiceBindingModel, RandomPersonsAndProgramsMeetInAPopUpButton)
{
    PlayWith<Items>(false);
}

TEST(LmChoiceBindingModel, RandomPersonsAndProgramsMeetInTabs)
{
    PlayWith<Pages>(false);
}
