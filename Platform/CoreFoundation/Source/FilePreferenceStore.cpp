// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FilePreferenceStore.h"

#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "System/Files.h"

#include <cstdio>

namespace Host {

namespace {

PreferenceStore::Values ReadDictionary(std::string_view theContent)
{
    CFPropertyListFormat theFormat = 0;
    Holder<CFPropertyListRef> theList = ReadPropertyList(theContent, theFormat);
    if (CFGetTypeID(theList.Get()) != kDictionaryTypeID) {
        throw MalformedPropertyList("it holds no dictionary");
    }
    return PreferenceStore::Values(static_cast<CFMutableDictionaryRef>(const_cast<void*>(theList.Release())));
}

std::string FolderOf(const std::string& thePath)
{
    return thePath.substr(0, thePath.rfind('/'));
}

// Empty when there is no folder for settings.
std::string PathOf(const std::string& theName)
{
    const std::string theFolder = SettingsFolder();
    return theFolder.empty() ? std::string() : theFolder + "/" + theName;
}

// A domain without values has no file.
bool WriteValues(const std::string& thePath, CFDictionaryRef theValues)
{
    if (CFDictionaryGetCount(theValues) == 0) {
        return RemoveFile(thePath);
    }
    return ReplaceFile(thePath, WriteXMLPropertyList(theValues));
}

} // namespace

PreferenceStore::Values FilePreferenceStore::Load(const std::string& theName)
{
    const std::string thePath = PathOf(theName);
    return thePath.empty() ? EmptyValues() : std::move(Read(thePath, false).theValues);
}

PreferenceStore::Values FilePreferenceStore::Save(const std::string& theName, CFDictionaryRef theChanges)
{
    const std::string thePath = PathOf(theName);
    if (thePath.empty() || !MakeFolders(FolderOf(thePath))) {
        return Values(nullptr);
    }
    const FolderLock theLock(FolderOf(thePath));
    if (!theLock.IsHeld()) {
        return Values(nullptr);
    }
    State theState = Read(thePath, true);
    if (!theState.theIsWritable) {
        return Values(nullptr);
    }
    Apply(theChanges, theState.theValues.Get());
    return WriteValues(thePath, theState.theValues.Get()) ? std::move(theState.theValues) : Values(nullptr);
}

// A damaged file is read again under the lock before it is kept aside: another process may have replaced it.
FilePreferenceStore::State FilePreferenceStore::Read(const std::string& thePath, bool theHoldsLock)
{
    std::string theContent;
    const FileContent theOutcome = ReadFile(thePath, theContent);
    if (theOutcome == FileContent::kUnreadable) {
        return {Values(nullptr), false};
    }
    if (theOutcome == FileContent::kAbsent) {
        return {EmptyValues(), true};
    }
    try {
        return {ReadDictionary(theContent), true};
    } catch (const MalformedPropertyList& theReason) {
        if (!theHoldsLock) {
            const FolderLock theLock(FolderOf(thePath));
            return Read(thePath, true);
        }
        return {EmptyValues(), KeepAside(thePath, theReason.what())};
    }
}

bool FilePreferenceStore::KeepAside(const std::string& thePath, const std::string& theReason)
{
    const std::string theNewPath = SetFileAside(thePath);
    if (!theNewPath.empty()) {
        std::fprintf(stderr, "CFPreferences: %s is damaged (%s) and was kept as %s\n", thePath.c_str(),
                     theReason.c_str(), theNewPath.c_str());
        return true;
    }
    if (mReported.insert(thePath).second) {
        std::fprintf(stderr, "CFPreferences: %s is damaged (%s) and cannot be kept under another name\n",
                     thePath.c_str(), theReason.c_str());
    }
    return false;
}

} // namespace Host
