// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_DrawnView_h
#define Windows_DrawnView_h

#include "Control.h"

#include <Presentation/Picture.h>

namespace Host {

// A view that its program may draw, by a handler of kEventControlDraw.
//
// What must be drawn is collected, and drawn once before the loop waits: views before those in them. It is
// drawn into a picture of the view's own, so that neither other views nor a window that comes back ask for it
// again. A view without such a handler has no picture. Where the host has nothing to draw with, nobody is
// asked to.
class DrawnView : public Control
{
public:
    DrawnView(OSType theKind, UInt32 theFeatures);

    // Marks a part of it, in its own coordinates, or all of it. Nothing happens to one that is hidden, or
    // while its drawing is disabled.
    void Mark(const CGRect& thePart);
    void MarkAll();
    void Unmark(const CGRect& thePart); // where nothing else remains of what is marked
    bool IsMarked() const { return !CGRectIsEmpty(mMarked); }

    // Draws what is marked, unless nobody could see it.
    void DrawMarked();

    bool IsDrawingEnabled() const { return mIsDrawingEnabled; }
    void EnableDrawing(bool theIsEnabled);

    CGRect WholeArea() const;
    void AddToLook(ControlLook& theLook) const override;
    void RangeChanged() override;

    // Whether it and its window are shown.
    bool CanBeSeen() const;

protected:
    void Changed() override;

private:
    void Draw(const CGRect& theArea);

    std::shared_ptr<const Picture> mPicture; // null for a view that nobody draws
    CGRect mMarked = CGRectZero;
    bool mIsWaiting = false; // has been marked since it was drawn last
    bool mIsDrawing = false;
    bool mIsDrawingEnabled = true;
};

// Draws what is marked in a view and in all that it holds.
void DrawMarkedIn(const SharedControl& theView);

} // namespace Host

#endif
