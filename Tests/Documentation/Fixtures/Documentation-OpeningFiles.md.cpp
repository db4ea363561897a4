// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @prose 1 what a desktop reads
