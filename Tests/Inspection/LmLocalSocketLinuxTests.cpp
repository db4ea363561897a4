// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"
#include "LmLocalSocket.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

// What of the system can fail here is called through this program, which lets one call fail at a time.

namespace {

enum class Failing
{
    kNothing,
    kUser,  // geteuid gives another user
    kGroup, // getegid gives another group
    kSocket,
    kMode,
    kListen,
    kPeer // getsockopt
};

Failing gFailing = Failing::kNothing;

template <typename Function>
Function* SystemsOwn(const char* theName)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, theName));
}

int Fail(int theError)
{
    errno = theError;
    return -1;
}

// One call fails for as long as this lives.
class Failure
{
public:
    explicit Failure(Failing theFailing) { gFailing = theFailing; }
    ~Failure() { gFailing = Failing::kNothing; }
    Failure(const Failure&) = delete;
    Failure& operator=(const Failure&) = delete;
};

} // namespace

extern "C" {

uid_t geteuid() noexcept
{
    static auto* const sOwn = SystemsOwn<uid_t()>("geteuid");
    return sOwn() + (gFailing == Failing::kUser ? 1 : 0);
}

gid_t getegid() noexcept
{
    static auto* const sOwn = SystemsOwn<gid_t()>("getegid");
    return sOwn() + (gFailing == Failing::kGroup ? 1 : 0);
}

int socket(int theDomain, int theType, int theProtocol) noexcept
{
    static auto* const sOwn = SystemsOwn<int(int, int, int)>("socket");
    return gFailing == Failing::kSocket ? Fail(EMFILE) : sOwn(theDomain, theType, theProtocol);
}

int fchmod(int theDescriptor, mode_t theMode) noexcept
{
    static auto* const sOwn = SystemsOwn<int(int, mode_t)>("fchmod");
    return gFailing == Failing::kMode ? Fail(EROFS) : sOwn(theDescriptor, theMode);
}

int listen(int theDescriptor, int theCount) noexcept
{
    static auto* const sOwn = SystemsOwn<int(int, int)>("listen");
    return gFailing == Failing::kListen ? Fail(ENOMEM) : sOwn(theDescriptor, theCount);
}

int getsockopt(int theDescriptor, int theLevel, int theName, void* theValue, socklen_t* theSize) noexcept
{
    static auto* const sOwn = SystemsOwn<int(int, int, int, void*, socklen_t*)>("getsockopt");
    return gFailing == Failing::kPeer ? Fail(ENOBUFS)
                                      : sOwn(theDescriptor, theLevel, theName, theValue, theSize);
}
}

namespace {

// The runtime directory is a folder of the test's own.
class LmLocalSocketTest : public testing::Test
{
public:
    LmLocalSocketTest() { SetRuntime(mFolder.GetPath(".").c_str()); }
    ~LmLocalSocketTest() override { ::unsetenv("XDG_RUNTIME_DIR"); }

protected:
    static void SetRuntime(const char* theFolder) { ::setenv("XDG_RUNTIME_DIR", theFolder, 1); }

    std::unique_ptr<LmLocalSocket> Make()
    {
        mTrouble.clear();
        return LmLocalSocket::Make(mTrouble);
    }

    // Where the socket of a program of that name is.
    std::string GetPath(const std::string& theName) const
    {
        return mFolder.GetPath("./lminspect/") + theName + "." + std::to_string(::getpid());
    }

    std::string mTrouble;
    JournalFolder mFolder;
};

int Connect(const std::string& thePath)
{
    const int theDescriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un theAddress = {};
    theAddress.sun_family = AF_UNIX;
    thePath.copy(theAddress.sun_path, sizeof theAddress.sun_path - 1);
    EXPECT_EQ(::connect(theDescriptor, reinterpret_cast<const sockaddr*>(&theAddress), sizeof theAddress), 0)
        << thePath;
    return theDescriptor;
}

bool IsThere(const std::string& thePath)
{
    return ::access(thePath.c_str(), F_OK) == 0;
}

} // namespace

TEST_F(LmLocalSocketTest, IsNotMadeByAProgramWithTheRightsOfAnother)
{
    for (const Failing theFailing : {Failing::kUser, Failing::kGroup}) {
        const Failure theFailure(theFailing);
        EXPECT_EQ(Make(), nullptr);
        EXPECT_EQ(mTrouble, "the program has the rights of another user");
    }
    EXPECT_NE(Make(), nullptr);
}

TEST_F(LmLocalSocketTest, SaysWhatOfTheSystemFailed)
{
    const struct
    {
        Failing theFailing;
        int theError;
    } kRows[] = {{Failing::kSocket, EMFILE}, {Failing::kMode, EROFS}, {Failing::kListen, ENOMEM}};
    for (const auto& theRow : kRows) {
        const Failure theFailure(theRow.theFailing);
        EXPECT_EQ(Make(), nullptr);
        EXPECT_EQ(mTrouble, GetPath("inspectionTests") + ": " + std::strerror(theRow.theError));
    }
    // What is no socket is not put aside.
    ASSERT_NE(Make(), nullptr);
    ::unlink(GetPath("inspectionTests").c_str());
    ASSERT_EQ(::mkdir(GetPath("inspectionTests").c_str(), 0700), 0);
    EXPECT_EQ(Make(), nullptr);
    EXPECT_EQ(mTrouble, GetPath("inspectionTests") + ": " + std::strerror(EADDRINUSE));
    ::rmdir(GetPath("inspectionTests").c_str());
}

TEST_F(LmLocalSocketTest, IsNotMadeUnderANameThatIsTooLong)
{
    const std::string theFolder = mFolder.GetPath(std::string(100, 'x').c_str());
    ASSERT_EQ(::mkdir(theFolder.c_str(), 0700), 0);
    SetRuntime(theFolder.c_str());
    EXPECT_EQ(Make(), nullptr);
    EXPECT_NE(mTrouble.find(" is too long a name"), std::string::npos) << mTrouble;
}

TEST_F(LmLocalSocketTest, IsCalledAfterTheProgramInLettersThatAShellLeavesAlone)
{
    char* const theRealName = program_invocation_short_name;
    const struct
    {
        std::string theName;
        std::string theWritten;
    } kRows[] = {{"My-Radio 2", "My-Radio_2"},
                 {"az AZ 09 - @[`{/:~", "az_AZ_09_-________"},
                 {std::string(40, 'r'), std::string(32, 'r')}};
    for (const auto& theRow : kRows) {
        std::string theName = theRow.theName;
        program_invocation_short_name = theName.data();
        const std::unique_ptr<LmLocalSocket> theSocket = Make();
        program_invocation_short_name = theRealName;
        ASSERT_NE(theSocket, nullptr) << mTrouble;
        EXPECT_TRUE(IsThere(GetPath(theRow.theWritten))) << theRow.theName;
    }
}

TEST_F(LmLocalSocketTest, IsElsewhereWhenTheRuntimeDirectoryIsNone)
{
    for (const char* theFolder : {"", "relative", "/dev/null", "/no/such/folder"}) {
        SetRuntime(theFolder);
        EXPECT_NE(Make(), nullptr) << theFolder << ": " << mTrouble;
        EXPECT_FALSE(IsThere(std::string(theFolder) + "/lminspect"));
    }
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_NE(Make(), nullptr) << mTrouble;
    EXPECT_FALSE(IsThere(mFolder.GetPath("lminspect")));
}

TEST_F(LmLocalSocketTest, LetsNobodyInButTheUser)
{
    const std::unique_ptr<LmLocalSocket> theSocket = Make();
    ASSERT_NE(theSocket, nullptr);
    EXPECT_EQ(theSocket->Accept(), nullptr) << "nobody has come";
    for (const Failing theFailing : {Failing::kUser, Failing::kPeer}) {
        const int theVisitor = Connect(GetPath("inspectionTests"));
        const Failure theFailure(theFailing);
        EXPECT_EQ(theSocket->Accept(), nullptr);
        char theByte = 0;
        EXPECT_EQ(::recv(theVisitor, &theByte, 1, MSG_DONTWAIT), 0) << "shown the door";
        ::close(theVisitor);
    }
    const int theVisitor = Connect(GetPath("inspectionTests"));
    EXPECT_NE(theSocket->Accept(), nullptr);
    ::close(theVisitor);
}

TEST_F(LmLocalSocketTest, HandsOnWhatComesAndNoticesTheEnd)
{
    std::array<int, 2> theEnds = {};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, theEnds.data()), 0);
    LmConnection theConnection(theEnds[0]);
    std::string theText = "> ";
    theConnection.Read(theText);
    EXPECT_EQ(theText, "> ");
    EXPECT_FALSE(theConnection.IsGone()) << "nothing has come yet";
    EXPECT_EQ(::send(theEnds[1], "hello", 5, MSG_NOSIGNAL), 5);
    theConnection.Read(theText);
    EXPECT_EQ(theText, "> hello");
    EXPECT_EQ(theConnection.Write("abc", 3), 3U);
    ::close(theEnds[1]);
    theConnection.Read(theText);
    EXPECT_TRUE(theConnection.IsGone());
    EXPECT_EQ(theConnection.Write("abc", 3), 0U);
}

TEST_F(LmLocalSocketTest, NoticesAnEndThatLeftSomethingUnread)
{
    std::array<int, 2> theEnds = {};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, theEnds.data()), 0);
    LmConnection theReader(theEnds[0]);
    LmConnection theWriter(::dup(theEnds[0]));
    EXPECT_EQ(theReader.Write("abc", 3), 3U);
    ::close(theEnds[1]);
    std::string theText;
    theReader.Read(theText);
    EXPECT_TRUE(theReader.IsGone()) << "the connection was reset";
    EXPECT_EQ(theWriter.Write("abc", 3), 0U);
    EXPECT_TRUE(theWriter.IsGone());
}

TEST_F(LmLocalSocketTest, IsOfNoUseInAProcessThatWasForkedOff)
{
    std::array<int, 2> theEnds = {};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, theEnds.data()), 0);
    std::unique_ptr<LmLocalSocket> theSocket = Make();
    LmConnection theReader(theEnds[0]);
    LmConnection theWriter(::dup(theEnds[0]));
    EXPECT_EQ(::send(theEnds[1], "hello", 5, MSG_NOSIGNAL), 5);
    const int theVisitor = Connect(GetPath("inspectionTests"));
    const pid_t theChild = ::fork();
    if (theChild == 0) {
        const bool hasVisitor = theSocket->Accept() != nullptr;
        std::string theText;
        theReader.Read(theText);
        const bool isWritten = theWriter.Write("abc", 3) != 0;
        theSocket.reset();
        const bool isGone = theReader.IsGone() && theWriter.IsGone();
        std::exit(!hasVisitor && theText.empty() && !isWritten && isGone ? 0 : 1);
    }
    int theStatus = 1;
    ::waitpid(theChild, &theStatus, 0);
    EXPECT_EQ(theStatus, 0);
    EXPECT_TRUE(IsThere(GetPath("inspectionTests")));
    EXPECT_NE(theSocket->Accept(), nullptr);
    std::string theText;
    theReader.Read(theText);
    EXPECT_EQ(theText, "hello");
    ::close(theEnds[1]);
    ::close(theVisitor);
}
