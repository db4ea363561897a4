// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>

namespace {

// Where the part of a dial is.
const ControlPartCode kDialPart = 1;

OSStatus HandleDialEvent(EventHandlerCallRef, EventRef theEvent, void*)
{
    if (GetEventClass(theEvent) == kEventClassControl) {
        return SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof kDialPart,
                                 &kDialPart);
    }
    return noErr;
}

} // namespace

TEST(ExamplesOfHIObject, ADialIsAView)
{
    WindowRef theWindow = nullptr;
    const Rect theBounds = {100, 100, 200, 200};
    ASSERT_EQ(CreateNewWindow(kDocumentWindowClass, kWindowCompositingAttribute, &theBounds, &theWindow),
              noErr);
    HIViewRef theContent = HIViewGetRoot(theWindow);
    HIObjectRef theDial = nullptr;
    // @code 1
    EXPECT_EQ(HIViewGetFirstSubview(theContent), (HIViewRef)theDial);
    HIViewSetVisible((HIViewRef)theDial, true);
    const HIRect theFrame = CGRectMake(0, 0, 50, 50);
    HIViewSetFrame((HIViewRef)theDial, &theFrame);
    const HIPoint thePoint = CGPointMake(5, 5);
    HIViewPartCode thePart = kControlNoPart;
    EXPECT_EQ(HIViewGetPartHit((HIViewRef)theDial, &thePoint, &thePart), noErr);
    EXPECT_EQ(thePart, kDialPart);
    DisposeWindow(theWindow);
}
