// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

TEST(CFCalendar, DatesAreCompleteOrErrors)
{
    EXPECT_TRUE(CFEqual(ReadContent("<date>2001-01-01T00:00:00Z</date>"), Date(0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>2004-02-29T23:59:59Z</date>"), Date(99791999)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>1969-07-20T20:17:40Z</date>"), Date(-992490140)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>4032-01-02T00:00:00Z</date>"), Date(64092211200.0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>0000-01-01T00:00:00Z</date>"), Date(-63145526400.0)));
    for (const char* theText :
         {"", "2001-01-01", "2001-01-01T00:00:00", "2001-13-01T00:00:00Z", "2001-00-01T00:00:00Z",
          "2001-02-29T00:00:00Z", "1900-02-29T00:00:00Z", "2001-01-00T00:00:00Z", "2001-01-01T24:00:00Z",
          "2001-01-01T00:60:00Z", "2001-01-01T00:00:60Z", " 2001-01-01T00:00:00Z", "2001-01-01T00:00:00Zx"}) {
        EXPECT_EQ(ContentError(std::string("<date>") + theText + "</date>"), "a date is none") << theText;
    }
}

// Some programs do not fill the year with zeros.
TEST(CFCalendar, AYearMayBeShort)
{
    EXPECT_TRUE(CFEqual(ReadContent("<date>0001-01-01T00:00:00Z</date>"), Date(-63113904000.0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>1-01-01T00:00:00Z</date>"), Date(-63113904000.0)));
    EXPECT_TRUE(CFEqual(ReadContent("<date>998-12-31T23:59:59Z</date>"), Date(-31620067201.0)));
    for (const char* theText : {"-01-01T00:00:00Z", "20010-01-01T00:00:00Z", "+1-01-01T00:00:00Z",
                                "-1-01-01T00:00:00Z", "1-1-01T00:00:00Z", "1-01-01T0:00:00Z"}) {
        EXPECT_EQ(ContentError(std::string("<date>") + theText + "</date>"), "a date is none") << theText;
    }
}

TEST(CFCalendar, EveryDayOfFourCenturiesGoesThereAndBack)
{
    for (int theDay = -36525; theDay < 146097 - 36525; theDay += 29) {
        const auto theDate = Date(theDay * 86400.0 + 12345);
        const std::string theText = WrittenXML(theDate);
        EXPECT_TRUE(CFEqual(ReadContent(theText), theDate)) << theText;
    }
}
