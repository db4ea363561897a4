// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What starting Qt must leave as it was.

#include "QtPresenter.h"
#include "RecordingGate.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <langinfo.h>
#include <string>

namespace {

// The environment of the tests names a locale, and Qt asks for that. LM_TEST_DECIMAL_POINT says what numbers
// look like there, so that a locale that cannot be had does not pass for one that does no harm.
void ExpectLocaleToBeThere()
{
    const char* const theExpected = std::getenv("LM_TEST_DECIMAL_POINT");
    if (theExpected == nullptr) {
        return;
    }
    ASSERT_NE(std::setlocale(LC_NUMERIC, ""), nullptr);
    EXPECT_STREQ(nl_langinfo(RADIXCHAR), theExpected);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(QtApplication, LeavesTheNumbersOfTheProgramAlone)
{
    ExpectLocaleToBeThere();
    RecordingGate theGate;
    Host::QtPresenter thePresenter;
    ASSERT_TRUE(thePresenter.Start(theGate));
    for (const int theCategory : {LC_NUMERIC, LC_MONETARY, LC_TIME, LC_COLLATE}) {
        EXPECT_STREQ(std::setlocale(theCategory, nullptr), "C");
    }
    char theText[16] = "";
    std::snprintf(theText, sizeof theText, "%.1f", 21.5);
    EXPECT_STREQ(theText, "21.5");
    EXPECT_EQ(std::stod("21.5"), 21.5);
}

} // namespace
