// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ScriptMaker_h
#define ScriptMaker_h

#include "Script.h"

namespace Model {

// The script of a seed: the same one everywhere and always, until the maker itself is changed.
//
// It does not ask what a program may do; the model does, and what it refuses is taken out afterwards. Only
// this is never made, since neither side could say what comes of it: a null observer, a null object to bind
// to, and turning the trace on or off while observers are told, which would put its depth out of step for
// good.
Script MakeScript(std::uint64_t theSeed);

} // namespace Model

#endif
