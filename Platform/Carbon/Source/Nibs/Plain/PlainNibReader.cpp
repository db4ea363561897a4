// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Nibs cannot be read in this build.

#include "Nibs/NibReader.h"

namespace Host {

bool CanReadNibs()
{
    return false;
}

bool ReadNib(const std::string&, NibNode*)
{
    return false;
}

} // namespace Host
