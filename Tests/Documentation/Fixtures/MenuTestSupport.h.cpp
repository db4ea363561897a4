// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @prose 1 a picture of the menus, of which the tests below it name every item
