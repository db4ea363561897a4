// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Picture.h"

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
