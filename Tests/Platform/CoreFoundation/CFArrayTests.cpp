// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <algorithm>
#include <cstdint>

namespace {

// Arrays of plain numbers, as arrays without callbacks hold them.
const void* Pointer(std::intptr_t theNumber)
{
    return reinterpret_cast<const void*>(theNumber);
}

Owned<CFMutableArrayRef> PointerArray(const std::vector<std::intptr_t>& theNumbers)
{
    Owned<CFMutableArrayRef> theArray(CFArrayCreateMutable(nullptr, 0, nullptr));
    for (const std::intptr_t theNumber : theNumbers) {
        CFArrayAppendValue(theArray, Pointer(theNumber));
    }
    return theArray;
}

std::vector<std::intptr_t> NumbersIn(CFArrayRef theArray)
{
    std::vector<const void*> theValues(static_cast<size_t>(CFArrayGetCount(theArray)));
    CFArrayGetValues(theArray, CFRangeMake(0, CFArrayGetCount(theArray)), theValues.data());
    std::vector<std::intptr_t> theNumbers;
    std::transform(theValues.begin(), theValues.end(), std::back_inserter(theNumbers),
                   [](const void* theValue) { return reinterpret_cast<std::intptr_t>(theValue); });
    return theNumbers;
}

using Numbers = std::vector<std::intptr_t>;

CFRange All(CFArrayRef theArray)
{
    return CFRangeMake(0, CFArrayGetCount(theArray));
}

CFComparisonResult CompareTens(const void* theFirst, const void* theSecond, void* theContext)
{
    ++*static_cast<int*>(theContext);
    const auto theDifference =
        reinterpret_cast<std::intptr_t>(theFirst) / 10 - reinterpret_cast<std::intptr_t>(theSecond) / 10;
    return theDifference < 0   ? kCFCompareLessThan
           : theDifference > 0 ? kCFCompareGreaterThan
                               : kCFCompareEqualTo;
}

// Claims that everything is less than everything.
CFComparisonResult ContradictItself(const void*, const void*, void*)
{
    return kCFCompareLessThan;
}

} // namespace

TEST(CFArray, CreateRetainsAndTheEndReleases)
{
    const auto theObject = CountedObject();
    const void* theValues[] = {theObject, theObject};
    const CFArrayRef theArray = CFArrayCreate(nullptr, theValues, 2, &kCFTypeArrayCallBacks);
    EXPECT_EQ(CFGetRetainCount(theObject), 3);
    EXPECT_EQ(CFArrayGetCount(theArray), 2);
    CFRelease(theArray);
    EXPECT_EQ(CFGetRetainCount(theObject), 1);
}

TEST(CFArray, CreateNeedsNoValuesForNoCount)
{
    EXPECT_EQ(CFArrayGetCount(Owned(CFArrayCreate(nullptr, nullptr, 0, &kCFTypeArrayCallBacks))), 0);
    EXPECT_EQ(CFArrayCreate(nullptr, nullptr, -1, nullptr), nullptr);
}

TEST(CFArray, ValuesAreNotRetainedForTheCaller)
{
    const auto theObject = CountedObject();
    const auto theArray = ObjectArray({theObject});
    EXPECT_EQ(CFArrayGetValueAtIndex(theArray, 0), static_cast<CFMutableStringRef>(theObject));
    EXPECT_EQ(CFGetRetainCount(theObject), 2);
}

TEST(CFArray, WithoutCallbacksPointersAreOnlyHeld)
{
    const auto theArray = PointerArray({1, 2, 1});
    EXPECT_EQ(NumbersIn(theArray), (Numbers{1, 2, 1}));
    EXPECT_TRUE(CFArrayContainsValue(theArray, All(theArray), Pointer(2)));
    const auto theFirst = String("equal");
    const Owned<CFMutableArrayRef> theStrings(CFArrayCreateMutable(nullptr, 0, nullptr));
    CFArrayAppendValue(theStrings, theFirst);
    EXPECT_EQ(CFGetRetainCount(theFirst), 1);
    EXPECT_FALSE(CFArrayContainsValue(theStrings, All(theStrings), String("equal")));
    EXPECT_EQ(DescriptionOf(PointerArray({0x12})),
              "{type = mutable, count = 1, values = (\n\t0 : <0x12>\n)}");
}

TEST(CFArray, CopiesAreEqualObjectsOfTheirOwn)
{
    const auto theObject = CountedObject();
    const auto theArray = ObjectArray({theObject, kCFNull});
    const Owned<CFArrayRef> theCopy(CFArrayCreateCopy(nullptr, theArray));
    EXPECT_TRUE(CFEqual(theCopy, theArray));
    EXPECT_NE(static_cast<CFArrayRef>(theCopy), static_cast<CFArrayRef>(theArray));
    EXPECT_EQ(CFGetRetainCount(theObject), 3);
    const Owned<CFMutableArrayRef> theMutableCopy(CFArrayCreateMutableCopy(nullptr, 0, theCopy));
    CFArrayRemoveAllValues(theMutableCopy);
    EXPECT_EQ(CFArrayGetCount(theCopy), 2);
}

TEST(CFArray, ArraysAreEqualByTheirValuesInOrder)
{
    EXPECT_TRUE(CFEqual(ObjectArray({Integer(5), CFSTR("a")}), ObjectArray({Float(5), String("a")})));
    EXPECT_FALSE(CFEqual(ObjectArray({CFSTR("a"), CFSTR("b")}), ObjectArray({CFSTR("b"), CFSTR("a")})));
    EXPECT_FALSE(CFEqual(ObjectArray({CFSTR("a")}), ObjectArray({CFSTR("a"), CFSTR("a")})));
}

TEST(CFArray, ValuesAreFoundByEquality)
{
    const auto theArray = ObjectArray({CFSTR("a"), CFSTR("b"), CFSTR("a")});
    const auto theWanted = String("a");
    EXPECT_TRUE(CFArrayContainsValue(theArray, All(theArray), theWanted));
    EXPECT_EQ(CFArrayGetFirstIndexOfValue(theArray, All(theArray), theWanted), 0);
    EXPECT_EQ(CFArrayGetFirstIndexOfValue(theArray, CFRangeMake(1, 2), theWanted), 2);
    EXPECT_EQ(CFArrayGetLastIndexOfValue(theArray, All(theArray), theWanted), 2);
    EXPECT_EQ(CFArrayGetLastIndexOfValue(theArray, CFRangeMake(0, 2), theWanted), 0);
    EXPECT_EQ(CFArrayGetCountOfValue(theArray, All(theArray), theWanted), 2);
    EXPECT_FALSE(CFArrayContainsValue(theArray, CFRangeMake(1, 1), theWanted));
    EXPECT_EQ(CFArrayGetFirstIndexOfValue(theArray, All(theArray), CFSTR("x")), kCFNotFound);
    EXPECT_EQ(CFArrayGetLastIndexOfValue(theArray, All(theArray), CFSTR("x")), kCFNotFound);
    EXPECT_EQ(CFArrayGetCountOfValue(theArray, CFRangeMake(3, 0), theWanted), 0);
}

TEST(CFArray, InsertingAtTheCountAppends)
{
    const auto theArray = PointerArray({1, 2});
    CFArrayInsertValueAtIndex(theArray, 0, Pointer(0));
    CFArrayInsertValueAtIndex(theArray, 3, Pointer(9));
    CFArraySetValueAtIndex(theArray, 4, Pointer(10));
    CFArraySetValueAtIndex(theArray, 1, Pointer(7));
    EXPECT_EQ(NumbersIn(theArray), (Numbers{0, 7, 2, 9, 10}));
}

TEST(CFArray, RemovingReleases)
{
    const auto theObject = CountedObject();
    const auto theArray = ObjectArray({theObject, theObject, theObject});
    CFArrayRemoveValueAtIndex(theArray, 1);
    EXPECT_EQ(CFGetRetainCount(theObject), 3);
    CFArrayRemoveAllValues(theArray);
    EXPECT_EQ(CFGetRetainCount(theObject), 1);
    EXPECT_EQ(CFArrayGetCount(theArray), 0);
}

TEST(CFArray, AValueCanReplaceItself)
{
    const auto theArray = ObjectArray({CountedObject()});
    CFArraySetValueAtIndex(theArray, 0, CFArrayGetValueAtIndex(theArray, 0));
    EXPECT_EQ(CFGetRetainCount(CFArrayGetValueAtIndex(theArray, 0)), 1);
}

TEST(CFArray, AnArrayCanBeAppendedToItself)
{
    const auto theArray = PointerArray({1, 2, 3});
    CFArrayAppendArray(theArray, theArray, CFRangeMake(1, 2));
    EXPECT_EQ(NumbersIn(theArray), (Numbers{1, 2, 3, 2, 3}));
    CFArrayExchangeValuesAtIndices(theArray, 0, 4);
    EXPECT_EQ(NumbersIn(theArray), (Numbers{3, 2, 3, 2, 1}));
}

TEST(CFArray, SortingIsStableAndKeepsToItsRange)
{
    int theCalls = 0;
    const auto theArray = PointerArray({99, 31, 12, 11, 32, 5, 13, 0});
    CFArraySortValues(theArray, CFRangeMake(1, 6), CompareTens, &theCalls);
    EXPECT_EQ(NumbersIn(theArray), (Numbers{99, 5, 12, 11, 13, 31, 32, 0}));
    EXPECT_GT(theCalls, 0);
}

TEST(CFArray, AComparatorThatContradictsItselfLosesNoValue)
{
    Numbers theExpected;
    for (std::intptr_t theNumber = 0; theNumber < 100; ++theNumber) {
        theExpected.push_back(theNumber);
    }
    const auto theArray = PointerArray(theExpected);
    CFArraySortValues(theArray, All(theArray), ContradictItself, nullptr);
    Numbers theResult = NumbersIn(theArray);
    std::sort(theResult.begin(), theResult.end());
    EXPECT_EQ(theResult, theExpected);
}

TEST(CFArray, AppliersSeeTheRangeInOrder)
{
    std::vector<std::intptr_t> theSeen;
    const auto theNote = [](const void* theValue, void* theContext) {
        static_cast<std::vector<std::intptr_t>*>(theContext)
            ->push_back(reinterpret_cast<std::intptr_t>(theValue));
    };
    CFArrayApplyFunction(PointerArray({1, 2, 3, 4}), CFRangeMake(1, 2), theNote, &theSeen);
    EXPECT_EQ(theSeen, (std::vector<std::intptr_t>{2, 3}));
}

TEST(CFArray, BisectionFindsTheValueOrItsPlace)
{
    const auto theArray =
        ObjectArray({CFSTR("z"), CFSTR("b"), CFSTR("d"), CFSTR("d"), CFSTR("f"), CFSTR("a")});
    const CFRange kSorted = CFRangeMake(1, 4);
    const std::pair<CFStringRef, CFIndex> kRows[] = {
        {CFSTR("a"), 1}, {CFSTR("b"), 1}, {CFSTR("c"), 2}, {CFSTR("d"), 2},
        {CFSTR("e"), 4}, {CFSTR("f"), 4}, {CFSTR("g"), 5},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(CFArrayBSearchValues(theArray, kSorted, theRow.first, CompareStrings, nullptr),
                  theRow.second)
            << TextOf(theRow.first);
    }
    EXPECT_EQ(CFArrayBSearchValues(theArray, CFRangeMake(3, 0), CFSTR("a"), CompareStrings, nullptr), 3);
}

TEST(CFArray, EqualArraysCompareTheirValuesInTheSameWay)
{
    const void* theValue = kCFBooleanTrue;
    const Owned<CFArrayRef> theObjects(CFArrayCreate(nullptr, &theValue, 1, &kCFTypeArrayCallBacks));
    const Owned<CFArrayRef> thePointers(CFArrayCreate(nullptr, &theValue, 1, nullptr));
    EXPECT_FALSE(CFEqual(theObjects, thePointers));
    EXPECT_FALSE(CFEqual(thePointers, theObjects));
    EXPECT_TRUE(CFEqual(thePointers, Owned(CFArrayCreate(nullptr, &theValue, 1, nullptr))));
}
