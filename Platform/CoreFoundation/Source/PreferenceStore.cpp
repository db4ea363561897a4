// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PreferenceStore.h"

#include "Common/NeverDestroyed.h"
#include "FilePreferenceStore.h"
#include "MemoryPreferenceStore.h"

#include <cstdlib>
#include <string_view>

namespace Host {

namespace {

bool IsMemoryAskedFor()
{
    const char* const theWish = std::getenv("LM_PREFERENCES");
    return theWish != nullptr && std::string_view(theWish) == "memory";
}

void ApplyOne(const void* theKey, const void* theValue, void* theContext)
{
    const CFMutableDictionaryRef theValues = static_cast<CFMutableDictionaryRef>(theContext);
    if (theValue == kCFNull) {
        CFDictionaryRemoveValue(theValues, theKey);
        return;
    }
    CFDictionarySetValue(theValues, theKey, theValue);
    if (!CFDictionaryContainsKey(theValues, theKey)) {
        throw std::bad_alloc();
    }
}

} // namespace

PreferenceStore& PreferenceStore::GetShared()
{
    // Preferences are used until the process ends.
    static NeverDestroyed<FilePreferenceStore> sFiles;
    static NeverDestroyed<MemoryPreferenceStore> sMemory;
    if (IsMemoryAskedFor()) {
        return sMemory.Get();
    }
    return sFiles.Get();
}

PreferenceStore::Values PreferenceStore::EmptyValues()
{
    return RequireMemory(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks,
                                                   &kCFTypeDictionaryValueCallBacks));
}

void PreferenceStore::Apply(CFDictionaryRef theChanges, CFMutableDictionaryRef theValues)
{
    CFDictionaryApplyFunction(theChanges, ApplyOne, theValues);
}

} // namespace Host
