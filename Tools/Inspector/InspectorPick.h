// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef InspectorPick_h
#define InspectorPick_h

#include "LmLiveSurvey.h"

#include <functional>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRubberBand>

// From Start on, a frame stands around the control under the pointer, and a click on it chooses it instead of
// reaching the program.
class InspectorPick : public QObject
{
public:
    // theChosen is called with the number of the binding object, or with 0 when the person gave up: with
    // Escape, or with a click on what is bound to nothing. theOwn is the inspector's window, which works on.
    InspectorPick(const LmLiveSurvey& theSurvey, const QWidget& theOwn,
                  std::function<void(std::uint64_t)> theChosen);
    ~InspectorPick() override;
    InspectorPick(const InspectorPick&) = delete;
    InspectorPick& operator=(const InspectorPick&) = delete;

    // Begins, and ends before anything was chosen; theChosen is not called then.
    void Start();
    void Stop();

    bool eventFilter(QObject* theObject, QEvent* theEvent) override;

private:
    struct Found
    {
        std::uint64_t theObject = 0;
        QRect thePlace; // on the screen
    };
    Found FindAt(const QWidget& theWidget, QPoint thePlace) const;
    void Mark(const QWidget& theWidget, QPoint thePlace);
    void End(std::uint64_t theObject);

    const LmLiveSurvey& mSurvey;
    const QWidget& mOwn;
    std::function<void(std::uint64_t)> mChosen;
    QPointer<QRubberBand> mFrame; // the window that it lies in may go before
    bool mIsOn = false;
    bool mIsPressed = false;
    std::uint64_t mPressed = 0; // chosen when the button is released
};

#endif
