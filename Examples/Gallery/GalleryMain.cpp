// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A window with every kind of control, and a menu with every kind of item. Everything that shows a number
// shows the same one, and the check box at the bottom enables and disables all the rest: each control is
// bound to the two keys of one model.

#include "LmControlBinding.h"
#include "LmStringTransforms.h"

#include <Carbon/Carbon.h>

namespace {

const char* const kLevel = "level";
const char* const kEnabled = "enabled";

constexpr MenuID kMenu = 128;
constexpr MenuID kSubmenu = 129;

const Rect kWindowPlace = {100, 100, 430, 560};

using Model = LmKeyValueBinding;

class Gallery
{
public:
    Gallery();

    WindowRef Window() const { return mWindow; }

private:
    // Deletes itself together with the control.
    LmControlBinding* Bind(ControlRef theControl);
    void BindLevel(ControlRef theControl)
    {
        Bind(theControl)->Bind("value", &mModel, kLevel, nullptr, nullptr);
    }
    void ShowLevel(ControlRef theControl) { Bind(theControl)->BindTo("value", &mModel, kLevel, nullptr); }

    void AddTexts();
    void AddLabel(const Rect& thePlace, CFStringRef theText);
    void AddButtons();
    void AddRanges();
    void AddGroup();
    void AddSwitch();

    Model mModel;
    WindowRef mWindow = nullptr;
};

Gallery::Gallery()
{
    mModel.SetKeyPathValue(kLevel, LmValue(40UL));
    mModel.SetKeyPathValue(kEnabled, LmValue(true));
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &kWindowPlace, &mWindow);
    SetWindowTitleWithCFString(mWindow, CFSTR("Gallery"));
    ControlRef theRoot = nullptr;
    CreateRootControl(mWindow, &theRoot);
    AddTexts();
    AddButtons();
    AddRanges();
    AddGroup();
    AddSwitch();
}

LmControlBinding* Gallery::Bind(ControlRef theControl)
{
    auto* theBinding = new LmControlBinding(theControl);
    theBinding->BindTo("enabled", &mModel, kEnabled, nullptr);
    return theBinding;
}

void Gallery::AddTexts()
{
    const Rect theNamePlace = {20, 20, 36, 80};
    const Rect theNameFieldPlace = {20, 86, 36, 220};
    const Rect theSecretPlace = {20, 250, 36, 310};
    const Rect theSecretFieldPlace = {20, 316, 36, 438};
    const Rect theNotesPlace = {49, 20, 65, 80};
    const Rect theNotesFieldPlace = {48, 86, 84, 438};
    ControlRef theControl = nullptr;
    AddLabel(theNamePlace, CFSTR("Name:"));
    CreateEditUnicodeTextControl(mWindow, &theNameFieldPlace, CFSTR("Kitchen"), false, nullptr, &theControl);
    Bind(theControl);
    AddLabel(theSecretPlace, CFSTR("Secret:"));
    CreateEditUnicodeTextControl(mWindow, &theSecretFieldPlace, CFSTR("sesame"), true, nullptr, &theControl);
    Bind(theControl);
    AddLabel(theNotesPlace, CFSTR("Notes:"));
    CreateEditUnicodeTextControl(
        mWindow, &theNotesFieldPlace,
        CFSTR("A field that is high enough has several lines, and breaks what is too long for one of them."),
        false, nullptr, &theControl);
    Bind(theControl);
}

void Gallery::AddLabel(const Rect& thePlace, CFStringRef theText)
{
    ControlRef theControl = nullptr;
    CreateStaticTextControl(mWindow, &thePlace, theText, nullptr, &theControl);
    Bind(theControl);
}

void Gallery::AddButtons()
{
    const Rect theCancelPlace = {290, 270, 310, 350};
    const Rect theDefaultPlace = {290, 362, 310, 442};
    ControlRef theControl = nullptr;
    CreatePushButtonControl(mWindow, &theCancelPlace, CFSTR("Cancel"), &theControl);
    SetWindowCancelButton(mWindow, theControl);
    Bind(theControl);
    CreatePushButtonControl(mWindow, &theDefaultPlace, CFSTR("OK"), &theControl);
    SetWindowDefaultButton(mWindow, theControl);
    Bind(theControl);
}

void Gallery::AddRanges()
{
    const Rect theSliderPlace = {100, 20, 120, 180};
    const Rect theTicksPlace = {132, 20, 160, 180};
    const Rect theNumberPlace = {100, 192, 116, 222};
    const Rect theArrowsPlace = {97, 224, 119, 238};
    const Rect theBarPlace = {172, 20, 188, 222};
    const Rect theBusyPlace = {200, 20, 216, 222};
    const Rect theScrollPlace = {228, 20, 244, 222};
    const Rect theUprightPlace = {100, 424, 270, 440};
    const Rect theHighSliderPlace = {100, 390, 270, 412};
    ControlRef theControl = nullptr;
    CreateSliderControl(mWindow, &theSliderPlace, 0, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    BindLevel(theControl);
    CreateSliderControl(mWindow, &theTicksPlace, 0, 0, 100, kControlSliderPointsDownOrRight, 11, true,
                        nullptr, &theControl);
    BindLevel(theControl);
    CreateStaticTextControl(mWindow, &theNumberPlace, nullptr, nullptr, &theControl);
    Bind(theControl)->BindTo("value", &mModel, kLevel, new LmToStringTransform);
    CreateLittleArrowsControl(mWindow, &theArrowsPlace, 0, 0, 100, 1, &theControl);
    BindLevel(theControl);
    CreateProgressBarControl(mWindow, &theBarPlace, 0, 0, 100, false, &theControl);
    ShowLevel(theControl);
    CreateProgressBarControl(mWindow, &theBusyPlace, 0, 0, 100, true, &theControl);
    Bind(theControl);
    CreateScrollBarControl(mWindow, &theScrollPlace, 0, 0, 100, 20, true, nullptr, &theControl);
    BindLevel(theControl);
    CreateScrollBarControl(mWindow, &theUprightPlace, 0, 0, 100, 20, true, nullptr, &theControl);
    BindLevel(theControl);
    CreateSliderControl(mWindow, &theHighSliderPlace, 0, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    BindLevel(theControl);
}

void Gallery::AddGroup()
{
    const Rect theGroupPlace = {96, 250, 262, 374};
    const Rect thePlaces[] = {{120, 264, 138, 364},
                              {142, 264, 160, 364},
                              {164, 264, 182, 364},
                              {194, 264, 212, 364},
                              {216, 264, 234, 364}};
    ControlRef theGroup = nullptr;
    ControlRef theControl = nullptr;
    CreateGroupBoxControl(mWindow, &theGroupPlace, CFSTR("Choices"), true, &theGroup);
    Bind(theGroup);
    CreateCheckBoxControl(mWindow, &thePlaces[0], CFSTR("Off"), 0, true, &theControl);
    Bind(theControl);
    CreateCheckBoxControl(mWindow, &thePlaces[1], CFSTR("On"), 1, true, &theControl);
    Bind(theControl);
    CreateCheckBoxControl(mWindow, &thePlaces[2], CFSTR("Mixed"), 2, true, &theControl);
    Bind(theControl);
    CreateRadioButtonControl(mWindow, &thePlaces[3], CFSTR("This"), 1, true, &theControl);
    Bind(theControl);
    CreateRadioButtonControl(mWindow, &thePlaces[4], CFSTR("That"), 0, true, &theControl);
    Bind(theControl);
}

void Gallery::AddSwitch()
{
    const Rect thePlace = {291, 20, 309, 220};
    ControlRef theControl = nullptr;
    CreateCheckBoxControl(mWindow, &thePlace, CFSTR("Enable everything"), 1, true, &theControl);
    (new LmControlBinding(theControl))->Bind("value", &mModel, kEnabled, nullptr, nullptr);
}

MenuRef NewMenu(MenuID theNumber, CFStringRef theTitle)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(theNumber, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, theTitle);
    return theMenu;
}

// Returns the new item's number.
MenuItemIndex AddItem(MenuRef theMenu, CFStringRef theText, MenuItemAttributes theAttributes = 0,
                      MenuCommand theCommand = 0)
{
    MenuItemIndex theItem = 0;
    AppendMenuItemTextWithCFString(theMenu, theText, theAttributes, theCommand, &theItem);
    return theItem;
}

MenuRef NewSubmenu()
{
    MenuRef theMenu = NewMenu(kSubmenu, CFSTR("Marks"));
    SetItemMark(theMenu, AddItem(theMenu, CFSTR("Check Mark")), checkMark);
    SetItemMark(theMenu, AddItem(theMenu, CFSTR("Diamond")), diamondMark);
    AddItem(theMenu, CFSTR("None"));
    return theMenu;
}

void InsertMenus()
{
    MenuRef theMenu = NewMenu(kMenu, CFSTR("Items"));
    SetMenuItemCommandKey(theMenu, AddItem(theMenu, CFSTR("With a Key")), false, 'K');
    AddItem(theMenu, CFSTR("Disabled"), kMenuItemAttrDisabled);
    const MenuItemIndex theKept = AddItem(theMenu, CFSTR("Diamond, Disabled"), kMenuItemAttrDisabled);
    SetItemMark(theMenu, theKept, diamondMark);
    AddItem(theMenu, CFSTR(""), kMenuItemAttrSeparator);
    MenuRef theSubmenu = NewSubmenu();
    SetMenuItemHierarchicalMenu(theMenu, AddItem(theMenu, CFSTR("Marks")), theSubmenu);
    AddItem(theMenu, CFSTR(""), kMenuItemAttrSeparator);
    SetMenuItemCommandKey(theMenu, AddItem(theMenu, CFSTR("Quit"), 0, kHICommandQuit), false, 'Q');
    InsertMenu(theMenu, 0);
    // The menu bar and the item hold them now.
    ReleaseMenu(theSubmenu);
    ReleaseMenu(theMenu);
}

OSStatus EndWithWindow(EventHandlerCallRef, EventRef, void*)
{
    QuitApplicationEventLoop();
    return eventNotHandledErr;
}

} // namespace

int main()
{
    Gallery theGallery;
    InsertMenus();
    const EventTypeSpec theClosing = {kEventClassWindow, kEventWindowClosed};
    InstallWindowEventHandler(theGallery.Window(), NewEventHandlerUPP(EndWithWindow), 1, &theClosing, nullptr,
                              nullptr);
    ShowWindow(theGallery.Window());
    RunApplicationEventLoop();
    return 0;
}
