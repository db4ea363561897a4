// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_Windows_h
#define Windows_Windows_h

#include "Base/ObjectIds.h"
#include "Controls.h"

#include <Carbon/Carbon.h>
#include <memory>
#include <string>
#include <vector>

namespace Host {

class Presenter;
class Window;
using SharedWindow = std::shared_ptr<Window>;

// The window behind a reference, or null for null, disposed and foreign references.
SharedWindow FindWindow(WindowRef theReference);
SharedWindow FindWindow(ObjectId theIdentifier);

// The identifier of a window; 0 for null, disposed and foreign references.
HOST_PUBLIC ObjectId IdentifierOf(WindowRef theReference);

// Every window, frontmost first, hidden ones included.
const std::vector<SharedWindow>& AllWindows();

// The topmost shown, expanded window whose structure holds a global point; null over the desktop.
SharedWindow WindowAt(Point theGlobalPoint);

// The window that keeps the person from acting on theWindow: one with a modal state, a modal one in front, or
// a sheet that hangs from it. Null when nothing does.
SharedWindow ModalWindowOver(const SharedWindow& theWindow);

// A person pressed on a window that another one keeps them from: that one becomes active, or asks for
// attention when it is so already.
void TurnAway(const SharedWindow& theWindow);

// What a person asks of a window. Each sends the request that the platform sends for it (kEventWindowClose,
// kEventWindowCollapse, ...) to the window first and does the work itself only when no handler took it.
// Asking for what the window's attributes do not offer does nothing. False: the window is gone, or cannot do
// it.
bool AskToClose(const SharedWindow& theWindow);
bool AskToCollapse(const SharedWindow& theWindow);
bool AskToExpand(const SharedWindow& theWindow);
bool AskToZoom(const SharedWindow& theWindow);

// A person moved or resized the window by its frame: theContent is the new content, in global coordinates.
// Sends what a drag or resize by hand sends, with the bits that say so; null or empty changes are dropped.
bool MovedByPerson(const SharedWindow& theWindow, const Rect& theContent);
bool ResizedByPerson(const SharedWindow& theWindow, const Rect& theContent);

// A person clicked on an inactive window, or the desktop made it active: brings it to front and activates it.
bool ActivatedByPerson(const SharedWindow& theWindow);

// Tells a presenter what every window and control looks like, back to front, controls after their window and
// sub-controls after their container, and where the focus is.
void ReplayWindowLooks(Presenter& thePresenter);

} // namespace Host

#endif
