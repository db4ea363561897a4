// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Buttons_h
#define ControlKinds_Buttons_h

#include "Windows/Control.h"

namespace Host {

// What is pressed as a whole, by the mouse or by the space bar.
class Button : public Control
{
public:
    ControlPartCode PartAt(Point thePoint) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;

protected:
    Button(OSType theKind, UInt32 theFeatures, ControlPartCode thePart);

private:
    ControlPartCode mPart;
};

class PushButton : public Button
{
public:
    PushButton();
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mLooksDefault = false;
    bool mIsCancel = false;
};

class CheckBox : public Button
{
public:
    explicit CheckBox(bool theIsToggle);
    bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const override;
    void AddToLook(ControlLook& theLook) const override;
};

class RadioButton : public Button
{
public:
    explicit RadioButton(bool theIsToggle);
    OSStatus PressKey(const KeyPress& theKey) override;
    bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const override;
    void AddToLook(ControlLook& theLook) const override;
};

class DisclosureTriangle : public Button
{
public:
    DisclosureTriangle(bool thePointsLeft, bool theShowsTitle, bool theIsToggle);
    OSStatus PressKey(const KeyPress& theKey) override;
    bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    SInt16 mLastValue = 0;

private:
    bool mPointsLeft;
    bool mShowsTitle;
};

class DisclosureButton : public Button
{
public:
    explicit DisclosureButton(bool theIsToggle);
    bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const override;
    void AddToLook(ControlLook& theLook) const override;
};

} // namespace Host

#endif
