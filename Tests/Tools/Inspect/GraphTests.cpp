// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Graph.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

const TestObject kModel = {1, "LmKeyValueBinding", "model"};
const TestObject kText = {2, "LmControlBinding", "text & <more>"};
const TestObject kWatcher = {3, "Watcher", "watcher"};
const TestRecord kWay = {1, kText, "value", kModel, "level", 1};

std::string GraphOf(const TestJournal& theText, std::uint64_t theEntry = 0)
{
    std::ostringstream theOutput;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theOutput);
    EXPECT_EQ(Inspect::RunGraph(theJournal, {theEntry, true}, theOutput, theOutput), 0);
    return theOutput.str();
}

bool Has(const std::string& theGraph, const std::string& theText)
{
    return theGraph.find(theText) != std::string::npos;
}

// The model's level is 7, and the text follows it.
TestJournal Bound()
{
    TestJournal theJournal;
    theJournal.Changed(0, kModel, "level", TestInvalid(), TestUnsigned(7));
    theJournal.Bound(kWay);
    theJournal.Observed(0, "observe", kModel, "level", kText);
    return theJournal;
}

} // namespace

TEST(Graph, ShowsObjectsWithTheirKeysAndBindings)
{
    const std::string theGraph = GraphOf(Bound());
    EXPECT_TRUE(Has(theGraph, "<B>model</B>")) << theGraph;
    EXPECT_TRUE(Has(theGraph, "PORT=\"k0\">level = 7</TD>")) << theGraph;
    EXPECT_TRUE(Has(theGraph, "<B>text &amp; &lt;more&gt;</B>")) << theGraph;
    EXPECT_TRUE(Has(theGraph, "  o1:k0 -> o2:k0 [label=<LmToStringTransform>];\n")) << theGraph;
    EXPECT_FALSE(Has(theGraph, "observes")) << "what is bound observes, as everybody knows";
}

TEST(Graph, ShowsDependenciesAndObserversDashed)
{
    TestJournal theJournal = Bound();
    theJournal.Add(0, "depend", R"("object":)" + kModel.Text() + R"(,"key":"level","dependent":"name")");
    theJournal.Observed(0, "observe", kModel, "*", kWatcher);
    const std::string theGraph = GraphOf(theJournal);
    EXPECT_TRUE(Has(theGraph, "  o1:k0 -> o1:k1 [style=dashed, label=<depends>];\n")) << theGraph;
    EXPECT_TRUE(Has(theGraph, "  o1 -> o3 [style=dashed, label=<observes>];\n")) << theGraph;
}

TEST(Graph, ShowsHowThingsStoodAtAnEntry)
{
    TestJournal theJournal = Bound();
    const std::uint64_t theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    EXPECT_TRUE(Has(GraphOf(theJournal), "level = 8"));
    EXPECT_TRUE(Has(GraphOf(theJournal, theChange - 1), "level = 7"));
    EXPECT_FALSE(Has(GraphOf(theJournal, 3), "->")) << "nothing was bound yet";
}

TEST(Graph, ShowsHowThingsStoodBeforeAllWasTidiedUp)
{
    TestJournal theJournal = Bound();
    theJournal.Destroyed(kWatcher);
    theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(9));
    const std::uint64_t theFirst = theJournal.Destroyed(kModel);
    theJournal.Unbound(theFirst, kWay);
    theJournal.Destroyed(kText);
    theJournal.Ended();
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theRead = JournalWith(theJournal.GetText(), theErrors);
    EXPECT_EQ(Inspect::RunGraph(theRead, {0, true}, theOutput, theErrors), 0);
    EXPECT_TRUE(Has(theOutput.str(), "level = 9")) << theOutput.str();
    EXPECT_FALSE(Has(theOutput.str(), "watcher")) << "it went while the program went on";
    EXPECT_EQ(theErrors.str(),
              "lminspect: at the end every object is gone; this is how things stood at entry " +
                  std::to_string(theFirst - 1) + "\n");
}

TEST(Graph, ShowsNothingThatIsGone)
{
    TestJournal theUnbound = Bound();
    theUnbound.Unbound(0, kWay);
    EXPECT_FALSE(Has(GraphOf(theUnbound), "LmToStringTransform"));
    EXPECT_TRUE(Has(GraphOf(theUnbound), "  o1:k0 -> o2 [style=dashed, label=<observes>];\n"));
    TestJournal theDead = Bound();
    theDead.Destroyed(kModel);
    theDead.Unbound(0, kWay);
    EXPECT_FALSE(Has(GraphOf(theDead), "model"));
    EXPECT_FALSE(Has(GraphOf(theDead), "->"));
}
