// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/02-Binding/Binding.cpp
// @file 2 Examples/Tutorial/02-Binding/expected.txt
