// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Times of day and dates.

#include "LoopSteps.h"
#include "ManagerTestSupport.h"

#include <cmath>
#include <limits>
#include <Simulation/UserSimulator.h>

namespace {

LongDateRec DateOf(SInt16 theYear, SInt16 theMonth, SInt16 theDay, SInt16 theHour = 0, SInt16 theMinute = 0,
                   SInt16 theSecond = 0)
{
    LongDateRec theRecord = {};
    theRecord.ld.year = theYear;
    theRecord.ld.month = theMonth;
    theRecord.ld.day = theDay;
    theRecord.ld.hour = theHour;
    theRecord.ld.minute = theMinute;
    theRecord.ld.second = theSecond;
    return theRecord;
}

class Clocks : public ControlKindTest
{
protected:
    // From 20, 200 to 160, 220, on the 28th of February 2024, five past two in the afternoon.
    ControlRef NewClock(ControlClockType theType = kControlClockTypeHourMinuteSecond,
                        ControlClockFlags theFlags = kControlClockNoFlags)
    {
        const Rect theBounds = MakeRect(20, 200, 160, 220);
        ControlRef theClock = nullptr;
        EXPECT_EQ(CreateClockControl(mWindow, &theBounds, theType, theFlags, &theClock), noErr);
        EXPECT_EQ(Set(theClock, DateOf(2024, 2, 28, 14, 5, 30)), noErr);
        return theClock;
    }

    static OSErr Set(ControlRef theClock, const LongDateRec& theDate)
    {
        return SetControlData(theClock, 0, kControlClockLongDateTag, sizeof theDate, &theDate);
    }

    static OSErr Set(ControlRef theClock, CFAbsoluteTime theTime)
    {
        return SetControlData(theClock, 0, kControlClockAbsoluteTimeTag, sizeof theTime, &theTime);
    }

    static LongDateRec RecordOf(ControlRef theClock)
    {
        LongDateRec theRecord = {};
        EXPECT_EQ(
            GetControlData(theClock, 0, kControlClockLongDateTag, sizeof theRecord, &theRecord, nullptr),
            noErr);
        return theRecord;
    }

    static CFAbsoluteTime TimeOf(ControlRef theClock)
    {
        CFAbsoluteTime theTime = 0;
        EXPECT_EQ(
            GetControlData(theClock, 0, kControlClockAbsoluteTimeTag, sizeof theTime, &theTime, nullptr),
            noErr);
        return theTime;
    }

    // "2024-2-28 14:5:30"
    static std::string MomentOf(ControlRef theClock)
    {
        const auto theFields = RecordOf(theClock).ld;
        return std::to_string(theFields.year) + "-" + std::to_string(theFields.month) + "-" +
               std::to_string(theFields.day) + " " + std::to_string(theFields.hour) + ":" +
               std::to_string(theFields.minute) + ":" + std::to_string(theFields.second);
    }

    OSErr GiveKeys(ControlRef theControl)
    {
        return SetKeyboardFocus(mWindow, theControl, kControlFocusNextPart);
    }

    static std::string Shown(ControlRef theClock) { return LookOf(theClock).theText; }

    void WatchHits(ControlRef theClock)
    {
        Watch(theClock, "clock", kWithoutHilite, [this](EventRef theEvent) {
            ControlPartCode thePart = 0;
            if (GetEventKind(theEvent) == kEventControlHit) {
                GetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, nullptr,
                                  sizeof thePart, nullptr, &thePart);
                mLog.back() = "hit " + std::to_string(thePart);
            }
            return OSStatus{eventNotHandledErr};
        });
    }

    Host::UserSimulator mUser;
};

} // namespace

// What they show -----------------------------------------------------------------------------------------

TEST_F(Clocks, ShowTheTimeAsTheirTypeSays)
{
    EXPECT_EQ(Shown(NewClock(kControlClockTypeHourMinute)), "14:05");
    EXPECT_EQ(Shown(NewClock(kControlClockTypeHourMinuteSecond)), "14:05:30");
    EXPECT_EQ(Shown(NewClock(kControlClockTypeMonthDayYear)), "2024-02-28");
    EXPECT_EQ(Shown(NewClock(kControlClockTypeMonthYear)), "2024-02");
    ControlKind theKind = {0, 0};
    GetControlKind(NewClock(), &theKind);
    EXPECT_EQ(OSType{theKind.kind}, OSType{'clck'});
}

TEST_F(Clocks, StartWithTheTimeOfTheSystem)
{
    const Rect theBounds = MakeRect(20, 200, 160, 220);
    ControlRef theClock = nullptr;
    const CFAbsoluteTime theBefore = CFAbsoluteTimeGetCurrent();
    CreateClockControl(mWindow, &theBounds, 0, 0, &theClock);
    EXPECT_GE(TimeOf(theClock), theBefore);
    EXPECT_LE(TimeOf(theClock), CFAbsoluteTimeGetCurrent());
}

TEST_F(Clocks, GiveTheirDateAsARecordWithAllItsFields)
{
    const struct
    {
        LongDateRec theDate;
        SInt16 theDayOfWeek;
        SInt16 theDayOfYear;
        SInt16 theWeekOfYear;
        SInt16 theIsAfternoon;
    } kRows[] = {
        {DateOf(2024, 2, 28, 14, 5, 30), 4, 59, 9, 1}, {DateOf(2024, 12, 31, 11, 59, 59), 3, 366, 53, 0},
        {DateOf(2001, 1, 1, 12, 0, 0), 2, 1, 1, 1},    {DateOf(2000, 1, 1, 0, 0, 0), 7, 1, 1, 0},
        {DateOf(2000, 1, 2, 0, 0, 0), 1, 2, 2, 0},     {DateOf(1600, 3, 1, 0, 0, 0), 4, 61, 10, 0},
    };
    ControlRef theClock = NewClock();
    for (const auto& theRow : kRows) {
        ASSERT_EQ(Set(theClock, theRow.theDate), noErr);
        const LongDateRec theRecord = RecordOf(theClock);
        EXPECT_EQ(theRecord.ld.era, 0);
        for (size_t theIndex = 1; theIndex < 7; ++theIndex) {
            EXPECT_EQ(theRecord.list[theIndex], theRow.theDate.list[theIndex]) << MomentOf(theClock);
        }
        EXPECT_EQ(theRecord.ld.dayOfWeek, theRow.theDayOfWeek) << MomentOf(theClock);
        EXPECT_EQ(theRecord.ld.dayOfYear, theRow.theDayOfYear) << MomentOf(theClock);
        EXPECT_EQ(theRecord.ld.weekOfYear, theRow.theWeekOfYear) << MomentOf(theClock);
        EXPECT_EQ(theRecord.ld.pm, theRow.theIsAfternoon) << MomentOf(theClock);
    }
}

TEST_F(Clocks, TakeAndGiveTheirTimeInSeconds)
{
    ControlRef theClock = NewClock();
    const CFAbsoluteTime theTime = TimeOf(theClock);
    EXPECT_EQ(Set(theClock, theTime + 61), noErr);
    EXPECT_EQ(TimeOf(theClock), theTime + 61);
    EXPECT_EQ(MomentOf(theClock), "2024-2-28 14:6:31");
}

TEST_F(Clocks, RefuseDatesThatDoNotExistAndYearsWithoutFourDigits)
{
    ControlRef theClock = NewClock();
    for (const LongDateRec& theDate :
         {DateOf(2023, 2, 29), DateOf(2024, 13, 1), DateOf(2024, 0, 1), DateOf(2024, 1, 0),
          DateOf(2024, 1, 1, 24), DateOf(2024, 1, 1, 0, 60), DateOf(2024, 1, 1, 0, 0, 60),
          DateOf(2024, 257, 1), DateOf(2024, 1, -255), DateOf(999, 12, 31), DateOf(10000, 1, 1),
          DateOf(-2024, 1, 1)}) {
        EXPECT_EQ(Set(theClock, theDate), paramErr);
    }
    LongDateRec theOtherEra = DateOf(2024, 1, 1);
    theOtherEra.ld.era = -1;
    EXPECT_EQ(Set(theClock, theOtherEra), paramErr);
    for (const double theTime : {-1e12, 1e12, 1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(Set(theClock, theTime), paramErr);
    }
    EXPECT_EQ(SetControlData(theClock, 0, kControlClockLongDateTag, 27, &theOtherEra), errDataSizeMismatch);
    EXPECT_EQ(MomentOf(theClock), "2024-2-28 14:5:30");
    EXPECT_EQ(Set(theClock, DateOf(9999, 12, 31, 23, 59, 59)), noErr);
    EXPECT_EQ(Set(theClock, DateOf(1000, 1, 2)), noErr);
}

// Mouse and keys -----------------------------------------------------------------------------------------

TEST_F(Clocks, TheArrowsChangeTheFieldThatWasClickedAndLeaveTheOthers)
{
    ControlRef theClock = NewClock();
    WatchHits(theClock);
    EXPECT_TRUE(mUser.ClickPart(theClock, kControlUpButtonPart));
    EXPECT_EQ(Shown(theClock), "15:05:30") << "the first field to begin with";
    EXPECT_TRUE(mUser.ClickPart(theClock, kControlClockMinuteMonthPart));
    EXPECT_TRUE(mUser.ClickPart(theClock, kControlDownButtonPart));
    EXPECT_EQ(Shown(theClock), "15:04:30");
    EXPECT_EQ(TakeLog(), (Log{"hit 20", "hit 10", "hit 21"}));
    EXPECT_TRUE(mUser.ClickPart(theClock, kControlClockSecondYearPart));
    EXPECT_TRUE(LookOf(theClock).Rare().theSegments[2].theHasKeys);
    EXPECT_FALSE(mUser.ClickPart(theClock, kControlClockAMPMPart));
}

TEST_F(Clocks, BehindTheLastNumberComesTheFirst)
{
    ControlRef theClock = NewClock(kControlClockTypeMonthDayYear);
    const struct
    {
        LongDateRec theDate;
        ControlPartCode theField;
        ControlPartCode theArrow;
        const char* theMoment;
    } kRows[] = {
        {DateOf(2024, 2, 29), kControlClockHourDayPart, kControlUpButtonPart, "2024-02-01"},
        {DateOf(2023, 2, 1), kControlClockHourDayPart, kControlDownButtonPart, "2023-02-28"},
        {DateOf(2024, 12, 31), kControlClockMinuteMonthPart, kControlUpButtonPart, "2024-01-31"},
        {DateOf(2024, 3, 31), kControlClockMinuteMonthPart, kControlDownButtonPart, "2024-02-29"},
        {DateOf(2024, 2, 29), kControlClockSecondYearPart, kControlUpButtonPart, "2025-02-28"},
        {DateOf(9999, 6, 1), kControlClockSecondYearPart, kControlUpButtonPart, "1000-06-01"},
    };
    for (const auto& theRow : kRows) {
        ASSERT_EQ(Set(theClock, theRow.theDate), noErr);
        EXPECT_TRUE(mUser.ClickPart(theClock, theRow.theField));
        EXPECT_TRUE(mUser.ClickPart(theClock, theRow.theArrow));
        EXPECT_EQ(Shown(theClock), theRow.theMoment);
    }
    ControlRef theOther = NewClock();
    Set(theOther, DateOf(2024, 2, 28, 23, 0, 0));
    mUser.ClickPart(theOther, kControlUpButtonPart);
    EXPECT_EQ(MomentOf(theOther), "2024-2-28 0:0:0") << "the day stays";
}

TEST_F(Clocks, TheArrowKeysGoFromFieldToFieldAndChangeThem)
{
    ControlRef theClock = NewClock();
    WatchHits(theClock);
    EXPECT_EQ(GiveKeys(theClock), noErr);
    TakeLog();
    Key(kVK_LeftArrow);
    EXPECT_EQ(Key(kVK_UpArrow), noErr);
    Key(kVK_RightArrow);
    Key(kVK_DownArrow);
    Key(kVK_RightArrow);
    Key(kVK_RightArrow);
    Key(kVK_UpArrow);
    EXPECT_EQ(Shown(theClock), "15:04:31");
    EXPECT_EQ(TakeLog(), (Log{"hit 20", "hit 21", "hit 20"}));
    EXPECT_EQ(Key(kVK_UpArrow, "", cmdKey), eventNotHandledErr);
}

TEST_F(Clocks, DigitsAddUpUntilTheNumberWouldBeTooGreat)
{
    ControlRef theClock = NewClock();
    WatchHits(theClock);
    GiveKeys(theClock);
    TakeLog();
    Type("09");
    EXPECT_EQ(Shown(theClock), "09:05:30");
    Type("23");
    EXPECT_EQ(Shown(theClock), "23:05:30") << "92 is no hour";
    Key(kVK_RightArrow);
    Type("45");
    EXPECT_EQ(Shown(theClock), "23:45:30");
    EXPECT_EQ(TakeLog(), (Log{"hit 9", "hit 9", "hit 9", "hit 9", "hit 10", "hit 10"}));
    EXPECT_EQ(Key(0, "x"), eventNotHandledErr);
}

TEST_F(Clocks, DigitsOfADateWaitForAWholeYearAndForAMonth)
{
    ControlRef theClock = NewClock(kControlClockTypeMonthDayYear);
    Set(theClock, DateOf(2024, 2, 29));
    WatchHits(theClock);
    GiveKeys(theClock);
    TakeLog();
    Type("202");
    EXPECT_EQ(Shown(theClock), "2024-02-29");
    EXPECT_EQ(TakeLog(), Log());
    Type("8");
    EXPECT_EQ(Shown(theClock), "2028-02-29");
    Key(kVK_RightArrow);
    Type("0");
    EXPECT_EQ(Shown(theClock), "2028-02-29");
    Type("4");
    EXPECT_EQ(Shown(theClock), "2028-04-29");
    EXPECT_EQ(TakeLog(), (Log{"hit 11", "hit 10"}));
}

TEST_F(Clocks, AClickBringsTheKeys)
{
    ControlRef theClock = NewClock();
    NewFieldAt(20, 240);
    mUser.ClickPart(theClock, kControlClockMinuteMonthPart);
    EXPECT_EQ(Focus(), theClock);
    EXPECT_TRUE(mUser.TypeText("7"));
    EXPECT_EQ(Shown(theClock), "14:07:30");
}

TEST_F(Clocks, TypingBeginsAnewWhenTheKeysCameBack)
{
    ControlRef theClock = NewClock();
    ControlRef theField = NewFieldAt(20, 240);
    GiveKeys(theClock);
    Type("1");
    SetFocus(theField);
    GiveKeys(theClock);
    Type("2");
    EXPECT_EQ(Shown(theClock), "02:05:30");
}

TEST_F(Clocks, PressesBesideTheDigitsAreThoseBefore)
{
    ControlRef theClock = NewClock(kControlClockTypeHourMinute);
    EXPECT_EQ(TestControl(theClock, Point{210, 21}), kControlClockHourDayPart);
    EXPECT_EQ(TestControl(theClock, Point{210, 140}), kControlClockMinuteMonthPart);
    EXPECT_EQ(TestControl(theClock, Point{205, 150}), kControlUpButtonPart);
    EXPECT_EQ(TestControl(theClock, Point{215, 150}), kControlDownButtonPart);
}

TEST_F(Clocks, OneForDisplayTakesNothing)
{
    ControlRef theClock = NewClock(kControlClockTypeHourMinute, kControlClockIsDisplayOnly);
    EXPECT_EQ(TestControl(theClock, Point{210, 30}), kControlNoPart);
    EXPECT_FALSE(mUser.ClickPart(theClock, kControlUpButtonPart));
    EXPECT_EQ(GiveKeys(theClock), errCouldntSetFocus);
    EXPECT_TRUE(LookOf(theClock).theIsLocked);
    EXPECT_EQ(Set(theClock, DateOf(2024, 1, 1, 1, 2, 3)), noErr) << "the program may";
    EXPECT_EQ(Shown(theClock), "01:02");
}

// Live clocks --------------------------------------------------------------------------------------------

class LiveClocks : public Clocks
{
protected:
    Host::VirtualClock mEventClock{1000};
};

TEST_F(LiveClocks, GoOnFromTheTimeThatWasSet)
{
    ControlRef theClock = NewClock(kControlClockTypeHourMinuteSecond, kControlClockIsLive);
    ControlRef theOther = NewClock();
    mEventClock.Advance(40);
    EXPECT_EQ(Shown(theClock), "14:06:10");
    EXPECT_EQ(Shown(theOther), "14:05:30");
    EXPECT_EQ(GiveKeys(theClock), errCouldntSetFocus);
    DisposeControl(theClock);
}

// What is none -------------------------------------------------------------------------------------------

TEST_F(Clocks, AreRefusedWithATypeOrFlagsThatAreNone)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    ControlRef theClock = InventedReference<ControlRef>();
    EXPECT_EQ(CreateClockControl(mWindow, &theBounds, 4, 0, &theClock), paramErr);
    EXPECT_EQ(theClock, nullptr);
    theClock = InventedReference<ControlRef>();
    EXPECT_EQ(CreateClockControl(mWindow, &theBounds, 0, 4, &theClock), paramErr);
    EXPECT_EQ(theClock, nullptr);
    EXPECT_EQ(CreateClockControl(mWindow, &theBounds, 0, kControlClockIsLive, nullptr), paramErr);
    EXPECT_EQ(CreateClockControl(nullptr, &theBounds, 0, 0, &theClock), paramErr);
}
