// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatWindow.h"

#include "LmControlBinding.h"
#include "TemperatureTextTransform.h"
#include "ThermostatModel.h"

namespace {

const Rect kWindowPlace = {100, 100, 280, 440};

WindowRef MakeWindow()
{
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &kWindowPlace, &theWindow);
    SetWindowTitleWithCFString(theWindow, CFSTR("Thermostat"));
    ControlRef theRoot = nullptr;
    CreateRootControl(theWindow, &theRoot);
    return theWindow;
}

void NameControl(ControlRef theControl, ThermostatControl theNumber)
{
    const ControlID theID = {kThermostatSignature, theNumber};
    SetControlID(theControl, &theID);
}

void AddLabel(WindowRef theWindow, CFStringRef theText, const Rect& theBounds)
{
    ControlRef theControl = nullptr;
    CreateStaticTextControl(theWindow, &theBounds, theText, nullptr, &theControl);
}

void AddRoomField(WindowRef theWindow)
{
    const Rect theBounds = {18, 104, 34, 316};
    ControlRef theControl = nullptr;
    CreateEditUnicodeTextControl(theWindow, &theBounds, nullptr, false, nullptr, &theControl);
    NameControl(theControl, kRoomField);
}

void AddHeatingBox(WindowRef theWindow)
{
    const Rect theBounds = {52, 100, 70, 320};
    ControlRef theControl = nullptr;
    CreateCheckBoxControl(theWindow, &theBounds, CFSTR("Heating on"), 0, true, &theControl);
    NameControl(theControl, kHeatingBox);
}

void AddTargetSlider(WindowRef theWindow)
{
    const Rect theBounds = {88, 100, 108, 250};
    ControlRef theControl = nullptr;
    CreateSliderControl(theWindow, &theBounds, kLowestTarget, kLowestTarget, kHighestTarget,
                        kControlSliderDoesNotPoint, 0, true, nullptr, &theControl);
    NameControl(theControl, kTargetSlider);
}

void AddTargetText(WindowRef theWindow)
{
    const Rect theBounds = {88, 262, 104, 320};
    ControlRef theControl = nullptr;
    CreateStaticTextControl(theWindow, &theBounds, nullptr, nullptr, &theControl);
    NameControl(theControl, kTargetText);
}

void AddPowerBar(WindowRef theWindow)
{
    const Rect theBounds = {126, 100, 142, 320};
    ControlRef theControl = nullptr;
    CreateProgressBarControl(theWindow, &theBounds, 0, 0, 100, false, &theControl);
    NameControl(theControl, kPowerBar);
}

void AddControls(WindowRef theWindow)
{
    AddLabel(theWindow, CFSTR("Room:"), {18, 20, 34, 92});
    AddRoomField(theWindow);
    AddHeatingBox(theWindow);
    AddLabel(theWindow, CFSTR("Target:"), {88, 20, 104, 92});
    AddTargetSlider(theWindow);
    AddTargetText(theWindow);
    AddLabel(theWindow, CFSTR("Power:"), {126, 20, 142, 92});
    AddPowerBar(theWindow);
}

// A control binding deletes itself together with its control, so nobody has to keep it.
LmControlBinding* NewControlBinding(WindowRef theWindow, ThermostatControl theNumber)
{
    return new LmControlBinding(theWindow, ControlID{kThermostatSignature, theNumber});
}

void BindControls(WindowRef theWindow, ThermostatModel& theModel)
{
    NewControlBinding(theWindow, kRoomField)->Bind("value", &theModel, kModelRoom, nullptr, nullptr);
    NewControlBinding(theWindow, kHeatingBox)->Bind("value", &theModel, kModelHeating, nullptr, nullptr);
    LmControlBinding* theSlider = NewControlBinding(theWindow, kTargetSlider);
    theSlider->Bind("value", &theModel, kModelTarget, nullptr, nullptr);
    theSlider->BindTo("enabled", &theModel, kModelHeating, nullptr);
    NewControlBinding(theWindow, kTargetText)
        ->BindTo("value", &theModel, kModelTarget, new TemperatureTextTransform);
    NewControlBinding(theWindow, kPowerBar)->BindTo("value", &theModel, kModelPower, nullptr);
}

OSStatus EndWithWindow(EventHandlerCallRef, EventRef, void*)
{
    QuitApplicationEventLoop();
    return eventNotHandledErr;
}

void EndApplicationWithWindow(WindowRef theWindow)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(EndWithWindow);
    const EventTypeSpec theClosing = {kEventClassWindow, kEventWindowClosed};
    InstallWindowEventHandler(theWindow, kHandler, 1, &theClosing, nullptr, nullptr);
}

} // namespace

WindowRef OpenThermostatWindow(ThermostatModel& theModel)
{
    WindowRef theWindow = MakeWindow();
    AddControls(theWindow);
    BindControls(theWindow, theModel);
    EndApplicationWithWindow(theWindow);
    ShowWindow(theWindow);
    return theWindow;
}
