// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "SoakedRadio.h"

#include "BindRadioWindow.h"
#include "LmConveniences.h"
#include "RadioPlace.h"
#include "RadioWindow.h"

#include <string>

namespace {

const short kTop = 160;

std::string TextIn(WindowRef theWindow, ControlID theID)
{
    CFStringRef theText = nullptr;
    GetControlData(FindControl(theWindow, theID), kControlEntireControl, kControlEditTextCFStringTag,
                   sizeof theText, &theText, nullptr);
    const LmValue theValue(theText, false);
    CFRelease(theText);
    return LmGetStdString(theValue);
}

bool IsMarked(MenuCommand theCommand)
{
    UniChar theMark = noMark;
    GetMenuCommandMark(nullptr, theCommand, &theMark);
    return theMark != noMark;
}

} // namespace

SoakedRadio::SoakedRadio()
    : mPreferences(CFSTR("org.lmbindings.Soak")),
      mMenu(mRadio)
{
    LmKeyValueBinding* theModel = mRadio.GetBindings();
    theModel->Bind("station", &mPreferences, "station", NULL, NULL);
    theModel->Bind("volume", &mPreferences, "volume", NULL, NULL);
}

SoakedRadio::~SoakedRadio()
{
    if (mWindow != nullptr) {
        CloseWindow();
    }
}

void SoakedRadio::OpenWindow()
{
    mWindow = MakeRadioWindow();
    BindRadioWindow(mWindow, mRadio);
    mRadio.Set("shown", LmValue(true));
    BindRadioPlace(mWindow, mRadio)->Bind("bounds", &mPreferences, "window place", NULL, NULL);
    mSlider = FindControl(mWindow, kVolumeSlider);
}

void SoakedRadio::CloseWindow()
{
    DisposeWindow(mWindow);
    mWindow = nullptr;
}

bool SoakedRadio::Change(unsigned long theNumber)
{
    const auto theVolume = static_cast<SInt32>(theNumber * 7 % 101);
    switch (theNumber % 8) {
    case 0:
        return SetSlider(theVolume);
    case 1:
        return SetVolume(theVolume);
    case 2:
        return ClickOnBox();
    case 3:
        return SetStation(theVolume);
    case 4:
        return ChooseOn();
    case 5:
        return MoveWindowTo(static_cast<short>(100 + theVolume));
    case 6:
        return SetVolume(100 - theVolume);
    default:
        return DragSlider(theVolume);
    }
}

bool SoakedRadio::Flush()
{
    return mPreferences.Flush();
}

bool SoakedRadio::IsOn()
{
    return mRadio.Get("on").GetBoolean();
}

SInt32 SoakedRadio::Volume()
{
    return static_cast<SInt32>(mRadio.Get("volume").GetSInt32());
}

bool SoakedRadio::SetSlider(SInt32 theVolume)
{
    SetControl32BitValue(mSlider, theVolume);
    return Volume() == theVolume && mPreferences.GetKeyPathValue("volume").GetSInt32() == theVolume;
}

bool SoakedRadio::SetVolume(SInt32 theVolume)
{
    mRadio.Set("volume", LmValue(theVolume));
    return GetControl32BitValue(mSlider) == theVolume;
}

// The slider can be operated only while the radio is on.
bool SoakedRadio::DragSlider(SInt32 theVolume)
{
    mRadio.Set("on", LmValue(true));
    return mUser.DragSlider(mSlider, theVolume) && Volume() == theVolume;
}

bool SoakedRadio::ClickOnBox()
{
    const bool wasOn = IsOn();
    return mUser.Click(FindControl(mWindow, kOnBox)) && IsOn() == !wasOn && IsMarked(kCommandOn) == !wasOn;
}

bool SoakedRadio::ChooseOn()
{
    const bool wasOn = IsOn();
    return mUser.ChooseCommand(kCommandOn) && IsOn() == !wasOn &&
           (GetControl32BitValue(FindControl(mWindow, kOnBox)) != 0) == !wasOn;
}

bool SoakedRadio::SetStation(SInt32 theNumber)
{
    const std::string theStation = "Station " + std::to_string(theNumber);
    mRadio.Set("station", LmMakeStringValue(theStation));
    return TextIn(mWindow, kStationField) == theStation;
}

bool SoakedRadio::MoveWindowTo(short theLeft)
{
    MoveWindow(mWindow, theLeft, kTop, false);
    const CGRect thePlace = mPreferences.GetKeyPathValue("window place").GetRect();
    return thePlace.origin.x == static_cast<CGFloat>(theLeft);
}
