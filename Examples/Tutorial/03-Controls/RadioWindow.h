// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RadioWindow_h
#define RadioWindow_h

#include <Carbon/Carbon.h>

// The window of the radio as Carbon makes it. Nothing in here knows what a binding is.

const OSType kRadioSignature = 'Radi';

const ControlID kStationField = {kRadioSignature, 1};
const ControlID kOnBox = {kRadioSignature, 2};
const ControlID kVolumeSlider = {kRadioSignature, 3};
const ControlID kVolumeText = {kRadioSignature, 4};

// The window with its controls, not shown yet. The caller disposes of it.
WindowRef MakeRadioWindow();

// The control of the window that carries an identifier.
ControlRef FindControl(WindowRef theWindow, ControlID theID);

#endif
