// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLongList.h"

#include "AllocationFailures.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <list>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

// A list that has grown long does what a list that is walked through does: both are put through the same
// steps here, with elements of which many are equal.

namespace {

struct CompareNumbers
{
    int operator()(const int& theLeft, const int& theRight) const { return theLeft - theRight; }
};

using Numbers = LmLongList<int, CompareNumbers>;
using List = Numbers::List;

std::vector<int> ContentsOf(const List& theList)
{
    return {theList.begin(), theList.end()};
}

// Appends a number, and tells how much memory that takes besides the element.
std::size_t CountBlocksOfAppending(List& theList, int theNumber)
{
    AllocationFailures theCount;
    Numbers::Append(theList, theNumber);
    theCount.Stop();
    return theCount.GetCount() - 1;
}

List TakeAll(List& theList, int theNumber)
{
    List theTaken;
    Numbers::TakeAll(theList, theNumber, theTaken);
    return theTaken;
}

void Empty(List& theList)
{
    while (!theList.empty()) {
        TakeAll(theList, theList.back());
    }
}

// A list with the numbers from 0 to theCount - 1.
std::unique_ptr<List> Counted(int theCount)
{
    auto theList = std::make_unique<List>();
    for (int theNumber = 0; theNumber < theCount; ++theNumber) {
        Numbers::Append(*theList, theNumber);
    }
    return theList;
}

} // namespace

TEST(LmLongList, DoesWhatAListDoes)
{
    std::mt19937 theDice(7);
    List theLong;
    std::list<int> theModel;
    // The goal moves between lists that have an index and lists that have none.
    for (int theStep = 0; theStep < 20000; ++theStep) {
        const std::size_t theGoal = theStep % 4000 < 2000 ? 60 : 8;
        const int theNumber = static_cast<int>(theDice() % 40);
        if (theModel.size() < theGoal || theDice() % 4 == 0) {
            Numbers::Append(theLong, theNumber);
            theModel.push_back(theNumber);
        } else if (theDice() % 3 == 0) {
            Numbers::RemoveLast(theLong);
            theModel.pop_back();
        } else {
            const List theTaken = TakeAll(theLong, theNumber);
            const auto theCount = std::count(theModel.begin(), theModel.end(), theNumber);
            theModel.remove(theNumber);
            ASSERT_EQ(ContentsOf(theTaken), std::vector<int>(static_cast<std::size_t>(theCount), theNumber));
        }
        ASSERT_EQ(ContentsOf(theLong), ContentsOf(theModel)) << "step " << theStep;
        for (int theSought = -1; theSought <= 40; theSought += 3) {
            ASSERT_EQ(Numbers::Has(theLong, theSought),
                      std::find(theModel.begin(), theModel.end(), theSought) != theModel.end())
                << theSought << " in step " << theStep;
        }
    }
    Empty(theLong);
}

TEST(LmLongList, SeveralKeepApart)
{
    const auto theOne = Counted(30);
    const auto theOther = Counted(20);
    Numbers::Append(*theOne, 100);
    TakeAll(*theOther, 7);
    EXPECT_FALSE(Numbers::Has(*theOther, 100));
    EXPECT_TRUE(Numbers::Has(*theOne, 7));
    EXPECT_FALSE(Numbers::Has(*theOther, 7));
    Empty(*theOther);
    EXPECT_TRUE(Numbers::Has(*theOne, 100));
    Empty(*theOne);
}

TEST(LmLongList, WhatIsSoughtMayBeAPartOfWhatIsTaken)
{
    const auto theList = Counted(30);
    List theTaken;
    Numbers::TakeAll(*theList, theList->back(), theTaken);
    EXPECT_EQ(ContentsOf(theTaken), std::vector<int>{29});
    Empty(*theList);
}

TEST(LmLongList, OnlyALongOneTakesMemoryAndNoneIsLeft)
{
    const auto theList = Counted(15);
    EXPECT_EQ(CountBlocksOfAppending(*theList, 15), 0u);
    const std::size_t theCount = CountBlocksOfAppending(*theList, 16);
    EXPECT_GT(theCount, 16u);
    // The same once more: what was there is gone.
    TakeAll(*theList, 16);
    EXPECT_EQ(CountBlocksOfAppending(*theList, 16), theCount);
    Numbers::RemoveLast(*theList);
    EXPECT_EQ(CountBlocksOfAppending(*theList, 16), theCount);
    Empty(*theList);
}

TEST(LmLongList, WithoutMemoryForItsIndexStaysAsItIs)
{
    for (const int theSize : {16, 17, 40}) {
        SCOPED_TRACE("a list of " + std::to_string(theSize));
        for (std::size_t theNumber = 1;; ++theNumber) {
            const auto theList = Counted(theSize);
            bool hasThrown = false;
            AllocationFailures theFailures(theNumber);
            try {
                Numbers::Append(*theList, theSize);
            } catch (const std::bad_alloc&) {
                hasThrown = true;
            }
            theFailures.Stop();
            EXPECT_EQ(hasThrown, theFailures.HasFailed());
            EXPECT_EQ(Numbers::Has(*theList, theSize), !hasThrown);
            EXPECT_EQ(theList->size(), static_cast<std::size_t>(hasThrown ? theSize : theSize + 1));
            Numbers::Append(*theList, 1000);
            EXPECT_TRUE(Numbers::Has(*theList, 1000));
            Empty(*theList);
            if (!theFailures.HasFailed()) {
                EXPECT_GT(theNumber, 1u);
                break;
            }
        }
    }
}

TEST(LmLongList, TakingNeedsNoMemory)
{
    const auto theList = Counted(40);
    List theTaken;
    AllocationFailures theCount;
    for (int theNumber = 0; theNumber < 39; ++theNumber) {
        Numbers::TakeAll(*theList, theNumber, theTaken);
    }
    Numbers::RemoveLast(*theList);
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 0u);
    EXPECT_TRUE(theList->empty());
}
