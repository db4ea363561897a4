// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChoiceBinding.h"

#include "LmConveniences.h"
#include "LmLifeWatch.h"

#include <algorithm>
#include <cstddef>
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

bool HasText(const LmValue& theValue)
{
    return theValue.IsString() && theValue.GetString() != nullptr;
}

} // namespace

// What shows the choices, whatever controls that are. It tells the binding what happens to them.
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

    // Either may set off anything, the end of this object included.
    virtual void SetTitleAt(SInt32 thePlace, CFStringRef theTitle) = 0;
    virtual void Choose(SInt32 thePlace) = 0;
};

// Radio buttons, one for each choice.
class LM_HIDDEN LmChoiceBinding::RadioButtons : public Controls
{
public:
    explicit RadioButtons(LmChoiceBinding& theBinding)
        : mBinding(theBinding)
    {
    }
    ~RadioButtons() override { LetGo(); }

    void Take(const std::vector<ControlRef>& theButtons)
    {
        std::vector<Button> theRoom;
        theRoom.reserve(theButtons.size());
        LetGo();
        mButtons.swap(theRoom);
        for (const ControlRef theControl : theButtons) {
            if (theControl != nullptr && Find(theControl) == kNone) {
                Add(theControl);
            }
        }
    }

    SInt32 Count() const override { return static_cast<SInt32>(mButtons.size()); }
    SInt32 TagAt(SInt32 thePlace) const override { return At(thePlace).theTag; }

    LmValue TitleAt(SInt32 thePlace) const override
    {
        CFStringRef theTitle = nullptr;
        CopyControlTitleAsCFString(At(thePlace).theControl, &theTitle);
        return theTitle != nullptr ? LmValue(theTitle, true) : EmptyText();
    }

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
        const LmLifeWatch theWatch(&mBinding);
        const unsigned theTurn = mBinding.mTurn;
        // Handlers may let buttons go meanwhile.
        for (SInt32 theOne = 0; theOne < Count(); ++theOne) {
            const SInt32 theValue =
                theOne == thePlace ? kControlRadioButtonCheckedValue : kControlRadioButtonUncheckedValue;
            if (GetControl32BitValue(At(theOne).theControl) != theValue) {
                SetControl32BitValue(At(theOne).theControl, theValue);
            }
            if (theWatch.IsGone() || mBinding.mTurn != theTurn) {
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
        ControlID theID = {0, 0};
        const bool hasID =
            GetControlID(theControl, &theID) == noErr && (theID.signature != 0 || theID.id != 0);
        mButtons.push_back({theControl, hasID ? theID.id : Count(), nullptr});
        InstallEventHandler(GetControlEventTarget(theControl), kHandler, GetEventTypeCount(kEvents), kEvents,
                            this, &mButtons.back().theHandler);
    }

    void LetGo()
    {
        for (const Button& theButton : mButtons) {
            if (theButton.theHandler != nullptr) {
                RemoveEventHandler(theButton.theHandler);
            }
        }
        mButtons.clear();
    }

    static OSStatus HandleEvent(EventHandlerCallRef, EventRef theEvent, void* userData)
    {
        ControlRef theControl = nullptr;
        GetEventParameter(theEvent, kEventParamDirectObject, typeControlRef, nullptr, sizeof theControl,
                          nullptr, &theControl);
        RadioButtons& theButtons = *static_cast<RadioButtons*>(userData);
        const SInt32 thePlace = theButtons.Find(theControl);
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

LmChoiceBinding::LmChoiceBinding()
    : LmChoiceBinding(std::vector<ControlRef>())
{
}

LmChoiceBinding::LmChoiceBinding(const std::vector<ControlRef>& theButtons)
    : mControls(std::make_unique<RadioButtons>(*this))
{
    SetButtons(theButtons);
}

LmChoiceBinding::~LmChoiceBinding() = default;

void LmChoiceBinding::SetButtons(const std::vector<ControlRef>& theButtons)
{
    static_cast<RadioButtons&>(*mControls).Take(theButtons);
    const LmLifeWatch theWatch(this);
    SelectWanted();
    if (!theWatch.IsGone()) {
        TellChoices();
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
        const bool isThis = theKey == kKeyTag
                                ? theValue.IsNumber() && theValue.GetSInt32() == mControls->TagAt(thePlace)
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

// ---- Keys

bool LmChoiceBinding::Tell(const LmString& theKey, const LmValue& theValue)
{
    const LmLifeWatch theWatch(this);
    const unsigned theTurn = mTurn;
    const unsigned theOuterTurn = std::exchange(mToldTurn, mTurn);
    const LmValue* const theOuter = std::exchange(mToldValue, &theValue);
    SetKeyPathValue(theKey, theValue);
    if (theWatch.IsGone()) {
        return false;
    }
    mToldValue = theOuter;
    mToldTurn = theOuterTurn;
    return mTurn == theTurn;
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
    if (mSelected == kNone) {
        SelectWanted(); // it may have come
    } else {
        Tell(kKeyTitle, mControls->TitleAt(mSelected));
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
            mControls->SetTitleAt(thePlace, theValue.GetString());
            return;
        }
    }
    if (theKey == kKeyCount) {
        Tell(kKeyCount, LmValue(static_cast<int>(mControls->Count())));
    }
}
