// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef SoakedRadio_h
#define SoakedRadio_h

#include "Radio.h"
#include "RadioMenu.h"

#include <Simulation/UserSimulator.h>

// The tutorial's radio, whose windows come and go while it and its preferences stay. Changes are made by all
// the ways there are, and what each should come to is looked at.
class SoakedRadio
{
public:
    SoakedRadio();
    ~SoakedRadio();
    SoakedRadio(const SoakedRadio&) = delete;
    SoakedRadio& operator=(const SoakedRadio&) = delete;

    // One at a time. A window that is closed takes its bindings along.
    void OpenWindow();
    void CloseWindow();

    // Makes the theNumber-th change in the open window. False when it did not come to what it should.
    bool Change(unsigned long theNumber);

    // Writes the preferences.
    bool Flush();

private:
    bool SetSlider(SInt32 theVolume);
    bool SetVolume(SInt32 theVolume);
    bool DragSlider(SInt32 theVolume);
    bool ClickOnBox();
    bool ChooseOn();
    bool SetStation(SInt32 theNumber);
    bool MoveWindowTo(short theLeft);

    bool IsOn();
    SInt32 Volume();

    LmPreferenceBinding mPreferences; // outlives what is bound to it
    Radio mRadio;
    RadioMenu mMenu;
    Host::UserSimulator mUser;
    WindowRef mWindow = nullptr;  // owned
    ControlRef mSlider = nullptr; // the window's
};

#endif
