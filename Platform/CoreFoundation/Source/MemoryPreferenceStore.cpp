// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "MemoryPreferenceStore.h"

#include "CFPropertyListSupport.h"

namespace Host {

namespace {

PreferenceStore::Values CopyAsRead(CFDictionaryRef theValues)
{
    CopyOptions theOptions;
    theOptions.theHasMutableContainers = true;
    theOptions.theHasNumbersAsRead = true;
    const CFPropertyListRef theCopy = RequireMemory(CopyPropertyList(theValues, theOptions)).Release();
    return PreferenceStore::Values(static_cast<CFMutableDictionaryRef>(const_cast<void*>(theCopy)));
}

} // namespace

PreferenceStore::Values MemoryPreferenceStore::Load(const std::string& theName)
{
    const auto theFound = mDomains.find(theName);
    return theFound == mDomains.end() ? EmptyValues() : CopyAsRead(theFound->second.Get());
}

PreferenceStore::Values MemoryPreferenceStore::Save(const std::string& theName, CFDictionaryRef theChanges)
{
    Values theValues = Load(theName);
    Apply(theChanges, theValues.Get());
    Values theKept = CopyAsRead(theValues.Get());
    mDomains.erase(theName);
    mDomains.emplace(theName, std::move(theKept));
    return theValues;
}

} // namespace Host
