// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <set>
#include <thread>

namespace {

const CFIndex kImmortalCount =
    sizeof(CFIndex) == 8 ? static_cast<CFIndex>(1152921504606846975LL) : 2147483647;

} // namespace

TEST(CFRuntime, EachKindOfObjectHasATypeOfItsOwn)
{
    const std::set<CFTypeID> theTypes = {CFStringGetTypeID(),     CFNumberGetTypeID(), CFBooleanGetTypeID(),
                                         CFNullGetTypeID(),       CFDataGetTypeID(),   CFArrayGetTypeID(),
                                         CFDictionaryGetTypeID(), CFDateGetTypeID(),   CFAllocatorGetTypeID(),
                                         CFSetGetTypeID()};
    EXPECT_EQ(theTypes.size(), 10U);
    EXPECT_EQ(theTypes.count(0), 0U);
}

TEST(CFRuntime, MutableAndImmutableObjectsShareTheirType)
{
    EXPECT_EQ(CFGetTypeID(MutableString("a")), CFGetTypeID(CFSTR("a")));
    EXPECT_EQ(CFGetTypeID(Owned(CFDataCreateMutable(nullptr, 0))), CFGetTypeID(Data({1})));
    EXPECT_EQ(CFGetTypeID(ObjectArray({})), CFGetTypeID(Owned(CFArrayCreate(nullptr, nullptr, 0, nullptr))));
    EXPECT_EQ(CFGetTypeID(ObjectDictionary({})),
              CFGetTypeID(Owned(CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr))));
}

TEST(CFRuntime, TypesHaveNames)
{
    const std::pair<CFTypeID, const char*> kNames[] = {{CFStringGetTypeID(), "CFString"},
                                                       {CFNumberGetTypeID(), "CFNumber"},
                                                       {CFBooleanGetTypeID(), "CFBoolean"},
                                                       {CFDataGetTypeID(), "CFData"},
                                                       {CFArrayGetTypeID(), "CFArray"},
                                                       {CFDateGetTypeID(), "CFDate"},
                                                       {CFDictionaryGetTypeID(), "CFDictionary"},
                                                       {CFNullGetTypeID(), "CFNull"},
                                                       {CFSetGetTypeID(), "CFSet"}};
    for (const auto& theName : kNames) {
        EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(theName.first))), theName.second);
    }
    EXPECT_EQ(CFCopyTypeIDDescription(9999), nullptr);
}

TEST(CFRuntime, ANewObjectHasOneReference)
{
    EXPECT_EQ(CFGetRetainCount(CountedObject()), 1);
    EXPECT_EQ(CFGetRetainCount(String("an ordinary string")), 1);
    EXPECT_EQ(CFGetRetainCount(Integer(1000)), 1);
    EXPECT_EQ(CFGetRetainCount(Data({1})), 1);
    EXPECT_EQ(CFGetRetainCount(ObjectArray({})), 1);
    EXPECT_EQ(CFGetRetainCount(ObjectDictionary({})), 1);
    EXPECT_EQ(CFGetRetainCount(Owned(CFDateCreate(nullptr, 0))), 1);
}

TEST(CFRuntime, RetainReturnsItsArgumentAndCounts)
{
    const auto theObject = CountedObject();
    EXPECT_EQ(CFRetain(theObject), static_cast<CFMutableStringRef>(theObject));
    EXPECT_EQ(CFGetRetainCount(theObject), 2);
    CFRelease(theObject);
    EXPECT_EQ(CFGetRetainCount(theObject), 1);
}

TEST(CFRuntime, TheLastReleaseFreesAtOnce)
{
    const auto theElement = CountedObject();
    {
        const auto theArray = ObjectArray({theElement});
        EXPECT_EQ(CFGetRetainCount(theElement), 2);
    }
    EXPECT_EQ(CFGetRetainCount(theElement), 1);
}

TEST(CFRuntime, ConstantsAreNeverFreedAndAlwaysShowTheSameCount)
{
    const CFTypeRef kConstants[] = {CFSTR("constant"),
                                    CFSTR(""),
                                    kCFBooleanTrue,
                                    kCFBooleanFalse,
                                    kCFNull,
                                    kCFNumberNaN,
                                    kCFNumberPositiveInfinity,
                                    kCFNumberNegativeInfinity,
                                    kCFAllocatorSystemDefault};
    for (CFTypeRef theConstant : kConstants) {
        EXPECT_EQ(CFGetRetainCount(theConstant), kImmortalCount);
        CFRetain(theConstant);
        EXPECT_EQ(CFGetRetainCount(theConstant), kImmortalCount);
        CFRelease(theConstant);
        CFRelease(theConstant);
        CFRelease(theConstant);
        EXPECT_EQ(CFGetRetainCount(theConstant), kImmortalCount);
    }
}

TEST(CFRuntime, ReferencesAreCountedFromAnyThread)
{
    const auto theObject = CountedObject();
    const auto theWork = [&theObject] {
        for (int theTurn = 0; theTurn < 2000; ++theTurn) {
            CFRetain(theObject);
            CFRetain(theObject);
            CFRelease(theObject);
        }
    };
    std::thread theFirst(theWork);
    std::thread theSecond(theWork);
    theFirst.join();
    theSecond.join();
    EXPECT_EQ(CFGetRetainCount(theObject), 4001);
    for (int theTurn = 0; theTurn < 4000; ++theTurn) {
        CFRelease(theObject);
    }
}

TEST(CFRuntime, ObjectsOfDifferentTypesAreNeverEqual)
{
    EXPECT_FALSE(CFEqual(kCFBooleanTrue, Integer(1)));
    EXPECT_FALSE(CFEqual(CFSTR("1"), Integer(1)));
    EXPECT_FALSE(CFEqual(kCFNull, kCFBooleanFalse));
    EXPECT_FALSE(CFEqual(kCFBooleanTrue, kCFBooleanFalse));
    EXPECT_TRUE(CFEqual(kCFBooleanTrue, kCFBooleanTrue));
    EXPECT_TRUE(CFEqual(kCFNull, kCFNull));
}

TEST(CFRuntime, EqualStringsNeedTheSameUnits)
{
    EXPECT_TRUE(CFEqual(MutableString("text"), CFSTR("text")));
    EXPECT_FALSE(CFEqual(String("text"), String("Text")));
    EXPECT_FALSE(CFEqual(String(Units{0x00E9}), String(Units{'e', 0x0301})));
}

TEST(CFRuntime, EqualObjectsHaveEqualHashes)
{
    EXPECT_EQ(CFHash(MutableString("text")), CFHash(CFSTR("text")));
    EXPECT_EQ(CFHash(Integer(5)), CFHash(Float(5)));
    EXPECT_EQ(CFHash(Integer(5)), CFHash(Integer(-5)));
    EXPECT_EQ(CFHash(Integer(-9007199254740992)), CFHash(Float(-9007199254740992.0)));
    EXPECT_EQ(CFHash(Data({1, 2})), CFHash(Data({1, 2})));
    EXPECT_EQ(CFHash(ObjectArray({kCFNull, kCFNull})), 2U);
    EXPECT_EQ(CFHash(ObjectDictionary({{CFSTR("k"), kCFNull}})), 1U);
    EXPECT_EQ(CFHash(Owned(CFDateCreate(nullptr, 1.5))), CFHash(Owned(CFDateCreate(nullptr, 1.5))));
    EXPECT_EQ(CFHash(kCFBooleanFalse), 0U);
    EXPECT_EQ(CFHash(kCFNull), CFHash(kCFNull));
}

TEST(CFRuntime, HashesTellStringsApart)
{
    std::set<CFHashCode> theHashes;
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        theHashes.insert(CFHash(String("key" + std::to_string(theIndex))));
    }
    EXPECT_EQ(theHashes.size(), 1000U);
}
