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

// Holds what the program puts into it.
class UserPane : public CustomView
{
public:
    explicit UserPane(UInt32 theFeatures);
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
