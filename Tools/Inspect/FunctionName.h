// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FunctionName_h
#define FunctionName_h

// The names of functions as a person would say them.

#include <string>

namespace Inspect {

// theName is what the symbol of a function stands for, demangled: "void Map<int>::Find(int) const". What is
// left is the function's own name: "Map<int>::Find". A lambda is called after the function that it stands in:
// "lambda in Radio::Reset".
std::string ReadableName(const std::string& theName);

} // namespace Inspect

#endif
