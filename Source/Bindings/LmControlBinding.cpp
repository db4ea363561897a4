// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmControlBinding.h"

#include "LmAdoptedString.h"
#include "LmCodeText.h"
#include "LmDiagnostics.h"
#include "LmEventNote.h"
#include "LmIsText.h"
#include "LmNameComparison.h"
#include "LmUpdateScope.h"

#include <cstdio>

namespace {

const char kKeyValue[] = "value";
const char kKeyMinimum[] = "minimum";
const char kKeyMaximum[] = "maximum";
const char kKeyEnabled[] = "enabled";
const char kKeyVisible[] = "visible";
const char kKeyTitle[] = "title";

const EventTypeSpec kControlEvents[] = {
    {kEventClassKeyboard, kEventRawKeyDown},
    {kEventClassControl, kEventControlDispose},
    {kEventClassControl, kEventControlValueFieldChanged},
    {kEventClassControl, kEventControlEnabledStateChanged},
    {kEventClassControl, kEventControlVisibilityChanged},
    {kEventClassControl, kEventControlTitleChanged},
};

// Virtual key codes: places on the keyboard, the same for every layout.
const UInt32 kReturnKeyCode = 36;
const UInt32 kTabKeyCode = 48;
const UInt32 kEnterKeyCode = 52;

bool EndsTyping(UInt32 theKeyCode)
{
    return theKeyCode == kEnterKeyCode || theKeyCode == kReturnKeyCode || theKeyCode == kTabKeyCode;
}

ControlRef FindControl(WindowRef theWindow, const ControlID& theID)
{
    ControlRef theControl = nullptr;
    LM_CHECK_STATUS(GetControlByID(theWindow, &theID, &theControl));
    return theControl;
}

ControlKind KindOf(ControlRef theControl)
{
    ControlKind theKind = {0, 0};
    LM_CHECK_STATUS(GetControlKind(theControl, &theKind));
    return theKind;
}

bool IsEditText(const ControlKind& theKind)
{
    return theKind.signature == kControlKindSignatureApple &&
           (theKind.kind == kControlKindEditText || theKind.kind == kControlKindEditUnicodeText);
}

bool IsStaticText(const ControlKind& theKind)
{
    return theKind.signature == kControlKindSignatureApple && theKind.kind == kControlKindStaticText;
}

// ---- Reading

LmValue ReadText(ControlRef theControl)
{
    CFStringRef theString = nullptr;
    LM_CHECK_STATUS(GetControlData(theControl, kControlEntireControl, kControlStaticTextCFStringTag,
                                   sizeof theString, &theString, nullptr));
    return LmAdoptedString(theString);
}

LmValue ReadTitle(ControlRef theControl)
{
    CFStringRef theString = nullptr;
    LM_CHECK_STATUS(CopyControlTitleAsCFString(theControl, &theString));
    return LmAdoptedString(theString);
}

LmValue ReadControl(ControlRef theControl, bool isText, const LmString& theKey)
{
    LmValue theValue;
    // On purpose: the numbers are kept unsigned although a control's are signed, and DoEventControl compares
    // them signed: applications read them as they were always read.
    if (theKey == kKeyValue) {
        if (isText) {
            return ReadText(theControl);
        }
        theValue.SetUInt32(static_cast<UInt32>(GetControl32BitValue(theControl)));
    } else if (theKey == kKeyMinimum) {
        theValue.SetUInt32(static_cast<UInt32>(GetControl32BitMinimum(theControl)));
    } else if (theKey == kKeyMaximum) {
        theValue.SetUInt32(static_cast<UInt32>(GetControl32BitMaximum(theControl)));
    } else if (theKey == kKeyEnabled) {
        theValue.SetBoolean(IsControlEnabled(theControl));
    } else if (theKey == kKeyVisible) {
        theValue.SetBoolean(IsControlVisible(theControl));
    } else if (theKey == kKeyTitle) {
        return ReadTitle(theControl);
    }
    return theValue;
}

// ---- Writing

OSStatus WriteValue(ControlRef theControl, bool isText, const LmValue& theValue)
{
    if (!isText) {
        SetControl32BitValue(theControl, static_cast<SInt32>(theValue.GetUInt32()));
    } else if (LmIsText(theValue)) {
        const CFStringRef theString = theValue.GetString();
        return SetControlData(theControl, kControlEntireControl, kControlStaticTextCFStringTag,
                              sizeof theString, &theString);
    }
    return noErr;
}

OSStatus WriteControl(ControlRef theControl, bool isText, const LmString& theKey, const LmValue& theValue)
{
    if (theKey == kKeyValue) {
        return WriteValue(theControl, isText, theValue);
    }
    if (theKey == kKeyMinimum) {
        SetControl32BitMinimum(theControl, static_cast<SInt32>(theValue.GetUInt32()));
    } else if (theKey == kKeyMaximum) {
        SetControl32BitMaximum(theControl, static_cast<SInt32>(theValue.GetUInt32()));
    } else if (theKey == kKeyEnabled) {
        return theValue.GetBoolean() ? EnableControl(theControl) : DisableControl(theControl);
    } else if (theKey == kKeyVisible) {
        return SetControlVisibility(theControl, theValue.GetBoolean(), true);
    } else if (theKey == kKeyTitle && LmIsText(theValue)) {
        return SetControlTitleWithCFString(theControl, theValue.GetString());
    }
    return noErr;
}

// ---- Following

// On purpose: one event copies one key only, the first that differs; and the comparison is of signed numbers,
// for text controls too.
void SyncChangedNumber(LmControlBinding& theBinding)
{
    const ControlRef theControl = theBinding.GetControl();
    const std::pair<const char*, SInt32 (*)(ControlRef)> kNumbers[] = {
        {kKeyValue, GetControl32BitValue},
        {kKeyMinimum, GetControl32BitMinimum},
        {kKeyMaximum, GetControl32BitMaximum},
    };
    for (const auto& theNumber : kNumbers) {
        const LmString theKey(theNumber.first);
        if (theNumber.second(theControl) != theBinding.GetKeyValue(theKey).GetSInt32()) {
            theBinding.SyncValue(theKey);
            break;
        }
    }
}

} // namespace

LmControlBinding::LmControlBinding(WindowRef theWindow, const ControlID& theID)
    : LmControlBinding(FindControl(theWindow, theID))
{
}

LmControlBinding::LmControlBinding(WindowRef theWindow, UInt32 theSignature)
    : LmControlBinding(theWindow, ControlID{theSignature, 0})
{
}

LmControlBinding::LmControlBinding(ControlRef theControl)
    : LmControlBinding()
{
    if (theControl != nullptr) {
        SetControl(theControl);
    }
}

LmControlBinding::LmControlBinding()
    : mControl(nullptr),
      mEventHandler(nullptr),
      mIsEditText(false),
      mIsStaticText(false),
      mUpdateControl(true)
{
}

LmControlBinding::~LmControlBinding()
{
    SetControl(nullptr);
}

void LmControlBinding::InitialiseSelf(ControlRef theControl)
{
    mControl = theControl;
    mEventHandler = nullptr;
    mIsEditText = false;
    mIsStaticText = false;
    mUpdateControl = true;
    if (theControl != nullptr) {
        SetControl(theControl);
    }
}

LmString LmControlBinding::GetDebugInfo() const
{
    ControlID theID = {0, 0};
    if (mControl != nullptr) {
        // A control that has no identifier is shown with an empty one.
        GetControlID(mControl, &theID);
    }
    char theText[64];
    std::snprintf(theText, sizeof theText, "[ControlRef 0x%.8lX, '%.4s', %ld]",
                  reinterpret_cast<unsigned long>(mControl), LmCodeText(theID.signature).GetText(),
                  static_cast<long>(theID.id));
    return LmString(theText);
}

void LmControlBinding::SetControl(ControlRef theControl)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(EventHandler);

    if (mEventHandler != nullptr) {
        LM_CHECK_STATUS(RemoveEventHandler(mEventHandler));
    }
    mControl = theControl;
    mEventHandler = nullptr;
    mIsEditText = false;
    mIsStaticText = false;
    mUpdateControl = true;
    if (theControl == nullptr) {
        return;
    }
    const ControlKind theKind = KindOf(theControl);
    mIsEditText = IsEditText(theKind);
    mIsStaticText = IsStaticText(theKind);
    LM_CHECK_STATUS(InstallEventHandler(GetControlEventTarget(theControl), kHandler,
                                        GetEventTypeCount(kControlEvents), kControlEvents, this,
                                        &mEventHandler));
    LmSyncKeys(this, mUpdateControl,
               {kKeyValue, kKeyMinimum, kKeyMaximum, kKeyEnabled, kKeyVisible, kKeyTitle});
}

void LmControlBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    if (mControl != nullptr && mUpdateControl) {
        const LmLifeWatch theWatch(this);
        LM_CHECK_STATUS(WriteControl(mControl, IsText(), theKey, theValue));
        if (theWatch.IsGone()) {
            return;
        }
    }
    LmKeyValueStore::SetKeyValue(theKey, theValue);
}

void LmControlBinding::SyncValue(const LmString& theKey)
{
    LM_ASSERT(mControl != NULL);
    const LmValue theValue = ReadControl(mControl, IsText(), theKey);
    if (theValue.IsValid()) {
        SetKeyPathValue(theKey, theValue);
    }
}

OSStatus LmControlBinding::EventHandler(EventHandlerCallRef, EventRef theEvent, void* userData)
{
    LM_ASSERT(userData != NULL);
    if (userData == nullptr) {
        return eventNotHandledErr;
    }
    LmControlBinding* const theBinding = static_cast<LmControlBinding*>(userData);
    const LmEventNote theNote(*theBinding, theEvent);
    const UInt32 theKind = GetEventKind(theEvent);
    switch (GetEventClass(theEvent)) {
    case kEventClassControl:
        theBinding->DoEventControl(theEvent, theKind);
        return eventNotHandledErr;
    case kEventClassKeyboard:
        return theBinding->DoEventKeyboard(theEvent, theKind);
    default:
        return eventNotHandledErr;
    }
}

OSStatus LmControlBinding::DoEventKeyboard(EventRef theEvent, UInt32 theKind)
{
    LM_ASSERT(GetEventClass(theEvent) == kEventClassKeyboard);
    const LmUpdateScope theScope(this, mUpdateControl);
    if (theKind != kEventRawKeyDown || !mIsEditText) {
        return eventNotHandledErr;
    }
    UInt32 theKeyCode = 0;
    LM_CHECK_STATUS(GetEventParameter(theEvent, kEventParamKeyCode, typeUInt32, nullptr, sizeof theKeyCode,
                                      nullptr, &theKeyCode));
    if (!EndsTyping(theKeyCode)) {
        return eventNotHandledErr;
    }
    SyncValue(kKeyValue);
    if (theScope.BindingIsGone() || theKeyCode == kTabKeyCode) {
        return eventNotHandledErr;
    }
    const OSStatus theStatus = SetKeyboardFocus(GetControlOwner(mControl), mControl, kControlEditTextPart);
    LM_CHECK_STATUS(theStatus);
    return theStatus;
}

OSStatus LmControlBinding::DoEventControl(EventRef theEvent, UInt32 theKind)
{
    LM_ASSERT(GetEventClass(theEvent) == kEventClassControl);
    {
        const LmUpdateScope theScope(this, mUpdateControl);
        switch (theKind) {
        case kEventControlTitleChanged:
            SyncValue(kKeyTitle);
            break;
        case kEventControlEnabledStateChanged:
            SyncValue(kKeyEnabled);
            break;
        case kEventControlVisibilityChanged:
            SyncValue(kKeyVisible);
            break;
        case kEventControlValueFieldChanged:
            SyncChangedNumber(*this);
            break;
        default:
            break;
        }
    }
    if (theKind == kEventControlDispose) {
        delete this;
    }
    return eventNotHandledErr;
}
