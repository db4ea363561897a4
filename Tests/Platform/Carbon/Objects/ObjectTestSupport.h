// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ObjectTestSupport_h
#define ObjectTestSupport_h

#include "Views/ViewTestSupport.h"

#include <map>

// A class of objects whose function notes what it hears as "name: event", and answers as the test says. It
// makes data for each instance, which are freed in Destruct.
class TestClass
{
public:
    TestClass(const char* theName, CFStringRef theBase, Log& theLog,
              std::vector<EventTypeSpec> theEvents = {})
        : mName(theName),
          mLog(theLog)
    {
        for (const UInt32 theKind :
             {kEventHIObjectConstruct, kEventHIObjectInitialize, kEventHIObjectDestruct}) {
            theEvents.push_back({kEventClassHIObject, theKind});
        }
        EXPECT_EQ(HIObjectRegisterSubclass(TestString(theName), theBase, 0, Call, theEvents.size(),
                                           theEvents.data(), this, &mReference),
                  noErr);
    }
    ~TestClass() { EXPECT_EQ(HIObjectUnregisterClass(mReference), noErr); }
    TestClass(const TestClass&) = delete;
    TestClass& operator=(const TestClass&) = delete;

    HIObjectClassRef Reference() const { return mReference; }

    // An object, or null with the status that was expected.
    HIObjectRef New(OSStatus theExpected = noErr, EventRef theParameters = nullptr) const
    {
        HIObjectRef theObject = InventedReference<HIObjectRef>();
        EXPECT_EQ(HIObjectCreate(TestString(mName.c_str()), theParameters, &theObject), theExpected);
        return theObject;
    }
    HIViewRef NewView() const { return reinterpret_cast<HIViewRef>(New()); }

    // What it does with an event of a class and kind; it calls the next handler first where it answers
    // eventNotHandledErr.
    using Action = std::function<OSStatus(HIObjectRef theObject, EventRef theEvent)>;
    void On(OSType theClass, UInt32 theKind, Action theAction)
    {
        mActions[{theClass, theKind}] = std::move(theAction);
    }

private:
    // What an instance has of this class.
    struct Data
    {
        TestClass* theClass;
        HIObjectRef theObject;
    };

    static std::string EventName(EventRef theEvent)
    {
        if (GetEventClass(theEvent) != kEventClassHIObject) {
            return NameOf(theEvent);
        }
        const char* const kNames[] = {"?",        "Construct", "Initialize",
                                      "Destruct", "IsEqual",   "PrintDebugInfo"};
        return kNames[GetEventKind(theEvent)];
    }

    static OSStatus Call(EventHandlerCallRef theNext, EventRef theEvent, void* theUserData)
    {
        const bool theIsObjects = GetEventClass(theEvent) == kEventClassHIObject;
        if (theIsObjects && GetEventKind(theEvent) == kEventHIObjectConstruct) {
            EXPECT_EQ(theNext, nullptr);
            return static_cast<TestClass*>(theUserData)->Construct(theEvent);
        }
        Data* const theData = static_cast<Data*>(theUserData);
        const OSStatus theStatus = theData->theClass->Answer(theData->theObject, theEvent);
        if (theIsObjects && GetEventKind(theEvent) == kEventHIObjectDestruct) {
            delete theData;
        }
        return theStatus;
    }

    OSStatus Construct(EventRef theEvent)
    {
        const auto theObject = Parameter<HIObjectRef>(theEvent, kEventParamHIObjectInstance, typeHIObjectRef);
        OSStatus theStatus = Answer(theObject, theEvent);
        theStatus = theStatus == eventNotHandledErr ? OSStatus{noErr} : theStatus;
        if (theStatus == noErr) {
            Data* const theData = new Data{this, theObject};
            SetEventParameter(theEvent, kEventParamHIObjectInstance, typeVoidPtr, sizeof theData, &theData);
        }
        return theStatus;
    }

    OSStatus Answer(HIObjectRef theObject, EventRef theEvent)
    {
        mLog.push_back(mName + ": " + EventName(theEvent));
        const auto theAction = mActions.find({GetEventClass(theEvent), GetEventKind(theEvent)});
        return theAction == mActions.end() ? OSStatus{eventNotHandledErr}
                                           : theAction->second(theObject, theEvent);
    }

    std::string mName;
    Log& mLog;
    HIObjectClassRef mReference = nullptr;
    std::map<std::pair<OSType, UInt32>, Action> mActions;
};

#endif
