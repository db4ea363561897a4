// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Containers.h"

#include "Base/Geometry.h"
#include "Creation.h"
#include "DataTags.h"
#include "Windows/ControlTracking.h"

#include <algorithm>

namespace Host {

RootControl::RootControl()
    : DrawnView(kControlKindUserPane, kControlSupportsEmbedding)
{
}

UserPane::UserPane(UInt32 theFeatures)
    : CustomView(theFeatures)
{
}

// User panes ---------------------------------------------------------------------------------------------

ControlPartCode UserPane::UnhandledPartAt(Point thePoint) const
{
    return mHitTest == nullptr ? ControlPartCode{kControlNoPart} : mHitTest(Reference(), thePoint);
}

std::optional<ControlPartCode> UserPane::TrackByProcedure(Point theContentPoint)
{
    if (mTracking == nullptr || !Has(kControlHandlesTracking)) {
        return std::nullopt;
    }
    const SharedControl theKeepAlive = shared_from_this();
    const Point theOrigin = OriginOf(*this);
    return mTracking(Reference(), MakePoint(theContentPoint.h - theOrigin.h, theContentPoint.v - theOrigin.v),
                     mAction);
}

OSStatus UserPane::PressKey(const KeyPress& theKey)
{
    if (mKeyDown == nullptr) {
        return eventNotHandledErr;
    }
    const SharedControl theKeepAlive = shared_from_this();
    const std::string theBytes = BytesOf(theKey.theText);
    const auto theCharacter = theBytes.empty() ? '\0' : theBytes.front();
    const ControlPartCode thePart =
        mKeyDown(Reference(), static_cast<SInt16>(theKey.theCode), static_cast<unsigned char>(theCharacter),
                 static_cast<SInt16>(theKey.theModifiers));
    return thePart == kControlNoPart ? OSStatus{eventNotHandledErr} : OSStatus{noErr};
}

// It has one part for the focus, whatever its program makes of it.
ControlPartCode UserPane::FocusPart(bool) const
{
    return mFocus != nullptr && Has(kControlSupportsFocus) ? ControlPartCode{1}
                                                           : ControlPartCode{kControlFocusNoPart};
}

ControlPartCode UserPane::AnswerFocus(ControlPartCode thePart)
{
    if (mFocus == nullptr || !Has(kControlSupportsFocus)) {
        return thePart;
    }
    const SharedControl theKeepAlive = shared_from_this();
    const bool theComes = thePart != kControlFocusNoPart;
    const ControlPartCode theAnswer = mFocus(Reference(), theComes ? ControlFocusPart{kControlFocusNextPart}
                                                                   : ControlFocusPart{kControlFocusNoPart});
    return theAnswer == kControlFocusNoPart ? theAnswer : thePart;
}

void UserPane::StateChanged(ControlState theState, bool theIsOn)
{
    if (theState == ControlState::kActive && mActivate != nullptr && Has(kControlWantsActivate)) {
        const SharedControl theKeepAlive = shared_from_this();
        mActivate(Reference(), theIsOn);
    }
}

const ControlDataTag* UserPane::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        NumberTag<UserPane, ControlUserPaneHitTestUPP, &UserPane::mHitTest>(kControlUserPaneHitTestProcTag),
        NumberTag<UserPane, ControlUserPaneTrackingUPP, &UserPane::mTracking>(
            kControlUserPaneTrackingProcTag),
        NumberTag<UserPane, ControlUserPaneKeyDownUPP, &UserPane::mKeyDown>(kControlUserPaneKeyDownProcTag),
        NumberTag<UserPane, ControlUserPaneActivateUPP, &UserPane::mActivate>(
            kControlUserPaneActivateProcTag),
        NumberTag<UserPane, ControlUserPaneFocusUPP, &UserPane::mFocus>(kControlUserPaneFocusProcTag)};
    return FindIn(kTags, theTag, CustomView::FindTag(theTag));
}

// Boxes --------------------------------------------------------------------------------------------------

GroupBox::GroupBox()
    : Control(kControlKindGroupBox, kControlSupportsEmbedding)
{
}

void GroupBox::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kGroupBox;
}

Placard::Placard()
    : Control(kControlKindPlacard, kControlSupportsEmbedding)
{
}

void Placard::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kPlacard;
}

WindowHeader::WindowHeader(bool theIsListHeader)
    : Control(kControlKindWindowHeader, kControlSupportsEmbedding | kControlSupportsDataAccess),
      mIsListHeader(theIsListHeader)
{
}

const ControlDataTag* WindowHeader::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        FlagTag<WindowHeader, &WindowHeader::mIsListHeader>(kControlWindowHeaderIsListHeaderTag)};
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

void WindowHeader::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kWindowHeader;
}

// Radio groups -------------------------------------------------------------------------------------------

namespace {

bool IsChoice(const Control& theControl)
{
    return (theControl.Features() & kControlHasRadioBehavior) != 0;
}

bool IsOn(const Control& theControl)
{
    return IsChoice(theControl) && theControl.Range().theValue == kControlRadioButtonCheckedValue;
}

} // namespace

RadioGroup::RadioGroup()
    : Control(kControlKindRadioGroup, kControlSupportsEmbedding)
{
}

// Handlers hear of each change and may make others, so each step asks anew what there is.
void RadioGroup::RangeChanged()
{
    for (size_t theIndex = 0; theIndex < SubControls().size(); ++theIndex) {
        const SharedControl theOne = SubControls()[theIndex];
        const bool theIsChosen = static_cast<SInt32>(theIndex) + 1 == Range().theValue;
        if (IsChoice(*theOne) && IsOn(*theOne) != theIsChosen) {
            theOne->SetValue(theIsChosen ? kControlRadioButtonCheckedValue
                                         : kControlRadioButtonUncheckedValue);
        }
    }
    Control::RangeChanged();
}

// One that was turned on is the chosen one; when the chosen one was turned off, none is.
void RadioGroup::SubControlChanged(const Control& theSubControl)
{
    const auto thePlace =
        std::find_if(SubControls().begin(), SubControls().end(),
                     [&](const SharedControl& theOne) { return theOne.get() == &theSubControl; });
    const auto theNumber = static_cast<SInt32>(thePlace - SubControls().begin()) + 1;
    if (IsOn(theSubControl)) {
        SetValue(theNumber);
    } else if (IsChoice(theSubControl) && theNumber == Range().theValue) {
        SetValue(0);
    }
}

// Of several that are on, the first stays the chosen one.
void RadioGroup::SubControlsChanged()
{
    const auto theFirst = std::find_if(SubControls().begin(), SubControls().end(),
                                       [](const auto& theOne) { return IsOn(*theOne); });
    const auto theCount = static_cast<SInt32>(SubControls().size());
    const auto theChosen = static_cast<SInt32>(theFirst - SubControls().begin()) + 1;
    SetRange({theChosen > theCount ? 0 : theChosen, 0, theCount, 0});
}

bool RadioGroup::ChoosesAmong(const Control& theSubControl) const
{
    return IsChoice(theSubControl);
}

void RadioGroup::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kRadioGroup;
}

} // namespace Host

OSStatus CreateGroupBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title, Boolean,
                               ControlRef* outControl)
{
    return Host::Create<Host::GroupBox>({window, boundsRect, title, outControl});
}

OSStatus CreateRadioGroupControl(WindowRef window, const Rect* boundsRect, ControlRef* outControl)
{
    return Host::Create<Host::RadioGroup>({window, boundsRect, nullptr, outControl});
}

OSStatus CreateUserPaneControl(WindowRef window, const Rect* boundsRect, UInt32 features,
                               ControlRef* outControl)
{
    return Host::Create<Host::UserPane>({window, boundsRect, nullptr, outControl}, features);
}

OSStatus CreatePlacardControl(WindowRef window, const Rect* boundsRect, ControlRef* outControl)
{
    return Host::Create<Host::Placard>({window, boundsRect, nullptr, outControl, true});
}

OSStatus CreateWindowHeaderControl(WindowRef window, const Rect* boundsRect, Boolean isListHeader,
                                   ControlRef* outControl)
{
    return Host::Create<Host::WindowHeader>({window, boundsRect, nullptr, outControl}, isListHeader != 0);
}
