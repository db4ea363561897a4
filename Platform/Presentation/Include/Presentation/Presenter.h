// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Presenter_h
#define Presenter_h

#include <Presentation/PresenterTypes.h>

namespace Host {

class PresenterEvents;

// Shows the program to a person: the one way from the managers to the screen.
//
// The managers hold the truth about every window, control and menu; a presenter shows what it is told
// and holds no truth of its own. It can be stopped at any moment and another one started: the managers
// then describe everything again, and the picture is the same. What the person does goes the other way,
// through PresenterEvents, and through nothing else.
//
// Every intention has a working default here, so a caller never asks whether a presenter can do something,
// and a new presenter can begin with three functions (WindowLooks, ControlLooks, WaitUntil):
//
//     class LoudPresenter : public Host::Presenter
//     {
//     public:
//         void WindowLooks(const Host::WindowLook& theLook) override { std::puts(theLook.theTitle.c_str()); }
//     };
//
// Rules for every call:
// - Main thread only, except Wake.
// - A look replaces what was said before about the same identifier; the first look of an identifier brings
//   the thing into being. The look of a window comes before those of its controls, that of a control before
//   those of the controls in it.
// - A presenter never calls its PresenterEvents from inside one of these calls, except from WaitUntil and
//   RunPopUp: the managers are in the middle of a change. It keeps the report and makes it from WaitUntil.
// - References are valid during the call only. Nothing throws.
// - Looks may repeat what is shown already; that must be cheap and must report nothing.
class HOST_PUBLIC Presenter
{
public:
    Presenter() = default;
    virtual ~Presenter();
    Presenter(const Presenter&) = delete;
    Presenter& operator=(const Presenter&) = delete;

    // Life ---------------------------------------------------------------------------------------------

    // Begins. theEvents outlives the time until Stop; what the person does is reported to it. Returns false
    // when the screen is not to be had (no display, say); the presenter must then not be used further.
    virtual bool Start(PresenterEvents& theEvents);

    // Why Start has returned false, for a person to read: "there is no display". Empty by default.
    virtual std::string Complaint() const;

    // Takes everything off the screen and forgets every look. Reports nothing from now on. May be followed
    // by another Start.
    virtual void Stop();

    // What there is ------------------------------------------------------------------------------------

    // At least one screen; the first has the menu bar. The default: one screen of 1024 by 768 pixels whose
    // top 22 belong to the menu bar.
    virtual std::vector<ScreenLook> Screens() const;

    // The size of one line of text. The default answers as a font of fixed width would, the same on every
    // machine: 7 by 16 pixels for each code point (6 by 13 for kSmall).
    virtual PixelSize MeasureText(const std::string& theText, TextStyle theStyle) const;

    // How many pixels of the screen, in one direction, are one of a window: what programs draw is drawn as
    // fine. Always 1 by default.
    virtual int ScaleOf(ObjectId theWindow) const;

    // What it looks like -------------------------------------------------------------------------------

    // The window now looks like this. A change of the order of windows arrives as one look for each window
    // whose place changed.
    virtual void WindowLooks(const WindowLook& theLook);

    // The window does not exist any more, nor does any control in it. An identifier never seen is ignored.
    virtual void WindowGone(ObjectId theWindow);

    virtual void ControlLooks(const ControlLook& theLook);

    // The control does not exist any more; each control in it is named in a call of its own.
    virtual void ControlGone(ObjectId theControl);

    // The menu bar, menus and items and all.
    virtual void MenuBarLooks(const MenuBarLook& theLook);

    // Keys go to this control of this window; either may be kNoObject.
    virtual void FocusIsAt(ObjectId theWindow, ObjectId theControl);

    // Shows a menu by itself and returns when the person has chosen. The default chooses nothing.
    virtual MenuChoice RunPopUp(const PopUpLook& theLook);

    // What the pointer looks like from now on. The managers say by themselves when it moves after it was
    // obscured.
    virtual void PointerLooks(const PointerLook& theLook);

    // Asks for the person's attention, once, by a sound.
    virtual void Beep();

    // The clipboard ------------------------------------------------------------------------------------

    // What was cut or copied last, and what is from now on; lines end with a line feed. The default keeps it
    // for this program, whichever presenter is in use.
    virtual std::string ClipboardText() const;
    virtual void SetClipboardText(const std::string& theText);

    // Waiting ------------------------------------------------------------------------------------------

    // Called by the event loop when it has nothing to do. Reports what the person did meanwhile through
    // PresenterEvents; if there is nothing yet, waits until there is, until theDeadline or until Wake,
    // whichever comes first, and returns after reporting at least once. Both times are seconds of the same
    // clock; a negative theDeadline means no deadline, and one that is not after theNow means: look, do not
    // wait.
    //
    // Returns false when this presenter has no source of its own that could be waited for, and has nothing
    // left to report: the event loop then waits by itself. The default does so.
    virtual bool WaitUntil(double theDeadline, double theNow);

    // Ends a wait that is going on, or the next one if none is. The only call that may come from another
    // thread. The default does nothing, as there is nothing to wake.
    virtual void Wake();
};

} // namespace Host

#endif
