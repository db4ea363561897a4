// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Libraries_h
#define Libraries_h

#include <string>

namespace Host {

// Code that is loaded while the program runs. It stays as long as the program does.
using Library = void*;

// The program with what it was linked with; a file; null for what cannot be loaded.
Library OpenProgram();
Library OpenLibrary(const std::string& thePath);

// A function of it, or null.
void* FunctionOf(Library theLibrary, const std::string& theName);

} // namespace Host

#endif
