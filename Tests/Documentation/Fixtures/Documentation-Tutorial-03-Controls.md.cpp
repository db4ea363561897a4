// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/03-Controls/RadioWindow.cpp
// @file 2 Examples/Tutorial/03-Controls/Controls.cpp
// @file 3 Examples/Tutorial/03-Controls/Controls.cpp
// @file 4 Examples/Tutorial/03-Controls/Controls.cpp
// @file 5 Examples/Tutorial/03-Controls/expected.txt
// @file 6 Examples/Tutorial/03-Controls/Controls.cpp
// @file 7 Examples/Tutorial/03-Controls/expected.txt
