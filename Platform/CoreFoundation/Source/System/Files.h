// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_Files_h
#define System_Files_h

// What the host asks of the system's files.

#include <string>
#include <string_view>

namespace Host {

enum class FileContent
{
    kRead,
    kAbsent,
    kUnreadable
};

// Reads a plain file whole. One that is larger than any property list, and anything that is no plain file, is
// unreadable; so is every file of a home that is not there.
FileContent ReadFile(const std::string& thePath, std::string& theContent);

// Makes a folder, and those that it is in, for the user alone. False when it is not there afterwards. The
// user's home is never made: where it is missing, its disk is, and what was written in its place would not be
// found again.
bool MakeFolders(const std::string& thePath);

// Puts a file with that content in the place of thePath, or leaves everything as it is and returns false. The
// content is on the disk before the name leads to it. What ReadFile would not read is not written. Only one
// process at a time may do this: hold a FolderLock.
bool ReplaceFile(const std::string& thePath, std::string_view theContent);

// True when there is no such file afterwards.
bool RemoveFile(const std::string& thePath);

// Gives a file another name that no file has, which begins with its own, and returns the new path; empty when
// that is impossible. The new name is on the disk afterwards.
std::string SetFileAside(const std::string& thePath);

// Keeps other processes that use this class out of a folder. The system ends the lock with the process.
class [[nodiscard]] FolderLock
{
public:
    // Waits for others.
    explicit FolderLock(const std::string& theFolder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    bool IsHeld() const { return mDescriptor >= 0; }

private:
    void Release();

    int mDescriptor; // negative when the folder cannot be locked
};

// Where the user is at home, and where settings are kept; empty when that is nowhere.
std::string HomeFolder();
std::string SettingsFolder();

// The program's name and the host's, without folder and domain.
std::string ProgramName();
std::string HostName();

} // namespace Host

#endif
