// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FilePreferenceStore_h
#define FilePreferenceStore_h

#include "PreferenceStore.h"

#include <set>
#include <string_view>

namespace Host {

// Keeps each domain in a file of the user's folder for settings.
//
// Whatever happens, a file holds values as a whole, the old or the new ones: a new file is complete and on
// the disk before it takes the place of the old one. Processes take turns, by a lock on the folder, so that
// none writes over what another has just written. A file that cannot be read as a dictionary is somebody's
// values all the same: it is kept under another name, and as long as that fails nothing is written.
class FilePreferenceStore : public PreferenceStore
{
public:
    Values Load(const std::string& theName) override;
    Values Save(const std::string& theName, CFDictionaryRef theChanges) override;

private:
    // What a file holds: null when that cannot be read now, and nothing when there is none or it is damaged.
    // Nothing is in the way of writing when it could be read, when there is none, and when it was damaged and
    // could be kept aside.
    struct State
    {
        Values theValues;
        bool theIsWritable;
    };

    State Read(const std::string& thePath, bool theHoldsLock);
    bool KeepAside(const std::string& thePath, const std::string& theReason);

    std::set<std::string> mReported; // damaged files that had to stay where they are
};

} // namespace Host

#endif
