// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_UserFolders_h
#define System_UserFolders_h

#include <string>

namespace Host {

enum class FolderKind
{
    kPreferences,
    kSupport,
    kDesktop,
    kDocuments,
    kTemporary,
    kHome,
    kApplications,
    kFonts,
    kTrash,
    kCaches
};

// Where the user keeps what is of that kind, whether it is there or not; empty when that is nowhere.
std::string UserFolder(FolderKind theKind);

// The same of all users together: what comes with the system, or, when theIsLocal, what was added to this
// machine.
std::string SharedFolder(FolderKind theKind, bool theIsLocal);

} // namespace Host

#endif
