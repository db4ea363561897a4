// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Objects, views, windows and menus as CFRetain and CFRelease count them.

#include "ObjectTestSupport.h"

namespace {

using ObjectCounts = ViewTest;

} // namespace

TEST_F(ObjectCounts, TheLastReleaseDisposesAControl)
{
    ControlRef theSlider = NewSlider();
    EXPECT_EQ(CFGetRetainCount(theSlider), 1);
    EXPECT_EQ(CFRetain(theSlider), static_cast<CFTypeRef>(theSlider));
    EXPECT_EQ(CFGetRetainCount(theSlider), 2);
    CFRelease(theSlider);
    EXPECT_TRUE(IsValidControlHandle(theSlider));
    CFRelease(theSlider);
    EXPECT_FALSE(IsValidControlHandle(theSlider));
    CFRelease(theSlider);
    EXPECT_EQ(CFGetRetainCount(theSlider), 0);
}

TEST_F(ObjectCounts, ARootGoesWithItsWindow)
{
    HIViewRef theRoot = Root();
    CFRelease(theRoot);
    EXPECT_TRUE(IsValidControlHandle(theRoot));
    DisposeWindow(mWindow);
    EXPECT_FALSE(IsValidControlHandle(theRoot));
}

TEST_F(ObjectCounts, WindowsAndMenusHaveTheirOwnCounts)
{
    CFRetain(mWindow);
    EXPECT_EQ(GetWindowRetainCount(mWindow), 2u);
    EXPECT_EQ(CFGetRetainCount(mWindow), 2);
    CFRelease(mWindow);
    EXPECT_EQ(GetWindowRetainCount(mWindow), 1u);
    MenuRef theMenu = nullptr;
    ASSERT_EQ(CreateNewMenu(1, 0, &theMenu), noErr);
    CFRetain(theMenu);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 2u);
    EXPECT_EQ(CFGetRetainCount(theMenu), 2);
    CFRelease(theMenu);
    CFRelease(theMenu);
    EXPECT_FALSE(IsValidMenu(theMenu));
}

TEST_F(ObjectCounts, AContainerHoldsViews)
{
    ControlRef theSlider = NewSlider();
    CFMutableArrayRef theViews = CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks);
    CFArrayAppendValue(theViews, theSlider);
    EXPECT_EQ(CFGetRetainCount(theSlider), 2);
    EXPECT_TRUE(CFArrayContainsValue(theViews, CFRangeMake(0, 1), theSlider));
    EXPECT_FALSE(CFEqual(theSlider, NewCheckBox()));
    CFRelease(theViews);
    EXPECT_EQ(CFGetRetainCount(theSlider), 1);
    const CFStringRef theType = CFCopyTypeIDDescription(CFGetTypeID(theSlider));
    EXPECT_EQ(TextOf(theType), "HIObject");
    CFRelease(theType);
}
