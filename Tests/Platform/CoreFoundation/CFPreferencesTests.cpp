// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers. Every test has an application of its
// own, and the values are kept in memory.

#include "PreferenceFileSupport.h"
#include "StandardErrorCapture.h"

#include <cstdlib>
#include <thread>

namespace {

using CFPreferences = PreferencesInMemory;

} // namespace

TEST_F(CFPreferences, NamesOfDomainsAreTheirOwnText)
{
    EXPECT_EQ(TextOf(kCFPreferencesAnyApplication), "kCFPreferencesAnyApplication");
    EXPECT_EQ(TextOf(kCFPreferencesCurrentApplication), "kCFPreferencesCurrentApplication");
    EXPECT_EQ(TextOf(kCFPreferencesAnyHost), "kCFPreferencesAnyHost");
    EXPECT_EQ(TextOf(kCFPreferencesCurrentHost), "kCFPreferencesCurrentHost");
    EXPECT_EQ(TextOf(kCFPreferencesAnyUser), "kCFPreferencesAnyUser");
    EXPECT_EQ(TextOf(kCFPreferencesCurrentUser), "kCFPreferencesCurrentUser");
}

TEST_F(CFPreferences, AnAbsentKeyHasNoValue)
{
    EXPECT_TRUE(Has(CFSTR("absent"), nullptr));
    Set(CFSTR("absent"), nullptr);
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("absent"), nullptr));
}

TEST_F(CFPreferences, AnyStringIsAKey)
{
    for (const char* theKey : {"", "a.b", "a/b", "a b", u8"\u00E9\U0001F600", "<&>"}) {
        Set(String(theKey), String(theKey));
    }
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Synchronize());
    for (const char* theKey : {"", "a.b", "a/b", "a b", u8"\u00E9\U0001F600", "<&>"}) {
        EXPECT_TRUE(Has(String(theKey), String(theKey)));
    }
}

TEST_F(CFPreferences, ValuesAndKeysAreCopiedWhenTheyAreSet)
{
    const auto theKey = MutableString("key");
    const auto theText = MutableString("value");
    const auto theArray = ObjectArray({theText});
    Set(theKey, theArray);
    CFStringAppend(theKey, CFSTR(" changed"));
    CFStringAppend(theText, CFSTR(" changed"));
    CFArrayAppendValue(theArray, kCFBooleanTrue);
    EXPECT_TRUE(Has(CFSTR("key"), ObjectArray({CFSTR("value")})));
}

TEST_F(CFPreferences, ValuesBelongToTheCaller)
{
    Set(CFSTR("data"), Data({1, 2, 3}));
    const CFPropertyListRef theFirst = CFPreferencesCopyAppValue(CFSTR("data"), mApplication);
    const CFIndex theCount = CFGetRetainCount(theFirst);
    const CFPropertyListRef theSecond = CFPreferencesCopyAppValue(CFSTR("data"), mApplication);
    EXPECT_EQ(CFGetRetainCount(theFirst), theCount + 1);
    CFRelease(theSecond);
    CFRelease(theFirst);
}

TEST_F(CFPreferences, AnEqualValueIsNoChange)
{
    Set(CFSTR("number"), Number(kCFNumberSInt16Type, SInt16{300}));
    Set(CFSTR("number"), Number(kCFNumberSInt64Type, SInt64{300}));
    EXPECT_EQ(TypeOf(CFSTR("number")), kCFNumberSInt16Type);
}

TEST_F(CFPreferences, WhatIsNoPropertyListIsNotSet)
{
    Set(CFSTR("key"), CFSTR("before"));
    Set(CFSTR("key"), kCFNull);
    Set(CFSTR("key"), ObjectArray({kCFNull}));
    Set(CFSTR("key"), String(Units{0xD800}));
    Set(String(Units{0xD800}), CFSTR("value"));
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines(4, "CFPreferences: a value that is no property list was not set"));
    EXPECT_TRUE(Has(CFSTR("key"), CFSTR("before")));
    EXPECT_TRUE(Synchronize());
}

TEST_F(CFPreferences, ReadingAsksOneDomainAfterTheOther)
{
    const CFStringRef kUser = kCFPreferencesCurrentUser;
    const CFStringRef kKey = CFSTR("searched key");
    CFPreferencesSetValue(kKey, CFSTR("any, any"), kCFPreferencesAnyApplication, kUser,
                          kCFPreferencesAnyHost);
    EXPECT_TRUE(Has(kKey, CFSTR("any, any")));
    CFPreferencesSetValue(kKey, CFSTR("any, host"), kCFPreferencesAnyApplication, kUser,
                          kCFPreferencesCurrentHost);
    EXPECT_TRUE(Has(kKey, CFSTR("any, host")));
    Set(kKey, CFSTR("application, any"));
    EXPECT_TRUE(Has(kKey, CFSTR("application, any")));
    CFPreferencesSetValue(kKey, CFSTR("application, host"), mApplication, kUser, kCFPreferencesCurrentHost);
    EXPECT_TRUE(Has(kKey, CFSTR("application, host")));
    Set(kKey, CFSTR("set, but not seen"));
    EXPECT_TRUE(Has(kKey, CFSTR("application, host")));
    EXPECT_TRUE(CFEqual(Owned(CFPreferencesCopyValue(kKey, mApplication, kUser, kCFPreferencesAnyHost)),
                        CFSTR("set, but not seen")));
    CFPreferencesSetValue(kKey, nullptr, mApplication, kUser, kCFPreferencesCurrentHost);
    Set(kKey, nullptr);
    EXPECT_TRUE(Has(kKey, CFSTR("any, host")));
    CFPreferencesSetValue(kKey, nullptr, kCFPreferencesAnyApplication, kUser, kCFPreferencesCurrentHost);
    CFPreferencesSetValue(kKey, nullptr, kCFPreferencesAnyApplication, kUser, kCFPreferencesAnyHost);
    EXPECT_TRUE(Has(kKey, nullptr));
    EXPECT_TRUE(Synchronize());
}

TEST_F(CFPreferences, BooleansAreReadFromSomeOtherValues)
{
    const struct Row
    {
        Owned<CFPropertyListRef> theValue;
        bool theExpected;
        bool theIsValid;
    } kRows[] = {
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanTrue)), true, true},
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanFalse)), false, true},
        {Owned<CFPropertyListRef>(CFRetain(Integer(2))), true, true},
        {Owned<CFPropertyListRef>(CFRetain(Integer(0))), false, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("true"))), true, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("YES"))), true, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("False"))), false, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("no"))), false, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("1"))), false, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR(""))), false, false},
        {Owned<CFPropertyListRef>(CFRetain(Data({1}))), false, false},
        {Owned<CFPropertyListRef>(CFRetain(Float(1.0))), false, false},
        {Owned<CFPropertyListRef>(CFRetain(Float(0.0))), false, false},
    };
    for (const Row& theRow : kRows) {
        SCOPED_TRACE(DescriptionOf(theRow.theValue));
        Set(CFSTR("key"), theRow.theValue);
        Boolean theIsValid = 77;
        EXPECT_EQ(CFPreferencesGetAppBooleanValue(CFSTR("key"), mApplication, &theIsValid),
                  theRow.theExpected);
        EXPECT_EQ(theIsValid, theRow.theIsValid);
        EXPECT_EQ(CFPreferencesGetAppBooleanValue(CFSTR("key"), mApplication, nullptr), theRow.theExpected);
    }
    Boolean theIsValid = 77;
    EXPECT_FALSE(CFPreferencesGetAppBooleanValue(CFSTR("absent"), mApplication, &theIsValid));
    EXPECT_FALSE(theIsValid);
}

TEST_F(CFPreferences, IntegersAreReadFromSomeOtherValues)
{
    const struct Row
    {
        Owned<CFPropertyListRef> theValue;
        CFIndex theExpected;
        bool theIsValid;
    } kRows[] = {
        {Owned<CFPropertyListRef>(CFRetain(Integer(-5))), -5, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR(" 42"))), 42, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("-42"))), -42, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("42x"))), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR(""))), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("-"))), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("+42"))), 42, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("\n- \t42"))), -42, true},
        {Owned<CFPropertyListRef>(CFRetain(String(u8"\u00A042"))), 42, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("010"))), 10, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("42 "))), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("--42"))), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("4 2"))), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("2147483648"))), 2147483647, true},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("-99999999999999999999"))), -2147483647 - 1, true},
        {Owned<CFPropertyListRef>(CFRetain(kCFBooleanTrue)), 0, false},
        {Owned<CFPropertyListRef>(CFRetain(Float(5.0))), 0, false},
    };
    for (const Row& theRow : kRows) {
        SCOPED_TRACE(DescriptionOf(theRow.theValue));
        Set(CFSTR("key"), theRow.theValue);
        Boolean theIsValid = 77;
        EXPECT_EQ(CFPreferencesGetAppIntegerValue(CFSTR("key"), mApplication, &theIsValid),
                  theRow.theExpected);
        EXPECT_EQ(theIsValid, theRow.theIsValid);
    }
    EXPECT_EQ(CFPreferencesGetAppIntegerValue(CFSTR("absent"), mApplication, nullptr), 0);
}

TEST_F(CFPreferences, SeveralValuesAreSetAndCopiedAtOnce)
{
    const CFStringRef kUser = kCFPreferencesCurrentUser;
    const CFStringRef kHost = kCFPreferencesAnyHost;
    EXPECT_EQ(CFPreferencesCopyKeyList(mApplication, kUser, kHost), nullptr);
    Set(CFSTR("old"), CFSTR("value"));
    CFPreferencesSetMultiple(ObjectDictionary({{CFSTR("a"), CFSTR("A")}, {CFSTR("b"), CFSTR("B")}}),
                             ObjectArray({CFSTR("old"), CFSTR("b"), CFSTR("absent")}), mApplication, kUser,
                             kHost);
    const Owned<CFDictionaryRef> theAll(CFPreferencesCopyMultiple(nullptr, mApplication, kUser, kHost));
    EXPECT_TRUE(CFEqual(theAll, ObjectDictionary({{CFSTR("a"), CFSTR("A")}})));
    const Owned<CFDictionaryRef> theSome(
        CFPreferencesCopyMultiple(ObjectArray({CFSTR("a"), CFSTR("absent")}), mApplication, kUser, kHost));
    EXPECT_TRUE(CFEqual(theSome, theAll));
    EXPECT_TRUE(
        CFEqual(Owned(CFPreferencesCopyKeyList(mApplication, kUser, kHost)), ObjectArray({CFSTR("a")})));
    CFPreferencesSetMultiple(nullptr, nullptr, mApplication, kUser, kHost);
    EXPECT_TRUE(CFPreferencesSynchronize(mApplication, kUser, kHost));
}

TEST_F(CFPreferences, ReadingAsksTheDomainsOfAnyUserLast)
{
    // In a process of its own: the values can never be written.
    EXPECT_EQ(RunInProcess([this] {
                  const CFStringRef kKey = CFSTR("key");
                  const CFStringRef kApplications[] = {kCFPreferencesAnyApplication, mApplication};
                  const CFStringRef kHosts[] = {kCFPreferencesAnyHost, kCFPreferencesCurrentHost};
                  int theFound = 0;
                  for (int theTurn = 0; theTurn < 4; ++theTurn) {
                      CFPreferencesSetValue(kKey, Integer(theTurn), kApplications[theTurn / 2],
                                            kCFPreferencesAnyUser, kHosts[theTurn % 2]);
                      theFound += Has(kKey, Integer(theTurn)) ? 1 : 0;
                  }
                  CFPreferencesSetValue(kKey, CFSTR("the user's"), kCFPreferencesAnyApplication,
                                        kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
                  return theFound == 4 && Has(kKey, CFSTR("the user's")) ? 0 : 1;
              }),
              0);
}

TEST_F(CFPreferences, MayBeUsedFromAnyThread)
{
    const auto theWork = [this](const char* thePrefix) {
        for (int theIndex = 0; theIndex < 50; ++theIndex) {
            Set(String(thePrefix + std::to_string(theIndex)), Integer(theIndex));
            Synchronize();
        }
    };
    std::thread theFirst(theWork, "first");
    std::thread theSecond(theWork, "second");
    theFirst.join();
    theSecond.join();
    const Owned<CFArrayRef> theKeys(
        CFPreferencesCopyKeyList(mApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
    EXPECT_EQ(CFArrayGetCount(theKeys), 100);
}
