// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @prose 1 what a user must have, with its types left open; the two users in the library are compiled with it
