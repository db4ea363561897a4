// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Clocks_h
#define ControlKinds_Clocks_h

#include "Windows/Control.h"

#include <vector>

namespace Host {

// A time of day or a date. A person changes it field by field, unless it is for display.
class ClockControl : public Control
{
public:
    ClockControl(ControlClockType theType, bool theIsForDisplay, bool theIsLive);

    // What the clock shows now, in the zone of the system. Setting a year that has not four digits is
    // paramErr.
    CFGregorianDate Shown() const;
    OSErr SetShown(const CFGregorianDate& theDate);
    CFAbsoluteTime Time() const;
    OSErr SetTime(CFAbsoluteTime theTime);

    // A live clock is shown anew each second.
    OSStatus StartTicking();

    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    void PartClicked(ControlPartCode thePart) override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    void FocusMoved(bool theHasFocus) override;
    void Disposed() override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

private:
    // One of the numbers that the clock shows.
    struct Field
    {
        ControlPartCode thePart;
        size_t theStart; // in the text, in digits and what stands between them
        size_t theLength;
    };

    std::vector<Field> Fields() const;
    std::string ShownText() const;
    Rect PlaceOfField(const Field& theField) const;
    int ValueOf(ControlPartCode thePart, const CFGregorianDate& theDate) const;
    int LeastOf(ControlPartCode thePart) const;
    int MostOf(ControlPartCode thePart, const CFGregorianDate& theDate) const;
    void Put(ControlPartCode thePart, int theValue);
    void Step(int theStep);
    void GoOn(int theStep);
    bool TypeDigit(int theDigit);

    bool IsDate() const;

    ControlClockType mType;
    bool mIsForDisplay;
    bool mIsLive;
    CFAbsoluteTime mTime;
    EventTime mSetAt; // when mTime was set: a live clock goes on from there
    ControlPartCode mField;
    int mTyped = 0; // what the digits come to that were typed into the field so far
    EventLoopTimerRef mTimer = nullptr;
};

} // namespace Host

#endif
