// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFLocaleObject_h
#define CFLocaleObject_h

#include "CFRuntime.h"

#include <CoreFoundation/CFLocale.h>
#include <mutex>
#include <string>

struct __CFLocale : Host::Object
{
    __CFLocale(std::string&& theName, Host::Holder<CFStringRef>&& theIdentifier,
               Host::Holder<CFMutableDictionaryRef>&& theValues)
        : Object(Host::kLocaleType),
          mName(std::move(theName)),
          mIdentifier(std::move(theIdentifier)),
          mValues(std::move(theValues))
    {
    }

    const std::string mName; // what formats and data know it by
    const Host::Holder<CFStringRef> mIdentifier;
    mutable std::mutex mMutex;
    const Host::Holder<CFMutableDictionaryRef> mValues; // those that were asked for; behind the mutex
};

namespace Host {

// inLocale, or the person's. Throws std::bad_alloc.
Holder<CFLocaleRef> LocaleOrCurrent(CFLocaleRef inLocale, const char* theCaller);

} // namespace Host

#endif
