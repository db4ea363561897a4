// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"
#include "StandardErrorCapture.h"

#include <set>
#include <thread>

extern "C" Boolean HeadersWorkInC();

namespace {

const CFIndex kImmortalCount =
    sizeof(CFIndex) == 8 ? static_cast<CFIndex>(1152921504606846975LL) : 2147483647;

static_assert(sizeof(Boolean) == 1 && sizeof(UInt8) == 1 && sizeof(SInt8) == 1);
static_assert(sizeof(UInt16) == 2 && sizeof(SInt16) == 2 && sizeof(UniChar) == 2 && sizeof(OSErr) == 2);
static_assert(sizeof(UInt32) == 4 && sizeof(SInt32) == 4 && sizeof(UTF32Char) == 4 && sizeof(OSStatus) == 4);
static_assert(sizeof(UInt64) == 8 && sizeof(SInt64) == 8 && sizeof(Float32) == 4 && sizeof(Float64) == 8);
static_assert(sizeof(CFIndex) == sizeof(void*) && sizeof(CFTypeID) == sizeof(void*));
static_assert(sizeof(CFHashCode) == sizeof(void*) && sizeof(CFOptionFlags) == sizeof(void*));
static_assert(sizeof(CFRange) == 2 * sizeof(void*) && sizeof(CFNumberType) == sizeof(CFIndex));
static_assert(sizeof(CFStringEncoding) == 4 && sizeof(CFAbsoluteTime) == 8 && sizeof(Str255) == 256);
static_assert(static_cast<UInt8>(-1) > 0 && static_cast<SInt8>(-1) < 0 && static_cast<Boolean>(-1) > 0);
#ifndef __LP64__
static_assert(std::is_same_v<UInt32, unsigned long> && std::is_same_v<SInt32, long>);
#endif

} // namespace

TEST(CFBase, HeadersWorkInCToo)
{
    EXPECT_TRUE(HeadersWorkInC());
}

TEST(CFBase, RangeMakeKeepsLocationAndLength)
{
    const CFRange theRange = CFRangeMake(3, 4);
    EXPECT_EQ(theRange.location, 3);
    EXPECT_EQ(theRange.length, 4);
}

TEST(CFBase, ConstantsHaveTheirPublishedValues)
{
    EXPECT_EQ(kCFNotFound, -1);
    EXPECT_EQ(kCFCompareLessThan, -1);
    EXPECT_EQ(kCFCompareEqualTo, 0);
    EXPECT_EQ(kCFCompareGreaterThan, 1);
    EXPECT_EQ(kCFAllocatorDefault, nullptr);
}

TEST(CFBase, EachKindOfObjectHasATypeOfItsOwn)
{
    const std::set<CFTypeID> theTypes = {
        CFStringGetTypeID(),     CFNumberGetTypeID(), CFBooleanGetTypeID(),
        CFNullGetTypeID(),       CFDataGetTypeID(),   CFArrayGetTypeID(),
        CFDictionaryGetTypeID(), CFDateGetTypeID(),   CFAllocatorGetTypeID()};
    EXPECT_EQ(theTypes.size(), 9U);
    EXPECT_EQ(theTypes.count(0), 0U);
}

TEST(CFBase, MutableAndImmutableObjectsShareTheirType)
{
    EXPECT_EQ(CFGetTypeID(MutableString("a")), CFGetTypeID(CFSTR("a")));
    EXPECT_EQ(CFGetTypeID(Owned(CFDataCreateMutable(nullptr, 0))), CFGetTypeID(Data({1})));
    EXPECT_EQ(CFGetTypeID(ObjectArray({})), CFGetTypeID(Owned(CFArrayCreate(nullptr, nullptr, 0, nullptr))));
    EXPECT_EQ(CFGetTypeID(ObjectDictionary({})),
              CFGetTypeID(Owned(CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr))));
}

TEST(CFBase, TypesHaveNames)
{
    const std::pair<CFTypeID, const char*> kNames[] = {
        {CFStringGetTypeID(), "CFString"},         {CFNumberGetTypeID(), "CFNumber"},
        {CFBooleanGetTypeID(), "CFBoolean"},       {CFDataGetTypeID(), "CFData"},
        {CFArrayGetTypeID(), "CFArray"},           {CFDateGetTypeID(), "CFDate"},
        {CFDictionaryGetTypeID(), "CFDictionary"}, {CFNullGetTypeID(), "CFNull"}};
    for (const auto& theName : kNames) {
        EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(theName.first))), theName.second);
    }
    EXPECT_EQ(CFCopyTypeIDDescription(9999), nullptr);
}

TEST(CFBase, ANewObjectHasOneReference)
{
    EXPECT_EQ(CFGetRetainCount(CountedObject()), 1);
    EXPECT_EQ(CFGetRetainCount(String("an ordinary string")), 1);
    EXPECT_EQ(CFGetRetainCount(Integer(1000)), 1);
    EXPECT_EQ(CFGetRetainCount(Data({1})), 1);
    EXPECT_EQ(CFGetRetainCount(ObjectArray({})), 1);
    EXPECT_EQ(CFGetRetainCount(ObjectDictionary({})), 1);
    EXPECT_EQ(CFGetRetainCount(Owned(CFDateCreate(nullptr, 0))), 1);
}

TEST(CFBase, RetainReturnsItsArgumentAndCounts)
{
    const auto theObject = CountedObject();
    EXPECT_EQ(CFRetain(theObject), static_cast<CFMutableStringRef>(theObject));
    EXPECT_EQ(CFGetRetainCount(theObject), 2);
    CFRelease(theObject);
    EXPECT_EQ(CFGetRetainCount(theObject), 1);
}

TEST(CFBase, TheLastReleaseFreesAtOnce)
{
    const auto theElement = CountedObject();
    {
        const auto theArray = ObjectArray({theElement});
        EXPECT_EQ(CFGetRetainCount(theElement), 2);
    }
    EXPECT_EQ(CFGetRetainCount(theElement), 1);
}

TEST(CFBase, ConstantsAreNeverFreedAndAlwaysShowTheSameCount)
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

TEST(CFBase, ReferencesAreCountedFromAnyThread)
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

TEST(CFBase, ObjectsComeFromTheSystemAllocator)
{
    EXPECT_EQ(CFGetAllocator(CountedObject()), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFGetAllocator(Owned(CFStringCreateMutable(kCFAllocatorMalloc, 0))), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFAllocatorGetDefault(), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFGetAllocator(kCFAllocatorNull), kCFAllocatorNull);
    EXPECT_EQ(CFGetTypeID(kCFAllocatorNull), CFAllocatorGetTypeID());
}

TEST(CFBase, ObjectsOfDifferentTypesAreNeverEqual)
{
    EXPECT_FALSE(CFEqual(kCFBooleanTrue, Integer(1)));
    EXPECT_FALSE(CFEqual(CFSTR("1"), Integer(1)));
    EXPECT_FALSE(CFEqual(kCFNull, kCFBooleanFalse));
    EXPECT_FALSE(CFEqual(kCFBooleanTrue, kCFBooleanFalse));
    EXPECT_TRUE(CFEqual(kCFBooleanTrue, kCFBooleanTrue));
    EXPECT_TRUE(CFEqual(kCFNull, kCFNull));
}

TEST(CFBase, EqualStringsNeedTheSameUnits)
{
    EXPECT_TRUE(CFEqual(MutableString("text"), CFSTR("text")));
    EXPECT_FALSE(CFEqual(String("text"), String("Text")));
    EXPECT_FALSE(CFEqual(String(Units{0x00E9}), String(Units{'e', 0x0301})));
}

TEST(CFBase, EqualObjectsHaveEqualHashes)
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

TEST(CFBase, HashesTellStringsApart)
{
    std::set<CFHashCode> theHashes;
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        theHashes.insert(CFHash(String("key" + std::to_string(theIndex))));
    }
    EXPECT_EQ(theHashes.size(), 1000U);
}

TEST(CFBase, DescriptionsNameTypeAndContent)
{
    EXPECT_EQ(DescriptionOf(CFSTR("hello")), "{contents = \"hello\"}");
    EXPECT_EQ(DescriptionOf(kCFBooleanTrue), "{value = true}");
    EXPECT_EQ(DescriptionOf(kCFBooleanFalse), "{value = false}");
    EXPECT_EQ(DescriptionOf(Data({1, 2, 3})), "{length = 3, capacity = 3, bytes = 0x010203}");
    EXPECT_EQ(DescriptionOf(Owned(CFDateCreate(nullptr, 0))), "{time = 0}");
    EXPECT_EQ(DescriptionOf(Owned(CFArrayCreate(nullptr, nullptr, 0, &kCFTypeArrayCallBacks))),
              "{type = immutable, count = 0, values = ()}");
}

TEST(CFBase, DescriptionsStartWithTypeAddressAndAllocator)
{
    char theExpected[200];
    const auto theObject = CountedObject();
    std::snprintf(theExpected, sizeof theExpected, "<CFString %p [%p]>{contents = \"counted\"}",
                  static_cast<const void*>(static_cast<CFMutableStringRef>(theObject)),
                  static_cast<const void*>(kCFAllocatorSystemDefault));
    EXPECT_EQ(TextOf(Owned(CFCopyDescription(theObject))), theExpected);
    std::snprintf(theExpected, sizeof theExpected, "<CFNull %p [%p]>", static_cast<const void*>(kCFNull),
                  static_cast<const void*>(kCFAllocatorSystemDefault));
    EXPECT_EQ(TextOf(Owned(CFCopyDescription(kCFNull))), theExpected);
}

TEST(CFBase, DescriptionsOfLongDataShowStartAndEnd)
{
    std::vector<UInt8> theBytes(100, 0xAA);
    theBytes[0] = 0x01;
    theBytes[99] = 0x02;
    EXPECT_EQ(
        DescriptionOf(Data(theBytes)),
        "{length = 100, capacity = 100, bytes = 0x01aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa ... aaaaaaaaaaaaaa02}");
}

TEST(CFBase, DescriptionsOfContainersListTheirContent)
{
    const void* theValues[] = {kCFBooleanTrue, kCFBooleanFalse};
    const Owned<CFArrayRef> theArray(CFArrayCreate(nullptr, theValues, 2, &kCFTypeArrayCallBacks));
    EXPECT_EQ(DescriptionOf(theArray), "{type = immutable, count = 2, values = (\n\t0 : " +
                                           TextOf(Owned(CFCopyDescription(kCFBooleanTrue))) + "\n\t1 : " +
                                           TextOf(Owned(CFCopyDescription(kCFBooleanFalse))) + "\n)}");
    const auto theDictionary = ObjectDictionary({{CFSTR("k"), kCFBooleanTrue}});
    EXPECT_EQ(DescriptionOf(theDictionary), "{type = mutable, count = 1, entries = (\n\t" +
                                                TextOf(Owned(CFCopyDescription(CFSTR("k")))) + " = " +
                                                TextOf(Owned(CFCopyDescription(kCFBooleanTrue))) + "\n)}");
}

TEST(CFBase, DescriptionOfNothingIsNothing)
{
    EXPECT_EQ(CFCopyDescription(nullptr), nullptr);
}

TEST(CFBase, ShowWritesToTheStandardErrorStream)
{
    CFShow(CFSTR("plain text"));
    CFShow(String(u8"caf\u00E9 \u20AC"));
    CFShow(nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "plain text\ncaf\\u00e9 \\u20ac\n(null)\n");
    CFShow(kCFBooleanTrue);
    EXPECT_EQ(StandardErrorCapture::TakeText(), TextOf(Owned(CFCopyDescription(kCFBooleanTrue))) + "\n");
}

TEST(CFBase, BooleansAreTwoObjects)
{
    EXPECT_EQ(CFBooleanGetValue(kCFBooleanTrue), 1);
    EXPECT_EQ(CFBooleanGetValue(kCFBooleanFalse), 0);
    EXPECT_EQ(CFBooleanGetValue(nullptr), 0);
    EXPECT_EQ(CFGetTypeID(kCFBooleanTrue), CFBooleanGetTypeID());
    EXPECT_NE(CFBooleanGetTypeID(), CFNumberGetTypeID());
}
