// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChoiceBinding.h"

#include "LmConveniences.h"
#include "LmLifeWatch.h"
#include "LmReportedErrors.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <utility>

namespace {

const char kKeyIndex[] = "index";
const char kKeyTag[] = "tag";
const char kKeyTitle[] = "title";
const char kKeyCount[] = "count";
const char kChoices[] = "choices.";

const SInt32 kNone = -1;

LmString KeyOfChoice(SInt32 thePlace)
{
    return LmMakeString(kChoices + std::to_string(thePlace));
}

LmValue EmptyText()
{
    return LmValue(CFSTR(""), false);
}

// theText is given to the value; null is an empty text.
LmValue TextOf(CFStringRef theText)
{
    return theText != nullptr ? LmValue(theText, true) : EmptyText();
}

bool HasText(const LmValue& theValue)
{
    return theValue.IsString() && theValue.GetString() != nullptr;
}

LmValue TitleOf(ControlRef theButton)
{
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(theButton, &theTitle);
    return TextOf(theTitle);
}

SInt32 TagOf(ControlRef theButton, SInt32 thePlace)
{
    ControlID theID = {0, 0};
    const bool hasID = GetControlID(theButton, &theID) == noErr && (theID.signature != 0 || theID.id != 0);
    return hasID ? theID.id : thePlace;
}

ControlRef ControlOf(EventRef theEvent)
{
    ControlRef theControl = nullptr;
    GetEventParameter(theEvent, kEventParamDirectObject, typeControlRef, nullptr, sizeof theControl, nullptr,
                      &theControl);
    return theControl;
}

} // namespace

// What shows the choices, whatever controls that are. It tells the binding what happens to them. Whoever is
// told may have this object replaced, so nothing of it is touched after calling out.
class LM_HIDDEN LmChoiceBinding::Controls
{
public:
    Controls() = default;
    virtual ~Controls() = default;
    Controls(const Controls&) = delete;
    Controls& operator=(const Controls&) = delete;

    [[nodiscard]] virtual SInt32 Count() const = 0;
    [[nodiscard]] virtual SInt32 TagAt(SInt32 thePlace) const = 0;
    [[nodiscard]] virtual LmValue TitleAt(SInt32 thePlace) const = 0;
    [[nodiscard]] virtual SInt32 Chosen() const = 0; // the place of the choice that is on, or -1

    // Sees what nobody has told of; false where all is as it was.
    virtual bool LookAgain() { return false; }

    // Either may set off anything, the end of this object included.
    virtual void SetTitleAt(SInt32 thePlace, CFStringRef theTitle) = 0;
    virtual void Choose(SInt32 thePlace) = 0;
};

// Radio buttons, one for each choice.
class LM_HIDDEN LmChoiceBinding::RadioButtons : public Controls
{
public:
    RadioButtons(LmChoiceBinding& theBinding, const std::vector<ControlRef>& theButtons)
        : mBinding(theBinding)
    {
        mButtons.reserve(theButtons.size());
        for (const ControlRef theControl : theButtons) {
            if (theControl != nullptr && Find(theControl) == kNone) {
                Add(theControl);
            }
        }
    }
    ~RadioButtons() override
    {
        for (const Button& theButton : mButtons) {
            if (theButton.theHandler != nullptr) {
                RemoveEventHandler(theButton.theHandler);
            }
        }
    }

    SInt32 Count() const override { return static_cast<SInt32>(mButtons.size()); }
    SInt32 TagAt(SInt32 thePlace) const override { return At(thePlace).theTag; }

    LmValue TitleAt(SInt32 thePlace) const override { return TitleOf(At(thePlace).theControl); }

    SInt32 Chosen() const override
    {
        const auto isOn = [](const Button& theButton) {
            return GetControl32BitValue(theButton.theControl) != kControlRadioButtonUncheckedValue;
        };
        return PlaceOf(std::find_if(mButtons.begin(), mButtons.end(), isOn));
    }

    void SetTitleAt(SInt32 thePlace, CFStringRef theTitle) override
    {
        SetControlTitleWithCFString(At(thePlace).theControl, theTitle);
    }

    void Choose(SInt32 thePlace) override
    {
        const LmChoiceBinding& theBinding = mBinding;
        const LmLifeWatch theWatch(&theBinding);
        const unsigned theTurn = theBinding.mTurn;
        // Handlers may let buttons go meanwhile.
        for (SInt32 theOne = 0; theOne < Count(); ++theOne) {
            const SInt32 theValue =
                theOne == thePlace ? kControlRadioButtonCheckedValue : kControlRadioButtonUncheckedValue;
            if (GetControl32BitValue(At(theOne).theControl) != theValue) {
                SetControl32BitValue(At(theOne).theControl, theValue);
            }
            if (theWatch.IsGone() || theBinding.mTurn != theTurn) {
                return;
            }
        }
    }

private:
    struct Button
    {
        ControlRef theControl;
        SInt32 theTag;
        EventHandlerRef theHandler; // owned; goes with the control
    };

    [[nodiscard]] const Button& At(SInt32 thePlace) const
    {
        return mButtons[static_cast<std::size_t>(thePlace)];
    }

    [[nodiscard]] SInt32 PlaceOf(std::vector<Button>::const_iterator theButton) const
    {
        return theButton == mButtons.end() ? kNone : static_cast<SInt32>(theButton - mButtons.begin());
    }

    [[nodiscard]] SInt32 Find(ControlRef theControl) const
    {
        const auto isThis = [&](const Button& theButton) { return theButton.theControl == theControl; };
        return PlaceOf(std::find_if(mButtons.begin(), mButtons.end(), isThis));
    }

    void Add(ControlRef theControl)
    {
        static const EventHandlerUPP kHandler = NewEventHandlerUPP(HandleEvent);
        static const EventTypeSpec kEvents[] = {
            {kEventClassControl, kEventControlHit},
            {kEventClassControl, kEventControlValueFieldChanged},
            {kEventClassControl, kEventControlTitleChanged},
            {kEventClassControl, kEventControlDispose},
        };
        mButtons.push_back({theControl, TagOf(theControl, Count()), nullptr});
        LM_REPORT_ERROR(InstallEventHandler(GetControlEventTarget(theControl), kHandler,
                                            GetEventTypeCount(kEvents), kEvents, this,
                                            &mButtons.back().theHandler));
    }

    static OSStatus HandleEvent(EventHandlerCallRef, EventRef theEvent, void* userData)
    {
        RadioButtons& theButtons = *static_cast<RadioButtons*>(userData);
        const SInt32 thePlace = theButtons.Find(ControlOf(theEvent));
        if (thePlace != kNone) {
            theButtons.Follow(thePlace, GetEventKind(theEvent));
        }
        return eventNotHandledErr;
    }

    void Follow(SInt32 thePlace, UInt32 theKind)
    {
        switch (theKind) {
        case kEventControlTitleChanged:
            mBinding.TellChoices();
            break;
        case kEventControlDispose:
            mButtons.erase(mButtons.begin() + thePlace);
            mBinding.ChoiceHasGone(thePlace);
            break;
        case kEventControlHit:
            FollowClick(thePlace);
            break;
        default:
            FollowValue(thePlace);
        }
    }

    // A button that turns itself on has told of that before; what came of it shall stay.
    void FollowClick(SInt32 thePlace)
    {
        UInt32 theFeatures = 0;
        GetControlFeatures(At(thePlace).theControl, &theFeatures);
        if ((theFeatures & kControlAutoToggles) == 0) {
            mBinding.ChoiceWasMade(thePlace);
        }
    }

    // Where this object has changed the value itself, that is what is selected.
    void FollowValue(SInt32 thePlace)
    {
        const bool isOn = GetControl32BitValue(At(thePlace).theControl) != kControlRadioButtonUncheckedValue;
        if (isOn != (mBinding.mSelected == thePlace)) {
            mBinding.ChoiceWasMade(isOn ? thePlace : kNone);
        }
    }

    LmChoiceBinding& mBinding; // whose this is
    std::vector<Button> mButtons;
};

// ---- One control whose value says which choice it is

namespace {

// One of them.
struct Choice
{
    SInt32 theValue; // which the control has when it is chosen
    SInt32 theTag;
    LmValue theTitle;
    ControlRef theButton; // in a group; else null

    bool operator==(const Choice& theOther) const
    {
        return theValue == theOther.theValue && theTag == theOther.theTag && theTitle == theOther.theTitle &&
               theButton == theOther.theButton;
    }
};

using Choices = std::vector<Choice>;

// What such controls differ in.
struct Kind
{
    OSType theKind;
    Choices (*theReader)(ControlRef theControl, const Choices& theOld);
    void (*theTitleSetter)(ControlRef theControl, const Choice& theChoice, CFStringRef theTitle);
};

Choices ReadItems(ControlRef theControl, const Choices&)
{
    Choices theChoices;
    const MenuRef theMenu = GetControlPopupMenuHandle(theControl);
    const MenuItemIndex theCount = theMenu != nullptr ? CountMenuItems(theMenu) : MenuItemIndex(0);
    for (MenuItemIndex theItem = 1; theItem <= theCount; ++theItem) { // items end before 65535
        MenuItemAttributes theAttributes = 0;
        GetMenuItemAttributes(theMenu, theItem, &theAttributes);
        if ((theAttributes & (kMenuItemAttrSeparator | kMenuItemAttrHidden)) != 0) {
            continue;
        }
        MenuCommand theCommand = 0;
        GetMenuItemCommandID(theMenu, theItem, &theCommand);
        CFStringRef theText = nullptr;
        CopyMenuItemTextAsCFString(theMenu, theItem, &theText);
        const SInt32 theTag = theCommand == 0 ? kNone : static_cast<SInt32>(theCommand);
        theChoices.push_back({theItem, theTag, TextOf(theText), nullptr});
    }
    return theChoices;
}

void SetItemTitle(ControlRef theControl, const Choice& theChoice, CFStringRef theTitle)
{
    SetMenuItemTextWithCFString(GetControlPopupMenuHandle(theControl),
                                static_cast<MenuItemIndex>(theChoice.theValue), theTitle);
}

// A button that was there before keeps its tag.
Choices ReadButtons(ControlRef theControl, const Choices& theOld)
{
    Choices theChoices;
    UInt16 theCount = 0;
    CountSubControls(theControl, &theCount);
    for (SInt32 theIndex = 1; theIndex <= theCount; ++theIndex) {
        ControlRef theButton = nullptr;
        UInt32 theFeatures = 0;
        GetIndexedSubControl(theControl, static_cast<UInt16>(theIndex), &theButton);
        GetControlFeatures(theButton, &theFeatures);
        if ((theFeatures & kControlHasRadioBehavior) == 0) {
            continue;
        }
        const auto isThis = [&](const Choice& theChoice) { return theChoice.theButton == theButton; };
        const auto theSame = std::find_if(theOld.begin(), theOld.end(), isThis);
        const SInt32 theTag = theSame != theOld.end()
                                  ? theSame->theTag
                                  : TagOf(theButton, static_cast<SInt32>(theChoices.size()));
        theChoices.push_back({theIndex, theTag, TitleOf(theButton), theButton});
    }
    return theChoices;
}

void SetButtonTitle(ControlRef, const Choice& theChoice, CFStringRef theTitle)
{
    SetControlTitleWithCFString(theChoice.theButton, theTitle);
}

Choices ReadTabs(ControlRef theControl, const Choices&)
{
    Choices theChoices;
    const SInt32 theCount = GetControl32BitMaximum(theControl);
    for (SInt32 theTab = 1; theTab <= theCount; ++theTab) {
        ControlTabInfoRecV1 theInfo = {kControlTabInfoVersionOne, 0, nullptr};
        if (GetControlData(theControl, static_cast<ControlPartCode>(theTab), kControlTabInfoTag,
                           sizeof theInfo, &theInfo, nullptr) != noErr) {
            break; // there are no more, whatever the maximum says
        }
        theChoices.push_back({theTab, kNone, TextOf(theInfo.name), nullptr});
    }
    return theChoices;
}

void SetTabTitle(ControlRef theControl, const Choice& theChoice, CFStringRef theTitle)
{
    const ControlTabInfoRecV1 theInfo = {kControlTabInfoVersionOne, 0, theTitle};
    SetControlData(theControl, static_cast<ControlPartCode>(theChoice.theValue), kControlTabInfoTag,
                   sizeof theInfo, &theInfo);
}

const Kind kKinds[] = {
    {kControlKindPopupButton, ReadItems, SetItemTitle},
    {kControlKindRadioGroup, ReadButtons, SetButtonTitle},
    {kControlKindTabs, ReadTabs, SetTabTitle},
};

// Null for a control whose value says something else.
const Kind* KindOf(ControlRef theControl)
{
    ControlKind theControlKind = {0, 0};
    GetControlKind(theControl, &theControlKind);
    const auto isThis = [&](const Kind& theKind) {
        return theControlKind.signature == kControlKindSignatureApple &&
               theControlKind.kind == theKind.theKind;
    };
    const auto theKind = std::find_if(std::begin(kKinds), std::end(kKinds), isThis);
    return theKind == std::end(kKinds) ? nullptr : theKind;
}

} // namespace

class LM_HIDDEN LmChoiceBinding::OneControl : public Controls
{
public:
    OneControl(LmChoiceBinding& theBinding, ControlRef theControl, const Kind& theKind)
        : mBinding(theBinding),
          mKind(theKind),
          mControl(theControl),
          mRange(ReadRange()),
          mChoices(mKind.theReader(mControl, Choices()))
    {
        static const EventHandlerUPP kHandler = NewEventHandlerUPP(HandleEvent);
        static const EventTypeSpec kEvents[] = {
            {kEventClassControl, kEventControlHit},
            {kEventClassControl, kEventControlValueFieldChanged},
            {kEventClassControl, kEventControlTitleChanged},
            {kEventClassControl, kEventControlDispose},
        };
        LM_REPORT_ERROR(InstallEventHandler(GetControlEventTarget(theControl), kHandler,
                                            GetEventTypeCount(kEvents), kEvents, this, &mHandler));
    }
    ~OneControl() override
    {
        if (mHandler != nullptr) {
            RemoveEventHandler(mHandler);
        }
    }

    SInt32 Count() const override { return static_cast<SInt32>(mChoices.size()); }
    SInt32 TagAt(SInt32 thePlace) const override { return At(thePlace).theTag; }
    LmValue TitleAt(SInt32 thePlace) const override { return At(thePlace).theTitle; }

    SInt32 Chosen() const override
    {
        const auto isShown = [this](const Choice& theChoice) {
            return theChoice.theValue == mRange.theValue;
        };
        const auto theChoice = std::find_if(mChoices.begin(), mChoices.end(), isShown);
        return theChoice == mChoices.end() ? kNone : static_cast<SInt32>(theChoice - mChoices.begin());
    }

    bool LookAgain() override
    {
        Choices theChoices = mControl != nullptr ? mKind.theReader(mControl, mChoices) : Choices();
        mChoices.swap(theChoices);
        return mChoices != theChoices;
    }

    void SetTitleAt(SInt32 thePlace, CFStringRef theTitle) override
    {
        Choice& theChoice = mChoices[static_cast<std::size_t>(thePlace)];
        theChoice.theTitle = LmValue(theTitle, false);
        mKind.theTitleSetter(mControl, theChoice, theTitle);
    }

    void Choose(SInt32 thePlace) override
    {
        if (mControl == nullptr) {
            return;
        }
        const LmChoiceBinding& theBinding = mBinding;
        const LmLifeWatch theWatch(&theBinding);
        const unsigned theTurn = theBinding.mTurn;
        const auto isOvertaken = [&] { return theWatch.IsGone() || theBinding.mTurn != theTurn; };
        const ControlRef theControl = mControl;
        const SInt32 theValue = thePlace == kNone ? 0 : At(thePlace).theValue;
        const SInt32 theLast = mChoices.empty() ? theValue : mChoices.back().theValue;
        if (GetControl32BitMaximum(theControl) < theLast) {
            SetControl32BitMaximum(theControl, theLast);
        }
        if (!isOvertaken() && GetControl32BitMinimum(theControl) > theValue) {
            SetControl32BitMinimum(theControl, theValue);
        }
        if (!isOvertaken() && GetControl32BitValue(theControl) != theValue) {
            SetControl32BitValue(theControl, theValue);
        }
    }

private:
    struct Range
    {
        SInt32 theValue;
        SInt32 theMinimum;
        SInt32 theMaximum;
    };

    [[nodiscard]] Range ReadRange() const
    {
        return {GetControl32BitValue(mControl), GetControl32BitMinimum(mControl),
                GetControl32BitMaximum(mControl)};
    }

    [[nodiscard]] const Choice& At(SInt32 thePlace) const
    {
        return mChoices[static_cast<std::size_t>(thePlace)];
    }

    // A group also hears what its buttons tell.
    static OSStatus HandleEvent(EventHandlerCallRef, EventRef theEvent, void* userData)
    {
        OneControl& theControl = *static_cast<OneControl*>(userData);
        const UInt32 theKind = GetEventKind(theEvent);
        if (ControlOf(theEvent) == theControl.mControl) {
            theControl.Follow(theKind);
        } else if (theKind == kEventControlTitleChanged && theControl.LookAgain()) {
            theControl.mBinding.ChoicesAreOthers();
        }
        return eventNotHandledErr;
    }

    void Follow(UInt32 theKind)
    {
        if (theKind == kEventControlDispose) {
            mControl = nullptr;
            mHandler = nullptr;
            mRange = {0, 0, 0};
            mChoices.clear();
            mBinding.ChoicesAreOthers();
        } else {
            FollowValue(theKind == kEventControlHit);
        }
    }

    // Whether the value is another one because the range is: the choices have become fewer or more. A choice
    // may itself raise the maximum, where items came that nobody told of.
    [[nodiscard]] bool IsPushed(const Range& theOld) const
    {
        return mRange.theMinimum != theOld.theMinimum ||
               (mRange.theMaximum != theOld.theMaximum && mRange.theValue <= theOld.theMaximum);
    }

    // A hit also tells of the same item that is another one now.
    void FollowValue(bool isHit)
    {
        LmChoiceBinding& theBinding = mBinding;
        const LmLifeWatch theWatch(&theBinding);
        const bool areOthers = LookAgain();
        const Range theOld = std::exchange(mRange, ReadRange());
        const bool isOther = mRange.theValue != theOld.theValue;
        const SInt32 theChosen = Chosen();
        if (isOther ? IsPushed(theOld) : !isHit) {
            if (isOther || areOthers) {
                theBinding.ChoicesAreOthers();
            }
            return;
        }
        if (areOthers || theChosen != theBinding.mSelected) {
            theBinding.ChoiceWasMade(theChosen);
        }
        if (areOthers && !theWatch.IsGone()) {
            theBinding.TellChoices();
        }
    }

    LmChoiceBinding& mBinding; // whose this is
    const Kind& mKind;
    ControlRef mControl;                // null once it was disposed of
    Range mRange;                       // as it was seen last
    Choices mChoices;                   // the same
    EventHandlerRef mHandler = nullptr; // owned; goes with the control
};

LmChoiceBinding::LmChoiceBinding()
    : LmChoiceBinding(std::vector<ControlRef>())
{
}

LmChoiceBinding::LmChoiceBinding(const std::vector<ControlRef>& theButtons)
{
    SetButtons(theButtons);
}

LmChoiceBinding::LmChoiceBinding(ControlRef theControl)
{
    SetControl(theControl);
}

LmChoiceBinding::~LmChoiceBinding() = default;

void LmChoiceBinding::SetButtons(const std::vector<ControlRef>& theButtons)
{
    mControls = std::make_unique<RadioButtons>(*this, theButtons);
    ChoicesAreOthers();
}

void LmChoiceBinding::SetControl(ControlRef theControl)
{
    const Kind* const theKind = KindOf(theControl);
    if (theKind == nullptr) {
        SetButtons({theControl});
        return;
    }
    mControls = std::make_unique<OneControl>(*this, theControl, *theKind);
    ChoicesAreOthers();
}

void LmChoiceBinding::UpdateChoices()
{
    if (mControls->LookAgain()) {
        ChoicesAreOthers();
    }
}

// ---- Selecting

// Selects what the keys say; or, where they say nothing, what the controls say.
void LmChoiceBinding::SelectWanted()
{
    const LmValue theTag = GetKeyValue(kKeyTag);
    const LmValue theTitle = GetKeyValue(kKeyTitle);
    if (theTag.IsNumber() && theTag.GetSInt32() != kNone) {
        Select(FindChoice(kKeyTag, theTag), kKeyTag);
    } else if (HasText(theTitle) && CFStringGetLength(theTitle.GetString()) > 0) {
        Select(FindChoice(kKeyTitle, theTitle), kKeyTitle);
    } else {
        Select(mControls->Chosen(), LmString());
    }
}

SInt32 LmChoiceBinding::FindChoice(const LmString& theKey, const LmValue& theValue) const
{
    const SInt32 theCount = mControls->Count();
    if (theKey == kKeyIndex) {
        const SInt32 thePlace = theValue.IsNumber() ? static_cast<SInt32>(theValue.GetSInt32()) : kNone;
        return thePlace >= 0 && thePlace < theCount ? thePlace : kNone;
    }
    for (SInt32 thePlace = 0; thePlace < theCount; ++thePlace) {
        const bool isThis = theKey == kKeyTag ? theValue.IsNumber() && theValue.GetSInt32() != kNone &&
                                                    theValue.GetSInt32() == mControls->TagAt(thePlace)
                                              : HasText(theValue) && theValue == mControls->TitleAt(thePlace);
        if (isThis) {
            return thePlace;
        }
    }
    return kNone;
}

// theWantedKey says what is wanted, and is left as it is, also where there is no such choice.
void LmChoiceBinding::Select(SInt32 thePlace, const LmString& theWantedKey)
{
    const LmLifeWatch theWatch(this);
    const unsigned theTurn = ++mTurn;
    mSelected = thePlace;
    mControls->Choose(thePlace);
    if (theWatch.IsGone() || mTurn != theTurn) {
        return;
    }
    const bool isNone = thePlace == kNone;
    const LmValue theTag(static_cast<int>(isNone ? kNone : mControls->TagAt(thePlace)));
    const LmValue theTitle = isNone ? EmptyText() : mControls->TitleAt(thePlace);
    if (TellUnless(theWantedKey, kKeyIndex, LmValue(static_cast<int>(thePlace))) &&
        TellUnless(theWantedKey, kKeyTag, theTag)) {
        TellUnless(theWantedKey, kKeyTitle, theTitle);
    }
}

void LmChoiceBinding::ChoiceWasMade(SInt32 thePlace)
{
    Select(thePlace, LmString());
}

void LmChoiceBinding::ChoiceHasGone(SInt32 thePlace)
{
    const LmLifeWatch theWatch(this);
    if (mSelected == thePlace) {
        Select(kNone, kKeyTag);
    } else if (mSelected > thePlace) {
        Select(mSelected - 1, LmString());
    }
    if (!theWatch.IsGone()) {
        TellChoices();
    }
}

void LmChoiceBinding::ChoicesAreOthers()
{
    const LmLifeWatch theWatch(this);
    SelectWanted();
    if (!theWatch.IsGone()) {
        TellChoices();
    }
}

// ---- Keys

// While it lives, this object sets theValue itself.
class [[nodiscard]] LmChoiceBinding::Telling
{
public:
    Telling(LmChoiceBinding& theBinding, const LmValue& theValue)
        : mBinding(theBinding),
          mWatch(&theBinding),
          mOuter(std::exchange(theBinding.mToldValue, &theValue)),
          mOuterTurn(std::exchange(theBinding.mToldTurn, theBinding.mTurn))
    {
    }
    ~Telling()
    {
        if (!mWatch.IsGone()) {
            mBinding.mToldValue = mOuter;
            mBinding.mToldTurn = mOuterTurn;
        }
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

    [[nodiscard]] bool BindingIsGone() const { return mWatch.IsGone(); }

private:
    LmChoiceBinding& mBinding;
    LmLifeWatch mWatch;
    const LmValue* const mOuter;
    const unsigned mOuterTurn;
};

bool LmChoiceBinding::Tell(const LmString& theKey, const LmValue& theValue)
{
    const unsigned theTurn = mTurn;
    const Telling theTime(*this, theValue);
    SetKeyPathValue(theKey, theValue);
    return !theTime.BindingIsGone() && mTurn == theTurn;
}

bool LmChoiceBinding::TellUnless(const LmString& theWantedKey, const char* theKey, const LmValue& theValue)
{
    return theWantedKey == theKey || Tell(theKey, theValue);
}

// The titles, and how many there are. Choices that are there no more have an empty one.
void LmChoiceBinding::TellChoices()
{
    const LmLifeWatch theWatch(this);
    for (SInt32 thePlace = 0; thePlace < std::max(mControls->Count(), mToldCount); ++thePlace) {
        const LmValue theTitle = thePlace < mControls->Count() ? mControls->TitleAt(thePlace) : EmptyText();
        Tell(KeyOfChoice(thePlace), theTitle);
        if (theWatch.IsGone()) {
            return;
        }
    }
    mToldCount = mControls->Count();
    if (!Tell(kKeyCount, LmValue(static_cast<int>(mToldCount)))) {
        return;
    }
    // Where strings need memory for a short text, it may have run out before the place was looked up anew.
    if (mSelected == kNone || mSelected >= mControls->Count()) {
        SelectWanted(); // it may have come
    } else {
        Tell(kKeyTitle, mControls->TitleAt(mSelected));
    }
}

void LmChoiceBinding::SetTitle(SInt32 thePlace, CFStringRef theTitle)
{
    const LmLifeWatch theWatch(this);
    mControls->SetTitleAt(thePlace, theTitle);
    if (!theWatch.IsGone()) {
        TellChoices();
    }
    if (!theWatch.IsGone()) {
        UpdateChoices();
    }
}

void LmChoiceBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    const bool isSelection = theKey == kKeyIndex || theKey == kKeyTag || theKey == kKeyTitle;
    // A store hands on the very value that it was given.
    const bool isTold = &theValue == mToldValue;
    if (isTold && isSelection && mToldTurn != mTurn) {
        return; // something else was selected by an observer who heard of this before
    }
    LmKeyValueBinding::SetKeyValue(theKey, theValue);
    if (isTold) {
        return; // it says what is so already
    }
    if (isSelection) {
        Select(FindChoice(theKey, theValue), theKey == kKeyIndex ? LmString() : theKey);
        return;
    }
    for (SInt32 thePlace = 0; thePlace < mControls->Count(); ++thePlace) {
        if (theKey == KeyOfChoice(thePlace) && HasText(theValue)) {
            SetTitle(thePlace, theValue.GetString());
            return;
        }
    }
    if (theKey == kKeyCount) {
        Tell(kKeyCount, LmValue(static_cast<int>(mControls->Count())));
    }
}
