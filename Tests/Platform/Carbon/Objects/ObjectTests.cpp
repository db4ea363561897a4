// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Making objects, and asking them what they are.

#include "ObjectTestSupport.h"

namespace {

class Objects : public ViewTest
{
protected:
    static std::string ClassOf(HIObjectRef theObject)
    {
        const CFStringRef theName = HIObjectCopyClassID(theObject);
        std::string theText = theName == nullptr ? "none" : TextOf(theName);
        if (theName != nullptr) {
            CFRelease(theName);
        }
        return theText;
    }
};

} // namespace

TEST_F(Objects, AnObjectIsOfItsClassAndOfThoseItIsMadeOf)
{
    TestClass theBase("test.base", kHIUserPaneClassID, mLog);
    TestClass theDerived("test.derived", CFSTR("test.base"), mLog);
    HIObjectRef theObject = theDerived.New();
    EXPECT_EQ(ClassOf(theObject), "test.derived");
    for (CFStringRef theName :
         {CFSTR("test.derived"), CFSTR("test.base"), kHIUserPaneClassID, kHIViewClassID}) {
        EXPECT_TRUE(HIObjectIsOfClass(theObject, theName)) << TextOf(theName);
    }
    EXPECT_FALSE(HIObjectIsOfClass(theObject, kHISliderClassID));
    EXPECT_FALSE(HIObjectIsOfClass(theObject, nullptr));
    EXPECT_EQ(HIObjectDynamicCast(theObject, kHIViewClassID), theObject);
    CFRelease(theObject);
    EXPECT_EQ(ClassOf(theObject), "none");
    EXPECT_FALSE(HIObjectIsOfClass(theObject, CFSTR("test.derived")));
    EXPECT_EQ(HIObjectGetEventTarget(theObject), nullptr);
}

TEST_F(Objects, ControlsAreOfTheClassesOfThePlatform)
{
    const auto theSlider = reinterpret_cast<HIObjectRef>(NewSlider());
    EXPECT_EQ(ClassOf(theSlider), TextOf(kHISliderClassID));
    EXPECT_TRUE(HIObjectIsOfClass(theSlider, kHISliderClassID));
    EXPECT_TRUE(HIObjectIsOfClass(theSlider, kHIViewClassID));
    EXPECT_FALSE(HIObjectIsOfClass(theSlider, kHICheckBoxClassID));
    EXPECT_EQ(HIObjectDynamicCast(theSlider, kHISliderClassID), theSlider);
    EXPECT_EQ(ClassOf(reinterpret_cast<HIObjectRef>(NewGroupBox())), TextOf(kHIViewClassID));
    EXPECT_EQ(ClassOf(reinterpret_cast<HIObjectRef>(NewEditText())), TextOf(kHITextFieldClassID));
    EXPECT_EQ(ClassOf(reinterpret_cast<HIObjectRef>(mWindow)), "none");
}

TEST_F(Objects, TheEventsOfEverythingHaveATarget)
{
    ControlRef theSlider = NewSlider();
    MenuRef theMenu = nullptr;
    ASSERT_EQ(CreateNewMenu(1, 0, &theMenu), noErr);
    EXPECT_EQ(HIObjectGetEventTarget(reinterpret_cast<HIObjectRef>(theSlider)),
              GetControlEventTarget(theSlider));
    EXPECT_EQ(HIObjectGetEventTarget(reinterpret_cast<HIObjectRef>(mWindow)), GetWindowEventTarget(mWindow));
    EXPECT_EQ(HIObjectGetEventTarget(reinterpret_cast<HIObjectRef>(theMenu)), GetMenuEventTarget(theMenu));
    EXPECT_EQ(HIObjectGetEventTarget(nullptr), nullptr);
    EXPECT_EQ(HIObjectGetEventTarget(InventedReference<HIObjectRef>()), nullptr);
    ReleaseMenu(theMenu);
}

TEST_F(Objects, WhatCannotBeMadeIsRefused)
{
    HIObjectRef theObject = InventedReference<HIObjectRef>();
    EXPECT_EQ(HIObjectCreate(CFSTR("test.unknown"), nullptr, &theObject), paramErr);
    EXPECT_EQ(theObject, nullptr);
    EXPECT_EQ(HIObjectCreate(nullptr, nullptr, &theObject), paramErr);
    EXPECT_EQ(HIObjectCreate(kHIViewClassID, nullptr, nullptr), paramErr);
    EXPECT_EQ(HIObjectCreate(kHISliderClassID, nullptr, &theObject), paramErr);
}

TEST_F(Objects, TheProgramSaysMoreAboutItsObjects)
{
    TestClass theClass("test.dial", nullptr, mLog, {{kEventClassHIObject, kEventHIObjectPrintDebugInfo}});
    HIObjectRef theObject = theClass.New();
    TakeLog();
    testing::internal::CaptureStdout();
    HIObjectPrintDebugInfo(theObject);
    HIObjectPrintDebugInfo(nullptr);
    std::ostringstream theExpected;
    theExpected << "test.dial " << static_cast<void*>(theObject) << '\n';
    EXPECT_EQ(testing::internal::GetCapturedStdout(), theExpected.str());
    EXPECT_EQ(TakeLog(), Log{"test.dial: PrintDebugInfo"});
    CFRelease(theObject);
}
