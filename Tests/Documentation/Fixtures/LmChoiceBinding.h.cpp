// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChoiceBinding.h"
#include "ExampleWindow.h"
#include "KeyTable.h"

#include <gtest/gtest.h>

namespace {

ControlRef MakeRadioButton(WindowRef theWindow, CFStringRef theTitle, ControlID theID)
{
    const short theTop = static_cast<short>(20 * theID.id);
    const Rect theBounds = {theTop, 10, static_cast<short>(theTop + 20), 200};
    ControlRef theButton = nullptr;
    CreateRadioButtonControl(theWindow, &theBounds, theTitle, 0, true, &theButton);
    SetControlID(theButton, &theID);
    return theButton;
}

} // namespace

TEST(LmChoiceBinding, IsOneObjectAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("delivery", LmValue(2));
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef thePostButton = MakeRadioButton(theWindow, CFSTR("Post"), {'Deli', 1});
    const ControlRef theCourierButton = MakeRadioButton(theWindow, CFSTR("Courier"), {'Deli', 2});
    const ControlRef thePickUpButton = MakeRadioButton(theWindow, CFSTR("Pick up"), {'Deli', 3});
    // @code 1
    EXPECT_EQ(GetControl32BitValue(theCourierButton), 1);
    SetControl32BitValue(thePickUpButton, 1);
    EXPECT_EQ(theModel.GetKeyPathValue("delivery").GetSInt32(), 3);
    EXPECT_EQ(GetControl32BitValue(theCourierButton), 0);
}

TEST(LmChoiceBinding, HasTheKeysThatItsHeaderLists)
{
    KeyRow kShown[] = {
        // @rows 2
    };
    ExampleWindow theExample;
    const LmChoiceBinding theChoice({MakeRadioButton(theExample.Get(), CFSTR("Post"), {'Deli', 1})});
    for (KeyRow& theRow : kShown) {
        ExpectKey(theChoice, theRow);
    }
}
