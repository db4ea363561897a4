// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFArrayObject.h"

#include "CFContainer.h"
#include "CFText.h"

#include <algorithm>

namespace {

constexpr CFArrayCallBacks kPointerCallBacks = {0, nullptr, nullptr, nullptr, nullptr};

CFArrayRef RequireArray(CFArrayRef theArray, const char* theCaller)
{
    return Host::Require(theArray, Host::kArrayType, theCaller);
}

CFMutableArrayRef RequireMutableArray(CFMutableArrayRef theArray, const char* theCaller)
{
    return Host::RequireMutable(theArray, Host::kArrayType, theCaller);
}

// theEnd is the first index that is too large.
void RequireIndex(CFIndex theIndex, CFIndex theEnd, const char* theCaller)
{
    if (theIndex < 0 || theIndex >= theEnd) {
        Host::Stop(theCaller, "the index is not inside the array");
    }
}

void RequireRange(CFArrayRef theArray, CFRange theRange, const char* theCaller)
{
    const CFIndex theCount = RequireArray(theArray, theCaller)->GetCount();
    if (theRange.location < 0 || theRange.length < 0 || theRange.location > theCount ||
        theRange.length > theCount - theRange.location) {
        Host::Stop(theCaller, "the range is not inside the array");
    }
}

const void* const* ValuesAt(CFArrayRef theArray, CFRange theRange)
{
    return theArray->mValues.data() + theRange.location;
}

bool EqualValues(CFArrayRef theArray, const void* theFirst, const void* theSecond)
{
    return Host::EqualValues(theArray->mCallBacks, theFirst, theSecond);
}

// Makes room first, so that the value is not retained in vain.
void InsertValue(CFMutableArrayRef theArray, CFIndex theIndex, const void* theValue)
{
    const auto thePlace = theArray->mValues.insert(theArray->mValues.begin() + theIndex, nullptr);
    *thePlace = Host::RetainValue(theArray->mCallBacks, theValue);
}

void AppendValues(CFMutableArrayRef theArray, const void* const* theValues, CFIndex theCount)
{
    const std::vector<const void*> theCopy(theValues, theValues + theCount); // they may be the array's own
    const auto theFirst = theArray->mValues.insert(theArray->mValues.end(), theCopy.size(), nullptr);
    std::transform(theCopy.begin(), theCopy.end(), theFirst,
                   [=](const void* theValue) { return Host::RetainValue(theArray->mCallBacks, theValue); });
}

CFMutableArrayRef CreateArray(const void* const* theValues, CFIndex theCount,
                              const CFArrayCallBacks* theCallBacks, bool theIsMutable)
{
    return Host::NothingWithoutMemory([=] {
        Host::NewObject<__CFArray> theArray(theCallBacks == nullptr ? kPointerCallBacks : *theCallBacks,
                                            theIsMutable);
        if (theCount > 0) {
            AppendValues(theArray.Get(), theValues, theCount);
        }
        return theArray.Release();
    });
}

// A release may run code that looks at the array, so the array is already without the values.
void ReleaseValues(const CFArrayCallBacks& theCallBacks, const std::vector<const void*>& theValues)
{
    for (const void* theValue : theValues) {
        Host::ReleaseValue(theCallBacks, theValue);
    }
}

// Every step stays inside the range, also when the comparator contradicts itself.
void MergeSort(const void** theFirst, const void** theLast, const void** theBuffer,
               CFComparatorFunction theComparator, void* theContext)
{
    if (theLast - theFirst < 2) {
        return;
    }
    const void** const theMiddle = theFirst + (theLast - theFirst) / 2;
    MergeSort(theFirst, theMiddle, theBuffer, theComparator, theContext);
    MergeSort(theMiddle, theLast, theBuffer, theComparator, theContext);
    const void** const theEnd = std::merge(
        theFirst, theMiddle, theMiddle, theLast, theBuffer, [=](const void* theValue, const void* theOther) {
            return theComparator(theValue, theOther, theContext) == kCFCompareLessThan;
        });
    std::copy(theBuffer, theEnd, theFirst);
}

CFArrayRef ArrayOf(const Host::Object* theObject)
{
    return static_cast<CFArrayRef>(theObject);
}

bool EqualArrays(const Host::Object* theFirst, const Host::Object* theSecond)
{
    const CFArrayRef theArray = ArrayOf(theFirst);
    const std::vector<const void*>& theOthers = ArrayOf(theSecond)->mValues;
    return std::equal(theArray->mValues.begin(), theArray->mValues.end(), theOthers.begin(), theOthers.end(),
                      [=](const void* theValue, const void* theOther) {
                          return EqualValues(theArray, theValue, theOther);
                      });
}

CFHashCode HashArray(const Host::Object* theObject)
{
    return static_cast<CFHashCode>(ArrayOf(theObject)->GetCount());
}

CFStringRef DescribeArray(const Host::Object* theObject)
{
    const CFArrayRef theArray = ArrayOf(theObject);
    Host::Text theText;
    theText.AppendHeader(theObject)
        .Append(theArray->mIsMutable ? "{type = mutable, count = " : "{type = immutable, count = ")
        .Append(std::to_string(theArray->GetCount()))
        .Append(", values = (");
    for (CFIndex theIndex = 0; theIndex < theArray->GetCount(); ++theIndex) {
        theText.Append(theIndex == 0 ? "\n\t" : "\t")
            .Append(std::to_string(theIndex))
            .Append(" : ")
            .AppendDescription(theArray->mValues[static_cast<size_t>(theIndex)],
                               theArray->mCallBacks.copyDescription)
            .Append("\n");
    }
    return theText.Append(")}").CopyString();
}

} // namespace

const Host::TypeOperations Host::kArrayType = {
    Host::kArrayTypeID, "CFArray", Host::Delete<__CFArray>, EqualArrays, HashArray, DescribeArray, nullptr};

const CFArrayCallBacks kCFTypeArrayCallBacks = {0, Host::RetainObject, Host::ReleaseObject, CFCopyDescription,
                                                CFEqual};

__CFArray::~__CFArray()
{
    ReleaseValues(mCallBacks, mValues);
}

CFTypeID CFArrayGetTypeID()
{
    return Host::kArrayTypeID;
}

// Making arrays

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** theValues, CFIndex theCount,
                         const CFArrayCallBacks* theCallBacks)
{
    if (theCount < 0) {
        return nullptr;
    }
    if (theValues == nullptr && theCount > 0) {
        Host::Stop(__func__, "the values are NULL");
    }
    return CreateArray(theValues, theCount, theCallBacks, false);
}

CFArrayRef CFArrayCreateCopy(CFAllocatorRef, CFArrayRef theArray)
{
    RequireArray(theArray, __func__);
    return CreateArray(theArray->mValues.data(), theArray->GetCount(), &theArray->mCallBacks, false);
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks* theCallBacks)
{
    return CreateArray(nullptr, 0, theCallBacks, true);
}

CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef, CFIndex, CFArrayRef theArray)
{
    RequireArray(theArray, __func__);
    return CreateArray(theArray->mValues.data(), theArray->GetCount(), &theArray->mCallBacks, true);
}

// Reading

CFIndex CFArrayGetCount(CFArrayRef theArray)
{
    return RequireArray(theArray, __func__)->GetCount();
}

const void* CFArrayGetValueAtIndex(CFArrayRef theArray, CFIndex theIndex)
{
    RequireIndex(theIndex, RequireArray(theArray, __func__)->GetCount(), __func__);
    return theArray->mValues[static_cast<size_t>(theIndex)];
}

void CFArrayGetValues(CFArrayRef theArray, CFRange theRange, const void** theValues)
{
    RequireRange(theArray, theRange, __func__);
    std::copy_n(ValuesAt(theArray, theRange), theRange.length, theValues);
}

Boolean CFArrayContainsValue(CFArrayRef theArray, CFRange theRange, const void* theValue)
{
    return CFArrayGetFirstIndexOfValue(theArray, theRange, theValue) != kCFNotFound;
}

CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef theArray, CFRange theRange, const void* theValue)
{
    RequireRange(theArray, theRange, __func__);
    for (CFIndex theIndex = 0; theIndex < theRange.length; ++theIndex) {
        if (EqualValues(theArray, ValuesAt(theArray, theRange)[theIndex], theValue)) {
            return theRange.location + theIndex;
        }
    }
    return kCFNotFound;
}

CFIndex CFArrayGetLastIndexOfValue(CFArrayRef theArray, CFRange theRange, const void* theValue)
{
    RequireRange(theArray, theRange, __func__);
    for (CFIndex theIndex = theRange.length - 1; theIndex >= 0; --theIndex) {
        if (EqualValues(theArray, ValuesAt(theArray, theRange)[theIndex], theValue)) {
            return theRange.location + theIndex;
        }
    }
    return kCFNotFound;
}

CFIndex CFArrayGetCountOfValue(CFArrayRef theArray, CFRange theRange, const void* theValue)
{
    RequireRange(theArray, theRange, __func__);
    const void* const* const theFirst = ValuesAt(theArray, theRange);
    return static_cast<CFIndex>(
        std::count_if(theFirst, theFirst + theRange.length,
                      [=](const void* theOther) { return EqualValues(theArray, theOther, theValue); }));
}

void CFArrayApplyFunction(CFArrayRef theArray, CFRange theRange, CFArrayApplierFunction theFunction,
                          void* theContext)
{
    RequireRange(theArray, theRange, __func__);
    for (CFIndex theIndex = 0; theIndex < theRange.length; ++theIndex) {
        theFunction(ValuesAt(theArray, theRange)[theIndex], theContext);
    }
}

// Changing

void CFArrayAppendValue(CFMutableArrayRef theArray, const void* theValue)
{
    CFArrayInsertValueAtIndex(theArray, CFArrayGetCount(theArray), theValue);
}

void CFArrayAppendArray(CFMutableArrayRef theArray, CFArrayRef theOther, CFRange theRange)
{
    RequireMutableArray(theArray, __func__);
    RequireRange(theOther, theRange, __func__);
    Host::NothingWithoutMemory(
        [=] { AppendValues(theArray, ValuesAt(theOther, theRange), theRange.length); });
}

void CFArrayInsertValueAtIndex(CFMutableArrayRef theArray, CFIndex theIndex, const void* theValue)
{
    RequireIndex(theIndex, RequireMutableArray(theArray, __func__)->GetCount() + 1, __func__);
    Host::NothingWithoutMemory([=] { InsertValue(theArray, theIndex, theValue); });
}

void CFArraySetValueAtIndex(CFMutableArrayRef theArray, CFIndex theIndex, const void* theValue)
{
    if (theIndex == CFArrayGetCount(theArray)) {
        CFArrayAppendValue(theArray, theValue);
        return;
    }
    RequireIndex(theIndex, RequireMutableArray(theArray, __func__)->GetCount(), __func__);
    // The old value may be the only owner of the new one.
    const void*& thePlace = theArray->mValues[static_cast<size_t>(theIndex)];
    const void* const theOldValue = thePlace;
    thePlace = Host::RetainValue(theArray->mCallBacks, theValue);
    Host::ReleaseValue(theArray->mCallBacks, theOldValue);
}

void CFArrayRemoveValueAtIndex(CFMutableArrayRef theArray, CFIndex theIndex)
{
    RequireIndex(theIndex, RequireMutableArray(theArray, __func__)->GetCount(), __func__);
    const void* const theValue = theArray->mValues[static_cast<size_t>(theIndex)];
    theArray->mValues.erase(theArray->mValues.begin() + theIndex);
    Host::ReleaseValue(theArray->mCallBacks, theValue);
}

void CFArrayRemoveAllValues(CFMutableArrayRef theArray)
{
    std::vector<const void*> theValues;
    theValues.swap(RequireMutableArray(theArray, __func__)->mValues);
    ReleaseValues(theArray->mCallBacks, theValues);
}

void CFArrayExchangeValuesAtIndices(CFMutableArrayRef theArray, CFIndex theFirst, CFIndex theSecond)
{
    const CFIndex theCount = RequireMutableArray(theArray, __func__)->GetCount();
    RequireIndex(theFirst, theCount, __func__);
    RequireIndex(theSecond, theCount, __func__);
    std::swap(theArray->mValues[static_cast<size_t>(theFirst)],
              theArray->mValues[static_cast<size_t>(theSecond)]);
}

void CFArraySortValues(CFMutableArrayRef theArray, CFRange theRange, CFComparatorFunction theComparator,
                       void* theContext)
{
    RequireMutableArray(theArray, __func__);
    RequireRange(theArray, theRange, __func__);
    Host::NothingWithoutMemory([=] {
        std::vector<const void*> theBuffer(static_cast<size_t>(theRange.length));
        const void** const theFirst = theArray->mValues.data() + theRange.location;
        MergeSort(theFirst, theFirst + theRange.length, theBuffer.data(), theComparator, theContext);
    });
}
