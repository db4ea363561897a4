// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HandleTable.h"

namespace Host {

ObjectIdentifier NewObjectIdentifier()
{
    static ObjectIdentifier theLast = 0;
    return ++theLast;
}

} // namespace Host
