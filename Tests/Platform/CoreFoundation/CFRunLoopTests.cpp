// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Run loop timers as far as no loop turns; RunLoopTimersTests has one that does.

#include "CFTestSupport.h"

#include <cmath>

namespace {

int gRetained = 0;
int gReleased = 0;

const void* RetainInfo(const void* theInfo)
{
    ++gRetained;
    return theInfo;
}

void ReleaseInfo(const void*)
{
    ++gReleased;
}

void Nothing(CFRunLoopTimerRef, void*) {}

Owned<CFRunLoopTimerRef> Timer(CFAbsoluteTime theFireDate, CFTimeInterval theInterval = 0)
{
    return Owned(CFRunLoopTimerCreate(nullptr, theFireDate, theInterval, 0, 7, Nothing, nullptr));
}

Owned<CFRunLoopTimerRef> TimerWithInfo()
{
    gRetained = 0;
    gReleased = 0;
    CFRunLoopTimerContext theContext = {0, &gRetained, RetainInfo, ReleaseInfo, nullptr};
    return Owned(CFRunLoopTimerCreate(nullptr, 5, 0, 0, 0, Nothing, &theContext));
}

bool Contains(CFRunLoopTimerRef theTimer, CFStringRef theMode)
{
    return CFRunLoopContainsTimer(CFRunLoopGetMain(), theTimer, theMode) != 0;
}

} // namespace

TEST(CFRunLoop, ThereIsOne)
{
    const CFRunLoopRef theLoop = CFRunLoopGetCurrent();
    EXPECT_EQ(CFRunLoopGetMain(), theLoop);
    EXPECT_EQ(CFGetTypeID(theLoop), CFRunLoopGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFRunLoopGetTypeID()))), "CFRunLoop");
    CFRelease(theLoop);
    EXPECT_EQ(CFRunLoopGetMain(), theLoop);
}

TEST(CFRunLoop, ATimerTellsWhatItWasMadeWith)
{
    const auto theTimer = Timer(100.5, 2.5);
    EXPECT_EQ(CFGetTypeID(theTimer), CFRunLoopTimerGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFRunLoopTimerGetTypeID()))), "CFRunLoopTimer");
    EXPECT_EQ(CFRunLoopTimerGetNextFireDate(theTimer), 100.5);
    EXPECT_EQ(CFRunLoopTimerGetInterval(theTimer), 2.5);
    EXPECT_TRUE(CFRunLoopTimerDoesRepeat(theTimer));
    EXPECT_EQ(CFRunLoopTimerGetOrder(theTimer), 7);
    EXPECT_TRUE(CFRunLoopTimerIsValid(theTimer));
    EXPECT_EQ(DescriptionOf(theTimer), "{valid = Yes, interval = 2.5, next fire date = 100.5}");
    EXPECT_FALSE(CFRunLoopTimerDoesRepeat(Timer(1)));
    EXPECT_FALSE(CFRunLoopTimerDoesRepeat(Timer(1, -1)));
    EXPECT_EQ(CFRunLoopTimerGetInterval(Timer(1, -1)), 0);
}

TEST(CFRunLoop, WithoutAFunctionOrATimeThereIsNoTimer)
{
    EXPECT_EQ(CFRunLoopTimerCreate(nullptr, 1, 0, 0, 0, nullptr, nullptr), nullptr);
    EXPECT_EQ(CFRunLoopTimerCreate(nullptr, std::nan(""), 0, 0, 0, Nothing, nullptr), nullptr);
    EXPECT_EQ(CFRunLoopTimerCreate(nullptr, 1, std::nan(""), 0, 0, Nothing, nullptr), nullptr);
}

TEST(CFRunLoop, ATimerKeepsItsInfoUntilItIsInvalid)
{
    const auto theTimer = TimerWithInfo();
    EXPECT_EQ(gRetained, 1);
    CFRunLoopTimerContext theContext = {0, nullptr, nullptr, nullptr, nullptr};
    CFRunLoopTimerGetContext(theTimer, &theContext);
    EXPECT_EQ(theContext.info, &gRetained);
    EXPECT_EQ(gReleased, 0);
    CFRunLoopTimerInvalidate(theTimer);
    EXPECT_EQ(gReleased, 1);
    CFRunLoopTimerInvalidate(theTimer);
    EXPECT_EQ(gReleased, 1);
    EXPECT_FALSE(CFRunLoopTimerIsValid(theTimer));
    EXPECT_EQ(CFRunLoopTimerGetNextFireDate(theTimer), 0);
    EXPECT_EQ(DescriptionOf(theTimer), "{valid = No, interval = 0, next fire date = 5}");
}

TEST(CFRunLoop, ATimerThatGoesReleasesItsInfo)
{
    {
        const auto theTimer = TimerWithInfo();
    }
    EXPECT_EQ(gReleased, 1);
}

TEST(CFRunLoop, TheLoopRetainsItsTimersOnceInEachMode)
{
    const auto theTimer = Timer(1e12);
    CFRunLoopAddTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopDefaultMode);
    CFRunLoopAddTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopDefaultMode);
    CFRunLoopAddTimer(CFRunLoopGetMain(), theTimer, CFSTR("another"));
    EXPECT_EQ(CFGetRetainCount(theTimer), 3);
    EXPECT_TRUE(Contains(theTimer, kCFRunLoopDefaultMode));
    EXPECT_TRUE(Contains(theTimer, CFSTR("another")));
    EXPECT_FALSE(Contains(theTimer, kCFRunLoopCommonModes));
    CFRunLoopRemoveTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopCommonModes);
    CFRunLoopRemoveTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopDefaultMode);
    EXPECT_FALSE(Contains(theTimer, kCFRunLoopDefaultMode));
    EXPECT_EQ(CFGetRetainCount(theTimer), 2);
    CFRunLoopTimerInvalidate(theTimer);
    EXPECT_FALSE(Contains(theTimer, CFSTR("another")));
    EXPECT_EQ(CFGetRetainCount(theTimer), 1);
    CFRunLoopAddTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopDefaultMode);
    EXPECT_FALSE(Contains(theTimer, kCFRunLoopDefaultMode));
}

TEST(CFRunLoop, ATimerThatNobodyElseHasGoesWhenItIsTakenOut)
{
    TimerWithInfo();
    gReleased = 0;
    CFRunLoopTimerRef theTimer = nullptr;
    {
        auto theOwned = TimerWithInfo();
        theTimer = theOwned;
        CFRunLoopAddTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopDefaultMode);
    }
    EXPECT_EQ(gReleased, 0);
    CFRunLoopRemoveTimer(CFRunLoopGetMain(), theTimer, kCFRunLoopDefaultMode);
    EXPECT_EQ(gReleased, 1);
}

TEST(CFRunLoop, AFireDateCanBeSet)
{
    const auto theTimer = Timer(5);
    CFRunLoopTimerSetNextFireDate(theTimer, 9);
    EXPECT_EQ(CFRunLoopTimerGetNextFireDate(theTimer), 9);
    CFRunLoopTimerSetNextFireDate(theTimer, std::nan(""));
    EXPECT_EQ(CFRunLoopTimerGetNextFireDate(theTimer), 9);
    CFRunLoopTimerInvalidate(theTimer);
    CFRunLoopTimerSetNextFireDate(theTimer, 11);
    EXPECT_EQ(CFRunLoopTimerGetNextFireDate(theTimer), 0);
}
