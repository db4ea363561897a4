// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtButtons_h
#define QtButtons_h

#include "QtControl.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace Host {

// Controls that a person presses. The managers follow the mouse; the widgets show what comes of it.

class QtPushButton : public QtControl
{
public:
    QtPushButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;

private:
    QPushButton& mButton;
};

class QtCheckBox : public QtControl
{
public:
    QtCheckBox(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QCheckBox& mBox;
};

class QtRadioButton : public QtControl
{
public:
    QtRadioButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QRadioButton& mButton;
};

class QtPopUpButton : public QtControl
{
public:
    QtPopUpButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;

private:
    QComboBox& mBox;
};

// A tool button whose arrow says whether it is open: a disclosure triangle or button.
class QtDisclosure : public QtControl
{
public:
    QtDisclosure(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QToolButton& mButton;
};

// The up and down arrows of a spin box, without its field.
class QtLittleArrows : public QtControl
{
public:
    QtLittleArrows(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    void ReportStep(ControlPart thePart);
};

} // namespace Host

#endif
