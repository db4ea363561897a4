// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What programs keep in controls under codes of their own; windows and menu items keep it the same way.

#include "ManagerTestSupport.h"

namespace {

using Properties = ManagerTest;

} // namespace

TEST_F(Properties, KeepsPropertiesAsCopies)
{
    ControlRef theSlider = NewSlider();
    char theData[] = "hello";
    EXPECT_EQ(SetControlProperty(theSlider, 'LMTE', 'data', 5, theData), noErr);
    theData[0] = 'j';
    char theRead[8] = {};
    ByteCount theSize = 0;
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 5u);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 5, &theSize, theRead), noErr);
    EXPECT_STREQ(theRead, "hello");
    EXPECT_EQ(SetControlProperty(theSlider, 'LMTE', 'data', 0, nullptr), noErr);
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 0u);
    EXPECT_EQ(RemoveControlProperty(theSlider, 'LMTE', 'data'), noErr);
    EXPECT_EQ(RemoveControlProperty(theSlider, 'LMTE', 'data'), controlPropertyNotFoundErr);
}

TEST_F(Properties, APropertyOfAnotherSizeGivesTheSmallerAmountAndAStatus)
{
    ControlRef theSlider = NewSlider();
    SetControlProperty(theSlider, 'LMTE', 'data', 5, "hello");
    char theRead[8] = {};
    ByteCount theSize = 0;
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 3, &theSize, theRead), paramErr);
    EXPECT_STREQ(theRead, "hel");
    EXPECT_EQ(theSize, 5u);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 8, nullptr, theRead), paramErr);
    EXPECT_STREQ(theRead, "hello");
}

TEST_F(Properties, RefusesBadPropertyCalls)
{
    ControlRef theSlider = NewSlider();
    ByteCount theSize = 0;
    char theByte = 0;
    EXPECT_EQ(SetControlProperty(theSlider, 'appl', 'data', 1, &theByte), controlPropertyInvalid);
    EXPECT_EQ(SetControlProperty(theSlider, 'LMTE', 'data', 1, nullptr), paramErr);
    EXPECT_EQ(SetControlProperty(nullptr, 'LMTE', 'data', 1, &theByte), controlHandleInvalidErr);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 1, nullptr, &theByte),
              controlPropertyNotFoundErr);
    EXPECT_EQ(GetControlProperty(nullptr, 'LMTE', 'data', 1, nullptr, &theByte), controlHandleInvalidErr);
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', &theSize), controlPropertyNotFoundErr);
    EXPECT_EQ(GetControlPropertySize(nullptr, 'LMTE', 'data', &theSize), controlHandleInvalidErr);
    EXPECT_EQ(RemoveControlProperty(nullptr, 'LMTE', 'data'), controlHandleInvalidErr);
    SetControlProperty(theSlider, 'LMTE', 'data', 1, &theByte);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 1, nullptr, nullptr), paramErr);
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', nullptr), paramErr);
}
