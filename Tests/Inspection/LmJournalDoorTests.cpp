// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmNumericalTransforms.h"
#include "NamedBinding.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

// A program that can be attached to, and those who connect to it: here both are this process.

namespace {

const char kSocketTrouble[] = "Source/Inspection/LmJournalFile.cpp, line #: No socket for lminspect: ";

mode_t ModeOf(const std::string& thePath)
{
    struct stat theStatus = {};
    return ::lstat(thePath.c_str(), &theStatus) == 0 ? theStatus.st_mode & 07777U : 0;
}

// The runtime directory is a folder of the test's own.
class RuntimeFolder
{
public:
    RuntimeFolder() { ::setenv("XDG_RUNTIME_DIR", mFolder.GetPath(".").c_str(), 1); }
    ~RuntimeFolder()
    {
        LmAllowAttaching(false);
        // A reader that has gone is noticed only by the next line.
        LmEndJournal();
        ::unsetenv("XDG_RUNTIME_DIR");
    }
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;

    std::string GetFolder() const { return mFolder.GetPath("lminspect"); }
    // Called after the program and its process.
    std::string GetSocket() const { return GetFolder() + "/inspectionTests." + std::to_string(::getpid()); }
    std::string GetPath(const char* theName) const { return mFolder.GetPath(theName); }

private:
    JournalFolder mFolder;
};

// Who connects to the socket.
class Visitor
{
public:
    explicit Visitor(const std::string& thePath)
        : mDescriptor(::socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un theAddress = {};
        theAddress.sun_family = AF_UNIX;
        thePath.copy(theAddress.sun_path, sizeof theAddress.sun_path - 1);
        mIsConnected =
            ::connect(mDescriptor, reinterpret_cast<const sockaddr*>(&theAddress), sizeof theAddress) == 0;
    }
    ~Visitor() { Leave(); }
    Visitor(const Visitor&) = delete;
    Visitor& operator=(const Visitor&) = delete;

    bool IsConnected() const { return mIsConnected; }
    void Leave()
    {
        if (mDescriptor >= 0) {
            ::close(mDescriptor);
            mDescriptor = -1;
        }
    }
    void Say(const std::string& theText) const
    {
        EXPECT_EQ(::send(mDescriptor, theText.data(), theText.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(theText.size()));
    }
    // Everything that has come by now.
    std::string Hear()
    {
        char theBytes[65536];
        ssize_t theCount = 0;
        while ((theCount = ::recv(mDescriptor, theBytes, sizeof theBytes, MSG_DONTWAIT)) > 0) {
            mHeard.append(theBytes, static_cast<std::size_t>(theCount));
        }
        mIsLeft = theCount == 0;
        return mHeard;
    }
    // The main loop turns until that has come.
    std::string WaitFor(const char* theText)
    {
        while (mIsConnected && Hear().find(theText) == std::string::npos && !mIsLeft) {
            RunCurrentEventLoop(0.02);
        }
        return mHeard;
    }
    std::string Ask(const std::string& theText)
    {
        Say(theText);
        return WaitFor("\n");
    }

private:
    int mDescriptor;
    bool mIsConnected = false;
    bool mIsLeft = false; // by the program
    std::string mHeard;
};

bool Has(const std::string& theText, const std::string& thePart)
{
    return theText.find(thePart) != std::string::npos;
}

std::size_t CountLines(const std::string& theText)
{
    return static_cast<std::size_t>(std::count(theText.begin(), theText.end(), '\n'));
}

} // namespace

TEST(LmJournalDoor, IsOpenToTheUserAlone)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    EXPECT_TRUE(LmAllowAttaching(true)) << "once more";
    EXPECT_EQ(ModeOf(theRuntime.GetFolder()), 0700U);
    EXPECT_EQ(ModeOf(theRuntime.GetSocket()), 0600U);
    LmAllowAttaching(false);
    EXPECT_NE(::access(theRuntime.GetSocket().c_str(), F_OK), 0);
}

TEST(LmJournalDoor, IsNotMadeInAFolderThatOthersCanChange)
{
    const RuntimeFolder theRuntime;
    ASSERT_EQ(::mkdir(theRuntime.GetFolder().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(theRuntime.GetFolder().c_str(), 0755), 0);
    EXPECT_FALSE(LmAllowAttaching(true));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{std::string(kSocketTrouble) + "there is no folder that only this user can open"});
    // A link to a folder that could be used is none.
    ASSERT_EQ(::rmdir(theRuntime.GetFolder().c_str()), 0);
    ASSERT_EQ(::symlink(theRuntime.GetPath("").c_str(), theRuntime.GetFolder().c_str()), 0);
    EXPECT_FALSE(LmAllowAttaching(true));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 1U);
    ::unlink(theRuntime.GetFolder().c_str());
}

TEST(LmJournalDoor, TakesThePlaceOfASocketThatWasLeft)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    const std::string thePath = theRuntime.GetSocket();
    LmAllowAttaching(false);
    const int theLeft = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un theAddress = {};
    theAddress.sun_family = AF_UNIX;
    thePath.copy(theAddress.sun_path, sizeof theAddress.sun_path - 1);
    ASSERT_EQ(::bind(theLeft, reinterpret_cast<const sockaddr*>(&theAddress), sizeof theAddress), 0);
    ::close(theLeft);
    ASSERT_FALSE(Visitor(thePath).IsConnected());
    ASSERT_TRUE(LmAllowAttaching(true));
    EXPECT_TRUE(Visitor(thePath).IsConnected());
}

TEST(LmJournalDoor, WritesTheJournalToWhoAttaches)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    // Named and bound before there is a journal; a dead source is not asked for anything.
    NamedBinding theText("[text]");
    LmKeyValueBinding theModel;
    LmNameObject(theModel, "model");
    theModel.SetKeyPathValue("level", LmValue(3));
    theText.BindTo("value", &theModel, "level", new LmScaleTransform(2));
    // It keeps an address of what is gone, so it must not be destroyed.
    static auto* const sFollower = new LmKeyValueBinding;
    auto theGone = std::make_unique<LmKeyValueBinding>();
    sFollower->BindTo("other", theGone.get(), "level", nullptr);
    theGone.reset();

    Visitor theVisitor(theRuntime.GetSocket());
    const std::string theBeginning = theVisitor.Ask("attach 0\n");
    EXPECT_EQ(theBeginning.substr(0, 3), "ok\n");
    EXPECT_TRUE(Has(theBeginning, R"("what":"begin")")) << theBeginning;
    EXPECT_TRUE(Has(theBeginning, R"("name":"model")")) << theBeginning;
    EXPECT_TRUE(Has(
        theBeginning,
        R"("what":"bind","object":{"id":2,"class":"NamedBinding","name":"[text]"},"key":"value","from":{"id":1,)"))
        << theBeginning;
    EXPECT_FALSE(Has(theBeginning, R"("key":"other")")) << theBeginning;

    theModel.SetKeyPathValue("level", LmValue(4));
    EXPECT_TRUE(Has(
        theVisitor.Hear(),
        R"("what":"changed","object":{"id":1,"class":"LmKeyValueBinding","name":"model"},"key":"level",)"));

    Visitor theSecond(theRuntime.GetSocket());
    EXPECT_EQ(theSecond.Ask("attach 0\n"), "no somebody has attached to it already\n");
    Visitor theThird(theRuntime.GetSocket());
    EXPECT_EQ(theThird.Ask("detach\n"), "ok\n");
    EXPECT_TRUE(Has(theVisitor.Hear(), R"("what":"end","lost":0})"));
    Visitor theFourth(theRuntime.GetSocket());
    EXPECT_EQ(theFourth.Ask("detach\n"), "no nobody has attached to it\n");
    theText.UnbindAll();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}

TEST(LmJournalDoor, EndsTheJournalWhenItsReaderHasGone)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    LmKeyValueStore theModel;
    Visitor theVisitor(theRuntime.GetSocket());
    theVisitor.Ask("attach 0\n");
    theVisitor.Leave();
    theModel.SetKeyPathValue("level", LmValue(4)); // no signal ends the program
    Visitor theNext(theRuntime.GetSocket());
    EXPECT_EQ(theNext.Ask("attach 0\n").substr(0, 3), "ok\n");
}

TEST(LmJournalDoor, WritesTheJournalToAFile)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    LmKeyValueStore theModel;
    const std::string theFile = theRuntime.GetPath("a journal");
    EXPECT_EQ(Visitor(theRuntime.GetSocket()).Ask("write 3 " + theFile + "\n"), "ok\n");
    theModel.SetKeyPathValue("level", LmValue(4));
    EXPECT_EQ(Visitor(theRuntime.GetSocket()).Ask("detach\n"), "ok\n");
    const Lines theLines = ReadJournalLines(theFile);
    ASSERT_GE(theLines.size(), 4U);
    EXPECT_TRUE(Has(theLines.front(), R"("callerLimit":3,)"));
    EXPECT_TRUE(Has(theLines.back(), R"("what":"end")"));
    EXPECT_EQ(Visitor(theRuntime.GetSocket()).Ask("write 0 /nowhere/at/all\n"),
              "no /nowhere/at/all cannot be written\n");
}

TEST(LmJournalDoor, LeavesTheJournalOfTheProgramAlone)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    TestJournal theJournal;
    EXPECT_EQ(Visitor(theRuntime.GetSocket()).Ask("attach 0\n"), "no it writes a journal already\n");
    EXPECT_EQ(Visitor(theRuntime.GetSocket()).Ask("detach\n"), "no nobody has attached to it\n");
    const LmKeyValueStore theModel;
    theModel.GetKeyPathValue("level");
    LmNameObject(theModel, "model");
    EXPECT_EQ(theJournal.Take().size(), 2U) << "made and named";
}

TEST(LmJournalDoor, IsNotHeldUpByWhoSaysNothingOrAnything)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    const Visitor theSilent(theRuntime.GetSocket());
    theSilent.Say("atta");
    Visitor theLoud(theRuntime.GetSocket());
    theLoud.Say(std::string(20000, 'x'));
    Visitor theForeign(theRuntime.GetSocket());
    theForeign.Say(std::string("\0\n", 2));
    EXPECT_EQ(theForeign.WaitFor("\n"), "no it does not know what is wanted\n");
}

// What cannot be sent is kept up to a limit, then lost; what comes after that says how much.
TEST(LmJournalDoor, NeverWaitsForASlowReaderAndSaysWhatWasLost)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    LmKeyValueStore theModel;
    Visitor theVisitor(theRuntime.GetSocket());
    theVisitor.Say("attach 0\n");
    theVisitor.WaitFor("begin");
    const LmString theLong(std::string(900, 'x').c_str());
    for (int theCount = 0; theCount < 3000; ++theCount) {
        theModel.SetKeyPathValue(theLong, LmValue(theCount + 1));
    }
    theVisitor.Hear();
    RunCurrentEventLoop(0.15);
    theVisitor.Hear();
    theModel.SetKeyPathValue("level", LmValue(1));
    const std::string theText = theVisitor.WaitFor(R"("key":"level")");
    EXPECT_TRUE(Has(theText, R"("what":"lost","count":)"));
    EXPECT_LT(CountLines(theText), 6000U);
    EXPECT_EQ(theText.back(), '\n') << "every line is whole";
}

TEST(LmJournalDoor, StaysWithTheProgramThatForks)
{
    const RuntimeFolder theRuntime;
    ASSERT_TRUE(LmAllowAttaching(true));
    LmKeyValueStore theModel;
    Visitor theVisitor(theRuntime.GetSocket());
    theVisitor.Ask("attach 0\n");
    const pid_t theChild = ::fork();
    if (theChild == 0) {
        theModel.SetKeyPathValue("of the child", LmValue(1));
        RunCurrentEventLoop(0.15);
        LmAllowAttaching(false);
        ::_exit(0);
    }
    int theStatus = 1;
    ::waitpid(theChild, &theStatus, 0);
    EXPECT_EQ(theStatus, 0);
    theModel.SetKeyPathValue("of the parent", LmValue(1));
    const std::string theText = theVisitor.WaitFor("of the parent");
    EXPECT_FALSE(Has(theText, "of the child"));
    EXPECT_TRUE(Visitor(theRuntime.GetSocket()).IsConnected()) << "its name is still there";
}

TEST(LmJournalDoor, IsOpenedByTheEnvironmentAlone)
{
    const RuntimeFolder theRuntime;
    for (const char* theText : {"0", "", "yes"}) {
        ::setenv("LM_JOURNAL_SOCKET", theText, 1);
        LmBeginJournalFromEnvironment();
        EXPECT_NE(::access(theRuntime.GetSocket().c_str(), F_OK), 0) << theText;
    }
    ::setenv("LM_JOURNAL_SOCKET", "1", 1);
    LmBeginJournalFromEnvironment();
    EXPECT_EQ(::access(theRuntime.GetSocket().c_str(), F_OK), 0);
    ::unsetenv("LM_JOURNAL_SOCKET");
}
