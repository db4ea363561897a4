// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtSegments_h
#define QtSegments_h

#include "QtControl.h"

namespace Host {

class SegmentsWidget;

// A row of tool buttons, each where the managers think it is, so that a press hits the one that is seen.
class QtSegments : public QtControl
{
public:
    QtSegments(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    SegmentsWidget& mSegments;
};

} // namespace Host

#endif
