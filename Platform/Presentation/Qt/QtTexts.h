// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtTexts_h
#define QtTexts_h

#include "QtControl.h"

#include <QAction>
#include <QComboBox>
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
    // With a widget that has the field in it.
    QtField(const ControlLook& theLook, QtInput& theInput, QWidget* theWidget, QLineEdit& theEdit);
    QtField(const ControlLook& theLook, QtInput& theInput, QLineEdit* theEdit);

    // Reports a press of a part that the widget has drawn in a place of its own.
    void ReportPart(ControlPart thePart);

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

// The desktop's combo box. The list that it shows is a menu of the managers.
class QtComboBox : public QtField
{
public:
    QtComboBox(const ControlLook& theLook, QtInput& theInput, QComboBox* theBox);
    QtComboBox(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);
};

// A field with a glass before the text and a button behind it.
class QtSearchField : public QtField
{
public:
    QtSearchField(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    QAction* AddButton(QLineEdit::ActionPosition thePosition, ControlPart thePart);

    QLineEdit& mField;
    QAction* mGlass;
    QAction* mCancelButton;
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
