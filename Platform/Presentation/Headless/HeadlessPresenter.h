// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HeadlessPresenter_h
#define HeadlessPresenter_h

#include "HeadlessSnapshot.h"

#include <memory>

namespace Host {

// The presenter for machines without a screen: complete, only invisible.
//
// It remembers every look, and it answers as a desktop does: a window that is shown is confirmed as shown,
// as standing where it was put, in the size that it was given, and at last as active. The confirmations wait
// until the event loop turns, as a desktop's do, and tell of the state at that moment: a window that moved
// twice in between is confirmed once, one that is gone again not at all.
class HOST_PUBLIC HeadlessPresenter : public HeadlessSnapshot
{
public:
    static std::unique_ptr<Presenter> Make();

    bool Start(PresenterEvents& theEvents) override;
    void Stop() override;
    void WindowLooks(const WindowLook& theLook) override;
    void WindowGone(ObjectId theWindow) override;

    // Makes the confirmations that are due. True when there were any; the presenter has nothing to wait for.
    bool WaitUntil(double theDeadline, double theNow) override;

private:
    // What is still to be confirmed of a window.
    struct Confirmation
    {
        bool theIsShown = false;
        bool theIsMoved = false;
        bool theIsResized = false;
        bool theIsActivated = false;
    };

    using Confirmations = std::vector<std::pair<ObjectId, Confirmation>>;

    Confirmation& ConfirmationOf(ObjectId theWindow);
    void Confirm(ObjectId theWindow, const Confirmation& theConfirmation);
    void ConfirmActivation(ObjectId theWindow);

    PresenterEvents* mEvents = nullptr; // not owned; null while stopped
    Confirmations mConfirmations;       // in the order in which the windows first changed
};

} // namespace Host

#endif
