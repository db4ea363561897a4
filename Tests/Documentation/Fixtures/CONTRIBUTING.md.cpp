// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @shell 1 what ./check does for each of its builds, here for one more
// @prose 2 a picture of the layers, which build.Layering.TheTreeKeepsTheRules keeps
