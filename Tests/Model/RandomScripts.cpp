// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Plays random scripts on the library and on the reference model, and compares what each does. The first
// script with a difference is shrunk and printed, with both transcripts and the seed that plays it again.

#include "OtherProcess.h"
#include "ScriptMaker.h"
#include "ScriptTrial.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

namespace {

using namespace Model;

// What a process that plays scripts returns.
constexpr int kSame = 0;
constexpr int kDifferent = 2;

struct Options
{
    std::uint64_t theScripts = 1000;
    std::uint64_t theSeed = 1;
};

// How far the process that plays the scripts has come: both processes see it.
struct Progress
{
    std::uint64_t theSeed;
    std::uint64_t theScripts;
};

void PrintUsage(FILE* theStream)
{
    std::fputs(
        "usage: randomScripts [--scripts N] [--seed S | --fresh]\n"
        "  plays random scripts on the library and on a model of it, and prints the first one that the\n"
        "  two do not play alike, as small as it can be made; then the result is 1\n"
        "  --scripts N  how many; 1000 unless said otherwise\n"
        "  --seed S     the seed of the first script, S + 1 is that of the second; 1 unless said otherwise\n"
        "  --fresh      seeds that nobody has chosen\n",
        theStream);
}

bool ReadNumber(const char* theText, std::uint64_t& theNumber)
{
    char* theEnd = nullptr;
    theNumber = theText == nullptr ? 0 : std::strtoull(theText, &theEnd, 10);
    return theText != nullptr && theEnd != theText && *theEnd == '\0';
}

bool ReadOptions(char** theArguments, Options& theOptions)
{
    for (; *theArguments != nullptr; ++theArguments) {
        if (std::strcmp(*theArguments, "--fresh") == 0) {
            std::random_device theDevice;
            theOptions.theSeed = (std::uint64_t{theDevice()} << 32U) | theDevice();
        } else if (std::strcmp(*theArguments, "--scripts") == 0) {
            if (!ReadNumber(*++theArguments, theOptions.theScripts)) {
                return false;
            }
        } else if (std::strcmp(*theArguments, "--seed") != 0 ||
                   !ReadNumber(*++theArguments, theOptions.theSeed)) {
            return false;
        }
    }
    return true;
}

int PlayScript(const Script& theScript)
{
    Script theSettled = theScript;
    const std::string theExpected = PlayOnModel(theSettled);
    return PlayOnLibrary(theSettled, false) == theExpected ? kSame : kDifferent;
}

int PlayScripts(const Options& theOptions, Progress& theProgress)
{
    for (theProgress.theScripts = 0; theProgress.theScripts < theOptions.theScripts;
         ++theProgress.theScripts) {
        theProgress.theSeed = theOptions.theSeed + theProgress.theScripts;
        StartTimer();
        if (PlayScript(MakeScript(theProgress.theSeed)) != kSame) {
            return kDifferent;
        }
    }
    return kSame;
}

// Also when one side does not come to the end.
bool IsDifferent(const Script& theScript)
{
    return DoInOtherProcess([&] { return PlayScript(theScript); }) != kSame;
}

std::vector<std::string> LinesOf(const std::string& theText)
{
    std::vector<std::string> theLines;
    std::istringstream theStream(theText);
    for (std::string theLine; std::getline(theStream, theLine);) {
        theLines.push_back(theLine);
    }
    return theLines;
}

// The transcript of the library, in a process of its own, which may not come to the end.
std::string TryOnLibrary(const Script& theScript)
{
    FILE* const theFile = std::tmpfile();
    const int theResult = DoInOtherProcess([&] {
        dup2(fileno(theFile), STDOUT_FILENO);
        PlayOnLibrary(theScript, true);
        return kSame;
    });
    std::string theText;
    std::rewind(theFile);
    for (int theByte = std::fgetc(theFile); theByte != EOF; theByte = std::fgetc(theFile)) {
        theText += static_cast<char>(theByte);
    }
    std::fclose(theFile);
    return theResult == kSame ? theText : theText + "    and the program ends\n";
}

// The lines around the first one that is different, which is marked.
void PrintTranscript(const char* theName, const std::vector<std::string>& theLines, std::size_t theDifferent)
{
    constexpr std::size_t kAround = 60;
    const std::size_t theFirst = theDifferent < kAround ? 0 : theDifferent - kAround;
    const std::size_t theEnd = std::min(theLines.size(), theDifferent + kAround);
    std::printf("%s\n", theName);
    if (theFirst > 0) {
        std::printf("    ... %zu lines before\n", theFirst);
    }
    for (std::size_t theIndex = theFirst; theIndex < theEnd; ++theIndex) {
        const std::string& theLine = theLines[theIndex];
        std::printf("%s%s\n", theIndex == theDifferent ? "==>" : "   ",
                    theLine.c_str() + std::min<std::size_t>(3, theLine.size()));
    }
    if (theEnd < theLines.size()) {
        std::printf("    ... %zu lines more\n", theLines.size() - theEnd);
    }
}

void PrintDifference(std::uint64_t theSeed)
{
    const Script theScript = MakeScript(theSeed);
    if (!IsDifferent(theScript)) {
        std::puts("The script alone makes no difference; it takes those before it.");
        return;
    }
    Script theShrunk = Shrink(theScript, &IsDifferent);
    std::string theExpected;
    DoOnLargeStack([&] {
        theExpected = PlayOnModel(theShrunk);
        return kSame;
    });
    const std::vector<std::string> theModels = LinesOf(theExpected);
    const std::vector<std::string> theLibrarys = LinesOf(TryOnLibrary(theShrunk));
    std::size_t theDifferent = 0;
    while (theDifferent < theModels.size() && theDifferent < theLibrarys.size() &&
           theModels[theDifferent] == theLibrarys[theDifferent]) {
        ++theDifferent;
    }
    std::printf("%s\n", DescribeScript(theShrunk).c_str());
    PrintTranscript("The model", theModels, theDifferent);
    PrintTranscript("\nThe library", theLibrarys, theDifferent);
}

unsigned long long Printable(std::uint64_t theNumber)
{
    return theNumber;
}

// What comes out of other scripts than the first different one is not looked at.
int Run(const Options& theOptions)
{
    void* const theShared =
        mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (theShared == MAP_FAILED) {
        std::perror("There is no memory for the progress");
        return 1;
    }
    Progress& theProgress = *static_cast<Progress*>(theShared);
    const int theResult = DoInOtherProcess([&] { return PlayScripts(theOptions, theProgress); });
    if (theResult == kSame) {
        std::printf("%llu scripts, the first with the seed %llu: the library does what the model does\n",
                    Printable(theOptions.theScripts), Printable(theOptions.theSeed));
        return 0;
    }
    if (theProgress.theScripts == theOptions.theScripts) {
        std::puts("The library does what the model does, but something is left behind.");
        return 1;
    }
    std::printf("After %llu scripts a difference: randomScripts --seed %llu --scripts 1\n\n",
                Printable(theProgress.theScripts), Printable(theProgress.theSeed));
    PrintDifference(theProgress.theSeed);
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
        PrintUsage(stdout);
        return 0;
    }
    Options theOptions;
    if (!ReadOptions(argv + 1, theOptions)) {
        PrintUsage(stderr);
        return 2;
    }
    return Run(theOptions);
}
