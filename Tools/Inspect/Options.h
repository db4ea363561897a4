// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Options_h
#define Options_h

// What the command line asks for.

#include "Graph.h"
#include "Log.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Inspect {

enum class Command : std::uint8_t
{
    Help,
    Version,
    Log,
    Why,
    WhyNot,
    Graph,
    Page,
    Lint,
    Diff,
    Run,
    Attach,
    Detach,
    Ask
};

struct Options
{
    Command theCommand = Command::Help;
    std::string theJournal;
    std::string theOtherJournal; // to compare with
    std::string theTarget;       // OBJECT.KEY
    std::uint64_t theTime = 0;   // which value of it, counted from 1; 0 is the last one
    LogOptions theLog;
    GraphOptions theGraph;
    std::vector<std::string>
        theProgram;        // to run, with its arguments; to attach to; to ask, with the question
    std::string theOutput; // the file that page writes, or that a program's journal is kept in
    std::vector<std::string>
        theQuestion;      // a command line without a journal, for when it has run; empty for log
    std::string theError; // what is wrong with the command line; empty when nothing is
};

// theArguments are those behind the program's name.
Options ReadOptions(const std::vector<std::string>& theArguments);

// What --help prints.
std::string GetUsage();

// A number from 1 on. Returns false for what is none.
bool ReadCount(const std::string& theText, std::uint64_t& theCount);

// Seconds as nanoseconds: "1.5". Returns false for what is no such number.
bool ReadSeconds(const std::string& theText, std::uint64_t& theTime);

} // namespace Inspect

#endif
