// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmPersonWatch_h
#define LmPersonWatch_h

#include <Carbon/Carbon.h>

#include <string>

// Tells the journal what a person does: every event of mouse and keyboard, when it is dispatched, and where
// the host tells of them, choices from menus and what is done to windows by their frames. What it leads to is
// caused by it. The events go on as they are. Not part of the interface.
class [[nodiscard]] LmPersonWatch
{
public:
    LmPersonWatch();
    ~LmPersonWatch();

    LmPersonWatch(const LmPersonWatch&) = delete;
    LmPersonWatch& operator=(const LmPersonWatch&) = delete;

private:
    EventHandlerRef mHandler = nullptr;
    EventHandlerRef mOtherHandler = nullptr; // of what comes neither by mouse nor by keyboard
};

// What an action was done to, as a person knows it: the text of the menu's item, the title of the menu or of
// the window. Empty where it has no such. Throws when there is no memory.
std::string LmTitleOfAction(EventRef theAction);

#endif
