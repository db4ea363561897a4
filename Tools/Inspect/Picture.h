// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Picture_h
#define Picture_h

#include <chrono>
#include <iosfwd>
#include <string>

namespace Inspect {

// Lets Graphviz's program `dot`, which it finds by PATH, draw theGraph, and writes the SVG to theOutput.
// Returns what went wrong; empty when nothing did.
std::string DrawPicture(const std::string& theGraph, std::ostream& theOutput);

// Lets `dot` only find places for theGraph's boxes and lines, for no longer than theLimit. theResult is its
// plain-ext output. Returns what went wrong, as a sentence for a person who looks at something else instead.
std::string FindPlaces(const std::string& theGraph, std::chrono::milliseconds theLimit,
                       std::string& theResult);

} // namespace Inspect

#endif
