// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFBundleObject_h
#define CFBundleObject_h

#include "BundleFolders.h"
#include "CFRuntime.h"
#include "System/Libraries.h"

#include <CoreFoundation/CFBundle.h>
#include <mutex>
#include <optional>

// The list of bundles knows each one as long as it lives; the last release takes it off.
struct __CFBundle : Host::Object
{
    __CFBundle(const std::string& theFolder, bool theIsMain);

    const bool mIsMain;
    const Host::BundleFolders mFolders;
    const Host::Holder<CFDictionaryRef> mInfo;
    const Host::Holder<CFMutableDictionaryRef> mTables; // texts by the name of their file; kCFNull for none
    std::optional<Host::Library> mCode;                 // once it was loaded
    std::recursive_mutex mMutex;                        // for the last two
};

#endif
