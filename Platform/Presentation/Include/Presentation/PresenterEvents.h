// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PresenterEvents_h
#define PresenterEvents_h

#include <Presentation/PresenterTypes.h>

namespace Host {

// What a person did: the one way from the screen, or from a simulated person, to the managers.
//
// A presenter is given the gate when it starts and reports to it from inside its WaitUntil or RunPopUp.
// Each call delivers its events before it returns, the whole way: first the mouse or key event, to the
// handlers of the program; then, if none of them consumed it, the default action; then the events that
// tell of the changes.
//
// What changes nothing is dropped here: an identifier that does not exist (any more), an action on a window
// that is hidden or behind a modal one, the echo of a change that the managers made themselves (a desktop
// confirms every move and every activation), a release without a press. A presenter need not find out
// whether its report is news.
//
// Every call returns whether anything was delivered; false means that it was dropped. During a call handlers
// of the program run: windows and controls may change, appear and go, and the presenter is told so.
// Main thread only.
class HOST_PUBLIC PresenterEvents
{
public:
    PresenterEvents() = default;
    virtual ~PresenterEvents();
    PresenterEvents(const PresenterEvents&) = delete;
    PresenterEvents& operator=(const PresenterEvents&) = delete;

    // Pointer. Moves between a press and its release are drags; they and the release belong to the window
    // that was pressed, wherever the pointer is. Unless a handler consumed it, a press makes its window
    // active.
    virtual bool PointerPressed(const PointerAction& theAction) = 0;
    virtual bool PointerMoved(const PointerAction& theAction) = 0;
    virtual bool PointerReleased(const PointerAction& theAction) = 0;
    virtual bool WheelTurned(const WheelAction& theAction) = 0;

    // Keys go to the focused control. A key with the command key held is first looked up in the menus.
    virtual bool KeyPressed(const KeyAction& theAction) = 0;
    virtual bool KeyRepeated(const KeyAction& theAction) = 0;
    virtual bool KeyReleased(const KeyAction& theAction) = 0;
    virtual bool ModifiersChanged(std::uint32_t theModifiers) = 0;

    // Whether somebody wanted the key or the turn of the wheel that was reported last: a handler of the
    // program, a menu, or the managers by default. What nobody wanted a presenter may give to its own widget.
    // False when the report was dropped, and for a gate that does not know.
    virtual bool WasTaken() const;

    // Controls that the presenter tracks itself. A drag has one kBegan, any number of kMoved and one kEnded.
    virtual bool ControlDragged(const ControlDrag& theDrag) = 0;

    // The primary button on a part that the presenter has drawn elsewhere than where the managers think that
    // it is. The default drops it.
    virtual bool PartPressed(const PartPress& thePress);

    // An edit made other than by keys: pasted, dropped, composed by an input method.
    virtual bool TextEdited(const TextEdit& theEdit) = 0;

    // Windows. "Asked" are requests that the program may refuse; the others tell what the desktop has done.
    virtual bool CloseAsked(ObjectId theWindow) = 0;
    virtual bool ZoomAsked(ObjectId theWindow) = 0;
    virtual bool CollapseAsked(ObjectId theWindow, bool theIsCollapse) = 0;
    virtual bool WindowShown(ObjectId theWindow) = 0;
    virtual bool WindowMoved(ObjectId theWindow, PixelPoint theContentTopLeft) = 0;
    virtual bool WindowResized(ObjectId theWindow, PixelSize theContentSize) = 0;

    // The window is the active one now. That a window of another application is (kNoObject) is dropped: the
    // program's windows keep their state meanwhile.
    virtual bool WindowActivated(ObjectId theWindow) = 0;

    // Menus. A menu is opened (its items are brought up to date first); then an item of it is chosen, which
    // closes whatever menus are open before the command is sent, or it is closed without a choice. A choice
    // from a menu that is not open is good too: desktops with a menu bar of their own, and toolkits that
    // close the menu before they tell of the choice, report it so.
    virtual bool MenuOpened(ObjectId theMenu) = 0;
    virtual bool MenuChosen(const MenuChoice& theChoice, std::uint32_t theModifiers) = 0;
    virtual bool MenuClosed(ObjectId theMenu) = 0;

    // The desktop asks the application to open or print files, which are named by path or by a file URL, or
    // to come to the front again, as when it is started once more. Dropped when no file is there; the
    // defaults drop everything.
    virtual bool OpenAsked(const std::vector<std::string>& theFiles);
    virtual bool PrintAsked(const std::vector<std::string>& theFiles);
    virtual bool ReopenAsked();

    // The desktop asks the application to quit; it reaches the application as the quit command does.
    virtual bool QuitAsked() = 0;

    // Time. Calls the program's timers that are due and returns how many seconds remain until the next is,
    // or a negative number when none is running. Only for RunPopUp, which waits in a loop of its own: whoever
    // calls WaitUntil sees to the timers himself. The default has none.
    virtual double FireTimers();
};

} // namespace Host

#endif
