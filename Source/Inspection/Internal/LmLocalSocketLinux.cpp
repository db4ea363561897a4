// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLocalSocket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

// The folder is found in the same way by lminspect, which knows nothing of this library.

namespace {

constexpr int kMostWaiting = 8;
constexpr std::size_t kLongestName = 32;

// Whether it is a folder that nobody but this user can look into or change.
bool IsPrivate(const std::string& thePath)
{
    struct stat theStatus = {};
    return ::lstat(thePath.c_str(), &theStatus) == 0 && S_ISDIR(theStatus.st_mode) &&
           theStatus.st_uid == ::geteuid() && (theStatus.st_mode & 077U) == 0;
}

// The folder of the sockets, made when it is not there; empty when there can be none.
std::string MakeFolder()
{
    const std::string theUser = std::to_string(::geteuid());
    const char* const theVariable = std::getenv("XDG_RUNTIME_DIR");
    std::string theFolder = "/tmp/lminspect-" + theUser;
    for (const std::string& theRuntime :
         {std::string(theVariable != nullptr ? theVariable : ""), "/run/user/" + theUser}) {
        if (theRuntime.compare(0, 1, "/") == 0 && IsPrivate(theRuntime)) {
            theFolder = theRuntime + "/lminspect";
            break;
        }
    }
    ::mkdir(theFolder.c_str(), 0700);
    return IsPrivate(theFolder) ? theFolder : std::string();
}

// The program's name, of letters that a shell leaves alone.
std::string ProgramName()
{
    std::string theName = program_invocation_short_name;
    theName.resize(std::min(theName.size(), kLongestName));
    for (char& theCharacter : theName) {
        const bool isPlain = (theCharacter >= 'a' && theCharacter <= 'z') ||
                             (theCharacter >= 'A' && theCharacter <= 'Z') ||
                             (theCharacter >= '0' && theCharacter <= '9') || theCharacter == '-';
        theCharacter = isPlain ? theCharacter : '_';
    }
    return theName;
}

// Whether the one at the other end is this user.
bool IsOwnPeer(int theDescriptor)
{
    ucred thePeer = {};
    socklen_t theSize = sizeof thePeer;
    return ::getsockopt(theDescriptor, SOL_SOCKET, SO_PEERCRED, &thePeer, &theSize) == 0 &&
           thePeer.uid == ::geteuid();
}

// Nobody may connect but the user: the folder says so, and the socket says it once more.
bool Listen(int theDescriptor, const sockaddr_un& theAddress)
{
    // One that has the same name is left over from a process that had this number before.
    ::unlink(theAddress.sun_path);
    return ::fchmod(theDescriptor, 0600) == 0 &&
           ::bind(theDescriptor, reinterpret_cast<const sockaddr*>(&theAddress), sizeof theAddress) == 0 &&
           ::listen(theDescriptor, kMostWaiting) == 0;
}

std::string Trouble(const std::string& theWhat)
{
    return theWhat + ": " + std::strerror(errno);
}

bool IsOnlyFullOrInterrupted()
{
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace

LmConnection::LmConnection(int theDescriptor)
    : mDescriptor(theDescriptor),
      mProcess(::getpid())
{
}

LmConnection::~LmConnection()
{
    ::close(mDescriptor);
}

void LmConnection::Read(std::string& theText)
{
    if (mProcess != ::getpid()) {
        mIsGone = true;
        return;
    }
    std::array<char, 4096> theBytes = {};
    const ssize_t theCount = ::recv(mDescriptor, theBytes.data(), theBytes.size(), MSG_DONTWAIT);
    if (theCount > 0) {
        theText.append(theBytes.data(), static_cast<std::size_t>(theCount));
    } else if (theCount == 0 || !IsOnlyFullOrInterrupted()) {
        mIsGone = true;
    }
}

std::size_t LmConnection::Write(const char* theBytes, std::size_t theCount)
{
    if (mIsGone || mProcess != ::getpid()) {
        mIsGone = true;
        return 0;
    }
    const ssize_t theWritten = ::send(mDescriptor, theBytes, theCount, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (theWritten < 0 && !IsOnlyFullOrInterrupted()) {
        mIsGone = true;
    }
    return theWritten < 0 ? 0 : static_cast<std::size_t>(theWritten);
}

LmLocalSocket::LmLocalSocket(int theDescriptor, std::string thePath)
    : mDescriptor(theDescriptor),
      mPath(std::move(thePath)),
      mProcess(::getpid())
{
}

LmLocalSocket::~LmLocalSocket()
{
    ::close(mDescriptor);
    if (mProcess == ::getpid()) {
        ::unlink(mPath.c_str());
    }
}

std::unique_ptr<LmLocalSocket> LmLocalSocket::Make(std::string& theTrouble, const std::string& theSuffix)
{
    // A program that has more rights than whoever started it shows nobody its insides.
    if (::getuid() != ::geteuid() || ::getgid() != ::getegid()) {
        theTrouble = "the program has the rights of another user";
        return nullptr;
    }
    const std::string theFolder = MakeFolder();
    if (theFolder.empty()) {
        theTrouble = "there is no folder that only this user can open";
        return nullptr;
    }
    const std::string thePath =
        theFolder + "/" + ProgramName() + "." + std::to_string(::getpid()) + theSuffix;
    sockaddr_un theAddress = {};
    theAddress.sun_family = AF_UNIX;
    if (thePath.size() >= sizeof theAddress.sun_path) {
        theTrouble = thePath + " is too long a name";
        return nullptr;
    }
    thePath.copy(theAddress.sun_path, thePath.size());
    const int theDescriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (theDescriptor < 0) {
        theTrouble = Trouble(thePath);
        return nullptr;
    }
    if (!Listen(theDescriptor, theAddress)) {
        theTrouble = Trouble(thePath);
        ::close(theDescriptor);
        return nullptr;
    }
    return std::unique_ptr<LmLocalSocket>(new LmLocalSocket(theDescriptor, thePath));
}

std::unique_ptr<LmConnection> LmLocalSocket::Accept()
{
    if (mProcess != ::getpid()) {
        return nullptr;
    }
    const int theDescriptor = ::accept4(mDescriptor, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (theDescriptor < 0) {
        return nullptr;
    }
    if (!IsOwnPeer(theDescriptor)) {
        ::close(theDescriptor);
        return nullptr;
    }
    return std::make_unique<LmConnection>(theDescriptor);
}
