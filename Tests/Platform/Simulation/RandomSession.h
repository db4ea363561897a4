// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RandomSession_h
#define RandomSession_h

#include <functional>
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
using Lines = std::vector<std::string>;

// The same script for the same seed, on every machine.
Script RandomScript(unsigned theSeed, size_t theLength);

// The seeds that a run of the tests plays: that many from 1 on, unless LM_RANDOM_SEED says with which to
// begin and LM_RANDOM_SESSIONS how many to play.
std::vector<unsigned> SeedsToPlay(unsigned theCount);

// The script of a seed; that of the file which LM_RANDOM_SCRIPT names, instead of any.
Script ScriptToPlay(unsigned theSeed);

// Carries a script out and disposes of everything. The first promise that was broken, with the number of the
// step; empty when all were kept.
std::string PlayScript(const Script& theScript);

// Carries a script out with the presenter in use, and disposes of everything. What came of each step: the
// events that were heard, what a person could not do, and what all objects and the picture are like
// afterwards.
Lines RecordScript(const Script& theScript);

// Whether a script does what nobody wants.
using Failure = std::function<bool(const Script& theScript)>;

// A script that fails, without the steps that it does not need for that.
Script Shortest(Script theScript, const Failure& theFailure);

// A script as text, a step a line, and back. A line that is no step ends the reading.
std::string Describe(const Script& theScript);
Script ReadScript(std::istream& theText);

#endif
