// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Text.h"

#include <gtest/gtest.h>

using namespace Inspect;

TEST(Text, HoldsNoControlCharacters)
{
    EXPECT_EQ(Escape("a\nb\tc\rd\x1b[31m\x7f"), "a\\nb\\tc\\rd\\u001b[31m\\u007f");
    EXPECT_EQ(Escape("\xc2\x9b"
                     "31m"),
              "\\u009b31m");
    EXPECT_EQ(Escape("Küche °C"), "Küche °C");
    EXPECT_EQ(Escape(std::string_view("\0", 1)), "\\u0000");
}

TEST(Text, IsCutBehindAWholeCharacter)
{
    EXPECT_EQ(Quote("Küche", 5), "\"Küche\"");
    EXPECT_EQ(Quote("Küche", 2), "\"Kü…\"");
    EXPECT_EQ(Quote("", 2), "\"\"");
}

TEST(Text, ShowsTimesAsSeconds)
{
    EXPECT_EQ(ShowTime(9120441), "0.009120 s");
    EXPECT_EQ(ShowTime(61000000000), "61.000000 s");
}

TEST(Text, ShowsAnObjectByItsNameOrItsClass)
{
    EXPECT_EQ(ShowObject({3, "C", "radio"}), "radio");
    EXPECT_EQ(ShowObject({3, "C", ""}), "C 3");
    EXPECT_EQ(ShowObject({}), "no object");
    EXPECT_EQ(ShowKey({3, "C", "radio"}, "volume"), "radio.volume");
}

TEST(Text, FindsTheNearestNames)
{
    const std::vector<std::string> theNames = {"value", "minimum", "maximum", "enabled", "visible", "title"};
    using Names = std::vector<std::string>;
    EXPECT_EQ(NearestNames("Value", theNames), (Names{"value"}));
    EXPECT_EQ(NearestNames("minimun", theNames), (Names{"minimum"}));
    EXPECT_EQ(NearestNames("nothing like it", theNames), Names());
    EXPECT_EQ(NearestNames("mum", theNames), (Names{"maximum", "minimum"}));
    EXPECT_EQ(NearestNames("mum", theNames, 1), (Names{"maximum"}));
}

TEST(Text, JoinsAndCounts)
{
    EXPECT_EQ(JoinWithOr({}), "");
    EXPECT_EQ(JoinWithOr({"a"}), "a");
    EXPECT_EQ(JoinWithOr({"a", "b", "c"}), "a, b or c");
    EXPECT_EQ(Count(1, "change", "changes"), "1 change");
    EXPECT_EQ(Count(0, "change", "changes"), "0 changes");
}
