// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ScriptTrial_h
#define ScriptTrial_h

#include "Script.h"

#include <functional>

namespace Model {

// Plays a script and returns the transcript. What the model refuses, and what does not end, is taken out of
// the script before.
std::string PlayOnModel(Script& theScript);

// The script must be one that the model has played. With isShown, each line is printed at once.
std::string PlayOnLibrary(const Script& theScript, bool isShown);

// Whether a script is one that the caller looks for.
using Question = std::function<bool(const Script&)>;

// The script without all that it can do without while theQuestion is still answered with yes.
Script Shrink(const Script& theScript, const Question& theQuestion);

} // namespace Model

#endif
