// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Picture.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

TEST(Picture, IsDrawnByGraphviz)
{
    std::ostringstream theOutput;
    EXPECT_EQ(Inspect::DrawPicture("digraph { a -> b }", theOutput), "");
    EXPECT_NE(theOutput.str().find("<svg"), std::string::npos);
    EXPECT_NE(theOutput.str().find("</svg>"), std::string::npos);
}

TEST(Picture, IsMissedWithAMessageWithoutGraphviz)
{
    const std::string thePath = std::getenv("PATH") == nullptr ? "" : std::getenv("PATH");
    ::setenv("PATH", "/nowhere", 1);
    std::ostringstream theOutput;
    EXPECT_EQ(Inspect::DrawPicture("digraph { a -> b }", theOutput),
              "dot, which draws the picture, cannot be started: No such file or directory; install graphviz, "
              "or take "
              "--dot");
    ::setenv("PATH", thePath.c_str(), 1);
    EXPECT_EQ(theOutput.str(), "");
}

TEST(Picture, FindsPlacesOnly)
{
    std::string theResult;
    EXPECT_EQ(Inspect::FindPlaces("digraph { a -> b }", std::chrono::seconds(60), theResult), "");
    EXPECT_EQ(theResult.rfind("graph 1 ", 0), 0U) << theResult;
}

TEST(Picture, IsGivenUpWhenItTakesTooLong)
{
    // Each is bound to each, for which dot needs minutes.
    std::string theGraph = "digraph {";
    for (int theFrom = 0; theFrom < 300; ++theFrom) {
        for (int theTo = theFrom + 1; theTo < 300; theTo += 3) {
            theGraph += "a" + std::to_string(theFrom) + " -> a" + std::to_string(theTo) + ";";
        }
    }
    std::string theResult;
    EXPECT_EQ(Inspect::FindPlaces(theGraph + "}", std::chrono::milliseconds(50), theResult),
              "dot took too long");
}
