// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Picture_h
#define Picture_h

#include <iosfwd>
#include <string>

namespace Inspect {

// Lets Graphviz's program `dot`, which it finds by PATH, draw theGraph, and writes the SVG to theOutput.
// Returns what went wrong; empty when nothing did.
std::string DrawPicture(const std::string& theGraph, std::ostream& theOutput);

} // namespace Inspect

#endif
