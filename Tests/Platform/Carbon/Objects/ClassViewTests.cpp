// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Views of a program's own classes.

#include "ObjectTestSupport.h"

namespace {

const EventTypeSpec kInitialize = {kEventClassControl, kEventControlInitialize};
const EventTypeSpec kDispose = {kEventClassControl, kEventControlDispose};

class ClassViews : public ViewTest
{
protected:
    static UInt32 FeaturesOf(HIViewRef theView)
    {
        HIViewFeatures theFeatures = 0;
        EXPECT_EQ(HIViewGetFeatures(theView, &theFeatures), noErr);
        return theFeatures;
    }
};

} // namespace

TEST_F(ClassViews, ANewViewIsNowhereAndHidden)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog);
    HIViewRef theView = theClass.NewView();
    EXPECT_TRUE(HIViewIsValid(theView));
    EXPECT_EQ(HIViewGetWindow(theView), nullptr);
    EXPECT_EQ(HIViewGetSuperview(theView), nullptr);
    EXPECT_FALSE(HIViewIsVisible(theView));
    EXPECT_EQ(Frame(theView), "0, 0, 0 x 0");
    CFRelease(theView);
    EXPECT_FALSE(HIViewIsValid(theView));
}

TEST_F(ClassViews, NobodyElseHearsOfItsMaking)
{
    EventWatch theApplication(GetApplicationEventTarget(), "application", mLog, EventWatch::ControlEvents());
    TestClass theClass("test.dial", kHIViewClassID, mLog, {kInitialize});
    HIViewRef theView = theClass.NewView();
    EXPECT_EQ(TakeLog().size(), 3u);
    CFRelease(theView);
}

TEST_F(ClassViews, ItHearsOfItsControlAfterItself)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog, {kInitialize, kDispose});
    theClass.On(kEventClassControl, kEventControlInitialize, [](HIObjectRef theObject, EventRef theEvent) {
        EXPECT_EQ(Parameter<ControlRef>(theEvent, kEventParamDirectObject, typeControlRef),
                  reinterpret_cast<ControlRef>(theObject));
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamControlFeatures, typeUInt32),
                  UInt32{kControlSupportsEmbedding});
        const UInt32 theFeatures = kControlSupportsFocus;
        SetEventParameter(theEvent, kEventParamControlFeatures, typeUInt32, sizeof theFeatures, &theFeatures);
        return OSStatus{noErr};
    });
    HIViewRef theView = theClass.NewView();
    const Log theStart = TakeLog();
    ASSERT_EQ(theStart.size(), 3u);
    EXPECT_EQ(theStart[0], "test.dial: Construct");
    EXPECT_EQ(theStart[1], "test.dial: Initialize");
    EXPECT_EQ(FeaturesOf(theView), UInt32{kControlSupportsFocus});
    DisposeControl(theView);
    const Log theEnd = TakeLog();
    ASSERT_EQ(theEnd.size(), 2u);
    EXPECT_EQ(theEnd[1], "test.dial: Destruct");
}

TEST_F(ClassViews, AControlThatFailsToBeginIsNone)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog, {kInitialize});
    theClass.On(kEventClassControl, kEventControlInitialize,
                [](HIObjectRef, EventRef) { return OSStatus{memFullErr}; });
    EXPECT_EQ(theClass.New(memFullErr), nullptr);
    theClass.On(kEventClassControl, kEventControlInitialize, [](HIObjectRef theObject, EventRef) {
        DisposeControl(reinterpret_cast<ControlRef>(theObject));
        return OSStatus{noErr};
    });
    EXPECT_EQ(theClass.New(paramErr), nullptr);
    EXPECT_EQ(TakeLog().back(), "test.dial: Destruct");
}

TEST_F(ClassViews, AViewThatIsDisposedInItsOwnConstructionEndsThere)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog);
    theClass.On(kEventClassHIObject, kEventHIObjectConstruct, [](HIObjectRef theObject, EventRef) {
        DisposeControl(reinterpret_cast<ControlRef>(theObject));
        return OSStatus{noErr};
    });
    EXPECT_EQ(theClass.New(paramErr), nullptr);
    EXPECT_EQ(TakeLog(), (Log{"test.dial: Construct", "test.dial: Destruct"}));
}

TEST_F(ClassViews, AViewGoesWithItsWindow)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog);
    HIViewRef theOuter = theClass.NewView();
    HIViewRef theInner = theClass.NewView();
    EXPECT_EQ(HIViewAddSubview(Root(), theOuter), noErr);
    EXPECT_EQ(HIViewAddSubview(theOuter, theInner), noErr);
    EXPECT_EQ(HIViewGetWindow(theInner), mWindow);
    CFRetain(theInner);
    TakeLog();
    DisposeWindow(mWindow);
    EXPECT_EQ(TakeLog(), (Log{"test.dial: Destruct", "test.dial: Destruct"}));
    CFRelease(theInner);
}

TEST_F(ClassViews, AViewTakesTheFocusWhenItHasTheFeature)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog);
    HIViewRef theView = theClass.NewView();
    SetFrame(theView, 10, 10, 50, 50);
    HIViewSetVisible(theView, true);
    ASSERT_EQ(HIViewAddSubview(Root(), theView), noErr);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), errCouldntSetFocus);
    EXPECT_EQ(HIViewChangeFeatures(theView, kHIViewFeatureGetsFocusOnClick, 0), noErr);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), noErr);
    EXPECT_TRUE(HIViewSubtreeContainsFocus(theView));
    DisposeControl(theView);
}
