// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtSettings_h
#define QtSettings_h

#include <QObject>
#include <QString>

// A key of the model as a program for Qt writes it: an object with a signal.

class NumberSetting : public QObject
{
    Q_OBJECT

public:
    int Value() const { return mValue; }

    void SetValue(int theValue)
    {
        if (theValue != mValue) {
            mValue = theValue;
            emit ValueChanged(theValue);
        }
    }

signals:
    void ValueChanged(int theValue);

private:
    int mValue = 0;
};

class TextSetting : public QObject
{
    Q_OBJECT

public:
    const QString& Text() const { return mText; }

    void SetText(const QString& theText)
    {
        if (theText != mText) {
            mText = theText;
            emit TextChanged(theText);
        }
    }

signals:
    void TextChanged(const QString& theText);

private:
    QString mText;
};

#endif
