// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "OrderModel.h"

#include <gtest/gtest.h>
#include <string>

TEST(OrderModel, HasTheKeysThatItsHeaderLists)
{
    const char* const kShown[][2] = {
        // @rows 1
    };
    OrderModel theModel(0);
    for (const auto& theRow : kShown) {
        const std::string theName = theRow[0];
        EXPECT_TRUE(theModel.Get(theName.substr(1, theName.size() - 2).c_str()).IsValid()) << theName;
    }
    static_assert(std::size(kShown) == 8); // "tax" and "total" stand behind "net"
}

// The greatest numbers that the form takes among them, which doubles with cents would not hold.
TEST(OrderModel, CalculatesExactlyAndRoundsHalvesUp)
{
    const struct
    {
        SInt64 thePrice;
        int theQuantity;
        int theDiscount;
        SInt64 theNet;
        SInt64 theTax;
    } kOrders[] = {
        {100, 1, 0, 100, 19},
        {50, 1, 0, 50, 10},    // 9.5
        {49, 1, 0, 49, 9},     // 9.31
        {25, 1, 20, 25, 5},    // 24.5, 4.75
        {1, 1, 500, 1, 0},     // 0.5, 0.19
        {1, 1, 501, 0, 0},     // 0.499
        {8990, 3, 1000, 0, 0}, // for nothing
        {OrderModel::kHighestPrice, 999, 1, 99800099002, 18962018810},
    };
    for (const auto& theOrder : kOrders) {
        OrderModel theModel(0);
        theModel.Set("price", LmValue(theOrder.thePrice));
        theModel.Set("quantity", LmValue(theOrder.theQuantity));
        theModel.Set("discount", LmValue(theOrder.theDiscount));
        EXPECT_EQ(theModel.Get("net").GetSInt64(), theOrder.theNet);
        EXPECT_EQ(theModel.Get("tax").GetSInt64(), theOrder.theTax);
        EXPECT_EQ(theModel.Get("total").GetSInt64(), theOrder.theNet + theOrder.theTax);
    }
}
