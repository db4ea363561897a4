// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Lint.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

const TestObject kModel = {1, "LmKeyValueBinding", "model"};
const TestObject kSlider = {2, "LmControlBinding", "slider"};
const TestObject kText = {3, "LmControlBinding", "text"};
const TestObject kWatcher = {4, "Watcher", "watcher"};
const TestObject kPreferences = {5, "LmPreferenceBinding", "[Preferences App]"};
const TestRecord kWay = {1, kSlider, "value", kModel, "level"};
const TestRecord kBack = {2, kModel, "level", kSlider, "value"};

// All that is found, without the pages.
std::string Findings(const TestJournal& theText, int theStatus = 1)
{
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theErrors);
    EXPECT_EQ(Inspect::RunLint(theJournal, theOutput, theErrors), theStatus) << theOutput.str();
    std::istringstream theLines(theOutput.str());
    std::string theResult;
    for (std::string theLine; std::getline(theLines, theLine);) {
        if (theLine.rfind("  see ", 0) != 0) {
            theResult += theLine + "\n";
        }
    }
    return theResult + theErrors.str();
}

void ExpectNothing(const TestJournal& theText)
{
    EXPECT_EQ(Findings(theText, 0), "0 findings\n");
}

// The level of the model is 7, and the slider follows it.
TestJournal Bound(const std::vector<TestRecord>& theRecords)
{
    TestJournal theJournal;
    theJournal.Changed(0, kModel, "level", TestInvalid(), TestUnsigned(7));
    for (const TestRecord& theRecord : theRecords) {
        theJournal.Bound(theRecord);
    }
    return theJournal;
}

// A person drags the slider to 30; the model makes 25 of it while the 30 is copied.
TestJournal Clamped(const TestObject& theSlider)
{
    const TestRecord theWay = {1, theSlider, "value", kModel, "level"};
    const TestRecord theBack = {2, kModel, "level", theSlider, "value"};
    TestJournal theJournal = Bound({theWay, theBack});
    const std::uint64_t theEvent = theJournal.Event(theJournal.Action(), theSlider);
    const std::uint64_t theMove =
        theJournal.Changed(theEvent, theSlider, "value", TestUnsigned(7), TestUnsigned(30));
    const std::uint64_t theModel = theJournal.Changed(theJournal.Updated(theMove, theBack, TestUnsigned(30)),
                                                      kModel, "level", TestUnsigned(7), TestUnsigned(25));
    theJournal.Changed(theJournal.Updated(theModel, theWay, TestUnsigned(25)), theSlider, "value",
                       TestUnsigned(30), TestUnsigned(25));
    return theJournal;
}

} // namespace

TEST(Lint, FindsNothingInAnOrdinarySession)
{
    TestJournal theJournal = Bound({kWay, kBack});
    theJournal.Changed(theJournal.Updated(0, kWay, TestUnsigned(7)), kSlider, "value", TestInvalid(),
                       TestUnsigned(7));
    const std::uint64_t theEvent = theJournal.Event(theJournal.Action(), kSlider);
    const std::uint64_t theSlider =
        theJournal.Changed(theEvent, kSlider, "value", TestUnsigned(7), TestUnsigned(8));
    const std::uint64_t theModel = theJournal.Changed(theJournal.Updated(theSlider, kBack, TestUnsigned(8)),
                                                      kModel, "level", TestUnsigned(7), TestUnsigned(8));
    theJournal.Kept(theJournal.Updated(theModel, kWay, TestUnsigned(8)), "equal", kSlider, "value",
                    TestUnsigned(8), TestUnsigned(8));
    const std::uint64_t theEnd = theJournal.Destroyed(kModel);
    theJournal.Unbound(theEnd, kWay);
    theJournal.Unbound(theEnd, kBack);
    theJournal.Destroyed(kSlider);
    theJournal.Ended();
    ExpectNothing(theJournal);
}

TEST(Lint, FindsAKeyThatWasNeverSet)
{
    EXPECT_EQ(
        Findings(Bound({{1, kSlider, "value", kModel, "levle"}})),
        "never-set: slider.value: it is bound to model.levle, which never had a value; did you mean level? "
        "(entry 4)\n1 finding\n");
    TestJournal theLater = Bound({{1, kSlider, "value", kModel, "later"}});
    theLater.Changed(0, kModel, "later", TestInvalid(), TestUnsigned(1));
    ExpectNothing(theLater);
    // A store that keeps its values elsewhere.
    TestJournal theElsewhere = Bound({{1, kSlider, "value", kModel, "else"}});
    theElsewhere.Updated(0, {1, kSlider, "value", kModel, "else"}, TestUnsigned(3));
    ExpectNothing(theElsewhere);
    // A preference that nobody has chosen yet.
    ExpectNothing(Bound({{1, kModel, "level", kPreferences, "Level"}}));
}

TEST(Lint, FindsAKeyThatAControlDoesNotHave)
{
    EXPECT_EQ(
        Findings(Bound({{1, kSlider, "valeu", kModel, "level"}})),
        "unknown-key: slider.valeu: a control has no such key; did you mean value? (entry 4)\n1 finding\n");
}

TEST(Lint, FindsASecondKeyThatNeverFollows)
{
    EXPECT_EQ(Findings(Bound({{1, kSlider, "maximum", kModel, "level"}, kWay})),
              "never-follows: slider.value: it never follows model.level, since \"maximum\" of the same "
              "object does "
              "(entry 5)\n1 finding\n");
    EXPECT_EQ(Findings(Bound({kWay, {3, kSlider, "maximum", kModel, "level"}})).substr(0, 27),
              "never-follows: slider.value")
        << "the first one is that which sorts first";
}

TEST(Lint, FindsAFractionThatWasDropped)
{
    TestJournal theJournal = Bound({kWay});
    theJournal.Kept(0, "equal", kModel, "level", TestDouble("20"), TestDouble("20.25"));
    theJournal.Kept(0, "equal", kModel, "level", TestDouble("20"), TestDouble("20.5"));
    theJournal.Kept(0, "equal", kModel, "level", TestDouble("20"), TestUnsigned(20));
    EXPECT_EQ(Findings(theJournal),
              "fraction-dropped: model.level: it stayed 20 when it was set to 20.25, since numbers "
              "are compared as integers (entry 5, and 1 time more)\n1 finding\n");
}

TEST(Lint, FindsAControlThatShowsSomethingElse)
{
    TestJournal theJournal = Clamped(kSlider);
    EXPECT_EQ(Findings(theJournal),
              "shown-otherwise: slider.value: it is 25, and the control shows 30: it was set while the "
              "control's own change was copied (entry 15)\n1 finding\n");
    TestJournal theGone = theJournal;
    theGone.Destroyed(kSlider);
    EXPECT_EQ(Findings(theGone).substr(0, 15), "shown-otherwise") << "it was shown until the end";
    theJournal.Changed(0, kSlider, "value", TestUnsigned(25), TestUnsigned(26));
    ExpectNothing(theJournal);
}

TEST(Lint, LeavesAControlAloneThatAgreesInTheEnd)
{
    TestJournal theJournal = Clamped(kSlider);
    // When the change has been copied, the key is written into the control, which says so.
    theJournal.Event(0, kSlider);
    ExpectNothing(theJournal);
}

TEST(Lint, FindsAOneWayBindingOfADeadObject)
{
    TestJournal theJournal = Bound({kWay});
    theJournal.Destroyed(kModel);
    EXPECT_EQ(
        Findings(theJournal),
        "dead-source: slider.value: it is bound to model.level, which was destroyed (entry 4)\n1 finding\n");
    theJournal.Unbound(theJournal.Destroyed(kSlider), kWay);
    EXPECT_EQ(Findings(theJournal),
              "dead-source: slider.value: it was bound to model.level when that was destroyed "
              "(entry 7)\n1 finding\n");

    TestJournal theRemoved = Bound({kWay});
    theRemoved.Unbound(0, kWay);
    theRemoved.Destroyed(kModel);
    ExpectNothing(theRemoved);
}

TEST(Lint, FindsATransformOfTwoBindings)
{
    const TestRecord theFirst = {1, kSlider, "value", kModel, "level", 7};
    const TestRecord theSecond = {2, kText, "value", kModel, "level", 7};
    EXPECT_EQ(Findings(Bound({theFirst, theSecond})),
              "shared-transform: text.value: its LmToStringTransform was given to slider.value as well: each "
              "gives a "
              "reference back, so that Retain must have been called once more (entry 5)\n1 finding\n");
    TestJournal theJournal = Bound({theFirst});
    theJournal.Unbound(0, theFirst);
    theJournal.Bound(theSecond);
    ExpectNothing(theJournal);
}

TEST(Lint, FindsARoundThatTakesLongToSettle)
{
    TestJournal theJournal = Bound({kWay, kBack});
    std::uint64_t theCause = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    for (unsigned theStep = 0; theStep < 4; ++theStep) {
        const bool isSlider = theStep % 2 == 0;
        theCause = theJournal.Changed(
            theJournal.Updated(theCause, isSlider ? kWay : kBack, TestUnsigned(9 + theStep)),
            isSlider ? kSlider : kModel, isSlider ? "value" : "level", TestUnsigned(7),
            TestUnsigned(9 + theStep));
        if (theStep == 2) {
            ExpectNothing(theJournal);
        }
    }
    EXPECT_EQ(Findings(theJournal),
              "long-round: model.level: a change went through 4 bindings and changed it again: what is "
              "made of a value on the way there and back is another value (entry 7)\n1 finding\n");
}

TEST(Lint, FindsAKeyThatOneChangeSetTwice)
{
    const TestRecord theOther = {8, kText, "value", kSlider, "value"};
    const TestRecord theDirect = {9, kText, "value", kModel, "level"};
    TestJournal theJournal = Bound({kWay, theOther, theDirect});
    const std::uint64_t theModel = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    const std::uint64_t theSlider = theJournal.Changed(theJournal.Updated(theModel, kWay, TestUnsigned(8)),
                                                       kSlider, "value", TestUnsigned(7), TestUnsigned(8));
    theJournal.Changed(theJournal.Updated(theSlider, theOther, TestUnsigned(8)), kText, "value",
                       TestUnsigned(7), TestUnsigned(8));
    TestJournal theQuiet = theJournal;
    theQuiet.Changed(0, kText, "value", TestUnsigned(8), TestUnsigned(9));
    ExpectNothing(theQuiet);
    theJournal.Changed(theJournal.Updated(theModel, theDirect, TestUnsigned(9)), kText, "value",
                       TestUnsigned(8), TestUnsigned(9));
    EXPECT_EQ(Findings(theJournal), "set-twice: text.value: one change set it twice, on two ways: entries 14 "
                                    "and 17 (entry 17)\n1 finding\n");
}

TEST(Lint, TakesTheAnswerOfAnObjectToASetForNothingElse)
{
    const auto theJournalWith = [](const std::string& theInner, const std::string& theOuter) {
        TestJournal theJournal;
        const std::string theKey =
            R"("object":)" + kSlider.Text() + R"(,"key":"value","was":)" + TestUnsigned(7);
        const std::uint64_t theChanging = theJournal.Add(0, "changing", theKey + R"(,"to":)" + theOuter);
        theJournal.Changed(theJournal.Event(0, kSlider), kSlider, "value", TestUnsigned(7), theInner);
        theJournal.Add(0, "changed",
                       theKey + R"(,"is":)" + theOuter + R"(,"changing":)" + std::to_string(theChanging));
        return theJournal;
    };
    ExpectNothing(theJournalWith(TestUnsigned(1), TestUnsigned(1)));
    ExpectNothing(theJournalWith(TestUnsigned(1), R"({"kind":"boolean","value":true})"));
    ExpectNothing(theJournalWith(R"({"kind":"string","value":"a"})", R"({"kind":"string","value":"a"})"));
    EXPECT_EQ(
        Findings(theJournalWith(TestUnsigned(100), TestUnsigned(200))),
        "set-twice: slider.value: it was set to 100 while it was being set to 200: entries 5 and 6 (entry "
        "6)\n1 finding\n");
    EXPECT_EQ(Findings(theJournalWith(TestUnsigned(1), R"({"kind":"string","value":"1"})")).substr(0, 9),
              "set-twice");
}

TEST(Lint, CountsALongRoundOnceForAllItsKeys)
{
    const TestRecord theOther = {3, kText, "value", kModel, "level"};
    TestJournal theJournal = Bound({kWay, kBack, theOther});
    std::uint64_t theCause = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    for (unsigned theStep = 0; theStep < 7; ++theStep) {
        const bool isSlider = theStep % 2 == 0;
        theCause = theJournal.Changed(
            theJournal.Updated(theCause, isSlider ? kWay : kBack, TestUnsigned(9 + theStep)),
            isSlider ? kSlider : kModel, isSlider ? "value" : "level", TestUnsigned(7),
            TestUnsigned(9 + theStep));
    }
    EXPECT_EQ(Findings(theJournal),
              "long-round: model.level: a change went through 4 bindings and changed it again: what is "
              "made of a value on the way there and back is another value (entry 8, and 1 time more)\n1 "
              "finding\n");
}

TEST(Lint, KnowsAnObserverThatIsOlderThanTheJournal)
{
    TestJournal theJournal;
    theJournal.Observed(0, "observe", kModel, "level", kWatcher);
    theJournal.Observed(theJournal.Destroyed(kModel), "unobserve", kModel, "level", kWatcher);
    theJournal.Ended();
    EXPECT_EQ(Findings(theJournal).substr(0, 28), "observer-left: watcher.level");
    // What is bound observes as well, and is left to itself.
    TestJournal theBinding;
    theBinding.Bound(kWay);
    theBinding.Observed(0, "observe", kModel, "level", kSlider);
    const std::uint64_t theEnd = theBinding.Destroyed(kModel);
    theBinding.Unbound(theEnd, kWay);
    theBinding.Observed(theEnd, "unobserve", kModel, "level", kSlider);
    theBinding.Ended();
    EXPECT_EQ(Findings(theBinding).find("observer-left"), std::string::npos);
}

TEST(Lint, FindsAnObserverThatIsLeft)
{
    TestJournal theJournal;
    theJournal.Made(kWatcher, "observer");
    theJournal.Observed(0, "observe", kModel, "level", kWatcher);
    theJournal.Observed(theJournal.Destroyed(kModel), "unobserve", kModel, "level", kWatcher);
    TestJournal theTidy = theJournal;
    theTidy.Destroyed(kWatcher);
    theTidy.Ended();
    ExpectNothing(theTidy);
    ExpectNothing(theJournal); // the program has not ended
    theJournal.Ended();
    EXPECT_EQ(Findings(theJournal),
              "observer-left: watcher.level: it observed that key of model, which was destroyed, and was "
              "never destroyed itself (entry 5)\n1 finding\n");
}

TEST(Lint, FindsAPreferenceThatWasNotFlushed)
{
    const std::string theKey =
        R"("object":)" + kPreferences.Text() + R"(,"key":"Level","to":)" + TestUnsigned(3);
    TestJournal theJournal;
    theJournal.Add(0, "write", theKey);
    EXPECT_EQ(Findings(theJournal),
              "not-flushed: [Preferences App].Level: this preference was set to 3 and never written to "
              "its file (entry 2)\n1 finding\n");
    TestJournal theFailed = theJournal;
    theFailed.Add(0, "flush", R"("object":)" + kPreferences.Text() + R"(,"done":false)");
    EXPECT_EQ(Findings(theFailed).substr(0, 11), "not-flushed");
    TestJournal theFlushed = theJournal;
    theFlushed.Add(0, "flush", R"("object":)" + kPreferences.Text() + R"(,"done":true)");
    ExpectNothing(theFlushed);
    theJournal.Destroyed(kPreferences);
    ExpectNothing(theJournal);
}

TEST(Lint, AsksNothingAboutTheBeginningWhenThatIsNotThere)
{
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    TestJournal theText = Bound({{1, kSlider, "value", kModel, "levle"}});
    // The lines without the first one: what was set before is not known.
    Inspect::Journal theJournal =
        JournalWith(theText.GetText().substr(theText.GetText().find('\n') + 1), theErrors);
    EXPECT_EQ(Inspect::RunLint(theJournal, theOutput, theErrors), 0);
    EXPECT_EQ(theOutput.str(), "0 findings\n");
}

TEST(Lint, NamesTheCallerAndThePage)
{
    TestJournal theJournal;
    theJournal.Add(0, "write",
                   R"("callers":["0x1234"],"object":)" + kPreferences.Text() + R"(,"key":"Level","to":)" +
                       TestUnsigned(3));
    std::ostringstream theOutput;
    Inspect::Journal theRead = JournalWith(theJournal.GetText(), theOutput);
    Inspect::RunLint(theRead, theOutput, theOutput);
    EXPECT_NE(theOutput.str().find("  called by 0x1234\n  see Documentation/Tutorial/10-FindingOut.md\n"),
              std::string::npos)
        << theOutput.str();
}

TEST(Lint, IsInTroubleWithoutAJournal)
{
    std::ostringstream theOutput;
    Inspect::Journal theJournal = JournalWith("", theOutput);
    EXPECT_EQ(Inspect::RunLint(theJournal, theOutput, theOutput), 2);
}
