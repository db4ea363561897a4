// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Characters.h"

#include <CoreFoundation/CFArray.h>

CFArrayRef Host::MakeArray(const std::vector<std::string>& theTexts)
{
    Holder<CFMutableArrayRef> theArray =
        RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
    for (const std::string& theText : theTexts) {
        CFArrayAppendValue(theArray.Get(), Holder<CFStringRef>(StringOf(theText)).Get());
    }
    if (CFArrayGetCount(theArray.Get()) != static_cast<CFIndex>(theTexts.size())) {
        throw std::bad_alloc();
    }
    return theArray.Release();
}
