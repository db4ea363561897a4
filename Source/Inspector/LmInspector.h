// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmInspector_h
#define LmInspector_h

// The inspector: the objects of a running program, their keys and values, what they are bound to, and what
// has just happened. A program that is shown on a desktop opens its window with Ctrl+Shift+I; everywhere, the
// same questions are answered as text.
//
// Nobody meets it by accident. It is there when the environment says LM_INSPECTOR=1, or when the program
// calls LmAllowInspector, best before it makes anything. With LM_INSPECTOR=1 the user who runs the program
// can ask it from a terminal as well, by "lminspect ask".
//
// It listens as a journal does, changes no order and no result, and leaves nothing behind when it ends. What
// it costs is what a journal costs, and memory for the objects and the last 1,000 changes.
//
// Documentation/Inspector.md shows the window and lists the questions.
//
// Main thread only. Nothing is thrown. What there is no memory for is missing from the answers.

#include "LmExport.h"
#include "LmLiveSurvey.h"
#include "LmString.h"

// Allows the inspector, and begins to follow what happens. What happened before is not known, but for objects
// that are met again. With the library of the desktop, Ctrl+Shift+I opens the window from now on. Does
// nothing when it is allowed already.
LM_EXPORT void LmAllowInspector();

// Ends it: the window closes, and nothing is followed any more. Called while a question is answered, it waits
// for the answer.
LM_EXPORT void LmEndInspector();

// What is there now; null while the inspector is not allowed. Good until LmEndInspector.
LM_EXPORT LmLiveSurvey* LmGetLiveSurvey();

// The answer to a question, of one or more lines, each with a line feed. The questions are
//
// - "objects": all objects, by window;
// - "keys OBJECT": the keys of an object with their values, and what they are bound to;
// - "bound OBJECT": the links of an object: bindings, dependencies, observers;
// - "why OBJECT.KEY": the last change of a key, and what led to it;
// - "changes": the last changes, each under the one that led to it;
// - "set OBJECT.KEY VALUE": sets a key, as a value of the type that it has;
// - "help": these.
//
// OBJECT is a name, a class that only one object has, or "#" and the number that "objects" shows.
LM_EXPORT LmString LmAskInspector(const LmString& theQuestion);

#endif
