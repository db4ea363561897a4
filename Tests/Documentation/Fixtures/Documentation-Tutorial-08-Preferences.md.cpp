// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/08-Preferences/RadioApplication.h
// @file 2 Examples/Tutorial/08-Preferences/RadioApplication.cpp
// @file 3 Examples/Tutorial/08-Preferences/expected.txt
// @file 4 Examples/Tutorial/08-Preferences/RadioMain.cpp
