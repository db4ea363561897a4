// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Containers_h
#define ControlKinds_Containers_h

#include "CustomViews.h"

namespace Host {

// Holds all controls of a window and goes with it.
class RootControl : public DrawnView
{
public:
    RootControl();
};

// Holds what the program puts into it, and does what the program's procedures do.
class UserPane : public CustomView
{
public:
    explicit UserPane(UInt32 theFeatures);
    ControlPartCode UnhandledPartAt(Point thePoint) const override;
    std::optional<ControlPartCode> TrackByProcedure(Point theContentPoint) override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    ControlPartCode AnswerFocus(ControlPartCode thePart) override;
    void StateChanged(ControlState theState, bool theIsOn) override;
    const ControlDataTag* FindTag(ResType theTag) const override;

    // Null where the program has given none.
    ControlUserPaneHitTestUPP mHitTest = nullptr;
    ControlUserPaneTrackingUPP mTracking = nullptr;
    ControlUserPaneKeyDownUPP mKeyDown = nullptr;
    ControlUserPaneActivateUPP mActivate = nullptr;
    ControlUserPaneFocusUPP mFocus = nullptr;

private:
    bool Has(UInt32 theFeature) const { return (Features() & theFeature) != 0; }
};

class GroupBox : public Control
{
public:
    GroupBox();
    void AddToLook(ControlLook& theLook) const override;
};

class Placard : public Control
{
public:
    Placard();
    void AddToLook(ControlLook& theLook) const override;
};

class WindowHeader : public Control
{
public:
    explicit WindowHeader(bool theIsListHeader);
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mIsListHeader;
};

// Of the radio buttons in it, the one whose place among its controls is its value is on, and no other. Its
// range follows their number.
class RadioGroup : public Control
{
public:
    RadioGroup();
    void RangeChanged() override;
    void SubControlChanged(const Control& theSubControl) override;
    void SubControlsChanged() override;
    bool ChoosesAmong(const Control& theSubControl) const override;
    void AddToLook(ControlLook& theLook) const override;
};

} // namespace Host

#endif
