// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ObjectIds.h"

namespace Host {

ObjectId NewObjectId()
{
    static ObjectId sLast = kNoObject;
    return ++sLast;
}

} // namespace Host
