// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFTestSupport.h"

#include <cstdint>
#include <set>

namespace {

Owned<CFMutableSetRef> ObjectSet(const std::vector<CFTypeRef>& theObjects)
{
    Owned<CFMutableSetRef> theSet(CFSetCreateMutable(nullptr, 0, &kCFTypeSetCallBacks));
    for (CFTypeRef theObject : theObjects) {
        CFSetAddValue(theSet, theObject);
    }
    return theSet;
}

const void* Pointer(std::intptr_t theNumber)
{
    return reinterpret_cast<const void*>(theNumber);
}

std::set<const void*> ValuesOf(CFSetRef theSet)
{
    std::vector<const void*> theValues(static_cast<size_t>(CFSetGetCount(theSet)));
    CFSetGetValues(theSet, theValues.data());
    return std::set<const void*>(theValues.begin(), theValues.end());
}

} // namespace

TEST(CFSet, ValuesAreFoundByAnyEqualOne)
{
    const auto theSet = ObjectSet({CFSTR("a"), Integer(5)});
    EXPECT_EQ(CFSetGetCount(theSet), 2);
    EXPECT_TRUE(CFSetContainsValue(theSet, MutableString("a")));
    EXPECT_TRUE(CFSetContainsValue(theSet, Float(5)));
    EXPECT_FALSE(CFSetContainsValue(theSet, CFSTR("b")));
    EXPECT_EQ(CFSetGetValue(theSet, MutableString("a")), CFSTR("a"));
    EXPECT_EQ(CFSetGetValue(theSet, CFSTR("b")), nullptr);
    EXPECT_EQ(CFSetGetCountOfValue(theSet, String("a")), 1);
    EXPECT_EQ(CFSetGetCountOfValue(theSet, String("b")), 0);
}

TEST(CFSet, AnAbsentValueLeavesTheResultAlone)
{
    const auto theSet = ObjectSet({CFSTR("a")});
    const void* theValue = kCFNull;
    EXPECT_FALSE(CFSetGetValueIfPresent(theSet, CFSTR("b"), &theValue));
    EXPECT_EQ(theValue, kCFNull);
    EXPECT_TRUE(CFSetGetValueIfPresent(theSet, String("a"), &theValue));
    EXPECT_EQ(theValue, CFSTR("a"));
    EXPECT_TRUE(CFSetGetValueIfPresent(theSet, CFSTR("a"), nullptr));
    EXPECT_EQ(CFSetGetValue(ObjectSet({}), nullptr), nullptr);
}

TEST(CFSet, ValuesAreRetained)
{
    const auto theValue = CountedObject();
    {
        const auto theSet = ObjectSet({theValue});
        EXPECT_EQ(CFGetRetainCount(theValue), 2);
        const Owned<CFSetRef> theCopy(CFSetCreateCopy(nullptr, theSet));
        EXPECT_EQ(CFGetRetainCount(theValue), 3);
        CFSetRemoveAllValues(theSet);
        EXPECT_EQ(CFGetRetainCount(theValue), 2);
        EXPECT_EQ(CFSetGetCount(theSet), 0);
        EXPECT_EQ(CFSetGetCount(theCopy), 1);
    }
    EXPECT_EQ(CFGetRetainCount(theValue), 1);
}

TEST(CFSet, OfEqualValuesTheFirstStays)
{
    const auto theFirst = MutableString("a");
    const auto theSecond = MutableString("a");
    const void* theValues[] = {theFirst, theSecond, CFSTR("b")};
    const Owned<CFSetRef> theSet(CFSetCreate(nullptr, theValues, 3, &kCFTypeSetCallBacks));
    EXPECT_EQ(ValuesOf(theSet), (std::set<const void*>{theFirst, CFSTR("b")}));
    EXPECT_EQ(CFGetRetainCount(theSecond), 1);
}

TEST(CFSet, AddReplaceAndSetDifferInWhatTheyExpect)
{
    const auto theFirst = CountedObject();
    const auto theSecond = CountedObject();
    const auto theSet = ObjectSet({});
    CFSetReplaceValue(theSet, theFirst);
    EXPECT_EQ(CFSetGetCount(theSet), 0);
    CFSetAddValue(theSet, theFirst);
    CFSetAddValue(theSet, theSecond);
    EXPECT_EQ(ValuesOf(theSet), std::set<const void*>{theFirst});
    CFSetReplaceValue(theSet, theSecond);
    EXPECT_EQ(ValuesOf(theSet), std::set<const void*>{theSecond});
    EXPECT_EQ(CFGetRetainCount(theFirst), 1);
    CFSetSetValue(theSet, theFirst);
    EXPECT_EQ(ValuesOf(theSet), std::set<const void*>{theFirst});
    CFSetSetValue(theSet, CFSTR("another"));
    EXPECT_EQ(CFSetGetCount(theSet), 2);
}

TEST(CFSet, OnlyAnEqualValueIsRemoved)
{
    const auto theSet = ObjectSet({CFSTR("a"), CFSTR("b")});
    CFSetRemoveValue(theSet, CFSTR("c"));
    EXPECT_EQ(CFSetGetCount(theSet), 2);
    CFSetRemoveValue(theSet, String("a"));
    EXPECT_EQ(ValuesOf(theSet), std::set<const void*>{CFSTR("b")});
}

TEST(CFSet, AValueCanReplaceItself)
{
    const auto theSet = ObjectSet({CountedObject()});
    const void* const theOnly = CFSetGetValue(theSet, CFSTR("counted"));
    CFSetSetValue(theSet, theOnly);
    EXPECT_EQ(CFGetRetainCount(theOnly), 1);
}

TEST(CFSet, CopiedStringsMayChangeAfterwards)
{
    const Owned<CFMutableSetRef> theSet(CFSetCreateMutable(nullptr, 0, &kCFCopyStringSetCallBacks));
    const auto theString = MutableString("text");
    CFSetSetValue(theSet, theString);
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    CFStringAppend(theString, CFSTR(" changed"));
    EXPECT_TRUE(CFSetContainsValue(theSet, CFSTR("text")));
    EXPECT_FALSE(CFSetContainsValue(theSet, theString));
}

TEST(CFSet, SetsAreEqualByTheirValues)
{
    EXPECT_TRUE(CFEqual(ObjectSet({CFSTR("a"), Integer(5)}), ObjectSet({Float(5), String("a")})));
    EXPECT_EQ(CFHash(ObjectSet({CFSTR("a"), Integer(5)})), CFHash(ObjectSet({Float(5), String("a")})));
    EXPECT_FALSE(CFEqual(ObjectSet({CFSTR("a")}), ObjectSet({CFSTR("b")})));
    EXPECT_FALSE(CFEqual(ObjectSet({CFSTR("a")}), ObjectSet({CFSTR("a"), CFSTR("b")})));
    EXPECT_TRUE(CFEqual(ObjectSet({}), ObjectSet({})));
}

TEST(CFSet, CopiesAreObjectsOfTheirOwn)
{
    const auto theSet = ObjectSet({CFSTR("a")});
    const Owned<CFMutableSetRef> theCopy(CFSetCreateMutableCopy(nullptr, 0, theSet));
    EXPECT_TRUE(CFEqual(theCopy, theSet));
    CFSetAddValue(theCopy, CFSTR("b"));
    EXPECT_EQ(CFSetGetCount(theSet), 1);
}

TEST(CFSet, WithoutCallbacksPointersAreOnlyHeld)
{
    const Owned<CFMutableSetRef> theSet(CFSetCreateMutable(nullptr, 0, nullptr));
    CFSetAddValue(theSet, Pointer(1));
    CFSetAddValue(theSet, nullptr);
    const void* theValue = Pointer(7);
    EXPECT_TRUE(CFSetGetValueIfPresent(theSet, nullptr, &theValue));
    EXPECT_EQ(theValue, nullptr);
    EXPECT_TRUE(CFSetContainsValue(theSet, Pointer(1)));
    EXPECT_FALSE(CFSetContainsValue(theSet, Pointer(2)));
}

TEST(CFSet, AFunctionIsCalledWithEachValue)
{
    std::set<const void*> theSeen;
    const auto theNote = [](const void* theValue, void* theContext) {
        static_cast<std::set<const void*>*>(theContext)->insert(theValue);
    };
    CFSetApplyFunction(ObjectSet({CFSTR("a"), CFSTR("b")}), theNote, &theSeen);
    EXPECT_EQ(theSeen, (std::set<const void*>{CFSTR("a"), CFSTR("b")}));
}

TEST(CFSet, DescriptionsListTheValues)
{
    const std::string theText = DescriptionOf(ObjectSet({kCFBooleanTrue}));
    EXPECT_EQ(theText.find("{type = mutable, count = 1, entries = (\n\t<CFBoolean"), 0U) << theText;
    EXPECT_EQ(DescriptionOf(Owned(CFSetCreate(nullptr, nullptr, 0, nullptr))),
              "{type = immutable, count = 0, entries = (\n)}");
}

TEST(CFSet, ManyValuesAreAllFound)
{
    const auto theSet = ObjectSet({});
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        CFSetAddValue(theSet, String("value" + std::to_string(theIndex)));
    }
    EXPECT_EQ(CFSetGetCount(theSet), 1000);
    for (int theIndex = 0; theIndex < 1000; ++theIndex) {
        EXPECT_TRUE(CFSetContainsValue(theSet, String("value" + std::to_string(theIndex))));
    }
}
