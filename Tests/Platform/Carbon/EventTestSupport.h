// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef EventTestSupport_h
#define EventTestSupport_h

#include <Carbon/Carbon.h>
#include <functional>
#include <string>
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
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the point is that it refers to nothing.
    return reinterpret_cast<Reference>(0x12345678);
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
    void Set(EventParamName theName, EventParamType theType, const Type& theValue)
    {
        SetEventParameter(mEvent, theName, theType, sizeof theValue, &theValue);
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

#endif
