// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// For systems that have no library for property lists.

#include "CFPropertyListLibrary.h"

bool Host::HasPropertyListLibrary()
{
    return false;
}

std::string Host::WriteXMLPropertyList(CFPropertyListRef)
{
    return std::string();
}

std::string Host::XMLOfBinaryPropertyList(std::string_view)
{
    return std::string();
}
