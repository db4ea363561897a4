// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A scripted person in front of the settings, who uses a control of each kind, and what is kept of that.

#include "Settings.h"

#include <cstdio>
#include <Simulation/UserSession.h>
#include <Simulation/UserSimulator.h>
#include <string>

using Host::UserResult;
using Host::UserSimulator;

namespace {

constexpr int kActions = 19;

class SettingsSession
{
public:
    explicit SettingsSession(WindowRef theWindow)
        : mWindow(theWindow)
    {
        WriteMeasuring();
        WriteShowing();
        WriteWarnings();
        WriteRest();
    }

    // The last thing that the person does ends the program, and with it the session.
    bool WasSuccessful() const { return mDone == kActions && mWasSuccessful; }

private:
    Host::ControlAddress At(SInt32 theControl) const { return {mWindow, {kSettingsSignature, theControl}}; }

    // One thing that the person does to a control, and what that or another control shows then.
    template <class Action>
    void Do(const char* theWords, SInt32 theShown, const Action& theAction)
    {
        mSession.Then([this, theWords, theShown, theAction](UserSimulator& theUser) {
            const UserResult theResult = theAction(theUser);
            mWasSuccessful = mWasSuccessful && theResult;
            ++mDone;
            std::printf("%s\n    %s\n%s", theWords, theUser.DescribeControl(At(theShown)).c_str(),
                        theResult.Explain().c_str());
        });
    }

    void Click(const char* theWords, SInt32 theControl, SInt32 theShown)
    {
        Do(theWords, theShown, [=](UserSimulator& theUser) { return theUser.Click(At(theControl)); });
    }

    void Press(const char* theWords, SInt32 theControl, ControlPartCode thePart, SInt32 theShown)
    {
        Do(theWords, theShown,
           [=](UserSimulator& theUser) { return theUser.ClickPart(At(theControl), thePart); });
    }

    void ShowScreen()
    {
        mSession.Then(
            [](UserSimulator& theUser) { std::printf("\n%s\n", theUser.DescribeScreen().c_str()); });
    }

    void WriteMeasuring();
    void WriteShowing();
    void WriteWarnings();
    void WriteRest();

    WindowRef mWindow;
    Host::UserSession mSession;
    int mDone = 0;
    bool mWasSuccessful = true;
};

void SettingsSession::WriteMeasuring()
{
    ShowScreen();
    Click("The person clicks into the name of the station.", kStation, kStation);
    Do("They give it another, and leave it with the tabulator.", kStation, [](UserSimulator& theUser) {
        theUser.PressKey(kVK_ANSI_A, cmdKey);
        theUser.TypeText("Roof");
        return theUser.PressKey(kVK_Tab);
    });
    Do("They choose a city from the list.", kCity,
       [this](UserSimulator& theUser) { return theUser.ChooseInPopUp(At(kCity), "Oslo"); });
    Do("It measures every day.", kInterval,
       [this](UserSimulator& theUser) { return theUser.ChooseInPopUp(At(kInterval), "Every day"); });
    Click("It does not measure by itself: how often cannot be chosen any more.", kAutomatic, kInterval);
    Click("They think in Fahrenheit.", kFahrenheit, kFahrenheit);
}

void SettingsSession::WriteShowing()
{
    Press("They turn to the second page.", kPage, 2, kPage);
    Do("They drag the brightness.", kBrightnessText,
       [this](UserSimulator& theUser) { return theUser.DragSlider(At(kBrightness), 85); });
    Press("They want more decimals.", kDecimals, kControlUpButtonPart, kDecimalsText);
    Press("They zoom in by a page.", kZoom, kControlPageDownPart, kZoomBar);
    Click("They press the button that stays down.", kBold, kBold);
    Click("They ask for more.", kMore, kMoreText);
}

void SettingsSession::WriteWarnings()
{
    Press("They turn to the third page.", kPage, 3, kPage);
    Click("They want to be warned: now there can be a code.", kWarn, kCode);
    Click("They open the details.", kDetails, kDetailsText);
    Click("They click on the image.", kWell, kWell);
    Click("They ask for help.", kHelp, kHelp);
    ShowScreen();
}

void SettingsSession::WriteRest()
{
    Do("They look for something.", kFind, [this](UserSimulator& theUser) {
        theUser.Click(At(kFind));
        return theUser.TypeText("code");
    });
    Click("They are content, and the program ends.", kDone, kDone);
}

// What the next start of the program would find.
void PrintPreferences()
{
    std::printf("\nKept:\n");
    for (const NumberSetting& theSetting : kNumbers) {
        CFStringRef theKey = CFStringCreateWithCString(nullptr, theSetting.theKey, kCFStringEncodingUTF8);
        Boolean isThere = false;
        const CFIndex theNumber = CFPreferencesGetAppIntegerValue(theKey, kSettingsApplication, &isThere);
        std::printf("    %s %s\n", theSetting.theKey,
                    isThere ? std::to_string(theNumber).c_str() : "nothing");
        CFRelease(theKey);
    }
    for (const TextSetting& theSetting : kTexts) {
        CFStringRef theKey = CFStringCreateWithCString(nullptr, theSetting.theKey, kCFStringEncodingUTF8);
        CFPropertyListRef theText = CFPreferencesCopyAppValue(theKey, kSettingsApplication);
        char theCharacters[64] = "nothing";
        if (theText != nullptr) {
            CFStringGetCString(static_cast<CFStringRef>(theText), theCharacters, sizeof theCharacters,
                               kCFStringEncodingUTF8);
            CFRelease(theText);
        }
        std::printf("    %s %s\n", theSetting.theKey, theCharacters);
        CFRelease(theKey);
    }
}

} // namespace

int main()
{
    WindowRef theWindow = MakeSettingsWindow();
    ConnectSettings(theWindow);
    InstallSettingsCommands(theWindow);
    ShowWindow(theWindow);
    const SettingsSession theSession(theWindow);
    RunApplicationEventLoop();
    DisconnectSettings(theWindow);
    DisposeWindow(theWindow);
    PrintPreferences();
    return theSession.WasSuccessful() ? 0 : 1;
}
