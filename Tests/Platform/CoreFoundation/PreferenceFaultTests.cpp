// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Places for preferences that fail: full disks, homes that are taken away, clocks that go backwards, signals,
// many processes. Each is tried in processes of its own. What holds in all of them:
//
// - what was synchronised is in the file, whole; when synchronising failed, the file is as it was;
// - the values that could not be written are there for the application, and are in the file after the next
//   synchronising that succeeds;
// - nothing else is left in the folder.

#include "FaultyCalls.h"
#include "PreferenceFileSupport.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/time.h>

namespace {

using PreferenceFaults = PreferenceFiles;

// What theChecks expects counts in this process.
void CheckInProcess(const std::function<void()>& theChecks)
{
    EXPECT_EQ(RunInProcess([&theChecks] {
                  theChecks();
                  return testing::Test::HasFailure() ? 1 : 0;
              }),
              0);
}

bool WriteSmallFile(const char* thePath, const std::string& theText)
{
    const int theDescriptor = open(thePath, O_WRONLY | O_CLOEXEC);
    const bool theIsWritten = theDescriptor >= 0 && write(theDescriptor, theText.data(), theText.size()) ==
                                                        static_cast<ssize_t>(theText.size());
    close(theDescriptor);
    return theIsWritten;
}

// Lets this process mount what no other sees, as a user of its own that may do so.
bool EnterMountNamespace()
{
    const std::string theUser = "0 " + std::to_string(getuid()) + " 1";
    const std::string theGroup = "0 " + std::to_string(getgid()) + " 1";
    const bool theMayMount = getuid() == 0;
    if (unshare(theMayMount ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) {
        return false;
    }
    return (theMayMount || (WriteSmallFile("/proc/self/setgroups", "deny") &&
                            WriteSmallFile("/proc/self/uid_map", theUser) &&
                            WriteSmallFile("/proc/self/gid_map", theGroup))) &&
           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool MountSmallDisk(const std::string& thePath, const char* theOptions)
{
    return mount("tmpfs", thePath.c_str(), "tmpfs", 0, theOptions) == 0;
}

bool CanMount(const std::string& thePath)
{
    return RunInProcess([&thePath] {
               return EnterMountNamespace() && MountSmallDisk(thePath, "size=256k") ? 0 : 1;
           }) == 0;
}

// The superuser may write everywhere, and becomes somebody who owns these folders.
void BecomeAnybody(const std::vector<std::string>& theFolders)
{
    const uid_t kNobody = 65534;
    if (getuid() != 0) {
        return;
    }
    for (const std::string& theFolder : theFolders) {
        ASSERT_EQ(chown(theFolder.c_str(), kNobody, getgid()), 0);
    }
    ASSERT_EQ(setuid(kNobody), 0);
}

// A disk that has as much room as the test says.
class SmallDisk
{
public:
    virtual ~SmallDisk() = default;

    // False when this process may not have it. The folder is on it from now on.
    virtual bool Insert(const std::string& theFolder) = 0;

    // Leaves room for that many pages.
    virtual void LeaveRoom(unsigned thePages) = 0;
};

// One that is mounted, and full of something else.
class MountedDisk : public SmallDisk
{
public:
    bool Insert(const std::string& theFolder) override
    {
        mOther = theFolder + "/other";
        return EnterMountNamespace() && MountSmallDisk(theFolder, "size=256k");
    }

    void LeaveRoom(unsigned thePages) override
    {
        const int theDescriptor = open(mOther.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        const std::string thePage(static_cast<size_t>(getpagesize()), 'x');
        const auto theLength = static_cast<ssize_t>(thePage.size());
        off_t thePlace = 0;
        while (write(theDescriptor, thePage.data(), thePage.size()) == theLength) {
            thePlace += theLength;
        }
        EXPECT_EQ(ftruncate(theDescriptor, thePlace - theLength * static_cast<off_t>(thePages)), 0);
        close(theDescriptor);
    }

private:
    std::string mOther;
};

// Files that may not grow, which is possible everywhere.
class LimitedFiles : public SmallDisk
{
public:
    bool Insert(const std::string& theFolder) override
    {
        return mkdir((theFolder + "/other").c_str(), 0700) == 0 && std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR;
    }

    void LeaveRoom(unsigned thePages) override
    {
        rlimit theLimit = {};
        getrlimit(RLIMIT_FSIZE, &theLimit);
        theLimit.rlim_cur = thePages * static_cast<rlim_t>(getpagesize());
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &theLimit), 0);
    }
};

template <class Disk>
class FullDisks : public PreferenceFiles
{
protected:
    // False, with a reason, where this process may not have such a disk.
    static bool IsPossible(const std::string& theFolder)
    {
        return !std::is_same<Disk, MountedDisk>::value || CanMount(theFolder);
    }
};

using Disks = testing::Types<MountedDisk, LimitedFiles>;

struct DiskNames
{
    template <class Disk>
    static std::string GetName(int /*theIndex*/)
    {
        return std::is_same<Disk, MountedDisk>::value ? "Mounted" : "Limited";
    }
};

TYPED_TEST_SUITE(FullDisks, Disks, DiskNames);

} // namespace

TYPED_TEST(FullDisks, FailUntilThereIsRoomAndThenHaveEverything)
{
    if (!this->IsPossible(this->mFolder)) {
        GTEST_SKIP() << "this user may mount nothing, not even alone; see the case for limited files";
    }
    CheckInProcess([this] {
        const unsigned kPages = 20;
        const auto thePadding = String(std::string(30000, 'x'));
        TypeParam theDisk;
        ASSERT_TRUE(theDisk.Insert(this->mFolder));
        this->Set(CFSTR("a"), CFSTR("before"));
        ASSERT_TRUE(this->Synchronize());
        const std::string theOldText = FileText(this->Path());
        this->Set(CFSTR("a"), CFSTR("after"));
        this->Set(CFSTR("b"), thePadding);
        unsigned thePages = 0;
        theDisk.LeaveRoom(thePages);
        while (!this->Synchronize() && thePages < kPages) {
            EXPECT_EQ(FileText(this->Path()), theOldText);
            EXPECT_EQ(NamesIn(this->mFolder).size(), 2U) << thePages;
            EXPECT_TRUE(this->Has(CFSTR("a"), CFSTR("after")) && this->Has(CFSTR("b"), thePadding));
            theDisk.LeaveRoom(++thePages);
        }
        // Thirty thousand characters need some pages, and the old file still has its own.
        EXPECT_GT(thePages, 5U);
        EXPECT_LT(thePages, kPages);
        EXPECT_TRUE(CFEqual(this->FileValues(),
                            ObjectDictionary({{CFSTR("a"), CFSTR("after")}, {CFSTR("b"), thePadding}})));
        EXPECT_EQ(NamesIn(this->mFolder).size(), 2U);
    });
}

TEST_F(PreferenceFaults, ADiskWithoutRoomForAnotherFileFailsUntilThereIs)
{
    if (!CanMount(mFolder)) {
        GTEST_SKIP() << "this user may mount nothing, not even alone";
    }
    CheckInProcess([this] {
        ASSERT_TRUE(EnterMountNamespace() && MountSmallDisk(mFolder, "size=1m,nr_inodes=20"));
        Set(CFSTR("a"), CFSTR("before"));
        ASSERT_TRUE(Synchronize());
        const std::string theOldText = FileText(Path());
        int theOthers = 0;
        int theDescriptor = 0;
        while ((theDescriptor = open(PathInFolder("other" + std::to_string(theOthers)).c_str(),
                                     O_WRONLY | O_CREAT | O_CLOEXEC, 0600)) >= 0) {
            close(theDescriptor);
            ++theOthers;
        }
        ASSERT_EQ(errno, ENOSPC);
        Set(CFSTR("a"), CFSTR("after"));
        EXPECT_FALSE(Synchronize());
        EXPECT_EQ(FileText(Path()), theOldText);
        EXPECT_TRUE(Has(CFSTR("a"), CFSTR("after")));
        unlink(PathInFolder("other0").c_str());
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), CFSTR("after")}})));
    });
}

TEST_F(PreferenceFaults, EachCallThatFailsLeavesTheOldFileOrTheNewOne)
{
    const auto theNewValues = ObjectDictionary({{CFSTR("a"), CFSTR("new")}, {CFSTR("b"), CFSTR("new")}});
    const std::string theOldFile = FileWith("<dict><key>a</key><string>old</string></dict>");
    const std::string theFolder = PathInFolder("one/two");
    setenv("XDG_CONFIG_HOME", theFolder.c_str(), 1);
    const std::string thePath = theFolder + Path().substr(mFolder.size());
    for (const int theError : {EIO, ENOSPC, EDQUOT, EACCES}) {
        for (const bool theHasFile : {false, true}) {
            int theCalls = 0;
            int theFailures = 0;
            for (bool theWasLast = false; !theWasLast; ++theCalls) {
                ASSERT_LT(theCalls, 100);
                RemoveTree(PathInFolder("one"));
                if (theHasFile) {
                    ASSERT_EQ(mkdir(PathInFolder("one").c_str(), 0700), 0);
                    ASSERT_EQ(mkdir(theFolder.c_str(), 0700), 0);
                    WriteFile(thePath, theOldFile);
                }
                const int theResult = RunInProcess([&, this] {
                    Set(CFSTR("a"), CFSTR("new"));
                    Set(CFSTR("b"), CFSTR("new"));
                    FaultyCalls::FailAfter(theCalls, theError);
                    const bool theIsWritten = Synchronize();
                    const bool theHasFailed = FaultyCalls::HasFailed();
                    FaultyCalls::FailAfter(-1, 0);
                    const std::string theText = FileText(thePath);
                    EXPECT_TRUE(theIsWritten || theHasFailed);
                    EXPECT_EQ(!theIsWritten, theText == (theHasFile ? theOldFile : std::string()));
                    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("new")) && Has(CFSTR("b"), CFSTR("new")));
                    EXPECT_TRUE(Synchronize());
                    EXPECT_EQ(NamesIn(theFolder).size(), 1U);
                    return HasFailure() ? 1 : theIsWritten ? (theHasFailed ? 2 : 3) : 4;
                });
                ASSERT_GT(theResult, 1) << std::strerror(theError) << " in call " << theCalls;
                const std::string theText = FileText(thePath);
                EXPECT_TRUE(CFEqual(Owned(CFPropertyListCreateFromXMLData(
                                        nullptr, Data(std::vector<UInt8>(theText.begin(), theText.end())),
                                        kCFPropertyListImmutable, nullptr)),
                                    theNewValues));
                theFailures += theResult == 4 ? 1 : 0;
                theWasLast = theResult == 3;
            }
            // At least opening, locking, writing, synchronising and renaming.
            EXPECT_GT(theFailures, 4);
        }
    }
}

TEST_F(PreferenceFaults, ASignalInAnyCallIsNoFailure)
{
    int theCalls = 0;
    for (int theResult = 0; theResult != 2; ++theCalls) {
        ASSERT_LT(theCalls, 100);
        theResult = RunInProcess([this, theCalls] {
            Set(CFSTR("a"), Integer(theCalls));
            FaultyCalls::FailAfter(theCalls, EINTR);
            const bool theIsWritten = Synchronize();
            return !theIsWritten ? 1 : FaultyCalls::HasFailed() ? 0 : 2;
        });
        ASSERT_NE(theResult, 1) << "call " << theCalls;
        ASSERT_EQ(IntegerIn(FileValues(), CFSTR("a")), theCalls);
    }
    // Opening twice, locking, writing and synchronising.
    EXPECT_GT(theCalls, 5);
}

TEST_F(PreferenceFaults, ADamagedFileThatCannotBeRenamedLeavesNothingElse)
{
    WriteFile(Path(), "broken");
    for (int theCalls = 0; theCalls < 20; ++theCalls) {
        CheckInProcess([this, theCalls] {
            ASSERT_NE(std::freopen("/dev/null", "w", stderr), nullptr);
            FaultyCalls::FailAfter(theCalls, EPERM);
            Synchronize();
            Get(CFSTR("a"));
        });
        const std::vector<std::string> theNames = NamesIn(mFolder);
        ASSERT_EQ(theNames.size(), 1U) << theCalls;
        ASSERT_EQ(FileText(PathInFolder(theNames[0])), "broken");
        ASSERT_EQ(std::rename(PathInFolder(theNames[0]).c_str(), Path().c_str()), 0);
    }
}

namespace {

// A way in which a home goes away, and comes back.
struct AwayRow
{
    const char* theName;
    bool theNeedsMount;
    void (*theLeave)(const std::string& theHome);
    void (*theComeBack)(const std::string& theHome);
};

void PrintTo(const AwayRow& theRow, std::ostream* theStream)
{
    *theStream << theRow.theName;
}

void SetMode(const std::string& thePath, mode_t theMode)
{
    ASSERT_EQ(chmod(thePath.c_str(), theMode), 0);
}

void MoveFolder(const std::string& theOldPath, const std::string& theNewPath)
{
    ASSERT_EQ(std::rename(theOldPath.c_str(), theNewPath.c_str()), 0);
}

void Remount(const std::string& thePath, unsigned long theFlags)
{
    ASSERT_EQ(mount(nullptr, thePath.c_str(), nullptr, MS_REMOUNT | theFlags, nullptr), 0);
}

const AwayRow kAwayRows[] = {
    {"Gone", false, [](const std::string& theHome) { MoveFolder(theHome, theHome + ".away"); },
     [](const std::string& theHome) { MoveFolder(theHome + ".away", theHome); }},
    {"AFileInItsPlace", false,
     [](const std::string& theHome) {
         MoveFolder(theHome, theHome + ".away");
         WriteFile(theHome, "");
     },
     [](const std::string& theHome) {
         unlink(theHome.c_str());
         MoveFolder(theHome + ".away", theHome);
     }},
    {"Unreadable", false, [](const std::string& theHome) { SetMode(theHome, 0); },
     [](const std::string& theHome) { SetMode(theHome, 0700); }},
    {"OnADiskForReadingAlone", true, [](const std::string& theHome) { Remount(theHome, MS_RDONLY); },
     [](const std::string& theHome) { Remount(theHome, 0); }},
};

class HomesThatGoAway : public PreferenceFiles, public testing::WithParamInterface<AwayRow>
{
protected:
    void SetUp() override
    {
        PreferenceFiles::SetUp();
        mHome = PathInFolder("home");
        ASSERT_EQ(mkdir(mHome.c_str(), 0700), 0);
        unsetenv("XDG_CONFIG_HOME");
        setenv("HOME", mHome.c_str(), 1);
        if (GetParam().theNeedsMount && !CanMount(mHome)) {
            GTEST_SKIP() << "this user may mount nothing, not even alone";
        }
    }

    // Becomes a process that can lose its home.
    void Enter() const
    {
        if (GetParam().theNeedsMount) {
            ASSERT_TRUE(EnterMountNamespace() && MountSmallDisk(mHome, "size=256k"));
        } else {
            BecomeAnybody({mFolder, mHome});
        }
    }

    void Leave() const { GetParam().theLeave(mHome); }
    void ComeBack() const { GetParam().theComeBack(mHome); }

    // The values in the file, and nothing else is there.
    Owned<CFDictionaryRef> OnlyValues() const
    {
        const std::vector<std::string> theNames = NamesIn(mHome + "/.config");
        EXPECT_EQ(theNames.size(), 1U);
        return theNames.empty() ? Owned<CFDictionaryRef>(nullptr)
                                : ValuesIn(mHome + "/.config/" + theNames.front());
    }

    std::string mHome;
};

} // namespace

TEST_P(HomesThatGoAway, AreWrittenWhenTheyAreBack)
{
    CheckInProcess([this] {
        Enter();
        Set(CFSTR("a"), CFSTR("before"));
        Set(CFSTR("kept"), kCFBooleanTrue);
        ASSERT_TRUE(Synchronize());
        Leave();
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(Has(CFSTR("a"), CFSTR("before")));
        Set(CFSTR("a"), CFSTR("after"));
        EXPECT_FALSE(Synchronize());
        Set(CFSTR("b"), CFSTR("later"));
        EXPECT_FALSE(Synchronize());
        EXPECT_TRUE(Has(CFSTR("a"), CFSTR("after")) && Has(CFSTR("b"), CFSTR("later")));
        EXPECT_TRUE(Has(CFSTR("kept"), kCFBooleanTrue));
        ComeBack();
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(CFEqual(OnlyValues(), ObjectDictionary({{CFSTR("a"), CFSTR("after")},
                                                            {CFSTR("b"), CFSTR("later")},
                                                            {CFSTR("kept"), kCFBooleanTrue}})));
    });
}

TEST_P(HomesThatGoAway, MayBeAwayWhenAnApplicationStarts)
{
    CheckInProcess([this] {
        Enter();
        const int theResult = RunInProcess([this] {
            Set(CFSTR("a"), CFSTR("before"));
            Set(CFSTR("kept"), kCFBooleanTrue);
            Set(CFSTR("removed"), kCFBooleanTrue);
            return Synchronize() ? 0 : 1;
        });
        ASSERT_EQ(theResult, 0);
        Leave();
        Set(CFSTR("a"), CFSTR("after"));
        Set(CFSTR("removed"), nullptr);
        EXPECT_FALSE(Synchronize());
        EXPECT_TRUE(Has(CFSTR("a"), CFSTR("after")) && Has(CFSTR("removed"), nullptr));
        ComeBack();
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(CFEqual(
            OnlyValues(), ObjectDictionary({{CFSTR("a"), CFSTR("after")}, {CFSTR("kept"), kCFBooleanTrue}})));
        EXPECT_TRUE(Has(CFSTR("kept"), kCFBooleanTrue));
    });
}

INSTANTIATE_TEST_SUITE_P(Ways, HomesThatGoAway, testing::ValuesIn(kAwayRows),
                         [](const testing::TestParamInfo<AwayRow>& theInfo) {
                             return theInfo.param.theName;
                         });

// What was written there would be hidden as soon as the disk of the home is there again.
TEST_F(PreferenceFaults, AMissingHomeIsNotMade)
{
    const std::string theHome = PathInFolder("home");
    setenv("HOME", theHome.c_str(), 1);
    for (const std::string& theFolder : {std::string(), theHome + "/settings"}) {
        setenv("XDG_CONFIG_HOME", theFolder.c_str(), 1);
        CheckInProcess([this] {
            Set(CFSTR("a"), kCFBooleanTrue);
            EXPECT_FALSE(Synchronize());
        });
        EXPECT_EQ(NamesIn(mFolder).size(), 0U);
    }
}

TEST_F(PreferenceFaults, AFolderForSettingsElsewhereNeedsNoHome)
{
    setenv("HOME", PathInFolder("home").c_str(), 1);
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), kCFBooleanTrue}})));
}

// A file's time says nothing: clocks are set back, and copies keep times.
TEST_F(PreferenceFaults, AClockThatGoesBackwardsHidesNothing)
{
    const time_t kLate = 2000000000;
    const time_t kStep = 100000000;
    for (int theTurn = 0; theTurn < 5; ++theTurn) {
        const auto theValue = Integer(theTurn + 100);
        EXPECT_EQ(RunInProcess([this, &theValue] {
                      Set(CFSTR("theirs"), theValue);
                      return Synchronize() ? 0 : 1;
                  }),
                  0);
        const time_t theTime = kLate - theTurn * kStep;
        const timespec theTimes[2] = {{theTime, 0}, {theTime, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, Path().c_str(), theTimes, 0), 0);
        ASSERT_EQ(utimensat(AT_FDCWD, mFolder.c_str(), theTimes, 0), 0);
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(Has(CFSTR("theirs"), theValue)) << theTurn;
        Set(CFSTR("mine"), theValue);
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(CFEqual(FileValues(),
                            ObjectDictionary({{CFSTR("mine"), theValue}, {CFSTR("theirs"), theValue}})));
    }
}

namespace {

volatile std::sig_atomic_t gSignals = 0;

void CountSignal(int /*theSignal*/)
{
    gSignals = gSignals + 1;
}

// Signals that come all the time, from the clock and from another process, until the end of the scope.
class SignalStorm
{
public:
    explicit SignalStorm(int theFlags)
    {
        struct sigaction theAction = {};
        theAction.sa_handler = CountSignal;
        theAction.sa_flags = theFlags;
        sigaction(SIGALRM, &theAction, nullptr);
        sigaction(SIGUSR1, &theAction, nullptr);
        const pid_t theTarget = getpid();
        mSender = StartProcess([theTarget] {
            while (kill(theTarget, SIGUSR1) == 0) {
                Spin(20000);
            }
            return 0;
        });
        SetTimer(200);
    }
    ~SignalStorm()
    {
        SetTimer(0);
        kill(mSender, SIGKILL);
        ResultOf(mSender);
    }
    SignalStorm(const SignalStorm&) = delete;
    SignalStorm& operator=(const SignalStorm&) = delete;

private:
    static void SetTimer(suseconds_t theMicroseconds)
    {
        const itimerval theTimer = {{0, theMicroseconds}, {0, theMicroseconds}};
        setitimer(ITIMER_REAL, &theTimer, nullptr);
    }

    pid_t mSender;
};

class PreferencesAmidSignals : public PreferenceFiles, public testing::WithParamInterface<int>
{
};

} // namespace

TEST_P(PreferencesAmidSignals, AreWrittenAllTheSame)
{
    const int kTurns = 50;
    const auto thePadding = String(std::string(50000, 'x'));
    std::vector<pid_t> theProcesses;
    // They also wait for each other.
    for (const char* theName : {"first", "second"}) {
        theProcesses.push_back(StartProcess([&, this, theName] {
            const SignalStorm theStorm(GetParam());
            for (int theTurn = 1; theTurn <= kTurns; ++theTurn) {
                Set(String(theName), Integer(theTurn));
                Set(CFSTR("padding"),
                    theTurn % 2 == 0 ? static_cast<CFStringRef>(thePadding) : CFSTR("short"));
                if (!Synchronize() || IntegerIn(FileValues(), String(theName)) != theTurn) {
                    return 1;
                }
            }
            return gSignals > 0 ? 0 : 2;
        }));
    }
    for (const pid_t theProcess : theProcesses) {
        EXPECT_EQ(ResultOf(theProcess), 0);
    }
    EXPECT_EQ(CFDictionaryGetCount(FileValues()), 3);
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Ways, PreferencesAmidSignals, testing::Values(0, SA_RESTART),
                         [](const testing::TestParamInfo<int>& theInfo) {
                             return theInfo.param == 0 ? "CallsEnd" : "CallsGoOn";
                         });

TEST_F(PreferenceFaults, TwentyProcessesLoseNothingOfWhatEachHasSynchronized)
{
    const int kProcesses = 20;
    const int kTurns = 10;
    std::vector<pid_t> theProcesses;
    theProcesses.reserve(kProcesses);
    for (int theProcess = 0; theProcess < kProcesses; ++theProcess) {
        theProcesses.push_back(StartProcess([this, theProcess] {
            for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
                const auto theNumber = Integer(theProcess * kTurns + theTurn);
                Set(String("own" + std::to_string(theProcess * kTurns + theTurn)), theNumber);
                Set(CFSTR("shared"), theNumber);
                if (!Synchronize() || static_cast<CFDictionaryRef>(FileValues()) == nullptr) {
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
    EXPECT_EQ(CFDictionaryGetCount(theValues), kProcesses * kTurns + 1);
    for (int theKey = 0; theKey < kProcesses * kTurns; ++theKey) {
        ASSERT_EQ(IntegerIn(theValues, String("own" + std::to_string(theKey))), theKey);
    }
    // Whoever wrote last, wrote its last value.
    EXPECT_EQ(IntegerIn(theValues, CFSTR("shared")) % kTurns, kTurns - 1);
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
}

TEST_F(PreferenceFaults, ProcessesThatAreKilledAmongOthersLoseNothingAndBlockNobody)
{
    const size_t kProcesses = 4;
    const int kKills = 60;
    Numbers theNumbers;
    std::vector<pid_t> theProcesses(kProcesses);
    std::vector<std::unique_ptr<Pipe>> thePipes(kProcesses);
    std::vector<int> theLast(kProcesses, 0); // what each has reported as synchronised
    const auto theKeyOf = [](size_t theIndex) { return String("own" + std::to_string(theIndex)); };
    const auto theStart = [&, this](size_t theIndex) {
        thePipes[theIndex] = std::make_unique<Pipe>();
        theProcesses[theIndex] = StartProcess([&, this] {
            for (int theNumber = theLast[theIndex] + 1; Synchronize(); ++theNumber) {
                Set(theKeyOf(theIndex), Integer(theNumber));
                Set(CFSTR("shared"), Integer(theNumber));
                if (!Synchronize()) {
                    return 1;
                }
                thePipes[theIndex]->Write(theNumber);
            }
            return 1;
        });
        thePipes[theIndex]->CloseWriting();
    };
    const auto theEnd = [&](size_t theIndex) {
        kill(theProcesses[theIndex], SIGKILL);
        EXPECT_EQ(ResultOf(theProcesses[theIndex]), -1);
        while (thePipes[theIndex]->Read(theLast[theIndex])) {
        }
    };
    for (size_t theIndex = 0; theIndex < kProcesses; ++theIndex) {
        theStart(theIndex);
    }
    for (int theKill = 0; theKill < kKills; ++theKill) {
        const size_t theIndex = theNumbers.Next(kProcesses);
        ASSERT_TRUE(thePipes[theIndex]->Read(theLast[theIndex]));
        Spin(theNumbers.Next(100000));
        theEnd(theIndex);
        const SInt64 theFound = IntegerIn(FileValues(), theKeyOf(theIndex));
        ASSERT_TRUE(theFound == theLast[theIndex] || theFound == theLast[theIndex] + 1) << theKill;
        EXPECT_LE(NamesIn(mFolder).size(), 2U);
        theLast[theIndex] = static_cast<int>(theFound);
        theStart(theIndex);
    }
    for (size_t theIndex = 0; theIndex < kProcesses; ++theIndex) {
        theEnd(theIndex);
    }
    Set(CFSTR("end"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    for (size_t theIndex = 0; theIndex < kProcesses; ++theIndex) {
        EXPECT_GE(IntegerIn(FileValues(), theKeyOf(theIndex)), theLast[theIndex]);
    }
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
}

namespace {

// Returns when a process waits for a lock, which the system lists as "1: -> FLOCK ADVISORY WRITE <process>".
void WaitUntilLockedOut(pid_t theProcess)
{
    const std::string theWaiter = "-> FLOCK  ADVISORY  WRITE " + std::to_string(theProcess) + " ";
    for (int theTurn = 0; theTurn < 100000; ++theTurn) {
        if (FileText("/proc/locks").find(theWaiter) != std::string::npos) {
            return;
        }
        sched_yield();
    }
    FAIL() << "nobody waits for the lock:\n" << FileText("/proc/locks");
}

} // namespace

// The lock belongs to what is open, and a process that is made meanwhile has that open as well.
TEST_F(PreferenceFaults, AProcessThatIsMadeMeanwhileDoesNotKeepTheLock)
{
    CheckInProcess([this] {
        static pid_t sOther;
        FaultyCalls::RunInSynchronizing([] {
            sOther = StartProcess([] {
                alarm(20); // nobody else ends it when the test fails
                while (true) {
                    pause();
                }
                return 0;
            });
        });
        Set(CFSTR("a"), kCFBooleanTrue);
        EXPECT_TRUE(Synchronize());
        alarm(10); // it would wait for the other one
        Set(CFSTR("b"), kCFBooleanTrue);
        EXPECT_TRUE(Synchronize());
        kill(sOther, SIGKILL);
        ResultOf(sOther);
    });
}

TEST_F(PreferenceFaults, AFolderThatIsReplacedWhileItsLockIsWaitedForIsLockedAnew)
{
    const std::string theFolder = PathInFolder("settings");
    const std::string theOldFolder = PathInFolder("old");
    setenv("XDG_CONFIG_HOME", theFolder.c_str(), 1);
    ASSERT_EQ(mkdir(theFolder.c_str(), 0700), 0);
    const int theOldLock = open(theFolder.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(theOldLock, LOCK_EX), 0);
    Pipe thePipe;
    const pid_t theProcess = StartProcess([this, &thePipe] {
        Set(CFSTR("a"), kCFBooleanTrue);
        thePipe.Write(1);
        const bool theIsWritten = Synchronize();
        thePipe.Write(2);
        return theIsWritten ? 0 : 1;
    });
    int theNumber = 0;
    ASSERT_TRUE(thePipe.Read(theNumber));
    WaitUntilLockedOut(theProcess);
    MoveFolder(theFolder, theOldFolder);
    ASSERT_EQ(mkdir(theFolder.c_str(), 0700), 0);
    const int theNewLock = open(theFolder.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(theNewLock, LOCK_EX), 0);
    ASSERT_EQ(flock(theOldLock, LOCK_UN), 0);
    WaitUntilLockedOut(theProcess);
    EXPECT_EQ(NamesIn(theFolder).size(), 0U);
    ASSERT_EQ(flock(theNewLock, LOCK_UN), 0);
    EXPECT_EQ(ResultOf(theProcess), 0);
    EXPECT_EQ(NamesIn(theFolder).size(), 1U);
    EXPECT_EQ(NamesIn(theOldFolder).size(), 0U);
    close(theOldLock);
    close(theNewLock);
}
