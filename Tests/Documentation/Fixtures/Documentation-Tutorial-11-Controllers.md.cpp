// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @shell 1 what Examples/Tutorial/CMakeLists.txt does for the program of the page
// @file 2 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 3 Examples/Tutorial/11-Controllers/expected.txt
// @file 4 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 5 Examples/Tutorial/11-Controllers/expected.txt
// @file 6 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 7 Examples/Tutorial/11-Controllers/expected.txt
// @file 8 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 9 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 10 Examples/Tutorial/11-Controllers/expected.txt
// @file 11 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 12 Examples/Tutorial/11-Controllers/expected.txt
// @file 13 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 14 Examples/Tutorial/11-Controllers/expected.txt
// @file 15 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 16 Examples/Tutorial/11-Controllers/expected.txt
// @file 17 Examples/Tutorial/11-Controllers/Controllers.cpp
// @file 18 Examples/Tutorial/11-Controllers/expected.txt
// @file 19 Examples/OrderForm/OrderWindow.h
// @file 20 Examples/OrderForm/Session/expected.txt
