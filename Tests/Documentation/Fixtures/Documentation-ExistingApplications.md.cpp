// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The examples of the page about an application that exists are lines of it.

// @file 1 Examples/Settings/SettingsByHand.c
// @file 2 Examples/Settings/SettingsBindings.cpp
// @file 3 Examples/Settings/SettingsBindings.cpp
