// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace {

// Gives the process another time zone as long as it lives.
class TimeZone
{
public:
    explicit TimeZone(const char* theName)
        : mHad(getenv("TZ") != nullptr),
          mOld(mHad ? getenv("TZ") : "")
    {
        setenv("TZ", theName, 1);
        tzset();
    }
    ~TimeZone()
    {
        if (mHad) {
            setenv("TZ", mOld.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

private:
    bool mHad;
    std::string mOld;
};

// Between two readings of the clock, in seconds since 1970.
void ExpectNow(long theOffset)
{
    const auto theBefore = static_cast<long>(time(nullptr));
    unsigned long theSeconds = 0;
    GetDateTime(&theSeconds);
    const auto theAfter = static_cast<long>(time(nullptr));
    // Noon of 1 January 1970 is 2082844800 + 43200 on the Macintosh.
    const auto theFound =
        static_cast<long>(static_cast<UInt32>(theSeconds - 2082844800u - static_cast<UInt32>(theOffset)));
    EXPECT_GE(theFound, theBefore);
    EXPECT_LE(theFound, theAfter);
}

// A date as text, with the day of the week.
std::string DateOf(unsigned long theSeconds)
{
    DateTimeRec theDate = {};
    SecondsToDate(theSeconds, &theDate);
    char theText[64] = "";
    std::snprintf(theText, sizeof theText, "%d-%02d-%02d %02d:%02d:%02d (%d)", theDate.year, theDate.month,
                  theDate.day, theDate.hour, theDate.minute, theDate.second, theDate.dayOfWeek);
    return theText;
}

unsigned long SecondsOf(const DateTimeRec& theDate)
{
    unsigned long theSeconds = 0;
    DateToSeconds(&theDate, &theSeconds);
    return theSeconds;
}

} // namespace

TEST(OSUtils, TheTimeOfDayIsLocal)
{
    {
        const TimeZone theZone("UTC0");
        ExpectNow(0);
    }
    const TimeZone theZone("EAST-3");
    ExpectNow(3L * 3600);
}

TEST(OSUtils, NothingIsWrittenToNull)
{
    GetDateTime(nullptr);
    SecondsToDate(0, nullptr);
    unsigned long theSeconds = 7;
    DateToSeconds(nullptr, &theSeconds);
    EXPECT_EQ(theSeconds, 7U);
    const DateTimeRec theDate = {};
    DateToSeconds(&theDate, nullptr);
}

TEST(OSUtils, SecondsAreDates)
{
    EXPECT_EQ(DateOf(0), "1904-01-01 00:00:00 (6)");
    EXPECT_EQ(DateOf(2082844800), "1970-01-01 00:00:00 (5)");
    EXPECT_EQ(DateOf(3061152000), "2001-01-01 00:00:00 (2)");
    EXPECT_EQ(DateOf(3035015999), "2000-03-04 11:59:59 (7)");
    EXPECT_EQ(DateOf(0xFFFFFFFF), "2040-02-06 06:28:15 (2)");
}

TEST(OSUtils, DatesAreSeconds)
{
    EXPECT_EQ(SecondsOf({1904, 1, 1, 0, 0, 0, 0}), 0U);
    EXPECT_EQ(SecondsOf({2001, 1, 1, 0, 0, 0, 3}), 3061152000U) << "whatever the day of the week says";
    EXPECT_EQ(SecondsOf({2040, 2, 6, 6, 28, 15, 0}), 0xFFFFFFFFU);
    for (unsigned long theSeconds = 0; theSeconds < 0xF0000000; theSeconds += 98765432) {
        DateTimeRec theDate = {};
        SecondsToDate(theSeconds, &theDate);
        EXPECT_EQ(SecondsOf(theDate), theSeconds);
    }
}

TEST(OSUtils, WhatThereIsNotIsCountedOn)
{
    EXPECT_EQ(SecondsOf({2000, 13, 1, 0, 0, 0, 0}), 3061152000U);
    EXPECT_EQ(SecondsOf({2001, 1, 0, 24, 0, 0, 0}), 3061152000U);
    EXPECT_EQ(SecondsOf({2001, 1, 1, 0, 1, -60, 0}), 3061152000U);
    EXPECT_EQ(SecondsOf({2002, -11, 1, 0, 0, 0, 0}), 3061152000U);
    EXPECT_EQ(SecondsOf({1903, 12, 31, 23, 59, 59, 0}), 0xFFFFFFFFU) << "within 32 bits";
    EXPECT_EQ(DateOf(SecondsOf({-32768, -32768, -32768, -32768, -32768, -32768, 0})).size(), 23U);
}
