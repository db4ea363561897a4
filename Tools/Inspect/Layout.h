// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Layout_h
#define Layout_h

// Where boxes and the lines between them lie in a picture. Graphviz's `dot` is told their sizes and nothing
// of what stands in them, so a picture is the same with every font and for every text.

#include <cstddef>
#include <string>
#include <vector>

namespace Inspect {

// In points.
constexpr int kBoxWidth = 236;
constexpr int kBoxHead = 46;
constexpr int kBoxRow = 24;

struct LayoutBox
{
    std::size_t theRows = 0;
};

// From a row of a box to one of another; kLayoutHead is the head of a box.
constexpr std::size_t kLayoutHead = static_cast<std::size_t>(-1);
struct LayoutLine
{
    std::size_t theFrom = 0;
    std::size_t theFromRow = kLayoutHead;
    std::size_t theTo = 0;
    std::size_t theToRow = kLayoutHead;
    std::size_t theLabel = 0; // how many characters stand beside it
};

struct Layout
{
    std::string theProblem; // why there is none; empty when there is
    double theWidth = 0;
    double theHeight = 0;
    // The upper left corner of each box: x, y.
    std::vector<double> theBoxes;
    // The points of each line, as Bézier curves that follow one another: x, y of the beginning, and three
    // more points for each curve.
    std::vector<std::vector<double>> theLines;
};

Layout MakeLayout(const std::vector<LayoutBox>& theBoxes, const std::vector<LayoutLine>& theLines);

// What `dot` is told.
std::string DescribeLayout(const std::vector<LayoutBox>& theBoxes, const std::vector<LayoutLine>& theLines);
// What `dot` answers, as plain-ext. There is a problem when that does not have each box and each line.
Layout ReadLayout(const std::string& theAnswer, const std::vector<LayoutBox>& theBoxes,
                  const std::vector<LayoutLine>& theLines);

} // namespace Inspect

#endif
