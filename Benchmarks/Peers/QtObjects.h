// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtObjects_h
#define QtObjects_h

#include <QObject>
#include <QString>

// The base of the classes with many declared properties, which share the signal of a change.
class QtKeys : public QObject
{
    Q_OBJECT
signals:
    void keyChanged();
};

// Objects with one declared property, of which each change is a signal that carries the value.
class QtInteger : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value READ Get WRITE Set NOTIFY valueChanged)
public:
    int Get() const { return mValue; }

public slots:
    void Set(int theValue)
    {
        if (mValue != theValue) {
            mValue = theValue;
            emit valueChanged(theValue);
        }
    }

signals:
    void valueChanged(int theValue);

private:
    int mValue = 0;
};

class QtNumber : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double value READ Get WRITE Set NOTIFY valueChanged)
public:
    double Get() const { return mValue; }

public slots:
    void Set(double theValue)
    {
        if (mValue != theValue) {
            mValue = theValue;
            emit valueChanged(theValue);
        }
    }

signals:
    void valueChanged(double theValue);

private:
    double mValue = 0;
};

#endif
