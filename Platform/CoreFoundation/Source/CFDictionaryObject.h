// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDictionaryObject_h
#define CFDictionaryObject_h

#include "CFContainer.h"

#include <CoreFoundation/CFDictionary.h>
#include <unordered_map>

namespace Host {

using KeyHash = ValueHash<CFDictionaryKeyCallBacks>;
using KeyEqual = ValueEqual<CFDictionaryKeyCallBacks>;
using Entries = std::unordered_map<const void*, const void*, KeyHash, KeyEqual>;

} // namespace Host

struct __CFDictionary : Host::Object
{
    __CFDictionary(const CFDictionaryKeyCallBacks& theKeyCallBacks,
                   const CFDictionaryValueCallBacks& theValueCallBacks, bool theIsMutable)
        : Object(Host::kDictionaryType),
          mKeyCallBacks(theKeyCallBacks),
          mValueCallBacks(theValueCallBacks),
          mIsMutable(theIsMutable),
          mEntries(0, Host::KeyHash{&mKeyCallBacks}, Host::KeyEqual{&mKeyCallBacks})
    {
    }
    ~__CFDictionary();

    CFIndex GetCount() const { return static_cast<CFIndex>(mEntries.size()); }

    const CFDictionaryKeyCallBacks mKeyCallBacks;
    const CFDictionaryValueCallBacks mValueCallBacks;
    const bool mIsMutable;
    Host::Entries mEntries; // keys and values, each retained by the callbacks
};

#endif
