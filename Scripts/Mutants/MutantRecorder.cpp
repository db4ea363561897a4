// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Part of every test program whose sources Scripts/Mutants.py has written anew.
//
// With LM_MUTANTS_CASES in the environment it writes a line for each case to that file: its name, its milliseconds and
// the faults that it reached.
//
// With LM_MUTANTS_SERVED the program runs its tests again and again, each time in a process of its own that begins
// where this one is loaded: for each line that it reads, the number of a fault, a limit of seconds and a filter, it
// starts one, and prints the process and, at its end, the status that wait gives.

#include "LmMutant.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr rlim_t kMostMemory = rlim_t{2} << 30U;

class Recorder : public testing::EmptyTestEventListener
{
public:
    explicit Recorder(const char* thePath)
        : mFile(fopen(thePath, "w"))
    {
    }

    ~Recorder() override
    {
        if (mFile != nullptr) {
            fclose(mFile);
        }
    }

    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // What is reached while the program is loaded belongs to every case, and is noted without a name.
    void OnTestProgramStart(const testing::UnitTest& /*theTest*/) override { Write("", 0); }

    void OnTestStart(const testing::TestInfo& /*theTest*/) override
    {
        memset(gLmMutantsReached, 0, LM_MUTANT_COUNT);
    }

    void OnTestEnd(const testing::TestInfo& theTest) override
    {
        if (!theTest.result()->Skipped()) {
            const std::string theName = std::string(theTest.test_suite_name()) + '.' + theTest.name();
            Write(theName.c_str(), theTest.result()->elapsed_time());
        }
    }

private:
    void Write(const char* theName, testing::TimeInMillis theTime)
    {
        if (mFile == nullptr) {
            return;
        }
        fprintf(mFile, "%s\t%lld\t", theName, static_cast<long long>(theTime));
        for (unsigned theNumber = 0; theNumber < LM_MUTANT_COUNT; ++theNumber) {
            if (gLmMutantsReached[theNumber] != 0) {
                fprintf(mFile, "%u ", theNumber);
            }
        }
        fputc('\n', mFile);
        // A process that is forked off must not write it once more at its end.
        fflush(mFile);
    }

    FILE* mFile;
};

void LimitTo(int theResource, rlim_t theLimit)
{
    const rlimit theLimits = {theLimit, theLimit + 1};
    setrlimit(theResource, &theLimits);
}

// The sanitizer has taken most of the addresses already.
rlim_t TakenMemory()
{
    unsigned long long thePages = 0;
    FILE* theFile = fopen("/proc/self/statm", "r");
    if (theFile != nullptr) {
        if (fscanf(theFile, "%llu", &thePages) != 1) {
            thePages = 0;
        }
        fclose(theFile);
    }
    return thePages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

// In the process that runs the tests: what they shall be.
void Prepare(unsigned theMutant, unsigned theSeconds, const std::string& theFilter)
{
    setpgid(0, 0);
    LimitTo(RLIMIT_CPU, theSeconds);
    LimitTo(RLIMIT_AS, TakenMemory() + kMostMemory);
    gLmMutant = theMutant;
    // The framework's own variables get their values later than this.
    setenv("GTEST_FILTER", theFilter.c_str(), 1);
    setenv("GTEST_FAIL_FAST", "1", 1);
    setenv("GTEST_BRIEF", "1", 1);
    // What they print is for nobody's eyes but those of a person who asks about one.
    const char* theOutput = getenv("LM_MUTANTS_SERVED");
    if (freopen(theOutput, "w", stdout) == nullptr || freopen("/dev/null", "r", stdin) == nullptr) {
        _exit(3);
    }
    dup2(STDOUT_FILENO, STDERR_FILENO);
    // Programs that a case starts have the fault as well, and serve nobody.
    setenv("LM_MUTANT", std::to_string(theMutant).c_str(), 1);
    unsetenv("LM_MUTANTS_SERVED");
}

// Returns in each of the processes that run tests.
void Serve()
{
    for (std::string theLine; std::getline(std::cin, theLine);) {
        unsigned theMutant = 0;
        unsigned theSeconds = 0;
        int theStart = 0;
        if (sscanf(theLine.c_str(), "%u %u %n", &theMutant, &theSeconds, &theStart) != 2) {
            _exit(3);
        }
        const pid_t theProcess = fork();
        if (theProcess == 0) {
            Prepare(theMutant, theSeconds, theLine.substr(static_cast<size_t>(theStart)));
            return;
        }
        int theStatus = 0;
        printf("%d\n", theProcess);
        fflush(stdout);
        waitpid(theProcess, &theStatus, 0);
        printf("%d\n", theStatus);
        fflush(stdout);
    }
    _exit(0);
}

bool Listen()
{
    if (getenv("LM_MUTANTS_SERVED") != nullptr) {
        Serve();
    }
    const char* thePath = getenv("LM_MUTANTS_CASES");
    if (thePath != nullptr) {
        testing::UnitTest::GetInstance()->listeners().Append(new Recorder(thePath));
        unsetenv("LM_MUTANTS_CASES");
    }
    return true;
}

const bool gIsListening = Listen();

} // namespace
