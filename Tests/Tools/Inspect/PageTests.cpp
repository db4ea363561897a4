// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Page.h"

#include "PageParts.h"
#include "TestJournal.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace {

const TestObject kModel = {1, "LmKeyValueBinding", "model"};
const TestObject kText = {2, "LmControlBinding", "text"};
const TestRecord kWay = {1, kText, "value", kModel, "level", 1};

std::string DataOf(const TestJournal& theText, std::size_t theMost = Inspect::kMostOnPage,
                   std::size_t theMostPlaced = Inspect::kMostPlaced)
{
    std::ostringstream theOutput;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theOutput);
    Inspect::PageData theData(theMost, theMostPlaced);
    for (Inspect::Entry theEntry; theJournal.Next(theEntry);) {
        theData.Take(theEntry);
    }
    theData.Write(theJournal, theOutput);
    return theOutput.str();
}

std::string PageOf(const TestJournal& theText)
{
    std::ostringstream theOutput;
    Inspect::Journal theJournal = JournalWith(theText.GetText(), theOutput);
    EXPECT_EQ(Inspect::RunPage(theJournal, "", theOutput, theOutput), 0);
    return theOutput.str();
}

bool Has(const std::string& theAll, const std::string& theText)
{
    return theAll.find(theText) != std::string::npos;
}

std::size_t CountOf(const std::string& theAll, const std::string& theText)
{
    std::size_t theCount = 0;
    for (std::size_t thePlace = theAll.find(theText); thePlace != std::string::npos;
         thePlace = theAll.find(theText, thePlace + 1)) {
        ++theCount;
    }
    return theCount;
}

// The model's level moves, and the text follows it.
TestJournal Moved()
{
    TestJournal theJournal;
    theJournal.Made(kModel, "binding");
    theJournal.Bound(kWay);
    const auto theChange = theJournal.Changed(0, kModel, "level", TestUnsigned(7), TestUnsigned(8));
    const auto theTransform = theJournal.Transformed(theChange, kWay, TestUnsigned(8), TestString("8"));
    const auto theUpdate = theJournal.Updated(theTransform, kWay, TestString("8"));
    theJournal.Changed(theUpdate, kText, "value", TestString("7"), TestString("8"));
    theJournal.Ended();
    return theJournal;
}

// A journal in which everything is called theName, which is written as JSON.
TestJournal Called(const std::string& theName)
{
    const TestObject theModel = {1, theName, theName};
    TestJournal theJournal;
    theJournal.Made(theModel, "binding");
    theJournal.Changed(0, theModel, theName, TestInvalid(), TestString(theName));
    theJournal.Add(0, "diagnostic", R"("file":")" + theName + R"(","line":1,"message":")" + theName + "\"");
    return theJournal;
}

} // namespace

TEST(Page, HoldsObjectsKeysWiresAndWhatEachEntryMoves)
{
    const std::string theData = DataOf(Moved());
    EXPECT_TRUE(
        Has(theData, R"("count":10,"missing":0,"before":0,"whole":true,"ended":true,"callers":false)"))
        << theData;
    EXPECT_TRUE(Has(theData, R"("objects":[[1,1,2],[2,3,4]],"keys":[[1,5],[0,6]],"wires":[[0,0,1,1,0,7,0]])"))
        << theData;
    EXPECT_TRUE(Has(theData, R"("beginning":[1,8,0,9])")) << theData;
    EXPECT_TRUE(Has(theData, R"("texts":["","model","LmKeyValueBinding","text","LmControlBinding","value",)"
                             R"("level","LmToStringTransform","7","\u00227\u0022")"))
        << theData;
    EXPECT_TRUE(Has(theData, R"([5,0,5000,15,0,1,-1,)")) << "the change of level: " << theData;
    EXPECT_TRUE(Has(theData, R"("bound to model.level, through a transform")")) << theData;
}

TEST(Page, BeginsWithHowThingsStoodWhenAJournalIsLong)
{
    const std::string theData = DataOf(Moved(), 3);
    EXPECT_TRUE(Has(theData, R"("count":10,"missing":0,"before":7)")) << theData;
    EXPECT_FALSE(Has(theData, R"([5,0,5000,)")) << "entry 5 is before: " << theData;
    EXPECT_TRUE(Has(theData, R"([8,7,8000,)")) << theData;
    EXPECT_TRUE(Has(theData, R"("beginning":[2,1,)")) << "the first of the objects is there: " << theData;
    EXPECT_TRUE(Has(theData, R"("wires":[[0,0,0,1,1,)")) << "what was bound before is bound: " << theData;
}

TEST(Page, HoldsWhatLintFinds)
{
    TestJournal theJournal;
    theJournal.Made(kModel, "binding");
    theJournal.Bound(kWay);
    theJournal.Ended();
    const std::string theData = DataOf(theJournal);
    EXPECT_TRUE(Has(theData, R"("findings":[["never-set",3,"text.value",)")) << theData;
    EXPECT_TRUE(Has(theData, R"(,1,"Documentation/)")) << theData;
}

TEST(Page, SaysWhyThereIsNoLayoutOfManyObjects)
{
    const std::string theMany = R"("layout":{"problem":"there are more than 1 objects"})";
    EXPECT_TRUE(Has(DataOf(Moved(), Inspect::kMostOnPage, 1), theMany));
    EXPECT_TRUE(Has(DataOf(Moved(), Inspect::kMostOnPage, 2), R"("layout":{"problem":"","size":[)"));
}

TEST(Page, CanHoldNothingAtAll)
{
    const std::string theData = DataOf(TestJournal());
    EXPECT_TRUE(Has(theData, R"("objects":[],"keys":[],"wires":[],"beginning":[])")) << theData;
    EXPECT_TRUE(Has(theData, R"("layout":{"problem":"","size":[0.0,0.0],"boxes":[],"lines":[]})")) << theData;
}

TEST(Page, IsOneFileWithAPolicyThatKnowsItsScriptAndItsStyle)
{
    const std::string thePage = PageOf(Moved());
    EXPECT_EQ(thePage.rfind("<!DOCTYPE html>", 0), 0U);
    EXPECT_EQ(CountOf(thePage, "<script"), 2U);
    EXPECT_EQ(CountOf(thePage, "</script>"), 2U);
    EXPECT_TRUE(Has(thePage, "content=\"default-src 'none'; script-src 'sha256-" +
                                 std::string(Inspect::GetPageScriptHash()) + "'; style-src 'sha256-"));
    EXPECT_EQ(Inspect::GetPageScriptHash().size(), 44U);
    EXPECT_FALSE(Has(thePage, "http://") && !Has(thePage, "http://www.w3.org/2000/svg"));
    EXPECT_FALSE(Has(thePage, "https://"));
    EXPECT_FALSE(Has(thePage, "@DATA@"));
}

TEST(Page, TakesNoTextForMarkup)
{
    const std::string thePage = PageOf(Called("</script><script>alert(1)</script><!-- @SCRIPT@"));
    EXPECT_EQ(CountOf(thePage, "<script"), 2U);
    EXPECT_FALSE(Has(thePage, "alert(1)</"));
    EXPECT_TRUE(Has(thePage, R"(\u003c/script\u003e\u003cscript\u003ealert(1))"));
}

TEST(Page, HoldsNoLineBreaksOfScriptsAndNoControlCharacters)
{
    const std::string theData = DataOf(Called(R"(a\u2028\u2029\u0000\u0007\u001b[2J\u0085\r\n\t)"));
    EXPECT_FALSE(Has(theData, "\xe2\x80\xa8"));
    EXPECT_TRUE(std::none_of(theData.begin(), theData.end(),
                             [](unsigned char theByte) { return theByte < 0x20 || theByte == 0x7f; }));
    EXPECT_TRUE(
        Has(theData, R"(a\u2028\u2029\u005cu0000\u005cu0007\u005cu001b[2J\u005cu0085\u005cr\u005cn\u005ct)"))
        << theData;
}

TEST(Page, TakesQuotesAndBackslashesForText)
{
    const std::string theData = DataOf(Called(R"(\"'`\\ ${x} & <b>)"));
    EXPECT_TRUE(Has(theData, R"(\u0022'`\u005c ${x} \u0026 \u003cb\u003e)")) << theData;
}

TEST(Page, SurvivesBytesThatAreNoText)
{
    TestJournal theText = Moved();
    theText.AddText("{\"n\":99,\"t\":1,\"what\":\"made\",\"object\":{\"id\":9,\"class\":\"\xff\xfe\","
                    "\"name\":\"\xc3\"}}\n");
    std::ostringstream theOutput;
    std::ostringstream theErrors;
    Inspect::Journal theJournal(FileWith(theText.GetText()), "bad\xff.journal", theErrors);
    EXPECT_EQ(Inspect::RunPage(theJournal, "", theOutput, theErrors), 0);
    EXPECT_TRUE(Has(theOutput.str(), R"("name":"bad\ufffd.journal")"));
    EXPECT_FALSE(Has(theOutput.str(), "\xff"));
}

TEST(Page, CutsNamesThatAreVeryLong)
{
    const std::string theData = DataOf(Called(std::string(100000, 'x')));
    EXPECT_LT(theData.size(), 5000U);
    EXPECT_TRUE(Has(theData, std::string(200, 'x') + "…\""));
}

TEST(Page, IsWrittenIntoAFileOrSaysThatItCannotBe)
{
    std::ostringstream theOutput;
    Inspect::Journal theJournal = JournalWith(Moved().GetText(), theOutput);
    EXPECT_EQ(Inspect::RunPage(theJournal, "/nowhere/page.html", theOutput, theOutput), 2);
    EXPECT_EQ(theOutput.str(),
              "lminspect: /nowhere/page.html cannot be written: No such file or directory\n");
}

TEST(Page, LeavesAFileAloneWhenThereIsNoJournal)
{
    const std::string theFile = "PageTests" + std::to_string(::getpid()) + ".html";
    std::ofstream(theFile) << "kept";
    std::ostringstream theErrors;
    Inspect::Journal theJournal = JournalWith("nothing\n", theErrors);
    EXPECT_EQ(Inspect::RunPage(theJournal, theFile, theErrors, theErrors), 2);
    std::string theText;
    std::ifstream(theFile) >> theText;
    EXPECT_EQ(theText, "kept");
    std::remove(theFile.c_str());
}
