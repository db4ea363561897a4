// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <limits>

namespace {

std::string Format(CFStringRef theFormat, ...)
{
    va_list theArguments;
    va_start(theArguments, theFormat);
    const Owned<CFStringRef> theString(
        CFStringCreateWithFormatAndArguments(nullptr, nullptr, theFormat, theArguments));
    va_end(theArguments);
    return TextOf(theString);
}

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(CFStringFormat, PlainTextStaysAsItIs)
{
    EXPECT_EQ(Format(CFSTR("")), "");
    EXPECT_EQ(Format(CFSTR("plain")), "plain");
    EXPECT_EQ(Format(String(u8"\u20AC%d\U0001F600"), 5), u8"\u20AC5\U0001F600");
    EXPECT_EQ(Format(CFSTR("100%%")), "100%");
}

TEST(CFStringFormat, TheLibrarysOwnFormatsComeOutRight)
{
    EXPECT_EQ(Format(CFSTR("%lu %ld %llu %lld %Lf 0x%X (%g, %g)-(%g, %g)"), 5UL, -5L, 6ULL, -6LL, 1.5L,
                     0xBEEFU, 1.0, 2.0, 30.0, 40.0),
              "5 -5 6 -6 1.500000 0xBEEF (1, 2)-(30, 40)");
}

TEST(CFStringFormat, SignedIntegers)
{
    EXPECT_EQ(Format(CFSTR("%d"), 42), "42");
    EXPECT_EQ(Format(CFSTR("%i"), INT_MIN), "-2147483648");
    EXPECT_EQ(Format(CFSTR("%5d"), 42), "   42");
    EXPECT_EQ(Format(CFSTR("%-5d|"), 42), "42   |");
    EXPECT_EQ(Format(CFSTR("%05d"), 42), "00042");
    EXPECT_EQ(Format(CFSTR("%05d"), -42), "-0042");
    EXPECT_EQ(Format(CFSTR("%.5d"), 42), "00042");
    EXPECT_EQ(Format(CFSTR("%+d"), 5), "+5");
    EXPECT_EQ(Format(CFSTR("% d"), 5), " 5");
}

TEST(CFStringFormat, UnsignedIntegers)
{
    EXPECT_EQ(Format(CFSTR("%u"), UINT_MAX), "4294967295");
    EXPECT_EQ(Format(CFSTR("%x %X"), 255U, 255U), "ff FF");
    EXPECT_EQ(Format(CFSTR("%o"), 8U), "10");
    EXPECT_EQ(Format(CFSTR("%x"), -1), "ffffffff");
    EXPECT_EQ(Format(CFSTR("%08x"), 255U), "000000ff");
    EXPECT_EQ(Format(CFSTR("%#x"), 255U), "0xff");
    EXPECT_EQ(Format(CFSTR("0x%X"), 0xDEADBEEFU), "0xDEADBEEF");
}

TEST(CFStringFormat, LongIntegers)
{
    EXPECT_EQ(Format(CFSTR("%ld"), LONG_MIN), std::to_string(LONG_MIN));
    EXPECT_EQ(Format(CFSTR("%lu"), ULONG_MAX), std::to_string(ULONG_MAX));
    EXPECT_EQ(Format(CFSTR("%lx"), 0xABCUL), "abc");
    EXPECT_EQ(Format(CFSTR("%lld"), LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(Format(CFSTR("%llu"), ULLONG_MAX), "18446744073709551615");
    EXPECT_EQ(Format(CFSTR("%llX"), 0xABCDEF0123456789ULL), "ABCDEF0123456789");
    EXPECT_EQ(Format(CFSTR("%qd"), -5LL), "-5");
    EXPECT_EQ(Format(CFSTR("%zd %td %jd"), static_cast<ssize_t>(-1), static_cast<ptrdiff_t>(-2),
                     static_cast<intmax_t>(-3)),
              "-1 -2 -3");
    EXPECT_EQ(Format(CFSTR("%zu"), static_cast<size_t>(7)), "7");
}

TEST(CFStringFormat, ShortIntegersAreCut)
{
    EXPECT_EQ(Format(CFSTR("%hd"), 70000), "4464");
    EXPECT_EQ(Format(CFSTR("%hd"), 40000), "-25536");
    EXPECT_EQ(Format(CFSTR("%hu"), 70000), "4464");
    EXPECT_EQ(Format(CFSTR("%hhd"), 300), "44");
    EXPECT_EQ(Format(CFSTR("%hhd"), 200), "-56");
    EXPECT_EQ(Format(CFSTR("%hhx"), -1), "ff");
}

TEST(CFStringFormat, Doubles)
{
    EXPECT_EQ(Format(CFSTR("%f"), 3.14159265), "3.141593");
    EXPECT_EQ(Format(CFSTR("%f"), 1e20), "100000000000000000000.000000");
    EXPECT_EQ(Format(CFSTR("%f"), -0.0), "-0.000000");
    EXPECT_EQ(Format(CFSTR("%f"), kInfinity), "inf");
    EXPECT_EQ(Format(CFSTR("%f"), kNaN), "nan");
    EXPECT_EQ(Format(CFSTR("%5.2f"), 3.14159), " 3.14");
    EXPECT_EQ(Format(CFSTR("%-8.2f|"), 3.14159), "3.14    |");
    EXPECT_EQ(Format(CFSTR("%08.2f"), 3.14159), "00003.14");
    EXPECT_EQ(Format(CFSTR("%.0f"), 2.5), "2");
    EXPECT_EQ(Format(CFSTR("%g %g %g %g"), 3.14159265, 1e20, 100000.0, 1000000.0),
              "3.14159 1e+20 100000 1e+06");
    EXPECT_EQ(Format(CFSTR("%g %g %g %g"), static_cast<double>(0.1F), 1.5, 2.0, 1e-5), "0.1 1.5 2 1e-05");
    EXPECT_EQ(Format(CFSTR("%g %g %G"), -0.0, kInfinity, 1e20), "-0 inf 1E+20");
    EXPECT_EQ(Format(CFSTR("%e %E"), 12345.678, 12345.678), "1.234568e+04 1.234568E+04");
    EXPECT_EQ(Format(CFSTR("%lf %F"), 1.0, 2.0), "1.000000 2.000000");
    EXPECT_EQ(Format(CFSTR("%a"), 1.0), "0x1p+0");
}

TEST(CFStringFormat, LongDoubles)
{
    EXPECT_EQ(Format(CFSTR("%Lf"), 2.5L), "2.500000");
    EXPECT_EQ(Format(CFSTR("%Lf"), 1.0L / 3), "0.333333");
    EXPECT_EQ(Format(CFSTR("%Lf"), 1e20L), "100000000000000000000.000000");
    EXPECT_EQ(Format(CFSTR("%Lf %Lf %Lf"), static_cast<long double>(kInfinity),
                     static_cast<long double>(kNaN), -0.0L),
              "inf nan -0.000000");
    EXPECT_EQ(Format(CFSTR("%Lg %d"), 1.5L, 7), "1.5 7");
}

TEST(CFStringFormat, VeryLongNumbersAreComplete)
{
    EXPECT_EQ(Format(CFSTR("%f"), DBL_MAX).size(), 316U);
    EXPECT_EQ(Format(CFSTR("%600d"), 5).size(), 600U);
}

TEST(CFStringFormat, CharactersAreBytesOfTheSystemEncoding)
{
    EXPECT_EQ(Format(CFSTR("%c"), 'A'), "A");
    EXPECT_EQ(Format(CFSTR("%c"), 0x8E), u8"\u00E9");
    EXPECT_EQ(Format(CFSTR("%c"), 0xE9), u8"\u00C8");
    EXPECT_EQ(Format(CFSTR("[%c]"), 0), "[]");
    EXPECT_EQ(Format(CFSTR("%3c|%-3c|"), 'A', 'B'), "  A|B  |");
    EXPECT_EQ(Format(CFSTR("%C"), 0x20AC), u8"\u20AC");
    EXPECT_EQ(Format(CFSTR("%5C|"), 'x'), "x|");
    EXPECT_EQ(Format(CFSTR("%-5C|"), 'x'), "x|");
    EXPECT_EQ(Format(CFSTR("%5C|"), 0), "|");
}

TEST(CFStringFormat, CStringsAreInTheSystemEncodingOnPurpose)
{
    EXPECT_EQ(Format(CFSTR("%s"), "hello"), "hello");
    EXPECT_EQ(Format(CFSTR("%s"), "\xC3\xA9"), u8"\u221A\u00A9");
    EXPECT_EQ(Format(CFSTR("%s"), nullptr), "(null)");
    EXPECT_EQ(Format(CFSTR("%-10s|"), "hello"), "hello     |");
    EXPECT_EQ(Format(CFSTR("%10s"), "hello"), "     hello");
    EXPECT_EQ(Format(CFSTR("%.3s"), "hello"), "hel");
    EXPECT_EQ(Format(CFSTR("%12s|"), nullptr), "(null)|");
    EXPECT_EQ(Format(CFSTR("%.*s"), 2, "hello"), "he");
    EXPECT_EQ(Format(CFSTR("%.*s|"), 0, "hello"), "|");
    EXPECT_EQ(Format(CFSTR("%7.*s|"), 0, "hello"), "       |");
    EXPECT_EQ(Format(CFSTR("%*s"), 7, "hello"), "  hello");
    EXPECT_EQ(Format(CFSTR("%*s|"), -7, "hello"), "hello  |");
    EXPECT_EQ(Format(CFSTR("%.*s"), -1, "hello"), "hello");
    EXPECT_EQ(Format(CFSTR("%.0s"), "hello"), "hello");
    EXPECT_EQ(Format(CFSTR("%010s"), "hello"), "     hello");
}

TEST(CFStringFormat, ACStringWithAPrecisionNeedsNoZeroByte)
{
    const char theText[] = {'a', 'b', 'c'};
    EXPECT_EQ(Format(CFSTR("%.3s"), theText), "abc");
}

TEST(CFStringFormat, UnitStringsAndPascalStrings)
{
    const UniChar theUnits[] = {'a', 0x20AC, 'c', 0};
    EXPECT_EQ(Format(CFSTR("%S"), theUnits), u8"a\u20ACc");
    EXPECT_EQ(Format(CFSTR("%.2S"), theUnits), u8"a\u20AC");
    EXPECT_EQ(Format(CFSTR("%5S"), theUnits), u8"  a\u20ACc");
    EXPECT_EQ(Format(CFSTR("%S"), nullptr), "(null)");
    const unsigned char thePascalString[] = {3, 'a', 'b', 0x8E, 'x'};
    EXPECT_EQ(Format(CFSTR("%P"), thePascalString), u8"ab\u00E9");
    EXPECT_EQ(Format(CFSTR("%P"), nullptr), "(null)");
}

TEST(CFStringFormat, ObjectsShowTheirContent)
{
    EXPECT_EQ(Format(CFSTR("%@"), CFSTR("text")), "text");
    EXPECT_EQ(Format(CFSTR("%@"), nullptr), "(null)");
    EXPECT_EQ(Format(CFSTR("%@ %@ %@"), kCFBooleanTrue, kCFBooleanFalse, kCFNull), "true false null");
    const auto theData = Data({1, 2, 3});
    EXPECT_EQ(Format(CFSTR("%@"), static_cast<CFDataRef>(theData)),
              TextOf(Owned(CFCopyDescription(theData))));
}

TEST(CFStringFormat, WidthAndPrecisionDoNothingToObjectsOnPurpose)
{
    EXPECT_EQ(Format(CFSTR("%10@|%.1@"), CFSTR("abc"), CFSTR("abc")), "abc|abc");
}

TEST(CFStringFormat, NumbersAsObjects)
{
    const std::pair<Owned<CFNumberRef>, const char*> kRows[] = {
        {Integer(42), "42"},
        {Integer(-5000000000), "-5000000000"},
        {Float(2.5), "2.5"},
        {Float(100.0), "100"},
        {Float(0.1), "0.10000000000000001"},
        {Number(kCFNumberFloat32Type, 0.1F), "0.10000000149011612"},
        {Float(1e20), "1e+20"},
        {Float(0.0), "0.0"},
        {Float(-0.0), "0.0"},
        {Float(kInfinity), "+infinity"},
        {Float(-kInfinity), "-infinity"},
        {Float(kNaN), "nan"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Format(CFSTR("%@"), static_cast<CFNumberRef>(theRow.first)), theRow.second);
    }
}

TEST(CFStringFormat, PointersAreHexadecimal)
{
    EXPECT_EQ(Format(CFSTR("%p"), reinterpret_cast<void*>(0x1234)), "0x1234");
}

TEST(CFStringFormat, ArgumentsMayBeNamedByTheirPosition)
{
    EXPECT_EQ(Format(CFSTR("%2$d %1$d"), 1, 2), "2 1");
    EXPECT_EQ(Format(CFSTR("%1$d %1$d"), 7), "7 7");
    EXPECT_EQ(Format(CFSTR("%2$@ %1$lld %3$g"), 5LL, CFSTR("x"), 1.5), "x 5 1.5");
    EXPECT_EQ(Format(CFSTR("%2$*1$d"), 4, 7), "   7");
}

TEST(CFStringFormat, ArgumentsBehindAGapAreNotRead)
{
    EXPECT_EQ(Format(CFSTR("[%1$d][%3$s]"), 1), "[1][]");
    EXPECT_EQ(Format(CFSTR("[%2147483647$s][%99999999999999999999$s]")), "[][]");
}

TEST(CFStringFormat, UnknownLettersStandForThemselves)
{
    EXPECT_EQ(Format(CFSTR("%y %d"), 5), "y 5");
    EXPECT_EQ(Format(CFSTR("%5y")), "y");
    EXPECT_EQ(Format(CFSTR("100%")), "100");
    EXPECT_EQ(Format(CFSTR("100%-05.3l")), "100");
    EXPECT_EQ(Format(CFSTR("%0$d|%d"), 5), "$d|5");
}

TEST(CFStringFormat, TheCountTakesAnArgumentAndWritesNothing)
{
    int theCount = 77;
    EXPECT_EQ(Format(CFSTR("ab%ncd%d"), &theCount, 5), "abcd5");
    EXPECT_EQ(theCount, 77);
}

TEST(CFStringFormat, ResultsAreImmutableStringsOfTheirOwn)
{
    const Owned<CFStringRef> theString(
        CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%@!"), CFSTR("text")));
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    const Owned<CFStringRef> theCopy(CFStringCreateCopy(nullptr, theString));
    EXPECT_EQ(static_cast<CFStringRef>(theCopy), static_cast<CFStringRef>(theString));
}

TEST(CFStringFormat, FormatsCanBeAppended)
{
    const auto theString = MutableString("a");
    CFStringAppendFormat(theString, nullptr, CFSTR("-%d-%@"), 5, theString.operator CFMutableStringRef());
    EXPECT_EQ(TextOf(theString), "a-5-a");
}

TEST(CFStringFormat, WidthsAndDigitsAreLimited)
{
    for (const char* theFormat : {"%999999999d", "%-999999999d", "%0999999999d", "%.999999999d"}) {
        EXPECT_EQ(Format(String(theFormat), 5).size(), 65535U) << theFormat;
    }
    EXPECT_EQ(Format(CFSTR("%*d"), INT_MIN, 5).size(), 65535U);
    EXPECT_EQ(Format(CFSTR("%.*d"), INT_MAX, 5).size(), 65535U);
    EXPECT_EQ(Format(CFSTR("%999999999c"), 'x').size(), 65535U);
    EXPECT_EQ(Format(CFSTR("%999999999s"), "x").size(), 65535U);
    EXPECT_EQ(Format(CFSTR("%.999999999f"), 0.5).size(), 65537U);
    EXPECT_EQ(Format(CFSTR("%.999999999s"), std::string(70000, 'x').c_str()).size(), 70000U);
}

TEST(CFStringFormat, ObjectsArgumentsAreNotKept)
{
    const auto theObject = CountedObject();
    Format(CFSTR("%@"), static_cast<CFMutableStringRef>(theObject));
    EXPECT_EQ(CFGetRetainCount(theObject), 1);
}
