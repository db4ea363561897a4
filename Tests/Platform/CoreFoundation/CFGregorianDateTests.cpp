// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFTestSupport.h"

#include <cmath>
#include <limits>
#include <tuple>

namespace {

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNoNumber = std::numeric_limits<double>::quiet_NaN();
const SInt32 kFirstYear = std::numeric_limits<SInt32>::min();
const SInt32 kLastYear = std::numeric_limits<SInt32>::max();

CFGregorianDate DateOf(SInt32 theYear, int theMonth, int theDay, int theHour = 0, int theMinute = 0,
                       double theSecond = 0)
{
    return {theYear,
            static_cast<SInt8>(theMonth),
            static_cast<SInt8>(theDay),
            static_cast<SInt8>(theHour),
            static_cast<SInt8>(theMinute),
            theSecond};
}

CFAbsoluteTime TimeOf(SInt32 theYear, int theMonth, int theDay, int theHour = 0, int theMinute = 0,
                      double theSecond = 0)
{
    return CFGregorianDateGetAbsoluteTime(DateOf(theYear, theMonth, theDay, theHour, theMinute, theSecond),
                                          nullptr);
}

using Fields = std::tuple<SInt32, int, int, int, int, double>;

Fields FieldsOf(const CFGregorianDate& theDate)
{
    return {theDate.year, theDate.month, theDate.day, theDate.hour, theDate.minute, theDate.second};
}

Fields FieldsAt(CFAbsoluteTime theTime)
{
    return FieldsOf(CFAbsoluteTimeGetGregorianDate(theTime, nullptr));
}

using Units6 = std::tuple<SInt32, SInt32, SInt32, SInt32, SInt32, double>;

Units6 DifferenceOf(CFAbsoluteTime theTime, CFAbsoluteTime theOther, CFOptionFlags theFlags)
{
    const CFGregorianUnits theUnits =
        CFAbsoluteTimeGetDifferenceAsGregorianUnits(theTime, theOther, nullptr, theFlags);
    return {theUnits.years, theUnits.months,  theUnits.days,
            theUnits.hours, theUnits.minutes, theUnits.seconds};
}

Fields FieldsAfter(CFAbsoluteTime theTime, const CFGregorianUnits& theUnits)
{
    return FieldsAt(CFAbsoluteTimeAddGregorianUnits(theTime, nullptr, theUnits));
}

} // namespace

TEST(CFGregorianDate, TheRecordsAreLaidOutAsOnThePlatform)
{
    EXPECT_EQ(sizeof(CFGregorianDate), 16U);
    EXPECT_EQ(offsetof(CFGregorianDate, month), 4U);
    EXPECT_EQ(offsetof(CFGregorianDate, minute), 7U);
    EXPECT_EQ(offsetof(CFGregorianDate, second), 8U);
    EXPECT_EQ(offsetof(CFGregorianUnits, minutes), 16U);
    // Where a double has to lie on a multiple of 8, there is a gap before it.
    EXPECT_EQ(offsetof(CFGregorianUnits, seconds), alignof(CFGregorianUnits) == 4 ? 20U : 24U);
}

TEST(CFGregorianDate, ATimeIsADayAndAnHour)
{
    EXPECT_EQ(FieldsAt(0), Fields(2001, 1, 1, 0, 0, 0.0));
    EXPECT_EQ(FieldsAt(-0.25), Fields(2000, 12, 31, 23, 59, 59.75));
    EXPECT_EQ(FieldsAt(99791999.5), Fields(2004, 2, 29, 23, 59, 59.5));
    EXPECT_EQ(FieldsAt(-978307200.0), Fields(1970, 1, 1, 0, 0, 0.0));
    EXPECT_EQ(FieldsAt(-992490140.0), Fields(1969, 7, 20, 20, 17, 40.0));
    EXPECT_EQ(FieldsAt(-63145526400.0), Fields(0, 1, 1, 0, 0, 0.0));
    EXPECT_EQ(FieldsAt(-63145526401.0), Fields(-1, 12, 31, 23, 59, 59.0));
    EXPECT_EQ(FieldsAt(64092211200.0), Fields(4032, 1, 2, 0, 0, 0.0));
}

TEST(CFGregorianDate, EveryDayOfManyCenturiesGoesThereAndBack)
{
    for (int theDay = -5 * 146097; theDay < 5 * 146097; theDay += 31) {
        const double theTime = theDay * 86400.0 + 45296.5;
        const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theTime, nullptr);
        ASSERT_EQ(CFGregorianDateGetAbsoluteTime(theDate, nullptr), theTime);
        ASSERT_TRUE(CFGregorianDateIsValid(
            theDate, kCFGregorianAllUnits & ~CFOptionFlags{theDate.year > 0 ? 0UL : kCFGregorianUnitsYears}));
    }
}

TEST(CFGregorianDate, ASecondIsAlwaysBelow60)
{
    EXPECT_EQ(FieldsAt(-1e-17), Fields(2001, 1, 1, 0, 0, 0.0));
    EXPECT_FALSE(std::signbit(std::get<5>(FieldsAt(-60))));
    for (int theMinute = -3000; theMinute < 3000; ++theMinute) {
        const double theTime = std::nextafter(theMinute * 60.0, -kInfinity);
        const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theTime, nullptr);
        ASSERT_TRUE(CFGregorianDateIsValid(theDate, kCFGregorianAllUnits)) << theMinute;
        ASSERT_NEAR(CFGregorianDateGetAbsoluteTime(theDate, nullptr), theTime, 1e-9) << theMinute;
    }
}

TEST(CFGregorianDate, AYearThatDoesNotFitGivesTheNearestThatDoes)
{
    const auto theDayAt = [](double theTime) {
        const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theTime, nullptr);
        return std::tuple<SInt32, int, int>(theDate.year, theDate.month, theDate.day);
    };
    for (const double theTime : {6.8e16, 1e17, 1e300, kInfinity}) {
        EXPECT_EQ(theDayAt(theTime), std::make_tuple(kLastYear, 12, 31)) << theTime;
        EXPECT_EQ(theDayAt(-theTime), std::make_tuple(kFirstYear, 1, 1)) << theTime;
    }
    EXPECT_EQ(theDayAt(TimeOf(kLastYear, 6, 15)), std::make_tuple(kLastYear, 6, 15));
    EXPECT_EQ(theDayAt(TimeOf(kFirstYear, 6, 15)), std::make_tuple(kFirstYear, 6, 15));
    EXPECT_EQ(FieldsAt(kNoNumber), FieldsAt(0));
}

TEST(CFGregorianDate, FieldsThatAreNotValidAreCarriedOver)
{
    EXPECT_EQ(TimeOf(2001, 13, 1), TimeOf(2002, 1, 1));
    EXPECT_EQ(TimeOf(2001, 0, 1), TimeOf(2000, 12, 1));
    EXPECT_EQ(TimeOf(2001, -127, 1), TimeOf(1990, 5, 1));
    EXPECT_EQ(TimeOf(2001, 2, 29), TimeOf(2001, 3, 1));
    EXPECT_EQ(TimeOf(2001, 3, 0), TimeOf(2001, 2, 28));
    EXPECT_EQ(TimeOf(2001, 1, 1, 24, 60, 60), TimeOf(2001, 1, 2, 1, 1, 0));
    EXPECT_EQ(TimeOf(2001, 1, 1, -1), TimeOf(2000, 12, 31, 23));
    EXPECT_TRUE(std::isfinite(TimeOf(kFirstYear, -128, -128, -128, -128, -128)));
    EXPECT_TRUE(std::isfinite(TimeOf(kLastYear, 127, 127, 127, 127, 127)));
}

TEST(CFGregorianDate, OnlyTheNamedFieldsHaveToBeValid)
{
    const auto theIsValid = [](const CFGregorianDate& theDate, CFOptionFlags theFlags) {
        return CFGregorianDateIsValid(theDate, theFlags) == 1;
    };
    EXPECT_TRUE(theIsValid(DateOf(2001, 12, 31, 23, 59, 59.999), kCFGregorianAllUnits));
    const struct
    {
        CFGregorianDate theDate;
        CFOptionFlags theUnit;
    } kRows[] = {
        {DateOf(0, 1, 1), kCFGregorianUnitsYears},
        {DateOf(2001, 0, 1), kCFGregorianUnitsMonths},
        {DateOf(2001, 13, 1), kCFGregorianUnitsMonths},
        {DateOf(2001, 1, 0), kCFGregorianUnitsDays},
        {DateOf(2001, 1, 32), kCFGregorianUnitsDays},
        {DateOf(2001, 1, 1, -1), kCFGregorianUnitsHours},
        {DateOf(2001, 1, 1, 24), kCFGregorianUnitsHours},
        {DateOf(2001, 1, 1, 0, -1), kCFGregorianUnitsMinutes},
        {DateOf(2001, 1, 1, 0, 60), kCFGregorianUnitsMinutes},
        {DateOf(2001, 1, 1, 0, 0, -0.5), kCFGregorianUnitsSeconds},
        {DateOf(2001, 1, 1, 0, 0, 60), kCFGregorianUnitsSeconds},
        {DateOf(2001, 1, 1, 0, 0, kNoNumber), kCFGregorianUnitsSeconds},
    };
    for (const auto& theRow : kRows) {
        const Fields theFields = FieldsOf(theRow.theDate);
        EXPECT_FALSE(theIsValid(theRow.theDate, theRow.theUnit)) << testing::PrintToString(theFields);
        EXPECT_TRUE(theIsValid(theRow.theDate, kCFGregorianAllUnits & ~theRow.theUnit))
            << testing::PrintToString(theFields);
    }
}

TEST(CFGregorianDate, TheMonthHasToHaveTheDay)
{
    EXPECT_TRUE(CFGregorianDateIsValid(DateOf(2004, 2, 29), kCFGregorianAllUnits));
    EXPECT_TRUE(CFGregorianDateIsValid(DateOf(2000, 2, 29), kCFGregorianAllUnits));
    EXPECT_FALSE(CFGregorianDateIsValid(DateOf(2001, 2, 29), kCFGregorianAllUnits));
    EXPECT_FALSE(CFGregorianDateIsValid(DateOf(1900, 2, 29), kCFGregorianAllUnits));
    EXPECT_FALSE(CFGregorianDateIsValid(DateOf(2001, 4, 31), kCFGregorianAllUnits));
    EXPECT_TRUE(CFGregorianDateIsValid(DateOf(2001, 2, 29), kCFGregorianUnitsMonths | kCFGregorianUnitsDays));
}

TEST(CFGregorianDate, UnitsAreAddedFromTheLongestOn)
{
    const double theStart = TimeOf(2001, 1, 31, 12, 30, 0.5);
    EXPECT_EQ(FieldsAfter(theStart, {0, 0, 0, 0, 0, 0}), Fields(2001, 1, 31, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {0, 1, 0, 0, 0, 0}), Fields(2001, 2, 28, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {3, 1, 0, 0, 0, 0}), Fields(2004, 2, 29, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {0, 1, 1, 0, 0, 0}), Fields(2001, 3, 1, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {0, -2, 0, 0, 0, 0}), Fields(2000, 11, 30, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {1, 25, 0, 0, 0, 0}), Fields(2004, 2, 29, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {-2001, 0, 0, 0, 0, 0}), Fields(0, 1, 31, 12, 30, 0.5));
    EXPECT_EQ(FieldsAfter(theStart, {0, 0, 365, 11, 29, 59.25}), Fields(2002, 1, 31, 23, 59, 59.75));
    EXPECT_EQ(FieldsAfter(theStart, {0, 0, -31, -12, -30, -0.5}), Fields(2000, 12, 31, 0, 0, 0.0));
    EXPECT_EQ(CFAbsoluteTimeAddGregorianUnits(-1e-17, nullptr, {0, 0, 0, 0, 0, 0}), -1e-17);
}

TEST(CFGregorianDate, NoUnitsAreTooMany)
{
    const CFGregorianUnits theMost = {kLastYear, kLastYear, kLastYear, kLastYear, kLastYear, 1e300};
    const CFGregorianUnits theLeast = {kFirstYear, kFirstYear, kFirstYear, kFirstYear, kFirstYear, 0};
    EXPECT_GE(CFAbsoluteTimeAddGregorianUnits(1e300, nullptr, theMost), 1e300);
    EXPECT_LT(CFAbsoluteTimeAddGregorianUnits(0, nullptr, theLeast), -6e16);
    EXPECT_TRUE(std::isnan(CFAbsoluteTimeAddGregorianUnits(kNoNumber, nullptr, theMost)));
}

TEST(CFGregorianDate, ADifferenceIsCountedFromTheLongestUnitOn)
{
    const double theEarly = TimeOf(2000, 2, 29, 22, 0, 0);
    const double theLate = TimeOf(2003, 5, 2, 1, 30, 15.5);
    EXPECT_EQ(DifferenceOf(theLate, theEarly, kCFGregorianAllUnits), Units6(3, 2, 2, 3, 30, 15.5));
    EXPECT_EQ(DifferenceOf(theLate, theEarly, kCFGregorianUnitsMonths | kCFGregorianUnitsMinutes),
              Units6(0, 38, 0, 0, 2 * 1440 + 210, 0.0));
    EXPECT_EQ(DifferenceOf(theLate, theEarly, kCFGregorianUnitsDays), Units6(0, 0, 1157, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(theLate, theEarly, kCFGregorianUnitsSeconds),
              Units6(0, 0, 0, 0, 0, theLate - theEarly));
    EXPECT_EQ(DifferenceOf(theLate, theEarly, 0), Units6(0, 0, 0, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(theLate, theLate, kCFGregorianAllUnits), Units6(0, 0, 0, 0, 0, 0.0));
}

TEST(CFGregorianDate, WholeMonthsAreCountedToTheirLastInstant)
{
    const double theEarly = TimeOf(2001, 1, 15, 12, 0, 0);
    const double theLate = TimeOf(2002, 3, 15, 12, 0, 0);
    EXPECT_EQ(DifferenceOf(theLate, theEarly, kCFGregorianAllUnits), Units6(1, 2, 0, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(theEarly, theLate, kCFGregorianAllUnits), Units6(-1, -2, 0, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(theLate - 0.5, theEarly, kCFGregorianUnitsMonths), Units6(0, 13, 0, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(theEarly + 0.5, theLate, kCFGregorianUnitsMonths), Units6(0, -13, 0, 0, 0, 0.0));
}

TEST(CFGregorianDate, ADifferenceToALaterTimeIsNegative)
{
    const double theEarly = TimeOf(2001, 1, 15, 12, 0, 0);
    const double theLate = TimeOf(2002, 3, 14, 11, 0, 0);
    EXPECT_EQ(DifferenceOf(theEarly, theLate, kCFGregorianAllUnits), Units6(-1, -1, -29, -23, 0, 0.0));
    EXPECT_EQ(DifferenceOf(theEarly, theLate, kCFGregorianUnitsYears), Units6(-1, 0, 0, 0, 0, 0.0));
}

TEST(CFGregorianDate, ADifferenceAddedLeadsToTheOtherTime)
{
    const double kTimes[] = {0,
                             TimeOf(2004, 2, 29, 23, 59, 59),
                             TimeOf(2001, 1, 31),
                             -1e9,
                             12345678.5,
                             3e8 + 0.5,
                             TimeOf(1900, 3, 1),
                             TimeOf(-4, 2, 29)};
    for (const double theTime : kTimes) {
        for (const double theOther : kTimes) {
            const CFGregorianUnits theUnits =
                CFAbsoluteTimeGetDifferenceAsGregorianUnits(theTime, theOther, nullptr, kCFGregorianAllUnits);
            EXPECT_EQ(CFAbsoluteTimeAddGregorianUnits(theOther, nullptr, theUnits), theTime);
        }
    }
}

TEST(CFGregorianDate, ADifferenceThatDoesNotFitIsTheLargestThatDoes)
{
    EXPECT_EQ(DifferenceOf(1e17, -1e17, kCFGregorianUnitsMonths), Units6(0, kLastYear, 0, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(-1e17, 1e17, kCFGregorianUnitsYears), Units6(kFirstYear, 0, 0, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(1e300, 0, kCFGregorianUnitsDays), Units6(0, 0, kLastYear, 0, 0, 0.0));
    EXPECT_EQ(DifferenceOf(-1e300, 0, kCFGregorianUnitsMinutes), Units6(0, 0, 0, 0, kFirstYear, 0.0));
    for (const double theTime : {kNoNumber, kInfinity, -kInfinity}) {
        EXPECT_EQ(DifferenceOf(theTime, 0, kCFGregorianAllUnits), Units6(0, 0, 0, 0, 0, 0.0));
        EXPECT_EQ(DifferenceOf(0, theTime, kCFGregorianAllUnits), Units6(0, 0, 0, 0, 0, 0.0));
    }
}

TEST(CFGregorianDate, WeeksStartOnMonday)
{
    EXPECT_EQ(CFAbsoluteTimeGetDayOfWeek(0, nullptr), 1);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfWeek(-0.5, nullptr), 7);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfWeek(TimeOf(1969, 7, 20), nullptr), 7);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfWeek(TimeOf(2004, 2, 29), nullptr), 7);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfWeek(TimeOf(1600, 1, 1), nullptr), 6);
}

TEST(CFGregorianDate, DaysOfAYearCountFromOne)
{
    EXPECT_EQ(CFAbsoluteTimeGetDayOfYear(TimeOf(2001, 1, 1), nullptr), 1);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfYear(TimeOf(2001, 12, 31, 23, 59, 59), nullptr), 365);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfYear(TimeOf(2004, 12, 31), nullptr), 366);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfYear(TimeOf(2004, 3, 1), nullptr), 61);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfYear(TimeOf(-1, 3, 1), nullptr), 60);
}

TEST(CFGregorianDate, AWeekBelongsToTheYearOfMostOfItsDays)
{
    const struct
    {
        double theTime;
        SInt32 theWeek;
    } kRows[] = {
        {TimeOf(2001, 1, 1), 1},    {TimeOf(2001, 1, 7), 1},   {TimeOf(2001, 1, 8), 2},
        {TimeOf(2000, 1, 2), 52},   {TimeOf(2000, 1, 3), 1},   {TimeOf(2003, 12, 29), 1},
        {TimeOf(2004, 12, 31), 53}, {TimeOf(2005, 1, 2), 53},  {TimeOf(2005, 1, 3), 1},
        {TimeOf(2008, 12, 28), 52}, {TimeOf(2008, 12, 29), 1}, {TimeOf(2010, 1, 3), 53},
        {TimeOf(2010, 7, 15), 28},  {TimeOf(1969, 12, 31), 1},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(CFAbsoluteTimeGetWeekOfYear(theRow.theTime, nullptr), theRow.theWeek)
            << testing::PrintToString(FieldsAt(theRow.theTime));
    }
}
