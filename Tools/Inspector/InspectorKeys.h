// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef InspectorKeys_h
#define InspectorKeys_h

#include <QObject>
#include <QPointer>

class InspectorWindow;

// Opens the inspector's window when a person presses Ctrl+Shift+I in any window of the program, and closes it
// with the same keys. The program hears nothing of them.
class InspectorKeys : public QObject
{
public:
    InspectorKeys() = default;
    ~InspectorKeys() override;
    InspectorKeys(const InspectorKeys&) = delete;
    InspectorKeys& operator=(const InspectorKeys&) = delete;

    bool eventFilter(QObject* theObject, QEvent* theEvent) override;

private:
    void Toggle();

    QPointer<InspectorWindow> mWindow;
    bool mIsDown = false; // the release of the key is kept from the program as well
};

#endif
