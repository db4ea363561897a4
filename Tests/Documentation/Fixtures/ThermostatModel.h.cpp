// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatModel.h"

#include <gtest/gtest.h>
#include <string>

TEST(ThermostatModel, HasTheKeysThatItsHeaderLists)
{
    const char* const kShown[][2] = {
        // @rows 1
    };
    ThermostatModel theModel;
    for (const auto& theRow : kShown) {
        const std::string theName = theRow[0];
        EXPECT_TRUE(theModel.Get(theName.substr(1, theName.size() - 2).c_str()).IsValid()) << theName;
    }
    static_assert(std::size(kShown) == 8);
}
