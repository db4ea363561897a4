// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Alerts_AlertLayout_h
#define Alerts_AlertLayout_h

#include "Base/Text.h"

#include <array>
#include <Carbon/Carbon.h>

namespace Host {

// What an alert says and offers. The buttons are the default, the cancel and the other one, and the help
// button; an empty title stands for no such button.
constexpr size_t kButtonCount = 4;

struct AlertTexts
{
    Text theMessage;
    Text theExplanation; // empty for none
    std::array<Text, kButtonCount> theButtons;
};

// Where everything is, in the content of the alert's window.
struct AlertLayout
{
    Rect theContent = {0, 0, 0, 0};
    Rect theMessage = {0, 0, 0, 0};
    Rect theExplanation = {0, 0, 0, 0}; // empty for none
    std::array<Rect, kButtonCount> theButtons = {};
};

// The texts one below the other, as many lines high as they need; the buttons in a row below, from the right:
// default, cancel; and from the left: help, other. As wide as the buttons need.
AlertLayout LayOutAlert(const AlertTexts& theTexts);

} // namespace Host

#endif
