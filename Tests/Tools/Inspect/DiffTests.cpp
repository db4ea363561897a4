// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Diff.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

// A session with two objects, numbered from theFirst on, whose model becomes theLevel.
TestJournal Session(int theFirst, unsigned theLevel)
{
    const TestObject theModel = {theFirst, "LmKeyValueBinding", "model"};
    const TestObject theSlider = {theFirst + 1, "LmControlBinding", "slider"};
    const TestRecord theWay = {theFirst, theSlider, "value", theModel, "level", theFirst};
    TestJournal theJournal;
    theJournal.Made(theModel, "binding");
    theJournal.Made(theSlider, "binding");
    theJournal.Bound(theWay);
    const std::uint64_t theChange =
        theJournal.Changed(theJournal.Action(), theModel, "level", TestUnsigned(1), TestUnsigned(theLevel));
    theJournal.Transformed(theChange, theWay, TestUnsigned(theLevel), TestString("x"));
    theJournal.Add(0, "read",
                   R"("object":)" + theModel.Text() + R"(,"key":"p","is":)" +
                       TestValue("pointer", theFirst == 1 ? "\"0x10\"" : "\"0x20\""));
    return theJournal;
}

std::string Diff(const std::string& theLeft, const std::string& theRight, int theStatus)
{
    std::ostringstream theOutput;
    Inspect::Journal theLeftJournal(FileWith(theLeft), "a", theOutput);
    Inspect::Journal theRightJournal(FileWith(theRight), "b", theOutput);
    EXPECT_EQ(Inspect::RunDiff(theLeftJournal, theRightJournal, theOutput, theOutput), theStatus);
    return theOutput.str();
}

} // namespace

TEST(Diff, TakesNumbersAndAddressesForWhatTheyStandFor)
{
    EXPECT_EQ(Diff(Session(1, 5).GetText(), Session(7, 5).GetText(), 0), "");
}

TEST(Diff, ShowsTheFirstPlaceWhereTwoSessionsPart)
{
    EXPECT_EQ(Diff(Session(1, 5).GetText(), Session(7, 6).GetText(), 1),
              "They part behind 4 entries that both have.\n"
              "< a\n"
              "        5  a person pressed the mouse at 120, 40 (kEventMouseDown)\n"
              "        6    model.level is about to change: 1 -> 5\n"
              "> b\n"
              "        5  a person pressed the mouse at 120, 40 (kEventMouseDown)\n"
              "        6    model.level is about to change: 1 -> 6\n");
}

TEST(Diff, ShowsThatOneEndsEarlier)
{
    TestJournal theLonger = Session(1, 5);
    theLonger.Ended();
    EXPECT_EQ(Diff(Session(1, 5).GetText(), theLonger.GetText(), 1),
              "They part behind 8 entries that both have.\n< a\n        it ends here\n> b\n       10  the "
              "journal ends\n");
}

TEST(Diff, TellsObjectsOfOneNameApart)
{
    const TestObject theFirst = {1, "C", "same"};
    const TestObject theSecond = {2, "C", "same"};
    TestJournal theLeft;
    theLeft.Made(theFirst, "store");
    theLeft.Made(theSecond, "store");
    TestJournal theRight = theLeft;
    theLeft.Changed(0, theFirst, "k", TestUnsigned(1), TestUnsigned(2));
    theRight.Changed(0, theSecond, "k", TestUnsigned(1), TestUnsigned(2));
    EXPECT_EQ(Diff(theLeft.GetText(), theRight.GetText(), 1).substr(0, 41),
              "They part behind 2 entries that both have");
}

TEST(Diff, SeesThatTheCausesDiffer)
{
    const TestObject theStore = {1, "C", "store"};
    TestJournal theLeft;
    theLeft.Changed(theLeft.Action(), theStore, "k", TestUnsigned(1), TestUnsigned(2));
    TestJournal theRight;
    theRight.Action();
    theRight.Changed(0, theStore, "k", TestUnsigned(1), TestUnsigned(2));
    EXPECT_EQ(Diff(theLeft.GetText(), theRight.GetText(), 1).substr(0, 40),
              "They part behind 1 entry that both have.");
}

TEST(Diff, IsInTroubleWithoutAJournal)
{
    EXPECT_EQ(Diff("", Session(1, 5).GetText(), 2), "lminspect: a holds no entry of a journal\n");
}
