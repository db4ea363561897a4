// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AllocationFailures_h
#define AllocationFailures_h

#include <cstddef>

// Counts the allocations that a stretch of code makes, and lets a chosen one fail.
//
// The target LmAllocationFailures puts itself between the whole test program and its memory: malloc, calloc,
// realloc and operator new of the program and of every shared library that it uses. A failing malloc gives
// null, a failing operator new throws std::bad_alloc. It works under the sanitizers too.
//
//     AllocationFailures theFailures(1);      // the first allocation from here on fails
//     LmValue theValue(1.5);
//     theFailures.Stop();
//     EXPECT_FALSE(theValue.IsValid());
//
// Expectations allocate as well: stop before them. Only one object may be active at a time.
class AllocationFailures
{
public:
    // Nothing fails; only counts.
    AllocationFailures();

    // The allocation with this number fails, and only that one; 1 is the next one.
    explicit AllocationFailures(std::size_t theNumber);

    ~AllocationFailures();
    AllocationFailures(const AllocationFailures&) = delete;
    AllocationFailures& operator=(const AllocationFailures&) = delete;

    // Ends counting and failing; the destructor does so too.
    void Stop();

    // How many allocations there have been, failed ones included.
    std::size_t GetCount() const;

    // Whether the chosen allocation was reached.
    bool HasFailed() const;

private:
    std::size_t mCount = 0;
    bool mHasFailed = false;
};

// While one lives, every block that malloc gives is full of a byte: what nobody has written reads as that.
class DirtyMemory
{
public:
    explicit DirtyMemory(char theByte);
    ~DirtyMemory();
    DirtyMemory(const DirtyMemory&) = delete;
    DirtyMemory& operator=(const DirtyMemory&) = delete;
};

// Calls theAttempt with its first, second, third... allocation failing, until one attempt needs no more
// allocations than succeed. theAttempt(AllocationFailures&) does the work, calls Stop, and checks what must
// hold whether or not HasFailed. Returns how many attempts met a failure.
template <typename Attempt>
std::size_t FailEachAllocation(const Attempt& theAttempt)
{
    for (std::size_t theNumber = 1;; ++theNumber) {
        AllocationFailures theFailures(theNumber);
        theAttempt(theFailures);
        theFailures.Stop();
        if (!theFailures.HasFailed()) {
            return theNumber - 1;
        }
    }
}

#endif
