// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A property list in XML, or in text that is in no other form.

#include "PropertyListSupport.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    ReadPropertyList(theBytes, theSize);
    return 0;
}
