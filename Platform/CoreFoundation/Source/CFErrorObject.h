// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFErrorObject_h
#define CFErrorObject_h

#include "CFRuntime.h"

#include <CoreFoundation/CFError.h>

struct __CFError : Host::Object
{
    __CFError(Host::Holder<CFStringRef>&& theDomain, CFIndex theCode,
              Host::Holder<CFDictionaryRef>&& theUserInfo)
        : Object(Host::kErrorType),
          mDomain(std::move(theDomain)),
          mCode(theCode),
          mUserInfo(std::move(theUserInfo))
    {
    }

    const Host::Holder<CFStringRef> mDomain;
    const CFIndex mCode;
    const Host::Holder<CFDictionaryRef> mUserInfo;
};

#endif
