// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Processes that are killed while they write, and processes that write at the same time.

#include "FaultyCalls.h"
#include "PreferenceFileSupport.h"

#include <csignal>

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
            FaultyCalls::KillAfter(theCalls);
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
