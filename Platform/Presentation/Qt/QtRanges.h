// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtRanges_h
#define QtRanges_h

#include "QtControl.h"

#include <QProgressBar>

class QAbstractSlider;

namespace Host {

// Controls with an indicator that the person drags. The widget follows the mouse, since only it knows where
// its style draws the indicator, and reports where the indicator is.
//
// While it is held, the indicator stays with the pointer, whatever the managers make of its value; when it is
// let go it shows theirs.
class QtIndicatorControl : public QtControl
{
public:
    bool Suits(const ControlLook& theLook) const override;

protected:
    // theWidget must be a QAbstractSlider.
    QtIndicatorControl(const ControlLook& theLook, QtInput& theInput, QWidget* theWidget);

    void ShowState(const ControlLook& theLook) override;
    QAbstractSlider& Slider() const;

private:
    void Report(DragPhase thePhase, std::int32_t theValue);
    void Begin();
    void End();
    void ReportStep();
};

class QtSlider : public QtIndicatorControl
{
public:
    QtSlider(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;
};

// Its arrows and page areas are the managers'; the widget only finds out which of them is meant.
class QtScrollBar : public QtIndicatorControl
{
public:
    QtScrollBar(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
};

class QtProgressBar : public QtControl
{
public:
    QtProgressBar(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QProgressBar& mBar;
};

// A sign that something is going on. Desktops have none of their own for it, so it is drawn here.
class QtChasingArrows : public QtControl
{
public:
    QtChasingArrows(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
};

} // namespace Host

#endif
