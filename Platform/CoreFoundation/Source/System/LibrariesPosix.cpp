// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Libraries.h"

#include <dlfcn.h>

namespace Host {

Library OpenProgram()
{
    return dlopen(nullptr, RTLD_LAZY);
}

Library OpenLibrary(const std::string& thePath)
{
    return dlopen(thePath.c_str(), RTLD_LAZY | RTLD_LOCAL);
}

void* FunctionOf(Library theLibrary, const std::string& theName)
{
    return theLibrary == nullptr ? nullptr : dlsym(theLibrary, theName.c_str());
}

} // namespace Host
