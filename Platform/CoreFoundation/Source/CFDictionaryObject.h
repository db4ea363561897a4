// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDictionaryObject_h
#define CFDictionaryObject_h

#include "CFContainer.h"

#include <CoreFoundation/CFDictionary.h>
#include <unordered_map>

namespace Host {

struct KeyHash
{
    size_t operator()(const void* theKey) const
    {
        return theCallBacks->hash == nullptr ? reinterpret_cast<size_t>(theKey)
                                             : static_cast<size_t>(theCallBacks->hash(theKey));
    }

    const CFDictionaryKeyCallBacks* theCallBacks; // the dictionary's own
};

struct KeyEqual
{
    bool operator()(const void* theFirst, const void* theSecond) const
    {
        return EqualValues(*theCallBacks, theFirst, theSecond);
    }

    const CFDictionaryKeyCallBacks* theCallBacks; // the dictionary's own
};

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
