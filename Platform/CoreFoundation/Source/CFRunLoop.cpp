// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CFRunLoop.h>

#include "CFStringObject.h"
#include "Common/NeverDestroyed.h"
#include "Common/RunLoopHost.h"

#include <algorithm>
#include <cmath>
#include <list>
#include <mutex>
#include <utility>

const CFStringRef kCFRunLoopDefaultMode = CFSTR("kCFRunLoopDefaultMode");
const CFStringRef kCFRunLoopCommonModes = CFSTR("kCFRunLoopCommonModes");

struct __CFRunLoop : Host::Object
{
    __CFRunLoop()
        : Object(Host::kRunLoopType, Host::kImmortal)
    {
    }
};

struct __CFRunLoopTimer : Host::Object
{
    __CFRunLoopTimer(CFAbsoluteTime theFireDate, CFTimeInterval theInterval, CFIndex theOrder,
                     CFRunLoopTimerCallBack theCallBack, const CFRunLoopTimerContext& theContext)
        : Object(Host::kRunLoopTimerType),
          mInterval(theInterval),
          mOrder(theOrder),
          mCallBack(theCallBack),
          mContext(theContext),
          mFireDate(theFireDate)
    {
    }

    const CFTimeInterval mInterval; // 0 for once
    const CFIndex mOrder;
    const CFRunLoopTimerCallBack mCallBack;
    CFRunLoopTimerContext mContext;
    // Behind the lock of the loop, from here on.
    CFAbsoluteTime mFireDate;
    bool mIsValid = true;
    void* mStarted = nullptr; // the event loop's timer, while there is one
    void* mNumber = nullptr;  // what the event loop knows it by then
};

namespace {

using Host::Holder;

const __CFRunLoopTimer& TimerOf(const Host::Object* theObject)
{
    return *static_cast<const __CFRunLoopTimer*>(theObject);
}

__CFRunLoopTimer& RequireTimer(CFRunLoopTimerRef theTimer, const char* theCaller)
{
    return *Host::Require(theTimer, Host::kRunLoopTimerType, theCaller);
}

// A timer in a mode.
struct Entry
{
    Holder<CFRunLoopTimerRef> theTimer;
    Holder<CFStringRef> theMode;
};

// The one loop. Any thread may change it while the main thread fires its timers; the lock is never held while
// a function of the program runs.
struct Loop
{
    std::mutex theMutex;
    std::list<Entry> theEntries;
    UInt64 theLastNumber = 0;
    Host::RunLoopHost theHost{nullptr, nullptr, nullptr};
    __CFRunLoop theReference;
};

Loop& TheLoop()
{
    static Host::NeverDestroyed<Loop> sLoop;
    return sLoop.Get();
}

using Lock = std::lock_guard<std::mutex>;

bool Fires(CFStringRef theMode)
{
    return CFEqual(theMode, kCFRunLoopDefaultMode) || CFEqual(theMode, kCFRunLoopCommonModes);
}

// --- Behind the lock ---------------------------------------------------------------------------------

std::list<Entry>::iterator Find(Loop& theLoop, CFRunLoopTimerRef theTimer, CFStringRef theMode)
{
    return std::find_if(theLoop.theEntries.begin(), theLoop.theEntries.end(), [=](const Entry& theEntry) {
        return theEntry.theTimer.Get() == theTimer && CFEqual(theEntry.theMode.Get(), theMode);
    });
}

double DelayOf(const __CFRunLoopTimer& theTimer)
{
    return std::max(theTimer.mFireDate - CFAbsoluteTimeGetCurrent(), 0.0);
}

void Start(Loop& theLoop, __CFRunLoopTimer& theTimer)
{
    if (theTimer.mStarted == nullptr && theLoop.theHost.theStart != nullptr) {
        theTimer.mNumber = reinterpret_cast<void*>(static_cast<uintptr_t>(++theLoop.theLastNumber));
        theTimer.mStarted = theLoop.theHost.theStart(DelayOf(theTimer), theTimer.mInterval, theTimer.mNumber);
    }
}

void Stop(const Loop& theLoop, __CFRunLoopTimer& theTimer)
{
    if (theTimer.mStarted != nullptr) {
        theLoop.theHost.theStop(theTimer.mStarted);
        theTimer.mStarted = nullptr;
        theTimer.mNumber = nullptr;
    }
}

bool IsInFiringMode(const Loop& theLoop, CFRunLoopTimerRef theTimer)
{
    return std::any_of(theLoop.theEntries.begin(), theLoop.theEntries.end(), [=](const Entry& theEntry) {
        return theEntry.theTimer.Get() == theTimer && Fires(theEntry.theMode.Get());
    });
}

// Moves the fire date on to the next of its rhythm.
void Advance(__CFRunLoopTimer& theTimer)
{
    if (theTimer.mInterval > 0) {
        const double thePassed = CFAbsoluteTimeGetCurrent() - theTimer.mFireDate;
        theTimer.mFireDate +=
            theTimer.mInterval * (std::max(std::floor(thePassed / theTimer.mInterval), 0.0) + 1);
    }
}

// The timer that the event loop knows by that number, retained; null when it was taken out of the loop.
Holder<CFRunLoopTimerRef> TakeFiring(Loop& theLoop, const void* theNumber)
{
    const Lock theLock(theLoop.theMutex);
    for (const Entry& theEntry : theLoop.theEntries) {
        const CFRunLoopTimerRef theTimer = theEntry.theTimer.Get();
        if (theTimer->mNumber == theNumber && theTimer->mIsValid) {
            Advance(*theTimer);
            CFRetain(theTimer);
            return Holder<CFRunLoopTimerRef>(theTimer);
        }
    }
    return Holder<CFRunLoopTimerRef>(nullptr);
}

// ----------------------------------------------------------------------------------------------------

void Fire(void* theNumber)
{
    const Holder<CFRunLoopTimerRef> theTimer = TakeFiring(TheLoop(), theNumber);
    if (theTimer.Get() != nullptr) {
        theTimer.Get()->mCallBack(theTimer.Get(), theTimer.Get()->mContext.info);
        if (theTimer.Get()->mInterval == 0) {
            CFRunLoopTimerInvalidate(theTimer.Get());
        }
    }
}

void ReleaseInfo(const __CFRunLoopTimer& theTimer)
{
    if (theTimer.mContext.release != nullptr) {
        theTimer.mContext.release(theTimer.mContext.info);
    }
}

// The loop holds a reference to each timer that is in it, so this one is not.
void FreeTimer(const Host::Object* theObject)
{
    const __CFRunLoopTimer& theTimer = TimerOf(theObject);
    if (theTimer.mIsValid) {
        ReleaseInfo(theTimer);
    }
    delete &theTimer;
}

CFStringRef DescribeTimer(const Host::Object* theObject)
{
    const __CFRunLoopTimer& theTimer = TimerOf(theObject);
    const Lock theLock(TheLoop().theMutex);
    return Host::Text()
        .AppendHeader(theObject)
        .Append(Host::FormatInCLocale("{valid = %s, interval = %.17g, next fire date = %.17g}",
                                      theTimer.mIsValid ? "Yes" : "No", theTimer.mInterval,
                                      theTimer.mFireDate))
        .CopyString();
}

CFRunLoopTimerRef MakeTimer(CFAbsoluteTime theFireDate, CFTimeInterval theInterval, CFIndex theOrder,
                            CFRunLoopTimerCallBack theCallBack, const CFRunLoopTimerContext* theContext)
{
    static const CFRunLoopTimerContext kNone = {0, nullptr, nullptr, nullptr, nullptr};
    const CFRunLoopTimerRef theTimer =
        new __CFRunLoopTimer(theFireDate, theInterval > 0 ? theInterval : 0, theOrder, theCallBack,
                             theContext == nullptr ? kNone : *theContext);
    if (theTimer->mContext.retain != nullptr) {
        theTimer->mContext.info = const_cast<void*>(theTimer->mContext.retain(theTimer->mContext.info));
    }
    return theTimer;
}

void AddTimer(Loop& theLoop, __CFRunLoopTimer& theTimer, CFStringRef theMode)
{
    Holder<CFStringRef> theCopy = Host::RequireMemory(CFStringCreateCopy(nullptr, theMode));
    const Lock theLock(theLoop.theMutex);
    if (!theTimer.mIsValid || Find(theLoop, &theTimer, theMode) != theLoop.theEntries.end()) {
        return;
    }
    CFRetain(&theTimer);
    theLoop.theEntries.push_back({Holder<CFRunLoopTimerRef>(&theTimer), std::move(theCopy)});
    if (Fires(theMode)) {
        Start(theLoop, theTimer);
    }
}

} // namespace

const Host::TypeOperations Host::kRunLoopType = {
    Host::kRunLoopTypeID, "CFRunLoop", nullptr, nullptr, nullptr, nullptr, nullptr};
const Host::TypeOperations Host::kRunLoopTimerType = {
    Host::kRunLoopTimerTypeID, "CFRunLoopTimer", FreeTimer, nullptr, nullptr, DescribeTimer, nullptr};

Host::RunLoopTimerFunction Host::UseRunLoopHost(const RunLoopHost& theHost)
{
    const Lock theLock(TheLoop().theMutex);
    TheLoop().theHost = theHost;
    return Fire;
}

CFTypeID CFRunLoopGetTypeID()
{
    return Host::kRunLoopTypeID;
}

CFRunLoopRef CFRunLoopGetCurrent()
{
    return &TheLoop().theReference;
}

CFRunLoopRef CFRunLoopGetMain()
{
    return &TheLoop().theReference;
}

CFTypeID CFRunLoopTimerGetTypeID()
{
    return Host::kRunLoopTimerTypeID;
}

CFRunLoopTimerRef CFRunLoopTimerCreate(CFAllocatorRef, CFAbsoluteTime inFireDate, CFTimeInterval inInterval,
                                       CFOptionFlags, CFIndex inOrder, CFRunLoopTimerCallBack inCallBack,
                                       CFRunLoopTimerContext* inContext)
{
    if (inCallBack == nullptr || std::isnan(inFireDate) || std::isnan(inInterval)) {
        return nullptr;
    }
    return Host::NothingWithoutMemory(
        [=] { return MakeTimer(inFireDate, inInterval, inOrder, inCallBack, inContext); });
}

CFAbsoluteTime CFRunLoopTimerGetNextFireDate(CFRunLoopTimerRef inTimer)
{
    const __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    const Lock theLock(TheLoop().theMutex);
    return theTimer.mIsValid ? theTimer.mFireDate : 0;
}

void CFRunLoopTimerSetNextFireDate(CFRunLoopTimerRef inTimer, CFAbsoluteTime inFireDate)
{
    __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    Loop& theLoop = TheLoop();
    const Lock theLock(theLoop.theMutex);
    if (theTimer.mIsValid && !std::isnan(inFireDate)) {
        theTimer.mFireDate = inFireDate;
        if (theTimer.mStarted != nullptr) {
            theLoop.theHost.theSetDelay(theTimer.mStarted, DelayOf(theTimer));
        }
    }
}

CFTimeInterval CFRunLoopTimerGetInterval(CFRunLoopTimerRef inTimer)
{
    return RequireTimer(inTimer, __func__).mInterval;
}

Boolean CFRunLoopTimerDoesRepeat(CFRunLoopTimerRef inTimer)
{
    return RequireTimer(inTimer, __func__).mInterval > 0;
}

CFIndex CFRunLoopTimerGetOrder(CFRunLoopTimerRef inTimer)
{
    return RequireTimer(inTimer, __func__).mOrder;
}

void CFRunLoopTimerGetContext(CFRunLoopTimerRef inTimer, CFRunLoopTimerContext* outContext)
{
    const __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    if (outContext == nullptr) {
        Host::Stop(__func__, "the context is NULL");
    }
    *outContext = theTimer.mContext;
}

void CFRunLoopTimerInvalidate(CFRunLoopTimerRef inTimer)
{
    __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    CFRetain(inTimer);
    const Holder<CFRunLoopTimerRef> theReference(inTimer);
    Loop& theLoop = TheLoop();
    {
        const Lock theLock(theLoop.theMutex);
        if (!std::exchange(theTimer.mIsValid, false)) {
            return;
        }
        Stop(theLoop, theTimer);
        theLoop.theEntries.remove_if([=](const Entry& the) { return the.theTimer.Get() == inTimer; });
    }
    ReleaseInfo(theTimer);
}

Boolean CFRunLoopTimerIsValid(CFRunLoopTimerRef inTimer)
{
    const __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    const Lock theLock(TheLoop().theMutex);
    return theTimer.mIsValid;
}

void CFRunLoopAddTimer(CFRunLoopRef inRunLoop, CFRunLoopTimerRef inTimer, CFStringRef inMode)
{
    Host::Require(inRunLoop, Host::kRunLoopType, __func__);
    __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    Host::Require(inMode, Host::kStringType, __func__);
    Host::NothingWithoutMemory([&] {
        AddTimer(TheLoop(), theTimer, inMode);
        return true;
    });
}

void CFRunLoopRemoveTimer(CFRunLoopRef inRunLoop, CFRunLoopTimerRef inTimer, CFStringRef inMode)
{
    Host::Require(inRunLoop, Host::kRunLoopType, __func__);
    __CFRunLoopTimer& theTimer = RequireTimer(inTimer, __func__);
    Host::Require(inMode, Host::kStringType, __func__);
    CFRetain(inTimer);
    const Holder<CFRunLoopTimerRef> theReference(inTimer);
    Loop& theLoop = TheLoop();
    const Lock theLock(theLoop.theMutex);
    const auto thePlace = Find(theLoop, inTimer, inMode);
    if (thePlace != theLoop.theEntries.end()) {
        theLoop.theEntries.erase(thePlace);
        if (!IsInFiringMode(theLoop, inTimer)) {
            Stop(theLoop, theTimer);
        }
    }
}

Boolean CFRunLoopContainsTimer(CFRunLoopRef inRunLoop, CFRunLoopTimerRef inTimer, CFStringRef inMode)
{
    Host::Require(inRunLoop, Host::kRunLoopType, __func__);
    RequireTimer(inTimer, __func__);
    Host::Require(inMode, Host::kStringType, __func__);
    Loop& theLoop = TheLoop();
    const Lock theLock(theLoop.theMutex);
    return Find(theLoop, inTimer, inMode) != theLoop.theEntries.end();
}
