// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @shell 1 needs an SDK; build.Mac.DifferencesFromAnSdkAreFound runs it on one that it makes
