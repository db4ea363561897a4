// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Json.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

std::string TextOf(std::string_view theText)
{
    std::ostringstream theOutput;
    Inspect::Json(theOutput).Text(theText);
    return theOutput.str();
}

} // namespace

TEST(Json, PutsCommasBetweenWhatStandsSideBySide)
{
    std::ostringstream theOutput;
    Inspect::Json theJson(theOutput);
    theJson.BeginObject();
    theJson.Name("a");
    theJson.BeginList();
    theJson.Number(-1);
    theJson.BeginList();
    theJson.EndList();
    theJson.Decimal(2.25);
    theJson.EndList();
    theJson.Name("b");
    theJson.Boolean(true);
    theJson.Name("c");
    theJson.Text("d");
    theJson.EndObject();
    EXPECT_EQ(theOutput.str(), R"({"a":[-1,[],2.2],"b":true,"c":"d"})");
}

TEST(Json, LeavesWhatIsHarmlessAsItIs)
{
    EXPECT_EQ(TextOf("Küche 21 °C 🌡 'x' /*"), "\"Küche 21 °C 🌡 'x' /*\"");
}

TEST(Json, WritesOutWhatMeansSomethingToPagesOrScripts)
{
    EXPECT_EQ(TextOf("</script><!--"), R"("\u003c/script\u003e\u003c!--")");
    EXPECT_EQ(TextOf("\"\\&"), R"("\u0022\u005c\u0026")");
    EXPECT_EQ(TextOf("\xe2\x80\xa8\xe2\x80\xa9"), R"("\u2028\u2029")");
    EXPECT_EQ(TextOf(std::string_view("\0\n\x1b\x7f\xc2\x80\xc2\x9f", 8)),
              R"("\u0000\u000a\u001b\u007f\u0080\u009f")");
}

TEST(Json, ReplacesBytesThatAreNoText)
{
    EXPECT_EQ(TextOf("a\xff\x80z"), R"("a\ufffd\ufffdz")");
    EXPECT_EQ(TextOf("\xc3"), R"("\ufffd")") << "the end of a character is missing";
    EXPECT_EQ(TextOf("\xc0\xaf"), R"("\ufffd\ufffd")") << "longer than it must be";
    EXPECT_EQ(TextOf("\xe0\x80\xaf"), R"("\ufffd\ufffd\ufffd")");
    EXPECT_EQ(TextOf("\xed\xa0\x80"), R"("\ufffd\ufffd\ufffd")") << "half of a pair";
    EXPECT_EQ(TextOf("\xf4\x90\x80\x80"), R"("\ufffd\ufffd\ufffd\ufffd")") << "beyond the last character";
    EXPECT_EQ(TextOf("\xf4\x8f\xbf\xbf"), "\"\xf4\x8f\xbf\xbf\"");
}
