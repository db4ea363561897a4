// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Ranges_h
#define ControlKinds_Ranges_h

#include "Windows/Control.h"

namespace Host {

// A control with an indicator that a person drags along a track. Lengths are measured from the track's start,
// which is its left or top, or its bottom when it runs backward.
class IndicatorControl : public Control
{
public:
    bool IsIndicator(ControlPartCode thePart) const override;
    SInt32 ValueAt(Point thePoint) const override;
    Point PlaceOfValue(SInt32 theValue) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;

protected:
    using Control::Control;

    // A key has put the indicator there; false when it was there already.
    bool SetByKey(SInt32 theValue, UInt32 theModifiers);

    bool IsUpright() const;
    bool RunsBackward() const;
    virtual bool RunsBackwardWhenUpright() const = 0;
    virtual int ArrowLength() const { return 0; }
    virtual int IndicatorLength() const = 0;

    int TotalLength() const;
    int TrackLength() const { return TotalLength() - 2 * ArrowLength(); }
    int IndicatorStart(SInt32 theValue) const; // from the control's start
    int Along(Point thePoint) const;           // from the control's start
    Rect Slice(int theStart, int theEnd) const;
};

class Slider : public IndicatorControl
{
public:
    Slider(UInt16 theTickMarks, bool theIsLive, ControlActionUPP theAction);
    ControlPartCode PartAt(Point thePoint) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    void AddToLook(ControlLook& theLook) const override;

protected:
    bool RunsBackwardWhenUpright() const override { return true; }
    int IndicatorLength() const override;

private:
    SInt32 ValueAfter(const KeyPress& theKey) const;
    UInt16 mTickMarks;
};

class ScrollBar : public IndicatorControl
{
public:
    ScrollBar(bool theIsLive, ControlActionUPP theAction);
    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theEverything) const override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mShowsArrows = true;

protected:
    bool RunsBackwardWhenUpright() const override { return false; }
    int ArrowLength() const override;
    int IndicatorLength() const override;
};

class ProgressBar : public Control
{
public:
    explicit ProgressBar(bool theIsIndeterminate);
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mIsIndeterminate;
    bool mIsAnimating = true;
};

class RelevanceBar : public Control
{
public:
    RelevanceBar();
    void AddToLook(ControlLook& theLook) const override;
};

class ChasingArrows : public Control
{
public:
    ChasingArrows();
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mIsAnimating = true;
};

class LittleArrows : public Control
{
public:
    explicit LittleArrows(SInt32 theIncrement);
    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    SInt32 mIncrement;
};

} // namespace Host

#endif
