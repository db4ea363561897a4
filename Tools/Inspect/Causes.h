// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Causes_h
#define Causes_h

// What led to an entry. Causes nest as calls do: whatever led to an entry has not ended yet when the entry is
// written. So those that have not ended are all that must be kept, however long the journal is.

#include "Entry.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace Inspect {

class Causes
{
public:
    // More causes than that are not kept; a set that is nested in itself ends far before.
    static constexpr std::size_t kDeepest = 20000;
    // More threads than that are not told apart.
    static constexpr std::size_t kMostThreads = 64;

    struct Step
    {
        Entry theEntry;
        Entry theWatched;        // of an entry "told": the change of the key that the told one depends on
        bool hasWatched = false; // whether that is known
        bool isMarked = false;   // for who uses this
    };

    // theEntry is the next one of the journal.
    void Take(const Entry& theEntry);

    // What led to the entry that was taken last, the first cause first; that entry itself is the last step.
    std::size_t Count() const { return mThread->theDepth; }
    Step& At(std::size_t theIndex) { return mThread->theSteps[theIndex]; }
    const Step& At(std::size_t theIndex) const { return mThread->theSteps[theIndex]; }
    const Step& Last() const { return At(Count() - 1); }
    std::vector<Step> Copy() const;

    // Whether the first cause is known: false when the entry's cause is in none of what was read.
    bool IsComplete() const { return mThread->isComplete; }

private:
    struct Thread
    {
        std::vector<Step> theSteps; // those behind theDepth have ended; kept, so that they are used again
        std::size_t theDepth = 0;
        std::size_t theFilled = 0; // how many of theSteps have the step before them as their cause
        bool isComplete = true;
    };

    static std::size_t DepthOf(const Thread& theThread, std::uint64_t theCause);
    static void Watch(Step& theEarlier, Step& theStep);

    std::map<std::uint32_t, Thread> mThreads;
    Thread* mThread = nullptr;
};

} // namespace Inspect

#endif
