// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the headers say may be called from any thread: references, preferences, events, timers, the end of a
// wait. Several threads do the same at once. The sums are right in every build; that nothing is touched by
// two threads without order is seen by ThreadSanitizer (Scripts/RunThreads.py).

#include <atomic>
#include <Carbon/Carbon.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include <Presentation/PresenterRegistry.h>

namespace {

const int kThreads = 4;
const int kTurns = 100;
const EventTypeSpec kTestEvent = {'test', 1};

// Runs theWork with the number of each thread, in all of them at once; ends when they have.
class Threads
{
public:
    explicit Threads(const std::function<void(int theThread)>& theWork)
    {
        for (int theThread = 0; theThread < kThreads; ++theThread) {
            mThreads.emplace_back([this, theWork, theThread] {
                // The others are there as well before anything begins.
                ++mReady;
                while (mReady < kThreads) {
                    std::this_thread::yield();
                }
                theWork(theThread);
            });
        }
    }
    ~Threads()
    {
        for (std::thread& theThread : mThreads) {
            theThread.join();
        }
    }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

private:
    std::atomic<int> mReady = 0;
    std::vector<std::thread> mThreads;
};

CFStringRef NewString(int theNumber)
{
    return CFStringCreateWithCString(nullptr, ("text " + std::to_string(theNumber)).c_str(),
                                     kCFStringEncodingUTF8);
}

EventRef NewEvent()
{
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, kTestEvent.eventClass, kTestEvent.eventKind, 0, kEventAttributeNone, &theEvent);
    return theEvent;
}

// Turns the loop until so many have arrived.
void TurnUntil(const std::atomic<int>& theCount, int theWanted)
{
    while (theCount < theWanted) {
        RunCurrentEventLoop(0.001);
    }
}

std::atomic<int> gCount = 0;

} // namespace

TEST(Threads, MakeTheSameConstantStringOnce)
{
    CFStringRef theStrings[kThreads] = {};
    {
        const Threads theThreads(
            [&theStrings](int theThread) { theStrings[theThread] = CFSTR("made by whoever comes first"); });
    }
    for (const CFStringRef theString : theStrings) {
        EXPECT_EQ(theString, theStrings[0]);
    }
}

TEST(Threads, ReadOneObjectAndKeepItAlive)
{
    const CFStringRef theText = NewString(5);
    const SInt32 theNumber = 5;
    const CFNumberRef theValue = CFNumberCreate(nullptr, kCFNumberSInt32Type, &theNumber);
    const void* theKeys[] = {theText};
    const void* theValues[] = {theValue};
    const CFDictionaryRef theDictionary = CFDictionaryCreate(
        nullptr, theKeys, theValues, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
    std::atomic<int> theEqual = 0;
    {
        const Threads theThreads([&](int) {
            for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
                CFRetain(theDictionary);
                const CFStringRef theOwn = NewString(5);
                const CFStringRef theDescription = CFCopyDescription(theDictionary);
                theEqual += CFEqual(CFDictionaryGetValue(theDictionary, theOwn), theValue) &&
                                    CFHash(theOwn) == CFHash(theText) && CFStringGetLength(theDescription) > 0
                                ? 1
                                : 0;
                CFRelease(theDescription);
                CFRelease(theOwn);
                CFRelease(theDictionary);
            }
        });
    }
    EXPECT_EQ(theEqual, kThreads * kTurns);
    EXPECT_EQ(CFGetRetainCount(theDictionary), 1);
    CFRelease(theDictionary);
    CFRelease(theValue);
    CFRelease(theText);
}

TEST(Threads, GiveUpTheLastReference)
{
    for (int theTurn = 0; theTurn < 20; ++theTurn) {
        const CFStringRef theText = NewString(theTurn);
        const void* theItems[] = {theText};
        const CFArrayRef theArray = CFArrayCreate(nullptr, theItems, 1, &kCFTypeArrayCallBacks);
        CFRelease(theText);
        for (int theThread = 1; theThread < kThreads; ++theThread) {
            CFRetain(theArray);
        }
        const Threads theThreads([theArray](int) { CFRelease(theArray); });
    }
}

TEST(Threads, SetAndReadPreferences)
{
    const CFStringRef theApplication = CFSTR("com.example.threads");
    {
        const Threads theThreads([theApplication](int theThread) {
            for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
                const CFStringRef theKey = NewString(theThread);
                const CFStringRef theText = NewString(theTurn);
                CFPreferencesSetAppValue(theKey, theText, theApplication);
                CFPreferencesSetAppValue(CFSTR("shared"), theText, theApplication);
                EXPECT_TRUE(CFPreferencesAppSynchronize(theApplication));
                const CFPropertyListRef theValue = CFPreferencesCopyAppValue(theKey, theApplication);
                EXPECT_TRUE(theValue != nullptr && CFEqual(theValue, theText));
                CFRelease(theValue);
                CFRelease(theText);
                CFRelease(theKey);
            }
        });
    }
    const CFArrayRef theKeys =
        CFPreferencesCopyKeyList(theApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
    EXPECT_EQ(CFArrayGetCount(theKeys), kThreads + 1);
    CFRelease(theKeys);
}

TEST(Threads, PostEventsThatTheyMake)
{
    const Threads theThreads([](int theThread) {
        for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
            const EventRef theEvent = NewEvent();
            SetEventParameter(theEvent, 'numb', typeSInt32, sizeof theTurn, &theTurn);
            const EventRef theCopy = CopyEvent(theEvent);
            EXPECT_EQ(PostEventToQueue(GetMainEventQueue(), theEvent,
                                       static_cast<EventPriority>((theThread + theTurn) % 3)),
                      noErr);
            ReleaseEvent(theEvent);
            ReleaseEvent(theCopy);
        }
    });
    SInt32 theSum = 0;
    for (int theNumber = 0; theNumber < kThreads * kTurns; ++theNumber) {
        EventRef theEvent = nullptr;
        ASSERT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
                  noErr);
        SInt32 theTurn = 0;
        GetEventParameter(theEvent, 'numb', typeSInt32, nullptr, sizeof theTurn, nullptr, &theTurn);
        theSum += theTurn;
        ReleaseEvent(theEvent);
    }
    EXPECT_EQ(theSum, kThreads * kTurns * (kTurns - 1) / 2);
}

TEST(Threads, RetainAndReleaseOneEvent)
{
    const EventRef theEvent = NewEvent();
    {
        const Threads theThreads([theEvent](int) {
            for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
                RetainEvent(theEvent);
                EXPECT_EQ(GetEventKind(theEvent), kTestEvent.eventKind);
                ReleaseEvent(theEvent);
            }
        });
    }
    EXPECT_EQ(GetEventRetainCount(theEvent), 1U);
    ReleaseEvent(theEvent);
}

TEST(Threads, InstallSetAndRemoveTimersWhileTheLoopRuns)
{
    gCount = 0;
    const EventLoopRef theLoop = GetMainEventLoop();
    const EventLoopTimerUPP theFunction = NewEventLoopTimerUPP([](EventLoopTimerRef, void*) { ++gCount; });
    {
        const Threads theThreads([theLoop, theFunction](int) {
            for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
                EventLoopTimerRef theOnce = nullptr;
                EventLoopTimerRef theNever = nullptr;
                EXPECT_EQ(InstallEventLoopTimer(theLoop, 0, 0, theFunction, nullptr, &theOnce), noErr);
                EXPECT_EQ(
                    InstallEventLoopTimer(theLoop, kEventDurationForever, 0, theFunction, nullptr, &theNever),
                    noErr);
                EXPECT_EQ(SetEventLoopTimerNextFireTime(theNever, 1000), noErr);
                EXPECT_EQ(RemoveEventLoopTimer(theNever), noErr);
            }
        });
        TurnUntil(gCount, kThreads * kTurns);
    }
    EXPECT_EQ(gCount, kThreads * kTurns);
}

TEST(Threads, WakeThePresenter)
{
    Host::Presenter& thePresenter = Host::PresenterRegistry::Current();
    std::atomic<int> theEnds = 0;
    const Threads theThreads([&thePresenter, &theEnds](int) {
        for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
            thePresenter.Wake();
        }
        ++theEnds;
    });
    TurnUntil(theEnds, kThreads);
    EXPECT_EQ(theEnds, kThreads);
}
