// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioWindow.h"

namespace {

const Rect kWindowPlace = {100, 100, 220, 400};

ControlRef Identify(ControlRef theControl, ControlID theID)
{
    SetControlID(theControl, &theID);
    return theControl;
}

void AddLabel(WindowRef theWindow, CFStringRef theText, const Rect& theBounds)
{
    ControlRef theControl = nullptr;
    CreateStaticTextControl(theWindow, &theBounds, theText, nullptr, &theControl);
}

void AddStationField(WindowRef theWindow)
{
    const Rect theBounds = {18, 94, 34, 274};
    ControlRef theControl = nullptr;
    CreateEditUnicodeTextControl(theWindow, &theBounds, nullptr, false, nullptr, &theControl);
    Identify(theControl, kStationField);
}

void AddOnBox(WindowRef theWindow)
{
    const Rect theBounds = {50, 90, 68, 274};
    ControlRef theControl = nullptr;
    CreateCheckBoxControl(theWindow, &theBounds, CFSTR("On"), 0, true, &theControl);
    Identify(theControl, kOnBox);
}

void AddVolumeSlider(WindowRef theWindow)
{
    const Rect theBounds = {82, 90, 102, 230};
    ControlRef theControl = nullptr;
    CreateSliderControl(theWindow, &theBounds, 0, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    Identify(theControl, kVolumeSlider);
}

void AddVolumeText(WindowRef theWindow)
{
    const Rect theBounds = {84, 238, 100, 290};
    ControlRef theControl = nullptr;
    CreateStaticTextControl(theWindow, &theBounds, nullptr, nullptr, &theControl);
    Identify(theControl, kVolumeText);
}

} // namespace

WindowRef MakeRadioWindow()
{
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &kWindowPlace, &theWindow);
    SetWindowTitleWithCFString(theWindow, CFSTR("Radio"));
    ControlRef theRoot = nullptr;
    CreateRootControl(theWindow, &theRoot);
    AddLabel(theWindow, CFSTR("Station:"), {18, 18, 34, 86});
    AddStationField(theWindow);
    AddOnBox(theWindow);
    AddLabel(theWindow, CFSTR("Volume:"), {84, 18, 100, 86});
    AddVolumeSlider(theWindow);
    AddVolumeText(theWindow);
    return theWindow;
}

ControlRef FindControl(WindowRef theWindow, ControlID theID)
{
    ControlRef theControl = nullptr;
    GetControlByID(theWindow, &theID, &theControl);
    return theControl;
}
