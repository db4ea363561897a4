// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/05-OwnModel/Radio.h
// @file 2 Examples/Tutorial/05-OwnModel/Radio.cpp
// @file 3 Examples/Tutorial/05-OwnModel/Radio.cpp
// @file 4 Examples/Tutorial/05-OwnModel/BindRadioWindow.cpp
// @file 5 Examples/Tutorial/05-OwnModel/expected.txt
