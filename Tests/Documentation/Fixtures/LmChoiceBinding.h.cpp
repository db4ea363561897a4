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

// With two items, of which the first is shown.
ControlRef MakePopUpButton(WindowRef theWindow)
{
    const Rect theBounds = {100, 10, 120, 200};
    MenuRef theMenu = nullptr;
    CreateNewMenu(200, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Franc"), 0, 0, nullptr);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Euro"), 0, 0, nullptr);
    ControlRef theButton = nullptr;
    CreatePopupButtonControl(theWindow, &theBounds, nullptr, -12345, false, 0, teFlushDefault, normal,
                             &theButton);
    SetControlData(theButton, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag, sizeof theMenu,
                   &theMenu);
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
    theModel.SetKeyPathValue("currency", LmValue(CFSTR("Euro"), false));
    const ControlRef thePopUpButton = MakePopUpButton(theWindow);
    // @code 1
    EXPECT_EQ(GetControl32BitValue(thePopUpButton), 2);
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
