// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AppleEvents_Coercions_h
#define AppleEvents_Coercions_h

#include "Descriptors.h"

namespace Host {

// A copy of a descriptor as another type; typeWildCard as it is. False when it cannot be had so. Throws
// std::bad_alloc.
bool Coerce(const Descriptor& theSource, DescType theType, Descriptor* theResult);

} // namespace Host

#endif
