// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmFormatter.h"
#include "LmConveniences.h"
#include "LmNumberFormatters.h"

#include <gtest/gtest.h>

namespace {

// @code 1

} // namespace

TEST(LmFormatter, SellsWholeDozensAsItsHeaderShows)
{
    const DozenFormatter theFormatter;
    EXPECT_EQ(theFormatter.Parse(CFSTR("24")).theValue, LmValue(24));
    EXPECT_EQ(LmGetStdString(theFormatter.Parse(CFSTR("23")).theProblem), "Only whole dozens are sold.");
    EXPECT_EQ(LmGetStdString(theFormatter.Parse(CFSTR("24 eggs")).theProblem), "This is not a number.");
    EXPECT_EQ(LmGetStdString(theFormatter.Format(LmValue(36))), "36");
}
