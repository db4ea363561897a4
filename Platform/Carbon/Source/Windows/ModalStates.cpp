// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Modal states and modal loops.

#include "ModalStates.h"

#include "Base/Guarded.h"
#include "Common/NeverDestroyed.h"
#include "Events/EventLoop.h"
#include "Menus/Menus.h"
#include "Window.h"

#include <algorithm>

namespace Host {

namespace {

// One modal state. A loop holds one for as long as it runs.
struct ModalState
{
    SharedWindow theWindow; // retained
    bool theIsLoop = false;
    bool theIsOver = false;
};
using SharedState = std::shared_ptr<ModalState>;
using States = std::vector<SharedState>;

// The newest last.
States& ModalStates()
{
    static NeverDestroyed<States> sStates;
    return sStates.Get();
}

SharedState StateOf(const SharedWindow& theWindow)
{
    const States& theStates = ModalStates();
    const auto theFound = std::find_if(theStates.begin(), theStates.end(), [&](const SharedState& theState) {
        return theState->theWindow == theWindow;
    });
    return theFound == theStates.end() ? nullptr : *theFound;
}

OSStatus Begin(const SharedWindow& theWindow, bool theIsLoop, SharedState* theState)
{
    if (theWindow == nullptr || theWindow->IsClosing()) {
        return errInvalidWindowRef;
    }
    if (StateOf(theWindow) != nullptr) {
        return windowAppModalStateAlreadyExistsErr;
    }
    SetBarHolder([] { return WindowOfModalState() != nullptr; });
    const OSStatus theStatus = Guarded([&] {
        *theState = std::make_shared<ModalState>(ModalState{theWindow, theIsLoop});
        ModalStates().push_back(*theState);
        return OSStatus{noErr};
    });
    if (theStatus == noErr) {
        theWindow->Retain();
        ++theWindow->mModalStates;
        theWindow->Show();
        if (theWindow->TakesPart()) {
            SelectWindow(theWindow->Reference());
        }
    }
    return theStatus;
}

void End(const SharedState& theState)
{
    States& theStates = ModalStates();
    theStates.erase(std::remove(theStates.begin(), theStates.end(), theState), theStates.end());
    const SharedWindow theWindow = theState->theWindow;
    --theWindow->mModalStates;
    theWindow->Show();
    theWindow->Release();
}

// A program that disposes the window in the middle of its loop has no way left to quit the loop. The state
// has one reference, and a sheet on the window another.
bool IsAbandoned(const ModalState& theState)
{
    const ItemCount theOurs = theState.theWindow->Sheet() == nullptr ? 1 : 2;
    return theState.theWindow->References() <= theOurs;
}

OSStatus RunLoop(const SharedState& theState)
{
    const LoopEnd theEnd = RunLoopUntil([&] { return theState->theIsOver || IsAbandoned(*theState); });
    switch (theEnd) {
    case LoopEnd::kDone:
        return noErr;
    case LoopEnd::kQuit:
        return eventLoopQuitErr;
    case LoopEnd::kNothingToWaitFor:
        break;
    }
    return eventLoopTimedOutErr;
}

} // namespace

SharedWindow WindowOfModalState()
{
    const States& theStates = ModalStates();
    const auto theFound = std::find_if(theStates.rbegin(), theStates.rend(), [](const SharedState& theState) {
        return theState->theWindow->TakesPart();
    });
    return theFound == theStates.rend() ? nullptr : (*theFound)->theWindow;
}

} // namespace Host

using namespace Host;

OSStatus BeginAppModalStateForWindow(WindowRef inWindow)
{
    SharedState theState;
    return Begin(Host::FindWindow(inWindow), false, &theState);
}

OSStatus EndAppModalStateForWindow(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    const SharedState theState = StateOf(theWindow);
    if (theState == nullptr || theState->theIsLoop) {
        return windowNoAppModalStateErr;
    }
    End(theState);
    return noErr;
}

OSStatus RunAppModalLoopForWindow(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow != nullptr && !theWindow->IsVisible()) {
        return windowWrongStateErr;
    }
    SharedState theState;
    const OSStatus theBegun = Begin(theWindow, true, &theState);
    if (theBegun != noErr) {
        return theBegun;
    }
    const OSStatus theStatus = RunLoop(theState);
    End(theState);
    return theStatus;
}

OSStatus QuitAppModalLoopForWindow(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    const SharedState theState = StateOf(theWindow);
    if (theState == nullptr || !theState->theIsLoop) {
        return windowNoAppModalStateErr;
    }
    theState->theIsOver = true;
    WakeEventLoop();
    return noErr;
}
