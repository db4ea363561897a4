// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef UserSimulator_h
#define UserSimulator_h

#include <Carbon/Carbon.h>
#include <functional>
#include <string>

#include <Presentation/PresenterTypes.h>

// A person made of code: does to windows and controls what a person can do, for tests and scripted sessions.
//
//     Host::UserSimulator theUser;
//     theUser.DragSlider({theWindow, {'temp', 1}}, 23);
//     theUser.Click({theWindow, {'room', 1}});
//     theUser.TypeText("Kitchen\t");
//     if (const Host::UserResult theResult = theUser.Click(theButton); !theResult) {
//         std::cerr << theResult.Explain();
//     }
//
// Every action enters through the same gate as a real person's, whatever presenter is in use: the mouse or
// key event comes first, what it does by default only when no handler of the program consumed it, then the
// events that tell of the changes. When a function returns, all of that has happened.
//
// What a person could not do is refused, and nothing is sent: acting on a control that is hidden, disabled or
// covered, in a window that is hidden, collapsed or behind a modal one, or that is gone. The result then
// says why and shows the screen.
//
// Actions may be called from handlers and timers of the program too. Main thread only.

namespace Host {

// Whether the person could do it.
class HOST_PUBLIC UserResult
{
public:
    // What the actions return: it was done; it was not, for this reason, with this on the screen.
    static UserResult Done() { return {}; }
    static UserResult Refused(std::string theReason, std::string theScreen);

    // True when it was done.
    explicit operator bool() const { return mReason.empty(); }

    // Why not, in one line without a full stop; empty when it was done.
    const std::string& Reason() const { return mReason; }

    // The reason, and below it the screen as it was: what a failing test should print. Empty when it was
    // done.
    std::string Explain() const;

private:
    std::string mReason;
    std::string mScreen;
};

// A control the way a script speaks of it: by reference, or by its identifier in a window. The control is
// looked up when the action is done.
class HOST_PUBLIC ControlAddress
{
public:
    // On purpose not explicit: an address stands for the control in every action.
    ControlAddress(ControlRef theControl);
    ControlAddress(WindowRef theWindow, ControlID theID);

    // The control as it is now; null when it is not there.
    ControlRef Find() const;

    // control 'temp' 1 in the window "Thermostat"
    std::string Describe() const;

private:
    ControlRef mControl = nullptr;
    WindowRef mWindow = nullptr;
    ControlID mID = {0, 0};
};

// The person. It has no state of its own: what it holds down it lets go before a function returns, and an
// open menu is open for every other simulator too.
class HOST_PUBLIC UserSimulator
{
public:
    // Controls -----------------------------------------------------------------------------------------

    // Presses and releases the mouse in the middle of the control.
    UserResult Click(const ControlAddress& theControl, UInt32 theModifiers = 0);

    // The same on one part of it: kControlUpButtonPart of little arrows, for example.
    UserResult ClickPart(const ControlAddress& theControl, ControlPartCode thePart, UInt32 theModifiers = 0);

    // Takes the indicator of a slider or scroll bar, moves it half the way and then to theValue, and lets go.
    // The value is exact even when the control has more values than pixels. Refused when theValue is out of
    // the control's range.
    UserResult DragSlider(const ControlAddress& theAddress, SInt32 theValue);

    // Presses a control that opens a menu, a pop-up button for example, and chooses the first item with
    // this text. In every other action the person closes a menu that pops up without choosing anything.
    // Refused when no menu pops up; when the item is not in it, or is disabled, the menu was opened and
    // closed again.
    UserResult ChooseInPopUp(const ControlAddress& theAddress, const std::string& theText,
                             UInt32 theModifiers = 0);

    // Keys ---------------------------------------------------------------------------------------------

    // Presses and releases a key (kVK_Return, kVK_ANSI_K, ...), with theModifiers (shiftKey, cmdKey, ...)
    // held. The key types what it types on a US keyboard.
    UserResult PressKey(UInt32 theKey, UInt32 theModifiers = 0);

    // Types UTF-8 text key by key; '\t' is the Tab key and '\n' the Return key. A character that no key of a
    // US keyboard types arrives as a key without position (kNoKeyPosition). Refused, before anything is
    // typed, when theText is not UTF-8 or the keys go to no edit text; after a Tab they may go anywhere.
    UserResult TypeText(const std::string& theText);

    // Windows ------------------------------------------------------------------------------------------

    // Each of these takes hold of the window's frame with the mouse first; what a handler of the program does
    // with the press comes before the action, and instead of it when the handler consumed the press.

    // Clicks the close box. Refused when the window has none.
    UserResult CloseWindow(WindowRef theWindow);

    // Drags the window by its title bar until the top left of its content is at a global place. Refused when
    // it has no title bar.
    UserResult MoveWindow(WindowRef theWindow, short theLeft, short theTop);

    // Drags the corner of the window until its content has a size. Refused when it cannot be resized, or not
    // to that size.
    UserResult ResizeWindow(WindowRef theWindow, short theWidth, short theHeight);

    // Clicks the zoom box. Refused when the window has none.
    UserResult ZoomWindow(WindowRef theWindow);

    // Clicks the collapse box. Refused when the window has none, or is collapsed.
    UserResult CollapseWindow(WindowRef theWindow);

    // Brings a collapsed window back from where the desktop keeps it; there is no frame to press.
    UserResult ExpandWindow(WindowRef theWindow);

    // Clicks the title bar, which makes the window the active one. Refused when it has no title bar.
    UserResult ActivateWindow(WindowRef theWindow);

    // Files --------------------------------------------------------------------------------------------

    // Opens or prints files with the program, on the desktop: by double-click or by dropping them on it. They
    // are named by path. Refused when one is not there.
    UserResult OpenFiles(const std::vector<std::string>& theFiles);
    UserResult PrintFiles(const std::vector<std::string>& theFiles);

    // Starts the program although it runs, as a click on its icon does.
    UserResult StartAgain();

    // Menus --------------------------------------------------------------------------------------------

    // A menu is named by its title; the first of that name counts, menus of the bar before their submenus,
    // from left to right. Opening a menu makes the program bring its items up to date. A person sees that an
    // item is disabled only in the open menu: such a choice is refused after the menus on the way to it were
    // opened and closed again.

    // Opens a menu of the menu bar, or a submenu with the menus that lead to it, and leaves it open. Refused
    // when there is no such menu, a title on the way is disabled, or the program keeps a menu closed.
    UserResult OpenMenu(const std::string& theTitle);

    // Closes whatever menus are open without choosing anything. Refused when none is.
    UserResult CloseMenus();

    // Chooses the first item with a command, wherever it is under the menu bar.
    UserResult ChooseCommand(UInt32 theCommand, UInt32 theModifiers = 0);

    // Chooses the first item with this text in a menu.
    UserResult ChooseItem(const std::string& theMenu, const std::string& theText, UInt32 theModifiers = 0);

    // Looking ------------------------------------------------------------------------------------------

    // What is on the screen, as text.
    std::string DescribeScreen() const;

    // The items of a menu, one on each line, as they are now; empty for a menu that is not there.
    std::string DescribeMenu(const std::string& theTitle) const;

    // What one control shows, on one line; empty for a control that is not there.
    std::string DescribeControl(const ControlAddress& theAddress) const;

    // The help that appears when the pointer rests on a control; empty where none does, and for a control
    // that a person does not see.
    std::string DescribeHelp(const ControlAddress& theAddress) const;

    // Writes what the program has drawn into a view, or into all views of a window, as a PNG file. Refused
    // for a view that the program has not drawn, for a window that is not shown, and when the file cannot be
    // written.
    UserResult SavePicture(const ControlAddress& theAddress, const std::string& thePath) const;
    UserResult SavePicture(WindowRef theWindow, const std::string& thePath) const;

private:
    // Chooses from a menu that the press pops up.
    using Choice = std::function<MenuChoice(const PopUpLook&)>;

    UserResult PressAt(const ControlAddress& theAddress, ControlPartCode thePart, UInt32 theModifiers,
                       const Choice& theChoice = nullptr);
};

} // namespace Host

#endif
