// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The classes that a program can make objects of.

#include "ObjectTestSupport.h"

namespace {

const EventTypeSpec kLife[] = {{kEventClassHIObject, kEventHIObjectConstruct},
                               {kEventClassHIObject, kEventHIObjectDestruct}};

OSStatus Nothing(EventHandlerCallRef, EventRef, void*)
{
    return eventNotHandledErr;
}

OSStatus Register(CFStringRef theName, CFStringRef theBase, HIObjectClassRef* theReference = nullptr)
{
    return HIObjectRegisterSubclass(theName, theBase, 0, Nothing, 2, kLife, nullptr, theReference);
}

using ObjectClasses = ViewTest;

} // namespace

TEST_F(ObjectClasses, ANameIsTakenUntilItsClassIsGone)
{
    HIObjectClassRef theClass = nullptr;
    ASSERT_EQ(Register(CFSTR("test.dial"), nullptr, &theClass), noErr);
    HIObjectClassRef theOther = theClass;
    EXPECT_EQ(Register(CFSTR("test.dial"), nullptr, &theOther), hiObjectClassExistsErr);
    EXPECT_EQ(theOther, nullptr);
    EXPECT_EQ(HIObjectUnregisterClass(theClass), noErr);
    EXPECT_EQ(HIObjectUnregisterClass(theClass), paramErr);
    EXPECT_EQ(Register(CFSTR("test.dial"), nullptr, &theClass), noErr);
    EXPECT_EQ(HIObjectUnregisterClass(theClass), noErr);
    EXPECT_EQ(Register(kHIViewClassID, nullptr), hiObjectClassExistsErr);
}

TEST_F(ObjectClasses, BadClassesAreRefused)
{
    EXPECT_EQ(Register(nullptr, nullptr), paramErr);
    EXPECT_EQ(Register(CFSTR(""), nullptr), paramErr);
    EXPECT_EQ(Register(CFSTR("test.dial"), CFSTR("test.unknown")), paramErr);
    EXPECT_EQ(HIObjectRegisterSubclass(CFSTR("test.dial"), nullptr, 1, Nothing, 2, kLife, nullptr, nullptr),
              paramErr);
    EXPECT_EQ(HIObjectRegisterSubclass(CFSTR("test.dial"), nullptr, 0, Nothing, 2, nullptr, nullptr, nullptr),
              paramErr);
    EXPECT_EQ(HIObjectUnregisterClass(nullptr), paramErr);
    EXPECT_EQ(HIObjectUnregisterClass(InventedReference<HIObjectClassRef>()), paramErr);
}

TEST_F(ObjectClasses, AFunctionMustHearTheBeginningAndTheEnd)
{
    for (const EventTypeSpec& theOne : kLife) {
        EXPECT_EQ(
            HIObjectRegisterSubclass(CFSTR("test.dial"), nullptr, 0, Nothing, 1, &theOne, nullptr, nullptr),
            paramErr);
    }
}

TEST_F(ObjectClasses, AClassThatIsInUseStays)
{
    Log theLog;
    TestClass theBase("test.base", nullptr, theLog);
    HIObjectRef theObject = theBase.New();
    EXPECT_EQ(HIObjectUnregisterClass(theBase.Reference()), hiObjectClassHasInstancesErr);
    CFRelease(theObject);
    {
        TestClass theDerived("test.derived", CFSTR("test.base"), theLog);
        EXPECT_EQ(HIObjectUnregisterClass(theBase.Reference()), hiObjectClassHasSubclassesErr);
        theBase.On(kEventClassHIObject, kEventHIObjectConstruct, [&](HIObjectRef, EventRef) {
            EXPECT_EQ(HIObjectUnregisterClass(theDerived.Reference()), hiObjectClassHasInstancesErr);
            return OSStatus{noErr};
        });
        CFRelease(theDerived.New());
    }
}

TEST_F(ObjectClasses, OnlyOthersAreMadeOfAClassWithoutAFunction)
{
    HIObjectClassRef theAbstract = nullptr;
    ASSERT_EQ(HIObjectRegisterSubclass(CFSTR("test.abstract"), nullptr, 0, nullptr, 0, nullptr, nullptr,
                                       &theAbstract),
              noErr);
    HIObjectRef theObject = nullptr;
    EXPECT_EQ(HIObjectCreate(CFSTR("test.abstract"), nullptr, &theObject), hiObjectClassIsAbstractErr);
    {
        Log theLog;
        TestClass theClass("test.real", CFSTR("test.abstract"), theLog);
        theObject = theClass.New();
        EXPECT_TRUE(HIObjectIsOfClass(theObject, CFSTR("test.abstract")));
        EXPECT_EQ(HIObjectDynamicCast(theObject, CFSTR("test.abstract")), nullptr);
        CFRelease(theObject);
    }
    EXPECT_EQ(HIObjectUnregisterClass(theAbstract), noErr);
}
