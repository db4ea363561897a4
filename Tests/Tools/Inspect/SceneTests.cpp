// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Scene.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

using Inspect::Scene;

namespace {

const TestObject kModel = {1, "LmKeyValueBinding", "model"};
const TestObject kText = {2, "LmControlBinding", "text"};
const TestRecord kWay = {1, kText, "value", kModel, "level", 1};
const TestRecord kBack = {2, kModel, "level", kText, "value"};

// "+model level=7 wire0": what an entry moves.
std::string Show(const Scene& theScene, const std::vector<Scene::Move>& theMoves)
{
    std::string theText;
    for (const Scene::Move& theMove : theMoves) {
        const std::string theSign = theMove.isThere ? " +" : " -";
        switch (theMove.theWhat) {
        case Scene::What::Thing:
            theText += theSign + theScene.GetThings()[theMove.theIndex].theObject.theName;
            break;
        case Scene::What::Key:
            theText += " " + theScene.GetKeys()[theMove.theIndex].theName + "=" + theMove.theValue;
            break;
        case Scene::What::Wire:
            theText += theSign + "wire" + std::to_string(theMove.theIndex);
            break;
        case Scene::What::BackWire:
            theText += theSign + "back" + std::to_string(theMove.theIndex);
            break;
        }
    }
    return theText;
}

// What each entry behind the first one moves.
std::vector<std::string> Play(Scene& theScene, const TestJournal& theText)
{
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theErrors);
    Inspect::Entry theEntry;
    std::vector<std::string> theMoves;
    while (theJournal.Next(theEntry)) {
        const Scene::Step theStep = theScene.Take(theEntry);
        if (theEntry.theNumber > 1) {
            theMoves.push_back(Show(theScene, theStep.theMoves));
        }
    }
    return theMoves;
}

using Moves = std::vector<std::string>;

} // namespace

TEST(Scene, KnowsWhatEachEntryMoves)
{
    TestJournal theJournal;
    theJournal.Made(kModel, "binding");
    theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    theJournal.Bound(kWay);
    theJournal.Unbound(0, kWay);
    theJournal.Destroyed(kModel);
    Scene theScene;
    EXPECT_EQ(Play(theScene, theJournal),
              (Moves{" +model", "", " level=8", " +text +wire0", " -wire0", " -model"}));
    EXPECT_EQ(Show(theScene, theScene.GetBeginning()), " level=7")
        << "what a value was before it moved first";
    EXPECT_EQ(theScene.GetWires()[0].theTransform, "LmToStringTransform");
}

TEST(Scene, HasOneWireForBothWays)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Bound(kBack);
    theJournal.Updated(0, kBack, TestUnsigned(7));
    theJournal.Unbound(0, kWay);
    Scene theScene;
    EXPECT_EQ(Play(theScene, theJournal), (Moves{" +text +model +wire0", " +back0", "", " -wire0"}));
    EXPECT_EQ(theScene.GetWires().size(), 1U);
}

TEST(Scene, KnowsThatWhatIsBoundObserves)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Observed(0, "observe", kModel, "level", kText);
    theJournal.Observed(0, "observe", kModel, "*", kText);
    Scene theScene;
    Play(theScene, theJournal);
    ASSERT_EQ(theScene.GetWires().size(), 3U);
    EXPECT_FALSE(theScene.IsImplied(theScene.GetWires()[0]));
    EXPECT_TRUE(theScene.IsImplied(theScene.GetWires()[1]));
    EXPECT_FALSE(theScene.IsImplied(theScene.GetWires()[2]));
}

TEST(Scene, GoesAlongADependency)
{
    TestJournal theJournal;
    theJournal.Add(0, "depend", R"("object":)" + kModel.Text() + R"(,"key":"level","dependent":"power")");
    theJournal.Told(0, kModel, "power", TestUnsigned(9), "level");
    Scene theScene;
    EXPECT_EQ(Play(theScene, theJournal), (Moves{" +model +wire0", " power=9"}));
}

TEST(Scene, BeginsWithWhatAGraphHolds)
{
    TestJournal theJournal;
    theJournal.Changed(0, kModel, "level", TestInvalid(), TestUnsigned(7));
    theJournal.Bound(kWay);
    theJournal.Bound(kBack);
    theJournal.Observed(0, "observe", kModel, "*", kText);
    theJournal.Add(0, "depend", R"("object":)" + kModel.Text() + R"(,"key":"level","dependent":"power")");
    std::ostringstream theErrors;
    Inspect::Journal theReader = JournalWith(theJournal.GetText(), theErrors);
    Inspect::Graph theGraph;
    for (Inspect::Entry theEntry; theReader.Next(theEntry);) {
        theGraph.Take(theEntry);
    }
    Scene theScene;
    theScene.Begin(theGraph);
    EXPECT_EQ(Show(theScene, theScene.GetBeginning()), " +model level=7 +text +wire0 +back0 +wire1 +wire2");
    TestJournal theRest;
    theRest.Unbound(0, kWay);
    EXPECT_EQ(Play(theScene, theRest), Moves{" -wire0"});
}
