// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef EventTestSupport_h
#define EventTestSupport_h

#include <Carbon/Carbon.h>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <Simulation/VirtualClock.h>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// What happened, in order.
using Log = std::vector<std::string>;

// A class of events that belongs to no manager.
const OSType kTestClass = 'Test';
const EventTypeSpec kTestEvent = {kTestClass, 1};
const EventTypeSpec kOtherTestEvent = {kTestClass, 2};

// A reference that was never given out. Never followed, so any number does.
template <class Reference>
Reference InventedReference()
{
    return reinterpret_cast<Reference>(0x12345678);
}

// A string that is no constant: its count can be looked at.
inline CFMutableStringRef NewMutableString(const char* theText)
{
    CFMutableStringRef theString = CFStringCreateMutable(nullptr, 0);
    CFStringAppendCString(theString, theText, kCFStringEncodingUTF8);
    return theString;
}

// A parameter of an event, or zero.
template <class Type>
Type Parameter(EventRef theEvent, EventParamName theName, EventParamType theType)
{
    Type theValue = {};
    GetEventParameter(theEvent, theName, theType, nullptr, sizeof theValue, nullptr, &theValue);
    return theValue;
}

// The parameter that tests set and read.
const EventParamName kName = 'name';

template <class Type>
OSStatus Read(EventRef theEvent, EventParamType theType, Type* theValue)
{
    return GetEventParameter(theEvent, kName, theType, nullptr, sizeof *theValue, nullptr, theValue);
}

// An event, released at the end.
class TestEvent
{
public:
    explicit TestEvent(UInt32 theKind = 1)
        : TestEvent(kTestClass, theKind)
    {
    }
    TestEvent(OSType theClass, UInt32 theKind, EventAttributes theAttributes = kEventAttributeNone)
    {
        CreateEvent(nullptr, theClass, theKind, 0, theAttributes, &mEvent);
    }
    ~TestEvent() { ReleaseEvent(mEvent); }
    TestEvent(const TestEvent&) = delete;
    TestEvent& operator=(const TestEvent&) = delete;

    EventRef Get() const { return mEvent; }

    template <class Type>
    OSStatus Set(EventParamName theName, EventParamType theType, const Type& theValue)
    {
        return SetEventParameter(mEvent, theName, theType, sizeof theValue, &theValue);
    }

private:
    EventRef mEvent = nullptr;
};

// A handler that notes its name when it is called, then does what the test wants and answers. It removes
// itself at the end.
class TestHandler
{
public:
    using Action = std::function<OSStatus(EventHandlerCallRef, EventRef)>;

    TestHandler(EventTargetRef theTarget, std::string theName, Log& theLog, OSStatus theAnswer)
        : TestHandler(theTarget, std::move(theName), theLog,
                      [theAnswer](EventHandlerCallRef, EventRef) { return theAnswer; })
    {
    }

    TestHandler(EventTargetRef theTarget, std::string theName, Log& theLog, Action theAction,
                std::vector<EventTypeSpec> theTypes = {kTestEvent})
        : mName(std::move(theName)),
          mLog(theLog),
          mAction(std::move(theAction))
    {
        mStatus = InstallEventHandler(theTarget, Call, theTypes.size(), theTypes.data(), this, &mReference);
    }
    ~TestHandler() { Remove(); }
    TestHandler(const TestHandler&) = delete;
    TestHandler& operator=(const TestHandler&) = delete;

    OSStatus Status() const { return mStatus; }
    EventHandlerRef Get() const { return mReference; }
    OSStatus Remove() { return RemoveEventHandler(mReference); }

private:
    static OSStatus Call(EventHandlerCallRef theCall, EventRef theEvent, void* theUserData)
    {
        auto* theHandler = static_cast<TestHandler*>(theUserData);
        theHandler->mLog.push_back(theHandler->mName);
        return theHandler->mAction(theCall, theEvent);
    }

    std::string mName;
    Log& mLog;
    Action mAction;
    EventHandlerRef mReference = nullptr;
    OSStatus mStatus = noErr;
};

// What a handler does that only answers.
inline TestHandler::Action Answer(OSStatus theStatus)
{
    return [theStatus](EventHandlerCallRef, EventRef) { return theStatus; };
}

// A window with a group box that holds a button: button, box, root of the window, window, application.
class EventTargetTest : public testing::Test
{
protected:
    EventTargetTest()
    {
        const Rect theBounds = {100, 100, 300, 400};
        const Rect theBoxBounds = {10, 10, 100, 200};
        const Rect theButtonBounds = {30, 30, 50, 100};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &mWindow);
        CreateGroupBoxControl(mWindow, &theBoxBounds, CFSTR("Box"), true, &mBox);
        CreatePushButtonControl(mWindow, &theButtonBounds, CFSTR("Button"), &mButton);
        EmbedControl(mButton, mBox);
    }
    ~EventTargetTest() override
    {
        if (mWindow != nullptr) {
            DisposeWindow(mWindow);
        }
    }

    EventTargetRef Button() const { return GetControlEventTarget(mButton); }
    EventTargetRef Box() const { return GetControlEventTarget(mBox); }
    EventTargetRef Window() const { return GetWindowEventTarget(mWindow); }

    static EventTargetRef Application() { return GetApplicationEventTarget(); }

    static OSStatus Send(EventTargetRef theTarget, OptionBits theOptions = 0)
    {
        const TestEvent theEvent;
        return SendEventToEventTargetWithOptions(theEvent.Get(), theTarget, theOptions);
    }

    Log mLog;
    WindowRef mWindow = nullptr;
    ControlRef mBox = nullptr;
    ControlRef mButton = nullptr;
};

// The loop under a clock that stands still unless it is waited for.
class EventLoopTest : public testing::Test
{
protected:
    EventLoopTest() { FlushEventQueue(GetMainEventQueue()); }
    ~EventLoopTest() override { FlushEventQueue(GetMainEventQueue()); }

    static EventRef Post(UInt32 theKind)
    {
        const TestEvent theEvent(theKind);
        PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
        return theEvent.Get();
    }

    Host::VirtualClock mClock{1000};
    Log mLog;
};

// A timer that notes the time since the start of the test, then does what the test wants. It is removed at
// the end.
class TestTimer
{
public:
    using Action = std::function<void()>;

    TestTimer(EventTimerInterval theDelay, EventTimerInterval theInterval, Action theAction)
        : mAction(std::move(theAction))
    {
        mStatus = InstallEventLoopTimer(GetMainEventLoop(), theDelay, theInterval, Fire, this, &mReference);
    }
    TestTimer(EventTimerInterval theDelay, EventTimerInterval theInterval, const std::string& theName,
              Log& theLog)
        : TestTimer(theDelay, theInterval, [theName, &theLog] {
              theLog.push_back(theName + " " + std::to_string(std::lround(GetCurrentEventTime() - 1000)));
          })
    {
    }
    ~TestTimer() { RemoveEventLoopTimer(mReference); }
    TestTimer(const TestTimer&) = delete;
    TestTimer& operator=(const TestTimer&) = delete;

    OSStatus Status() const { return mStatus; }
    EventLoopTimerRef Get() const { return mReference; }

private:
    static void Fire(EventLoopTimerRef theTimer, void* theUserData)
    {
        auto* theSelf = static_cast<TestTimer*>(theUserData);
        EXPECT_EQ(theTimer, theSelf->mReference);
        theSelf->mAction();
    }

    Action mAction;
    EventLoopTimerRef mReference = nullptr;
    OSStatus mStatus = noErr;
};

// Lets another thread do something as soon as the loop has begun to wait, once. The wait ends when the other
// thread wakes the loop; it fails the test when that never happens.
class DuringTheWait
{
public:
    explicit DuringTheWait(std::function<void()> theAction)
    {
        Host::PresenterRegistry::Use(std::make_unique<WaitingPresenter>(std::move(theAction)));
    }
    ~DuringTheWait() { Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>()); }
    DuringTheWait(const DuringTheWait&) = delete;
    DuringTheWait& operator=(const DuringTheWait&) = delete;

private:
    class WaitingPresenter : public Host::Presenter
    {
    public:
        explicit WaitingPresenter(std::function<void()> theAction)
            : mAction(std::move(theAction))
        {
        }
        bool WaitUntil(double theDeadline, double theNow) override
        {
            if (mAction == nullptr) {
                return false;
            }
            if (theDeadline >= 0 && theDeadline <= theNow) {
                return true;
            }
            std::thread theOther(std::exchange(mAction, nullptr));
            std::unique_lock<std::mutex> theLock(mMutex);
            // Only a failure takes so long.
            EXPECT_TRUE(mCondition.wait_for(theLock, std::chrono::seconds(20), [this] { return mIsWoken; }));
            theLock.unlock();
            theOther.join();
            return true;
        }
        void Wake() override
        {
            const std::lock_guard<std::mutex> theLock(mMutex);
            mIsWoken = true;
            mCondition.notify_one();
        }

    private:
        std::function<void()> mAction;
        std::mutex mMutex;
        std::condition_variable mCondition;
        bool mIsWoken = false;
    };
};

#endif
