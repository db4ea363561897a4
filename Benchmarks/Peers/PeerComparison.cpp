// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// PeerComparison time|count|heap: does the same work with every library that was built in.
//
//   time    prints "time <tab> scenario <tab> peer <tab> nanoseconds" for one operation: the median of nine
//           repetitions, in which the peers take turns.
//   count   is run by callgrind, and lets it write one profile for each scenario and peer.
//   heap    prints "heap <tab> what <tab> peer <tab> bytes" in use, as malloc counts them.
//
// Each scenario has a process of its own, which begins as this one did, so that nobody works in a heap that
// the scenarios before have left in pieces.
//
// Each job says at its end whether the work was really done; if it was not, nothing is printed and the
// program fails.

#include "Peer.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

namespace {

// One scenario in one library's hands.
class Job
{
public:
    virtual ~Job() = default;
    virtual void Step() = 0;
    virtual bool IsRight() const = 0;

    // How many of the operations that the scenario asks about one step does.
    virtual std::size_t GetOperations() const { return 1; }
};

class SetJob final : public Job
{
public:
    SetJob(std::unique_ptr<PeerStore> theStore, std::size_t theCallsPerStep)
        : mStore(std::move(theStore)),
          mCallsPerStep(theCallsPerStep)
    {
    }
    void Step() override { mStore->Set(++mSteps); }
    bool IsRight() const override
    {
        return mStore->GetCalls() == static_cast<std::size_t>(mSteps) * mCallsPerStep;
    }

private:
    std::unique_ptr<PeerStore> mStore;
    std::size_t mCallsPerStep;
    long mSteps = 0;
};

enum class Shape
{
    kChain,
    kFanOut
};

// Objects 1, 2... follow the one before, or all of them the first one.
class ChangeJob final : public Job
{
public:
    ChangeJob(std::unique_ptr<PeerGraph> theGraph, std::size_t theFollowers, Shape theShape, Hop theHop)
        : mGraph(std::move(theGraph)),
          mFollowers(theFollowers),
          mFactor(theHop == Hop::kScaled ? 2 : 1)
    {
        mGraph->Set(0, 0);
        for (std::size_t theTarget = 1; theTarget <= theFollowers; ++theTarget) {
            mGraph->Bind(theShape == Shape::kChain ? theTarget - 1 : 0, theTarget);
        }
    }
    void Step() override { mGraph->Set(0, ++mSteps); }
    bool IsRight() const override
    {
        return mGraph->Get(0) == static_cast<double>(mSteps) &&
               mGraph->Get(mFollowers) == static_cast<double>(mSteps) * mFactor;
    }

private:
    std::unique_ptr<PeerGraph> mGraph;
    std::size_t mFollowers;
    double mFactor;
    long mSteps = 0;
};

// Pairs of objects, bound both ways and unbound.
class PairsJob final : public Job
{
public:
    PairsJob(std::unique_ptr<PeerGraph> theGraph, std::size_t thePairs)
        : mGraph(std::move(theGraph)),
          mPairs(thePairs)
    {
        for (std::size_t theObject = 0; theObject < 2 * mPairs; ++theObject) {
            mGraph->Set(theObject, 1);
        }
    }
    void Step() override
    {
        for (std::size_t thePair = 0; thePair < mPairs; ++thePair) {
            mGraph->Bind(2 * thePair, 2 * thePair + 1);
        }
        mGraph->Set(2 * mPairs - 2, ++mSteps);
        for (std::size_t thePair = 0; thePair < mPairs; ++thePair) {
            mGraph->Unbind(2 * thePair, 2 * thePair + 1);
        }
        mGraph->Set(2 * mPairs - 2, -mSteps);
    }
    bool IsRight() const override { return mGraph->Get(2 * mPairs - 1) == static_cast<double>(mSteps); }
    std::size_t GetOperations() const override { return mPairs; }

private:
    std::unique_ptr<PeerGraph> mGraph;
    std::size_t mPairs;
    long mSteps = 0;
};

struct Scenario
{
    const char* theName;
    long theCountedSteps; // when instructions are counted
    std::function<std::unique_ptr<Job>(const Peer&)> theFactory;
};

std::function<std::unique_ptr<Job>(const Peer&)> Setting(const StoreShape& theShape)
{
    return [theShape](const Peer& thePeer) -> std::unique_ptr<Job> {
        std::unique_ptr<PeerStore> theStore = thePeer.MakeStore(theShape);
        if (!theStore) {
            return nullptr;
        }
        return std::make_unique<SetJob>(std::move(theStore),
                                        theShape.theObservers * thePeer.GetCallsPerChange());
    };
}

std::function<std::unique_ptr<Job>(const Peer&)> Changing(std::size_t theFollowers, Shape theShape,
                                                          Hop theHop)
{
    return [=](const Peer& thePeer) -> std::unique_ptr<Job> {
        std::unique_ptr<PeerGraph> theGraph = thePeer.MakeGraph(theFollowers + 1, theHop);
        if (!theGraph) {
            return nullptr;
        }
        return std::make_unique<ChangeJob>(std::move(theGraph), theFollowers, theShape, theHop);
    };
}

std::unique_ptr<Job> MakePairs(const Peer& thePeer)
{
    constexpr std::size_t kPairs = 10000;
    std::unique_ptr<PeerGraph> theGraph = thePeer.MakeGraph(2 * kPairs, Hop::kTwoWay);
    if (!theGraph) {
        return nullptr;
    }
    return std::make_unique<PairsJob>(std::move(theGraph), kPairs);
}

const std::array<Scenario, 15> kScenarios = {{
    {"set an integer, no observer", 1000, Setting({Payload::kInteger, 10, 0})},
    {"set an integer, 1 observer", 1000, Setting({Payload::kInteger, 10, 1})},
    {"set an integer, 10 observers", 1000, Setting({Payload::kInteger, 10, 10})},
    {"set one of 1,000 keys, 1 observer", 1000, Setting({Payload::kInteger, 1000, 1})},
    {"set one of 100,000 keys, 1 observer", 1000, Setting({Payload::kInteger, 100000, 1})},
    {"set a double, 1 observer", 1000, Setting({Payload::kDouble, 10, 1})},
    {"set a string of 20, 1 observer", 1000, Setting({Payload::kText, 10, 1})},
    {"one hop, one way", 1000, Changing(1, Shape::kChain, Hop::kOneWay)},
    {"one hop, both ways", 1000, Changing(1, Shape::kChain, Hop::kTwoWay)},
    {"one hop, scaled, both ways", 1000, Changing(1, Shape::kChain, Hop::kScaled)},
    {"a chain of 100, one way", 20, Changing(100, Shape::kChain, Hop::kOneWay)},
    {"a chain of 100, both ways", 20, Changing(100, Shape::kChain, Hop::kTwoWay)},
    {"a fan-out of 1,000, one way", 3, Changing(1000, Shape::kFanOut, Hop::kOneWay)},
    {"a fan-out of 1,000, both ways", 3, Changing(1000, Shape::kFanOut, Hop::kTwoWay)},
    {"make and undo a two-way binding, 10,000 of them", 1, MakePairs},
}};

[[noreturn]] void Fail(const Scenario& theScenario, const Peer& thePeer)
{
    std::fprintf(stderr, "%s: %s did not do the work\n", theScenario.theName, thePeer.GetName());
    std::exit(EXIT_FAILURE);
}

void RunSteps(Job& theJob, long theSteps)
{
    for (long theStep = 0; theStep < theSteps; ++theStep) {
        theJob.Step();
    }
}

// Of the processor's time, so that other programs disturb little.
double SecondsFor(Job& theJob, long theSteps)
{
    const std::clock_t theStart = std::clock();
    RunSteps(theJob, theSteps);
    return static_cast<double>(std::clock() - theStart) / CLOCKS_PER_SEC;
}

struct Contender
{
    const Peer* thePeer;
    std::unique_ptr<Job> theJob;
    long theSteps;
    std::vector<double> theNanoseconds;
};

std::vector<Contender> ContendersOf(const Scenario& theScenario)
{
    std::vector<Contender> theContenders;
    for (const Peer* thePeer : AllPeers()) {
        if (std::unique_ptr<Job> theJob = theScenario.theFactory(*thePeer)) {
            theContenders.push_back({thePeer, std::move(theJob), 1, {}});
        }
    }
    return theContenders;
}

void MeasureTime(const Scenario& theScenario)
{
    constexpr int kRepetitions = 9;
    constexpr double kLongEnough = 0.004;
    std::vector<Contender> theContenders = ContendersOf(theScenario);
    for (Contender& theContender : theContenders) {
        while (SecondsFor(*theContender.theJob, theContender.theSteps) < kLongEnough) {
            theContender.theSteps *= 2;
        }
    }
    for (int theRepetition = 0; theRepetition < kRepetitions; ++theRepetition) {
        for (Contender& theContender : theContenders) {
            const double theSeconds = SecondsFor(*theContender.theJob, theContender.theSteps);
            const auto theOperations = static_cast<double>(theContender.theSteps) *
                                       static_cast<double>(theContender.theJob->GetOperations());
            theContender.theNanoseconds.push_back(theSeconds * 1e9 / theOperations);
        }
    }
    for (Contender& theContender : theContenders) {
        if (!theContender.theJob->IsRight()) {
            Fail(theScenario, *theContender.thePeer);
        }
        std::vector<double>& theTimes = theContender.theNanoseconds;
        std::sort(theTimes.begin(), theTimes.end());
        std::printf("time\t%s\t%s\t%.1f\n", theScenario.theName, theContender.thePeer->GetName(),
                    theTimes[theTimes.size() / 2]);
    }
}

void CountInstructions(const Scenario& theScenario)
{
    for (Contender& theContender : ContendersOf(theScenario)) {
        Job& theJob = *theContender.theJob;
        RunSteps(theJob, 2);
        CALLGRIND_START_INSTRUMENTATION;
        CALLGRIND_ZERO_STATS;
        RunSteps(theJob, theScenario.theCountedSteps);
        CALLGRIND_STOP_INSTRUMENTATION;
        if (!theJob.IsRight()) {
            Fail(theScenario, *theContender.thePeer);
        }
        const std::size_t theOperations =
            theJob.GetOperations() * static_cast<std::size_t>(theScenario.theCountedSteps);
        const std::string theTitle = std::string(theScenario.theName) + '\t' +
                                     theContender.thePeer->GetName() + '\t' + std::to_string(theOperations);
        CALLGRIND_DUMP_STATS_AT(theTitle.c_str());
    }
}

std::size_t BytesInUse()
{
    return mallinfo2().uordblks;
}

// What theWork leaves in use.
template <typename Work>
std::size_t BytesLeftBy(const Work& theWork)
{
    const std::size_t theBefore = BytesInUse();
    theWork();
    return BytesInUse() - theBefore;
}

void PrintBytes(const char* theWhat, const Peer& thePeer, std::size_t theBytes, std::size_t theCount)
{
    std::printf("heap\t%s\t%s\t%.0f\n", theWhat, thePeer.GetName(),
                static_cast<double>(theBytes) / static_cast<double>(theCount));
}

// How many bytes a store of theLarge takes more than one of theSmall. Each is made twice, and the second time
// counts: what a class is made of stays when its objects go.
std::size_t BytesBetween(const Peer& thePeer, const StoreShape& theSmall, const StoreShape& theLarge)
{
    std::size_t theBytes[2] = {};
    for (int theRound = 0; theRound < 2; ++theRound) {
        std::unique_ptr<PeerStore> theStore;
        theBytes[0] = BytesLeftBy([&] { theStore = thePeer.MakeStore(theSmall); });
        theStore.reset();
        theBytes[1] = BytesLeftBy([&] { theStore = thePeer.MakeStore(theLarge); });
    }
    return theBytes[1] - theBytes[0];
}

void MeasureHeap(const Peer& thePeer)
{
    constexpr std::size_t kMany = 1000;
    const StoreShape kSmall = {Payload::kInteger, 10, 0};
    const StoreShape kManyKeys = {Payload::kInteger, kMany, 0};
    const StoreShape kManyObservers = {Payload::kInteger, 10, kMany};
    if (thePeer.MakeStore(kManyKeys)) {
        PrintBytes("a key with an integer", thePeer, BytesBetween(thePeer, kSmall, kManyKeys), kMany - 10);
    }
    if (thePeer.MakeStore(kManyObservers)) {
        PrintBytes("an observer and its registration", thePeer, BytesBetween(thePeer, kSmall, kManyObservers),
                   kMany);
    }
    if (std::unique_ptr<PeerGraph> theGraph = thePeer.MakeGraph(2 * kMany, Hop::kTwoWay)) {
        for (std::size_t theObject = 0; theObject < 2 * kMany; ++theObject) {
            theGraph->Set(theObject, 1);
        }
        theGraph->Bind(0, 1);
        PrintBytes("a two-way binding", thePeer, BytesLeftBy([&] {
                       for (std::size_t thePair = 1; thePair < kMany; ++thePair) {
                           theGraph->Bind(2 * thePair, 2 * thePair + 1);
                       }
                   }),
                   kMany - 1);
    }
}

template <typename Measure>
void MeasureEachInItsOwnProcess(const Measure& theMeasure)
{
    for (const Scenario& theScenario : kScenarios) {
        const pid_t theChild = fork();
        if (theChild == 0) {
            theMeasure(theScenario);
            std::fflush(stdout);
            _exit(EXIT_SUCCESS);
        }
        int theStatus = EXIT_FAILURE;
        if (waitpid(theChild, &theStatus, 0) != theChild || theStatus != EXIT_SUCCESS) {
            std::exit(EXIT_FAILURE);
        }
    }
}

} // namespace

int main(int theCount, char** theArguments)
{
    const char* const theMode = theCount == 2 ? theArguments[1] : "";
    if (std::strcmp(theMode, "time") == 0) {
        MeasureEachInItsOwnProcess(MeasureTime);
    } else if (std::strcmp(theMode, "count") == 0) {
        MeasureEachInItsOwnProcess(CountInstructions);
    } else if (std::strcmp(theMode, "heap") == 0) {
        for (const Peer* thePeer : AllPeers()) {
            MeasureHeap(*thePeer);
        }
    } else {
        std::fprintf(stderr, "usage: PeerComparison time|count|heap\n");
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
