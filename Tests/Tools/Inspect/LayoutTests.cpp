// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Layout.h"

#include <gtest/gtest.h>

using namespace Inspect;

namespace {

const std::vector<LayoutBox> kBoxes = {{2}, {1}};
const std::vector<LayoutLine> kLines = {
    {0, 1, 1, 0, 5}, {0, 1, 1, 0, 0}, {0, kLayoutHead, 1, kLayoutHead, 0}};

} // namespace

TEST(Layout, TellsDotSizesAndNoTexts)
{
    const std::string theText = DescribeLayout(kBoxes, kLines);
    EXPECT_NE(theText.find("o0:k1 -> o1:k0 [label=\"nnnnn\"];\no0:k1 -> o1:k0;\no0:h -> o1:h;\n"),
              std::string::npos)
        << theText;
    EXPECT_NE(theText.find("WIDTH=\"236\" HEIGHT=\"24\" PORT=\"k1\""), std::string::npos) << theText;
    EXPECT_EQ(theText.find("PORT=\"k2\""), std::string::npos) << theText;
}

TEST(Layout, PlacesBoxesAndLines)
{
    const Layout theLayout = MakeLayout(kBoxes, kLines);
    ASSERT_EQ(theLayout.theProblem, "");
    ASSERT_EQ(theLayout.theBoxes.size(), 4U);
    EXPECT_GT(theLayout.theBoxes[2], theLayout.theBoxes[0] + kBoxWidth) << "what follows stands to the right";
    EXPECT_GE(theLayout.theBoxes[1], 0);
    EXPECT_LE(theLayout.theBoxes[1] + kBoxHead + 2 * kBoxRow, theLayout.theHeight + 0.1);
    for (const std::vector<double>& theLine : theLayout.theLines) {
        ASSERT_GE(theLine.size(), 8U);
        EXPECT_NEAR(theLine.front(), theLayout.theBoxes[0] + kBoxWidth, 3) << "from the edge of a box";
        EXPECT_NEAR(theLine[theLine.size() - 2], theLayout.theBoxes[2], 3) << "to that of the other";
    }
    EXPECT_NEAR(theLayout.theLines[0][1], theLayout.theBoxes[1] + kBoxHead + 1.5 * kBoxRow, 3)
        << "from the middle of the second row";
}

TEST(Layout, ReadsWhatDotAnswers)
{
    const Layout theLayout = ReadLayout("graph 1 10 2\n"
                                        "node o0 2 1 3.3 1.3 <<TABLE>> solid plain black lightgrey\n"
                                        "node o1 8 1 3.3 1 \"\" solid plain black lightgrey\n"
                                        "edge o0:h o1:h 4 3 1 4 1 5 1 6 1.5 solid black\n"
                                        "stop\n",
                                        kBoxes, {kLines[2]});
    ASSERT_EQ(theLayout.theProblem, "");
    EXPECT_EQ(theLayout.theWidth, 720);
    EXPECT_EQ(theLayout.theBoxes[0], 144 - kBoxWidth / 2.0);
    EXPECT_EQ(theLayout.theBoxes[1], 72 - (kBoxHead + 2 * kBoxRow) / 2.0);
    EXPECT_EQ(theLayout.theLines[0], (std::vector<double>{216, 72, 288, 72, 360, 72, 432, 36}));
}

TEST(Layout, IsNoneWhenDotAnswersSomethingElse)
{
    for (const char* const theAnswer :
         {"", "graph 1 10 2\nstop\n", "graph\nnode\nedge\n", "node o0 x y\nnode o1 1 1\n",
          "node o7 1 1 1 1\nnode o1 1 1 1 1\nedge o0:h o1:h 4 1 1 1 1 1 1 1 1\n",
          "node o0 1 1\nnode o1 1 1\nedge o0:h o1:h 4 1 1\n", "node o0 1 1\nnode o1 1 1\nedge a b 4 1 1\n"}) {
        EXPECT_EQ(ReadLayout(theAnswer, kBoxes, {kLines[2]}).theProblem, "dot could not place it")
            << theAnswer;
    }
}
