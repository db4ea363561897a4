// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Processes that are killed while they write, and processes that write at the same time.

#include "PreferenceFileSupport.h"

#include <csignal>
#include <sys/syscall.h>

namespace {

// How many calls that change files a process may still make; negative for any number.
int gCallsUntilKill = -1;

// Whether this call is the one that the process does not survive.
bool IsLastCall()
{
    return gCallsUntilKill >= 0 && gCallsUntilKill-- == 0;
}

} // namespace

// These take the place of the system's functions in the whole test program, the libraries included.
#pragma GCC visibility push(default)

extern "C" ssize_t write(int theDescriptor, const void* theBytes, size_t theCount)
{
    if (!IsLastCall()) {
        return syscall(SYS_write, theDescriptor, theBytes, theCount);
    }
    syscall(SYS_write, theDescriptor, theBytes, theCount / 2);
    return kill(getpid(), SIGKILL);
}

extern "C" int fsync(int theDescriptor)
{
    return static_cast<int>(IsLastCall() ? kill(getpid(), SIGKILL) : syscall(SYS_fsync, theDescriptor));
}

extern "C" int rename(const char* theOldPath, const char* theNewPath) noexcept
{
    return static_cast<int>(IsLastCall() ? kill(getpid(), SIGKILL)
                                         : syscall(SYS_rename, theOldPath, theNewPath));
}

extern "C" int unlink(const char* thePath) noexcept
{
    return static_cast<int>(IsLastCall() ? kill(getpid(), SIGKILL) : syscall(SYS_unlink, thePath));
}

#pragma GCC visibility pop

namespace {

// The ends of a pipe, closed at the end of the scope.
class Pipe
{
public:
    Pipe()
    {
        if (pipe(mEnds) != 0) {
            std::abort();
        }
    }
    ~Pipe()
    {
        close(mEnds[0]);
        CloseWriting();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void Write(int theNumber) const
    {
        if (write(mEnds[1], &theNumber, sizeof theNumber) != sizeof theNumber) {
            _exit(1);
        }
    }

    // False at the end, which comes when no process writes any more.
    bool Read(int& theNumber) const
    {
        return read(mEnds[0], &theNumber, sizeof theNumber) == sizeof theNumber;
    }

    void CloseWriting()
    {
        if (mEnds[1] >= 0) {
            close(std::exchange(mEnds[1], -1));
        }
    }

private:
    int mEnds[2];
};

// Numbers without a pattern, the same ones in every run.
class Numbers
{
public:
    unsigned Next(unsigned theLimit)
    {
        mState = mState * 1103515245 + 12345;
        return mState / 65536 % theLimit;
    }

private:
    unsigned mState = 2026;
};

// Passes some time without asking the clock.
void Spin(unsigned theTurns)
{
    for (volatile unsigned theTurn = 0; theTurn < theTurns; theTurn = theTurn + 1) {
    }
}

SInt64 IntegerIn(CFDictionaryRef theValues, CFStringRef theKey)
{
    const CFNumberRef theNumber = static_cast<CFNumberRef>(CFDictionaryGetValue(theValues, theKey));
    SInt64 theValue = -1;
    if (theNumber != nullptr) {
        CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theValue);
    }
    return theValue;
}

} // namespace

TEST_F(PreferenceFiles, WhatWasSynchronizedSurvivesAKill)
{
    Pipe thePipe;
    const pid_t theProcess = StartProcess([this, &thePipe] {
        Set(CFSTR("kept"), CFSTR("value"));
        Synchronize();
        Set(CFSTR("lost"), CFSTR("value"));
        thePipe.Write(1);
        while (true) {
            pause();
        }
        return 0;
    });
    int theNumber = 0;
    ASSERT_TRUE(thePipe.Read(theNumber));
    kill(theProcess, SIGKILL);
    EXPECT_EQ(ResultOf(theProcess), -1);
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("kept"), CFSTR("value")}})));
}

TEST_F(PreferenceFiles, AProcessThatIsKilledInAnyCallLeavesOldOrNewValues)
{
    const auto theOldValues = ObjectDictionary({{CFSTR("a"), CFSTR("old")}, {CFSTR("z"), CFSTR("old")}});
    const auto theNewValues = ObjectDictionary({{CFSTR("a"), CFSTR("new")}, {CFSTR("z"), CFSTR("new")}});
    const std::string theOldFile =
        "<dict><key>a</key><string>old</string><key>z</key><string>old</string></dict>";
    int theCalls = 0;
    for (int theResult = -1; theResult != 0; ++theCalls) {
        ASSERT_LT(theCalls, 100);
        WriteFile(Path(), theOldFile);
        theResult = RunInProcess([this, theCalls] {
            Set(CFSTR("a"), CFSTR("new"));
            Set(CFSTR("z"), CFSTR("new"));
            gCallsUntilKill = theCalls;
            return Synchronize() ? 0 : 1;
        });
        const auto theFound = FileValues();
        ASSERT_NE(static_cast<CFDictionaryRef>(theFound), nullptr) << "the file is torn, call " << theCalls;
        ASSERT_TRUE(CFEqual(theFound, theNewValues) || (theResult != 0 && CFEqual(theFound, theOldValues)))
            << "call " << theCalls;
    }
    // At least the writing, the synchronising and the renaming.
    EXPECT_GT(theCalls, 3);
}

TEST_F(PreferenceFiles, AProcessThatIsKilledAtAnyMomentLeavesOldOrNewValues)
{
    const int kKills = 220;
    Numbers theNumbers;
    int theLast = 0; // the newest values that a process has reported as synchronised
    for (int theKill = 0; theKill < kKills; ++theKill) {
        Pipe thePipe;
        const int theFirst = theLast + 1;
        const pid_t theProcess = StartProcess([this, &thePipe, theFirst] {
            const auto thePadding = String(std::string(20000, 'x'));
            for (int theNumber = theFirst;; ++theNumber) {
                Set(CFSTR("a"), Integer(theNumber));
                Set(CFSTR("z"), Integer(theNumber));
                Set(CFSTR("padding"),
                    theNumber % 2 == 0 ? static_cast<CFStringRef>(thePadding) : CFSTR("short"));
                Synchronize();
                thePipe.Write(theNumber);
            }
            return 0;
        });
        for (unsigned theWait = theNumbers.Next(4); theWait > 0; --theWait) {
            thePipe.Read(theLast);
        }
        Spin(theNumbers.Next(100000));
        kill(theProcess, SIGKILL);
        ResultOf(theProcess);
        thePipe.CloseWriting();
        while (thePipe.Read(theLast)) {
        }
        if (theLast == 0) {
            continue;
        }
        const auto theValues = FileValues();
        ASSERT_NE(static_cast<CFDictionaryRef>(theValues), nullptr) << "kill " << theKill << " tore the file";
        const SInt64 theFound = IntegerIn(theValues, CFSTR("a"));
        ASSERT_EQ(theFound, IntegerIn(theValues, CFSTR("z"))) << "kill " << theKill << " left a mixture";
        ASSERT_GE(theFound, theLast) << "kill " << theKill << " lost what was synchronised";
        ASSERT_LE(theFound, theLast + 1);
        theLast = static_cast<int>(theFound);
    }
    EXPECT_GT(theLast, kKills / 2) << "the processes had no time to write";
}

TEST_F(PreferenceFiles, ProcessesThatWriteDifferentKeysLoseNone)
{
    const int kTurns = 40;
    std::vector<pid_t> theProcesses;
    for (const char* thePrefix : {"first", "second", "third"}) {
        theProcesses.push_back(StartProcess([this, thePrefix] {
            for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
                Set(String(thePrefix + std::to_string(theTurn)), Integer(theTurn));
                if (!Synchronize()) {
                    return 1;
                }
            }
            return 0;
        }));
    }
    for (const pid_t theProcess : theProcesses) {
        EXPECT_EQ(ResultOf(theProcess), 0);
    }
    const auto theValues = FileValues();
    ASSERT_NE(static_cast<CFDictionaryRef>(theValues), nullptr);
    EXPECT_EQ(CFDictionaryGetCount(theValues), 3 * kTurns);
    EXPECT_EQ(IntegerIn(theValues, CFSTR("third39")), 39);
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
}

TEST_F(PreferenceFiles, ProcessesThatFindADamagedFileTogetherKeepItOnce)
{
    WriteFile(Path(), "broken");
    std::vector<pid_t> theProcesses;
    for (const char* theKey : {"a", "b", "c"}) {
        theProcesses.push_back(StartProcess([this, theKey] {
            if (std::freopen("/dev/null", "w", stderr) == nullptr) {
                return 1;
            }
            Set(String(theKey), kCFBooleanTrue);
            return Synchronize() ? 0 : 1;
        }));
    }
    for (const pid_t theProcess : theProcesses) {
        EXPECT_EQ(ResultOf(theProcess), 0);
    }
    EXPECT_EQ(CFDictionaryGetCount(FileValues()), 3);
    EXPECT_EQ(FileText(Path() + ".damaged-1"), "broken");
    EXPECT_FALSE(Exists(Path() + ".damaged-2"));
}
