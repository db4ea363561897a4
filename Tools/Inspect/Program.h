// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Program_h
#define Program_h

#include <iosfwd>
#include <string>
#include <vector>

namespace Inspect {

// The whole program. theArguments are those behind its name. Returns the status for the shell.
int RunProgram(const std::vector<std::string>& theArguments, std::ostream& theOutput,
               std::ostream& theErrors);

} // namespace Inspect

#endif
