// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Buttons.h"

#include "Creation.h"
#include "DataTags.h"
#include "Windows/ControlTracking.h"
#include "Windows/KeyboardFocus.h"

#include <algorithm>
#include <iterator>

namespace Host {

namespace {

const UInt32 kFocusable = kControlSupportsFocus;
const ControlRange kToggleRange = {0, kControlCheckBoxUncheckedValue, kControlCheckBoxMixedValue, 0};

UInt32 ToggleFeatures(bool theIsToggle)
{
    return kFocusable | (theIsToggle ? UInt32{kControlAutoToggles} : 0);
}

} // namespace

Button::Button(OSType theKind, UInt32 theFeatures, ControlPartCode thePart)
    : Control(theKind, theFeatures),
      mPart(thePart)
{
}

ControlPartCode Button::PartAt(Point) const
{
    return mPart;
}

ControlPartCode Button::FocusPart(bool theIsFullAccess) const
{
    return theIsFullAccess ? mPart : ControlPartCode{kControlFocusNoPart};
}

OSStatus Button::PressKey(const KeyPress& theKey)
{
    if (theKey.theCode != kVK_Space || !CanBePressed()) {
        return eventNotHandledErr;
    }
    PressAndRelease(shared_from_this(), mPart, theKey.theModifiers);
    return noErr;
}

// Push buttons -------------------------------------------------------------------------------------------

PushButton::PushButton()
    : Button(kControlKindPushButton, kFocusable | kControlSupportsDataAccess, kControlButtonPart)
{
}

const ControlDataTag* PushButton::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        FlagTag<PushButton, &PushButton::mLooksDefault>(kControlPushButtonDefaultTag),
        FlagTag<PushButton, &PushButton::mIsCancel>(kControlPushButtonCancelTag),
    };
    return FindIn(kTags, theTag, Button::FindTag(theTag));
}

void PushButton::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kPushButton;
    theLook.theIsDefault = theLook.theIsDefault || mLooksDefault;
    theLook.theIsCancel = theLook.theIsCancel || mIsCancel;
}

// Check boxes and radio buttons --------------------------------------------------------------------------

CheckBox::CheckBox(bool theIsToggle)
    : Button(kControlKindCheckBox, ToggleFeatures(theIsToggle), kControlCheckBoxPart)
{
}

bool CheckBox::ToggledValue(ControlPartCode, SInt32* theValue) const
{
    const bool theIsOn = Range().theValue == kControlCheckBoxCheckedValue;
    *theValue = theIsOn ? kControlCheckBoxUncheckedValue : kControlCheckBoxCheckedValue;
    return true;
}

void CheckBox::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kCheckBox;
}

RadioButton::RadioButton(bool theIsToggle)
    : Button(kControlKindRadioButton, ToggleFeatures(theIsToggle) | kControlHasRadioBehavior,
             kControlRadioButtonPart)
{
}

namespace {

// The radio buttons beside this one in its container, itself included, in the order of the Tab key.
std::vector<SharedControl> RadioButtonsAround(const Control& theControl)
{
    std::vector<SharedControl> theButtons;
    const SharedControl theParent = theControl.Parent();
    if (theParent != nullptr) {
        const std::vector<SharedControl>& theBeside = theParent->SubControls();
        std::copy_if(theBeside.begin(), theBeside.end(), std::back_inserter(theButtons),
                     [](const SharedControl& theOne) {
                         return theOne->Kind() == kControlKindRadioButton && theOne->CanBePressed();
                     });
    }
    SortByPlace(&theButtons);
    return theButtons;
}

} // namespace

// An arrow goes on to the next of a group and presses it, round and round.
OSStatus RadioButton::PressKey(const KeyPress& theKey)
{
    const bool theIsBack = theKey.theCode == kVK_UpArrow || theKey.theCode == kVK_LeftArrow;
    const bool theIsOn = theKey.theCode == kVK_DownArrow || theKey.theCode == kVK_RightArrow;
    const SharedWindow theWindow = Owner();
    const std::vector<SharedControl> theButtons = RadioButtonsAround(*this);
    const auto thePlace = std::find(theButtons.begin(), theButtons.end(), shared_from_this());
    if ((!theIsBack && !theIsOn) || theWindow == nullptr || thePlace == theButtons.end() ||
        theButtons.size() < 2) {
        return Button::PressKey(theKey);
    }
    const size_t theStep = theIsBack ? theButtons.size() - 1 : 1;
    const auto theOld = static_cast<size_t>(thePlace - theButtons.begin());
    const SharedControl& theNext = theButtons[(theOld + theStep) % theButtons.size()];
    MoveFocus(theWindow, theNext, theNext->FocusPart(IsFullKeyboardAccessOn()));
    if (!theNext->IsGone() && theNext->CanBePressed()) {
        PressAndRelease(theNext, kControlRadioButtonPart, theKey.theModifiers);
    }
    return noErr;
}

bool RadioButton::ToggledValue(ControlPartCode, SInt32* theValue) const
{
    *theValue = kControlRadioButtonCheckedValue;
    return true;
}

void RadioButton::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kRadioButton;
}

// Disclosures --------------------------------------------------------------------------------------------

namespace {

SInt32 OtherDisclosure(SInt32 theValue)
{
    return theValue == kControlDisclosureButtonClosed ? kControlDisclosureButtonDisclosed
                                                      : kControlDisclosureButtonClosed;
}

} // namespace

DisclosureTriangle::DisclosureTriangle(bool thePointsLeft, bool theShowsTitle, bool theIsToggle)
    : Button(kControlKindDisclosureTriangle, ToggleFeatures(theIsToggle) | kControlSupportsDataAccess,
             kControlTrianglePart),
      mPointsLeft(thePointsLeft),
      mShowsTitle(theShowsTitle)
{
}

OSStatus DisclosureTriangle::PressKey(const KeyPress& theKey)
{
    const bool theIsOpen = Range().theValue != kControlDisclosureButtonClosed;
    if (theKey.theCode != (theIsOpen ? kVK_LeftArrow : kVK_RightArrow) || !CanBePressed()) {
        return Button::PressKey(theKey);
    }
    PressAndRelease(shared_from_this(), kControlTrianglePart, theKey.theModifiers);
    return noErr;
}

bool DisclosureTriangle::ToggledValue(ControlPartCode, SInt32* theValue) const
{
    *theValue = OtherDisclosure(Range().theValue);
    return true;
}

const ControlDataTag* DisclosureTriangle::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        NumberTag<DisclosureTriangle, SInt16, &DisclosureTriangle::mLastValue>(kControlTriangleLastValueTag),
    };
    return FindIn(kTags, theTag, Button::FindTag(theTag));
}

void DisclosureTriangle::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kDisclosureTriangle;
    theLook.thePointsLeft = mPointsLeft;
    theLook.theHidesTitle = !mShowsTitle;
}

DisclosureButton::DisclosureButton(bool theIsToggle)
    : Button(kControlKindDisclosureButton, ToggleFeatures(theIsToggle), kControlButtonPart)
{
}

bool DisclosureButton::ToggledValue(ControlPartCode, SInt32* theValue) const
{
    *theValue = OtherDisclosure(Range().theValue);
    return true;
}

void DisclosureButton::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kDisclosureButton;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

OSStatus CreatePushButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                 ControlRef* outControl)
{
    return Host::Create<Host::PushButton>({window, boundsRect, title, outControl, true, {0, 0, 1, 0}});
}

OSStatus CreateCheckBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                               SInt32 initialValue, Boolean autoToggle, ControlRef* outControl)
{
    Host::ControlRange theRange = Host::kToggleRange;
    theRange.theValue = initialValue;
    return Host::Create<Host::CheckBox>({window, boundsRect, title, outControl, true, theRange},
                                        autoToggle != 0);
}

OSStatus CreateRadioButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                  SInt32 initialValue, Boolean autoToggle, ControlRef* outControl)
{
    Host::ControlRange theRange = Host::kToggleRange;
    theRange.theValue = initialValue;
    return Host::Create<Host::RadioButton>({window, boundsRect, title, outControl, true, theRange},
                                           autoToggle != 0);
}

OSStatus CreateDisclosureTriangleControl(WindowRef inWindow, const Rect* inBoundsRect,
                                         ControlDisclosureTriangleOrientation inOrientation,
                                         CFStringRef inTitle, SInt32 inInitialValue, Boolean inDrawTitle,
                                         Boolean inAutoToggles, ControlRef* outControl)
{
    if (inOrientation > kControlDisclosureTrianglePointLeft) {
        return Host::Refuse(outControl);
    }
    return Host::Create<Host::DisclosureTriangle>(
        {inWindow, inBoundsRect, inTitle, outControl, false, {inInitialValue, 0, 1, 0}},
        inOrientation == kControlDisclosureTrianglePointLeft, inDrawTitle != 0, inAutoToggles != 0);
}

OSErr SetDisclosureTriangleLastValue(HIViewRef inDisclosureTriangle, SInt16 inValue)
{
    return SetControlData(inDisclosureTriangle, kControlEntireControl, kControlTriangleLastValueTag,
                          sizeof inValue, &inValue);
}

OSStatus CreateDisclosureButtonControl(WindowRef inWindow, const Rect* inBoundsRect, SInt32 inValue,
                                       Boolean inAutoToggles, ControlRef* outControl)
{
    return Host::Create<Host::DisclosureButton>(
        {inWindow, inBoundsRect, nullptr, outControl, false, {inValue, 0, 1, 0}}, inAutoToggles != 0);
}
