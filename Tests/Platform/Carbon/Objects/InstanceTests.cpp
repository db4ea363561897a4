// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The order in which an object's classes hear of its beginning and its end, and what cuts it short.

#include "ObjectTestSupport.h"

namespace {

class Instances : public ViewTest
{
protected:
    TestClass mBase{"base", nullptr, mLog};
    TestClass mDerived{"derived", CFSTR("base"), mLog};
};

} // namespace

TEST_F(Instances, TheBaseIsBuiltFirstAndGoesLast)
{
    HIObjectRef theObject = mDerived.New();
    ASSERT_NE(theObject, nullptr);
    EXPECT_EQ(TakeLog(),
              (Log{"base: Construct", "derived: Construct", "derived: Initialize", "base: Initialize"}));
    CFRelease(theObject);
    EXPECT_EQ(TakeLog(), (Log{"derived: Destruct", "base: Destruct"}));
}

TEST_F(Instances, EveryClassHearsTheEndWhateverTheOthersAnswer)
{
    mDerived.On(kEventClassHIObject, kEventHIObjectDestruct,
                [](HIObjectRef, EventRef) { return OSStatus{noErr}; });
    CFRelease(mDerived.New());
    EXPECT_EQ(TakeLog().back(), "base: Destruct");
}

TEST_F(Instances, TheParametersAreThoseOfTheCaller)
{
    SInt32 theNumber = 0;
    mBase.On(kEventClassHIObject, kEventHIObjectInitialize, [&](HIObjectRef, EventRef theEvent) {
        theNumber = Parameter<SInt32>(theEvent, kName, typeSInt32);
        return OSStatus{noErr};
    });
    TestEvent theParameters(kEventClassHIObject, kEventHIObjectInitialize);
    const SInt32 theValue = 7;
    SetEventParameter(theParameters.Get(), kName, typeSInt32, sizeof theValue, &theValue);
    CFRelease(mDerived.New(noErr, theParameters.Get()));
    EXPECT_EQ(theNumber, 7);
    TestEvent theOther(kEventClassHIObject, kEventHIObjectConstruct);
    TakeLog();
    EXPECT_EQ(mDerived.New(paramErr, theOther.Get()), nullptr);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(Instances, WhatWasBuiltGoesAgainWhenAClassFails)
{
    mDerived.On(kEventClassHIObject, kEventHIObjectConstruct,
                [](HIObjectRef, EventRef) { return OSStatus{memFullErr}; });
    EXPECT_EQ(mDerived.New(memFullErr), nullptr);
    EXPECT_EQ(TakeLog(), (Log{"base: Construct", "derived: Construct", "base: Destruct"}));
}

TEST_F(Instances, WhatWasBuiltGoesAgainWhenTheParametersAreBad)
{
    mBase.On(kEventClassHIObject, kEventHIObjectInitialize,
             [](HIObjectRef, EventRef) { return OSStatus{paramErr}; });
    EXPECT_EQ(mDerived.New(paramErr), nullptr);
    EXPECT_EQ(TakeLog(), (Log{"base: Construct", "derived: Construct", "derived: Initialize",
                              "base: Initialize", "derived: Destruct", "base: Destruct"}));
}

TEST_F(Instances, AnObjectReleasedInItsOwnConstructionEndsThere)
{
    mDerived.On(kEventClassHIObject, kEventHIObjectConstruct, [](HIObjectRef theObject, EventRef) {
        CFRelease(theObject);
        return OSStatus{noErr};
    });
    EXPECT_EQ(mDerived.New(paramErr), nullptr);
    EXPECT_EQ(TakeLog(),
              (Log{"base: Construct", "derived: Construct", "base: Destruct", "derived: Destruct"}));
}

TEST_F(Instances, AnObjectReleasedWhileItIsInitialisedEndsThere)
{
    mDerived.On(kEventClassHIObject, kEventHIObjectInitialize, [](HIObjectRef theObject, EventRef) {
        CFRelease(theObject);
        return OSStatus{noErr};
    });
    EXPECT_EQ(mDerived.New(paramErr), nullptr);
    EXPECT_EQ(TakeLog().back(), "base: Destruct");
}

TEST_F(Instances, TheDataOfEachClassAreFoundByItsName)
{
    HIObjectRef theObject = mDerived.New();
    void* const theBases = HIObjectDynamicCast(theObject, CFSTR("base"));
    EXPECT_NE(theBases, nullptr);
    EXPECT_NE(HIObjectDynamicCast(theObject, CFSTR("derived")), nullptr);
    EXPECT_NE(HIObjectDynamicCast(theObject, CFSTR("derived")), theBases);
    EXPECT_EQ(HIObjectDynamicCast(theObject, CFSTR("unknown")), nullptr);
    EXPECT_EQ(HIObjectDynamicCast(theObject, kHIViewClassID), nullptr);
    EXPECT_EQ(HIObjectDynamicCast(theObject, nullptr), nullptr);
    EXPECT_EQ(HIObjectDynamicCast(nullptr, CFSTR("base")), nullptr);
    CFRelease(theObject);
}
