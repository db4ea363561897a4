/* LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE. */

/* What connects the controls to the preferences and to one another, written by hand: values are read into the
   controls in the beginning, what depends on a control is set anew after each click, and all are written in
   the end. */

#include "Settings.h"

static CFStringRef NewText(const char* theText)
{
    return CFStringCreateWithCString(NULL, theText, kCFStringEncodingUTF8);
}

static void SetText(ControlRef theControl, CFStringRef theText)
{
    SetControlData(theControl, kControlEntireControl, kControlStaticTextCFStringTag, sizeof theText,
                   &theText);
    HIViewSetNeedsDisplay(theControl, true);
}

static void SetNumberText(ControlRef theControl, const char* theFormat, SInt32 theNumber)
{
    char theCharacters[16];
    CFStringRef theText;
    sprintf(theCharacters, theFormat, (int)theNumber);
    theText = NewText(theCharacters);
    SetText(theControl, theText);
    CFRelease(theText);
}

static void Enable(ControlRef theControl, Boolean isEnabled)
{
    if (isEnabled) {
        EnableControl(theControl);
    } else {
        DisableControl(theControl);
    }
}

/* Of each thing that depends on a control. */
static void UpdateWindow(WindowRef theWindow)
{
    const SInt32 thePage = GetControl32BitValue(SettingsControl(theWindow, kPage));
    const SInt32 theBrightness = GetControl32BitValue(SettingsControl(theWindow, kBrightness));
    const Boolean isWarning = GetControl32BitValue(SettingsControl(theWindow, kWarn)) != 0;
    SInt32 thePane;
    for (thePane = 1; thePane <= kSettingsPages; ++thePane) {
        SetControlVisibility(SettingsControl(theWindow, kFirstPane + thePane), thePane == thePage, true);
    }
    Enable(SettingsControl(theWindow, kInterval),
           GetControl32BitValue(SettingsControl(theWindow, kAutomatic)) != 0);
    SetNumberText(SettingsControl(theWindow, kBrightnessText), "%d %%", theBrightness);
    SetControl32BitValue(SettingsControl(theWindow, kBrightnessBar), theBrightness);
    SetNumberText(SettingsControl(theWindow, kDecimalsText), "%d",
                  GetControl32BitValue(SettingsControl(theWindow, kDecimals)));
    SetControl32BitValue(SettingsControl(theWindow, kZoomBar),
                         GetControl32BitValue(SettingsControl(theWindow, kZoom)));
    SetControlVisibility(SettingsControl(theWindow, kMoreText),
                         GetControl32BitValue(SettingsControl(theWindow, kMore)) != 0, true);
    SetControlVisibility(SettingsControl(theWindow, kDetailsText),
                         GetControl32BitValue(SettingsControl(theWindow, kDetails)) != 0, true);
    SetControlVisibility(SettingsControl(theWindow, kBusy), isWarning, true);
    Enable(SettingsControl(theWindow, kCode), isWarning);
}

/* The preferences ------------------------------------------------------------------------------------- */

static void LoadNumber(WindowRef theWindow, const NumberSetting* theSetting)
{
    CFStringRef theKey = NewText(theSetting->theKey);
    Boolean isThere = false;
    const CFIndex theNumber = CFPreferencesGetAppIntegerValue(theKey, kSettingsApplication, &isThere);
    SetControl32BitValue(SettingsControl(theWindow, theSetting->theControl),
                         isThere ? (SInt32)theNumber : theSetting->theDefault);
    CFRelease(theKey);
}

static void LoadText(WindowRef theWindow, const TextSetting* theSetting)
{
    CFStringRef theKey = NewText(theSetting->theKey);
    CFPropertyListRef theText = CFPreferencesCopyAppValue(theKey, kSettingsApplication);
    if (theText == NULL || CFGetTypeID(theText) != CFStringGetTypeID()) {
        if (theText != NULL) {
            CFRelease(theText);
        }
        theText = NewText(theSetting->theDefault);
    }
    SetControlData(SettingsControl(theWindow, theSetting->theControl), kControlEditTextPart,
                   kControlEditTextCFStringTag, sizeof theText, &theText);
    CFRelease(theText);
    CFRelease(theKey);
}

static void SaveNumber(WindowRef theWindow, const NumberSetting* theSetting)
{
    const SInt32 theValue = GetControl32BitValue(SettingsControl(theWindow, theSetting->theControl));
    CFStringRef theKey = NewText(theSetting->theKey);
    CFNumberRef theNumber = CFNumberCreate(NULL, kCFNumberSInt32Type, &theValue);
    CFPreferencesSetAppValue(theKey, theNumber, kSettingsApplication);
    CFRelease(theNumber);
    CFRelease(theKey);
}

static void SaveText(WindowRef theWindow, const TextSetting* theSetting)
{
    CFStringRef theText = NULL;
    CFStringRef theKey = NewText(theSetting->theKey);
    if (GetControlData(SettingsControl(theWindow, theSetting->theControl), kControlEditTextPart,
                       kControlEditTextCFStringTag, sizeof theText, &theText, NULL) == noErr) {
        CFPreferencesSetAppValue(theKey, theText, kSettingsApplication);
        CFRelease(theText);
    }
    CFRelease(theKey);
}

/* The window ------------------------------------------------------------------------------------------ */

static pascal OSStatus DoChange(EventHandlerCallRef theNext, EventRef theEvent, void* theWindow)
{
    const OSStatus theStatus = CallNextEventHandler(theNext, theEvent);
    UpdateWindow((WindowRef)theWindow);
    return theStatus;
}

void ConnectSettings(WindowRef theWindow)
{
    static const SInt32 kMoving[] = {kBrightness, kDecimals, kZoom};
    EventTypeSpec theHit;
    EventTypeSpec theMove;
    int theIndex;
    for (theIndex = 0; theIndex < kNumberSettings; ++theIndex) {
        LoadNumber(theWindow, &kNumbers[theIndex]);
    }
    for (theIndex = 0; theIndex < kTextSettings; ++theIndex) {
        LoadText(theWindow, &kTexts[theIndex]);
    }
    theHit.eventClass = kEventClassControl;
    theHit.eventKind = kEventControlHit;
    InstallWindowEventHandler(theWindow, NewEventHandlerUPP(DoChange), 1, &theHit, theWindow, NULL);
    /* These are followed while they move. */
    theMove.eventClass = kEventClassControl;
    theMove.eventKind = kEventControlValueFieldChanged;
    for (theIndex = 0; theIndex < 3; ++theIndex) {
        InstallControlEventHandler(SettingsControl(theWindow, kMoving[theIndex]),
                                   NewEventHandlerUPP(DoChange), 1, &theMove, theWindow, NULL);
    }
    UpdateWindow(theWindow);
}

void RestoreSettings(WindowRef theWindow)
{
    int theIndex;
    for (theIndex = 0; theIndex < kNumberSettings; ++theIndex) {
        SetControl32BitValue(SettingsControl(theWindow, kNumbers[theIndex].theControl),
                             kNumbers[theIndex].theDefault);
    }
    for (theIndex = 0; theIndex < kTextSettings; ++theIndex) {
        CFStringRef theText = NewText(kTexts[theIndex].theDefault);
        SetControlData(SettingsControl(theWindow, kTexts[theIndex].theControl), kControlEditTextPart,
                       kControlEditTextCFStringTag, sizeof theText, &theText);
        CFRelease(theText);
    }
    UpdateWindow(theWindow);
}

void DisconnectSettings(WindowRef theWindow)
{
    int theIndex;
    for (theIndex = 0; theIndex < kNumberSettings; ++theIndex) {
        SaveNumber(theWindow, &kNumbers[theIndex]);
    }
    for (theIndex = 0; theIndex < kTextSettings; ++theIndex) {
        SaveText(theWindow, &kTexts[theIndex]);
    }
    CFPreferencesAppSynchronize(kSettingsApplication);
}
