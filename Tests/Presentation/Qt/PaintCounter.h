// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PaintCounter_h
#define PaintCounter_h

#include <QEvent>
#include <QObject>

// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    int theCount = 0;

    bool eventFilter(QObject*, QEvent* theEvent) override
    {
        theCount += theEvent->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

#endif
