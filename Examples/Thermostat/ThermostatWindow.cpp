// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatWindow.h"

#include "LmControlBinding.h"
#include "LmJournalHook.h"
#include "LmMetaTransforms.h"
#include "LmNumericalTransforms.h"
#include "LmPreferenceBinding.h"
#include "LmStringTransforms.h"
#include "LmWindowBinding.h"
#include "ThermostatModel.h"
#include "UnitTextTransform.h"

namespace {

const char* const kPreferredPlace = "window place";
const Rect kWindowPlace = {100, 100, 280, 440};

WindowRef MakeWindow()
{
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &kWindowPlace, &theWindow);
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

void AddText(WindowRef theWindow, const Rect& theBounds, ThermostatControl theNumber)
{
    ControlRef theControl = nullptr;
    CreateStaticTextControl(theWindow, &theBounds, nullptr, nullptr, &theControl);
    NameControl(theControl, theNumber);
}

void AddPowerBar(WindowRef theWindow)
{
    const Rect theBounds = {126, 100, 142, 250};
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
    AddText(theWindow, {88, 262, 104, 286}, kTargetText);
    AddText(theWindow, {88, 288, 104, 320}, kUnitText);
    AddLabel(theWindow, CFSTR("Power:"), {126, 20, 142, 92});
    AddPowerBar(theWindow);
    AddText(theWindow, {126, 262, 142, 320}, kPowerText);
}

// A control binding deletes itself together with its control, so nobody has to keep it. Journals call it
// theName.
LmControlBinding* NewControlBinding(WindowRef theWindow, ThermostatControl theNumber, const char* theName)
{
    LmControlBinding* theBinding =
        new LmControlBinding(theWindow, ControlID{kThermostatSignature, theNumber});
    LmNameObject(*theBinding, theName);
    return theBinding;
}

void BindRoom(WindowRef theWindow, LmKeyValueBinding* theModel)
{
    NewControlBinding(theWindow, kRoomField, "room field")
        ->Bind("value", theModel, kModelRoom, nullptr, nullptr);
}

void BindHeating(WindowRef theWindow, LmKeyValueBinding* theModel)
{
    NewControlBinding(theWindow, kHeatingBox, "heating box")
        ->Bind("value", theModel, kModelHeating, nullptr, nullptr);
}

void BindTarget(WindowRef theWindow, LmKeyValueBinding* theModel)
{
    LmControlBinding* theSlider = NewControlBinding(theWindow, kTargetSlider, "target slider");
    theSlider->Bind("value", theModel, kModelTarget, nullptr, nullptr);
    theSlider->BindTo("enabled", theModel, kModelHeating, nullptr);
    NewControlBinding(theWindow, kTargetText, "target text")
        ->BindTo("value", theModel, kModelShownTarget, new LmToStringTransform);
    NewControlBinding(theWindow, kUnitText, "unit text")
        ->BindTo("value", theModel, kModelFahrenheit, new UnitTextTransform);
}

// 64 gives "64 %".
LmValueTransform* NewPercentTransform()
{
    LmListTransform* theList = new LmListTransform;
    LmValueTransform* theParts[] = {new LmToStringTransform, new LmAddTransform(LmValue(CFSTR(" %"), false))};
    for (LmValueTransform* thePart : theParts) {
        theList->Add(thePart);
        thePart->Release(); // the list holds it now
    }
    return theList;
}

void BindPower(WindowRef theWindow, LmKeyValueBinding* theModel)
{
    NewControlBinding(theWindow, kPowerBar, "power bar")->BindTo("value", theModel, kModelPower, nullptr);
    NewControlBinding(theWindow, kPowerText, "power text")
        ->BindTo("value", theModel, kModelPower, NewPercentTransform());
}

void BindWindow(WindowRef theWindow, LmKeyValueBinding* theModel, LmPreferenceBinding* thePreferences)
{
    LmWindowBinding* theBinding = new LmWindowBinding(theWindow);
    LmNameObject(*theBinding, "window");
    theBinding->BindTo("title", theModel, kModelRoom,
                       new LmAddTransform(LmValue(CFSTR(" thermostat"), false)));
    theBinding->Bind("bounds", thePreferences, kPreferredPlace, nullptr, nullptr);
    theBinding->Bind("visible", theModel, kModelShown, nullptr, nullptr);
}

// The person asks for it with the close box.
OSStatus EndWithWindow(EventHandlerCallRef, EventRef theEvent, void* theModel)
{
    WindowRef theWindow = nullptr;
    GetEventParameter(theEvent, kEventParamDirectObject, typeWindowRef, nullptr, sizeof theWindow, nullptr,
                      &theWindow);
    CloseThermostatWindow(theWindow, *static_cast<ThermostatModel*>(theModel));
    QuitApplicationEventLoop();
    return noErr;
}

void EndApplicationWithWindow(WindowRef theWindow, ThermostatModel& theModel)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(EndWithWindow);
    const EventTypeSpec theClosing = {kEventClassWindow, kEventWindowClose};
    InstallWindowEventHandler(theWindow, kHandler, 1, &theClosing, &theModel, nullptr);
}

} // namespace

WindowRef OpenThermostatWindow(ThermostatModel& theModel, LmPreferenceBinding& thePreferences)
{
    WindowRef theWindow = MakeWindow();
    AddControls(theWindow);
    BindRoom(theWindow, theModel.GetBindings());
    BindHeating(theWindow, theModel.GetBindings());
    BindTarget(theWindow, theModel.GetBindings());
    BindPower(theWindow, theModel.GetBindings());
    EndApplicationWithWindow(theWindow, theModel);
    BindWindow(theWindow, theModel.GetBindings(), &thePreferences);
    return theWindow;
}

void CloseThermostatWindow(WindowRef theWindow, ThermostatModel& theModel)
{
    // A window is hidden before it goes. That is not what the person chose, so nothing follows it any more.
    theModel.GetBindings()->Unbind(kModelShown, nullptr);
    DisposeWindow(theWindow);
}
