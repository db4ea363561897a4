// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EntryParser.h"

#include "LineReader.h"
#include "Text.h"

#include <gtest/gtest.h>

using Inspect::Entry;
using Inspect::EntryParser;
using Inspect::LineReader;
using Inspect::What;

namespace {

// The finding, or nothing.
std::string Parse(const std::string& theLine, Entry& theEntry)
{
    EntryParser theParser;
    const std::string thePadded = theLine + std::string(LineReader::kPadding, '!');
    return theParser.Parse(std::string_view(thePadded).substr(0, theLine.size()), theEntry);
}

std::string Parse(const std::string& theLine)
{
    Entry theEntry;
    return Parse(theLine, theEntry);
}

// An entry "changed" whose value is theValue.
std::string WithValue(const std::string& theValue)
{
    return R"({"n":1,"t":0,"what":"changed","object":{"id":1,"class":"C"},"key":"k","was":{"kind":"invalid"},"is":)" +
           theValue + "}";
}

std::string ShownValue(const std::string& theValue)
{
    Entry theEntry;
    const std::string theFinding = Parse(WithValue(theValue), theEntry);
    return theFinding.empty() ? Inspect::Show(theEntry.theNew) : theFinding;
}

const std::string kBadIs = "its field \"is\" is not what the format says";

} // namespace

TEST(EntryParser, ReadsAllFieldsOfAChange)
{
    Entry theEntry;
    EXPECT_EQ(
        Parse(
            R"({"n":35,"cause":33,"t":9141870,"what":"changed","thread":2,"callers":["0x55d0c2a41b2f","0x1"],)"
            R"("object":{"id":2,"class":"LmControlBinding","name":"Volume"},"key":"value",)"
            R"("was":{"kind":"uint32","value":40},"is":{"kind":"sint32","value":-55},"changing":34})",
            theEntry),
        "");
    EXPECT_EQ(theEntry.theNumber, 35U);
    EXPECT_EQ(theEntry.theCause, 33U);
    EXPECT_EQ(theEntry.theTime, 9141870U);
    EXPECT_EQ(theEntry.theThread, 2U);
    EXPECT_EQ(theEntry.theWhat, What::Changed);
    EXPECT_EQ(theEntry.theCallers, (std::vector<std::uint64_t>{0x55d0c2a41b2f, 1}));
    EXPECT_EQ(theEntry.theObject.theID, 2U);
    EXPECT_EQ(theEntry.theObject.theClass, "LmControlBinding");
    EXPECT_EQ(theEntry.theObject.theName, "Volume");
    EXPECT_EQ(theEntry.theKey, "value");
    EXPECT_EQ(Inspect::Show(theEntry.theOld), "40");
    EXPECT_EQ(Inspect::Show(theEntry.theNew), "-55");
    EXPECT_EQ(theEntry.theChanging, 34U);
}

TEST(EntryParser, ReadsEachKindOfValue)
{
    const std::vector<std::pair<std::string, std::string>> theRows = {
        {R"({"kind":"invalid"})", "not valid"},
        {R"({"kind":"boolean","value":true})", "true"},
        {R"({"kind":"uint32","value":4294967295})", "4294967295"},
        {R"({"kind":"sint32","value":-2147483648})", "-2147483648"},
        {R"({"kind":"uint64","value":"18446744073709551615"})", "18446744073709551615"},
        {R"({"kind":"sint64","value":"-9223372036854775808"})", "-9223372036854775808"},
        {R"({"kind":"double","value":20.5})", "20.5"},
        {R"({"kind":"double","value":20})", "20"},
        {R"({"kind":"double","value":"-inf"})", "-inf"},
        {R"({"kind":"double","value":"nan"})", "nan"},
        {R"({"kind":"pointer","value":"0x7f00e8a01c40"})", "0x7f00e8a01c40"},
        {R"({"kind":"pointer","value":"0x0"})", "null pointer"},
        {R"({"kind":"string","value":"Kitchen"})", "\"Kitchen\""},
        {R"({"kind":"string","value":"Kit","bytes":7})", "\"Kit\" (7 bytes)"},
        {R"({"kind":"string","value":null})", "null"},
        {R"({"kind":"point","value":[1,2.5]})", "(1, 2.5)"},
        {R"({"kind":"size","value":["nan",2]})", "(nan, 2)"},
        {R"({"kind":"rect","value":[1,2,3,4]})", "(1, 2, 3, 4)"},
        {R"({"kind":"unknown","value":99})", "a kind of its own (99)"}};
    for (const auto& [theText, theShown] : theRows) {
        EXPECT_EQ(ShownValue(theText), theShown) << theText;
    }
}

TEST(EntryParser, RefusesValuesBeyondTheRangeOfTheirKind)
{
    const std::vector<std::string> theRows = {
        R"({"kind":"uint32","value":4294967296})",
        R"({"kind":"uint32","value":-1})",
        R"({"kind":"uint32","value":1.5})",
        R"({"kind":"sint32","value":2147483648})",
        R"({"kind":"uint64","value":"18446744073709551616"})",
        R"({"kind":"uint64","value":"-1"})",
        R"({"kind":"uint64","value":18})",
        R"({"kind":"uint64","value":""})",
        R"({"kind":"sint64","value":"9223372036854775808"})",
        R"({"kind":"sint64","value":"-9223372036854775809"})",
        R"({"kind":"sint64","value":"+1"})",
        R"({"kind":"double","value":"many"})",
        R"({"kind":"pointer","value":"7f"})",
        R"({"kind":"pointer","value":"0x"})",
        R"({"kind":"pointer","value":"0x00000000000000001"})",
        R"({"kind":"boolean","value":1})",
        R"({"kind":"string","value":7})",
        R"({"kind":"string","value":"Kit","bytes":-1})",
        R"({"kind":"point","value":[1]})",
        R"({"kind":"rect","value":[1,2,3,4,5]})",
        R"({"kind":"colour","value":1})",
        R"({"kind":"sint32"})",
        R"({"value":1})",
        R"(7)",
    };
    for (const std::string& theRow : theRows) {
        EXPECT_EQ(ShownValue(theRow), kBadIs) << theRow;
    }
}

TEST(EntryParser, SaysWhatIsWrongWithALine)
{
    EXPECT_EQ(Parse("[1,2]"), "it is no JSON object");
    EXPECT_EQ(Parse(R"({"t":0,"what":"end"})"), "it has no field \"n\"");
    EXPECT_EQ(Parse(R"({"n":0,"t":0,"what":"end"})"), "its number is 0");
    EXPECT_EQ(Parse(R"({"n":-1,"t":0,"what":"end"})"), "its field \"n\" is not what the format says");
    EXPECT_EQ(Parse(R"({"n":5,"cause":5,"t":0,"what":"end"})"), "its cause, 5, is not before it");
    EXPECT_EQ(Parse(R"({"n":5,"cause":99999999999999999999,"t":0,"what":"end"})").empty(), false);
    EXPECT_EQ(Parse(R"({"n":5,"t":0})"), "it has no field \"what\"");
    EXPECT_EQ(Parse(R"({"n":5,"t":0,"what":"end","thread":4294967296})"),
              "its field \"thread\" is not what the format says");
    EXPECT_EQ(Parse(R"({"n":5,"t":0,"what":"end","callers":["main"]})"),
              "its field \"callers\" is not what the format says");
    EXPECT_EQ(Parse(R"({"n":5,"t":0,"what":"destroyed"})"), "it has no field \"object\"");
    EXPECT_EQ(Parse(R"({"n":5,"t":0,"what":"destroyed","object":{"id":0}})"),
              "its field \"object\" is not what the format says");
}

TEST(EntryParser, EndsInAMessageForWhatIsNoJSON)
{
    for (const std::string& theLine :
         {std::string("{\"n\":1,"), std::string("\xff\xfe"), std::string(1, '\0'),
          std::string("{\"n\":1e999}"), std::string("{\"n\":\"\xc3\x28\"}"), std::string(100000, '['),
          std::string("{\"n\":1}}")}) {
        EXPECT_FALSE(Parse(theLine).empty());
    }
}

TEST(EntryParser, TakesAKindThatIsNotKnownYetAsUnknown)
{
    Entry theEntry;
    EXPECT_EQ(Parse(R"({"n":7,"t":1,"what":"moon","object":3})", theEntry), "");
    EXPECT_EQ(theEntry.theWhat, What::Unknown);
}

TEST(EntryParser, LeavesNothingOfTheLineBefore)
{
    EntryParser theParser;
    Entry theEntry;
    const std::string thePadding(LineReader::kPadding, ' ');
    const std::string theFirst =
        R"({"n":1,"t":5,"what":"update","thread":3,"callers":["0x5"],"object":{"id":2,"class":"C","name":"N"},"key":"k",)"
        R"("from":{"id":3},"fromKey":"f","record":4,"transform":{"id":1,"class":"T"},"to":{"kind":"string","value":"s","bytes":9}})";
    const std::string theSecond = R"({"n":2,"t":0,"what":"end"})";
    EXPECT_EQ(theParser.Parse(std::string_view(theFirst + thePadding).substr(0, theFirst.size()), theEntry),
              "");
    EXPECT_EQ(theEntry.theRecord, 4U);
    EXPECT_EQ(theParser.Parse(std::string_view(theSecond + thePadding).substr(0, theSecond.size()), theEntry),
              "");
    EXPECT_EQ(theEntry.theThread, 1U);
    EXPECT_TRUE(theEntry.theCallers.empty());
    EXPECT_EQ(theEntry.theObject.theID, 0U);
    EXPECT_EQ(theEntry.theObject.theName + theEntry.theKey + theEntry.theOtherKey +
                  theEntry.theTransform.theClass,
              "");
    EXPECT_EQ(theEntry.theRecord, 0U);
    EXPECT_FALSE(theEntry.theGoal.IsThere());
    EXPECT_EQ(theEntry.theGoal.theBytes, 0U);
}

TEST(EntryParser, ReadsActionsEventsAndModules)
{
    Entry theEntry;
    EXPECT_EQ(
        Parse(R"({"n":1,"t":0,"what":"action","event":"kEventRawKeyDown","class":"keyb","kind":1,"code":36})",
              theEntry),
        "");
    EXPECT_EQ(theEntry.theKeyCode, std::optional<std::uint64_t>(36));
    EXPECT_EQ(
        Parse(
            R"({"n":1,"t":0,"what":"action","event":"kEventCommandProcess","class":"cmds","kind":1,"title":"Night"})",
            theEntry),
        "");
    EXPECT_EQ(theEntry.theTitle, "Night");
    EXPECT_EQ(Parse(R"({"n":1,"t":0,"what":"action","event":null,"class":"mous","kind":9,"place":[1.5,2]})",
                    theEntry),
              "");
    EXPECT_EQ(theEntry.theText, "");
    EXPECT_EQ(theEntry.theTitle, "");
    EXPECT_EQ(theEntry.thePlace, (std::optional<std::pair<double, double>>({1.5, 2})));
    EXPECT_EQ(
        Parse(
            R"({"n":1,"t":0,"what":"module","path":"/bin/App","base":"0x1000","end":"0x2000","fixed":true,"build":"ab"})",
            theEntry),
        "");
    EXPECT_EQ(theEntry.theModule.theBase, 0x1000U);
    EXPECT_TRUE(theEntry.theModule.isFixed);
    EXPECT_EQ(theEntry.theModule.theBuild, "ab");
}
