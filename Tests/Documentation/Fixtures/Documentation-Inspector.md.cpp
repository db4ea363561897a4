// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @prose 1 inspect.Attach.IsUsedOnProgramsThatRun asks in the same way, a program of its own
