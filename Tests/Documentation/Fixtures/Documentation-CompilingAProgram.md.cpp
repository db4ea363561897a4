// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @run 1 build.Headers.AreReadInEachLanguage
