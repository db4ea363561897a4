// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtPictures_h
#define QtPictures_h

#include "QtControl.h"

#include <QLabel>
#include <QToolButton>

namespace Host {

// The desktop's own picture, or an empty frame in the place of one that cannot be drawn.
QIcon IconOf(PictureShape thePicture, const QWidget& theWidget);

// A bevel or a round button.
class QtBevelButton : public QtControl
{
public:
    QtBevelButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;

private:
    QToolButton& mButton;
};

// An icon, a picture or an image well.
class QtPicture : public QtControl
{
public:
    QtPicture(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QLabel& mLabel;
};

} // namespace Host

#endif
