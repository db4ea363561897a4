// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Files.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Host {

namespace {

constexpr off_t kLargestFile = off_t{64} * 1024 * 1024;
constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;
constexpr int kMostNames = 1000;

// An open file, closed at the end of the scope.
class Descriptor
{
public:
    explicit Descriptor(int theDescriptor)
        : mDescriptor(theDescriptor)
    {
    }
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return mDescriptor >= 0; }
    int Get() const { return mDescriptor; }

    // False when the system says only now that something could not be written.
    bool Close() { return mDescriptor < 0 || close(std::exchange(mDescriptor, -1)) == 0; }

private:
    int mDescriptor;
};

std::string FolderOf(const std::string& thePath)
{
    const size_t theSlash = thePath.rfind('/');
    return theSlash == std::string::npos ? "." : theSlash == 0 ? "/" : thePath.substr(0, theSlash);
}

bool ReadWhole(int theDescriptor, std::string& theContent)
{
    char theBuffer[16384];
    ssize_t theCount = 0;
    while ((theCount = read(theDescriptor, theBuffer, sizeof theBuffer)) != 0) {
        if (theCount > 0) {
            theContent.append(theBuffer, static_cast<size_t>(theCount));
        } else if (errno != EINTR) {
            return false;
        }
        if (theContent.size() > static_cast<size_t>(kLargestFile)) {
            return false;
        }
    }
    return true;
}

bool WriteWhole(int theDescriptor, std::string_view theContent)
{
    while (!theContent.empty()) {
        const ssize_t theCount = write(theDescriptor, theContent.data(), theContent.size());
        if (theCount > 0) {
            theContent.remove_prefix(static_cast<size_t>(theCount));
        } else if (theCount == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

// A name is on the disk when its folder is. Some file systems cannot be asked for that, so the answer is
// ignored.
void SynchronizeFolder(const std::string& theFolder)
{
    const Descriptor theDescriptor(open(theFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (theDescriptor.IsOpen()) {
        static_cast<void>(fsync(theDescriptor.Get()));
    }
}

// A file that a killed process has left behind is written over.
bool WriteNewFile(const std::string& thePath, std::string_view theContent)
{
    Descriptor theDescriptor(
        open(thePath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, kFileMode));
    return theDescriptor.IsOpen() && fchmod(theDescriptor.Get(), kFileMode) == 0 &&
           WriteWhole(theDescriptor.Get(), theContent) && fsync(theDescriptor.Get()) == 0 &&
           theDescriptor.Close();
}

std::string Environment(const char* theName)
{
    const char* const theValue = std::getenv(theName);
    return theValue == nullptr ? std::string() : std::string(theValue);
}

std::string HomeFolder()
{
    std::string theHome = Environment("HOME");
    if (!theHome.empty()) {
        return theHome;
    }
    passwd theEntry = {};
    passwd* theResult = nullptr;
    std::vector<char> theBuffer(16384);
    getpwuid_r(getuid(), &theEntry, theBuffer.data(), theBuffer.size(), &theResult);
    return theResult == nullptr || theResult->pw_dir == nullptr ? std::string()
                                                                : std::string(theResult->pw_dir);
}

} // namespace

FileContent ReadFile(const std::string& thePath, std::string& theContent)
{
    theContent.clear();
    // Opening a pipe must not wait for a writer.
    const Descriptor theDescriptor(open(thePath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!theDescriptor.IsOpen()) {
        return errno == ENOENT || errno == ENOTDIR ? FileContent::kAbsent : FileContent::kUnreadable;
    }
    struct stat theStatus = {};
    const bool theIsFile = fstat(theDescriptor.Get(), &theStatus) == 0 && S_ISREG(theStatus.st_mode);
    return theIsFile && ReadWhole(theDescriptor.Get(), theContent) ? FileContent::kRead
                                                                   : FileContent::kUnreadable;
}

bool MakeFolders(const std::string& thePath)
{
    struct stat theStatus = {};
    if (stat(thePath.c_str(), &theStatus) == 0) {
        return S_ISDIR(theStatus.st_mode);
    }
    const std::string theParent = FolderOf(thePath);
    if (theParent == thePath || !MakeFolders(theParent)) {
        return false;
    }
    return mkdir(thePath.c_str(), kFolderMode) == 0 || errno == EEXIST;
}

bool ReplaceFile(const std::string& thePath, std::string_view theContent)
{
    const std::string theNewPath = thePath + ".new";
    if (!WriteNewFile(theNewPath, theContent) || std::rename(theNewPath.c_str(), thePath.c_str()) != 0) {
        unlink(theNewPath.c_str());
        return false;
    }
    SynchronizeFolder(FolderOf(thePath));
    return true;
}

bool RemoveFile(const std::string& thePath)
{
    if (unlink(thePath.c_str()) != 0) {
        return errno == ENOENT;
    }
    SynchronizeFolder(FolderOf(thePath));
    return true;
}

std::string SetFileAside(const std::string& thePath)
{
    for (int theNumber = 1; theNumber <= kMostNames; ++theNumber) {
        std::string theNewPath = thePath + ".damaged-" + std::to_string(theNumber);
        // An empty file takes the name first, so that no file is ever written over.
        const Descriptor thePlace(
            open(theNewPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode));
        if (!thePlace.IsOpen() && errno == EEXIST) {
            continue;
        }
        if (!thePlace.IsOpen() || std::rename(thePath.c_str(), theNewPath.c_str()) != 0) {
            return std::string();
        }
        SynchronizeFolder(FolderOf(thePath));
        return theNewPath;
    }
    return std::string();
}

FolderLock::FolderLock(const std::string& theFolder)
    : mDescriptor(open(theFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    while (mDescriptor >= 0 && flock(mDescriptor, LOCK_EX) != 0) {
        if (errno != EINTR) {
            close(std::exchange(mDescriptor, -1));
        }
    }
}

FolderLock::~FolderLock()
{
    if (mDescriptor >= 0) {
        close(mDescriptor);
    }
}

// A relative path in the variable is to be ignored, as the convention for it says.
std::string SettingsFolder()
{
    std::string theFolder = Environment("XDG_CONFIG_HOME");
    if (!theFolder.empty() && theFolder[0] == '/') {
        return theFolder;
    }
    const std::string theHome = HomeFolder();
    return theHome.empty() ? std::string() : theHome + "/.config";
}

std::string ProgramName()
{
    char thePath[4096];
    const ssize_t theLength = readlink("/proc/self/exe", thePath, sizeof thePath);
    const std::string theProgram =
        theLength > 0 ? std::string(thePath, static_cast<size_t>(theLength)) : "program";
    return theProgram.substr(theProgram.rfind('/') + 1);
}

std::string HostName()
{
    char theName[256] = {};
    if (gethostname(theName, sizeof theName - 1) != 0) {
        return "localhost";
    }
    const std::string theHost(theName);
    return theHost.substr(0, theHost.find('.'));
}

} // namespace Host
