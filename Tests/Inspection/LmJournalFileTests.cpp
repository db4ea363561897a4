// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"

#include "LmKeyValueStore.h"

#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// A variable of the environment while this lives.
class Variable
{
public:
    Variable(const char* theName, const std::string& theValue)
        : mName(theName)
    {
        setenv(theName, theValue.c_str(), 1);
    }
    ~Variable() { unsetenv(mName); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* mName;
};

// A program that writes no journal unless its environment says so, in a process of its own, with its standard
// input and output at hand.
class Program
{
public:
    explicit Program(const char* theSets)
    {
        EXPECT_EQ(pipe(mInput), 0);
        EXPECT_EQ(pipe(mOutput), 0);
        mProcess = fork();
        if (mProcess == 0) {
            dup2(mInput[0], STDIN_FILENO);
            dup2(mOutput[1], STDOUT_FILENO);
            close(mInput[1]);
            close(mOutput[0]);
            std::vector<const char*> theCommand = {LM_JOURNAL_COMMAND};
            theCommand.insert(theCommand.end(), {theSets, "wait", nullptr});
            execvp(theCommand.front(), const_cast<char* const*>(theCommand.data()));
            _exit(127);
        }
        close(mInput[0]);
        close(mOutput[1]);
    }
    ~Program()
    {
        close(mInput[1]);
        close(mOutput[0]);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    std::string ReadAll() const
    {
        std::string theText;
        char theByte = 0;
        while (read(mOutput[0], &theByte, 1) == 1) {
            theText += theByte;
        }
        return theText;
    }

    void AwaitLine() const
    {
        char theByte = 0;
        while (read(mOutput[0], &theByte, 1) == 1 && theByte != '\n') {
        }
    }

    void LetGo()
    {
        close(mInput[1]);
        mInput[1] = -1;
    }

    int End() const
    {
        int theStatus = 0;
        waitpid(mProcess, &theStatus, 0);
        return theStatus;
    }

    bool IsRunning() const
    {
        siginfo_t theEnd = {};
        return waitid(P_PID, static_cast<id_t>(mProcess), &theEnd, WEXITED | WNOHANG | WNOWAIT) == 0 &&
               theEnd.si_pid == 0;
    }

    void Kill() const { kill(mProcess, SIGKILL); }

private:
    int mInput[2] = {-1, -1};
    int mOutput[2] = {-1, -1};
    pid_t mProcess = -1;
};

bool HasKind(const std::string& theLine, const char* theKind)
{
    return theLine.find(std::string("\"what\":\"") + theKind + "\"") != std::string::npos;
}

// Files cannot grow beyond that while this lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t theSize)
        : mHandler(::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &mSaved);
        const rlimit theLimit = {theSize, mSaved.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &theLimit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &mSaved);
        ::signal(SIGXFSZ, mHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*mHandler)(int);
    rlimit mSaved = {};
};

rlim_t SizeOf(const std::string& thePath)
{
    struct stat theStatus = {};
    return ::stat(thePath.c_str(), &theStatus) == 0 ? static_cast<rlim_t>(theStatus.st_size) : 0;
}

// The number behind theField.
std::uint64_t NumberIn(const std::string& theLine, const std::string& theField)
{
    const std::size_t thePlace = theLine.find(theField);
    return thePlace == std::string::npos
               ? 0
               : std::strtoull(theLine.c_str() + thePlace + theField.size(), nullptr, 10);
}

} // namespace

TEST(LmJournalFile, IsWrittenFromTheEnvironmentForAProgramThatKnowsNothingOfIt)
{
    const JournalFolder theFolder;
    const Variable theFile("LM_JOURNAL", theFolder.GetPath("journal"));
    Program theProgram("2");
    theProgram.AwaitLine();
    theProgram.LetGo();
    EXPECT_EQ(theProgram.End(), 0);
    const Lines theLines = ReadJournalLines(theFolder.GetPath("journal"));
    const char* const kKinds[] = {"begin",    "made",    "changing",  "changed",
                                  "changing", "changed", "destroyed", "end"};
    ASSERT_EQ(theLines.size(), std::size(kKinds));
    for (std::size_t theIndex = 0; theIndex < theLines.size(); ++theIndex) {
        EXPECT_TRUE(HasKind(theLines[theIndex], kKinds[theIndex])) << theLines[theIndex];
    }
}

TEST(LmJournalFile, HoldsEveryEntryOfAProgramThatIsKilled)
{
    const JournalFolder theFolder;
    const Variable theFile("LM_JOURNAL", theFolder.GetPath("journal"));
    const Program theProgram("1000");
    theProgram.AwaitLine();
    theProgram.Kill();
    EXPECT_TRUE(WIFSIGNALED(theProgram.End()));
    const Lines theLines = ReadJournalLines(theFolder.GetPath("journal"));
    ASSERT_EQ(theLines.size(), 2002U);
    EXPECT_NE(theLines.back().find(R"("what":"changed",)"), std::string::npos);
    EXPECT_NE(theLines.back().find(R"("is":{"kind":"sint32","value":1000})"), std::string::npos);
}

TEST(LmJournalFile, IsReadableWheneverTheProgramIsKilled)
{
    const JournalFolder theFolder;
    const Variable theFile("LM_JOURNAL", theFolder.GetPath("journal"));
    const Program theProgram("2000000000");
    // In the midst of writing: as soon as there is something.
    while (theProgram.IsRunning() && ReadJournalLines(theFolder.GetPath("journal")).size() < 100) {
    }
    theProgram.Kill();
    EXPECT_TRUE(WIFSIGNALED(theProgram.End()));
    int theNumber = 1;
    for (const std::string& theLine : ReadJournalLines(theFolder.GetPath("journal"))) {
        EXPECT_EQ(std::stoi(theLine.substr(5)), theNumber++);
        EXPECT_EQ(theLine.back(), '}');
    }
}

TEST(LmJournalFile, GoesToTheStandardOutputStream)
{
    const Variable theFile("LM_JOURNAL", "-");
    Program theProgram("1");
    theProgram.LetGo();
    const std::string theText = theProgram.ReadAll();
    EXPECT_EQ(theProgram.End(), 0);
    EXPECT_EQ(theText.find(R"({"n":1,)"), 0U);
    EXPECT_NE(theText.find("}\ndone\n{"), std::string::npos);
    EXPECT_NE(theText.find(R"("what":"end","lost":0})"), std::string::npos);
}

TEST(LmJournalFile, TakesItsSettingsFromTheEnvironment)
{
    const JournalFolder theFolder;
    const Variable theFile("LM_JOURNAL", theFolder.GetPath("journal"));
    const Variable theStrings("LM_JOURNAL_STRINGS", "4"); // fewer than there are at least
    const Variable theCallers("LM_JOURNAL_CALLERS", "1000");
    const Variable theLimit("LM_JOURNAL_LIMIT", "2K");
    LmBeginJournalFromEnvironment();
    LmKeyValueStore theStore;
    for (int theCount = 0; theCount < 50; ++theCount) {
        theStore.NotifyObservers("volume", true);
    }
    LmEndJournal();
    const Lines theLines = ReadJournalLines(theFolder.GetPath("journal"));
    EXPECT_NE(theLines.front().find(R"("strings":16,"callerLimit":64,)"), std::string::npos)
        << theLines.front();
    EXPECT_EQ(theLines.front().find(R"({"n":1,)"), std::string::npos);
}

TEST(LmJournalFile, IsNotBegunWithASettingThatIsNoNumber)
{
    const JournalFolder theFolder;
    const Variable theFile("LM_JOURNAL", theFolder.GetPath("journal"));
    for (const char* theText :
         {"many", "-1", " 1", "1T", "1KK", "99999999999999999999", "18014398509481984G"}) {
        const Variable theLimit("LM_JOURNAL_LIMIT", theText);
        LmBeginJournalFromEnvironment();
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
                  Lines{std::string("Source/Inspection/LmJournalFile.cpp, line #: LM_JOURNAL_LIMIT: ") +
                        theText + " is no number"});
        EXPECT_NE(access(theFolder.GetPath("journal").c_str(), F_OK), 0);
    }
}

TEST(LmJournalFile, IsNotBegunAgainWhileThereIsOne)
{
    const JournalFolder theFolder;
    TestJournal theJournal;
    const Variable theFile("LM_JOURNAL", theFolder.GetPath("journal"));
    LmBeginJournalFromEnvironment();
    EXPECT_NE(access(theFolder.GetPath("journal").c_str(), F_OK), 0);
    EXPECT_EQ(theJournal.Take(), Lines());
}

TEST(LmJournalFile, SaysWhenItCannotBeWritten)
{
    LmJournalSettings theSettings;
    theSettings.theFile = "/nowhere/at/all";
    EXPECT_FALSE(LmBeginJournal(theSettings));
    EXPECT_EQ(
        StandardErrorCapture::TakeDiagnostics(),
        Lines{"Source/Inspection/LmJournalFile.cpp, line #: The journal /nowhere/at/all cannot be written"});
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(1));
}

TEST(LmJournalFile, SaysHowManyEntriesWereLostWhileTheDiskHadNoRoom)
{
    TestJournal theJournal;
    LmKeyValueStore theStore;
    theStore.NotifyObservers("volume", true);
    theJournal.Take();
    {
        // There is room for one entry and a part of the next one.
        const FileSizeLimit theLimit(SizeOf(theJournal.GetPath()) + 200);
        for (int theCount = 0; theCount < 10; ++theCount) {
            theStore.NotifyObservers("volume", true);
        }
    }
    theStore.NotifyObservers("volume", true);
    LmEndJournal();
    const Lines theLines = theJournal.Take();
    // The last one before, what was begun of the next one, what was lost, one more, and the end.
    ASSERT_EQ(theLines.size(), 5U);
    const std::uint64_t theLost = NumberIn(theLines[2], R"("count":)");
    EXPECT_GE(theLost, 9U);
    EXPECT_EQ(NumberIn(theLines[2], R"("n":)"), NumberIn(theLines[0], R"("n":)") + theLost + 1);
    EXPECT_NE(theLines[3].find(R"("what":"notify")"), std::string::npos) << theLines[3];
    EXPECT_EQ(NumberIn(theLines[4], R"("lost":)"), theLost);
}

TEST(LmJournalFile, LetsTheProgramGoOnWhenTheDiskHasNoRoom)
{
    LmJournalSettings theSettings;
    theSettings.theFile = "/dev/full";
    EXPECT_TRUE(LmBeginJournal(theSettings));
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(1));
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetSInt32(), 1);
    LmEndJournal();
}
