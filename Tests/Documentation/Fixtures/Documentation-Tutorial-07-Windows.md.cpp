// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/07-Windows/RadioPlace.cpp
// @file 2 Examples/Tutorial/07-Windows/Windows.cpp
// @file 3 Examples/Tutorial/07-Windows/expected.txt
// @file 4 Examples/Tutorial/07-Windows/expected.txt
// @file 5 Examples/Tutorial/07-Windows/Windows.cpp
// @file 6 Examples/Tutorial/07-Windows/expected.txt
