// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/01-FirstStore/FirstStore.cpp
// @file 2 Examples/Tutorial/01-FirstStore/FirstStore.cpp
// @file 3 Examples/Tutorial/01-FirstStore/FirstStore.cpp
// @file 4 Examples/Tutorial/01-FirstStore/expected.txt
