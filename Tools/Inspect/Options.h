// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Options_h
#define Options_h

// What the command line asks for.

#include "Log.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Inspect {

enum class Command : std::uint8_t
{
    Help,
    Version,
    Log
};

struct Options
{
    Command theCommand = Command::Help;
    std::string theJournal;
    LogOptions theLog;
    std::string theError; // what is wrong with the command line; empty when nothing is
};

// theArguments are those behind the program's name.
Options ReadOptions(const std::vector<std::string>& theArguments);

// What --help prints.
std::string GetUsage();

// Seconds as nanoseconds: "1.5". Returns false for what is no such number.
bool ReadSeconds(const std::string& theText, std::uint64_t& theTime);

} // namespace Inspect

#endif
