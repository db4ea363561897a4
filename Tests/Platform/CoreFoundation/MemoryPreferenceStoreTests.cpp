// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "PreferenceFileSupport.h"

namespace {

using MemoryPreferenceStore = PreferencesInMemory;

} // namespace

TEST_F(MemoryPreferenceStore, WhatIsSetIsSeenAtOnceAndAfterSynchronizing)
{
    Set(CFSTR("text"), CFSTR("value"));
    EXPECT_TRUE(Has(CFSTR("text"), CFSTR("value")));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("text"), CFSTR("value")));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("text"), CFSTR("value")));
    Set(CFSTR("text"), nullptr);
    EXPECT_TRUE(Has(CFSTR("text"), nullptr));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("text"), nullptr));
}

TEST_F(MemoryPreferenceStore, NumbersKeepTheirTypeUntilTheyAreReadAgain)
{
    Set(CFSTR("small"), Number(kCFNumberSInt64Type, SInt64{7}));
    Set(CFSTR("short"), Number(kCFNumberSInt16Type, SInt16{300}));
    Set(CFSTR("byte"), Number(kCFNumberSInt8Type, SInt8{100}));
    Set(CFSTR("wide"), Number(kCFNumberSInt64Type, SInt64{1000}));
    Set(CFSTR("large"), Number(kCFNumberSInt64Type, SInt64{5000000000}));
    Set(CFSTR("float"), Number(kCFNumberFloat32Type, 2.5F));
    Set(CFSTR("double"), Float(2.5));
    for (int theTurn = 0; theTurn < 2; ++theTurn) {
        EXPECT_EQ(TypeOf(CFSTR("small")), kCFNumberSInt32Type);
        EXPECT_EQ(TypeOf(CFSTR("short")), kCFNumberSInt16Type);
        EXPECT_EQ(TypeOf(CFSTR("byte")), kCFNumberSInt8Type);
        EXPECT_EQ(TypeOf(CFSTR("wide")), kCFNumberSInt64Type);
        EXPECT_EQ(TypeOf(CFSTR("large")), kCFNumberSInt64Type);
        EXPECT_EQ(TypeOf(CFSTR("float")), kCFNumberFloat32Type);
        EXPECT_EQ(TypeOf(CFSTR("double")), kCFNumberFloat64Type);
        // The first one writes, the second one forgets.
        EXPECT_TRUE(Synchronize());
    }
    EXPECT_EQ(TypeOf(CFSTR("small")), kCFNumberSInt32Type);
    EXPECT_EQ(TypeOf(CFSTR("short")), kCFNumberSInt64Type);
    EXPECT_EQ(TypeOf(CFSTR("byte")), kCFNumberSInt64Type);
    EXPECT_EQ(TypeOf(CFSTR("wide")), kCFNumberSInt64Type);
    EXPECT_EQ(TypeOf(CFSTR("large")), kCFNumberSInt64Type);
    EXPECT_EQ(TypeOf(CFSTR("float")), kCFNumberFloat64Type);
    EXPECT_EQ(TypeOf(CFSTR("double")), kCFNumberFloat64Type);
}

TEST_F(MemoryPreferenceStore, BooleansStayTheConstants)
{
    Set(CFSTR("yes"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(static_cast<CFPropertyListRef>(Get(CFSTR("yes"))), kCFBooleanTrue);
}

TEST_F(MemoryPreferenceStore, WhatIsSetForAnyUserLastsAsLongAsTheProcess)
{
    // In a process of its own: the value can never be written.
    EXPECT_EQ(RunInProcess([this] {
                  const CFStringRef kUser = kCFPreferencesAnyUser;
                  const CFStringRef kHost = kCFPreferencesCurrentHost;
                  const bool theIsCleanAtFirst = CFPreferencesSynchronize(mApplication, kUser, kHost);
                  CFPreferencesSetValue(CFSTR("key"), CFSTR("value"), mApplication, kUser, kHost);
                  return theIsCleanAtFirst && !CFPreferencesSynchronize(mApplication, kUser, kHost) &&
                                 Synchronize() && Has(CFSTR("key"), CFSTR("value"))
                             ? 0
                             : 1;
              }),
              0);
}
