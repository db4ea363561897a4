// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Objects that are no views.

#include "ObjectTestSupport.h"

namespace {

using PlainObjects = ViewTest;

} // namespace

TEST_F(PlainObjects, HandlersHearTheirEventsUntilTheEnd)
{
    TestClass theClass("test.model", nullptr, mLog, {kTestEvent});
    HIObjectRef theObject = theClass.New();
    EventWatch theApplication(GetApplicationEventTarget(), "application", mLog, {kTestEvent});
    TakeLog();
    TestEvent theEvent;
    EventTargetRef theTarget = HIObjectGetEventTarget(theObject);
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), theTarget), eventNotHandledErr);
    EXPECT_EQ(TakeLog().size(), 1u);
    CFRelease(theObject);
    TakeLog();
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), theTarget), paramErr);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(PlainObjects, AnObjectThatIsRetainedLivesOn)
{
    TestClass theClass("test.model", nullptr, mLog);
    HIObjectRef theObject = theClass.New();
    CFRetain(theObject);
    CFRelease(theObject);
    EXPECT_TRUE(HIObjectIsOfClass(theObject, CFSTR("test.model")));
    TakeLog();
    CFRelease(theObject);
    CFRelease(theObject);
    EXPECT_EQ(TakeLog(), Log{"test.model: Destruct"});
}

TEST_F(PlainObjects, AnObjectIsReleasedOnceMoreInItsEnd)
{
    TestClass theClass("test.model", nullptr, mLog);
    theClass.On(kEventClassHIObject, kEventHIObjectDestruct, [](HIObjectRef theObject, EventRef) {
        CFRelease(theObject);
        return OSStatus{noErr};
    });
    HIObjectRef theObject = theClass.New();
    TakeLog();
    CFRelease(theObject);
    EXPECT_EQ(TakeLog(), Log{"test.model: Destruct"});
}
