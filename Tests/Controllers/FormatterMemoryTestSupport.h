// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FormatterMemoryTestSupport_h
#define FormatterMemoryTestSupport_h

#include "AllocationFailures.h"
#include "FormatterTestSupport.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>

// What a formatter makes of a value and of a text.
inline std::string DescribeFormatter(const LmFormatter& theFormatter, const LmValue& theValue,
                                     const std::string& theText)
{
    return Formatted(theFormatter, theValue) + ", " + Formatted(theFormatter, LmValue(-5)) + ", " +
           Parsed(theFormatter, theText) + ", " + Describe(ThereAndBack(theFormatter, theValue));
}

// Calls theMake(), which gives a formatter, with each of its allocations failing: what it makes then is as
// what it makes with memory, or there is none.
template <typename Maker>
void FailWhileMaking(const Maker& theMake, const LmValue& theValue, const std::string& theText)
{
    const std::string theWhole = DescribeFormatter(*theMake(), theValue, theText);
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        std::unique_ptr<LmFormatter> theFormatter;
        try {
            theFormatter = theMake();
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        EXPECT_TRUE(theFormatter != nullptr || theAttempt.HasFailed());
        if (theFormatter != nullptr) {
            EXPECT_EQ(DescribeFormatter(*theFormatter, theValue, theText), theWhole);
        }
    });
    EXPECT_GT(theFailures, 1U) << theWhole;
}

#endif
