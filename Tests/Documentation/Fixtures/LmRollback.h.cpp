// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmRollback.h"

#include <gtest/gtest.h>
#include <list>
#include <new>
#include <vector>

namespace {

struct Other
{
    void push_back(int theItem)
    {
        if (isFull) {
            throw std::bad_alloc();
        }
        theItems.push_back(theItem);
    }

    bool isFull = false;
    std::vector<int> theItems;
};

void AddToBoth(std::list<int>& theList, Other& theOther, int theItem)
{
    std::list<int> theNode(1, theItem);
    // @code 1
}

} // namespace

TEST(LmRollback, UndoesTheFirstStepAsItsHeaderShows)
{
    std::list<int> theList;
    Other theOther;
    AddToBoth(theList, theOther, 1);
    theOther.isFull = true;
    EXPECT_THROW(AddToBoth(theList, theOther, 2), std::bad_alloc);
    EXPECT_EQ(theList, std::list<int>{1});
    EXPECT_EQ(theOther.theItems, std::vector<int>{1});
}
