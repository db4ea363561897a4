// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RadioApplication_h
#define RadioApplication_h

#include "Radio.h"
#include "RadioMenu.h"

// The whole application: the radio, what is remembered of it, its menu and its window.
class RadioApplication
{
public:
    RadioApplication();
    ~RadioApplication();
    RadioApplication(const RadioApplication&) = delete;
    RadioApplication& operator=(const RadioApplication&) = delete;

    Radio& GetRadio() { return mRadio; }
    WindowRef GetWindow() const { return mWindow; }

private:
    LmPreferenceBinding mPreferences; // outlives what is bound to it
    Radio mRadio;
    RadioMenu mMenu;
    WindowRef mWindow; // owned
};

#endif
