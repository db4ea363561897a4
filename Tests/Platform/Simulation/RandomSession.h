// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RandomSession_h
#define RandomSession_h

#include <iosfwd>
#include <string>
#include <vector>

// Sessions that nobody would think of: a program and a person do at random what they can, and the managers
// keep their promises (WatchedObjects.h).
//
// A step is an action and numbers that choose what it is done to, out of what is there. So any part of a
// script is a script, and one that breaks a promise can be made shorter step by step.

struct Step
{
    size_t theAction = 0;
    unsigned theFirst = 0;
    unsigned theSecond = 0;
    unsigned theThird = 0;
};

using Script = std::vector<Step>;

// The same script for the same seed, on every machine.
Script RandomScript(unsigned theSeed, size_t theLength);

// Carries a script out and disposes of everything. The first promise that was broken, with the number of the
// step; empty when all were kept.
std::string PlayScript(const Script& theScript);

// A script that breaks a promise, without the steps that it does not need for that.
Script Shortest(Script theScript);

// A script as text, a step a line, and back. A line that is no step ends the reading.
std::string Describe(const Script& theScript);
Script ReadScript(std::istream& theText);

#endif
