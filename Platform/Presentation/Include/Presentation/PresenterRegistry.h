// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PresenterRegistry_h
#define PresenterRegistry_h

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <Presentation/PresentedProgram.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterEvents.h>

namespace Host {

using PresenterFactory = std::unique_ptr<Presenter> (*)();

// Knows the presenters that the program is linked with and the one that is in use.
//
// The environment variable LM_PRESENTER chooses by name. When it is absent or empty, the preferred presenter
// is used, which a library for the desktop brings along by being linked; without one, "headless". The choice
// is made when something is shown for the first time. A name that is not known, or a presenter that cannot
// start, ends the program with status 1 after one line on the standard error stream:
//
//     LM_PRESENTER: no presenter is called "qt"; there are: headless
//     No windows can be shown: there is no display; LM_PRESENTER=headless runs the program without
//
// On purpose: another presenter is never taken instead. A person who expects windows and sees none should not
// have to guess why, and a program that waits for nobody in memory is hard to find.
class HOST_PUBLIC PresenterRegistry
{
public:
    // Adds a presenter under a name, or replaces the one of that name. A library that brings a presenter
    // calls this before anything is shown.
    static void Register(const std::string& theName, PresenterFactory theFactory);

    // The same, and takes it from now on where LM_PRESENTER does not choose. Of several, the last is
    // preferred.
    static void RegisterPreferred(const std::string& theName, PresenterFactory theFactory);

    // Names the program that is shown, for good: the managers call this when they are loaded, before anything
    // else is asked of the registry.
    static void Present(PresentedProgram& theProgram);

    // The names that can be chosen, in alphabetical order.
    static std::vector<std::string> Names();

    // The presenter in use, started. The managers call this each time they have something to tell.
    static Presenter& Current();

    // The gate that the presenter in use reports to. Simulated people use it too.
    static PresenterEvents& Events();

    // Starts theNext, stops the presenter in use, if any, and shows everything again. Returns false, and
    // leaves the old one in use, when theNext is null or does not start. May be called from handlers, even
    // while the old presenter waits or reports; it is kept, stopped, as long as the program runs.
    static bool Use(std::unique_ptr<Presenter> theNext);

    // PresentedProgram::ReplayLooks of the program.
    static void ReplayLooks(Presenter& thePresenter);

    // Shows a menu by itself: to a simulated person while one acts, else with the presenter in use.
    static MenuChoice RunPopUp(const PopUpLook& theLook);

    PresenterRegistry() = delete;
};

// As long as one lives, it answers for menus that pop up, whatever presenter is in use: a simulated person
// has no mouse to go into a menu with. Of several the youngest answers. It chooses nothing where the
// function is empty.
class HOST_PUBLIC PopUpAnswer
{
public:
    using Function = std::function<MenuChoice(const PopUpLook&)>;

    explicit PopUpAnswer(Function theFunction = nullptr);
    ~PopUpAnswer();
    PopUpAnswer(const PopUpAnswer&) = delete;
    PopUpAnswer& operator=(const PopUpAnswer&) = delete;

private:
    friend class PresenterRegistry;

    Function mFunction;
    PopUpAnswer* mOlder; // not owned
};

} // namespace Host

#endif
