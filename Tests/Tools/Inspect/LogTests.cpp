// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Log.h"

#include "TestJournal.h"

#include <gtest/gtest.h>
#include <sstream>

using Inspect::LogOptions;

namespace {

const TestObject kRadio = {1, "LmKeyValueBinding", "radio"};
const TestObject kSlider = {2, "LmControlBinding", "[ControlRef 'volu', 1]"};
const TestObject kText = {3, "LmControlBinding", "[ControlRef 'volu', 2]"};

// A person drags the slider, the radio follows, and the text.
std::string RadioJournal()
{
    TestJournal theJournal;
    const TestRecord theWay = {1, kSlider, "value", kRadio, "volume"};
    const TestRecord theBack = {2, kRadio, "volume", kSlider, "value"};
    const TestRecord theTextRecord = {3, kText, "value", kRadio, "volume", 1};
    theJournal.Bound(theWay);
    const std::uint64_t theEvent = theJournal.Event(theJournal.Action(), kSlider);
    const std::uint64_t theSlider =
        theJournal.Changed(theEvent, kSlider, "value", TestUnsigned(40), TestUnsigned(55));
    const std::uint64_t theRadio =
        theJournal.Changed(theJournal.Updated(theSlider, theBack, TestUnsigned(55)), kRadio, "volume",
                           TestUnsigned(40), TestUnsigned(55));
    theJournal.Kept(theJournal.Updated(theRadio, theWay, TestUnsigned(55)), "equal", kSlider, "value",
                    TestUnsigned(55), TestDouble("55.5"));
    const std::uint64_t theTransform =
        theJournal.Transformed(theRadio, theTextRecord, TestUnsigned(55), TestString("55"));
    theJournal.Changed(theJournal.Updated(theTransform, theTextRecord, TestString("55")), kText, "value",
                       TestString("40"), TestString("55"));
    return theJournal.GetText();
}

std::string LogOf(const LogOptions& theOptions)
{
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith(RadioJournal(), theErrors);
    EXPECT_EQ(Inspect::RunLog(theJournal, theOptions, theOutput, theErrors), 0);
    return theOutput.str() + theErrors.str();
}

} // namespace

TEST(Log, IsATreeOfTheChanges)
{
    EXPECT_EQ(LogOf({}),
              "      3     0.000003 s  a person pressed the mouse at 120, 40 (kEventMouseDown)\n"
              "      4     0.000004 s    [ControlRef 'volu', 1] is told of kEventControlValueFieldChanged\n"
              "      6     0.000006 s      [ControlRef 'volu', 1].value: 40 -> 55\n"
              "      9     0.000009 s        radio.volume: 40 -> 55\n"
              "     11     0.000011 s          [ControlRef 'volu', 1].value stays: 55.5 equals 55, since "
              "numbers are compared as integers\n"
              "     12     0.000012 s          LmToStringTransform: 55 -> \"55\"\n"
              "     15     0.000015 s            [ControlRef 'volu', 2].value: \"40\" -> \"55\"\n");
}

TEST(Log, NamesWhatAPersonChoseOrMoved)
{
    TestJournal theText;
    theText.Add(0, "action",
                R"("event":"kEventCommandProcess","class":"cmds","kind":1,"title":"Night\u0007")");
    theText.Add(0, "action", R"("event":"kEventWindowDragStarted","class":"wind","kind":30,"title":"Radio")");
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theErrors);
    EXPECT_EQ(Inspect::RunLog(theJournal, {}, theOutput, theErrors), 0);
    EXPECT_EQ(theOutput.str(),
              "      2     0.000002 s  a person chose a menu item, \"Night\\u0007\" (kEventCommandProcess)\n"
              "      3     0.000003 s  a person moved a window, \"Radio\" (kEventWindowDragStarted)\n");
}

TEST(Log, ShowsWhatAFilterLetsThrough)
{
    LogOptions theOptions;
    theOptions.theFilter.theObject = "radio";
    theOptions.theFilter.theKinds = {Inspect::What::Changed};
    EXPECT_EQ(LogOf(theOptions), "      9     0.000009 s  radio.volume: 40 -> 55\n");
}

TEST(Log, ShowsWhatLedToWhatAFilterLetsThrough)
{
    LogOptions theOptions;
    theOptions.theFilter.theObject = "radio";
    theOptions.theFilter.theKinds = {Inspect::What::Changed};
    theOptions.hasCauses = true;
    EXPECT_EQ(LogOf(theOptions),
              "      3     0.000003 s  a person pressed the mouse at 120, 40 (kEventMouseDown)\n"
              "      4     0.000004 s    [ControlRef 'volu', 1] is told of kEventControlValueFieldChanged\n"
              "      6     0.000006 s      [ControlRef 'volu', 1].value: 40 -> 55\n"
              "      9     0.000009 s        radio.volume: 40 -> 55\n");
}

TEST(Log, ShowsEverythingToWhoLooksClosely)
{
    LogOptions theOptions;
    theOptions.isAll = true;
    theOptions.theFilter.theLatest = 7000;
    theOptions.theFilter.theEarliest = 2000;
    EXPECT_EQ(LogOf(theOptions),
              "      2     0.000002 s  [ControlRef 'volu', 1].value is bound to radio.volume\n"
              "      3     0.000003 s  a person pressed the mouse at 120, 40 (kEventMouseDown)\n"
              "      4     0.000004 s    [ControlRef 'volu', 1] is told of kEventControlValueFieldChanged\n"
              "      5     0.000005 s      [ControlRef 'volu', 1].value is about to change: 40 -> 55\n"
              "      6     0.000006 s      [ControlRef 'volu', 1].value: 40 -> 55\n"
              "      7     0.000007 s        radio.volume gets 55 from [ControlRef 'volu', 1].value\n");
}

TEST(Log, SaysThatNoCallersWereKept)
{
    LogOptions theOptions;
    theOptions.theFilter.theCaller = "main";
    EXPECT_EQ(LogOf(theOptions),
              "lminspect: no callers were kept; LM_JOURNAL_CALLERS=8 keeps eight of each call\n");
}
