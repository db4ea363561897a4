// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtContent_h
#define QtContent_h

#include <QWidget>
#include <vector>

namespace Host {

// The content of a window: the parent of the widgets of all its controls.
//
// It repaints the controls that look otherwise, all of them at once. Where each widget asks for that itself,
// Qt compares it with all its neighbours, and reckons with a region of as many pieces as there are controls.
class QtContent : public QWidget
{
public:
    using QWidget::QWidget;

    // A control looks otherwise at this place.
    void Changed(const QRect& thePlace);

    // Has everything painted that has changed since the last time, and no control that has not.
    void RepaintChanged();

protected:
    // It looks the same with the keys and without. Qt would paint it anew, with all that is in it.
    void focusInEvent(QFocusEvent*) override {}
    void focusOutEvent(QFocusEvent*) override {}

private:
    std::vector<QRect> PlacesOutside(const QRegion& theRegion) const;

    std::vector<QRect> mChanged;
};

} // namespace Host

#endif
