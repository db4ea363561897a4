// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ChoiceTestSupport_h
#define ChoiceTestSupport_h

#include "LmChoiceBinding.h"
#include "LmConveniences.h"

#include <Carbon/Carbon.h>

#include <string>

// "1 20 Courier", the three keys that say what is selected.
inline std::string Selected(const LmChoiceBinding& theChoice)
{
    return std::to_string(theChoice.GetKeyPathValue("index").GetSInt32()) + " " +
           std::to_string(theChoice.GetKeyPathValue("tag").GetSInt32()) + " " +
           LmGetStdString(theChoice.GetKeyPathValue("title"));
}

// "Post, Courier", the titles of all choices.
inline std::string Titles(const LmChoiceBinding& theChoice)
{
    std::string theText;
    const long theCount = theChoice.GetKeyPathValue("count").GetSInt32();
    for (long thePlace = 0; thePlace < theCount; ++thePlace) {
        const LmString theKey = LmMakeString("choices." + std::to_string(thePlace));
        theText.append(thePlace == 0 ? "" : ", ").append(LmGetStdString(theChoice.GetKeyPathValue(theKey)));
    }
    return theText;
}

// A window that can be seen, for the controls of a choice.
inline WindowRef MakeChoiceWindow()
{
    const Rect theBounds = {50, 50, 450, 450};
    WindowRef theWindow = nullptr;
    ControlRef theRoot = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &theWindow);
    CreateRootControl(theWindow, &theRoot);
    ShowWindow(theWindow);
    return theWindow;
}

// A radio button below the one before, whose place is theTop. In a group it need not toggle itself. With the
// tag 0 it has no identifier.
inline ControlRef MakeRadioButton(WindowRef theWindow, short* theTop, CFStringRef theTitle, SInt32 theTag,
                                  SInt32 theValue, bool theTogglesItself)
{
    *theTop = static_cast<short>(*theTop + 30);
    const Rect theBounds = {*theTop, 10, static_cast<short>(*theTop + 20), 200};
    const ControlID theID = {theTag == 0 ? UInt32{0} : UInt32{'Deli'}, theTag};
    ControlRef theButton = nullptr;
    CreateRadioButtonControl(theWindow, &theBounds, theTitle, theValue, theTogglesItself, &theButton);
    SetControlID(theButton, &theID);
    return theButton;
}

// As a person does it.
inline void ClickRadioButton(ControlRef theButton)
{
    HIViewSimulateClick(theButton, kControlRadioButtonPart, 0, nullptr);
}

// An item of a menu; without a command, it has no tag.
struct MenuEntry
{
    CFStringRef theText;
    MenuCommand theCommand;
};

// Gives theMenu these items and no others.
template <typename Entries>
void FillMenu(MenuRef theMenu, const Entries& theEntries)
{
    while (CountMenuItems(theMenu) > 0) {
        DeleteMenuItem(theMenu, 1);
    }
    for (const MenuEntry& theEntry : theEntries) {
        AppendMenuItemTextWithCFString(theMenu, theEntry.theText, 0, theEntry.theCommand, nullptr);
    }
}

// A pop-up button that owns its menu.
inline ControlRef MakePopUp(WindowRef theWindow, MenuRef theMenu, short theTop = 20)
{
    const Rect theBounds = {theTop, 20, static_cast<short>(theTop + 20), 220};
    ControlRef theControl = nullptr;
    CreatePopupButtonControl(theWindow, &theBounds, CFSTR("Choose:"), -12345, false, -1, teFlushDefault,
                             normal, &theControl);
    SetControlData(theControl, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag, sizeof theMenu,
                   &theMenu);
    SetControl32BitMaximum(theControl, CountMenuItems(theMenu));
    return theControl;
}

#endif
