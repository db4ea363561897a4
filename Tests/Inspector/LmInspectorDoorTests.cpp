// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmInspectorDoor.h"

#include "LmConveniences.h"
#include "LmInspector.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <Simulation/VirtualClock.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

// A program that is asked, and those who ask: here both are this process.

namespace {

class LmInspectorDoorTest : public testing::Test
{
public:
    LmInspectorDoorTest()
    {
        char theTemplate[] = "/tmp/LmInspectorDoor.XXXXXX";
        mFolder = ::mkdtemp(theTemplate);
        ::setenv("XDG_RUNTIME_DIR", mFolder.c_str(), 1);
        LmAllowInspector();
        mDoor = LmInspectorDoor::Open();
    }
    ~LmInspectorDoorTest() override
    {
        mDoor.reset();
        LmEndInspector();
        ::unsetenv("XDG_RUNTIME_DIR");
        ::rmdir((mFolder + "/lminspect").c_str());
        EXPECT_EQ(::rmdir(mFolder.c_str()), 0) << "something is left in " << mFolder;
    }

protected:
    std::string GetSocket() const
    {
        return mFolder + "/lminspect/inspectorTests." + std::to_string(::getpid()) + ".inspector";
    }

    int Connect() const
    {
        const int theDescriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un theAddress = {};
        theAddress.sun_family = AF_UNIX;
        GetSocket().copy(theAddress.sun_path, sizeof theAddress.sun_path - 1);
        EXPECT_EQ(::connect(theDescriptor, reinterpret_cast<const sockaddr*>(&theAddress), sizeof theAddress),
                  0);
        return theDescriptor;
    }

    static void Say(int theDescriptor, const std::string& theText)
    {
        EXPECT_EQ(::send(theDescriptor, theText.data(), theText.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(theText.size()));
    }

    // All that comes until the program closes the connection, while its main loop turns.
    static std::string HearAll(int theDescriptor)
    {
        std::string theText;
        char theBytes[65536];
        for (int theTurn = 0; theTurn < 500; ++theTurn) {
            RunCurrentEventLoop(0.02);
            ssize_t theCount = 0;
            while ((theCount = ::recv(theDescriptor, theBytes, sizeof theBytes, MSG_DONTWAIT)) > 0) {
                theText.append(theBytes, static_cast<std::size_t>(theCount));
            }
            if (theCount == 0) {
                ::close(theDescriptor);
                return theText;
            }
        }
        ::close(theDescriptor);
        return theText + "(and no end)";
    }

    std::string Ask(const std::string& theQuestion) const
    {
        const int theDescriptor = Connect();
        Say(theDescriptor, theQuestion + "\n");
        return HearAll(theDescriptor);
    }

    Host::VirtualClock mClock{1000}; // waits in no time
    std::string mFolder;
    std::shared_ptr<LmInspectorDoor> mDoor;
};

// Does something when it is told of a change.
class Meddler : public LmKeyValueObserver
{
public:
    explicit Meddler(void (*theDeed)())
        : mDeed(theDeed)
    {
    }
    void ValueChanged(const LmKeyValueStore*, const LmString&) override { mDeed(); }

private:
    void (*mDeed)();
};

} // namespace

TEST_F(LmInspectorDoorTest, IsOpenToTheUserAlone)
{
    struct stat theStatus = {};
    ASSERT_EQ(::lstat(GetSocket().c_str(), &theStatus), 0);
    EXPECT_EQ(theStatus.st_mode & 07777U, 0600U);
    mDoor.reset();
    EXPECT_NE(::access(GetSocket().c_str(), F_OK), 0);
}

TEST_F(LmInspectorDoorTest, AnswersWhatLmAskInspectorAnswers)
{
    LmKeyValueBinding theRadio;
    LmNameObject(theRadio, "my radio");
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_EQ(Ask("keys my radio"), "ok\nvolume = 40 (unsigned 32-bit integer)\n");
    EXPECT_EQ(Ask("set my radio.volume 55"), "ok\nmy radio.volume is set.\n");
    EXPECT_EQ(theRadio.GetKeyPathValue("volume").GetUInt32(), 55U);
    EXPECT_EQ(Ask(""), "ok\n" + LmGetStdString(LmAskInspector("help")));
}

TEST_F(LmInspectorDoorTest, HandsOverAnAnswerThatIsLongerThanASocketHolds)
{
    LmKeyValueBinding theRadio;
    LmNameObject(theRadio, "my radio");
    const std::string theText(2000000, 'x');
    for (int theKey = 0; theKey < 3; ++theKey) {
        theRadio.SetKeyPathValue(LmMakeString("text" + std::to_string(theKey) + theText), LmValue(1UL));
    }
    const std::string theAnswer = LmGetStdString(LmAskInspector("keys my radio"));
    EXPECT_GT(theAnswer.size(), 3 * theText.size());
    EXPECT_EQ(Ask("keys my radio").size(), theAnswer.size() + 3);
}

TEST_F(LmInspectorDoorTest, SendsAwayWhoAsksNothing)
{
    const int theSilent = Connect();
    EXPECT_EQ(HearAll(theSilent), "");
    const int theEndless = Connect();
    Say(theEndless, std::string(70000, 'x'));
    EXPECT_EQ(HearAll(theEndless), "");
    EXPECT_EQ(Ask("objects"), "ok\nThere are no objects.\n");
}

TEST_F(LmInspectorDoorTest, AnswersOneQuestionOnceAlsoWhenTheLoopTurnsMeanwhile)
{
    static LmKeyValueBinding* sRadio = nullptr;
    static int sCount = 0;
    Meddler theMeddler([] {
        if (++sCount == 1) {
            sRadio->SetKeyPathValue("volume", LmValue(40UL));
            RunCurrentEventLoop(0.3);
        }
    });
    LmKeyValueBinding theRadio;
    sRadio = &theRadio;
    LmNameObject(theRadio, "radio");
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    theRadio.ObserveKeyPathValue("volume", &theMeddler);
    EXPECT_EQ(Ask("set radio.volume 55"), "ok\nradio.volume is set.\n");
    EXPECT_EQ(sCount, 2) << "55 and 40";
}

TEST_F(LmInspectorDoorTest, LetsWhatIsSetEndTheInspector)
{
    Meddler theMeddler([] {
        LmEndInspector();
        EXPECT_NE(LmGetLiveSurvey(), nullptr) << "it waits for the answer";
    });
    LmKeyValueBinding theRadio;
    LmNameObject(theRadio, "radio");
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    theRadio.ObserveKeyPathValue("volume", &theMeddler);
    EXPECT_EQ(Ask("set radio.volume 55"), "ok\nradio.volume is set.\n");
    EXPECT_EQ(LmGetLiveSurvey(), nullptr);
    EXPECT_EQ(Ask("objects"), "ok\nThe inspector is not allowed.\n");
}

// ---- Those who are slow, or leave

namespace {

// How many seconds have passed, by the clock of the test.
class Watch
{
public:
    double GetSeconds() const { return GetCurrentEventTime() - mStart; }

private:
    EventTime mStart = GetCurrentEventTime();
};

} // namespace

TEST_F(LmInspectorDoorTest, AnswersAtOnce)
{
    const Watch theWatch;
    EXPECT_EQ(Ask("objects"), "ok\nThere are no objects.\n");
    EXPECT_LT(theWatch.GetSeconds(), 0.5);
}

TEST_F(LmInspectorDoorTest, WaitsForTheRestOfAQuestion)
{
    const int theSlow = Connect();
    Say(theSlow, "obj");
    RunCurrentEventLoop(1.5);
    Say(theSlow, "ects\n");
    EXPECT_EQ(HearAll(theSlow), "ok\nThere are no objects.\n");
}

TEST_F(LmInspectorDoorTest, GivesEachTheSameTime)
{
    for (int theRound = 0; theRound < 3; ++theRound) {
        const int theSlow = Connect();
        RunCurrentEventLoop(1.5);
        Say(theSlow, "objects\n");
        EXPECT_EQ(HearAll(theSlow), "ok\nThere are no objects.\n") << theRound;
        const int theSilent = Connect();
        RunCurrentEventLoop(1.5);
        ::close(theSilent);
        RunCurrentEventLoop(0.3);
    }
}

TEST_F(LmInspectorDoorTest, WaitsForNobodyWhoHasLeft)
{
    const int theGone = Connect();
    Say(theGone, "obj");
    RunCurrentEventLoop(0.3);
    ::close(theGone);
    const Watch theWatch;
    EXPECT_EQ(Ask("objects"), "ok\nThere are no objects.\n");
    EXPECT_LT(theWatch.GetSeconds(), 1.0);
}

TEST_F(LmInspectorDoorTest, HandsNobodyTheAnswerOfAnother)
{
    LmKeyValueBinding theRadio;
    LmNameObject(theRadio, "my radio");
    theRadio.SetKeyPathValue(LmMakeString(std::string(2000000, 'x')), LmValue(1UL));
    const int theGone = Connect();
    Say(theGone, "keys my radio\n");
    RunCurrentEventLoop(0.5);
    ::close(theGone);
    const Watch theWatch;
    EXPECT_EQ(Ask("keys nobody"), "ok\nThere is no nobody, or more than one; \"objects\" lists them.\n");
    EXPECT_LT(theWatch.GetSeconds(), 1.0);
    // Who takes nothing is sent away.
    const int theLazy = Connect();
    Say(theLazy, "keys my radio\n");
    RunCurrentEventLoop(5);
    EXPECT_EQ(Ask("keys nobody"), "ok\nThere is no nobody, or more than one; \"objects\" lists them.\n");
    ::close(theLazy);
}
