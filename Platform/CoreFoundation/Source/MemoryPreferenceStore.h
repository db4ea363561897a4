// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MemoryPreferenceStore_h
#define MemoryPreferenceStore_h

#include "PreferenceStore.h"

#include <map>

namespace Host {

// Keeps values as long as the process lasts, and gives them back as a file would: with the number types that
// numbers have when they are read.
class MemoryPreferenceStore : public PreferenceStore
{
public:
    Values Load(const std::string& theName) override;
    Values Save(const std::string& theName, CFDictionaryRef theChanges) override;

private:
    std::map<std::string, Values> mDomains;
};

} // namespace Host

#endif
