// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioApplication.h"
#include "RadioWindow.h"

#include <cstdio>
#include <Simulation/UserSession.h>
#include <string>

namespace {

int gFailures = 0;

void Expect(const char* theWhat, bool isSo)
{
    std::printf("%s: %s\n", isSo ? "passed" : "FAILED", theWhat);
    std::fflush(stdout);
    gFailures += isSo ? 0 : 1;
}

// What a person could do was done; what could not be done says why, and shows the screen.
void Do(const char* theWhat, const Host::UserResult& theResult)
{
    Expect(theWhat, bool(theResult));
    std::printf("%s", theResult.Explain().c_str());
}

bool IsText(const LmValue& theValue, CFStringRef theText)
{
    return theValue.IsString() && CFEqual(theValue.GetString(), theText);
}

void UseSlider(Host::UserSimulator& theUser, RadioApplication& theApplication)
{
    Do("the slider can be dragged", theUser.DragSlider({theApplication.GetWindow(), kVolumeSlider}, 70));
    Expect("the volume follows", theApplication.GetRadio().Get("volume").GetSInt32() == 70);
}

void UseStationField(Host::UserSimulator& theUser, RadioApplication& theApplication)
{
    Do("the station can be clicked", theUser.Click({theApplication.GetWindow(), kStationField}));
    Do("End can be pressed", theUser.PressKey(kVK_End));
    for (int theLetter = 0; theLetter < 4; ++theLetter) {
        Do("Delete can be pressed", theUser.PressKey(kVK_Delete));
    }
    Do("a name can be typed", theUser.TypeText("News"));
    Expect("the radio waits for the end", IsText(theApplication.GetRadio().Get("station"), CFSTR("Jazz")));
    Do("Return can be pressed", theUser.PressKey(kVK_Return));
    Expect("the radio follows", IsText(theApplication.GetRadio().Get("station"), CFSTR("News")));
}

void UseMenu(Host::UserSimulator& theUser, RadioApplication& theApplication)
{
    Do("On can be chosen", theUser.ChooseCommand(kCommandOn));
    Expect("the radio is off", !theApplication.GetRadio().Get("on").GetBoolean());
    Expect("Louder cannot be chosen", !theUser.ChooseCommand(kCommandLouder));
    Expect("the slider cannot be dragged",
           !theUser.DragSlider({theApplication.GetWindow(), kVolumeSlider}, 20));
}

void CloseWindow(Host::UserSimulator& theUser, RadioApplication& theApplication)
{
    Do("the window can be closed", theUser.CloseWindow(theApplication.GetWindow()));
}

} // namespace

int main()
{
    RadioApplication theApplication;
    Host::UserSession theSession;
    for (auto* theStep : {UseSlider, UseStationField, UseMenu, CloseWindow}) {
        theSession.Then([&, theStep](Host::UserSimulator& theUser) { theStep(theUser, theApplication); });
    }
    RunApplicationEventLoop();
    return gFailures == 0 ? 0 : 1;
}
