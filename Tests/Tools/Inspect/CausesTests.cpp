// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Causes.h"

#include <gtest/gtest.h>

using Inspect::Causes;
using Inspect::Entry;
using Inspect::What;

namespace {

Entry MakeEntry(std::uint64_t theNumber, std::uint64_t theCause, std::uint32_t theThread = 1)
{
    Entry theEntry;
    theEntry.theNumber = theNumber;
    theEntry.theCause = theCause;
    theEntry.theThread = theThread;
    return theEntry;
}

std::vector<std::uint64_t> Chain(const Causes& theCauses)
{
    std::vector<std::uint64_t> theNumbers;
    for (std::size_t theIndex = 0; theIndex < theCauses.Count(); ++theIndex) {
        theNumbers.push_back(theCauses.At(theIndex).theEntry.theNumber);
    }
    return theNumbers;
}

using Numbers = std::vector<std::uint64_t>;

} // namespace

TEST(Causes, AreThoseThatHaveNotEnded)
{
    Causes theCauses;
    theCauses.Take(MakeEntry(1, 0));
    EXPECT_EQ(Chain(theCauses), (Numbers{1}));
    theCauses.Take(MakeEntry(2, 1));
    theCauses.Take(MakeEntry(3, 2));
    EXPECT_EQ(Chain(theCauses), (Numbers{1, 2, 3}));
    theCauses.Take(MakeEntry(4, 1));
    EXPECT_EQ(Chain(theCauses), (Numbers{1, 4}));
    theCauses.Take(MakeEntry(5, 0));
    EXPECT_EQ(Chain(theCauses), (Numbers{5}));
    EXPECT_TRUE(theCauses.IsComplete());
}

TEST(Causes, AreThoseOfTheSameThread)
{
    Causes theCauses;
    theCauses.Take(MakeEntry(1, 0));
    theCauses.Take(MakeEntry(2, 0, 2));
    theCauses.Take(MakeEntry(3, 1));
    EXPECT_EQ(Chain(theCauses), (Numbers{1, 3}));
    theCauses.Take(MakeEntry(4, 2, 2));
    EXPECT_EQ(Chain(theCauses), (Numbers{2, 4}));
}

TEST(Causes, AreIncompleteWhenOneIsNotThere)
{
    Causes theCauses;
    theCauses.Take(MakeEntry(10, 4));
    EXPECT_FALSE(theCauses.IsComplete());
    theCauses.Take(MakeEntry(11, 10));
    EXPECT_FALSE(theCauses.IsComplete()) << "its cause's cause is not known either";
    theCauses.Take(MakeEntry(12, 0));
    EXPECT_TRUE(theCauses.IsComplete());
    // 11 has ended, so it can lead to nothing.
    theCauses.Take(MakeEntry(13, 11));
    EXPECT_FALSE(theCauses.IsComplete());
    EXPECT_EQ(Chain(theCauses), (Numbers{13}));
}

TEST(Causes, KeepACertainNumber)
{
    Causes theCauses;
    for (std::uint64_t theNumber = 1; theNumber <= Causes::kDeepest + 100; ++theNumber) {
        theCauses.Take(MakeEntry(theNumber, theNumber - 1));
    }
    EXPECT_EQ(theCauses.Count(), Causes::kDeepest);
    EXPECT_FALSE(theCauses.IsComplete());
    EXPECT_EQ(theCauses.Last().theEntry.theNumber, Causes::kDeepest + 100);
}

TEST(Causes, ShareOneListForTheThreadsBeyondTheMost)
{
    Causes theCauses;
    for (std::uint32_t theThread = 1; theThread <= 10 * Causes::kMostThreads; ++theThread) {
        theCauses.Take(MakeEntry(theThread, 0, theThread));
    }
    EXPECT_EQ(theCauses.Count(), 1U);
}

TEST(Causes, FindTheChangeThatADependentKeyIsToldOf)
{
    Entry theChange = MakeEntry(2, 1);
    theChange.theWhat = What::Changed;
    theChange.theObject.theID = 7;
    theChange.theKey = "target";
    Entry theFirst = MakeEntry(4, 1);
    theFirst.theWhat = What::Told;
    theFirst.theObject.theID = 7;
    theFirst.theKey = "text";
    theFirst.theOtherKey = "target";
    Entry theSecond = theFirst;
    theSecond.theNumber = 6;
    Entry theOther = theFirst;
    theOther.theNumber = 7;
    theOther.theOtherKey = "else";

    Causes theCauses;
    theCauses.Take(MakeEntry(1, 0));
    theCauses.Take(theChange);
    theCauses.Take(MakeEntry(3, 2));
    theCauses.Take(theFirst);
    EXPECT_TRUE(theCauses.Last().hasWatched);
    EXPECT_EQ(theCauses.Last().theWatched.theNumber, 2U);
    theCauses.Take(MakeEntry(5, 4));
    theCauses.Take(theSecond);
    EXPECT_EQ(theCauses.Last().theWatched.theNumber, 2U);
    theCauses.Take(theOther);
    EXPECT_FALSE(theCauses.Last().hasWatched);
}

TEST(Causes, TakeNoChangeOfAnotherRoundForTheOneThatIsTold)
{
    Entry theChange = MakeEntry(2, 1);
    theChange.theWhat = What::Changed;
    theChange.theObject.theID = 7;
    theChange.theKey = "target";
    Entry theTold = MakeEntry(4, 3);
    theTold.theWhat = What::Told;
    theTold.theObject.theID = 7;
    theTold.theOtherKey = "target";
    Causes theCauses;
    theCauses.Take(MakeEntry(1, 0));
    theCauses.Take(theChange);
    theCauses.Take(MakeEntry(3, 0));
    theCauses.Take(theTold);
    EXPECT_FALSE(theCauses.Last().hasWatched);
}
