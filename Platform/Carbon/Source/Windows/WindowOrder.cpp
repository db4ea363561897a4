// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The order of windows from front to back, and which of them are active.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
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

// The place of the first window, from the front, for which theTest holds of its layer.
template <class Test>
size_t FirstInLayers(Test theTest)
{
    const Windows& theOrder = Order();
    return static_cast<size_t>(std::find_if(theOrder.begin(), theOrder.end(),
                                            [&](const auto& theOne) { return theTest(theOne->Layer()); }) -
                               theOrder.begin());
}

size_t FrontOfLayer(SInt32 theLayer)
{
    return FirstInLayers([=](SInt32 theOther) { return theOther <= theLayer; });
}

size_t EndOfLayer(SInt32 theLayer)
{
    return FirstInLayers([=](SInt32 theOther) { return theOther < theLayer; });
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

// Puts the others of the window's group right behind it.
void PutGroupBehind(const SharedWindow& theWindow)
{
    // A copy, whose order stays. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const Windows theOrder = Order();
    SharedWindow theLast = theWindow;
    for (const SharedWindow& theOther : theOrder) {
        if (theOther != theWindow && theOther->Group() == theWindow->Group() &&
            theOther->Parent() == nullptr) {
            Reorder(theOther, FindInOrder(*theLast) + 1);
            PutSheetsInFrontOf(theOther);
            theLast = theOther;
        }
    }
}

// The others of a group whose windows keep together come to front with the window. Without memory they stay.
void BringGroup(const SharedWindow& theWindow)
{
    if (theWindow->Group()->Is(kWindowGroupAttrLayerTogether)) {
        Guarded([&] {
            PutGroupBehind(theWindow);
            return OSStatus{noErr};
        });
    }
}

// Where the window stands, with the sheets in front of it.
size_t FrontPlaceOf(const SharedWindow& theBase)
{
    return FindInOrder(*TopSheetOf(theBase));
}

bool CanBeActive(const Window& theWindow)
{
    return theWindow.SharesActivity() && theWindow.TakesPart() && !theWindow.IsClosing() &&
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
    Reorder(theWindow, FrontOfLayer(theWindow->Layer()));
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
    const SharedWindow theBase = BaseOf(theWindow);
    if (FrontPlaceOf(theBase) != FrontOfLayer(theBase->Layer())) {
        AddToOrder(theBase);
        PutSheetsInFrontOf(theBase);
    }
    BringGroup(theBase);
}

void PutBehind(const SharedWindow& theWindow, const SharedWindow& theFront)
{
    const SharedWindow theBase = BaseOf(theWindow);
    const size_t theLast = EndOfLayer(theBase->Layer());
    size_t theIndex = theFront == nullptr ? theLast : FindInOrder(*theFront) + 1;
    theIndex = std::clamp(theIndex, FrontOfLayer(theBase->Layer()), theLast);
    Reorder(theBase, theIndex);
    PutSheetsInFrontOf(theBase);
}

void PutSheetsInFrontOf(const SharedWindow& theBase)
{
    SharedWindow theParent = theBase;
    for (SharedWindow theSheet = theBase->Sheet(); theSheet != nullptr; theSheet = theSheet->Sheet()) {
        const size_t theIndex = FindInOrder(*theParent);
        if (theIndex == 0 || Order()[theIndex - 1] != theSheet) {
            Reorder(theSheet, theIndex);
        }
        theParent = theSheet;
    }
}

void PutIntoLayer(const SharedWindow& theWindow, bool theIsFront)
{
    RemoveFromOrder(theWindow);
    Reorder(theWindow, theIsFront ? FrontOfLayer(theWindow->Layer()) : EndOfLayer(theWindow->Layer()));
    PutSheetsInFrontOf(BaseOf(theWindow));
}

SharedWindow BaseOf(const SharedWindow& theWindow)
{
    SharedWindow theBase = theWindow;
    while (theBase->Parent() != nullptr) {
        theBase = theBase->Parent();
    }
    return theBase;
}

SharedWindow TopSheetOf(const SharedWindow& theWindow)
{
    SharedWindow theTop = theWindow;
    for (SharedWindow theSheet = theTop->Sheet(); theSheet != nullptr; theSheet = theTop->Sheet()) {
        theTop = theSheet;
    }
    return theTop;
}

int IndexInOrder(const Window& theWindow)
{
    return static_cast<int>(FindInOrder(theWindow));
}

// Activation ---------------------------------------------------------------------------------------------

SharedWindow ActiveWindow()
{
    for (const SharedWindow& theWindow : Order()) {
        if (theWindow->SharesActivity() && theWindow->IsActive()) {
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
    const SharedWindow theTop = TopSheetOf(theWindow);
    if (!theTop->TakesPart()) {
        return;
    }
    if (theTop->IsAlwaysActive()) {
        theTop->SetActive(true);
    } else if (ActiveWindow() == nullptr || FirstThatCanBeActive() == theTop) {
        MakeActive(FirstThatCanBeActive());
    }
}

// A sheet that is active leaves the screen with the window that it hangs from.
void ActivateAfterHiding(const SharedWindow& theWindow)
{
    const SharedWindow theTop = TopSheetOf(theWindow);
    const SharedWindow theLeaving = theTop->IsActive() ? theTop : theWindow;
    if (!theLeaving->IsActive() || (theLeaving->TakesPart() && !theLeaving->IsClosing())) {
        return;
    }
    if (theLeaving->IsAlwaysActive()) {
        theLeaving->SetActive(false);
    } else {
        MakeActive(FirstThatCanBeActive());
    }
}

void ActivateAfterReordering()
{
    MakeActive(FirstThatCanBeActive());
}

} // namespace Host
