// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/04-Transforms/RadioTransforms.cpp
// @file 2 Examples/Tutorial/04-Transforms/RadioTransforms.cpp
// @file 3 Examples/Tutorial/04-Transforms/Transforms.cpp
// @file 4 Examples/Tutorial/04-Transforms/expected.txt
// @file 5 Examples/Tutorial/04-Transforms/expected.txt
// @file 6 Examples/Tutorial/04-Transforms/expected.txt
