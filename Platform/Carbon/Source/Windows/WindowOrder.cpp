// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The order of windows from front to back, and which of them are active.

#include "Base/Geometry.h"
#include "Common/NeverDestroyed.h"
#include "Events/OutgoingEvent.h"
#include "KeyboardFocus.h"
#include "Window.h"

#include <algorithm>

namespace Host {

namespace {

using Windows = std::vector<SharedWindow>;

Windows& Order()
{
    static NeverDestroyed<Windows> sOrder;
    return sOrder.Get();
}

size_t FindInOrder(const Window& theWindow)
{
    const Windows& theOrder = Order();
    return static_cast<size_t>(std::find_if(theOrder.begin(), theOrder.end(),
                                            [&](const auto& theOne) { return theOne.get() == &theWindow; }) -
                               theOrder.begin());
}

size_t FrontOfLayer(int theLayer)
{
    const Windows& theOrder = Order();
    return static_cast<size_t>(
        std::find_if(theOrder.begin(), theOrder.end(),
                     [&](const auto& theOne) { return theOne->Traits().theLayer <= theLayer; }) -
        theOrder.begin());
}

// The windows from theFirst place to before theEnd get a new look: theirs are the places that have changed.
void ShowFrom(size_t theFirst, size_t theEnd)
{
    for (size_t theIndex = theFirst; theIndex < theEnd; ++theIndex) {
        Order()[theIndex]->Show();
    }
}

void InsertAt(size_t theIndex, const SharedWindow& theWindow)
{
    Windows& theOrder = Order();
    theOrder.insert(theOrder.begin() + static_cast<std::ptrdiff_t>(theIndex), theWindow);
    ShowFrom(theIndex, theOrder.size());
}

void MoveInOrder(size_t theOldIndex, size_t theNewIndex)
{
    const auto theFirst = Order().begin();
    const auto theOld = theFirst + static_cast<std::ptrdiff_t>(theOldIndex);
    const auto theNew = theFirst + static_cast<std::ptrdiff_t>(theNewIndex);
    if (theOldIndex < theNewIndex) {
        std::rotate(theOld, theOld + 1, theNew + 1);
    } else {
        std::rotate(theNew, theOld, theOld + 1);
    }
    if (theOldIndex != theNewIndex) {
        ShowFrom(std::min(theOldIndex, theNewIndex), std::max(theOldIndex, theNewIndex) + 1);
    }
}

// theIndex counts the window itself where it stands before.
void Reorder(const SharedWindow& theWindow, size_t theIndex)
{
    const size_t theOldIndex = FindInOrder(*theWindow);
    if (theOldIndex == Order().size()) {
        InsertAt(theIndex, theWindow);
    } else {
        MoveInOrder(theOldIndex, theOldIndex < theIndex ? theIndex - 1 : theIndex);
    }
}

bool CanBeActive(const Window& theWindow)
{
    return theWindow.Traits().theSharesActivity && theWindow.TakesPart() && !theWindow.IsClosing() &&
           !theWindow.Has(kWindowNoActivatesAttribute);
}

SharedWindow FirstThatCanBeActive()
{
    for (const SharedWindow& theWindow : Order()) {
        if (CanBeActive(*theWindow)) {
            return theWindow;
        }
    }
    return nullptr;
}

EventRef TakePostedActivation()
{
    const EventTypeSpec theType = {kEventClassApplication, kEventAppActiveWindowChanged};
    EventQueueRef theQueue = GetMainEventQueue();
    EventRef thePosted = AcquireFirstMatchingEventInQueue(theQueue, 1, &theType, kEventQueueOptionsNone);
    if (thePosted != nullptr) {
        RemoveEventFromQueue(theQueue, thePosted);
    }
    return thePosted;
}

// Only the net change waits in the queue: a change that is still waiting there is continued.
void PostActivation(WindowRef thePrevious, WindowRef theCurrent)
{
    if (EventRef thePosted = TakePostedActivation()) {
        ReadParameter(thePosted, kEventParamPreviousWindow, typeWindowRef, &thePrevious);
        ReleaseEvent(thePosted);
    }
    if (thePrevious == theCurrent) {
        return;
    }
    OutgoingEvent theEvent(kEventClassApplication, kEventAppActiveWindowChanged);
    theEvent.Set(kEventParamPreviousWindow, typeWindowRef, thePrevious);
    theEvent.Set(kEventParamCurrentWindow, typeWindowRef, theCurrent);
    PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
}

WindowRef ReferenceOf(const SharedWindow& theWindow)
{
    return theWindow == nullptr ? nullptr : theWindow->Reference();
}

} // namespace

const std::vector<SharedWindow>& AllWindows()
{
    return Order();
}

void AddToOrder(const SharedWindow& theWindow)
{
    Reorder(theWindow, FrontOfLayer(theWindow->Traits().theLayer));
}

void RemoveFromOrder(const SharedWindow& theWindow)
{
    Windows& theOrder = Order();
    const size_t theIndex = FindInOrder(*theWindow);
    if (theIndex < theOrder.size()) {
        theOrder.erase(theOrder.begin() + static_cast<std::ptrdiff_t>(theIndex));
        ShowFrom(theIndex, theOrder.size());
    }
}

void PutInFront(const SharedWindow& theWindow)
{
    if (FindInOrder(*theWindow) != FrontOfLayer(theWindow->Traits().theLayer)) {
        AddToOrder(theWindow);
    }
}

void PutBehind(const SharedWindow& theWindow, const SharedWindow& theFront)
{
    const int theLayer = theWindow->Traits().theLayer;
    const size_t theLast = FrontOfLayer(theLayer - 1);
    size_t theIndex = theFront == nullptr ? theLast : FindInOrder(*theFront) + 1;
    theIndex = std::clamp(theIndex, FrontOfLayer(theLayer), theLast);
    Reorder(theWindow, theIndex);
}

int IndexInOrder(const Window& theWindow)
{
    return static_cast<int>(FindInOrder(theWindow));
}

// Activation ---------------------------------------------------------------------------------------------

SharedWindow ActiveWindow()
{
    for (const SharedWindow& theWindow : Order()) {
        if (theWindow->Traits().theSharesActivity && theWindow->IsActive()) {
            return theWindow;
        }
    }
    return nullptr;
}

void MakeActive(const SharedWindow& theWindow)
{
    const SharedWindow theOld = ActiveWindow();
    if (theOld == theWindow) {
        return;
    }
    if (theOld != nullptr) {
        theOld->SetActive(false);
    }
    // A handler may have hidden the window, or made another one active, which then stays.
    if (theWindow != nullptr && CanBeActive(*theWindow) && ActiveWindow() == nullptr) {
        theWindow->SetActive(true);
    }
    UpdateUserFocus();
    PostActivation(ReferenceOf(theOld), ReferenceOf(ActiveWindow()));
}

void ActivateAfterShowing(const SharedWindow& theWindow)
{
    if (!theWindow->TakesPart()) {
        return;
    }
    if (theWindow->Traits().theIsAlwaysActive) {
        theWindow->SetActive(true);
    } else if (ActiveWindow() == nullptr || FirstThatCanBeActive() == theWindow) {
        MakeActive(FirstThatCanBeActive());
    }
}

void ActivateAfterHiding(const SharedWindow& theWindow)
{
    if (!theWindow->IsActive() || (theWindow->TakesPart() && !theWindow->IsClosing())) {
        return;
    }
    if (theWindow->Traits().theIsAlwaysActive) {
        theWindow->SetActive(false);
    } else {
        MakeActive(FirstThatCanBeActive());
    }
}

void ActivateAfterReordering()
{
    MakeActive(FirstThatCanBeActive());
}

} // namespace Host
