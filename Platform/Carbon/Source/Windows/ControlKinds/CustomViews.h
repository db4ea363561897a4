// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_CustomViews_h
#define ControlKinds_CustomViews_h

#include "Windows/DrawnView.h"

namespace Host {

// A view that is what its program makes of it: where it can be pressed is for handlers of
// kEventControlHitTest to say, and nowhere without them. These may dispose it.
class CustomView : public DrawnView
{
public:
    explicit CustomView(UInt32 theFeatures);
    ControlPartCode PartAt(Point thePoint) const override;
    bool HasPartAt(ControlPartCode thePart, Point thePoint) const override;

    // The part at a point that is counted as the view's own, where no handler has said which.
    virtual ControlPartCode UnhandledPartAt(Point thePoint) const;
};

} // namespace Host

#endif
