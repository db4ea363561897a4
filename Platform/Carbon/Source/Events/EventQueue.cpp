// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EventQueue.h"

#include "Base/Guarded.h"
#include "Common/NeverDestroyed.h"
#include "EventLoop.h"
#include "EventManager.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace Host {

namespace {

// Events in the order in which they are taken; the queue holds a count on each. Any thread may post. The
// lock is never held while an event is released, or anything of the application is called.
class EventQueue
{
public:
    OSStatus Post(EventRef theEvent, EventPriority thePriority);
    bool Contains(EventRef theEvent) const;
    bool Remove(EventRef theEvent);
    ItemCount Count() const;

    // Takes the matching ones out; their counts go to the caller.
    template <class Condition>
    std::vector<EventRef> TakeIf(const Condition& theCondition);

    template <class Condition>
    EventRef FindFirst(const Condition& theCondition, bool theIsTaken);

    // All events, each with a count for the caller.
    std::vector<EventRef> Copy() const;

private:
    struct Entry
    {
        EventRef theEvent;
        EventPriority thePriority;
    };
    using Entries = std::vector<Entry>;

    Entries::const_iterator Find(EventRef theEvent) const
    {
        return std::find_if(mEntries.begin(), mEntries.end(),
                            [&](const Entry& theEntry) { return theEntry.theEvent == theEvent; });
    }

    mutable std::mutex mMutex;
    Entries mEntries;
};

OSStatus EventQueue::Post(EventRef theEvent, EventPriority thePriority)
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    if (Find(theEvent) != mEntries.end()) {
        return eventAlreadyPostedErr;
    }
    const auto theFound = std::find_if(mEntries.begin(), mEntries.end(), [&](const Entry& theEntry) {
        return theEntry.thePriority < thePriority;
    });
    mEntries.insert(theFound, {theEvent, thePriority});
    RetainEvent(theEvent);
    return noErr;
}

bool EventQueue::Contains(EventRef theEvent) const
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    return Find(theEvent) != mEntries.end();
}

bool EventQueue::Remove(EventRef theEvent)
{
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theFound = Find(theEvent);
        if (theFound == mEntries.end()) {
            return false;
        }
        mEntries.erase(theFound);
    }
    ReleaseEvent(theEvent);
    return true;
}

ItemCount EventQueue::Count() const
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    return mEntries.size();
}

template <class Condition>
std::vector<EventRef> EventQueue::TakeIf(const Condition& theCondition)
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    std::vector<EventRef> theTaken;
    theTaken.reserve(mEntries.size());
    const auto theRest = std::remove_if(mEntries.begin(), mEntries.end(), [&](const Entry& theEntry) {
        const bool theMatches = theCondition(theEntry.theEvent);
        if (theMatches) {
            theTaken.push_back(theEntry.theEvent);
        }
        return theMatches;
    });
    mEntries.erase(theRest, mEntries.end());
    return theTaken;
}

template <class Condition>
EventRef EventQueue::FindFirst(const Condition& theCondition, bool theIsTaken)
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    const auto theFound = std::find_if(mEntries.begin(), mEntries.end(), [&](const Entry& theEntry) {
        return theCondition(theEntry.theEvent);
    });
    if (theFound == mEntries.end()) {
        return nullptr;
    }
    const EventRef theEvent = theFound->theEvent;
    if (theIsTaken) {
        // The queue's count becomes the caller's.
        mEntries.erase(theFound);
        return theEvent;
    }
    return RetainEvent(theEvent);
}

std::vector<EventRef> EventQueue::Copy() const
{
    const std::lock_guard<std::mutex> theLock(mMutex);
    std::vector<EventRef> theEvents;
    theEvents.reserve(mEntries.size());
    for (const Entry& theEntry : mEntries) {
        theEvents.push_back(RetainEvent(theEntry.theEvent));
    }
    return theEvents;
}

// Another thread may still post while the program ends.
EventQueue& MainQueue()
{
    static NeverDestroyed<EventQueue> sQueue;
    return sQueue.Get();
}

bool IsMainQueue(EventQueueRef theQueue)
{
    return theQueue == GetMainEventQueue();
}

// Whether an event is of one of the types; without a list, any is.
struct IsOfTypes
{
    ItemCount theCount;
    const EventTypeSpec* theTypes;

    bool operator()(EventRef theEvent) const
    {
        if (theCount == 0 || theTypes == nullptr) {
            return true;
        }
        const OSType theClass = GetEventClass(theEvent);
        const UInt32 theKind = GetEventKind(theEvent);
        return std::any_of(theTypes, theTypes + theCount, [&](const EventTypeSpec& theType) {
            return theType.eventClass == theClass && theType.eventKind == theKind;
        });
    }
};

void ReleaseAll(const std::vector<EventRef>& theEvents)
{
    for (const EventRef theEvent : theEvents) {
        ReleaseEvent(theEvent);
    }
}

} // namespace

EventRef FirstEventInQueue(ItemCount theCount, const EventTypeSpec* theTypes, bool theIsTaken)
{
    return MainQueue().FindFirst(IsOfTypes{theCount, theTypes}, theIsTaken);
}

} // namespace Host

using namespace Host;

EventQueueRef GetMainEventQueue(void)
{
    return reinterpret_cast<EventQueueRef>(&MainQueue());
}

EventQueueRef GetCurrentEventQueue(void)
{
    return GetMainEventQueue();
}

OSStatus PostEventToQueue(EventQueueRef inQueue, EventRef inEvent, EventPriority inPriority)
{
    if (!IsMainQueue(inQueue) || Event::Find(inEvent) == nullptr) {
        return paramErr;
    }
    const OSStatus theStatus = Guarded([&] { return MainQueue().Post(inEvent, inPriority); });
    if (theStatus == noErr) {
        WakeEventLoop();
    }
    return theStatus;
}

Boolean IsEventInQueue(EventQueueRef inQueue, EventRef inEvent)
{
    return IsMainQueue(inQueue) && MainQueue().Contains(inEvent);
}

ItemCount GetNumEventsInQueue(EventQueueRef inQueue)
{
    return IsMainQueue(inQueue) ? MainQueue().Count() : 0;
}

OSStatus RemoveEventFromQueue(EventQueueRef inQueue, EventRef inEvent)
{
    if (!IsMainQueue(inQueue) || Event::Find(inEvent) == nullptr) {
        return paramErr;
    }
    return MainQueue().Remove(inEvent) ? OSStatus(noErr) : OSStatus(eventNotInQueueErr);
}

OSStatus FlushEventQueue(EventQueueRef inQueue)
{
    if (!IsMainQueue(inQueue)) {
        return paramErr;
    }
    return Guarded([] {
        ReleaseAll(MainQueue().TakeIf([](EventRef) { return true; }));
        return noErr;
    });
}

OSStatus FlushEventsMatchingListFromQueue(EventQueueRef inQueue, ItemCount inNumTypes,
                                          const EventTypeSpec* inList)
{
    if (!IsMainQueue(inQueue) || inNumTypes == 0 || inList == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        ReleaseAll(MainQueue().TakeIf(IsOfTypes{inNumTypes, inList}));
        return noErr;
    });
}

EventRef FindSpecificEventInQueue(EventQueueRef inQueue, EventComparatorUPP inComparator, void* inCompareData)
{
    if (!IsMainQueue(inQueue) || inComparator == nullptr) {
        return nullptr;
    }
    std::vector<EventRef> theEvents;
    Guarded([&] {
        theEvents = MainQueue().Copy();
        return noErr;
    });
    EventRef theFound = nullptr;
    for (const EventRef theEvent : theEvents) {
        // The comparator may have taken it out meanwhile, and nobody keeps it alive then.
        if (MainQueue().Contains(theEvent) && inComparator(theEvent, inCompareData) &&
            MainQueue().Contains(theEvent)) {
            theFound = theEvent;
            break;
        }
    }
    ReleaseAll(theEvents);
    return theFound;
}

EventRef AcquireFirstMatchingEventInQueue(EventQueueRef inQueue, ItemCount inNumTypes,
                                          const EventTypeSpec* inList, OptionBits)
{
    if (!IsMainQueue(inQueue) || (inNumTypes > 0 && inList == nullptr)) {
        return nullptr;
    }
    return FirstEventInQueue(inNumTypes, inList, false);
}
