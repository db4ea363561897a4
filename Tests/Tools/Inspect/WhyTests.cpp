// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Why.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

const TestObject kRadio = {1, "LmKeyValueBinding", "radio"};
const TestObject kSlider = {2, "LmControlBinding", "[ControlRef 'volu', 1]"};
const TestObject kText = {3, "LmControlBinding", "[ControlRef 'volu', 2]"};
const TestRecord kWay = {1, kSlider, "value", kRadio, "volume"};
const TestRecord kBack = {2, kRadio, "volume", kSlider, "value"};
const TestRecord kTextWay = {3, kText, "value", kRadio, "volume", 1};

// The radio's volume becomes theNew because of theCause, and the text follows.
void MoveRadio(TestJournal& theJournal, std::uint64_t theCause, unsigned theOld, unsigned theNew)
{
    const std::uint64_t theRadio =
        theJournal.Changed(theCause, kRadio, "volume", TestUnsigned(theOld), TestUnsigned(theNew));
    const std::uint64_t theTransform =
        theJournal.Transformed(theRadio, kTextWay, TestUnsigned(theNew), TestString(std::to_string(theNew)));
    theJournal.Changed(theJournal.Updated(theTransform, kTextWay, TestString(std::to_string(theNew))), kText,
                       "value", TestString(std::to_string(theOld)), TestString(std::to_string(theNew)));
}

// A person drags the slider.
void Drag(TestJournal& theJournal, unsigned theOld, unsigned theNew)
{
    const std::uint64_t theEvent = theJournal.Event(theJournal.Action(), kSlider);
    const std::uint64_t theSlider =
        theJournal.Changed(theEvent, kSlider, "value", TestUnsigned(theOld), TestUnsigned(theNew));
    MoveRadio(theJournal, theJournal.Updated(theSlider, kBack, TestUnsigned(theNew)), theOld, theNew);
}

TestJournal Bound()
{
    TestJournal theJournal;
    theJournal.Bound(kWay);
    theJournal.Bound(kBack);
    theJournal.Bound(kTextWay);
    return theJournal;
}

std::string Why(const std::string& theText, const std::string& theTarget, std::uint64_t theTime = 0,
                int theStatus = 0)
{
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith(theText, theErrors);
    EXPECT_EQ(Inspect::RunWhy(theJournal, theTarget, theTime, theOutput, theErrors), theStatus);
    return theOutput.str() + theErrors.str();
}

} // namespace

TEST(Why, GoesBackThroughBindingsAndTransformsToAPerson)
{
    TestJournal theJournal = Bound();
    Drag(theJournal, 40, 55);
    EXPECT_EQ(Why(theJournal.GetText(), "[ControlRef 'volu', 2].value"),
              "[ControlRef 'volu', 2].value became \"55\" (it was \"40\") at 0.000015 s.\n"
              "It began when a person pressed the mouse at 120, 40 (kEventMouseDown).\n"
              "\n"
              "       15  [ControlRef 'volu', 2].value: \"40\" -> \"55\"\n"
              "           bound to radio.volume, through a transform\n"
              "       12  LmToStringTransform: 55 -> \"55\"\n"
              "       11  radio.volume: 40 -> 55\n"
              "           bound to [ControlRef 'volu', 1].value, as it is\n"
              "        8  [ControlRef 'volu', 1].value: 40 -> 55\n"
              "           copied from its control, which had changed\n"
              "        6  [ControlRef 'volu', 1] is told of kEventControlValueFieldChanged\n"
              "        5  a person pressed the mouse at 120, 40 (kEventMouseDown)\n");
}

TEST(Why, EndsInTheProgramsOwnCode)
{
    TestJournal theJournal = Bound();
    MoveRadio(theJournal, 0, 40, 55);
    EXPECT_EQ(Why(theJournal.GetText(), "radio.volume"),
              "radio.volume became 55 (it was 40) at 0.000006 s.\n"
              "It began in the program's own code. LM_JOURNAL_CALLERS=8 would say in which line.\n"
              "\n"
              "        6  radio.volume: 40 -> 55\n"
              "           set by the program's own code\n");
}

TEST(Why, NamesTheCaller)
{
    TestJournal theJournal;
    theJournal.Add(0, "changed",
                   R"("callers":["0x1234"],"object":)" + kRadio.Text() + R"(,"key":"volume","was":)" +
                       TestUnsigned(1) + R"(,"is":)" + TestUnsigned(2));
    const std::string theText = Why(theJournal.GetText(), "radio.volume");
    EXPECT_NE(theText.find("It began in the program's own code: 0x1234.\n"), std::string::npos) << theText;
    EXPECT_NE(theText.find("set by the program's own code: 0x1234\n"), std::string::npos) << theText;
}

TEST(Why, AnswersForAnEarlierValue)
{
    TestJournal theJournal = Bound();
    MoveRadio(theJournal, 0, 40, 55);
    Drag(theJournal, 55, 60);
    EXPECT_EQ(Why(theJournal.GetText(), "radio.volume", 1).substr(0, 32), "radio.volume became 55 (it was 4");
    EXPECT_EQ(Why(theJournal.GetText(), "radio.volume", 2).substr(0, 32), "radio.volume became 60 (it was 5");
    EXPECT_EQ(Why(theJournal.GetText(), "radio.volume", 3, 2),
              "lminspect: radio.volume has changed 2 times, not 3\n");
}

TEST(Why, ExplainsAKeyThatDependsOnAnother)
{
    TestJournal theJournal;
    theJournal.Changed(0, kRadio, "volume", TestUnsigned(1), TestUnsigned(2));
    const std::uint64_t theTold = theJournal.Told(0, kRadio, "text", TestString("loud"), "volume");
    theJournal.Changed(theTold, kText, "title", TestString("soft"), TestString("loud"));
    EXPECT_EQ(Why(theJournal.GetText(), "[ControlRef 'volu', 2].title"),
              "[ControlRef 'volu', 2].title became \"loud\" (it was \"soft\") at 0.000006 s.\n"
              "It began in the program's own code. LM_JOURNAL_CALLERS=8 would say in which line.\n"
              "\n"
              "        6  [ControlRef 'volu', 2].title: \"soft\" -> \"loud\"\n"
              "           set by an observer of radio.text\n"
              "        4  radio.text is \"loud\": it depends on \"volume\"\n"
              "        3  radio.volume: 1 -> 2\n");
}

TEST(Why, SaysWhenTheBeginningIsNotThere)
{
    TestJournal theJournal;
    theJournal.Changed(0, kRadio, "volume", TestUnsigned(1), TestUnsigned(2));
    std::string theText = theJournal.GetText();
    // The entry says that another one led to it, which is in no line.
    const std::string theHead = R"({"n":4,"cause":2,"t":1,"what":"changed","object":)";
    theText += theHead + kText.Text() + R"(,"key":"value","was":)" + TestUnsigned(1) + R"(,"is":)" +
               TestUnsigned(3) + "}\n";
    EXPECT_NE(Why(theText, "[ControlRef 'volu', 2].value").find("What led to entry 4 is not in the journal."),
              std::string::npos);
}

TEST(Why, SaysThatAKeyHasNotChanged)
{
    TestJournal theJournal = Bound();
    EXPECT_EQ(Why(theJournal.GetText(), "radio.volume"),
              "radio.volume has not changed. 'lminspect why not' says what could have changed it.\n");
}

TEST(Why, NamesWhatAPersonCouldHaveMeant)
{
    TestJournal theJournal = Bound();
    EXPECT_EQ(Why(theJournal.GetText(), "radio.volum", 0, 2),
              "lminspect: there is no radio.volum in the journal; did you mean radio.volume?\n");
    EXPECT_EQ(Why(theJournal.GetText(), "LmControlBinding.value", 0, 2),
              "lminspect: 2 objects are called so; say which: #2.value or #3.value\n");
    EXPECT_EQ(Why(theJournal.GetText(), "#3.value"),
              "[ControlRef 'volu', 2].value has not changed. 'lminspect why not' says what could have "
              "changed it.\n");
    EXPECT_EQ(Why("", "a.b", 0, 2), "lminspect: test.journal holds no entry of a journal\n");
}
