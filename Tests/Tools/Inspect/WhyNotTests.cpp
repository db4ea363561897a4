// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "WhyNot.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

const TestObject kModel = {1, "LmKeyValueBinding", "model"};
const TestObject kSlider = {2, "LmControlBinding", "slider"};
const TestObject kWatcher = {3, "Watcher", "watcher"};
const TestRecord kWay = {1, kSlider, "value", kModel, "level"};

std::string WhyNot(const TestJournal& theText, const std::string& theTarget, int theStatus = 0)
{
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theErrors);
    EXPECT_EQ(Inspect::RunWhyNot(theJournal, theTarget, theOutput, theErrors), theStatus);
    return theOutput.str() + theErrors.str();
}

void ExpectSaid(const TestJournal& theText, const std::string& theTarget, const std::string& theSentence)
{
    const std::string theAnswer = WhyNot(theText, theTarget);
    EXPECT_NE(theAnswer.find(theSentence), std::string::npos) << theAnswer;
}

} // namespace

TEST(WhyNot, NumbersAreEqualAsIntegers)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Changed(0, kSlider, "value", TestInvalid(), TestDouble("20"));
    const std::uint64_t theChange =
        theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestDouble("20.25"));
    theJournal.Kept(theJournal.Updated(theChange, kWay, TestDouble("20.25")), "equal", kSlider, "value",
                    TestDouble("20"), TestDouble("20.25"));
    EXPECT_EQ(WhyNot(theJournal, "slider.value"),
              "slider.value is 20 since 0.000004 s (entry 4).\n"
              "\n"
              "It follows model.level (entry 2).\n"
              "  model.level moved last at 0.000006 s (entry 6), and became 20.25.\n"
              "  The key stayed: 20.25 equals 20, since numbers are compared as integers (entry 8).\n");
}

TEST(WhyNot, TheValueIsThereAlready)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    const std::uint64_t theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    theJournal.Kept(theJournal.Updated(theChange, kWay, TestUnsigned(20)), "equal", kSlider, "value",
                    TestUnsigned(20), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value", "The key has that value already: 20 (entry 6).\n");
}

TEST(WhyNot, ThereIsNothingInTheWay)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    const std::uint64_t theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    theJournal.Changed(theJournal.Updated(theChange, kWay, TestUnsigned(20)), kSlider, "value",
                       TestUnsigned(7), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value", "That reached the key, which became 20 (entry 7).\n");
}

TEST(WhyNot, TheSetIsNestedTooDeep)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    const std::uint64_t theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    theJournal.Kept(theJournal.Updated(theChange, kWay, TestUnsigned(20)), "refused", kSlider, "value",
                    TestUnsigned(7), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value",
               "The key stayed 7: the set was nested in itself too deep (entry 6).\n");
}

TEST(WhyNot, AnotherKeyOfTheObjectIsServed)
{
    const TestRecord theFirst = {4, kSlider, "maximum", kModel, "level"};
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Bound(theFirst);
    const std::uint64_t theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    theJournal.Changed(theJournal.Updated(theChange, theFirst, TestUnsigned(20)), kSlider, "maximum",
                       TestUnsigned(7), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value",
               "only the one that sorts first is served: \"maximum\" got the value (entry 6).\n");
    ExpectSaid(theJournal, "slider.maximum", "That reached the key, which became 20");
}

TEST(WhyNot, TheControlsOwnChangeWasCopied)
{
    const TestRecord theBack = {2, kModel, "level", kSlider, "value"};
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Bound(theBack);
    const std::uint64_t theEvent = theJournal.Event(theJournal.Action(), kSlider);
    const std::uint64_t theSlider =
        theJournal.Changed(theEvent, kSlider, "value", TestUnsigned(7), TestUnsigned(30));
    const std::uint64_t theModel =
        theJournal.Changed(theJournal.Updated(theSlider, theBack, TestUnsigned(30)), kModel, "level",
                           TestUnsigned(7), TestUnsigned(30));
    // The model does not take more than 25.
    const std::uint64_t theClamp =
        theJournal.Changed(theModel, kModel, "level", TestUnsigned(30), TestUnsigned(25));
    theJournal.Changed(theJournal.Updated(theClamp, kWay, TestUnsigned(25)), kSlider, "value",
                       TestUnsigned(30), TestUnsigned(25));
    ExpectSaid(theJournal, "slider.value",
               "slider.value is 25 since 0.000015 s (entry 15).\n"
               "The control still shows 30: the key changed (entry 15) while the control's own change was "
               "copied, and "
               "nothing is written back then.\n");

    // What is set later is written again.
    theJournal.Changed(0, kSlider, "value", TestUnsigned(25), TestUnsigned(3));
    EXPECT_EQ(WhyNot(theJournal, "slider.value").find("still shows"), std::string::npos);
}

TEST(WhyNot, ThereIsNoSuchKeyYet)
{
    TestJournal theJournal;
    theJournal.Bound({1, kSlider, "value", kModel, "levle"});
    theJournal.Changed(0, kModel, "level", TestInvalid(), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value",
               "  model.levle has not moved.\n"
               "  There is no such key yet: model never had a value for \"levle\"; it has level.\n");
}

TEST(WhyNot, TheTwoAreNoLongerBound)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Unbound(0, kWay);
    theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value", "\nIt followed model.level (entry 2).\n");
    ExpectSaid(theJournal, "slider.value", "The two are no longer bound since entry 3.\n");
}

TEST(WhyNot, RemovingOneOfTwoBindingsEndedTheObservation)
{
    TestJournal theJournal;
    theJournal.Observed(0, "observe", kModel, "level", kSlider);
    theJournal.Bound(kWay);
    theJournal.Observed(0, "unobserve", kModel, "level", kSlider);
    theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    ExpectSaid(theJournal, "slider.value",
               "slider has not observed it since entry 4: removing one of two bindings");
}

TEST(WhyNot, TheTransformMadeNothingOfIt)
{
    const TestRecord theWay = {1, kSlider, "value", kModel, "level", 1};
    TestJournal theJournal;
    theJournal.Bound(theWay);
    const std::uint64_t theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(20));
    const std::uint64_t theTransform =
        theJournal.Transformed(theChange, theWay, TestUnsigned(20), TestInvalid());
    theJournal.Changed(theJournal.Updated(theTransform, theWay, TestInvalid()), kSlider, "value",
                       TestUnsigned(1), TestInvalid());
    ExpectSaid(theJournal, "slider.value",
               "which became not valid (entry 8). The transform made no valid value of 20.\n");
}

TEST(WhyNot, NothingWasValidWhenTheyWereBound)
{
    TestJournal theJournal;
    theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestInvalid());
    theJournal.Changed(0, kModel, "level", TestInvalid(), TestUnsigned(1));
    theJournal.Changed(0, kModel, "level", TestUnsigned(1), TestInvalid());
    theJournal.Bound(kWay);
    ExpectSaid(theJournal, "slider.value",
               "Its value when the two were bound was not valid, so nothing was copied");
}

TEST(WhyNot, NobodyIsToldOfAKeyWithoutAKeyState)
{
    TestJournal theJournal;
    theJournal.Observed(0, "observe", kModel, "*", kWatcher);
    theJournal.Changed(0, kModel, "level", TestUnsigned(1), TestUnsigned(2));
    ExpectSaid(theJournal, "model.level",
               "model has observers of \"*\" that did not hear of each change of \"level\"");
    theJournal.Observed(0, "observe", kModel, "level", kWatcher);
    TestJournal theOther;
    theOther.Observed(0, "observe", kModel, "level", kWatcher);
    theOther.Observed(0, "observe", kModel, "*", kWatcher);
    theOther.Changed(0, kModel, "level", TestUnsigned(1), TestUnsigned(2));
    EXPECT_EQ(WhyNot(theOther, "model.level").find("key state"), std::string::npos);
}

TEST(WhyNot, OneWayIsNotTheOther)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Changed(0, kSlider, "value", TestUnsigned(1), TestUnsigned(2));
    theJournal.Destroyed(kModel);
    EXPECT_EQ(WhyNot(theJournal, "model.level"),
              "model.level has not changed in this journal.\n"
              "model has been destroyed.\n"
              "\n"
              "It is bound to nothing: it moves when code sets it.\n"
              "\n"
              "slider.value follows it one way (entry 2): what happens there does not come here.\n");
}

TEST(WhyNot, TheSourceDependsOnAKeyThatItselfDependsOnAnotherOne)
{
    TestJournal theJournal;
    theJournal.Add(0, "depend", R"("object":)" + kModel.Text() + R"(,"key":"width","dependent":"area")");
    theJournal.Add(0, "depend", R"("object":)" + kModel.Text() + R"(,"key":"area","dependent":"level")");
    theJournal.Bound(kWay);
    const std::uint64_t theFirst = theJournal.Updated(0, kWay, TestUnsigned(7));
    theJournal.Changed(theFirst, kSlider, "value", TestInvalid(), TestUnsigned(7));
    const std::uint64_t theWidth = theJournal.Changed(0, kModel, "width", TestUnsigned(3), TestUnsigned(5));
    theJournal.Told(theWidth, kModel, "area", TestUnsigned(20), "width");
    const std::string theSilence =
        "It depends on \"area\", which only depends on \"width\" itself, and was told (entry 10): dependents "
        "of dependents are not told.\n";
    ExpectSaid(theJournal, "slider.value",
               "  model.level has not moved.\n"
               "  " +
                   theSilence +
                   "  Its value was copied when the two were bound. That reached the key, which became 7 "
                   "(entry 7).\n");
    // Its own change comes later.
    theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    EXPECT_EQ(WhyNot(theJournal, "slider.value").find(theSilence), std::string::npos);
    theJournal.Told(theWidth, kModel, "area", TestUnsigned(20), "width");
    ExpectSaid(theJournal, "slider.value", "It depends on \"area\"");
    theJournal.Add(0, "undepend", R"("object":)" + kModel.Text() + R"(,"key":"area","dependent":"level")");
    EXPECT_EQ(WhyNot(theJournal, "slider.value").find("It depends on"), std::string::npos);
}

TEST(WhyNot, NamesTheNearestWhereThereIsNoSuchKey)
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    EXPECT_EQ(WhyNot(theJournal, "slider.valu", 2),
              "lminspect: there is no slider.valu in the journal; did you mean slider.value?\n");
}
