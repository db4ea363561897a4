// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @shell 1 measures time, which is the reader's to judge
// @shell 2 takes minutes
// @shell 3 takes minutes
