// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_Folders_h
#define System_Folders_h

// What the host asks of the system's folders, and of what is in them.

#include <optional>
#include <string>
#include <vector>

namespace Host {

// A file or folder that is there.
struct FileState
{
    bool theIsFolder = false;
    long long theLength = 0;        // in bytes; of a folder no length that means anything
    double theModificationTime = 0; // in seconds since 1970
};

// None for a path that leads nowhere.
std::optional<FileState> StateOfFile(const std::string& thePath);

bool IsFolder(const std::string& thePath);

// What is in a folder, in the order of its bytes and without "." and ".."; nothing for what is no folder.
std::vector<std::string> NamesIn(const std::string& theFolder);

// Without a slash at the end; "/" where the system does not tell.
std::string CurrentFolder();

// The file that this program was started from; empty where the system does not tell.
std::string ProgramPath();

} // namespace Host

#endif
