// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtClock_h
#define QtClock_h

#include "QtControl.h"

namespace Host {

class ClockWidget;

// A time of day or a date. The widget finds out which of its fields or arrows is pressed, as it alone knows
// where it has drawn them; what that changes is the managers' to say.
class QtClock : public QtControl
{
public:
    QtClock(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;

private:
    void ReportPart(ControlPart thePart);

    ClockWidget& mClock;
};

} // namespace Host

#endif
