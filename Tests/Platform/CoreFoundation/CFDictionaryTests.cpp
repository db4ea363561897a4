// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <cstdint>
#include <map>

namespace {

CFDictionaryRef CreateFrom(std::vector<const void*> theKeys, std::vector<const void*> theValues)
{
    return CFDictionaryCreate(nullptr, theKeys.data(), theValues.data(), static_cast<CFIndex>(theKeys.size()),
                              &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
}

const void* Pointer(std::intptr_t theNumber)
{
    return reinterpret_cast<const void*>(theNumber);
}

} // namespace

TEST(CFDictionary, ValuesAreFoundByAnyEqualKey)
{
    const auto theDictionary = ObjectDictionary({{CFSTR("a"), CFSTR("value")}});
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, String("a")), CFSTR("value"));
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, String("b")), nullptr);
    EXPECT_TRUE(CFDictionaryContainsKey(theDictionary, MutableString("a")));
    EXPECT_FALSE(CFDictionaryContainsKey(theDictionary, CFSTR("value")));
    EXPECT_TRUE(CFDictionaryContainsValue(theDictionary, String("value")));
    EXPECT_FALSE(CFDictionaryContainsValue(theDictionary, String("a")));
    EXPECT_EQ(CFDictionaryGetCountOfKey(theDictionary, CFSTR("a")), 1);
    EXPECT_EQ(CFDictionaryGetCountOfKey(theDictionary, CFSTR("b")), 0);
}

TEST(CFDictionary, AnAbsentKeyLeavesTheResultAlone)
{
    const auto theDictionary = ObjectDictionary({{CFSTR("a"), CFSTR("value")}});
    const void* theValue = kCFNull;
    EXPECT_FALSE(CFDictionaryGetValueIfPresent(theDictionary, CFSTR("b"), &theValue));
    EXPECT_EQ(theValue, kCFNull);
    EXPECT_TRUE(CFDictionaryGetValueIfPresent(theDictionary, CFSTR("a"), &theValue));
    EXPECT_EQ(theValue, CFSTR("value"));
    EXPECT_TRUE(CFDictionaryGetValueIfPresent(theDictionary, CFSTR("a"), nullptr));
    EXPECT_EQ(CFDictionaryGetValue(ObjectDictionary({}), nullptr), nullptr);
}

TEST(CFDictionary, KeysAndValuesAreRetained)
{
    const auto theKey = CountedObject();
    const auto theValue = CountedObject();
    {
        const auto theDictionary = ObjectDictionary({{theKey, theValue}});
        EXPECT_EQ(CFGetRetainCount(theKey), 2);
        EXPECT_EQ(CFGetRetainCount(theValue), 2);
        const Owned<CFDictionaryRef> theCopy(CFDictionaryCreateCopy(nullptr, theDictionary));
        EXPECT_EQ(CFGetRetainCount(theKey), 3);
        EXPECT_EQ(CFGetRetainCount(theValue), 3);
        CFDictionaryRemoveAllValues(theDictionary);
        EXPECT_EQ(CFGetRetainCount(theValue), 2);
        EXPECT_EQ(CFDictionaryGetCount(theDictionary), 0);
    }
    EXPECT_EQ(CFGetRetainCount(theKey), 1);
    EXPECT_EQ(CFGetRetainCount(theValue), 1);
}

TEST(CFDictionary, OfEqualKeysTheFirstStays)
{
    const Owned<CFDictionaryRef> theDictionary(
        CreateFrom({CFSTR("a"), CFSTR("a")}, {CFSTR("first"), CFSTR("second")}));
    EXPECT_EQ(CFDictionaryGetCount(theDictionary), 1);
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, CFSTR("a")), CFSTR("first"));
}

TEST(CFDictionary, AddSetAndReplaceDifferInWhatTheyExpect)
{
    const auto theDictionary = ObjectDictionary({});
    CFDictionaryReplaceValue(theDictionary, CFSTR("a"), CFSTR("replaced"));
    EXPECT_EQ(CFDictionaryGetCount(theDictionary), 0);
    CFDictionaryAddValue(theDictionary, CFSTR("a"), CFSTR("added"));
    CFDictionaryAddValue(theDictionary, CFSTR("a"), CFSTR("added again"));
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, CFSTR("a")), CFSTR("added"));
    CFDictionaryReplaceValue(theDictionary, CFSTR("a"), CFSTR("replaced"));
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, CFSTR("a")), CFSTR("replaced"));
    CFDictionarySetValue(theDictionary, CFSTR("a"), CFSTR("set"));
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, CFSTR("a")), CFSTR("set"));
    CFDictionaryRemoveValue(theDictionary, CFSTR("b"));
    EXPECT_EQ(CFDictionaryGetCount(theDictionary), 1);
    CFDictionaryRemoveValue(theDictionary, CFSTR("a"));
    EXPECT_EQ(CFDictionaryGetCount(theDictionary), 0);
}

TEST(CFDictionary, AValueCanReplaceItself)
{
    const auto theDictionary = ObjectDictionary({{CFSTR("a"), CountedObject()}});
    CFDictionarySetValue(theDictionary, CFSTR("a"), CFDictionaryGetValue(theDictionary, CFSTR("a")));
    EXPECT_EQ(CFGetRetainCount(CFDictionaryGetValue(theDictionary, CFSTR("a"))), 1);
}

TEST(CFDictionary, CopiedKeysMayChangeAfterwards)
{
    const Owned<CFMutableDictionaryRef> theDictionary(CFDictionaryCreateMutable(
        nullptr, 0, &kCFCopyStringDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    const auto theKey = MutableString("key");
    CFDictionarySetValue(theDictionary, theKey, kCFNull);
    EXPECT_EQ(CFGetRetainCount(theKey), 1);
    CFStringAppend(theKey, CFSTR(" changed"));
    EXPECT_TRUE(CFDictionaryContainsKey(theDictionary, CFSTR("key")));
}

TEST(CFDictionary, DictionariesAreEqualByTheirKeysAndValues)
{
    EXPECT_TRUE(CFEqual(ObjectDictionary({{CFSTR("a"), Integer(5)}, {CFSTR("b"), kCFNull}}),
                        ObjectDictionary({{CFSTR("b"), kCFNull}, {CFSTR("a"), Float(5)}})));
    EXPECT_FALSE(
        CFEqual(ObjectDictionary({{CFSTR("a"), kCFNull}}), ObjectDictionary({{CFSTR("b"), kCFNull}})));
    EXPECT_FALSE(
        CFEqual(ObjectDictionary({{CFSTR("a"), kCFNull}}), ObjectDictionary({{CFSTR("a"), CFSTR("x")}})));
    EXPECT_FALSE(CFEqual(ObjectDictionary({{CFSTR("a"), kCFNull}}), ObjectDictionary({})));
}

TEST(CFDictionary, CopiesAreObjectsOfTheirOwn)
{
    const auto theDictionary = ObjectDictionary({{CFSTR("a"), kCFNull}});
    const Owned<CFMutableDictionaryRef> theCopy(CFDictionaryCreateMutableCopy(nullptr, 0, theDictionary));
    EXPECT_TRUE(CFEqual(theCopy, theDictionary));
    CFDictionarySetValue(theCopy, CFSTR("b"), kCFNull);
    EXPECT_EQ(CFDictionaryGetCount(theDictionary), 1);
}

TEST(CFDictionary, WithoutCallbacksPointersAreOnlyHeld)
{
    const Owned<CFMutableDictionaryRef> theDictionary(
        CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr));
    CFDictionarySetValue(theDictionary, Pointer(1), Pointer(10));
    CFDictionarySetValue(theDictionary, nullptr, Pointer(20));
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, Pointer(1)), Pointer(10));
    EXPECT_EQ(CFDictionaryGetValue(theDictionary, nullptr), Pointer(20));
    EXPECT_EQ(CFDictionaryGetCountOfValue(theDictionary, Pointer(20)), 1);
}

TEST(CFDictionary, AllKeysAndValuesCanBeListed)
{
    const auto theDictionary = ObjectDictionary({{CFSTR("a"), CFSTR("A")}, {CFSTR("b"), CFSTR("B")}});
    const void* theKeys[2];
    const void* theValues[2];
    CFDictionaryGetKeysAndValues(theDictionary, theKeys, theValues);
    const std::map<const void*, const void*> theExpected = {{CFSTR("a"), CFSTR("A")},
                                                            {CFSTR("b"), CFSTR("B")}};
    EXPECT_EQ((std::map<const void*, const void*>{{theKeys[0], theValues[0]}, {theKeys[1], theValues[1]}}),
              theExpected);
    const void* theSameKeys[2];
    CFDictionaryGetKeysAndValues(theDictionary, theSameKeys, nullptr);
    EXPECT_EQ(theSameKeys[0], theKeys[0]);
    CFDictionaryGetKeysAndValues(theDictionary, nullptr, theValues);

    std::map<const void*, const void*> theSeen;
    const auto theNote = [](const void* theKey, const void* theValue, void* theContext) {
        static_cast<std::map<const void*, const void*>*>(theContext)->emplace(theKey, theValue);
    };
    CFDictionaryApplyFunction(theDictionary, theNote, &theSeen);
    EXPECT_EQ(theSeen, theExpected);
}

TEST(CFDictionary, ManyKeysAreAllFound)
{
    const auto theDictionary = ObjectDictionary({});
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        CFDictionarySetValue(theDictionary, String("key" + std::to_string(theIndex)), Integer(theIndex));
    }
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        EXPECT_TRUE(CFEqual(CFDictionaryGetValue(theDictionary, String("key" + std::to_string(theIndex))),
                            Integer(theIndex)));
    }
}
