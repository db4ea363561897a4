// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFURLObject_h
#define CFURLObject_h

#include "CFRuntime.h"
#include "CFURLText.h"

#include <CoreFoundation/CFURL.h>

struct __CFURL : Host::Object
{
    __CFURL(Host::URLParts&& theParts, Host::Holder<CFStringRef>&& theString, CFURLRef theBase)
        : Object(Host::kURLType),
          mParts(std::move(theParts)),
          mString(std::move(theString)),
          mBase(theBase)
    {
    }

    const Host::URLParts mParts;
    const Host::Holder<CFStringRef> mString; // the parts as text
    const Host::Holder<CFURLRef> mBase;      // holds null for an absolute one
};

namespace Host {

// The path of a file or folder, without a slash at its end; none for a URL of another scheme.
std::optional<std::string> PathOfFile(CFURLRef theURL);

// A URL of an absolute path; the caller releases it. Throws std::bad_alloc.
CFURLRef MakeFileURL(const std::string& thePath, bool theIsFolder);

} // namespace Host

#endif
