// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalLine.h"

#include "StandardErrorCapture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kLongest = 20;

std::string ValueText(const LmValue& theValue)
{
    LmJournalLine theLine(kLongest);
    theLine.AddValue("v", theValue);
    return theLine.GetText();
}

std::string StringText(const std::string& theBytes)
{
    std::string theText;
    LmJournalLine::AppendString(theText, theBytes.data(), theBytes.size(), kLongest);
    return theText;
}

std::string DoubleText(double theNumber)
{
    std::string theText;
    LmJournalLine::AppendDouble(theText, theNumber);
    return theText;
}

LmValue UnitsValue(const std::vector<UniChar>& theUnits)
{
    return LmValue(
        CFStringCreateWithCharacters(nullptr, theUnits.data(), static_cast<CFIndex>(theUnits.size())), true);
}

// A value of a kind that only a derived class can make.
class StrangeValue : public LmValue
{
public:
    StrangeValue() { AllocateValue(static_cast<ValueType>(99)); }
    ~StrangeValue() override { InitialiseSelf(); }
    StrangeValue(const StrangeValue&) = delete;
    StrangeValue& operator=(const StrangeValue&) = delete;
};

} // namespace

TEST(LmJournalLine, ShowsEachKindOfValue)
{
    EXPECT_EQ(ValueText(LmValue()), R"("v":{"kind":"invalid"})");
    EXPECT_EQ(ValueText(LmValue(true)), R"("v":{"kind":"boolean","value":true})");
    EXPECT_EQ(ValueText(LmValue(4294967295UL)), R"("v":{"kind":"uint32","value":4294967295})");
    EXPECT_EQ(ValueText(LmValue(-2147483647L)), R"("v":{"kind":"sint32","value":-2147483647})");
    EXPECT_EQ(ValueText(LmValue(18446744073709551615ULL)),
              R"("v":{"kind":"uint64","value":"18446744073709551615"})");
    EXPECT_EQ(ValueText(LmValue(std::numeric_limits<long long>::min())),
              R"("v":{"kind":"sint64","value":"-9223372036854775808"})");
    EXPECT_EQ(ValueText(LmValue(20.5)), R"("v":{"kind":"double","value":20.5})");
    EXPECT_EQ(ValueText(LmValue(nullptr)), R"("v":{"kind":"pointer","value":"0x0"})");
    EXPECT_EQ(ValueText(LmValue(reinterpret_cast<const void*>(0xABCD))),
              R"("v":{"kind":"pointer","value":"0xabcd"})");
    EXPECT_EQ(ValueText(LmValue(CFSTR("Attic"), false)), R"("v":{"kind":"string","value":"Attic"})");
    EXPECT_EQ(ValueText(LmValue(static_cast<CFStringRef>(nullptr), false)),
              R"("v":{"kind":"string","value":null})");
    EXPECT_EQ(ValueText(LmValue(CGPoint{0.1F, -2})), R"("v":{"kind":"point","value":[0.1,-2]})");
    EXPECT_EQ(ValueText(LmValue(CGSize{3, 4})), R"("v":{"kind":"size","value":[3,4]})");
    EXPECT_EQ(ValueText(LmValue(CGRect{{1, 2}, {3, 1e30F}})), R"("v":{"kind":"rect","value":[1,2,3,1e+30]})");
}

TEST(LmJournalLine, ShowsAKindThatSomebodyMadeUpByItsNumber)
{
    const StrangeValue theValue;
    EXPECT_EQ(ValueText(theValue), R"("v":{"kind":"unknown","value":99})");
    StandardErrorCapture::TakeText();
}

TEST(LmJournalLine, ShowsWhatIsNoNumberAsAString)
{
    const double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(DoubleText(std::nan("")), R"("nan")");
    EXPECT_EQ(DoubleText(kInfinity), R"("inf")");
    EXPECT_EQ(DoubleText(-kInfinity), R"("-inf")");
    EXPECT_EQ(ValueText(LmValue(CGPoint{std::numeric_limits<float>::infinity(), std::nanf("")})),
              R"("v":{"kind":"point","value":["inf","nan"]})");
}

TEST(LmJournalLine, ShowsAsManyDigitsAsReadTheSameDoubleAgain)
{
    EXPECT_EQ(DoubleText(0.1), "0.1");
    EXPECT_EQ(DoubleText(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(DoubleText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(DoubleText(-0.0), "-0");
    EXPECT_EQ(DoubleText(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(DoubleText(std::numeric_limits<double>::denorm_min()), "4.94065645841247e-324");
}

TEST(LmJournalLine, EscapesWhatJSONDoesNotAllow)
{
    EXPECT_EQ(StringText("a\"b\\c\n\t\x01\x7F"), R"("a\"b\\c\n\t\u0001\u007f")");
}

TEST(LmJournalLine, KeepsCharactersOfUTF8)
{
    EXPECT_EQ(StringText("\u00E9\u20AC\U0001F600"), "\"\u00E9\u20AC\U0001F600\"");
}

TEST(LmJournalLine, ReplacesEachByteThatIsNoUTF8)
{
    const std::string kGone = "\uFFFD";
    EXPECT_EQ(StringText("a\xFFz"), "\"a" + kGone + "z\"");
    EXPECT_EQ(StringText("\xC3"), "\"" + kGone + "\"");                         // the end is missing
    EXPECT_EQ(StringText("\xC0\xAF"), "\"" + kGone + kGone + "\"");             // longer than need be
    EXPECT_EQ(StringText("\xED\xA0\x80"), "\"" + kGone + kGone + kGone + "\""); // half of a pair
    EXPECT_EQ(StringText("\xF4\x90\x80\x80"), "\"" + kGone + kGone + kGone + kGone + "\""); // beyond Unicode
}

TEST(LmJournalLine, CutsALongNameBetweenTwoCharacters)
{
    EXPECT_EQ(StringText(std::string(20, 'x')), "\"" + std::string(20, 'x') + "\"");
    EXPECT_EQ(StringText(std::string(21, 'x')), "\"" + std::string(20, 'x') + "\"");
    EXPECT_EQ(StringText(std::string(19, 'x') + "\u00E9"), "\"" + std::string(19, 'x') + "\"");
}

TEST(LmJournalLine, KeepsWhatAReaderNeedsWhole)
{
    LmJournalLine theLine(kLongest);
    theLine.AddWhole("path", (std::string(kLongest, '/') + "App\n").c_str());
    EXPECT_EQ(theLine.GetText(), R"("path":")" + std::string(kLongest, '/') + R"(App\n")");
}

TEST(LmJournalLine, CutsALongStringAndSaysHowLongItWas)
{
    EXPECT_EQ(ValueText(UnitsValue(std::vector<UniChar>(20, 'x'))),
              R"("v":{"kind":"string","value":")" + std::string(20, 'x') + R"("})");
    // Nine characters of two bytes fit, and of three bytes no more than one.
    std::vector<UniChar> theUnits(9, 0xE9);
    theUnits.push_back(0x20AC);
    std::string theStart;
    for (int theCount = 0; theCount < 9; ++theCount) {
        theStart += "\u00E9";
    }
    EXPECT_EQ(ValueText(UnitsValue(theUnits)),
              R"("v":{"kind":"string","value":")" + theStart + R"(","bytes":21})");
}

TEST(LmJournalLine, ReplacesHalvesOfSurrogatePairs)
{
    EXPECT_EQ(ValueText(UnitsValue({0xD83D, 0xDE00})),
              "\"v\":{\"kind\":\"string\",\"value\":\"\U0001F600\"}");
    EXPECT_EQ(ValueText(UnitsValue({0xD83D, 'x'})), "\"v\":{\"kind\":\"string\",\"value\":\"\uFFFDx\"}");
    EXPECT_EQ(ValueText(UnitsValue({0xDE00, 0xD83D})),
              "\"v\":{\"kind\":\"string\",\"value\":\"\uFFFD\uFFFD\"}");
}

TEST(LmJournalLine, HasAFullStopInNumbersWhateverTheLocaleHas)
{
    std::string theText;
    LmJournalLine::AppendWithPoint(theText, "-20,25e-7");
    LmJournalLine::AppendWithPoint(theText, "1\xD9\xAB"
                                            "5");
    EXPECT_EQ(theText, "-20.25e-71.5");
}

TEST(LmJournalLine, PutsACommaBetweenFields)
{
    LmJournalLine theLine(kLongest);
    theLine.AddNumber("a", std::uint64_t{1});
    theLine.AddBoolean("b", false);
    theLine.AddNull("c");
    theLine.AddString("d", "x");
    theLine.AddPlace("e", 1.5, -2);
    theLine.AddJSON("f", "[]");
    theLine.AddAddress("g", 255);
    EXPECT_EQ(theLine.GetText(), R"("a":1,"b":false,"c":null,"d":"x","e":[1.5,-2],"f":[],"g":"0xff")");
    theLine.Clear();
    EXPECT_EQ(theLine.GetText(), "");
}
