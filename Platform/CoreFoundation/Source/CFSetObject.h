// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFSetObject_h
#define CFSetObject_h

#include "CFContainer.h"

#include <CoreFoundation/CFSet.h>
#include <unordered_set>

namespace Host {

using Members = std::unordered_set<const void*, ValueHash<CFSetCallBacks>, ValueEqual<CFSetCallBacks>>;

} // namespace Host

struct __CFSet : Host::Object
{
    __CFSet(const CFSetCallBacks& theCallBacks, bool theIsMutable)
        : Object(Host::kSetType),
          mCallBacks(theCallBacks),
          mIsMutable(theIsMutable),
          mMembers(0, {&mCallBacks}, {&mCallBacks})
    {
    }
    ~__CFSet();

    CFIndex GetCount() const { return static_cast<CFIndex>(mMembers.size()); }

    const CFSetCallBacks mCallBacks;
    const bool mIsMutable;
    Host::Members mMembers; // each retained by the callbacks
};

#endif
