// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PreferenceStore_h
#define PreferenceStore_h

// Where the values of preference domains are kept between two runs.

#include "CFRuntime.h"

#include <CoreFoundation/CFDictionary.h>
#include <string>

namespace Host {

class PreferenceStore
{
public:
    using Values = Holder<CFMutableDictionaryRef>;

    PreferenceStore() = default;
    virtual ~PreferenceStore() = default;
    PreferenceStore(const PreferenceStore&) = delete;
    PreferenceStore& operator=(const PreferenceStore&) = delete;

    // The values of a domain; an empty dictionary when it has none, null when they cannot be read now.
    // theName is a path within the store. Throws std::bad_alloc.
    virtual Values Load(const std::string& theName) = 0;

    // Applies changes to the values that the domain has now, which may be others than when it was loaded, and
    // returns the result; null when nothing could be written. A change to kCFNull takes the key away. Throws
    // std::bad_alloc.
    virtual Values Save(const std::string& theName, CFDictionaryRef theChanges) = 0;

    // The store that the environment asks for.
    static PreferenceStore& GetShared();

protected:
    static Values EmptyValues();
    static void Apply(CFDictionaryRef theChanges, CFMutableDictionaryRef theValues);
};

} // namespace Host

#endif
