// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HeadlessPresenter.h"

#include <Presentation/PresenterEvents.h>

#include <algorithm>

namespace Host {

namespace {

bool IsOnScreen(const WindowLook* theLook)
{
    return theLook != nullptr && theLook->theIsVisible && !theLook->theIsCollapsed;
}

PixelPoint TopLeftOf(const PixelRect& theRect)
{
    return {theRect.theLeft, theRect.theTop};
}

PixelSize SizeOf(const PixelRect& theRect)
{
    return {theRect.theRight - theRect.theLeft, theRect.theBottom - theRect.theTop};
}

} // namespace

std::unique_ptr<Presenter> HeadlessPresenter::Make()
{
    return std::make_unique<HeadlessPresenter>();
}

bool HeadlessPresenter::Start(PresenterEvents& theEvents)
{
    mEvents = &theEvents;
    return true;
}

void HeadlessPresenter::Stop()
{
    mEvents = nullptr;
    mConfirmations.clear();
    HeadlessSnapshot::Stop();
}

void HeadlessPresenter::WindowLooks(const WindowLook& theLook)
{
    const WindowLook* theOld = FindWindow(theLook.theId);
    if (IsOnScreen(&theLook)) {
        const bool theIsNew = !IsOnScreen(theOld);
        const bool theIsMoved = theIsNew || TopLeftOf(theOld->theContent) != TopLeftOf(theLook.theContent);
        const bool theIsResized = theIsNew || !(SizeOf(theOld->theContent) == SizeOf(theLook.theContent));
        const bool theIsActivated = theLook.theIsActive && (theIsNew || !theOld->theIsActive);
        if (theIsMoved || theIsResized || theIsActivated) {
            Confirmation& theConfirmation = ConfirmationOf(theLook.theId);
            theConfirmation.theIsShown |= theIsNew;
            theConfirmation.theIsMoved |= theIsMoved;
            theConfirmation.theIsResized |= theIsResized;
            theConfirmation.theIsActivated |= theIsActivated;
        }
    }
    HeadlessSnapshot::WindowLooks(theLook);
}

void HeadlessPresenter::WindowGone(ObjectId theWindow)
{
    const auto theIsOfWindow = [theWindow](const auto& theEntry) { return theEntry.first == theWindow; };
    mConfirmations.erase(std::remove_if(mConfirmations.begin(), mConfirmations.end(), theIsOfWindow),
                         mConfirmations.end());
    HeadlessSnapshot::WindowGone(theWindow);
}

bool HeadlessPresenter::WaitUntil(double, double)
{
    // Handlers that run now may show more windows; those are confirmed the next time.
    Confirmations theDue;
    theDue.swap(mConfirmations);
    for (const auto& theEntry : theDue) {
        Confirm(theEntry.first, theEntry.second);
    }
    // A desktop settles who is active after it has placed the windows.
    for (const auto& theEntry : theDue) {
        if (theEntry.second.theIsActivated) {
            ConfirmActivation(theEntry.first);
        }
    }
    return !theDue.empty();
}

HeadlessPresenter::Confirmation& HeadlessPresenter::ConfirmationOf(ObjectId theWindow)
{
    for (auto& theEntry : mConfirmations) {
        if (theEntry.first == theWindow) {
            return theEntry.second;
        }
    }
    mConfirmations.push_back({theWindow, {}});
    return mConfirmations.back().second;
}

// Each step asks anew what the window looks like and whether there still is a gate: what was confirmed before
// may have moved, hidden or disposed it, or stopped the presenter.
void HeadlessPresenter::Confirm(ObjectId theWindow, const Confirmation& theConfirmation)
{
    if (theConfirmation.theIsShown && mEvents != nullptr && IsOnScreen(FindWindow(theWindow))) {
        mEvents->WindowShown(theWindow);
    }
    if (theConfirmation.theIsMoved && mEvents != nullptr && IsOnScreen(FindWindow(theWindow))) {
        mEvents->WindowMoved(theWindow, TopLeftOf(FindWindow(theWindow)->theContent));
    }
    if (theConfirmation.theIsResized && mEvents != nullptr && IsOnScreen(FindWindow(theWindow))) {
        mEvents->WindowResized(theWindow, SizeOf(FindWindow(theWindow)->theContent));
    }
}

void HeadlessPresenter::ConfirmActivation(ObjectId theWindow)
{
    const WindowLook* theLook = FindWindow(theWindow);
    if (mEvents != nullptr && IsOnScreen(theLook) && theLook->theIsActive) {
        mEvents->WindowActivated(theWindow);
    }
}

} // namespace Host
