// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @shell 1 what ./check does, for each of its builds
// @shell 2 what Tests/Package/CheckPackage.sh does with the examples that it has installed
