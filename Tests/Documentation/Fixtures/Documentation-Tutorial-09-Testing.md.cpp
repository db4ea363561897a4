// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/09-Testing/RadioTest.cpp
// @file 2 Examples/Tutorial/09-Testing/RadioTest.cpp
// @file 3 Examples/Tutorial/09-Testing/RadioTest.cpp
// @file 4 Examples/Tutorial/09-Testing/RadioTest.cpp
// @file 5 Examples/Tutorial/09-Testing/expected.txt
