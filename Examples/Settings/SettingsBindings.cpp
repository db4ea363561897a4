// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The same as SettingsByHand.c by bindings: what depends on what is said once, and holds from then on.

#include "Settings.h"

#include "LmControlBinding.h"
#include "LmLogicalTransforms.h"
#include "LmMetaTransforms.h"
#include "LmNumericalTransforms.h"
#include "LmPreferenceBinding.h"
#include "LmStringTransforms.h"
#include "LmUpdateScope.h"

namespace {

// The settings, and what remembers them. They outlive the window, whose bindings go with its controls.
struct Settings
{
    LmPreferenceBinding mPreferences{kSettingsApplication};
    LmKeyValueBinding mValues;
};

Settings& TheSettings()
{
    static Settings theSettings;
    return theSettings;
}

// The text of a combo box as the key "text": to the key "value" of a control binding it is a control like
// others, with a number. Goes with its control, as a control binding does.
class ComboBoxText : public LmKeyValueBinding
{
public:
    explicit ComboBoxText(ControlRef theBox)
        : mBox(theBox)
    {
        const EventTypeSpec theEvents[] = {{kEventClassTextField, kEventTextAccepted},
                                           {kEventClassHIComboBox, kEventComboBoxListItemSelected},
                                           {kEventClassControl, kEventControlDispose}};
        InstallControlEventHandler(mBox, NewEventHandlerUPP(Handle), 3, theEvents, this, nullptr);
    }

    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        CFStringRef theText = theValue.GetString();
        if (mWritesBox && theText != nullptr) {
            SetControlData(mBox, kHIComboBoxEditTextPart, kControlEditTextCFStringTag, sizeof theText,
                           &theText);
        }
        LmKeyValueStore::SetKeyValue(theKey, theValue);
    }

private:
    static pascal OSStatus Handle(EventHandlerCallRef, EventRef theEvent, void* theSelf)
    {
        auto* theText = static_cast<ComboBoxText*>(theSelf);
        if (GetEventClass(theEvent) == kEventClassControl) {
            delete theText;
        } else {
            theText->ReadBox();
        }
        return eventNotHandledErr;
    }

    void ReadBox()
    {
        const LmUpdateScope theScope(this, mWritesBox);
        CFStringRef theText = nullptr;
        GetControlData(mBox, kHIComboBoxEditTextPart, kControlEditTextCFStringTag, sizeof theText, &theText,
                       nullptr);
        SetKeyPathValue("text", LmValue(theText, true));
    }

    ControlRef mBox;
    bool mWritesBox = true;
};

// Deletes itself together with its control.
LmControlBinding* BindingOf(WindowRef theWindow, SInt32 theControl)
{
    return new LmControlBinding(SettingsControl(theWindow, theControl));
}

// Shows a setting, or what a transform makes of it, in a key of a control.
void Show(WindowRef theWindow, SInt32 theControl, const char* theKey, const char* theSetting,
          LmValueTransform* theTransform = nullptr)
{
    BindingOf(theWindow, theControl)->BindTo(theKey, &TheSettings().mValues, theSetting, theTransform);
}

// 60 gives "60 %".
LmValueTransform* NewPercentTransform()
{
    auto* theList = new LmListTransform;
    LmValueTransform* theParts[] = {new LmToStringTransform, new LmAddTransform(LmValue(CFSTR(" %"), false))};
    for (LmValueTransform* thePart : theParts) {
        theList->Add(thePart);
        thePart->Release(); // the list holds it now
    }
    return theList;
}

// A text is shown while a control is switched on. What comes between them is the store, as everywhere: a
// control that is bound to another one would be left alone when that one goes first.
void ShowWhile(WindowRef theWindow, SInt32 theText, SInt32 theSwitch, const char* theKey)
{
    TheSettings().mValues.SetKeyPathValue(theKey, LmValue(0L));
    BindingOf(theWindow, theSwitch)->Bind("value", &TheSettings().mValues, theKey, nullptr, nullptr);
    Show(theWindow, theText, "visible", theKey);
}

} // namespace

void RestoreSettings(WindowRef)
{
    for (const NumberSetting& theSetting : kNumbers) {
        TheSettings().mValues.SetKeyPathValue(theSetting.theKey,
                                              LmValue(static_cast<long>(theSetting.theDefault)));
    }
    for (const TextSetting& theSetting : kTexts) {
        CFStringRef theText =
            CFStringCreateWithCString(nullptr, theSetting.theDefault, kCFStringEncodingUTF8);
        TheSettings().mValues.SetKeyPathValue(theSetting.theKey, LmValue(theText, true));
    }
}

void ConnectSettings(WindowRef theWindow)
{
    LmKeyValueBinding* theValues = &TheSettings().mValues;
    RestoreSettings(theWindow);
    for (const NumberSetting& theSetting : kNumbers) {
        theValues->Bind(theSetting.theKey, &TheSettings().mPreferences, theSetting.theKey, nullptr, nullptr);
        BindingOf(theWindow, theSetting.theControl)
            ->Bind("value", theValues, theSetting.theKey, nullptr, nullptr);
    }
    for (const TextSetting& theSetting : kTexts) {
        theValues->Bind(theSetting.theKey, &TheSettings().mPreferences, theSetting.theKey, nullptr, nullptr);
    }
    BindingOf(theWindow, kStation)->Bind("value", theValues, "station", nullptr, nullptr);
    (new ComboBoxText(SettingsControl(theWindow, kCity)))->Bind("text", theValues, "city", nullptr, nullptr);
    for (long thePage = 1; thePage <= kSettingsPages; ++thePage) {
        Show(theWindow, kFirstPane + static_cast<SInt32>(thePage), "visible", "page",
             new LmIsEqualTransform(LmValue(thePage)));
    }
    Show(theWindow, kInterval, "enabled", "automatic");
    Show(theWindow, kBrightnessText, "value", "brightness", NewPercentTransform());
    Show(theWindow, kBrightnessBar, "value", "brightness");
    Show(theWindow, kDecimalsText, "value", "decimals", new LmToStringTransform);
    Show(theWindow, kZoomBar, "value", "zoom");
    Show(theWindow, kBusy, "visible", "warn");
    Show(theWindow, kCode, "enabled", "warn");
    ShowWhile(theWindow, kMoreText, kMore, "more");
    ShowWhile(theWindow, kDetailsText, kDetails, "details");
}

void DisconnectSettings(WindowRef)
{
    TheSettings().mPreferences.Flush();
}
