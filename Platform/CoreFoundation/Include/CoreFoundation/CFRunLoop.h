// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFRunLoop_h
#define CFRunLoop_h

// Timers of the run loop. There is one run loop, which is the event loop of Carbon: its timers fire wherever
// that loop turns, in RunApplicationEventLoop, ReceiveNextEvent and all that waits for a person. A program
// that is not linked with Carbon has timers that wait.

#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFDate.h>
#include <CoreFoundation/CFString.h>

typedef struct __CFRunLoop* CFRunLoopRef;
typedef struct __CFRunLoopTimer* CFRunLoopTimerRef;

// Modes. Timers in these two fire; in another they wait until they are added to one of these.
CF_EXPORT const CFStringRef kCFRunLoopDefaultMode;
CF_EXPORT const CFStringRef kCFRunLoopCommonModes;

// What a timer's function is given. retain is called once when the timer is made, release once when it is
// invalidated. Each function may be NULL. The version is 0.
typedef struct CFRunLoopTimerContext
{
    CFIndex version;
    void* info;
    const void* (*retain)(const void* inInfo);
    void (*release)(const void* inInfo);
    CFStringRef (*copyDescription)(const void* inInfo);
} CFRunLoopTimerContext;

typedef void (*CFRunLoopTimerCallBack)(CFRunLoopTimerRef inTimer, void* inInfo);

CF_EXPORT CFTypeID CFRunLoopGetTypeID(void);
// The one run loop, from any thread. The caller does not own it.
CF_EXPORT CFRunLoopRef CFRunLoopGetCurrent(void);
CF_EXPORT CFRunLoopRef CFRunLoopGetMain(void);

CF_EXPORT CFTypeID CFRunLoopTimerGetTypeID(void);

// A timer that fires at inFireDate, and then every inInterval seconds; once for 0 or less, and is invalid
// after that. What was missed is not made up for. A date that has passed is now. The order is only kept. The
// context is copied, and may be NULL. The caller releases the timer. NULL without a function, and for times
// that are no numbers.
CF_EXPORT CFRunLoopTimerRef CFRunLoopTimerCreate(CFAllocatorRef inAllocator, CFAbsoluteTime inFireDate,
                                                 CFTimeInterval inInterval, CFOptionFlags inFlags,
                                                 CFIndex inOrder, CFRunLoopTimerCallBack inCallBack,
                                                 CFRunLoopTimerContext* inContext);

// When it fires next, as far as is known; 0 once it is invalid. Setting is possible at any time, also while
// the timer fires; a date that is no number, or an invalid timer, changes nothing.
CF_EXPORT CFAbsoluteTime CFRunLoopTimerGetNextFireDate(CFRunLoopTimerRef inTimer);
CF_EXPORT void CFRunLoopTimerSetNextFireDate(CFRunLoopTimerRef inTimer, CFAbsoluteTime inFireDate);

CF_EXPORT CFTimeInterval CFRunLoopTimerGetInterval(CFRunLoopTimerRef inTimer); // 0 for once
CF_EXPORT Boolean CFRunLoopTimerDoesRepeat(CFRunLoopTimerRef inTimer);
CF_EXPORT CFIndex CFRunLoopTimerGetOrder(CFRunLoopTimerRef inTimer);
// Fills a context whose version is 0.
CF_EXPORT void CFRunLoopTimerGetContext(CFRunLoopTimerRef inTimer, CFRunLoopTimerContext* outContext);

// Takes it out of the loop for good, and releases what its function is given; for a second time, nothing. A
// timer may invalidate itself while it fires.
CF_EXPORT void CFRunLoopTimerInvalidate(CFRunLoopTimerRef inTimer);
CF_EXPORT Boolean CFRunLoopTimerIsValid(CFRunLoopTimerRef inTimer);

// The loop retains its timers. Adding twice, or an invalid timer, does nothing, as does removing one that is
// not there. A timer in both modes fires once.
CF_EXPORT void CFRunLoopAddTimer(CFRunLoopRef inRunLoop, CFRunLoopTimerRef inTimer, CFStringRef inMode);
CF_EXPORT void CFRunLoopRemoveTimer(CFRunLoopRef inRunLoop, CFRunLoopTimerRef inTimer, CFStringRef inMode);
CF_EXPORT Boolean CFRunLoopContainsTimer(CFRunLoopRef inRunLoop, CFRunLoopTimerRef inTimer,
                                         CFStringRef inMode);

#endif
