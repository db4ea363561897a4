/* LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE. */

/* The settings of a weather station: a window with tabs, what its controls are called, and what connects them
   to the preferences. There are two ways to connect them, each in a file of its own: SettingsByHand.c and
   SettingsBindings.cpp. A program has one of them. */

#ifndef Settings_h
#define Settings_h

#include <Carbon/Carbon.h>

#ifdef __cplusplus
extern "C" {
#endif

enum
{
    kSettingsSignature = 'WSet',
    kSettingsPages = 3,
    kRestoreCommand = 'Rest'
};

/* The controls. Those of the first group are settings, and their values are kept. */
enum
{
    kPage = 1,
    kStation,
    kCity,
    kAutomatic,
    kInterval,
    kUnit,
    kBrightness,
    kDecimals,
    kZoom,
    kBold,
    kWarn,

    kCelsius = 20,
    kFahrenheit,
    kBrightnessText,
    kBrightnessBar,
    kDecimalsText,
    kZoomBar,
    kDetails,
    kDetailsText,
    kBusy,
    kCode,
    kWell,
    kMore,
    kMoreText,
    kFind,
    kHelp,
    kRestore,
    kDone,
    kFirstPane = 100 /* the panes of the pages follow one another */
};

/* The preferences are kept under this name. */
#define kSettingsApplication CFSTR("org.lmbindings.Settings")

/* A setting that is a number, and what it is before anybody has set it. */
typedef struct NumberSetting
{
    SInt32 theControl;
    const char* theKey;
    SInt32 theDefault;
} NumberSetting;

/* The same for one that is a text. */
typedef struct TextSetting
{
    SInt32 theControl;
    const char* theKey;
    const char* theDefault;
} TextSetting;

enum
{
    kNumberSettings = 9,
    kTextSettings = 2
};
extern const NumberSetting kNumbers[kNumberSettings];
extern const TextSetting kTexts[kTextSettings];

/* The window, which is not shown yet. Its owner disposes of it. */
WindowRef MakeSettingsWindow(void);

/* The control of the window with that number. */
ControlRef SettingsControl(WindowRef theWindow, SInt32 theNumber);

/* Shows the settings that are kept and keeps what is changed in the window from then on. */
void ConnectSettings(WindowRef theWindow);

/* Everything is again what it was before anybody has set it. */
void RestoreSettings(WindowRef theWindow);

/* To be called while the window still has its controls: what it shows is kept. */
void DisconnectSettings(WindowRef theWindow);

/* Installs the menu bar, and what the buttons of the window do. */
void InstallSettingsCommands(WindowRef theWindow);

#ifdef __cplusplus
}
#endif

#endif
