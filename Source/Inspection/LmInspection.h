// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmInspection_h
#define LmInspection_h

// All of the interface of what looks at a program while it runs.

#include "LmJournalFile.h"

#endif
