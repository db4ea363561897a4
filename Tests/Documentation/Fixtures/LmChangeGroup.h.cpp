// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmChangeGroup.h"
#include "LmKeyValueStore.h"
#include "LmObservation.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

struct Item
{
    long thePrice;
};

} // namespace

TEST(LmChangeGroup, SetsATotalOnceAsItsHeaderShows)
{
    const std::vector<Item> theItems = {{3}, {5}, {20}};
    LmKeyValueStore theOrder;
    int theChanges = 0;
    const LmObservation theObservation(&theOrder, "total", [&](const LmChange&) { theChanges += 1; });
    long theSum = 0;
    // @code 1
    EXPECT_EQ(theChanges, 1);
    EXPECT_EQ(theOrder.GetKeyPathValue("total").GetSInt32(), 28);
}
