// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

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
}
