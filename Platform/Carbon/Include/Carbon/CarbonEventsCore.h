// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Events, the handlers that receive them, the queue that holds them and the loop that waits for them.
//
// An event has a class, a kind, a time and named, typed parameters. It is sent to a target: the target of
// a control, a window, a menu or the application. Each target has a stack of handlers, each for some
// types of events; the handler that was installed last is asked first. What no handler of a target
// handles goes to the target of the object that contains it, and so outward: control, parent controls,
// window, application.
//
// A handler answers
//   noErr                      handled: the event goes no further;
//   eventNotHandledErr         the next handler is asked;
//   eventPassToNextTargetErr   the next target is asked, the rest of this one is left out;
//   any other status           the event goes no further, and the sender gets that status.
//
// While a handler runs it may remove itself or others, install more, dispose the object that it is
// installed on, and send further events. A removed handler is not called any more, not even by a pass that
// has begun; a handler that was installed meanwhile is first called by the next event.
//
// Handlers and timers run on the main thread. Events may be created, filled, posted and released on any, but
// for those that hold a menu; timers may be installed, set and removed on any. Posting an event, and
// installing or setting a timer, wakes the loop.
// Every call answers a null or disposed reference, or other bad input, with a status; nothing throws.

#ifndef CarbonEventsCore_h
#define CarbonEventsCore_h

#include <Carbon/CarbonBase.h>

typedef UInt32 EventClassID;
typedef UInt32 EventClass;
typedef UInt32 EventType;
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef UInt32 EventAttributes;
typedef SInt16 EventPriority;

// Times and durations in seconds; times count from the start of the system.
typedef double EventTime;
typedef double EventTimeout;
typedef double EventTimerInterval;

#define kEventDurationSecond ((EventTime)1.0)
#define kEventDurationMillisecond ((EventTime)(kEventDurationSecond / 1000))
#define kEventDurationMicrosecond ((EventTime)(kEventDurationSecond / 1000000))
#define kEventDurationNanosecond ((EventTime)(kEventDurationSecond / 1000000000))
#define kEventDurationMinute ((EventTime)(kEventDurationSecond * 60))
#define kEventDurationHour ((EventTime)(kEventDurationMinute * 60))
#define kEventDurationDay ((EventTime)(kEventDurationHour * 24))
#define kEventDurationNoWait ((EventTime)0.0)
#define kEventDurationForever ((EventTime)(-1.0))

// Ticks are sixtieths of a second.
#define TicksToEventTime(inTicks) ((EventTime)((inTicks) / 60.0))
#define EventTimeToTicks(inTime) ((UInt32)((inTime)*60 + 0.5))

enum
{
    kEventPriorityLow = 0,
    kEventPriorityStandard = 1,
    kEventPriorityHigh = 2
};

// UserEvent marks what a person did: mouse and keys.
enum
{
    kEventAttributeNone = 0,
    kEventAttributeUserEvent = 1,
    kEventAttributeMonitored = 8
};

enum
{
    kEventLeaveInQueue = false,
    kEventRemoveFromQueue = true
};

enum
{
    kEventQueueOptionsNone = 0
};

// Options of SendEventToEventTargetWithOptions.
//
// DontPropagate: only the handlers of the given target are asked, also by CallNextEventHandler.
//
// SendToAllHandlers: every handler gets the event, and none can stop it. The sender gets the strongest
// answer: an error of the first handler that answered with one, else noErr if any handler said so, else
// eventNotHandledErr.
enum
{
    kEventTargetDontPropagate = 1,
    kEventTargetSendToAllHandlers = 2
};

#pragma pack(push, 2)

// A class and kind, as handlers are installed for and queues are searched for.
typedef struct EventTypeSpec
{
    OSType eventClass;
    UInt32 eventKind;
} EventTypeSpec;

#pragma pack(pop)

#define GetEventTypeCount(inList) (sizeof(inList) / sizeof(EventTypeSpec))

// --- Handlers ---------------------------------------------------------------------------------------

typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef inHandlerCallRef, EventRef inEvent,
                                        void* inUserData);
typedef EventHandlerProcPtr EventHandlerUPP;

// A UPP is the function itself: making one gives the argument back, disposing one does nothing.
CARBON_INLINE EventHandlerUPP NewEventHandlerUPP(EventHandlerProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeEventHandlerUPP(EventHandlerUPP userUPP)
{
    (void)userUPP;
}
CARBON_INLINE OSStatus InvokeEventHandlerUPP(EventHandlerCallRef inHandlerCallRef, EventRef inEvent,
                                             void* inUserData, EventHandlerUPP userUPP)
{
    return (*userUPP)(inHandlerCallRef, inEvent, inUserData);
}

// Defines GetxUPP(), which makes the UPP of the handler x when it is first called and keeps it.
#define DEFINE_ONE_SHOT_HANDLER_GETTER(inHandler)                                                            \
    EventHandlerUPP Get##inHandler##UPP(void)                                                                \
    {                                                                                                        \
        static EventHandlerUPP sHandler = NULL;                                                              \
        if (sHandler == NULL) {                                                                              \
            sHandler = NewEventHandlerUPP(inHandler);                                                        \
        }                                                                                                    \
        return sHandler;                                                                                     \
    }

// Installs a handler on top of the target's stack, for inNumTypes types of events. None, with a null list,
// is allowed: types can be added later.
//
// inUserData is handed to every call and otherwise left alone. outRef, which may be null, receives the
// handler's reference, or null on failure; the reference may be ignored, for a handler goes with its
// target.
//
// paramErr: no target, no handler, or types without a list. eventHandlerAlreadyInstalledErr: the same
// function with the same user data is on that target already.
// Cost: proportional to the number of handlers on the target.
CARBON_EXPORT OSStatus InstallEventHandler(EventTargetRef inTarget, EventHandlerUPP inHandler,
                                           ItemCount inNumTypes, const EventTypeSpec* inList,
                                           void* inUserData, EventHandlerRef* outRef);

// Removes a handler, from inside itself too, and makes its reference invalid. paramErr for a reference
// that is null or whose handler is gone.
CARBON_EXPORT OSStatus RemoveEventHandler(EventHandlerRef inHandlerRef);

// Adds types to a handler. A type that is added twice is delivered once, and has to be removed twice.
CARBON_EXPORT OSStatus AddEventTypesToHandler(EventHandlerRef inHandlerRef, ItemCount inNumTypes,
                                              const EventTypeSpec* inList);

// Takes back one addition of each listed type; a type that the handler does not have is passed over.
CARBON_EXPORT OSStatus RemoveEventTypesFromHandler(EventHandlerRef inHandlerRef, ItemCount inNumTypes,
                                                   const EventTypeSpec* inList);

// Asks the handlers below the running one: the rest of this target's stack, the target's default
// behaviour, and, unless the event was sent with kEventTargetDontPropagate, the following targets. For use
// inside a handler, with the call reference that it was given; anywhere else, paramErr.
//
// A handler that has called this has passed the event on: if it then returns eventNotHandledErr, the
// others are not asked a second time.
CARBON_EXPORT OSStatus CallNextEventHandler(EventHandlerCallRef inCallRef, EventRef inEvent);

// Gives a window what kWindowStandardHandlerAttribute gives it, or takes it away. Other targets have no such
// behaviour to be switched: noErr, and nothing happens. paramErr for a bad target.
CARBON_EXPORT OSStatus InstallStandardEventHandler(EventTargetRef inTarget);
CARBON_EXPORT OSStatus RemoveStandardEventHandler(EventTargetRef inTarget);

// --- Sending ----------------------------------------------------------------------------------------

// Sends an event and returns when it has been handled. The event is retained meanwhile.
//
// The result is the answer of the handler that took it; eventNotHandledErr when nobody did; paramErr for a
// bad event or target. The way outward is settled when sending begins: an object that is disposed on the
// way is left out, the ones around it are still asked.
CARBON_EXPORT OSStatus SendEventToEventTarget(EventRef inEvent, EventTargetRef inTarget);

// The same with options (kEventTarget...); 0 is SendEventToEventTarget. Unknown bits are ignored.
CARBON_EXPORT OSStatus SendEventToEventTargetWithOptions(EventRef inEvent, EventTargetRef inTarget,
                                                         OptionBits inOptions);

// --- Events -----------------------------------------------------------------------------------------

// Makes an event, owned by the caller. The allocator is not used and may be null; a time of 0 stands for
// now. paramErr without outEvent.
CARBON_EXPORT OSStatus CreateEvent(CFAllocatorRef inAllocator, OSType inClassID, UInt32 inKind,
                                   EventTime inWhen, EventAttributes inAttributes, EventRef* outEvent);
#define MacCreateEvent CreateEvent

// A copy with all parameters, owned by the caller; null for a bad event. The copy is in no queue.
CARBON_EXPORT EventRef CopyEvent(EventRef inOther);

// The same under another class and kind.
CARBON_EXPORT EventRef CopyEventAs(CFAllocatorRef inAllocator, EventRef inOther, OSType inEventClass,
                                   UInt32 inEventKind);

// Events are counted, by these calls alone: they are no CoreFoundation objects. RetainEvent returns its
// argument (null for a bad one); an event dies with its last reference.
CARBON_EXPORT EventRef RetainEvent(EventRef inEvent);
CARBON_EXPORT void ReleaseEvent(EventRef inEvent);
CARBON_EXPORT ItemCount GetEventRetainCount(EventRef inEvent);

// 0 for a bad event.
CARBON_EXPORT OSType GetEventClass(EventRef inEvent);
CARBON_EXPORT UInt32 GetEventKind(EventRef inEvent);
CARBON_EXPORT EventTime GetEventTime(EventRef inEvent);
CARBON_EXPORT OSStatus SetEventTime(EventRef inEvent, EventTime inTime);

// Stores a copy of inSize bytes under a name and a type; replaces what was there under that name.
//
// Data that is a reference is copied as a reference. References to CoreFoundation objects (the typeCF...Ref
// types), events and menus are retained for as long as the event holds them; those to controls and
// windows are not.
//
// paramErr: a bad event, bytes without data, the type typeWildCard, or a size that does not fit a type
// that the event has to retain.
CARBON_EXPORT OSStatus SetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inType,
                                         ByteCount inSize, const void* inDataPtr);

// Reads a parameter. typeWildCard asks for it as it was stored. Another type than the stored one is
// converted to, where these conversions go: typeQDPoint and typeHIPoint into each other, typeQDRectangle
// and typeHIRect likewise; a CoreFoundation number into the integer and floating-point types and
// typeBoolean; a CoreFoundation boolean into typeBoolean; any CoreFoundation type into typeCFTypeRef;
// typeCFStringRef into typeUnicodeText; and on 32-bit hosts, since Mac OS X 10.5, typeVoidPtr and the 32-bit
// integers into each other.
//
// outActualType receives the type of the data handed out, outActualSize its size; either may be null. With
// a null outData nothing is copied: that asks for type and size. References that are handed out are not
// retained for the caller.
//
// eventParameterNotFoundErr: there is no such parameter, or it cannot be converted to that type. paramErr:
// a bad event, or a buffer that is too small, which is left as it is (outActualSize says what is needed).
CARBON_EXPORT OSStatus GetEventParameter(EventRef inEvent, EventParamName inName,
                                         EventParamType inDesiredType, EventParamType* outActualType,
                                         ByteCount inBufferSize, ByteCount* outActualSize, void* outData);

// eventParameterNotFoundErr when there is none. Since Mac OS X 10.5.
CARBON_EXPORT OSStatus RemoveEventParameter(EventRef inEvent, EventParamName inName);

// Seconds since the start of the system.
CARBON_EXPORT EventTime GetCurrentEventTime(void);

// --- The queue --------------------------------------------------------------------------------------

// There is one queue and one loop, those of the main thread.
CARBON_EXPORT EventQueueRef GetMainEventQueue(void);
CARBON_EXPORT EventQueueRef GetCurrentEventQueue(void);

// Puts an event into the queue, which retains it, and wakes the loop. Higher priority is taken first; of
// equal ones, the one that was posted first. eventAlreadyPostedErr: the event is in the queue already.
CARBON_EXPORT OSStatus PostEventToQueue(EventQueueRef inQueue, EventRef inEvent, EventPriority inPriority);

CARBON_EXPORT Boolean IsEventInQueue(EventQueueRef inQueue, EventRef inEvent);
CARBON_EXPORT ItemCount GetNumEventsInQueue(EventQueueRef inQueue);

// Takes an event out and gives up the queue's reference; eventNotInQueueErr if it is not there.
CARBON_EXPORT OSStatus RemoveEventFromQueue(EventQueueRef inQueue, EventRef inEvent);

// Take out everything, or everything of the listed types.
CARBON_EXPORT OSStatus FlushEventQueue(EventQueueRef inQueue);
CARBON_EXPORT OSStatus FlushEventsMatchingListFromQueue(EventQueueRef inQueue, ItemCount inNumTypes,
                                                        const EventTypeSpec* inList);

typedef Boolean (*EventComparatorProcPtr)(EventRef inEvent, void* inCompareData);
typedef EventComparatorProcPtr EventComparatorUPP;

CARBON_INLINE EventComparatorUPP NewEventComparatorUPP(EventComparatorProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeEventComparatorUPP(EventComparatorUPP userUPP)
{
    (void)userUPP;
}

// The first event, in the order of taking, that the comparator accepts, or null. It stays in the queue and
// is not retained for the caller. The comparator may change the queue.
CARBON_EXPORT EventRef FindSpecificEventInQueue(EventQueueRef inQueue, EventComparatorUPP inComparator,
                                                void* inCompareData);

// The first event of the listed types (of any, with no list), or null. It stays in the queue; the caller
// owns a reference. Does not run the loop.
CARBON_EXPORT EventRef AcquireFirstMatchingEventInQueue(EventQueueRef inQueue, ItemCount inNumTypes,
                                                        const EventTypeSpec* inList, OptionBits inOptions);

// --- The loop ---------------------------------------------------------------------------------------

CARBON_EXPORT EventLoopRef GetMainEventLoop(void);
CARBON_EXPORT EventLoopRef GetCurrentEventLoop(void);

// The run loop (a CFRunLoopRef) that the event loop is; NULL for what is no event loop. The caller does not
// own it.
CARBON_EXPORT CFTypeRef GetCFRunLoopFromEventLoop(EventLoopRef inEventLoop);

// Waits for an event of the listed types (of any, with no list) for up to inTimeout seconds, or for ever;
// timers run meanwhile. With inPullEvent the event leaves the queue and belongs to the caller; without, it
// stays and is not retained for the caller.
//
// Results: noErr, eventLoopTimedOutErr, eventLoopQuitErr (QuitEventLoop was called), paramErr; outEvent
// is null unless noErr.
CARBON_EXPORT OSStatus ReceiveNextEvent(ItemCount inNumTypes, const EventTypeSpec* inList,
                                        EventTimeout inTimeout, Boolean inPullEvent, EventRef* outEvent);

// Runs timers for inTimeout seconds, or until the loop is quit: eventLoopTimedOutErr, eventLoopQuitErr.
// Events stay in the queue.
CARBON_EXPORT OSStatus RunCurrentEventLoop(EventTimeout inTimeout);

// Makes the innermost running ReceiveNextEvent or RunCurrentEventLoop return; without one, no effect.
CARBON_EXPORT OSStatus QuitEventLoop(EventLoopRef inEventLoop);

// --- Timers -----------------------------------------------------------------------------------------

typedef void (*EventLoopTimerProcPtr)(EventLoopTimerRef inTimer, void* inUserData);
typedef EventLoopTimerProcPtr EventLoopTimerUPP;

CARBON_INLINE EventLoopTimerUPP NewEventLoopTimerUPP(EventLoopTimerProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeEventLoopTimerUPP(EventLoopTimerUPP userUPP)
{
    (void)userUPP;
}

// Starts a timer: it fires once after inFireDelay seconds (0: as soon as the loop runs;
// kEventDurationForever: not before SetEventLoopTimerNextFireTime says so), then every inInterval seconds;
// an interval of 0 or kEventDurationForever means only once. A timer that fired for the last time stays
// until it is removed, and can be set again.
//
// Times that passed while nobody ran the loop are not made up for: the timer fires once, and goes on in
// its rhythm. A timer does not fire while its own function runs. From another thread, a timer may fire before
// this returns; outTimer has been written then. paramErr: no loop, no function, no
// outTimer, or a time that is not a number.
CARBON_EXPORT OSStatus InstallEventLoopTimer(EventLoopRef inEventLoop, EventTimerInterval inFireDelay,
                                             EventTimerInterval inInterval, EventLoopTimerUPP inTimerProc,
                                             void* inTimerData, EventLoopTimerRef* outTimer);

// Stops a timer for good, from inside its own function too. Its function may be running still when another
// thread removes it, and is not called again.
CARBON_EXPORT OSStatus RemoveEventLoopTimer(EventLoopTimerRef inTimer);

// Lets the timer fire that many seconds from now and then in its interval; kEventDurationForever stops it.
CARBON_EXPORT OSStatus SetEventLoopTimerNextFireTime(EventLoopTimerRef inTimer,
                                                     EventTimerInterval inNextFire);

#endif
