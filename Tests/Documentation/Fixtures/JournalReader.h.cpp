// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @prose 1 how the tests of journals are written, which do so; it leaves the expected lines open
