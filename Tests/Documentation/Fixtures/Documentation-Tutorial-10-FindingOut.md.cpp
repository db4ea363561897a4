// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 2 Examples/Tutorial/10-FindingOut/expected.txt
// @file 3 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 4 Examples/Tutorial/10-FindingOut/expected.txt
// @file 5 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 6 Examples/Tutorial/10-FindingOut/expected.txt
// @file 7 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 8 Examples/Tutorial/10-FindingOut/expected.txt
// @file 9 Examples/Tutorial/10-FindingOut/expected.txt
