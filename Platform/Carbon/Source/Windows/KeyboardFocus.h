// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_KeyboardFocus_h
#define Windows_KeyboardFocus_h

#include "Control.h"

namespace Host {

bool IsFullKeyboardAccessOn();

// The control of the window that keys go to, or null.
SharedControl FocusedControl(const Window& theWindow);

// Moves the focus of a window, to nobody for a null control. errCouldntSetFocus when the control or a handler
// refuses.
OSErr MoveFocus(const SharedWindow& theWindow, const SharedControl& theControl, ControlPartCode thePart);
OSErr AdvanceFocus(const SharedWindow& theWindow, bool theIsBackward);

// The order of the Tab key: from top to bottom, and from left to right.
void SortByPlace(std::vector<SharedControl>* theControls);

// Gives the focus of the window that keys go to, where neither program nor person has chosen it yet, to the
// first control. Called before a person could press a key. False when it gave none.
bool GiveFirstFocus();

// Takes the focus away if it is at a control or inside of it; in the second form, the focus of a window that
// may be another than the control's. A handler may give it back as long as the control can have it.
void ReleaseFocusInside(const Control& theControl);
void ReleaseFocusInside(const SharedWindow& theWindow, const Control& theControl);

// What a press of the mouse on a control does to the focus: a control that gets it on a click takes it.
void FocusByClick(const SharedControl& theControl);

// What a key does that no handler wanted, first in the control that has the focus, then in its window.
// theEvent is the text input event that the press was turned into, or any other event, which they leave
// alone; only keys with the command key are taken from the key event itself.
OSStatus PressKeyInControl(Control& theControl, EventRef theEvent);
OSStatus PressKeyInWindow(const SharedWindow& theWindow, EventRef theEvent);

// Whether PressKeyInControl does anything with events of a class.
bool ConcernsControl(OSType theClass);

// Makes this module answer the Event Manager's question for the user focus target.
void AnswerForUserFocus();

// The window that keys go to may have changed: tells it, the one before and the presenter if so. Called after
// a window was activated, or came to the screen or left it.
void UpdateUserFocus();
SharedWindow UserFocusWindow();

// A person chose a window: what SetUserFocusWindow chose is over.
void ForgetChosenUserFocus();

// Tells the presenter where the focus is.
void ShowFocus();

} // namespace Host

#endif
