// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A property list in the binary form: the input without the name of the form, so that each one is in it.

#include "PropertyListSupport.h"

#include <string>

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    const std::basic_string<std::uint8_t> kName = {'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    const std::basic_string<std::uint8_t> theData =
        kName + std::basic_string<std::uint8_t>(theBytes, theSize);
    ReadPropertyList(theData.data(), theData.size());
    return 0;
}
