// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmPersonWatch_h
#define LmPersonWatch_h

#include <Carbon/Carbon.h>

// Tells the journal what a person does: every event of mouse and keyboard, when it is dispatched. What it
// leads to is caused by it. The events go on as they are. Not part of the interface.
class [[nodiscard]] LmPersonWatch
{
public:
    LmPersonWatch();
    ~LmPersonWatch();

    LmPersonWatch(const LmPersonWatch&) = delete;
    LmPersonWatch& operator=(const LmPersonWatch&) = delete;

private:
    EventHandlerRef mHandler = nullptr;
};

#endif
