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

constexpr size_t kLargestFile = size_t{64} * 1024 * 1024;
constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;
constexpr int kMostNames = 1000;
constexpr int kMostTries = 10;

// A 32-bit program would find neither a file whose number takes 64 bits nor anything on its disk.
static_assert(sizeof(off_t) == 8 && sizeof(ino_t) == 8, "files must have 64-bit sizes and numbers");

// Calls the system until no signal comes between, with a negative result for a failure.
template <class Call>
auto Again(Call theCall) -> decltype(theCall())
{
    auto theResult = theCall();
    while (theResult < 0 && errno == EINTR) {
        theResult = theCall();
    }
    return theResult;
}

int Open(const std::string& thePath, int theFlags)
{
    return Again([&] { return open(thePath.c_str(), theFlags | O_CLOEXEC, kFileMode); });
}

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
    // After a signal the descriptor is closed all the same.
    bool Close() { return mDescriptor < 0 || close(std::exchange(mDescriptor, -1)) == 0 || errno == EINTR; }

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
    do {
        theCount = Again([&] { return read(theDescriptor, theBuffer, sizeof theBuffer); });
        theContent.append(theBuffer, theCount > 0 ? static_cast<size_t>(theCount) : 0);
    } while (theCount > 0 && theContent.size() <= kLargestFile);
    return theCount == 0;
}

bool WriteWhole(int theDescriptor, std::string_view theContent)
{
    while (!theContent.empty()) {
        const ssize_t theCount =
            Again([&] { return write(theDescriptor, theContent.data(), theContent.size()); });
        if (theCount <= 0) {
            return false;
        }
        theContent.remove_prefix(static_cast<size_t>(theCount));
    }
    return true;
}

bool SynchronizeDescriptor(int theDescriptor)
{
    return Again([=] { return fsync(theDescriptor); }) == 0;
}

// A name is on the disk when its folder is. Some file systems cannot be asked for that, so the answer is
// ignored.
void SynchronizeFolder(const std::string& theFolder)
{
    const Descriptor theDescriptor(Open(theFolder, O_RDONLY | O_DIRECTORY));
    if (theDescriptor.IsOpen()) {
        static_cast<void>(SynchronizeDescriptor(theDescriptor.Get()));
    }
}

// What a killed process has left behind makes way, whoever owns it.
bool WriteNewFile(const std::string& thePath, std::string_view theContent)
{
    unlink(thePath.c_str());
    Descriptor theDescriptor(Open(thePath, O_WRONLY | O_CREAT | O_EXCL));
    return theDescriptor.IsOpen() && fchmod(theDescriptor.Get(), kFileMode) == 0 &&
           WriteWhole(theDescriptor.Get(), theContent) && SynchronizeDescriptor(theDescriptor.Get()) &&
           theDescriptor.Close();
}

std::string Environment(const char* theName)
{
    const char* const theValue = std::getenv(theName);
    return theValue == nullptr ? std::string() : std::string(theValue);
}

} // namespace

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

namespace {

bool IsFolder(const std::string& thePath)
{
    struct stat theStatus = {};
    return stat(thePath.c_str(), &theStatus) == 0 && S_ISDIR(theStatus.st_mode);
}

// True for what is in the user's home while that is not there: its disk was taken away, or is not there yet.
bool IsInMissingHome(const std::string& thePath)
{
    const std::string theHome = HomeFolder();
    return !theHome.empty() && thePath.compare(0, theHome.size() + 1, theHome + "/") == 0 &&
           !IsFolder(theHome);
}

// Whether a path leads to what is open. The folder may have been taken away, and another have taken its
// place.
bool LeadsTo(const std::string& thePath, int theDescriptor)
{
    struct stat theNamed = {};
    struct stat theOpen = {};
    return stat(thePath.c_str(), &theNamed) == 0 && fstat(theDescriptor, &theOpen) == 0 &&
           theNamed.st_dev == theOpen.st_dev && theNamed.st_ino == theOpen.st_ino;
}

} // namespace

FileContent ReadFile(const std::string& thePath, std::string& theContent)
{
    theContent.clear();
    // Opening a pipe must not wait for a writer.
    const Descriptor theDescriptor(Open(thePath, O_RDONLY | O_NONBLOCK));
    if (!theDescriptor.IsOpen()) {
        const bool theIsMissing = errno == ENOENT || errno == ENOTDIR;
        return theIsMissing && !IsInMissingHome(thePath) ? FileContent::kAbsent : FileContent::kUnreadable;
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
    if (theParent == thePath || thePath == HomeFolder() || !MakeFolders(theParent)) {
        return false;
    }
    return mkdir(thePath.c_str(), kFolderMode) == 0 || errno == EEXIST;
}

bool ReplaceFile(const std::string& thePath, std::string_view theContent)
{
    const std::string theNewPath = thePath + ".new";
    if (theContent.size() > kLargestFile) {
        return false;
    }
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
        const Descriptor thePlace(Open(theNewPath, O_WRONLY | O_CREAT | O_EXCL));
        if (!thePlace.IsOpen() && errno == EEXIST) {
            continue;
        }
        if (!thePlace.IsOpen()) {
            return std::string();
        }
        if (std::rename(thePath.c_str(), theNewPath.c_str()) != 0) {
            unlink(theNewPath.c_str());
            return std::string();
        }
        SynchronizeFolder(FolderOf(thePath));
        return theNewPath;
    }
    return std::string();
}

FolderLock::FolderLock(const std::string& theFolder)
    : mDescriptor(-1)
{
    for (int theTry = 0; theTry < kMostTries; ++theTry) {
        mDescriptor = Open(theFolder, O_RDONLY | O_DIRECTORY);
        if (mDescriptor < 0) {
            return;
        }
        const bool theIsLocked = Again([this] { return flock(mDescriptor, LOCK_EX); }) == 0;
        if (theIsLocked && LeadsTo(theFolder, mDescriptor)) {
            return;
        }
        Release();
    }
}

FolderLock::~FolderLock()
{
    Release();
}

// Unlocks before closing: a process that another thread has just started has the descriptor as well, and
// would keep the lock.
void FolderLock::Release()
{
    if (mDescriptor >= 0) {
        flock(mDescriptor, LOCK_UN);
        close(std::exchange(mDescriptor, -1));
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
