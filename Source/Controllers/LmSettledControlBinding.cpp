// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSettledControlBinding.h"

#include "LmLifeWatch.h"
#include "LmReportedErrors.h"

#include <algorithm>
#include <utility>

// A key of another store, followed by one of this object as long as that observes it.
struct LmSettledControlBinding::Source
{
    const LmKeyValueStore* theStore; // not owned, and perhaps gone: compared only
    LmString theKey;
};

// While it lives, what changes in the control is not settled: this object changes it.
class [[nodiscard]] LmSettledControlBinding::Occupied
{
public:
    explicit Occupied(LmSettledControlBinding& theBinding)
        : mBinding(theBinding),
          mWatch(&theBinding),
          mWasOccupied(std::exchange(theBinding.mIsOccupied, true))
    {
    }
    ~Occupied()
    {
        if (!mWatch.IsGone()) {
            mBinding.mIsOccupied = mWasOccupied;
        }
    }
    Occupied(const Occupied&) = delete;
    Occupied& operator=(const Occupied&) = delete;

    [[nodiscard]] bool BindingIsGone() const { return mWatch.IsGone(); }

private:
    LmSettledControlBinding& mBinding;
    LmLifeWatch mWatch;
    const bool mWasOccupied;
};

namespace {

const EventTypeSpec kSettledEvents[] = {
    {kEventClassControl, kEventControlValueFieldChanged},
    {kEventClassControl, kEventControlEnabledStateChanged},
    {kEventClassControl, kEventControlVisibilityChanged},
    {kEventClassControl, kEventControlTitleChanged},
};

bool IsText(ControlRef theControl)
{
    ControlKind theKind = {0, 0};
    GetControlKind(theControl, &theKind);
    return theKind.signature == kControlKindSignatureApple &&
           (theKind.kind == kControlKindStaticText || theKind.kind == kControlKindEditText ||
            theKind.kind == kControlKindEditUnicodeText);
}

// Each of these tells whether the control shows theValue; yes, where it is no value that it could show.

bool ShowsNumber(SInt32 theNumber, const LmValue& theValue)
{
    return !theValue.IsNumber() || theValue.GetSInt32() == theNumber;
}

bool ShowsValue(ControlRef theControl, const LmValue& theValue)
{
    return IsText(theControl) || ShowsNumber(GetControl32BitValue(theControl), theValue);
}

bool ShowsMinimum(ControlRef theControl, const LmValue& theValue)
{
    return ShowsNumber(GetControl32BitMinimum(theControl), theValue);
}

bool ShowsMaximum(ControlRef theControl, const LmValue& theValue)
{
    return ShowsNumber(GetControl32BitMaximum(theControl), theValue);
}

bool ShowsEnabled(ControlRef theControl, const LmValue& theValue)
{
    return !theValue.IsNumber() || theValue.GetBoolean() == static_cast<bool>(IsControlEnabled(theControl));
}

bool ShowsVisible(ControlRef theControl, const LmValue& theValue)
{
    return !theValue.IsNumber() || theValue.GetBoolean() == static_cast<bool>(IsControlVisible(theControl));
}

bool ShowsTitle(ControlRef theControl, const LmValue& theValue)
{
    CFStringRef theTitle = nullptr;
    if (!theValue.IsString() || theValue.GetString() == nullptr ||
        CopyControlTitleAsCFString(theControl, &theTitle) != noErr || theTitle == nullptr) {
        return true;
    }
    return LmValue(theTitle, true) == theValue;
}

const std::pair<const char*, bool (*)(ControlRef, const LmValue&)> kKeys[] = {
    {"minimum", ShowsMinimum}, {"maximum", ShowsMaximum}, {"value", ShowsValue},
    {"enabled", ShowsEnabled}, {"visible", ShowsVisible}, {"title", ShowsTitle},
};

} // namespace

LmSettledControlBinding::LmSettledControlBinding(WindowRef theWindow, const ControlID& theID)
    : LmControlBinding(theWindow, theID)
{
    SetControl(GetControl());
}

LmSettledControlBinding::LmSettledControlBinding(WindowRef theWindow, UInt32 theSignature)
    : LmSettledControlBinding(theWindow, ControlID{theSignature, 0})
{
}

LmSettledControlBinding::LmSettledControlBinding(ControlRef theControl)
{
    SetControl(theControl);
}

LmSettledControlBinding::LmSettledControlBinding() = default;

LmSettledControlBinding::~LmSettledControlBinding()
{
    if (mSettlingHandler != nullptr) {
        RemoveEventHandler(mSettlingHandler);
    }
}

void LmSettledControlBinding::SetControl(ControlRef theControl)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(HandleControlEvent);

    if (mSettlingHandler != nullptr) {
        RemoveEventHandler(std::exchange(mSettlingHandler, nullptr));
    }
    const LmLifeWatch theWatch(this);
    LmControlBinding::SetControl(theControl);
    if (theWatch.IsGone() || theControl == nullptr || GetControl() != theControl) {
        return;
    }
    // Installed after the base's handler, it is called before that, and waits for it.
    LM_REPORT_ERROR(InstallEventHandler(GetControlEventTarget(theControl), kHandler,
                                        GetEventTypeCount(kSettledEvents), kSettledEvents, this,
                                        &mSettlingHandler));
}

OSStatus LmSettledControlBinding::Bind(const LmString& bindKey, LmKeyValueBinding* boundTo,
                                       const LmString& boundKey, LmValueTransform* transform,
                                       LmValueTransform* reverseTransform)
{
    NoteSource(boundTo, boundKey);
    return LmControlBinding::Bind(bindKey, boundTo, boundKey, transform, reverseTransform);
}

OSStatus LmSettledControlBinding::BindTo(const LmString& bindKey, LmKeyValueBinding* boundTo,
                                         const LmString& boundKey, LmValueTransform* transform)
{
    NoteSource(boundTo, boundKey);
    return LmControlBinding::BindTo(bindKey, boundTo, boundKey, transform);
}

void LmSettledControlBinding::ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName)
{
    NoteSource(theStore, theKeyName);
    LmControlBinding::ValueChanged(theStore, theKeyName);
}

void LmSettledControlBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    const Occupied theTime(*this);
    LmControlBinding::SetKeyValue(theKey, theValue);
}

bool LmSettledControlBinding::IsFollowed(const Source& theSource)
{
    // The address is compared only.
    return AmObserving(const_cast<LmKeyValueStore*>(theSource.theStore), theSource.theKey);
}

void LmSettledControlBinding::NoteSource(const LmKeyValueStore* theStore, const LmString& theKey)
{
    const auto isThis = [&](const Source& theSource) {
        return theSource.theStore == theStore && theSource.theKey == theKey;
    };
    if (theStore == nullptr || theKey.IsEmpty() || std::any_of(mSources.begin(), mSources.end(), isThis)) {
        return;
    }
    mSources.erase(std::remove_if(mSources.begin(), mSources.end(),
                                  [this](const Source& theSource) { return !IsFollowed(theSource); }),
                   mSources.end());
    mSources.push_back({theStore, theKey});
}

bool LmSettledControlBinding::FollowSources()
{
    const Occupied theTime(*this);
    const std::vector<Source> theSources = mSources; // others may become known meanwhile
    for (const Source& theSource : theSources) {
        if (IsFollowed(theSource)) {
            LmControlBinding::ValueChanged(theSource.theStore, theSource.theKey);
        }
        if (theTime.BindingIsGone()) {
            return false;
        }
    }
    return true;
}

void LmSettledControlBinding::Settle()
{
    if (mIsOccupied || !FollowSources()) {
        return;
    }
    const Occupied theTime(*this);
    for (const auto& theKey : kKeys) {
        const LmValue theValue = GetKeyValue(theKey.first);
        if (GetControl() != nullptr && !theKey.second(GetControl(), theValue)) {
            LmControlBinding::SetKeyValue(theKey.first, theValue);
        }
        if (theTime.BindingIsGone()) {
            return;
        }
    }
}

OSStatus LmSettledControlBinding::HandleControlEvent(EventHandlerCallRef theCall, EventRef theEvent,
                                                     void* userData)
{
    LmSettledControlBinding* const theBinding = static_cast<LmSettledControlBinding*>(userData);
    const LmLifeWatch theWatch(theBinding);
    const OSStatus theStatus = CallNextEventHandler(theCall, theEvent);
    if (!theWatch.IsGone()) {
        theBinding->Settle();
    }
    return theStatus;
}
