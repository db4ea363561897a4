// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmTextFieldBinding.h"

#include "LmReportedErrors.h"
#include "LmUpdateScope.h"

#include <cstdint>
#include <utility>

namespace {

const char kKeyValue[] = "value";
const char kKeyValid[] = "valid";
const char kKeyProblem[] = "problem";
const char kKeyEditing[] = "editing";

const EventTypeSpec kFieldEvents[] = {
    {kEventClassKeyboard, kEventRawKeyDown},
    {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent},
    {kEventClassTextField, kEventTextDidChange},
    {kEventClassControl, kEventControlSetFocusPart},
    {kEventClassControl, kEventControlValueFieldChanged},
};
const EventTypeSpec kWindowEvents[] = {
    {kEventClassWindow, kEventWindowClose},
    {kEventClassWindow, kEventWindowClosed},
    {kEventClassWindow, kEventWindowDeactivated},
    {kEventClassCommand, kEventCommandProcess},
};
const EventTypeSpec kApplicationEvents[] = {
    {kEventClassApplication, kEventAppQuit},
    {kEventClassCommand, kEventCommandProcess},
};

// Virtual key codes: places on the keyboard, the same for every layout.
const UInt32 kReturnKeyCode = 36;
const UInt32 kTabKeyCode = 48;
const UInt32 kEnterKeyCode = 52;
const UInt32 kKeypadEnterKeyCode = 76;
const UInt32 kEscapeKeyCode = 53;

// What the base class reads when a number of the control has changed: the number, and the text once more.
const int kReadsOfNumbers = 2;

ControlRef FindControl(WindowRef theWindow, const ControlID& theID)
{
    ControlRef theControl = nullptr;
    LM_REPORT_ERROR(GetControlByID(theWindow, &theID, &theControl));
    return theControl;
}

bool IsOfKind(ControlRef theControl, OSType theKind, OSType theOtherKind)
{
    ControlKind theFound = {0, 0};
    return theControl != nullptr && GetControlKind(theControl, &theFound) == noErr &&
           theFound.signature == kControlKindSignatureApple &&
           (theFound.kind == theKind || theFound.kind == theOtherKind);
}

bool IsEditText(ControlRef theControl)
{
    return IsOfKind(theControl, kControlKindEditText, kControlKindEditUnicodeText);
}

bool IsStaticText(ControlRef theControl)
{
    return IsOfKind(theControl, kControlKindStaticText, kControlKindStaticText);
}

LmValue EmptyText()
{
    return LmValue(CFSTR(""), false);
}

bool HasText(const LmValue& theValue)
{
    return theValue.IsString() && theValue.GetString() != nullptr;
}

// Invalid when it cannot be read.
LmValue ReadText(ControlRef theControl)
{
    CFStringRef theText = nullptr;
    GetControlData(theControl, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText, &theText,
                   nullptr);
    return theText != nullptr ? LmValue(theText, true) : LmValue();
}

template <typename Type>
Type ReadParameter(EventRef theEvent, EventParamName theName, EventParamType theType)
{
    Type theResult = 0;
    GetEventParameter(theEvent, theName, theType, nullptr, sizeof theResult, nullptr, &theResult);
    return theResult;
}

void RemoveHandler(EventHandlerRef& theHandler)
{
    if (theHandler != nullptr) {
        RemoveEventHandler(std::exchange(theHandler, nullptr));
    }
}

} // namespace

// The base class copies the text of its control into "value" when one of the keys comes that end typing. It
// does nothing where the key holds the text already; so while one of these lives, the key reads as the text,
// as often as the base class looks.
class [[nodiscard]] LmTextFieldBinding::TextReads
{
public:
    TextReads(const LmTextFieldBinding& theBinding, int theReads)
        : mBinding(theBinding),
          mWatch(&theBinding)
    {
        mBinding.mTextReads = theReads;
    }
    ~TextReads()
    {
        if (!mWatch.IsGone()) {
            mBinding.mTextReads = 0;
        }
    }
    TextReads(const TextReads&) = delete;
    TextReads& operator=(const TextReads&) = delete;

    [[nodiscard]] bool BindingIsGone() const { return mWatch.IsGone(); }

private:
    const LmTextFieldBinding& mBinding;
    LmLifeWatch mWatch;
};

// Takes the key "value" back to what it held, unless the change has gone all the way round: where memory runs
// out on the way, the model may not know of it, and what was typed is taken again when it is there.
class [[nodiscard]] LmTextFieldBinding::Taking
{
public:
    explicit Taking(LmTextFieldBinding& theBinding)
        : mBinding(theBinding),
          mScope(&theBinding, theBinding.mTakesText),
          mValueBefore(theBinding.GetKeyValue(kKeyValue))
    {
    }
    ~Taking()
    {
        if (!mIsDone && !mScope.BindingIsGone()) {
            mBinding.LmKeyValueStore::SetKeyValue(kKeyValue, mValueBefore);
        }
    }
    Taking(const Taking&) = delete;
    Taking& operator=(const Taking&) = delete;

    void Done() { mIsDone = true; }
    [[nodiscard]] bool BindingIsGone() const { return mScope.BindingIsGone(); }

private:
    LmTextFieldBinding& mBinding;
    const LmUpdateScope mScope;
    const LmValue mValueBefore;
    bool mIsDone = false;
};

// Tells one constructor from the others.
class LmTextFieldBinding::Unattached
{
};

LmTextFieldBinding::LmTextFieldBinding(WindowRef theWindow, const ControlID& theID,
                                       LmSharedFormatter theFormatter, unsigned theOptions)
    : LmTextFieldBinding(FindControl(theWindow, theID), std::move(theFormatter), theOptions)
{
}

LmTextFieldBinding::LmTextFieldBinding(ControlRef theControl, LmSharedFormatter theFormatter,
                                       unsigned theOptions)
    : LmTextFieldBinding(Unattached(), std::move(theFormatter), theOptions)
{
    if (theControl != nullptr) {
        SetControl(theControl);
    }
}

LmTextFieldBinding::LmTextFieldBinding(const Unattached&, LmSharedFormatter&& theFormatter,
                                       unsigned theOptions)
    : mFormatter(std::move(theFormatter)),
      mOptions(theOptions)
{
}

LmTextFieldBinding::~LmTextFieldBinding()
{
    RemoveHandlers();
}

void LmTextFieldBinding::SetControl(ControlRef theControl)
{
    RemoveHandlers();
    mIsText = IsEditText(theControl) || IsStaticText(theControl);
    NoteShown(mIsText ? ReadText(theControl) : LmValue());
    {
        const TextReads theReads(*this, mIsText ? 1 : 0);
        LmSettledControlBinding::SetControl(theControl);
        if (theReads.BindingIsGone()) {
            return;
        }
    }
    if (IsEditText(theControl)) {
        InstallHandlers();
    }
    mValueBeforeKeys = LmValue();
    const bool hasState = GetKeyValue(kKeyEditing).IsValid(); // of a field that was there before
    if (mIsText ? ReadShownText() : hasState && TellState(LmReading::Accept(GetKeyValue(kKeyValue)))) {
        Tell(kKeyEditing, LmValue(false));
    }
}

void LmTextFieldBinding::SetFormatter(LmSharedFormatter theFormatter)
{
    mFormatter = std::move(theFormatter);
    if (!mIsText || IsEdited()) {
        return;
    }
    const LmValue theValue = GetKeyValue(kKeyValue);
    if (theValue.IsValid()) {
        ShowValue(theValue);
    } else {
        ReadShownText();
    }
}

// ---- Reading and writing

bool LmTextFieldBinding::IsEdited() const
{
    const LmValue theText = ReadText(GetControl());
    return theText.IsValid() && !(theText == mShownText);
}

LmReading LmTextFieldBinding::Parse(const LmValue& theText) const
{
    if (!HasText(theText)) {
        return LmReading::Accept(LmValue());
    }
    const LmSharedFormatter theFormatter =
        mFormatter; // which may be replaced, or lose this object, meanwhile
    return theFormatter != nullptr ? theFormatter->Parse(theText.GetString()) : LmReading::Accept(theText);
}

LmValue LmTextFieldBinding::Format(const LmValue& theValue) const
{
    const LmSharedFormatter theFormatter = mFormatter;
    LmValue theText = theFormatter != nullptr ? theFormatter->Format(theValue) : theValue;
    return HasText(theText) ? theText : LmValue();
}

LmValue LmTextFieldBinding::GetKeyValue(const LmString& theKeyName) const
{
    if (mTextReads > 0 && theKeyName == kKeyValue) {
        mTextReads -= 1;
        return ReadText(GetControl());
    }
    return LmSettledControlBinding::GetKeyValue(theKeyName);
}

void LmTextFieldBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    const bool isForField = mIsText && theKey == kKeyValue;
    if (isForField && mHearsOthers) {
        mValueBeforeKeys = LmValue();
    }
    if (!isForField || (mFormatter == nullptr && !HasText(theValue))) {
        LmSettledControlBinding::SetKeyValue(theKey, theValue);
        return;
    }
    const LmLifeWatch theWatch(this);
    const LmValue theText = Format(theValue);
    if (theWatch.IsGone()) {
        return;
    }
    // The base classes would write it into the control as it is.
    LmKeyValueStore::SetKeyValue(theKey, theValue); // NOLINT(bugprone-parent-virtual-call): said above
    if (mTakesText && !IsEdited()) {
        ShowText(theText);
    }
}

bool LmTextFieldBinding::WriteText(const LmValue& theText)
{
    const LmUpdateScope theScope(this, mNotesTyping);
    if (!(ReadText(GetControl()) == theText)) {
        const CFStringRef theString = theText.GetString();
        SetControlData(GetControl(), kControlEntireControl, kControlEditTextCFStringTag, sizeof theString,
                       &theString);
    }
    if (theScope.BindingIsGone()) {
        return false;
    }
    NoteShown(ReadText(GetControl())); // a field may take less than it is given
    return true;
}

void LmTextFieldBinding::NoteShown(const LmValue& theText)
{
    if (theText.IsValid()) {
        mShownText = theText;
        mNotedText = theText;
    }
}

bool LmTextFieldBinding::SelectAll()
{
    const LmLifeWatch theWatch(this);
    const ControlEditTextSelectionRec theWhole = {0, INT16_MAX};
    SetControlData(GetControl(), kControlEntireControl, kControlEditTextSelectionTag, sizeof theWhole,
                   &theWhole);
    return !theWatch.IsGone();
}

// ---- Telling

bool LmTextFieldBinding::Tell(const char* theKey, const LmValue& theValue)
{
    const LmLifeWatch theWatch(this);
    SetKeyPathValue(theKey, theValue);
    return !theWatch.IsGone();
}

bool LmTextFieldBinding::TellState(const LmReading& theReading)
{
    mIsValid = theReading.IsAccepted();
    return Tell(kKeyProblem, HasText(theReading.theProblem) ? theReading.theProblem : EmptyText()) &&
           Tell(kKeyValid, LmValue(theReading.IsAccepted()));
}

bool LmTextFieldBinding::ShowValue(const LmValue& theValue)
{
    const LmLifeWatch theWatch(this);
    const LmValue theText = Format(theValue);
    return !theWatch.IsGone() && ShowText(theText);
}

// A value that the formatter writes may be one that it would not take, out of its range for one.
bool LmTextFieldBinding::ShowText(const LmValue& theText)
{
    if (!WriteText(theText.IsValid() ? theText : EmptyText())) {
        return false;
    }
    const LmLifeWatch theWatch(this);
    const LmReading theReading = theText.IsValid() ? Parse(mShownText) : LmReading::Accept(LmValue());
    return !theWatch.IsGone() && TellState(theReading);
}

// Takes what stands in the field without anybody having typed it.
bool LmTextFieldBinding::ReadShownText()
{
    const LmLifeWatch theWatch(this);
    const LmReading theReading = Parse(mShownText);
    if (theWatch.IsGone()) {
        return false;
    }
    if (!theReading.IsAccepted()) {
        return TellState(theReading);
    }
    return Tell(kKeyValue, theReading.theValue) && ShowValue(GetKeyValue(kKeyValue));
}

// ---- Taking what was typed

bool LmTextFieldBinding::Commit()
{
    const Outcome theOutcome = TakeText();
    return theOutcome != kRefused && theOutcome != kGone && mIsValid;
}

LmTextFieldBinding::Outcome LmTextFieldBinding::TakeText()
{
    if (!mTakesText || !IsEdited()) {
        return kNothingTyped;
    }
    const LmLifeWatch theWatch(this);
    const LmValue theText = ReadText(GetControl());
    const LmReading theReading = Parse(theText);
    if (theWatch.IsGone()) {
        return kGone;
    }
    if (theReading.IsAccepted()) {
        return Accept(theReading.theValue);
    }
    if (!TellState(theReading) || !Tell(kKeyEditing, LmValue(true))) {
        return kGone;
    }
    return SelectAll() ? kRefused : kGone;
}

LmTextFieldBinding::Outcome LmTextFieldBinding::Accept(const LmValue& theValue)
{
    {
        Taking theTaking(*this);
        SetKeyPathValue(kKeyValue, theValue);
        if (theTaking.BindingIsGone() || !FollowSources()) {
            return kGone;
        }
        theTaking.Done();
    }
    mValueBeforeKeys = LmValue();
    return ShowValue(GetKeyValue(kKeyValue)) && Tell(kKeyEditing, LmValue(false)) ? kAccepted : kGone;
}

void LmTextFieldBinding::NoteTyping()
{
    const LmValue theText = ReadText(GetControl());
    if (!mNotesTyping || !theText.IsValid() || theText == mNotedText) {
        return;
    }
    mNotedText = theText;
    const bool isEdited = IsEdited();
    const bool isEachKey = (mOptions & kCommitEachKey) != 0;
    if (!Tell(kKeyEditing, LmValue(isEdited)) || (isEdited && !isEachKey)) {
        return;
    }
    const LmLifeWatch theWatch(this);
    const LmReading theReading = Parse(theText);
    if (theWatch.IsGone() || (isEachKey && theReading.IsAccepted() && !TakeKeys(theReading.theValue))) {
        return;
    }
    TellState(theReading);
}

// What Escape gives back is noted with the first of the keys.
bool LmTextFieldBinding::TakeKeys(const LmValue& theValue)
{
    const LmValue theBefore = mValueBeforeKeys.IsValid() ? mValueBeforeKeys : GetKeyValue(kKeyValue);
    const LmUpdateScope theScope(this, mHearsOthers);
    mValueBeforeKeys = theBefore;
    SetKeyPathValue(kKeyValue, theValue);
    return !theScope.BindingIsGone();
}

bool LmTextFieldBinding::GiveBackKeys()
{
    const LmValue theBefore = mValueBeforeKeys;
    mValueBeforeKeys = LmValue();
    return !theBefore.IsValid() || Tell(kKeyValue, theBefore);
}

void LmTextFieldBinding::Discard()
{
    if (!mTakesText || !IsEdited()) {
        return;
    }
    const LmValue theShown = mShownText; // a value that is assigned to itself is lost
    if (!WriteText(theShown)) {
        return;
    }
    if (GiveBackKeys() &&
        (GetKeyValue(kKeyValue).IsValid() ? ShowValue(GetKeyValue(kKeyValue)) : ReadShownText())) {
        Tell(kKeyEditing, LmValue(false));
    }
}

// ---- Events

void LmTextFieldBinding::InstallHandlers()
{
    static const EventHandlerUPP kFieldHandler = NewEventHandlerUPP(HandleFieldEvent);
    static const EventHandlerUPP kSurroundingsHandler = NewEventHandlerUPP(HandleSurroundings);

    // Installed after the handlers of the base classes, they are called before them.
    LM_REPORT_ERROR(InstallEventHandler(GetControlEventTarget(GetControl()), kFieldHandler,
                                        GetEventTypeCount(kFieldEvents), kFieldEvents, this, &mFieldHandler));
    if (const WindowRef theWindow = GetControlOwner(GetControl())) {
        LM_REPORT_ERROR(InstallEventHandler(GetWindowEventTarget(theWindow), kSurroundingsHandler,
                                            GetEventTypeCount(kWindowEvents), kWindowEvents, this,
                                            &mWindowHandler));
    }
    LM_REPORT_ERROR(InstallEventHandler(GetApplicationEventTarget(), kSurroundingsHandler,
                                        GetEventTypeCount(kApplicationEvents), kApplicationEvents, this,
                                        &mApplicationHandler));
}

void LmTextFieldBinding::RemoveHandlers()
{
    RemoveHandler(mFieldHandler);
    RemoveHandler(mWindowHandler);
    RemoveHandler(mApplicationHandler);
}

// On purpose: nothing is said of what is refused when the window closes, or a command comes. That is the
// application's to ask for, with the key "valid".
OSStatus LmTextFieldBinding::HandleSurroundings(EventHandlerCallRef, EventRef, void* userData)
{
    static_cast<LmTextFieldBinding*>(userData)->TakeText();
    return eventNotHandledErr;
}

OSStatus LmTextFieldBinding::HandleFieldEvent(EventHandlerCallRef theCall, EventRef theEvent, void* userData)
{
    LmTextFieldBinding* const theBinding = static_cast<LmTextFieldBinding*>(userData);
    switch (GetEventClass(theEvent)) {
    case kEventClassControl:
        return theBinding->HandleControl(theCall, theEvent);
    case kEventClassKeyboard:
        return theBinding->HandleKey(theCall, theEvent);
    default:
        return theBinding->LetTypeAndNote(theCall, theEvent);
    }
}

OSStatus LmTextFieldBinding::HandleControl(EventHandlerCallRef theCall, EventRef theEvent)
{
    if (GetEventKind(theEvent) == kEventControlSetFocusPart) {
        return HandleFocus(theCall, theEvent);
    }
    // A text has no number that anybody means.
    const TextReads theReads(*this, kReadsOfNumbers);
    return CallNextEventHandler(theCall, theEvent);
}

OSStatus LmTextFieldBinding::HandleFocus(EventHandlerCallRef theCall, EventRef theEvent)
{
    const auto thePart =
        ReadParameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode);
    if (thePart == kControlFocusNoPart) {
        if (TakeText() == kRefused && (mOptions & kKeepFocus) != 0) {
            TakeFocusBack();
        }
        return eventNotHandledErr;
    }
    const LmLifeWatch theWatch(this);
    const OSStatus theStatus = CallNextEventHandler(theCall, theEvent);
    if (!theWatch.IsGone() && IsEdited()) {
        SelectAll(); // what was refused
    }
    return theStatus;
}

// Fails where the field cannot have the focus any more, because it is hidden, disabled or disposed of.
void LmTextFieldBinding::TakeFocusBack()
{
    const LmLifeWatch theWatch(this);
    SetKeyboardFocus(GetControlOwner(GetControl()), GetControl(), kControlEditTextPart);
    if (!theWatch.IsGone()) {
        SelectAll();
    }
}

OSStatus LmTextFieldBinding::HandleKey(EventHandlerCallRef theCall, EventRef theEvent)
{
    switch (const auto theKey = ReadParameter<UInt32>(theEvent, kEventParamKeyCode, typeUInt32)) {
    case kReturnKeyCode:
    case kEnterKeyCode:
    case kKeypadEnterKeyCode:
    case kTabKeyCode:
        return HandleEndKey(theCall, theEvent, theKey);
    case kEscapeKeyCode:
        if (!IsEdited()) {
            return eventNotHandledErr;
        }
        Discard();
        return noErr;
    default:
        return LetTypeAndNote(theCall, theEvent);
    }
}

OSStatus LmTextFieldBinding::HandleEndKey(EventHandlerCallRef theCall, EventRef theEvent, UInt32 theKey)
{
    const Outcome theOutcome = TakeText();
    if (theOutcome == kGone) {
        return eventNotHandledErr;
    }
    if (theOutcome == kRefused && (mOptions & kKeepFocus) != 0) {
        return noErr;
    }
    // The base class does not look at the key of the keypad.
    const TextReads theReads(*this, theKey != kKeypadEnterKeyCode ? 1 : 0);
    return CallNextEventHandler(theCall, theEvent);
}

OSStatus LmTextFieldBinding::LetTypeAndNote(EventHandlerCallRef theCall, EventRef theEvent)
{
    const LmLifeWatch theWatch(this);
    const OSStatus theStatus = CallNextEventHandler(theCall, theEvent);
    if (!theWatch.IsGone()) {
        NoteTyping();
    }
    return theStatus;
}
