// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtTexts_h
#define QtTexts_h

#include "QtControl.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace Host {

class QtStaticText : public QtControl
{
public:
    QtStaticText(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QLabel& mLabel;
};

// An edit text. The managers type into it; what only the widget can do (select with the mouse, paste,
// compose) it does by itself, and reports the text that comes of it.
class QtEditText : public QtControl
{
public:
    bool Suits(const ControlLook& theLook) const override;

    // Whether a look asks for more than one line.
    static bool IsTall(const ControlLook& theLook);

protected:
    using QtControl::QtControl;

    // Two positions in the text, in UTF-16 units.
    struct Selection
    {
        int theStart = 0;
        int theEnd = 0;
    };

    void ShowState(const ControlLook& theLook) override;
    void ReportEdit();

    virtual QString Text() const = 0;
    virtual Selection Selected() const = 0;
    virtual void Select(Selection theSelection) = 0;

    // Puts theText in the place of the selected part.
    virtual void Insert(const QString& theText) = 0;

private:
    void ChangeTextTo(const QString& theText);
};

class QtField : public QtEditText
{
public:
    QtField(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

    bool eventFilter(QObject* theObject, QEvent* theEvent) override;

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;
    QString Text() const override;
    Selection Selected() const override;
    void Select(Selection theSelection) override;
    void Insert(const QString& theText) override;

private:
    void ReportSelection();

    QLineEdit& mEdit;
    bool mHasLostSelection = false; // which the managers still have
};

class QtTextArea : public QtEditText
{
public:
    QtTextArea(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;
    QRect PlaceFor(const QRect& theBounds) const override;
    QString Text() const override;
    Selection Selected() const override;
    void Select(Selection theSelection) override;
    void Insert(const QString& theText) override;

private:
    void ShowAlignment(Qt::Alignment theAlignment);

    QPlainTextEdit& mEdit;
};

} // namespace Host

#endif
