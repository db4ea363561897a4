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
    return theArray->mCallBacks.equal == ArrayOf(theSecond)->mCallBacks.equal &&
           std::equal(theArray->mValues.begin(), theArray->mValues.end(), theOthers.begin(), theOthers.end(),
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

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** inValues, CFIndex inCount,
                         const CFArrayCallBacks* inCallBacks)
{
    if (inCount < 0) {
        return nullptr;
    }
    if (inValues == nullptr && inCount > 0) {
        Host::Stop(__func__, "the values are NULL");
    }
    return CreateArray(inValues, inCount, inCallBacks, false);
}

CFArrayRef CFArrayCreateCopy(CFAllocatorRef, CFArrayRef inArray)
{
    RequireArray(inArray, __func__);
    return CreateArray(inArray->mValues.data(), inArray->GetCount(), &inArray->mCallBacks, false);
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks* inCallBacks)
{
    return CreateArray(nullptr, 0, inCallBacks, true);
}

CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef, CFIndex, CFArrayRef inArray)
{
    RequireArray(inArray, __func__);
    return CreateArray(inArray->mValues.data(), inArray->GetCount(), &inArray->mCallBacks, true);
}

// Reading

CFIndex CFArrayGetCount(CFArrayRef inArray)
{
    return RequireArray(inArray, __func__)->GetCount();
}

const void* CFArrayGetValueAtIndex(CFArrayRef inArray, CFIndex inIndex)
{
    RequireIndex(inIndex, RequireArray(inArray, __func__)->GetCount(), __func__);
    return inArray->mValues[static_cast<size_t>(inIndex)];
}

void CFArrayGetValues(CFArrayRef inArray, CFRange inRange, const void** outValues)
{
    RequireRange(inArray, inRange, __func__);
    std::copy_n(ValuesAt(inArray, inRange), inRange.length, outValues);
}

Boolean CFArrayContainsValue(CFArrayRef inArray, CFRange inRange, const void* inValue)
{
    return CFArrayGetFirstIndexOfValue(inArray, inRange, inValue) != kCFNotFound;
}

CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef inArray, CFRange inRange, const void* inValue)
{
    RequireRange(inArray, inRange, __func__);
    for (CFIndex theIndex = 0; theIndex < inRange.length; ++theIndex) {
        if (EqualValues(inArray, ValuesAt(inArray, inRange)[theIndex], inValue)) {
            return inRange.location + theIndex;
        }
    }
    return kCFNotFound;
}

CFIndex CFArrayGetLastIndexOfValue(CFArrayRef inArray, CFRange inRange, const void* inValue)
{
    RequireRange(inArray, inRange, __func__);
    for (CFIndex theIndex = inRange.length - 1; theIndex >= 0; --theIndex) {
        if (EqualValues(inArray, ValuesAt(inArray, inRange)[theIndex], inValue)) {
            return inRange.location + theIndex;
        }
    }
    return kCFNotFound;
}

CFIndex CFArrayGetCountOfValue(CFArrayRef inArray, CFRange inRange, const void* inValue)
{
    RequireRange(inArray, inRange, __func__);
    const void* const* const theFirst = ValuesAt(inArray, inRange);
    return static_cast<CFIndex>(std::count_if(theFirst, theFirst + inRange.length, [=](const void* theOther) {
        return EqualValues(inArray, theOther, inValue);
    }));
}

void CFArrayApplyFunction(CFArrayRef inArray, CFRange inRange, CFArrayApplierFunction inFunction,
                          void* inContext)
{
    RequireRange(inArray, inRange, __func__);
    for (CFIndex theIndex = 0; theIndex < inRange.length; ++theIndex) {
        inFunction(ValuesAt(inArray, inRange)[theIndex], inContext);
    }
}

// Changing

void CFArrayAppendValue(CFMutableArrayRef inArray, const void* inValue)
{
    CFArrayInsertValueAtIndex(inArray, CFArrayGetCount(inArray), inValue);
}

void CFArrayAppendArray(CFMutableArrayRef inArray, CFArrayRef inOther, CFRange inRange)
{
    RequireMutableArray(inArray, __func__);
    RequireRange(inOther, inRange, __func__);
    Host::NothingWithoutMemory([=] { AppendValues(inArray, ValuesAt(inOther, inRange), inRange.length); });
}

void CFArrayInsertValueAtIndex(CFMutableArrayRef inArray, CFIndex inIndex, const void* inValue)
{
    RequireIndex(inIndex, RequireMutableArray(inArray, __func__)->GetCount() + 1, __func__);
    Host::NothingWithoutMemory([=] { InsertValue(inArray, inIndex, inValue); });
}

void CFArraySetValueAtIndex(CFMutableArrayRef inArray, CFIndex inIndex, const void* inValue)
{
    if (inIndex == CFArrayGetCount(inArray)) {
        CFArrayAppendValue(inArray, inValue);
        return;
    }
    RequireIndex(inIndex, RequireMutableArray(inArray, __func__)->GetCount(), __func__);
    // The old value may be the only owner of the new one.
    const void*& thePlace = inArray->mValues[static_cast<size_t>(inIndex)];
    const void* const theOldValue = thePlace;
    thePlace = Host::RetainValue(inArray->mCallBacks, inValue);
    Host::ReleaseValue(inArray->mCallBacks, theOldValue);
}

void CFArrayRemoveValueAtIndex(CFMutableArrayRef inArray, CFIndex inIndex)
{
    RequireIndex(inIndex, RequireMutableArray(inArray, __func__)->GetCount(), __func__);
    const void* const theValue = inArray->mValues[static_cast<size_t>(inIndex)];
    inArray->mValues.erase(inArray->mValues.begin() + inIndex);
    Host::ReleaseValue(inArray->mCallBacks, theValue);
}

void CFArrayRemoveAllValues(CFMutableArrayRef inArray)
{
    std::vector<const void*> theValues;
    theValues.swap(RequireMutableArray(inArray, __func__)->mValues);
    ReleaseValues(inArray->mCallBacks, theValues);
}

void CFArrayExchangeValuesAtIndices(CFMutableArrayRef inArray, CFIndex inFirst, CFIndex inSecond)
{
    const CFIndex theCount = RequireMutableArray(inArray, __func__)->GetCount();
    RequireIndex(inFirst, theCount, __func__);
    RequireIndex(inSecond, theCount, __func__);
    std::swap(inArray->mValues[static_cast<size_t>(inFirst)],
              inArray->mValues[static_cast<size_t>(inSecond)]);
}

void CFArraySortValues(CFMutableArrayRef inArray, CFRange inRange, CFComparatorFunction inComparator,
                       void* inContext)
{
    RequireMutableArray(inArray, __func__);
    RequireRange(inArray, inRange, __func__);
    Host::NothingWithoutMemory([=] {
        std::vector<const void*> theBuffer(static_cast<size_t>(inRange.length));
        const void** const theFirst = inArray->mValues.data() + inRange.location;
        MergeSort(theFirst, theFirst + inRange.length, theBuffer.data(), inComparator, inContext);
    });
}

CFIndex CFArrayBSearchValues(CFArrayRef inArray, CFRange inRange, const void* inValue,
                             CFComparatorFunction inComparator, void* inContext)
{
    RequireArray(inArray, __func__);
    RequireRange(inArray, inRange, __func__);
    const auto theFirst = inArray->mValues.begin() + inRange.location;
    const auto theFound = std::lower_bound(
        theFirst, theFirst + inRange.length, inValue, [=](const void* theValue, const void* theWanted) {
            return inComparator(theValue, theWanted, inContext) == kCFCompareLessThan;
        });
    return static_cast<CFIndex>(theFound - inArray->mValues.begin());
}
