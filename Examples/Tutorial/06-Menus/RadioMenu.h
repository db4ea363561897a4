// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RadioMenu_h
#define RadioMenu_h

#include "Radio.h"

#include <Carbon/Carbon.h>

const MenuID kRadioMenu = 128;

enum : MenuCommand
{
    kCommandOn = 'onof',
    kCommandLouder = 'loud',
    kCommandSoftly = 'soft',
    kCommandShown = 'show'
};

// The menu of the radio: it shows the radio's state, and its commands change the radio. theRadio must outlive
// it.
class RadioMenu
{
public:
    explicit RadioMenu(Radio& theRadio);
    ~RadioMenu();
    RadioMenu(const RadioMenu&) = delete;
    RadioMenu& operator=(const RadioMenu&) = delete;

private:
    EventHandlerRef mHandler = nullptr; // owned
};

#endif
