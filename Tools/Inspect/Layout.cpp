// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Layout.h"

#include "Picture.h"

#include <chrono>
#include <deque>
#include <locale>
#include <map>
#include <sstream>

namespace Inspect {

namespace {

// `dot` takes its time with objects of which each is bound to many.
constexpr std::chrono::milliseconds kPatience(5000);
constexpr double kPointsPerInch = 72;

std::string End(std::size_t theBox, std::size_t theRow)
{
    return "o" + std::to_string(theBox) + ":" +
           (theRow == kLayoutHead ? std::string("h") : "k" + std::to_string(theRow));
}

std::string Cell(const std::string& thePort, int theHeight)
{
    return "<TR><TD FIXEDSIZE=\"TRUE\" WIDTH=\"" + std::to_string(kBoxWidth) + "\" HEIGHT=\"" +
           std::to_string(theHeight) + "\" PORT=\"" + thePort + "\"></TD></TR>";
}

int HeightOf(const LayoutBox& theBox)
{
    return kBoxHead + kBoxRow * static_cast<int>(theBox.theRows);
}

// Lines between the same ends are told apart by their order.
using Lines = std::map<std::pair<std::string, std::string>, std::deque<std::size_t>>;

bool ReadBox(std::istringstream& theWords, const std::vector<LayoutBox>& theBoxes, Layout& theLayout)
{
    std::string theName;
    double theX = 0;
    double theY = 0;
    theWords >> theName >> theX >> theY;
    std::size_t theBox = 0;
    if (!theWords || theName.size() < 2 || !(std::istringstream(theName.substr(1)) >> theBox) ||
        theBox >= theBoxes.size()) {
        return false;
    }
    theLayout.theBoxes[2 * theBox] = theX * kPointsPerInch - kBoxWidth / 2.0;
    theLayout.theBoxes[2 * theBox + 1] =
        theLayout.theHeight - theY * kPointsPerInch - HeightOf(theBoxes[theBox]) / 2.0;
    return true;
}

bool ReadLine(std::istringstream& theWords, Lines& theNumbers, Layout& theLayout)
{
    std::string theFrom;
    std::string theTo;
    std::size_t theCount = 0;
    theWords >> theFrom >> theTo >> theCount;
    const auto theFound = theNumbers.find({theFrom, theTo});
    if (!theWords || theFound == theNumbers.end() || theFound->second.empty()) {
        return false;
    }
    std::vector<double>& thePoints = theLayout.theLines[theFound->second.front()];
    theFound->second.pop_front();
    for (std::size_t thePoint = 0; thePoint < theCount && theWords; ++thePoint) {
        double theX = 0;
        double theY = 0;
        theWords >> theX >> theY;
        thePoints.push_back(theX * kPointsPerInch);
        thePoints.push_back(theLayout.theHeight - theY * kPointsPerInch);
    }
    return static_cast<bool>(theWords) && theCount >= 4 && theCount % 3 == 1;
}

} // namespace

std::string DescribeLayout(const std::vector<LayoutBox>& theBoxes, const std::vector<LayoutLine>& theLines)
{
    std::string theText = "digraph {\n"
                          "graph [rankdir=LR, ranksep=1.1, nodesep=0.35];\n"
                          "node [shape=plain];\n"
                          "edge [fontname=\"sans-serif\", fontsize=11, arrowhead=none];\n";
    for (std::size_t theBox = 0; theBox < theBoxes.size(); ++theBox) {
        theText += "o" + std::to_string(theBox) +
                   " [label=<<TABLE BORDER=\"0\" CELLBORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"0\">" +
                   Cell("h", kBoxHead);
        for (std::size_t theRow = 0; theRow < theBoxes[theBox].theRows; ++theRow) {
            theText += Cell("k" + std::to_string(theRow), kBoxRow);
        }
        theText += "</TABLE>>];\n";
    }
    for (const LayoutLine& theLine : theLines) {
        theText += End(theLine.theFrom, theLine.theFromRow) + " -> " + End(theLine.theTo, theLine.theToRow);
        if (theLine.theLabel > 0) {
            theText += " [label=\"" + std::string(theLine.theLabel, 'n') + "\"]";
        }
        theText += ";\n";
    }
    return theText + "}\n";
}

Layout ReadLayout(const std::string& theAnswer, const std::vector<LayoutBox>& theBoxes,
                  const std::vector<LayoutLine>& theLines)
{
    Layout theLayout;
    theLayout.theBoxes.resize(2 * theBoxes.size());
    theLayout.theLines.resize(theLines.size());
    Lines theNumbers;
    for (std::size_t theLine = 0; theLine < theLines.size(); ++theLine) {
        theNumbers[{End(theLines[theLine].theFrom, theLines[theLine].theFromRow),
                    End(theLines[theLine].theTo, theLines[theLine].theToRow)}]
            .push_back(theLine);
    }
    std::istringstream theAll(theAnswer);
    std::size_t theCount = 0;
    for (std::string theText; std::getline(theAll, theText);) {
        std::istringstream theWords(theText);
        theWords.imbue(std::locale::classic());
        std::string theKind;
        theWords >> theKind;
        if (theKind == "graph") {
            double theScale = 0;
            theWords >> theScale >> theLayout.theWidth >> theLayout.theHeight;
            theLayout.theWidth *= kPointsPerInch;
            theLayout.theHeight *= kPointsPerInch;
        } else if (theKind == "node") {
            theCount += ReadBox(theWords, theBoxes, theLayout) ? 1 : 0;
        } else if (theKind == "edge") {
            theCount += ReadLine(theWords, theNumbers, theLayout) ? 1 : 0;
        }
    }
    if (theCount != theBoxes.size() + theLines.size()) {
        theLayout.theProblem = "dot could not place it";
    }
    return theLayout;
}

Layout MakeLayout(const std::vector<LayoutBox>& theBoxes, const std::vector<LayoutLine>& theLines)
{
    std::string theAnswer;
    const std::string theProblem = FindPlaces(DescribeLayout(theBoxes, theLines), kPatience, theAnswer);
    if (theProblem.empty()) {
        return ReadLayout(theAnswer, theBoxes, theLines);
    }
    Layout theLayout;
    theLayout.theProblem = theProblem;
    return theLayout;
}

} // namespace Inspect
